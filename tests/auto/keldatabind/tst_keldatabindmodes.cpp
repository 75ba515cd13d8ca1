// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "bindobjects.h"

#include <QtCore/QPointer>

#include <algorithm>
#include <limits>
#include <memory>

namespace {

enum class Notify { Yes, No, Any };

struct ModeLine
{
    BindMode requested;
    Notify source;
    Notify destination;
    BindMode effective;
    const char *message;
};

const char sourceFound[] = "waring : could not find src notify";
const char destinationFound[] = "waring : could not find dst notify";

// The last line is that of every other mode.
const ModeLine modeLines[] = {
    {KELDataBind::Auto, Notify::Yes, Notify::Yes, KELDataBind::TwoWay, nullptr},
    {KELDataBind::Auto, Notify::Yes, Notify::No, KELDataBind::OneWay, nullptr},
    {KELDataBind::Auto, Notify::No, Notify::Yes, KELDataBind::OneWayToSource, nullptr},
    {KELDataBind::Auto, Notify::No, Notify::No, KELDataBind::Manual, noneFound},
    {KELDataBind::Manual, Notify::Any, Notify::Any, KELDataBind::Manual, nullptr},
    {KELDataBind::OneWay, Notify::Yes, Notify::Any, KELDataBind::OneWay, nullptr},
    {KELDataBind::OneWay, Notify::No, Notify::Any, KELDataBind::Manual, noneFound},
    {KELDataBind::TwoWay, Notify::Yes, Notify::Yes, KELDataBind::TwoWay, nullptr},
    {KELDataBind::TwoWay, Notify::Yes, Notify::No, KELDataBind::OneWay, sourceFound},
    {KELDataBind::TwoWay, Notify::No, Notify::Yes, KELDataBind::OneWayToSource, destinationFound},
    {KELDataBind::TwoWay, Notify::No, Notify::No, KELDataBind::Manual, noneFound},
    {KELDataBind::OneWayToSource, Notify::Any, Notify::Yes, KELDataBind::OneWayToSource, nullptr},
    {KELDataBind::OneWayToSource, Notify::Any, Notify::No, KELDataBind::Manual, noneFound},
    {BindMode(5), Notify::Any, Notify::Any, KELDataBind::Manual, noneFound},
};

const ModeLine &lineFor(BindMode requested, bool sourceNotifies, bool destinationNotifies)
{
    const auto fits = [](Notify wanted, bool notifies) {
        return wanted == Notify::Any || (wanted == Notify::Yes) == notifies;
    };
    const auto *const end = std::end(modeLines) - 1;
    return *std::find_if(std::begin(modeLines), end, [&](const ModeLine &line) {
        return line.requested == requested && fits(line.source, sourceNotifies)
            && fits(line.destination, destinationNotifies);
    });
}

const std::vector<Named> requestedModes = {{"auto", 0},
                                           {"manual", 1},
                                           {"one way", 2},
                                           {"two way", 3},
                                           {"one way to source", 4},
                                           {"5", 5},
                                           {"255", 255},
                                           {"the greatest", std::numeric_limits<int>::max()},
                                           {"-1", -1},
                                           {"the least", std::numeric_limits<int>::min()}};

const char umlaut[] = "gr\xC3\xB6\xC3\x9F"
                      "e";
const char notUtf8[] = "a\xFF"
                       "b\xC3";
const char repaired[] = "a\xEF\xBF\xBD"
                        "b\xEF\xBF\xBD";

struct Lookup
{
    const char *name;
    const char *source;
    const char *destination;
    const char *error;
    const char *printed;
    Missing missing = Nobody;
};

const Lookup failingLookups[] = {
    {"source: unknown", "valu", "value", noSource, "valu"},
    {"source: other case", "Value", "value", noSource, "Value"},
    {"source: spaces and quotes", " a \"b\" 'c' ", "value", noSource, " a \"b\" 'c' "},
    {"source: empty", "", "value", noSource, ""},
    {"source: null", nullptr, "value", noSource, ""},
    {"source: not ASCII", umlaut, "value", noSource, umlaut},
    {"source: not UTF-8", notUtf8, "value", noSource, repaired},
    {"source: no object", "value", "value", noSource, "value", Source},
    {"source: no object, no name", nullptr, "value", noSource, "", Source},
    {"destination: unknown", "value", "valu", noDestination, "value"},
    {"destination: empty", "value", "", noDestination, "value"},
    {"destination: null", "other", nullptr, noDestination, "other"},
    {"destination: not ASCII", "value", umlaut, noDestination, "value"},
    {"destination: not UTF-8", "value", notUtf8, noDestination, "value"},
    {"destination: no object", "value", "value", noDestination, "value", Destination},
    {"both: unknown", "a", "b", noSource, "a"},
    {"both: null", nullptr, nullptr, noSource, ""},
    {"both: no objects", "value", "value", noSource, "value", Both},
};

} // namespace

