// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "galleryprocess.h"
#include "keltest.h"

#include <QtCore/QTemporaryDir>

#include <algorithm>
#include <cmath>
#include <memory>

namespace {

constexpr int patienceMs = 20000;
constexpr int holdMs = 600; // the long press comes after 500

constexpr int dragSteps = 16;

constexpr int entryPx = 30; // the height of an entry of a combo box

const char *const title = "KELGdiControl Gallery";

// The values that control reported, in order.
QVector<double> valuesOf(const QStringList &log, const QString &control)
{
    const QString start = control + ": valueChanged ";
    QVector<double> values;
    for (const QString &line : log) {
        if (line.startsWith(start))
            values.append(line.midRef(start.size()).toDouble());
    }
    return values;
}

// Whether each value of the slider is followed at once by its whole number from the bar, unless the
// bar is there already.
bool barFollowsSlider(const QStringList &log, int barValue)
{
    for (int i = 0; i < log.size(); ++i) {
        const QVector<double> slider = valuesOf(log.mid(i, 1), "Slider");
        if (slider.isEmpty())
            continue;
        const QVector<double> bar = valuesOf(log.mid(i + 1, 1), "Bar");
        if (!bar.isEmpty())
            barValue = int(bar.first());
        if (qAbs(slider.first() - barValue) > 0.501) // the log has six digits
            return false;
    }
    return true;
}

} // namespace

// Drives the gallery on an X server of its own, as a user would.
class tst_GalleryPointer : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();

    void tapIsAClick();
    void holdIsALongPress();
    void draggedOffIsNoClick();
    void doubleClickKeepsBothTaps();
    void hoverIsReported();
    void linesHaveTimeNameAndSignal();
    void navigationChangesThePage();
    void holdOpensTheMenu();
    void embeddedViewTakesThePointer();
    void logGoesToStandardOutput();

    void sliderDragTakesTheBarAlong_data();
    void sliderDragTakesTheBarAlong();
    void buttonsSetTheBarAndTheBarTheSlider();
    void sliderWithStepStopsAtWholeSteps();
    void sliderReachesBoundsOtherThanZero();
    void disabledSliderStays();
    void radioBoxTapMovesTheSelection();
    void selectedRadioBoxIgnoresTheTap();
    void radioBoxCaptionSelects();
    void radioBoxIsSelectedByProgram();
    void radioBoxInNoGroupToggles();
    void checkBoxTapToggles_data();
    void checkBoxTapToggles();
    void labelsReportWhatTheyGet();
    void entryBetweenLinesIsTapped();
    void modeDecidesWhatIsCarried_data();
    void modeDecidesWhatIsCarried();
    void manualBindingMovesByUpdateOnly();
    void unboundSliderMovesAlone();
    void pageWorksOnWithoutItsModel();
    void wrongPinShakesAndRightPinIsAccepted();
    void shakenDialogComesToRestInTheMiddle();
    void cancelRejectsTheDialog();
    void dialogBlocksTheWindow();
    void pressOutsideClosesThePanel();
    void panelLeftAloneCloses();
    void pressInsideThePanelRestartsItsPeriod();
    void openerClosesThePanelForGood();
    void oneStepShowsAtATime();
    void openerClosesEitherStep();
    void panelGoesWithItsPage();
    void pressBesideThePopupClosesIt();
    void openerClosesThePopupForGood();
    void popupClosesAfterTheChosenTime_data();
    void popupClosesAfterTheChosenTime();
    void comboBoxEntryIsPicked();
    void pressOutsideClosesTheList_data();
    void pressOutsideClosesTheList();
    void disabledComboBoxStaysClosed();
    void longListReachesTheEndOfTheWindow();
    void tabShowsItsPage_data();
    void tabShowsItsPage();
    void menuEntriesAreTapped();

private:
    QString logPath() const;
    bool xdotool(const QStringList &arguments);
    void startGallery(const QString &page, const QString &log);
    void stopGallery();
    QRect geometryOf(const QString &page, const QString &name) const;
    bool moveTo(const QPoint &pos);
    bool tap(const QPoint &pos);
    void quit();
    QStringList lines() const;
    // The same without time and positions, and without those about hovering.
    QStringList gestures() const;
    // The same without those about the pointer.
    QStringList changes() const;
    // Taps the middle of a control.
    bool tap(const QString &page, const QString &name);
    // Taps the slider of the data bind page where its value is 0 or 100.
    bool tapBoundSlider(int value);
    bool tapKeys(const QStringList &keys);
    // Taps where the open list of a combo box has its entry.
    bool tapEntry(const QString &box, int index);
    // Taps a tab of a navigation table with three.
    bool tapTab(const QString &table, int index);
    // Taps where nothing is: in the log.
    bool tapNothing();
    // The titles of the windows on the screen that contain name.
    QStringList windows(const QString &name) const;
    // Where the window called name is, in the words of xdotool.
    QString placeOf(const QString &name) const;
    // When the last line with text was logged, in seconds.
    double timeOf(const QString &text) const;

    QTemporaryDir m_directory;
    QProcessEnvironment m_headless;
    QProcessEnvironment m_display;
    QProcess m_server;
    std::unique_ptr<QProcess> m_gallery;
    QPoint m_button; // the middle of "Press me"
};

void tst_GalleryPointer::initTestCase()
{
    QVERIFY(m_directory.isValid());
    m_headless = Gallery::environment(m_directory.path());
    m_server.start(
        u"Xvfb"_s,
        {"-displayfd", "1", "-screen", "0", "800x480x24", "-nolisten", "tcp", "-noreset"});
    QVERIFY(m_server.waitForReadyRead(patienceMs));
    QTRY_VERIFY_WITH_TIMEOUT(m_server.canReadLine(), patienceMs);
    m_display = m_headless;
    m_display.insert("DISPLAY", ':' + QString::fromLatin1(m_server.readLine().trimmed()));
    m_display.insert("QT_QPA_PLATFORM", "xcb");
    // Neither is needed here, and both keep memory to the end.
    m_display.insert("QT_XCB_GL_INTEGRATION", "none");
    m_display.insert("DBUS_SESSION_BUS_ADDRESS", "disabled:");
    m_button = geometryOf("push-button", "press-me").center();
    QVERIFY(!m_button.isNull());
}

void tst_GalleryPointer::cleanupTestCase()
{
    stopGallery();
    m_server.terminate();
    QVERIFY(m_server.waitForFinished(patienceMs));
}

void tst_GalleryPointer::tapIsAClick()
{
    startGallery("push-button", logPath());
    QVERIFY(moveTo(m_button) && xdotool({"click", "1"}));
    QTRY_COMPARE_WITH_TIMEOUT(gestures().size(), 3, patienceMs);
    quit();
    QCOMPARE(
        gestures(),
        QStringList({"Press me: mousePress", "Press me: mouseRelease", "Press me: mouseClicked"}));
}

void tst_GalleryPointer::holdIsALongPress()
{
    startGallery("push-button", logPath());
    QVERIFY(moveTo(m_button) && xdotool({"mousedown", "1"}));
    QTest::qWait(holdMs);
    QTRY_COMPARE_WITH_TIMEOUT(gestures().size(), 2, patienceMs);
    QVERIFY(xdotool({"mouseup", "1"}));
    QTRY_COMPARE_WITH_TIMEOUT(gestures().size(), 3, patienceMs);
    quit();
    QCOMPARE(gestures(),
             QStringList(
                 {"Press me: mousePress", "Press me: mouseLongPress", "Press me: mouseRelease"}));
}

