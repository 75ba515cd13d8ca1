// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "stage.h"

#include <kelcheckbox.h>
#include <kellabel.h>
#include <kelslidecontrol.h>

#include <QtCore/QEventLoop>
#include <QtCore/QTimer>
#include <QtWidgets/QDialog>
#include <QtWidgets/QGraphicsProxyWidget>
#include <QtWidgets/QGraphicsSceneMouseEvent>

namespace {

// Accepts every press, but only after the base has handled it.
class LateAcceptingControl : public KELRoundRectControl
{
protected:
    void mousePressEvent(QGraphicsSceneMouseEvent *event) override
    {
        KELRoundRectControl::mousePressEvent(event);
        event->accept();
    }
};

// Ignores every press after the base has handled it.
template <typename Control>
class IgnoringControl : public Control
{
protected:
    void mousePressEvent(QGraphicsSceneMouseEvent *event) override
    {
        Control::mousePressEvent(event);
        event->ignore();
    }
};

class PressCounter : public QGraphicsRectItem
{
public:
    using QGraphicsRectItem::QGraphicsRectItem;
    int presses = 0;

protected:
    void mousePressEvent(QGraphicsSceneMouseEvent *event) override
    {
        ++presses;
        event->ignore();
    }
};

using Factory = KELRoundRectControl *(*)();

struct Case
{
    const char *name;
    Factory create;
};

template <typename Control>
KELRoundRectControl *create()
{
    return new Control;
}

template <typename Control>
KELRoundRectControl *createSelectable()
{
    auto *const control = new Control;
    control->setFlag(QGraphicsItem::ItemIsSelectable);
    return control;
}

const std::vector<Case> selectableControls = {
    {"base with the flag", createSelectable<KELRoundRectControl>},
    {"label with the flag", createSelectable<KELLabel>},
    {"push button", create<KELPushButton>},
    {"check box", create<KELCheckBox>},
    {"slider", create<KELSlideControl>},
};

const std::vector<Case> ignoringControls = {
    {"control that is not selectable", create<KELRoundRectControl>},
    {"derived from the base", createSelectable<IgnoringControl<KELRoundRectControl>>},
    {"derived from the push button", create<IgnoringControl<KELPushButton>>},
    {"derived from the check box", create<IgnoringControl<KELCheckBox>>},
};

// The control of a case.
class CaseStage : public Stage<KELRoundRectControl>
{
public:
    explicit CaseStage(const std::vector<Case> &cases) :
        Stage(QRectF(100, 100, 100, 50), cases.at(fetch<size_t>("control")).create())
    { }
};

void openDialog(ControlStage *stage)
{
    stage->cover = std::make_unique<QDialog>();
    stage->cover->setWindowModality(Qt::ApplicationModal);
    stage->cover->show();
}

// The last call of a test function.
void losesItsOnlyPress(ControlStage *stage)
{
    QTRY_VERIFY(!stage->control->style()->isMouseDown);
    QVERIFY2(!hasTimers(stage->control), "the long press is still to come");
    QCOMPARE(stage->log.take(), u"press"_s);
}

// A view in a proxy in another view.
struct ProxyStage
{
    ProxyStage()
    {
        button->setboundRect(20, 20, 100, 60);
        inner->ownScene.addItem(button);
        log.listenTo(button);
        proxy = outer.ownScene.addWidget(inner);
    }
    ~ProxyStage()
    {
        if (!proxy->scene())
            delete proxy;
    }

    KelTestView outer;
    KelTestView *const inner{new KelTestView(QSize(300, 200))};
    KELPushButton *const button{new KELPushButton};
    QPointer<QGraphicsProxyWidget> proxy;
    SignalLog log;
    Hand hand{&outer};
};

struct Change
{
    const char *name;
    void (*make)(ProxyStage &);
};

const std::vector<Change> changes = {
    {"outer view hidden", [](ProxyStage &s) { s.outer.hide(); }},
    {"outer view disabled", [](ProxyStage &s) { s.outer.setEnabled(false); }},
    {"proxy hidden", [](ProxyStage &s) { s.proxy->hide(); }},
    {"proxy disabled", [](ProxyStage &s) { s.proxy->setEnabled(false); }},
    {"proxy taken out", [](ProxyStage &s) { s.outer.ownScene.removeItem(s.proxy); }},
};

} // namespace

