// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "bindobjects.h"

#include <kelcheckbox.h>
#include <kelradiobox.h>
#include <kelslidecontrol.h>

#include <QtCore/QMetaProperty>
#include <QtGui/QColor>

#include <tuple>
#include <vector>

namespace {

struct Listed
{
    int number = 0;
};

struct Late
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

} // namespace

Q_DECLARE_METATYPE(Listed)
Q_DECLARE_METATYPE(Gadget)
#ifndef Q_MOC_RUN // which would have it registered by itself
Q_DECLARE_METATYPE(Late)
#endif

namespace {

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

QList<QByteArray> Kinds::names()
{
    QList<QByteArray> result;
    for (int i = staticMetaObject.propertyOffset(); i < staticMetaObject.propertyCount(); ++i)
        result.append(staticMetaObject.property(i).name());
    return result;
}

// What the two kinds of pointer point to.
QObject *namedObject(int seed)
{
    static Kinds objects[16];
    objects[seed].setObjectName(QString::number(seed));
    return &objects[seed];
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

// A property whose notify signal is that of the base.
class DerivedKinds : public Kinds
{
    Q_OBJECT
    Q_PROPERTY(double twice READ twice WRITE setTwice NOTIFY ratioChanged)

public:
    double twice() const { return 2 * ratio(); }
    void setTwice(double value) { setRatio(value / 2); }
};

// Answers by hand, as objects do whose meta-objects are made at run time.
class AnsweringModel : public Model
{
public:
    int qt_metacall(QMetaObject::Call call, int id, void **arguments) override
    {
        if (id != metaObject()->indexOfProperty("value"))
            return Model::qt_metacall(call, id, arguments);
        if (call == QMetaObject::ReadProperty) {
            *static_cast<QVariant *>(arguments[1]) = answer;
            *static_cast<int *>(arguments[2]) = 0;
            arguments[0] = &m_noAnswer;
        } else if (call == QMetaObject::WriteProperty) {
            written.append(*static_cast<int *>(arguments[0]));
            written.append(*static_cast<QVariant *>(arguments[1]));
            written.append(*static_cast<int *>(arguments[2]));
            written.append(*static_cast<int *>(arguments[3]));
        }
        return -1;
    }

    QVariant answer;
    QVariantList written;

private:
    int m_noAnswer = -5;
};

// Counts what it is told to write.
class CountingKinds : public Kinds
{
public:
    int qt_metacall(QMetaObject::Call call, int id, void **arguments) override
    {
        if (call == QMetaObject::WriteProperty)
            ++writes;
        return Kinds::qt_metacall(call, id, arguments);
    }

    int writes = 0;
};

class LateModel : public QObject
{
    Q_OBJECT
    Q_PROPERTY(Late late READ late WRITE setLate NOTIFY lateChanged)

public:
    Late late() const { return m_late; }
    void setLate(Late late)
    {
        m_late = late;
        ++writes;
        Q_EMIT lateChanged();
    }

    int writes = 0;

Q_SIGNALS:
    void lateChanged();

private:
    Late m_late;
};

// Gives back what it is given.
class PassingConverter : public IKELValueConverter
{
public:
    QVariant Convert(QObject * /*object*/, const QVariant &value) override
    {
        ++calls;
        return value;
    }
    QVariant ConvertBack(QObject *object, const QVariant &value) override
    {
        return Convert(object, value);
    }

    int calls = 0;
};

// Two pairs filled alike: one is bound, the other is copied by Qt's own functions.
class Twins
{
public:
    // Fills both pairs and calls the functions. Empty when values, calls and warnings are the same.
    template <typename Bound, typename Plain>
    QString differenceAfter(Bound bound, Plain plain)
    {
        ++m_seed;
        const QStringList boundWarnings = warningsOf(&m_bound, bound);
        const QStringList plainWarnings = warningsOf(&m_plain, plain);
        if (m_bound.source.isLike(m_plain.source) && m_bound.destination.isLike(m_plain.destination)
            && boundWarnings == plainWarnings)
            return QString();
        const QStringList words = m_bound.inWords() + boundWarnings
            + QStringList(u"-- instead of --"_s) + m_plain.inWords() + plainWarnings;
        return words.join(QLatin1Char('\n'));
    }

private:
    struct Pair
    {
        QStringList inWords() const { return source.inWords() + destination.inWords(); }

        Kinds source;
        Kinds destination;
    };

    template <typename Function>
    QStringList warningsOf(Pair *pair, Function function) const
    {
        pair->source.fill(m_seed);
        pair->destination.fill(m_seed + 1);
        pair->source.calls.clear();
        pair->destination.calls.clear();
        function(&pair->source, &pair->destination);
        return KelTest::takeWarnings();
    }

    int m_seed = 0;
    Pair m_bound;
    Pair m_plain;
};
} // namespace

namespace {

// Emits for a value that it has already, as a slider does.
class Echo : public QObject
{
    Q_OBJECT
    Q_PROPERTY(float value READ value WRITE setValue NOTIFY valueChanged)
    Q_PROPERTY(bool on READ isOn WRITE setOn NOTIFY onChanged)

public:
    float value() const { return m_value; }
    bool isOn() const { return m_on; }
    void setValue(float value)
    {
        m_value = value;
        if (++writes < 100)
            Q_EMIT valueChanged();
    }
    void setOn(bool on)
    {
        m_on = on;
        if (++writes < 100)
            Q_EMIT onChanged();
    }

