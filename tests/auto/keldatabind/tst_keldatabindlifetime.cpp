// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "bindactors.h"
#include "bindobjects.h"

#include <algorithm>
#include <memory>
#include <string_view>
#include <type_traits>

namespace {

enum Parent { NoParent, SourceIsParent, DestinationIsParent };

// A bound pair whose parts may be destroyed, with hooks wherever foreign code runs.
class Stage
{
public:
    explicit Stage(BindMode bindMode, bool withConverter, Parent parent = NoParent) : mode(bindMode)
    {
        if (withConverter)
            converter = std::make_unique<HookedConverter>();
        QObject *const parents[] = {nullptr, source, destination};
        connectSlots(early);
        binding = new KELDataBind(parents[parent]);
        setBind();
        connectSlots(late);
        source->setSilently(3);
        destination->setSilently(7);
    }
    ~Stage() { destroy("bsd"); }

    void setBind()
    {
        binding->setBind(source, "value", destination, "value", mode, converter.get());
    }
    // That of a static bind() is known only to the source at first.
    KELDataBind *findBinding()
    {
        if (!binding)
            binding = source->findChild<KELDataBind *>();
        return binding;
    }
    // By its letter in an order.
    QObject *object(char letter) const
    {
        return letter == 's' ? source.data()
            : letter == 'd'  ? destination.data()
            : letter == 'b'  ? static_cast<QObject *>(binding)
                             : nullptr;
    }
    void destroy(std::string_view order) const
    {
        for (const char letter : order)
            delete object(letter);
    }
    int writes() const
    {
        return (source ? source->writes : 0) + (destination ? destination->writes : 0);
    }

