// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "kelcontentview.h"
#include "kelroundrectcontrol.h"
#include "keltest.h"

#include <QtCore/QPointer>

namespace {

using ControlPointer = QPointer<KELRoundRectControl>;

KELRoundRectControl *newControl(KELRoundRectControl *parent = nullptr)
{
    auto *control = new KELRoundRectControl(parent);
    control->setboundRect(0, 0, 50, 20);
    return control;
}

// The moments at which slots run inside setContent().
enum class Moment {
    OldContentDies,
    ChildOfTheOldContentDies,
    GuestDies,
    SupersededControlDies,
    NewContentLosesItsParent,
    OldParentLosesTheNewContent,
    SelectionGoes,
    FocusGoes,
    SelectionComes,
    FocusComes
};

enum class Victim { View, Scene };

// A control that can be selected and have the focus.
KELRoundRectControl *newFocusable(KELRoundRectControl *parent = nullptr)
{
    KELRoundRectControl *control = newControl(parent);
    control->setFlags(QGraphicsItem::ItemIsFocusable | QGraphicsItem::ItemIsSelectable
                      | QGraphicsItem::ItemIsPanel);
    // Qt leaks the picture of a panel that gets the focus while it dies with its scene.
    control->setCacheMode(QGraphicsItem::NoCache);
    return control;
}

} // namespace

Q_DECLARE_METATYPE(Moment)
Q_DECLARE_METATYPE(Victim)

