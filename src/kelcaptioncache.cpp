// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "kelcaptioncache_p.h"

#include "kelfontwatch_p.h"
#include "kelroundrectcontrol.h"

#include <QtCore/QSizeF>
#include <QtCore/QStringList>
#include <QtCore/QtMath>
#include <QtGui/QFont>
#include <QtGui/QFontMetricsF>
#include <QtGui/QPainter>
#include <QtGui/QTextLayout>

#include <algorithm>
#include <cmath>
#include <functional>
#include <utility>

namespace {

// Flags that a cached layout supports. Qt draws the rest: tabs, mnemonics, single lines, justified
// text.
constexpr int supportedFlags = Qt::AlignLeft | Qt::AlignHCenter | Qt::AlignTop | Qt::AlignBottom
    | Qt::AlignVCenter | Qt::TextWordWrap | Qt::TextDontClip;

constexpr qreal unlimitedWidthPx = 0x01000000;

// Exactly, unlike QSizeF compares; NaN equals nothing.
bool isSame(qreal a, qreal b)
{
    return std::equal_to<>()(a, b);
}

// Characters that Qt's drawText() treats specially.
bool isSpecial(QChar c)
{
    return c == QLatin1Char('\t') || c == QLatin1Char('\r') || c == QChar(0x9C);
}

bool canBeCached(const QPainter &painter, int flags, const QString &text)
{
    if (!painter.isActive())
        return false;
    const QFont &font = painter.font();
    return (flags & ~supportedFlags) == 0 && painter.layoutDirection() != Qt::RightToLeft
        && !font.underline() && !font.overline() && !font.strikeOut()
        && std::none_of(text.cbegin(), text.cend(), isSpecial);
}

// Everything a layout depends on, except the position of the rectangle.
struct LayoutKey
{
    bool operator==(const LayoutKey &other) const
    {
        return flags == other.flags && dpi == other.dpi && direction == other.direction
            && fontGeneration == other.fontGeneration && isSame(size.width(), other.size.width())
            && isSame(size.height(), other.size.height()) && text == other.text
            && font == other.font && substitutes == other.substitutes;
    }

    QString text;
    QFont font;
    QStringList substitutes;
    QSizeF size;
    int flags = 0;
    int dpi = 0;
    Qt::LayoutDirection direction = Qt::LayoutDirectionAuto;
    int fontGeneration = 0;
};

LayoutKey layoutKeyFor(const QPainter &painter, const QSizeF &size, int flags, const QString &text)
{
    return {text,
            painter.font(),
            KELFontWatch::substitutesOf(painter.font()),
            size,
            flags,
            painter.device()->logicalDpiY(),
            painter.layoutDirection(),
            KELFontWatch::generation()};
}

// False for texts whose width changes when they are elided: several lines, mnemonics, trailing
// blanks.
bool isMeasuredAsDrawn(const QString &text)
{
    return !text.contains(QLatin1Char('\n')) && !text.contains(QLatin1Char('&'))
        && !text.back().isSpace();
}

// The lines of a caption where QPainter::drawText() puts them.
class Layout
{
public:
    explicit Layout(const LayoutKey &key);

    // True when the whole text is on one line that is not wider.
    bool fits(qreal widthPx) const;
    void draw(QPainter *painter, const QRectF &rect) const;

private:
    Q_DISABLE_COPY(Layout)

    bool has(int flag) const { return (m_flags & flag) != 0; }
    void breakLines(const LayoutKey &key);
    void drawLines(QPainter *painter, const QRectF &rect, qreal top) const;

