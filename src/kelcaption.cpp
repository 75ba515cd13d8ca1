// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "kelcaption_p.h"

#include "kelroundrectcontrol.h"

#include <QtCore/QPointer>
#include <QtCore/QSizeF>
#include <QtCore/QtMath>
#include <QtGui/QFont>
#include <QtGui/QFontMetricsF>
#include <QtGui/QGuiApplication>
#include <QtGui/QPainter>
#include <QtGui/QTextLayout>

#include <algorithm>
#include <functional>
#include <utility>

namespace {

// Flags that a kept layout knows. Everything else is Qt's: tabs, mnemonics, single lines, justified text.
constexpr int knownFlags = Qt::AlignLeft | Qt::AlignHCenter | Qt::AlignTop | Qt::AlignBottom
    | Qt::AlignVCenter | Qt::TextWordWrap | Qt::TextDontClip;

constexpr qreal unlimitedWidthPx = 0x01000000;

// Exactly, unlike QSizeF compares; a value that is not a number is never the same.
bool isSame(qreal a, qreal b)
{
    return std::equal_to<>()(a, b);
}

// Counts how often the fonts that are installed have changed.
int fontGeneration()
{
    static int generation = 0;
    static QPointer<QCoreApplication> watched;
    QCoreApplication *const app = QCoreApplication::instance();
    if (watched != app) {
        watched = app;
        ++generation;
        if (auto *const guiApp = qobject_cast<QGuiApplication *>(app)) {
            QObject::connect(guiApp, &QGuiApplication::fontDatabaseChanged, guiApp,
                             [] { ++generation; });
        }
    }
    return generation;
}

// What Qt's drawText() treats in a way of its own.
bool isSpecial(QChar c)
{
    return c == QLatin1Char('\t') || c == QLatin1Char('\r') || c == QChar(0x9C);
}

bool canBeKept(const QPainter &painter, int flags, const QString &text)
{
    const QFont &font = painter.font();
    return (flags & ~knownFlags) == 0 && painter.layoutDirection() != Qt::RightToLeft
        && !font.underline() && !font.overline() && !font.strikeOut()
        && std::none_of(text.cbegin(), text.cend(), isSpecial);
}

// What a layout depends on, besides the place of the rectangle.
struct Drawn
{
    bool operator==(const Drawn &other) const
    {
        return flags == other.flags && dpi == other.dpi && direction == other.direction
            && fontGeneration == other.fontGeneration && isSame(size.width(), other.size.width())
            && isSame(size.height(), other.size.height()) && text == other.text
            && font == other.font;
    }

    QString text;
    QFont font;
    QSizeF size;
    int flags = 0;
    int dpi = 0;
    Qt::LayoutDirection direction = Qt::LayoutDirectionAuto;
    int fontGeneration = 0;
};

// The lines of a caption where QPainter::drawText() puts them.
class Layout
{
public:
    explicit Layout(const Drawn &drawn);

    void draw(QPainter *painter, const QRectF &rect) const;

private:
    Q_DISABLE_COPY(Layout)

    bool has(int flag) const { return (m_flags & flag) != 0; }
    void breakLines(const Drawn &drawn);
    void drawLines(QPainter *painter, const QRectF &rect, qreal top) const;

    QTextLayout m_layout;
    const int m_flags;
    qreal m_width = 0;
    qreal m_height = 0;
};

Layout::Layout(const Drawn &drawn) :
    m_layout(QString(drawn.text).replace(QLatin1Char('\n'), QChar::LineSeparator), drawn.font),
    m_flags(drawn.flags)
{
    QTextOption option;
    option.setTextDirection(drawn.direction);
    m_layout.setTextOption(option);
    m_layout.setCacheEnabled(true);
    m_layout.beginLayout();
    breakLines(drawn);
    m_layout.endLayout();
}

// Lines start on whole pixels, and those that a clip hides anyway are left out.
void Layout::breakLines(const Drawn &drawn)
{
    const bool wordWrap = has(Qt::TextWordWrap);
    const qreal lineWidth = wordWrap ? qMax<qreal>(0, drawn.size.width()) : unlimitedWidthPx;
    const qreal leading = QFontMetricsF(drawn.font).leading();
    m_height = -leading;
    for (QTextLine line = m_layout.createLine(); line.isValid(); line = m_layout.createLine()) {
        line.setLineWidth(lineWidth);
        m_height = qCeil(m_height + leading);
        line.setPosition(QPointF(0, m_height));
        m_height += line.ascent() + line.descent();
        m_width = qMax(m_width, line.naturalTextWidth());
        if (!has(Qt::TextDontClip) && m_height >= drawn.size.height())
            break;
    }
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

struct KELCaption::Kept
{
    QString source;
    QFont sourceFont;
    qreal width = -1;
    int fontGeneration = -1;
    QString trimmed;

    Drawn drawn;
    std::unique_ptr<Layout> layout;
};

KELCaption::KELCaption() = default;

KELCaption::~KELCaption() = default;

QString KELCaption::trimmed(const KELRoundRectControlStyle &option, qreal width)
{
    if (option.text.isEmpty())
        return {};
    if (!m_kept)
        m_kept = std::make_unique<Kept>();
    const int generation = fontGeneration();
    if (m_kept->fontGeneration != generation || !isSame(m_kept->width, width)
        || !m_kept->sourceFont.isCopyOf(option.font) || m_kept->source != option.text) {
        m_kept->fontGeneration = generation;
        m_kept->width = width;
        m_kept->sourceFont = option.font;
        m_kept->source = option.text;
        m_kept->trimmed = option.getTrimmingText(option.text, width, option.font);
    }
    return m_kept->trimmed;
}

void KELCaption::draw(QPainter *painter, const QRectF &rect, int flags, const QString &text)
{
    if (text.isEmpty())
        return;
    if (!canBeKept(*painter, flags, text)) {
        painter->drawText(rect, flags, text);
        return;
    }
    if (!m_kept)
        m_kept = std::make_unique<Kept>();
    Drawn drawn = {text,
                   painter->font(),
                   rect.size(),
                   flags,
                   painter->device()->logicalDpiY(),
                   painter->layoutDirection(),
                   fontGeneration()};
    if (!(m_kept->drawn == drawn)) {
        // Most captions are drawn once, as an item keeps its picture, or change each time.
        painter->drawText(rect, flags, text);
        m_kept->layout.reset();
        m_kept->drawn = std::move(drawn);
        return;
    }
    if (!m_kept->layout)
        m_kept->layout = std::make_unique<Layout>(drawn);
    m_kept->layout->draw(painter, rect);
}
