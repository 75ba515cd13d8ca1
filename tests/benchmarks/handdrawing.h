// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef HANDDRAWING_H
#define HANDDRAWING_H

#include <QtGui/QBrush>
#include <QtGui/QFont>
#include <QtGui/QFontMetrics>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtGui/QPen>
#include <QtGui/QPixmap>

/*
 * The floor of a paint: the bare calls of QPainter that give the pixels of a control. All that
 * these are given, pens, brushes, fonts, rectangles, captions cut to their width, was made before.
 */
namespace HandDrawing {

constexpr qreal cornerPx = 8;
constexpr int centredWordWrap = Qt::AlignCenter | Qt::TextWordWrap;
constexpr QPainter::RenderHints captionHints = QPainter::Antialiasing | QPainter::TextAntialiasing;
constexpr QPainter::RenderHints allHints = captionHints | QPainter::SmoothPixmapTransform;

inline QPen outline(const QColor &colour, qreal width)
{
    return {QBrush(colour), width, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin};
}

struct Caption
{
    Caption(const QRectF &place, const QString &text, const QColor &colour,
            const QFont &captionFont = QFont()) :
        rect(place),
        cut(QFontMetrics(captionFont)
                .elidedText(text, Qt::ElideRight, int(place.width()), Qt::TextShowMnemonic)),
        pen(outline(colour, 1)),
        font(captionFont)
    { }

    void draw(QPainter *painter) const
    {
        painter->setFont(font);
        painter->setPen(pen);
        painter->drawText(rect, centredWordWrap, cut);
    }

    const QRectF rect;
    const QString cut;
    const QPen pen;
    const QFont font;
};

struct RoundRect
{
    RoundRect(const QRectF &place, const QBrush &fill, const QColor &colour, qreal width,
              qreal corner) :
        rect(place.adjusted(width / 2, width / 2, -width / 2, -width / 2)),
        brush(fill),
        pen(outline(colour, width)),
        radius(corner)
    { }

    void draw(QPainter *painter) const
    {
        painter->setPen(pen);
        painter->setBrush(brush);
        painter->drawRoundedRect(rect, radius, radius);
    }

    const QRectF rect;
    const QBrush brush;
    const QPen pen;
    const qreal radius;
};

// Of the base control and of a push button.
struct Panel
{
    Panel(const QRectF &place, const QString &text, qreal outlineWidth, qreal corner,
          QPainter::RenderHints renderHints) :
        hints(renderHints),
        shape(place, QColor(0, 0, 0, 20), Qt::black, outlineWidth, corner),
        caption(place, text, Qt::black)
    { }

    void draw(QPainter *painter) const
    {
        painter->setRenderHints(hints);
        shape.draw(painter);
        caption.draw(painter);
    }

    const QPainter::RenderHints hints;
    const RoundRect shape;
    const Caption caption;
};

struct Base : Panel
{
    Base(const QRectF &place, const QString &text) : Panel(place, text, 0.5, 0, allHints) { }
};

struct PushButton : Panel
{
    PushButton(const QRectF &place, const QString &text) :
        Panel(place, text, 2, cornerPx, captionHints)
    { }
};

// With a picture above the caption.
struct PictureButton
{
    PictureButton(const QRectF &place, const QString &text) :
        shape(place, QColor(0, 0, 0, 20), Qt::black, 2, cornerPx),
        caption(stripOf(place), text, Qt::black),
        pictureRect(pictureRectOf(place))
    { }

    static QRectF stripOf(const QRectF &place)
    {
        const int height = QFontMetrics(QFont()).height();
        return {place.x(), place.bottom() - height, place.width(), qreal(height)};
    }

    static QRectF pictureRectOf(const QRectF &place)
    {
        return {place.x() + 5, place.y() + 1, place.width() - 10,
                place.height() - 2 - stripOf(place).height()};
    }

    void drawFrame(QPainter *painter) const
    {
        painter->setRenderHints(captionHints);
        shape.draw(painter);
    }

    const RoundRect shape;
    const Caption caption;
    const QRectF pictureRect;
};

struct PixmapButton : PictureButton
{
    PixmapButton(const QRectF &place, const QString &text, const QPixmap &picture) :
        PictureButton(place, text), pixmap(picture), pixels(rounded(pictureRect))
    { }

    static QRect rounded(const QRectF &rect)
    {
        return {qRound(rect.x()), qRound(rect.y()), qRound(rect.width()), qRound(rect.height())};
    }

    void draw(QPainter *painter) const
    {
        drawFrame(painter);
        painter->drawPixmap(pixels, pixmap);
        caption.draw(painter);
    }