void tst_GalleryPointer::draggedOffIsNoClick()
{
    startGallery("push-button", logPath());
    QVERIFY(moveTo(m_button) && xdotool({"mousedown", "1"}));
    QVERIFY(moveTo(QPoint(5, 5)) && xdotool({"mouseup", "1"}));
    QTRY_COMPARE_WITH_TIMEOUT(gestures().size(), 2, patienceMs);
    quit();
    QCOMPARE(gestures(), QStringList({"Press me: mousePress", "Press me: mouseRelease"}));
}

void tst_GalleryPointer::doubleClickKeepsBothTaps()
{
    startGallery("push-button", logPath());
    QVERIFY(moveTo(m_button) && xdotool({"click", "--repeat", "2", "--delay", "50", "1"}));
    QTRY_COMPARE_WITH_TIMEOUT(gestures().size(), 7, patienceMs);
    quit();
    QCOMPARE(
        gestures(),
        QStringList({"Press me: mousePress", "Press me: mouseRelease", "Press me: mouseClicked",
                     "Press me: mousePress", "Press me: mouseDoubleClicked",
                     "Press me: mouseRelease", "Press me: mouseClicked"}));
}

void tst_GalleryPointer::hoverIsReported()
{
    QVERIFY(moveTo(QPoint(5, 5)));
    startGallery("push-button", logPath());
    QVERIFY(moveTo(m_button));
    QTRY_COMPARE_WITH_TIMEOUT(lines().size(), 1, patienceMs);
    QVERIFY(moveTo(QPoint(5, 5)));
    QTRY_COMPARE_WITH_TIMEOUT(lines().size(), 2, patienceMs);
    QVERIFY(lines().at(0).endsWith(" Press me: mouseEnter"));
    QVERIFY(lines().at(1).endsWith(" Press me: mouseLeave"));
    quit();
}

void tst_GalleryPointer::linesHaveTimeNameAndSignal()
{
    startGallery("push-button", logPath());
    QVERIFY(tap(m_button));
    QTRY_COMPARE_WITH_TIMEOUT(gestures().size(), 3, patienceMs);
    quit();
    const QRegularExpression form(
        "\\A([0-9]+\\.[0-9]{3}) Press me: "
        "(mouse(Clicked|Enter|Leave)|mouse(Press|Release) \\([0-9]+, [0-9]+\\))\\z");
    double last = 0;
    const QStringList logged = lines();
    for (const QString &line : logged) {
        const QRegularExpressionMatch match = form.match(line);
        QVERIFY2(match.hasMatch(), qPrintable(line));
        QVERIFY(match.captured(1).toDouble() >= last);
        last = match.captured(1).toDouble();
    }
    // Placed without item positions, the button has the coordinates of the window.
    const QString position = QString("(%1, %2)").arg(m_button.x()).arg(m_button.y());
    QCOMPARE(logged.filter(position).size(), 2);
}

void tst_GalleryPointer::navigationChangesThePage()
{
    startGallery("round-rect", logPath());
    QVERIFY(tap(geometryOf("round-rect", "nav-push-button").center()));
    // The tap itself is not logged: the new page is there once its button answers.
    const auto answers = [this] { return tap(m_button) && !gestures().isEmpty(); };
    QTRY_VERIFY_WITH_TIMEOUT(answers(), patienceMs);
    quit();
    QVERIFY(gestures().first().startsWith("Press me: "));
}

void tst_GalleryPointer::holdOpensTheMenu()
{
    startGallery("round-rect", logPath());
    const QRect tile = geometryOf("round-rect", "hold-for-menu");
    QVERIFY(moveTo(tile.center()) && xdotool({"mousedown", "1"}));
    QTest::qWait(holdMs);
    QTRY_COMPARE_WITH_TIMEOUT(gestures(), QStringList{"Hold for a menu: mouseLongPress"},
                              patienceMs);
    QVERIFY(xdotool({"mouseup", "1"}));
    const auto choose = [this] {
        return xdotool({"key", "Down", "Return"}) && gestures().size() > 1;
    };
    QTRY_VERIFY_WITH_TIMEOUT(choose(), patienceMs);
    QCOMPARE(gestures().at(1), "Hold for a menu: menu entry Copy");
    quit();
}

void tst_GalleryPointer::embeddedViewTakesThePointer()
{
    startGallery("content-view", logPath());
    const QRect sizeButton = geometryOf("content-view", "cycle-size");
    const QRect stateButton = geometryOf("content-view", "cycle-state");
    // The keypad's key 5 is in the middle of the room below the buttons.
    const QRect frame = geometryOf("content-view", "embedded-frame");
    QVERIFY(tap(frame.center()));
    QTRY_COMPARE_WITH_TIMEOUT(
        gestures(),
        QStringList({"Key 5: mousePress", "Key 5: mouseRelease", "Key 5: mouseClicked"}),
        patienceMs);
    QVERIFY(tap(sizeButton.center()));
    QTRY_COMPARE_WITH_TIMEOUT(gestures().last(), "Content view: Size: medium", patienceMs);
    QVERIFY(tap(frame.center()));
    QTRY_COMPARE_WITH_TIMEOUT(gestures().size(), 7, patienceMs);
    QVERIFY(tap(stateButton.center()));
    QTRY_COMPARE_WITH_TIMEOUT(gestures().last(), "Content view: State: disabled", patienceMs);
    QVERIFY(tap(frame.center()));
    QVERIFY(tap(stateButton.center()));
    QTRY_COMPARE_WITH_TIMEOUT(gestures().last(), "Content view: State: enabled", patienceMs);
    QCOMPARE(gestures().size(), 9);
    quit();
}

void tst_GalleryPointer::logGoesToStandardOutput()
{
    startGallery("push-button", "-");
    QVERIFY(tap(m_button));
    QByteArray out;
    const auto hasClick = [&] {
        out += m_gallery->readAllStandardOutput();
        return out.contains("Press me: mouseClicked\n");
    };
    QTRY_VERIFY_WITH_TIMEOUT(hasClick(), patienceMs);
    quit();
}

void tst_GalleryPointer::sliderDragTakesTheBarAlong_data()
{
    QTest::addColumn<QString>("page");
    QTest::newRow("on the slider's page") << "slide-control";
    QTest::newRow("on the progress bar's page") << "progress-bar";
}

