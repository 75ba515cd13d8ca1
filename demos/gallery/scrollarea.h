// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef SCROLLAREA_H
#define SCROLLAREA_H

#include <KELPart>
#include <QtCore/QElapsedTimer>

/*
 * Content that may be higher than its room. A finger on its ground, and the wheel, scroll it; what
 * takes presses itself keeps them.
 */
class ScrollArea : public KELPart
{
    Q_OBJECT

public:
    explicit ScrollArea(QGraphicsItem *parent);

    QGraphicsWidget *content() const;
    // Gives the content the width of the area, and the height that its layout wants.
    void fitContent();

    qreal position() const;
    void setPosition(qreal position);

    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option,
               QWidget *widget = nullptr) override;

Q_SIGNALS:
    void positionChanged();

protected:
    bool event(QEvent *event) override;
    bool pressEvent(const QPointF &pos) override;
    void dragEvent(const QPointF &pos, bool isDrag) override;
    void releaseEvent(const QPointF &pos, bool isTap) override;
    void pressLostEvent() override;
    void wheelEvent(QGraphicsSceneWheelEvent *event) override;

private:
    Q_DISABLE_COPY(ScrollArea)
    qreal greatestPosition() const;

    QGraphicsWidget *m_content;
    QGraphicsWidget *m_mark;
    QElapsedTimer m_clock;
    QPointF m_lastPos;
};

#endif
