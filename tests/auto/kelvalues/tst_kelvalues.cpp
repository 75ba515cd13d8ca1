// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "keltest.h"
#include "rows.h"
#include "signallog.h"
#include "stage.h"

#include <kelcheckbox.h>
#include <kelcombobox.h>
#include <keldatabind.h>
#include <kellabel.h>
#include <kelprocessbar.h>
#include <kelradiobox.h>
#include <kelrange.h>
#include <kelslidecontrol.h>
#include <kelvalues.h>

namespace {

const std::vector<Named> ways{{"delete", 0}, {"deleteLater", 1}};

} // namespace

// Its setters tell each time, also of no change.
class ChattyModel : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int level MEMBER m_level WRITE setLevel NOTIFY changed)
    Q_PROPERTY(double temperature MEMBER m_temperature WRITE setTemperature NOTIFY changed)
    Q_PROPERTY(QVariant reading MEMBER m_reading WRITE setReading NOTIFY changed)
    Q_PROPERTY(bool on MEMBER m_isOn WRITE setOn NOTIFY changed)
    Q_PROPERTY(int silent READ silent CONSTANT)

public:
    void setLevel(int level)
    {
        ++writes;
        m_level = level;
        Q_EMIT changed();
    }
    void setTemperature(double temperature)
    {
        ++writes;
        m_temperature = qMin(temperature, greatest);
        Q_EMIT changed();
    }
    void setReading(const QVariant &reading)
    {
        m_reading = reading;
        Q_EMIT changed();
    }
    void setOn(bool on)
    {
        ++writes;
        m_isOn = on;
        Q_EMIT changed();
    }
    int silent() const { return 5; }

    int level() const { return m_level; }
    double temperature() const { return m_temperature; }
    bool isOn() const { return m_isOn; }

    int writes = 0;
    double greatest = 1000;

Q_SIGNALS:
    void changed();

private:
    int m_level = 40;
    double m_temperature = 21.5;
    QVariant m_reading;
    bool m_isOn = true;
};

