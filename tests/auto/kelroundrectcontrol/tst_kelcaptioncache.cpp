// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "captionscene.h"
#include "handdrawing.h"
#include "keltest.h"
#include "rows.h"

#include <kellabel.h>
#include <kelpushbutton.h>

#include <QtGui/QFontDatabase>
#include <QtGui/QPaintDevice>
#include <QtGui/QPaintEngine>

#include <array>
#include <memory>

// A caption that was painted before may be painted from what was kept of it: nobody must see that.

namespace {

class Application : public QApplication
{
public:
    using QApplication::QApplication;

    int fontListeners() const { return receivers(SIGNAL(fontDatabaseChanged())); }
};

// Empty when the label is painted as drawn by hand: the first time, when a layout is made, and from
// what is kept: of the layout on paper, of the whole look on nothing.
QString differenceInPaints(const CaptionScene &scene, KELLabel *label)
{
    for (const QColor &background : {KelImage::paper, QColor(Qt::transparent)}) {
        CaptionScene onIt = scene;
        onIt.background = background;
        for (int i = 0; i < 3; ++i) {
            const QString difference = KelImage::difference(painted(onIt, label),
                                                            drawnByHand(onIt));
            if (!difference.isEmpty())
                return difference;
        }
    }
    return QString();
}

// Deletes a control as soon as a text is drawn on it.
class DeletingDevice : public QPaintDevice
{
public:
    explicit DeletingDevice(QGraphicsObject *victim) : m_engine(victim) { }
    QPaintEngine *paintEngine() const override { return &m_engine; }
    bool isDeleted() const { return !m_engine.victim; }

protected:
    int metric(PaintDeviceMetric metric) const override
    {
        switch (metric) {
        case PdmDpiX:
        case PdmDpiY:
        case PdmPhysicalDpiX:
        case PdmPhysicalDpiY:
            return screenDotsPerInch();
        case PdmWidth:
        case PdmHeight:
            return 300;
        case PdmDevicePixelRatioScaled:
            return int(devicePixelRatioFScale());
        default:
            return 1;
        }
    }

private:
    class Engine : public QPaintEngine
    {
    public:
        explicit Engine(QGraphicsObject *object) : QPaintEngine(AllFeatures), victim(object) { }
        bool begin(QPaintDevice * /*device*/) override { return true; }
        bool end() override { return true; }
        void updateState(const QPaintEngineState & /*state*/) override { }
        void drawPixmap(const QRectF & /*rect*/, const QPixmap & /*pixmap*/,
                        const QRectF & /*source*/) override
        { }
        void drawPath(const QPainterPath & /*path*/) override { }
        void drawTextItem(const QPointF & /*pos*/, const QTextItem & /*item*/) override
        {
            delete victim;
        }
        Type type() const override { return User; }

        QPointer<QGraphicsObject> victim;
    };