void tst_GalleryPointer::sliderDragTakesTheBarAlong()
{
    QFETCH(QString, page);
    startGallery(page, logPath());
    QVERIFY(tap(page, "set-0"));
    QTRY_COMPARE_WITH_TIMEOUT(
        changes(), QStringList({"Bar: valueChanged 0", "Slider: valueChanged 0"}), patienceMs);
    // With the knob at the left end the press takes hold of it.
    const QRect slider = geometryOf(page, "slider");
    const QPoint left(slider.left() + 15, slider.center().y());
    const QPoint right(left.x() + slider.width() - 30, left.y());
    QVERIFY(moveTo(left) && xdotool({"mousedown", "1"}));
    // One value a move: neither sends the other round in circles.
    const auto values = [this] { return valuesOf(changes(), "Slider"); };
    for (int i = 1; i <= 2 * dragSteps; ++i) {
        const int place = i <= dragSteps ? i : 2 * dragSteps - i;
        QVERIFY(moveTo(left + (right - left) * place / dragSteps));
        QTRY_COMPARE_WITH_TIMEOUT(values().size(), 1 + i, patienceMs);
    }
    QVERIFY(xdotool({"mouseup", "1"}));
    QTRY_COMPARE_WITH_TIMEOUT(gestures().last(), "Slider: mouseRelease", patienceMs);
    quit();

    const QVector<double> all = values();
    const QVector<double> forth = all.mid(0, dragSteps + 1);
    const QVector<double> back = all.mid(dragSteps);
    QVERIFY(std::is_sorted(forth.cbegin(), forth.cend()));
    QVERIFY(std::is_sorted(back.crbegin(), back.crend()));
    QCOMPARE(forth.first(), 0.0);
    QCOMPARE(forth.last(), 100.0);
    QCOMPARE(back.last(), 0.0);
    QVERIFY(barFollowsSlider(changes().mid(2), 0));
    QCOMPARE(changes().count("Bar: completed"), 1);
}

void tst_GalleryPointer::buttonsSetTheBarAndTheBarTheSlider()
{
    startGallery("progress-bar", logPath());
    QVERIFY(tap("progress-bar", "set-50"));
    QStringList expected{"Set 50: mousePress", "Set 50: mouseRelease", "Set 50: mouseClicked",
                         "Bar: valueChanged 50", "Slider: valueChanged 50"};
    QTRY_COMPARE_WITH_TIMEOUT(gestures(), expected, patienceMs);
    QVERIFY(tap("progress-bar", "set-100"));
    expected += QStringList{"Set 100: mousePress",      "Set 100: mouseRelease",
                            "Set 100: mouseClicked",    "Bar: valueChanged 100",
                            "Slider: valueChanged 100", "Bar: completed"};
    QTRY_COMPARE_WITH_TIMEOUT(gestures(), expected, patienceMs);
    QVERIFY(tap("progress-bar", "set-0"));
    expected += QStringList{"Set 0: mousePress", "Set 0: mouseRelease", "Set 0: mouseClicked",
                            "Bar: valueChanged 0", "Slider: valueChanged 0"};
    QTRY_COMPARE_WITH_TIMEOUT(gestures(), expected, patienceMs);
    quit();
    QCOMPARE(gestures(), expected);
}

void tst_GalleryPointer::sliderWithStepStopsAtWholeSteps()
{
    startGallery("slide-control", logPath());
    const QRect slider = geometryOf("slide-control", "step-slider");
    const int y = slider.center().y();
    QVERIFY(tap({slider.left() + 2, y}));
    QTRY_COMPARE_WITH_TIMEOUT(changes(), QStringList{"Step 10: valueChanged 0"}, patienceMs);
    QVERIFY(moveTo({slider.left() + 15, y}) && xdotool({"mousedown", "1"}));
    for (int x = slider.left() + 15; x <= slider.right(); x += 4)
        QVERIFY(moveTo({x, y}));
    QTRY_COMPARE_WITH_TIMEOUT(changes().last(), "Step 10: valueChanged 100", patienceMs);
    QVERIFY(xdotool({"mouseup", "1"}));
    quit();
    const QVector<double> values = valuesOf(changes(), "Step 10");
    for (const double value : values)
        QCOMPARE(std::fmod(value, 10), 0.0);
    QVERIFY(std::is_sorted(values.cbegin(), values.cend()));
    QVERIFY(values.size() > 5 && values.size() <= 11);
}

void tst_GalleryPointer::sliderReachesBoundsOtherThanZero()
{
    startGallery("slide-control", logPath());
    const QRect slider = geometryOf("slide-control", "offset-slider");
    const int y = slider.center().y();
    // At 45 from 20 to 120 the knob begins at a quarter of the travel: there the press moves
    // nothing.
    const QPoint knob(slider.left() + 15 + (slider.width() - 30) / 4, y);
    QVERIFY(tap(knob));
    QTRY_COMPARE_WITH_TIMEOUT(gestures(),
                              QStringList({"20 to 120: mousePress", "20 to 120: mouseRelease",
                                           "20 to 120: mouseClicked"}),
                              patienceMs);
    QVERIFY(tap({slider.left(), y}));
    QTRY_COMPARE_WITH_TIMEOUT(changes().size(), 1, patienceMs);
    QVERIFY(tap({slider.right() - 2, y}));
    QTRY_COMPARE_WITH_TIMEOUT(changes().size(), 2, patienceMs);
    quit();
    QCOMPARE(changes(), QStringList({"20 to 120: valueChanged 20", "20 to 120: valueChanged 120"}));
}

void tst_GalleryPointer::disabledSliderStays()
{
    startGallery("slide-control", logPath());
    const QRect slider = geometryOf("slide-control", "disabled-slider");
    QVERIFY(tap({slider.left() + 2, slider.center().y()}));
    QVERIFY(tap("slide-control", "set-50"));
    QTRY_COMPARE_WITH_TIMEOUT(gestures().size(), 5, patienceMs);
    quit();
    QCOMPARE(gestures().filter("Disabled"), QStringList());
}

void tst_GalleryPointer::radioBoxTapMovesTheSelection()
{
    startGallery("radio-box", logPath());
    QVERIFY(tap("radio-box", "radio-2"));
    QStringList expected{"Fast: mousePress",   "Fast: checked",      "Slow: unchecked",
                         "Slow: checkChanged", "Group: idChanged 2", "Fast: checkChanged"};
    QTRY_COMPARE_WITH_TIMEOUT(gestures(), expected, patienceMs);
    QVERIFY(tap("radio-box", "radio-0"));
    expected += QStringList{"Slow: mousePress",   "Slow: checked",      "Fast: unchecked",
                            "Fast: checkChanged", "Group: idChanged 0", "Slow: checkChanged"};
    QTRY_COMPARE_WITH_TIMEOUT(gestures(), expected, patienceMs);
    quit();
    QCOMPARE(gestures(), expected);
}

void tst_GalleryPointer::selectedRadioBoxIgnoresTheTap()
{
    startGallery("radio-box", logPath());
    QVERIFY(tap("radio-box", "radio-0"));
    QVERIFY(tap("radio-box", "radio-1"));
    QTRY_COMPARE_WITH_TIMEOUT(gestures().size(), 6, patienceMs);
    const QStringList before = gestures();
    QCOMPARE(before.first(), "Normal: mousePress");
    QVERIFY(tap("radio-box", "radio-1"));
    // What the log says next is about the tap after that.
    QVERIFY(tap("radio-box", "select-1"));
    const QStringList after{"Select 1: mousePress", "Select 1: mouseRelease",
                            "Select 1: mouseClicked"};
    QTRY_COMPARE_WITH_TIMEOUT(gestures(), before + after, patienceMs);
    quit();
    QCOMPARE(gestures(), before + after);
}

void tst_GalleryPointer::radioBoxCaptionSelects()
{
    startGallery("radio-box", logPath());
    QVERIFY(tap("radio-box", "caption-3"));
    const QStringList expected{"Slow: unchecked", "Slow: checkChanged", "Turbo: checked",
                               "Turbo: checkChanged", "Group: idChanged 3"};
    QTRY_COMPARE_WITH_TIMEOUT(gestures(), expected, patienceMs);
    quit();
}

