// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef HOWTOSAMPLES_H
#define HOWTOSAMPLES_H

#include <QtCore/QObject>
#include <QtCore/QStringList>
#include <QtGui/QPixmap>

QT_BEGIN_NAMESPACE
class QAbstractItemModel;
class QGraphicsGridLayout;
class QGraphicsScene;
class QMenu;
QT_END_NAMESPACE
class KELCheckBox;
class KELLabel;
class KELList;
class KELNonModalDialog;
class KELPage;
class KELPicker;
class KELProcessBar;
class KELPushButton;
class KELRadioBox;
class KELRadioBoxGroup;
class KELRange;
class KELRoundRectControl;
class KELRow;
class KELScreen;
class KELTheme;

// The code of docs/guide/howto.md.
namespace HowTo {

void fillTheScreen(KELScreen *screen);
void openAPage(KELScreen *screen);
void watchAPage(KELPage *page, QObject *sensor);
void letPagesSlide(KELScreen *screen);
void stopAllMotion();
void stackControls(KELPage *page, KELLabel *label, KELPushButton *button);
void makeKeys(QGraphicsGridLayout *grid);
void sizeAControl(KELPushButton *button);
void fillACard(KELRoundRectControl *card, KELLabel *label);
void placeByHand(QGraphicsScene *scene, KELPushButton *button);
void mirror(KELScreen *screen);
void growACaption(KELLabel *label);
void enlarge(KELLabel *label);
void wrap(KELLabel *label);
void alignACaption(KELLabel *label);
void showAGlyph(KELPushButton *button, const QString &fontPath);
void showAPicture(KELRoundRectControl *control, const QPixmap &picture);
void reactToATap(KELPushButton *button, QObject *pump);
void reactToAHold(KELPushButton *button, QObject *pump);
void stayDown(KELPushButton *button);
void disable(KELPushButton *button);
void chooseThePressedLook(KELPushButton *button);
void round(KELPushButton *button);
void openAMenu(KELPushButton *button, QMenu *menu);
void letThrough(KELLabel *caption);
void showAValue(QObject *boiler, KELLabel *label);
void changeAValue(QObject *boiler, KELRange *range);
void showProgress(KELProcessBar *bar);
void takeANumber(KELRange *range);
void readASwitch(KELCheckBox *box, QObject *pump);
void showRows(KELList *list, QAbstractItemModel *model);
void reactToARow(KELList *list, QObject *machine);
void scrollToARow(KELList *list);
void chooseFromMany(KELPicker *picker, const QStringList &zones);
void chooseFromFew(KELRadioBoxGroup *group, KELRadioBox *slow, KELRadioBox *fast);
void makeASetting(KELRow *row);
void askForAPin(KELScreen *screen);
void showAPanel(KELNonModalDialog *panel);
void darken(KELTheme *theme, KELScreen *screen);
void useOwnColours(KELTheme *theme);
void keepAColour(KELPushButton *stop);
void enlargeTargets();
void keepPictures();

} // namespace HowTo

#endif