// setContent() called from slots that setContent() itself sets off.
class tst_KELContentViewReentry : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void dyingContentGivesAChildOfTheNextOne()
    {
        KELContentView view;
        KELRoundRectControl *old = newControl();
        view.setContent(old);
        const ControlPointer next = newControl();
        const ControlPointer child = newControl(next);
        connect(old, &QObject::destroyed, &view, [&] { view.setContent(child); });
        view.setContent(next);
        QVERIFY(child);
        QVERIFY(!next);
        QCOMPARE(view.content(), child.data());
        QCOMPARE(view.scene()->items(), QList<QGraphicsItem *>({child.data()}));
    }

    void supersededControlGivesYetAnother()
    {
        KELContentView view;
        KELRoundRectControl *old = newControl();
        view.setContent(old);
        const ControlPointer a = newControl();
        const ControlPointer b = newControl();
        const ControlPointer c = newControl();
        connect(old, &QObject::destroyed, &view, [&] { view.setContent(b); });
        connect(a, &QObject::destroyed, &view, [&] { view.setContent(c); });
        view.setContent(a);
        QVERIFY(!a);
        QVERIFY(!b);
        QVERIFY(c);
        QCOMPARE(view.content(), c.data());
        QCOMPARE(view.scene()->items(), QList<QGraphicsItem *>({c.data()}));
    }

    void supersededControlGivesItselfAnother()
    {
        KELContentView view;
        KELRoundRectControl *old = newControl();
        view.setContent(old);
        const ControlPointer a = newControl();
        KELRoundRectControl *childOfA = newControl(a);
        const ControlPointer b = newControl();
        const ControlPointer c = newControl();
        connect(old, &QObject::destroyed, &view, [&] { view.setContent(b); });
        // Only the base classes of its parent are left at this moment.
        connect(childOfA, &QObject::destroyed, &view, [&] { view.setContent(c); });
        view.setContent(a);
        QVERIFY(!a);
        QVERIFY(!b);
        QCOMPARE(view.content(), c.data());
        QCOMPARE(view.scene()->items(), QList<QGraphicsItem *>({c.data()}));
    }

    void controlGivenAgainAfterAnotherIsKept()
    {
        KELContentView view;
        KELRoundRectControl *old = newControl();
        view.setContent(old);
        const ControlPointer a = newControl();
        const ControlPointer b = newControl();
        connect(old, &QObject::destroyed, &view, [&] {
            view.setContent(b);
            view.setContent(a);
        });
        view.setContent(a);
        QVERIFY(!b);
        QCOMPARE(view.content(), a.data());
        QCOMPARE(view.scene()->items(), QList<QGraphicsItem *>({a.data()}));
    }

    void controlThatTookInAPendingOneKeepsIt()
    {
        KELContentView view;
        KELRoundRectControl *old = newControl();
        view.setContent(old);
        const ControlPointer a = newControl();
        const ControlPointer b = newControl();
        connect(old, &QObject::destroyed, &view, [&] {
            a->setParentItem(b);
            view.setContent(b);
        });
        view.setContent(a);
        QVERIFY(a);
        QCOMPARE(view.content(), b.data());
        QCOMPARE(a->parentItem(), b.data());
        QCOMPARE(view.scene()->items().size(), 2);
    }

    void dyingContentIsNotHandedOut()
    {
        KELContentView view;
        KELRoundRectControl *old = newControl();
        KELRoundRectControl *child = newControl(old);
        view.setContent(old);
        int asked = 0;
        connect(child, &QObject::destroyed, &view, [&] {
            ++asked;
            QCOMPARE(view.content(), nullptr);
        });
        delete old;
        QCOMPARE(asked, 1);
    }

    void controlDeletedOnItsWayOutOfTheScene()
    {
        KELContentView view;
        KELRoundRectControl *root = newControl();
        const ControlPointer child = newControl(root);
        view.setContent(root);
        connect(child, &QGraphicsObject::parentChanged, &view, [&] { child->deleteLater(); });
        view.setContent(child);
        QCOMPARE(view.content(), child.data());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!child);
        QCOMPARE(view.content(), nullptr);
    }

    void controlReplacedOnItsWayOutOfTheScene()
    {
        KELContentView view;
        KELRoundRectControl *root = newControl();
        const ControlPointer child = newControl(root);
        const ControlPointer other = newControl();
        view.setContent(root);
        connect(child, &QGraphicsObject::parentChanged, &view, [&] { view.setContent(other); });
        view.setContent(child);
        QVERIFY(!child);
        QCOMPARE(view.content(), other.data());
        QCOMPARE(view.scene()->items(), QList<QGraphicsItem *>({other.data()}));
    }

    void controlDeletedWhenItLosesItsParent_data()
    {
        QTest::addColumn<bool>("inScene");
        QTest::addColumn<bool>("ownSignal");
        QTest::newRow("signal of the control") << false << true;
        QTest::newRow("signal of the control, in a scene") << true << true;
        QTest::newRow("signal of the old parent") << false << false;
        QTest::newRow("signal of the old parent, in a scene") << true << false;
    }

    void controlDeletedWhenItLosesItsParent()
    {
        QFETCH(bool, inScene);
        QFETCH(bool, ownSignal);
        KELContentView view;
        QGraphicsScene other;
        KELRoundRectControl root;
        if (inScene)
            other.addItem(&root);
        const ControlPointer control = newControl(&root);
        const QObject context;
        const auto act = [&] { delete control; };
        if (ownSignal)
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
        QTest::addColumn<Moment>("moment");
        QTest::addColumn<Victim>("victim");

        const QPair<Moment, const char *> moments[] = {
            {Moment::OldContentDies, "the old content dies"},
            {Moment::ChildOfTheOldContentDies, "a child of the old content dies"},
            {Moment::GuestDies, "another item of the scene dies"},
            {Moment::SupersededControlDies, "a superseded control dies"},
            {Moment::NewContentLosesItsParent, "the new content loses its parent"},
            {Moment::OldParentLosesTheNewContent, "the old parent loses the new content"},
            {Moment::SelectionGoes, "the selection goes"},
            {Moment::FocusGoes, "the focus goes"},
            {Moment::SelectionComes, "the selection comes"},
            {Moment::FocusComes, "the focus comes"}};
        for (const auto &moment : moments) {
            QTest::addRow("the view, when %s", moment.second) << moment.first << Victim::View;
            QTest::addRow("the scene, when %s", moment.second) << moment.first << Victim::Scene;
        }
    }

    void deletedInASlot()
    {
        QFETCH(Moment, moment);
        QFETCH(Victim, victim);
        const QPointer<KELContentView> view(new KELContentView);
        QGraphicsScene *const scene = view->scene();
        KELRoundRectControl oldParent;
        KELRoundRectControl *const old = newFocusable();
        KELRoundRectControl *const childOfOld = newFocusable(old);
        KELRoundRectControl *const guest = newControl();
        const ControlPointer next = newFocusable();
        const ControlPointer other = newControl();
        view->setContent(old);
        scene->addItem(guest);
        view->show();
        QApplication::setActiveWindow(view);
        QVERIFY(QTest::qWaitForWindowActive(view));
        QTRY_VERIFY(scene->isActive());
        view->setFocus();

        int calls = 0;
        const QObject context;
        const auto act = [&] {
            if (++calls > 1)
                return;
            if (victim == Victim::View)
                delete view;
            else
                delete scene;
        };
        const auto actOn = [&](auto *sender, auto signal) {
            connect(sender, signal, &context, act);
        };
        if (moment == Moment::OldContentDies) {
            actOn(old, &QObject::destroyed);
        } else if (moment == Moment::ChildOfTheOldContentDies) {
            actOn(childOfOld, &QObject::destroyed);
        } else if (moment == Moment::GuestDies) {
            actOn(guest, &QObject::destroyed);
        } else if (moment == Moment::SupersededControlDies) {
            connect(old, &QObject::destroyed, &context, [&] { view->setContent(other); });
            actOn(next.data(), &QObject::destroyed);
        } else if (moment == Moment::NewContentLosesItsParent) {
            next->setParentItem(&oldParent);
            actOn(next.data(), &QGraphicsObject::parentChanged);
        } else if (moment == Moment::OldParentLosesTheNewContent) {
            next->setParentItem(&oldParent);
            actOn(&oldParent, &QGraphicsObject::childrenChanged);
        } else if (moment == Moment::SelectionGoes) {
            childOfOld->setSelected(true);
            actOn(scene, &QGraphicsScene::selectionChanged);
        } else if (moment == Moment::FocusGoes) {
            scene->setActivePanel(childOfOld);
            childOfOld->setFocus();
            QVERIFY(scene->focusItem() == childOfOld);
            actOn(scene, &QGraphicsScene::focusItemChanged);
        } else if (moment == Moment::SelectionComes) {
            next->setSelected(true);
            actOn(scene, &QGraphicsScene::selectionChanged);
        } else {
            scene->setFocusItem(nullptr);
            next->setFocus();
            actOn(scene, &QGraphicsScene::focusItemChanged);
        }
        view->setContent(next);
        QVERIFY(calls > 0);
        QVERIFY(!next);
        if (moment != Moment::SupersededControlDies)
            delete other;
        QVERIFY(!other);
        QCOMPARE(view.isNull(), victim == Victim::View);
        if (view) {
            QCOMPARE(view->content(), nullptr);
            QCOMPARE(view->scene(), nullptr);
            const ControlPointer ignored = newControl();
            view->setContent(ignored);
            QVERIFY(!ignored->scene());
            delete ignored;
            delete view;
        }
    }

    void viewDeletedInANestedCall()
    {
        const QPointer<KELContentView> view(new KELContentView);
        KELRoundRectControl *const old = newControl();
        view->setContent(old);
        KELRoundRectControl oldParent;
        const ControlPointer a = newControl();
        const ControlPointer b = newControl();
        const ControlPointer c = newControl(&oldParent);
        const QObject context;
        connect(old, &QObject::destroyed, &context, [&] {
            view->setContent(b);
            view->setContent(c);
        });
        connect(c, &QGraphicsObject::parentChanged, &context, [&] { delete view; });
        view->setContent(a);
        QVERIFY(!view);
        QVERIFY(!a);
        QVERIFY(!b);
        QVERIFY(!c);
    }

    void selectionAndFocusAreReported()
    {
        KELContentView view;
        QGraphicsScene *const scene = view.scene();
        KELRoundRectControl *const old = newFocusable();
        view.setContent(old);
        view.show();
        QApplication::setActiveWindow(&view);
        QVERIFY(QTest::qWaitForWindowActive(&view));
        QTRY_VERIFY(scene->isActive());
        view.setFocus();
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
        const QPointer<KELContentView> view(new KELContentView);
        KELRoundRectControl *const old = newControl();
        view->setContent(old);
        QGraphicsScene elsewhere;
        const ControlPointer next = newControl();
        const QObject context;
        connect(old, &QObject::destroyed, &context, [&] {
            elsewhere.addItem(next);
            delete view;
        });
        view->setContent(next);
        QVERIFY(!view);
        QVERIFY(next);
        QCOMPARE(next->scene(), &elsewhere);
    }

    void sceneIsDeletedByADyingPlainItem()
    {
        class Bomb : public QGraphicsRectItem
        {
        public:
            ~Bomb() override { delete victim; }
            QGraphicsScene *victim = nullptr;
        };
        KELContentView view;
        auto *const bomb = new Bomb;
        bomb->victim = view.scene();
        view.scene()->addItem(bomb);
        view.scene()->addItem(new QGraphicsRectItem(0, 0, 10, 10));
        const ControlPointer next = newControl();
        view.setContent(next);
        QVERIFY(!next);
        QCOMPARE(view.scene(), nullptr);
    }
};

KEL_TEST_MAIN(tst_KELContentViewReentry)
#include "tst_kelcontentviewreentry.moc"
