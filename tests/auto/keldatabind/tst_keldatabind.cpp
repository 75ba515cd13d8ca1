// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "bindobjects.h"

#include <QtCore/QThread>

#include <cstring>
#include <memory>
#include <type_traits>

namespace {

// Converts as the default one, but is not marked as it.
class UnmarkedDefaultConverter : public KELDefaultValueConverter
{
public:
    UnmarkedDefaultConverter() { type = CustomConverterType; }
};

// The default converter's mark, but it would convert.
class MarkedConverter : public Converter
{
public:
    MarkedConverter() : Converter(1) { }
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

} // namespace

class tst_KELDataBind : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void markedConverterIsBypassed()
    {
        Model source(1);
        Model destination(1);
        MarkedConverter converter;
        KELDataBind binding;
        binding.setBind(&source, "value", &destination, "value", KELDataBind::TwoWay, &converter);
        source.setValue(5);
        QCOMPARE(destination.value(), 5);
        destination.setValue(6);
        QCOMPARE(source.value(), 6);
        binding.update();
        binding.unbind();
        binding.bind();
        QCOMPARE(converter.calls, QStringList());
        QCOMPARE(destination.value(), 6);
    }

    void customConverterIsCalled_data()
    {
        QTest::addColumn<int>("type");
        for (const int type : {0, 2, 3, -1})
            QTest::addRow("type %d", type) << type;
    }

    void customConverterIsCalled()
    {
        QFETCH(int, type);
        Model source(1);
        Model destination(1);
        Converter converter(type);
        KELDataBind binding;
        binding.setBind(&source, "value", &destination, "other", KELDataBind::OneWay, &converter);
        source.setValue(5);
        QCOMPARE(destination.writes, Ints{105});
        QCOMPARE(converter.calls, QStringList(u"there 5"_s));
        QCOMPARE(converter.objects, QVector<QObject *>{&source});
        source.forget();
        binding.update();
        QCOMPARE(source.writes, Ints{5});
        QCOMPARE(converter.calls.mid(1), QStringList(u"back 105"_s));
        QCOMPARE(converter.objects.last(), &destination);

        binding.unbind();
        binding.setBind(&source, "value", &destination, "other", KELDataBind::OneWayToSource,
                        &converter);
        converter.calls.clear();
        destination.setOther(150);
        QCOMPARE(source.writes.last(), 50);
        binding.unbind();
        binding.bind();
        QCOMPARE(converter.calls, QStringList(QVector<QString>(2, u"back 150"_s).toList()));
        QCOMPARE(converter.objects.last(), &destination);
    }

    void markIsReadAtEveryStep()
    {
        Model source;
        Model destination;
        Converter converter;
        KELDataBind binding;
        binding.setBind(&source, "value", &destination, "value", KELDataBind::OneWay, &converter);
        source.setValue(1);
        QCOMPARE(destination.value(), 101);
        converter.type = IKELValueConverter::DefaultConverterType;
        source.setValue(2);
        QCOMPARE(destination.value(), 2);
        converter.type = IKELValueConverter::CustomConverterType;
        source.setValue(3);
        QCOMPARE(destination.value(), 103);
    }

    void invalidResultIsNotWritten()
    {
        Model source(1);
        Model destination(1);
        Converter converter;
        converter.answersFixed = true;
        KELDataBind binding;
        binding.setBind(&source, "value", &destination, "value", KELDataBind::OneWay, &converter);
        source.setValue(5);
        source.forget();
        binding.bind();
        binding.update();
        carryToSource(&binding);
        QCOMPARE(converter.calls.size(), 4);
        QCOMPARE(source.writes, Ints());
        QCOMPARE(destination.writes, Ints());
    }

