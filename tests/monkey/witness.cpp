// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "witness.h"

#include "stage.h"

using namespace Monkey;

Witness::Witness(Stage *stage, KELRoundRectControl *control) :
    QObject(control), m_stage(stage), m_control(control)
{
    connect(control, &KELRoundRectControl::mousePress, this, [this] { press(); });
    connect(control, &KELRoundRectControl::mouseRelease, this, [this] { release(); });
    connect(control, &KELRoundRectControl::mouseClicked, this, [this] { click(); });
    connect(control, &KELRoundRectControl::mouseLongPress, this, [this] { longPress(); });
}

Witness::~Witness()
{
    m_stage->forget(m_control);
}

void Witness::look()
{
    if (!m_control->isEnabled() || !m_control->isVisible() || !m_control->scene()
        || m_control->scene() != m_scene)
        m_isLost = m_isLost || m_isDown;
}

void Witness::press()
{
    constexpr QGraphicsItem::GraphicsItemFlags offers = QGraphicsItem::ItemIsSelectable
        | QGraphicsItem::ItemIsMovable;
    ++m_presses;
    m_isDown = true;
    m_isLost = false;
    m_scene = m_control->scene();
    m_mayStay = (m_control->flags() & offers) == 0;
}

void Witness::release()
{
    m_isDown = false;
    m_mayStay = false;
}

void Witness::click()
{
    if (m_isLost)
        m_stage->fail(QStringLiteral("a click after the pointer was lost"));
    if (++m_clicks + m_longPresses > m_presses)
        m_stage->fail(QStringLiteral("a click without a press"));
}

void Witness::longPress()
{
    if (m_isLost)
        m_stage->fail(QStringLiteral("a long press after the pointer was lost"));
    if (m_clicks + ++m_longPresses > m_presses)
        m_stage->fail(QStringLiteral("a long press without a press"));
}
