// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "controltest.h"
#include "record.h"
#include "sliderparts.h"
#include "stage.h"

#include <cmath>

namespace {

constexpr float smallest = std::numeric_limits<float>::denorm_min();
const QSize canvas(190, 140);
const QRectF shownRect(20, 20, 230, 40);

// A slider in a view that has painted everything.
class ShownSlider : public Stage<Counting<KELSlideControl>>
{
public:
    explicit ShownSlider(float value = 0) : Stage(shownRect)
    {
        get()->setValue(value);
        show();
    }
    void show()
    {
        view.showOnce();
        QTRY_VERIFY(get()->paints > 0);
        letEventsRun();
        get()->paints = 0;
        log.take();
    }
    // Neither repainted nor told anything since it was shown.
    bool isQuiet()
    {
        letEventsRun();
        return get()->paints == 0 && log.takeWithHover().isEmpty();
    }
};

using Change = std::function<void(KELSlideControl *)>;

void nothing(KELSlideControl * /*slider*/) { }

void edit(KELSlideControl *slider)
{
    slider->style()->backgroundBrush = QBrush(Qt::red);
    slider->style()->foregroundBrush = QBrush(Qt::green);
}

// What a view shows of a slider that is changed before it is shown, and then once more.
QImage screenAfter(const Change &before, const Change &whileShown)
{
    Stage<KELSlideControl> stage(shownRect);
    before(stage.get());
    stage.view.showOnce();
    stage.view.grab();
    whileShown(stage.get());
    QCoreApplication::processEvents();
    return stage.view.grab().toImage();
}

void sendTimer(KELSlideControl *slider, int id)
{
    QTimerEvent event(id);
    QCoreApplication::sendEvent(slider, &event);
}

// Writes down which of the two forms is called.
class CountingSlider : public KELSlideControl
{
public:
    void setboundRect(const QRectF &rect) override
    {
        ++rectCalls;
        KELSlideControl::setboundRect(rect);
    }
    void setboundRect(qreal x, qreal y, qreal w, qreal h) override
    {
        ++numberCalls;
        KELSlideControl::setboundRect(x, y, w, h);
    }

    int rectCalls = 0;
    int numberCalls = 0;
};

enum class Form { Value, Rect, Numbers };

struct NamedRect
{
    const char *name;
    QRectF rect;
};

const std::vector<NamedRect> rects = {{"wide", {10, 10, 230, 40}},
                                      {"fractions", {0.1, -7.3, 173.7, 33.3}},
                                      {"far away", {-1000.7, 500, 91, 30}},
                                      {"one pixel to go", {5, 5, 31, 80}}};

struct NamedSetting
{
    const char *name;
    Setting setting;
};

const std::vector<NamedSetting> settings = {{"at the minimum", {0, 100, 0}},
                                            {"at the maximum", {0, 100, 100}},
                                            {"at a third", {0, 3, 1}},
                                            {"minimum above zero", {20, 120, 70}},
                                            {"minimum below zero", {-100, 100, -30}},
                                            {"fractions of values", {-1.1F, 7.7F, 3.3F}},
                                            {"reversed bounds", {100, 0, 0}},
                                            {"huge values", {1e30F, 3e30F, 1.7e30F}}};

} // namespace

