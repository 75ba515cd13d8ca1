// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "bindactors.h"
#include "keltest.h"
#include "rows.h"

#include <memory>
#include <type_traits>

namespace {

// Runs a hook when a dynamic property of it changes.
class EventActor : public QObject
{
public:
    Hook onPropertyEvent;

protected:
    bool event(QEvent *event) override
    {
        if (event->type() == QEvent::DynamicPropertyChange)
            run(&onPropertyEvent);
        return true;
    }
};

QT_WARNING_PUSH
QT_WARNING_DISABLE_GCC("-Wnon-virtual-dtor")
QT_WARNING_DISABLE_CLANG("-Wnon-virtual-dtor")

// Whatever it is given, it answers a new value, so that a two-way binding echoes without end.
class CountingConverter final : public IKELValueConverter
{
public:
    QVariant Convert(QObject * /*object*/, const QVariant & /*value*/) override
    {
        return counted();
    }
    QVariant ConvertBack(QObject * /*object*/, const QVariant & /*value*/) override
    {
        return counted();
    }

    Hook onConvert; // at the call of that number
    int hookedCall = 0;
    int calls = 0;

private:
    QVariant counted()
    {
        constexpr int firstAnswer = 1000;
        if (++calls == hookedCall)
            run(&onConvert);
        return firstAnswer + calls;
    }
};

QT_WARNING_POP

enum class Operation {
    Idle,
    ChangeSource,
    ChangeDestination,
    SetBind,
    StaticBind,
    BindOneWay,
    BindTwoWay,
    BindOneWayToSource,
    Update
};

enum class Moment {
    SourceGetter,
    SourceSetter,
    EarlySourceSlot, // connected before the binding was
    LateSourceSlot,
    SourceConnected, // in its connectNotify()
    DestinationGetter,
    DestinationSetter,
    EarlyDestinationSlot,
    LateDestinationSlot,
    DestinationConnected,
    Converter
};

struct NamedOperation
{
    Operation operation;
    const char *name;
    QVector<Moment> moments; // of those that can be
    QVector<Moment> momentsWithConverter; // and these
};

const NamedOperation operations[] = {
    {Operation::ChangeSource,
     "source changed",
     {Moment::SourceSetter, Moment::EarlySourceSlot, Moment::SourceGetter,
      Moment::DestinationSetter, Moment::EarlyDestinationSlot, Moment::DestinationGetter,
      Moment::LateDestinationSlot, Moment::LateSourceSlot},
     {Moment::Converter}},
    {Operation::ChangeDestination,
     "destination changed",
     {Moment::DestinationSetter, Moment::EarlyDestinationSlot, Moment::DestinationGetter,
      Moment::SourceSetter, Moment::EarlySourceSlot, Moment::SourceGetter, Moment::LateSourceSlot,
      Moment::LateDestinationSlot},
     {Moment::Converter}},
    {Operation::SetBind,
     "setBind",
     {Moment::DestinationGetter, Moment::SourceSetter, Moment::EarlySourceSlot,
      Moment::SourceGetter, Moment::DestinationSetter, Moment::LateSourceSlot,
      Moment::SourceConnected, Moment::DestinationConnected},
     {Moment::Converter, Moment::EarlyDestinationSlot, Moment::LateDestinationSlot}},
    {Operation::StaticBind,
     "static bind",
     {Moment::DestinationGetter, Moment::SourceSetter, Moment::EarlySourceSlot,
      Moment::SourceConnected, Moment::DestinationConnected},
     {}},
    {Operation::BindOneWay,
     "bind, one way",
     {Moment::SourceConnected, Moment::SourceGetter, Moment::DestinationSetter},
     {Moment::Converter}},
    {Operation::BindTwoWay,
     "bind, two way",
     {Moment::SourceConnected, Moment::DestinationConnected, Moment::SourceGetter,
      Moment::DestinationSetter},
     {Moment::Converter}},
    {Operation::BindOneWayToSource,
     "bind, one way to source",
     {Moment::DestinationConnected, Moment::DestinationGetter, Moment::SourceSetter},
     {Moment::Converter}},
    {Operation::Update,
     "update",
     {Moment::DestinationGetter, Moment::SourceSetter},
     {Moment::Converter}},
};

const char *inWords(Moment moment)
{
    switch (moment) {
    case Moment::SourceGetter:
        return "source's getter";
    case Moment::SourceSetter:
        return "source's setter";
    case Moment::EarlySourceSlot:
        return "early slot of the source";
    case Moment::LateSourceSlot:
        return "late slot of the source";
    case Moment::SourceConnected:
        return "source's connectNotify";
    case Moment::DestinationGetter:
        return "destination's getter";
    case Moment::DestinationSetter:
        return "destination's setter";
    case Moment::EarlyDestinationSlot:
        return "early slot of the destination";
    case Moment::LateDestinationSlot:
        return "late slot of the destination";
    case Moment::DestinationConnected:
        return "destination's connectNotify";
    case Moment::Converter:
        break;
    }
    return "converter";
}

enum class Parent { None, Source, Destination };

// One letter an object, in the order of their destruction: source, destination, binding.
const char *const allOrders[] = {"s",  "d",   "b",   "sd",  "ds",  "sb",  "bs", "db",
                                 "bd", "sdb", "sbd", "dsb", "dbs", "bsd", "bds"};
const char *const ordersWithAParent[] = {"s", "d", "sd", "ds"};

// A bound pair and what is done with it.
class Stage
{
public:
    Stage(Operation operation, bool withConverter, Parent parent = Parent::None);
    ~Stage();