    void nullResultIsWritten()
    {
        Model source(1);
        Model destination(1);
        Converter converter;
        converter.answersFixed = true;
        converter.fixedAnswer = QVariant(QVariant::Int);
        QVERIFY(converter.fixedAnswer.isNull());
        KELDataBind binding;
        binding.setBind(&source, "value", &destination, "value", KELDataBind::OneWay, &converter);
        source.setValue(5);
        QCOMPARE(destination.writes, Ints{0});
        source.forget();
        binding.update();
        QCOMPARE(source.writes, Ints{0});
    }

    void unmarkedDefaultConverterWritesNothing()
    {
        Model source(1);
        Model destination(1);
        UnmarkedDefaultConverter converter;
        KELDataBind binding;
        binding.setBind(&source, "value", &destination, "value", KELDataBind::OneWay, &converter);
        source.setValue(5);
        source.forget();
        binding.update();
        QCOMPARE(source.writes, Ints());
        QCOMPARE(destination.writes, Ints());
    }

    void defaultConverter()
    {
        KELDefaultValueConverter converter;
        QCOMPARE(int(converter.type), 1);
        QVERIFY(!converter.Convert(this, 5).isValid());
        QVERIFY(!converter.ConvertBack(this, u"text"_s).isValid());
        IKELValueConverter *const base = &converter;
        QVERIFY(dynamic_cast<KELDefaultValueConverter *>(base));
        QVERIFY(!base->Convert(nullptr, QVariant(1)).isValid());
    }

    void converterInterface()
    {
        static_assert(std::is_polymorphic<IKELValueConverter>::value, "");
        static_assert(std::is_abstract<IKELValueConverter>::value, "");
        static_assert(!std::has_virtual_destructor<IKELValueConverter>::value, "");
        static_assert(!std::has_virtual_destructor<KELDefaultValueConverter>::value, "");
        static_assert(std::is_base_of<IKELValueConverter, KELDefaultValueConverter>::value, "");
        QCOMPARE(int(IKELValueConverter::DefaultConverterType), 1);
        QCOMPARE(int(IKELValueConverter::CustomConverterType), 0);

        Converter converter;
        QCOMPARE(int(converter.type), 0);
        for (const int type : {0, 1, 2}) {
            converter.type = IKELValueConverter::ValueConverterType(type);
            for (const int asked : {0, 1, 2}) {
                QCOMPARE(converter == IKELValueConverter::ValueConverterType(asked), type == asked);
            }
        }

        // One slot of the table of virtual functions apart.
        using Conversion = QVariant (IKELValueConverter::*)(QObject *, const QVariant &);
        const Conversion there = &IKELValueConverter::Convert;
        const Conversion back = &IKELValueConverter::ConvertBack;
        std::ptrdiff_t thereAt = 0;
        std::ptrdiff_t backAt = 0;
        std::memcpy(&thereAt, &there, sizeof thereAt);
        std::memcpy(&backAt, &back, sizeof backAt);
        QCOMPARE(thereAt & ~std::ptrdiff_t(1), std::ptrdiff_t(0));
        QCOMPARE(backAt - thereAt, std::ptrdiff_t(sizeof(void *)));
    }

    void converterStaysWhenTheBindingGoes()
    {
        Model source;
        Model destination;
        const std::unique_ptr<Converter> converter(new Converter);
        {
            KELDataBind binding;
            binding.setBind(&source, "value", &destination, "value", KELDataBind::OneWay,
                            converter.get());
            binding.setBind(&source, "value", &destination, "value", KELDataBind::OneWay);
            source.setValue(1);
            QCOMPARE(converter->calls, QStringList());
            binding.setBind(&source, "value", &destination, "value", KELDataBind::OneWay,
                            converter.get());
        }
        QCOMPARE(converter->Convert(&source, 1), QVariant(101));
    }

    void stepsWithoutABinding()
    {
        KELDataBind binding;
        binding.update();
        binding.unbind();
        carryToDestination(&binding);
        carryToSource(&binding);
        QCOMPARE(takeDebugLines(), QStringList());
        binding.bind();
        QCOMPARE(takeDebugLines(), lines(notSet));
        QCOMPARE(int(binding.bindMode()), 1);
    }

