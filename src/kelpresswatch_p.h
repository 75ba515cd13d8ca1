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
// goes to a popup or a dialog. The watch instead compares what is against what was at the press, each
// time the item is enabled, disabled, shown or hidden and each time the event loop goes round.
class KELPressWatch
{
public:
    KELPressWatch(QGraphicsObject *item, const QGraphicsSceneMouseEvent *press);
    ~KELPressWatch();

    // Calls check whenever the answer of isLost() may have changed.
    void start(const std::function<void()> &check);

    bool isLost() const;

    // True when the scene sends the pointer to the item or to one of its children.
    static bool holdsGrab(const QGraphicsObject *item);

private:
    Q_DISABLE_COPY(KELPressWatch)

    bool isViewGone() const;
    bool isCovered() const;

    QGraphicsObject *const m_item;
    const bool m_hadGrab;
    const bool m_hadView;
    const QPointer<QWidget> m_view;
    const QPointer<QWidget> m_popup;
    const QPointer<QWidget> m_modal;
    std::array<QMetaObject::Connection, 3> m_connections;
};

#endif
