// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef BAREITEM_H
#define BAREITEM_H

#include <QtCore/QRectF>
#include <QtCore/QString>
#include <QtWidgets/QGraphicsObject>

// The least that a control could be: holds a rectangle and a text, paints nothing, and has the
// cache and the flags that a control has.
class BareItem : public QGraphicsObject
{
public:
    explicit BareItem(QGraphicsItem *parent = nullptr) : QGraphicsObject(parent)
    {
        setCacheMode(DeviceCoordinateCache);
        setFlag(ItemIsPanel);
        setAcceptHoverEvents(true);
        setAcceptTouchEvents(true);
        setFlag(ItemIsSelectable);
        setAcceptedMouseButtons(Qt::LeftButton);
        setFiltersChildEvents(true);
        setHandlesChildEvents(true);
        setFlag(ItemClipsToShape);
    }

    // One with parts - 1 others inside it.
    static BareItem *create(int parts)
    {
        auto *item = new BareItem;
        for (int part = 1; part < parts; ++part)
            new BareItem(item);
        return item;
    }

    QRectF boundingRect() const override { return m_rect; }
    void paint(QPainter * /*painter*/, const QStyleOptionGraphicsItem * /*option*/,
               QWidget * /*widget*/) override
    { }

    void setRect(const QRectF &rect)
    {
        prepareGeometryChange();
        m_rect = rect;
    }
    void setText(const QString &text)
    {
        m_text = text;
        update();
    }

private:
    Q_DISABLE_COPY(BareItem)

    QRectF m_rect;
    QString m_text;
};

#endif
