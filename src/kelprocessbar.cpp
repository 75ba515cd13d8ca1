// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "kelprocessbar.h"

#include "kelpainting_p.h"
#include "kelrounding_p.h"

#include <QtCore/QPointer>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

namespace {

constexpr int completePercent = 100;
constexpr qreal barHeightPx = 30;

} // namespace

class KELProcessBarPrivate
{
public:
    int value = 0; // percent
};

KELProcessBar::KELProcessBar(QGraphicsObject *parent) :
    KELRoundRectControl(parent), d(new KELProcessBarPrivate)
{
    m_style = KELProcessBar::initStyle();
}

KELProcessBar::~KELProcessBar()
{
    delete d;
}

int KELProcessBar::value() const
{
    return d->value;
}

void KELProcessBar::setValue(int v)
{
    if (v == d->value)
        return;
    d->value = v; // Compat: not limited to 0 to 100
    update();
    const QPointer<KELProcessBar> alive(this);
    Q_EMIT valueChanged();
    if (alive && v == completePercent && d->value == completePercent)
        Q_EMIT completed();
}

void KELProcessBar::paint(QPainter *painter, const QStyleOptionGraphicsItem * /*styleOption*/,
                          QWidget * /*widget*/)
{
    const QRectF rect = boundingRect();
    const QRectF bar(rect.x(), rect.y() + rect.height() * 0.5 - barHeightPx * 0.5, rect.width(),
                     barHeightPx);
    if (!KELPainting::isPaintable(bar))
        return;
    painter->setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing, true);
    QPainterPath pill;
    pill.addRoundedRect(bar, KELPainting::usableRadius(m_style->xRadius),
                        KELPainting::usableRadius(m_style->yRadius), Qt::AbsoluteSize);
    // Compat: replaces the painter's clip and stays there
    painter->setClipPath(pill, Qt::ReplaceClip);

    painter->setPen(Qt::NoPen);
    painter->setBrush(KELPainting::usableBrush(m_style->backgroundBrush));
    painter->drawRect(bar);
    const int fillWidth = KELRounding::towardsZero(d->value * bar.width() / completePercent);
    painter->setBrush(KELPainting::usableBrush(m_style->borderBrush));
    painter->drawRect(QRectF(bar.left(), bar.top(), fillWidth, barHeightPx));

    // Compat: in the painter's font, not in the record's
    painter->setPen(KELPainting::captionPen(m_style->foregroundBrush));
    painter->setBrush(Qt::NoBrush);
    painter->drawText(bar, Qt::AlignCenter, QString::number(d->value) + QLatin1Char('%'));
}

KELRoundRectControlStyle *KELProcessBar::initStyle()
{
    m_style->boundRect = QRectF(0, 0, 100, 30);
    m_style->backgroundBrush = KELPainting::solidBrush(qRgb(69, 69, 69));
    m_style->borderBrush = KELPainting::solidBrush(qRgb(67, 110, 238));
    m_style->foregroundBrush = KELPainting::solidBrush(qRgb(255, 255, 255));
    m_style->xRadius = 15.0;
    m_style->yRadius = 15.0;
    return m_style;
}
