// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "kelapplicationnotify.h"

#include <QtCore/QPointer>

KELApplicationNotify::KELApplicationNotify(QObject *parent, QEvent::Type type) :
    QObject(parent), m_type(type)
{ }

KELApplicationNotify::~KELApplicationNotify() = default;

bool KELApplicationNotify::eventFilter(QObject *watched, QEvent *event)
{
    // Promised: an event that arrives ignored is not reported, such as a mouse event that a view
    // sends to its scene. The scene accepts a press before it offers it to an item.
    if (event->type() != m_type || !event->isAccepted())
        return QObject::eventFilter(watched, event);

    const QPointer<QObject> target(watched);
    const bool hadTarget = !target.isNull();
    toNotify(watched, event);
    // Qt must not go on to an object that a slot destroyed.
    return hadTarget && target.isNull();
}

void KELApplicationNotify::toNotify(QObject *watched, QEvent *event)
{
    Q_EMIT notify(watched, event);
}
