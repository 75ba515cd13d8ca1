// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "keldatabind.h"

#include <QtCore/QByteArray>
#include <QtCore/QDebug>
#include <QtCore/QMetaMethod>
#include <QtCore/QMetaProperty>
#include <QtCore/QPointer>
#include <QtCore/QString>

#include <array>

namespace {

// property() and setProperty() of one name, without looking the name up each time. Values of one
// plain type are passed to the meta-call as they are: QMetaProperty looks the type up in each call
// and copies the value, which makes a binding 1.27 to 1.34 times as slow.
class NamedProperty
{
public:
    void setName(const QString &name)
    {
        m_name = name.toUtf8();
        m_meta = nullptr;
    }

    // Getters and setters may destroy this: nothing of it is used after the call.
    QVariant read(QObject *object)
    {
        find(object);
        if (!m_isReadable)
            return object->property(QByteArray(m_name));
        if (m_type == QMetaType::UnknownType)
            return QMetaProperty(m_property).read(object);

        const int type = m_type;
        QVariant value(type, nullptr);
        void *const storage = value.data();
        int status = -1; // changed by a getter that has stored its result in value
        std::array<void *, 3> arguments = {storage, &value, &status};
        QMetaObject::metacall(object, QMetaObject::ReadProperty, m_index, arguments.data());
        if (status == -1 && arguments[0] != storage)
            value = QVariant(type, arguments[0]);
        return value;
    }

    void write(QObject *object, QVariant *value)
    {
        find(object);
        if (!m_isWritable) {
            object->setProperty(QByteArray(m_name), *value);
        } else if (m_type == QMetaType::UnknownType || m_type != value->userType()) {
            QMetaProperty(m_property).write(object, *value);
        } else {
            int status = -1;
            int flags = 0;
            std::array<void *, 4> arguments = {value->data(), value, &status, &flags};
            QMetaObject::metacall(object, QMetaObject::WriteProperty, m_index, arguments.data());
        }
    }

private:
    // A dynamic meta-object gets new data when it changes.
    void find(const QObject *object)
    {
        const QMetaObject *meta = object->metaObject();
        if (meta != m_meta || meta->d.data != m_data)
            lookUp(meta);
    }

    Q_NEVER_INLINE void lookUp(const QMetaObject *meta)
    {
        m_meta = meta;
        m_data = meta->d.data;
        const int index = meta->indexOfProperty(m_name.constData());
        m_property = index >= 0 ? meta->property(index) : QMetaProperty();
        m_isReadable = m_property.isReadable();
        m_isWritable = m_property.isWritable();
        m_index = index;
        m_type = m_property.isEnumType() ? QMetaType::UnknownType : m_property.userType();
        if (m_type == QMetaType::QVariant)
            m_type = QMetaType::UnknownType;
    }

