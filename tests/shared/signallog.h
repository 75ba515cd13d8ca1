// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef SIGNALLOG_H
#define SIGNALLOG_H

#include <QtCore/QMetaMethod>
#include <QtCore/QObject>
#include <QtCore/QPointF>
#include <QtCore/QStringList>
#include <QtCore/QVariant>

#include <functional>
#include <vector>

/*
 * Writes down the signals of objects, in order, as one readable list: "press release clicked".
 *
 * A signal of the library has its own name; a "mouse" at its beginning is left out. Signals that
 * Qt's classes declare are not written down.
 */
class SignalLog : public QObject
{
public:
    // With a prefix the entries are "prefix.press".
    void listenTo(QObject *object, const QString &prefix = QString());

    // What was written down since the last call, with spaces between: without enter and leave, or
    // with them.
    QString take();
    QString takeWithHover();
    int count(const QString &entry) const { return int(m_entries.count(entry)); }
    const QStringList &entries() const { return m_entries; }
    // The last argument list of a signal that was written down, and all points.
    QVariantList lastArguments() const { return m_arguments; }
    QList<QPointF> takePoints();

    // Calls action whenever this entry has been written down: a slot of the test.
    void on(const QString &entry, const std::function<void()> &action);

    // What comes now is neither written down nor acted on.
    void stop() { m_isStopped = true; }

    int qt_metacall(QMetaObject::Call call, int id, void **arguments) override;

private:
    struct Source
    {
        QString entry;
        std::vector<int> types;
    };
    struct Slot
    {
        QString entry;
        std::function<void()> action;
    };

    std::vector<Source> m_sources;
    std::vector<Slot> m_slots;
    QStringList m_entries;
    QVariantList m_arguments;
    QList<QPointF> m_points;
    bool m_isStopped = false;
};

#endif