    void pushOfBind_data()
    {
        QTest::addColumn<int>("mode");
        for (const int mode : {2, 3, 4})
            QTest::addRow("mode %d", mode) << mode;
    }

    void pushOfBind()
    {
        QFETCH(int, mode);
        const bool goesToSource = mode == 4;
        Model source(1);
        Model destination(1);
        KELDataBind binding;
        binding.setBind(&source, "value", &destination, "value", BindMode(mode));
        binding.unbind();
        source.setValue(5);
        destination.setValue(6);
        source.forget();
        destination.forget();
        const QSignalSpy sourceChanges(&source, &Model::valueChanged);
        const QSignalSpy destinationChanges(&destination, &Model::valueChanged);
        binding.bind();

        const Model &target = goesToSource ? source : destination;
        const Model &origin = goesToSource ? destination : source;
        QCOMPARE(target.writes, Ints{goesToSource ? 6 : 5});
        QCOMPARE(target.wasBlocked, QVector<bool>{true});
        QCOMPARE(target.reads, 0);
        QCOMPARE(origin.reads, 1);
        QCOMPARE(origin.writes, Ints());
        QCOMPARE(origin.wasBlocked, QVector<bool>{false});
        QCOMPARE(sourceChanges.count() + destinationChanges.count(), 0);
        QVERIFY(!source.signalsBlocked() && !destination.signalsBlocked());
        QCOMPARE(source.connections(), int(mode != 4) + 1);
        QCOMPARE(destination.connections(), int(mode != 2) + 1);
        QCOMPARE(int(binding.bindMode()), mode);
        QCOMPARE(takeDebugLines(), QStringList());
    }

    void bindWithoutAMode_data()
    {
        QTest::addColumn<int>("mode");
        QTest::addColumn<bool>("sourceDies");
        QTest::addColumn<bool>("destinationDies");
        QTest::newRow("mode 1") << 1 << false << false;
        for (const int mode : {1, 2, 3, 4}) {
            QTest::addRow("mode %d, source dead", mode) << mode << true << false;
            QTest::addRow("mode %d, destination dead", mode) << mode << false << true;
            QTest::addRow("mode %d, both dead", mode) << mode << true << true;
        }
    }

    void bindWithoutAMode()
    {
        QFETCH(int, mode);
        QFETCH(bool, sourceDies);
        QFETCH(bool, destinationDies);
        std::unique_ptr<Model> source(new Model);
        std::unique_ptr<Model> destination(new Model);
        KELDataBind binding;
        binding.setBind(source.get(), "value", destination.get(), "value", BindMode(mode));
        const int sourceConnections = source->connections();
        const int destinationConnections = destination->connections();
        if (sourceDies)
            source.reset();
        if (destinationDies)
            destination.reset();
        for (Model *model : {source.get(), destination.get()}) {
            if (!model)
                continue;
            model->forget();
            model->blockSignals(true);
        }
        binding.bind();

        QCOMPARE(takeDebugLines(), lines(notSet));
        QCOMPARE(int(binding.bindMode()), mode);
        for (Model *model : {source.get(), destination.get()}) {
            if (!model)
                continue;
            QVERIFY(model->signalsBlocked());
            QCOMPARE(model->writes, Ints());
            QCOMPARE(model->reads, 0);
        }
        QVERIFY(!source || source->connections() == sourceConnections);
        QVERIFY(!destination || destination->connections() == destinationConnections);
    }

    void bindDoublesTheConnections_data() { pushOfBind_data(); }

