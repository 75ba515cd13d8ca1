// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "bindobjects.h"

#include <QtCore/QThread>

#include <memory>

namespace {

// Converts as the default one, but is not marked as it.
class UnmarkedDefaultConverter : public KELDefaultValueConverter
{
public:
    UnmarkedDefaultConverter() { type = CustomConverterType; }
};

// Tells of what was blocked while it was called.
class BlockWatcher : public Converter
{
public:
    QVariant Convert(QObject *object, const QVariant & /*value*/) override
    {
        blocks += {object->signalsBlocked(), target->signalsBlocked()};
        return {};
    }
    QVariant ConvertBack(QObject *object, const QVariant &value) override
    {
        return Convert(object, value);
    }

    QObject *target = nullptr;
    QVector<bool> blocks;
};

// Has methods of the same names as its base.
class DerivedBinding : public KELDataBind
{
    Q_OBJECT

public:
    Q_INVOKABLE void srcValueChanged() { ++calls; }
    Q_INVOKABLE void dstValueChanged() { ++calls; }

    int calls = 0;
};

struct Step
{
    const char *name;
    void (*run)(KELDataBind *);
    const char *message;
};

const Step steps[] = {
    {"bind()", [](KELDataBind *binding) { binding->bind(); }, notSet},
    {"unbind()", [](KELDataBind *binding) { binding->unbind(); }, nullptr},
    {"update()", [](KELDataBind *binding) { binding->update(); }, nullptr},
    {"srcValueChanged()", carryToDestination, nullptr},
    {"dstValueChanged()", carryToSource, nullptr},
};

} // namespace

