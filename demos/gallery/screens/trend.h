// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef TREND_H
#define TREND_H

#include <KELPart>
#include <QtCore/QVector>

// The newest values as a line, the last one at the right end, in every language. It takes no
// presses.
class Trend : public KELPart
{
    Q_OBJECT

public:
    // Shows up to capacity values, at least two.
    explicit Trend(int capacity);

    // What the lower and the upper edge stand for. If both are equal, the range is that of the
    // values.
    void setRange(double minimum, double maximum);
    // Lines at the bottom and half-way up.
    void setGridShown(bool shown);
    void setValues(const QVector<double> &values);

    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option,
               QWidget *widget = nullptr) override;

protected:
    QSizeF sizeHint(Qt::SizeHint which, const QSizeF &constraint = QSizeF()) const override;

private:
    Q_DISABLE_COPY(Trend)
    QPolygonF line() const;

    const int m_capacity;
    QVector<double> m_values;
    double m_minimum = 0;
    double m_maximum = 0;
    bool m_isGridShown = false;
};

#endif
