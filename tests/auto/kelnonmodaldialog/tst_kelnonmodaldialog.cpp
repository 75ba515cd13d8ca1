// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "dialogstage.h"
#include "xserver.h"

namespace {

enum class Reaction { AsksForTheActiveOne, ShowsAnother, HidesAll, Constructs, Destroys };
const std::vector<Named> reactions = {
    {"asks for the active one", int(Reaction::AsksForTheActiveOne)},
    {"shows another", int(Reaction::ShowsAnother)},
    {"hides all", int(Reaction::HidesAll)},
    {"constructs one", int(Reaction::Constructs)},
    {"destroys one", int(Reaction::Destroys)},
};

enum { byApplication, byAnother, byNone };

// What a panel does with the registry while it is shown or hidden.
struct Registry
{
    void react(Reaction reaction, const KELNonModalDialog *active)
    {
        ++reactions;
        if (reaction == Reaction::AsksForTheActiveOne)
            QCOMPARE(KELNonModalDialog::activeDialog(), active);
        else if (reaction == Reaction::ShowsAnother)
            KELNonModalDialog::showOne(other.get());
        else if (reaction == Reaction::HidesAll)
            KELNonModalDialog::showOne(nullptr);
        else if (reaction == Reaction::Constructs)
            constructed = std::make_unique<Panel>();
        else
            other.reset();
    }

    std::unique_ptr<Panel> other = std::make_unique<Panel>();
    std::unique_ptr<Panel> constructed;
    int reactions = 0;
};

// Three panels, constructed in this order, that note what happens to them.
struct ThreePanels
{
    QStringList take() { return std::exchange(log, QStringList()); }

    QStringList log;
    Panel a{u"a"_s, &log};
    Panel b{u"b"_s, &log};
    Panel c{u"c"_s, &log};
};

} // namespace

