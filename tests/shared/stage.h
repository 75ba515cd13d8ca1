// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef STAGE_H
#define STAGE_H

#include "hand.h"
#include "keltest.h"
#include "signallog.h"

#include <kelpushbutton.h>

#include <QtWidgets/QMenu>

// A parent item that paints nothing and stays out of the way.
class PlainItem : public QGraphicsObject
{
public:
    explicit PlainItem(const QRectF &bounds = QRectF(), QGraphicsItem *parent = nullptr) :
        QGraphicsObject(parent), m_bounds(bounds)
    { }
    QRectF boundingRect() const override { return m_bounds; }
    void paint(QPainter * /*painter*/, const QStyleOptionGraphicsItem * /*option*/,
               QWidget * /*widget*/) override
    { }

private:
    const QRectF m_bounds;
};

enum class Way { Delete, DeleteLater, ClearScene, DeleteParent };
extern const std::vector<Named> deletionWays;

/*
 * An item in a view, with a parent item, beside another one.
 *
 * The hand shows the view at its first event; until then the item can be changed.
 */
class ItemStage
{
public:
    // Takes the items, which have their rectangles, into the scene.
    ItemStage(QGraphicsObject *newItem, QGraphicsObject *newNeighbour);
    ~ItemStage();

    QWidget window; // around the view
    KelTestView view;
    QGraphicsScene otherScene; // which no view shows
    const QPointer<PlainItem> parent;
    const QPointer<QGraphicsObject> item;
    const QPointer<QGraphicsObject> companion;
    std::unique_ptr<QWidget> cover; // over the window
    Hand hand;

private:
    Q_DISABLE_COPY(ItemStage)
};

/*
 * A control in a view, with a parent item, beside another control.
 *
 * The log has the signals of the control, and with "other." those of its companion.
 */
class ControlStage : public ItemStage
{
public:
    // Takes the control, which has its rectangle, into the scene.
    explicit ControlStage(KELRoundRectControl *newControl);
    ~ControlStage();

    QPoint centre() const { return view.centreOf(control); }
    // The viewport position of a point of the control.
    QPoint at(qreal x, qreal y) const { return view.at(control, QPointF(x, y)); }
    QPoint otherCentre() const { return view.centreOf(other); }

    void destroy(Way way);
    // Shows that the scene has forgotten the control: a new one in its place is hovered over and
    // gets a whole tap.
    bool nextControlIsClicked();

    const QPointer<KELRoundRectControl> control;
    const QPointer<KELPushButton> other;
    int destroyCalls = 0;
    SignalLog log;

private:
    Q_DISABLE_COPY(ControlStage)
};

// One of a class: stage->setValue(5).
template <typename Control>
class Stage : public ControlStage
{
public:
    explicit Stage(const QRectF &rect = QRectF(100, 100, 100, 50), Control *made = new Control) :
        ControlStage(placed(made, rect))
    { }

    Control *get() const { return static_cast<Control *>(control.data()); }
    Control *operator->() const { return get(); }
    Control &operator*() const { return *get(); }

private:
    static Control *placed(Control *made, const QRectF &rect)
    {
        made->setboundRect(rect.x(), rect.y(), rect.width(), rect.height());
        return made;
    }
};

// Lets everything happen that waits for the event loop, repaints too.
void letEventsRun();

// A press that lasts: the time of the long press ends now.
void endLongPressTime(QObject *control);
bool hasTimers(QObject *object);

QMenu *newMenu(); // with one action
// Calls look the first time that the menu is open, and closes it later, lest exec() hang.
void whenOpen(QMenu *menu, const std::function<void()> &look);

#endif
