// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "kelkinetic_p.h"

#include "kelmotion.h"

#include <QtCore/QRectF>
#include <QtGui/qevent.h>
#include <QtWidgets/QScroller>
#include <QtWidgets/QScrollerProperties>

#include <algorithm>

namespace {

constexpr qint64 sampleMs = 100; // older ones say nothing about the speed now
constexpr qint64 restMs = 60; // a finger that has not moved for so long rests
constexpr qreal leastSpeed = 0.05; // px/ms
constexpr int feedMs = 16;
constexpr int backMs = 250;
constexpr qreal mostMetresPerSecond = 1.2;
constexpr qreal deceleration = 0.4; // m/s²

qreal bounded(qreal position, int greatest)
{
    return qBound<qreal>(0, position, greatest);
}

} // namespace

KELKinetic::KELKinetic(Client *client) : m_client(client)
{
    m_clock.start();
    QScroller *const scroller = QScroller::scroller(this);
    QScrollerProperties properties = scroller->scrollerProperties();
    properties.setScrollMetric(QScrollerProperties::DragStartDistance, 0);
    properties.setScrollMetric(QScrollerProperties::DragVelocitySmoothingFactor, 1);
    properties.setScrollMetric(QScrollerProperties::MinimumVelocity, 0);
    properties.setScrollMetric(QScrollerProperties::MaximumVelocity, mostMetresPerSecond);
    properties.setScrollMetric(QScrollerProperties::DecelerationFactor, deceleration);
    properties.setScrollMetric(QScrollerProperties::AcceleratingFlickMaximumTime, 0);
    properties.setScrollMetric(QScrollerProperties::HorizontalOvershootPolicy,
                               QScrollerProperties::OvershootAlwaysOff);
    scroller->setScrollerProperties(properties);
}

void KELKinetic::dispose()
{
    m_client = nullptr;
    if (m_isInEvent || isGliding())
        deleteLater();
    else
        delete this;
}

bool KELKinetic::isGliding() const
{
    return m_back.isMoving()
        || QScroller::scroller(const_cast<KELKinetic *>(this))->state() != QScroller::Inactive;
}

// Without a signal to the client, which knows.
void KELKinetic::stop()
{
    Client *const client = m_client;
    m_client = nullptr;
    m_back.stop();
    if (isGliding())
        QScroller::scroller(this)->stop();
    m_client = client;
}

void KELKinetic::tellRest()
{
    if (m_client)
        m_client->rested();
}

void KELKinetic::grab(qreal finger)
{
    m_origin = m_client->position() + finger;
    m_sampleCount = 0;
    follow(finger);
}

void KELKinetic::follow(qreal finger)
{
    if (m_sampleCount == 4)
        std::move(m_samples + 1, m_samples + 4, m_samples);
    else
        ++m_sampleCount;
    m_samples[m_sampleCount - 1] = {m_clock.elapsed(), finger};
    const qreal wanted = m_origin - finger;
    const qreal inside = bounded(wanted, m_client->greatestPosition());
    // Beyond its ends it goes half the way.
    m_client->moveTo(qRound(inside + (wanted - inside) / 2));
}

qreal KELKinetic::speed() const
{
    const qint64 now = m_clock.elapsed();
    const Sample &last = m_samples[m_sampleCount - 1];
    const Sample *first = m_samples;
    while (first != &last && last.ms - first->ms > sampleMs)
        ++first;
    if (first == &last || now - last.ms > restMs)
        return 0;
    return (last.finger - first->finger) / qMax<qint64>(1, last.ms - first->ms);
}

void KELKinetic::letGo()
{
    const int position = m_client->position();
    const qreal pxPerMs = speed();
    m_shift = 0;
    if (position != int(bounded(position, m_client->greatestPosition()))) {
        glideBack();
        return;
    }
    if (!KELMotion::isEnabled() || qAbs(pxPerMs) < leastSpeed) {
        m_client->rested();
        return;
    }
    QScroller *const scroller = QScroller::scroller(this);
    const qint64 now = m_clock.elapsed();
    const qreal step = pxPerMs * feedMs;
    scroller->handleInput(QScroller::InputPress, QPointF(), now);
    scroller->handleInput(QScroller::InputMove, QPointF(0, step), now + feedMs);
    scroller->handleInput(QScroller::InputRelease, QPointF(0, 2 * step), now + 2 * feedMs);
    if (!isGliding() && m_client)
        m_client->rested();
}

// From beyond an end.
void KELKinetic::glideBack()
{
    m_end = int(bounded(m_client->position(), m_client->greatestPosition()));
    m_back.setValue(m_client->position() - m_end);
    m_back.glideTo(0, backMs, this);
    moveBack();
}

void KELKinetic::moveBack()
{
    const bool wasInEvent = m_isInEvent;
    m_isInEvent = true;
    m_client->moveTo(m_end + qRound(m_back.value()));
    if (!m_back.isMoving())
        tellRest();
    m_isInEvent = wasInEvent;
}

void KELKinetic::timerEvent(QTimerEvent *event)
{
    if (!m_back.tick(event->timerId()))
        QObject::timerEvent(event);
    else if (m_client)
        moveBack();
}

void KELKinetic::shift(int by)
{
    m_origin += by;
    m_shift += by;
}

bool KELKinetic::event(QEvent *event)
{
    if (!m_client)
        return QObject::event(event);
    if (event->type() == QEvent::ScrollPrepare) {
        auto *const prepare = static_cast<QScrollPrepareEvent *>(event);
        prepare->setViewportSize(QSizeF(1, m_client->extent()));
        prepare->setContentPosRange(QRectF(0, 0, 0, m_client->greatestPosition()));
        prepare->setContentPos(QPointF(0, m_client->position()));
        prepare->accept();
        return true;
    }
    if (event->type() == QEvent::Scroll) {
        const auto *const scroll = static_cast<QScrollEvent *>(event);
        const qreal position = scroll->contentPos().y() + scroll->overshootDistance().y();
        const bool isLast = scroll->scrollState() == QScrollEvent::ScrollFinished;
        event->accept();
        m_isInEvent = true;
        m_client->moveTo(qRound(position) + m_shift);
        if (isLast)
            tellRest();
        m_isInEvent = false;
        return true;
    }
    return QObject::event(event);
}
