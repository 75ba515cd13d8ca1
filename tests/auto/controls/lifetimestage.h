// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef LIFETIMESTAGE_H
#define LIFETIMESTAGE_H

#include "controlclasses.h"
#include "keltest.h"

#include <QtCore/QAbstractEventDispatcher>
#include <QtCore/QPointer>

#include <algorithm>
#include <functional>
#include <vector>

// A class, and the base once more with the flag that makes it keep a press.
struct Kind
{
    const char *name;
    const QMetaObject *meta;
    KELRoundRectControl *(*create)(QGraphicsObject *parent);
    bool isSelectable;

    bool is(const QMetaObject &other) const { return meta == &other; }
};

enum class Signal { Press, Release, Clicked, SecondPress, DoubleClicked, LongPress, Enter, Leave };
enum class Way { Delete, DeleteLater, ClearScene, DeleteParent };
enum class Input { Mouse, Touch };

inline const QPoint controlCentre(150, 125);
inline const QPoint besideTheControl(20, 20);

// Moves the mouse with no button held.
inline void hoverOver(const QGraphicsView &view, const QPoint &pos)
{
    QMouseEvent event(QEvent::MouseMove, pos, view.viewport()->mapToGlobal(pos), Qt::NoButton,
                      Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(view.viewport(), &event);
}

inline const std::vector<Kind> &kinds()
{
    static const std::vector<Kind> all = [] {
        std::vector<Kind> found;
        forEachControl([&found](auto tag) {
            using Control = typename decltype(tag)::Type;
            const QMetaObject &meta = Control::staticMetaObject;
            found.push_back({meta.className(), &meta,
                             [](QGraphicsObject *parent) -> KELRoundRectControl * {
                                 return new Control(parent);
                             },
                             Control().flags().testFlag(QGraphicsItem::ItemIsSelectable)});
        });
        found.push_back({"selectable base", &KELRoundRectControl::staticMetaObject,
                         [](QGraphicsObject *parent) { return new KELRoundRectControl(parent); },
                         true});
        return found;
    }();
    return all;
}

template <typename Control>
const Kind &kindOf()
{
    return *std::find_if(kinds().begin(), kinds().end(),
                         [](const Kind &kind) { return kind.is(Control::staticMetaObject); });
}

inline KELRoundRectControl *makeControl(const Kind &kind, QGraphicsObject *parent)
{
    KELRoundRectControl *control = kind.create(parent);
    control->setAcceptHoverEvents(true);
    control->setAcceptTouchEvents(true);
    control->setFlag(QGraphicsItem::ItemIsSelectable, kind.isSelectable);
    control->setboundRect(100, 100, 100, 50);
    return control;
}

// A parent item that stays out of the way.
class Group : public QGraphicsObject
{
public:
    QRectF boundingRect() const override { return QRectF(); }
    void paint(QPainter *, const QStyleOptionGraphicsItem *, QWidget *) override { }
};

// A control in a view, above another one that takes every press as well.
class Stage
{
public:
    explicit Stage(const Kind &kind) : group(new Group), below(new KELPushButton), control(nullptr)
    {
        below->setboundRect(90, 90, 120, 70);
        view.ownScene.addItem(below);
        view.ownScene.addItem(group);
        control = makeControl(kind, group);
    }

    void destroy(Way way)
    {
        ++destroyCalls;
        switch (way) {
        case Way::Delete:
            delete control;
            break;
        case Way::DeleteLater:
            control->deleteLater();
            break;
        case Way::ClearScene:
            view.ownScene.clear();
            break;
        case Way::DeleteParent:
            delete group;
            break;
        }
    }

    void press(Input input, const QPoint &pos = controlCentre)
    {
        if (input == Input::Touch)
            view.touchPress(pos);
        else
            view.press(pos);
    }

    void release(Input input, const QPoint &pos = controlCentre)
    {
        if (input == Input::Touch)
            view.touchRelease(pos);
        else
            view.release(pos);
    }

    void hover(const QPoint &pos) { hoverOver(view, pos); }

    // The half second of a long press is waited for in some rows only.
    void endLongPressTime()
    {
        const auto timers = QAbstractEventDispatcher::instance()->registeredTimers(control);
        QCOMPARE(timers.size(), 1);
        QTimerEvent event(timers.first().timerId);
        QCoreApplication::sendEvent(control, &event);
    }

    void openMenuByEvent()
    {
        QContextMenuEvent event(QContextMenuEvent::Mouse, controlCentre,
                                view.viewport()->mapToGlobal(controlCentre));
        QCoreApplication::sendEvent(view.viewport(), &event);
    }

    // Shows that the scene has forgotten the dead control: a new one in its place gets one whole
    // tap.
    bool nextControlIsClicked(Input input)
    {
        QCoreApplication::processEvents();
        auto *next = new KELPushButton;
        next->setboundRect(100, 100, 100, 50);
        next->setZValue(1);
        view.ownScene.addItem(next);
        const QSignalSpy clicked(next, &KELRoundRectControl::mouseClicked);
        hover(besideTheControl);
        hover(controlCentre);
        press(input);
        release(input);
        view.grab();
        return clicked.count() == 1;
    }

    KelTestView view;
    QPointer<Group> group;
    QPointer<KELPushButton> below;
    QPointer<KELRoundRectControl> control;
    int destroyCalls = 0;
};

inline void connectTo(KELRoundRectControl *control, Signal signal, QObject *context,
                      const std::function<void()> &slot)
{
    const auto connectSignal = [&](auto pointer) {
        QObject::connect(control, pointer, context, [slot] { slot(); });
    };
    switch (signal) {
    case Signal::Press:
    case Signal::SecondPress:
        return connectSignal(&KELRoundRectControl::mousePress);
    case Signal::Release:
        return connectSignal(&KELRoundRectControl::mouseRelease);
    case Signal::Clicked:
        return connectSignal(&KELRoundRectControl::mouseClicked);
    case Signal::DoubleClicked:
        return connectSignal(&KELRoundRectControl::mouseDoubleClicked);
    case Signal::LongPress:
        return connectSignal(&KELRoundRectControl::mouseLongPress);
    case Signal::Enter:
        return connectSignal(&KELRoundRectControl::mouseEnter);
    case Signal::Leave:
        return connectSignal(&KELRoundRectControl::mouseLeave);
    }
}

struct Named
{
    const char *name;
    int value;
};

inline const Named ways[] = {{"delete", int(Way::Delete)},
                             {"deleteLater", int(Way::DeleteLater)},
                             {"scene cleared", int(Way::ClearScene)},
                             {"parent deleted", int(Way::DeleteParent)}};
inline const Named inputs[] = {{"mouse", int(Input::Mouse)}, {"touch", int(Input::Touch)}};
inline const Named signalNames[] = {{"press", int(Signal::Press)},
                                    {"release", int(Signal::Release)},
                                    {"clicked", int(Signal::Clicked)},
                                    {"press of a double click", int(Signal::SecondPress)},
                                    {"double clicked", int(Signal::DoubleClicked)},
                                    {"long press", int(Signal::LongPress)},
                                    {"enter", int(Signal::Enter)},
                                    {"leave", int(Signal::Leave)}};

#endif
