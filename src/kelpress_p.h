// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELPRESS_P_H
#define KELPRESS_P_H

#include <QtCore/QBasicTimer>
#include <QtCore/QPointF>

#include <memory>

QT_BEGIN_NAMESPACE
class QGraphicsSceneMouseEvent;
QT_END_NAMESPACE

class KELRoundRectControl;

/*
 * The press of one control, from finger down to finger up. Each pointer event of the control calls
 * the function of the same meaning.
 *
 *  state     | long-press timer | isMouseDown | next
 *  ----------+------------------+-------------+-----------------------------------------------
 *  idle      | stopped          | false       | begin(): may click
 *  may click | runs             | true        | end(): idle, a click;
 *            |                  |             | move() too far, becomeLong(), cancel(): no click
 *  no click  | stopped          | true        | end(): idle
 *  lost      | stopped          | false       | begin(): may click; end(): idle
 *
 * may click and no click become lost when the pointer goes elsewhere. Qt reports a lost mouse grab
 * to QGraphicsItem::sceneEvent() only, which cannot be overridden without breaking the ABI, and not
 * at all when a popup or a dialog takes the release. So the current state is compared with the one
 * in which the press arrived: whenever the control is enabled, disabled, shown or hidden, and on
 * every event-loop iteration.
 *
 * A lost press may leave a stale grab: the scene still targets the control and sends it the next
 * press, wherever that is. Such a press is redelivered to the scene.
 *
 * A press that is ignored, by a control that is not selectable or by a derived class, has no
 * pointer to lose: it stays pressed until the control is disabled or hidden, no longer accepts the
 * button, or is out of its scene at a turn of the event loop.
 */
class KELPress
{
public:
    explicit KELPress(KELRoundRectControl *control);

    // Records the state before the control handles the press. False when the press was misrouted.
    bool arrive(QGraphicsSceneMouseEvent *event);
    void begin(QGraphicsSceneMouseEvent *event);
    // For a control that has neither pressed look nor clicks.
    void beginUnseen(QGraphicsSceneMouseEvent *event);
    void move(const QPointF &pos);
    // True for a click.
    bool end();
    // The press can no longer become a click or a long press.
    void cancel() { m_longPressTimer.stop(); }
    bool isLongPressTimer(int id) const { return id == m_longPressTimer.timerId(); }
    // When the timer fires: false for a press that was lost meanwhile.
    bool becomeLong();

    // True while the pointer belongs to the control.
    bool isHeld() const;
    // True when the pointer went elsewhere. Qt may still send moves.
    bool hasLostPointer() const;
    bool redeliverIfMisrouted(QGraphicsSceneMouseEvent *event);

    // Defined beside the control's private class, which is above this one.
    static KELPress *of(const KELRoundRectControl *control);
    // After the base has handled a press: false for a press of another control, or when a slot
    // deleted this one.
    static bool isOwn(const KELRoundRectControl *control);
    // Last in each handler of a press that runs slots, also in those of derived controls: ends a
    // press that was lost meanwhile, and accepts the event if the control, null when a slot deleted
    // it, or its grab is gone. The scene must not release that grab.
    static void finishDelivery(KELRoundRectControl *control, QGraphicsSceneMouseEvent *event);

    // Of the press that runs, in the control.
    QPointF pos() const;

private:
    Q_DISABLE_COPY(KELPress)

    struct Origin;
    // Origin is incomplete here. This deleter is called only for a press that exists, so a control
    // that is not pressed is destroyed without a call.
    struct DeleteOrigin
    {
        void operator()(Origin *origin) const;
    };

    bool isLost() const;
    bool dropIfLost();
    void stop();
    void watch(const QGraphicsSceneMouseEvent *event);
    void check();
    void recheckGrab();
    void setPressedLook(bool pressed);

    QBasicTimer m_longPressTimer;
    bool m_hasStaleGrab = false;
    bool m_isOwn = false;
    bool m_isSceneTarget = false; // when the press arrived
    KELRoundRectControl *const m_control;
    std::unique_ptr<Origin, DeleteOrigin> m_origin; // while pressed, and so while the timer runs
};

#endif
