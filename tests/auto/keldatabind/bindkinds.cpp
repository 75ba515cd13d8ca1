// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "bindkinds.h"

#include <QtCore/QMetaProperty>

namespace {

// What the two kinds of pointer point to.
QObject *namedObject(int seed)
{
    static Kinds objects[16];
    objects[seed].setObjectName(QString::number(seed));
    return &objects[seed];
}

template <typename T>
QString printed(const T &value)
{
    QString text;
    QDebug(&text).nospace() << value;
    return text;
}

template <typename... T>
QStringList allPrinted(const T &...values)
{
    return {printed(values)...};
}

} // namespace

QList<QByteArray> Kinds::names()
{
    QList<QByteArray> result;
    for (int i = staticMetaObject.propertyOffset(); i < staticMetaObject.propertyCount(); ++i)
        result.append(staticMetaObject.property(i).name());
    return result;
}

void Kinds::fill(int seed)
{
    m_number = seed;
    m_enabled = seed % 2;
    m_wide = seed + (Q_INT64_C(1) << 40);
    m_ratio = seed + 0.1;
    m_part = float(seed) + 0.25F;
    m_text = seed % 3 ? QString::number(seed) : u"Square"_s;
    m_bytes = QByteArray::number(seed);
    m_list = QStringList(QString::number(seed));
    m_mixedList = QVariantList({seed, QString::number(seed)});
    m_vector = QVector<int>({seed, seed + 1});
    m_anything = seed % 4 == 1 ? QVariant() : seed % 4 == 2 ? QVariant(seed) : QVariant(m_text);
    m_shape = Shape(seed % 4);
    m_alignment = Qt::Alignment(seed);
    m_hiddenShape = HiddenShape(seed % 2);
    m_edges = Edges(seed % 8);
    m_gadget.number = seed;
    m_object = namedObject(seed);
    m_kinds = qobject_cast<Kinds *>(namedObject(seed + 1));
    m_size = QSize(seed, seed + 1);
    m_place = QPoint(seed, seed + 1);
    m_colour = QColor(seed, seed, seed);
    m_listed.number = seed;
    m_unlisted.number = seed;
    m_resettable = seed;
    m_writeOnly = QString::number(seed);
    m_finalNumber = seed;
    m_pointed = u"pointed %1"_s.arg(seed);
    m_referred = QString::number(seed + 1);
    setProperty("undeclared", seed);
}

bool Kinds::isLike(const Kinds &other) const
{
    return fields() == other.fields() && m_anything.userType() == other.m_anything.userType()
        && property("undeclared") == other.property("undeclared")
        && property("undeclared").userType() == other.property("undeclared").userType()
        && dynamicPropertyNames() == other.dynamicPropertyNames() && calls == other.calls;
}

QStringList Kinds::inWords() const
{
    return std::apply(
        [this](const auto &...field) {
            return allPrinted(field..., dynamicPropertyNames(), property("undeclared"), calls);
        },
        fields());
}
