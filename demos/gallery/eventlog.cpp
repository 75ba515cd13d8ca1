// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "eventlog.h"

#include <KELCheckBox>
#include <KELComboBox>
#include <KELProcessBar>
#include <KELRadioBox>
#include <KELSlideControl>
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
    Q_EMIT added(line);
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

void EventLog::watch(KELCheckBox *box, const QString &name)
{
    watchChecks(box, name);
}

void EventLog::watch(KELRadioBox *box, const QString &name)
{
    watchChecks(box, name);
}

void EventLog::watch(KELProcessBar *bar, const QString &name)
{
    watch(static_cast<KELRoundRectControl *>(bar), name);
    connect(bar, &KELProcessBar::valueChanged, this,
            [=] { add(name, QStringLiteral("valueChanged %1").arg(bar->value())); });
    connect(bar, &KELProcessBar::completed, this, [=] { add(name, QStringLiteral("completed")); });
}

void EventLog::watch(KELSlideControl *slider, const QString &name)
{
    watch(static_cast<KELRoundRectControl *>(slider), name);
    connect(slider, &KELSlideControl::valueChanged, this,
            [=] { add(name, QStringLiteral("valueChanged %1").arg(double(slider->value()))); });
}

void EventLog::watch(KELComboBox *box, const QString &name)
{
    watch(static_cast<KELRoundRectControl *>(box), name);
    connect(box, &KELComboBox::selectItemChanged, this,
            [=] { add(name, QStringLiteral("selectItemChanged %1").arg(box->selectIndex())); });
}

void EventLog::watch(KELRadioBoxGroup *group, const QString &name)
{
    connect(group, &KELRadioBoxGroup::idChanged, this,
            [=] { add(name, QStringLiteral("idChanged %1").arg(group->id())); });
}

template <typename Box>
void EventLog::watchChecks(Box *box, const QString &name)
{
    watch(static_cast<KELRoundRectControl *>(box), name);
    connect(box, &Box::checked, this, [=] { add(name, QStringLiteral("checked")); });
    connect(box, &Box::unchecked, this, [=] { add(name, QStringLiteral("unchecked")); });
    connect(box, &Box::checkChanged, this, [=] { add(name, QStringLiteral("checkChanged")); });
}

QStringList EventLog::tail(int count) const
{
    return m_lines.mid(qMax(0, m_lines.size() - count));
}
