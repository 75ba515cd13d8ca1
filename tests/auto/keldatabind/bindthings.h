// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef BINDTHINGS_H
#define BINDTHINGS_H

#include <QtCore/QByteArray>
#include <QtCore/QObject>
#include <QtCore/QVariant>
#include <QtCore/QVector>

// Something that a binding called: a setter, or a converter with the value that it was given.
struct Call
{
    const char *function;
    int object;
    QVariant value;
};
using Calls = QVector<Call>;

bool isSame(const QVariant &a, const QVariant &b); // in type and value
bool isSame(const Calls &a, const Calls &b);

// The objects of the scripts. What they do is written down a second time in kindsOfThings().
class Thing : public QObject
{
public:
    Thing(int number, Calls *calls) : m_number(number), m_calls(calls) { }
    int number() const { return m_number; }

protected:
    // False when the setters call each other without end.
    bool record(const char *setter);

    template <typename T, typename Notify>
    void set(const char *setter, T *member, const T &value, Notify notify)
    {
        if (!record(setter) || *member == value)
            return;
        *member = value;
        notify();
    }

private:
    const int m_number;
    Calls *const m_calls;
};

class Gauge : public Thing
{
    Q_OBJECT
    Q_PROPERTY(int count READ count WRITE setCount NOTIFY countChanged)
    Q_PROPERTY(double level READ level WRITE setLevel NOTIFY levelChanged)
    Q_PROPERTY(int low READ low WRITE setLow NOTIFY rangeChanged)
    Q_PROPERTY(int high READ high WRITE setHigh NOTIFY rangeChanged)
    Q_PROPERTY(int serial READ serial WRITE setSerial)
    Q_PROPERTY(int next READ next NOTIFY countChanged)

public:
    using Thing::Thing;
    int count() const { return m_count; }
    double level() const { return m_level; }
    int low() const { return m_low; }
    int high() const { return m_high; }
    int serial() const { return m_serial; }
    int next() const { return m_count / 2 + 1; }
    void setCount(int count);
    void setLevel(double level);
    void setLow(int low);
    void setHigh(int high);
    void setSerial(int serial);

Q_SIGNALS:
    void countChanged(int count);
    void levelChanged();
    void rangeChanged(int low, int high);

private:
    int m_count = 0;
    double m_level = 0;
    int m_low = 0;
    int m_high = 0;
    int m_serial = 0;
};

class Store : public Gauge
{
    Q_OBJECT
    Q_PROPERTY(QString name READ name WRITE setName RESET resetName NOTIFY nameChanged)
    Q_PROPERTY(Grade grade READ grade WRITE setGrade NOTIFY gradeChanged)

public:
    enum Grade : int { Low, Middle, High };
    Q_ENUM(Grade)

    using Gauge::Gauge;
    QString name() const { return m_name; }
    Grade grade() const { return m_grade; }
    void setName(const QString &name);
    void resetName() { setName(QStringLiteral("unnamed")); }
    void setGrade(Grade grade);

Q_SIGNALS:
    void nameChanged(const QString &name);
    void gradeChanged();

private:
    QString m_name;
    Grade m_grade = Low;
};

class Panel : public Thing
{
    Q_OBJECT
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged)
    Q_PROPERTY(int number READ value WRITE setNumber NOTIFY numberChanged)
    Q_PROPERTY(bool flag READ flag WRITE setFlag NOTIFY flagChanged)
    Q_PROPERTY(double rate READ rate WRITE setRate)
    Q_PROPERTY(QVariant any READ any WRITE setAny NOTIFY anyChanged)

public:
    using Thing::Thing;
    QString text() const { return m_text; }
    int value() const { return m_number; }
    bool flag() const { return m_flag; }
    double rate() const { return m_rate; }
    QVariant any() const { return m_any; }
    void setText(const QString &text);
    void setNumber(int number); // within -50 and 50
    void setFlag(bool flag);
    void setRate(double rate);
    void setAny(const QVariant &any);

Q_SIGNALS:
    void textChanged();
    void numberChanged(int number);
    void flagChanged();
    void anyChanged();

private:
    QString m_text;
    int m_number = 0;
    bool m_flag = false;
    double m_rate = 0;
    QVariant m_any;
};

// Without setters of its own.
class Memo : public Thing
{
    Q_OBJECT
    Q_PROPERTY(QString note MEMBER m_note)
    Q_PROPERTY(int mark MEMBER m_mark NOTIFY memoChanged)
    Q_PROPERTY(bool done MEMBER m_done NOTIFY memoChanged)

public:
    using Thing::Thing;

Q_SIGNALS:
    void memoChanged();

private:
    QString m_note;
    int m_mark = 0;
    bool m_done = false;
};

#endif