    const BindMode mode;
    QPointer<Actor> source = new Actor(1);
    QPointer<Actor> destination = new Actor(1);
    QPointer<KELDataBind> binding;
    KELDataBind *returned = nullptr; // by the static bind()
    std::unique_ptr<HookedConverter> converter;
    Hook meanwhile;
    Hook early[2]; // slots of the source and of the destination, connected before the binding was
    Hook late[2];

private:
    void connectSlots(Hook *hook) const
    {
        for (const Actor *actor : {source.data(), destination.data()})
            QObject::connect(actor, &Actor::valueChanged, qApp, [slot = hook++] { run(slot); });
    }
};

enum Moment {
    Meanwhile,
    SourceGetter,
    SourceSetter,
    EarlySourceSlot,
    LateSourceSlot,
    SourceConnected,
    DestinationGetter,
    DestinationSetter,
    EarlyDestinationSlot,
    LateDestinationSlot,
    DestinationConnected,
    Conversion
};

const struct
{
    const char *name;
    Hook *(*hook)(Stage *);
} moments[] = {
    {"meanwhile", [](Stage *stage) { return &stage->meanwhile; }},
    {"in the source's getter", [](Stage *stage) { return &stage->source->onRead; }},
    {"in the source's setter", [](Stage *stage) { return &stage->source->onWrite; }},
    {"in an early slot of the source", [](Stage *stage) { return &stage->early[0]; }},
    {"in a late slot of the source", [](Stage *stage) { return &stage->late[0]; }},
    {"in the source's connectNotify", [](Stage *stage) { return &stage->source->onConnect; }},
    {"in the destination's getter", [](Stage *stage) { return &stage->destination->onRead; }},
    {"in the destination's setter", [](Stage *stage) { return &stage->destination->onWrite; }},
    {"in an early slot of the destination", [](Stage *stage) { return &stage->early[1]; }},
    {"in a late slot of the destination", [](Stage *stage) { return &stage->late[1]; }},
    {"in the destination's connectNotify",
     [](Stage *stage) { return &stage->destination->onConnect; }},
    {"in the converter", [](Stage *stage) { return &stage->converter->onConvert; }},
};

// The first two of the operations.
enum { SetBind, StaticBind };

struct Operation
{
    const char *name;
    BindMode mode; // of the stage
    void (*run)(Stage *);
    std::vector<Moment> moments; // that it comes to
    std::vector<Moment> momentsWithConverter; // and these
};

const Operation operations[] = {
    {"setBind()",
     KELDataBind::TwoWay,
     [](Stage *stage) { stage->setBind(); },
     {DestinationGetter, SourceSetter, EarlySourceSlot, SourceGetter, DestinationSetter,
      LateSourceSlot, SourceConnected, DestinationConnected},
     {Conversion, EarlyDestinationSlot, LateDestinationSlot}},
    {"static bind()",
     KELDataBind::TwoWay,
     [](Stage *stage) {
         delete stage->binding;
         stage->returned = KELDataBind::bind(stage->source, "value", stage->destination, "value",
                                             stage->mode, stage->converter.get());
     },
     {DestinationGetter, SourceSetter, EarlySourceSlot, SourceConnected, DestinationConnected},
     {}},
    {"no call", KELDataBind::TwoWay, [](Stage *stage) { run(&stage->meanwhile); }, {Meanwhile}, {}},
    {"source changed",
     KELDataBind::TwoWay,
     [](Stage *stage) { stage->source->setValue(20); },
     {SourceSetter, EarlySourceSlot, SourceGetter, DestinationSetter, EarlyDestinationSlot,
      DestinationGetter, LateDestinationSlot, LateSourceSlot},
     {Conversion}},
    {"destination changed",
     KELDataBind::TwoWay,
     [](Stage *stage) { stage->destination->setValue(20); },
     {DestinationSetter, EarlyDestinationSlot, DestinationGetter, SourceSetter, EarlySourceSlot,
      SourceGetter, LateSourceSlot, LateDestinationSlot},
     {Conversion}},
    {"bind(), one way",
     KELDataBind::OneWay,
     [](Stage *stage) { stage->binding->bind(); },
     {SourceConnected, SourceGetter, DestinationSetter},
     {Conversion}},
    {"bind(), two way",
     KELDataBind::TwoWay,
     [](Stage *stage) { stage->binding->bind(); },
     {SourceConnected, DestinationConnected, SourceGetter, DestinationSetter},
     {Conversion}},
    {"bind(), one way to source",
     KELDataBind::OneWayToSource,
     [](Stage *stage) { stage->binding->bind(); },
     {DestinationConnected, DestinationGetter, SourceSetter},
     {Conversion}},
    {"update()",
     KELDataBind::TwoWay,
     [](Stage *stage) { stage->binding->update(); },
     {DestinationGetter, SourceSetter},
     {Conversion}},
};

const Column operationColumn = {"operation", namesOf(operations)};
const Column momentColumn = {"moment", namesOf(moments)};
const Column converterColumn = {"withConverter",
                                {{"without converter", false}, {"with converter", true}}};

// Whether the operation of a row with these columns comes to the moment.
bool occurs(const std::vector<int> &row)
{
    const Operation &operation = operations[row[0]];
    const auto isOneOf = [&row](const std::vector<Moment> &some) {
        return std::count(some.begin(), some.end(), row[1]) > 0;
    };
    return isOneOf(operation.moments) || (row[2] && isOneOf(operation.momentsWithConverter));
}

// Who is destroyed, and in which order: a letter each for source, destination and binding.
const struct
{
    const char *name;
} orders[] = {{"-"},  {"s"},  {"d"},   {"b"},   {"sd"},  {"ds"},  {"sb"},  {"bs"},
              {"db"}, {"bd"}, {"sdb"}, {"sbd"}, {"dsb"}, {"dbs"}, {"bsd"}, {"bds"}};
const std::vector<Named> ordersOrNone = namesOf(orders);
const Column orderColumn = {"order", {ordersOrNone.begin() + 1, ordersOrNone.end()}};

bool destroys(int order, int letter)
{
    return std::string_view(orders[order].name).find(char(letter)) != std::string_view::npos;
}

std::string_view orderOfRow()
{
    return orders[fetch<size_t>("order")].name;
}

// What setBind() says when it goes on after the destruction. Once it connects, it has found both.
QStringList expectedLines(size_t operation, Moment moment, const Stage &stage)
{
    if ((operation != SetBind && operation != StaticBind) || !stage.binding
        || moment == SourceConnected || moment == DestinationConnected)
        return {};
    if (!stage.source)
        return {errorLine(noSource, "value")};
    return stage.destination ? QStringList() : QStringList(errorLine(noDestination, "value"));
}

} // namespace

