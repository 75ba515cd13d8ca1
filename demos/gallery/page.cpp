// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "page.h"

#include "parts.h"

namespace {

constexpr qreal aboutHeightPx = 18;
constexpr qreal bodyTopPx = 28;
constexpr qreal bodyBottomPx = 12;
constexpr qreal uprightFromPx = 480;

} // namespace

Page::Page(const PageHost &pageHost, const QRectF &area, const QString &title,
           const QString &about) :
    host(pageHost), m_title(title)
{
    setboundRect(area);
    // It paints nothing itself: a picture of that need not be kept.
    setCacheMode(NoCache);
    setAcceptedMouseButtons(Qt::NoButton);
    style()->backgroundBrush = QBrush(Qt::NoBrush);
    style()->borderBrush = QBrush(Qt::NoBrush);

    const qreal width = qMax(0.0, area.width() - 2 * Theme::pageMargin);
    Parts::addLabel(this, {Theme::pageMargin, 0, width, aboutHeightPx}, about,
                    Theme::font(Theme::smallPx), Theme::muted);
}

void Page::attached() { }

QRectF Page::body() const
{
    return {Theme::pageMargin, bodyTopPx, qMax(0.0, rect().width() - 2 * Theme::pageMargin),
            qMax(0.0, rect().height() - bodyTopPx - bodyBottomPx)};
}

bool Page::isUpright() const
{
    return body().height() >= uprightFromPx;
}

int &Page::remembered(const QString &key, int initial) const
{
    const QString fullKey = m_title + QLatin1Char('/') + key;
    if (!host.memory->contains(fullKey))
        host.memory->insert(fullKey, initial);
    return (*host.memory)[fullKey];
}
