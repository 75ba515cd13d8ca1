// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef HAND_H
#define HAND_H

#include "fingers.h"
#include "rows.h"

#include <QtCore/QPointer>

#include <memory>

class KelTestView;

enum class Input { Mouse, Touch };
extern const std::vector<Named> inputs;
extern const std::vector<Named> otherMouseButtons; // than the left one

/*
 * A mouse or a finger on a view: what a test does with either.
 *
 * The view is shown before the first event. Positions are those of the viewport. Another widget, or
 * the viewport of another view, is to be shown by the test.
 */
class Hand
{
public:
    explicit Hand(KelTestView *view, Input input = Input::Mouse);
    explicit Hand(QWidget *target, Input input = Input::Mouse);
    ~Hand();

    // Another one for what follows.
    void use(Input input) { m_input = input; }

    void press(const QPoint &pos, Qt::MouseButton button = Qt::LeftButton);
    // The press of a second tap in the same place.
    void pressAgain(const QPoint &pos);
    void move(const QPoint &pos);
    void release(); // where it is
    void release(const QPoint &pos, Qt::MouseButton button = Qt::LeftButton);
    void tap(const QPoint &pos);
    void doubleTap(const QPoint &pos);
    void drag(const QPoint &from, const QPoint &to, int steps = 4);
    // The window system takes the touch away.
    void cancel();

    // What only a mouse does.
    void hover(const QPoint &pos);
    void openContextMenu(const QPoint &pos);

    // Further fingers: 0 is the one of the functions above.
    Fingers &fingers();

private:
    Q_DISABLE_COPY(Hand)

    bool isReady();
    void sendMouse(QEvent::Type type, const QPoint &pos, Qt::MouseButton button);

    const QPointer<KelTestView> m_view;
    const QPointer<QWidget> m_target;
    Input m_input;
    QPoint m_pos;
    Qt::MouseButtons m_buttons;
    std::unique_ptr<Fingers> m_fingers;
};

// A press as the window system reports it: to the window, which hands it on to a widget in it.
class WindowHand
{
public:
    explicit WindowHand(Input input = Input::Mouse) : m_input(input) { }

    void press(QWindow *window, const QPoint &pos, Qt::MouseButton button = Qt::LeftButton);
    // At a position of the widget.
    void press(QWidget *widget, const QPoint &pos, Qt::MouseButton button = Qt::LeftButton);
    // Where it was pressed, if the window is still there.
    void release();
    void tap(QWidget *widget, const QPoint &pos, Qt::MouseButton button = Qt::LeftButton);

private:
    const Input m_input;
    QPointer<QWindow> m_window;
    QPoint m_pos;
    Qt::MouseButton m_button = Qt::NoButton;
};

#endif