    mutable Engine m_engine;
};

using Change = std::function<void(CaptionScene &)>;

struct NamedChange
{
    const char *name;
    Change change;
};

Change all(const std::vector<Change> &parts)
{
    return [parts](CaptionScene &s) {
        for (const Change &part : parts)
            part(s);
    };
}

Change text(const QString &text)
{
    return [=](CaptionScene &s) { s.style.text = text; };
}

Change flags(int flags)
{
    return [=](CaptionScene &s) { s.style.textFlags = flags; };
}

Change moreFlags(int flags)
{
    return [=](CaptionScene &s) { s.style.textFlags |= flags; };
}

Change font(const std::function<void(QFont &)> &change)
{
    return [=](CaptionScene &s) { change(s.style.font); };
}

Change height(qreal height)
{
    return [=](CaptionScene &s) { s.style.boundRect.setHeight(height); };
}

Change width(qreal width)
{
    return [=](CaptionScene &s) { s.style.boundRect.setWidth(width); };
}

Change margins(const QMarginsF &margins)
{
    return [=](CaptionScene &s) { s.style.margins = margins; };
}

Change direction(Qt::LayoutDirection direction)
{
    return [=](CaptionScene &s) { s.direction = direction; };
}

void notTrimmed(CaptionScene &s)
{
    s.style.trimText = false;
}

void exactlyOneLineHigh(CaptionScene &s)
{
    const QMarginsF &margins = s.style.margins;
    s.style.boundRect.setHeight(QFontMetricsF(s.style.font).height() + margins.top()
                                + margins.bottom());
}

void fontOfThePainter(CaptionScene &s)
{
    s.style.font = QFont();
}

const QString longText = u"A text that is much too long for this rectangle"_s;
const QString inTwoLengths = QStringLiteral(u"A very long variant of it\u009Cs");
const QString fromRightToLeft = u"\u05E9\u05DC\u05D5\u05DD a1  "_s;

// What the changes begin with.
const NamedChange beginnings[] = {
    {"short", [](CaptionScene & /*scene*/) {}},
    {"wrapped",
     all({text(u"A text that takes some lines, and of them more than there is room for"_s),
          notTrimmed})},
    {"in the painter's own font", all({text(u"A caption"_s), fontOfThePainter})},
    {"right to left", text(u"\u05E9\u05DC\u05D5\u05DD, abc (1)!"_s)},
};

const NamedChange changes[] = {
    {"nothing", [](CaptionScene & /*scene*/) {}},
    {"another text", text(u"Another text"_s)},
    {"a text of the same length", text(u"B caption & more"_s)},
    {"no text", text(QString())},
    {"a long line above a short one",
     all({text(longText + u"\nshort"_s), notTrimmed, flags(Qt::AlignCenter)})},
    {"two lines", text(u"First\nsecond line"_s)},
    {"two lines, and room for exactly one",
     all({text(u"First\nsecond line"_s), notTrimmed, exactlyOneLineHigh})},
    {"empty lines", text(u"\n\nFirst\n\nsecond\n"_s)},
    {"a long text", text(longText)},
    {"a long text, not elided", all({text(longText), notTrimmed})},
    {"a long text on one line, not elided",
     all({text(longText), notTrimmed, flags(Qt::AlignCenter)})},
    {"a tab", text(u"one\ttwo"_s)},
    {"a tab that is expanded",
     all({text(u"one\ttwo"_s), flags(Qt::AlignLeft | Qt::TextExpandTabs)})},
    {"a carriage return", text(u"one\rtwo"_s)},
    {"carriage returns alone", text(u"\r\r\r"_s)},
    {"length marks alone", text(QString(3, QChar(0x9C)))},
    {"a text in two lengths", text(inTwoLengths)},
    {"a text in two lengths, not elided", all({text(inTwoLengths), notTrimmed})},
    {"text from right to left", text(fromRightToLeft.trimmed())},
    {"text from right to left, at the left", all({text(fromRightToLeft), flags(Qt::AlignLeft)})},
    {"a combining accent", text(u"Cafe\u0301 \u25BC"_s)},
    {"trailing blanks", text(u"blanks    "_s)},
    {"blanks that do not fit",
     all({text(u"blanks"_s + QString(60, QLatin1Char(' '))), fontOfThePainter})},
    {"leading blanks", text(u"    blanks"_s)},
    {"larger", font([](QFont &f) { f.setPointSize(14); })},
    {"in pixels", font([](QFont &f) { f.setPixelSize(13); })},
    {"bold", font([](QFont &f) { f.setBold(true); })},
    {"another family", font([](QFont &f) { f.setFamily(u"DejaVu Sans Mono"_s); })},
    {"underlined", font([](QFont &f) { f.setUnderline(true); })},
    {"struck out", font([](QFont &f) { f.setStrikeOut(true); })},
    {"overlined", font([](QFont &f) { f.setOverline(true); })},
    {"spaced letters", font([](QFont &f) { f.setLetterSpacing(QFont::AbsoluteSpacing, 2); })},
    {"the painter's own font", fontOfThePainter},
    {"another font of the painter",
     all({fontOfThePainter, [](CaptionScene &s) { s.painterFont.setPointSize(9); }})},
    {"a font that the painter completes",
     all({fontOfThePainter, font([](QFont &f) { f.setBold(true); }),
          [](CaptionScene &s) { s.painterFont.setItalic(true); }})},
    {"a finer device", [](CaptionScene &s) { s.dotsPerInch = 150; }},
    {"wider", width(180)},
    {"wider by a little", width(120.4)},
    {"too narrow", width(35)},
    {"too low", height(9)},
    {"too low, not clipped", all({height(9), moreFlags(Qt::TextDontClip)})},
    {"higher", height(61)},
    {"without size", all({width(0), height(0)})},
    {"elsewhere", [](CaptionScene &s) { s.style.boundRect.moveTopLeft(QPointF(30.25, 40.75)); }},
    {"other margins", margins(QMarginsF(20, 9, 3, 0))},
    {"margins that leave nothing", margins(QMarginsF(90, 30, 90, 30))},
    {"at the left", flags(Qt::AlignLeft)},
    {"at the right", flags(Qt::AlignRight | Qt::TextWordWrap)},
    {"at the top", flags(Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap)},
    {"at the bottom", flags(Qt::AlignHCenter | Qt::AlignBottom)},
    {"justified", flags(Qt::AlignJustify | Qt::TextWordWrap)},
    {"on one line", flags(Qt::AlignCenter | Qt::TextSingleLine)},
    {"wrapped anywhere", all({flags(Qt::AlignCenter | Qt::TextWrapAnywhere), notTrimmed})},
    {"with a mnemonic", moreFlags(Qt::TextShowMnemonic)},
    {"with a hidden mnemonic", moreFlags(Qt::TextHideMnemonic)},
    {"no flags", flags(0)},
    {"another colour", [](CaptionScene &s) { s.style.foregroundBrush = QColor(200, 30, 30, 128); }},
    {"painter from right to left", direction(Qt::RightToLeft)},
    {"painter from right to left, at the left",
     all({direction(Qt::RightToLeft), flags(Qt::AlignLeft)})},
    {"painter from left to right", direction(Qt::LeftToRight)},
    {"scaled", [](CaptionScene &s) { s.scale = 1.5; }},
    {"turned", [](CaptionScene &s) { s.angle = 30; }},
};

// Three looks of one thing.
struct Turn
{
    const char *name;
    std::array<Change, 3> changes;
};

Change pointSize(int size)
{
    return font([=](QFont &f) { f.setPointSize(size); });
}

Change resolution(int dotsPerInch)
{
    return [=](CaptionScene &s) { s.dotsPerInch = dotsPerInch; };
}

const QString substitutedFamily = u"No such family in turn"_s;

Change substitute(const QString &family)
{
    return [=](CaptionScene &s) {
        QFont::removeSubstitutions(substitutedFamily);
        QFont::insertSubstitution(substitutedFamily, family);
        s.style.font = QFont(substitutedFamily, 12);
    };
}

void installFont(CaptionScene &s)
{
    QFontDatabase::addApplicationFont(KelTest::besideProgram(u"icons.ttf"_s));
    s.style.font = QFont(u"KEL Test Icons"_s, 17);
    s.style.text = QString(3, QChar(0xE001));
}

void removeFonts(CaptionScene & /*scene*/)
{
    QFontDatabase::removeAllApplicationFonts();
}

CaptionScene sceneWithIcons()
{
    CaptionScene scene;
    scene.style.font = QFont(u"KEL Test Icons"_s, 12);
    scene.style.text = QString(3, QChar(0xE001));
    return scene;
}

// Painted while there was another application object.
std::unique_ptr<KELLabel> olderLabel;
QImage olderPicture;

const Turn turns[] = {
    {"text", {text(u"One"_s), text(u"The second one"_s), text(u"Three\nof them"_s)}},
    {"width", {width(120), width(180), width(60)}},
    {"height", {height(40), height(61), height(20)}},
    {"flags",
     {flags(Qt::AlignLeft), flags(Qt::AlignHCenter), flags(Qt::AlignHCenter | Qt::AlignBottom)}},
    {"font", {pointSize(11), pointSize(8), pointSize(14)}},
    {"resolution", {resolution(96), resolution(150), resolution(75)}},
    {"substitute",
     {substitute(u"DejaVu Sans"_s), substitute(u"DejaVu Sans Mono"_s),
      substitute(u"DejaVu Serif"_s)}},
    {"installed fonts", {installFont, installFont, removeFonts}},
};

} // namespace

