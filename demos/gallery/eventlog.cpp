// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "eventlog.h"

#include <KELRoundRectControl>
#include <QtCore/QFileDevice>
#include <QtCore/QPointF>

namespace {

constexpr int keptLines = 64;

QString withPosition(const char *signal, const QPointF &pos)
{
    return QStringLiteral("%1 (%2, %3)")
        .arg(QLatin1String(signal))
        .arg(qRound(pos.x()))
        .arg(qRound(pos.y()));
}

} // namespace

EventLog::EventLog(QIODevice *file, QObject *parent) : QObject(parent), m_file(file)
{
    m_clock.start();
}

void EventLog::add(const QString &control, const QString &signal)
{
    const double seconds = double(m_clock.elapsed()) / 1000;
    const QString line = QString::number(seconds, 'f', 3) + QLatin1Char(' ') + control
        + QLatin1String(": ") + signal;
    if (m_lines.size() == keptLines)
        m_lines.removeFirst();
    m_lines.append(line);
    if (m_file) {
        m_file->write(line.toUtf8() + '\n');
        if (auto *device = qobject_cast<QFileDevice *>(m_file))
            device->flush();
    }
    Q_EMIT changed();
}

void EventLog::watch(KELRoundRectControl *control, const QString &name)
{
    const auto plain = [=](void (KELRoundRectControl::*signal)(), const char *text) {
        connect(control, signal, this, [=] { add(name, QLatin1String(text)); });
    };
    const auto positioned = [=](void (KELRoundRectControl::*signal)(const QPointF &),
                                const char *text) {
        connect(control, signal, this,
                [=](const QPointF &pos) { add(name, withPosition(text, pos)); });
    };
    positioned(&KELRoundRectControl::mousePress, "mousePress");
    positioned(&KELRoundRectControl::mouseRelease, "mouseRelease");
    plain(&KELRoundRectControl::mouseClicked, "mouseClicked");
    plain(&KELRoundRectControl::mouseDoubleClicked, "mouseDoubleClicked");
    plain(&KELRoundRectControl::mouseLongPress, "mouseLongPress");
    plain(&KELRoundRectControl::mouseEnter, "mouseEnter");
    plain(&KELRoundRectControl::mouseLeave, "mouseLeave");
}

QStringList EventLog::tail(int count) const
{
    return m_lines.mid(qMax(0, m_lines.size() - count));
}
