// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "checkboxstates.h"
#include "controltest.h"
#include "handdrawing.h"
#include "record.h"
#include "stage.h"

#include <limits>
#include <memory>

namespace {

const QColor defaultTrack(200, 200, 200);
const QColor defaultKnob(0, 123, 185);
const QString rangeWarning = u"QColor::setRgb: RGB parameters out of range"_s;

// What the box shows now, from a fresh record as paint() makes it.
KELCheckBoxStyle optionOf(const KELCheckBox &box)
{
    KELCheckBoxStyle option = KELCheckBoxStyle();
    box.initStyleOption(&option, nullptr);
    return option;
}

enum class Part { Track, Knob, Outline };

QBrush &brushOf(KELCheckBoxStyle *style, Part part)
{
    if (part == Part::Track)
        return style->backgroundBrush;
    return part == Part::Knob ? style->indicatorBrush : style->borderBrush;
}

using Box = Restyled<KELCheckBox>;

} // namespace

Q_DECLARE_METATYPE(BoxState)

class tst_KELCheckBox : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void recordHasTheDefaultsOfACheckBox()
    {
        const KELCheckBox box;
        KELRoundRectControlStyle expected = Record::defaults();
        setLook(&expected);
        QCOMPARE(Record::difference(*box.style(), expected), QString());
        QCOMPARE(styleOf(box)->indicatorBrush, QBrush(defaultKnob));
    }

    void recordStandsForTheBaseRecord()
    {
        QVERIFY((std::is_base_of_v<KELRoundRectControlStyle, KELCheckBoxStyle>));
        QCOMPARE(KELCheckBoxStyle().indicatorBrush, QBrush(Qt::NoBrush));
        QCOMPARE(sizeof(KELCheckBoxStyle), sizeof(KELRoundRectControlStyle) + sizeof(QBrush));
    }

    void takesPointerInput() { ControlTest::takesPointerInput<KELCheckBox>(); }

    void declaresItsInterface() { ControlTest::declaresACheck<KELCheckBox>("KELCheckBox"); }

    void initStyleCarriesTheLookOver()
    {
        Box box;
        Record::fill(box.style());
        box.style()->contextMenu = newMenu(); // dies with the box
        styleOf(box)->indicatorBrush = QBrush(Qt::red);
        KELRoundRectControlStyle expected = *box.style();
        expected.isMouseDown = false;
        expected.isCheck = false;
        setLook(&expected);
        box.makeStyleAgain();
        QCOMPARE(Record::difference(*box.style(), expected), QString());
        QCOMPARE(styleOf(box)->indicatorBrush, QBrush(defaultKnob));
    }

    void initStyleMakesANewRecordEachTime()
    {
        KELCheckBox box;
        for (int i = 0; i < 3; ++i) {
            // The new record is made before the old one goes, so it cannot be in its place.
            const auto old = quintptr(box.style());
            const KELRoundRectControlStyle *const made = box.initStyle();
            QCOMPARE(box.style(), made);
            QVERIFY(quintptr(made) != old);
        }
    }

    void knobBrushIsFreed_data()
    {
        addRows({{"texture", {{"texture", true}, {"gradient", false}}}});
    }

    // With each record that initStyle() replaces, and with the box.
    void knobBrushIsFreed()
    {
        const bool isTexture = fetch<bool>("texture");
        const QPixmap pixmap = HandDrawing::picture();
        for (int records = 1; records <= 3; ++records) {
            auto box = std::make_unique<Box>();
            for (int i = 1; i <= records; ++i) {
                // A leak of the gradient is for the sanitizers to see.
                styleOf(*box)->indicatorBrush = isTexture ? QBrush(pixmap)
                                                          : HandDrawing::gradient();
                styleOf(*box)->text = u"Pump %1"_s.arg(i);
                QCOMPARE(pixmap.isDetached(), !isTexture);
                if (i < records)
                    box->makeStyleAgain();
                else
                    box.reset();
                QVERIFY2(pixmap.isDetached(), "the old knob brush is still there");
            }
        }
    }

    void menuIsDisposedOfWithTheBox()
    {
        const QPointer<QMenu> menu(newMenu());
        auto box = std::make_unique<Box>();
        box->style()->contextMenu = menu;
        box->makeStyleAgain();
        QCoreApplication::sendPostedEvents(menu, QEvent::DeferredDelete);
        QVERIFY(menu);
        box.reset();
        QCoreApplication::sendPostedEvents(menu, QEvent::DeferredDelete);
        QVERIFY(!menu);
    }

    void optionIsTheRecordWithoutPicturesAndPress()
    {
        KELCheckBox box;
        Record::fill(box.style());
        box.style()->contextMenu = newMenu(); // dies with the box
        for (const bool on : {false, true}) {
            box.style()->isCheck = on;
            box.style()->trimText = on;
            KELRoundRectControlStyle expected = *box.style();
            if (on)
                expected.backgroundBrush = QColor(70, 193, 255, 185); // as the knob, but paler
            expected.pixmap = QPixmap();
            expected.icon = KELCheckBoxStyle().icon;
            expected.iconSize = 0;
            expected.isMouseDown = false;
            expected.contextMenu = nullptr;
            QCOMPARE(Record::difference(optionOf(box), expected), QString());
        }
    }

    void optionHasTheRectangleInTheScene()
    {
        KELRoundRectControl parent;
        parent.setboundRect(10, 20, 200, 100);
        auto *box = new KELCheckBox(&parent);
        box->setboundRect(5, 5, 50, 30);
        QCOMPARE(optionOf(*box).boundRect, QRectF(15, 25, 50, 30));
    }

    void optionFillsFieldsWithoutInitialiser()
    {
        KELCheckBox box;
        QMenu menu;
        styleOf(box)->borderBrush = QBrush(Qt::NoBrush);
        KELCheckBoxStyle option = KELCheckBoxStyle();
        option.borderWidth = 99;
        option.textFlags = 99;
        option.trimText = false;
        option.iconSize = 99;
        option.contextMenu = &menu;
        box.initStyleOption(&option, nullptr);
        QCOMPARE(option.borderWidth, 0.0F);
        QCOMPARE(option.textFlags, 0);
        QVERIFY(option.trimText);
        QCOMPARE(option.iconSize, 0);
        QCOMPARE(option.contextMenu, nullptr);
    }

    void coloursAreComputedFromTheRecord_data()
    {
        addRows({{"own", {{"default colours", false}, {"own colours", true}}},
                 {"state", namesOf(defaultStates)}});
    }

    void coloursAreComputedFromTheRecord()
    {
        const bool own = fetch<bool>("own");
        const BoxState &state = (own ? ownStates : defaultStates)[fetch<size_t>("state")];
        KELCheckBox box;
        if (own) {
            useOwnColours(box);
            box.style()->borderWidth = 5;
        }
        bringInto(&box, state);
        const KELCheckBoxStyle option = optionOf(box);
        QCOMPARE(option.backgroundBrush, QBrush(state.track));
        QCOMPARE(option.indicatorBrush, QBrush(state.knob));
        QCOMPARE(option.borderBrush, QBrush(state.outline));
        QCOMPARE(option.borderWidth, own ? 5.0F : 2.0F);
        QCOMPARE(option.foregroundBrush, QBrush(Qt::black));
    }

    void enabledBrushesAreCopiedWhole()
    {
        KELCheckBox box;
        const QBrush gradient = HandDrawing::gradient();
        const QBrush hatched(QColor(100, 110, 120, 230), Qt::DiagCrossPattern);
        styleOf(box)->backgroundBrush = gradient;
        styleOf(box)->indicatorBrush = hatched;
        styleOf(box)->borderBrush = gradient;
        for (const bool on : {false, true}) {
            box.setCheck(on);
            QCOMPARE(optionOf(box).backgroundBrush,
                     on ? QBrush(QColor(170, 180, 190, 160)) : gradient);
            QCOMPARE(optionOf(box).indicatorBrush, hatched);
            QCOMPARE(optionOf(box).borderBrush, gradient);
        }
    }

    void disabledBrushesAreSolid()
    {
        KELCheckBox box;
        styleOf(box)->backgroundBrush = QBrush(QColor(100, 110, 120, 230), Qt::DiagCrossPattern);
        styleOf(box)->indicatorBrush = QBrush(QColor(1, 2, 3, 4), Qt::Dense3Pattern);
        styleOf(box)->borderBrush = QBrush(QColor(1, 2, 3, 230), Qt::HorPattern);
        box.setEnabled(false);
        QCOMPARE(optionOf(box).backgroundBrush, QBrush(QColor(100, 110, 120, 60)));
        QCOMPARE(optionOf(box).indicatorBrush, QBrush(QColor(30, 40, 50, 150)));
        QCOMPARE(optionOf(box).borderBrush, QBrush(QColor(1, 2, 3, 100)));
        box.setCheck(true);
        QCOMPARE(optionOf(box).backgroundBrush, QBrush(QColor(100, 110, 120, 80)));
    }

    void disabledByAParent()
    {
        KELRoundRectControl parent;
        const auto *box = new KELCheckBox(&parent);
        parent.setEnabled(false);
        QCOMPARE(optionOf(*box).indicatorBrush, QBrush(defaultStates[2].knob));
        QCOMPARE(optionOf(*box).backgroundBrush, QBrush(defaultStates[2].track));
        QCOMPARE(optionOf(*box).borderBrush, QBrush(defaultStates[2].outline));
    }

    void withoutKnob()
    {
        KELCheckBox box;
        styleOf(box)->indicatorBrush = QBrush(QColor(10, 20, 30), Qt::NoBrush);
        for (const bool enabled : {true, false}) {
            box.setEnabled(enabled);
            QCOMPARE(optionOf(box).indicatorBrush.style(), Qt::NoBrush);
            box.setCheck(true);
            // A brush that was left out counts as black.
            QCOMPARE(optionOf(box).backgroundBrush, QBrush(QColor(70, 70, 70, 185)));
            box.setCheck(false);
            QCOMPARE(optionOf(box).backgroundBrush.color().alpha(), enabled ? 255 : 85);
        }
    }

    void withoutTrack_data() { addRows({{"on", {{"off", false}, {"on", true}}}}); }

    void withoutTrack()
    {
        KELCheckBox box;
        styleOf(box)->backgroundBrush = QBrush(QColor(80, 90, 100), Qt::NoBrush);
        box.setCheck(fetch<bool>("on"));
        QCOMPARE(optionOf(box).backgroundBrush.style(), Qt::NoBrush);
        QCOMPARE(optionOf(box).indicatorBrush, QBrush(defaultKnob));
        box.setEnabled(false);
        QCOMPARE(optionOf(box).backgroundBrush.style(), Qt::NoBrush);
        // The knob takes the colour of a track that is not drawn.
        QCOMPARE(optionOf(box).indicatorBrush, QBrush(QColor(10, 20, 30, 150)));
    }

    void withoutOutline_data()
    {
        QTest::addColumn<QBrush>("brush");
        QTest::addColumn<float>("width");
        QTest::newRow("no brush") << QBrush(Qt::red, Qt::NoBrush) << 2.0F;
        QTest::newRow("width zero") << QBrush(Qt::red) << 0.0F;
        QTest::newRow("width negative") << QBrush(Qt::red) << -1.0F;
        QTest::newRow("width not a number")
            << QBrush(Qt::red) << std::numeric_limits<float>::quiet_NaN();
    }

    void withoutOutline()
    {
        KELCheckBox box;
        styleOf(box)->borderBrush = fetch<QBrush>("brush");
        styleOf(box)->borderWidth = fetch<float>("width");
        for (const bool enabled : {true, false}) {
            box.setEnabled(enabled);
            QCOMPARE(optionOf(box).borderBrush, QBrush(Qt::NoBrush));
            QCOMPARE(optionOf(box).borderWidth, 0.0F);
        }
    }

    void withoutForegroundOrText_data()
    {
        QTest::addColumn<QBrush>("foreground");
        QTest::addColumn<QString>("text");
        QTest::newRow("no brush") << QBrush(Qt::NoBrush) << u"Pump"_s;
        QTest::newRow("null text") << QBrush(Qt::red) << QString();
        QTest::newRow("empty text") << QBrush(Qt::red) << u""_s;
    }

    void withoutForegroundOrText()
    {
        KELCheckBox box;
        styleOf(box)->text = fetch<QString>("text");
        styleOf(box)->foregroundBrush = fetch<QBrush>("foreground");
        QCOMPARE(optionOf(box).foregroundBrush, fetch<QBrush>("foreground"));
        QVERIFY(optionOf(box).text.isNull());
        QCOMPARE(optionOf(box).textFlags, 0);
    }

    void colourOutOfRangeIsInvalid_data()
    {
        QTest::addColumn<BoxState>("state");
        QTest::addColumn<int>("changed");
        QTest::addColumn<QColor>("colour");
        QTest::addColumn<int>("invalid");
        const BoxState &on = defaultStates[1];
        const BoxState &offDisabled = defaultStates[2];
        const BoxState &onDisabled = defaultStates[3];
        const int track = int(Part::Track);
        const int knob = int(Part::Knob);
        const int outline = int(Part::Outline);
        QTest::newRow("disabled knob, red") << offDisabled << track << QColor(69, 200, 200) << knob;
        QTest::newRow("disabled knob, green")
            << offDisabled << track << QColor(200, 69, 200) << knob;
        QTest::newRow("disabled knob, blue")
            << offDisabled << track << QColor(200, 200, 69) << knob;
        QTest::newRow("disabled knob, black track")
            << offDisabled << track << QColor(0, 0, 0) << knob;
        QTest::newRow("track on, red") << on << knob << QColor(186, 0, 0) << track;
        QTest::newRow("track on, green") << on << knob << QColor(0, 186, 0) << track;
        QTest::newRow("track on, blue") << on << knob << QColor(0, 0, 186) << track;
        QTest::newRow("track on, alpha") << on << knob << QColor(0, 0, 0, 69) << track;
        QTest::newRow("track off and disabled, alpha")
            << offDisabled << track << QColor(200, 200, 200, 169) << track;
        QTest::newRow("disabled outline, alpha, off")
            << offDisabled << outline << QColor(0, 0, 0, 129) << outline;
        QTest::newRow("disabled outline, alpha, on")
            << onDisabled << outline << QColor(0, 0, 0, 129) << outline;
    }

    void colourOutOfRangeIsInvalid()
    {
        KELCheckBox box;
        brushOf(styleOf(box), fetch<Part>("changed")) = fetch<QColor>("colour");
        bringInto(&box, fetch<BoxState>("state"));
        KELCheckBoxStyle option = optionOf(box);
        QCOMPARE(takeWarnings(), QStringList(rangeWarning));
        for (const Part part : {Part::Track, Part::Knob, Part::Outline}) {
            QCOMPARE(brushOf(&option, part).color().isValid(), part != fetch<Part>("invalid"));
            QCOMPARE(brushOf(&option, part).style(), Qt::SolidPattern);
        }
    }

    void colourAtTheLimitIsValid()
    {
        KELCheckBox box;
        styleOf(box)->backgroundBrush = QColor(70, 70, 70, 170);
        styleOf(box)->indicatorBrush = QColor(185, 185, 185, 70);
        styleOf(box)->borderBrush = QColor(255, 255, 255, 130);
        box.setEnabled(false);
        QCOMPARE(optionOf(box).indicatorBrush, QBrush(QColor(0, 0, 0, 150)));
        QCOMPARE(optionOf(box).backgroundBrush, QBrush(QColor(70, 70, 70, 0)));
        QCOMPARE(optionOf(box).borderBrush, QBrush(QColor(255, 255, 255, 0)));
        box.setEnabled(true);
        box.setCheck(true);
        QCOMPARE(optionOf(box).backgroundBrush, QBrush(QColor(255, 255, 255, 0)));
    }

    void trackFromAnInvalidKnob()
    {
        KELCheckBox box;
        styleOf(box)->backgroundBrush = QColor(10, 200, 200);
        bringInto(&box, defaultStates[3]);
        const KELCheckBoxStyle option = optionOf(box);
        QCOMPARE(takeWarnings(), QStringList(rangeWarning));
        QVERIFY(!option.indicatorBrush.color().isValid());
        // Qt counts an invalid colour as opaque black.
        QCOMPARE(option.backgroundBrush, QBrush(QColor(70, 70, 70, 185)));
    }

    void optionDoesNotChangeTheRecord()
    {
        KELCheckBox box;
        bringInto(&box, defaultStates[3]);
        const KELRoundRectControlStyle before = *box.style();
        optionOf(box);
        QCOMPARE(Record::difference(*box.style(), before), QString());
        QCOMPARE(styleOf(box)->indicatorBrush, QBrush(defaultKnob));
    }

private:
    static void setLook(KELRoundRectControlStyle *style)
    {
        style->backgroundBrush = defaultTrack;
        style->borderBrush = QColor(Qt::white);
        style->borderWidth = 2;
        style->xRadius = 15;
        style->yRadius = 15;
    }
};

KEL_TEST_MAIN(tst_KELCheckBox)
#include "tst_kelcheckbox.moc"
