// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "kellabel.h"

#include "kelpainting_p.h"

KELLabel::KELLabel(QGraphicsObject *parent) : KELRoundRectControl(parent)
{
    m_style = KELLabel::initStyle();
}

KELLabel::~KELLabel() = default;

void KELLabel::paint(QPainter *painter, const QStyleOptionGraphicsItem *styleOption,
                     QWidget *widget)
{
    KELRoundRectControl::paint(painter, styleOption, widget);
}

KELRoundRectControlStyle *KELLabel::initStyle()
{
    m_style->foregroundBrush = KELPainting::solidBrush(qRgb(255, 255, 255));
    m_style->backgroundBrush = QBrush(Qt::NoBrush);
    m_style->borderWidth = 0;
    return m_style;
}
