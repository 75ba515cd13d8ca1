// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "kelrowpainter_p.h"

#include "keltouch.h"

#include <QtGui/QFontMetricsF>
#include <QtGui/QPainter>

#include <keliconfont.h>

#include <cmath>

namespace {

constexpr qreal switchWidthPx = 56;
constexpr qreal switchHeightPx = 32;
constexpr qreal knobInsetPx = 4;
constexpr qreal radioPx = 24;
constexpr qreal dotInsetPx = 6;
constexpr qreal arrowWidthPx = 8;
constexpr qreal arrowHeightPx = 12;
constexpr qreal strokePx = 2;

// 0 for what is not a length.
qreal length(qreal number)
{
    return std::isfinite(number) && number > 0 ? number : 0;
}

// Between a glyph, the text, the value and the mark.
qreal gap(const KELPartStyle &style)
{
    return 2 * length(style.spacing);
}

// Between the caption and the detail.
qreal lineGap(const KELPartStyle &style)
{
    return length(style.spacing) / 2;
}

QSizeF markSize(KELRow::End end)
{
    if (end == KELRow::Switch)
        return {switchWidthPx, switchHeightPx};
    if (end == KELRow::Radio)
        return {radioPx, radioPx};
    return end == KELRow::Arrow ? QSizeF(arrowWidthPx, arrowHeightPx) : QSizeF(0, 0);
}

bool hasIcon(const KELPartStyle &style, const KELRowContent &content)
{
    return style.iconSize > 0 && (!content.picture.isNull() || !content.glyph.isEmpty());
}

// One paint of one row.
class Painting
{
public:
    void run();

    QPainter *const painter;
    const QRectF &rect;
    const KELPartStyle &style;
    const KELRowContent &content;
    const KELRowState &state;
    KELRowCache *const cache;

    QRectF room = {}; // what is left for text
    QRectF iconBox = {};
    QRectF markBox = {};
    QRectF valueBox = {};
    bool isMirrored = false;
    bool isSelected = false;
    bool hasCaption = false;
    bool hasDetail = false;
    bool hasValue = false;

private:
    const QBrush &tint(const QBrush &usual) const;
    QRectF take(bool isFromEnd, const QSizeF &size);
    void layOut();
    void layOutTexts();
    qreal linesHeight() const;
    bool needsClip() const;