    QByteArray m_name;
    const QMetaObject *m_meta = nullptr;
    const uint *m_data = nullptr;
    QMetaProperty m_property;
    int m_index = -1;
    int m_type = QMetaType::UnknownType; // of a property whose values can be passed as they are
    bool m_isReadable = false;
    bool m_isWritable = false;
};

int indexOfProperty(const QObject *object, const QByteArray &name)
{
    return object ? object->metaObject()->indexOfProperty(name.constData()) : -1;
}

enum class Notifies : quint8 { Yes, No, Any };
enum class Warning : quint8 { None, NoNotify, NoSource, NoDestination };

struct ModeRow
{
    KELDataBind::BindMode requested : 8;
    Notifies sourceNotifies;
    Notifies destinationNotifies;
    KELDataBind::BindMode effective : 8;
    Warning warning;
};

constexpr Notifies yes = Notifies::Yes;
constexpr Notifies no = Notifies::No;
constexpr Notifies any = Notifies::Any;

constexpr Warning none = Warning::None;

// As the table in the class reference, without its last row.
constexpr std::array<ModeRow, 13> modeTable = {{
    {KELDataBind::Auto, yes, yes, KELDataBind::TwoWay, none},
    {KELDataBind::Auto, yes, no, KELDataBind::OneWay, none},
    {KELDataBind::Auto, no, yes, KELDataBind::OneWayToSource, none},
    {KELDataBind::Auto, no, no, KELDataBind::Manual, Warning::NoNotify},
    {KELDataBind::Manual, any, any, KELDataBind::Manual, none},
    {KELDataBind::OneWay, yes, any, KELDataBind::OneWay, none},
    {KELDataBind::OneWay, no, any, KELDataBind::Manual, Warning::NoNotify},
    {KELDataBind::TwoWay, yes, yes, KELDataBind::TwoWay, none},
    {KELDataBind::TwoWay, yes, no, KELDataBind::OneWay, Warning::NoSource},
    {KELDataBind::TwoWay, no, yes, KELDataBind::OneWayToSource, Warning::NoDestination},
    {KELDataBind::TwoWay, no, no, KELDataBind::Manual, Warning::NoNotify},
    {KELDataBind::OneWayToSource, any, yes, KELDataBind::OneWayToSource, none},
    {KELDataBind::OneWayToSource, any, no, KELDataBind::Manual, Warning::NoNotify},
}};

bool fits(Notifies wanted, bool notifies)
{
    return wanted == any || (wanted == yes) == notifies;
}

ModeRow modeRowFor(KELDataBind::BindMode requested, bool sourceNotifies, bool destinationNotifies)
{
    for (const ModeRow &row : modeTable) {
        if (row.requested == requested && fits(row.sourceNotifies, sourceNotifies)
            && fits(row.destinationNotifies, destinationNotifies))
            return row;
    }
    return {requested, any, any, KELDataBind::Manual, Warning::NoNotify};
}

void print(Warning warning)
{
    // Compat: misspelling kept; src and dst name the side that notifies
    const char *side = "any";
    if (warning == Warning::NoSource)
        side = "src";
    else if (warning == Warning::NoDestination)
        side = "dst";
    if (warning != Warning::None)
        qDebug() << "waring : could not find" << side << "notify";
}

// Writes while the object's signals are blocked.
class BlockedSignals
{
public:
    explicit BlockedSignals(QObject *object) : m_object(object) { object->blockSignals(true); }
    ~BlockedSignals()
    {
        // Compat: a block set by the application is gone afterwards
        if (m_object)
            m_object->blockSignals(false);
    }

private:
    Q_DISABLE_COPY(BlockedSignals)

    const QPointer<QObject> m_object;
};

} // namespace

class KELDataBindPrivate
{
public:
    // On the stack while foreign code runs; afterwards it says whether the binding is unchanged.
    class Call
    {
    public:
        explicit Call(KELDataBindPrivate *bind) : m_bind(bind), m_outer(bind->innermostCall)
        {
            bind->innermostCall = this;
        }
        ~Call()
        {
            if (!m_isBindGone)
                m_bind->innermostCall = m_outer;
        }
        bool isOver() const { return m_isOver; }

    private:
        friend class KELDataBindPrivate;
        Q_DISABLE_COPY(Call)

        KELDataBindPrivate *const m_bind;
        Call *const m_outer;
        bool m_isOver = false;
        bool m_isBindGone = false;
    };

    using Conversion = QVariant (IKELValueConverter::*)(QObject *, const QVariant &);

    explicit KELDataBindPrivate(KELDataBind *bind) : q(bind) { }
    ~KELDataBindPrivate();
    void endCalls() const;
    void store(QObject *source, const QByteArray &sourceName, QObject *destination,
               const QByteArray &destinationName, IKELValueConverter *valueConverter);
    // These three run foreign code. An exception from it must end the program here: unwinding would
    // leave a dead Call in the list.
    void connectNotify(const QObject *object, const QMetaProperty &property,
                       const QMetaMethod &slot, const Call &call,
                       QMetaObject::Connection *connection) const noexcept;
    void setBind(QObject *source, const char *sourceName, QObject *destination,
                 const char *destinationName, KELDataBind::BindMode requested,
                 IKELValueConverter *valueConverter) noexcept;
    void copy(const QPointer<QObject> &from, NamedProperty *fromProperty,
              const QPointer<QObject> &to, NamedProperty *toProperty,
              Conversion conversion) noexcept;
    bool connectSignals(KELDataBind::BindMode effective);
    void connectForMode(KELDataBind::BindMode requested, int srcIndex, int dstIndex);

