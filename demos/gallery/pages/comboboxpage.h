// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef COMBOBOXPAGE_H
#define COMBOBOXPAGE_H

#include "cardpage.h"

class KELComboBox;
class KELPushButton;

// KELComboBox: filled from an enumeration, and disabled; and what long lists are for.
class ComboBoxPage : public CardPage
{
    Q_OBJECT

public:
    enum class Programme { Off, Eco, Comfort, Boost, Holiday };
    Q_ENUM(Programme)

    ComboBoxPage(const PageHost &host, const QRectF &area);

private:
    Q_DISABLE_COPY(ComboBoxPage)

    void addProgrammes();
    void addDisabled();
    void addPicker();
    void addBox(const QString &caption, KELComboBox *box, KELPushButton *button,
                const QString &name);
};

#endif
