// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "bindmodel.h"

#include <algorithm>

namespace {

enum Signal {
    NoSignal,
    ObjectName,
    Count,
    Level,
    Range,
    Name,
    Grade,
    Text,
    Number,
    Flag,
    Any,
    MemoSignal
};

enum Kind { GaugeKind, StoreKind, PanelKind, MemoKind };

using P = PropertyOfThing;

const P objectNameProperty = {"objectName", QMetaType::QString, ObjectName, P::Normal};
const P countProperty = {"count", QMetaType::Int, Count, P::Normal};
const P levelProperty = {"level", QMetaType::Double, Level, P::Normal};
const P lowProperty = {"low", QMetaType::Int, Range, P::Normal};
const P highProperty = {"high", QMetaType::Int, Range, P::Normal};
const P serialProperty = {"serial", QMetaType::Int, NoSignal, P::Normal};
const P nextProperty = {"next", QMetaType::Int, Count, P::ReadOnly};
const P nameProperty = {"name", QMetaType::QString, Name, P::Resettable};
const P gradeProperty = {"grade", qMetaTypeId<Store::Grade>(), Grade, P::Enumeration};
const P textProperty = {"text", QMetaType::QString, Text, P::Normal};
const P numberProperty = {"number", QMetaType::Int, Number, P::Normal};
const P flagProperty = {"flag", QMetaType::Bool, Flag, P::Normal};
const P rateProperty = {"rate", QMetaType::Double, NoSignal, P::Normal};
const P anyProperty = {"any", QMetaType::QVariant, Any, P::Normal};
const P noteProperty = {"note", QMetaType::QString, NoSignal, P::Normal};
const P markProperty = {"mark", QMetaType::Int, MemoSignal, P::Normal};
const P doneProperty = {"done", QMetaType::Bool, MemoSignal, P::Normal};

// Changes that go on for longer than this run in a circle.
constexpr int mostCopies = 200;
constexpr int deepestCopy = 40;

constexpr int defaultType = 1;
constexpr int customType = 0;

enum Mode { Auto, Manual, OneWay, TwoWay, OneWayToSource };

QByteArray asUtf8AndBack(const QByteArray &name)
{
    return QString::fromUtf8(name).toUtf8();
}

// What Qt makes of a value that is written to a property; an invalid one when it writes nothing.
QVariant asTypeOf(const PropertyOfThing *property, const QVariant &value)
{
    if (property->kind == P::Enumeration) {
        if (value.userType() == QMetaType::QString) {
            const QStringList names = {QStringLiteral("Low"), QStringLiteral("Middle"),
                                       QStringLiteral("High")};
            const int index = names.indexOf(value.toString());
            return index < 0 ? QVariant() : QVariant::fromValue(Store::Grade(index));
        }
        if (value.userType() == QMetaType::Int || value.userType() == property->type)
            return QVariant::fromValue(Store::Grade(value.toInt()));
        return QVariant();
    }
    if (value.userType() == property->type)
        return value;
    if (!value.isValid())
        return property->kind == P::Resettable ? QVariant(QStringLiteral("unnamed"))
                                               : QVariant(property->type, nullptr);
    QVariant converted = value;
    return converted.convert(property->type) ? converted : QVariant();
}

QVariant initialValue(const PropertyOfThing *property)
{
    if (property == &nextProperty)
        return 1;
    if (property->kind == P::Enumeration)
        return QVariant::fromValue(Store::Low);
    return property == &anyProperty ? QVariant() : QVariant(property->type, nullptr);
}

bool recordsItsCalls(const PropertyOfThing *property)
{
    return property != &objectNameProperty && property->notify != MemoSignal
        && property != &noteProperty;
}

} // namespace

const QVector<KindOfThing> &kindsOfThings()
{
    static const QVector<const P *> ofGauge = {&objectNameProperty, &countProperty, &levelProperty,
                                               &lowProperty,        &highProperty,  &serialProperty,
                                               &nextProperty};
    static const QVector<KindOfThing> kinds = {
        {"Gauge", ofGauge},
        {"Store", ofGauge + QVector<const P *>{&nameProperty, &gradeProperty}},
        {"Panel",
         {&objectNameProperty, &textProperty, &numberProperty, &flagProperty, &rateProperty,
          &anyProperty}},
        {"Memo", {&objectNameProperty, &noteProperty, &markProperty, &doneProperty}},
    };
    return kinds;
}