    void drawGround() const;
    void drawLine(const QRectF &line) const;
    void drawCard(const QBrush &ground, qreal border, bool isFirst, bool isLast) const;
    void drawContent() const;
    void drawIcon() const;
    void drawPicture() const;
    void drawTexts() const;
    void drawText(const KELRowText &text, const QRectF &box, qreal top, const QBrush &brush) const;
    void drawMark() const;
    const QBrush &groundOfMark() const;
    const QBrush &signOfMark() const;
    bool canKeepMark(const QBrush &ground, const QBrush &sign) const;
    void drawMarkWith(QPainter *with, const QBrush &ground, const QBrush &sign) const;
    void drawSwitch(QPainter *with, const QBrush &ground, const QBrush &sign) const;
    void drawRadio(QPainter *with, const QBrush &brush) const;
    void drawArrow(QPainter *with, const QBrush &brush) const;
    void drawFocus() const;
};

const QBrush &Painting::tint(const QBrush &usual) const
{
    if (!content.isEnabled)
        return style.disabledBrush;
    return isSelected ? style.selectedForegroundBrush : usual;
}

// Empty if there is no room for it.
QRectF Painting::take(bool isFromEnd, const QSizeF &size)
{
    if (size.isEmpty() || size.width() > room.width())
        return QRectF();
    const bool isLeft = isFromEnd == isMirrored;
    const qreal top = std::floor(rect.y() + (rect.height() - size.height()) / 2);
    const QRectF taken(QPointF(isLeft ? room.left() : room.right() - size.width(), top), size);
    const qreal cut = qMin(size.width() + gap(style), room.width());
    room.adjust(isLeft ? cut : 0, 0, isLeft ? 0 : -cut, 0);
    return taken;
}

void Painting::layOut()
{
    const qreal left = length(style.margins.left());
    const qreal right = length(style.margins.right());
    isMirrored = state.direction == Qt::RightToLeft;
    isSelected = state.isSelected && content.isEnabled && !state.isPressed;
    room = rect.adjusted(isMirrored ? right : left, 0, isMirrored ? -left : -right, 0);
    if (hasIcon(style, content))
        iconBox = take(false, QSizeF(style.iconSize, style.iconSize));
    markBox = take(true, markSize(content.end));
    layOutTexts();
}

void Painting::layOutTexts()
{
    if (!content.value.isEmpty()) {
        const qreal taken = cache->caption.naturalWidth(content.caption, style.font) + gap(style);
        const qreal limit = qMax(room.width() / 2, room.width() - taken);
        hasValue = cache->value.layOut(content.value, style.font, limit);
        if (hasValue)
            valueBox = take(true, cache->value.size());
    }
    hasCaption = cache->caption.layOut(content.caption, style.font, room.width());
    hasDetail = cache->detail.layOut(content.detail, style.secondaryFont, room.width());
}

qreal Painting::linesHeight() const
{
    qreal height = hasCaption ? cache->caption.size().height() : 0;
    if (hasDetail)
        height += cache->detail.size().height() + (hasCaption ? lineGap(style) : 0);
    return height;
}

// Glyphs may stand out of the box of their text, by a quarter of their height.
bool Painting::needsClip() const
{
    qreal highest = qMax(qMax<qreal>(style.iconSize, switchHeightPx), linesHeight());
    if (hasValue)
        highest = qMax(highest, cache->value.size().height());
    const qreal overhang = highest / 4;
    return highest + 2 * overhang > rect.height()
        || qMin(length(style.margins.left()), length(style.margins.right())) < overhang;
}

void Painting::run()
{
    layOut();
    drawGround();
    if (needsClip()) {
        painter->save();
        painter->setClipRect(rect, Qt::IntersectClip);
        drawContent();
        painter->restore();
    } else {
        drawContent();
    }
    if (state.isFocusShown)
        drawFocus();
}

void Painting::drawGround() const
{
    const QBrush &released = isSelected ? style.selectedBrush : style.backgroundBrush;
    const QBrush &ground = state.isPressed ? style.pressedBrush : released;
    const qreal border = qMin(length(style.borderWidth), rect.height());
    const bool isFirst = state.card == KELRow::CardTop || state.card == KELRow::WholeCard;
    const bool isLast = state.card == KELRow::CardBottom || state.card == KELRow::WholeCard;
    if (isFirst || isLast)
        drawCard(ground, border, isFirst, isLast);
    else
        painter->fillRect(rect, ground);
    if (state.card == KELRow::CardMiddle) {
        drawLine(QRectF(rect.x(), rect.y(), border, rect.height()));
        drawLine(QRectF(rect.right() - border, rect.y(), border, rect.height()));
    }
    if (state.hasSeparator && !isLast)
        drawLine(QRectF(rect.x(), rect.bottom() - border, rect.width(), border));
}

void Painting::drawLine(const QRectF &line) const
{
    painter->fillRect(line, style.borderBrush);
}

// The part of a card that lies in the rectangle; where it goes on, its outline is outside.
void Painting::drawCard(const QBrush &ground, qreal border, bool isFirst, bool isLast) const
{
    const qreal half = border / 2;
    const qreal radius = length(style.radius);
    const qreal outside = radius + border;
    painter->save();
    painter->setClipRect(rect, Qt::IntersectClip);
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(border > 0 ? QPen(style.borderBrush, border) : QPen(Qt::NoPen));
    painter->setBrush(ground);
    painter->drawRoundedRect(
        rect.adjusted(half, isFirst ? half : -outside, -half, isLast ? -half : outside), radius,
        radius);
    painter->restore();
}

void Painting::drawContent() const
{
    drawTexts();
    if (!iconBox.isEmpty())
        drawIcon();
    if (!markBox.isEmpty())
        drawMark();
}

void Painting::drawIcon() const
{
    if (!content.picture.isNull()) {
        drawPicture();
        return;
    }
    if (!cache->glyph.layOutGlyph(content.glyph, style.iconSize))
        return;
    const QSizeF size = cache->glyph.size();
    const QPointF middle = iconBox.center() - QPointF(size.width() / 2, size.height() / 2);
    cache->glyph.draw(painter, middle, tint(style.accentBrush));
}

void Painting::drawPicture() const
{
    const QPixmap &picture = content.picture;
    QSizeF size = QSizeF(picture.size()) / picture.devicePixelRatioF();
    size *= qMin<qreal>(1, style.iconSize / qMax(size.width(), size.height()));
    QRectF target(QPointF(), size);
    target.moveCenter(iconBox.center());
    target.moveTopLeft(target.topLeft().toPoint());
    painter->setRenderHint(QPainter::SmoothPixmapTransform);
    const qreal opacity = painter->opacity();
    if (!content.isEnabled)
        painter->setOpacity(opacity / 2);
    painter->drawPixmap(target, picture, QRectF(QPointF(), picture.size()));
    painter->setOpacity(opacity);
}

void Painting::drawTexts() const
{
    const qreal height = linesHeight();
    const qreal top = std::floor(rect.y() + (rect.height() - height) / 2);
    if (hasCaption)
        drawText(cache->caption, room, top, tint(style.foregroundBrush));
    if (hasDetail)
        drawText(cache->detail, room, top + height - cache->detail.size().height(),
                 tint(style.mutedBrush));
    if (hasValue)
        drawText(cache->value, valueBox, valueBox.top(), tint(style.mutedBrush));
}

void Painting::drawText(const KELRowText &text, const QRectF &box, qreal top,
                        const QBrush &brush) const
{
    const qreal left = isMirrored ? box.right() - text.size().width() : box.left();
    text.draw(painter, QPointF(left, top), brush);
}

// Whether a picture of the mark looks as the mark does.
bool Painting::canKeepMark(const QBrush &ground, const QBrush &sign) const
{
    const QTransform &view = painter->deviceTransform();
    const QPointF device = markBox.topLeft() + QPointF(view.dx(), view.dy());
    const bool isStill = state.knob == 0 || state.knob == 1;
    const bool isOneToOne = view.m11() == 1 && view.m22() == 1 && view.m12() == 0 && view.m21() == 0
        && device == QPointF(device.toPoint());
    return isStill && isOneToOne && ground.style() == Qt::SolidPattern
        && sign.style() == Qt::SolidPattern;
}

// The shapes of a mark take longer than all else in a row, and are the same in most paints.
void Painting::drawMark() const
{
    const QBrush &ground = groundOfMark();
    const QBrush &sign = signOfMark();
    if (!canKeepMark(ground, sign)) {
        drawMarkWith(painter, ground, sign);
        return;
    }
    KELRowMark &mark = cache->mark;
    const int kind = content.end + 8 * content.isOn + 16 * isMirrored + 32 * (state.knob > 0);
    if (mark.kind != kind || mark.ground != ground || mark.sign != sign) {
        mark = {QPixmap(markBox.size().toSize()), ground, sign, kind};
        mark.picture.fill(Qt::transparent);
        QPainter picturePainter(&mark.picture);
        picturePainter.translate(-markBox.topLeft());
        drawMarkWith(&picturePainter, ground, sign);
    }
    painter->drawPixmap(markBox, mark.picture, QRectF(QPointF(), markBox.size()));
}

const QBrush &Painting::groundOfMark() const
{
    if (content.end == KELRow::Arrow || (content.end == KELRow::Radio && !content.isOn))
        return tint(style.mutedBrush);
    return content.end == KELRow::Radio || content.isOn ? tint(style.accentBrush)
                                                        : style.trackBrush;
}

// What is on the ground.
const QBrush &Painting::signOfMark() const
{
    if (content.end != KELRow::Switch)
        return groundOfMark();
    if (content.isOn)
        return isSelected ? style.selectedBrush : style.accentForegroundBrush;
    return content.isEnabled ? style.knobBrush : style.disabledBrush;
}

void Painting::drawMarkWith(QPainter *with, const QBrush &ground, const QBrush &sign) const
{
    with->setRenderHint(QPainter::Antialiasing);
    if (content.end == KELRow::Switch)
        drawSwitch(with, ground, sign);
    else if (content.end == KELRow::Radio)
        drawRadio(with, ground);
    else
        drawArrow(with, ground);
}

void Painting::drawSwitch(QPainter *with, const QBrush &ground, const QBrush &sign) const
{
    const qreal radius = switchHeightPx / 2;
    with->setPen(Qt::NoPen);
    with->setBrush(ground);
    with->drawRoundedRect(markBox, radius, radius);

    const qreal way = switchWidthPx - switchHeightPx;
    const qreal knob = isMirrored ? 1 - state.knob : state.knob;
    const QRectF end(markBox.x() + way * knob, markBox.y(), switchHeightPx, switchHeightPx);
    with->setBrush(sign);
    with->drawEllipse(end.adjusted(knobInsetPx, knobInsetPx, -knobInsetPx, -knobInsetPx));
}

void Painting::drawRadio(QPainter *with, const QBrush &brush) const
{
    const qreal half = strokePx / 2;
    with->setPen(QPen(brush, strokePx));
    with->setBrush(Qt::NoBrush);
    with->drawEllipse(markBox.adjusted(half, half, -half, -half));
    if (!content.isOn)
        return;
    with->setPen(Qt::NoPen);
    with->setBrush(brush);
    with->drawEllipse(markBox.adjusted(dotInsetPx, dotInsetPx, -dotInsetPx, -dotInsetPx));
}

void Painting::drawArrow(QPainter *with, const QBrush &brush) const
{
    const qreal half = strokePx / 2;
    const QRectF box = markBox.adjusted(half, half, -half, -half);
    const qreal tip = isMirrored ? box.left() : box.right();
    const qreal tail = isMirrored ? box.right() : box.left();
    const QPointF points[] = {QPointF(tail, box.top()), QPointF(tip, box.center().y()),
                              QPointF(tail, box.bottom())};
    with->setPen(QPen(brush, strokePx, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    with->drawPolyline(points, 3);
}

void Painting::drawFocus() const
{
    if (qMin(rect.width(), rect.height()) < 4 * strokePx)
        return;
    // At the edge of a selected row, on a list of the same colour, the ring would not be seen.
    const qreal inset = strokePx / 2 + (isSelected ? strokePx : 0);
    const qreal radius = state.card == KELRow::NoCard ? 0 : length(style.radius);
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(isSelected ? style.selectedForegroundBrush : style.accentBrush, strokePx,
                         Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter->setBrush(Qt::NoBrush);
    painter->drawRoundedRect(rect.adjusted(inset, inset, -inset, -inset), radius, radius);
}

} // namespace

qreal KELRowText::naturalWidth(const QString &text, const QFont &font)
{
    if (m_text == text && m_font == font)
        return m_naturalWidth;
    m_text = text;
    m_font = font;
    m_naturalWidth = QFontMetricsF(font).horizontalAdvance(text.simplified());
    m_limit = -1;
    return m_naturalWidth;
}

// Qt elides to nothing where not even the ellipsis fits.
bool KELRowText::layOut(const QString &text, const QFont &font, qreal limit)
{
    const qreal width = naturalWidth(text, font);
    if (text.isEmpty())
        return false;
    if (m_limit == limit)
        return !m_drawn.text().isEmpty();
    m_limit = limit;
    QString line = text.simplified();
    if (width > limit)
        line = QFontMetricsF(font).elidedText(line, Qt::ElideRight, limit);
    m_drawn.setTextFormat(Qt::PlainText);
    m_drawn.setText(line);
    m_drawn.prepare(QTransform(), font);
    return !m_drawn.text().isEmpty();
}

bool KELRowText::layOutGlyph(const QString &text, int pixelSize)
{
    const QString family = KELIconFont::fontFamily();
    if (m_text == text && m_limit == pixelSize && m_font.family() == family)
        return true;
    m_text = text;
    m_limit = pixelSize;
    m_font = KELIconFont::iconFont();
    m_font.setPixelSize(pixelSize);
    m_drawn.setTextFormat(Qt::PlainText);
    m_drawn.setText(text);
    m_drawn.prepare(QTransform(), m_font);
    return true;
}

void KELRowText::draw(QPainter *painter, const QPointF &topLeft, const QBrush &brush) const
{
    painter->setFont(m_font);
    painter->setPen(QPen(brush, 1));
    painter->drawStaticText(topLeft.toPoint(), m_drawn);
}

qreal KELRowPainter::height(const KELPartStyle &style, bool hasDetail)
{
    qreal content = QFontMetricsF(style.font).height() + length(style.margins.top())
        + length(style.margins.bottom());
    if (hasDetail)
        content += QFontMetricsF(style.secondaryFont).height() + lineGap(style);
    return std::ceil(qMax(content, qMax(length(style.rowHeight), KELTouch::leastSize())));
}

QSizeF KELRowPainter::hint(const KELPartStyle &style, const KELRowContent &content)
{
    KELRowText text;
    const qreal caption = text.naturalWidth(content.caption, style.font);
    const qreal detail = text.naturalWidth(content.detail, style.secondaryFont);
    qreal width = qMax(caption, detail) + length(style.margins.left())
        + length(style.margins.right());
    if (hasIcon(style, content))
        width += style.iconSize + gap(style);
    if (!content.value.isEmpty())
        width += text.naturalWidth(content.value, style.font) + gap(style);
    if (markSize(content.end).width() > 0)
        width += markSize(content.end).width() + gap(style);
    return {std::ceil(width), height(style, !content.detail.isEmpty())};
}

void KELRowPainter::paint(QPainter *painter, const QRectF &rect, const KELPartStyle &style,
                          const KELRowContent &content, const KELRowState &state,
                          KELRowCache *cache)
{
    if (!(rect.width() > 0 && rect.height() > 0))
        return;
    Painting{painter, rect, style, content, state, cache}.run();
}
