// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "matrixstage.h"

#include "hand.h"

#include <kelapplicationnotify.h>
#include <kelcheckbox.h>
#include <kelcombobox.h>
#include <kelcontentview.h>
#include <keldialogbase.h>
#include <kellineitem.h>
#include <kelnavigationtable.h>
#include <kelnonmodaldialog.h>
#include <kelnonmodalhelper.h>
#include <kelprocessbar.h>
#include <kelradiobox.h>
#include <kelsidemenu.h>
#include <kelslidecontrol.h>

#include <QtCore/QAbstractEventDispatcher>
#include <QtCore/QElapsedTimer>
#include <QtCore/QMetaEnum>
#include <QtTest/QtTest>

namespace {

using Spot = MatrixStage::Spot;

constexpr QPoint dragWay(15, 0);
constexpr QPoint farAway(195, 145);
constexpr int hideDelayMs = 5;

QTouchDevice *touchScreen()
{
    static QTouchDevice *const device = QTest::createTouchDevice();
    return device;
}

// As the window system reports it. QTest::touchEvent() does the same, and sleeps.
void touch(const Spot &spot, Qt::TouchPointState state)
{
    if (!spot.viewport)
        return;
    const QPoint way = state == Qt::TouchPointMoved ? dragWay : QPoint();
    QTouchEvent::TouchPoint finger(0);
    finger.setScreenPos(spot.viewport->mapToGlobal(spot.pos + way));
    finger.setState(state);
    qt_handleTouchEvent(nullptr, touchScreen(), {finger});
    QCoreApplication::processEvents();
}

void touchTap(const Spot &spot)
{
    touch(spot, Qt::TouchPointPressed);
    touch(spot, Qt::TouchPointReleased);
}

// The time of all timers of an object ends now.
void endTimersOf(const QPointer<QObject> &object)
{
    if (!object)
        return;
    const auto timers = QAbstractEventDispatcher::instance()->registeredTimers(object);
    for (const QAbstractEventDispatcher::TimerInfo &timer : timers) {
        QTimerEvent event(timer.timerId);
        if (object)
            QCoreApplication::sendEvent(object, &event);
    }
}

// The half second of a long press is not waited for.
void endLongPressTimes(const MatrixStage &stage)
{
    for (int i = 0; i < stage.count(); ++i)
        endTimersOf(qobject_cast<KELRoundRectControl *>(stage.at(i)));
}

// A hide that was scheduled is carried out in here.
void passHideDelay()
{
    QElapsedTimer time;
    time.start();
    while (time.elapsed() <= hideDelayMs + 1)
        QCoreApplication::processEvents();
}

// What a hand does at a spot.
Action gesture(const char *name,
               const std::function<void(MatrixStage *, const Spot &, Hand *)> &run)
{
    return {name, true, [](const MatrixStage &stage) { return !stage.spots.isEmpty(); },
            [run](MatrixStage *stage, const Spot *spot) {
                Hand hand(spot->viewport);
                run(stage, *spot, &hand);
            }};
}

// A gesture on a control that is used in the middle of it.
Action brokenPress(const char *name, const std::function<void(KELRoundRectControl *)> &use)
{
    return {name, true,
            [](const MatrixStage &stage) { return stage.subject && !stage.spots.isEmpty(); },
            [use](MatrixStage *stage, const Spot *spot) {
                Hand hand(spot->viewport);
                hand.press(spot->pos);
                if (stage->subject)
                    use(stage->subject);
                QCoreApplication::processEvents();
                hand.release();
                hand.tap(spot->pos);
            }};
}

// A call for the first object of the class, of that name if there is one.
template <class Type, class Run>
Action call(const char *name, const Run &run, const char *object = nullptr)
{
    return {name, false,
            [object](const MatrixStage &stage) { return stage.find<Type>(object) != nullptr; },
            [run, object](MatrixStage *stage, const Spot * /*spot*/) {
                if constexpr (std::is_invocable_v<Run, Type *>)
                    run(stage->find<Type>(object));
                else
                    run(stage->find<Type>(object), *stage);
            }};
}

Action callSubject(const char *name, const std::function<void(KELRoundRectControl *)> &run)
{
    return {name, false, [](const MatrixStage &stage) { return !stage.subject.isNull(); },
            [run](MatrixStage *stage, const Spot * /*spot*/) { run(stage->subject); }};
}

// Switched off and on again: also the way back must bear it.
void switchOffAndOn(QGraphicsObject *item, void (QGraphicsItem::*change)(bool))
{
    const QPointer<QObject> alive(item);
    (item->*change)(false);
    if (alive)
        (item->*change)(true);
}

void disableAndEnable(QGraphicsObject *item)
{
    switchOffAndOn(item, &QGraphicsItem::setEnabled);
}

void hideAndShow(QGraphicsObject *item)
{
    switchOffAndOn(item, &QGraphicsItem::setVisible);
}

void leaveTheScene(QGraphicsObject *item)
{
    if (item->scene())
        item->scene()->removeItem(item);
}

QVector<Action> gestures()
{
    using S = MatrixStage;
    return {
        gesture("mouse tap", [](S *, const Spot &spot, Hand *hand) { hand->tap(spot.pos); }),
        gesture("touch tap", [](S *, const Spot &spot, Hand *) { touchTap(spot); }),
        gesture("double click",
                [](S *, const Spot &spot, Hand *hand) { hand->doubleTap(spot.pos); }),
        gesture("two taps",
                [](S *, const Spot &spot, Hand *hand) {
                    hand->tap(spot.pos);
                    hand->tap(spot.pos);
                }),
        gesture("two touch taps",
                [](S *, const Spot &spot, Hand *) {
                    touchTap(spot);
                    touchTap(spot);
                }),
        gesture("long press",
                [](S *stage, const Spot &spot, Hand *hand) {
                    hand->press(spot.pos);
                    endLongPressTimes(*stage);
                    hand->release();
                }),
        gesture("long touch",
                [](S *stage, const Spot &spot, Hand *) {
                    touch(spot, Qt::TouchPointPressed);
                    endLongPressTimes(*stage);
                    touch(spot, Qt::TouchPointReleased);
                }),
        gesture("right click",
                [](S *, const Spot &spot, Hand *hand) {
                    hand->press(spot.pos, Qt::RightButton);
                    hand->openContextMenu(spot.pos);
                    hand->release(spot.pos, Qt::RightButton);
                }),
        gesture("drag",
                [](S *, const Spot &spot, Hand *hand) {
                    hand->drag(spot.pos, spot.pos + 2 * dragWay, 2);
                }),
        gesture("touch drag",
                [](S *, const Spot &spot, Hand *) {
                    touch(spot, Qt::TouchPointPressed);
                    touch(spot, Qt::TouchPointMoved);
                    touch(spot, Qt::TouchPointReleased);
                }),
        gesture("hover",
                [](S *, const Spot &spot, Hand *hand) {
                    const QPoint onNeighbour(165, 60);
                    for (const QPoint &pos : {farAway, spot.pos, onNeighbour, spot.pos, farAway})
                        hand->hover(pos);
                }),
        gesture("hover and leave",
                [](S *, const Spot &spot, Hand *hand) {
                    hand->hover(spot.pos);
                    QEvent leave(QEvent::Leave);
                    if (spot.viewport)
                        QCoreApplication::sendEvent(spot.viewport, &leave);
                }),
        gesture("press, then the grab is taken",
                [](S *stage, const Spot &spot, Hand *hand) {
                    hand->press(spot.pos);
                    QGraphicsItem *const grabber = stage->scene ? stage->scene->mouseGrabberItem()
                                                                : nullptr;
                    if (grabber)
                        grabber->ungrabMouse();
                    QCoreApplication::processEvents();
                    hand->release();
                    hand->tap(spot.pos);
                }),
        gesture("press, then the view is hidden",
                [](S *stage, const Spot &spot, Hand *hand) {
                    hand->press(spot.pos);
                    if (stage->view)
                        stage->view->hide();
                    QCoreApplication::processEvents();
                    hand->release();
                    if (stage->view)
                        stage->view->show();
                    hand->tap(spot.pos);
                }),
        gesture("press, then the scene is cleared",
                [](S *stage, const Spot &spot, Hand *hand) {
                    hand->press(spot.pos);
                    if (stage->scene)
                        stage->scene->clear();
                    hand->release();
                    hand->tap(spot.pos);
                }),
        gesture("tap and then a press outside",
                [](S *, const Spot &spot, Hand *hand) {
                    hand->tap(spot.pos);
                    hand->tap(farAway);
                }),
        {"mouse tap, then the hide delay", true,
         [](const MatrixStage &stage) {
             return stage.find<KELNonModalhelper>() || stage.find<KELNonModalDialog>();
         },
         [](MatrixStage * /*stage*/, const Spot *spot) {
             Hand(spot->viewport).tap(spot->pos);
             passHideDelay();
         }},
        brokenPress("press, then it is disabled", disableAndEnable),
        brokenPress("press, then it is hidden", hideAndShow),
        brokenPress("press, then it leaves the scene", leaveTheScene),
        brokenPress("press, then it gets no parent",
                    [](KELRoundRectControl *control) { control->setParentItem(nullptr); }),
        brokenPress(
            "press, then it accepts no button",
            [](KELRoundRectControl *control) { control->setAcceptedMouseButtons(Qt::NoButton); }),
        brokenPress("press, then it is checked",
                    [](KELRoundRectControl *control) { control->setCheck(!control->isCheck()); }),
    };
}

QVector<Action> callsOfControls()
{
    return {
        callSubject("setCheck",
                    [](KELRoundRectControl *control) {
                        const QPointer<KELRoundRectControl> alive(control);
                        control->setCheck(!control->isCheck());
                        if (alive)
                            control->setCheck(!control->isCheck());
                    }),
        callSubject("setText", [](KELRoundRectControl *control) { control->setText(u"text"_s); }),
        callSubject("setEnabled", disableAndEnable),
        callSubject("setVisible", hideAndShow),
        callSubject("setSelected",
                    [](KELRoundRectControl *control) {
                        switchOffAndOn(control, &QGraphicsItem::setSelected);
                    }),
        callSubject("the scene gives it up", leaveTheScene),
        callSubject("delete", [](KELRoundRectControl *control) { delete control; }),
        call<QGraphicsObject>("its wrapper is disabled", disableAndEnable, "wrapper"),
        call<QGraphicsObject>("its wrapper is hidden", hideAndShow, "wrapper"),
        call<QGraphicsObject>(
            "its wrapper is deleted", [](auto *wrapper) { delete wrapper; }, "wrapper"),
        call<QGraphicsObject>(
            "it gets another parent",
            [](auto *other, const MatrixStage &stage) { stage.subject->setParentItem(other); },
            "other wrapper"),
        call<QGraphicsScene>("the scene is cleared", [](auto *scene) { scene->clear(); }),
        call<QGraphicsScene>("the scene is deleted", [](auto *scene) { delete scene; }),
        call<QGraphicsView>("the view is deleted", [](auto *view) { delete view; }),
        call<KELProcessBar>("setValue of a progress bar",
                            [](auto *bar) {
                                const QPointer<KELProcessBar> alive(bar);
                                bar->setValue(40);
                                if (alive)
                                    bar->setValue(100);
                            }),
        call<KELSlideControl>("setValue of a slider", [](auto *slider) { slider->setValue(40); }),
        call<Model>("the model changes", [](auto *model) { model->setNumber(1); }),
    };
}

QVector<Action> callsOfGroups()
{
    const auto second = [](const MatrixStage &stage) {
        return stage.find<KELRadioBox>("second box");
    };
    return {
        call<KELRadioBoxGroup>("setId", [](auto *group) { group->setId(1); }),
        call<KELRadioBoxGroup>(
            "setCheck of another box",
            [second](auto *, const MatrixStage &stage) { second(stage)->setCheck(true); }),
        call<KELRadioBoxGroup>("addRadioBox under the present id",
                               [second](auto *group, const MatrixStage &stage) {
                                   group->setId(1);
                                   KELRadioBox *const box = second(stage);
                                   delete box;
                                   if (auto *const third = stage.find<KELRadioBox>("third box"))
                                       if (auto *const still = stage.find<KELRadioBoxGroup>())
                                           still->addRadioBox(third, 1);
                               }),
        call<KELRadioBoxGroup>("the group is deleted",
                               [](auto *group, const MatrixStage &) { delete group; }),
    };
}

QVector<Action> callsOfComboBoxes()
{
    return {
        call<KELComboBox>("setSelectIndex", [](auto *box) { box->setSelectIndex(1); }),
        call<KELComboBox>("addItem of a combo box", [](auto *box) { box->addItem(4, u"four"_s); }),
        call<KELComboBox>("removeItem of a combo box",
                          [](auto *box) {
                              const QPointer<KELComboBoxItem> item(box->items().at(0));
                              box->removeItem(item);
                              delete item;
                          }),
        call<KELComboBox>("clearItem", [](auto *box) { box->clearItem(); }),
        call<KELComboBox>(
            "bindEnum",
            [](auto *box) { box->bindEnum(QMetaEnum::fromType<QGraphicsView::DragMode>()); }),
        call<KELComboBox>("setboundRect of a combo box",
                          [](auto *box) { box->setboundRect(10, 10, 100, 30); }),
        call<KELComboBox>("its button is clicked twice",
                          [](auto *box) {
                              const QPointer<KELPushButton> button(buttonOf(box));
                              for (int n = 0; n < 2 && button; ++n)
                                  Q_EMIT button->mouseClicked();
                          }),
        call<KELComboBoxItem>("an entry is deleted", [](auto *item) { delete item; }),
    };
}

QVector<Action> callsOfTables()
{
    return {
        call<KELNavigationTable>("setSelectIndex of a table",
                                 [](auto *table) { table->setSelectIndex(1); }),
        call<KELNavigationTable>(
            "addItem of a table",
            [](auto *table, const MatrixStage &stage) {
                auto *const foreign = stage.find<KELNavigationTableItem>("page of the other");
                auto *const page = foreign ? foreign : new KELNavigationTableItem;
                const QPointer<KELNavigationTableItem> added(page);
                table->addItem(page);
                if (added && !foreign && !added->parentItem())
                    delete added;
            }),
        call<KELNavigationTableItem>("a page is deleted", [](auto *page) { delete page; }),
        call<KELNavigationTableItem>("a page gets no parent",
                                     [](auto *page) { page->setParentItem(nullptr); }),
    };
}

QVector<Action> callsOfViews()
{
    return {
        call<KELContentView>("setContent",
                             [](auto *view, const MatrixStage &stage) {
                                 auto *next = stage.find<KELPushButton>("next content");
                                 if (next)
                                     view->setContent(next);
                             }),
        call<KELContentView>("setContent of a part",
                             [](auto *view, const MatrixStage &stage) {
                                 view->setContent(
                                     stage.find<KELPushButton>("button on the content"));
                             }),
        call<KELContentView>("setFocusItem",
                             [](auto *view) {
                                 QGraphicsItem *const content = view->content();
                                 if (!content)
                                     return;
                                 content->setFlag(QGraphicsItem::ItemIsFocusable);
                                 const QPointer<KELContentView> alive(view);
                                 view->setFocusItem(content);
                                 if (alive)
                                     view->setFocusItem(nullptr);
                             }),
        call<KELContentView>("resize", [](auto *view) { view->resize(120, 90); }),
        call<KELSideMenu>("addItem of a side menu",
                          [](auto *menu, const MatrixStage &stage) {
                              menu->addItem(stage.find<KELPushButton>("next button"));
                          }),
        call<KELSideMenu>("setSpace", [](auto *menu) { menu->setSpace(20); }),
        call<KELSideMenu>("resize of a side menu", [](auto *menu) { menu->resize(120, 90); }),
    };
}

QVector<Action> callsOfPanels()
{
    return {
        call<KELNonModalhelper>("the period of a helper ends",
                                [](auto *helper) {
                                    const QPointer<KELNonModalhelper> alive(helper);
                                    helper->enableTime(10000);
                                    endTimersOf(alive.data());
                                }),
        call<KELNonModalhelper>("show of a helper",
                                [](auto *helper) {
                                    const QPointer<KELNonModalhelper> alive(helper);
                                    helper->enableTime(10000);
                                    endTimersOf(alive.data());
                                    if (alive)
                                        helper->show();
                                }),
        call<KELNonModalhelper>("static show",
                                [](auto *, const MatrixStage &stage) {
                                    const QPointer<QWidget> panel(stage.find<QWidget>("panel"));
                                    for (int n = 0; n < 2; ++n) {
                                        if (panel)
                                            KELNonModalhelper::show(
                                                panel, KELNonModalhelper::TriggerParent, true, 500);
                                        if (panel)
                                            panel->hide();
                                    }
                                    delete panel;
                                }),
        call<KELNonModalDialog>("showOne",
                                [](auto *panel) {
                                    const QPointer<KELNonModalDialog> alive(panel);
                                    KELNonModalDialog::showOne(nullptr);
                                    if (alive)
                                        KELNonModalDialog::showOne(panel);
                                }),
        call<KELNonModalDialog>(
            "showOne of the second", [](auto *panel) { KELNonModalDialog::showOne(panel); },
            "second panel"),
        call<KELNonModalDialog>("the period of a panel ends",
                                [](auto *panel) {
                                    panel->enableTime(1);
                                    passHideDelay();
                                }),
    };
}

QVector<Action> callsOfDialogs()
{
    const auto whileItShakes = [](KELDialogBase *dialog, void (*end)(KELDialogBase *)) {
        const QPointer<KELDialogBase> alive(dialog);
        dialog->dialogShake(10);
        QCoreApplication::processEvents();
        if (alive)
            end(dialog);
        QCoreApplication::processEvents();
    };
    return {
        call<KELDialogBase>("accept", [](auto *dialog) { dialog->accept(); }),
        call<KELDialogBase>("reject", [](auto *dialog) { dialog->reject(); }),
        call<KELDialogBase>("reject while it shakes",
                            [whileItShakes](auto *dialog) {
                                whileItShakes(dialog, [](KELDialogBase *it) { it->reject(); });
                            }),
        call<KELDialogBase>("delete while it shakes",
                            [whileItShakes](auto *dialog) {
                                whileItShakes(dialog, [](KELDialogBase *it) { delete it; });
                            }),
        call<KELDialogBase>("another shake",
                            [whileItShakes](auto *dialog) {
                                whileItShakes(dialog, [](KELDialogBase *it) {
                                    const QPointer<KELDialogBase> alive(it);
                                    it->dialogShake(-5);
                                    if (alive)
                                        it->view()->scene()->clear();
                                });
                            }),
        call<KELDialogBase>("setBackgroundPixmap",
                            [](auto *dialog) { dialog->setBackgroundPixmap(QPixmap(30, 30)); }),
        call<KELDialogBase>("the dialog is deleted", [](auto *dialog) { delete dialog; }),
    };
}

QVector<Action> callsOfTheRest()
{
    return {
        call<KELApplicationNotify>("toNotify",
                                   [](auto *notify, const MatrixStage &stage) {
                                       QEvent event(QEvent::User);
                                       notify->toNotify(stage.find<QObject>("target"), &event);
                                   }),
        call<KELApplicationNotify>("an event for a target",
                                   [](auto *, const MatrixStage &stage) {
                                       QMouseEvent event(QEvent::MouseButtonPress, QPointF(),
                                                         Qt::LeftButton, Qt::LeftButton,
                                                         Qt::NoModifier);
                                       if (auto *target = stage.find<QObject>("target"))
                                           QCoreApplication::sendEvent(target, &event);
                                   }),
        call<KELDataBind>("unbind and bind",
                          [](auto *, const MatrixStage &stage) {
                              const QPointer<KELDataBind> binding(
                                  stage.find<KELDataBind>("binding"));
                              binding->unbind();
                              if (auto *model = stage.find<Model>())
                                  model->setNumber(1);
                              if (binding)
                                  binding->bind();
                          }),
        call<KELDataBind>("update",
                          [](auto *, const MatrixStage &stage) {
                              auto *const model = stage.find<Model>("destination");
                              stage.find<KELDataBind>("binding")->unbind();
                              if (model)
                                  model->setNumber(1);
                              if (auto *binding = stage.find<KELDataBind>("binding"))
                                  binding->update();
                          }),
        call<Model>("setBind",
                    [](auto *model, const MatrixStage &stage) {
                        auto *const third = stage.find<Model>("third model");
                        auto *const binding = stage.find<KELDataBind>("binding");
                        model->setNumber(1);
                        const QPointer<KELDataBind> alive(stage.find<KELDataBind>("binding"));
                        auto *const source = stage.find<Model>();
                        if (alive && alive == binding && source && stage.find<Model>("third model"))
                            binding->setBind(source, "number", third, "number", KELDataBind::Auto);
                    }),
        call<Model>("static bind",
                    [](auto *model, const MatrixStage &stage) {
                        if (auto *const third = stage.find<Model>("third model"))
                            KELDataBind::bind(model, "number", third, "number",
                                              KELDataBind::OneWay);
                    }),
        call<Model>("the other side changes",
                    [](auto *, const MatrixStage &stage) {
                        if (auto *const destination = stage.find<Model>("destination"))
                            destination->setNumber(2);
                    }),
        call<Model>("the model is deleted", [](auto *model) { delete model; }),
        call<ConverterHolder>("the holder is deleted", [](auto *holder) { delete holder; }),
    };
}

} // namespace

const QVector<Action> &actions()
{
    static const QVector<Action> all = gestures() + callsOfControls() + callsOfGroups()
        + callsOfComboBoxes() + callsOfTables() + callsOfViews() + callsOfPanels()
        + callsOfDialogs() + callsOfTheRest();
    return all;
}