int KindOfThing::indexOf(const QByteArray &property) const
{
    for (int i = 0; i < properties.size(); ++i) {
        if (property == properties.at(i)->name)
            return i;
    }
    return -1;
}

QVariant Converters::forward(int converter, const QVariant &value)
{
    const int number = qBound(-100000, value.toInt(), 100000);
    switch (converter) {
    case Bypassed:
        return 99;
    case Tens:
        return number / 10;
    case Litres:
        return QStringLiteral("%1 l").arg(number);
    case EvenOnly:
        return number % 2 == 0 ? QVariant(number) : QVariant();
    case Switched:
        return -number;
    default:
        return QVariant();
    }
}

QVariant Converters::back(int converter, const QVariant &value)
{
    const int number = qBound(-100000, value.toInt(), 100000);
    switch (converter) {
    case Bypassed:
        return 98;
    case Tens:
        return number * 10;
    case Litres: {
        bool isNumber = false;
        const int litres = value.toString().section(QLatin1Char(' '), 0, 0).toInt(&isNumber);
        return isNumber ? QVariant(litres) : QVariant();
    }
    case EvenOnly:
        return number % 2 == 0 ? QVariant(number) : QVariant();
    case Switched:
        return -number;
    default:
        return QVariant();
    }
}

bool BindModel::run(const Step &step, Traces *traces)
{
    traces->debugLines.clear();
    traces->calls.clear();
    traces->cases.clear();
    m_traces = traces;
    m_copies = 0;
    m_depth = 0;

    switch (step.action) {
    case Action::CreateObject:
        createObject(step.kind);
        break;
    case Action::CreateBinding:
        createBinding(step.object);
        break;
    case Action::StaticBind:
        createBinding(step.object);
        setBind(m_bindings.size() - 1, step);
        break;
    case Action::SetBind:
        setBind(step.binding, step);
        break;
    case Action::Bind:
        bind(step.binding);
        break;
    case Action::Unbind:
        disconnect(m_bindings.at(step.binding).srcConnection);
        disconnect(m_bindings.at(step.binding).dstConnection);
        break;
    case Action::Update:
        if (isAlive(m_bindings.at(step.binding).src) && isAlive(m_bindings.at(step.binding).dst))
            pushBlocked(step.binding, false);
        break;
    case Action::CallSrcValueChanged:
    case Action::CallDstValueChanged:
        copy(step.binding, step.action == Action::CallSrcValueChanged);
        break;
    case Action::SetProperty:
        write(step.object, step.name, step.value);
        break;
    case Action::BlockSignals:
        m_objects[step.object].isBlocked = step.value.toBool();
        break;
    case Action::SwitchConverter:
        m_isSwitchedDefault = step.value.toBool();
        break;
    case Action::DeleteObject:
        deleteObject(step.object);
        break;
    case Action::DeleteBinding:
        deleteBinding(step.binding);
        break;
    }
    return m_copies < mostCopies;
}

bool BindModel::isAlive(int object) const
{
    return object != Step::none && m_objects.at(object).kind;
}

void BindModel::createObject(int kind)
{
    Object object;
    object.kind = &kindsOfThings().at(kind);
    for (const PropertyOfThing *property : object.kind->properties)
        object.values.append(initialValue(property));
    m_objects.append(object);
}

void BindModel::createBinding(int parent)
{
    Binding binding;
    binding.parent = parent;
    m_bindings.append(binding);
}

void BindModel::deleteObject(int object)
{
    m_objects[object].kind = nullptr;
    for (int i = 0; i < m_bindings.size(); ++i) {
        if (m_bindings.at(i).exists && m_bindings.at(i).parent == object) {
            reached("binding deleted with its parent");
            deleteBinding(i);
        }
    }
    const auto isOfObject = [object](const Connection &c) { return c.sender == object; };
    m_connections.erase(std::remove_if(m_connections.begin(), m_connections.end(), isOfObject),
                        m_connections.end());
}