class tst_KELDataBindModes : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void startsManual()
    {
        const KELDataBind binding;
        QCOMPARE(binding.bindMode(), KELDataBind::Manual);
        QVERIFY(binding.hasError());
        QCOMPARE(binding.parent(), nullptr);
        QObject parent;
        const auto *child = new KELDataBind(&parent);
        QCOMPARE(child->parent(), &parent);
    }

    void modeTable_data()
    {
        addRows(
            {{"requested", requestedModes},
             {"source", {{"source notifies", true}, {"source is silent", false}}},
             {"destination", {{"destination notifies", true}, {"destination is silent", false}}},
             {"isStatic", {{"setBind()", false}, {"static bind()", true}}}});
    }

    void modeTable()
    {
        const auto requested = fetch<BindMode>("requested");
        const bool sourceNotifies = fetch<bool>("source");
        const bool destinationNotifies = fetch<bool>("destination");
        const char *const sourceName = sourceNotifies ? "value" : "silent";
        const char *const destinationName = destinationNotifies ? "value" : "silent";
        const ModeLine &line = lineFor(requested, sourceNotifies, destinationNotifies);

        BindStage stage;
        stage.destination.setProperty(destinationName, 7);
        stage.forget();
        const KELDataBind *binding = &stage.binding;
        if (fetch<bool>("isStatic"))
            binding = KELDataBind::bind(&stage.source, sourceName, &stage.destination,
                                        destinationName, requested, &stage.converter);
        else
            stage.setBind(sourceName, destinationName, requested, &stage.converter);
        QCOMPARE(binding->bindMode(), line.effective);
        QCOMPARE(binding->hasError(), line.effective == KELDataBind::Manual);
        QCOMPARE(takeDebugLines(), lines(line.message));
        const bool there = hearsSource(line.effective);
        const bool back = hearsDestination(line.effective);
        QCOMPARE(stage.connections(), (Ints{there, back}));

        // The first copy.
        QCOMPARE(stage.source.takeCalls(), u"write 7"_s);
        QCOMPARE(stage.destination.takeCalls(), u"read"_s);
        QCOMPARE(stage.converter.calls, QStringList());

        stage.source.setProperty(sourceName, 8);
        QCOMPARE(stage.destination.writes, Ints(there, 108));
        QCOMPARE(stage.source.writes, Ints(1 + (there && back), 8));
        stage.forget();
        stage.destination.setProperty(destinationName, 9);
        QCOMPARE(stage.source.writes, Ints(back, -91));
        QCOMPARE(stage.destination.writes, Ints(1 + (there && back), 9));
        QCOMPARE(takeDebugLines(), QStringList());
    }

    void modeComesFromTheLastSetBind()
    {
        BindStage stage;
        const auto modeAfter = [&](const char *sourceName, BindMode mode) {
            stage.setBind(sourceName, "value", mode);
            stage.binding.unbind();
            return stage.binding.bindMode();
        };
        QCOMPARE(modeAfter("value", KELDataBind::TwoWay), KELDataBind::TwoWay);
        QCOMPARE(modeAfter("value", KELDataBind::Manual), KELDataBind::Manual);
        QVERIFY(stage.binding.hasError());
        QCOMPARE(modeAfter("value", KELDataBind::OneWay), KELDataBind::OneWay);
        QVERIFY(!stage.binding.hasError());
        QCOMPARE(modeAfter("silent", KELDataBind::Auto), KELDataBind::OneWayToSource);
        QCOMPARE(modeAfter("value", BindMode(99)), KELDataBind::Manual);
        QCOMPARE(takeDebugLines(), lines(noneFound));
    }

    void missingProperty_data()
    {
        addRows({{"lookup", namesOf(failingLookups)}, {"requested", requestedModes}});
    }

    void missingProperty()
    {
        const Lookup &lookup = failingLookups[fetch<size_t>("lookup")];
        BindStage stage;
        stage.binding.setBind(lookup.missing & Source ? nullptr : &stage.source, lookup.source,
                              lookup.missing & Destination ? nullptr : &stage.destination,
                              lookup.destination, fetch<BindMode>("requested"));
        QCOMPARE(takeDebugLines(), QStringList(errorLine(lookup.error, lookup.printed)));
        QCOMPARE(stage.binding.bindMode(), KELDataBind::Manual);
        QCOMPARE(stage.connections(), (Ints{0, 0}));
    }

    void messagesAreOfTheDefaultCategory()
    {
        static QStringList heads;
        static QtMessageHandler outer;
        heads.clear();
        outer = qInstallMessageHandler(
            [](QtMsgType type, const QMessageLogContext &context, const QString &text) {
                heads.append(u"%1 %2"_s.arg(int(type)).arg(QString::fromUtf8(context.category)));
                outer(type, context, text);
            });
        BindStage stage;
        stage.binding.bind();
        stage.setBind("nothing", "value", KELDataBind::Auto);
        stage.setBind("value", "nothing", KELDataBind::Auto);
        stage.setBind("silent", "silent", KELDataBind::Auto);
        stage.setBind("silent", "value", KELDataBind::TwoWay);
        stage.setBind("value", "silent", KELDataBind::TwoWay);
        qInstallMessageHandler(outer);
        QCOMPARE(takeDebugLines().size(), 6);
        QCOMPARE(heads, QStringList(QVector<QString>(6, u"0 default"_s).toList()));
    }

    void nullNameIsAnEmptyOne()
    {
        for (const char *name : {static_cast<const char *>(nullptr), ""}) {
            BindStage stage;
            stage.setBind(name, "value", KELDataBind::Manual);
            stage.destination.setProperty("", 8);
            stage.setBind("value", name, KELDataBind::Manual);
            takeDebugLines();
            stage.source.setValue(9);
            carryToDestination(&stage.binding);
            QCOMPARE(stage.destination.property("").toInt(), 9);
            stage.destination.setProperty("", 10);
            carryToSource(&stage.binding);
            QCOMPARE(stage.source.value(), 10);
        }
    }

    // The first copy takes the name as it is, the later steps take the text it stood for.
    void namesAreKeptAsText()
    {
        BindStage stage;
        stage.setBind(notUtf8, "value", KELDataBind::Manual);
        QCOMPARE(stage.source.dynamicPropertyNames(), QList<QByteArray>{notUtf8});
        stage.destination.setValue(8);
        stage.binding.update();
        QCOMPARE(stage.source.property(notUtf8), QVariant(0));
        QCOMPARE(stage.source.property(repaired), QVariant(8));
        stage.source.setProperty(repaired, 9);
        carryToDestination(&stage.binding);
        QCOMPARE(stage.destination.value(), 9);

        stage.setBind("value", notUtf8, KELDataBind::Manual);
        takeDebugLines();
        stage.source.setValue(10);
        carryToDestination(&stage.binding);
        QCOMPARE(stage.destination.property(repaired), QVariant(10));
        QVERIFY(!stage.destination.property(notUtf8).isValid());
    }

    void firstCopyComesBeforeTheConnections()
    {
        BindStage stage;
        stage.destination.setValue(7);
        stage.forget();
        const QSignalSpy changes(&stage.source, &Model::valueChanged);
        stage.setBind(KELDataBind::TwoWay);
        QCOMPARE(changes.count(), 1);
        QCOMPARE(stage.destination.writes, Ints());
    }

    void firstCopyComesBeforeTheNamesAreChecked_data()
    {
        addRows(
            {{"source", {{"declared in the source", true}, {"not in the source", false}}},
             {"destination",
              {{"declared in the destination", true}, {"not in the destination", false}}}},
            [](const std::vector<int> &isDeclared) { return !isDeclared[0] || !isDeclared[1]; });
    }

    void firstCopyComesBeforeTheNamesAreChecked()
    {
        const char *const sourceName = fetch<bool>("source") ? "value" : "a";
        const char *const destinationName = fetch<bool>("destination") ? "value" : "b";
        BindStage stage;
        stage.destination.setProperty(destinationName, 5);
        stage.setBind(sourceName, destinationName, KELDataBind::TwoWay);
        QCOMPARE(stage.source.property(sourceName), QVariant(5));
        QCOMPARE(takeDebugLines().size(), 1);
    }

    void firstCopyOfNothing()
    {
        BindStage stage;
        stage.source.setValue(5);
        stage.forget();
        stage.setBind("value", "nothing", KELDataBind::TwoWay);
        QCOMPARE(stage.source.writes, Ints{0});
        QCOMPARE(takeDebugLines().size(), 1);
    }

    void failedSetBindKeepsTheMode_data()
    {
        addRows({{"mode", modes},
                 {"isSource", {{"no source property", true}, {"no destination property", false}}}});
    }

    void failedSetBindKeepsTheMode()
    {
        const auto mode = fetch<BindMode>("mode");
        const bool isSource = fetch<bool>("isSource");
        BindStage stage;
        stage.setBind(mode);
        stage.setBind(isSource ? "nothing" : "value", isSource ? "value" : "nothing",
                      mode == KELDataBind::OneWay ? KELDataBind::TwoWay : KELDataBind::OneWay);
        QCOMPARE(takeDebugLines().size(), 1);
        QCOMPARE(stage.binding.bindMode(), mode);
        QCOMPARE(stage.binding.hasError(), mode == KELDataBind::Manual);
        QCOMPARE(stage.connections(), (Ints{hearsSource(mode), hearsDestination(mode)}));
    }

    void earlierConnectionsUseTheNewArguments_data()
    {
        addRows({{"isValid", {{"second call succeeds", true}, {"second call fails", false}}}});
    }

    void earlierConnectionsUseTheNewArguments()
    {
        const bool isValid = fetch<bool>("isValid");
        const char *const name = isValid ? "other" : "nothing";
        BindStage stage;
        Model source;
        Model destination;
        stage.setBind(KELDataBind::TwoWay);
        stage.source.setValue(1);
        stage.destination.setValue(2);
        destination.setProperty(name, 7);
        stage.binding.setBind(&source, "silent", &destination, name, KELDataBind::Manual,
                              &stage.converter);
        QCOMPARE(takeDebugLines().size(), isValid ? 0 : 1);
        stage.forget();
        source.forget();

        stage.source.setValue(30);
        QCOMPARE(destination.property(name), QVariant(107));
        QCOMPARE(stage.destination.writes, Ints());
        stage.destination.setValue(40);
        QCOMPARE(source.writes, Ints{7});
        QCOMPARE(source.silent(), 7);
        QCOMPARE(stage.source.writes, Ints{30});
        QCOMPARE(stage.converter.calls, (QStringList{u"there 7"_s, u"back 107"_s}));
        QCOMPARE(stage.converter.objects, (QVector<QObject *>{&source, &destination}));
    }

    // The names, objects and converter are stored first of all.
    void firstCopyGoesThroughEarlierConnections()
    {
        BindStage stage;
        Model destination(7);
        stage.setBind(KELDataBind::OneWay);
        stage.forget();
        stage.binding.setBind(&stage.source, "value", &destination, "silent", KELDataBind::OneWay,
                              &stage.converter);
        QCOMPARE(stage.converter.calls, QStringList(u"there 7"_s));
        QCOMPARE(destination.writes, Ints{107});
        QCOMPARE(stage.destination.writes, Ints());
    }

    void failedSetBindKeepsTheMetaProperties_data() { addRows({{"mode", connectedModes}}); }

    void failedSetBindKeepsTheMetaProperties()
    {
        const auto mode = fetch<BindMode>("mode");
        const bool there = hearsSource(mode);
        const bool back = hearsDestination(mode);
        BindStage stage;
        stage.setBind(mode);
        stage.binding.unbind();
        stage.setBind("other", "nothing", KELDataBind::TwoWay);
        takeDebugLines();
        stage.source.setOther(5);
        stage.destination.setProperty("nothing", 6);
        stage.binding.bind();
        QCOMPARE(stage.connections(), (Ints{there, back}));
        QCOMPARE(stage.source.otherConnections() + stage.destination.otherConnections(), 0);
        const int pushed = there ? 5 : 6;
        QCOMPARE(stage.source.other(), pushed);
        QCOMPARE(stage.destination.property("nothing"), QVariant(pushed));

        stage.source.setOther(8);
        QCOMPARE(stage.destination.property("nothing"), QVariant(pushed));
        stage.source.setValue(9);
        QCOMPARE(stage.destination.property("nothing"), QVariant(there ? 8 : 6));
        stage.destination.setProperty("nothing", 10);
        stage.destination.setValue(11);
        QCOMPARE(stage.source.other(), back ? 10 : 8);
        QCOMPARE(takeDebugLines(), QStringList());
    }

    void bindAfterAFailureWithObjectsOfAnotherClass_data() { addRows({{"mode", connectedModes}}); }

    // The properties kept are none of the new objects.
    void bindAfterAFailureWithObjectsOfAnotherClass()
    {
        const auto mode = fetch<BindMode>("mode");
        BindStage stage;
        TextModel source;
        TextModel destination;
        stage.setBind(mode);
        stage.source.setValue(1);
        stage.destination.setValue(2);
        stage.binding.setBind(&source, "value", &destination, "nothing", mode);
        takeDebugLines();
        source.setValue(u"text"_s);
        destination.setProperty("nothing", u"word"_s);
        stage.binding.bind();
        const QString pushed = hearsSource(mode) ? u"text"_s : u"word"_s;
        QCOMPARE(source.value(), pushed);
        QCOMPARE(destination.property("nothing"), QVariant(pushed));

        source.setValue(u"later"_s);
        destination.setValue(u"last"_s);
        QCOMPARE(source.value(), u"later"_s);
        QCOMPARE(destination.property("nothing"), QVariant(pushed));
        stage.binding.unbind();
        QCOMPARE(takeDebugLines(), QStringList());
        QCOMPARE(stage.binding.bindMode(), mode);
    }

    void bindAfterAFailureWithAnObjectOfASubclass()
    {
        BindStage stage;
        ShadowingModel source;
        stage.setBind(KELDataBind::OneWay);
        stage.binding.setBind(&source, "silent", &stage.destination, "nothing",
                              KELDataBind::OneWay);
        takeDebugLines();
        stage.binding.bind();
        QCOMPARE(source.connections(), 1);
        source.setSilent(5);
        source.Model::setValue(6);
        QCOMPARE(stage.destination.property("nothing"), QVariant(5));
    }

    void undeclaredNameAfterADeclaredOne()
    {
        BindStage stage;
        NoModel nothing;
        stage.setBind(KELDataBind::TwoWay);
        stage.source.setValue(1);
        stage.destination.setValue(2);

        stage.binding.setBind(&stage.source, "value", &nothing, "value", KELDataBind::TwoWay);
        stage.forget();
        stage.source.setValue(3);
        QCOMPARE(nothing.property("value"), QVariant(3));
        QCOMPARE(stage.destination.writes, Ints());

        stage.binding.setBind(&nothing, "value", &stage.destination, "value", KELDataBind::TwoWay);
        nothing.setProperty("value", 4);
        stage.source.setValue(5);
        QCOMPARE(stage.destination.value(), 4);
        QCOMPARE(takeDebugLines().size(), 2);
    }

    void declaredNameAfterAnUndeclaredOne()
    {
        BindStage stage;
        NoModel nothing;
        stage.binding.setBind(&nothing, "value", &nothing, "value", KELDataBind::TwoWay);
        QCOMPARE(takeDebugLines().size(), 1);
        nothing.setProperty("value", 4);
        carryToDestination(&stage.binding);
        carryToSource(&stage.binding);

        stage.setBind(KELDataBind::TwoWay);
        stage.source.setValue(1);
        QCOMPARE(stage.destination.value(), 1);
        stage.destination.setValue(2);
        QCOMPARE(stage.source.value(), 2);
        QCOMPARE(stage.source.dynamicPropertyNames() + stage.destination.dynamicPropertyNames(),
                 QList<QByteArray>());
        QCOMPARE(nothing.property("value"), QVariant(4));
    }

    void staticBindIsAChildOfTheSource()
    {
        auto source = std::make_unique<Model>();
        Model destination;
        const QPointer<KELDataBind> bound(
            KELDataBind::bind(source.get(), "value", &destination, "value", KELDataBind::TwoWay));
        const QPointer<KELDataBind> failed(
            KELDataBind::bind(source.get(), "a", &destination, "value", KELDataBind::TwoWay));
        QCOMPARE(takeDebugLines(), QStringList(errorLine(noSource, "a")));
        QVERIFY(failed->hasError());
        QCOMPARE(bound->parent(), source.get());
        QCOMPARE(failed->parent(), source.get());
        source.reset();
        QVERIFY(!bound && !failed);
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