void tst_GalleryPointer::radioBoxIsSelectedByProgram()
{
    startGallery("radio-box", logPath());
    QVERIFY(tap("radio-box", "select-3"));
    const QStringList expected{"Slow: unchecked", "Slow: checkChanged", "Turbo: checked",
                               "Turbo: checkChanged", "Group: idChanged 3"};
    QTRY_COMPARE_WITH_TIMEOUT(changes(), expected, patienceMs);
    quit();
}

void tst_GalleryPointer::radioBoxInNoGroupToggles()
{
    startGallery("radio-box", logPath());
    QVERIFY(tap("radio-box", "radio-alone"));
    QStringList expected{"In no group: mousePress", "In no group: unchecked",
                         "In no group: checkChanged", "In no group: mouseRelease",
                         "In no group: mouseClicked"};
    QTRY_COMPARE_WITH_TIMEOUT(gestures(), expected, patienceMs);
    QVERIFY(tap("radio-box", "radio-alone"));
    QTRY_COMPARE_WITH_TIMEOUT(changes().mid(2),
                              QStringList({"In no group: checked", "In no group: checkChanged"}),
                              patienceMs);
    quit();
}

void tst_GalleryPointer::checkBoxTapToggles_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("logged");
    QTest::addColumn<bool>("isOn");
    QTest::newRow("narrow, off") << "switch-48"
                                 << "Switch 48 px" << false;
    QTest::newRow("narrow, on") << "switch-64"
                                << "Switch 64 px" << true;
    QTest::newRow("wider than its track, on") << "switch-160"
                                              << "Switch 160 px" << true;
}

void tst_GalleryPointer::checkBoxTapToggles()
{
    QFETCH(QString, name);
    QFETCH(QString, logged);
    QFETCH(bool, isOn);
    const QString first = logged + (isOn ? ": unchecked" : ": checked");
    const QString second = logged + (isOn ? ": checked" : ": unchecked");
    startGallery("check-box", logPath());
    QVERIFY(tap("check-box", name));
    QTRY_COMPARE_WITH_TIMEOUT(
        gestures(),
        QStringList({logged + ": mousePress", first, logged + ": checkChanged",
                     logged + ": mouseRelease", logged + ": mouseClicked"}),
        patienceMs);
    QVERIFY(tap("check-box", name));
    QTRY_COMPARE_WITH_TIMEOUT(
        changes(),
        QStringList({first, logged + ": checkChanged", second, logged + ": checkChanged"}),
        patienceMs);
    quit();
    QCOMPARE(changes().size(), 4);
}

void tst_GalleryPointer::labelsReportWhatTheyGet()
{
    startGallery("label", logPath());
    // It ignores the press: the release goes elsewhere, the long press comes all the same.
    QVERIFY(tap("label", "plain-label"));
    QStringList expected{"Plain label: mousePress", "Plain label: mouseLongPress"};
    QTRY_COMPARE_WITH_TIMEOUT(gestures(), expected, patienceMs);
    QVERIFY(tap("label", "selectable-label"));
    expected += QStringList{"Selectable: mousePress", "Selectable: mouseRelease",
                            "Selectable: mouseClicked"};
    QTRY_COMPARE_WITH_TIMEOUT(gestures(), expected, patienceMs);
    // A label lies over it.
    QVERIFY(tap("label", "button-below"));
    expected += QStringList{"Button below: mousePress", "Button below: mouseRelease",
                            "Button below: mouseClicked"};
    QTRY_COMPARE_WITH_TIMEOUT(gestures(), expected, patienceMs);
    quit();
    QCOMPARE(gestures(), expected);
}

void tst_GalleryPointer::entryBetweenLinesIsTapped()
{
    startGallery("line-item", logPath());
    QVERIFY(tap("line-item", "entry-1"));
    QTRY_COMPARE_WITH_TIMEOUT(
        gestures(), QStringList({"Copy: mousePress", "Copy: mouseRelease", "Copy: mouseClicked"}),
        patienceMs);
    quit();
}

void tst_GalleryPointer::modeDecidesWhatIsCarried_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("sliderTapped"); // where it is 100
    QTest::addColumn<QStringList>("modelLowered"); // by 10
    const QStringList toModel{"Slider: valueChanged 100", "Model: levelChanged 100"};
    const QStringList sliderOnly{"Slider: valueChanged 100"};
    QTest::newRow("automatic, as both sides notify")
        << 0 << "Auto" << toModel
        << QStringList{"Model: levelChanged 90", "Slider: valueChanged 90"};
    QTest::newRow("manual") << 1 << "Manual" << sliderOnly << QStringList{"Model: levelChanged 30"};
    QTest::newRow("one way") << 2 << "OneWay" << toModel << QStringList{"Model: levelChanged 90"};
    QTest::newRow("one way to the source")
        << 4 << "OneWayToSource" << sliderOnly
        << QStringList{"Model: levelChanged 30", "Slider: valueChanged 30"};
}

void tst_GalleryPointer::modeDecidesWhatIsCarried()
{
    QFETCH(int, mode);
    QFETCH(QString, name);
    QFETCH(QStringList, sliderTapped);
    QFETCH(QStringList, modelLowered);
    startGallery("data-bind", logPath());
    QVERIFY(tap("data-bind", QString("mode-%1").arg(mode)));
    QStringList expected{QString("Mode: idChanged %1").arg(mode),
                         QString("Binding: setBind(%1)").arg(name)};
    QTRY_COMPARE_WITH_TIMEOUT(changes(), expected, patienceMs);
    QVERIFY(tapBoundSlider(100));
    expected += sliderTapped;
    QTRY_COMPARE_WITH_TIMEOUT(changes(), expected, patienceMs);
    QVERIFY(tap("data-bind", "model-less"));
    expected += modelLowered;
    QTRY_COMPARE_WITH_TIMEOUT(changes(), expected, patienceMs);
    quit();
    QCOMPARE(changes(), expected);
}

void tst_GalleryPointer::manualBindingMovesByUpdateOnly()
{
    startGallery("data-bind", logPath());
    QVERIFY(tap("data-bind", "mode-1"));
    QVERIFY(tap("data-bind", "model-more"));
    QVERIFY(tap("data-bind", "bind"));
    QVERIFY(tap("data-bind", "update"));
    QStringList expected{"Mode: idChanged 1", "Binding: setBind(Manual)", "Model: levelChanged 50",
                         "Binding: error : bind is not setted", "Binding: update()"};
    QTRY_COMPARE_WITH_TIMEOUT(changes(), expected, patienceMs);
    // The slider stands at the model's 50 now, without having said so: there a tap takes hold of
    // it.
    const QRect slider = geometryOf("data-bind", "source-slider");
    QVERIFY(tap({slider.left() + 15 + (slider.width() - 30) / 2, slider.center().y()}));
    QTRY_COMPARE_WITH_TIMEOUT(gestures().last(), "Slider: mouseClicked", patienceMs);
    quit();
    QCOMPARE(changes(), expected);
}

