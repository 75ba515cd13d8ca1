// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef EVENTLOG_H
#define EVENTLOG_H

#include <QtCore/QElapsedTimer>
#include <QtCore/QObject>
#include <QtCore/QStringList>

QT_BEGIN_NAMESPACE
class QIODevice;
QT_END_NAMESPACE
class KELCheckBox;
class KELComboBox;
class KELProcessBar;
class KELRadioBox;
class KELRadioBoxGroup;
class KELRoundRectControl;
class KELSlideControl;

// Remembers the last signals and writes each one to a file as it fires.
class EventLog : public QObject
{
    Q_OBJECT

public:
    // file may be null; it must stay open as long as the log lives.
    explicit EventLog(QIODevice *file, QObject *parent = nullptr);

    // Adds "<seconds> <control>: <signal>".
    void add(const QString &control, const QString &signal);

    // Adds a line for each of the seven signals of control.
    void watch(KELRoundRectControl *control, const QString &name);

    // The same, and one for each signal of its own, with the new value where there is one.
    void watch(KELCheckBox *box, const QString &name);
    void watch(KELRadioBox *box, const QString &name);
    void watch(KELProcessBar *bar, const QString &name);
    void watch(KELSlideControl *slider, const QString &name);
    void watch(KELComboBox *box, const QString &name);
    void watch(KELRadioBoxGroup *group, const QString &name);

    // The newest lines, oldest first, at most count of them.
    QStringList tail(int count) const;

Q_SIGNALS:
    void added(const QString &line);

private:
    Q_DISABLE_COPY(EventLog)

    template <typename Box>
    void watchChecks(Box *box, const QString &name);

    QIODevice *const m_file;
    QElapsedTimer m_clock;
    QStringList m_lines;
};

#endif
