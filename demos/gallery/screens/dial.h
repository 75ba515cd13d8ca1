// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef DIAL_H
#define DIAL_H

#include <KELPart>

/*
 * A value on an arc, in half steps. A press on the arc takes hold of the knob; one inside the ring
 * does nothing. It is not mirrored.
 */
class Dial : public KELPart
{
    Q_OBJECT
    Q_PROPERTY(double value READ value WRITE setValue NOTIFY valueChanged)

public:
    Dial(double minimum, double maximum);

    double value() const;
    void setValue(double value);
    // Of the part of the arc up to the value.
    void setFill(const QBrush &brush);
    // The square in the middle that is free.
    QRectF inside() const;

    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option,
               QWidget *widget = nullptr) override;

Q_SIGNALS:
    void valueChanged(double value);

protected:
    bool pressEvent(const QPointF &pos) override;
    void dragEvent(const QPointF &pos, bool isDrag) override;
    void keyPressEvent(QKeyEvent *event) override;
    QSizeF sizeHint(Qt::SizeHint which, const QSizeF &constraint = QSizeF()) const override;

private:
    Q_DISABLE_COPY(Dial)
    QRectF ring() const;
    double valueAt(const QPointF &pos) const;

    const double m_minimum;
    const double m_maximum;
    double m_value;
    QBrush m_fill;
};

#endif