    QTextLayout m_layout;
    const int m_flags;
    qreal m_width = 0;
    qreal m_height = 0;
};

Layout::Layout(const LayoutKey &key) :
    m_layout(QString(key.text).replace(QLatin1Char('\n'), QChar::LineSeparator), key.font),
    m_flags(key.flags)
{
    QTextOption option;
    option.setTextDirection(key.direction);
    m_layout.setTextOption(option);
    m_layout.setCacheEnabled(true);
    m_layout.beginLayout();
    breakLines(key);
    m_layout.endLayout();
}

// Lines start on whole pixels. Lines outside the clip are skipped.
void Layout::breakLines(const LayoutKey &key)
{
    const bool wordWrap = has(Qt::TextWordWrap);
    const qreal lineWidth = wordWrap ? qMax<qreal>(0, key.size.width()) : unlimitedWidthPx;
    const qreal leading = QFontMetricsF(key.font).leading();
    m_height = -leading;
    for (QTextLine line = m_layout.createLine(); line.isValid(); line = m_layout.createLine()) {
        line.setLineWidth(lineWidth);
        m_height = qCeil(m_height + leading);
        line.setPosition(QPointF(0, m_height));
        m_height += line.ascent() + line.descent();
        m_width = qMax(m_width, line.naturalTextWidth());
        if (!has(Qt::TextDontClip) && m_height >= key.size.height())
            break;
    }
}

bool Layout::fits(qreal widthPx) const
{
    const QTextLine line = m_layout.lineAt(0);
    return line.textLength() == m_layout.text().length() && line.naturalTextWidth() <= widthPx;
}

void Layout::draw(QPainter *painter, const QRectF &rect) const
{
    qreal top = 0;
    if (has(Qt::AlignBottom))
        top = rect.height() - m_height;
    else if (has(Qt::AlignVCenter))
        top = (rect.height() - m_height) / 2;
    const qreal left = has(Qt::AlignHCenter) ? (rect.width() - m_width) / 2 : 0;

    const QRectF bounds(rect.x() + left, rect.y() + top, m_width, m_height);
    if (has(Qt::TextDontClip) || rect.contains(bounds)) {
        drawLines(painter, rect, top);
        return;
    }
    painter->save();
    painter->setClipRect(rect, Qt::IntersectClip);
    drawLines(painter, rect, top);
    painter->restore();
}

void Layout::drawLines(QPainter *painter, const QRectF &rect, qreal top) const
{
    for (int i = 0; i < m_layout.lineCount(); ++i) {
        const QTextLine line = m_layout.lineAt(i);
        const qreal left = has(Qt::AlignHCenter) ? (rect.width() - line.horizontalAdvance()) / 2
                                                 : 0;
        line.draw(painter, QPointF(rect.x() + left, rect.y() + top));
    }
}

} // namespace

struct KELCaptionCache::CacheEntry
{
    QString source;
    QFont sourceFont;
    QStringList sourceSubstitutes;
    qreal width = -1;
    int fontGeneration = -1;
    QString trimmed;

    LayoutKey key;
    std::shared_ptr<Layout> layout; // painting may re-enter the cache and replace it
};

KELCaptionCache::KELCaptionCache() = default;

KELCaptionCache::~KELCaptionCache() = default;

bool KELCaptionCache::hasText(const KELRoundRectControlStyle &option, qreal width) const
{
    return m_entry && m_entry->fontGeneration == KELFontWatch::generation()
        && isSame(m_entry->width, width) && m_entry->sourceFont.isCopyOf(option.font)
        && m_entry->source == option.text
        && m_entry->sourceSubstitutes == KELFontWatch::substitutesOf(option.font);
}

void KELCaptionCache::storeText(const KELRoundRectControlStyle &option, qreal width,
                                const QString &text)
{
    m_entry->fontGeneration = KELFontWatch::generation();
    m_entry->width = width;
    m_entry->sourceFont = option.font;
    m_entry->sourceSubstitutes = KELFontWatch::substitutesOf(option.font);
    m_entry->source = option.text;
    m_entry->trimmed = text;
}

void KELCaptionCache::drawTrimmed(QPainter *painter, const QRectF &rect,
                                  const KELRoundRectControlStyle &option, qreal width)
{
    if (option.text.isEmpty())
        return;
    if (!m_entry)
        m_entry = std::make_unique<CacheEntry>();
    if (!hasText(option, width)) {
        if (drawIfItFits(painter, rect, option, width))
            return;
        storeText(option, width, option.getTrimmingText(option.text, width, option.font));
    }
    draw(painter, rect, option.textFlags, QString(m_entry->trimmed));
}

// The layout that draws a caption also reports whether it fits; asking first would lay it out
// twice.
bool KELCaptionCache::drawIfItFits(QPainter *painter, const QRectF &rect,
                                   const KELRoundRectControlStyle &option, qreal width)
{
    if (!canBeCached(*painter, option.textFlags, option.text) || !isMeasuredAsDrawn(option.text)
        || !painter->font().isCopyOf(option.font))
        return false;
    LayoutKey key = layoutKeyFor(*painter, rect.size(), option.textFlags, option.text);
    const Layout layout(key);
    // getTrimmingText() elides to whole pixels.
    if (!layout.fits(std::floor(width)))
        return false;
    storeText(option, width, option.text);
    m_entry->layout.reset();
    m_entry->key = std::move(key);
    layout.draw(painter, rect);
    return true;
}

void KELCaptionCache::draw(QPainter *painter, const QRectF &rect, int flags, const QString &text)
{
    if (text.isEmpty())
        return;
    if (!canBeCached(*painter, flags, text)) {
        painter->drawText(rect, flags, text);
        return;
    }
    if (!m_entry)
        m_entry = std::make_unique<CacheEntry>();
    LayoutKey key = layoutKeyFor(*painter, rect.size(), flags, text);
    if (!(m_entry->key == key)) {
        // Most captions are drawn once, because the item caches its pixmap, or change every time.
        m_entry->layout.reset();
        m_entry->key = std::move(key);
        painter->drawText(rect, flags, text);
        return;
    }
    if (!m_entry->layout)
        m_entry->layout = std::make_shared<Layout>(key);
    const std::shared_ptr<Layout> layout = m_entry->layout;
    layout->draw(painter, rect);
}
