// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "contentstage.h"

#include <QtWidgets/QGraphicsRectItem>

#include <memory>

namespace {

// A view whose content dies when it gets another one, and controls to give it.
class Replacing
{
public:
    Replacing() : view(new View), old(view->setNew()), a(newControl(50)), b(newControl(70)) { }
    ~Replacing()
    {
        delete view;
        delete a;
        delete b;
    }

    void whenOldDies(const std::function<void()> &act)
    {
        QObject::connect(old, &QObject::destroyed, &m_context, act);
    }

    const QPointer<View> view;
    const ControlPointer old;
    const ControlPointer a;
    const ControlPointer b;

private:
    Q_DISABLE_COPY(Replacing)
    QObject m_context;
};

// A control that can be selected and have the focus.
KELRoundRectControl *newFocusable(KELRoundRectControl *parent = nullptr)
{
    KELRoundRectControl *control = newControl(50, 20, parent);
    control->setFlags(QGraphicsItem::ItemIsFocusable | QGraphicsItem::ItemIsSelectable
                      | QGraphicsItem::ItemIsPanel);
    // Qt leaks the picture of a panel that gets the focus while it dies with its scene.
    control->setCacheMode(QGraphicsItem::NoCache);
    return control;
}

// A view, all that may set off a slot inside setContent(), and what the slot deletes.
struct Deletion
{
    template <typename Sender, typename Signal>
    void on(Sender *sender, Signal signal)
    {
        QObject::connect(sender, signal, &context, [this] {
            if (++calls > 1)
                return;
            if (isView)
                delete view;
            else
                delete scene;
        });
    }

    const bool isView;
    const QPointer<View> view = new View;
    QGraphicsScene *const scene = view->scene();
    KELRoundRectControl oldParent{};
    KELRoundRectControl *const old = newFocusable();
    KELRoundRectControl *const childOfOld = newFocusable(old);
    KELRoundRectControl *const guest = newControl();
    const ControlPointer next = newFocusable();
    const ControlPointer other = newControl();
    int calls = 0;
    QObject context{};
};

struct Moment
{
    const char *name;
    std::function<void(Deletion &)> prepare;
    bool givesOther = false;
};

const std::vector<Moment> moments = {
    {"the old content dies", [](Deletion &d) { d.on(d.old, &QObject::destroyed); }},
    {"a child of the old content dies",
     [](Deletion &d) { d.on(d.childOfOld, &QObject::destroyed); }},
    {"another item of the scene dies", [](Deletion &d) { d.on(d.guest, &QObject::destroyed); }},
    {"a superseded control dies",
     [](Deletion &d) {
         QObject::connect(d.old, &QObject::destroyed, &d.context,
                          [&d] { d.view->setContent(d.other); });
         d.on(d.next.data(), &QObject::destroyed);
     },
     true},
    {"the new content loses its parent",
     [](Deletion &d) {
         d.next->setParentItem(&d.oldParent);
         d.on(d.next.data(), &QGraphicsObject::parentChanged);
     }},
    {"the old parent loses the new content",
     [](Deletion &d) {
         d.next->setParentItem(&d.oldParent);
         d.on(&d.oldParent, &QGraphicsObject::childrenChanged);
     }},
    {"the selection goes",
     [](Deletion &d) {
         d.childOfOld->setSelected(true);
         d.on(d.scene, &QGraphicsScene::selectionChanged);
     }},
    {"the focus goes",
     [](Deletion &d) {
         d.scene->setActivePanel(d.childOfOld);
         d.childOfOld->setFocus();
         QVERIFY(d.scene->focusItem() == d.childOfOld);
         d.on(d.scene, &QGraphicsScene::focusItemChanged);
     }},
    {"the selection comes",
     [](Deletion &d) {
         d.next->setSelected(true);
         d.on(d.scene, &QGraphicsScene::selectionChanged);
     }},
    {"the focus comes",
     [](Deletion &d) {
         d.scene->setFocusItem(nullptr);
         d.next->setFocus();
         d.on(d.scene, &QGraphicsScene::focusItemChanged);
     }},
};

} // namespace