class tst_KELNonModalDialog : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void storesTheTriggerSource_data()
    {
        addRows({{"source", {{"none", 0}, {"parent", 1}, {"screen", 2}, {"another", 3}}}});
    }

    void storesTheTriggerSource()
    {
        const auto source = fetch<Helper::TriggerSource>("source");
        QWidget parent;
        KELNonModalDialog panel;
        const KELNonModalDialog other(&parent);
        QCOMPARE(panel.triggerSource(), Helper::TriggerScreen);
        panel.setTriggerSource(source);
        QCOMPARE(panel.triggerSource(), source);
        QCOMPARE(other.triggerSource(), Helper::TriggerScreen);
    }

    void showOneShowsOneAndHidesTheOthers()
    {
        ThreePanels panels;
        panels.c.show();
        panels.a.show();
        panels.log.clear();
        KELNonModalDialog::showOne(&panels.b);
        QCOMPARE(panels.take(), QStringList({"hide a", "hide c", "show b"}));
        QVERIFY(panels.b.isVisible());
        QCOMPARE(KELNonModalDialog::activeDialog(), &panels.b);
        KELNonModalDialog::showOne(&panels.c);
        KELNonModalDialog::showOne(&panels.a);
        QCOMPARE(panels.take(), QStringList({"hide b", "show c", "hide c", "show a"}));
    }

    void showOneOfAllThatAreVisible_data()
    {
        addRows({{"isOne", {{"of one", true}, {"of none", false}}}});
    }

    void showOneOfAllThatAreVisible()
    {
        const bool isOne = fetch<bool>("isOne");
        ThreePanels panels;
        KELNonModalDialog *const shown = isOne ? &panels.b : nullptr;
        for (Panel *panel : {&panels.c, &panels.b, &panels.a})
            panel->show();
        panels.log.clear();
        KELNonModalDialog::showOne(shown);
        QCOMPARE(panels.take().join(u", "_s),
                 isOne ? u"hide a, hide c"_s : u"hide a, hide b, hide c"_s);
        QCOMPARE(panels.b.isVisible(), isOne);
        QCOMPARE(KELNonModalDialog::activeDialog(), shown);
        KELNonModalDialog::showOne(shown);
        QCOMPARE(panels.take(), QStringList());
    }

    void showOneLeavesHiddenOnesAlone()
    {
        QWidget window;
        QStringList log;
        const Panel hidden(u"hidden"_s, &log);
        // Shown as soon as its window is.
        Panel waiting(u"waiting"_s, &log, &window);
        waiting.show();
        QVERIFY(!waiting.isVisible());
        Panel shown(u"shown"_s, &log);
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
        SignalLog log;
        log.listenTo(&panel);
        log.listenTo(&other);
        panel.enableTime(longPeriodMs);
        KELNonModalDialog::showOne(&panel);
        KELNonModalDialog::showOne(&other);
        KELNonModalDialog::showOne(nullptr);
        QVERIFY(panel.isHidden());
        QVERIFY(other.isHidden());
        panel.endPeriod();
        QCOMPARE(log.take(), QString());
    }

    void shownPanelMayUseTheRegistry_data() { addRows({{"reaction", reactions}}); }

    void shownPanelMayUseTheRegistry()
    {
        const auto reaction = fetch<Reaction>("reaction");
        Panel panel;
        Registry registry;
        registry.other->show();
        panel.onShow = [&] { registry.react(reaction, &panel); };
        KELNonModalDialog::showOne(&panel);
        panel.onShow = [] {};
        QCOMPARE(registry.reactions, 1);
        QCOMPARE(panel.isVisible(),
                 reaction != Reaction::ShowsAnother && reaction != Reaction::HidesAll);
        QCOMPARE(registry.other && registry.other->isVisible(), reaction == Reaction::ShowsAnother);
        if (registry.constructed) {
            KELNonModalDialog::showOne(registry.constructed.get());
            QVERIFY(panel.isHidden());
        }
    }

    void hiddenPanelMayUseTheRegistry_data() { shownPanelMayUseTheRegistry_data(); }

    void hiddenPanelMayUseTheRegistry()
    {
        Panel hidden;
        Registry registry;
        Panel panel;
        hidden.show();
        hidden.onHide = [&] {
            if (registry.reactions == 0)
                registry.react(fetch<Reaction>("reaction"), nullptr);
        };
        KELNonModalDialog::showOne(&panel);
        QCOMPARE(registry.reactions, 1);
        QVERIFY(hidden.isHidden());
        QVERIFY(panel.isVisible());
        QCOMPARE(KELNonModalDialog::activeDialog(), &panel);
        QVERIFY(!registry.other || registry.other->isHidden());
        if (registry.constructed) {
            QVERIFY(registry.constructed->isHidden());
            KELNonModalDialog::showOne(registry.constructed.get());
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
        ThreePanels panels;
        panels.a.show();
        panels.a.onHide = [&] { panels.b.show(); };
        panels.log.clear();
        KELNonModalDialog::showOne(&panels.c);
        QCOMPARE(panels.log, QStringList({"hide a", "show b", "hide b", "show c"}));
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

    void firstConstructedIsActive()
    {
        QCOMPARE(KELNonModalDialog::activeDialog(), nullptr);
        Panel a;
        Panel b;
        Panel c;
        QCOMPARE(KELNonModalDialog::activeDialog(), nullptr);
        for (Panel *panel : {&c, &b, &a}) {
            panel->show();
            QCOMPARE(KELNonModalDialog::activeDialog(), panel);
        }
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
        DialogStage stage;
        const KELNonModalDialog *active = stage.panel;
        stage.log.on(u"disappeared"_s, [&] { active = KELNonModalDialog::activeDialog(); });
        stage.panel->enableTime(longPeriodMs);
        stage.panel->endPeriod();
        QCOMPARE(stage.disappeared(), 1);
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
        addRows({{"later", {{"delete", false}, {"deleteLater()", true}}},
                 {"byPress", {{"after a press", true}, {"after the period", false}}}});
    }

    void deletedWhenItDisappears()
    {
        const bool isLater = fetch<bool>("later");
        const bool byPress = fetch<bool>("byPress");
        DialogStage stage;
        int after = 0;
        connect(stage.panel, &KELNonModalDialog::disappeared, this, [&] {
            if (isLater)
                stage.panel->deleteLater();
            else
                delete stage.panel;
        });
        connect(stage.panel, &KELNonModalDialog::disappeared, this, [&] { ++after; });
        stage.panel->enableTime(byPress ? longPeriodMs : 1);
        if (byPress)
            stage.tapOutside();
        QTRY_VERIFY_WITH_TIMEOUT(!stage.panel, patienceMs);
        QCOMPARE(stage.disappeared(), 1);
        QCOMPARE(after, int(isLater));
        QCOMPARE(KELNonModalDialog::activeDialog(), nullptr);
        stage.tapOutside();
        waitForTheHide();
        QCOMPARE(stage.disappeared(), 1);
    }

    void anotherOneIsDeletedWhenItDisappears()
    {
        // Both are outside the press: the other one has a hide scheduled, too.
        DialogStage stage;
        const QPointer<Panel> other(new Panel);
        showAndWait(other);
        stage.log.on(u"disappeared"_s, [&] { delete other; });
        stage.tapOutside();
        QTRY_VERIFY_WITH_TIMEOUT(!other, patienceMs);
        waitForTheHide();
        QVERIFY(stage.panel->isHidden());
    }

    void anotherOneIsShownWhenItDisappears()
    {
        DialogStage stage;
        Panel other;
        stage.log.on(u"disappeared"_s, [&] { KELNonModalDialog::showOne(&other); });
        stage.panel->enableTime(longPeriodMs);
        stage.panel->endPeriod();
        QVERIFY(other.isVisible());
        QVERIFY(stage.panel->isHidden());
    }

    void isShownAgainWhenItDisappears()
    {
        DialogStage stage;
        stage.log.on(u"disappeared"_s, [&] {
            if (stage.disappeared() < 3)
                stage.panel->show();
        });
        for (int expected = 1; expected <= 3; ++expected) {
            stage.tapOutside();
            QTRY_COMPARE_WITH_TIMEOUT(stage.disappeared(), expected, patienceMs);
            QCOMPARE(stage.panel->isVisible(), expected < 3);
        }
    }

    void destroyedBeforeTheHide()
    {
        DialogStage stage;
        stage.pressOutside();
        QVERIFY(stage.panel->isVisible());
        delete stage.panel;
        waitForTheHide();
        QCOMPARE(stage.disappeared(), 0);
        QVERIFY(stage.ground.isVisible());
    }

    void hiddenBeforeTheHideIsStillReported_data()
    {
        addRows({{"by",
                  {{"by the application", byApplication},
                   {"by another one", byAnother},
                   {"by none", byNone}}}});
    }

    void hiddenBeforeTheHideIsStillReported()
    {
        const int by = fetch<int>("by");
        DialogStage stage;
        Panel other;
        stage.pressOutside();
        if (by == byApplication)
            stage.panel->hide();
        else
            KELNonModalDialog::showOne(by == byAnother ? &other : nullptr);
        QVERIFY(stage.panel->isHidden());
        QCOMPARE(stage.disappeared(), 0);
        waitForTheHide();
        QCOMPARE(stage.disappeared(), 1);
        QVERIFY(stage.panel->isHidden());
        QCOMPARE(other.isVisible(), by == byAnother);
    }

    void dyingReportsNothing()
    {
        DialogStage stage;
        const QPointer<Helper> helper = stage.panel->helper();
        stage.panel->enableTime(longPeriodMs);
        QVERIFY(helper && !helper->parent());
        delete stage.panel;
        QVERIFY(!helper);
        QCOMPARE(stage.disappeared(), 0);
    }

    void diesWithItsParent()
    {
        auto window = std::make_unique<QWidget>();
        const QPointer<Panel> panel(new Panel(QString(), nullptr, window.get()));
        const QPointer<KELRoundRectControl> content(panel->content());
        const QPointer<Helper> helper = panel->helper();
        window->show();
        panel->enableTime(longPeriodMs);
        panel->show();
        QCOMPARE(KELNonModalDialog::activeDialog(), panel.data());
        window.reset();
        QVERIFY(!panel);
        QVERIFY(!content);
        QVERIFY(!helper);
        QCOMPARE(KELNonModalDialog::activeDialog(), nullptr);
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
