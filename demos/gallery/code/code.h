// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef CODE_H
#define CODE_H

#include <KELDataBind>
#include <QtCore/QVector>
#include <QtGui/QPixmap>

QT_BEGIN_NAMESPACE
class QMetaEnum;
QT_END_NAMESPACE

class KELCheckBox;
class KELComboBox;
class KELLabel;
class KELLineItem;
class KELProcessBar;
class KELPushButton;
class KELRadioBox;
class KELRadioBoxGroup;
class KELRoundRectControl;
class KELSlideControl;

// The samples that "Show code" shows, each from the file of its page.
namespace Code {

KELRoundRectControl *newCard();
KELPushButton *newPushButton();
KELLabel *newLabel();
KELLineItem *newSeparator();
KELCheckBox *newSwitch();
void makeExclusive(KELRadioBoxGroup *group, const QVector<KELRadioBox *> &boxes);
KELComboBox *newComboBox(const QMetaEnum &values);
KELProcessBar *newProgressBar();
KELSlideControl *newSlider();
void bindLevel(KELDataBind *binding, QObject *slider, QObject *model, KELDataBind::BindMode mode);
QPixmap newBadge();

} // namespace Code

#endif
