// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "stage.h"

#include <QtCore/QAbstractEventDispatcher>
#include <QtCore/QTimer>

namespace {

KELPushButton *newNeighbour()
{
    auto *button = new KELPushButton;
    button->setboundRect(280, 220, 100, 50);
    return button;
}

} // namespace

const std::vector<Named> deletionWays = {{"delete", int(Way::Delete)},
                                         {"deleteLater", int(Way::DeleteLater)},
                                         {"scene cleared", int(Way::ClearScene)},
                                         {"parent deleted", int(Way::DeleteParent)}};

ItemStage::ItemStage(QGraphicsObject *newItem, QGraphicsObject *newNeighbour) :
    parent(new PlainItem), item(newItem), companion(newNeighbour), hand(&view)
{
    window.setWindowFlags(Qt::FramelessWindowHint);
    window.resize(view.size());
    view.setParent(&window);
    item->setParentItem(parent);
    view.ownScene.addItem(parent);
    view.ownScene.addItem(companion);
}

ItemStage::~ItemStage()
{
    if (item && item->scene() != &view.ownScene)
        delete item;
    if (parent && parent->scene() != &view.ownScene)
        delete parent;
    view.ownScene.clear();
}

ControlStage::ControlStage(KELRoundRectControl *newControl) :
    ItemStage(newControl, newNeighbour()),
    control(newControl),
    other(static_cast<KELPushButton *>(companion.data()))
{
    log.listenTo(control);
    log.listenTo(other, QStringLiteral("other"));
}

// What is still pressed must not call the slots of a test that is over.
ControlStage::~ControlStage()
{
    log.stop();
}

void ControlStage::destroy(Way way)
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
        delete parent;
        break;
    }
}

bool ControlStage::nextControlIsClicked()
{
    QCoreApplication::processEvents();
    auto *next = new KELPushButton;
    next->setboundRect(100, 100, 100, 50);
    next->setZValue(1);
    view.ownScene.addItem(next);
    const QSignalSpy clicked(next, &KELRoundRectControl::mouseClicked);
    hand.hover(QPoint(1, 1));
    hand.hover(view.centreOf(next));
    hand.tap(view.centreOf(next));
    view.grab();
    return clicked.count() == 1;
}

void letEventsRun()
{
    for (int i = 0; i < 5; ++i)
        QCoreApplication::processEvents();
}

bool hasTimers(QObject *object)
{
    return !QAbstractEventDispatcher::instance()->registeredTimers(object).isEmpty();
}

void endLongPressTime(QObject *control)
{
    const auto timers = QAbstractEventDispatcher::instance()->registeredTimers(control);
    QCOMPARE(timers.size(), 1);
    QTimerEvent event(timers.first().timerId);
    QCoreApplication::sendEvent(control, &event);
}

QMenu *newMenu()
{
    auto *menu = new QMenu;
    menu->addAction(QStringLiteral("One"));
    return menu;
}

void whenOpen(QMenu *menu, const std::function<void()> &look)
{
    auto *timer = new QTimer(menu);
    timer->setInterval(10);
    QObject::connect(timer, &QTimer::timeout, menu, [menu, look, isFirst = true]() mutable {
        if (!menu->isVisible())
            return;
        // Open for a turn of the event loop, however slow the machine is, as a menu for people is.
        if (std::exchange(isFirst, false))
            look();
        else
            menu->close();
    });
    timer->start();
}