    KELDataBind *const q;
    QPointer<QObject> src;
    QPointer<QObject> dst;
    QString srcName;
    QString dstName;
    QMetaMethod srcSlot;
    QMetaMethod dstSlot;
    IKELValueConverter *converter = nullptr;
    KELDataBind::BindMode mode = KELDataBind::Manual;
    QMetaObject::Connection srcConnection;
    QMetaObject::Connection dstConnection;
    QMetaProperty srcMetaProperty;
    QMetaProperty dstMetaProperty;

    NamedProperty srcProperty;
    NamedProperty dstProperty;
    Call *innermostCall = nullptr;
};

KELDataBindPrivate::~KELDataBindPrivate()
{
    for (Call *call = innermostCall; call; call = call->m_outer)
        call->m_isBindGone = call->m_isOver = true;
}

void KELDataBindPrivate::endCalls() const
{
    for (Call *call = innermostCall; call; call = call->m_outer)
        call->m_isOver = true;
}

void KELDataBindPrivate::store(QObject *source, const QByteArray &sourceName, QObject *destination,
                               const QByteArray &destinationName,
                               IKELValueConverter *valueConverter)
{
    converter = valueConverter;
    src = source;
    dst = destination;
    srcName = QString::fromUtf8(sourceName);
    dstName = QString::fromUtf8(destinationName);
    srcProperty.setName(srcName);
    dstProperty.setName(dstName);
}

// Connects nothing if a failed setBind() has left a property that the object does not have.
void KELDataBindPrivate::connectNotify(const QObject *object, const QMetaProperty &property,
                                       const QMetaMethod &slot, const Call &call,
                                       QMetaObject::Connection *connection) const noexcept
{
    if (!object || !property.hasNotifySignal()
        || !object->metaObject()->inherits(property.enclosingMetaObject()))
        return;
    const QMetaObject::Connection made = QObject::connect(object, property.notifySignal(), q, slot);
    if (!call.isOver() && made)
        *connection = made;
}

// The virtual connectNotify() of an object may destroy the objects and the binding, or bind it
// again. False when the binding is gone or bound anew; an object may be gone in any case.
bool KELDataBindPrivate::connectSignals(KELDataBind::BindMode effective)
{
    const Call call(this);
    if (effective == KELDataBind::OneWay || effective == KELDataBind::TwoWay)
        connectNotify(src, srcMetaProperty, srcSlot, call, &srcConnection);
    if (!call.isOver()
        && (effective == KELDataBind::OneWayToSource || effective == KELDataBind::TwoWay))
        connectNotify(dst, dstMetaProperty, dstSlot, call, &dstConnection);
    return !call.isOver();
}

void KELDataBindPrivate::connectForMode(KELDataBind::BindMode requested, int srcIndex, int dstIndex)
{
    srcMetaProperty = src->metaObject()->property(srcIndex);
    dstMetaProperty = dst->metaObject()->property(dstIndex);
    const ModeRow row = modeRowFor(requested, srcMetaProperty.hasNotifySignal(),
                                   dstMetaProperty.hasNotifySignal());
    if (!connectSignals(row.effective))
        return;
    mode = row.effective;
    print(row.warning);
}

void KELDataBindPrivate::setBind(QObject *source, const char *sourceName, QObject *destination,
                                 const char *destinationName, KELDataBind::BindMode requested,
                                 IKELValueConverter *valueConverter) noexcept
{
    endCalls();
    const Call call(this);
    const QByteArray srcNameArgument(sourceName);
    const QByteArray dstNameArgument(destinationName);
    store(source, srcNameArgument, destination, dstNameArgument, valueConverter);

    // Compat: before the names are checked, so a source without such a property gets a dynamic one
    if (source && destination) {
        const QVariant value = destination->property(dstNameArgument);
        if (!call.isOver() && src)
            src->setProperty(srcNameArgument, value);
    }
    if (call.isOver())
        return;

    const int srcIndex = indexOfProperty(src, srcNameArgument);
    if (srcIndex < 0) {
        qDebug() << "error : could not find src property '" << srcNameArgument.constData() << "'";
        return;
    }
    const int dstIndex = indexOfProperty(dst, dstNameArgument);
    if (dstIndex < 0) {
        // Compat: names the source's property
        qDebug() << "error : could not find dst property '" << srcNameArgument.constData() << "'";
        return;
    }
    connectForMode(requested, srcIndex, dstIndex);
}