    void setHook(Moment moment, const Hook &hook);
    void operate();
    void destroy(const QString &order);

    QPointer<Actor> source = new Actor(1);
    QPointer<Actor> destination = new Actor(1);
    QPointer<KELDataBind> binding;
    KELDataBind *returned = nullptr; // by the static bind()
    HookedConverter converter;
    HookedConverter *ownConverter = nullptr; // instead of that one

private:
    void connectSlots(Hook *sourceHook, Hook *destinationHook);
    IKELValueConverter *usedConverter()
    {
        return ownConverter ? ownConverter : m_withConverter ? &converter : nullptr;
    }
    KELDataBind::BindMode mode() const;

    const Operation m_operation;
    const bool m_withConverter;
    Hook m_early[2];
    Hook m_late[2];
};

Stage::Stage(Operation operation, bool withConverter, Parent parent) :
    m_operation(operation), m_withConverter(withConverter)
{
    connectSlots(&m_early[0], &m_early[1]);
    if (operation != Operation::StaticBind) {
        binding = new KELDataBind(parent == Parent::Source            ? source
                                      : parent == Parent::Destination ? destination
                                                                      : nullptr);
        binding->setBind(source, "value", destination, "value", mode(), usedConverter());
    }
    connectSlots(&m_late[0], &m_late[1]);
    source->setSilently(3);
    destination->setSilently(7);
}

Stage::~Stage()
{
    delete binding;
    delete source;
    delete destination;
}

void Stage::connectSlots(Hook *sourceHook, Hook *destinationHook)
{
    const auto connectTo = [](Actor *actor, Hook *hook) {
        QObject::connect(actor, &Actor::valueChanged, qApp, [hook] { run(hook); });
    };
    connectTo(source, sourceHook);
    connectTo(destination, destinationHook);
}

KELDataBind::BindMode Stage::mode() const
{
    switch (m_operation) {
    case Operation::BindOneWay:
        return KELDataBind::OneWay;
    case Operation::BindOneWayToSource:
        return KELDataBind::OneWayToSource;
    default:
        return KELDataBind::TwoWay;
    }
}

void Stage::setHook(Moment moment, const Hook &hook)
{
    switch (moment) {
    case Moment::SourceGetter:
        source->onRead = hook;
        break;
    case Moment::SourceSetter:
        source->onWrite = hook;
        break;
    case Moment::EarlySourceSlot:
        m_early[0] = hook;
        break;
    case Moment::LateSourceSlot:
        m_late[0] = hook;
        break;
    case Moment::SourceConnected:
        source->onConnect = hook;
        break;
    case Moment::DestinationGetter:
        destination->onRead = hook;
        break;
    case Moment::DestinationSetter:
        destination->onWrite = hook;
        break;
    case Moment::EarlyDestinationSlot:
        m_early[1] = hook;
        break;
    case Moment::LateDestinationSlot:
        m_late[1] = hook;
        break;
    case Moment::DestinationConnected:
        destination->onConnect = hook;
        break;
    case Moment::Converter:
        converter.onConvert = hook;
        break;
    }
}

void Stage::operate()
{
    switch (m_operation) {
    case Operation::Idle:
        break;
    case Operation::ChangeSource:
        source->setValue(20);
        break;
    case Operation::ChangeDestination:
        destination->setValue(20);
        break;
    case Operation::SetBind:
        binding->setBind(source, "value", destination, "value", mode(), usedConverter());
        break;
    case Operation::StaticBind:
        returned = KELDataBind::bind(source, "value", destination, "value", mode());
        break;
    case Operation::BindOneWay:
    case Operation::BindTwoWay:
    case Operation::BindOneWayToSource:
        binding->bind();
        break;
    case Operation::Update:
        binding->update();
        break;
    }
}

void Stage::destroy(const QString &order)
{
    for (const QChar letter : order) {
        if (letter == QLatin1Char('s'))
            delete source;
        else if (letter == QLatin1Char('d'))
            delete destination;
        else
            delete binding;
    }
}

QString errorLine(const char *side)
{
    return u"error : could not find %1 property ' value '"_s.arg(QString::fromUtf8(side));
}

// What setBind() says when it goes on after the destruction. Once it connects, it has found both.
QStringList expectedLines(Operation operation, Moment moment, const Stage &stage)
{
    if ((operation != Operation::SetBind && operation != Operation::StaticBind) || !stage.binding
        || moment == Moment::SourceConnected || moment == Moment::DestinationConnected)
        return {};
    if (!stage.source)
        return {errorLine("src")};
    return stage.destination ? QStringList() : QStringList(errorLine("dst"));
}

int writesOf(const Stage &stage)
{
    return (stage.source ? stage.source->writes : 0)
        + (stage.destination ? stage.destination->writes : 0);
}

template <typename Add>
void forEachSituation(Add add)
{
    for (const NamedOperation &operation : operations) {
        for (const Moment moment : operation.moments) {
            add(operation, moment, false);
            if (operation.operation != Operation::StaticBind)
                add(operation, moment, true);
        }
        for (const Moment moment : operation.momentsWithConverter)
            add(operation, moment, true);
    }
}

} // namespace

