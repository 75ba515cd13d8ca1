// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef MENUSTAGE_H
#define MENUSTAGE_H

#include "keltest.h"
#include "rows.h"

#include <kellineitem.h>
#include <kelsidemenu.h>

constexpr int horizontally = 0;
constexpr int vertically = 1;
// Every value but one means a vertical menu.
inline const std::vector<Named> orientations = {
    {"horizontal", horizontally}, {"vertical", vertically}, {"seven", 7}};

inline KELRoundRectControl *newControl(const QSizeF &size = QSizeF(100, 40))
{
    auto *control = new KELRoundRectControl(nullptr);
    control->setboundRect(QRectF(QPointF(33, 44), size));
    return control;
}

class Menu : public KELSideMenu
{
public:
    explicit Menu(int orientation = horizontally) :
        KELSideMenu(nullptr), m_isHorizontal(orientation == horizontally)
    {
        setOrientation(OrientationMode(orientation));
    }

    using KELSideMenu::resizeEvent;

    KELRoundRectControl *add(const QSizeF &size = QSizeF(100, 40))
    {
        KELRoundRectControl *control = newControl(size);
        addItem(control);
        return control;
    }
    QRectF rectOfNext(const QSizeF &size = QSizeF(100, 40))
    {
        return add(size)->style()->boundRect;
    }
    QList<KELLineItem *> separators() const
    {
        QList<KELLineItem *> lines;
        for (QGraphicsItem *item : scene()->items(Qt::AscendingOrder)) {
            if (auto *line = dynamic_cast<KELLineItem *>(item))
                lines.append(line);
        }
        return lines;
    }

    // Of its orientation at the beginning.
    int length() const { return m_isHorizontal ? width() : height(); }
    int thickness() const { return m_isHorizontal ? height() : width(); }
    qreal begin(const QRectF &rect) const { return m_isHorizontal ? rect.x() : rect.y(); }

    void showAndWait()
    {
        show();
        QVERIFY(QTest::qWaitForWindowExposed(this));
    }

private:
    const bool m_isHorizontal;
};

#endif
