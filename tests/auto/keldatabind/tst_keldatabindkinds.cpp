// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "bindkinds.h"

namespace {

struct Late
{
    int number = 0;
};

} // namespace

#ifndef Q_MOC_RUN // which would have it registered by itself
Q_DECLARE_METATYPE(Late)
#endif

namespace {

// A property whose notify signal is that of the base.
class DerivedKinds : public Kinds
{
    Q_OBJECT
    Q_PROPERTY(double twice READ twice WRITE setTwice NOTIFY ratioChanged)

public:
    double twice() const { return 2 * ratio(); }
    void setTwice(double value) { setRatio(value / 2); }
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

class tst_KELDataBindKinds : public KelTest
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
};

KEL_TEST_MAIN(tst_KELDataBindKinds)
#include "tst_keldatabindkinds.moc"