class tst_KELSlideControl : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void goesFromZeroToHundred()
    {
        const KELSlideControl slider;
        QCOMPARE(slider.value(), 0.0F);
        QCOMPARE(slider.minimun(), 0.0F);
        QCOMPARE(slider.maximun(), 100.0F);
        QCOMPARE(slider.step(), 0.0F);
    }

    void recordHasTheDefaultsOfASlider()
    {
        KELRoundRectControlStyle expected = Record::defaults();
        setLook(&expected);
        QCOMPARE(Record::difference(*KELSlideControl().style(), expected), QString());
    }

    void initStyleChangesThreeBrushesOfThePresentRecord()
    {
        KELSlideControl slider;
        KELRoundRectControlStyle expected = Record::defaults();
        Record::fill(&expected);
        KELRoundRectControlStyle *const style = slider.style();
        *style = expected;
        setLook(&expected);
        QCOMPARE(slider.initStyle(), style);
        QCOMPARE(slider.style(), style);
        QCOMPARE(Record::difference(*style, expected), QString());
    }

    void takesPointerInput() { ControlTest::takesPointerInput<KELSlideControl>(); }

    void declaresItsInterface()
    {
        const QMetaObject &meta = KELSlideControl::staticMetaObject;
        QCOMPARE(QByteArray(meta.className()), QByteArray("KELSlideControl"));
        QCOMPARE(meta.superClass(), &KELRoundRectControl::staticMetaObject);
        QCOMPARE(meta.methodCount() - meta.methodOffset(), 2);
        const QMetaMethod signal = meta.method(meta.indexOfSignal("valueChanged()"));
        QCOMPARE(signal.methodType(), QMetaMethod::Signal);
        const QMetaMethod slot = meta.method(meta.indexOfSlot("setValue(float)"));
        QCOMPARE(slot.methodType(), QMetaMethod::Slot);
        QCOMPARE(slot.access(), QMetaMethod::Public);
        QCOMPARE(QByteArray(slot.typeName()), QByteArray("void"));

        QCOMPARE(meta.propertyCount() - meta.propertyOffset(), 1);
        const QMetaProperty property = meta.property(meta.propertyOffset());
        QCOMPARE(QByteArray(property.name()), QByteArray("value"));
        QCOMPARE(property.userType(), int(QMetaType::Float));
        QVERIFY(property.isReadable());
        QVERIFY(property.isWritable());
        QVERIFY(!property.isResettable());
        QCOMPARE(property.notifySignal(), signal);
        QCOMPARE(meta.enumeratorCount(), meta.enumeratorOffset());
    }

    void propertyReadsWritesAndNotifies()
    {
        KELSlideControl slider;
        const QSignalSpy changed(&slider, &KELSlideControl::valueChanged);
        QVERIFY(slider.setProperty("value", 42.5F));
        QCOMPARE(slider.value(), 42.5F);
        QCOMPARE(slider.property("value"), QVariant(42.5F));
        QCOMPARE(changed.count(), 1);
        QVERIFY(slider.setProperty("value", 150));
        QCOMPARE(slider.value(), 100.0F);
        QCOMPARE(changed.count(), 2);
        QVERIFY(QMetaObject::invokeMethod(&slider, "setValue", Q_ARG(float, 7.5F)));
        QCOMPARE(slider.value(), 7.5F);
        QCOMPARE(changed.count(), 3);
    }

    void knobStartsAtTheOriginOfTheItem()
    {
        KELSlideControl slider;
        QCOMPARE(knobOf(&slider), QRectF(0, 0, 30, 30));
        // The first value brings its left side to the control, but not its top.
        slider.setValue(50);
        QCOMPARE(knobOf(&slider), QRectF(135, 0, 30, 30));
        slider.setboundRect(100, 100, 100, 30);
        QCOMPARE(knobOf(&slider), QRectF(135, 100, 30, 30));
    }

    void boundsAndStepAreStored_data()
    {
        QTest::addColumn<float>("number");
        QTest::newRow("positive") << 12.25F;
        QTest::newRow("zero") << 0.0F;
        QTest::newRow("negative") << -3.5F;
        QTest::newRow("not exact in binary") << 0.1F;
        QTest::newRow("largest") << largest;
        QTest::newRow("infinite") << infinite;
        QTest::newRow("not a number") << notANumber;
    }

    void boundsAndStepAreStored()
    {
        const auto number = fetch<float>("number");
        KELSlideControl slider;
        slider.setStep(number);
        slider.setMaximun(number);
        slider.setMinimun(number);
        for (const float stored : {slider.step(), slider.maximun(), slider.minimun()})
            QVERIFY(qIsNaN(number) ? qIsNaN(stored) : stored == number);
        QCOMPARE(slider.value(), 0.0F);
    }

    void setStepDoesNothingElse()
    {
        ShownSlider shown(33);
        const QRectF knob = knobOf(shown.get());
        shown->paints = 0;
        shown->setStep(10);
        QVERIFY(shown.isQuiet());
        QCOMPARE(shown->value(), 33.0F);
        QCOMPARE(knobOf(shown.get()), knob);
    }

    void boundLimitsToTheOldOne_data()
    {
        QTest::addColumn<float>("value");
        QTest::addColumn<float>("first");
        QTest::addColumn<float>("second");
        QTest::addColumn<float>("afterwards");
        QTest::newRow("inside the new bound") << 20.0F << 50.0F << 60.0F << 20.0F;
        QTest::newRow("outside the new bound stays") << 80.0F << 50.0F << 50.0F << 50.0F;
        QTest::newRow("outside the old bound goes to it") << 80.0F << 50.0F << 300.0F << 50.0F;
        QTest::newRow("at the old bound") << 100.0F << 300.0F << 400.0F << 100.0F;
        QTest::newRow("not a number limits nothing") << 80.0F << notANumber << 50.0F << 80.0F;
    }

    void boundLimitsToTheOldOne()
    {
        const auto value = fetch<float>("value");
        const auto second = fetch<float>("second");
        KELSlideControl slider;
        slider.setValue(value);
        slider.setMaximun(fetch<float>("first"));
        QCOMPARE(slider.value(), value);
        slider.setMaximun(second);
        QCOMPARE(slider.value(), fetch<float>("afterwards"));
        QCOMPARE(slider.maximun(), second);

        // Below the minimum it is the same the other way round.
        KELSlideControl mirrored;
        mirrored.setValue(100 - value);
        mirrored.setMinimun(100 - fetch<float>("first"));
        QCOMPARE(mirrored.value(), 100 - value);
        mirrored.setMinimun(100 - second);
        QCOMPARE(mirrored.value(), 100 - fetch<float>("afterwards"));
        QCOMPARE(mirrored.minimun(), 100 - second);
    }

    void valueBeyondANewBoundStaysUntilItIsSet()
    {
        KELSlideControl above;
        above.setValue(80);
        above.setMaximun(50);
        above.setboundRect(10, 10, 150, 50);
        KelImage::paint(&above, canvas);
        QCOMPARE(above.value(), 80.0F);
        above.setValue(80);
        QCOMPARE(above.value(), 50.0F);

        KELSlideControl below;
        below.setValue(20);
        below.setMinimun(50);
        below.setboundRect(QRectF(10, 10, 150, 50));
        KelImage::paint(&below, canvas);
        QCOMPARE(below.value(), 20.0F);
        below.setValue(20);
        QCOMPARE(below.value(), 50.0F);
    }

    // A zero keeps its sign, which a text of it shows.
    void valueAtAReplacedBoundIsLeftAlone()
    {
        KELSlideControl slider;
        slider.setValue(-0.0F);
        slider.setMinimun(-10);
        QVERIFY(std::signbit(slider.value()));
        slider.setMaximun(0);
        slider.setMaximun(10);
        QVERIFY(std::signbit(slider.value()));
    }

    void boundsMoveRepaintAndTellNothing()
    {
        ShownSlider shown(80);
        const QRectF knob = knobOf(shown.get());
        shown->paints = 0;
        shown->setMaximun(50);
        shown->setMaximun(60);
        QCOMPARE(shown->value(), 50.0F);
        shown->setMinimun(55);
        shown->setMinimun(10);
        QCOMPARE(shown->value(), 55.0F);
        QVERIFY(shown.isQuiet());
        QCOMPARE(knobOf(shown.get()), knob);
        // The next geometry moves it.
        shown->setboundRect(20, 20, 230, 40);
        QCOMPARE(knobOf(shown.get()).left(), 20 + wayOf(55.0F / 50.0F, 230));
    }

    void setValueInSteps_data()
    {
        QTest::addColumn<float>("step");
        QTest::addColumn<float>("set");
        QTest::addColumn<float>("expected");
        QTest::newRow("less than a step") << 10.0F << 4.0F << 0.0F;
        QTest::newRow("almost a step") << 10.0F << 9.0F << 0.0F;
        QTest::newRow("almost a step down") << 10.0F << -9.99F << 0.0F;
        QTest::newRow("one step") << 10.0F << 10.0F << 10.0F;
        QTest::newRow("one step down") << 10.0F << -10.0F << -10.0F;
        QTest::newRow("1.2 steps") << 10.0F << 12.0F << 10.0F;
        QTest::newRow("1.5 steps") << 10.0F << 15.0F << 20.0F;
        QTest::newRow("-1.2 steps") << 10.0F << -12.0F << -10.0F;
        QTest::newRow("-1.5 steps") << 10.0F << -15.0F << -10.0F;
        QTest::newRow("-1.6 steps") << 10.0F << -16.0F << -20.0F;
        QTest::newRow("2.5 steps") << 10.0F << 25.0F << 30.0F;
        QTest::newRow("-2.5 steps") << 10.0F << -25.0F << -20.0F;
        QTest::newRow("3.5 steps") << 10.0F << 35.0F << 40.0F;
        QTest::newRow("-3.5 steps") << 10.0F << -35.0F << -30.0F;
        QTest::newRow("7.5 steps") << 10.0F << 75.0F << 80.0F;
        QTest::newRow("-7.5 steps") << 10.0F << -75.0F << -70.0F;
        QTest::newRow("7.4 steps") << 10.0F << 74.0F << 70.0F;
        QTest::newRow("fraction of a step") << 0.25F << 0.6F << 0.5F;
        QTest::newRow("bound off the steps") << 30.0F << 95.0F << 90.0F;
        QTest::newRow("rounded beyond the bound") << 40.0F << 100.0F << 100.0F;
        QTest::newRow("rounded beyond the lower bound") << 40.0F << -101.0F << -100.0F;
        QTest::newRow("far above") << 30.0F << 1000.0F << 100.0F;
        QTest::newRow("far below") << 30.0F << -1000.0F << -100.0F;
        QTest::newRow("step wider than the range") << 250.0F << 250.0F << 100.0F;
        const float fine = std::ldexp(1.0F, -17);
        QTest::newRow("four million steps and a half") << fine << 4194303.5F * fine << 32.0F;
        QTest::newRow("four million steps and a half, down")
            << fine << -4194303.5F * fine << -4194303.0F * fine;
        QTest::newRow("so many steps that there is no half")
            << fine << 8388609.0F * fine << 8388609.0F * fine;
        QTest::newRow("more steps than an int") << 1e-9F << 50.0F << 50.0F;
        QTest::newRow("more steps than an int, down") << 1e-9F << -50.0F << -50.0F;
        QTest::newRow("more steps than an int and far above") << 1e-9F << 1e30F << 100.0F;
        QTest::newRow("just 2^31 steps") << 1.0F << 2147483648.0F << 100.0F;
        QTest::newRow("just -2^31 steps") << 1.0F << -2147483648.0F << -100.0F;
        QTest::newRow("more steps than a float") << smallest << 50.0F << 100.0F;
        QTest::newRow("more steps than a float, down") << smallest << -50.0F << -100.0F;
        QTest::newRow("infinite") << 10.0F << infinite << 100.0F;
        QTest::newRow("minus infinite") << 10.0F << -infinite << -100.0F;
        QTest::newRow("infinite step") << infinite << 99.0F << 0.0F;
    }

    void setValueInSteps()
    {
        const auto step = fetch<float>("step");
        const auto set = fetch<float>("set");
        KELSlideControl slider;
        slider.setMinimun(-100);
        slider.setStep(step);
        const QSignalSpy changed(&slider, &KELSlideControl::valueChanged);
        slider.setValue(set);
        QVERIFY2(slider.value() == fetch<float>("expected"),
                 qPrintable(QString::number(double(slider.value()))));
        QCOMPARE(changed.count(), std::abs(set) < step ? 0 : 1);
    }

    void valueBelowOneStepChangesNothing_data()
    {
        addRows({{"set", {{"same value", 50}, {"a little more", 59}, {"a little less", 41}}}});
    }

    void valueBelowOneStepChangesNothing()
    {
        ShownSlider shown(50);
        shown->setStep(10);
        // From this form the knob is 15 px away from where setValue() would put it.
        shown->setboundRect(shownRect);
        shown->setValue(float(fetch<int>("set")));
        QVERIFY(shown.isQuiet());
        QCOMPARE(shown->value(), 50.0F);
        QCOMPARE(knobOf(shown.get()).left(), 135.0);
    }

    void stepsCountFromTheValueAndNotFromTheMinimum()
    {
        KELSlideControl slider;
        slider.setMinimun(1);
        slider.setStep(30);
        slider.setValue(95);
        QCOMPARE(slider.value(), 90.0F); // three steps from 0, although the minimum is 1
        slider.setValue(200);
        QCOMPARE(slider.value(), 100.0F);
        slider.setValue(90);
        QCOMPARE(slider.value(), 100.0F); // a third of a step back
        slider.setValue(60);
        QCOMPARE(slider.value(), 70.0F); // from 100, where the bound cut the step off
        slider.setStep(10);
        slider.setValue(85);
        QCOMPARE(slider.value(), 90.0F); // 1.5 steps from 70
        slider.setValue(65);
        QCOMPARE(slider.value(), 70.0F); // -2.5 steps from 90
    }

    void stepIsMeasuredInSinglePrecision()
    {
        // In double precision a tenth goes 2.49999996 times into a quarter.
        const float step = 0.1F;
        const float quotient = 0.25F / step;
        QCOMPARE(quotient, 2.5F);
        QVERIFY(0.25 / double(step) < 2.5);
        KELSlideControl slider;
        slider.setStep(step);
        slider.setValue(0.25F);
        const float threeSteps = 3.0F * step;
        QVERIFY(slider.value() == threeSteps);

        // In double precision these two are less than one step apart.
        KELSlideControl other;
        other.setValue(std::ldexp(1.0F, -30));
        other.setStep(10);
        other.setValue(10);
        QCOMPARE(other.value(), 10.0F);
    }

    void repeatedValueEmitsAndRepaintsAgain()
    {
        ShownSlider shown;
        for (int i = 1; i <= 3; ++i) {
            shown->setValue(150);
            QCOMPARE(shown.log.take(), u"valueChanged"_s);
            QCOMPARE(shown->value(), 100.0F);
            QTRY_COMPARE(shown->paints, i);
        }
    }

    void setValueRepaintsAllOfIt()
    {
        const auto setTwenty = [](KELSlideControl *slider) { slider->setValue(20); };
        const auto setEighty = [](KELSlideControl *slider) {
            // An edit of the record shows as well, where neither knob goes.
            edit(slider);
            slider->setValue(80);
        };
        const QImage moved = screenAfter(setTwenty, setEighty);
        QVERIFY(moved != screenAfter(setTwenty, nothing));
        QCOMPARE(KelImage::difference(moved, screenAfter(setEighty, nothing)), QString());
    }

    void setValueWithoutStep_data()
    {
        QTest::addColumn<float>("minimum");
        QTest::addColumn<float>("maximum");
        QTest::addColumn<float>("set");
        QTest::addColumn<float>("expected");
        QTest::newRow("between") << -50.0F << 100.0F << 12.34F << 12.34F;
        QTest::newRow("very near") << -50.0F << 100.0F << 1e-30F << 1e-30F;
        QTest::newRow("maximum") << -50.0F << 100.0F << 100.0F << 100.0F;
        QTest::newRow("above") << -50.0F << 100.0F << 150.0F << 100.0F;
        QTest::newRow("minimum") << -50.0F << 100.0F << -50.0F << -50.0F;
        QTest::newRow("below") << -50.0F << 100.0F << -50.1F << -50.0F;
        QTest::newRow("largest") << -50.0F << 100.0F << largest << 100.0F;
        QTest::newRow("infinite") << -50.0F << 100.0F << infinite << 100.0F;
        QTest::newRow("minus infinite") << -50.0F << 100.0F << -infinite << -50.0F;
        QTest::newRow("reversed, above both") << 100.0F << 20.0F << 150.0F << 20.0F;
        QTest::newRow("reversed, between") << 100.0F << 20.0F << 60.0F << 20.0F;
        QTest::newRow("reversed, below both") << 100.0F << 20.0F << 10.0F << 100.0F;
        QTest::newRow("reversed, at the maximum") << 100.0F << 20.0F << 20.0F << 100.0F;
        QTest::newRow("equal, above") << 5.0F << 5.0F << 6.0F << 5.0F;
        QTest::newRow("equal, below") << 5.0F << 5.0F << 4.0F << 5.0F;
        QTest::newRow("equal, at them") << 5.0F << 5.0F << 5.0F << 5.0F;
        QTest::newRow("no upper limit") << 0.0F << infinite << 1e30F << 1e30F;
        QTest::newRow("no lower limit") << -infinite << 0.0F << -1e30F << -1e30F;
        QTest::newRow("no limits, infinite") << -infinite << infinite << infinite << infinite;
        QTest::newRow("maximum not a number") << 10.0F << notANumber << 1e30F << 1e30F;
        QTest::newRow("maximum not a number, below") << 10.0F << notANumber << 5.0F << 10.0F;
        QTest::newRow("minimum not a number") << notANumber << 10.0F << -1e30F << -1e30F;
        QTest::newRow("minimum not a number, above") << notANumber << 10.0F << 15.0F << 10.0F;
        QTest::newRow("neither is a number") << notANumber << notANumber << 77.0F << 77.0F;
        QTest::newRow("as far apart as floats") << -largest << largest << 1.0F << 1.0F;
    }

    void setValueWithoutStep()
    {
        for (const float step : {0.0F, -5.0F}) {
            KELSlideControl slider;
            slider.setboundRect(10, 10, 150, 50);
            slider.setStep(step);
            slider.setMinimun(fetch<float>("minimum"));
            slider.setMaximun(fetch<float>("maximum"));
            const QSignalSpy changed(&slider, &KELSlideControl::valueChanged);
            slider.setValue(fetch<float>("set"));
            QVERIFY(slider.value() == fetch<float>("expected"));
            QCOMPARE(changed.count(), 1);
            for (const qreal scale : {0.5, 1.0, 2.0})
                KelImage::paint(&slider, canvas, scale);

            // All is well again with good bounds.
            apply(&slider, {0, 100, 50});
            QCOMPARE(slider.value(), 50.0F);
            QCOMPARE(knobOf(&slider), QRectF(70, 20, 30, 30));
        }
    }

    void valueThatIsNotANumber()
    {
        KELSlideControl slider;
        slider.setboundRect(10, 10, 150, 50);
        const QSignalSpy changed(&slider, &KELSlideControl::valueChanged);
        slider.setValue(notANumber);
        QVERIFY(qIsNaN(slider.value()));
        QCOMPARE(changed.count(), 1);
        KelImage::paint(&slider, canvas);
        slider.setMaximun(50);
        slider.setMinimun(10);
        QVERIFY(qIsNaN(slider.value()));

        // With a step there is no way back.
        slider.setStep(10);
        slider.setValue(30);
        QVERIFY(qIsNaN(slider.value()));
        QCOMPARE(changed.count(), 2);
        slider.setStep(0);
        slider.setValue(30);
        QCOMPARE(slider.value(), 30.0F);
        QCOMPARE(knobOf(&slider), QRectF(70, 20, 30, 30));

        slider.setStep(5);
        slider.setValue(notANumber);
        QVERIFY(qIsNaN(slider.value()));
    }

    void stepThatIsNotANumberCountsAsNone()
    {
        KELSlideControl slider;
        slider.setStep(notANumber);
        slider.setValue(0.125F);
        QCOMPARE(slider.value(), 0.125F);
    }

    void setValueInsideValueChanged()
    {
        Stage<KELSlideControl> stage(QRectF(10, 10, 230, 40));
        QList<float> seen;
        stage.log.on(u"valueChanged"_s, [&] {
            seen.append(stage->value());
            if (stage->value() > 50)
                stage->setValue(stage->value() - 20);
        });
        stage->setValue(90);
        QCOMPARE(seen, QList<float>({90, 70, 50}));
        QCOMPARE(stage->value(), 50.0F);
        QCOMPARE(knobOf(stage.get()).left(), 110.0);
    }

    void threeWaysOfPlacingTheKnob()
    {
        KELSlideControl slider;
        const QRectF rect(100, 50, 230, 40);
        slider.style()->boundRect = rect;
        apply(&slider, {20, 120, 70});
        QCOMPARE(knobOf(&slider).left(), 200.0);
        slider.setboundRect(rect);
        QCOMPARE(knobOf(&slider).left(), 215.0);
        place(&slider, rect);
        QCOMPARE(knobOf(&slider).left(), 240.0);
        slider.setValue(70);
        QCOMPARE(knobOf(&slider).left(), 200.0);
    }

    void knobIsPlacedToTheBit_data()
    {
        addRows({{"form",
                  {{"setValue", int(Form::Value)},
                   {"rect form", int(Form::Rect)},
                   {"four numbers", int(Form::Numbers)}}},
                 {"rect", namesOf(rects)},
                 {"setting", namesOf(settings)}});
    }

    void knobIsPlacedToTheBit()
    {
        const auto form = fetch<Form>("form");
        const QRectF rect = rects[fetch<size_t>("rect")].rect;
        const Setting setting = settings[fetch<size_t>("setting")].setting;
        KELSlideControl slider;
        slider.setboundRect(rect);
        apply(&slider, setting);
        if (form == Form::Rect)
            slider.setboundRect(rect);
        if (form == Form::Numbers)
            place(&slider, rect);

        const float minimum = form == Form::Numbers ? 0 : setting.minimum;
        const float above = slider.value() - minimum;
        const float range = setting.maximum - setting.minimum;
        const qreal start = form == Form::Rect ? rect.x() + 15 : rect.x();
        const QRectF knob = knobOf(&slider);
        QVERIFY(knob.left() == start + wayOf(above / range, rect.width()));
        QVERIFY(knob.top() == topOf(rect));
        QCOMPARE(knob.size(), QSizeF(30, 30));
    }

    void placeIsRoundedToSinglePrecision()
    {
        const QRectF rect(0.1, 0, 173.7, 30);
        const float minimum = -1.1F;
        const float maximum = 7.7F;
        KELSlideControl slider;
        int doubleFractions = 0;
        int doubleProducts = 0;
        int singleSums = 0;
        for (int i = 0; i <= 200; ++i) {
            const float value = -1.0F + float(i) * 0.043F;
            slider.setboundRect(rect);
            apply(&slider, {minimum, maximum, value});
            const float above = value - minimum;
            const float range = maximum - minimum;
            const float fraction = above / range;
            const qreal left = knobOf(&slider).left();
            QVERIFY(left == rect.x() + wayOf(fraction, rect.width()));
            slider.setboundRect(rect);
            QVERIFY(knobOf(&slider).left() == rect.x() + 15 + wayOf(fraction, rect.width()));

            const double wholeRange = double(maximum) - double(minimum);
            const double doubleFraction = (double(value) - double(minimum)) / wholeRange;
            doubleFractions += left == rect.x() + double(float(doubleFraction * 143.7)) ? 0 : 1;
            doubleProducts += left == rect.x() + double(fraction) * 143.7 ? 0 : 1;
            singleSums += left == double(float(rect.x()) + float(double(fraction) * 143.7)) ? 0 : 1;
        }
        // Rounding elsewhere would show.
        QVERIFY(doubleFractions > 10);
        QVERIFY(doubleProducts > 10);
        QVERIFY(singleSums > 10);
    }

    void setValueKeepsTopAndSizeOfTheKnob()
    {
        KELSlideControl slider;
        slider.setboundRect(10, 10, 230, 40);
        slider.style()->boundRect = QRectF(30, 300, 130, 90);
        slider.setValue(50);
        // Left side by the rectangle of the record, top by the last setboundRect().
        QCOMPARE(knobOf(&slider), QRectF(80, 15, 30, 30));
        slider.setboundRect(QRectF(30, 300, 130, 90));
        QCOMPARE(knobOf(&slider), QRectF(95, 330, 30, 30));
    }

    void setboundRectStoresTheRectangleAndNoMore()
    {
        ShownSlider shown(40);
        shown->setboundRect(QRectF(20, 20, 200, 50));
        QCOMPARE(shown->style()->boundRect, QRectF(20, 20, 200, 50));
        QCOMPARE(shown->boundingRect(), QRectF(20, 20, 200, 50));
        shown->setboundRect(20, 20, 210, 60);
        QCOMPARE(shown->style()->boundRect, QRectF(20, 20, 210, 60));
        QVERIFY(shown.isQuiet());
        QCOMPARE(shown->value(), 40.0F);
    }

    void eachFormOfSetboundRectCallsOnlyItself()
    {
        CountingSlider slider;
        slider.setboundRect(QRectF(10, 10, 100, 40));
        QCOMPARE(slider.rectCalls, 1);
        QCOMPARE(slider.numberCalls, 0);
        slider.setboundRect(10, 10, 100, 40);
        QCOMPARE(slider.rectCalls, 1);
        QCOMPARE(slider.numberCalls, 1);
    }

    void setboundRectThroughTheBase()
    {
        KELSlideControl slider;
        KELRoundRectControl &base = slider;
        base.setboundRect(QRectF(10, 20, 130, 40));
        QCOMPARE(knobOf(&slider), QRectF(25, 25, 30, 30));
        base.setboundRect(10, 20, 130, 60);
        QCOMPARE(knobOf(&slider), QRectF(10, 35, 30, 30));
    }

    void knobInANarrowControl_data()
    {
        QTest::addColumn<qreal>("width");
        QTest::addColumn<qreal>("left");
        QTest::newRow("no way to go") << 30.0 << 100.0;
        QTest::newRow("half as wide as the knob") << 15.0 << 88.0;
        QTest::newRow("without width") << 0.0 << 76.0;
        QTest::newRow("negative width") << -70.0 << 20.0;
    }

    void knobInANarrowControl()
    {
        const QRectF rect(100, 20, fetch<qreal>("width"), 40);
        const QRectF knob(fetch<qreal>("left"), 25, 30, 30);
        KELSlideControl slider;
        slider.setValue(80);
        place(&slider, rect);
        QCOMPARE(knobOf(&slider), knob);
        slider.setboundRect(rect);
        QCOMPARE(knobOf(&slider), knob.translated(15, 0));
        slider.setValue(80);
        QCOMPARE(knobOf(&slider), knob);
        slider.setValue(0);
        QCOMPARE(knobOf(&slider), QRectF(100, 25, 30, 30));
    }

    void ownTimerRepaints()
    {
        // The slider never starts its timer, whose id then is 0.
        const auto editAndFire = [](KELSlideControl *slider) {
            edit(slider);
            sendTimer(slider, 0);
        };
        QCOMPARE(
            KelImage::difference(screenAfter(nothing, editAndFire), screenAfter(edit, nothing)),
            QString());
        // The edit alone shows nothing.
        QCOMPARE(KelImage::difference(screenAfter(nothing, edit), screenAfter(nothing, nothing)),
                 QString());

        ShownSlider shown;
        for (int i = 1; i <= 2; ++i) {
            sendTimer(shown.get(), 0);
            QTRY_COMPARE(shown->paints, i);
        }
        QCOMPARE(shown.log.take(), QString());
    }

    void otherTimersDoNothing()
    {
        ShownSlider shown;
        const int foreign = shown->startTimer(1000000);
        for (const int id : {foreign, foreign + 1, -1, 999999})
            sendTimer(shown.get(), id);
        QVERIFY(shown.isQuiet());
        QVERIFY(hasTimers(shown.control));
        shown->killTimer(foreign);
        QVERIFY(!hasTimers(shown.control));
    }

private:
    static void setLook(KELRoundRectControlStyle *style)
    {
        style->backgroundBrush = QColor(192, 192, 192);
        style->foregroundBrush = QColor(50, 173, 235);
        style->borderBrush = QColor(255, 255, 255);
    }
};

KEL_TEST_MAIN(tst_KELSlideControl)
#include "tst_kelslidecontrol.moc"