void tst_GalleryPointer::unboundSliderMovesAlone()
{
    startGallery("data-bind", logPath());
    QVERIFY(tap("data-bind", "unbind"));
    QVERIFY(tapBoundSlider(0));
    QStringList expected{"Binding: unbind()", "Slider: valueChanged 0"};
    QTRY_COMPARE_WITH_TIMEOUT(changes(), expected, patienceMs);
    // The model is silent: bind() blocks its signals while it writes to it.
    QVERIFY(tap("data-bind", "bind"));
    QVERIFY(tap("data-bind", "bind"));
    QVERIFY(tap("data-bind", "model-more"));
    expected += QStringList{"Binding: bind()", "Binding: bind()", "Model: levelChanged 10",
                            "Slider: valueChanged 10"};
    QTRY_COMPARE_WITH_TIMEOUT(changes(), expected, patienceMs);
    QVERIFY(tapBoundSlider(100));
    expected += QStringList{"Slider: valueChanged 100", "Model: levelChanged 100"};
    QTRY_COMPARE_WITH_TIMEOUT(changes(), expected, patienceMs);
    // However often it was bound.
    QVERIFY(tap("data-bind", "unbind"));
    QVERIFY(tapBoundSlider(0));
    expected += QStringList{"Binding: unbind()", "Slider: valueChanged 0"};
    QTRY_COMPARE_WITH_TIMEOUT(changes(), expected, patienceMs);
    quit();
    QCOMPARE(changes(), expected);
}

void tst_GalleryPointer::pageWorksOnWithoutItsModel()
{
    startGallery("data-bind", logPath());
    QVERIFY(tap("data-bind", "delete-model"));
    QVERIFY(tapBoundSlider(100));
    QVERIFY(tap("data-bind", "model-more"));
    QVERIFY(tap("data-bind", "bind"));
    QVERIFY(tap("data-bind", "update"));
    QVERIFY(tap("data-bind", "mode-2"));
    QStringList expected{"Model: deleted",
                         "Slider: valueChanged 100",
                         "Binding: error : bind is not setted",
                         "Binding: update()",
                         "Mode: idChanged 2",
                         "Binding: error : could not find dst property ' value '"};
    QTRY_COMPARE_WITH_TIMEOUT(changes(), expected, patienceMs);
    // The button makes a new one now.
    QVERIFY(tap("data-bind", "delete-model"));
    QVERIFY(tapBoundSlider(0));
    expected += QStringList{"Slider: valueChanged 40", "Binding: setBind(OneWay)",
                            "Slider: valueChanged 0", "Model: levelChanged 0"};
    QTRY_COMPARE_WITH_TIMEOUT(changes(), expected, patienceMs);
    quit();
    QCOMPARE(changes(), expected);
}

void tst_GalleryPointer::wrongPinShakesAndRightPinIsAccepted()
{
    startGallery("dialog-base", logPath());
    QVERIFY(tap("dialog-base", "enter-pin"));
    QStringList expected{"Dialog: opened"};
    QTRY_COMPARE_WITH_TIMEOUT(changes(), expected, patienceMs);
    QVERIFY(tapKeys({"2", "5", "8", "1"}));
    expected += "Dialog: shaken";
    QTRY_COMPARE_WITH_TIMEOUT(changes(), expected, patienceMs);
    QVERIFY(tapKeys({"2", "5", "8", "0"}));
    expected += "Dialog: accepted";
    QTRY_COMPARE_WITH_TIMEOUT(changes(), expected, patienceMs);
    // Each time it begins with nothing entered, and a key too many can be taken back.
    QVERIFY(tap("dialog-base", "enter-pin"));
    expected += "Dialog: opened";
    QTRY_COMPARE_WITH_TIMEOUT(changes(), expected, patienceMs);
    QVERIFY(tapKeys({"2", "5", "7", "delete", "8", "0"}));
    expected += "Dialog: accepted";
    QTRY_COMPARE_WITH_TIMEOUT(changes(), expected, patienceMs);
    quit();
    QCOMPARE(changes(), expected);
}

void tst_GalleryPointer::shakenDialogComesToRestInTheMiddle()
{
    startGallery("dialog-base", logPath());
    QVERIFY(tap("dialog-base", "enter-pin"));
    QTRY_COMPARE_WITH_TIMEOUT(changes().size(), 1, patienceMs);
    const QString middle = placeOf("PIN");
    QVERIFY2(middle.contains("X=200\nY=115\nWIDTH=400\nHEIGHT=250\n"), qPrintable(middle));
    // Fast enough for the second shake to begin during the first.
    QVERIFY(moveTo(geometryOf("dialog-base", "key-5").center()));
    QVERIFY(xdotool({"click", "--repeat", "8", "--delay", "20", "1"}));
    QTRY_COMPARE_WITH_TIMEOUT(changes().count("Dialog: shaken"), 2, patienceMs);
    QTest::qWait(holdMs); // a shake takes 300 ms
    QTRY_COMPARE_WITH_TIMEOUT(placeOf("PIN"), middle, patienceMs);
    QVERIFY(tapKeys({"cancel"}));
    QTRY_COMPARE_WITH_TIMEOUT(changes().last(), "Dialog: rejected", patienceMs);
    quit();
}

void tst_GalleryPointer::cancelRejectsTheDialog()
{
    startGallery("dialog-base", logPath());
    QVERIFY(tap("dialog-base", "enter-pin"));
    QTRY_COMPARE_WITH_TIMEOUT(changes().size(), 1, patienceMs);
    QVERIFY(tapKeys({"2", "5", "cancel"}));
    QTRY_COMPARE_WITH_TIMEOUT(changes(), QStringList({"Dialog: opened", "Dialog: rejected"}),
                              patienceMs);
    QTRY_COMPARE_WITH_TIMEOUT(windows("PIN"), QStringList(), patienceMs);
    quit();
}

void tst_GalleryPointer::dialogBlocksTheWindow()
{
    startGallery("dialog-base", logPath());
    QVERIFY(tap("dialog-base", "enter-pin"));
    QTRY_COMPARE_WITH_TIMEOUT(changes().size(), 1, patienceMs);
    // Neither the button, whose upper half is free, nor another page, which would take the dialog
    // away.
    const QPoint free = geometryOf("dialog-base", "enter-pin").topLeft() + QPoint(20, 20);
    QVERIFY(tap(free) && tap("dialog-base", "nav-data-bind"));
    QVERIFY(tapKeys({"2", "5", "8", "0"}));
    QTRY_COMPARE_WITH_TIMEOUT(changes(), QStringList({"Dialog: opened", "Dialog: accepted"}),
                              patienceMs);
    QVERIFY(tap(free));
    QTRY_COMPARE_WITH_TIMEOUT(changes().size(), 3, patienceMs);
    QCOMPARE(changes().last(), "Dialog: opened");
    QVERIFY(tapKeys({"cancel"}));
    QTRY_COMPARE_WITH_TIMEOUT(changes().last(), "Dialog: rejected", patienceMs);
    quit();
}

