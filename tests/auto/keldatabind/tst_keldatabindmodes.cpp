// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "bindobjects.h"

#include <QtCore/QPointer>

#include <limits>
#include <memory>

namespace {

QtMessageHandler outerHandler = nullptr;
QStringList *messageHeads = nullptr;

void recordHead(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    messageHeads->append(u"%1 %2"_s.arg(int(type)).arg(QString::fromUtf8(context.category)));
    outerHandler(type, context, text);
}

} // namespace

namespace {

enum class Notify { Yes, No, Any };

struct ModeLine
{
    const char *requested;
    Ints modes;
    Notify source;
    Notify destination;
    bool sourceIsConnected;
    bool destinationIsConnected;
    int effective;
    const char *message;
};

const char sourceFound[] = "waring : could not find src notify";
const char destinationFound[] = "waring : could not find dst notify";

const Ints otherModes = {5, 255, std::numeric_limits<int>::max(), -1,
                         std::numeric_limits<int>::min()};

const ModeLine modeLines[] = {
    {"Auto", {0}, Notify::Yes, Notify::Yes, true, true, 3, nullptr},
    {"Auto", {0}, Notify::Yes, Notify::No, true, false, 2, nullptr},
    {"Auto", {0}, Notify::No, Notify::Yes, false, true, 4, nullptr},
    {"Auto", {0}, Notify::No, Notify::No, false, false, 1, noneFound},
    {"Manual", {1}, Notify::Any, Notify::Any, false, false, 1, nullptr},
    {"OneWay", {2}, Notify::Yes, Notify::Any, true, false, 2, nullptr},
    {"OneWay", {2}, Notify::No, Notify::Any, false, false, 1, noneFound},
    {"TwoWay", {3}, Notify::Yes, Notify::Yes, true, true, 3, nullptr},
    {"TwoWay", {3}, Notify::Yes, Notify::No, true, false, 2, sourceFound},
    {"TwoWay", {3}, Notify::No, Notify::Yes, false, true, 4, destinationFound},
    {"TwoWay", {3}, Notify::No, Notify::No, false, false, 1, noneFound},
    {"OneWayToSource", {4}, Notify::Any, Notify::Yes, false, true, 4, nullptr},
    {"OneWayToSource", {4}, Notify::Any, Notify::No, false, false, 1, noneFound},
    {"another mode", otherModes, Notify::Any, Notify::Any, false, false, 1, noneFound},
};

bool includes(Notify notify, bool notifies)
{
    return notify == Notify::Any || (notify == Notify::Yes) == notifies;
}

const char *propertyOf(bool notifies)
{
    return notifies ? "value" : "silent";
}

const char *inWords(bool notifies)
{
    return notifies ? "notifies" : "is silent";
}

} // namespace

