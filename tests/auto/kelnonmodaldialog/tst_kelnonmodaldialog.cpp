// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "dialogstage.h"
#include "xserver.h"

namespace {

using Helper = KELNonModalhelper;

} // namespace

enum class Reaction { AsksForTheActiveOne, ShowsAnother, HidesAll, Constructs, Destroys };
Q_DECLARE_METATYPE(Reaction)

enum class Deletion { AtOnce, Later };
Q_DECLARE_METATYPE(Deletion)

enum class HiddenBy { Application, ShowOne, ShowOneOfNothing };
Q_DECLARE_METATYPE(HiddenBy)

class tst_KELNonModalDialog : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void startsHidden()
    {
        const KELNonModalDialog panel;
        QVERIFY(panel.isHidden());
        QCOMPARE(panel.content(), nullptr);
        QCOMPARE(panel.scene()->items().size(), 0);
        QCOMPARE(panel.triggerSource(), Helper::TriggerScreen);
        QCOMPARE(panel.styleSheet(), u"background: transparent;"_s);
        QVERIFY(panel.testAttribute(Qt::WA_TranslucentBackground));
    }

    void isAFramelessWindowWithoutParent()
    {
        const KELNonModalDialog panel;
        QVERIFY(panel.isWindow());
        QCOMPARE(panel.windowFlags() & ~Qt::WindowFlags(Qt::Window), Qt::FramelessWindowHint);
    }

    void isAChildWidgetWithParent()
    {
        QWidget parent;
        const KELNonModalDialog panel(&parent);
        QCOMPARE(panel.parentWidget(), &parent);
        QVERIFY(!panel.isWindow());
        QCOMPARE(panel.windowFlags(), Qt::FramelessWindowHint);
        QCOMPARE(panel.triggerSource(), Helper::TriggerScreen);
    }

    void declaresOneSignal()
    {
        const QMetaObject &meta = KELNonModalDialog::staticMetaObject;
        QCOMPARE(QByteArray(meta.className()), QByteArray("KELNonModalDialog"));
        QCOMPARE(meta.superClass(), &KELContentView::staticMetaObject);
        QCOMPARE(meta.methodCount(), meta.methodOffset() + 1);
        QCOMPARE(meta.method(meta.methodOffset()).methodSignature(), QByteArray("disappeared()"));
        QCOMPARE(meta.method(meta.methodOffset()).methodType(), QMetaMethod::Signal);
        QCOMPARE(meta.propertyCount(), meta.propertyOffset());
    }

    void storesTheTriggerSource_data()
    {
        QTest::addColumn<int>("source");
        QTest::newRow("none") << 0;
        QTest::newRow("parent") << 1;
        QTest::newRow("screen") << 2;
        QTest::newRow("another") << 3;
    }

    void storesTheTriggerSource()
    {
        QFETCH(int, source);
        KELNonModalDialog panel;
        const KELNonModalDialog other;
        panel.setTriggerSource(static_cast<Helper::TriggerSource>(source));
        QCOMPARE(int(panel.triggerSource()), source);
        QCOMPARE(other.triggerSource(), Helper::TriggerScreen);
    }

    void showOneShowsOneAndHidesTheOthers()
    {
        QStringList log;
        Panel a(u"a"_s, &log);
        Panel b(u"b"_s, &log);
        Panel c(u"c"_s, &log);
        c.show();
        a.show();
        log.clear();
        KELNonModalDialog::showOne(&b);
        QCOMPARE(log, QStringList({"hide a", "hide c", "show b"}));
        QVERIFY(b.isVisible());
        QCOMPARE(KELNonModalDialog::activeDialog(), &b);
        log.clear();
        KELNonModalDialog::showOne(&c);
        KELNonModalDialog::showOne(&a);
        QCOMPARE(log, QStringList({"hide b", "show c", "hide c", "show a"}));
    }

    void showOneKeepsTheVisibleOne()
    {
        QStringList log;
        Panel a(u"a"_s, &log);
        Panel b(u"b"_s, &log);
        Panel c(u"c"_s, &log);
        for (Panel *panel : {&a, &b, &c})
            panel->show();
        log.clear();
        KELNonModalDialog::showOne(&b);
        QCOMPARE(log, QStringList({"hide a", "hide c"}));
        QVERIFY(b.isVisible());
        KELNonModalDialog::showOne(&b);
        QCOMPARE(log.size(), 2);
    }

    void showOneOfNothingHidesAll()
    {
        QStringList log;
        KELNonModalDialog::showOne(nullptr);
        Panel a(u"a"_s, &log);
        Panel b(u"b"_s, &log);
        Panel c(u"c"_s, &log);
        KELNonModalDialog::showOne(nullptr);
        QCOMPARE(log, QStringList());
        for (Panel *panel : {&c, &b, &a})
            panel->show();
        log.clear();
        KELNonModalDialog::showOne(nullptr);
        QCOMPARE(log, QStringList({"hide a", "hide b", "hide c"}));
        QCOMPARE(KELNonModalDialog::activeDialog(), nullptr);
    }

    void showOneLeavesHiddenOnesAlone()
    {
        QWidget window;
        QStringList log;
        Panel hidden(u"hidden"_s, &log);
        // Shown as soon as its window is.
        Panel waiting(u"waiting"_s, &log, &window);
        waiting.show();
        QVERIFY(!waiting.isVisible());
        Panel shown(u"shown"_s, &log);
        log.clear();
        KELNonModalDialog::showOne(&shown);
        QCOMPARE(log, QStringList({"show shown"}));
        QVERIFY(!waiting.isHidden());
        window.show();
        QVERIFY(waiting.isVisible());
    }

    void showOneReachesOtherWindows()
    {
        QWidget window;
        Panel child(QString(), nullptr, &window);
        window.show();
        child.show();
        KELNonModalDialog plain;
        KELNonModalDialog::showOne(&plain);
        QVERIFY(child.isHidden());
        QVERIFY(window.isVisible());
        KELNonModalDialog::showOne(&child);
        QVERIFY(child.isVisible());
        QVERIFY(plain.isHidden());
    }

    void showOneIsNotReported()
    {
        Panel panel;
        Panel other;
        const QSignalSpy disappeared(&panel, &KELNonModalDialog::disappeared);
        const QSignalSpy otherDisappeared(&other, &KELNonModalDialog::disappeared);
        panel.enableTime(50);
        KELNonModalDialog::showOne(&panel);
        KELNonModalDialog::showOne(&other);
        KELNonModalDialog::showOne(nullptr);
        QVERIFY(panel.isHidden());
        QVERIFY(other.isHidden());
        wait(100);
        QCOMPARE(disappeared.count(), 0);
        QCOMPARE(otherDisappeared.count(), 0);
    }

    void shownPanelMayUseTheRegistry_data()
    {
        QTest::addColumn<Reaction>("reaction");
        QTest::newRow("asks for the active one") << Reaction::AsksForTheActiveOne;
        QTest::newRow("shows another") << Reaction::ShowsAnother;
        QTest::newRow("hides all") << Reaction::HidesAll;
        QTest::newRow("constructs one") << Reaction::Constructs;
        QTest::newRow("destroys one") << Reaction::Destroys;
    }

    void shownPanelMayUseTheRegistry()
    {
        QFETCH(Reaction, reaction);
        Panel panel;
        auto other = std::make_unique<Panel>();
        std::unique_ptr<Panel> constructed;
        other->show();
        int shown = 0;
        panel.onShow = [&] {
            ++shown;
            if (reaction == Reaction::AsksForTheActiveOne)
                QCOMPARE(KELNonModalDialog::activeDialog(), &panel);
            else if (reaction == Reaction::ShowsAnother)
                KELNonModalDialog::showOne(other.get());
            else if (reaction == Reaction::HidesAll)
                KELNonModalDialog::showOne(nullptr);
            else if (reaction == Reaction::Constructs)
                constructed = std::make_unique<Panel>();
            else
                other.reset();
        };
        KELNonModalDialog::showOne(&panel);
        QCOMPARE(shown, 1);
        const bool isStillShown = reaction != Reaction::ShowsAnother
            && reaction != Reaction::HidesAll;
        QCOMPARE(panel.isVisible(), isStillShown);
        QCOMPARE(other && other->isVisible(), reaction == Reaction::ShowsAnother);
        if (constructed) {
            KELNonModalDialog::showOne(constructed.get());
            QVERIFY(panel.isHidden());
        }
    }

    void hiddenPanelMayUseTheRegistry_data() { shownPanelMayUseTheRegistry_data(); }

    void hiddenPanelMayUseTheRegistry()
    {
        QFETCH(Reaction, reaction);
        Panel hidden;
        auto other = std::make_unique<Panel>();
        Panel panel;
        std::unique_ptr<Panel> constructed;
        hidden.show();
        int hides = 0;
        hidden.onHide = [&] {
            if (++hides != 1)
                return;
            if (reaction == Reaction::AsksForTheActiveOne)
                QCOMPARE(KELNonModalDialog::activeDialog(), nullptr);
            else if (reaction == Reaction::ShowsAnother)
                KELNonModalDialog::showOne(other.get());
            else if (reaction == Reaction::HidesAll)
                KELNonModalDialog::showOne(nullptr);
            else if (reaction == Reaction::Constructs)
                constructed = std::make_unique<Panel>();
            else
                other.reset();
        };
        KELNonModalDialog::showOne(&panel);
        QCOMPARE(hides, 1);
        QVERIFY(hidden.isHidden());
        QVERIFY(panel.isVisible());
        QCOMPARE(KELNonModalDialog::activeDialog(), &panel);
        if (other)
            QVERIFY(other->isHidden());
        if (constructed) {
            QVERIFY(constructed->isHidden());
            KELNonModalDialog::showOne(constructed.get());
            QVERIFY(panel.isHidden());
        }
    }

    void hiddenPanelHidesOneWhoseTurnComesLater()
    {
        QStringList log;
        Panel a(u"a"_s, &log);
        Panel b(u"b"_s, &log);
        auto c = std::make_unique<Panel>(u"c"_s, &log);
        Panel d(u"d"_s, &log);
        a.show();
        b.show();
        c->show();
        a.onHide = [&] {
            b.hide();
            c.reset();
        };
        log.clear();
        KELNonModalDialog::showOne(&d);
        log.removeAll(u"hide c"_s); // of its destruction
        QCOMPARE(log, QStringList({"hide a", "hide b", "show d"}));
    }

    void hiddenPanelShowsOneWhoseTurnComesLater()
    {
        QStringList log;
        Panel a(u"a"_s, &log);
        Panel b(u"b"_s, &log);
        Panel c(u"c"_s, &log);
        a.show();
        a.onHide = [&] { b.show(); };
        log.clear();
        KELNonModalDialog::showOne(&c);
        QCOMPARE(log, QStringList({"hide a", "show b", "hide b", "show c"}));
    }

    void hiddenPanelDestroysTheOneToBeShown()
    {
        Panel a;
        auto b = std::make_unique<Panel>();
        a.show();
        a.onHide = [&] { b.reset(); };
        KELNonModalDialog::showOne(b.get());
        QVERIFY(!b);
        QVERIFY(a.isHidden());
        QCOMPARE(KELNonModalDialog::activeDialog(), nullptr);
    }

    void noneIsActive()
    {
        QCOMPARE(KELNonModalDialog::activeDialog(), nullptr);
        const Panel panel;
        Panel other;
        QCOMPARE(KELNonModalDialog::activeDialog(), nullptr);
        other.show();
        other.hide();
        QCOMPARE(KELNonModalDialog::activeDialog(), nullptr);
    }

    void firstConstructedIsActive()
    {
        Panel a;
        Panel b;
        Panel c;
        c.show();
        QCOMPARE(KELNonModalDialog::activeDialog(), &c);
        b.show();
        QCOMPARE(KELNonModalDialog::activeDialog(), &b);
        a.show();
        QCOMPARE(KELNonModalDialog::activeDialog(), &a);
        QVERIFY(b.isVisible() && c.isVisible());
        a.hide();
        QCOMPARE(KELNonModalDialog::activeDialog(), &b);
        a.show();
        QCOMPARE(KELNonModalDialog::activeDialog(), &a);
    }

    void destroyedOneIsGoneAtOnce()
    {
        auto a = std::make_unique<Panel>();
        auto b = std::make_unique<Panel>();
        Panel c;
        for (Panel *panel : {a.get(), b.get(), &c})
            panel->show();
        a.reset();
        QCOMPARE(KELNonModalDialog::activeDialog(), b.get());
        b.reset();
        QCOMPARE(KELNonModalDialog::activeDialog(), &c);
        KELNonModalDialog::showOne(nullptr);
        QVERIFY(c.isHidden());
    }

    void destroyedOneIsGoneForItsContent()
    {
        auto *panel = new Panel;
        Panel other;
        panel->show();
        other.show();
        const KELNonModalDialog *active = panel;
        connect(panel->content(), &QObject::destroyed, this, [&] {
            active = KELNonModalDialog::activeDialog();
            KELNonModalDialog::showOne(nullptr);
        });
        delete panel;
        QCOMPARE(active, &other);
        QVERIFY(other.isHidden());
    }

    void childIsActiveWithItsWindow()
    {
        QWidget window;
        Panel child(QString(), nullptr, &window);
        Panel later;
        child.show();
        later.show();
        QCOMPARE(KELNonModalDialog::activeDialog(), &later);
        window.show();
        QCOMPARE(KELNonModalDialog::activeDialog(), &child);
    }

    void disappearedOneIsNotActive()
    {
        Panel panel;
        const KELNonModalDialog *active = &panel;
        int count = 0;
        connect(&panel, &KELNonModalDialog::disappeared, this, [&] {
            active = KELNonModalDialog::activeDialog();
            ++count;
        });
        panel.enableTime(1);
        panel.show();
        QTRY_COMPARE_WITH_TIMEOUT(count, 1, patienceMs);
        QCOMPARE(active, nullptr);
    }

    void disappearsBeforeTheEventLoopGoesOn()
    {
        QStringList log;
        Panel panel;
        panel.onHide = [&] {
            const auto noteLater = [&] { log.append(u"queued by the hide event"_s); };
            QMetaObject::invokeMethod(this, noteLater, Qt::QueuedConnection);
        };
        connect(&panel, &KELNonModalDialog::disappeared, this,
                [&] { log.append(u"disappeared"_s); });
        panel.enableTime(1);
        panel.show();
        QTRY_COMPARE_WITH_TIMEOUT(log.size(), 2, patienceMs);
        QCOMPARE(log.constFirst(), u"disappeared"_s);
    }

    void deletedWhenItDisappears_data()
    {
        QTest::addColumn<Deletion>("deletion");
        QTest::addColumn<bool>("byPress");
        QTest::newRow("delete, after a press") << Deletion::AtOnce << true;
        QTest::newRow("delete, after the period") << Deletion::AtOnce << false;
        QTest::newRow("deleteLater(), after a press") << Deletion::Later << true;
        QTest::newRow("deleteLater(), after the period") << Deletion::Later << false;
    }

    void deletedWhenItDisappears()
    {
        QFETCH(Deletion, deletion);
        QFETCH(bool, byPress);
        Ground ground;
        QVERIFY(ground.showAndWait());
        const QPointer<Panel> panel(new Panel);
        QVERIFY(panel->showAndWait());
        int before = 0;
        int after = 0;
        connect(panel.data(), &KELNonModalDialog::disappeared, this, [&] {
            ++before;
            if (deletion == Deletion::AtOnce)
                delete panel;
            else
                panel->deleteLater();
        });
        connect(panel.data(), &KELNonModalDialog::disappeared, this, [&] { ++after; });
        panel->enableTime(byPress ? 3600000 : 1);
        if (byPress)
            Finger(Input::Touch).tap(&ground, ground.centre());
        QTRY_VERIFY_WITH_TIMEOUT(!panel, patienceMs);
        QCOMPARE(before, 1);
        QCOMPARE(after, deletion == Deletion::AtOnce ? 0 : 1);
        QCOMPARE(KELNonModalDialog::activeDialog(), nullptr);
        Finger(Input::Touch).tap(&ground, ground.centre());
        waitForTheHide();
        QCOMPARE(before, 1);
    }

    void anotherOneIsDeletedWhenItDisappears()
    {
        Ground ground;
        QVERIFY(ground.showAndWait());
        Panel panel;
        // Both are outside the press: the other one has a hide scheduled, too.
        const QPointer<Panel> other(new Panel);
        QVERIFY(panel.showAndWait());
        QVERIFY(other->showAndWait());
        const QSignalSpy otherDisappeared(other, &KELNonModalDialog::disappeared);
        connect(&panel, &KELNonModalDialog::disappeared, this, [&] { delete other; });
        Finger(Input::Touch).tap(&ground, ground.centre());
        QTRY_VERIFY_WITH_TIMEOUT(!other, patienceMs);
        waitForTheHide();
        QVERIFY(panel.isHidden());
    }

    void anotherOneIsShownWhenItDisappears()
    {
        Panel panel;
        Panel other;
        connect(&panel, &KELNonModalDialog::disappeared, this,
                [&] { KELNonModalDialog::showOne(&other); });
        panel.enableTime(1);
        KELNonModalDialog::showOne(&panel);
        QTRY_VERIFY_WITH_TIMEOUT(other.isVisible(), patienceMs);
        QVERIFY(panel.isHidden());
    }

    void isShownAgainWhenItDisappears()
    {
        Finger finger(Input::Touch);
        Ground ground;
        QVERIFY(ground.showAndWait());
        Panel panel;
        QVERIFY(panel.showAndWait());
        int count = 0;
        connect(&panel, &KELNonModalDialog::disappeared, this, [&] {
            if (++count < 3)
                panel.show();
        });
        for (int expected = 1; expected <= 3; ++expected) {
            finger.tap(&ground, ground.centre());
            QTRY_COMPARE_WITH_TIMEOUT(count, expected, patienceMs);
            QCOMPARE(panel.isVisible(), expected < 3);
        }
    }

    void destroyedBeforeTheHide()
    {
        Ground ground;
        QVERIFY(ground.showAndWait());
        auto panel = std::make_unique<Panel>();
        QVERIFY(panel->showAndWait());
        int count = 0;
        connect(panel.get(), &KELNonModalDialog::disappeared, this, [&] { ++count; });
        // Sent, so that no time passes before the panel is deleted.
        QMouseEvent press(QEvent::MouseButtonPress, ground.centre(), ground.centre(),
                          Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&ground, &press);
        QVERIFY(panel->isVisible());
        panel.reset();
        waitForTheHide();
        QCOMPARE(count, 0);
        QVERIFY(ground.isVisible());
    }

    void hiddenBeforeTheHideIsStillReported_data()
    {
        QTest::addColumn<HiddenBy>("hiddenBy");
        QTest::newRow("by the application") << HiddenBy::Application;
        QTest::newRow("by another one") << HiddenBy::ShowOne;
        QTest::newRow("by none") << HiddenBy::ShowOneOfNothing;
    }

    void hiddenBeforeTheHideIsStillReported()
    {
        QFETCH(HiddenBy, hiddenBy);
        Ground ground;
        QVERIFY(ground.showAndWait());
        Panel panel;
        Panel other;
        QVERIFY(panel.showAndWait());
        const QSignalSpy disappeared(&panel, &KELNonModalDialog::disappeared);
        QMouseEvent press(QEvent::MouseButtonPress, ground.centre(), ground.centre(),
                          Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&ground, &press);
        if (hiddenBy == HiddenBy::Application)
            panel.hide();
        else
            KELNonModalDialog::showOne(hiddenBy == HiddenBy::ShowOne ? &other : nullptr);
        QVERIFY(panel.isHidden());
        QCOMPARE(disappeared.count(), 0);
        waitForTheHide();
        QCOMPARE(disappeared.count(), 1);
        QVERIFY(panel.isHidden());
        QCOMPARE(other.isVisible(), hiddenBy == HiddenBy::ShowOne);
    }

    void dyingReportsNothing()
    {
        auto panel = std::make_unique<Panel>();
        int count = 0;
        connect(panel.get(), &KELNonModalDialog::disappeared, this, [&] { ++count; });
        panel->enableTime(30);
        panel->show();
        panel.reset();
        wait(60);
        QCOMPARE(count, 0);
    }

    void diesWithItsParent()
    {
        auto window = std::make_unique<QWidget>();
        const QPointer<Panel> panel(new Panel(QString(), nullptr, window.get()));
        const QPointer<KELRoundRectControl> content(panel->content());
        window->show();
        panel->enableTime(30);
        panel->show();
        QCOMPARE(KELNonModalDialog::activeDialog(), panel.data());
        window.reset();
        QVERIFY(!panel);
        QVERIFY(!content);
        QCOMPARE(KELNonModalDialog::activeDialog(), nullptr);
        wait(60);
    }
};

int main(int argc, char *argv[])
{
    const XServer server;
    QApplication app(argc, argv);
    tst_KELNonModalDialog test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_kelnonmodaldialog.moc"
