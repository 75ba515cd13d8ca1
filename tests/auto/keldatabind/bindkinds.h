// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef BINDKINDS_H
#define BINDKINDS_H

#include "bindobjects.h"

#include <QtGui/QColor>

#include <tuple>

struct Listed
{
    int number = 0;
};

struct Unlisted
{
    int number = 0;
};

class Gadget
{
    Q_GADGET
    Q_PROPERTY(int number MEMBER number)

public:
    bool operator!=(const Gadget &other) const { return number != other.number; }

    int number = 0;
};

Q_DECLARE_METATYPE(Listed)
Q_DECLARE_METATYPE(Gadget)

// A property of every kind.
class Kinds : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int number READ number WRITE setNumber NOTIFY numberChanged)
    Q_PROPERTY(bool enabled READ enabled WRITE setEnabled NOTIFY enabledChanged)
    Q_PROPERTY(qlonglong wide MEMBER m_wide NOTIFY wideChanged)
    Q_PROPERTY(double ratio READ ratio WRITE setRatio NOTIFY ratioChanged)
    Q_PROPERTY(float part MEMBER m_part)
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged)
    Q_PROPERTY(QByteArray bytes MEMBER m_bytes)
    Q_PROPERTY(QStringList list MEMBER m_list)
    Q_PROPERTY(QVariantList mixedList MEMBER m_mixedList)
    Q_PROPERTY(QVector<int> vector MEMBER m_vector)
    Q_PROPERTY(QVariant anything READ anything WRITE setAnything NOTIFY anythingChanged)
    Q_PROPERTY(Shape shape READ shape WRITE setShape)
    Q_PROPERTY(Qt::Alignment alignment MEMBER m_alignment)
    Q_PROPERTY(HiddenShape hiddenShape MEMBER m_hiddenShape)
    Q_PROPERTY(Edges edges READ edges WRITE setEdges)
    Q_PROPERTY(Gadget gadget MEMBER m_gadget)
    Q_PROPERTY(QObject *object MEMBER m_object)
    Q_PROPERTY(Kinds *kinds MEMBER m_kinds)
    Q_PROPERTY(QSize size MEMBER m_size)
    Q_PROPERTY(QPoint place MEMBER m_place)
    Q_PROPERTY(QColor colour MEMBER m_colour)
    Q_PROPERTY(Listed listed READ listed WRITE setListed)
    Q_PROPERTY(Unlisted unlisted READ unlisted WRITE setUnlisted)
    Q_PROPERTY(int resettable READ resettable WRITE setResettable RESET reset)
    Q_PROPERTY(int constant READ constant CONSTANT)
    Q_PROPERTY(int readOnly READ readOnly NOTIFY numberChanged)
    Q_PROPERTY(QString writeOnly WRITE setWriteOnly)
    Q_PROPERTY(int finalNumber MEMBER m_finalNumber FINAL)
    Q_PROPERTY(QString pointed READ pointed WRITE setPointed)
    Q_PROPERTY(QString referred READ referred WRITE setReferred)

