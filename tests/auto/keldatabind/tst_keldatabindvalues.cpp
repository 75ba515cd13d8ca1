// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "bindkinds.h"

#include <kelcheckbox.h>
#include <kelradiobox.h>
#include <kelslidecontrol.h>

#include <vector>

namespace {

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
            written += {*static_cast<int *>(arguments[0]), *static_cast<QVariant *>(arguments[1]),
                        *static_cast<int *>(arguments[2]), *static_cast<int *>(arguments[3])};
        }
        return -1;
    }

    QVariant answer;
    QVariantList written;

private:
    int m_noAnswer = -5;
};

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
    void answersAtOnce()
    {
        BindStageOf<AnsweringModel> stage;
        stage.setBind(KELDataBind::Manual);
        stage.source.answer = 5;
        carryToDestination(&stage.binding);
        QCOMPARE(stage.destination.written, (QVariantList{5, 5, -1, 0}));

        // Of another type than the property.
        stage.destination.written.clear();
        stage.source.answer = u"6"_s;
        carryToDestination(&stage.binding);
        QCOMPARE(stage.destination.written, (QVariantList{6, 6, -1, 0}));
        QCOMPARE(stage.destination.written.at(1).userType(), int(QMetaType::Int));
    }

    void dynamicPropertiesAppearAndVanish()
    {
        BindStage stage;
        stage.setBind("nothing", "value", KELDataBind::Manual);
        takeDebugLines();
        const auto carried = [&](const QVariant &value) {
            stage.source.setProperty("nothing", value);
            carryToDestination(&stage.binding);
            return stage.destination.value();
        };
        QCOMPARE(carried(5), 5);
        QCOMPARE(carried(QVariant()), 0);
        QCOMPARE(stage.source.dynamicPropertyNames(), QList<QByteArray>());
        QCOMPARE(carried(u"6"_s), 6);

        stage.destination.setValue(7);
        carryToSource(&stage.binding);
        QCOMPARE(stage.source.property("nothing"), QVariant(7));
        stage.source.setProperty("nothing", QVariant());
        carryToSource(&stage.binding);
        QCOMPARE(stage.source.property("nothing"), QVariant(7));
    }

    void propertyAtAnotherIndexAndOfAnotherType()
    {
        TextModel text;
        TextModel textDestination;
        BindStage stage;
        stage.setBind(KELDataBind::OneWay);
        stage.source.setValue(2);
        QCOMPARE(stage.destination.value(), 2);

        stage.binding.setBind(&text, "value", &textDestination, "value", KELDataBind::OneWay);
        text.setValue(u"12"_s);
        QCOMPARE(textDestination.writes, QStringList(u"12"_s));
        stage.source.setValue(3);
        QCOMPARE(textDestination.writes, (QStringList{u"12"_s, u"12"_s}));

        stage.binding.setBind(&text, "value", &stage.destination, "value", KELDataBind::OneWay);
        stage.forget();
        stage.source.setValue(4);
        QCOMPARE(stage.destination.writes, Ints{2});
        text.third = u"44"_s;
        stage.binding.setBind(&text, "third", &stage.destination, "value", KELDataBind::Manual);
        stage.forget();
        text.third = u"45"_s;
        stage.source.setValue(5);
        QCOMPARE(stage.destination.writes, Ints{45});
        QCOMPARE(textDestination.first + textDestination.second, u"firstsecond"_s);
    }

    void shadowingPropertyIsTheOneBound()
    {
        BindStageOf<ShadowingModel> stage;
        stage.setBind(KELDataBind::TwoWay);
        QCOMPARE(stage.connections(), (Ints{0, 0}));
        stage.source.setText(u"new"_s);
        QCOMPARE(stage.destination.text(), u"new"_s);
        stage.destination.setText(u"newer"_s);
        QCOMPARE(stage.source.text(), u"newer"_s);
        QCOMPARE(stage.source.writes + stage.destination.writes, Ints());
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
        addRows({{"inPlace", {{"in place", true}, {"to another", false}}}});
    }

    void metaObjectThatChanges()
    {
        const auto change = [inPlace = fetch<bool>("inPlace")](ChangingModel *model) {
            inPlace ? model->showOwn() : model->showOwnElsewhere();
        };
        BindStageOf<ChangingModel> stage;
        stage.setBind(KELDataBind::Manual);
        stage.source.Model::setValue(3);
        carryToDestination(&stage.binding);
        QCOMPARE(stage.destination.Model::value(), 3);

        stage.source.setText(u"5"_s);
        change(&stage.source);
        carryToDestination(&stage.binding);
        QCOMPARE(stage.destination.Model::value(), 5);
        QCOMPARE(stage.destination.text(), u"0"_s);

        change(&stage.destination);
        stage.source.setText(u"text"_s);
        carryToDestination(&stage.binding);
        QCOMPARE(stage.destination.text(), u"text"_s);
        QCOMPARE(stage.destination.Model::value(), 5);
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
