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
        QTest::addColumn<bool>("withConverter");
        const QList<QByteArray> names = Kinds::names() + QList<QByteArray>{"undeclared"};
        for (const QByteArray &from : names) {
            for (const QByteArray &to : names) {
                QTest::addRow("%s to %s", from.constData(), to.constData()) << from << to << false;
                QTest::addRow("%s to %s, converted", from.constData(), to.constData())
                    << from << to << true;
            }
        }
    }

    // Every property to every other, both ways, as QObject::property() and setProperty() do it. Of
    // what a converter makes, only the invalid is not written.
    void kindsOfProperty()
    {
        QFETCH(QByteArray, from);
        QFETCH(QByteArray, to);
        QFETCH(bool, withConverter);
        Twins twins;
        PassingConverter passing;
        IKELValueConverter *const converter = withConverter ? &passing : nullptr;
        KELDataBind binding;
        QCOMPARE(twins.differenceAfter(
                     [&](Kinds *source, Kinds *destination) {
                         binding.setBind(source, from, destination, to, KELDataBind::Manual,
                                         converter);
                     },
                     [&](Kinds *source, Kinds *destination) {
                         source->setProperty(from, destination->property(to));
                     }),
                 QString());
        QCOMPARE(passing.calls, 0);

        const auto write = [&](QObject *object, const QByteArray &name, const QVariant &value) {
            if (value.isValid() || !withConverter)
                object->setProperty(name, value);
        };
        const auto boundThere = [&](Kinds *, Kinds *) { carryToDestination(&binding); };
        const auto plainThere = [&](Kinds *source, Kinds *destination) {
            write(destination, to, source->property(from));
        };
        const auto boundBack = [&](Kinds *, Kinds *) { carryToSource(&binding); };
        const auto plainBack = [&](Kinds *source, Kinds *destination) {
            write(source, from, destination->property(to));
        };
        for (int times = 0; times < 2; ++times) {
            QCOMPARE(twins.differenceAfter(boundThere, plainThere), QString());
            QCOMPARE(twins.differenceAfter(boundThere, plainThere), QString());
            QCOMPARE(twins.differenceAfter(boundBack, plainBack), QString());
        }
        QCOMPARE(passing.calls, withConverter ? 6 : 0);
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
        BindStageOf<DerivedKinds> stage;
        stage.setBind(name, name, KELDataBind::TwoWay);
        QCOMPARE(stage.binding.bindMode(), KELDataBind::TwoWay);
        const QVariant initial = stage.source.property(name);
        QVERIFY(initial != value);
        QVERIFY(stage.source.setProperty(name, value));
        QCOMPARE(stage.destination.property(name), value);
        QVERIFY(stage.destination.setProperty(name, initial));
        QCOMPARE(stage.source.property(name), initial);
        stage.binding.unbind();
        stage.source.setProperty(name, value);
        QCOMPARE(stage.destination.property(name), initial);
        stage.binding.bind();
        QCOMPARE(stage.destination.property(name), value);
        QCOMPARE(takeDebugLines(), QStringList());
    }

    void typeRegisteredMeanwhile()
    {
        BindStageOf<LateModel> stage;
        stage.setBind("late", "late", KELDataBind::OneWay);
        stage.source.setLate(Late{5});
        const QString warning = u"QMetaProperty::read: Unable to handle unregistered datatype "
                                "'Late' for property 'LateModel::late'"_s;
        // The first copy and the change.
        QCOMPARE(takeWarnings(), (QStringList{warning, warning}));
        QCOMPARE(stage.destination.writes, 0);

        qRegisterMetaType<Late>();
        stage.source.setLate(Late{6});
        stage.source.setLate(Late{7});
        QCOMPARE(stage.destination.writes, 2);
        QCOMPARE(stage.destination.late().number, 7);
    }

    void readOnlyPropertyIsNotWritten()
    {
        const auto writesTo = [](const char *name) {
            Model source(5);
            CountingKinds destination;
            KELDataBind binding;
            binding.setBind(&source, "value", &destination, name, KELDataBind::OneWay);
            carryToDestination(&binding);
            return destination.writes;
        };
        QCOMPARE(writesTo("readOnly"), 0);
        QCOMPARE(writesTo("constant"), 0);
        QCOMPARE(writesTo("number"), 1);
    }

    void directPathWritesInvalidValues_data()
    {
        addRows({{"isMarked", {{"no converter", false}, {"default converter", true}}}});
    }

    void directPathWritesInvalidValues()
    {
        KELDefaultValueConverter marked;
        IKELValueConverter *const converter = fetch<bool>("isMarked") ? &marked : nullptr;
        BindStage stage;
        stage.setBind("nothing", "value", KELDataBind::Manual, converter);
        stage.source.setProperty("nothing", QVariant());
        stage.destination.setValue(5);
        carryToDestination(&stage.binding);
        QCOMPARE(stage.destination.value(), 0);

        Kinds kinds;
        stage.binding.setBind(&stage.source, "nothing", &kinds, "resettable", KELDataBind::Manual,
                              converter);
        stage.source.setProperty("nothing", QVariant());
        carryToDestination(&stage.binding);
        QCOMPARE(kinds.resettable(), -1);

        stage.setBind("value", "nothing", KELDataBind::Manual, converter);
        stage.source.setValue(5);
        carryToSource(&stage.binding);
        QCOMPARE(stage.source.value(), 0);
        takeDebugLines();
    }
};

KEL_TEST_MAIN(tst_KELDataBindKinds)
#include "tst_keldatabindkinds.moc"