    int writes = 0;

Q_SIGNALS:
    void valueChanged();
    void onChanged();

private:
    float m_value = 0;
    bool m_on = false;
};

// What comes back is the opposite of what was carried.
class OneSidedNot final : public IKELValueConverter
{
public:
    QVariant Convert(QObject * /*object*/, const QVariant &value) override { return value; }
    QVariant ConvertBack(QObject * /*object*/, const QVariant &value) override
    {
        return !value.toBool();
    }
};

} // namespace

class tst_KELDataBindValues : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        qRegisterMetaType<Gadget>();
        qRegisterMetaType<Kinds *>();
        qRegisterMetaType<Listed>();
        QMetaType::registerEqualsComparator<QVector<int>>();
        QMetaType::registerConverter<Listed, int>(
            [](const Listed &listed) { return listed.number; });
        QMetaType::registerConverter<int, Listed>([](int number) { return Listed{number}; });
    }

    void kindsOfProperty_data()
    {
        QTest::addColumn<QByteArray>("from");
        QTest::addColumn<QByteArray>("to");
        const QList<QByteArray> names = Kinds::names() + QList<QByteArray>{"undeclared"};
        for (const QByteArray &from : names) {
            for (const QByteArray &to : names)
                QTest::addRow("%s to %s", from.constData(), to.constData()) << from << to;
        }
    }

    // Every property to every other, both ways, as QObject::property() and setProperty() do it.
    void kindsOfProperty()
    {
        QFETCH(QByteArray, from);
        QFETCH(QByteArray, to);
        Twins twins;
        KELDataBind binding;
        const auto plainThere = [&](Kinds *source, Kinds *destination) {
            destination->setProperty(to, source->property(from));
        };
        const auto plainBack = [&](Kinds *source, Kinds *destination) {
            source->setProperty(from, destination->property(to));
        };
        QCOMPARE(twins.differenceAfter(
                     [&](Kinds *source, Kinds *destination) {
                         binding.setBind(source, from, destination, to, KELDataBind::Manual);
                     },
                     plainBack),
                 QString());
        const auto boundThere = [&](Kinds *, Kinds *) { carryToDestination(&binding); };
        const auto boundBack = [&](Kinds *, Kinds *) { carryToSource(&binding); };
        for (int times = 0; times < 2; ++times) {
            QCOMPARE(twins.differenceAfter(boundThere, plainThere), QString());
            QCOMPARE(twins.differenceAfter(boundThere, plainThere), QString());
            QCOMPARE(twins.differenceAfter(boundBack, plainBack), QString());
        }
        takeDebugLines();
    }

    void convertedValues_data() { kindsOfProperty_data(); }

    // What a converter makes is written as by setProperty(), unless it is invalid.
    void convertedValues()
    {
        QFETCH(QByteArray, from);
        QFETCH(QByteArray, to);
        Twins twins;
        PassingConverter converter;
        KELDataBind binding;
        const auto plainThere = [&](Kinds *source, Kinds *destination) {
            const QVariant value = source->property(from);
            if (value.isValid())
                destination->setProperty(to, value);
        };
        const auto plainBack = [&](Kinds *source, Kinds *destination) {
            const QVariant value = destination->property(to);
            if (value.isValid())
                source->setProperty(from, value);
        };
        QCOMPARE(twins.differenceAfter(
                     [&](Kinds *source, Kinds *destination) {
                         binding.setBind(source, from, destination, to, KELDataBind::Manual,
                                         &converter);
                     },
                     [&](Kinds *source, Kinds *destination) {
                         source->setProperty(from, destination->property(to));
                     }),
                 QString());
        QCOMPARE(converter.calls, 0);
        const auto boundThere = [&](Kinds *, Kinds *) { carryToDestination(&binding); };
        const auto boundBack = [&](Kinds *, Kinds *) { carryToSource(&binding); };
        for (int times = 0; times < 2; ++times) {
            QCOMPARE(twins.differenceAfter(boundThere, plainThere), QString());
            QCOMPARE(twins.differenceAfter(boundBack, plainBack), QString());
        }
        QCOMPARE(converter.calls, 4);
        takeDebugLines();
    }

    void notifySignals_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<QVariant>("value");
        QTest::newRow("two arguments") << QByteArray("number") << QVariant(5);
        QTest::newRow("private signal") << QByteArray("enabled") << QVariant(true);
        QTest::newRow("member") << QByteArray("wide") << QVariant(Q_INT64_C(5));
        QTest::newRow("argument by default") << QByteArray("ratio") << QVariant(5.5);
        QTest::newRow("text argument") << QByteArray("text") << QVariant(u"text"_s);
        QTest::newRow("value of any type") << QByteArray("anything") << QVariant(QSize(5, 6));
        QTest::newRow("signal of the base") << QByteArray("twice") << QVariant(10.5);
    }

    void notifySignals()
    {
        QFETCH(QByteArray, name);
        QFETCH(QVariant, value);
        DerivedKinds source;
        DerivedKinds destination;
        KELDataBind binding;
        binding.setBind(&source, name, &destination, name, KELDataBind::TwoWay);
        QCOMPARE(int(binding.bindMode()), 3);
        const QVariant initial = source.property(name);
        QVERIFY(initial != value);
        QVERIFY(source.setProperty(name, value));
        QCOMPARE(destination.property(name), value);
        QVERIFY(destination.setProperty(name, initial));
        QCOMPARE(source.property(name), initial);
        binding.unbind();
        source.setProperty(name, value);
        QCOMPARE(destination.property(name), initial);
        binding.bind();
        QCOMPARE(destination.property(name), value);
        QCOMPARE(takeDebugLines(), QStringList());
    }

    void typeRegisteredMeanwhile()
    {
        LateModel source;
        LateModel destination;
        KELDataBind binding;
        binding.setBind(&source, "late", &destination, "late", KELDataBind::OneWay);
        source.setLate(Late{5});
        // The first copy and the change.
        QCOMPARE(takeWarnings(),
                 QStringList(QVector<QString>(2,
                                              u"QMetaProperty::read: Unable to handle "
                                              "unregistered datatype 'Late' for "
                                              "property 'LateModel::late'"_s)
                                 .toList()));
        QCOMPARE(destination.writes, 0);

        qRegisterMetaType<Late>();
        source.setLate(Late{6});
        source.setLate(Late{7});
        QCOMPARE(destination.writes, 2);
        QCOMPARE(destination.late().number, 7);
    }

    void answersAtOnce()
    {
        AnsweringModel source;
        AnsweringModel destination;
        KELDataBind binding;
        binding.setBind(&source, "value", &destination, "value", KELDataBind::Manual);
        source.answer = 5;
        carryToDestination(&binding);
        QCOMPARE(destination.written, (QVariantList{5, 5, -1, 0}));

        // Of another type than the property.
        destination.written.clear();
        source.answer = u"6"_s;
        carryToDestination(&binding);
        QCOMPARE(destination.written, (QVariantList{6, 6, -1, 0}));
        QCOMPARE(destination.written.at(1).userType(), int(QMetaType::Int));
    }

    void readOnlyPropertyIsNotWritten()
    {
        Model source(5);
        CountingKinds destination;
        KELDataBind binding;
        for (const char *name : {"readOnly", "constant"}) {
            binding.setBind(&source, "value", &destination, name, KELDataBind::OneWay);
            carryToDestination(&binding);
            QCOMPARE(destination.writes, 0);
            binding.unbind();
        }
        binding.setBind(&source, "value", &destination, "number", KELDataBind::OneWay);
        carryToDestination(&binding);
        QCOMPARE(destination.writes, 1);
    }

    void directPathWritesInvalidValues()
    {
        Model source(1);
        Model destination(1);
        Kinds kinds;
        KELDefaultValueConverter marked;
        KELDataBind binding;
        for (IKELValueConverter *converter : {static_cast<IKELValueConverter *>(nullptr),
                                              static_cast<IKELValueConverter *>(&marked)}) {
            binding.setBind(&source, "nothing", &destination, "value", KELDataBind::Manual,
                            converter);
            source.setProperty("nothing", QVariant());
            destination.setValue(5);
            carryToDestination(&binding);
            QCOMPARE(destination.value(), 0);

            binding.setBind(&source, "nothing", &kinds, "resettable", KELDataBind::Manual,
                            converter);
            source.setProperty("nothing", QVariant());
            carryToDestination(&binding);
            QCOMPARE(kinds.resettable(), -1);

            binding.setBind(&destination, "value", &source, "nothing", KELDataBind::Manual,
                            converter);
            destination.setValue(5);
            carryToSource(&binding);
            QCOMPARE(destination.value(), 0);
            takeDebugLines();
        }
    }

    void dynamicPropertiesAppearAndVanish()
    {
        Model source(3);
        Model destination(3);
        KELDataBind binding;
        binding.setBind(&source, "nothing", &destination, "value", KELDataBind::Manual);
        takeDebugLines();
        const auto carried = [&](const QVariant &value) {
            source.setProperty("nothing", value);
            carryToDestination(&binding);
            return destination.value();
        };
        QCOMPARE(carried(5), 5);
        QCOMPARE(carried(QVariant()), 0);
        QCOMPARE(source.dynamicPropertyNames(), QList<QByteArray>());
        QCOMPARE(carried(u"6"_s), 6);

        destination.setValue(7);
        carryToSource(&binding);
        QCOMPARE(source.property("nothing"), QVariant(7));
        source.setProperty("nothing", QVariant());
        carryToSource(&binding);
        QCOMPARE(source.property("nothing"), QVariant(7));
    }

    void propertyAtAnotherIndexAndOfAnotherType()
    {
        Model number(1);
        Model destination(1);
        TextModel text;
        TextModel textDestination;
        KELDataBind binding;
        binding.setBind(&number, "value", &destination, "value", KELDataBind::OneWay);
        number.setValue(2);
        QCOMPARE(destination.value(), 2);

        binding.setBind(&text, "value", &textDestination, "value", KELDataBind::OneWay);
        text.setValue(u"12"_s);
        QCOMPARE(textDestination.writes, QStringList(u"12"_s));
        number.setValue(3);
        QCOMPARE(textDestination.writes, (QStringList{u"12"_s, u"12"_s}));

        binding.setBind(&text, "value", &destination, "value", KELDataBind::OneWay);
        destination.forget();
        number.setValue(4);
        QCOMPARE(destination.writes, Ints{2});
        text.third = u"44"_s;
        binding.setBind(&text, "third", &destination, "value", KELDataBind::Manual);
        destination.forget();
        text.third = u"45"_s;
        number.setValue(5);
        QCOMPARE(destination.writes, Ints{45});
        QCOMPARE(textDestination.first + textDestination.second, u"firstsecond"_s);
    }

    void shadowingPropertyIsTheOneBound()
    {
        ShadowingModel source;
        ShadowingModel destination;
        KELDataBind binding;
        binding.setBind(&source, "value", &destination, "value", KELDataBind::TwoWay);
        QCOMPARE(source.connections() + destination.connections(), 0);
        source.setText(u"new"_s);
        QCOMPARE(destination.text(), u"new"_s);
        destination.setText(u"newer"_s);
        QCOMPARE(source.text(), u"newer"_s);
        QCOMPARE(source.writes + destination.writes, Ints());
    }

    void shadowedPropertyServesTheDestructor()
    {
        auto *const source = new ShadowingModel(4);
        Model destination;
        KELDataBind binding;
        // Connected by the base's property, then carrying the one that is declared again.
        binding.setBind(source, "other", &destination, "value", KELDataBind::OneWay);
        QObject::connect(source, &Model::valueChanged, source, &Model::otherChanged);
        binding.setBind(source, "value", &destination, "value", KELDataBind::Manual);
        source->setText(u"12"_s);
        Q_EMIT source->otherChanged();
        QCOMPARE(destination.value(), 12);

        source->changesInDestructor = true;
        delete source;
        QCOMPARE(destination.value(), 5);
    }

    void metaObjectThatChanges_data()
    {
        QTest::addColumn<bool>("inPlace");
        QTest::newRow("in place") << true;
        QTest::newRow("to another") << false;
    }

    void metaObjectThatChanges()
    {
        QFETCH(bool, inPlace);
        ChangingModel source;
        ChangingModel destination;
        const auto change = [inPlace](ChangingModel *model) {
            inPlace ? model->showOwn() : model->showOwnElsewhere();
        };
        KELDataBind binding;
        binding.setBind(&source, "value", &destination, "value", KELDataBind::Manual);
        source.Model::setValue(3);
        carryToDestination(&binding);
        QCOMPARE(destination.Model::value(), 3);

        source.setText(u"5"_s);
        change(&source);
        carryToDestination(&binding);
        QCOMPARE(destination.Model::value(), 5);
        QCOMPARE(destination.text(), u"0"_s);

        change(&destination);
        source.setText(u"text"_s);
        carryToDestination(&binding);
        QCOMPARE(destination.text(), u"text"_s);
        QCOMPARE(destination.Model::value(), 5);
    }

    void checkBoxIsBound()
    {
        KELCheckBox box;
        Kinds model;
        model.setEnabled(true);
        const KELDataBind *binding = KELDataBind::bind(&box, "check", &model, "enabled",
                                                       KELDataBind::TwoWay);
        QVERIFY(!binding->hasError());
        QVERIFY(box.isCheck());
        const QSignalSpy changes(&box, &KELCheckBox::checkChanged);
        model.setEnabled(false);
        QVERIFY(!box.isCheck());
        box.setCheck(true);
        QVERIFY(model.enabled());
        QCOMPARE(changes.count(), 2);

        KELCheckBox second;
        KELDataBind::bind(&second, "check", &box, "check", KELDataBind::Auto);
        QVERIFY(second.isCheck());
        second.setCheck(false);
        QVERIFY(!box.isCheck() && !model.enabled());
    }

    void sliderIsBound()
    {
        KELSlideControl slider;
        slider.setMinimun(0);
        slider.setMaximun(10);
        Kinds model;
        model.setRatio(2.5);
        KELDataBind binding;
        binding.setBind(&slider, "value", &model, "ratio", KELDataBind::OneWay);
        QCOMPARE(slider.value(), 2.5F);
        slider.setValue(7.5F);
        QCOMPARE(model.ratio(), 7.5);

        binding.unbind();
        binding.setBind(&slider, "value", &model, "number", KELDataBind::OneWayToSource);
        model.setNumber(4);
        QCOMPARE(slider.value(), 4.0F);

        binding.unbind();
        slider.setStep(1);
        binding.setBind(&slider, "value", &model, "number", KELDataBind::TwoWay);
        slider.setValue(8);
        QCOMPARE(model.number(), 8);
        model.setNumber(20);
        QCOMPARE(slider.value(), 10.0F);
        QCOMPARE(model.number(), 10);
    }

    void twoWayOfASliderComesToRest_data()
    {
        QTest::addColumn<bool>("guards");
        QTest::addColumn<float>("step");
        QTest::addColumn<bool>("rests");
        QTest::newRow("partner that ignores the value it has") << true << 0.0F << true;
        QTest::newRow("and a step") << true << 5.0F << true;
        QTest::newRow("partner that emits for every value") << false << 0.0F << false;
        QTest::newRow("emits for every value, and a step") << false << 5.0F << true;
    }

    void twoWayOfASliderComesToRest()
    {
        QFETCH(const bool, guards);
        QFETCH(const float, step);
        QFETCH(const bool, rests);
        KELSlideControl slider;
        slider.setStep(step);
        Kinds model;
        Echo echo;
        if (guards)
            KELDataBind::bind(&slider, "value", &model, "ratio", KELDataBind::TwoWay);
        else
            KELDataBind::bind(&slider, "value", &echo, "value", KELDataBind::TwoWay);
        echo.writes = 0;
        const QSignalSpy changes(&slider, &KELSlideControl::valueChanged);
        slider.setValue(40);
        QCOMPARE(slider.value(), 40.0F);
        QCOMPARE(guards ? float(model.ratio()) : echo.value(), 40.0F);
        QCOMPARE(echo.writes < 100, rests);
        if (rests)
            QVERIFY(changes.count() <= 2);
    }

    void twoWayOfAGroupComesToRest_data()
    {
        QTest::addColumn<bool>("inverts");
        QTest::addColumn<QVector<int>>("ids");
        QTest::addColumn<bool>("rests");
        QTest::newRow("partner that emits for every value") << false << QVector<int>{0, 1} << true;
        QTest::newRow("more boxes") << false << QVector<int>{0, 1, 2} << true;
        QTest::newRow("the opposite comes back") << true << QVector<int>{0, 1} << false;
        QTest::newRow("the opposite comes back, no box 0") << true << QVector<int>{1, 2} << true;
        QTest::newRow("the opposite comes back, no box 1") << true << QVector<int>{0, 2} << true;
    }

    void twoWayOfAGroupComesToRest()
    {
        QFETCH(const bool, inverts);
        QFETCH(const QVector<int>, ids);
        QFETCH(const bool, rests);
        std::vector<KELRadioBox> boxes(std::size_t(ids.size()));
        KELRadioBoxGroup group;
        for (int i = 0; i < ids.size(); ++i)
            group.addRadioBox(&boxes[std::size_t(i)], ids.at(i));
        group.setId(ids.last());
        group.setId(ids.first());
        Echo echo;
        OneSidedNot converter;
        KELDataBind::bind(&group, "id", &echo, "on", KELDataBind::TwoWay,
                          inverts ? &converter : nullptr);
        echo.writes = 0;
        for (const int id : ids)
            group.setId(id);
        QCOMPARE(echo.writes < 100, rests);
    }
};

KEL_TEST_MAIN(tst_KELDataBindValues)
#include "tst_keldatabindvalues.moc"
