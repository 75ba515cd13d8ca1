// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef WINDOWSYSTEM_H
#define WINDOWSYSTEM_H

#include <QtCore/QEventLoop>
#include <QtGui/QTouchDevice>
#include <QtGui/QWindow>

// What platform plugins call. Qt has no public way to deliver the events of windows or to cancel a
// touch.
class QWindowSystemInterface
{
public:
    struct SynchronousDelivery
    {
    };
    template <typename Delivery>
    static bool handleTouchCancelEvent(QWindow *window, QTouchDevice *device,
                                       Qt::KeyboardModifiers modifiers);
    static bool sendWindowSystemEvents(QEventLoop::ProcessEventsFlags flags);
};

#endif
