// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "hands.h"

#include "windowsystem.h"

#include <QtTest/qtestkeyboard.h> // functions that deliver the events of windows
#include <QtTest/qtestmouse.h>
#include <QtTest/qtesttouch.h>
#include <QtWidgets/QApplication>

namespace {

QTouchDevice *touchPanel()
{
    static QTouchDevice *const device = QTest::createTouchDevice();
    return device;
}

} // namespace

using namespace Monkey;

QWindow *Hands::windowOf(QWidget *widget) const
{
    QWindow *const window = widget ? widget->window()->windowHandle() : nullptr;
    return window && window->isVisible() ? window : nullptr;
}

QWindow *Hands::fallback() const
{
    return m_fallback ? m_fallback->windowHandle() : nullptr;
}

void Hands::sendMouse(QEvent::Type type, Qt::MouseButton button)
{
    QWindow *const window = m_window ? m_window.data() : fallback();
    if (!window)
        return;
    qt_handleMouseEvent(window, window->mapFromGlobal(m_screenPos), m_screenPos, m_buttons, button,
                        type, Qt::NoModifier, m_timestamp);
}

void Hands::pressMouse(QWidget *widget, const QPoint &pos, Qt::MouseButton button, bool mayBeDouble)
{
    if (!areEmpty() || !windowOf(widget))
        return;
    m_window = windowOf(widget);
    m_screenPos = widget->mapToGlobal(pos);
    m_buttons = button;
    m_timestamp += mayBeDouble ? 10 : 100000;
    sendMouse(QEvent::MouseButtonPress, button);
}

void Hands::moveMouse(QWidget *widget, const QPoint &pos)
{
    if (!m_fingers.isEmpty() || !windowOf(widget))
        return;
    if (m_buttons == Qt::NoButton)
        m_window = windowOf(widget);
    m_screenPos = widget->mapToGlobal(pos);
    sendMouse(QEvent::MouseMove, Qt::NoButton);
}

void Hands::releaseMouse(Qt::MouseButton button)
{
    if ((m_buttons & button) == 0)
        return;
    m_buttons &= ~Qt::MouseButtons(button);
    sendMouse(QEvent::MouseButtonRelease, button);
}

void Hands::wheel(QWidget *widget, const QPoint &pos, int delta)
{
    if (!windowOf(widget))
        return;
    QWheelEvent event(pos, widget->mapToGlobal(pos), QPoint(), QPoint(0, delta), m_buttons,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(widget, &event);
}

void Hands::key(int key)
{
    const QWidget *const popup = QApplication::activePopupWidget();
    QWindow *const window = popup ? popup->windowHandle() : QGuiApplication::focusWindow();
    const QPointer<QWindow> alive(window ? window : fallback());
    if (!alive)
        return;
    qt_handleKeyEvent(alive, QEvent::KeyPress, key, Qt::NoModifier);
    if (alive)
        qt_handleKeyEvent(alive, QEvent::KeyRelease, key, Qt::NoModifier);
}

void Hands::sendTouch(int finger, Qt::TouchPointState state)
{
    QWindow *const window = m_touchWindow ? m_touchWindow.data() : fallback();
    if (!window)
        return;
    QList<QTouchEvent::TouchPoint> points;
    for (auto it = m_fingers.cbegin(); it != m_fingers.cend(); ++it) {
        QTouchEvent::TouchPoint point(it.key());
        point.setScreenPos(it.value());
        point.setState(it.key() == finger ? state : Qt::TouchPointStationary);
        points.append(point);
    }
    if (state == Qt::TouchPointReleased)
        m_fingers.remove(finger);
    qt_handleTouchEvent(window, touchPanel(), points);
}

void Hands::touch(int finger, QWidget *widget, const QPoint &pos)
{
    if (m_buttons != Qt::NoButton || m_fingers.contains(finger) || !windowOf(widget))
        return;
    if (m_fingers.isEmpty())
        m_touchWindow = windowOf(widget);
    m_fingers.insert(finger, widget->mapToGlobal(pos));
    sendTouch(finger, Qt::TouchPointPressed);
}

void Hands::slide(int finger, QWidget *widget, const QPoint &pos)
{
    if (!m_fingers.contains(finger) || !windowOf(widget))
        return;
    m_fingers.insert(finger, widget->mapToGlobal(pos));
    sendTouch(finger, Qt::TouchPointMoved);
}

void Hands::lift(int finger)
{
    if (m_fingers.contains(finger))
        sendTouch(finger, Qt::TouchPointReleased);
}

void Hands::cancel()
{
    if (m_fingers.isEmpty())
        return;
    m_fingers.clear();
    QWindowSystemInterface::handleTouchCancelEvent<QWindowSystemInterface::SynchronousDelivery>(
        m_touchWindow ? m_touchWindow.data() : fallback(), touchPanel(), Qt::NoModifier);
}

void Hands::releaseAll()
{
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton})
        releaseMouse(button);
    const QList<int> fingers = m_fingers.keys();
    for (const int finger : fingers)
        lift(finger);
}