void tst_GalleryPointer::pressOutsideClosesThePanel()
{
    startGallery("non-modal-dialog", logPath());
    QVERIFY(tap("non-modal-dialog", "open-settings"));
    QStringList expected{"Settings panel: shown"};
    QTRY_COMPARE_WITH_TIMEOUT(changes(), expected, patienceMs);
    QVERIFY(tap("non-modal-dialog", "panel-switch"));
    expected += QStringList{"Night mode: checked", "Night mode: checkChanged"};
    QTRY_COMPARE_WITH_TIMEOUT(changes(), expected, patienceMs);
    QCOMPARE(windows("Settings panel"), QStringList{"Settings panel"});
    QVERIFY(tapNothing());
    expected += QStringList{"Settings panel: hidden", "Settings panel: disappeared"};
    QTRY_COMPARE_WITH_TIMEOUT(changes(), expected, patienceMs);
    QCOMPARE(windows("Settings panel"), QStringList());
    QVERIFY(tapNothing());
    quit();
    QCOMPARE(changes(), expected);
}

void tst_GalleryPointer::panelLeftAloneCloses()
{
    startGallery("non-modal-dialog", logPath());
    QVERIFY(tap("non-modal-dialog", "open-settings"));
    const QStringList expected{"Settings panel: shown", "Settings panel: hidden",
                               "Settings panel: disappeared"};
    QTRY_COMPARE_WITH_TIMEOUT(changes(), expected, patienceMs);
    QVERIFY(timeOf("disappeared") - timeOf("shown") >= 5.99);
    quit();
    QCOMPARE(changes(), expected);
}

void tst_GalleryPointer::pressInsideThePanelRestartsItsPeriod()
{
    startGallery("non-modal-dialog", logPath());
    const QPoint slider = geometryOf("non-modal-dialog", "panel-slider").center();
    QVERIFY(tap("non-modal-dialog", "open-settings"));
    QTRY_COMPARE_WITH_TIMEOUT(changes().size(), 1, patienceMs);
    QTest::qWait(2000); // of 6000
    QVERIFY(tap(slider));
    QTRY_VERIFY_WITH_TIMEOUT(gestures().contains("Brightness: mousePress"), patienceMs);
    QTRY_COMPARE_WITH_TIMEOUT(changes().last(), "Settings panel: disappeared", patienceMs);
    QVERIFY(timeOf("disappeared") - timeOf("Brightness: mousePress") >= 5.99);
    QCOMPARE(changes().count("Settings panel: disappeared"), 1);
    QVERIFY(tapNothing()); // the panel had the keyboard
    quit();
}

void tst_GalleryPointer::openerClosesThePanelForGood()
{
    startGallery("non-modal-dialog", logPath());
    QStringList expected;
    for (int i = 0; i < 2; ++i) {
        QVERIFY(tap("non-modal-dialog", "open-settings"));
        expected += "Settings panel: shown";
        QTRY_COMPARE_WITH_TIMEOUT(changes(), expected, patienceMs);
        QVERIFY(tap("non-modal-dialog", "open-settings"));
        expected += "Settings panel: hidden";
        QTRY_COMPARE_WITH_TIMEOUT(changes(), expected, patienceMs);
    }
    // No wish to ignore a press is left over.
    QVERIFY(tap("non-modal-dialog", "open-settings"));
    expected += "Settings panel: shown";
    QTRY_COMPARE_WITH_TIMEOUT(changes(), expected, patienceMs);
    QVERIFY(tapNothing());
    expected += QStringList{"Settings panel: hidden", "Settings panel: disappeared"};
    QTRY_COMPARE_WITH_TIMEOUT(changes(), expected, patienceMs);
    quit();
    QCOMPARE(changes(), expected);
}

void tst_GalleryPointer::oneStepShowsAtATime()
{
    startGallery("non-modal-dialog", logPath());
    QVERIFY(tap("non-modal-dialog", "open-steps"));
    QStringList expected{"First step: shown"};
    QTRY_COMPARE_WITH_TIMEOUT(changes(), expected, patienceMs);
    QVERIFY(tap("non-modal-dialog", "go-forth"));
    expected += QStringList{"First step: hidden", "Second step: shown"};
    QTRY_COMPARE_WITH_TIMEOUT(changes(), expected, patienceMs);
    QTRY_COMPARE_WITH_TIMEOUT(windows("step"), QStringList{"Second step"}, patienceMs);
    QVERIFY(tap("non-modal-dialog", "go-back"));
    expected += QStringList{"Second step: hidden", "First step: shown"};
    QTRY_COMPARE_WITH_TIMEOUT(changes(), expected, patienceMs);
    QTRY_COMPARE_WITH_TIMEOUT(windows("step"), QStringList{"First step"}, patienceMs);
    QVERIFY(tapNothing());
    expected += QStringList{"First step: hidden", "First step: disappeared"};
    QTRY_COMPARE_WITH_TIMEOUT(changes(), expected, patienceMs);
    quit();
    QCOMPARE(changes(), expected);
}

void tst_GalleryPointer::openerClosesEitherStep()
{
    startGallery("non-modal-dialog", logPath());
    QVERIFY(tap("non-modal-dialog", "open-steps"));
    QStringList expected{"First step: shown"};
    QTRY_COMPARE_WITH_TIMEOUT(changes(), expected, patienceMs);
    QVERIFY(tap("non-modal-dialog", "go-forth"));
    expected += QStringList{"First step: hidden", "Second step: shown"};
    QTRY_COMPARE_WITH_TIMEOUT(changes(), expected, patienceMs);
    QVERIFY(tap("non-modal-dialog", "open-steps"));
    expected += "Second step: hidden";
    QTRY_COMPARE_WITH_TIMEOUT(changes(), expected, patienceMs);
    QVERIFY(tap("non-modal-dialog", "open-steps"));
    expected += "First step: shown";
    QTRY_COMPARE_WITH_TIMEOUT(changes(), expected, patienceMs);
    // The other opener is outside: it closes this panel before it opens its own.
    QVERIFY(tap("non-modal-dialog", "open-settings"));
    QTRY_VERIFY_WITH_TIMEOUT(changes().contains("Settings panel: shown"), patienceMs);
    QTRY_COMPARE_WITH_TIMEOUT(windows("step").size(), 0, patienceMs);
    QVERIFY(tapNothing());
    QTRY_COMPARE_WITH_TIMEOUT(changes().last(), "Settings panel: disappeared", patienceMs);
    quit();
}

void tst_GalleryPointer::panelGoesWithItsPage()
{
    startGallery("non-modal-dialog", logPath());
    QVERIFY(tap("non-modal-dialog", "open-steps"));
    QTRY_COMPARE_WITH_TIMEOUT(windows("First step").size(), 1, patienceMs);
    QVERIFY(tap("non-modal-dialog", "nav-non-modal-helper"));
    QTRY_COMPARE_WITH_TIMEOUT(windows("First step").size(), 0, patienceMs);
    const auto answers = [this] {
        return tap("non-modal-helper", "timeout-5000")
            && changes().contains("Time-out: idChanged 2");
    };
    QTRY_VERIFY_WITH_TIMEOUT(answers(), patienceMs);
    quit();
}

void tst_GalleryPointer::pressBesideThePopupClosesIt()
{
    startGallery("non-modal-helper", logPath());
    const QRect popup = geometryOf("non-modal-helper", "popup-content");
    QStringList expected;
    for (int i = 0; i < 2; ++i) {
        QVERIFY(tap("non-modal-helper", "open-popup"));
        expected += "Popup: shown";
        QTRY_COMPARE_WITH_TIMEOUT(changes(), expected, patienceMs);
        QVERIFY(tap(popup.center()));
        QTRY_COMPARE_WITH_TIMEOUT(gestures().count("Popup: mouseClicked"), i + 1, patienceMs);
        QVERIFY(tap(popup.topLeft() - QPoint(8, 8)));
        expected += "Popup: hidden";
        QTRY_COMPARE_WITH_TIMEOUT(changes(), expected, patienceMs);
    }
    quit();
    QCOMPARE(changes(), expected);
}

