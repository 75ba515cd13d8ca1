// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "comboboxpage.h"

#include "code/code.h"
#include "eventlog.h"

#include <KELComboBox>
#include <KELPicker>
#include <KELPushButton>
#include <QtCore/QMetaEnum>
#include <QtWidgets/QGraphicsLinearLayout>

namespace {

constexpr int zoneCount = 30;

KELPushButton *newButton(const QString &text, const QString &objectName)
{
    auto *button = new KELPushButton;
    button->setText(text);
    button->setObjectName(objectName);
    return button;
}

} // namespace

ComboBoxPage::ComboBoxPage(const PageHost &pageHost, const QRectF &area) :
    CardPage(pageHost, area, QStringLiteral("Combo box"),
             QStringLiteral("A tap opens the list below, another one picks an entry"))
{
    addProgrammes();
    addDisabled();
    addPicker();
}

void ComboBoxPage::addProgrammes()
{
    KELComboBox *box = Code::newComboBox(QMetaEnum::fromType<Programme>());
    box->setObjectName(QStringLiteral("combo-programme"));
    KELPushButton *next = newButton(QStringLiteral("Next"), QStringLiteral("select-next"));
    host.log->watch(next, next->text());
    connect(next, &KELPushButton::mouseClicked, box,
            [box] { box->setSelectIndex((box->selectIndex() + 1) % box->items().size()); });
    addBox(QStringLiteral("From an enumeration; its code is shown"), box, next,
           QStringLiteral("Programme"));
}

void ComboBoxPage::addDisabled()
{
    auto *box = new KELComboBox;
    box->addItem(true, QStringLiteral("Locked"));
    box->addItem(false, QStringLiteral("Open"));
    box->setObjectName(QStringLiteral("combo-disabled"));
    box->setEnabled(remembered(QStringLiteral("enabled")) != 0);
    KELPushButton *toggle = newButton(QString(), QStringLiteral("toggle-enabled"));
    const auto refresh = [box, toggle] {
        toggle->setText(box->isEnabled() ? QStringLiteral("Disable") : QStringLiteral("Enable"));
    };
    refresh();
    connect(toggle, &KELPushButton::mouseClicked, box, [this, box, refresh] {
        box->setEnabled(!box->isEnabled());
        remembered(QStringLiteral("enabled")) = box->isEnabled();
        refresh();
    });
    host.log->watch(toggle, QStringLiteral("Enable"));
    addBox(QStringLiteral("Of its own values, disabled at first"), box, toggle,
           QStringLiteral("Disabled"));
}

// A list of a combo box neither scrolls nor stays inside the window.
void ComboBoxPage::addPicker()
{
    auto *picker = new KELPicker;
    picker->setObjectName(QStringLiteral("picker-zone"));
    QStringList zones;
    for (int zone = 1; zone <= zoneCount; ++zone)
        zones.append(QStringLiteral("Zone %1").arg(zone));
    picker->setItems(zones);
    picker->setCaption(QStringLiteral("Zone"));
    picker->setCurrentIndex(remembered(QStringLiteral("zone")));
    connect(picker, &KELPicker::currentIndexChanged, this, [this, picker] {
        remembered(QStringLiteral("zone")) = picker->currentIndex();
        host.log->add(QStringLiteral("Picker"), picker->currentText());
    });
    QGraphicsLinearLayout *card = newCard(
        QStringLiteral("For a long list: a picker, which scrolls"));
    card->addItem(picker);
}

void ComboBoxPage::addBox(const QString &caption, KELComboBox *box, KELPushButton *button,
                          const QString &name)
{
    box->setSelectIndex(remembered(name));
    host.log->watch(box, name);
    connect(box, &KELComboBox::selectItemChanged, this,
            [this, box, name] { remembered(name) = box->selectIndex(); });
    QGraphicsLinearLayout *card = newCard(caption);
    addSamples(card, {{box, QString()}});
    addSamples(card, {{button, QString()}});
}