class tst_KELDataBindLifetime : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void destroyed_data()
    {
        QTest::addColumn<int>("operation");
        QTest::addColumn<int>("moment");
        QTest::addColumn<bool>("withConverter");
        QTest::addColumn<int>("parent");
        QTest::addColumn<QString>("order");

        const auto add = [](const NamedOperation &operation, Moment moment, bool withConverter,
                            Parent parent, const char *order) {
            static const char *const parents[] = {"none", "source", "destination"};
            QTest::addRow("%s, in %s, %s converter, parent %s, order %s", operation.name,
                          inWords(moment), withConverter ? "with" : "without", parents[int(parent)],
                          order)
                << int(operation.operation) << int(moment) << withConverter << int(parent)
                << QString::fromUtf8(order);
        };
        const auto addAll = [add](const NamedOperation &operation, Moment moment,
                                  bool withConverter) {
            for (const char *order : allOrders)
                add(operation, moment, withConverter, Parent::None, order);
            if (operation.operation == Operation::StaticBind)
                return;
            for (const Parent parent : {Parent::Source, Parent::Destination}) {
                for (const char *order : ordersWithAParent)
                    add(operation, moment, withConverter, parent, order);
            }
        };
        addAll({Operation::Idle, "idle", {}, {}}, Moment::Converter, true);
        forEachSituation(addAll);
    }

    void destroyed()
    {
        const auto operation = fetch<Operation>("operation");
        const auto moment = fetch<Moment>("moment");
        QFETCH(bool, withConverter);
        const auto parent = fetch<Parent>("parent");
        QFETCH(QString, order);
        Stage stage(operation, withConverter, parent);
        int calls = 0;
        int writes = 0;
        const auto destroy = [&] {
            ++calls;
            if (operation == Operation::StaticBind)
                stage.binding = stage.source->findChild<KELDataBind *>();
            QVERIFY(stage.binding);
            stage.destroy(order);
            writes = writesOf(stage);
        };
        if (operation == Operation::Idle)
            destroy();
        else
            stage.setHook(moment, destroy);
        stage.operate();

        QCOMPARE(calls, 1);
        QCOMPARE(takeDebugLines(), expectedLines(operation, moment, stage));
        if (operation == Operation::StaticBind)
            QCOMPARE(stage.returned, stage.binding.data());
        if (!stage.binding || (!stage.source && !stage.destination))
            QCOMPARE(writesOf(stage), writes);
        QVERIFY(!stage.converter.isCalledWithoutObject);
        QVERIFY(!stage.source || !stage.source->signalsBlocked());
        QVERIFY(!stage.destination || !stage.destination->signalsBlocked());
        verifyDead(stage);
    }

    void boundAnew_data()
    {
        QTest::addColumn<int>("operation");
        QTest::addColumn<int>("moment");
        QTest::addColumn<bool>("withConverter");
        QTest::addColumn<bool>("succeeds");

        forEachSituation([](const NamedOperation &operation, Moment moment, bool withConverter) {
            for (const bool succeeds : {true, false}) {
                QTest::addRow("%s, in %s, %s converter, inner call %s", operation.name,
                              inWords(moment), withConverter ? "with" : "without",
                              succeeds ? "succeeds" : "fails")
                    << int(operation.operation) << int(moment) << withConverter << succeeds;
            }
        });
    }

    // The later call stays in force, whatever the outer one was about to do.
    void boundAnew()
    {
        const auto operation = fetch<Operation>("operation");
        const auto moment = fetch<Moment>("moment");
        QFETCH(bool, withConverter);
        QFETCH(bool, succeeds);
        Stage stage(operation, withConverter);
        Actor source(50);
        Actor destination(60);
        int oldWrites = -1;
        int oldMode = -1;
        stage.setHook(moment, [&] {
            if (operation == Operation::StaticBind)
                stage.binding = stage.source->findChild<KELDataBind *>();
            oldMode = stage.binding->bindMode();
            stage.binding->setBind(&source, succeeds ? "value" : "nothing", &destination, "value",
                                   KELDataBind::OneWay);
            oldWrites = writesOf(stage);
        });
        stage.operate();

        QCOMPARE(writesOf(stage), oldWrites);
        QCOMPARE(int(stage.binding->bindMode()), succeeds ? 2 : oldMode);
        QCOMPARE(takeDebugLines(),
                 succeeds ? QStringList()
                          : QStringList(u"error : could not find src property ' nothing '"_s));
        QCOMPARE(source.value(), succeeds ? 60 : 50);
        QCOMPARE(source.property("nothing"), succeeds ? QVariant() : QVariant(60));
        QCOMPARE(destination.value(), 60);
        QVERIFY(!stage.source->signalsBlocked() && !stage.destination->signalsBlocked());
        QVERIFY(!source.signalsBlocked() && !destination.signalsBlocked());
        QCOMPARE(source.connections(), int(succeeds));
        QCOMPARE(destination.connections(), 0);

        destination.writes = 0;
        source.setValue(70);
        QCOMPARE(destination.writes, int(succeeds));
        QCOMPARE(destination.value(), succeeds ? 70 : 60);
        // The old objects are only listened to.
        stage.source->setValue(1000);
        stage.destination->setValue(2000);
        QCOMPARE(writesOf(stage), oldWrites + 2);

        stage.binding->unbind();
        QCOMPARE(source.connections(), 0);
    }

    void converterDeletesItself_data()
    {
        QTest::addColumn<int>("operation");
        QTest::addColumn<QString>("order");
        for (const NamedOperation &operation : operations) {
            if (operation.operation == Operation::StaticBind)
                continue;
            for (const char *order : {"", "b", "s", "d", "sdb"}) {
                QTest::addRow("%s, order %s", operation.name, *order ? order : "none")
                    << int(operation.operation) << QString::fromUtf8(order);
            }
        }
    }

    // As the last thing it does.
    void converterDeletesItself()
    {
        const auto operation = fetch<Operation>("operation");
        QFETCH(QString, order);
        Stage stage(operation, true);
        auto *const converter = new HookedConverter;
        const auto mode = stage.binding->bindMode();
        stage.binding->unbind();
        stage.binding->setBind(stage.source, "value", stage.destination, "value", mode, converter);
        stage.source->setSilently(3);
        stage.destination->setSilently(7);
        stage.ownConverter = converter;
        int calls = 0;
        converter->onConvert = [&] {
            ++calls;
            stage.destroy(order);
            stage.ownConverter = nullptr;
            if (stage.binding)
                stage.binding->setBind(nullptr, "value", nullptr, "value", KELDataBind::Manual);
            delete converter;
        };
        stage.operate();

        QCOMPARE(calls, 1);
        QCOMPARE(takeDebugLines(), stage.binding ? QStringList(errorLine("src")) : QStringList());
        QVERIFY(!stage.source || !stage.source->signalsBlocked());
        QVERIFY(!stage.destination || !stage.destination->signalsBlocked());
        verifyDead(stage);
    }

    void converterDiesBeforeTheBinding_data()
    {
        QTest::addColumn<QString>("order");
        for (const char *order : allOrders)
            QTest::newRow(order) << QString::fromUtf8(order);
    }

    // Nothing but a change, bind() and update() asks the converter anything.
    void converterDiesBeforeTheBinding()
    {
        QFETCH(QString, order);
        Stage stage(Operation::Idle, false);
        std::unique_ptr<HookedConverter> converter(new HookedConverter);
        stage.binding->unbind();
        stage.binding->setBind(stage.source, "value", stage.destination, "value",
                               KELDataBind::TwoWay, converter.get());
        converter.reset();
        stage.binding->unbind();
        QCOMPARE(int(stage.binding->bindMode()), 3);
        stage.source->setValue(20);
        stage.destination->setValue(30);
        stage.binding->setBind(stage.source, "value", stage.destination, "value",
                               KELDataBind::TwoWay);
        QCOMPARE(stage.source->value(), 30);
        stage.source->setValue(40);
        QCOMPARE(stage.destination->value(), 40);

        converter.reset(new HookedConverter);
        stage.binding->setBind(stage.source, "value", stage.destination, "value",
                               KELDataBind::TwoWay, converter.get());
        converter.reset();
        stage.destroy(order);
        delete stage.binding;
        QCOMPARE(takeDebugLines(), QStringList());
    }

    // In the source's getter. AddressSanitizer sees a look at the converter after that.
    void converterDiesWithTheDestination()
    {
        Stage stage(Operation::ChangeSource, false);
        std::unique_ptr<HookedConverter> converter(new HookedConverter);
        stage.binding->unbind();
        stage.binding->setBind(stage.source, "value", stage.destination, "value",
                               KELDataBind::OneWay, converter.get());
        stage.setHook(Moment::SourceGetter, [&] {
            stage.destroy(u"d"_s);
            converter.reset();
        });
        stage.operate();
        QVERIFY(!converter);
        QCOMPARE(takeDebugLines(), QStringList());
        verifyDead(stage);
    }

    void converterDeletedThroughTheInterface()
    {
        static_assert(
            std::is_destructible_v<
                IKELValueConverter> && !std::has_virtual_destructor_v<IKELValueConverter>);
        Actor source(1);
        Actor destination(2);
        // It adds nothing to the interface: there is no destructor to miss.
        const std::unique_ptr<IKELValueConverter> converter(new KELDefaultValueConverter);
        KELDataBind binding;
        binding.setBind(&source, "value", &destination, "value", KELDataBind::OneWay,
                        converter.get());
        source.setValue(3);
        QCOMPARE(destination.value(), 3);
        binding.unbind();
    }

    void destroyedInAPropertyEvent_data()
    {
        QTest::addColumn<bool>("isFirstCopy");
        QTest::addColumn<QString>("order");
        for (const char *order : allOrders) {
            QTest::addRow("first copy, order %s", order) << true << QString::fromUtf8(order);
            QTest::addRow("update, order %s", order) << false << QString::fromUtf8(order);
        }
    }

    // The source, which has no such property, is told of the dynamic one.
    void destroyedInAPropertyEvent()
    {
        QFETCH(bool, isFirstCopy);
        QFETCH(QString, order);
        QPointer<EventActor> source(new EventActor);
        QPointer<Actor> destination(new Actor(7));
        QPointer<KELDataBind> binding(new KELDataBind);
        const auto bind = [&] {
            binding->setBind(source, "value", destination, "value", KELDataBind::TwoWay);
        };
        if (!isFirstCopy) {
            bind();
            QCOMPARE(takeDebugLines(), QStringList(errorLine("src")));
            destination->setSilently(8);
        }
        int calls = 0;
        source->onPropertyEvent = [&] {
            ++calls;
            for (const QChar letter : order) {
                if (letter == QLatin1Char('s'))
                    delete source;
                else if (letter == QLatin1Char('d'))
                    delete destination;
                else
                    delete binding;
            }
        };
        isFirstCopy ? bind() : binding->update();

        QCOMPARE(calls, 1);
        QCOMPARE(takeDebugLines(),
                 isFirstCopy && binding ? QStringList(errorLine("src")) : QStringList());
        if (source)
            QCOMPARE(source->property("value"), QVariant(isFirstCopy ? 7 : 8));
        QVERIFY(!source || !source->signalsBlocked());
        delete binding;
        delete source;
        delete destination;
    }

    void destroyedWhenTheOtherIsDestroyed_data()
    {
        QTest::addColumn<QString>("first");
        QTest::addColumn<QString>("others");
        const QString all = u"sdb"_s;
        for (const char *order : allOrders) {
            const QString letters = QString::fromUtf8(order);
            for (const QChar first : all) {
                if (!letters.contains(first))
                    QTest::addRow("%c, then %s", first.toLatin1(), order)
                        << QString(first) << letters;
            }
        }
    }

    // In a slot of its destroyed().
    void destroyedWhenTheOtherIsDestroyed()
    {
        QFETCH(QString, first);
        QFETCH(QString, others);
        Stage stage(Operation::Idle, true);
        QObject *const dying = first == QLatin1String("s") ? stage.source.data()
            : first == QLatin1String("d")                  ? stage.destination.data()
                                                           : static_cast<QObject *>(stage.binding);
        const bool isBinding = dying == stage.binding;
        int calls = 0;
        const auto destroyOthers = [&] {
            ++calls;
            if (!isBinding) {
                stage.binding->update();
                QCOMPARE(takeDebugLines(), QStringList());
                stage.binding->bind();
                QCOMPARE(takeDebugLines(), QStringList(u"error : bind is not setted"_s));
            }
            stage.destroy(others);
        };
        connect(dying, &QObject::destroyed, qApp, destroyOthers);
        stage.destroy(first);
        QCOMPARE(calls, 1);
        QCOMPARE(takeDebugLines(), QStringList());
        verifyDead(stage);
    }

    void destroyedDeepInsideEchoes_data()
    {
        QTest::addColumn<int>("depth");
        QTest::addColumn<QString>("order");
        for (const int depth : {1, 2, 3, 20}) {
            for (const char *order : allOrders)
                QTest::addRow("depth %d, order %s", depth, order)
                    << depth << QString::fromUtf8(order);
        }
    }

    void destroyedDeepInsideEchoes()
    {
        QFETCH(int, depth);
        QFETCH(QString, order);
        Stage stage(Operation::Idle, false);
        CountingConverter converter;
        stage.binding->unbind();
        stage.binding->setBind(stage.source, "value", stage.destination, "value",
                               KELDataBind::TwoWay, &converter);
        // Every change would be carried twice, also on the way out.
        stage.binding->setBind(stage.source, "value", stage.destination, "value",
                               KELDataBind::TwoWay, &converter);
        QCOMPARE(converter.calls, 0);
        int writes = -1;
        converter.hookedCall = depth;
        converter.onConvert = [&] {
            stage.destroy(order);
            writes = writesOf(stage);
        };
        stage.source->setValue(20);

        // What was read of the object that died alone is still written.
        const QLatin1String origin(depth % 2 ? "s" : "d");
        QCOMPARE(converter.calls, depth);
        QCOMPARE(writesOf(stage), writes + int(order == origin));
        QCOMPARE(takeDebugLines(), QStringList());
        verifyDead(stage);
    }