public:
    enum Shape : int { Round, Square, Flat, Pointed };
    Q_ENUM(Shape)
    enum HiddenShape : int { HiddenRound, HiddenSquare };
    enum Edge : int { Left = 1, Top = 2, Right = 4 };
    Q_DECLARE_FLAGS(Edges, Edge)
    Q_FLAG(Edges)

    // Without the undeclared one.
    static QList<QByteArray> names();
    void fill(int seed);
    bool isLike(const Kinds &other) const;
    QStringList inWords() const;

    int number() const { return read("number", m_number); }
    bool enabled() const { return read("enabled", m_enabled); }
    double ratio() const { return read("ratio", m_ratio); }
    const QString &text() const { return m_text; }
    QVariant anything() const { return read("anything", m_anything); }
    Shape shape() const { return read("shape", m_shape); }
    Edges edges() const { return read("edges", m_edges); }
    Listed listed() const { return read("listed", m_listed); }
    Unlisted unlisted() const { return read("unlisted", m_unlisted); }
    int resettable() const { return read("resettable", m_resettable); }
    int constant() const { return read("constant", m_number + 1); }
    int readOnly() const { return read("readOnly", m_number + 2); }
    const QString *pointed() const { return &m_pointed; }
    QString &referred() { return m_referred; }

    void setNumber(int value)
    {
        if (write("number=", &m_number, value))
            Q_EMIT numberChanged(value, u"reason"_s);
    }
    void setEnabled(bool value)
    {
        if (write("enabled=", &m_enabled, value))
            Q_EMIT enabledChanged(QPrivateSignal());
    }
    void setRatio(double value)
    {
        if (write("ratio=", &m_ratio, value))
            Q_EMIT ratioChanged();
    }
    void setText(const QString &value)
    {
        if (write("text=", &m_text, value))
            Q_EMIT textChanged(value);
    }
    void setAnything(const QVariant &value)
    {
        if (write("anything=", &m_anything, value))
            Q_EMIT anythingChanged(value);
    }
    void setShape(Shape value) { write("shape=", &m_shape, value); }
    void setEdges(Edges value) { write("edges=", &m_edges, value); }
    void setListed(Listed value)
    {
        calls.append(QLatin1String("listed="));
        m_listed = value;
    }
    void setUnlisted(Unlisted value)
    {
        calls.append(QLatin1String("unlisted="));
        m_unlisted = value;
    }
    void setResettable(int value) { write("resettable=", &m_resettable, value); }
    void reset() { write("reset=", &m_resettable, -1); }
    void setWriteOnly(const QString &value) { write("writeOnly=", &m_writeOnly, value); }

    void setPointed(const QString &value) { write("pointed=", &m_pointed, value); }
    void setReferred(const QString &value) { write("referred=", &m_referred, value); }

    // Getters by their names, setters with "=".
    mutable QVector<QLatin1String> calls;

Q_SIGNALS:
    void numberChanged(int number, const QString &reason);
    void enabledChanged(QPrivateSignal);
    void wideChanged(qlonglong wide);
    void ratioChanged(double ratio = 0);
    void textChanged(const QString &text);
    void anythingChanged(const QVariant &anything);

private:
    template <typename T>
    T read(const char *name, const T &value) const
    {
        calls.append(QLatin1String(name));
        return value;
    }
    template <typename T>
    bool write(const char *name, T *field, const T &value)
    {
        calls.append(QLatin1String(name));
        if (*field == value)
            return false;
        *field = value;
        return true;
    }

    auto fields() const
    {
        return std::tie(m_number, m_enabled, m_wide, m_ratio, m_part, m_text, m_bytes, m_list,
                        m_mixedList, m_vector, m_anything, m_shape, m_alignment, m_hiddenShape,
                        m_edges, m_gadget.number, m_object, m_kinds, m_size, m_place, m_colour,
                        m_listed.number, m_unlisted.number, m_resettable, m_writeOnly,
                        m_finalNumber, m_pointed, m_referred);
    }

    int m_number = 0;
    bool m_enabled = false;
    qlonglong m_wide = 0;
    double m_ratio = 0;
    float m_part = 0;
    QString m_text;
    QByteArray m_bytes;
    QStringList m_list;
    QVariantList m_mixedList;
    QVector<int> m_vector;
    QVariant m_anything;
    Shape m_shape = Round;
    Qt::Alignment m_alignment;
    HiddenShape m_hiddenShape = HiddenRound;
    Edges m_edges;
    Gadget m_gadget;
    QObject *m_object = nullptr;
    Kinds *m_kinds = nullptr;
    QSize m_size;
    QPoint m_place;
    QColor m_colour;
    Listed m_listed;
    Unlisted m_unlisted;
    int m_resettable = 0;
    QString m_writeOnly;
    int m_finalNumber = 0;
    QString m_pointed;
    QString m_referred;
};

#endif