    void bindDoublesTheConnections()
    {
        QFETCH(int, mode);
        Model source;
        Model destination;
        KELDataBind binding;
        binding.setBind(&source, "value", &destination, "value", BindMode(mode));
        for (int connections = 2; connections < 5; ++connections) {
            binding.bind();
            const int there = mode == 4 ? 0 : connections;
            const int back = mode == 2 ? 0 : connections;
            QCOMPARE(source.connections(), there);
            QCOMPARE(destination.connections(), back);

            source.forget();
            destination.forget();
            source.setValue(10 * connections);
            QCOMPARE(destination.writes.size(), there);
            // The first of the writes changes the destination, and that comes back over every
            // connection.
            QCOMPARE(source.writes.size(), 1 + (there ? back : 0));

            source.forget();
            destination.forget();
            destination.setValue(10 * connections + 1);
            QCOMPARE(source.writes.size(), back);
            QCOMPARE(destination.writes.size(), 1 + (back ? there : 0));
        }
    }

    void setBindDoublesTheConnections_data() { pushOfBind_data(); }

    void setBindDoublesTheConnections()
    {
        QFETCH(int, mode);
        Model source;
        Model destination;
        KELDataBind binding;
        binding.setBind(&source, "value", &destination, "value", BindMode(mode));
        binding.setBind(&source, "value", &destination, "value", BindMode(mode));
        QCOMPARE(source.connections(), mode == 4 ? 0 : 2);
        QCOMPARE(destination.connections(), mode == 2 ? 0 : 2);
        source.forget();
        destination.forget();
        source.setValue(5);
        QCOMPARE(destination.writes, Ints(mode == 4 ? 0 : 2, 5));
        source.forget();
        destination.setValue(6);
        QCOMPARE(source.writes, Ints(mode == 2 ? 0 : 2, 6));
    }

    void unbindKeepsTheMode_data()
    {
        QTest::addColumn<int>("mode");
        for (const int mode : {1, 2, 3, 4})
            QTest::addRow("mode %d", mode) << mode;
    }

    void unbindKeepsTheMode()
    {
        QFETCH(int, mode);
        Model source;
        Model destination;
        KELDataBind binding;
        binding.setBind(&source, "value", &destination, "value", BindMode(mode));
        for (int times = 0; times < 2; ++times) {
            binding.unbind();
            QCOMPARE(int(binding.bindMode()), mode);
            QCOMPARE(source.connections() + destination.connections(), 0);
            source.forget();
            destination.forget();
            source.setValue(10 + times);
            destination.setValue(20 + times);
            QCOMPARE(source.writes, Ints{10 + times});
            QCOMPARE(destination.writes, Ints{20 + times});
        }
        if (mode == 1)
            return;
        binding.bind();
        QCOMPARE(source.connections(), int(mode != 4));
        QCOMPARE(destination.connections(), int(mode != 2));
        QCOMPARE(takeDebugLines(), QStringList());
    }

    void unbindEndsOnlyTheNewestConnection()
    {
        Model source;
        Model destination;
        KELDataBind binding;
        binding.setBind(&source, "value", &destination, "value", KELDataBind::TwoWay);
        binding.bind();
        binding.bind();
        binding.unbind();
        QCOMPARE(source.connections(), 2);
        QCOMPARE(destination.connections(), 2);
        binding.unbind();
        QCOMPARE(source.connections(), 2);
        QCOMPARE(destination.connections(), 2);
    }

    void unbindEndsTheConnectionsOfAnEarlierMode()
    {
        Model source;
        Model destination;
        KELDataBind binding;
        binding.setBind(&source, "value", &destination, "value", KELDataBind::TwoWay);
        binding.setBind(&source, "value", &destination, "value", KELDataBind::Manual);
        QVERIFY(binding.hasError());
        source.setValue(5);
        QCOMPARE(destination.value(), 5);
        binding.unbind();
        QCOMPARE(source.connections() + destination.connections(), 0);
    }

    void applicationsBlockIsLifted_data()
    {
        QTest::addColumn<int>("mode");
        QTest::addColumn<bool>("isUpdate");
        for (const int mode : {2, 3, 4})
            QTest::addRow("bind, mode %d", mode) << mode << false;
        for (const int mode : {1, 2, 3, 4})
            QTest::addRow("update, mode %d", mode) << mode << true;
    }