class tst_KELDataBindModes : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void startsManual()
    {
        const KELDataBind binding;
        QCOMPARE(int(binding.bindMode()), 1);
        QVERIFY(binding.hasError());
        QCOMPARE(binding.parent(), nullptr);
        QObject parent;
        const auto *child = new KELDataBind(&parent);
        QCOMPARE(child->parent(), &parent);
    }

    void modeTable_data()
    {
        QTest::addColumn<int>("requested");
        QTest::addColumn<bool>("sourceNotifies");
        QTest::addColumn<bool>("destinationNotifies");
        QTest::addColumn<bool>("sourceIsConnected");
        QTest::addColumn<bool>("destinationIsConnected");
        QTest::addColumn<int>("effective");
        QTest::addColumn<QStringList>("messages");

        int rows = 0;
        for (const ModeLine &line : modeLines) {
            for (const int mode : line.modes) {
                for (const bool source : {true, false}) {
                    for (const bool destination : {true, false}) {
                        if (!includes(line.source, source)
                            || !includes(line.destination, destination))
                            continue;
                        QTest::addRow("%s (%d), source %s, destination %s", line.requested, mode,
                                      inWords(source), inWords(destination))
                            << mode << source << destination << line.sourceIsConnected
                            << line.destinationIsConnected << line.effective << lines(line.message);
                        ++rows;
                    }
                }
            }
        }
        QCOMPARE(rows, (5 + otherModes.size()) * 4);
    }

    void modeTable()
    {
        QFETCH(int, requested);
        QFETCH(bool, sourceNotifies);
        QFETCH(bool, destinationNotifies);
        QFETCH(bool, sourceIsConnected);
        QFETCH(bool, destinationIsConnected);
        QFETCH(int, effective);
        Model source(1);
        Model destination(7);
        KELDataBind binding;
        binding.setBind(&source, propertyOf(sourceNotifies), &destination,
                        propertyOf(destinationNotifies), BindMode(requested));

        QCOMPARE(int(binding.bindMode()), effective);
        QCOMPARE(binding.hasError(), effective == 1);
        QTEST(takeDebugLines(), "messages");
        QCOMPARE(source.writes, Ints{7});
        QCOMPARE(destination.writes, Ints());
        QCOMPARE(source.connections(), int(sourceIsConnected));
        QCOMPARE(destination.connections(), int(destinationIsConnected));

        const int echoes = sourceIsConnected && destinationIsConnected;
        source.forget();
        source.set(sourceNotifies, 8);
        QCOMPARE(destination.writes, Ints(sourceIsConnected, 8));
        QCOMPARE(source.writes, Ints(1 + echoes, 8));

        source.forget();
        destination.forget();
        destination.set(destinationNotifies, 9);
        QCOMPARE(source.writes, Ints(destinationIsConnected, 9));
        QCOMPARE(destination.writes, Ints(1 + echoes, 9));
        QCOMPARE(takeDebugLines(), QStringList());
    }

    void modeComesFromTheLastSetBind()
    {
        Model source;
        Model destination;
        KELDataBind binding;
        const auto modeAfter = [&](const char *name, BindMode mode) {
            binding.setBind(&source, name, &destination, "value", mode);
            binding.unbind();
            return int(binding.bindMode());
        };
        QCOMPARE(modeAfter("value", KELDataBind::TwoWay), 3);
        QCOMPARE(modeAfter("value", KELDataBind::Manual), 1);
        QVERIFY(binding.hasError());
        QCOMPARE(modeAfter("value", KELDataBind::OneWay), 2);
        QVERIFY(!binding.hasError());
        QCOMPARE(modeAfter("silent", KELDataBind::Auto), 4);
        QCOMPARE(modeAfter("value", BindMode(99)), 1);
        QCOMPARE(takeDebugLines(), lines(noneFound));
    }

    void missingProperty_data()
    {
        QTest::addColumn<bool>("hasSource");
        QTest::addColumn<QByteArray>("sourceName");
        QTest::addColumn<bool>("hasDestination");
        QTest::addColumn<QByteArray>("destinationName");
        QTest::addColumn<QString>("message");

        const QByteArray value("value");
        const auto source = [](const char *name) { return errorLine(noSource, name); };
        const auto destination = [](const char *name) { return errorLine(noDestination, name); };
        const char umlaut[] = "gr\xC3\xB6\xC3\x9F"
                              "e";
        const char broken[] = "a\xFF"
                              "b\xC3";
        const char repaired[] = "a\xEF\xBF\xBD"
                                "b\xEF\xBF\xBD";
        QTest::newRow("source: unknown")
            << true << QByteArray("valu") << true << value << source("valu");
        QTest::newRow("source: other case")
            << true << QByteArray("Value") << true << value << source("Value");
        QTest::newRow("source: with spaces and quotes")
            << true << QByteArray(" a \"b\" 'c' ") << true << value << source(" a \"b\" 'c' ");
        QTest::newRow("source: empty") << true << QByteArray("") << true << value << source("");
        QTest::newRow("source: null") << true << QByteArray() << true << value << source("");
        QTest::newRow("source: not ASCII")
            << true << QByteArray(umlaut) << true << value << source(umlaut);
        QTest::newRow("source: not UTF-8")
            << true << QByteArray(broken) << true << value << source(repaired);
        QTest::newRow("source: no object") << false << value << true << value << source("value");
        QTest::newRow("source: no object, no name")
            << false << QByteArray() << true << value << source("");
        QTest::newRow("destination: unknown")
            << true << value << true << QByteArray("valu") << destination("value");
        QTest::newRow("destination: empty")
            << true << value << true << QByteArray("") << destination("value");
        QTest::newRow("destination: null")
            << true << QByteArray("other") << true << QByteArray() << destination("other");
        QTest::newRow("destination: not ASCII")
            << true << value << true << QByteArray(umlaut) << destination("value");
        QTest::newRow("destination: not UTF-8")
            << true << value << true << QByteArray(broken) << destination("value");
        QTest::newRow("destination: no object")
            << true << value << false << value << destination("value");
        QTest::newRow("both: unknown")
            << true << QByteArray("a") << true << QByteArray("b") << source("a");
        QTest::newRow("both: null") << true << QByteArray() << true << QByteArray() << source("");
        QTest::newRow("both: no objects") << false << value << false << value << source("value");
    }

    void missingProperty()
    {
        QFETCH(bool, hasSource);
        QFETCH(QByteArray, sourceName);
        QFETCH(bool, hasDestination);
        QFETCH(QByteArray, destinationName);
        QFETCH(QString, message);
        Model source;
        Model destination;
        for (const int mode : {0, 1, 2, 3, 4, 5}) {
            KELDataBind binding;
            binding.setBind(hasSource ? &source : nullptr,
                            sourceName.isNull() ? nullptr : sourceName.constData(),
                            hasDestination ? &destination : nullptr,
                            destinationName.isNull() ? nullptr : destinationName.constData(),
                            BindMode(mode));
            QCOMPARE(takeDebugLines(), QStringList(message));
            QCOMPARE(int(binding.bindMode()), 1);
            QCOMPARE(source.connections() + destination.connections(), 0);
        }
    }

    void messagesAreOfTheDefaultCategory()
    {
        QStringList heads;
        messageHeads = &heads;
        outerHandler = qInstallMessageHandler(recordHead);
        Model source;
        Model destination;
        KELDataBind binding;
        binding.setBind(&source, "nothing", &destination, "value", KELDataBind::Auto);
        binding.setBind(&source, "value", &destination, "nothing", KELDataBind::Auto);
        binding.setBind(&source, "silent", &destination, "silent", KELDataBind::Auto);
        binding.setBind(&source, "silent", &destination, "value", KELDataBind::TwoWay);
        binding.setBind(&source, "value", &destination, "silent", KELDataBind::TwoWay);
        KELDataBind().bind();
        qInstallMessageHandler(outerHandler);
        QCOMPARE(takeDebugLines().size(), 6);
        QCOMPARE(heads, QStringList(QVector<QString>(6, u"0 default"_s).toList()));
    }

    void nullNameIsAnEmptyOne()
    {
        for (const char *name : {static_cast<const char *>(nullptr), ""}) {
            Model source;
            Model destination(7);
            KELDataBind binding;
            binding.setBind(&source, name, &destination, "value", KELDataBind::Manual);
            destination.setProperty("", 8);
            binding.setBind(&source, "value", &destination, name, KELDataBind::Manual);
            takeDebugLines();
            source.setValue(9);
            carryToDestination(&binding);
            QCOMPARE(destination.property("").toInt(), 9);
            destination.setProperty("", 10);
            carryToSource(&binding);
            QCOMPARE(source.value(), 10);
        }
    }

    // The first copy takes the name as it is, the later steps take the text it stood for.
    void namesAreKeptAsText()
    {
        const char broken[] = "a\xFF";
        const char repaired[] = "a\xEF\xBF\xBD";
        Model source;
        Model destination(7);
        KELDataBind binding;
        binding.setBind(&source, broken, &destination, "value", KELDataBind::Manual);
        QCOMPARE(takeDebugLines(), QStringList(errorLine(noSource, repaired)));
        QCOMPARE(source.dynamicPropertyNames(), QList<QByteArray>{broken});

        destination.setValue(8);
        binding.update();
        QCOMPARE(source.property(broken).toInt(), 7);
        QCOMPARE(source.property(repaired).toInt(), 8);
        source.setProperty(repaired, 9);
        carryToDestination(&binding);
        QCOMPARE(destination.value(), 9);

        binding.setBind(&source, "value", &destination, broken, KELDataBind::Manual);
        takeDebugLines();
        source.setValue(10);
        carryToDestination(&binding);
        QCOMPARE(destination.property(repaired).toInt(), 10);
        QVERIFY(!destination.property(broken).isValid());
    }

    void firstCopyIsOneReadAndOneWrite_data()
    {
        QTest::addColumn<int>("mode");
        for (const int mode : {0, 1, 2, 3, 4, 5})
            QTest::addRow("mode %d", mode) << mode;
    }

    void firstCopyIsOneReadAndOneWrite()
    {
        QFETCH(int, mode);
        Model source(1);
        Model destination(7);
        Converter converter;
        KELDataBind binding;
        binding.setBind(&source, "value", &destination, "value", BindMode(mode), &converter);
        QCOMPARE(source.writes, Ints{7});
        QCOMPARE(source.reads, 0);
        QCOMPARE(destination.reads, 1);
        QCOMPARE(destination.writes, Ints());
        QCOMPARE(converter.calls, QStringList());
        QCOMPARE(source.wasBlocked, QVector<bool>{false});
        QCOMPARE(destination.wasBlocked, QVector<bool>{false});
        takeDebugLines();
    }

    void firstCopyComesBeforeTheConnections()
    {
        Model source(1);
        Model destination(7);
        KELDataBind binding;
        const QSignalSpy changes(&source, &Model::valueChanged);
        binding.setBind(&source, "value", &destination, "value", KELDataBind::TwoWay);
        QCOMPARE(changes.count(), 1);
        QCOMPARE(destination.writes, Ints());
    }

    void firstCopyComesBeforeTheSourceIsChecked()
    {
        Model source(1);
        Model destination(7);
        KELDataBind binding;
        binding.setBind(&source, "nothing", &destination, "value", KELDataBind::TwoWay);
        QCOMPARE(source.dynamicPropertyNames(), QList<QByteArray>{"nothing"});
        QCOMPARE(source.property("nothing"), QVariant(7));
        QCOMPARE(takeDebugLines(), QStringList(errorLine(noSource, "nothing")));
    }

    void firstCopyComesBeforeTheDestinationIsChecked()
    {
        Model source(1);
        Model destination(7);
        KELDataBind binding;
        binding.setBind(&source, "value", &destination, "nothing", KELDataBind::TwoWay);
        QCOMPARE(source.writes, Ints{0});
        QCOMPARE(takeDebugLines(), QStringList(errorLine(noDestination, "value")));

        destination.setProperty("nothing", 5);
        binding.setBind(&source, "value", &destination, "nothing", KELDataBind::TwoWay);
        QCOMPARE(source.writes, (Ints{0, 5}));
        QCOMPARE(takeDebugLines(), QStringList(errorLine(noDestination, "value")));
    }

    void sourceIsCheckedFirst()
    {
        Model source;
        Model destination;
        destination.setProperty("b", 5);
        KELDataBind binding;
        binding.setBind(&source, "a", &destination, "b", KELDataBind::TwoWay);
        QCOMPARE(takeDebugLines(), QStringList(errorLine(noSource, "a")));
        QCOMPARE(source.property("a"), QVariant(5));
    }

    void failedSetBindKeepsTheMode_data()
    {
        QTest::addColumn<int>("mode");
        QTest::addColumn<bool>("sourceIsMissing");
        for (const int mode : {1, 2, 3, 4}) {
            QTest::addRow("mode %d, no source property", mode) << mode << true;
            QTest::addRow("mode %d, no destination property", mode) << mode << false;
        }
    }

    void failedSetBindKeepsTheMode()
    {
        QFETCH(int, mode);
        QFETCH(bool, sourceIsMissing);
        Model source;
        Model destination;
        KELDataBind binding;
        binding.setBind(&source, "value", &destination, "value", BindMode(mode));
        const int asked = mode == 2 ? 3 : 2;
        binding.setBind(&source, sourceIsMissing ? "nothing" : "value", &destination,
                        sourceIsMissing ? "value" : "nothing", BindMode(asked));
        QCOMPARE(takeDebugLines().size(), 1);
        QCOMPARE(int(binding.bindMode()), mode);
        QCOMPARE(binding.hasError(), mode == 1);
        QCOMPARE(source.connections(), int(mode == 2 || mode == 3));
        QCOMPARE(destination.connections(), int(mode == 4 || mode == 3));
    }

    void earlierConnectionsUseTheNewArguments_data()
    {
        QTest::addColumn<bool>("isValid");
        QTest::newRow("second call succeeds") << true;
        QTest::newRow("second call fails") << false;
    }

    void earlierConnectionsUseTheNewArguments()
    {
        QFETCH(bool, isValid);
        Model oldSource;
        Model oldDestination;
        Model source(3);
        Model destination(3);
        Converter converter;
        KELDataBind binding;
        binding.setBind(&oldSource, "value", &oldDestination, "value", KELDataBind::TwoWay);
        oldSource.setValue(1);
        oldDestination.setValue(2);
        const char *const name = isValid ? "other" : "nothing";
        destination.setProperty(name, 7);
        binding.setBind(&source, "silent", &destination, name, KELDataBind::Manual, &converter);
        QCOMPARE(takeDebugLines().size(), isValid ? 0 : 1);
        for (Model *model : {&oldSource, &oldDestination, &source, &destination})
            model->forget();

        oldSource.setValue(30);
        QCOMPARE(converter.calls, QStringList(u"there 7"_s));
        QCOMPARE(converter.objects, QVector<QObject *>{&source});
        QCOMPARE(destination.property(name), QVariant(107));
        QCOMPARE(oldDestination.writes, Ints());

        oldDestination.setValue(40);
        QCOMPARE(converter.calls.last(), u"back 107"_s);
        QCOMPARE(converter.objects.last(), &destination);
        QCOMPARE(source.writes, Ints{7});
        QCOMPARE(source.silent(), 7);
        QCOMPARE(oldSource.writes, Ints{30});
    }

    // The names, objects and converter are stored first of all.
    void firstCopyGoesThroughEarlierConnections()
    {
        Model source(1);
        Model oldDestination(1);
        Model destination(7);
        Converter converter;
        KELDataBind binding;
        binding.setBind(&source, "value", &oldDestination, "value", KELDataBind::OneWay);
        binding.setBind(&source, "value", &destination, "silent", KELDataBind::OneWay, &converter);
        QCOMPARE(converter.calls, QStringList(u"there 7"_s));
        QCOMPARE(destination.writes, Ints{107});
        QCOMPARE(oldDestination.writes, Ints());
    }

    void failedSetBindKeepsTheMetaProperties_data()
    {
        QTest::addColumn<int>("mode");
        for (const int mode : {2, 3, 4})
            QTest::addRow("mode %d", mode) << mode;
    }

    void failedSetBindKeepsTheMetaProperties()
    {
        QFETCH(int, mode);
        Model source(1);
        Model destination(1);
        KELDataBind binding;
        binding.setBind(&source, "value", &destination, "value", BindMode(mode));
        binding.unbind();
        binding.setBind(&source, "other", &destination, "nothing", KELDataBind::TwoWay);
        takeDebugLines();
        source.setOther(5);
        destination.setProperty("nothing", 6);
        binding.bind();

        QCOMPARE(source.connections(), int(mode == 2 || mode == 3));
        QCOMPARE(destination.connections(), int(mode == 4 || mode == 3));
        QCOMPARE(source.otherConnections() + destination.otherConnections(), 0);
        const int pushed = mode == 4 ? 6 : 5;
        QCOMPARE(source.other(), pushed);
        QCOMPARE(destination.property("nothing"), QVariant(pushed));

        source.setOther(8);
        QCOMPARE(destination.property("nothing"), QVariant(pushed));
        source.setValue(9);
        QCOMPARE(destination.property("nothing"), QVariant(mode == 4 ? 6 : 8));
        destination.setProperty("nothing", 10);
        destination.setValue(11);
        QCOMPARE(source.other(), mode == 2 ? 8 : 10);
        QCOMPARE(takeDebugLines(), QStringList());
    }

    void bindAfterAFailureWithObjectsOfAnotherClass_data()
    {
        failedSetBindKeepsTheMetaProperties_data();
    }

    // The properties kept are none of the new objects.
    void bindAfterAFailureWithObjectsOfAnotherClass()
    {
        QFETCH(int, mode);
        Model oldSource;
        Model oldDestination;
        TextModel source;
        TextModel destination;
        KELDataBind binding;
        binding.setBind(&oldSource, "value", &oldDestination, "value", BindMode(mode));
        oldSource.setValue(1);
        oldDestination.setValue(2);
        binding.setBind(&source, "value", &destination, "nothing", BindMode(mode));
        QCOMPARE(takeDebugLines(), QStringList(errorLine(noDestination, "value")));
        QSignalSpy spy(&source, &TextModel::valueChanged);

        source.setValue(u"text"_s);
        destination.setProperty("nothing", u"word"_s);
        binding.bind();
        const QString pushed = mode == 4 ? u"word"_s : u"text"_s;
        QCOMPARE(source.value(), pushed);
        QCOMPARE(destination.property("nothing"), QVariant(pushed));
        source.setValue(u"later"_s);
        destination.setValue(u"last"_s);
        QCOMPARE(source.value(), u"later"_s);
        QCOMPARE(destination.property("nothing"), QVariant(pushed));
        binding.unbind();
        QCOMPARE(takeWarnings(), QStringList());
        QCOMPARE(takeDebugLines(), QStringList());
        QCOMPARE(int(binding.bindMode()), mode);
    }

    // A subclass has the property kept, so it is connected.
    void modeOfAnEarlierSetBindWithOtherObjects()
    {
        Model oldSource;
        Model oldDestination;
        ShadowingModel source;
        KELDataBind binding;
        binding.setBind(&oldSource, "value", &oldDestination, "value", KELDataBind::OneWay);
        binding.setBind(&source, "silent", &oldDestination, "nothing", KELDataBind::OneWay);
        takeDebugLines();
        binding.bind();
        QCOMPARE(source.connections(), 1);
        source.setSilent(5);
        source.Model::setValue(6);
        QCOMPARE(oldDestination.property("nothing"), QVariant(5));
    }

    void undeclaredNameAfterADeclaredOne()
    {
        Model source;
        Model destination;
        NoModel nothing;
        KELDataBind binding;
        binding.setBind(&source, "value", &destination, "value", KELDataBind::TwoWay);
        source.setValue(1);
        destination.setValue(2);

        binding.setBind(&source, "value", &nothing, "value", KELDataBind::TwoWay);
        QCOMPARE(takeDebugLines(), QStringList(errorLine(noDestination, "value")));
        destination.forget();
        source.setValue(3);
        QCOMPARE(nothing.property("value"), QVariant(3));
        QCOMPARE(destination.writes, Ints());

        binding.setBind(&nothing, "value", &destination, "value", KELDataBind::TwoWay);
        QCOMPARE(takeDebugLines(), QStringList(errorLine(noSource, "value")));
        nothing.setProperty("value", 4);
        source.setValue(5);
        QCOMPARE(destination.value(), 4);
    }

    void declaredNameAfterAnUndeclaredOne()
    {
        Model source;
        Model destination;
        NoModel nothing;
        KELDataBind binding;
        binding.setBind(&nothing, "value", &nothing, "value", KELDataBind::TwoWay);
        QCOMPARE(takeDebugLines(), QStringList(errorLine(noSource, "value")));
        nothing.setProperty("value", 4);
        carryToDestination(&binding);
        carryToSource(&binding);

        binding.setBind(&source, "value", &destination, "value", KELDataBind::TwoWay);
        source.setValue(1);
        QCOMPARE(destination.value(), 1);
        destination.setValue(2);
        QCOMPARE(source.value(), 2);
        QCOMPARE(source.dynamicPropertyNames() + destination.dynamicPropertyNames(),
                 QList<QByteArray>());
        QCOMPARE(nothing.property("value"), QVariant(4));
    }

    void staticBind_data() { modeTable_data(); }

    void staticBind()
    {
        QFETCH(int, requested);
        QFETCH(bool, sourceNotifies);
        QFETCH(bool, destinationNotifies);
        QFETCH(bool, sourceIsConnected);
        QFETCH(bool, destinationIsConnected);
        Model source(1);
        Model destination(7);
        Converter converter;
        const KELDataBind *binding = KELDataBind::bind(
            &source, propertyOf(sourceNotifies), &destination, propertyOf(destinationNotifies),
            BindMode(requested), &converter);
        QVERIFY(binding);
        QTEST(int(binding->bindMode()), "effective");
        QTEST(takeDebugLines(), "messages");
        QCOMPARE(source.writes, Ints{7});
        QCOMPARE(source.reads, 0);
        QCOMPARE(destination.writes, Ints());
        QCOMPARE(destination.reads, 1);
        QCOMPARE(source.connections(), int(sourceIsConnected));
        QCOMPARE(destination.connections(), int(destinationIsConnected));
        QCOMPARE(converter.calls, QStringList());
        destination.set(destinationNotifies, 9);
        QCOMPARE(converter.calls.value(0), destinationIsConnected ? u"back 9"_s : QString());
    }

    void staticBindIsAChildOfTheSource()
    {
        auto *const source = new Model;
        Model destination;
        const QPointer<KELDataBind> binding(
            KELDataBind::bind(source, "value", &destination, "value", KELDataBind::TwoWay));
        QCOMPARE(binding->parent(), source);
        const QPointer<KELDataBind> failed(
            KELDataBind::bind(source, "nothing", &destination, "value", KELDataBind::TwoWay));
        QCOMPARE(failed->parent(), source);
        QVERIFY(failed->hasError());
        QCOMPARE(takeDebugLines(), QStringList(errorLine(noSource, "nothing")));
        delete source;
        QVERIFY(!binding && !failed);
        QCOMPARE(destination.connections(), 0);
    }

    void staticBindWithoutASource()
    {
        Model destination;
        const std::unique_ptr<KELDataBind> binding(
            KELDataBind::bind(nullptr, "value", &destination, "value", KELDataBind::TwoWay));
        QVERIFY(binding);
        QCOMPARE(binding->parent(), nullptr);
        QVERIFY(binding->hasError());
        QCOMPARE(takeDebugLines(), QStringList(errorLine(noSource, "value")));
    }
};

KEL_TEST_MAIN(tst_KELDataBindModes)
#include "tst_keldatabindmodes.moc"
