// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELCAPTIONCACHE_P_H
#define KELCAPTIONCACHE_P_H

#include <QtCore/QString>

#include <memory>

QT_BEGIN_NAMESPACE
class QPainter;
class QRectF;
QT_END_NAMESPACE

struct KELRoundRectControlStyle;

/*
 * Caches a control's caption from one paint to the next: the elided text and, once the same caption
 * is drawn a second time, its layout. Invisible to callers: an entry is reused only if every input
 * is unchanged.
 */
class KELCaptionCache
{
public:
    KELCaptionCache();
    ~KELCaptionCache();

    // As QPainter::drawText(), with the painter's pen and font.
    void draw(QPainter *painter, const QRectF &rect, int flags, const QString &text);

    // The same with the record's caption, after KELRoundRectControlStyle::getTrimmingText() in its
    // font.
    void drawTrimmed(QPainter *painter, const QRectF &rect, const KELRoundRectControlStyle &option,
                     qreal width);

private:
    Q_DISABLE_COPY(KELCaptionCache)

    struct CacheEntry;

    bool hasText(const KELRoundRectControlStyle &option, qreal width) const;
    void storeText(const KELRoundRectControlStyle &option, qreal width, const QString &text);
    bool drawIfItFits(QPainter *painter, const QRectF &rect, const KELRoundRectControlStyle &option,
                      qreal width);

    std::unique_ptr<CacheEntry> m_entry; // once there was something to draw
};

#endif