class tst_KELDataBindLifetime : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void destroyed_data()
    {
        const std::vector<Named> parents = {{"no parent", NoParent},
                                            {"child of the source", SourceIsParent},
                                            {"child of the destination", DestinationIsParent}};
        // A static bind() chooses the parent, and a parent destroys the binding.
        addRows({operationColumn, momentColumn, converterColumn, {"parent", parents}, orderColumn},
                [](const std::vector<int> &row) {
                    return occurs(row)
                        && (row[3] == NoParent || (row[0] != StaticBind && !destroys(row[4], 'b')));
                });
    }

    void destroyed()
    {
        const auto place = fetch<size_t>("operation");
        const auto moment = fetch<Moment>("moment");
        const Operation &operation = operations[place];
        Stage stage(operation.mode, fetch<bool>("withConverter"), fetch<Parent>("parent"));
        int calls = 0;
        int writes = 0;
        *moments[moment].hook(&stage) = [&] {
            ++calls;
            QVERIFY(stage.findBinding());
            stage.destroy(orderOfRow());
            writes = stage.writes();
        };
        operation.run(&stage);

        QCOMPARE(calls, 1);
        QCOMPARE(takeDebugLines(), expectedLines(place, moment, stage));
        if (place == StaticBind)
            QCOMPARE(stage.returned, stage.binding.data());
        if (!stage.binding || (!stage.source && !stage.destination))
            QCOMPARE(stage.writes(), writes);
        QVERIFY(!stage.converter || !stage.converter->isCalledWithoutObject);
        verifyDead(stage);
    }

    void boundAnew_data()
    {
        addRows({operationColumn,
                 momentColumn,
                 converterColumn,
                 {"succeeds", {{"inner call succeeds", true}, {"inner call fails", false}}}},
                occurs);
    }

    // The later call stays in force, whatever the outer one was about to do.
    void boundAnew()
    {
        const Operation &operation = operations[fetch<size_t>("operation")];
        const bool succeeds = fetch<bool>("succeeds");
        Stage stage(operation.mode, fetch<bool>("withConverter"));
        Actor source(50);
        Actor destination(60);
        int oldWrites = -1;
        int oldMode = -1;
        *moments[fetch<Moment>("moment")].hook(&stage) = [&] {
            oldMode = stage.findBinding()->bindMode();
            stage.binding->setBind(&source, succeeds ? "value" : "nothing", &destination, "value",
                                   KELDataBind::OneWay);
            oldWrites = stage.writes();
        };
        operation.run(&stage);

        QCOMPARE(stage.writes(), oldWrites);
        QCOMPARE(int(stage.binding->bindMode()), succeeds ? 2 : oldMode);
        QCOMPARE(takeDebugLines(),
                 succeeds ? QStringList() : QStringList(errorLine(noSource, "nothing")));
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
        QCOMPARE(stage.writes(), oldWrites + 2);

        stage.binding->unbind();
        QCOMPARE(source.connections(), 0);
    }

    void converterDeletesItself_data()
    {
        addRows({operationColumn, {"order", ordersOrNone}}, [](const std::vector<int> &row) {
            return occurs({row[0], Conversion, true});
        });
    }

    // As the last thing it does.
    void converterDeletesItself()
    {
        const Operation &operation = operations[fetch<size_t>("operation")];
        Stage stage(operation.mode, true);
        int calls = 0;
        stage.converter->onConvert = [&] {
            ++calls;
            stage.destroy(orderOfRow());
            if (stage.binding)
                stage.binding->setBind(nullptr, "value", nullptr, "value", KELDataBind::Manual);
            stage.converter.reset();
        };
        operation.run(&stage);

        QCOMPARE(calls, 1);
        QCOMPARE(takeDebugLines(),
                 stage.binding ? QStringList(errorLine(noSource, "value")) : QStringList());
        verifyDead(stage);
    }

    void converterDiesBeforeTheBinding_data() { addRows({orderColumn}); }

    // Nothing but a change, bind() and update() asks the converter anything.
    void converterDiesBeforeTheBinding()
    {
        Stage stage(KELDataBind::TwoWay, true);
        stage.converter.reset();
        stage.binding->unbind();
        QCOMPARE(stage.binding->bindMode(), KELDataBind::TwoWay);
        stage.source->setValue(20);
        stage.destination->setValue(30);
        stage.setBind();
        QCOMPARE(stage.source->value(), 30);
        stage.source->setValue(40);
        QCOMPARE(stage.destination->value(), 40);

        stage.converter = std::make_unique<HookedConverter>();
        stage.setBind();
        stage.converter.reset();
        stage.destroy(orderOfRow());
        delete stage.binding;
        QCOMPARE(takeDebugLines(), QStringList());
    }

    // In the source's getter. AddressSanitizer sees a look at the converter after that.
    void converterDiesWithTheDestination()
    {
        Stage stage(KELDataBind::OneWay, true);
        stage.source->onRead = [&] {
            stage.destroy("d");
            stage.converter.reset();
        };
        stage.source->setValue(20);
        QVERIFY(!stage.converter);
        QCOMPARE(takeDebugLines(), QStringList());
        verifyDead(stage);
    }

    void converterDeletedThroughTheInterface()
    {
        static_assert(
            std::is_destructible_v<
                IKELValueConverter> && !std::has_virtual_destructor_v<IKELValueConverter>);
        // It adds nothing to the interface: there is no destructor to miss.
        const std::unique_ptr<IKELValueConverter> converter(new KELDefaultValueConverter);
        BindStage stage;
        stage.setBind(KELDataBind::OneWay, converter.get());
        stage.source.setValue(3);
        QCOMPARE(stage.destination.value(), 3);
    }

    void destroyedInAPropertyEvent_data()
    {
        addRows({{"isFirstCopy", {{"first copy", true}, {"update", false}}}, orderColumn});
    }

    // The source, which has no such property, is told of the dynamic one.
    void destroyedInAPropertyEvent()
    {
        const bool isFirstCopy = fetch<bool>("isFirstCopy");
        const QStringList error(errorLine(noSource, "nothing"));
        Stage stage(KELDataBind::TwoWay, false);
        const auto bind = [&] {
            stage.binding->setBind(stage.source, "nothing", stage.destination, "value",
                                   KELDataBind::TwoWay);
        };
        if (!isFirstCopy) {
            bind();
            QCOMPARE(takeDebugLines(), error);
            stage.destination->setSilently(8);
        }
        int calls = 0;
        stage.source->onPropertyEvent = [&] {
            ++calls;
            stage.destroy(orderOfRow());
        };
        isFirstCopy ? bind() : stage.binding->update();

        QCOMPARE(calls, 1);
        QCOMPARE(takeDebugLines(), isFirstCopy && stage.binding ? error : QStringList());
        if (stage.source) {
            QCOMPARE(stage.source->property("nothing"), QVariant(isFirstCopy ? 7 : 8));
            QVERIFY(!stage.source->signalsBlocked());
        }
    }

    void destroyedWhenTheOtherIsDestroyed_data()
    {
        addRows({{"first", {{"source", 's'}, {"destination", 'd'}, {"binding", 'b'}}}, orderColumn},
                [](const std::vector<int> &row) { return !destroys(row[1], row[0]); });
    }

    // In a slot of its destroyed().
    void destroyedWhenTheOtherIsDestroyed()
    {
        const char first = char(fetch<int>("first"));
        Stage stage(KELDataBind::TwoWay, true);
        QObject *const dying = stage.object(first);
        int calls = 0;
        connect(dying, &QObject::destroyed, qApp, [&] {
            ++calls;
            if (first != 'b') {
                stage.binding->update();
                QCOMPARE(takeDebugLines(), QStringList());
                stage.binding->bind();
                QCOMPARE(takeDebugLines(), lines(notSet));
            }
            stage.destroy(orderOfRow());
        });
        delete dying;
        QCOMPARE(calls, 1);
        QCOMPARE(takeDebugLines(), QStringList());
        verifyDead(stage);
    }

    void destroyedDeepInsideEchoes_data()
    {
        addRows({{"depth", {{"depth 1", 1}, {"depth 2", 2}, {"depth 3", 3}, {"depth 20", 20}}},
                 orderColumn});
    }

    void destroyedDeepInsideEchoes()
    {
        const int depth = fetch<int>("depth");
        Stage stage(KELDataBind::TwoWay, true);
        stage.destination->setSilently(3);
        // Every change would be carried twice, also on the way out.
        stage.setBind();
        QCOMPARE(stage.converter->calls, 0);
        int writes = -1;
        stage.converter->addedBack = 1; // what comes back is new: an echo without end
        stage.converter->hookedCall = depth;
        stage.converter->onConvert = [&] {
            stage.destroy(orderOfRow());
            writes = stage.writes();
        };
        stage.source->setValue(20);

        // What was read of the object that died alone is still written.
        const bool isWritten = orderOfRow() == (depth % 2 ? "s" : "d");
        QCOMPARE(stage.converter->calls, depth);
        QCOMPARE(stage.writes(), writes + int(isWritten));
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
            QVERIFY(!actor->signalsBlocked());
            const int writes = stage.writes();
            actor->setValue(actor->value() + 1);
            QCOMPARE(stage.writes(), writes + 1);
        }
        if (!stage.binding)
            return;
        const int writes = stage.writes();
        carryToDestination(stage.binding);
        carryToSource(stage.binding);
        stage.binding->update();
        QCOMPARE(takeDebugLines(), QStringList());
        stage.binding->bind();
        QCOMPARE(takeDebugLines(), lines(notSet));
        stage.binding->unbind();
        QCOMPARE(stage.writes(), writes);
        Actor source(1);
        Actor destination(5);
        stage.binding->setBind(&source, "value", &destination, "value", KELDataBind::TwoWay);
        destination.setValue(6);
        QCOMPARE(source.value(), 6);
    }
};

KEL_TEST_MAIN(tst_KELDataBindLifetime)
#include "tst_keldatabindlifetime.moc"
