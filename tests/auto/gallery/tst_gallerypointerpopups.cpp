// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "galleryuser.h"

// What a mouse does to the dialog, the panels and the popup of the gallery.
class tst_GalleryPointerPopups : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void cleanupTestCase() { QCOMPARE(m_user.quit(), QString()); }

    void wrongPinShakesAndRightPinIsAccepted()
    {
        QVERIFY(openDialog());
        m_user.tapAll({"key-2", "key-5", "key-8", "key-1"});
        COMPARE_CHANGES(m_user, "Dialog: shaken");
        m_user.tapAll({"key-2", "key-5", "key-8", "key-0"});
        COMPARE_CHANGES(m_user, "Dialog: accepted");
        QCOMPARE(m_user.windows("PIN", 0), QStringList());
        // Each time it begins with nothing entered, and a key too many can be taken back.
        QVERIFY(openDialog());
        m_user.tapAll({"key-2", "key-5", "key-7", "key-delete", "key-8", "key-0"});
        COMPARE_CHANGES(m_user, "Dialog: accepted");
        QCOMPARE(m_user.windows("PIN", 0), QStringList());
    }

    void shakenDialogComesToRestInTheMiddle()
    {
        QVERIFY(openDialog());
        const QString middle = m_user.placeOf("PIN");
        QVERIFY2(middle.contains("X=440\nY=675\nWIDTH=400\nHEIGHT=250\n"), qPrintable(middle));
        // Fast enough for the second shake to begin during the first.
        m_user.tapRepeatedly(m_user.geometryOf("key-5").center(), 8, 20);
        COMPARE_CHANGES(m_user, "Dialog: shaken, shaken");
        QTest::qWait(350); // a shake takes 300 ms, and passes the middle on its way
        QTRY_COMPARE_WITH_TIMEOUT(m_user.placeOf("PIN"), middle, 20000);
        COMPARE_TAP_CHANGES(m_user, "key-cancel", "Dialog: rejected");
        QCOMPARE(m_user.windows("PIN", 0), QStringList());
    }

    void cancelRejectsTheDialog()
    {
        QVERIFY(openDialog());
        m_user.tapAll({"key-2", "key-5", "key-cancel"});
        COMPARE_CHANGES(m_user, "Dialog: rejected");
        QCOMPARE(m_user.windows("PIN", 0), QStringList());
    }

    void dialogBlocksTheWindow()
    {
        QVERIFY(openDialog());
        // Neither the button, whose upper half is free, nor another page, which would take the
        // dialog away.
        const QPoint free = m_user.geometryOf("enter-pin").topLeft() + QPoint(20, 20);
        m_user.tapAt(free);
        m_user.tapAll({"back", "key-2", "key-5", "key-8", "key-0"});
        COMPARE_CHANGES(m_user, "Dialog: accepted");
        m_user.tapAt(free);
        COMPARE_CHANGES(m_user, "Dialog: opened");
        QCOMPARE(m_user.windows("PIN", 1), QStringList{"PIN"});
        COMPARE_TAP_CHANGES(m_user, "key-cancel", "Dialog: rejected");
    }

    void pressOutsideClosesThePanel()
    {
        QVERIFY(m_user.open("non-modal-dialog"));
        COMPARE_TAP_CHANGES(m_user, "open-settings", "Settings panel: shown");
        QCOMPARE(m_user.windows("Settings panel", 1), QStringList{"Settings panel"});
        COMPARE_TAP_CHANGES(m_user, "panel-switch", "Night mode: checked, checkChanged");
        QCOMPARE(m_user.windows("Settings panel", 1), QStringList{"Settings panel"});
        m_user.tapNothing();
        COMPARE_CHANGES(m_user, "Settings panel: hidden, disappeared");
        QCOMPARE(m_user.windows("Settings panel", 0), QStringList());
        m_user.tapNothing();
    }

    void openerClosesThePanelForGood()
    {
        QVERIFY(m_user.open("non-modal-dialog"));
        for (int i = 0; i < 2; ++i) {
            COMPARE_TAP_CHANGES(m_user, "open-settings", "Settings panel: shown");
            COMPARE_TAP_CHANGES(m_user, "open-settings", "Settings panel: hidden");
        }
        // No wish to ignore a press is left over.
        COMPARE_TAP_CHANGES(m_user, "open-settings", "Settings panel: shown");
        m_user.tapNothing();
        COMPARE_CHANGES(m_user, "Settings panel: hidden, disappeared");
    }

    void oneStepShowsAtATime()
    {
        QVERIFY(m_user.open("non-modal-dialog"));
        COMPARE_TAP_CHANGES(m_user, "open-steps", "First step: shown");
        QCOMPARE(m_user.windows("First step", 1), QStringList{"First step"});
        COMPARE_TAP_CHANGES(m_user, "go-forth", "First step: hidden; Second step: shown");
        QTRY_COMPARE(m_user.windows("step", 1), QStringList{"Second step"});
        COMPARE_TAP_CHANGES(m_user, "go-back", "Second step: hidden; First step: shown");
        QTRY_COMPARE(m_user.windows("step", 1), QStringList{"First step"});
        m_user.tapNothing();
        COMPARE_CHANGES(m_user, "First step: hidden, disappeared");
    }

    void openerClosesEitherStep()
    {
        QVERIFY(m_user.open("non-modal-dialog"));
        COMPARE_TAP_CHANGES(m_user, "open-steps", "First step: shown");
        QCOMPARE(m_user.windows("First step", 1), QStringList{"First step"});
        COMPARE_TAP_CHANGES(m_user, "go-forth", "First step: hidden; Second step: shown");
        COMPARE_TAP_CHANGES(m_user, "open-steps", "Second step: hidden");
        COMPARE_TAP_CHANGES(m_user, "open-steps", "First step: shown");
        // The other opener is outside: it closes this panel before it opens its own.
        m_user.tap("open-settings");
        QVERIFY(m_user.waitFor("Settings panel: shown"));
        QCOMPARE(m_user.windows("step", 0), QStringList());
        m_user.tapNothing();
        QVERIFY(m_user.waitFor("Settings panel: disappeared"));
        m_user.takeLines();
    }

    void panelGoesWithItsPage()
    {
        QVERIFY(m_user.start("non-modal-dialog"));
        COMPARE_TAP_CHANGES(m_user, "open-steps", "First step: shown");
        QCOMPARE(m_user.windows("First step", 1), QStringList{"First step"});
        COMPARE_TAP_CHANGES(m_user, "back", "First step: hidden");
        m_user.tapRowOf("non-modal-helper");
        QCOMPARE(m_user.windows("First step", 0), QStringList());
        m_user.tapAt(m_user.geometryOf("timeout-5000", "non-modal-helper").center());
        COMPARE_CHANGES(m_user, "Time-out: idChanged 2");
    }

    void pressBesideThePopupClosesIt()
    {
        QVERIFY(m_user.open("non-modal-helper"));
        const QRect popup = m_user.geometryOf("popup-content");
        for (int i = 0; i < 2; ++i) {
            COMPARE_TAP_CHANGES(m_user, "open-popup", "Popup: shown");
            m_user.tapAt(popup.center());
            COMPARE_GESTURES(m_user, "Popup: press, release, clicked");
            m_user.tapAt(popup.topLeft() - QPoint(8, 8));
            COMPARE_CHANGES(m_user, "Popup: hidden");
        }
    }

    void openerClosesThePopupForGood()
    {
        QVERIFY(m_user.open("non-modal-helper"));
        for (int i = 0; i < 2; ++i) {
            COMPARE_TAP_CHANGES(m_user, "open-popup", "Popup: shown");
            COMPARE_TAP_CHANGES(m_user, "open-popup", "Popup: hidden");
        }
    }

private:
    // Until it can be tapped.
    bool openDialog()
    {
        if (!m_user.open("dialog-base"))
            return false;
        m_user.tap("enter-pin");
        return m_user.changes("Dialog: opened") == "Dialog: opened"
            && m_user.windows("PIN", 1).size() == 1;
    }

    GalleryUser m_user;
};

KEL_TEST_MAIN(tst_GalleryPointerPopups)
#include "tst_gallerypointerpopups.moc"
