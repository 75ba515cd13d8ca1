// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef BINDOBJECTS_H
#define BINDOBJECTS_H

#include "keltest.h"

#include <keldatabind.h>

using BindMode = KELDataBind::BindMode;
using Ints = QVector<int>;

const char noSource[] = "error : could not find src property ' ";
const char noDestination[] = "error : could not find dst property ' ";
const char notSet[] = "error : bind is not setted";
const char noneFound[] = "waring : could not find any notify";

inline QStringList lines(const char *message)
{
    return message ? QStringList(QString::fromUtf8(message)) : QStringList();
}

inline QString errorLine(const char *fixedText, const char *name)
{
    return QString::fromUtf8(fixedText) + QString::fromUtf8(name) + QLatin1String(" '");
}

inline void carryToDestination(KELDataBind *binding)
{
    QMetaObject::invokeMethod(binding, "srcValueChanged");
}

inline void carryToSource(KELDataBind *binding)
{
    QMetaObject::invokeMethod(binding, "dstValueChanged");
}

// Tells what is read from it and written to it, and whether its signals were blocked then.
class Model : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int value READ value WRITE setValue NOTIFY valueChanged)
    Q_PROPERTY(int other READ other WRITE setOther NOTIFY otherChanged)
    Q_PROPERTY(int silent READ silent WRITE setSilent)

public:
    explicit Model(int value = 0) : m_value(value), m_other(value), m_silent(value) { }
    // Tells of a last change, when what derives from it is gone already.
    ~Model() override
    {
        if (changesInDestructor)
            setValue(m_value + 1);
    }

    int value() const { return read(m_value); }
    int other() const { return read(m_other); }
    int silent() const { return read(m_silent); }
    void setValue(int value)
    {
        if (write(&m_value, value))
            Q_EMIT valueChanged();
    }
    void setOther(int value)
    {
        if (write(&m_other, value))
            Q_EMIT otherChanged();
    }
    void setSilent(int value) { write(&m_silent, value); }

    void set(bool notifying, int value) { notifying ? setValue(value) : setSilent(value); }
    int get(bool notifying) const { return notifying ? m_value : m_silent; }
    int connections() const { return receivers(SIGNAL(valueChanged())); }
    int otherConnections() const { return receivers(SIGNAL(otherChanged())); }
    void forget()
    {
        writes.clear();
        reads = 0;
        wasBlocked.clear();
    }

    Ints writes;
    mutable int reads = 0;
    mutable QVector<bool> wasBlocked;
    int emitsThoughTheSame = 0;
    bool changesInDestructor = false;

Q_SIGNALS:
    void valueChanged();
    void otherChanged();

private:
    int read(int value) const
    {
        ++reads;
        wasBlocked.append(signalsBlocked());
        return value;
    }
    bool write(int *field, int value)
    {
        writes.append(value);
        wasBlocked.append(signalsBlocked());
        const bool changed = *field != value || emitsThoughTheSame-- > 0;
        *field = value;
        return changed;
    }

    int m_value;
    int m_other;
    int m_silent;
};

// Has the property of a Model at another index and of another type.
class TextModel : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString first MEMBER first)
    Q_PROPERTY(QString second MEMBER second)
    Q_PROPERTY(QString third MEMBER third)
    Q_PROPERTY(QString value READ value WRITE setValue NOTIFY valueChanged)

public:
    QString value() const { return m_value; }
    void setValue(const QString &value)
    {
        writes.append(value);
        if (m_value == value)
            return;
        m_value = value;
        Q_EMIT valueChanged();
    }

    QString first = u"first"_s;
    QString second = u"second"_s;
    QString third = u"third"_s;
    QStringList writes;

Q_SIGNALS:
    void valueChanged();

private:
    QString m_value = u"0"_s;
};

// Has a property of the same name as its base.
class ShadowingModel : public Model
{
    Q_OBJECT
    Q_PROPERTY(QString value READ text WRITE setText NOTIFY textChanged)

public:
    using Model::Model;

    QString text() const { return m_text; }
    void setText(const QString &text)
    {
        if (m_text == text)
            return;
        m_text = text;
        Q_EMIT textChanged();
    }

Q_SIGNALS:
    void textChanged();

private:
    QString m_text = u"0"_s;
};

// Shows the properties of its base only, until it is told to show its own.
class ChangingModel : public ShadowingModel
{
public:
    ChangingModel() { m_meta.d = Model::staticMetaObject.d; }

    // In place: the address of the meta-object stays.
    void showOwn() { m_meta.d = ShadowingModel::staticMetaObject.d; }
    void showOwnElsewhere() { m_shown = &ShadowingModel::staticMetaObject; }
    const QMetaObject *metaObject() const override { return m_shown; }

private:
    QMetaObject m_meta;
    const QMetaObject *m_shown = &m_meta;
};

class NoModel : public QObject
{
    Q_OBJECT
};

class Converter : public IKELValueConverter
{
public:
    explicit Converter(int converterType = 0) :
        IKELValueConverter(ValueConverterType(converterType))
    { }

    QVariant Convert(QObject *object, const QVariant &value) override
    {
        calls.append(u"there %1"_s.arg(value.toString()));
        return answer(object, value, 100);
    }
    QVariant ConvertBack(QObject *object, const QVariant &value) override
    {
        calls.append(u"back %1"_s.arg(value.toString()));
        return answer(object, value, -100);
    }

    QStringList calls;
    QVector<QObject *> objects;
    bool answersFixed = false;
    QVariant fixedAnswer;

private:
    QVariant answer(QObject *object, const QVariant &value, int added)
    {
        objects.append(object);
        return answersFixed ? fixedAnswer : QVariant(value.toInt() + added);
    }
};

#endif