    // Of the object written to; the other one's stays.
    void applicationsBlockIsLifted()
    {
        QFETCH(int, mode);
        QFETCH(bool, isUpdate);
        Model source;
        Model destination;
        KELDataBind binding;
        binding.setBind(&source, "value", &destination, "value", BindMode(mode));
        source.blockSignals(true);
        destination.blockSignals(true);
        isUpdate ? binding.update() : binding.bind();
        const bool goesToSource = isUpdate || mode == 4;
        QCOMPARE(source.signalsBlocked(), !goesToSource);
        QCOMPARE(destination.signalsBlocked(), goesToSource);
    }

    void signalsAreBlockedAlsoForTheConverter()
    {
        Model source;
        Model destination;
        BlockWatcher watcher;
        KELDataBind binding;
        binding.setBind(&source, "value", &destination, "value", KELDataBind::OneWay, &watcher);
        watcher.target = &destination;
        binding.bind();
        QCOMPARE(watcher.blocks, (QVector<bool>{false, true}));
        watcher.target = &source;
        binding.update();
        QCOMPARE(watcher.blocks.mid(2), (QVector<bool>{false, true}));
        QVERIFY(!source.signalsBlocked() && !destination.signalsBlocked());
    }

    void changesBlockNothing()
    {
        Model source;
        Model destination;
        KELDataBind binding;
        binding.setBind(&source, "value", &destination, "value", KELDataBind::TwoWay);
        source.forget();
        destination.forget();
        source.setValue(1);
        destination.setValue(2);
        QVERIFY(!source.wasBlocked.isEmpty() && !source.wasBlocked.contains(true));
        QVERIFY(!destination.wasBlocked.isEmpty() && !destination.wasBlocked.contains(true));

        // The application's block of the target outlasts a change.
        destination.blockSignals(true);
        source.setValue(3);
        QCOMPARE(destination.value(), 3);
        QVERIFY(destination.signalsBlocked());
    }

    void updateCopiesToTheSource_data() { unbindKeepsTheMode_data(); }

    void updateCopiesToTheSource()
    {
        QFETCH(int, mode);
        Model source(1);
        Model destination(1);
        KELDataBind binding;
        binding.setBind(&source, "value", &destination, "value", BindMode(mode));
        binding.unbind();
        destination.setValue(5);
        source.forget();
        destination.forget();
        const QSignalSpy changes(&source, &Model::valueChanged);
        binding.update();
        QCOMPARE(source.writes, Ints{5});
        QCOMPARE(source.reads, 0);
        QCOMPARE(source.wasBlocked, QVector<bool>{true});
        QCOMPARE(destination.reads, 1);
        QCOMPARE(destination.writes, Ints());
        QCOMPARE(destination.wasBlocked, QVector<bool>{false});
        QCOMPARE(changes.count(), 0);
        QVERIFY(!source.signalsBlocked());
        QCOMPARE(source.connections(), 1);
        QCOMPARE(destination.connections(), 0);
        QCOMPARE(int(binding.bindMode()), mode);
        QCOMPARE(takeDebugLines(), QStringList());
    }

    void updateWithADeadObjectIsSilent_data() { bindWithoutAMode_data(); }

    void updateWithADeadObjectIsSilent()
    {
        QFETCH(int, mode);
        QFETCH(bool, sourceDies);
        QFETCH(bool, destinationDies);
        std::unique_ptr<Model> source(new Model);
        std::unique_ptr<Model> destination(new Model);
        KELDataBind binding;
        binding.setBind(source.get(), "value", destination.get(), "value", BindMode(mode));
        source->blockSignals(true);
        source->forget();
        if (sourceDies)
            source.reset();
        if (destinationDies)
            destination.reset();
        binding.update();
        QCOMPARE(takeDebugLines(), QStringList());
        if (sourceDies)
            return;
        QCOMPARE(source->writes.size(), int(!destinationDies));
        QCOMPARE(source->signalsBlocked(), destinationDies);
    }