void BindModel::deleteBinding(int binding)
{
    m_bindings[binding].exists = false;
    const auto isOfBinding = [binding](const Connection &c) { return c.binding == binding; };
    m_connections.erase(std::remove_if(m_connections.begin(), m_connections.end(), isOfBinding),
                        m_connections.end());
}

void BindModel::setBind(int number, const Step &step)
{
    Binding &binding = m_bindings[number];
    binding.converter = step.converter;
    binding.src = step.object;
    binding.dst = step.destination;
    binding.srcName = asUtf8AndBack(step.name);
    binding.dstName = asUtf8AndBack(step.destinationName);

    if (isAlive(step.object) && isAlive(step.destination))
        write(step.object, step.name, read(step.destination, step.destinationName));

    const auto find = [this](int object, const QByteArray &name) -> const PropertyOfThing * {
        const KindOfThing *kind = isAlive(object) ? m_objects.at(object).kind : nullptr;
        const int index = kind ? kind->indexOf(name) : -1;
        return index < 0 ? nullptr : kind->properties.at(index);
    };
    const PropertyOfThing *srcProperty = find(step.object, step.name);
    const PropertyOfThing *dstProperty = find(step.destination, step.destinationName);
    if (!srcProperty || !dstProperty) {
        const QString side = QLatin1String(srcProperty ? "dst" : "src");
        m_traces->debugLines.append(QStringLiteral("error : could not find %1 property ' %2 '")
                                        .arg(side, QString::fromUtf8(step.name)));
        reached(srcProperty ? "no such destination property" : "no such source property");
        if (binding.mode != Manual)
            reached("mode of an earlier setBind kept");
        return;
    }
    if (binding.srcConnection != Step::none || binding.dstConnection != Step::none)
        reached("setBind twice");
    m_bindings[number].mode = connectAsAsked(number, step.mode, srcProperty, dstProperty);
}

int BindModel::connectAsAsked(int number, int asked, const PropertyOfThing *srcProperty,
                              const PropertyOfThing *dstProperty)
{
    Binding &binding = m_bindings[number];
    if (asked == Auto || asked == OneWay || asked == TwoWay) {
        binding.srcProperty = srcProperty;
        if (srcProperty->notify != NoSignal) {
            connectSide(number, true);
            if (asked == OneWay)
                return OneWay;
            binding.dstProperty = dstProperty;
            if (dstProperty->notify != NoSignal) {
                connectSide(number, false);
                return TwoWay;
            }
            if (asked == TwoWay)
                say("waring : could not find src notify");
            return OneWay;
        }
    }
    if (asked == Auto || asked == TwoWay || asked == OneWayToSource) {
        binding.dstProperty = dstProperty;
        if (dstProperty->notify != NoSignal) {
            connectSide(number, false);
            if (asked == TwoWay)
                say("waring : could not find dst notify");
            return OneWayToSource;
        }
    }
    if (asked != Manual)
        say("waring : could not find any notify");
    return Manual;
}

void BindModel::connectSide(int number, bool isForward)
{
    Binding &binding = m_bindings[number];
    const int sender = isForward ? binding.src : binding.dst;
    const PropertyOfThing *property = isForward ? binding.srcProperty : binding.dstProperty;
    int *const handle = isForward ? &binding.srcConnection : &binding.dstConnection;
    if (!m_objects.at(sender).kind->properties.contains(property)) {
        reached("meta-property of another class");
        return;
    }
    for (const Connection &other : qAsConst(m_connections)) {
        if (other.binding == number && other.sender == sender && other.signal == property->notify
            && other.isForward == isForward)
            reached("connected twice");
    }
    *handle = m_connectionsMade++;
    m_connections.append({*handle, sender, property->notify, number, isForward});
}

void BindModel::disconnect(int connection)
{
    for (int i = 0; i < m_connections.size(); ++i) {
        if (m_connections.at(i).number == connection) {
            m_connections.remove(i);
            reached("disconnected");
            return;
        }
    }
}

void BindModel::bind(int number)
{
    const Binding binding = m_bindings.at(number);
    if (binding.mode <= Manual || !isAlive(binding.src) || !isAlive(binding.dst)) {
        if (binding.mode > Manual)
            reached("bind without an object");
        say("error : bind is not setted");
        return;
    }
    if (binding.mode == OneWay || binding.mode == TwoWay)
        connectSide(number, true);
    if (binding.mode == OneWayToSource || binding.mode == TwoWay)
        connectSide(number, false);
    pushBlocked(number, binding.mode != OneWayToSource);
    reached("bound again");
}

