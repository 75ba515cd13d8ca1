// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "matrixstage.h"

#include "literals.h"

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

using Spot = Stage::Spot;

constexpr QPoint dragWay(15, 0);
constexpr QPoint farAway(195, 145);
constexpr int hideDelayMs = 5;

QTouchDevice *touchScreen()
{
    static QTouchDevice *const device = QTest::createTouchDevice();
    return device;
}

void sendMouse(const QPointer<QWidget> &widget, QEvent::Type type, const QPoint &pos,
               Qt::MouseButton button, Qt::MouseButtons buttons)
{
    if (!widget)
        return;
    QMouseEvent event(type, pos, widget->mapToGlobal(pos), button, buttons, Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &event);
}

void press(const Spot &spot)
{
    sendMouse(spot.viewport, QEvent::MouseButtonPress, spot.pos, Qt::LeftButton, Qt::LeftButton);
}

void release(const Spot &spot, const QPoint &way = QPoint())
{
    sendMouse(spot.viewport, QEvent::MouseButtonRelease, spot.pos + way, Qt::LeftButton,
              Qt::NoButton);
}

void doubleClickPress(const Spot &spot)
{
    sendMouse(spot.viewport, QEvent::MouseButtonDblClick, spot.pos, Qt::LeftButton, Qt::LeftButton);
}

void drag(const Spot &spot, const QPoint &way)
{
    sendMouse(spot.viewport, QEvent::MouseMove, spot.pos + way, Qt::NoButton, Qt::LeftButton);
}

