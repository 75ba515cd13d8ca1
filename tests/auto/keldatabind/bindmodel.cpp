// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "bindmodel.h"

#include "literals.h"

#include <algorithm>

namespace {

using P = PropertyOfThing;

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
QVariant asTypeOf(const PropertyOfThing &property, const QVariant &value)
{
    if (property.kind == P::Enumeration) {
        if (value.userType() == QMetaType::QString) {
            static const QStringList names = {u"Low"_s, u"Middle"_s, u"High"_s};
            const int index = names.indexOf(value.toString());
            return index < 0 ? QVariant() : QVariant::fromValue(Store::Grade(index));
        }
        if (value.userType() == QMetaType::Int || value.userType() == property.type)
            return QVariant::fromValue(Store::Grade(value.toInt()));
        return QVariant();
    }
    if (value.userType() == property.type)
        return value;
    if (!value.isValid())
        return property.kind == P::Resettable ? QVariant(u"unnamed"_s)
                                              : QVariant(property.type, nullptr);
    QVariant converted = value;
    return converted.convert(property.type) ? converted : QVariant();
}

QVariant initialValue(const PropertyOfThing &property)
{
    if (property.kind == P::ReadOnly)
        return 1;
    if (property.kind == P::Enumeration)
        return QVariant::fromValue(Store::Low);
    return property.type == QMetaType::QVariant ? QVariant() : QVariant(property.type, nullptr);
}

} // namespace

const QVector<KindOfThing> &kindsOfThings()
{
    static const P objectName = {"objectName", QMetaType::QString, "objectName", P::Unrecorded};
    static const QVector<P> ofGauge = {
        objectName,
        {"count", QMetaType::Int, "count"},
        {"level", QMetaType::Double, "level"},
        {"low", QMetaType::Int, "range"},
        {"high", QMetaType::Int, "range"},
        {"serial", QMetaType::Int, ""},
        {"next", QMetaType::Int, "count", P::ReadOnly},
    };
    static const QVector<P> ofStore = {
        {"name", QMetaType::QString, "name", P::Resettable},
        {"grade", qMetaTypeId<Store::Grade>(), "grade", P::Enumeration},
    };
    static const QVector<P> ofPanel = {
        objectName,
        {"text", QMetaType::QString, "text"},
        {"number", QMetaType::Int, "number", P::Bounded},
        {"flag", QMetaType::Bool, "flag"},
        {"rate", QMetaType::Double, ""},
        {"any", QMetaType::QVariant, "any"},
    };
    static const QVector<P> ofMemo = {
        objectName,
        {"note", QMetaType::QString, "", P::Unrecorded},
        {"mark", QMetaType::Int, "memo", P::Unrecorded},
        {"done", QMetaType::Bool, "memo", P::Unrecorded},
    };
    static const QVector<KindOfThing> kinds = {
        {"Gauge", ofGauge}, {"Store", ofGauge + ofStore}, {"Panel", ofPanel}, {"Memo", ofMemo}};
    return kinds;
}

int KindOfThing::indexOf(const QByteArray &property) const
{
    for (int i = 0; i < properties.size(); ++i) {
        if (property == properties.at(i).name)
            return i;
    }
    return -1;
}

QVariant Converters::convert(int converter, bool isForward, const QVariant &value)
{
    const int number = qBound(-100000, value.toInt(), 100000);
    switch (converter) {
    case Bypassed:
        return isForward ? 99 : 98;
    case Tens:
        return isForward ? number / 10 : number * 10;
    case Litres: {
        if (isForward)
            return u"%1 l"_s.arg(number);
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
    for (const PropertyOfThing &property : object.kind->properties)
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
        return index < 0 ? nullptr : &kind->properties.at(index);
    };
    const PropertyOfThing *srcProperty = find(step.object, step.name);
    const PropertyOfThing *dstProperty = find(step.destination, step.destinationName);
    if (!srcProperty || !dstProperty) {
        const QString side = QLatin1String(srcProperty ? "dst" : "src");
        m_traces->debugLines.append(
            u"error : could not find %1 property ' %2 '"_s.arg(side, QString::fromUtf8(step.name)));
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
        if (!srcProperty->notify.empty()) {
            connectSide(number, true);
            if (asked == OneWay)
                return OneWay;
            binding.dstProperty = dstProperty;
            if (!dstProperty->notify.empty()) {
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
        if (!dstProperty->notify.empty()) {
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
    if (m_objects.at(sender).kind->indexOf(property->name) < 0) {
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
        const QVariant result = Converters::convert(binding.converter, isForward, value);
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
    const PropertyOfThing &property = to.kind->properties.at(index);
    if (property.kind == P::ReadOnly)
        return;
    const QVariant converted = asTypeOf(property, value);
    if (property.type == QMetaType::QVariant)
        assign(object, index, value);
    else if (converted.isValid())
        assign(object, index, converted);
    else
        reached("value of no use");
}

void BindModel::assign(int object, int index, const QVariant &value)
{
    Object &to = m_objects[object];
    const PropertyOfThing &property = to.kind->properties.at(index);
    if (property.kind != P::Unrecorded)
        m_traces->calls.append({property.name, object, QVariant()});
    const QVariant fitting = property.kind == P::Bounded ? QVariant(qBound(-50, value.toInt(), 50))
                                                         : value;
    if (isSame(to.values.at(index), fitting))
        return;
    to.values[index] = fitting;
    if (property.name == std::string_view("count"))
        to.values[to.kind->indexOf("next")] = fitting.toInt() / 2 + 1;
    if (!property.notify.empty() && !to.isBlocked)
        emitSignal(object, property.notify);
}

void BindModel::emitSignal(int object, std::string_view signal)
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
