// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "keltest.h"

#include <kelpushbutton.h>
#include <kelroundrectcontrol.h>

#include <QtCore/QPointer>
#include <QtGui/QFontMetricsF>
#include <QtGui/QPainter>
#include <QtWidgets/QMenu>

#include <cstring>
#include <limits>
#include <memory>
#include <type_traits>

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinite = std::numeric_limits<double>::infinity();

using Style = KELRoundRectControlStyle;

static_assert(!std::is_polymorphic_v<Style>);
static_assert(std::is_copy_constructible_v<Style> && std::is_copy_assignable_v<Style>);
static_assert(std::is_same_v<decltype(Style::boundRect), QRectF>);
static_assert(std::is_same_v<decltype(Style::borderWidth), float>);
static_assert(std::is_same_v<decltype(Style::xRadius), qreal>);
static_assert(std::is_same_v<decltype(Style::yRadius), qreal>);
static_assert(std::is_same_v<decltype(Style::textFlags), int>);
static_assert(std::is_same_v<decltype(Style::contextMenu), QMenu *>);
static_assert(std::is_same_v<decltype(Style::margins), QMarginsF>);
static_assert(std::is_same_v<decltype(Style::icon), KELIconFont>);
static_assert(std::is_same_v<decltype(Style::iconSize), int>);
static_assert(std::is_base_of_v<Style, KELPushButtonStyle>);

int destroyedProbes = 0;

struct Probe
{
    ~Probe() { ++destroyedProbes; }
};

struct ProbeStyle : public KELRoundRectControlStyle
{
    char padding[256] = {};
    Probe probe;
};

class ProbeControl : public KELRoundRectControl
{
public:
    ProbeControl() { m_style = ProbeControl::initStyle(); }
    ProbeStyle *initStyle() override
    {
        auto *probeStyle = new ProbeStyle();
        m_style->copy(probeStyle);
        delete m_style;
        return probeStyle;
    }
};

QFont testFont()
{
    QFont font;
    font.setPixelSize(16);
    return font;
}

// Enough for the text, and not a whole pixel more.
int neededWidth(const QString &text)
{
    return qCeil(QFontMetricsF(testFont()).horizontalAdvance(text));
}

QString elided(const QString &line, int width)
{
    return QFontMetrics(testFont()).elidedText(line, Qt::ElideRight, width, Qt::TextShowMnemonic);
}

QString trimmed(const QString &text, double width)
{
    return Style().getTrimmingText(text, width, testFont());
}

// A glyph shows its font only to the painter that draws it.
QFont glyphFont(const KELIconFont &icon)
{
    QImage image(4, 4, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&image);
    icon.drawIcon(&painter, QRectF(0, 0, 4, 4), Qt::AlignCenter);
    return painter.font();
}

QFont asPainterFont(const QFont &font)
{
    QImage image(4, 4, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&image);
    painter.setFont(font);
    return painter.font();
}

bool hasLoneSurrogate(const QString &text)
{
    for (int i = 0; i < text.size(); ++i) {
        if (text.at(i).isLowSurrogate())
            return true;
        if (!text.at(i).isHighSurrogate())
            continue;
        if (++i == text.size() || !text.at(i).isLowSurrogate())
            return true;
    }
    return false;
}

} // namespace

