// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "kelprocessbar.h"

#include "kelpainting_p.h"
#include "kelrounding_p.h"

#include <QtCore/QPointer>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtWidgets/QGraphicsScene>
#include <QtWidgets/QGraphicsView>

#include <algorithm>
#include <typeinfo>

namespace {

constexpr int completePercent = 100;
constexpr qreal barHeightPx = 30;

QPainterPath pillOf(const QRectF &bar, const KELRoundRectControlStyle &style)
{
    QPainterPath pill;
    pill.addRoundedRect(bar, KELPainting::usableRadius(style.xRadius),
                        KELPainting::usableRadius(style.yRadius), Qt::AbsoluteSize);
    return pill;
}

bool isBeingPainted(const QGraphicsView *view)
{
    return view->viewport()->testAttribute(Qt::WA_WState_InPaintEvent);
}

// Whether the scene paints the bar, and nothing else, into the picture that it keeps of it. The
// painter ends with paint() then, so nobody sees its clip. A derived class might draw more.
bool isPictureOfScene(const KELProcessBar &bar, const QPainter &painter, const QWidget *widget)
{
    constexpr int scenesMarginPx = 2;
    if (widget || !bar.scene() || !bar.isVisible() || bar.cacheMode() == QGraphicsItem::NoCache
        || typeid(bar) != typeid(KELProcessBar))
        return false;
    const QRectF painted = painter.deviceTransform().mapRect(bar.boundingRect());
    const QMargins margins(scenesMarginPx, scenesMarginPx, scenesMarginPx, scenesMarginPx);
    const QPaintDevice *const device = painter.device();
    const QList<QGraphicsView *> views = bar.scene()->views();
    return painted.toAlignedRect().marginsAdded(margins).contains(
               QRect(0, 0, device->width(), device->height()))
        && std::any_of(views.begin(), views.end(), isBeingPainted);
}

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
                          QWidget *widget)
{
    const QRectF rect = boundingRect();
    const QRectF bar(rect.x(), rect.y() + rect.height() * 0.5 - barHeightPx * 0.5, rect.width(),
                     barHeightPx);
    if (!KELPainting::isPaintable(bar))
        return;
    painter->setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing, true);
    const int fillWidth = KELRounding::towardsZero(d->value * bar.width() / completePercent);
    const QString text = QString::number(d->value) + QLatin1Char('%');
    // Compat: the clip replaces the painter's and stays there
    const auto clip = [&] { painter->setClipPath(pillOf(bar, *m_style), Qt::ReplaceClip); };

    const auto makeKey = [&] {
        KELLookKey key(&staticMetaObject, bar);
        key << m_style->xRadius << m_style->yRadius << m_style->backgroundBrush
            << m_style->borderBrush << m_style->foregroundBrush;
        key.addText(text, painter->font()); // has the value
        return key;
    };
    const bool isGivenBack = KELLook::paint(painter, makeKey, [&] {
        clip();
        painter->setPen(Qt::NoPen);
        painter->setBrush(KELPainting::usableBrush(m_style->backgroundBrush));
        painter->drawRect(bar);
        painter->setBrush(KELPainting::usableBrush(m_style->borderBrush));
        painter->drawRect(QRectF(bar.left(), bar.top(), fillWidth, barHeightPx));

        // Compat: in the painter's font, not in the record's
        painter->setPen(KELPainting::captionPen(m_style->foregroundBrush));
        painter->setBrush(Qt::NoBrush);
        painter->drawText(bar, Qt::AlignCenter, text);
    });
    if (isGivenBack && !isPictureOfScene(*this, *painter, widget))
        clip();
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
