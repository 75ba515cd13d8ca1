// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef MENUSTAGE_H
#define MENUSTAGE_H

#include "keltest.h"

#include <kellineitem.h>
#include <kelsidemenu.h>

constexpr int vertically = 1;
constexpr int otherOrientation = 7;

// Reaches what is protected.
class OpenMenu : public KELSideMenu
{
public:
    using KELSideMenu::KELSideMenu;
    using KELSideMenu::resizeEvent;

    void setOrientationValue(int value) { setOrientation(OrientationMode(value)); }
};

inline KELRoundRectControl *makeControl(const QSizeF &size)
{
    auto *control = new KELRoundRectControl(nullptr);
    control->setboundRect(QRectF(QPointF(33, 44), size));
    return control;
}

inline KELRoundRectControl *add(KELSideMenu *menu, const QSizeF &size = QSizeF(100, 40))
{
    KELRoundRectControl *control = makeControl(size);
    menu->addItem(control);
    return control;
}

inline QList<KELLineItem *> separatorsOf(const KELSideMenu &menu)
{
    QList<KELLineItem *> lines;
    for (QGraphicsItem *item : menu.scene()->items(Qt::AscendingOrder)) {
        if (auto *line = dynamic_cast<KELLineItem *>(item))
            lines.append(line);
    }
    return lines;
}

inline void addOrientations()
{
    QTest::addColumn<int>("orientation");
    QTest::newRow("horizontal") << 0;
    QTest::newRow("vertical") << vertically;
    QTest::newRow("seven") << otherOrientation;
}

#endif
