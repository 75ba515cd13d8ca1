// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "galleryuser.h"

#include <algorithm>

namespace {

constexpr int dragSteps = 16;
constexpr int knobPx = 30;

// The values that control reported, in order.
QVector<double> valuesOf(const QStringList &changes, const QString &control)
{
    const QString start = control + ": valueChanged ";
    QVector<double> values;
    for (const QString &line : changes) {
        if (line.startsWith(start))
            values.append(line.midRef(start.size()).toDouble());
    }
    return values;
}

// Whether each value of the slider is followed at once by its whole number from the bar, unless the
// bar is there already.
bool barFollowsSlider(const QStringList &changes, int barValue)
{
    for (int i = 0; i < changes.size(); ++i) {
        const QVector<double> slider = valuesOf(changes.mid(i, 1), "Slider");
        if (slider.isEmpty())
            continue;
        const QVector<double> bar = valuesOf(changes.mid(i + 1, 1), "Bar");
        if (!bar.isEmpty())
            barValue = int(bar.first());
        if (qAbs(slider.first() - barValue) > 0.501) // the log has six digits
            return false;
    }
    return true;
}

} // namespace

// What a mouse does to the values in the gallery: sliders, bars, boxes, and what is bound to them.
class tst_GalleryPointerValues : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void cleanupTestCase() { QCOMPARE(m_user.quit(), QString()); }

    void sliderDragTakesTheBarAlong_data()
    {
        QTest::addColumn<QString>("page");
        QTest::newRow("on the slider's page") << "slide-control";
        QTest::newRow("on the progress bar's page") << "progress-bar";
    }

    void sliderDragTakesTheBarAlong()
    {
        QVERIFY(m_user.start(fetch<QString>("page")));
        COMPARE_TAP_CHANGES(m_user, "set-0", "Bar: valueChanged 0; Slider: valueChanged 0");
        // With the knob at the left end the press takes hold of it.
        const QRect slider = m_user.geometryOf("slider");
        const QPoint left(slider.left() + knobPx / 2, slider.center().y());
        const QPoint right(left.x() + slider.width() - knobPx, left.y());
        m_user.press(left);
        // One value a move: neither sends the other round in circles.
        for (int i = 1; i <= 2 * dragSteps; ++i) {
            const int place = i <= dragSteps ? i : 2 * dragSteps - i;
            m_user.moveTo(left + (right - left) * place / dragSteps);
            QVERIFY(m_user.waitFor("Slider: valueChanged", i));
        }
        m_user.release();
        QVERIFY(m_user.waitFor("Slider: mouseRelease"));

        const QStringList changes = m_user.takeChanges();
        const QVector<double> all = QVector<double>{0} + valuesOf(changes, "Slider");
        QCOMPARE(all.size(), 1 + 2 * dragSteps);
        const QVector<double> forth = all.mid(0, dragSteps + 1);
        const QVector<double> back = all.mid(dragSteps);
        QVERIFY(std::is_sorted(forth.cbegin(), forth.cend()));
        QVERIFY(std::is_sorted(back.crbegin(), back.crend()));
        QCOMPARE(forth.last(), 100.0);
        QCOMPARE(back.last(), 0.0);
        QVERIFY(barFollowsSlider(changes, 0));
        QCOMPARE(changes.count("Bar: completed"), 1);
    }

    void buttonsSetTheBarAndTheBarTheSlider()
    {
        QVERIFY(m_user.start("progress-bar"));
        m_user.tapAll({"set-50", "set-100", "set-0"});
        COMPARE_GESTURES(
            m_user,
            "Set 50: press, release, clicked; Bar: valueChanged 50; Slider: valueChanged 50; "
            "Set 100: press, release, clicked; Bar: valueChanged 100; Slider: valueChanged 100; "
            "Bar: completed; "
            "Set 0: press, release, clicked; Bar: valueChanged 0; Slider: valueChanged 0");
    }

    void sliderWithStepStopsAtWholeSteps()
    {
        QVERIFY(m_user.open("slide-control"));
        const QRect slider = m_user.geometryOf("step-slider");
        const int y = slider.center().y();
        m_user.tapAt({slider.left() + 2, y});
        COMPARE_CHANGES(m_user, "Step 10: valueChanged 0");
        const int left = slider.left() + knobPx / 2;
        const int travel = slider.width() - knobPx;
        m_user.press({left, y});
        for (int step = 1; step <= 10; ++step) {
            // Between two steps, and a little beyond the second one.
            m_user.moveTo({left + travel * (2 * step - 1) / 20, y});
            m_user.moveTo({left + travel * step / 10 + 2, y});
            QVERIFY(m_user.waitFor("Step 10: valueChanged", step));
        }
        m_user.release();
        QVERIFY(m_user.waitFor("Step 10: mouseRelease"));
        QCOMPARE(valuesOf(m_user.takeChanges(), "Step 10"),
                 QVector<double>({10, 20, 30, 40, 50, 60, 70, 80, 90, 100}));
    }

    void sliderReachesBoundsOtherThanZero()
    {
        QVERIFY(m_user.start("slide-control"));
        const QRect slider = m_user.geometryOf("offset-slider");
        const int y = slider.center().y();
        // At 45 from 20 to 120 the knob begins at a quarter of the travel: there the press moves
        // nothing.
        m_user.tapAt({slider.left() + knobPx / 2 + (slider.width() - knobPx) / 4, y});
        COMPARE_GESTURES(m_user, "20 to 120: press, release, clicked");
        m_user.tapAt({slider.left(), y});
        COMPARE_CHANGES(m_user, "20 to 120: valueChanged 20");
        m_user.tapAt({slider.right() - 2, y});
        COMPARE_CHANGES(m_user, "20 to 120: valueChanged 120");
    }

    void disabledSliderStays()
    {
        QVERIFY(m_user.start("slide-control"));
        const QRect slider = m_user.geometryOf("disabled-slider");
        m_user.tapAt({slider.left() + 2, slider.center().y()});
        COMPARE_TAP_GESTURES(
            m_user, "set-50",
            "Set 50: press, release, clicked; Bar: valueChanged 50; Slider: valueChanged 50");
    }

    void radioBoxTapMovesTheSelection()
    {
        QVERIFY(m_user.start("radio-box"));
        COMPARE_TAP_GESTURES(m_user, "radio-2",
                             "Fast: press, checked; Slow: unchecked, checkChanged; "
                             "Group: idChanged 2; Fast: checkChanged");
        COMPARE_TAP_GESTURES(m_user, "radio-0",
                             "Slow: press, checked; Fast: unchecked, checkChanged; "
                             "Group: idChanged 0; Slow: checkChanged");
    }

    void selectedRadioBoxIgnoresTheTap()
    {
        QVERIFY(m_user.open("radio-box"));
        m_user.tapAll({"radio-0", "radio-1"});
        COMPARE_GESTURES(m_user,
                         "Normal: press, checked; Slow: unchecked, checkChanged; "
                         "Group: idChanged 1; Normal: checkChanged");
        // What the log says next is about the tap after that.
        m_user.tapAll({"radio-1", "select-1"});
        COMPARE_GESTURES(m_user, "Select 1: press, release, clicked");
    }

    void radioBoxInNoGroupToggles()
    {
        QVERIFY(m_user.open("radio-box"));
        m_user.tapAll({"radio-alone", "radio-alone"});
        COMPARE_GESTURES(m_user,
                         "In no group: press, unchecked, checkChanged, release, clicked, "
                         "press, checked, checkChanged, release, clicked");
    }

    void radioBoxIsSelectedWithoutATap_data()
    {
        QTest::addColumn<QString>("by");
        QTest::newRow("by its caption") << "caption-3";
        QTest::newRow("by the program") << "select-3";
    }

    void radioBoxIsSelectedWithoutATap()
    {
        QVERIFY(m_user.start("radio-box"));
        COMPARE_TAP_CHANGES(m_user, fetch<QString>("by"),
                            "Slow: unchecked, checkChanged; Turbo: checked, checkChanged; "
                            "Group: idChanged 3");
    }

    void checkBoxTapToggles_data()
    {
        QTest::addColumn<QString>("width");
        QTest::addColumn<QStringList>("changes");
        QTest::newRow("narrow, off") << "48" << QStringList{"checked", "unchecked"};
        QTest::newRow("narrow, on") << "64" << QStringList{"unchecked", "checked"};
        QTest::newRow("wider than its track, on") << "160" << QStringList{"unchecked", "checked"};
    }

    void checkBoxTapToggles()
    {
        const auto width = fetch<QString>("width");
        const auto changes = fetch<QStringList>("changes");
        QVERIFY(m_user.open("check-box"));
        m_user.tapAll({"switch-" + width, "switch-" + width});
        COMPARE_GESTURES(m_user,
                         u"Switch %1 px: press, %2, checkChanged, release, clicked, "
                         "press, %3, checkChanged, release, clicked"_s.arg(width, changes.first(),
                                                                           changes.last()));
    }

    void modeDecidesWhatIsCarried_data()
    {
        QTest::addColumn<int>("mode");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("sliderTapped"); // where it is 100
        QTest::addColumn<QString>("modelLowered"); // by 10
        const QString sliderOnly = "Slider: valueChanged 100";
        const QString toModel = sliderOnly + "; Model: levelChanged 100";
        QTest::newRow("automatic, as both sides notify")
            << 0 << "Auto" << toModel << "Model: levelChanged 90; Slider: valueChanged 90";
        QTest::newRow("manual") << 1 << "Manual" << sliderOnly << "Model: levelChanged 30";
        QTest::newRow("one way") << 2 << "OneWay" << toModel << "Model: levelChanged 90";
        QTest::newRow("one way to the source") << 4 << "OneWayToSource" << sliderOnly
                                               << "Model: levelChanged 30; Slider: valueChanged 30";
    }

    void modeDecidesWhatIsCarried()
    {
        const int mode = fetch<int>("mode");
        QVERIFY(m_user.start("data-bind"));
        COMPARE_TAP_CHANGES(
            m_user, u"mode-%1"_s.arg(mode),
            u"Mode: idChanged %1; Binding: setBind(%2)"_s.arg(mode).arg(fetch<QString>("name")));
        tapSlider(100);
        COMPARE_CHANGES(m_user, fetch<QString>("sliderTapped"));
        COMPARE_TAP_CHANGES(m_user, "model-less", fetch<QString>("modelLowered"));
    }

    void manualBindingMovesByUpdateOnly()
    {
        QVERIFY(m_user.start("data-bind"));
        m_user.tapAll({"mode-1", "model-more", "bind", "update"});
        COMPARE_CHANGES(m_user,
                        "Mode: idChanged 1; Binding: setBind(Manual); Model: levelChanged 50; "
                        "Binding: error : bind is not setted, update()");
        // The slider stands at the model's 50 now, without having said so: there a tap takes hold
        // of it.
        const QRect slider = m_user.geometryOf("source-slider");
        m_user.tapAt(
            {slider.left() + knobPx / 2 + (slider.width() - knobPx) / 2, slider.center().y()});
        QVERIFY(m_user.waitFor("Slider: mouseClicked"));
        COMPARE_CHANGES(m_user, "");
    }

    void unboundSliderMovesAlone()
    {
        QVERIFY(m_user.start("data-bind"));
        m_user.tap("unbind");
        tapSlider(0);
        COMPARE_CHANGES(m_user, "Binding: unbind(); Slider: valueChanged 0");
        // The model is silent: bind() blocks its signals while it writes to it.
        m_user.tapAll({"bind", "bind", "model-more"});
        COMPARE_CHANGES(m_user,
                        "Binding: bind(), bind(); Model: levelChanged 10; "
                        "Slider: valueChanged 10");
        tapSlider(100);
        COMPARE_CHANGES(m_user, "Slider: valueChanged 100; Model: levelChanged 100");
        // However often it was bound.
        m_user.tap("unbind");
        tapSlider(0);
        COMPARE_CHANGES(m_user, "Binding: unbind(); Slider: valueChanged 0");
    }

    void pageWorksOnWithoutItsModel()
    {
        QVERIFY(m_user.start("data-bind"));
        m_user.tap("delete-model");
        tapSlider(100);
        m_user.tapAll({"model-more", "bind", "update", "mode-2"});
        COMPARE_CHANGES(m_user,
                        "Model: deleted; Slider: valueChanged 100; "
                        "Binding: error : bind is not setted, update(); Mode: idChanged 2; "
                        "Binding: error : could not find dst property ' value '");
        // The button makes a new one now.
        m_user.tap("delete-model");
        tapSlider(0);
        COMPARE_CHANGES(m_user,
                        "Slider: valueChanged 40; Binding: setBind(OneWay); "
                        "Slider: valueChanged 0; Model: levelChanged 0");
    }

private:
    // Taps the slider of the data bind page where its value is 0 or 100.
    void tapSlider(int value)
    {
        const QRect slider = m_user.geometryOf("source-slider");
        m_user.tapAt({value == 0 ? slider.left() + 2 : slider.right() - 2, slider.center().y()});
    }

    GalleryUser m_user;
};

KEL_TEST_MAIN(tst_GalleryPointerValues)
#include "tst_gallerypointervalues.moc"