class tst_KELDataBind : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void markedConverterIsBypassed()
    {
        BindStage stage;
        stage.converter.type = IKELValueConverter::DefaultConverterType;
        stage.setBind(KELDataBind::TwoWay, &stage.converter);
        stage.source.setValue(5);
        QCOMPARE(stage.destination.value(), 5);
        stage.destination.setValue(6);
        QCOMPARE(stage.source.value(), 6);
        stage.binding.update();
        stage.binding.unbind();
        stage.binding.bind();
        QCOMPARE(stage.converter.calls, QStringList());
        QCOMPARE(stage.destination.value(), 6);
    }

    void customConverterIsCalled_data()
    {
        addRows({{"type", {{"type 0", 0}, {"type 2", 2}, {"type 3", 3}, {"type -1", -1}}}});
    }

    void customConverterIsCalled()
    {
        BindStage stage;
        stage.converter.type = fetch<IKELValueConverter::ValueConverterType>("type");
        stage.setBind("value", "other", KELDataBind::OneWay, &stage.converter);
        stage.source.setValue(5);
        QCOMPARE(stage.destination.writes, Ints{105});
        stage.source.forget();
        stage.binding.update();
        QCOMPARE(stage.source.writes, Ints{5});

        stage.binding.unbind();
        stage.setBind("value", "other", KELDataBind::OneWayToSource, &stage.converter);
        stage.source.forget();
        stage.destination.setOther(150);
        stage.binding.unbind();
        stage.binding.bind();
        QCOMPARE(stage.source.writes, (Ints{50, 50}));
        QCOMPARE(stage.converter.calls.join(u", "_s), u"there 5, back 105, back 150, back 150"_s);
        QCOMPARE(stage.converter.objects,
                 (QVector<QObject *>{&stage.source, &stage.destination, &stage.destination,
                                     &stage.destination}));
    }

    void markIsReadAtEveryStep()
    {
        BindStage stage;
        stage.setBind(KELDataBind::OneWay, &stage.converter);
        stage.source.setValue(1);
        QCOMPARE(stage.destination.value(), 101);
        stage.converter.type = IKELValueConverter::DefaultConverterType;
        stage.source.setValue(2);
        QCOMPARE(stage.destination.value(), 2);
        stage.converter.type = IKELValueConverter::CustomConverterType;
        stage.source.setValue(3);
        QCOMPARE(stage.destination.value(), 103);
    }

    void invalidResultIsNotWritten_data()
    {
        addRows({{"isOwn", {{"own converter", true}, {"unmarked default converter", false}}}});
    }

    void invalidResultIsNotWritten()
    {
        BindStage stage;
        UnmarkedDefaultConverter unmarked;
        stage.converter.answersFixed = true;
        const bool isOwn = fetch<bool>("isOwn");
        stage.setBind(KELDataBind::OneWay,
                      isOwn ? static_cast<IKELValueConverter *>(&stage.converter) : &unmarked);
        stage.source.setValue(5);
        stage.source.forget();
        stage.binding.bind();
        stage.binding.update();
        carryToSource(&stage.binding);
        QCOMPARE(stage.converter.calls.size(), isOwn ? 4 : 0);
        QCOMPARE(stage.source.writes + stage.destination.writes, Ints());
    }

    void nullResultIsWritten()
    {
        BindStage stage;
        stage.converter.answersFixed = true;
        stage.converter.fixedAnswer = QVariant(QVariant::Int);
        QVERIFY(stage.converter.fixedAnswer.isNull());
        stage.setBind(KELDataBind::OneWay, &stage.converter);
        stage.source.setValue(5);
        QCOMPARE(stage.destination.writes, Ints{0});
        stage.source.forget();
        stage.binding.update();
        QCOMPARE(stage.source.writes, Ints{0});
    }

    void defaultConverterConvertsNothing()
    {
        KELDefaultValueConverter converter;
        QCOMPARE(converter.type, IKELValueConverter::DefaultConverterType);
        QVERIFY(!converter.Convert(this, 5).isValid());
        QVERIFY(!converter.ConvertBack(this, u"text"_s).isValid());
    }

    void converterIsComparedWithAType()
    {
        using Type = IKELValueConverter::ValueConverterType;
        for (const int type : {0, 1, 2}) {
            for (const int asked : {0, 1, 2})
                QCOMPARE(Converter(type) == Type(asked), type == asked);
        }
    }

    // Deleting it would end the program.
    void converterStaysWhenTheBindingGoes()
    {
        Converter converter;
        BindStage stage;
        stage.setBind(KELDataBind::OneWay, &converter);
        stage.setBind(KELDataBind::OneWay);
        stage.source.setValue(1);
        QCOMPARE(converter.calls, QStringList());
        stage.setBind(KELDataBind::OneWay, &converter);
    }

    void stepWithoutASetBind_data() { addRows({{"step", namesOf(steps)}}); }

    void stepWithoutASetBind()
    {
        const Step &step = steps[fetch<size_t>("step")];
        KELDataBind binding;
        step.run(&binding);
        QCOMPARE(takeDebugLines(), lines(step.message));
        QCOMPARE(binding.bindMode(), KELDataBind::Manual);
    }

    void pushOfBind_data() { addRows({{"mode", connectedModes}}); }

    void pushOfBind()
    {
        const auto mode = fetch<BindMode>("mode");
        BindStage stage;
        stage.setBind(mode);
        stage.binding.unbind();
        stage.source.setValue(5);
        stage.destination.setValue(6);
        stage.forget();
        const QSignalSpy sourceChanges(&stage.source, &Model::valueChanged);
        const QSignalSpy destinationChanges(&stage.destination, &Model::valueChanged);
        stage.binding.bind();

        const bool isBack = mode == KELDataBind::OneWayToSource;
        QCOMPARE(stage.source.takeCalls(), isBack ? u"write 6 blocked"_s : u"read"_s);
        QCOMPARE(stage.destination.takeCalls(), isBack ? u"read"_s : u"write 5 blocked"_s);
        QCOMPARE(sourceChanges.count() + destinationChanges.count(), 0);
        QVERIFY(!stage.source.signalsBlocked() && !stage.destination.signalsBlocked());
        // One more each: the spies.
        QCOMPARE(stage.connections(), (Ints{hearsSource(mode) + 1, hearsDestination(mode) + 1}));
        QCOMPARE(stage.binding.bindMode(), mode);
        QCOMPARE(takeDebugLines(), QStringList());
    }

    void bindInManualMode()
    {
        BindStage stage;
        stage.setBind(KELDataBind::Manual);
        stage.forget();
        stage.destination.blockSignals(true);
        stage.binding.bind();
        QCOMPARE(takeDebugLines(), lines(notSet));
        QCOMPARE(stage.source.takeCalls() + stage.destination.takeCalls(), QString());
        QVERIFY(stage.destination.signalsBlocked());
        QCOMPARE(stage.connections(), (Ints{0, 0}));
        QVERIFY(stage.binding.hasError());
    }

    void survivorIsLeftAlone_data()
    {
        addRows(
            {{"step", namesOf(steps)},
             {"mode", modes},
             {"dead",
              {{"source dead", Source}, {"destination dead", Destination}, {"both dead", Both}}}});
    }

    void survivorIsLeftAlone()
    {
        const Step &step = steps[fetch<size_t>("step")];
        const auto mode = fetch<BindMode>("mode");
        const int dead = fetch<int>("dead");
        auto source = std::make_unique<Model>();
        auto destination = std::make_unique<Model>();
        Converter converter;
        KELDataBind binding;
        binding.setBind(source.get(), "value", destination.get(), "value", mode, &converter);
        if (dead & Source)
            source.reset();
        if (dead & Destination)
            destination.reset();
        Model *const survivor = source ? source.get() : destination.get();
        const int connections = survivor ? survivor->connections() : 0;
        if (survivor) {
            survivor->forget();
            survivor->blockSignals(true);
        }
        step.run(&binding);
        QCOMPARE(takeDebugLines(), lines(step.message));
        QCOMPARE(binding.bindMode(), mode);
        if (!survivor)
            return;
        QVERIFY(survivor->signalsBlocked());
        QVERIFY(survivor->connections() <= connections);
        survivor->blockSignals(false);
        survivor->setValue(5);
        QCOMPARE(survivor->takeCalls(), u"write 5"_s);
        QCOMPARE(converter.calls, QStringList());
    }

    void connectionsDouble_data()
    {
        addRows({{"mode", connectedModes}, {"call", {{"bind()", 0}, {"setBind()", 1}}}});
    }

    void connectionsDouble()
    {
        const auto mode = fetch<BindMode>("mode");
        BindStage stage;
        stage.setBind(mode);
        for (int connections = 2; connections < 5; ++connections) {
            if (fetch<int>("call") == 0)
                stage.binding.bind();
            else
                stage.setBind(mode);
            const int there = hearsSource(mode) ? connections : 0;
            const int back = hearsDestination(mode) ? connections : 0;
            QCOMPARE(stage.connections(), (Ints{there, back}));

            stage.forget();
            const int up = 10 * connections;
            stage.source.setValue(up);
            QCOMPARE(stage.destination.writes, Ints(there, up));
            // The first of the writes changes the destination, and that comes back over every
            // connection.
            QCOMPARE(stage.source.writes, Ints(1 + (there ? back : 0), up));

            stage.forget();
            stage.destination.setValue(up + 1);
            QCOMPARE(stage.source.writes, Ints(back, up + 1));
            QCOMPARE(stage.destination.writes, Ints(1 + (back ? there : 0), up + 1));
        }
    }

    void unbindKeepsTheMode_data() { addRows({{"mode", modes}}); }

    void unbindKeepsTheMode()
    {
        const auto mode = fetch<BindMode>("mode");
        BindStage stage;
        stage.setBind(mode);
        for (int times = 0; times < 2; ++times) {
            stage.binding.unbind();
            QCOMPARE(stage.binding.bindMode(), mode);
            QCOMPARE(stage.connections(), (Ints{0, 0}));
            stage.forget();
            stage.source.setValue(10 + times);
            stage.destination.setValue(20 + times);
            QCOMPARE(stage.source.writes, Ints{10 + times});
            QCOMPARE(stage.destination.writes, Ints{20 + times});
        }
    }

    void unbindEndsOnlyTheNewestConnection()
    {
        BindStage stage;
        stage.setBind(KELDataBind::TwoWay);
        stage.binding.bind();
        stage.binding.bind();
        for (int times = 0; times < 2; ++times) {
            stage.binding.unbind();
            QCOMPARE(stage.connections(), (Ints{2, 2}));
        }
    }

    void unbindEndsTheConnectionsOfAnEarlierMode()
    {
        BindStage stage;
        stage.setBind(KELDataBind::TwoWay);
        stage.setBind(KELDataBind::Manual);
        QVERIFY(stage.binding.hasError());
        stage.source.setValue(5);
        QCOMPARE(stage.destination.value(), 5);
        stage.binding.unbind();
        QCOMPARE(stage.connections(), (Ints{0, 0}));
    }

    void applicationsBlockIsLifted_data()
    {
        addRows({{"isUpdate", {{"bind()", false}, {"update()", true}}}, {"mode", modes}},
                [](const std::vector<int> &values) {
                    return values[0] || values[1] != KELDataBind::Manual;
                });
    }

    // Of the object written to; the other one's stays.
    void applicationsBlockIsLifted()
    {
        const auto mode = fetch<BindMode>("mode");
        const bool isUpdate = fetch<bool>("isUpdate");
        BindStage stage;
        stage.setBind(mode);
        stage.source.blockSignals(true);
        stage.destination.blockSignals(true);
        isUpdate ? stage.binding.update() : stage.binding.bind();
        const bool goesToSource = isUpdate || mode == KELDataBind::OneWayToSource;
        QCOMPARE(stage.source.signalsBlocked(), !goesToSource);
        QCOMPARE(stage.destination.signalsBlocked(), goesToSource);
    }

    void signalsAreBlockedAlsoForTheConverter()
    {
        BindStage stage;
        BlockWatcher watcher;
        stage.setBind(KELDataBind::OneWay, &watcher);
        watcher.target = &stage.destination;
        stage.binding.bind();
        QCOMPARE(watcher.blocks, (QVector<bool>{false, true}));
        watcher.target = &stage.source;
        stage.binding.update();
        QCOMPARE(watcher.blocks.mid(2), (QVector<bool>{false, true}));
        QVERIFY(!stage.source.signalsBlocked() && !stage.destination.signalsBlocked());
    }

    void changesBlockNothing()
    {
        BindStage stage;
        stage.setBind(KELDataBind::TwoWay);
        stage.forget();
        stage.source.setValue(1);
        QCOMPARE(stage.source.takeCalls(), u"write 1, read, write 1"_s);
        QCOMPARE(stage.destination.takeCalls(), u"write 1, read"_s);
        stage.destination.setValue(2);
        QCOMPARE(stage.source.takeCalls(), u"write 2, read"_s);
        QCOMPARE(stage.destination.takeCalls(), u"write 2, read, write 2"_s);

        // The application's block of the target outlasts a change.
        stage.destination.blockSignals(true);
        stage.source.setValue(3);
        QCOMPARE(stage.destination.value(), 3);
        QVERIFY(stage.destination.signalsBlocked());
    }

    void updateCopiesToTheSource_data() { addRows({{"mode", modes}}); }

    void updateCopiesToTheSource()
    {
        const auto mode = fetch<BindMode>("mode");
        BindStage stage;
        stage.setBind(mode);
        stage.binding.unbind();
        stage.destination.setValue(5);
        stage.forget();
        const QSignalSpy changes(&stage.source, &Model::valueChanged);
        stage.binding.update();
        QCOMPARE(stage.source.takeCalls(), u"write 5 blocked"_s);
        QCOMPARE(stage.destination.takeCalls(), u"read"_s);
        QCOMPARE(changes.count(), 0);
        QVERIFY(!stage.source.signalsBlocked());
        QCOMPARE(stage.connections(), (Ints{1, 0})); // the spy
        QCOMPARE(stage.binding.bindMode(), mode);
        QCOMPARE(takeDebugLines(), QStringList());
    }

    void echoIsNotGuardedAgainst()
    {
        BindStage stage;
        stage.setBind(KELDataBind::TwoWay);
        stage.forget();
        stage.source.emitsThoughTheSame = 3;
        stage.destination.emitsThoughTheSame = 3;
        stage.source.setValue(1);
        QCOMPARE(stage.source.writes, Ints(5, 1));
        QCOMPARE(stage.destination.writes, Ints(4, 1));
    }

    void twoPropertiesOfOneObject()
    {
        Model model(1);
        KELDataBind binding;
        binding.setBind(&model, "value", &model, "other", KELDataBind::TwoWay);
        model.setValue(5);
        QCOMPARE(model.other(), 5);
        model.setOther(6);
        QCOMPARE(model.value(), 6);
        binding.unbind();
        model.setOther(7);
        binding.update();
        QCOMPARE(model.value(), 7);
        model.setValue(8);
        binding.bind();
        QCOMPARE(model.other(), 8);
        QVERIFY(!model.signalsBlocked());
    }

    void onePropertyToItself()
    {
        Model model(1);
        Converter converter;
        KELDataBind binding;
        binding.setBind(&model, "value", &model, "value", KELDataBind::TwoWay);
        QCOMPARE(model.connections(), 2);
        model.forget();
        model.setValue(5);
        QCOMPARE(model.writes, (Ints{5, 5, 5}));
        binding.unbind();
        QCOMPARE(model.connections(), 0);
        binding.setBind(&model, "value", &model, "value", KELDataBind::Manual, &converter);
        binding.update();
        QCOMPARE(model.value(), -95);
        QVERIFY(!model.signalsBlocked());
    }

    void destroyedBindingDisconnects()
    {
        Model source;
        Model destination;
        auto binding = std::make_unique<KELDataBind>();
        binding->setBind(&source, "value", &destination, "value", KELDataBind::TwoWay);
        binding->bind();
        binding.reset();
        QCOMPARE(source.connections() + destination.connections(), 0);
        source.setValue(5);
        QCOMPARE(destination.value(), 0);
    }

    // A binding that lives in another thread is called there, which is never when that thread does
    // not run.
    void connectionsAreAutomatic()
    {
        BindStage stage;
        QThread thread;
        stage.setBind(KELDataBind::TwoWay);
        stage.binding.bind();
        stage.binding.moveToThread(&thread);
        stage.source.setValue(5);
        stage.destination.setValue(6);
        QCOMPARE(stage.source.value(), 5);
        QCOMPARE(stage.destination.value(), 6);
    }

    void metaObjectOfABinding()
    {
        const QMetaObject &meta = KELDataBind::staticMetaObject;
        QCOMPARE(meta.superClass(), &QObject::staticMetaObject);
        QCOMPARE(meta.propertyCount(), meta.propertyOffset());
        QStringList methods;
        for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
            const QMetaMethod method = meta.method(i);
            methods.append(QString::fromUtf8(method.methodSignature()));
            QCOMPARE(method.methodType(), QMetaMethod::Method);
            QCOMPARE(method.access(), QMetaMethod::Protected);
            QCOMPARE(method.returnType(), int(QMetaType::Void));
        }
        QCOMPARE(methods, (QStringList{u"srcValueChanged()"_s, u"dstValueChanged()"_s}));
    }

    // Found by the constructor, when nothing of a derived class is there.
    void stepsAreThoseOfTheBaseClass()
    {
        BindStageOf<Model, DerivedBinding> stage;
        stage.setBind(KELDataBind::TwoWay);
        stage.source.setValue(5);
        QCOMPARE(stage.destination.value(), 5);
        stage.destination.setValue(6);
        QCOMPARE(stage.source.value(), 6);
        stage.binding.unbind();
        stage.binding.bind();
        stage.destination.setValue(7);
        stage.binding.update();
        QCOMPARE(stage.source.value(), 7);
        QCOMPARE(stage.binding.calls, 0);
    }
};

KEL_TEST_MAIN(tst_KELDataBind)
#include "tst_keldatabind.moc"