// Getter, converter and setter may destroy the objects and the binding, or bind it again.
void KELDataBindPrivate::copy(const QPointer<QObject> &from, NamedProperty *fromProperty,
                              const QPointer<QObject> &to, NamedProperty *toProperty,
                              Conversion conversion) noexcept
{
    if (!from || !to)
        return;
    const Call call(this);
    QVariant value = fromProperty->read(from);
    if (call.isOver() || !to)
        return;
    if (!converter || *converter == IKELValueConverter::DefaultConverterType) {
        toProperty->write(to, &value);
        return;
    }
    if (!from)
        return;
    QVariant result = (converter->*conversion)(from, value);
    if (!call.isOver() && to && result.isValid())
        toProperty->write(to, &result);
}

bool IKELValueConverter::operator==(ValueConverterType t) const
{
    return type == t;
}

KELDefaultValueConverter::KELDefaultValueConverter() : IKELValueConverter(DefaultConverterType) { }

QVariant KELDefaultValueConverter::Convert(QObject * /*object*/, const QVariant & /*value*/)
{
    return {};
}

QVariant KELDefaultValueConverter::ConvertBack(QObject * /*object*/, const QVariant & /*value*/)
{
    return {};
}

KELDataBind::KELDataBind(QObject *parent) : QObject(parent), d(new KELDataBindPrivate(this))
{
    const QMetaObject *const meta = &staticMetaObject;
    for (int i = 0; i < meta->methodCount() && !(d->srcSlot.isValid() && d->dstSlot.isValid());
         ++i) {
        const QMetaMethod method = meta->method(i);
        if (method.name() == "srcValueChanged")
            d->srcSlot = method;
        else if (method.name() == "dstValueChanged")
            d->dstSlot = method;
    }
}

KELDataBind::~KELDataBind()
{
    delete d;
}

void KELDataBind::setBind(QObject *src, const char *srcProperty, QObject *dst,
                          const char *dstProperty, BindMode mode, IKELValueConverter *converter)
{
    d->setBind(src, srcProperty, dst, dstProperty, mode, converter);
}

KELDataBind *KELDataBind::bind(QObject *src, const char *srcProperty, QObject *dst,
                               const char *dstProperty, BindMode mode,
                               IKELValueConverter *converter)
{
    const QPointer<KELDataBind> binding(new KELDataBind(src));
    binding->setBind(src, srcProperty, dst, dstProperty, mode, converter);
    return binding;
}

void KELDataBind::bind()
{
    if (d->mode <= Manual || !d->src || !d->dst) {
        qDebug() << "error : bind is not setted";
        return;
    }
    if (!d->connectSignals(d->mode) || !d->src || !d->dst)
        return;
    if (d->mode == OneWayToSource) {
        const BlockedSignals blocked(d->src);
        dstValueChanged();
    } else {
        const BlockedSignals blocked(d->dst);
        srcValueChanged();
    }
}

void KELDataBind::unbind()
{
    disconnect(d->srcConnection);
    disconnect(d->dstConnection);
}

void KELDataBind::update()
{
    if (!d->src || !d->dst)
        return;
    const BlockedSignals blocked(d->src);
    dstValueChanged();
}

KELDataBind::BindMode KELDataBind::bindMode() const
{
    return d->mode;
}

bool KELDataBind::hasError() const
{
    return d->mode == Manual;
}

void KELDataBind::srcValueChanged()
{
    d->copy(d->src, &d->srcProperty, d->dst, &d->dstProperty, &IKELValueConverter::Convert);
}

void KELDataBind::dstValueChanged()
{
    d->copy(d->dst, &d->dstProperty, d->src, &d->srcProperty, &IKELValueConverter::ConvertBack);
}
