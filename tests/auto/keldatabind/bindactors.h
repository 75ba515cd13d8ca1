// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef BINDACTORS_H
#define BINDACTORS_H

#include <keldatabind.h>

#include <QtCore/QEvent>
#include <QtCore/QMetaMethod>
#include <QtCore/QPointer>

#include <functional>
#include <utility>

using Hook = std::function<void()>;

// Once. The owner of the hook may be gone afterwards.
inline void run(Hook *hook)
{
    const Hook once = std::exchange(*hook, nullptr);
    if (once)
        once();
}

// Reads, writes, emits and is connected like any object, and lets the test in between.
class Actor : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int value READ value WRITE setValue NOTIFY valueChanged)

public:
    explicit Actor(int value) : m_value(value) { }

    int value() const
    {
        const int value = m_value;
        run(&onRead);
        return value;
    }
    void setValue(int value)
    {
        const QPointer<Actor> alive(this);
        const bool changed = std::exchange(m_value, value) != value;
        ++writes;
        run(&onWrite);
        if (alive && changed)
            Q_EMIT valueChanged();
    }
    void setSilently(int value) { m_value = value; }
    int connections() const { return receivers(SIGNAL(valueChanged())); }

    mutable Hook onRead;
    Hook onWrite;
    Hook onConnect;
    Hook onPropertyEvent; // of a dynamic property
    int writes = 0;

Q_SIGNALS:
    void valueChanged();

protected:
    void connectNotify(const QMetaMethod &signal) override
    {
        if (signal == QMetaMethod::fromSignal(&Actor::valueChanged))
            run(&onConnect);
    }
    bool event(QEvent *event) override
    {
        if (event->type() != QEvent::DynamicPropertyChange)
            return QObject::event(event);
        run(&onPropertyEvent);
        return true;
    }

private:
    int m_value;
};

QT_WARNING_PUSH
QT_WARNING_DISABLE_GCC("-Wnon-virtual-dtor")
QT_WARNING_DISABLE_CLANG("-Wnon-virtual-dtor")

class HookedConverter final : public IKELValueConverter
{
public:
    QVariant Convert(QObject *object, const QVariant &value) override
    {
        return converted(object, value.toInt() + 100);
    }
    QVariant ConvertBack(QObject *object, const QVariant &value) override
    {
        return converted(object, value.toInt() + addedBack);
    }

    Hook onConvert; // at the call of that number
    int hookedCall = 1;
    int calls = 0;
    int addedBack = -100;
    bool isCalledWithoutObject = false;

private:
    QVariant converted(const QObject *object, int value)
    {
        isCalledWithoutObject |= !object;
        if (++calls == hookedCall)
            run(&onConvert);
        return value;
    }
};

QT_WARNING_POP

#endif
