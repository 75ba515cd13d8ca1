// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "kellineitem.h"

#include "kelpainting_p.h"

#include <QtCore/QLineF>
#include <QtGui/QPainter>

class KELLineItemPrivate
{
public:
    QLineF line;
};

KELLineItem::KELLineItem(QGraphicsObject *parent) :
    KELRoundRectControl(parent), d(new KELLineItemPrivate)
{
    m_style = KELLineItem::initStyle();
}

KELLineItem::~KELLineItem()
{
    delete d;
}

void KELLineItem::setLine(const QPointF &p1, const QPointF &p2)
{
    d->line = QLineF(p1, p2);
    setboundRect(qMin(p1.x(), p2.x()), qMin(p1.y(), p2.y()), qAbs(p1.x() - p2.x()),
                 qAbs(p1.y() - p2.y()));
}

void KELLineItem::paint(QPainter *painter, const QStyleOptionGraphicsItem * /*styleOption*/,
                        QWidget * /*widget*/)
{
    if (!KELPainting::isPaintable(QRectF(d->line.p1(), d->line.p2())))
        return;
    // Compat: no antialiasing, and the line is drawn where it was set, whatever the rectangle is
    painter->setPen(KELPainting::outlinePen(m_style->borderBrush, m_style->borderWidth));
    painter->drawLine(d->line);
}

KELRoundRectControlStyle *KELLineItem::initStyle()
{
    return m_style;
}
