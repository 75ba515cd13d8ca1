// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "kelvaluelink_p.h"

#include <QtCore/QLocale>
#include <QtCore/QMetaMethod>

#include <utility>

namespace {

constexpr int mostRounds = 8;
constexpr int mostDecimals = 15;
constexpr ushort dash = 0x2013;

} // namespace

bool KELValueSide::can(bool is, const char *what) const
{
    if (!is) {
        qWarning("KELValues: property \"%s\" of %s %s", property.name(),
                 object->metaObject()->className(), what);
    }
    return is;
}

bool KELValueSide::find(QObject *owner, const char *name)
{
    const QMetaObject *meta = owner->metaObject();
    object = owner;
    property = meta->property(meta->indexOfProperty(name));
    return property.isValid();
}

KELValueLink::KELValueLink(QObject *control, QString format, int decimals) :
    QObject(control), m_format(std::move(format)), m_decimals(decimals)
{ }

bool KELValueLink::listen(const KELValueSide &side, const char *slot)
{
    const QPointer<KELValueLink> self(this);
    if (side.object && side.can(side.property.hasNotifySignal(), "does not notify")) {
        const QMetaMethod method = staticMetaObject.method(staticMetaObject.indexOfSlot(slot));
        connect(side.object, side.property.notifySignal(), this, method);
    }
    return !self.isNull();
}

QVariant KELValueLink::forControl(const QVariant &value) const
{
    if (shown.property.userType() != QMetaType::QString)
        return value;
    const QLocale locale;
    QString text = QChar(dash);
    if (value.userType() == QMetaType::Double || value.userType() == QMetaType::Float) {
        const double number = value.toDouble();
        const int digits = m_decimals < 0 ? int(QLocale::FloatingPointShortest)
                                          : qMin(m_decimals, mostDecimals);
        if (qIsFinite(number))
            text = locale.toString(number, 'f', digits);
    } else if (value.userType() == QMetaType::Int || value.userType() == QMetaType::UInt
               || value.userType() == QMetaType::LongLong) {
        text = locale.toString(value.toLongLong());
    } else if (value.isValid()) {
        text = value.toString();
    }
    return m_format.isEmpty() ? text : QString(m_format).replace(QLatin1String("%1"), text);
}

// Again for a model that a slot of the control has changed; not for ever, if each slot changes it.
void KELValueLink::showOnce()
{
    const QPointer<KELValueLink> self(this);
    m_isCopying = true;
    int round = 0;
    do {
        m_isStale = false;
        const QVariant value = model.read();
        if (!self || !model.object)
            break;
        const QVariant wanted = forControl(value);
        const bool isShown = shown.read() == wanted;
        if (!self)
            return;
        if (!isShown && shown.object)
            shown.property.write(shown.object, wanted);
    } while (!self.isNull() && m_isStale && ++round < mostRounds);
    if (self)
        m_isCopying = false;
}

void KELValueLink::onModelChanged()
{
    m_isStale = true;
    if (!m_isCopying)
        showOnce();
}

void KELValueLink::onControlChanged()
{
    if (m_isCopying)
        return;
    const QPointer<KELValueLink> self(this);
    m_isCopying = true;
    const QVariant value = shown.read();
    if (self && shown.object && model.object)
        model.property.write(model.object, value);
    if (self)
        showOnce();
}
