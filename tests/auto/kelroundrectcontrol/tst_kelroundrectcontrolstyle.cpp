// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "record.h"
#include "stage.h"

#include <QtGui/QFontMetricsF>

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

// A record on memory that is not zero.
class DirtyMemory
{
public:
    DirtyMemory() { std::memset(m_storage, 0xA5, sizeof m_storage); }
    void *place() { return m_storage; }

private:
    alignas(Style) unsigned char m_storage[sizeof(Style)];
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
        QCOMPARE(Record::difference(*control.style(), Record::defaults()), QString());
    }

    void valueInitialisedRecordIsZero()
    {
        DirtyMemory memory;
        auto *style = new (memory.place()) Style();
        QCOMPARE(style->borderWidth, 0.0F);
        QCOMPARE(style->textFlags, 0);
        QVERIFY(!style->trimText);
        QCOMPARE(style->contextMenu, nullptr);
        QCOMPARE(style->iconSize, 0);
        style->~Style();
    }

    void initialisedFieldsAreSetWithoutValueInitialisation()
    {
        DirtyMemory memory;
        auto *style = new (memory.place()) Style;
        style->borderWidth = 0;
        style->textFlags = 0;
        style->trimText = false;
        style->contextMenu = nullptr;
        style->iconSize = 0;
        QCOMPARE(Record::difference(*style, Style()), QString());
        QCOMPARE(style->boundRect, QRectF(0, 0, 0, 0));
        QCOMPARE(style->backgroundBrush, QBrush(Qt::NoBrush));
        QVERIFY(!style->isMouseDown && !style->isCheck);
        style->~Style();
    }

    void copyTakesAllButTheStates()
    {
        QMenu menu;
        Style source = Style();
        Record::fill(&source);
        source.contextMenu = &menu;
        const Style before = source;
        Style copy = Record::defaults();
        copy.isMouseDown = copy.isCheck = true;
        source.copy(&copy);
        QCOMPARE(Record::difference(source, before), QString());
        QVERIFY(!copy.isMouseDown && !copy.isCheck);
        copy.isMouseDown = copy.isCheck = true;
        QCOMPARE(Record::difference(copy, source), QString());
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
        QCOMPARE(trimmed(fetch<QString>("text"), 10000), fetch<QString>("expected"));
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

    void fractionOfTheWidthIsCutOff()
    {
        const QString text = u"Settings"_s;
        const int needed = neededWidth(text);
        for (const double fraction : {0.0, 0.1, 0.5, 0.9, 0.999}) {
            // Through every width: rounding shows where one pixel more lets one more character in.
            for (int width = 0; width <= needed; ++width)
                QCOMPARE(trimmed(text, width + fraction), elided(text, width));
            QCOMPARE(trimmed(text, -fraction), elided(text, 0));
        }
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
        QCOMPARE(trimmed(u"Settings"_s, fetch<double>("width")), fetch<QString>("expected"));
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
        const QString cut = elided(line, 100);
        QCOMPARE(trimmed(line + u"\n"_s + line, 100), cut + u"\n"_s + cut);
    }

    void trimmingReadsNothingFromTheRecord()
    {
        Style style = Style();
        Record::fill(&style);
        const QString text = u"Settings"_s;
        for (int width = 0; width <= neededWidth(text); ++width)
            QCOMPARE(style.getTrimmingText(text, width, testFont()), elided(text, width));
    }
};

KEL_TEST_MAIN(tst_KELRoundRectControlStyle)

#include "tst_kelroundrectcontrolstyle.moc"