class tst_KELCaptionCache : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    // First, before anything else is painted.
    void fontIsInstalledInAnotherApplicationObject()
    {
        QVERIFY(QFontDatabase::addApplicationFont(besideProgram(u"icons.ttf"_s)) >= 0);
        QCOMPARE(differenceInPaints(sceneWithIcons(), olderLabel.get()), QString());
        QVERIFY(drawnByHand(sceneWithIcons()) != olderPicture);
        olderLabel.reset();
        QFontDatabase::removeAllApplicationFonts();
    }

    void changeIsSeenAtOnce_data()
    {
        addRows({{"beginning", namesOf(beginnings)}, {"change", namesOf(changes)}});
    }

    void changeIsSeenAtOnce()
    {
        CaptionScene before;
        beginnings[fetch<size_t>("beginning")].change(before);
        CaptionScene after = before;
        changes[fetch<size_t>("change")].change(after);
        KELLabel label;
        for (const CaptionScene &scene : {before, after, before}) {
            apply(scene, &label);
            QCOMPARE(differenceInPaints(scene, &label), QString());
        }
    }

    void eachOfThreeIsSeen_data() { addRows({{"turn", namesOf(turns)}}); }

    // What was kept of the second must not be painted for the third.
    void eachOfThreeIsSeen()
    {
        CaptionScene scene;
        scene.style.trimText = false;
        KELLabel label;
        QList<QImage> pictures;
        for (const Change &change : turns[fetch<size_t>("turn")].changes) {
            change(scene);
            apply(scene, &label);
            QCOMPARE(differenceInPaints(scene, &label), QString());
            pictures.append(drawnByHand(scene));
        }
        QVERIFY(pictures.at(2) != pictures.at(1));
        QFont::removeSubstitutions(substitutedFamily);
    }

    void paintingListensOnce()
    {
        const CaptionScene scene;
        KELLabel label;
        apply(scene, &label);
        QCOMPARE(differenceInPaints(scene, &label), QString());
        const int before = static_cast<Application *>(qApp)->fontListeners();
        QCOMPARE(differenceInPaints(scene, &label), QString());
        QCOMPARE(static_cast<Application *>(qApp)->fontListeners(), before);
    }

    void fontIsChangedInPlace()
    {
        CaptionScene scene;
        scene.style.text = u"A caption that is cut off"_s;
        KELLabel label;
        apply(scene, &label);
        for (const int pointSize : {11, 8, 13}) {
            label.style()->font.setPointSize(pointSize);
            scene.style.font.setPointSize(pointSize);
            QCOMPARE(differenceInPaints(scene, &label), QString());
        }
    }

    void removedFontIsSeenAtOnce_data()
    {
        addRows({{"letters", {{"fits", 1}, {"is cut off", 40}}}});
    }

    void removedFontIsSeenAtOnce()
    {
        const int id = QFontDatabase::addApplicationFont(besideProgram(u"icons.ttf"_s));
        QVERIFY(id >= 0);
        CaptionScene scene;
        scene.style.text = QString(fetch<int>("letters"), QChar(0xE001));
        scene.style.font = QFont(QFontDatabase::applicationFontFamilies(id).constFirst(), 16);
        KELLabel label;
        apply(scene, &label);
        QCOMPARE(differenceInPaints(scene, &label), QString());
        const QImage before = drawnByHand(scene);
        QVERIFY(QFontDatabase::removeApplicationFont(id));
        QVERIFY(drawnByHand(scene) != before);
        QCOMPARE(differenceInPaints(scene, &label), QString());
    }

    void substitutionIsSeenAtOnce_data()
    {
        addRows({{"isNew", {{"the record as it is", false}, {"a new font in the record", true}}}});
    }

    void substitutionIsSeenAtOnce()
    {
        const bool isNew = fetch<bool>("isNew");
        const QString family = u"No such family %1"_s.arg(isNew);
        CaptionScene scene;
        scene.style.text = u"Substitutes iiii"_s;
        scene.style.font = QFont(family, 12);
        KELLabel label;
        apply(scene, &label);
        QCOMPARE(differenceInPaints(scene, &label), QString());
        const QImage before = drawnByHand(scene);
        QFont::insertSubstitution(family, u"DejaVu Sans Mono"_s);
        if (isNew) {
            scene.style.font = QFont(family, 12);
            apply(scene, &label);
        }
        QCOMPARE(differenceInPaints(scene, &label), QString());
        QVERIFY(drawnByHand(scene) != before);
        QFont::removeSubstitutions(family);
    }

    void captionStripIsSeenAtOnce()
    {
        const auto fill = [](KELPushButton *button, const QString &text, qreal width) {
            button->style()->pixmap = HandDrawing::picture();
            button->style()->text = text;
            button->setboundRect(0, 0, width, 70);
        };
        KELPushButton button;
        for (const QString &text : {u"One"_s, u"A long caption below"_s}) {
            for (const qreal width : {100.0, 60.0, 140.0}) {
                for (int i = 0; i < 3; ++i) {
                    KELPushButton fresh;
                    fill(&fresh, text, width);
                    fill(&button, text, width);
                    QCOMPARE(KelImage::difference(KelImage::paint(&button, QSize(160, 90)),
                                                  KelImage::paint(&fresh, QSize(160, 90))),
                             QString());
                }
            }
        }
    }

    void painterWithoutDeviceDrawsNothing()
    {
        KELLabel label;
        apply(CaptionScene(), &label);
        QPainter painter;
        for (int i = 0; i < 3; ++i)
            label.paint(&painter, nullptr, nullptr);
        const QStringList warnings = takeWarnings();
        QVERIFY(!warnings.isEmpty());
        for (const QString &warning : warnings)
            QVERIFY2(warning.startsWith(QLatin1String("QPainter::")), qPrintable(warning));
    }

    void controlIsDeletedByThePaintDevice()
    {
        const CaptionScene scene;
        for (int paints = 0; paints < 4; ++paints) {
            auto *const label = new KELLabel;
            apply(scene, label);
            for (int i = 0; i < paints; ++i)
                painted(scene, label);
            DeletingDevice device(label);
            QPainter painter(&device);
            label->paint(&painter, nullptr, nullptr);
            QVERIFY(device.isDeleted());
        }
    }

    void painterIsLeftAsByTheFirstPaint()
    {
        CaptionScene scene;
        scene.style.boundRect.setHeight(9); // is clipped
        KELLabel label;
        apply(scene, &label);
        for (int i = 0; i < 3; ++i) {
            picture(scene, [&](QPainter *painter) {
                label.paint(painter, nullptr, nullptr);
                QVERIFY(!painter->hasClipping());
                QCOMPARE(painter->pen().color(), QColor(20, 30, 160));
                QCOMPARE(painter->font().pointSize(), 11);
            });
        }
    }
};

int main(int argc, char *argv[])
{
    {
        const Application former(argc, argv);
        olderLabel = std::make_unique<KELLabel>();
        apply(sceneWithIcons(), olderLabel.get());
        differenceInPaints(sceneWithIcons(), olderLabel.get());
        olderPicture = drawnByHand(sceneWithIcons());
    }
    const Application app(argc, argv);
    tst_KELCaptionCache test;
    const int result = QTest::qExec(&test, argc, argv);
    olderLabel.reset();
    return result;
}

#include "tst_kelcaptioncache.moc"