void BindModel::pushBlocked(int number, bool isForward)
{
    const int to = isForward ? m_bindings.at(number).dst : m_bindings.at(number).src;
    if (m_objects.at(to).isBlocked)
        reached("block of the application ended");
    m_objects[to].isBlocked = true;
    copy(number, isForward);
    m_objects[to].isBlocked = false;
}

void BindModel::copy(int number, bool isForward)
{
    const Binding binding = m_bindings.at(number);
    if (!isAlive(binding.src) || !isAlive(binding.dst)) {
        reached("notified without an object");
        return;
    }
    if (++m_copies >= mostCopies || m_depth >= deepestCopy) {
        m_copies = mostCopies;
        return;
    }
    ++m_depth;
    reached(m_depth > 1 ? "copied by a copy" : "copied");
    const int from = isForward ? binding.src : binding.dst;
    const int to = isForward ? binding.dst : binding.src;
    const QByteArray toName = isForward ? binding.dstName : binding.srcName;
    const QVariant value = read(from, isForward ? binding.srcName : binding.dstName);
    if (typeOf(binding.converter) == defaultType) {
        if (!value.isValid())
            reached("invalid value written");
        write(to, toName, value);
    } else {
        const QVariant result = isForward ? Converters::forward(binding.converter, value)
                                          : Converters::back(binding.converter, value);
        m_traces->calls.append({isForward ? "Convert" : "ConvertBack", from, value});
        reached(result.isValid() ? "converted" : "converter gave nothing");
        if (result.isValid())
            write(to, toName, result);
    }
    --m_depth;
}

// No converter is like one of the default type.
int BindModel::typeOf(int converter) const
{
    switch (converter) {
    case Converters::None:
    case Converters::Default:
    case Converters::Bypassed:
        return defaultType;
    case Converters::Switched:
        return m_isSwitchedDefault ? defaultType : customType;
    default:
        return customType;
    }
}

QVariant BindModel::read(int object, const QByteArray &name) const
{
    const Object &from = m_objects.at(object);
    const int index = from.kind->indexOf(name);
    return index < 0 ? from.dynamicValues.value(name) : from.values.at(index);
}

void BindModel::write(int object, const QByteArray &name, const QVariant &value)
{
    Object &to = m_objects[object];
    const int index = to.kind->indexOf(name);
    if (index < 0) {
        reached("dynamic property written");
        if (value.isValid())
            to.dynamicValues.insert(name, value);
        else
            to.dynamicValues.remove(name);
        return;
    }
    const PropertyOfThing *property = to.kind->properties.at(index);
    if (property->kind == P::ReadOnly)
        return;
    const QVariant converted = asTypeOf(property, value);
    if (property == &anyProperty)
        assign(object, property, value);
    else if (converted.isValid())
        assign(object, property, converted);
    else
        reached("value of no use");
}

void BindModel::assign(int object, const PropertyOfThing *property, const QVariant &value)
{
    if (recordsItsCalls(property))
        m_traces->calls.append({property->name, object, QVariant()});
    Object &to = m_objects[object];
    QVariant &stored = to.values[to.kind->properties.indexOf(property)];
    const QVariant fitting = property == &numberProperty ? QVariant(qBound(-50, value.toInt(), 50))
                                                         : value;
    if (isSame(stored, fitting))
        return;
    stored = fitting;
    if (property == &countProperty)
        to.values[to.kind->properties.indexOf(&nextProperty)] = fitting.toInt() / 2 + 1;
    if (property->notify != NoSignal && !to.isBlocked)
        emitSignal(object, property->notify);
}

void BindModel::emitSignal(int object, int signal)
{
    const QVector<Connection> connections = m_connections; // no copy makes or ends one
    for (const Connection &connection : connections) {
        if (connection.sender == object && connection.signal == signal)
            copy(connection.binding, connection.isForward);
    }
}

void BindModel::say(const char *text)
{
    m_traces->debugLines.append(QString::fromLatin1(text));
    reached(text);
}
