// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "galleryuser.h"

namespace {

enum Case { Alone, NoTimeOut, TwoSeconds, FiveSeconds, PressedInside, caseCount };

const struct
{
    const char *page;
    const char *choice; // of the time
    const char *opener;
    const char *shown;
} cases[caseCount] = {
    {"non-modal-dialog", "", "open-settings", "Settings panel: shown"},
    {"non-modal-helper", "timeout-0", "open-popup", "Popup: shown"},
    {"non-modal-helper", "timeout-2000", "open-popup", "Popup: shown"},
    {"non-modal-helper", "timeout-5000", "open-popup", "Popup: shown"},
    {"non-modal-dialog", "", "open-settings", "Settings panel: shown"},
};

} // namespace

// What closes when its time is over: each in a gallery of its own, and all at once, since that
// takes seconds.
class tst_GalleryPointerTime : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        for (int i = 0; i < caseCount; ++i) {
            GalleryUser &user = m_users[i];
            QVERIFY(user.start(cases[i].page));
            if (*cases[i].choice)
                user.tap(cases[i].choice);
            user.tap(cases[i].opener);
            QVERIFY(user.waitFor(cases[i].shown));
        }
    }

    void cleanupTestCase()
    {
        for (GalleryUser &user : m_users)
            QCOMPARE(user.quit(), QString());
    }

    void pressInsideThePanelRestartsItsPeriod()
    {
        GalleryUser &user = m_users[PressedInside];
        QCOMPARE(user.windows("Settings panel", 1).size(), 1);
        QTest::qWait(300); // of 6000
        const double pressed = user.timeOf("Settings panel: shown") + 0.2;
        user.tap("panel-slider");
        QVERIFY(user.waitFor("Brightness: mousePress"));
        QVERIFY(user.timeOf("Brightness: mousePress") >= pressed);
        QVERIFY(user.waitFor("Settings panel: disappeared"));
        QVERIFY(user.timeOf("disappeared") - user.timeOf("Brightness: mousePress") >= 5.99);
        QCOMPARE(user.takeChanges().count("Settings panel: disappeared"), 1);
        user.tapNothing(); // the panel had the keyboard
    }

    void panelLeftAloneCloses()
    {
        GalleryUser &user = m_users[Alone];
        COMPARE_CHANGES(user, "Settings panel: shown, hidden, disappeared");
        QVERIFY(user.timeOf("disappeared") - user.timeOf("shown") >= 5.99);
    }

    void popupClosesAfterTheChosenTime_data()
    {
        addRows({{"case", {{"2 s", TwoSeconds}, {"5 s", FiveSeconds}}}});
    }

    void popupClosesAfterTheChosenTime()
    {
        GalleryUser &user = m_users[fetch<Case>("case")];
        const double seconds = fetch<Case>("case") == TwoSeconds ? 2 : 5;
        QVERIFY(user.waitFor("Popup: hidden"));
        user.takeLines();
        const double shown = user.timeOf("Popup: hidden") - user.timeOf("Popup: shown");
        QVERIFY(shown >= seconds - 0.01);
        // Not the longer one either, as far as a busy machine lets it tell.
        QVERIFY(seconds > 2 || shown < 4.9);
    }

    // The others took longer than any of the popup's times.
    void popupWithoutTimeOutStays()
    {
        GalleryUser &user = m_users[NoTimeOut];
        QVERIFY(m_users[Alone].timeOf("disappeared") > 0 || m_users[Alone].waitFor("disappeared"));
        COMPARE_CHANGES(user, "Popup: shown");
        user.tap("open-popup");
        COMPARE_CHANGES(user, "Popup: hidden");
    }

private:
    GalleryUser m_users[caseCount];
};

KEL_TEST_MAIN(tst_GalleryPointerTime)
#include "tst_gallerypointertime.moc"
