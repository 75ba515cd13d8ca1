// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "captionscene.h"
#include "fuzzbytes.h"
#include "fuzztargets.h"
#include "handdrawing.h"

#include <kellabel.h>

#include <QtCore/QDebug>
#include <QtCore/QStringList>
#include <QtGui/QFontMetrics>
#include <QtGui/QPainter>

#include <algorithm>

namespace {

constexpr int mostScenes = 6;
const QLatin1Char lineFeed('\n');
const QChar ellipsis(0x2026);

QString quoted(const QString &text)
{
    QString printed;
    QDebug(&printed).nospace() << text;
    return printed;
}

bool isPlain(const QString &text)
{
    return std::all_of(text.begin(), text.end(), [](QChar c) {
        return c >= QLatin1Char(' ') && c <= QLatin1Char('~') && c != QLatin1Char('&');
    });
}

// What is wrong with a line of plain characters that is elided to width px.
QString wrongWithPlainLine(const QString &line, const QString &source, int width,
                           const QFontMetrics &metrics)
{
    const int sourceWidth = metrics.horizontalAdvance(source);
    if (line == source)
        return sourceWidth <= width + 1 || source.size() <= 1 ? QString()
                                                              : QStringLiteral("is too wide");
    if (sourceWidth < width)
        return QStringLiteral("is elided, and fits");
    if (line.isEmpty())
        return QString(); // no room even for the ellipsis
    if (!line.endsWith(ellipsis))
        return QStringLiteral("does not end with the ellipsis");
    if (!source.startsWith(line.left(line.size() - 1)))
        return QStringLiteral("does not begin as the source does");
    // Kerning before the ellipsis.
    if (metrics.horizontalAdvance(line) > width + metrics.height() / 4 + 1)
        return QStringLiteral("is wider than asked for");
    return QString();
}

QString wrongWithElided(const QString &source, qreal width, const QFont &font)
{
    const QString elided = KELRoundRectControlStyle().getTrimmingText(source, width, font);
    const auto describe = [&](const QString &what) {
        return QStringLiteral("%1 elided to %2 px in %3 is %4: %5")
            .arg(quoted(source), QString::number(width), font.toString(), quoted(elided), what);
    };
    const QString expected = HandDrawing::elided(source, width, font);
    if (elided != expected)
        return describe(QStringLiteral("expected ") + quoted(expected));
    const QStringList sources = source.split(lineFeed, Qt::SkipEmptyParts);
    if (sources.isEmpty())
        return elided.isEmpty() ? QString() : describe(QStringLiteral("not empty"));
    const QStringList lines = elided.split(lineFeed);
    if (lines.size() != sources.size())
        return describe(QStringLiteral("another number of lines"));
    // Qt measures without the spacing of letters and words.
    constexpr qreal mostPx = 10000;
    if (!(qAbs(width) < mostPx) || !qFuzzyIsNull(font.letterSpacing())
        || !qFuzzyIsNull(font.wordSpacing()) || font.capitalization() != QFont::MixedCase)
        return QString();
    const QFontMetrics metrics(font);
    if (!metrics.inFont(ellipsis) || !font.family().startsWith(QLatin1String("DejaVu")))
        return QString();
    for (int i = 0; i < lines.size(); ++i) {
        const QString wrong = isPlain(sources.at(i))
            ? wrongWithPlainLine(lines.at(i), sources.at(i), int(width), metrics)
            : QString();
        if (!wrong.isEmpty())
            return describe(wrong);
    }
    return QString();
}

void change(CaptionScene *scene, FuzzBytes *in)
{
    const int what = in->byte();
    if (what & 1)
        scene->style.text = in->text();
    if (what & 2)
        scene->style.font = in->font();
    if (what & 4) {
        scene->style.boundRect.setWidth(in->byte());
        scene->style.boundRect.setHeight(in->byte() / 3.0);
    }
    if (what & 8)
        scene->style.textFlags = in->flag() ? in->word() : in->integer();
    if (what & 16)
        scene->style.trimText = !scene->style.trimText;
    if (what & 32)
        scene->style.margins = in->margins();
    if (what & 64) {
        const int more = in->byte();
        scene->direction = Qt::LayoutDirection(more % 3);
        scene->dotsPerInch = more & 4 ? 150 : 96;
        scene->scale = more & 8 ? 1.5 : 1;
        scene->angle = more & 16 ? 30 : 0;
        if (more & 32)
            scene->painterFont = in->font();
    }
    if (what & 128)
        scene->style.boundRect = in->rect();
}

// Qt draws some characters otherwise the second time: another drawing by hand decides.
QString wrongWithPainted(const CaptionScene &scene, KELLabel *label)
{
    apply(scene, label);
    QImage expected = drawnByHand(scene);
    for (const char *time : {"first", "second", "third"}) {
        const QImage actual = painted(scene, label);
        if (actual == expected)
            continue;
        expected = drawnByHand(scene);
        if (actual == expected)
            continue;
        return QStringLiteral("%1 in %2 with flags 0x%3, the %4 time: %5")
            .arg(quoted(scene.style.text), scene.style.font.toString(),
                 QString::number(uint(scene.style.textFlags), 16), QLatin1String(time),
                 KelImage::difference(actual, expected));
    }
    return QString();
}

} // namespace

QString KelFuzz::trimming(const QByteArray &bytes)
{
    FuzzBytes in(bytes);
    CaptionScene scene;
    scene.pictureSize = QSize(160, 60);
    KELLabel label;
    for (int i = 0; i < mostScenes && !in.isAtEnd(); ++i) {
        change(&scene, &in);
        QString wrong = wrongWithElided(scene.style.text, in.number(), scene.style.font);
        if (wrong.isEmpty())
            wrong = wrongWithPainted(scene, &label);
        if (!wrong.isEmpty())
            return wrong;
    }
    return QString();
}
