// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "galleryuser.h"

// What a mouse does to the buttons, labels and menus of the gallery.
class tst_GalleryPointer : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void cleanupTestCase() { QCOMPARE(m_user.quit(), QString()); }

    void hoverIsReported()
    {
        m_user.moveTo(QPoint(5, 5));
        QVERIFY(m_user.start("push-button"));
        m_user.moveTo(m_user.geometryOf("press-me").center());
        QVERIFY(m_user.waitFor(" Press me: mouseEnter"));
        m_user.moveTo(QPoint(5, 5));
        QVERIFY(m_user.waitFor(" Press me: mouseLeave"));
        QCOMPARE(m_user.takeLines().size(), 2);
    }

    void linesHaveTimeNameAndSignal()
    {
        QVERIFY(m_user.open("push-button"));
        const QPoint button = m_user.geometryOf("press-me").center();
        m_user.tapAt(button);
        QVERIFY(m_user.waitFor("mouseClicked"));
        const QStringList logged = m_user.takeLines();
        const QRegularExpression form(
            "\\A([0-9]+\\.[0-9]{3}) Press me: "
            "(mouse(Clicked|Enter|Leave)|mouse(Press|Release) \\([0-9]+, [0-9]+\\))\\z");
        double last = 0;
        for (const QString &line : logged) {
            const QRegularExpressionMatch match = form.match(line);
            QVERIFY2(match.hasMatch(), qPrintable(line));
            QVERIFY(match.captured(1).toDouble() >= last);
            last = match.captured(1).toDouble();
        }
        // In the coordinates of the button.
        const QPoint pos = button - m_user.geometryOf("press-me").topLeft();
        const QString position = QString("(%1, %2)").arg(pos.x()).arg(pos.y());
        QCOMPARE(logged.filter(position).size(), 2);
    }

    void tapIsAClick()
    {
        QVERIFY(m_user.open("push-button"));
        COMPARE_TAP_GESTURES(m_user, "press-me", "Press me: press, release, clicked");
    }

    void holdIsALongPress()
    {
        QVERIFY(m_user.open("push-button"));
        m_user.press(m_user.geometryOf("press-me").center());
        COMPARE_GESTURES(m_user, "Press me: press, longPress");
        m_user.release();
        COMPARE_GESTURES(m_user, "Press me: release");
    }

    void draggedOffIsNoClick()
    {
        QVERIFY(m_user.open("push-button"));
        m_user.press(m_user.geometryOf("press-me").center());
        m_user.moveTo(QPoint(5, 5));
        m_user.release();
        COMPARE_GESTURES(m_user, "Press me: press, release");
    }

    void doubleClickKeepsBothTaps()
    {
        QVERIFY(m_user.open("push-button"));
        m_user.tapRepeatedly(m_user.geometryOf("press-me").center(), 2, 50);
        COMPARE_GESTURES(m_user,
                         "Press me: press, release, clicked, press, doubleClicked, release, "
                         "clicked");
    }

    void logGoesToAFile()
    {
        QVERIFY(m_user.start("push-button", m_user.logPath()));
        m_user.tap("press-me");
        const auto hasClick = [this] {
            QFile file(m_user.logPath());
            return file.open(QIODevice::ReadOnly)
                && file.readAll().endsWith(" Press me: mouseClicked\n");
        };
        QVERIFY(QTest::qWaitFor(hasClick, 20000));
    }

    void navigationChangesThePage()
    {
        QVERIFY(m_user.start("round-rect"));
        m_user.tap("back");
        m_user.tapRowOf("push-button");
        // The tap itself is not logged, nor is one on the page before.
        m_user.tapAt(m_user.geometryOf("press-me", "push-button").center());
        COMPARE_GESTURES(m_user, "Press me: press, release, clicked");
    }

    void holdOpensTheMenu()
    {
        QVERIFY(m_user.start("round-rect"));
        m_user.press(m_user.geometryOf("hold-for-menu").center());
        COMPARE_GESTURES(m_user, "Hold for a menu: longPress");
        m_user.release();
        // The menu opens a moment after the log has said so.
        const auto choose = [this] {
            m_user.type("Down Return");
            return m_user.waitFor("menu entry", 1, 100);
        };
        QTRY_VERIFY_WITH_TIMEOUT(choose(), 20000);
        COMPARE_GESTURES(m_user, "Hold for a menu: menu entry Copy");
    }

    void embeddedViewTakesThePointer()
    {
        QVERIFY(m_user.start("content-view"));
        // The keypad's key 5 is in the middle of the room below the buttons.
        const QPoint key = m_user.geometryOf("embedded-frame").center();
        m_user.tapAt(key);
        COMPARE_GESTURES(m_user, "Key 5: press, release, clicked");
        COMPARE_TAP_GESTURES(m_user, "cycle-size", "Content view: Size: medium");
        m_user.tapAt(key);
        COMPARE_GESTURES(m_user, "Key 5: press, release, clicked");
        COMPARE_TAP_GESTURES(m_user, "cycle-state", "Content view: State: disabled");
        m_user.tapAt(key);
        COMPARE_TAP_GESTURES(m_user, "cycle-state", "Content view: State: enabled");
    }

    void labelsReportWhatTheyGet()
    {
        QVERIFY(m_user.start("label"));
        // It ignores the press: the release goes elsewhere, the long press comes all the same.
        COMPARE_TAP_GESTURES(m_user, "plain-label", "Plain label: press, longPress");
        COMPARE_TAP_GESTURES(m_user, "selectable-label", "Selectable: press, release, clicked");
        // A label lies over it.
        COMPARE_TAP_GESTURES(m_user, "button-below", "Button below: press, release, clicked");
    }

    void entryBetweenLinesIsTapped()
    {
        QVERIFY(m_user.start("line-item"));
        COMPARE_TAP_GESTURES(m_user, "entry-1", "Copy: press, release, clicked");
    }

    void menuEntriesAreTapped()
    {
        QVERIFY(m_user.start("side-menu"));
        m_user.tapAll({"column-alarms", "row-locks"});
        COMPARE_GESTURES(m_user,
                         "Column Alarms: press, release, clicked; "
                         "Row Locks: press, release, clicked");
        // The menus go with their page.
        m_user.tap("back");
        m_user.tapRowOf("content-view");
        m_user.tapAt(m_user.geometryOf("cycle-size", "content-view").center());
        COMPARE_GESTURES(m_user, "Content view: Size: medium");
    }

    void tabShowsItsPage_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("below a title") << "Titled";
        QTest::newRow("without a title") << "Plain";
    }

    void tabShowsItsPage()
    {
        const auto name = fetch<QString>("name");
        const QString table = "table-" + name.toLower();
        QVERIFY(m_user.open("navigation-table"));
        const QRect rect = m_user.geometryOf(table);
        const auto tapTab = [&](int index) {
            m_user.tapAt({rect.left() + rect.width() * (2 * index + 1) / 6, rect.bottom() - 40});
        };
        tapTab(2);
        COMPARE_GESTURES(m_user, name + ": page Alarm, release");
        // The page has a button in the row where the first one has a switch.
        COMPARE_TAP_GESTURES(m_user, table + "-desk", "Ring now: press, release, clicked");
        tapTab(2); // is shown already
        tapTab(1);
        COMPARE_GESTURES(m_user, name + ": release, page Sound, release");
        tapTab(0);
        COMPARE_TAP_GESTURES(m_user, table + "-desk",
                             name
                                 + ": page Light, release; "
                                   "Desk: press, checked, checkChanged, release, clicked");
    }

    void comboBoxEntryIsPicked()
    {
        QVERIFY(m_user.start("combo-box"));
        m_user.tap("combo-programme");
        tapEntry("combo-programme", 2);
        COMPARE_GESTURES(m_user, "Programme: selectItemChanged 2");
        // The same one again closes nothing and reports nothing.
        m_user.tap("combo-programme");
        tapEntry("combo-programme", 2);
        tapEntry("combo-programme", 4);
        COMPARE_GESTURES(m_user, "Programme: selectItemChanged 4");
    }

    void disabledComboBoxStaysClosed()
    {
        QVERIFY(m_user.open("combo-box"));
        m_user.tap("combo-disabled");
        tapEntry("combo-disabled", 1);
        COMPARE_GESTURES(m_user, "Enable: press, release, clicked");
        m_user.tap("combo-disabled");
        tapEntry("combo-disabled", 1);
        COMPARE_GESTURES(m_user, "Disabled: selectItemChanged 1");
    }

    void pressOutsideClosesTheList_data()
    {
        QTest::addColumn<QString>("where");
        QTest::newRow("where nothing is") << QString();
        QTest::newRow("on the box itself") << "combo-programme";
        QTest::newRow("on a disabled box") << "combo-disabled";
    }

    void pressOutsideClosesTheList()
    {
        const auto where = fetch<QString>("where");
        QVERIFY(m_user.start("combo-box"));
        m_user.tap("combo-programme");
        tapEntry("combo-programme", 2);
        COMPARE_GESTURES(m_user, "Programme: selectItemChanged 2");
        m_user.tap("combo-programme");
        where.isEmpty() ? m_user.tapNothing() : m_user.tap(where);
        // Below the closed list is a button, where the open one has its second entry.
        tapEntry("combo-programme", 1);
        COMPARE_GESTURES(m_user, "Next: press, release, clicked; Programme: selectItemChanged 3");
        m_user.tap("combo-programme");
        tapEntry("combo-programme", 1);
        COMPARE_GESTURES(m_user, "Programme: selectItemChanged 1");
    }

private:
    static constexpr int entryPx = 30; // the height of an entry of a combo box

    // Where the open list of a combo box has its entry.
    void tapEntry(const QString &box, int index)
    {
        const QRect rect = m_user.geometryOf(box);
        m_user.tapAt({rect.center().x(), rect.bottom() + entryPx * index + entryPx / 2});
    }

    GalleryUser m_user;
};

KEL_TEST_MAIN(tst_GalleryPointer)
#include "tst_gallerypointer.moc"