void tst_GalleryPointer::openerClosesThePopupForGood()
{
    startGallery("non-modal-helper", logPath());
    QStringList expected;
    for (int i = 0; i < 2; ++i) {
        QVERIFY(tap("non-modal-helper", "open-popup"));
        expected += "Popup: shown";
        QTRY_COMPARE_WITH_TIMEOUT(changes(), expected, patienceMs);
        QVERIFY(tap("non-modal-helper", "open-popup"));
        expected += "Popup: hidden";
        QTRY_COMPARE_WITH_TIMEOUT(changes(), expected, patienceMs);
    }
    quit();
    QCOMPARE(changes(), expected);
}

void tst_GalleryPointer::popupClosesAfterTheChosenTime_data()
{
    QTest::addColumn<QString>("choice");
    QTest::addColumn<double>("seconds"); // 0 for never
    QTest::newRow("none") << "timeout-0" << 0.0;
    QTest::newRow("2 s") << "timeout-2000" << 2.0;
    QTest::newRow("5 s") << "timeout-5000" << 5.0;
}

void tst_GalleryPointer::popupClosesAfterTheChosenTime()
{
    QFETCH(QString, choice);
    QFETCH(double, seconds);
    startGallery("non-modal-helper", logPath());
    QVERIFY(tap("non-modal-helper", choice));
    QVERIFY(tap("non-modal-helper", "open-popup"));
    QTRY_COMPARE_WITH_TIMEOUT(changes().last(), "Popup: shown", patienceMs);
    if (seconds > 0) {
        QTRY_COMPARE_WITH_TIMEOUT(changes().last(), "Popup: hidden", patienceMs);
        QVERIFY(timeOf("hidden") - timeOf("shown") >= seconds - 0.01);
        // Not the longer one either, as far as a busy machine lets it tell.
        QVERIFY(seconds > 2 || timeOf("hidden") - timeOf("shown") < 4.9);
    } else {
        QTest::qWait(5500);
        QCOMPARE(changes().last(), "Popup: shown");
    }
    quit();
}

void tst_GalleryPointer::comboBoxEntryIsPicked()
{
    startGallery("combo-box", logPath());
    QVERIFY(tap("combo-box", "combo-programme") && tapEntry("combo-programme", 2));
    QStringList expected{"Programme: selectItemChanged 2"};
    QTRY_COMPARE_WITH_TIMEOUT(gestures(), expected, patienceMs);
    // The same one again closes nothing and reports nothing.
    QVERIFY(tap("combo-box", "combo-programme") && tapEntry("combo-programme", 2));
    QVERIFY(tapEntry("combo-programme", 4));
    expected += "Programme: selectItemChanged 4";
    QTRY_COMPARE_WITH_TIMEOUT(gestures(), expected, patienceMs);
    quit();
    QCOMPARE(gestures(), expected);
}

void tst_GalleryPointer::pressOutsideClosesTheList_data()
{
    QTest::addColumn<QString>("where");
    QTest::newRow("where nothing is") << QString();
    QTest::newRow("on the box itself") << "combo-programme";
    QTest::newRow("on a disabled box") << "combo-disabled";
}

void tst_GalleryPointer::pressOutsideClosesTheList()
{
    QFETCH(QString, where);
    startGallery("combo-box", logPath());
    QVERIFY(tap("combo-box", "combo-programme") && tapEntry("combo-programme", 2));
    QStringList expected{"Programme: selectItemChanged 2"};
    QTRY_COMPARE_WITH_TIMEOUT(gestures(), expected, patienceMs);
    QVERIFY(tap("combo-box", "combo-programme"));
    QVERIFY(where.isEmpty() ? tapNothing() : tap("combo-box", where));
    // Below the closed list is a button, where the open one has its second entry.
    QVERIFY(tapEntry("combo-programme", 1));
    expected += QStringList{"Next: mousePress", "Next: mouseRelease", "Next: mouseClicked",
                            "Programme: selectItemChanged 3"};
    QTRY_COMPARE_WITH_TIMEOUT(gestures(), expected, patienceMs);
    QVERIFY(tap("combo-box", "combo-programme") && tapEntry("combo-programme", 1));
    expected += "Programme: selectItemChanged 1";
    QTRY_COMPARE_WITH_TIMEOUT(gestures(), expected, patienceMs);
    quit();
    QCOMPARE(gestures(), expected);
}

void tst_GalleryPointer::disabledComboBoxStaysClosed()
{
    startGallery("combo-box", logPath());
    QVERIFY(tap("combo-box", "combo-disabled") && tapEntry("combo-disabled", 1));
    QStringList expected{"Enable: mousePress", "Enable: mouseRelease", "Enable: mouseClicked"};
    QTRY_COMPARE_WITH_TIMEOUT(gestures(), expected, patienceMs);
    QVERIFY(tap("combo-box", "combo-disabled") && tapEntry("combo-disabled", 1));
    expected += "Disabled: selectItemChanged 1";
    QTRY_COMPARE_WITH_TIMEOUT(gestures(), expected, patienceMs);
    quit();
    QCOMPARE(gestures(), expected);
}

void tst_GalleryPointer::longListReachesTheEndOfTheWindow()
{
    startGallery("combo-box", logPath());
    const QRect box = geometryOf("combo-box", "combo-many");
    const int last = 478;
    QVERIFY(tap(box.center()) && tap({box.center().x(), last}));
    const QString expected = QString("Entries: selectItemChanged %1")
                                 .arg((last - box.bottom()) / entryPx);
    QTRY_COMPARE_WITH_TIMEOUT(gestures(), QStringList{expected}, patienceMs);
    // An entry no finger gets to.
    QVERIFY(tap("combo-box", "select-last"));
    QTRY_COMPARE_WITH_TIMEOUT(changes(), QStringList({expected, "Entries: selectItemChanged 999"}),
                              patienceMs);
    quit();
}

void tst_GalleryPointer::tabShowsItsPage_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("below a title") << "Titled";
    QTest::newRow("without a title") << "Plain";
}

void tst_GalleryPointer::tabShowsItsPage()
{
    QFETCH(QString, name);
    const QString table = "table-" + name.toLower();
    startGallery("navigation-table", logPath());
    QVERIFY(tapTab(table, 2));
    QStringList expected{name + ": page Alarm", name + ": mouseRelease"};
    QTRY_COMPARE_WITH_TIMEOUT(gestures(), expected, patienceMs);
    // The page has a button in the row where the first one has a switch.
    const QPoint row = geometryOf("navigation-table", table + "-desk").center();
    QVERIFY(tap(row));
    expected += QStringList{"Ring now: mousePress", "Ring now: mouseRelease",
                            "Ring now: mouseClicked"};
    QTRY_COMPARE_WITH_TIMEOUT(gestures(), expected, patienceMs);
    QVERIFY(tapTab(table, 2)); // is shown already
    QVERIFY(tapTab(table, 1));
    expected += QStringList{name + ": mouseRelease", name + ": page Sound",
                            name + ": mouseRelease"};
    QTRY_COMPARE_WITH_TIMEOUT(gestures(), expected, patienceMs);
    QVERIFY(tapTab(table, 0) && tap(row));
    QTRY_COMPARE_WITH_TIMEOUT(
        changes(),
        QStringList({name + ": page Alarm", name + ": page Sound", name + ": page Light",
                     "Desk: checked", "Desk: checkChanged"}),
        patienceMs);
    quit();
}

