// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELPRESSWATCH_P_H
#define KELPRESSWATCH_P_H

#include <QtCore/QMetaObject>
#include <QtCore/QPointer>
#include <QtWidgets/QWidget>

#include <array>
#include <functional>

QT_BEGIN_NAMESPACE
class QGraphicsObject;
class QGraphicsSceneMouseEvent;
QT_END_NAMESPACE

// Lives while a control is pressed and tells whether the pointer still belongs to it.
//
// Qt reports a lost mouse grab to QGraphicsItem::sceneEvent() only, and not at all when the release
// goes to a popup or a dialog. The watch instead compares what is against what was before the press, each
// time the item is enabled, disabled, shown or hidden and each time the event loop goes round.
class KELPressWatch
{
public:
    // Takes down what there is before the item handles the press.
    KELPressWatch(QGraphicsObject *item, const QGraphicsSceneMouseEvent *press);
    ~KELPressWatch();

    // To be called when the item has handled the press: from now on check is called whenever the answer of
    // isLost() may have changed.
    void start(const QGraphicsSceneMouseEvent *press, const std::function<void()> &check);

    // To be called once the press was delivered: a derived item may have accepted it after start().
    void settle();

    bool isLost() const;

    // True when the pointer was lost, but the scene takes the item for the pressed one and is going to
    // send it the next press, wherever that is.
    bool leavesStaleGrab() const;

    // True when the scene sends the pointer to the item, or to a child whose events the item handles.
    static bool holdsGrab(const QGraphicsObject *item);

private:
    Q_DISABLE_COPY(KELPressWatch)

    void watchGrab();
    bool isCovered() const;

    QGraphicsObject *const m_item;
    const Qt::MouseButtons m_button;
    const bool m_grabbed;
    const bool m_grabbedBefore;
    const QPointer<QWidget> m_view;
    const bool m_hadView;
    const QPointer<QWidget> m_popup;
    const QPointer<QWidget> m_modal;
    bool m_hadGrab = false;
    std::function<void()> m_check;
    std::array<QMetaObject::Connection, 3> m_connections;
};

#endif
