// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "looks.h"

#include "handdrawing.h"
#include "literals.h"

namespace {

using Style = KELRoundRectControlStyle;

const QString longText = u"A caption that is too long for the control"_s;
const QColor translucentRed(255, 0, 0, 100);
constexpr int asByDefault = 0x1084;

Look all(const std::vector<Look> &looks)
{
    return [looks](Style &s) {
        for (const Look &look : looks)
            look(s);
    };
}

Look caption(const QString &text, int flags = asByDefault)
{
    return [=](Style &s) {
        s.text = text;
        s.textFlags = flags;
    };
}

Look untrimmed(const QString &text, int flags = asByDefault)
{
    return all({caption(text, flags), [](Style &s) { s.trimText = false; }});
}

Look captionIn(const QBrush &brush)
{
    return all({caption(u"Caption"_s), [=](Style &s) { s.foregroundBrush = brush; }});
}

Look fill(const QBrush &brush)
{
    return [=](Style &s) { s.backgroundBrush = brush; };
}

Look outline(float width, const QBrush &brush = translucentRed)
{
    return [=](Style &s) {
        s.borderWidth = width;
        s.borderBrush = brush;
    };
}

Look corners(qreal xRadius, qreal yRadius)
{
    return [=](Style &s) {
        s.xRadius = xRadius;
        s.yRadius = yRadius;
    };
}

Look margins(qreal left, qreal top, qreal right, qreal bottom)
{
    return [=](Style &s) { s.margins = QMarginsF(left, top, right, bottom); };
}

Look pixmap()
{
    return [](Style &s) { s.pixmap = HandDrawing::picture(); };
}

Look glyph(int size = 30, int flags = asByDefault)
{
    return [=](Style &s) {
        s.icon = KELIconFont('W');
        s.iconSize = size;
        s.textFlags = flags;
    };
}

} // namespace

const std::vector<NamedLook> &looks()
{
    static const std::vector<NamedLook> list = {
        {"new", [](Style &) {}},
        {"fill alone", outline(0.5F, Qt::NoBrush)},
        {"outline alone", fill(Qt::NoBrush)},
        {"neither fill nor outline", all({fill(Qt::NoBrush), outline(0.5F, Qt::NoBrush)})},
        {"outline brush without width", outline(0, Qt::red)},
        {"outline brush with a negative width", outline(-4, Qt::red)},
        {"outline of 2", outline(2)},
        {"thick outline, round corners", all({outline(6.7F), corners(12, 5)})},
        {"round corners", all({outline(0.5F, Qt::NoBrush), corners(8, 8)})},
        {"radii larger than the rectangle", corners(900, 700)},
        {"negative radii", corners(-8, -8)},
        {"one radius only", corners(8, 0)},
        {"patterned fill, gradient outline",
         all({fill(QBrush(Qt::darkGreen, Qt::DiagCrossPattern)),
              outline(5, HandDrawing::gradient())})},
        {"gradient fill", fill(HandDrawing::gradient())},
        {"texture fill", fill(HandDrawing::picture())},
        {"transparent fill", all({fill(Qt::transparent), outline(3, Qt::black)})},
        {"caption", caption(u"Caption"_s)},
        {"caption without brush", captionIn(Qt::NoBrush)},
        {"caption in a gradient", captionIn(HandDrawing::gradient())},
        {"translucent caption", captionIn(QColor(200, 0, 0, 120))},
        {"caption with an ampersand", caption(u"&Save &&"_s)},
        {"long caption", caption(longText)},
        {"long caption, untrimmed", untrimmed(longText)},
        {"long caption, untrimmed, one line",
         untrimmed(longText, Qt::AlignLeft | Qt::TextSingleLine)},
        {"caption with trailing blanks that do not fit",
         caption(u"Caption"_s + QString(60, QLatin1Char(' ')))},
        {"caption of three lines", caption(u"One\n\nTwo lines\n3"_s)},
        {"caption of three lines, untrimmed", untrimmed(u"One\n\nTwo\n3"_s)},
        {"caption at the top left", caption(u"Caption"_s, 0)},
        {"caption at the bottom right", caption(u"Caption"_s, Qt::AlignRight | Qt::AlignBottom)},
        {"caption in a font of its own",
         all({caption(u"Caption"_s), [](Style &s) { s.font = QFont(u"Serif"_s, 17, 75, true); }})},
        {"caption inside margins",
         all({caption(u"Caption text"_s), margins(10.25, 4.5, 20.75, 1)})},
        {"pixmap", pixmap()},
        {"pixmap inside margins", all({pixmap(), margins(3.5, 2.5, 7.4, 6.6)})},
        {"pixmap of a dense screen",
         all({pixmap(), [](Style &s) { s.pixmap.setDevicePixelRatio(2); }})},
        {"glyph", glyph()},
        {"small glyph", glyph(9)},
        {"glyph without brush", all({captionIn(Qt::NoBrush), caption(QString()), glyph()})},
        {"glyph at the bottom right", glyph(30, Qt::AlignRight | Qt::AlignBottom)},
        {"glyph and caption", all({glyph(), caption(u"Caption"_s)})},
        {"everything",
         all({pixmap(), glyph(), captionIn(QColor(0, 0, 200, 150)), outline(3, Qt::black),
              corners(6, 6), margins(4, 3, 2, 1)})},
        {"margins larger than the rectangle",
         all({pixmap(), glyph(), caption(u"Caption"_s), margins(90, 50, 80, 40)})},
        {"margins exactly as large as a rectangle of 90 x 40",
         all({pixmap(), margins(45, 20, 45, 20)})},
        {"negative margins", all({pixmap(), caption(u"Caption"_s), margins(-5, -4, -3, -2)})},
    };
    return list;
}
