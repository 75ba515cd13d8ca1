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
QString inWords(const QVariant &value);

// The objects of the scripts. What they do is written down a second time in kindsOfThings().
class Thing : public QObject
{
public:
    Thing(int number, Calls *calls) : m_number(number), m_calls(calls) { }
    int number() const { return m_number; }

protected:
    // False when the setters call each other without end.
    bool record(const char *setter);

    // True when the value is another one.
    template <typename T>
    bool set(const char *setter, T *member, const T &value)
    {
        if (!record(setter) || *member == value)
            return false;
        *member = value;
        return true;
    }

private:
    const int m_number;
    Calls *const m_calls;
};

class Gauge : public Thing
{
    Q_OBJECT
    Q_PROPERTY(int count MEMBER m_count WRITE setCount NOTIFY countChanged)
    Q_PROPERTY(double level MEMBER m_level WRITE setLevel NOTIFY levelChanged)
    Q_PROPERTY(int low MEMBER m_low WRITE setLow NOTIFY rangeChanged)
    Q_PROPERTY(int high MEMBER m_high WRITE setHigh NOTIFY rangeChanged)
    Q_PROPERTY(int serial MEMBER m_serial WRITE setSerial)
    Q_PROPERTY(int next READ next NOTIFY countChanged)

public:
    using Thing::Thing;
    int next() const { return m_count / 2 + 1; }
    void setCount(int count)
    {
        if (set("count", &m_count, count))
            Q_EMIT countChanged(count);
    }
    void setLevel(double level)
    {
        if (set("level", &m_level, level))
            Q_EMIT levelChanged();
    }
    void setLow(int low)
    {
        if (set("low", &m_low, low))
            Q_EMIT rangeChanged(low, m_high);
    }
    void setHigh(int high)
    {
        if (set("high", &m_high, high))
            Q_EMIT rangeChanged(m_low, high);
    }
    void setSerial(int serial) { set("serial", &m_serial, serial); }

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
    Q_PROPERTY(QString name MEMBER m_name WRITE setName RESET resetName NOTIFY nameChanged)
    Q_PROPERTY(Grade grade MEMBER m_grade WRITE setGrade NOTIFY gradeChanged)

public:
    enum Grade : int { Low, Middle, High };
    Q_ENUM(Grade)

    using Gauge::Gauge;
    void setName(const QString &name)
    {
        if (set("name", &m_name, name))
            Q_EMIT nameChanged(m_name);
    }
    void resetName() { setName(QStringLiteral("unnamed")); }
    void setGrade(Grade grade)
    {
        if (set("grade", &m_grade, grade))
            Q_EMIT gradeChanged();
    }

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
    Q_PROPERTY(QString text MEMBER m_text WRITE setText NOTIFY textChanged)
    Q_PROPERTY(int number MEMBER m_number WRITE setNumber NOTIFY numberChanged)
    Q_PROPERTY(bool flag MEMBER m_flag WRITE setFlag NOTIFY flagChanged)
    Q_PROPERTY(double rate MEMBER m_rate WRITE setRate)
    Q_PROPERTY(QVariant any MEMBER m_any WRITE setAny NOTIFY anyChanged)

public:
    using Thing::Thing;
    void setText(const QString &text)
    {
        if (set("text", &m_text, text))
            Q_EMIT textChanged();
    }
    void setNumber(int number)
    {
        if (set("number", &m_number, qBound(-50, number, 50)))
            Q_EMIT numberChanged(m_number);
    }
    void setFlag(bool flag)
    {
        if (set("flag", &m_flag, flag))
            Q_EMIT flagChanged();
    }
    void setRate(double rate) { set("rate", &m_rate, rate); }
    void setAny(const QVariant &any)
    {
        if (!record("any") || isSame(m_any, any))
            return;
        m_any = any;
        Q_EMIT anyChanged();
    }

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
