// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELTOUCHROUTER_P_H
#define KELTOUCHROUTER_P_H

#include <QtCore/QList>
#include <QtCore/QObject>
#include <QtCore/QPoint>
#include <QtCore/QPointer>
#include <QtGui/QTouchEvent>
#include <QtGui/QWindow>
#include <QtWidgets/QGraphicsView>

#include <limits>

QT_BEGIN_NAMESPACE
class QGraphicsSceneMouseEvent;
QT_END_NAMESPACE

class KELRoundRectControl;

/*
 * Turns further fingers, which Qt does not turn into mouse events, into presses, and ends the press
 * of a control when its touch is cancelled.
 *
 * Qt synthesises the mouse from one finger, here the first finger, and sends the others to no
 * widget once the first was ignored. Windows still receive them all. The router filters the
 * application from the first press of a control by a finger until no finger is down; send()
 * delivers the events of further fingers through the control's scene.
 */
class KELTouchRouter : public QObject
{
public:
    ~KELTouchRouter() override;

    // KELPress calls it when the first finger presses a control. Installs the router as a filter of
    // the application.
    static void watchFrom(KELRoundRectControl *control, const QGraphicsSceneMouseEvent *event);

    // True for an event of a further finger.
    static bool isFromFurtherFinger(const QGraphicsSceneMouseEvent *event);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    Q_DISABLE_COPY(KELTouchRouter)

    struct Finger
    {
        int id = -1;
        QPointer<QWindow> window;
        QPointer<KELRoundRectControl> control; // null when the finger presses none
        QPointer<QGraphicsView> view;
        QPoint downScreenPos;
        QPoint lastScreenPos;
    };
    using Points = QList<QTouchEvent::TouchPoint>;

    explicit KELTouchRouter(QObject *parent) : QObject(parent) { }

    void handle(QWindow *window, QEvent::Type type, const Points &points);
    void findFirstFinger(const Points &points);
    bool isFirstFinger(QEvent::Type type, const QTouchEvent::TouchPoint &point);
    void handleFinger(QWindow *window, const QTouchEvent::TouchPoint &point);
    int indexOf(int id) const;
    static Finger fingerOf(QWindow *window, const QTouchEvent::TouchPoint &point);
    static bool send(QEvent::Type type, const Finger &finger, const QPoint &screenPos);
    void cancel(const QWindow *window);
    void watchDeathOf(QWindow *window) const;
    void forgetDeadWindows();
    void stopUnlessNeeded();
    void stop();

    QPointer<KELRoundRectControl> m_firstControl;
    QPointer<QWindow> m_firstWindow; // null while it is unknown
    QPoint m_firstScreenPos; // where it came down
    int m_firstFingerId = unknownId; // Qt keeps it when a release is lost
    int m_lowestFingerId = std::numeric_limits<int>::max();
    bool m_isFirstFingerDown = true;
    QList<Finger> m_fingers;
    // Those of the last event. Kept, so that no other list gets their address.
    Points m_handledPoints;
    const QWindow *m_handledWindow = nullptr; // not used, only compared

    static constexpr int noId = -1;
    static constexpr int unknownId = -2;
};

#endif
