// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "kelcombobox_p.h"

#include <utility>

KELComboBoxItem::KELComboBoxItem(QGraphicsObject *parent) :
    KELPushButton(parent), d(new KELComboBoxItemPrivate)
{
    m_style = KELComboBoxItem::initStyle();
    d->label.create(this);
    d->label.place(rect());
}

KELComboBoxItem::~KELComboBoxItem()
{
    if (d->box)
        d->box->forget(this);
    delete d;
}

QString KELComboBoxItem::display() const
{
    return d->display;
}

void KELComboBoxItem::setDisplay(QString display) // clazy:exclude=function-args-by-ref
{
    d->display = std::move(display);
    KELComboBoxParts::showText(d->label, d->display);
}

QVariant KELComboBoxItem::value() const
{
    return d->value;
}

void KELComboBoxItem::setValue(QVariant value) // clazy:exclude=function-args-by-ref
{
    d->value = std::move(value);
}

void KELComboBoxItem::setboundRect(const QRectF &rect)
{
    prepareGeometryChange();
    KELPushButton::setboundRect(rect);
    d->label.place(QRectF(0, 0, rect.width(), rect.height()));
    update();
}

void KELComboBoxItem::setboundRect(qreal x, qreal y, qreal w, qreal h)
{
    prepareGeometryChange();
    KELPushButton::setboundRect(x, y, w, h);
    d->label.place(QRectF(0, 0, w, h));
    update();
}

KELPushButtonStyle *KELComboBoxItem::initStyle()
{
    m_style->backgroundBrush = QBrush(Qt::NoBrush);
    m_style->borderWidth = 0;
    m_style->borderBrush = QBrush(Qt::NoBrush);
    return static_cast<KELPushButtonStyle *>(m_style);
}