class tst_KELRoundRectControlStyle : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void controlHasTheDefaults()
    {
        const KELRoundRectControl control;
        const Style &style = *control.style();
        QCOMPARE(style.boundRect, QRectF(100, 100, 100, 30));
        QCOMPARE(style.backgroundBrush, QBrush(QColor(0, 0, 0, 20), Qt::SolidPattern));
        QCOMPARE(style.foregroundBrush, QBrush(Qt::black, Qt::SolidPattern));
        QCOMPARE(style.borderBrush, QBrush(Qt::black, Qt::SolidPattern));
        QCOMPARE(style.borderWidth, 0.5F);
        QCOMPARE(style.xRadius, 0.0);
        QCOMPARE(style.yRadius, 0.0);
        QVERIFY(style.text.isNull());
        QCOMPARE(style.textFlags, 0x1084);
        QCOMPARE(style.trimText, true);
        QCOMPARE(style.font, QFont());
        QCOMPARE(style.contextMenu, nullptr);
        QCOMPARE(style.margins, QMarginsF(0, 0, 0, 0));
        QVERIFY(style.pixmap.isNull());
        QVERIFY(style.icon.isNull());
        QCOMPARE(glyphFont(style.icon),
                 asPainterFont(QFont(KELIconFont::g_fontFamily, -1, -1, false)));
        QCOMPARE(style.iconSize, 30);
        QCOMPARE(style.isMouseDown, false);
        QCOMPARE(style.isCheck, false);
    }

    void valueInitialisedRecordIsZero()
    {
        alignas(Style) unsigned char storage[sizeof(Style)];
        std::memset(storage, 0xA5, sizeof storage);
        auto *style = new (storage) Style();
        QCOMPARE(style->borderWidth, 0.0F);
        QCOMPARE(style->textFlags, 0);
        QCOMPARE(style->trimText, false);
        QCOMPARE(style->contextMenu, nullptr);
        QCOMPARE(style->iconSize, 0);
        style->~Style();
    }

    void initialisedFieldsAreSetWithoutValueInitialisation()
    {
        alignas(Style) unsigned char storage[sizeof(Style)];
        std::memset(storage, 0xA5, sizeof storage);
        auto *style = new (storage) Style;
        QCOMPARE(style->boundRect, QRectF(0, 0, 0, 0));
        QCOMPARE(style->backgroundBrush.style(), Qt::NoBrush);
        QCOMPARE(style->foregroundBrush.style(), Qt::NoBrush);
        QCOMPARE(style->borderBrush.style(), Qt::NoBrush);
        QCOMPARE(style->xRadius, 0.0);
        QCOMPARE(style->yRadius, 0.0);
        QVERIFY(style->text.isNull());
        QCOMPARE(style->font, QFont());
        QCOMPARE(style->margins, QMarginsF());
        QVERIFY(style->pixmap.isNull());
        QVERIFY(style->icon.isNull());
        QCOMPARE(style->isMouseDown, false);
        QCOMPARE(style->isCheck, false);
        style->~Style();
    }

    void fieldsStandInTheDeclaredOrder()
    {
        const Style style = Style();
        const void *const fields[] = {&style.boundRect,
                                      &style.backgroundBrush,
                                      &style.foregroundBrush,
                                      &style.borderBrush,
                                      &style.borderWidth,
                                      &style.xRadius,
                                      &style.yRadius,
                                      &style.text,
                                      &style.textFlags,
                                      &style.trimText,
                                      &style.font,
                                      &style.contextMenu,
                                      &style.margins,
                                      &style.pixmap,
                                      &style.icon,
                                      &style.iconSize,
                                      &style.isMouseDown,
                                      &style.isCheck};
        QCOMPARE(fields[0], static_cast<const void *>(&style));
        QVERIFY(std::is_sorted(std::begin(fields), std::end(fields), std::less<const void *>()));
    }

    void copyTakesTheLook()
    {
        QMenu menu;
        Style source = Style();
        source.boundRect = QRectF(1, 2, 3, 4);
        source.backgroundBrush = QBrush(Qt::red, Qt::Dense4Pattern);
        source.foregroundBrush = QBrush(Qt::green);
        source.borderBrush = QBrush(Qt::blue, Qt::CrossPattern);
        source.borderWidth = 7.25F;
        source.xRadius = 8.5;
        source.yRadius = 9.5;
        source.text = u"caption"_s;
        source.textFlags = Qt::AlignRight | Qt::TextSingleLine;
        source.trimText = true;
        source.font = QFont(u"Serif"_s, 33, QFont::Bold, true);
        source.contextMenu = &menu;
        source.margins = QMarginsF(10, 11, 12, 13);
        source.pixmap = QPixmap(5, 6);
        source.iconSize = 44;

        Style copy = Style();
        source.copy(&copy);
        QCOMPARE(copy.boundRect, source.boundRect);
        QCOMPARE(copy.backgroundBrush, source.backgroundBrush);
        QCOMPARE(copy.foregroundBrush, source.foregroundBrush);
        QCOMPARE(copy.borderBrush, source.borderBrush);
        QCOMPARE(copy.borderWidth, 7.25F);
        QCOMPARE(copy.xRadius, 8.5);
        QCOMPARE(copy.yRadius, 9.5);
        QCOMPARE(copy.text, u"caption"_s);
        QCOMPARE(copy.textFlags, int(Qt::AlignRight) | int(Qt::TextSingleLine));
        QCOMPARE(copy.trimText, true);
        QCOMPARE(copy.font, source.font);
        QCOMPARE(copy.contextMenu, &menu);
        QCOMPARE(copy.margins, QMarginsF(10, 11, 12, 13));
        QCOMPARE(copy.pixmap.cacheKey(), source.pixmap.cacheKey());
        QCOMPARE(copy.iconSize, 44);
    }

    void copyTakesTheGlyphWithItsFont()
    {
        Style source = Style();
        source.icon = KELIconFont(0x2605);
        source.icon.setPixelSize(61);
        Style copy = Style();
        source.copy(&copy);
        QCOMPARE(copy.icon.getIcon(), QChar(0x2605));
        QCOMPARE(glyphFont(copy.icon).pixelSize(), 61);
    }

    void copyClearsBothStates()
    {
        Style source = Style();
        source.isMouseDown = true;
        source.isCheck = true;
        Style copy = Style();
        copy.isMouseDown = true;
        copy.isCheck = true;
        source.copy(&copy);
        QCOMPARE(copy.isMouseDown, false);
        QCOMPARE(copy.isCheck, false);
    }

    void copyLeavesDerivedFieldsAlone()
    {
        KELPushButtonStyle source = KELPushButtonStyle();
        source.iconMargins = QMarginsF(9, 9, 9, 9);
        source.text = u"new"_s;
        KELPushButtonStyle copy = KELPushButtonStyle();
        copy.iconMargins = QMarginsF(1, 2, 3, 4);
        source.copy(&copy);
        QCOMPARE(copy.text, u"new"_s);
        QCOMPARE(copy.iconMargins, QMarginsF(1, 2, 3, 4));
    }

    void copyLeavesTheSourceAlone()
    {
        Style source = Style();
        source.text = u"caption"_s;
        source.isMouseDown = true;
        source.isCheck = true;
        Style copy = Style();
        source.copy(&copy);
        QCOMPARE(source.text, u"caption"_s);
        QCOMPARE(source.isMouseDown, true);
        QCOMPARE(source.isCheck, true);
    }

    void recordDoesNotOwnTheMenu()
    {
        QPointer<QMenu> menu = new QMenu;
        auto *style = new Style();
        style->contextMenu = menu;
        delete style;
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(menu);
        delete menu;
    }

    void derivedRecordIsFreedThroughTheBasePointer()
    {
        destroyedProbes = 0;
        Style *style = new ProbeStyle();
        style->text = u"freed with the base part"_s;
        delete style;
        QCOMPARE(destroyedProbes, 0);
    }

    void controlDeletesADerivedRecordAsTheBaseRecord()
    {
        destroyedProbes = 0;
        auto control = std::make_unique<ProbeControl>();
        QCOMPARE(control->style()->boundRect, QRectF(100, 100, 100, 30));
        control.reset();
        QCOMPARE(destroyedProbes, 0);
    }

    void wideTextIsSplitAtLineFeedsOnly_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("expected");

        QTest::newRow("null text") << QString() << QString();
        QTest::newRow("empty text") << u""_s << QString();
        QTest::newRow("one line feed") << u"\n"_s << QString();
        QTest::newRow("line feeds only") << u"\n\n\n"_s << QString();
        QTest::newRow("one line") << u"a"_s << u"a"_s;
        QTest::newRow("two lines") << u"a\nb"_s << u"a\nb"_s;
        QTest::newRow("empty line between") << u"a\n\nb"_s << u"a\nb"_s;
        QTest::newRow("line feed first") << u"\na"_s << u"a"_s;
        QTest::newRow("line feed last") << u"a\n"_s << u"a"_s;
        QTest::newRow("line feeds everywhere") << u"\n\na\n\n\nb\n\nc\n\n"_s << u"a\nb\nc"_s;
        QTest::newRow("blank is not empty") << u"a\n \nb"_s << u"a\n \nb"_s;
        QTest::newRow("carriage return stays") << u"a\r\nb"_s << u"a\r\nb"_s;
        QTest::newRow("lone carriage return stays") << u"a\r\r\nb"_s << u"a\r\r\nb"_s;
        QTest::newRow("tab stays") << u"a\tb"_s << u"a\tb"_s;
        QTest::newRow("line separator does not split")
            << QStringLiteral(u"a\u2028\u2028b") << QStringLiteral(u"a\u2028\u2028b");
        QTest::newRow("backslash n does not split") << u"a\\nb"_s << u"a\\nb"_s;
        QTest::newRow("ampersands stay") << u"&a && b&"_s << u"&a && b&"_s;
        QTest::newRow("first of several variants")
            << QStringLiteral(u"long\u009Cshort") << u"long"_s;
    }

    void wideTextIsSplitAtLineFeedsOnly()
    {
        QFETCH(QString, text);
        QFETCH(QString, expected);
        QCOMPARE(trimmed(text, 10000), expected);
    }

    void everyLineIsElidedByItself()
    {
        const QString wide = u"a line that is far too wide"_s;
        const int width = neededWidth(u"a line"_s);
        const QString result = trimmed(wide + u"\n\nshort\n"_s + wide, width);
        const QString cut = elided(wide, width);
        QVERIFY(cut.endsWith(QChar(0x2026)));
        QCOMPARE(result, cut + u"\nshort\n"_s + cut);
    }

    void exactWidthKeepsTheText()
    {
        const QString text = u"Settings"_s;
        QCOMPARE(trimmed(text, neededWidth(text)), text);
        QVERIFY(trimmed(text, neededWidth(text) - 2).endsWith(QChar(0x2026)));
    }

    void fractionOfTheWidthIsCutOff_data()
    {
        QTest::addColumn<double>("fraction");

        QTest::newRow("no fraction") << 0.0;
        QTest::newRow("a tenth") << 0.1;
        QTest::newRow("a half") << 0.5;
        QTest::newRow("nine tenths") << 0.9;
        QTest::newRow("nearly one") << 0.999;
    }

    void fractionOfTheWidthIsCutOff()
    {
        QFETCH(double, fraction);
        const QString text = u"Settings"_s;
        const int needed = neededWidth(text);
        // Through every width: rounding shows where one pixel more lets one more character in.
        for (int width = 0; width <= needed; ++width)
            QCOMPARE(trimmed(text, width + fraction), elided(text, width));
        QCOMPARE(trimmed(text, -fraction), elided(text, 0));
    }

    void strangeWidths_data()
    {
        const QString text = u"Settings"_s;
        QTest::addColumn<double>("width");
        QTest::addColumn<QString>("expected");

        QTest::newRow("zero") << 0.0 << elided(text, 0);
        QTest::newRow("negative zero") << -0.0 << elided(text, 0);
        QTest::newRow("negative") << -50.0 << elided(text, -50);
        QTest::newRow("beyond the smallest int") << -1e300 << elided(text, -50);
        QTest::newRow("negative infinity") << -infinite << elided(text, -50);
        QTest::newRow("beyond the largest int") << 1e300 << text;
        QTest::newRow("just beyond the largest int") << 2147483648.0 << text;
        QTest::newRow("largest int") << 2147483647.0 << text;
        QTest::newRow("infinity") << infinite << text;
        QTest::newRow("not a number") << notANumber << elided(text, 0);
        QTest::newRow("smallest positive")
            << std::numeric_limits<double>::denorm_min() << elided(text, 0);
    }

    void strangeWidths()
    {
        QFETCH(double, width);
        QFETCH(QString, expected);
        QCOMPARE(trimmed(u"Settings"_s, width), expected);
    }

    void ampersandTakesNoWidth()
    {
        const int width = neededWidth(u"Save"_s);
        const QString text = u"&Save"_s;
        QVERIFY(width < neededWidth(text));
        QCOMPARE(trimmed(text, width), text);
        QVERIFY(trimmed(u"xSave"_s, width) != u"xSave"_s);
    }

    void surrogatePairsStayWhole()
    {
        const QString text = QString::fromUtf8("\xF0\x9F\x98\x80\xF0\x9D\x84\x9E"
                                               "a\xF0\x9F\x98\x80")
                                 .repeated(3);
        const int needed = neededWidth(text);
        for (int width = 0; width <= needed; ++width) {
            const QString result = trimmed(text, width);
            QVERIFY2(!hasLoneSurrogate(result), qPrintable(QString::number(width)));
        }
        QCOMPARE(trimmed(text, needed), text);
    }

    void longTextIsElided()
    {
        const QString line = QString(20000, QLatin1Char('m'));
        const QString result = trimmed(line + QLatin1Char('\n') + line, 100);
        const QStringList lines = result.split(QLatin1Char('\n'));
        QCOMPARE(lines.size(), 2);
        QCOMPARE(lines.at(0), elided(line, 100));
        QCOMPARE(lines.at(1), lines.at(0));
    }

    void trimmingReadsNothingFromTheRecord()
    {
        Style style = Style();
        style.font.setPixelSize(90);
        style.text = u"another caption"_s;
        style.textFlags = Qt::TextSingleLine;
        style.trimText = false;
        style.margins = QMarginsF(50, 50, 50, 50);
        const QString text = u"Settings"_s;
        for (int width = 0; width <= neededWidth(text); ++width)
            QCOMPARE(style.getTrimmingText(text, width, testFont()), elided(text, width));
    }
};

KEL_TEST_MAIN(tst_KELRoundRectControlStyle)

#include "tst_kelroundrectcontrolstyle.moc"