// setContent() called from slots that setContent() itself sets off.
class tst_KELContentViewReentry : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void dyingContentDeletesTheNextOne()
    {
        Replacing stage;
        stage.whenOldDies([&] { delete stage.a; });
        stage.view->setContent(stage.a);
        QCOMPARE(stage.view->content(), nullptr);
        QCOMPARE(stage.view->scene()->items().size(), 0);
        QCOMPARE(stage.view->size(), QSize(120, 40));
    }

    void dyingContentGivesAnother()
    {
        Replacing stage;
        stage.whenOldDies([&] { stage.view->setContent(stage.b); });
        stage.view->setContent(stage.a);
        QVERIFY(!stage.a);
        QVERIFY(stage.view->hasOnly(stage.b));
        QCOMPARE(stage.view->size(), QSize(70, 20));
    }

    void dyingContentGivesTheNextOneAgain()
    {
        Replacing stage;
        stage.whenOldDies([&] { stage.view->setContent(stage.a); });
        stage.view->setContent(stage.a);
        QVERIFY(stage.view->hasOnly(stage.a));
        QCOMPARE(stage.view->size(), QSize(50, 20));
    }

    void dyingContentAddsAnItem()
    {
        Replacing stage;
        stage.whenOldDies([&] { stage.view->scene()->addItem(stage.b); });
        stage.view->setContent(stage.a);
        QVERIFY(!stage.b);
        QVERIFY(stage.view->hasOnly(stage.a));
    }

    void dyingContentGivesAChildOfTheNextOne()
    {
        Replacing stage;
        const ControlPointer child = newChild(stage.a);
        stage.whenOldDies([&] { stage.view->setContent(child); });
        stage.view->setContent(stage.a);
        QVERIFY(child);
        QVERIFY(!stage.a);
        QVERIFY(stage.view->hasOnly(child));
    }

    void supersededControlGivesYetAnother_data()
    {
        // Of a control whose child dies only the base classes are left.
        addRows({{"dying", {{"the control", false}, {"its child", true}}}});
    }

    void supersededControlGivesYetAnother()
    {
        Replacing stage;
        const ControlPointer c = newControl();
        stage.whenOldDies([&] { stage.view->setContent(stage.b); });
        connect(fetch<bool>("dying") ? newChild(stage.a) : stage.a.data(), &QObject::destroyed,
                this, [&] { stage.view->setContent(c); });
        stage.view->setContent(stage.a);
        QVERIFY(!stage.a);
        QVERIFY(!stage.b);
        QVERIFY(c);
        QVERIFY(stage.view->hasOnly(c));
    }

    void controlGivenAgainAfterAnotherIsKept()
    {
        Replacing stage;
        stage.whenOldDies([&] {
            stage.view->setContent(stage.b);
            stage.view->setContent(stage.a);
        });
        stage.view->setContent(stage.a);
        QVERIFY(!stage.b);
        QVERIFY(stage.view->hasOnly(stage.a));
    }

    void controlThatTookInAPendingOneKeepsIt()
    {
        Replacing stage;
        stage.whenOldDies([&] {
            stage.a->setParentItem(stage.b);
            stage.view->setContent(stage.b);
        });
        stage.view->setContent(stage.a);
        QVERIFY(stage.a);
        QCOMPARE(stage.view->content(), stage.b.data());
        QCOMPARE(stage.a->parentItem(), stage.b.data());
        QCOMPARE(stage.view->scene()->items().size(), 2);
    }

    void dyingContentIsNotHandedOut()
    {
        Replacing stage;
        int asked = 0;
        connect(newChild(stage.old), &QObject::destroyed, this, [&] {
            ++asked;
            QCOMPARE(stage.view->content(), nullptr);
        });
        delete stage.old;
        QCOMPARE(asked, 1);
    }

    void controlDeletedOnItsWayOutOfTheScene()
    {
        Replacing stage;
        const ControlPointer child = newChild(stage.old);
        connect(child, &QGraphicsObject::parentChanged, this, [&] { child->deleteLater(); });
        stage.view->setContent(child);
        QCOMPARE(stage.view->content(), child.data());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!child);
        QCOMPARE(stage.view->content(), nullptr);
    }

    void controlReplacedOnItsWayOutOfTheScene()
    {
        Replacing stage;
        const ControlPointer child = newChild(stage.old);
        connect(child, &QGraphicsObject::parentChanged, this,
                [&] { stage.view->setContent(stage.a); });
        stage.view->setContent(child);
        QVERIFY(!child);
        QVERIFY(stage.view->hasOnly(stage.a));
    }

    void controlDeletedWhenItLosesItsParent_data()
    {
        addRows({{"own", {{"signal of the control", true}, {"signal of the old parent", false}}},
                 {"inScene", {{"without a scene", false}, {"in a scene", true}}}});
    }

    void controlDeletedWhenItLosesItsParent()
    {
        View view;
        QGraphicsScene other;
        KELRoundRectControl root;
        if (fetch<bool>("inScene"))
            other.addItem(&root);
        const ControlPointer control = newChild(&root);
        const QObject context;
        const auto act = [&] { delete control; };
        if (fetch<bool>("own"))
            connect(control, &QGraphicsObject::parentChanged, &context, act);
        else
            connect(&root, &QGraphicsObject::childrenChanged, &context, act);
        view.setContent(control);
        QVERIFY(!control);
        QCOMPARE(view.content(), nullptr);
        QCOMPARE(view.scene()->items().size(), 0);
    }

    void deletedInASlot_data()
    {
        addRows(
            {{"victim", {{"the view", true}, {"the scene", false}}}, {"moment", namesOf(moments)}});
    }

    void deletedInASlot()
    {
        Deletion stage{fetch<bool>("victim")};
        stage.view->setContent(stage.old);
        stage.scene->addItem(stage.guest);
        stage.view->activate();
        const Moment &moment = moments[fetch<size_t>("moment")];
        moment.prepare(stage);
        stage.view->setContent(stage.next);
        QVERIFY(stage.calls > 0);
        QVERIFY(!stage.next);
        if (!moment.givesOther)
            delete stage.other;
        QVERIFY(!stage.other);
        QCOMPARE(stage.view.isNull(), stage.isView);
        if (!stage.view)
            return;
        QCOMPARE(stage.view->content(), nullptr);
        QCOMPARE(stage.view->scene(), nullptr);
        const std::unique_ptr<KELRoundRectControl> ignored(newControl());
        stage.view->setContent(ignored.get());
        QVERIFY(!ignored->scene());
        delete stage.view;
    }

    void viewDeletedInANestedCall()
    {
        Replacing stage;
        KELRoundRectControl oldParent;
        const ControlPointer c = newChild(&oldParent);
        stage.whenOldDies([&] {
            stage.view->setContent(stage.b);
            stage.view->setContent(c);
        });
        connect(c, &QGraphicsObject::parentChanged, this, [&] { delete stage.view; });
        stage.view->setContent(stage.a);
        QVERIFY(!stage.view);
        QVERIFY(!stage.a);
        QVERIFY(!stage.b);
        QVERIFY(!c);
    }

    void viewDeletedWhileReplacingDeletesTheNewestFirst()
    {
        Replacing stage;
        QStringList dead;
        connect(stage.a, &QObject::destroyed, this, [&] { dead.append(u"a"_s); });
        connect(stage.b, &QObject::destroyed, this, [&] { dead.append(u"b"_s); });
        stage.whenOldDies([&] {
            stage.view->setContent(stage.b);
            delete stage.view;
        });
        stage.view->setContent(stage.a);
        QCOMPARE(dead, QStringList({u"b"_s, u"a"_s}));
    }

    void focusThatAnotherSceneLosesIsReported()
    {
        QGraphicsScene elsewhere;
        QEvent activate(QEvent::WindowActivate);
        QCoreApplication::sendEvent(&elsewhere, &activate);
        Replacing stage;
        KELRoundRectControl *const panel = newFocusable();
        elsewhere.addItem(panel);
        elsewhere.setActivePanel(panel);
        panel->setFocus();
        QVERIFY(panel->hasFocus());
        const QGraphicsItem *last = nullptr;
        connect(
            &elsewhere, &QGraphicsScene::focusItemChanged, this,
            [&](const QGraphicsItem * /*item*/, const QGraphicsItem *before) { last = before; });
        stage.view->setContent(panel);
        QCOMPARE(last, panel);
    }

    void selectionAndFocusAreReported()
    {
        View view;
        QGraphicsScene *const scene = view.scene();
        KELRoundRectControl *const old = newFocusable();
        view.setContent(old);
        view.activate();
        scene->setActivePanel(old);
        old->setFocus();
        old->setSelected(true);
        KELRoundRectControl *const next = newFocusable();
        next->setSelected(true);
        next->setFocus();
        QStringList seen;
        const QObject context;
        connect(scene, &QGraphicsScene::selectionChanged, &context,
                [&] { seen.append(u"selected %1"_s.arg(scene->selectedItems().size())); });
        connect(scene, &QGraphicsScene::focusItemChanged, &context,
                [&](QGraphicsItem *item, const QGraphicsItem *before) {
                    QVERIFY(!before); // dead, or none
                    seen.append(item ? u"focus"_s : u"no focus"_s);
                });
        view.setContent(next);
        QCOMPARE(seen, QStringList({u"no focus"_s, u"selected 0"_s, u"focus"_s, u"selected 1"_s}));
    }

    void controlPutElsewhereSurvivesTheView()
    {
        QGraphicsScene elsewhere;
        Replacing stage;
        stage.whenOldDies([&] {
            elsewhere.addItem(stage.a);
            delete stage.view;
        });
        stage.view->setContent(stage.a);
        QVERIFY(!stage.view);
        QVERIFY(stage.a);
        QCOMPARE(stage.a->scene(), &elsewhere);
    }

    void sceneIsDeletedByADyingPlainItem()
    {
        class Bomb : public QGraphicsRectItem
        {
        public:
            ~Bomb() override { delete victim; }
            QGraphicsScene *victim = nullptr;
        };
        Replacing stage;
        auto *const bomb = new Bomb;
        bomb->victim = stage.view->scene();
        stage.view->scene()->addItem(bomb);
        stage.view->scene()->addItem(new QGraphicsRectItem(0, 0, 10, 10));
        stage.view->setContent(stage.a);
        QVERIFY(!stage.a);
        QCOMPARE(stage.view->scene(), nullptr);
    }
};

KEL_TEST_MAIN(tst_KELContentViewReentry)
#include "tst_kelcontentviewreentry.moc"
