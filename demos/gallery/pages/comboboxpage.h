// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef COMBOBOXPAGE_H
#define COMBOBOXPAGE_H

#include "page.h"

#include <QtCore/QPointer>
#include <QtCore/QVector>

class KELComboBox;
class KELPushButton;

// KELComboBox: filled from an enumeration, with 1,000 entries, and disabled.
class ComboBoxPage : public Page
{
    Q_OBJECT

public:
    enum class Programme { Off, Eco, Comfort, Boost, Holiday };
    Q_ENUM(Programme)

    ComboBoxPage(const PageHost &host, const QRectF &area);
    ~ComboBoxPage() override;

    void attached() override;

private:
    Q_DISABLE_COPY(ComboBoxPage)

    KELComboBox *addBox(const QRectF &rect, const QString &name);
    void fill();
    void rememberSelection(KELComboBox *box, const QString &key);
    void connectButtons();
    void refresh();

    QVector<QRectF> m_slots; // for the boxes, relative to the page
    QVector<KELPushButton *> m_buttons;
    KELRoundRectControl *m_state;
    QPointer<KELComboBox> m_programmes;
    QPointer<KELComboBox> m_many;
    QPointer<KELComboBox> m_disabled;
};

#endif
