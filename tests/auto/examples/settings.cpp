// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include <KELComboBox>
#include <KELNavigationTable>
#include <KELRadioBox>
#include <KELSlideControl>

#include <QGraphicsWidget>

KELNavigationTable *newSettings()
{
    auto *table = new KELNavigationTable;
    table->setboundRect(0, 0, 440, 310);
    auto *style = static_cast<KELNavigationTableStyle *>(table->style());
    style->title = "Settings";
    style->showTitle = true;

    auto *page = new KELNavigationTableItem;
    page->setText("Cooling");
    table->addItem(page); // places the page: below the title bar

    auto *layer = new QGraphicsWidget(page);
    layer->setPos(page->boundingRect().topLeft());

    auto *group = new KELRadioBoxGroup(page);
    for (int id = 0; id < 3; ++id) {
        auto *box = new KELRadioBox(layer);
        box->setboundRect(20 + 60 * id, 20, 40, 40); // from the corner of the page
        group->addRadioBox(box, id);
    }
    auto *slider = new KELSlideControl(layer);
    slider->setboundRect(20, 100, 230, 40);

    auto *speed = new KELComboBox(page); // not on a layer that was moved with setPos()
    speed->setboundRect(270, 20, 150, 40);
    speed->addItem(100, "Slow");
    speed->addItem(250, "Fast");
    speed->addItem(400, "Full");

    auto *heating = new KELNavigationTableItem;
    heating->setText("Heating");
    table->addItem(heating);
    return table;
}