private:
    // What is left carries nothing any more, and does not touch what is gone.
    static void verifyDead(const Stage &stage)
    {
        for (Actor *actor : {stage.source.data(), stage.destination.data()}) {
            if (!actor)
                continue;
            const int writes = writesOf(stage);
            actor->setValue(actor->value() + 1);
            QCOMPARE(writesOf(stage), writes + 1);
        }
        if (!stage.binding)
            return;
        const int writes = writesOf(stage);
        QVERIFY(QMetaObject::invokeMethod(stage.binding, "srcValueChanged"));
        QVERIFY(QMetaObject::invokeMethod(stage.binding, "dstValueChanged"));
        stage.binding->update();
        QCOMPARE(takeDebugLines(), QStringList());
        stage.binding->bind();
        QCOMPARE(takeDebugLines(), QStringList(u"error : bind is not setted"_s));
        stage.binding->unbind();
        QCOMPARE(writesOf(stage), writes);
        Actor source(1);
        Actor destination(5);
        stage.binding->setBind(&source, "value", &destination, "value", KELDataBind::TwoWay);
        destination.setValue(6);
        QCOMPARE(source.value(), 6);
    }

    static void verifyAlive(const Stage &stage);
};

KEL_TEST_MAIN(tst_KELDataBindLifetime)
#include "tst_keldatabindlifetime.moc"
