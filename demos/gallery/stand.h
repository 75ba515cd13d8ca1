// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef STAND_H
#define STAND_H

#include "specimen.h"

#include <KELRoundRectControl>
#include <QtGui/QBrush>
#include <QtGui/QFont>
#include <QtWidgets/QGraphicsScene>

#include <memory>

namespace Anatomy {

// Hinting and subpixels are the machine's; the pictures are not.
QFont plainFont(int pixelSize, QFont::Weight weight = QFont::Normal);

// The pen, the brush and the font of item px that a scene's controls are drawn with.
void drawScene(QGraphicsScene *scene, const QSizeF &size, QPainter *painter);

// Controls that are photographed: they live as long as the specimen.
class Stand
{
public:
    Stand() : m_scene(std::make_shared<QGraphicsScene>())
    {
        m_scene->setItemIndexMethod(QGraphicsScene::NoIndex);
    }

    template <class Control>
    Control *add(Control *control, const QRectF &rect) const
    {
        control->setboundRect(rect.x(), rect.y(), rect.width(), rect.height());
        control->style()->font = plainFont(fontSizePx);
        m_scene->addItem(control);
        return control;
    }

    Specimen specimen(const QString &title, const QSizeF &size, std::vector<CallOut> callOuts = {},
                      std::vector<QRectF> guides = {}) const;

    static constexpr int fontSizePx = 15;

private:
    std::shared_ptr<QGraphicsScene> m_scene;
};

// What is above and below a glyph and a caption that are this far apart and centred in height.
constexpr qreal pairGapPx = 6;
qreal pairEdge(qreal height, const KELRoundRectControlStyle &style);

// A field of a record, and the other value that it is given.
template <class Style, class Owner, class Value>
Field field(const char *name, Style *style, Value Owner::*member, const Value &other)
{
    return {QLatin1String(name), [style, member, other] { style->*member = other; }};
}

const QColor signalColour(255, 0, 255);

template <class Style, class Owner>
Field brush(const char *name, Style *style, QBrush Owner::*member)
{
    return field(name, style, member, QBrush(signalColour));
}

} // namespace Anatomy

#endif
