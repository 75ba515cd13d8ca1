// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef MONKEY_HANDS_H
#define MONKEY_HANDS_H

#include <QtCore/QMap>
#include <QtCore/QPointer>
#include <QtGui/QTouchEvent>
#include <QtGui/QWindow>
#include <QtWidgets/QWidget>

namespace Monkey {

// The mouse, the touch screen and the keyboard, as a window system reports them. Nobody uses mouse
// and fingers at once, or two buttons.
class Hands
{
public:
    void pressMouse(QWidget *widget, const QPoint &pos, Qt::MouseButton button, bool mayBeDouble);
    void moveMouse(QWidget *widget, const QPoint &pos);
    void releaseMouse(Qt::MouseButton button);
    void wheel(QWidget *widget, const QPoint &pos, int delta);
    void key(int key);

    void touch(int finger, QWidget *widget, const QPoint &pos);
    void slide(int finger, QWidget *widget, const QPoint &pos);
    void lift(int finger);
    void cancel();

    void releaseAll();
    bool areEmpty() const { return m_buttons == Qt::NoButton && m_fingers.isEmpty(); }
    void setFallback(QWidget *window) { m_fallback = window; }

private:
    void sendMouse(QEvent::Type type, Qt::MouseButton button);
    void sendTouch(int finger, Qt::TouchPointState state);
    QWindow *windowOf(QWidget *widget) const;
    QWindow *fallback() const;

    Qt::MouseButtons m_buttons;
    QPoint m_screenPos;
    QPointer<QWindow> m_window; // in which a button went down
    QMap<int, QPoint> m_fingers; // on the screen
    QPointer<QWindow> m_touchWindow;
    QPointer<QWidget> m_fallback;
    int m_timestamp = 1000;
};

} // namespace Monkey

#endif