    void changesOfTheSurvivorDoNothing_data()
    {
        QTest::addColumn<bool>("sourceSurvives");
        QTest::newRow("source") << true;
        QTest::newRow("destination") << false;
    }

    void changesOfTheSurvivorDoNothing()
    {
        QFETCH(bool, sourceSurvives);
        auto *const source = new Model(1);
        auto *const destination = new Model(1);
        Converter converter;
        KELDataBind binding;
        binding.setBind(source, "value", destination, "value", KELDataBind::TwoWay, &converter);
        delete (sourceSurvives ? destination : source);
        const std::unique_ptr<Model> survivor(sourceSurvives ? source : destination);
        survivor->forget();
        survivor->setValue(5);
        carryToDestination(&binding);
        carryToSource(&binding);
        QCOMPARE(survivor->writes, Ints{5});
        QCOMPARE(survivor->reads, 0);
        QCOMPARE(converter.calls, QStringList());
        QCOMPARE(int(binding.bindMode()), 3);
        QCOMPARE(takeDebugLines(), QStringList());
    }

    void echoIsNotGuardedAgainst()
    {
        Model source;
        Model destination;
        KELDataBind binding;
        binding.setBind(&source, "value", &destination, "value", KELDataBind::TwoWay);
        source.forget();
        source.emitsThoughTheSame = 3;
        destination.emitsThoughTheSame = 3;
        source.setValue(1);
        QCOMPARE(source.writes, Ints(5, 1));
        QCOMPARE(destination.writes, Ints(4, 1));
    }

    void twoPropertiesOfOneObject()
    {
        Model model(1);
        KELDataBind binding;
        binding.setBind(&model, "value", &model, "other", KELDataBind::TwoWay);
        QCOMPARE(int(binding.bindMode()), 3);
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
        QCOMPARE(int(binding.bindMode()), 3);
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
        {
            KELDataBind binding;
            binding.setBind(&source, "value", &destination, "value", KELDataBind::TwoWay);
            binding.bind();
            QCOMPARE(source.connections() + destination.connections(), 4);
        }
        QCOMPARE(source.connections() + destination.connections(), 0);
        source.setValue(5);
        QCOMPARE(destination.value(), 0);
    }

    // A binding that lives in another thread is called there, which is never when that thread does
    // not run.
    void connectionsAreAutomatic()
    {
        Model source;
        Model destination;
        QThread thread;
        KELDataBind binding;
        binding.setBind(&source, "value", &destination, "value", KELDataBind::TwoWay);
        binding.bind();
        binding.moveToThread(&thread);
        source.setValue(5);
        destination.setValue(6);
        QCOMPARE(source.value(), 5);
        QCOMPARE(destination.value(), 6);
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

        Model source(1);
        Model destination(7);
        KELDataBind binding;
        binding.setBind(&source, "silent", &destination, "silent", KELDataBind::Manual);
        source.setSilent(3);
        QVERIFY(QMetaObject::invokeMethod(&binding, "srcValueChanged"));
        QCOMPARE(destination.silent(), 3);
        destination.setSilent(4);
        QVERIFY(QMetaObject::invokeMethod(&binding, "dstValueChanged"));
        QCOMPARE(source.silent(), 4);
    }

    // Found by the constructor, when nothing of a derived class is there.
    void stepsAreThoseOfTheBaseClass()
    {
        Model source;
        Model destination;
        DerivedBinding binding;
        binding.setBind(&source, "value", &destination, "value", KELDataBind::TwoWay);
        source.setValue(5);
        QCOMPARE(destination.value(), 5);
        destination.setValue(6);
        QCOMPARE(source.value(), 6);
        binding.unbind();
        binding.bind();
        destination.setValue(7);
        binding.update();
        QCOMPARE(source.value(), 7);
        QCOMPARE(binding.calls, 0);
    }
};

KEL_TEST_MAIN(tst_KELDataBind)
#include "tst_keldatabind.moc"