void tst_GalleryPointer::menuEntriesAreTapped()
{
    startGallery("side-menu", logPath());
    QVERIFY(tap("side-menu", "column-alarms"));
    QStringList expected{"Column Alarms: mousePress", "Column Alarms: mouseRelease",
                         "Column Alarms: mouseClicked"};
    QTRY_COMPARE_WITH_TIMEOUT(gestures(), expected, patienceMs);
    QVERIFY(tap("side-menu", "row-locks"));
    expected += QStringList{"Row Locks: mousePress", "Row Locks: mouseRelease",
                            "Row Locks: mouseClicked"};
    QTRY_COMPARE_WITH_TIMEOUT(gestures(), expected, patienceMs);
    // The menus go with their page.
    QVERIFY(tap("side-menu", "nav-content-view"));
    const QPoint sizeButton = geometryOf("content-view", "cycle-size").center();
    const auto answers = [&] { return tap(sizeButton) && gestures().size() > expected.size(); };
    QTRY_VERIFY_WITH_TIMEOUT(answers(), patienceMs);
    QVERIFY(gestures().at(expected.size()).startsWith("Content view: Size"));
    quit();
}

QString tst_GalleryPointer::logPath() const
{
    return m_directory.filePath("gallery.log");
}

bool tst_GalleryPointer::xdotool(const QStringList &arguments)
{
    QProcess process;
    process.setProcessEnvironment(m_display);
    process.setStandardOutputFile(QProcess::nullDevice());
    process.start(u"xdotool"_s, arguments);
    return process.waitForFinished(patienceMs) && process.exitCode() == 0;
}

void tst_GalleryPointer::startGallery(const QString &page, const QString &log)
{
    stopGallery();
    QFile::remove(logPath());
    m_gallery = std::make_unique<QProcess>();
    m_gallery->setProcessEnvironment(m_display);
    m_gallery->start(Gallery::program(), {"--page", page, "--log", log});
    QVERIFY(m_gallery->waitForStarted(patienceMs));
    QVERIFY(xdotool({"search", "--sync", "--onlyvisible", "--name", title}));
}

// After a test that failed half-way.
void tst_GalleryPointer::stopGallery()
{
    if (m_gallery && m_gallery->state() != QProcess::NotRunning) {
        m_gallery->kill();
        m_gallery->waitForFinished(patienceMs);
    }
}

QRect tst_GalleryPointer::geometryOf(const QString &page, const QString &name) const
{
    const Gallery::Result result = Gallery::run({"--page", page, "--geometry-of", name},
                                                m_headless);
    const QStringList numbers = result.out.trimmed().split(QRegularExpression("[, x]"));
    return numbers.size() != 4 ? QRect()
                               : QRect(numbers.at(0).toInt(), numbers.at(1).toInt(),
                                       numbers.at(2).toInt(), numbers.at(3).toInt());
}

bool tst_GalleryPointer::moveTo(const QPoint &pos)
{
    return xdotool({"mousemove", QString::number(pos.x()), QString::number(pos.y())});
}

bool tst_GalleryPointer::tap(const QPoint &pos)
{
    return moveTo(pos) && xdotool({"click", "1"});
}

bool tst_GalleryPointer::tap(const QString &page, const QString &name)
{
    const QRect rect = geometryOf(page, name);
    return !rect.isNull() && tap(rect.center());
}

bool tst_GalleryPointer::tapBoundSlider(int value)
{
    const QRect slider = geometryOf("data-bind", "source-slider");
    return tap({value == 0 ? slider.left() + 2 : slider.right() - 2, slider.center().y()});
}

bool tst_GalleryPointer::tapKeys(const QStringList &keys)
{
    return std::all_of(keys.cbegin(), keys.cend(),
                       [this](const QString &key) { return tap("dialog-base", "key-" + key); });
}

bool tst_GalleryPointer::tapEntry(const QString &box, int index)
{
    const QRect rect = geometryOf("combo-box", box);
    return tap({rect.center().x(), rect.bottom() + entryPx * index + entryPx / 2});
}

bool tst_GalleryPointer::tapTab(const QString &table, int index)
{
    const QRect rect = geometryOf("navigation-table", table);
    return tap({rect.left() + rect.width() * (2 * index + 1) / 6, rect.bottom() - 40});
}

bool tst_GalleryPointer::tapNothing()
{
    return tap(QPoint(790, 470));
}

QStringList tst_GalleryPointer::windows(const QString &name) const
{
    QProcess process;
    process.setProcessEnvironment(m_display);
    process.start(u"xdotool"_s, {"search", "--onlyvisible", "--name", name, "getwindowname", "%@"});
    process.waitForFinished(patienceMs);
    QStringList found = QString::fromUtf8(process.readAllStandardOutput())
                            .split('\n', Qt::SkipEmptyParts);
    found.sort();
    return found;
}

QString tst_GalleryPointer::placeOf(const QString &name) const
{
    QProcess process;
    process.setProcessEnvironment(m_display);
    process.start(u"xdotool"_s,
                  {"search", "--onlyvisible", "--name", name, "getwindowgeometry", "--shell"});
    process.waitForFinished(patienceMs);
    return QString::fromUtf8(process.readAllStandardOutput());
}

double tst_GalleryPointer::timeOf(const QString &text) const
{
    const QStringList found = lines().filter(text);
    return found.isEmpty() ? -1 : found.last().section(' ', 0, 0).toDouble();
}

void tst_GalleryPointer::quit()
{
    QVERIFY(xdotool({"key", "ctrl+q"}));
    QVERIFY(m_gallery->waitForFinished(patienceMs));
    QCOMPARE(m_gallery->readAllStandardError(), QByteArray());
    QCOMPARE(m_gallery->exitStatus(), QProcess::NormalExit);
    QCOMPARE(m_gallery->exitCode(), 0);
}

QStringList tst_GalleryPointer::lines() const
{
    QFile file(logPath());
    if (!file.open(QIODevice::ReadOnly))
        return QStringList();
    return QString::fromUtf8(file.readAll()).split('\n', Qt::SkipEmptyParts);
}

QStringList tst_GalleryPointer::gestures() const
{
    QStringList found;
    const QStringList logged = lines();
    for (QString line : logged) {
        line.remove(QRegularExpression("\\A[0-9.]+ "))
            .remove(QRegularExpression(" \\([-0-9, ]+\\)\\z"));
        if (!line.endsWith("mouseEnter") && !line.endsWith("mouseLeave"))
            found.append(line);
    }
    return found;
}

QStringList tst_GalleryPointer::changes() const
{
    QStringList found;
    const QStringList all = gestures();
    for (const QString &line : all) {
        if (!line.contains(": mouse"))
            found.append(line);
    }
    return found;
}

KEL_TEST_MAIN(tst_GalleryPointer)
#include "tst_gallerypointer.moc"
