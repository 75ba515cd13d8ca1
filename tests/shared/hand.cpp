// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "hand.h"

#include "keltest.h"

#include <QtGui/QContextMenuEvent>

const std::vector<Named> inputs = {{"mouse", int(Input::Mouse)}, {"touch", int(Input::Touch)}};
const std::vector<Named> otherMouseButtons = {
    {"right", Qt::RightButton}, {"middle", Qt::MiddleButton}, {"back", Qt::BackButton}};

Hand::Hand(KelTestView *view, Input input) :
    m_view(view), m_target(view->viewport()), m_input(input)
{ }

Hand::Hand(QWidget *target, Input input) : m_target(target), m_input(input) { }

Hand::~Hand() = default;

bool Hand::isReady()
{
    if (m_view)
        m_view->showOnce();
    return m_target;
}

Fingers &Hand::fingers()
{
    if (!m_fingers && isReady())
        m_fingers = std::make_unique<Fingers>(m_target);
    return *m_fingers;
}

// QTest::mousePress() complains of a press that nobody takes, and QTest::mouseMove() holds no
// button.
void Hand::sendMouse(QEvent::Type type, const QPoint &pos, Qt::MouseButton button)
{
    if (!isReady())
        return;
    m_pos = pos;
    QMouseEvent event(type, pos, m_target->mapToGlobal(pos), button, m_buttons, Qt::NoModifier);
    QSpontaneKeyEvent::setSpontaneous(&event);
    QCoreApplication::sendEvent(m_target, &event);
}

void Hand::press(const QPoint &pos, Qt::MouseButton button)
{
    m_pos = pos;
    if (m_input == Input::Touch) {
        if (isReady())
            fingers().press(0, pos);
        return;
    }
    m_buttons |= button;
    sendMouse(QEvent::MouseButtonPress, pos, button);
}

void Hand::pressAgain(const QPoint &pos)
{
    if (m_input == Input::Touch) {
        press(pos); // Qt finds out
        return;
    }
    m_buttons |= Qt::LeftButton;
    sendMouse(QEvent::MouseButtonDblClick, pos, Qt::LeftButton);
}

void Hand::move(const QPoint &pos)
{
    m_pos = pos;
    if (m_input == Input::Touch)
        fingers().move(0, pos);
    else
        sendMouse(QEvent::MouseMove, pos, Qt::NoButton);
}

void Hand::release()
{
    release(m_pos);
}

void Hand::release(const QPoint &pos, Qt::MouseButton button)
{
    if (m_input == Input::Touch) {
        fingers().releaseAt(0, pos);
        return;
    }
    m_buttons &= ~Qt::MouseButtons(button);
    sendMouse(QEvent::MouseButtonRelease, pos, button);
}

void Hand::tap(const QPoint &pos)
{
    press(pos);
    release(pos);
}

void Hand::doubleTap(const QPoint &pos)
{
    tap(pos);
    pressAgain(pos);
    release(pos);
}

void Hand::drag(const QPoint &from, const QPoint &to, int steps)
{
    press(from);
    for (int i = 1; i <= steps; ++i)
        move(from + (to - from) * i / steps);
    release(to);
}

void Hand::cancel()
{
    fingers().cancel();
}

void Hand::hover(const QPoint &pos)
{
    sendMouse(QEvent::MouseMove, pos, Qt::NoButton);
}

void Hand::openContextMenu(const QPoint &pos)
{
    if (!isReady())
        return;
    QContextMenuEvent event(QContextMenuEvent::Mouse, pos, m_target->mapToGlobal(pos));
    QCoreApplication::sendEvent(m_target, &event);
}

void WindowHand::press(QWindow *window, const QPoint &pos, Qt::MouseButton button)
{
    m_window = window;
    m_pos = pos;
    m_button = button;
    if (m_input == Input::Touch)
        QTest::touchEvent(window, touchPanel()).press(0, pos, window);
    else
        QTest::mousePress(window, button, Qt::NoModifier, pos);
}

void WindowHand::press(QWidget *widget, const QPoint &pos, Qt::MouseButton button)
{
    QWidget *const native = widget->windowHandle() ? widget : widget->nativeParentWidget();
    press(native->windowHandle(), widget->mapTo(native, pos), button);
}

void WindowHand::release()
{
    if (!m_window)
        return;
    if (m_input == Input::Touch)
        QTest::touchEvent(m_window, touchPanel()).release(0, m_pos, m_window);
    else
        QTest::mouseRelease(m_window, m_button, Qt::NoModifier, m_pos);
}

void WindowHand::tap(QWidget *widget, const QPoint &pos, Qt::MouseButton button)
{
    press(widget, pos, button);
    release();
}
