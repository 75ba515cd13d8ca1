// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELROUNDRECTCONTROL_P_H
#define KELROUNDRECTCONTROL_P_H

#include "kelcaption_p.h"
#include "kelpresswatch_p.h"
#include "kelroundrectcontrol.h"

#include <QtCore/QBasicTimer>
#include <QtCore/QPointF>
#include <QtCore/QPointer>

#include <memory>

class KELControlPrivate
{
public:
    // What the base's initStyle() returns, and what it makes of a new record.
    static KELRoundRectControlStyle *newStyle();
    static void setDefaults(KELRoundRectControlStyle *style);

    static KELCaption *captionOf(KELRoundRectControl *control) { return &control->d->caption; }

    // True once the pointer went elsewhere, although moves may still arrive.
    bool hasLostPointer() const { return hasStaleGrab || (watch && watch->isLost()); }

    QBasicTimer longPressTimer; // while it runs, the press may still become a click
    QPointF pressPos;
    std::unique_ptr<KELPressWatch> watch; // while pressed
    KELCaption caption;
    bool hasStaleGrab = false; // the pointer was lost, but the scene still sends it here
    bool hasHandedOnPress = false; // the last press was not for this control
};

// Lives while a control's mousePressEvent() runs, and leaves control and event in order whatever slots did.
class KELPressScope
{
public:
    KELPressScope(KELRoundRectControl *control, QGraphicsSceneMouseEvent *event);
    ~KELPressScope();

    bool isControlAlive() const { return !m_control.isNull(); }

    // To be asked after the base has handled the press: false when that gave it to another control, or when a
    // slot deleted the control.
    bool isForControl() const;

    static bool hasLostPointer(const KELRoundRectControl *control);

private:
    Q_DISABLE_COPY(KELPressScope)

    const QPointer<KELRoundRectControl> m_control;
    QGraphicsSceneMouseEvent *const m_event;
    const bool m_grabbed;
};

#endif
