// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "kelveil_p.h"

#include <QtCore/QEvent>
#include <QtWidgets/QGraphicsScene>
#include <QtWidgets/QGraphicsView>

namespace {

constexpr qreal topZValue = 1e9;
int coverCount = 0; // the later one lies above

} // namespace

// What is changed here tells of it: a slot may delete the item, and this with it.
void KELVeil::cover(QGraphicsWidget *item)
{
    uncover();
    const QPointer<QGraphicsWidget> alive(item);
    QGraphicsScene *scene = item->scene();
    m_focused = scene->focusItem() ? scene->focusItem()->toGraphicsObject() : nullptr;
    item->setFlag(QGraphicsItem::ItemIsPanel);
    item->setAcceptedMouseButtons(Qt::AllButtons);
    item->setAcceptHoverEvents(true);
    if (QGraphicsItem *grabber = scene->mouseGrabberItem())
        grabber->ungrabMouse();
    if (alive)
        item->setZValue(topZValue + ++coverCount);
    if (!alive)
        return;
    m_item = item;
    const QList<QGraphicsView *> views = scene->views();
    if (views.isEmpty()) {
        item->setGeometry(scene->sceneRect());
        return;
    }
    m_viewport = views.first()->viewport();
    m_viewport->installEventFilter(this);
    views.first()->installEventFilter(this);
    follow();
}

void KELVeil::uncover()
{
    m_item.clear();
    if (m_viewport) {
        m_viewport->removeEventFilter(this);
        m_viewport->parent()->removeEventFilter(this);
    }
    m_viewport.clear();
}

void KELVeil::returnFocus()
{
    QGraphicsObject *focused = m_focused;
    m_focused.clear();
    if (focused && focused->scene() && !focused->scene()->focusItem())
        focused->setFocus(Qt::PopupFocusReason);
}

void KELVeil::follow()
{
    const auto *view = qobject_cast<QGraphicsView *>(m_viewport->parentWidget());
    if (!view || view->scene() != m_item->scene())
        return;
    const QRectF shown = view->mapToScene(m_viewport->rect()).boundingRect();
    if (shown != m_item->geometry())
        m_item->setGeometry(shown);
}

// A slot may delete the item, and this with it. A key that the item does not take is for nobody.
bool KELVeil::handleKey(QEvent *event)
{
    event->accept();
    QGraphicsScene *scene = m_item->scene();
    if (scene && event->type() != QEvent::ShortcutOverride)
        scene->sendEvent(m_item, event);
    event->accept();
    return true;
}

// A view changes its scale and its scroll bars after it was resized: look when it is about to draw.
bool KELVeil::eventFilter(QObject * /*watched*/, QEvent *event)
{
    if (!m_item)
        return false;
    switch (event->type()) {
    case QEvent::Paint:
        follow();
        return false;
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
        return handleKey(event);
    default:
        return false;
    }
}
