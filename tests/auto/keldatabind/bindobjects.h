// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef BINDOBJECTS_H
#define BINDOBJECTS_H

#include "keltest.h"
#include "rows.h"

#include <keldatabind.h>

using BindMode = KELDataBind::BindMode;
using Ints = QVector<int>;

inline const std::vector<Named> modes = {
    {"manual", 1}, {"one way", 2}, {"two way", 3}, {"one way to source", 4}};
inline const std::vector<Named> connectedModes(modes.begin() + 1, modes.end());

inline bool hearsSource(int mode)
{
    return mode == 2 || mode == 3;
}

inline bool hearsDestination(int mode)
{
    return mode == 3 || mode == 4;
}

// Who of the two is not there; bits.
enum Missing { Nobody = 0, Source = 1, Destination = 2, Both = 3 };

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

// Writes down what is read from it and written to it.
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

    int connections() const { return receivers(SIGNAL(valueChanged())); }
    int otherConnections() const { return receivers(SIGNAL(otherChanged())); }
    // Since the last time: "read, write 5", and "blocked" when the signals were.
    QString takeCalls()
    {
        const QString taken = m_calls.join(u", "_s);
        forget();
        return taken;
    }
    void forget()
    {
        writes.clear();
        m_calls.clear();
    }

    Ints writes;
    int emitsThoughTheSame = 0;
    bool changesInDestructor = false;

Q_SIGNALS:
    void valueChanged();
    void otherChanged();

private:
    void record(const QString &call) const
    {
        m_calls.append(signalsBlocked() ? call + u" blocked"_s : call);
    }
    int read(int value) const
    {
        record(u"read"_s);
        return value;
    }
    bool write(int *field, int value)
    {
        writes.append(value);
        record(u"write %1"_s.arg(value));
        const bool changed = *field != value || emitsThoughTheSame-- > 0;
        *field = value;
        return changed;
    }

    int m_value;
    int m_other;
    int m_silent;
    mutable QStringList m_calls;
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

// Two objects, and a binding for them.
template <typename Object, typename Binding = KELDataBind>
struct BindStageOf
{
    // With the property "value" of both.
    void setBind(BindMode mode, IKELValueConverter *valueConverter = nullptr)
    {
        setBind("value", "value", mode, valueConverter);
    }
    void setBind(const char *sourceName, const char *destinationName, BindMode mode,
                 IKELValueConverter *valueConverter = nullptr)
    {
        binding.setBind(&source, sourceName, &destination, destinationName, mode, valueConverter);
    }
    // From the source and from the destination.
    Ints connections() const { return {source.connections(), destination.connections()}; }
    void forget()
    {
        source.forget();
        destination.forget();
    }

    Object source;
    Object destination;
    Converter converter; // of no binding, unless it is passed
    Binding binding;
};
using BindStage = BindStageOf<Model>;

#endif
