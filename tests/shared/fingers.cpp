// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "fingers.h"

#include "windowsystem.h"

QTouchDevice *touchPanel()
{
    static QTouchDevice *const device = QTest::createTouchDevice();
    return device;
}

// The sequence remembers where fingers are that do not move.
Fingers::Fingers(QWidget *target) :
    m_target(target),
    m_sequence(new QTest::QTouchEventSequence(QTest::touchEvent(target, touchPanel(), false)))
{ }

Fingers::~Fingers()
{
    if (!m_target)
        return;
    const QList<int> ids = m_down.keys();
    for (const int id : ids)
        release(id);
}

void Fingers::send(const QSet<int> &changed, const Change &change)
{
    if (!m_target)
        return;
    for (auto it = m_down.cbegin(); it != m_down.cend(); ++it) {
        if (!changed.contains(it.key()))
            m_sequence->stationary(it.key());
    }
    change(m_sequence.get());
    m_sequence->commit();
}

void Fingers::press(int id, const QPoint &pos)
{
    pressIn(m_target, id, pos);
}

void Fingers::pressIn(QWidget *widget, int id, const QPoint &pos)
{
    m_down.insert(id, {pos, widget}); // the press may delete the widget
    send({id}, [&](QTest::QTouchEventSequence *s) { s->press(id, pos, widget); });
}

void Fingers::pressBoth(int id, const QPoint &pos, int otherId, const QPoint &otherPos)
{
    send({id, otherId}, [&](QTest::QTouchEventSequence *s) {
        s->press(id, pos, m_target).press(otherId, otherPos, m_target);
    });
    m_down.insert(id, {pos, m_target});
    m_down.insert(otherId, {otherPos, m_target});
}

void Fingers::move(int id, const QPoint &pos)
{
    Finger &finger = m_down[id];
    finger.pos = pos;
    send({id}, [&](QTest::QTouchEventSequence *s) { s->move(id, pos, finger.widget); });
}

void Fingers::release(int id)
{
    const Finger finger = m_down.take(id);
    send({id}, [&](QTest::QTouchEventSequence *s) { s->release(id, finger.pos, finger.widget); });
}

void Fingers::releaseAt(int id, const QPoint &pos)
{
    m_down[id].pos = pos;
    release(id);
}

void Fingers::releaseAndPress(int released, int pressed, const QPoint &pos)
{
    const QPoint releasePos = m_down.take(released).pos;
    send({released, pressed}, [&](QTest::QTouchEventSequence *s) {
        s->release(released, releasePos, m_target).press(pressed, pos, m_target);
    });
    m_down.insert(pressed, {pos, m_target});
}

void Fingers::tap(int id, const QPoint &pos)
{
    press(id, pos);
    release(id);
}

void Fingers::cancel()
{
    m_down.clear();
    QWindowSystemInterface::handleTouchCancelEvent<QWindowSystemInterface::SynchronousDelivery>(
        m_target ? m_target->window()->windowHandle() : nullptr, touchPanel(), Qt::NoModifier);
}
