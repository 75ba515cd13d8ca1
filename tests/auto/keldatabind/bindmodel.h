// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef BINDMODEL_H
#define BINDMODEL_H

#include "bindscript.h"
#include "bindthings.h"

#include <QtCore/QMap>
#include <QtCore/QStringList>
#include <QtCore/QVarLengthArray>

#include <string_view>

// What the objects of the scripts have, written by hand: nothing here asks a meta-object.
struct PropertyOfThing
{
    enum Kind {
        Normal,
        Unrecorded, // its setter does not record the call
        Bounded, // within -50 and 50
        ReadOnly,
        Resettable,
        Enumeration
    };

    const char *name;
    int type;
    std::string_view notify; // the signal; empty without one
    Kind kind = Normal;
};

struct KindOfThing
{
    const char *name;
    QVector<PropertyOfThing> properties; // those of the base class first

    int indexOf(const QByteArray &property) const;
};

const QVector<KindOfThing> &kindsOfThings();

// The converters, by number.
namespace Converters {

enum Converter { None, Default, Bypassed, Tens, Litres, Invalid, EvenOnly, Switched, Count };

QVariant convert(int converter, bool isForward, const QVariant &value);

} // namespace Converters

// What a step did that can be seen besides the state afterwards.
struct Traces
{
    QStringList debugLines;
    Calls calls;
    QVector<const char *> cases; // what the step is about, in words
};

// What KELDataBind promises, as an interpreter of steps: objects, their properties and connections
// are records. A copy of a model is another world.
class BindModel
{
public:
    struct Object
    {
        const KindOfThing *kind = nullptr; // null when deleted
        bool isBlocked = false;
        QVarLengthArray<QVariant, 9> values; // by kind->properties
        QMap<QByteArray, QVariant> dynamicValues;
    };
    struct Binding
    {
        bool exists = true;
        int parent = Step::none;
        int src = Step::none;
        int dst = Step::none;
        QByteArray srcName;
        QByteArray dstName;
        int converter = Converters::None;
        int mode = 1;
        int srcConnection = Step::none;
        int dstConnection = Step::none;
        const PropertyOfThing *srcProperty = nullptr;
        const PropertyOfThing *dstProperty = nullptr;
    };

    // False when the step made changes run in a circle; the model is of no use then.
    bool run(const Step &step, Traces *traces);

    const QVector<Object> &objects() const { return m_objects; }
    const QVector<Binding> &bindings() const { return m_bindings; }
    bool isAlive(int object) const;
    QVariant read(int object, const QByteArray &name) const;

private:
    struct Connection
    {
        int number;
        int sender;
        std::string_view signal;
        int binding;
        bool isForward;
    };

    void createObject(int kind);
    void createBinding(int parent);
    void deleteObject(int object);
    void deleteBinding(int binding);

    void setBind(int number, const Step &step);
    int connectAsAsked(int number, int asked, const PropertyOfThing *srcProperty,
                       const PropertyOfThing *dstProperty);
    void connectSide(int number, bool isForward);
    void disconnect(int connection);
    void bind(int number);
    void pushBlocked(int number, bool isForward);

    void copy(int number, bool isForward);
    void write(int object, const QByteArray &name, const QVariant &value);
    void assign(int object, int index, const QVariant &value);
    void emitSignal(int object, std::string_view signal);
    int typeOf(int converter) const;
    void say(const char *text);
    void reached(const char *what) { m_traces->cases.append(what); }

    QVector<Object> m_objects;
    QVector<Binding> m_bindings;
    QVector<Connection> m_connections;
    int m_connectionsMade = 0;
    bool m_isSwitchedDefault = false;

    Traces *m_traces = nullptr; // while a step runs
    int m_copies = 0;
    int m_depth = 0;
};

#endif