class tst_KELValues : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void anObjectHasOneAdapter()
    {
        QPointer<KELValues> values;
        {
            KELLabel label;
            values = KELValues::of(&label);
            QCOMPARE(values->parent(), &label);
            QCOMPARE(KELValues::of(&label), values.data());
        }
        QVERIFY(!values);
        QCOMPARE(KELValues::of(nullptr), nullptr);
        KELRadioBoxGroup group;
        QVERIFY(KELValues::of(&group));
    }

    void anotherObjectHasNone()
    {
        ChattyModel model;
        QCOMPARE(KELValues::of(&model), nullptr);
        QCOMPARE(takeWarnings(), QStringList{u"KELValues: ChattyModel has no values"_s});
    }

    void aPropertyIsOfRealTypeAndTells_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<QString>("signal");
        const auto add = [](const char *name, const QVariant &value) {
            QTest::newRow(name) << QByteArray(name) << value
                                << QString::fromLatin1(name) + u"Changed"_s;
        };
        add("text", u"Start"_s);
        add("enabled", false);
        add("visible", false);
        add("check", true);
        add("percent", 42);
        add("selectIndex", 1);
        add("currentId", 7);
    }

    void aPropertyIsOfRealTypeAndTells()
    {
        KELProcessBar bar;
        KELComboBox combo;
        combo.addItem(1, u"one"_s);
        combo.addItem(2, u"two"_s);
        KELRadioBoxGroup group;
        KELRadioBox slow;
        KELRadioBox fast;
        group.addRadioBox(&slow, 0);
        group.addRadioBox(&fast, 7);
        QObject *object = &bar;
        const auto name = fetch<QByteArray>("name");
        if (name == "selectIndex")
            object = &combo;
        else if (name == "currentId")
            object = &group;
        KELValues *const values = KELValues::of(object);
        SignalLog log;
        log.listenTo(values);
        const QVariant value = fetch<QVariant>("value");
        QVERIFY(values->property(name) != value);
        QVERIFY(values->setProperty(name, value));
        QCOMPARE(values->property(name), value);
        QCOMPARE(values->property(name).userType(), value.userType());
        QCOMPARE(log.take(), fetch<QString>("signal"));
        QVERIFY(values->setProperty(name, value));
        QCOMPARE(log.take(), QString());
    }

    void changesOfTheControlAreNoticed()
    {
        KELProcessBar bar;
        KELComboBox combo;
        combo.addItem(1, u"one"_s);
        KELCheckBox box;
        SignalLog log;
        log.listenTo(KELValues::of(&bar));
        log.listenTo(KELValues::of(&combo));
        log.listenTo(KELValues::of(&box));
        bar.setValue(30);
        combo.setSelectIndex(0);
        box.setCheck(true);
        box.setEnabled(false);
        QCOMPARE(log.take(), u"percentChanged selectIndexChanged checkChanged enabledChanged"_s);
        KELValues::of(&box)->setCheck(false);
        QCOMPARE(log.take(), u"checkChanged"_s);
    }

    void aPropertyOfAnotherClassIsZero()
    {
        KELLabel label;
        KELRadioBoxGroup group;
        for (QObject *object : {static_cast<QObject *>(&label), static_cast<QObject *>(&group)}) {
            KELValues *const values = KELValues::of(object);
            values->setPercent(7);
            values->setSelectIndex(7);
            QCOMPARE(values->percent(), 0);
            QCOMPARE(values->selectIndex(), 0);
        }
        KELValues::of(&label)->setCurrentId(7);
        QCOMPARE(KELValues::of(&label)->currentId(), 0);
        KELValues *const values = KELValues::of(&group);
        values->setText(u"a"_s);
        values->setCheck(true);
        values->setEnabled(true);
        values->setVisible(true);
        QVERIFY(values->text().isEmpty() && !values->isCheck());
        QVERIFY(!values->isEnabled() && !values->isVisible());
    }

    void canBeBound()
    {
        ChattyModel model;
        KELProcessBar bar;
        KELDataBind::bind(KELValues::of(&bar), "percent", &model, "level", KELDataBind::TwoWay);
        QCOMPARE(bar.value(), 40);
        model.setLevel(60);
        QCOMPARE(bar.value(), 60);
        bar.setValue(70);
        QCOMPARE(model.level(), 70);
    }

    void aModelIsShownWithAFormat_data()
    {
        QTest::addColumn<QVariant>("reading");
        QTest::addColumn<QString>("format");
        QTest::addColumn<int>("decimals");
        QTest::addColumn<QString>("text");
        const QLocale locale;
        QTest::newRow("without a format")
            << QVariant(21.5) << QString() << -1 << locale.toString(21.5, 'f', 1);
        QTest::newRow("unit") << QVariant(21.5) << u"%1 V"_s << -1
                              << locale.toString(21.5, 'f', 1) + u" V"_s;
        QTest::newRow("decimals") << QVariant(21.0) << u"%1"_s << 2
                                  << locale.toString(21.0, 'f', 2);
        QTest::newRow("float") << QVariant(0.5F) << u"%1"_s << 1 << locale.toString(0.5, 'f', 1);
        QTest::newRow("as many as needed")
            << QVariant(1e6) << u"%1"_s << -1 << locale.toString(1000000);
        QTest::newRow("int") << QVariant(12345) << u"%1"_s << 2 << locale.toString(12345);
        QTest::newRow("twice") << QVariant(3) << u"%1/%1 %2"_s << -1 << u"3/3 %2"_s;
        QTest::newRow("no place") << QVariant(3) << u"on"_s << -1 << u"on"_s;
        QTest::newRow("text") << QVariant(u"%1"_s) << u"<%1>"_s << -1 << u"<%1>"_s;
        QTest::newRow("nothing") << QVariant() << u"%1 V"_s << -1 << u"\u2013 V"_s;
        QTest::newRow("NaN") << QVariant(qQNaN()) << u"%1 V"_s << 1 << u"\u2013 V"_s;
        QTest::newRow("infinite") << QVariant(qInf()) << u"%1 V"_s << 1 << u"\u2013 V"_s;
    }

    void aModelIsShownWithAFormat()
    {
        ChattyModel model;
        KELLabel label;
        const QVariant reading = fetch<QVariant>("reading");
        const QString text = fetch<QString>("text");
        QVERIFY(KELValues::show(&model, "reading", &label, "text", fetch<QString>("format"),
                                fetch<int>("decimals")));
        model.setReading(reading);
        QCOMPARE(label.text(), text);
    }

    void numbersAreThoseOfTheLocale()
    {
        QLocale::setDefault(QLocale(QLocale::German));
        ChattyModel model;
        KELLabel label;
        KELValues::show(&model, "temperature", &label, "text", u"%1 V"_s, 2);
        QLocale::setDefault(QLocale::c());
        QCOMPARE(label.text(), u"21,50 V"_s);
    }

    void showingChangesNoModel()
    {
        ChattyModel model;
        KELProcessBar bar;
        KELRange range;
        KELSlideControl slide;
        KELRange narrow;
        narrow.setMaximum(10);
        KELValues::show(&model, "level", &bar, "percent");
        KELValues::edit(&model, "level", &range, "value");
        KELValues::edit(&model, "level", &slide, "value");
        KELValues::edit(&model, "level", &narrow, "value");
        QCOMPARE(bar.value(), 40);
        QCOMPARE(range.value(), 40.0);
        QCOMPARE(slide.value(), 40.0F);
        QCOMPARE(narrow.value(), 10.0);
        QCOMPARE(model.level(), 40);
        QCOMPARE(model.writes, 0);
        model.setLevel(70);
        QCOMPARE(bar.value(), 70);
        QCOMPARE(range.value(), 70.0);
        QCOMPARE(slide.value(), 70.0F);
        QCOMPARE(model.writes, 1);
        bar.setValue(3);
        QCOMPARE(model.level(), 70);
    }

    void editsGoToTheModel()
    {
        ChattyModel model;
        KELRange range;
        KELSlideControl slide;
        KELCheckBox box;
        KELValues::edit(&model, "level", &range, "value");
        KELValues::edit(&model, "temperature", &slide, "value");
        KELValues::edit(&model, "on", &box, "check");
        QVERIFY(box.isCheck());
        range.setValue(55);
        QCOMPARE(model.level(), 55);
        slide.setValue(33);
        QCOMPARE(model.temperature(), 33.0);
        slide.setValue(33);
        box.setCheck(false);
        QVERIFY(!model.isOn());
        QCOMPARE(model.writes, 4);
    }

    void twoSlidersSettle()
    {
        ChattyModel model;
        KELSlideControl one;
        KELSlideControl other;
        KELValues::edit(&model, "temperature", &one, "value");
        KELValues::edit(&model, "temperature", &other, "value");
        one.setValue(70);
        QCOMPARE(other.value(), 70.0F);
        other.setValue(10);
        QCOMPARE(one.value(), 10.0F);
        QCOMPARE(model.temperature(), 10.0);
    }

    void theControlShowsWhatTheModelMakesOfAnEdit()
    {
        ChattyModel model;
        KELRange range;
        KELValues::edit(&model, "level", &range, "value");
        range.setValue(33.7);
        QCOMPARE(range.value(), 34.0);
        KELRange warm;
        model.greatest = 25;
        KELValues::edit(&model, "temperature", &warm, "value");
        warm.setValue(80);
        QCOMPARE(model.temperature(), 25.0);
        QCOMPARE(warm.value(), 25.0);
    }

    void whatIsShownIsNotWrittenAgain()
    {
        ChattyModel model;
        KELSlideControl slide;
        KELValues::show(&model, "level", &slide, "value");
        SignalLog log;
        log.listenTo(&slide);
        model.setOn(false); // tells of all properties
        QCOMPARE(log.take(), QString());
    }

    void aSlotOfTheControlMayChangeTheModel()
    {
        ChattyModel model;
        KELRange range;
        connect(&range, &KELRange::valueChanged, &model, [&] {
            if (model.level() != 20)
                model.setLevel(20);
        });
        KELValues::edit(&model, "level", &range, "value");
        QCOMPARE(model.level(), 20);
        QCOMPARE(range.value(), 20.0);
        model.setLevel(90);
        QCOMPARE(range.value(), 20.0);
    }

    void aSlotThatNeverRestsIsLeft()
    {
        ChattyModel model;
        KELRange range;
        KELValues::edit(&model, "level", &range, "value");
        connect(&range, &KELRange::valueChanged, &model,
                [&] { model.setLevel((model.level() + 1) % 100); });
        model.setLevel(50);
        QVERIFY(model.writes < 20);
    }

    void theLinkEndsWhenItIsDeleted()
    {
        ChattyModel model;
        KELRange range;
        QObject *const link = KELValues::edit(&model, "level", &range, "value");
        QCOMPARE(link->parent(), &range);
        delete link;
        model.setLevel(60);
        QCOMPARE(range.value(), 40.0);
        range.setValue(7);
        QCOMPARE(model.level(), 60);
    }

    void theLinkEndsWithTheModel()
    {
        auto *model = new ChattyModel;
        KELRange range;
        const QPointer<QObject> link = KELValues::edit(model, "level", &range, "value");
        delete model;
        range.setValue(7);
        QCOMPARE(range.value(), 7.0);
        QTRY_VERIFY(!link);
    }

    void theLinkEndsWithTheAdapter()
    {
        ChattyModel model;
        KELLabel label;
        KELValues::show(&model, "level", &label);
        delete KELValues::of(&label);
        model.setLevel(60);
        QCOMPARE(label.text(), QLocale().toString(40));
    }

    void aMistakeIsTold_data()
    {
        QTest::addColumn<QByteArray>("property");
        QTest::addColumn<QByteArray>("controlProperty");
        QTest::addColumn<bool>("isEdit");
        QTest::addColumn<bool>("isMade");
        QTest::addColumn<QString>("warning");
        const auto add = [](const char *property, const char *controlProperty, bool isEdit,
                            bool isMade, const char *warning) {
            QTest::newRow(warning) << QByteArray(property) << QByteArray(controlProperty) << isEdit
                                   << isMade << QString::fromLatin1(warning);
        };
        add("lever", "value", false, false, "KELValues: ChattyModel has no property \"lever\"");
        add("", "value", false, false, "KELValues: ChattyModel has no property \"\"");
        add("level", "percent", false, false, "KELValues: KELRange has no property \"percent\"");
        add("silent", "value", true, false,
            "KELValues: property \"silent\" of ChattyModel cannot be written");
        add("level", "focus", false, false, "KELValues: KELRange has no property \"focus\"");
        add("silent", "value", false, true,
            "KELValues: property \"silent\" of ChattyModel does not notify");
        add("level", "step", true, true,
            "KELValues: property \"step\" of KELRange does not notify");
    }

    void aMistakeIsTold()
    {
        ChattyModel model;
        KELRange range;
        const auto property = fetch<QByteArray>("property");
        const auto controlProperty = fetch<QByteArray>("controlProperty");
        const QObject *const link = *static_cast<const bool *>(
                                        QTest::qData("isEdit", qMetaTypeId<bool>()))
            ? KELValues::edit(&model, property, &range, controlProperty)
            : KELValues::show(&model, property, &range, controlProperty);
        QFETCH(const bool, isMade);
        QCOMPARE(link != nullptr, isMade);
        QCOMPARE(takeWarnings(), QStringList{fetch<QString>("warning")});
    }

    void nullIsTold()
    {
        ChattyModel model;
        KELRange range;
        QCOMPARE(KELValues::show(nullptr, "level", &range), nullptr);
        QCOMPARE(KELValues::edit(&model, "level", nullptr, "value"), nullptr);
        QCOMPARE(KELValues::edit(&model, nullptr, &range, "value"), nullptr);
        QCOMPARE(takeWarnings(),
                 QStringList({u"KELValues: no model"_s, u"KELValues: no control"_s,
                              u"KELValues: ChattyModel has no property \"\""_s}));
    }

    void aSlotMayDeleteAnything_data()
    {
        addRows({{"sender", {{"model", 0}, {"control", 1}}},
                 {"victim", {{"model", 0}, {"control", 1}, {"link", 2}, {"adapter", 3}}},
                 {"start", {{"at once", 0}, {"by the model", 1}, {"by the control", 2}}},
                 {"way", ways}});
    }

    void aSlotMayDeleteAnything()
    {
        QPointer<ChattyModel> model(new ChattyModel);
        QPointer<KELProcessBar> bar(new KELProcessBar);
        QPointer<QObject> link;
        const auto destroy = [&] {
            const std::vector<QObject *> victims{model, bar, link, KELValues::of(bar)};
            QObject *const victim = victims.at(fetch<size_t>("victim"));
            if (fetch<int>("way") == 0)
                delete victim;
            else if (victim)
                victim->deleteLater();
        };
        const bool isByModel = fetch<int>("sender") == 0;
        SignalLog log;
        log.listenTo(isByModel ? static_cast<QObject *>(model) : static_cast<QObject *>(bar));
        if (fetch<int>("start") == 0)
            log.on(isByModel ? u"changed"_s : u"valueChanged"_s, destroy);
        link = KELValues::edit(model, "level", bar, "percent");
        if (fetch<int>("start") != 0)
            log.on(isByModel ? u"changed"_s : u"valueChanged"_s, destroy);
        if (fetch<int>("start") == 1 && model)
            model->setLevel(77);
        else if (fetch<int>("start") == 2 && bar)
            bar->setValue(77);
        letEventsRun();
        delete bar;
        delete model;
        QVERIFY(!link);
    }
};

KEL_TEST_MAIN(tst_KELValues)
#include "tst_kelvalues.moc"