    const QPixmap pixmap;
    const QRect pixels;
};

struct GlyphButton : PictureButton
{
    GlyphButton(const QRectF &place, const QString &text, const QString &glyphText,
                const QFont &font) :
        PictureButton(place, text), glyph(pictureRect, glyphText, Qt::black, font)
    { }

    void draw(QPainter *painter) const
    {
        drawFrame(painter);
        glyph.draw(painter);
        caption.draw(painter);
    }

    const Caption glyph;
};

struct Label
{
    Label(const QRectF &place, const QString &text) : caption(place, text, Qt::white) { }

    void draw(QPainter *painter) const
    {
        painter->setRenderHints(allHints);
        caption.draw(painter);
    }

    const Caption caption;
};

// Switched on.
struct CheckBox
{
    explicit CheckBox(const QRectF &place) :
        trackRect(trackOf(place)), knobRect(trackRect.right() - 27, trackRect.y() + 3, 24, 24)
    { }

    static QRectF trackOf(const QRectF &place)
    {
        const qreal width = qMin(place.width(), 80.0);
        return {place.center().x() - width / 2, place.center().y() - 15, width, 30};
    }

    void draw(QPainter *painter) const
    {
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setBrush(track);
        painter->setPen(pen);
        painter->drawRoundedRect(trackRect, 15, 15);
        painter->setPen(Qt::NoPen);
        painter->setBrush(knob);
        painter->drawRoundedRect(knobRect, 15, 15);
    }

    const QRectF trackRect;
    const QRectF knobRect;
    const QPen pen = outline(Qt::white, 2);
    const QBrush track = QColor(70, 193, 255, 185);
    const QBrush knob = QColor(0, 123, 185);
};

// Checked.
struct RadioBox
{
    explicit RadioBox(const QRectF &place) :
        circle(place.center().x() - 12.5, place.center().y() - 12.5, 25, 25),
        inner(circle.adjusted(3, 3, -3, -3))
    { }

    void draw(QPainter *painter) const
    {
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(pen);
        painter->drawEllipse(circle);
        painter->setPen(Qt::NoPen);
        painter->setBrush(dot);
        painter->drawEllipse(inner);
    }

    const QRectF circle;
    const QRectF inner;
    const QPen pen = outline(Qt::white, 2);
    const QBrush dot = QColor(50, 173, 235);
};

// At 40 percent.
struct ProgressBar
{
    explicit ProgressBar(const QRectF &place) :
        bar(place.x(), place.center().y() - 15, place.width(), 30),
        done(bar.x(), bar.y(), int(40 * bar.width() / 100), 30)
    { }

    void draw(QPainter *painter) const
    {
        painter->setRenderHints(captionHints);
        QPainterPath pill;
        pill.addRoundedRect(bar, 15, 15);
        painter->setClipPath(pill);
        painter->setPen(Qt::NoPen);
        painter->setBrush(background);
        painter->drawRect(bar);
        painter->setBrush(fill);
        painter->drawRect(done);
        painter->setPen(pen);
        painter->drawText(bar, Qt::AlignCenter, percent);
    }

    const QRectF bar;
    const QRectF done;
    const QBrush background = QColor(69, 69, 69);
    const QBrush fill = QColor(67, 110, 238);
    const QPen pen = outline(Qt::white, 1);
    const QString percent = QStringLiteral("40%");
};

// From 0 to 100, at 40.
struct Slider
{
    explicit Slider(const QRectF &place) :
        groove(place.x() + 3, place.center().y() - 2, place.width() - 6, 4),
        knob(place.x() + 0.4 * (place.width() - 30), place.center().y() - 15, 30, 30),
        filled(groove.x(), groove.y(), knob.x() - place.x() + 12, 4)
    { }

    void draw(QPainter *painter) const
    {
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(Qt::NoPen);
        painter->setBrush(background);
        painter->drawRoundedRect(groove, 3, 3, Qt::RelativeSize);
        painter->setBrush(fill);
        painter->drawRoundedRect(filled, 3, 3, Qt::RelativeSize);
        painter->setPen(pen);
        painter->drawEllipse(knob);
    }

    const QRectF groove;
    const QRectF knob;
    const QRectF filled;
    const QBrush background = QColor(Qt::lightGray);
    const QBrush fill = QColor(50, 173, 235);
    const QPen pen = outline(Qt::white, 2);
};

// Closed.
// Its items, each of which a scene paints into a picture of its own.
struct ComboBox
{
    ComboBox(const QRectF &place, const QString &text) :
        button(place, Qt::NoBrush, Qt::white, 1.5, 0),
        caption({place.x(), place.y(), place.width() - 30, place.height()}, text, Qt::white),
        arrow({place.right() - 25, place.y(), 25, place.height()}, QChar(0x25BC), Qt::white)
    { }

    const RoundRect button;
    const Caption caption;
    const Caption arrow;
};

} // namespace HandDrawing

#endif
