// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "signallog.h"

#include <QtCore/QRegularExpression>

#include <utility>

namespace {

// The first method that is not of a class of Qt.
int firstOwnMethod(const QMetaObject *meta)
{
    while (meta->className()[0] != 'Q')
        meta = meta->superClass();
    return meta->methodCount();
}

QString entryOf(const QMetaMethod &signal, const QString &prefix)
{
    QString name = QString::fromLatin1(signal.name());
    if (name.startsWith(QLatin1String("mouse"))) {
        name.remove(0, 5);
        name[0] = name.at(0).toLower();
    }
    return prefix.isEmpty() ? name : prefix + QLatin1Char('.') + name;
}

} // namespace

void SignalLog::listenTo(QObject *object, const QString &prefix)
{
    const QMetaObject *const meta = object->metaObject();
    for (int i = firstOwnMethod(meta); i < meta->methodCount(); ++i) {
        const QMetaMethod method = meta->method(i);
        if (method.methodType() != QMetaMethod::Signal)
            continue;
        Source source{entryOf(method, prefix), {}};
        for (int parameter = 0; parameter < method.parameterCount(); ++parameter)
            source.types.push_back(method.parameterType(parameter));
        // As QSignalSpy does it: slots without a declaration come after those of QObject.
        const int slot = QObject::staticMetaObject.methodCount() + int(m_sources.size());
        m_sources.push_back(source);
        QMetaObject::connect(object, i, this, slot, Qt::DirectConnection, nullptr);
    }
}

int SignalLog::qt_metacall(QMetaObject::Call call, int id, void **arguments)
{
    id = QObject::qt_metacall(call, id, arguments);
    if (id < 0 || call != QMetaObject::InvokeMetaMethod || m_isStopped)
        return id;
    const Source source = m_sources.at(size_t(id));
    m_entries.append(source.entry);
    m_arguments.clear();
    for (size_t i = 0; i < source.types.size(); ++i) {
        const int type = source.types[i];
        m_arguments.append(type == QMetaType::UnknownType ? QVariant()
                                                          : QVariant(type, arguments[i + 1]));
        if (type == QMetaType::QPointF)
            m_points.append(m_arguments.last().toPointF());
    }
    const std::vector<Slot> slotsNow = m_slots; // one may add another
    for (const Slot &slot : slotsNow) {
        if (slot.entry == source.entry)
            slot.action();
    }
    return -1;
}

QString SignalLog::take()
{
    const QRegularExpression notHover(QStringLiteral("(?<!enter)(?<!leave)$"));
    m_entries = m_entries.filter(notHover);
    return takeWithHover();
}

QString SignalLog::takeWithHover()
{
    return std::exchange(m_entries, QStringList()).join(QLatin1Char(' '));
}

QList<QPointF> SignalLog::takePoints()
{
    return std::exchange(m_points, QList<QPointF>());
}

void SignalLog::on(const QString &entry, const std::function<void()> &action)
{
    m_slots.push_back({entry, action});
}