// Rare ways to get and to lose the pointer; the common ones are in tst_pointerloss.
class tst_KELPress : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void pressInsideTheReleaseOfAnotherIsWatched()
    {
        Stage<KELPushButton> stage;
        bool isNested = false;
        stage.log.on(u"release"_s, [&] {
            if (!std::exchange(isNested, true))
                stage.hand.press(stage.centre());
        });
        stage.hand.tap(stage.centre());
        // The end of the outer release took the grab of the inner press away.
        QTRY_VERIFY(!stage->style()->isMouseDown);
        QVERIFY(!hasTimers(stage.control));
        QCOMPARE(stage.log.take(), u"press release press clicked"_s);
    }

    void controlThatHeldTheGrabBeforeIsWatched()
    {
        Stage<KELPushButton> stage;
        stage.view.showOnce();
        stage->grabMouse();
        stage.hand.press(stage.centre());
        QVERIFY(stage->isMouseDown());
        openDialog(&stage);
        losesItsOnlyPress(&stage);
    }

    void grabOfTheApplicationIsLeftAlone()
    {
        Stage<KELPushButton> stage;
        stage.view.showOnce();
        stage->grabMouse();
        stage.hand.press(stage.centre());
        openDialog(&stage);
        QTRY_VERIFY(!stage->style()->isMouseDown);
        stage.cover.reset();
        stage.hand.press(stage.otherCentre());
        QCOMPARE(stage.view.ownScene.mouseGrabberItem(), stage.control);
        QCOMPARE(stage.log.take(), u"press press"_s);
    }

    // The release came after all.
    void releaseEndsTheStaleGrab()
    {
        Stage<KELPushButton> stage;
        stage.hand.press(stage.centre());
        openDialog(&stage);
        QTRY_VERIFY(!stage->style()->isMouseDown);
        stage.cover.reset();
        stage.hand.release();
        stage->grabMouse();
        stage.log.take();
        stage.hand.press(stage.otherCentre());
        QCOMPARE(stage.log.take(), u"press"_s);
    }

    void handingOnEndsTheStaleGrab()
    {
        Stage<KELPushButton> stage;
        stage.hand.press(stage.centre());
        openDialog(&stage);
        QTRY_VERIFY(!stage->style()->isMouseDown);
        stage.cover.reset();
        stage.hand.tap(stage.otherCentre());
        QCOMPARE(stage.log.take(), u"press other.press other.release other.clicked"_s);
        stage->grabMouse();
        stage.hand.press(stage.otherCentre());
        QCOMPARE(stage.log.take(), u"press"_s);
    }

    // The application gave it the grab there after it had lost the press.
    void grabInAnotherSceneIsNotStale()
    {
        Stage<KELPushButton> stage;
        KelTestView view;
        view.setScene(&stage.otherScene);
        view.showOnce();
        stage.hand.press(stage.centre());
        stage.otherScene.addItem(stage.control);
        stage->grabMouse();
        QTRY_VERIFY(!stage->style()->isMouseDown);
        stage.log.take();
        Hand hand(&view);
        hand.press(view.mapFromScene(300, 200));
        QCOMPARE(stage.log.take(), u"press"_s);
    }

    void secondButtonDoesNotBlindTheWatch()
    {
        Stage<KELPushButton> stage;
        stage.hand.press(stage.centre());
        stage.hand.press(stage.centre(), Qt::RightButton);
        stage.log.take();
        openDialog(&stage);
        QTRY_VERIFY(!stage->style()->isMouseDown);
        QVERIFY(!hasTimers(stage.control));
        QCOMPARE(stage.log.take(), QString());
    }

    void controlThatAcceptsLateIsWatched()
    {
        Stage<LateAcceptingControl> stage;
        stage.hand.tap(stage.centre());
        QCOMPARE(stage.log.take(), u"press release clicked"_s);

        stage.hand.press(stage.centre());
        QCoreApplication::processEvents();
        QVERIFY(stage->isMouseDown());
        openDialog(&stage);
        losesItsOnlyPress(&stage);
    }

    void childThatGrabsForItselfTakesThePointer()
    {
        Stage<KELRoundRectControl> stage;
        stage->setFlag(QGraphicsItem::ItemIsSelectable);
        auto *const child = new QGraphicsRectItem(110, 110, 10, 10, stage.get());
        stage.hand.press(stage.centre());
        child->grabMouse();
        losesItsOnlyPress(&stage);
    }

    void dialogOpenedByTheSelectionCounts()
    {
        Stage<KELPushButton> stage;
        QObject context; // the dying scene changes its selection again
        connect(&stage.view.ownScene, &QGraphicsScene::selectionChanged, &context,
                [&] { openDialog(&stage); });
        stage.hand.press(stage.centre());
        QVERIFY(stage.cover);
        losesItsOnlyPress(&stage);
    }

    void grabTakenByTheSelectionCounts()
    {
        Stage<KELPushButton> stage;
        QObject context; // the dying scene changes its selection again
        connect(&stage.view.ownScene, &QGraphicsScene::selectionChanged, &context,
                [&] { stage->ungrabMouse(); });
        stage.hand.press(stage.centre());
        losesItsOnlyPress(&stage);
    }

    // A slot of the first press taps the control: the rest of that press counts all the same.
    void tapInsideTheSelectionOfAPress()
    {
        Stage<KELPushButton> stage;
        QObject context; // the dying scene changes its selection again
        bool isNested = false;
        connect(&stage.view.ownScene, &QGraphicsScene::selectionChanged, &context, [&] {
            if (!std::exchange(isNested, true))
                stage.hand.tap(stage.centre());
        });
        stage.hand.press(stage.centre());
        QVERIFY(!stage->isMouseDown()); // the tap released the grab
        QCOMPARE(stage.log.count(u"press"_s), 2);
        stage.hand.release();
        QCOMPARE(stage.log.count(u"clicked"_s), 1);
    }

    void freshPressIsNotHandedOnTwice()
    {
        Stage<KELPushButton> stage;
        auto *const cover = new PressCounter(stage->boundingRect());
        stage.view.ownScene.addItem(cover);
        stage.hand.press(stage.centre());
        openDialog(&stage);
        QTRY_VERIFY(!stage->style()->isMouseDown);
        stage.cover.reset();
        cover->presses = 0;
        // Lets go of the old grab, as a release would that the scene gets after all.
        stage->ungrabMouse();
        stage.hand.tap(stage.centre());
        QCOMPARE(cover->presses, 1);
        QCOMPARE(stage.log.take(), u"press press release clicked"_s);
    }

    void clickWorksThroughAProxy()
    {
        ProxyStage stage;
        stage.hand.press(QPoint(70, 50));
        QCoreApplication::processEvents();
        QVERIFY(stage.button->isMouseDown());
        stage.hand.release();
        QCOMPARE(stage.log.take(), u"press release clicked"_s);
    }

    void hiddenOrDisabledProxyLosesThePress_data() { addRows({{"change", namesOf(changes)}}); }

    void hiddenOrDisabledProxyLosesThePress()
    {
        ProxyStage stage;
        stage.hand.press(QPoint(70, 50));
        QVERIFY(stage.button->isMouseDown());
        changes.at(fetch<size_t>("change")).make(stage);
        QTRY_VERIFY(!stage.button->style()->isMouseDown);
        QVERIFY(!hasTimers(stage.button));
        QCOMPARE(stage.log.take(), u"press"_s);
    }

    // It is never painted, which Qt would do for ever. The other view serves nobody, so that no
    // view ends the search.
    void viewInsideTheSceneItShows()
    {
        Stage<KELPushButton> stage;
        stage.view.setInteractive(false);
        auto *const inner = new QGraphicsView(&stage.view.ownScene);
        inner->setUpdatesEnabled(false);
        inner->setFrameShape(QFrame::NoFrame);
        inner->setAlignment(Qt::AlignLeft | Qt::AlignTop);
        inner->resize(250, 170);
        QGraphicsProxyWidget *const proxy = stage.view.ownScene.addWidget(inner);
        proxy->setFlag(QGraphicsItem::ItemHasNoContents);
        proxy->setPos(300, 150);
        stage.view.showOnce();
        Hand hand(inner->viewport());
        hand.press(inner->mapFromScene(stage->boundingRect().center()));
        QCoreApplication::processEvents();
        QVERIFY(stage->isMouseDown());
        hand.release();
        QCOMPARE(stage.log.take(), u"press release clicked"_s);
    }

    void windowModalDialogOfASiblingWindowCounts()
    {
        Stage<KELPushButton> stage;
        QWidget root;
        root.show();
        stage.window.setParent(&root, Qt::Window);
        auto *const sibling = new QWidget(&root, Qt::Window);
        stage.hand.press(stage.centre());
        QVERIFY(stage->isMouseDown());
        QDialog dialog(sibling);
        dialog.setWindowModality(Qt::WindowModal);
        dialog.show();
        QTRY_VERIFY(!stage->style()->isMouseDown);
        stage.window.setParent(nullptr);
    }

    void eventsWithoutAViewStillClick()
    {
        QGraphicsScene scene;
        auto *const button = new KELPushButton;
        scene.addItem(button);
        SignalLog log;
        log.listenTo(button);
        for (const QEvent::Type type :
             {QEvent::GraphicsSceneMousePress, QEvent::GraphicsSceneMouseRelease}) {
            QGraphicsSceneMouseEvent event(type);
            event.setButton(Qt::LeftButton);
            event.setButtons(type == QEvent::GraphicsSceneMousePress ? Qt::LeftButton
                                                                     : Qt::NoButton);
            event.setPos(button->boundingRect().center());
            scene.sendEvent(button, &event);
            QCoreApplication::processEvents();
        }
        QCOMPARE(log.take(), u"press release clicked"_s);
    }

    void dialogTakesAPressWithoutAView()
    {
        Stage<KELPushButton> stage;
        QGraphicsScene scene;
        scene.addItem(stage.control);
        QGraphicsSceneMouseEvent press(QEvent::GraphicsSceneMousePress);
        press.setButton(Qt::LeftButton);
        press.setButtons(Qt::LeftButton);
        press.setPos(stage->boundingRect().center());
        stage->grabMouse();
        scene.sendEvent(stage.control, &press);
        QVERIFY(stage->isMouseDown());
        openDialog(&stage);
        QTRY_VERIFY(!stage->style()->isMouseDown);
        delete stage.control;
    }

    void rightTapOnASelectableControlLeavesNothing_data()
    {
        addRows({{"control", namesOf(selectableControls)}});
    }

    void rightTapOnASelectableControlLeavesNothing()
    {
        CaseStage stage(selectableControls);
        stage->setAcceptedMouseButtons(Qt::AllButtons);
        stage.hand.press(stage.centre(), Qt::RightButton);
        QTRY_VERIFY(!stage->style()->isMouseDown);
        stage.hand.release(stage.centre(), Qt::RightButton);
        QVERIFY(!stage->isMouseDown());
        QVERIFY(!hasTimers(stage.control));
        QCOMPARE(stage.log.count(u"press"_s), 1);
        QCOMPARE(stage.log.count(u"clicked"_s), 0);
        stage.hand.tap(stage.centre());
        QVERIFY(stage.log.take().endsWith(QLatin1String("release clicked")));
    }

    void rightPressThatADerivedClassAcceptsClicks()
    {
        Stage<LateAcceptingControl> stage;
        stage->setFlag(QGraphicsItem::ItemIsSelectable);
        stage.hand.press(stage.centre(), Qt::RightButton);
        QCoreApplication::processEvents();
        QVERIFY(stage->isMouseDown());
        stage.hand.release(stage.centre(), Qt::RightButton);
        QCOMPARE(stage.log.take(), u"press release clicked"_s);
    }

    void ignoredPressStaysAsDescribed_data() { addRows({{"control", namesOf(ignoringControls)}}); }

    void ignoredPressStaysAsDescribed()
    {
        CaseStage stage(ignoringControls);
        stage.hand.press(stage.centre());
        QVERIFY(stage->isMouseDown());
        letEventsRun();
        QVERIFY(stage->isMouseDown());
        QVERIFY(stage->style()->isMouseDown);
        stage.hand.release();
        endLongPressTime(stage.control);
        const QString change = stage->isCheck() ? u" checked checkChanged"_s : QString();
        QCOMPARE(stage.log.take(), u"press%1 longPress"_s.arg(change));
        QVERIFY(stage->isMouseDown());
    }

    void tapAfterAnIgnoredPress()
    {
        Stage<IgnoringControl<KELPushButton>> stage;
        stage.hand.tap(stage.centre());
        stage.hand.tap(stage.otherCentre());
        QCOMPARE(stage.log.take(), u"press other.press other.release other.clicked"_s);
    }

    void plainControlFollowsItsButtonsInOneTurn()
    {
        Stage<KELRoundRectControl> stage;
        stage.hand.press(stage.centre());
        QCoreApplication::processEvents();
        QVERIFY(stage->style()->isMouseDown);
        stage->setAcceptedMouseButtons(Qt::NoButton);
        QVERIFY(!stage->isMouseDown());
        QEventLoop loop;
        QTimer::singleShot(0, &loop, &QEventLoop::quit);
        loop.exec();
        QVERIFY(!stage->style()->isMouseDown);
    }
};

KEL_TEST_MAIN(tst_KELPress)
#include "tst_kelpress.moc"
