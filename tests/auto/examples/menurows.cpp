// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include <KELLabel>
#include <KELRadioBox>
#include <KELSideMenu>
#include <KELSlideControl>

#include <QGraphicsWidget>
#include <QVector>

KELSideMenu *newMenuRows(QWidget *window)
{
    auto *menu = new KELSideMenu(window);
    menu->setOrientation(KELSideMenu::Vertical);
    QVector<KELLabel *> rows;
    for (int i = 0; i < 3; ++i) {
        auto *row = new KELLabel;
        row->setboundRect(0, 0, 300, 60);
        menu->addItem(row);
        rows.append(row);
    }
    // After the last addItem(): items on a row count towards the length of the menu.
    for (KELLabel *row : qAsConst(rows)) {
        auto *layer = new QGraphicsWidget(row);
        layer->setPos(row->boundingRect().topLeft());
        auto *box = new KELRadioBox(layer);
        box->setboundRect(10, 10, 40, 40);
        auto *slider = new KELSlideControl(layer);
        slider->setboundRect(60, 15, 230, 30);
    }
    return menu;
}