void hover(const Spot &spot, const QPoint &pos)
{
    sendMouse(spot.viewport, QEvent::MouseMove, pos, Qt::NoButton, Qt::NoButton);
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

void tap(const Spot &spot)
{
    press(spot);
    release(spot);
}

// The half second of a long press is not waited for.
void endLongPressTime(const Stage &stage)
{
    for (int i = 0; i < stage.count(); ++i) {
        const QPointer<KELRoundRectControl> control(
            qobject_cast<KELRoundRectControl *>(stage.at(i)));
        if (!control)
            continue;
        const auto timers = QAbstractEventDispatcher::instance()->registeredTimers(control);
        for (const QAbstractEventDispatcher::TimerInfo &timer : timers) {
            QTimerEvent event(timer.timerId);
            if (control)
                QCoreApplication::sendEvent(control, &event);
        }
    }
}

template <class Type>
void endPeriod(const QPointer<Type> &object)
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

// A hide that was scheduled is carried out in here.
void passHideDelay()
{
    QElapsedTimer time;
    time.start();
    while (time.elapsed() <= hideDelayMs + 1)
        QCoreApplication::processEvents();
}

Action gesture(const char *name, const std::function<void(Stage *, const Spot &)> &run)
{
    return {name, true, [](const Stage &stage) { return !stage.spots.isEmpty(); },
            [run](Stage *stage, const Spot *spot) { run(stage, *spot); }};
}

// A gesture on a control that is used in the middle of it.
Action brokenPress(const char *name, const std::function<void(KELRoundRectControl *)> &use)
{
    return {name, true, [](const Stage &stage) { return stage.subject && !stage.spots.isEmpty(); },
            [use](Stage *stage, const Spot *spot) {
                press(*spot);
                if (stage->subject)
                    use(stage->subject);
                QCoreApplication::processEvents();
                release(*spot);
                tap(*spot);
            }};
}

// A call for the first object of the class.
template <class Type>
Action call(const char *name, const std::function<void(Type *)> &run)
{
    return {name, false, [](const Stage &stage) { return stage.find<Type>() != nullptr; },
            [run](Stage *stage, const Spot * /*spot*/) { run(stage->find<Type>()); }};
}

// The same for one that needs other objects.
template <class Type>
Action callWith(const char *name, const std::function<void(Type *, const Stage &)> &run)
{
    return {name, false, [](const Stage &stage) { return stage.find<Type>() != nullptr; },
            [run](Stage *stage, const Spot * /*spot*/) { run(stage->find<Type>(), *stage); }};
}

// A call for the subject, where an object of the class is present.
Action callSubject(const char *name, const std::function<void(KELRoundRectControl *)> &run)
{
    return {name, false, [](const Stage &stage) { return !stage.subject.isNull(); },
            [run](Stage *stage, const Spot * /*spot*/) { run(stage->subject); }};
}

template <class Type>
Action callNamed(const char *name, const char *object, const std::function<void(Type *)> &run)
{
    return {name, false,
            [object](const Stage &stage) { return stage.find<Type>(object) != nullptr; },
            [run, object](Stage *stage, const Spot * /*spot*/) { run(stage->find<Type>(object)); }};
}

// Shown, used and hidden again: also the way back must bear it.
void switchOffAndOn(QGraphicsItem *item, QObject *alive, void (QGraphicsItem::*change)(bool))
{
    const QPointer<QObject> object(alive);
    (item->*change)(false);
    if (object)
        (item->*change)(true);
}

QVector<Action> gestures()
{
    return {
        gesture("mouse tap", [](Stage *, const Spot &spot) { tap(spot); }),
        gesture("touch tap",
                [](Stage *, const Spot &spot) {
                    touch(spot, Qt::TouchPointPressed);
                    touch(spot, Qt::TouchPointReleased);
                }),
        gesture("double click",
                [](Stage *, const Spot &spot) {
                    tap(spot);
                    doubleClickPress(spot);
                    release(spot);
                }),
        gesture("two taps",
                [](Stage *, const Spot &spot) {
                    tap(spot);
                    tap(spot);
                }),
        gesture("two touch taps",
                [](Stage *, const Spot &spot) {
                    for (int n = 0; n < 2; ++n) {
                        touch(spot, Qt::TouchPointPressed);
                        touch(spot, Qt::TouchPointReleased);
                    }
                }),
        gesture("long press",
                [](Stage *stage, const Spot &spot) {
                    press(spot);
                    endLongPressTime(*stage);
                    release(spot);
                }),
        gesture("long touch",
                [](Stage *stage, const Spot &spot) {
                    touch(spot, Qt::TouchPointPressed);
                    endLongPressTime(*stage);
                    touch(spot, Qt::TouchPointReleased);
                }),
        gesture("right click",
                [](Stage *, const Spot &spot) {
                    sendMouse(spot.viewport, QEvent::MouseButtonPress, spot.pos, Qt::RightButton,
                              Qt::RightButton);
                    if (spot.viewport) {
                        QContextMenuEvent event(QContextMenuEvent::Mouse, spot.pos,
                                                spot.viewport->mapToGlobal(spot.pos));
                        QCoreApplication::sendEvent(spot.viewport, &event);
                    }
                    sendMouse(spot.viewport, QEvent::MouseButtonRelease, spot.pos, Qt::RightButton,
                              Qt::NoButton);
                }),
        gesture("drag",
                [](Stage *, const Spot &spot) {
                    press(spot);
                    drag(spot, dragWay);
                    drag(spot, 2 * dragWay);
                    release(spot, 2 * dragWay);
                }),
        gesture("touch drag",
                [](Stage *, const Spot &spot) {
                    touch(spot, Qt::TouchPointPressed);
                    touch(spot, Qt::TouchPointMoved);
                    touch(spot, Qt::TouchPointReleased);
                }),
        gesture("hover",
                [](Stage *, const Spot &spot) {
                    hover(spot, farAway);
                    hover(spot, spot.pos);
                    hover(spot, QPoint(165, 60)); // the neighbour
                    hover(spot, spot.pos);
                    hover(spot, farAway);
                }),
        gesture("hover and leave",
                [](Stage *, const Spot &spot) {
                    hover(spot, spot.pos);
                    QEvent leave(QEvent::Leave);
                    if (spot.viewport)
                        QCoreApplication::sendEvent(spot.viewport, &leave);
                }),
        gesture("press, then the grab is taken",
                [](Stage *stage, const Spot &spot) {
                    press(spot);
                    QGraphicsItem *const grabber = stage->scene ? stage->scene->mouseGrabberItem()
                                                                : nullptr;
                    if (grabber)
                        grabber->ungrabMouse();
                    QCoreApplication::processEvents();
                    release(spot);
                    tap(spot);
                }),
        gesture("press, then the view is hidden",
                [](Stage *stage, const Spot &spot) {
                    press(spot);
                    if (stage->view)
                        stage->view->hide();
                    QCoreApplication::processEvents();
                    release(spot);
                    if (stage->view)
                        stage->view->show();
                    tap(spot);
                }),
        gesture("press, then the scene is cleared",
                [](Stage *stage, const Spot &spot) {
                    press(spot);
                    if (stage->scene)
                        stage->scene->clear();
                    release(spot);
                    tap(spot);
                }),
        gesture("tap and then a press outside",
                [](Stage *, const Spot &spot) {
                    tap(spot);
                    tap({spot.name, spot.viewport, farAway});
                }),
        {"mouse tap, then the hide delay", true,
         [](const Stage &stage) {
             return stage.find<KELNonModalhelper>() || stage.find<KELNonModalDialog>();
         },
         [](Stage * /*stage*/, const Spot *spot) {
             tap(*spot);
             passHideDelay();
         }},
        brokenPress("press, then it is disabled",
                    [](KELRoundRectControl *control) {
                        switchOffAndOn(control, control, &QGraphicsItem::setEnabled);
                    }),
        brokenPress("press, then it is hidden",
                    [](KELRoundRectControl *control) {
                        switchOffAndOn(control, control, &QGraphicsItem::setVisible);
                    }),
        brokenPress("press, then it leaves the scene",
                    [](KELRoundRectControl *control) {
                        if (control->scene())
                            control->scene()->removeItem(control);
                    }),
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
        callSubject("setEnabled",
                    [](KELRoundRectControl *control) {
                        switchOffAndOn(control, control, &QGraphicsItem::setEnabled);
                    }),
        callSubject("setVisible",
                    [](KELRoundRectControl *control) {
                        switchOffAndOn(control, control, &QGraphicsItem::setVisible);
                    }),
        callSubject("setSelected",
                    [](KELRoundRectControl *control) {
                        switchOffAndOn(control, control, &QGraphicsItem::setSelected);
                    }),
        callSubject("the scene gives it up",
                    [](KELRoundRectControl *control) {
                        if (control->scene())
                            control->scene()->removeItem(control);
                    }),
        callSubject("delete", [](KELRoundRectControl *control) { delete control; }),
        callNamed<Wrapper>(
            "its wrapper is disabled", "wrapper",
            [](Wrapper *wrapper) { switchOffAndOn(wrapper, wrapper, &QGraphicsItem::setEnabled); }),
        callNamed<Wrapper>(
            "its wrapper is hidden", "wrapper",
            [](Wrapper *wrapper) { switchOffAndOn(wrapper, wrapper, &QGraphicsItem::setVisible); }),
        callNamed<Wrapper>("its wrapper is deleted", "wrapper",
                           [](Wrapper *wrapper) { delete wrapper; }),
        callWith<Wrapper>("it gets another parent",
                          [](Wrapper *, const Stage &stage) {
                              stage.subject->setParentItem(stage.find<Wrapper>("other wrapper"));
                          }),
        call<QGraphicsScene>("the scene is cleared", [](QGraphicsScene *scene) { scene->clear(); }),
        call<QGraphicsScene>("the scene is deleted", [](QGraphicsScene *scene) { delete scene; }),
        call<QGraphicsView>("the view is deleted", [](QGraphicsView *view) { delete view; }),
        call<KELProcessBar>("setValue of a progress bar",
                            [](KELProcessBar *bar) {
                                const QPointer<KELProcessBar> alive(bar);
                                bar->setValue(40);
                                if (alive)
                                    bar->setValue(100);
                            }),
        call<KELSlideControl>("setValue of a slider",
                              [](KELSlideControl *slider) { slider->setValue(40); }),
        call<Model>("the model changes", [](Model *model) { model->setNumber(1); }),
    };
}

QVector<Action> callsOfGroups()
{
    const auto second = [](const Stage &stage) { return stage.find<KELRadioBox>("second box"); };
    return {
        call<KELRadioBoxGroup>("setId", [](KELRadioBoxGroup *group) { group->setId(1); }),
        callWith<KELRadioBoxGroup>(
            "setCheck of another box",
            [second](KELRadioBoxGroup *, const Stage &stage) { second(stage)->setCheck(true); }),
        callWith<KELRadioBoxGroup>("addRadioBox under the present id",
                                   [second](KELRadioBoxGroup *group, const Stage &stage) {
                                       group->setId(1);
                                       KELRadioBox *const box = second(stage);
                                       delete box;
                                       if (auto *const third = stage.find<KELRadioBox>("third box"))
                                           if (auto *const still = stage.find<KELRadioBoxGroup>())
                                               still->addRadioBox(third, 1);
                                   }),
        callWith<KELRadioBoxGroup>("the group is deleted",
                                   [](KELRadioBoxGroup *group, const Stage &) { delete group; }),
    };
}

QVector<Action> callsOfComboBoxes()
{
    return {
        call<KELComboBox>("setSelectIndex", [](KELComboBox *box) { box->setSelectIndex(1); }),
        call<KELComboBox>("addItem of a combo box",
                          [](KELComboBox *box) { box->addItem(4, u"four"_s); }),
        call<KELComboBox>("removeItem of a combo box",
                          [](KELComboBox *box) {
                              const QPointer<KELComboBoxItem> item(box->items().at(0));
                              box->removeItem(item);
                              delete item;
                          }),
        call<KELComboBox>("clearItem", [](KELComboBox *box) { box->clearItem(); }),
        call<KELComboBox>("bindEnum",
                          [](KELComboBox *box) {
                              box->bindEnum(QMetaEnum::fromType<QGraphicsView::DragMode>());
                          }),
        call<KELComboBox>("setboundRect of a combo box",
                          [](KELComboBox *box) { box->setboundRect(10, 10, 100, 30); }),
        call<KELComboBox>("its button is clicked twice",
                          [](KELComboBox *box) {
                              const QList<QGraphicsItem *> children = box->childItems();
                              for (QGraphicsItem *child : children) {
                                  const QPointer<KELPushButton> button(
                                      qobject_cast<KELPushButton *>(child->toGraphicsObject()));
                                  if (!button)
                                      continue;
                                  Q_EMIT button->mouseClicked();
                                  if (button)
                                      Q_EMIT button->mouseClicked();
                                  return;
                              }
                          }),
        call<KELComboBoxItem>("an entry is deleted", [](KELComboBoxItem *item) { delete item; }),
    };
}

QVector<Action> callsOfTables()
{
    return {
        call<KELNavigationTable>("setSelectIndex of a table",
                                 [](KELNavigationTable *table) { table->setSelectIndex(1); }),
        callWith<KELNavigationTable>(
            "addItem of a table",
            [](KELNavigationTable *table, const Stage &stage) {
                auto *const foreign = stage.find<KELNavigationTableItem>("page of the other");
                auto *const page = foreign ? foreign : new KELNavigationTableItem;
                const QPointer<KELNavigationTableItem> added(page);
                table->addItem(page);
                if (added && !foreign && !added->parentItem())
                    delete added;
            }),
        call<KELNavigationTableItem>("a page is deleted",
                                     [](KELNavigationTableItem *page) { delete page; }),
        call<KELNavigationTableItem>(
            "a page gets no parent",
            [](KELNavigationTableItem *page) { page->setParentItem(nullptr); }),
    };
}

QVector<Action> callsOfViews()
{
    return {
        callWith<KELContentView>("setContent",
                                 [](KELContentView *view, const Stage &stage) {
                                     auto *next = stage.find<KELPushButton>("next content");
                                     if (next)
                                         view->setContent(next);
                                 }),
        callWith<KELContentView>("setContent of a part",
                                 [](KELContentView *view, const Stage &stage) {
                                     view->setContent(
                                         stage.find<KELPushButton>("button on the content"));
                                 }),
        call<KELContentView>("setFocusItem",
                             [](KELContentView *view) {
                                 QGraphicsItem *const content = view->content();
                                 if (!content)
                                     return;
                                 content->setFlag(QGraphicsItem::ItemIsFocusable);
                                 const QPointer<KELContentView> alive(view);
                                 view->setFocusItem(content);
                                 if (alive)
                                     view->setFocusItem(nullptr);
                             }),
        call<KELContentView>("resize", [](KELContentView *view) { view->resize(120, 90); }),
        callWith<KELSideMenu>("addItem of a side menu",
                              [](KELSideMenu *menu, const Stage &stage) {
                                  menu->addItem(stage.find<KELPushButton>("next button"));
                              }),
        call<KELSideMenu>("setSpace", [](KELSideMenu *menu) { menu->setSpace(20); }),
        call<KELSideMenu>("resize of a side menu",
                          [](KELSideMenu *menu) { menu->resize(120, 90); }),
    };
}

QVector<Action> callsOfPanels()
{
    return {
        call<KELNonModalhelper>("the period of a helper ends",
                                [](KELNonModalhelper *helper) {
                                    const QPointer<KELNonModalhelper> alive(helper);
                                    helper->enableTime(10000);
                                    endPeriod(alive);
                                }),
        call<KELNonModalhelper>("show of a helper",
                                [](KELNonModalhelper *helper) {
                                    const QPointer<KELNonModalhelper> alive(helper);
                                    helper->enableTime(10000);
                                    endPeriod(alive);
                                    if (alive)
                                        helper->show();
                                }),
        callWith<KELNonModalhelper>(
            "static show",
            [](KELNonModalhelper *, const Stage &stage) {
                const QPointer<QWidget> panel(stage.find<QWidget>("panel"));
                for (int n = 0; n < 2; ++n) {
                    if (panel)
                        KELNonModalhelper::show(panel, KELNonModalhelper::TriggerParent, true, 500);
                    if (panel)
                        panel->hide();
                }
                delete panel;
            }),
        call<KELNonModalDialog>("showOne",
                                [](KELNonModalDialog *panel) {
                                    const QPointer<KELNonModalDialog> alive(panel);
                                    KELNonModalDialog::showOne(nullptr);
                                    if (alive)
                                        KELNonModalDialog::showOne(panel);
                                }),
        callNamed<KELNonModalDialog>(
            "showOne of the second", "second panel",
            [](KELNonModalDialog *panel) { KELNonModalDialog::showOne(panel); }),
        call<KELNonModalDialog>("the period of a panel ends",
                                [](KELNonModalDialog *panel) {
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
        call<KELDialogBase>("accept", [](KELDialogBase *dialog) { dialog->accept(); }),
        call<KELDialogBase>("reject", [](KELDialogBase *dialog) { dialog->reject(); }),
        call<KELDialogBase>("reject while it shakes",
                            [whileItShakes](KELDialogBase *dialog) {
                                whileItShakes(dialog, [](KELDialogBase *it) { it->reject(); });
                            }),
        call<KELDialogBase>("delete while it shakes",
                            [whileItShakes](KELDialogBase *dialog) {
                                whileItShakes(dialog, [](KELDialogBase *it) { delete it; });
                            }),
        call<KELDialogBase>("another shake",
                            [whileItShakes](KELDialogBase *dialog) {
                                whileItShakes(dialog, [](KELDialogBase *it) {
                                    const QPointer<KELDialogBase> alive(it);
                                    it->dialogShake(-5);
                                    if (alive)
                                        it->view()->scene()->clear();
                                });
                            }),
        call<KELDialogBase>(
            "setBackgroundPixmap",
            [](KELDialogBase *dialog) { dialog->setBackgroundPixmap(QPixmap(30, 30)); }),
        call<KELDialogBase>("the dialog is deleted", [](KELDialogBase *dialog) { delete dialog; }),
    };
}

QVector<Action> callsOfTheRest()
{
    return {
        callWith<KELApplicationNotify>("toNotify",
                                       [](KELApplicationNotify *notify, const Stage &stage) {
                                           QEvent event(QEvent::User);
                                           notify->toNotify(stage.find<QObject>("target"), &event);
                                       }),
        callWith<KELApplicationNotify>("an event for a target",
                                       [](KELApplicationNotify *, const Stage &stage) {
                                           QMouseEvent event(QEvent::MouseButtonPress, QPointF(),
                                                             Qt::LeftButton, Qt::LeftButton,
                                                             Qt::NoModifier);
                                           if (auto *target = stage.find<QObject>("target"))
                                               QCoreApplication::sendEvent(target, &event);
                                       }),
        callWith<KELDataBind>("unbind and bind",
                              [](KELDataBind *, const Stage &stage) {
                                  const QPointer<KELDataBind> binding(
                                      stage.find<KELDataBind>("binding"));
                                  binding->unbind();
                                  if (auto *model = stage.find<Model>())
                                      model->setNumber(1);
                                  if (binding)
                                      binding->bind();
                              }),
        callWith<KELDataBind>("update",
                              [](KELDataBind *, const Stage &stage) {
                                  auto *const model = stage.find<Model>("destination");
                                  stage.find<KELDataBind>("binding")->unbind();
                                  if (model)
                                      model->setNumber(1);
                                  if (auto *binding = stage.find<KELDataBind>("binding"))
                                      binding->update();
                              }),
        callWith<Model>(
            "setBind",
            [](Model *model, const Stage &stage) {
                auto *const third = stage.find<Model>("third model");
                auto *const binding = stage.find<KELDataBind>("binding");
                model->setNumber(1);
                const QPointer<KELDataBind> alive(stage.find<KELDataBind>("binding"));
                auto *const source = stage.find<Model>();
                if (alive && alive == binding && source && stage.find<Model>("third model"))
                    binding->setBind(source, "number", third, "number", KELDataBind::Auto);
            }),
        callWith<Model>("static bind",
                        [](Model *model, const Stage &stage) {
                            if (auto *const third = stage.find<Model>("third model"))
                                KELDataBind::bind(model, "number", third, "number",
                                                  KELDataBind::OneWay);
                        }),
        callWith<Model>("the other side changes",
                        [](Model *, const Stage &stage) {
                            if (auto *const destination = stage.find<Model>("destination"))
                                destination->setNumber(2);
                        }),
        call<Model>("the model is deleted", [](Model *model) { delete model; }),
        call<ConverterHolder>("the holder is deleted",
                              [](ConverterHolder *holder) { delete holder; }),
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
