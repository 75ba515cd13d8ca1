// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "controltest.h"

#include <kelslidecontrol.h>

#include <QtCore/QAbstractEventDispatcher>
#include <QtCore/QPointer>
#include <QtCore/QTimerEvent>
#include <QtGui/QLinearGradient>
#include <QtGui/QPaintEngine>

#include <cmath>
#include <limits>

namespace {

constexpr float notANumber = std::numeric_limits<float>::quiet_NaN();
constexpr float infinite = std::numeric_limits<float>::infinity();
constexpr float largest = std::numeric_limits<float>::max();
constexpr float smallest = std::numeric_limits<float>::denorm_min();
constexpr qreal knobPx = 30;

const QColor grooveColour(Qt::lightGray);
const QColor fillColour(50, 173, 235);
const QColor outlineColour(Qt::white);
const QColor disabledFill(110, 110, 110);
const QColor disabledOutline(170, 170, 170);
const QSize canvas(190, 140);

class OpenSlider : public KELSlideControl
{
public:
    using KELSlideControl::KELSlideControl;
    using KELSlideControl::timerEvent;

    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override
    {
        ++paints;
        KELSlideControl::paint(painter, option, widget);
    }

    int paints = 0;
};

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

class PlainParent : public QGraphicsObject
{
public:
    explicit PlainParent(const QRectF &bounds) : m_bounds(bounds) { }
    QRectF boundingRect() const override { return m_bounds; }
    void paint(QPainter * /*painter*/, const QStyleOptionGraphicsItem * /*option*/,
               QWidget * /*widget*/) override
    { }

private:
    QRectF m_bounds;
};

// One drawing command, as it reached the paint device.
struct Part
{
    bool isEllipse;
    QRectF ellipse;
    QPainterPath path;
    QPen pen;
    QBrush brush;
    QPainter::RenderHints hints;
};

class RecordingEngine : public QPaintEngine
{
public:
    RecordingEngine() : QPaintEngine(AllFeatures) { }
    bool begin(QPaintDevice * /*device*/) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState & /*state*/) override { }
    void drawPixmap(const QRectF & /*target*/, const QPixmap & /*pixmap*/,
                    const QRectF & /*source*/) override
    { }
    using QPaintEngine::drawEllipse;
    void drawEllipse(const QRectF &rect) override { note(true, rect, QPainterPath()); }
    void drawPath(const QPainterPath &path) override { note(false, QRectF(), path); }
    Type type() const override { return User; }

    QList<Part> parts;

private:
    void note(bool isEllipse, const QRectF &rect, const QPainterPath &path)
    {
        parts.append({isEllipse, rect, path, painter()->pen(), painter()->brush(),
                      painter()->renderHints()});
    }
};

// Tells the exact numbers of a drawing, which pixels do not.
class RecordingDevice : public QPaintDevice
{
public:
    QPaintEngine *paintEngine() const override { return &m_engine; }
    QList<Part> parts() const { return m_engine.parts; }

protected:
    int metric(PaintDeviceMetric metric) const override
    {
        switch (metric) {
        case PdmWidth:
        case PdmHeight:
            return 1000;
        case PdmDevicePixelRatio:
            return 1;
        case PdmDevicePixelRatioScaled:
            return int(devicePixelRatioFScale());
        default:
            return 96;
        }
    }

private:
    mutable RecordingEngine m_engine;
};

QList<Part> partsOf(KELSlideControl *slider, const QPen &painterPen = QPen(Qt::NoPen))
{
    RecordingDevice device;
    QPainter painter(&device);
    painter.setPen(painterPen);
    slider->paint(&painter, nullptr);
    painter.end();
    return device.parts();
}

// The knob as it is painted; null when it is not.
QRectF knobOf(KELSlideControl *slider)
{
    const QList<Part> parts = partsOf(slider);
    return !parts.isEmpty() && parts.last().isEllipse ? parts.last().ellipse : QRectF();
}

QPainterPath groovePath(const QRectF &rect)
{
    QPainterPath path;
    path.addRoundedRect(rect, 3, 3, Qt::RelativeSize);
    return path;
}

// Unlike the operator of QPainterPath, without any tolerance.
bool isSamePath(const QPainterPath &one, const QPainterPath &other)
{
    if (one.elementCount() != other.elementCount())
        return false;
    for (int i = 0; i < one.elementCount(); ++i) {
        const QPainterPath::Element a = one.elementAt(i);
        const QPainterPath::Element b = other.elementAt(i);
        if (a.type != b.type || !(a.x == b.x) || !(a.y == b.y))
            return false;
    }
    return true;
}

// The way of the knob: fraction and product are single precision.
qreal wayOf(float fraction, qreal width)
{
    return qreal(float(qreal(fraction) * (width - knobPx)));
}

qreal topOf(const QRectF &rect)
{
    return rect.y() + rect.height() * 0.5 - 15;
}

struct Setting
{
    float minimum;
    float maximum;
    float value;
};

float fractionOf(const Setting &setting)
{
    const float above = setting.value - setting.minimum;
    const float range = setting.maximum - setting.minimum;
    return above / range;
}

void apply(KELSlideControl *slider, const Setting &setting)
{
    slider->setStep(0);
    slider->setMinimun(setting.minimum);
    slider->setMaximun(setting.maximum);
    slider->setValue(setting.value);
}

// What a slider has to show, drawn step by step with the numbers given here.
struct HandDrawing
{
    QRectF bounds;
    QRectF knob;
    QBrush groove = grooveColour;
    QBrush fill = fillColour;
    QBrush outline = outlineColour;
    bool isInsideBounds = true;

    void draw(QPainter *painter) const
    {
        painter->setRenderHint(QPainter::Antialiasing);
        const qreal top = bounds.y() + bounds.height() / 2 - 2;
        if (groove.style() != Qt::NoBrush) {
            painter->setPen(Qt::NoPen);
            painter->setBrush(groove);
            painter->drawRoundedRect(QRectF(bounds.x() + 3, top, bounds.width() - 6, 4), 3, 3,
                                     Qt::RelativeSize);
        }
        if (isInsideBounds && fill.style() != Qt::NoBrush) {
            const qreal knobCentre = knob.x() + 15;
            painter->setBrush(fill);
            painter->drawRoundedRect(QRectF(bounds.x() + 3, top, knobCentre - (bounds.x() + 3), 4),
                                     3, 3, Qt::RelativeSize);
        }
        if (outline.style() != Qt::NoBrush)
            painter->setPen(QPen(outline, 2.0, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
        painter->setBrush(fill);
        painter->drawEllipse(knob);
    }
};

// The drawing of a slider placed by four numbers, from 0 to 100.
HandDrawing expectedOf(const KELSlideControl &slider)
{
    const QRectF rect = slider.style()->boundRect;
    HandDrawing drawing;
    drawing.bounds = rect;
    drawing.knob = QRectF(rect.x() + wayOf(slider.value() / 100, rect.width()), topOf(rect), 30,
                          30);
    drawing.groove = slider.style()->backgroundBrush;
    drawing.fill = slider.isEnabled() ? slider.style()->foregroundBrush : QBrush(disabledFill);
    drawing.outline = slider.isEnabled() ? slider.style()->borderBrush : QBrush(disabledOutline);
    return drawing;
}

using Preparation = std::function<void(QPainter *)>;

QString differenceFrom(
    const HandDrawing &expected, KELSlideControl *slider, qreal scale = 1,
    const Preparation &prepare = [](QPainter *) {})
{
    const QImage actual = KelImage::draw(canvas, scale, [&](QPainter *painter) {
        prepare(painter);
        slider->paint(painter, nullptr);
    });
    const QImage wanted = KelImage::draw(canvas, scale, [&](QPainter *painter) {
        prepare(painter);
        expected.draw(painter);
    });
    return KelImage::difference(actual, wanted);
}

// How many pixels the painting reaches beyond each side of the bounding rectangle, whose corner and
// size have to fall on whole pixels at this scale.
QMargins reachOf(KELSlideControl *slider, qreal scale)
{
    constexpr int marginPx = 120;
    const QRectF bounds = slider->boundingRect();
    const QSize size = bounds.size().toSize() + QSize(2 * marginPx, 2 * marginPx);
    const auto draw = [&](bool withSlider) {
        return KelImage::draw(size, scale, [&](QPainter *painter) {
            painter->translate(QPointF(marginPx, marginPx) - bounds.topLeft());
            if (withSlider)
                slider->paint(painter, nullptr);
        });
    };
    const QImage blank = draw(false);
    const QImage painted = draw(true);
    QRect area;
    for (int y = 0; y < painted.height(); ++y) {
        for (int x = 0; x < painted.width(); ++x) {
            if (painted.pixel(x, y) != blank.pixel(x, y))
                area |= QRect(x, y, 1, 1);
        }
    }
    const QRect inside = QRectF(marginPx * scale, marginPx * scale, bounds.width() * scale,
                                bounds.height() * scale)
                             .toRect();
    return {qMax(0, inside.left() - area.left()), qMax(0, inside.top() - area.top()),
            qMax(0, area.right() - inside.right()), qMax(0, area.bottom() - inside.bottom())};
}

// What a view shows of a slider after change.
QImage screenAfter(const std::function<void(OpenSlider *)> &changeBeforeShown,
                   const std::function<void(OpenSlider *)> &changeWhileShown)
{
    KelTestView view;
    auto *slider = new OpenSlider;
    slider->setboundRect(20, 20, 230, 40);
    changeBeforeShown(slider);
    view.ownScene.addItem(slider);
    if (!view.showAndWait())
        return QImage();
    view.grab();
    changeWhileShown(slider);
    QCoreApplication::processEvents();
    return view.grab().toImage();
}

// A slider in a view that has painted everything.
class Shown
{
public:
    Shown() : slider(new OpenSlider)
    {
        slider->setboundRect(20, 20, 230, 40);
        view.ownScene.addItem(slider);
    }
    bool show()
    {
        if (!view.showAndWait() || !QTest::qWaitFor([this] { return slider->paints > 0; }))
            return false;
        settle();
        slider->paints = 0;
        return true;
    }
    static void settle()
    {
        for (int i = 0; i < 5; ++i)
            QCoreApplication::processEvents();
    }

    KelTestView view;
    OpenSlider *const slider;
};

} // namespace

Q_DECLARE_METATYPE(Setting)

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
        const KELSlideControl slider;
        const KELRoundRectControlStyle &style = *slider.style();
        QCOMPARE(style.boundRect, QRectF(100, 100, 100, 30));
        QCOMPARE(style.backgroundBrush, QBrush(QColor(192, 192, 192), Qt::SolidPattern));
        QCOMPARE(style.foregroundBrush, QBrush(QColor(50, 173, 235, 255), Qt::SolidPattern));
        QCOMPARE(style.borderBrush, QBrush(QColor(255, 255, 255), Qt::SolidPattern));
        QCOMPARE(style.borderWidth, 0.5F);
        QCOMPARE(style.xRadius, 0.0);
        QCOMPARE(style.yRadius, 0.0);
        ControlTest::hasTheOtherDefaultsOfTheBase(style);
    }

    void takesPointerInput() { ControlTest::takesPointerInput<KELSlideControl>(); }

    void hasAParentItem() { ControlTest::hasAParentItem<KELSlideControl>(); }

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

    void initStyleChangesThePresentRecord()
    {
        KELSlideControl slider;
        KELRoundRectControlStyle *const style = slider.style();
        style->backgroundBrush = QBrush(Qt::red, Qt::DiagCrossPattern);
        style->foregroundBrush = QBrush(Qt::NoBrush);
        style->borderBrush = QBrush(Qt::green);
        style->boundRect = QRectF(1, 2, 3, 4);
        style->borderWidth = 7;
        style->text = u"Speed"_s;
        style->textFlags = Qt::AlignRight;
        style->isCheck = true;
        style->isMouseDown = true;

        QCOMPARE(slider.initStyle(), style);
        QCOMPARE(slider.style(), style);
        QCOMPARE(style->backgroundBrush, QBrush(grooveColour));
        QCOMPARE(style->foregroundBrush, QBrush(fillColour));
        QCOMPARE(style->borderBrush, QBrush(outlineColour));
        QCOMPARE(style->boundRect, QRectF(1, 2, 3, 4));
        QCOMPARE(style->borderWidth, 7.0F);
        QCOMPARE(style->text, u"Speed"_s);
        QCOMPARE(style->textFlags, int(Qt::AlignRight));
        QVERIFY(style->isCheck);
        QVERIFY(style->isMouseDown);
    }

    void knobStartsAtTheOriginOfTheItem()
    {
        OpenSlider slider;
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
        QFETCH(float, number);
        KELSlideControl slider;
        slider.setStep(number);
        slider.setMaximun(number);
        slider.setMinimun(number);
        if (qIsNaN(number)) {
            QVERIFY(qIsNaN(slider.step()));
            QVERIFY(qIsNaN(slider.maximun()));
            QVERIFY(qIsNaN(slider.minimun()));
        } else {
            QVERIFY(slider.step() == number);
            QVERIFY(slider.maximun() == number);
            QVERIFY(slider.minimun() == number);
        }
        QCOMPARE(slider.value(), 0.0F);
    }

    void setStepDoesNothingElse()
    {
        Shown shown;
        shown.slider->setValue(33);
        QVERIFY(shown.show());
        const QSignalSpy changed(shown.slider, &KELSlideControl::valueChanged);
        const QRectF knob = knobOf(shown.slider);
        shown.slider->paints = 0;
        shown.slider->setStep(10);
        Shown::settle();
        QCOMPARE(shown.slider->paints, 0);
        QCOMPARE(changed.count(), 0);
        QCOMPARE(shown.slider->value(), 33.0F);
        QCOMPARE(knobOf(shown.slider), knob);
    }

    void setMaximunLimitsToTheOldBound_data()
    {
        QTest::addColumn<float>("value");
        QTest::addColumn<float>("first");
        QTest::addColumn<float>("second");
        QTest::addColumn<float>("afterFirst");
        QTest::addColumn<float>("afterSecond");

        QTest::newRow("below the new bound") << 20.0F << 50.0F << 60.0F << 20.0F << 20.0F;
        QTest::newRow("above the new bound stays") << 80.0F << 50.0F << 50.0F << 80.0F << 50.0F;
        QTest::newRow("above the old bound goes to it")
            << 80.0F << 50.0F << 300.0F << 80.0F << 50.0F;
        QTest::newRow("at the old bound") << 100.0F << 300.0F << 400.0F << 100.0F << 100.0F;
        QTest::newRow("not a number limits nothing")
            << 80.0F << notANumber << 50.0F << 80.0F << 80.0F;
    }

    void setMaximunLimitsToTheOldBound()
    {
        QFETCH(float, value);
        QFETCH(float, first);
        QFETCH(float, second);
        KELSlideControl slider;
        slider.setValue(value);
        slider.setMaximun(first);
        QTEST(slider.value(), "afterFirst");
        slider.setMaximun(second);
        QTEST(slider.value(), "afterSecond");
        QCOMPARE(slider.maximun(), second);
    }

    void setMinimunLimitsToTheOldBound_data()
    {
        QTest::addColumn<float>("value");
        QTest::addColumn<float>("first");
        QTest::addColumn<float>("second");
        QTest::addColumn<float>("afterFirst");
        QTest::addColumn<float>("afterSecond");

        QTest::newRow("above the new bound") << 80.0F << 50.0F << 40.0F << 80.0F << 80.0F;
        QTest::newRow("below the new bound stays") << 20.0F << 50.0F << 50.0F << 20.0F << 50.0F;
        QTest::newRow("below the old bound goes to it")
            << 20.0F << 50.0F << -300.0F << 20.0F << 50.0F;
        QTest::newRow("at the old bound") << 0.0F << -300.0F << -400.0F << 0.0F << 0.0F;
        QTest::newRow("not a number limits nothing")
            << 20.0F << notANumber << 50.0F << 20.0F << 20.0F;
    }

    void setMinimunLimitsToTheOldBound()
    {
        QFETCH(float, value);
        QFETCH(float, first);
        QFETCH(float, second);
        KELSlideControl slider;
        slider.setValue(value);
        slider.setMinimun(first);
        QTEST(slider.value(), "afterFirst");
        slider.setMinimun(second);
        QTEST(slider.value(), "afterSecond");
        QCOMPARE(slider.minimun(), second);
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

    void boundsMoveRepaintAndTellNothing()
    {
        Shown shown;
        shown.slider->setValue(80);
        QVERIFY(shown.show());
        const QSignalSpy changed(shown.slider, &KELSlideControl::valueChanged);
        const QRectF knob = knobOf(shown.slider);
        shown.slider->paints = 0;
        shown.slider->setMaximun(50);
        shown.slider->setMaximun(60);
        QCOMPARE(shown.slider->value(), 50.0F);
        shown.slider->setMinimun(55);
        shown.slider->setMinimun(10);
        QCOMPARE(shown.slider->value(), 55.0F);
        Shown::settle();
        QCOMPARE(shown.slider->paints, 0);
        QCOMPARE(changed.count(), 0);
        QCOMPARE(knobOf(shown.slider), knob);
        // The next geometry moves it.
        shown.slider->setboundRect(20, 20, 230, 40);
        QCOMPARE(knobOf(shown.slider).left(), 20 + wayOf(55.0F / 50.0F, 230));
    }

    void setValueWithoutStep_data()
    {
        QTest::addColumn<float>("step");
        QTest::addColumn<float>("set");
        QTest::addColumn<float>("expected");

        const QList<QPair<float, const char *>> steps = {{0.0F, "step 0"},
                                                         {-5.0F, "negative step"}};
        for (const auto &step : steps) {
            QTest::addRow("%s, between", step.second) << step.first << 12.34F << 12.34F;
            QTest::addRow("%s, very near", step.second) << step.first << 1e-30F << 1e-30F;
            QTest::addRow("%s, maximum", step.second) << step.first << 100.0F << 100.0F;
            QTest::addRow("%s, above", step.second) << step.first << 150.0F << 100.0F;
            QTest::addRow("%s, minimum", step.second) << step.first << -50.0F << -50.0F;
            QTest::addRow("%s, below", step.second) << step.first << -50.1F << -50.0F;
            QTest::addRow("%s, largest", step.second) << step.first << largest << 100.0F;
            QTest::addRow("%s, infinite", step.second) << step.first << infinite << 100.0F;
            QTest::addRow("%s, minus infinite", step.second) << step.first << -infinite << -50.0F;
        }
    }

    void setValueWithoutStep()
    {
        QFETCH(float, step);
        QFETCH(float, set);
        KELSlideControl slider;
        slider.setMinimun(-50);
        slider.setStep(step);
        const QSignalSpy changed(&slider, &KELSlideControl::valueChanged);
        slider.setValue(set);
        QTEST(slider.value(), "expected");
        QCOMPARE(changed.count(), 1);
    }

    void setValueInSteps_data()
    {
        QTest::addColumn<float>("start");
        QTest::addColumn<float>("step");
        QTest::addColumn<float>("set");
        QTest::addColumn<float>("expected");

        QTest::newRow("less than a step") << 0.0F << 10.0F << 4.0F << 0.0F;
        QTest::newRow("almost a step") << 0.0F << 10.0F << 9.0F << 0.0F;
        QTest::newRow("almost a step down") << 0.0F << 10.0F << -9.99F << 0.0F;
        QTest::newRow("one step") << 0.0F << 10.0F << 10.0F << 10.0F;
        QTest::newRow("one step down") << 0.0F << 10.0F << -10.0F << -10.0F;
        QTest::newRow("1.2 steps") << 0.0F << 10.0F << 12.0F << 10.0F;
        QTest::newRow("1.5 steps") << 0.0F << 10.0F << 15.0F << 20.0F;
        QTest::newRow("-1.2 steps") << 0.0F << 10.0F << -12.0F << -10.0F;
        QTest::newRow("-1.5 steps") << 0.0F << 10.0F << -15.0F << -10.0F;
        QTest::newRow("-1.6 steps") << 0.0F << 10.0F << -16.0F << -20.0F;
        QTest::newRow("2.5 steps") << 0.0F << 10.0F << 25.0F << 30.0F;
        QTest::newRow("-2.5 steps") << 0.0F << 10.0F << -25.0F << -20.0F;
        QTest::newRow("3.5 steps") << 0.0F << 10.0F << 35.0F << 40.0F;
        QTest::newRow("-3.5 steps") << 0.0F << 10.0F << -35.0F << -30.0F;
        QTest::newRow("7.5 steps") << 0.0F << 10.0F << 75.0F << 80.0F;
        QTest::newRow("-7.5 steps") << 0.0F << 10.0F << -75.0F << -70.0F;
        QTest::newRow("7.4 steps") << 0.0F << 10.0F << 74.0F << 70.0F;
        QTest::newRow("from 7, 1.5 steps") << 7.0F << 10.0F << 22.0F << 27.0F;
        QTest::newRow("from 7, -2.5 steps") << 7.0F << 10.0F << -18.0F << -13.0F;
        QTest::newRow("fraction of a step") << 0.0F << 0.25F << 0.6F << 0.5F;
        QTest::newRow("bound off the steps") << 0.0F << 30.0F << 95.0F << 90.0F;
        QTest::newRow("rounded beyond the bound") << 0.0F << 40.0F << 100.0F << 100.0F;
        QTest::newRow("rounded beyond the lower bound") << 0.0F << 40.0F << -101.0F << -100.0F;
        QTest::newRow("far above") << 0.0F << 30.0F << 1000.0F << 100.0F;
        QTest::newRow("far below") << 0.0F << 30.0F << -1000.0F << -100.0F;
        QTest::newRow("step wider than the range") << 0.0F << 250.0F << 250.0F << 100.0F;
        const float fine = std::ldexp(1.0F, -17);
        QTest::newRow("four million steps and a half")
            << 0.0F << fine << 4194303.5F * fine << 32.0F;
        QTest::newRow("four million steps and a half, down")
            << 0.0F << fine << -4194303.5F * fine << -4194303.0F * fine;
        QTest::newRow("so many steps that there is no half")
            << 0.0F << fine << 8388609.0F * fine << 8388609.0F * fine;
        QTest::newRow("more steps than an int") << 0.0F << 1e-9F << 50.0F << 50.0F;
        QTest::newRow("more steps than an int, down") << 0.0F << 1e-9F << -50.0F << -50.0F;
        QTest::newRow("more steps than an int and far above") << 0.0F << 1e-9F << 1e30F << 100.0F;
        QTest::newRow("just 2^31 steps") << 0.0F << 1.0F << 2147483648.0F << 100.0F;
        QTest::newRow("just -2^31 steps") << 0.0F << 1.0F << -2147483648.0F << -100.0F;
        QTest::newRow("more steps than a float") << 0.0F << smallest << 50.0F << 100.0F;
        QTest::newRow("more steps than a float, down") << 0.0F << smallest << -50.0F << -100.0F;
        QTest::newRow("infinite") << 0.0F << 10.0F << infinite << 100.0F;
        QTest::newRow("minus infinite") << 0.0F << 10.0F << -infinite << -100.0F;
        QTest::newRow("infinite step") << 0.0F << infinite << 99.0F << 0.0F;
    }

    void setValueInSteps()
    {
        QFETCH(float, start);
        QFETCH(float, step);
        QFETCH(float, set);
        QFETCH(float, expected);
        KELSlideControl slider;
        slider.setMinimun(-100);
        slider.setValue(start);
        slider.setStep(step);
        const QSignalSpy changed(&slider, &KELSlideControl::valueChanged);
        slider.setValue(set);
        QVERIFY2(slider.value() == expected, qPrintable(QString::number(double(slider.value()))));
        QCOMPARE(changed.count(), std::abs(set - start) < step ? 0 : 1);
    }

    void valueBelowOneStepChangesNothing_data()
    {
        QTest::addColumn<float>("set");

        QTest::newRow("same value") << 50.0F;
        QTest::newRow("a little more") << 59.9F;
        QTest::newRow("a little less") << 40.1F;
    }

    void valueBelowOneStepChangesNothing()
    {
        QFETCH(float, set);
        Shown shown;
        shown.slider->setValue(50);
        shown.slider->setStep(10);
        // From this form the knob is 15 px away from where setValue() would put it.
        shown.slider->setboundRect(QRectF(20, 20, 230, 40));
        QVERIFY(shown.show());
        const QSignalSpy changed(shown.slider, &KELSlideControl::valueChanged);
        shown.slider->setValue(set);
        Shown::settle();
        QCOMPARE(changed.count(), 0);
        QCOMPARE(shown.slider->paints, 0);
        QCOMPARE(shown.slider->value(), 50.0F);
        QCOMPARE(knobOf(shown.slider).left(), 135.0);
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
        Shown shown;
        QVERIFY(shown.show());
        const QSignalSpy changed(shown.slider, &KELSlideControl::valueChanged);
        for (int i = 1; i <= 3; ++i) {
            shown.slider->setValue(150);
            QCOMPARE(changed.count(), i);
            QCOMPARE(shown.slider->value(), 100.0F);
            QTRY_COMPARE(shown.slider->paints, i);
        }
    }

    void setValueRepaintsAllOfIt()
    {
        const auto setTwenty = [](OpenSlider *slider) { slider->setValue(20); };
        const auto setEighty = [](OpenSlider *slider) {
            // An edit of the record shows as well, where neither knob goes.
            slider->style()->backgroundBrush = QBrush(Qt::red);
            slider->setValue(80);
        };
        const auto nothing = [](OpenSlider *) {};
        const QImage atTwenty = screenAfter(setTwenty, nothing);
        const QImage moved = screenAfter(setTwenty, setEighty);
        QVERIFY(!moved.isNull());
        QVERIFY(moved != atTwenty);
        QCOMPARE(KelImage::difference(moved, screenAfter(setEighty, nothing)), QString());
    }

    void oddBounds_data()
    {
        QTest::addColumn<float>("minimum");
        QTest::addColumn<float>("maximum");
        QTest::addColumn<float>("set");
        QTest::addColumn<float>("expected");

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

    void oddBounds()
    {
        QFETCH(float, minimum);
        QFETCH(float, maximum);
        QFETCH(float, set);
        QFETCH(float, expected);
        KELSlideControl slider;
        slider.setboundRect(10, 10, 150, 50);
        slider.setMinimun(minimum);
        slider.setMaximun(maximum);
        const QSignalSpy changed(&slider, &KELSlideControl::valueChanged);
        slider.setValue(set);
        QVERIFY(slider.value() == expected);
        QCOMPARE(changed.count(), 1);
        for (const qreal scale : {0.5, 1.0, 2.0})
            KelImage::paint(&slider, canvas, scale);

        // All is well again with good bounds.
        slider.setMinimun(0);
        slider.setMaximun(100);
        slider.setValue(50);
        QCOMPARE(slider.value(), 50.0F);
        QCOMPARE(knobOf(&slider), QRectF(70, 20, 30, 30));
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
        KELSlideControl slider;
        slider.setboundRect(10, 10, 230, 40);
        QList<float> seen;
        connect(&slider, &KELSlideControl::valueChanged, this, [&] {
            seen.append(slider.value());
            if (slider.value() > 50)
                slider.setValue(slider.value() - 20);
        });
        slider.setValue(90);
        QCOMPARE(seen, QList<float>({90, 70, 50}));
        QCOMPARE(slider.value(), 50.0F);
        QCOMPARE(knobOf(&slider).left(), 110.0);
    }

    void deletedInsideValueChanged_data()
    {
        QTest::addColumn<float>("step");

        QTest::newRow("without step") << 0.0F;
        QTest::newRow("with step") << 10.0F;
    }

    void deletedInsideValueChanged()
    {
        QFETCH(float, step);
        auto *slider = new KELSlideControl;
        slider->setStep(step);
        const QPointer<KELSlideControl> alive(slider);
        connect(slider, &KELSlideControl::valueChanged, this, [slider] { delete slider; });
        slider->setValue(50);
        QVERIFY(!alive);
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
        slider.setboundRect(rect.x(), rect.y(), rect.width(), rect.height());
        QCOMPARE(knobOf(&slider).left(), 240.0);
        slider.setValue(70);
        QCOMPARE(knobOf(&slider).left(), 200.0);
    }

    void setValuePlacesTheKnob_data()
    {
        QTest::addColumn<QRectF>("rect");
        QTest::addColumn<Setting>("setting");

        const QList<QPair<QRectF, const char *>> rects = {{{10, 10, 230, 40}, "wide"},
                                                          {{0.1, -7.3, 173.7, 33.3}, "fractions"},
                                                          {{-1000.7, 500, 91, 30}, "far away"},
                                                          {{5, 5, 31, 80}, "one pixel to go"}};
        const QList<QPair<Setting, const char *>> settings = {
            {{0, 100, 0}, "at the minimum"},
            {{0, 100, 100}, "at the maximum"},
            {{0, 3, 1}, "at a third"},
            {{20, 120, 70}, "minimum above zero"},
            {{-100, 100, -30}, "minimum below zero"},
            {{-1.1F, 7.7F, 3.3F}, "fractions of values"},
            {{100, 0, 0}, "reversed bounds"},
            {{1e30F, 3e30F, 1.7e30F}, "huge values"}};
        for (const auto &rect : rects) {
            for (const auto &setting : settings)
                QTest::addRow("%s, %s", rect.second, setting.second) << rect.first << setting.first;
        }
    }

    void setValuePlacesTheKnob()
    {
        QFETCH(QRectF, rect);
        QFETCH(Setting, setting);
        KELSlideControl slider;
        slider.setboundRect(rect);
        apply(&slider, setting);
        setting.value = slider.value();
        const QRectF knob = knobOf(&slider);
        QVERIFY(knob.left() == rect.x() + wayOf(fractionOf(setting), rect.width()));
        QVERIFY(knob.top() == topOf(rect));
        QCOMPARE(knob.size(), QSizeF(30, 30));
    }

    void rectFormPlacesTheKnob_data() { setValuePlacesTheKnob_data(); }

    void rectFormPlacesTheKnob()
    {
        QFETCH(QRectF, rect);
        QFETCH(Setting, setting);
        KELSlideControl slider;
        apply(&slider, setting);
        setting.value = slider.value();
        slider.setboundRect(rect);
        const QRectF knob = knobOf(&slider);
        QVERIFY(knob.left() == rect.x() + 15 + wayOf(fractionOf(setting), rect.width()));
        QVERIFY(knob.top() == topOf(rect));
        QCOMPARE(knob.size(), QSizeF(30, 30));
    }

    void fourNumberFormPlacesTheKnob_data() { setValuePlacesTheKnob_data(); }

    void fourNumberFormPlacesTheKnob()
    {
        QFETCH(QRectF, rect);
        QFETCH(Setting, setting);
        KELSlideControl slider;
        apply(&slider, setting);
        setting.value = slider.value();
        slider.setboundRect(rect.x(), rect.y(), rect.width(), rect.height());
        const float range = setting.maximum - setting.minimum;
        const QRectF knob = knobOf(&slider);
        QVERIFY(knob.left() == rect.x() + wayOf(setting.value / range, rect.width()));
        QVERIFY(knob.top() == topOf(rect));
        QCOMPARE(knob.size(), QSizeF(30, 30));
    }

    void placeIsRoundedToSinglePrecision()
    {
        const QRectF rect(0.1, 0, 173.7, 30);
        const Setting range = {-1.1F, 7.7F, 0};
        KELSlideControl slider;
        int doubleFractions = 0;
        int doubleProducts = 0;
        int singleSums = 0;
        for (int i = 0; i <= 200; ++i) {
            const Setting setting = {range.minimum, range.maximum, -1.0F + float(i) * 0.043F};
            slider.setboundRect(rect);
            apply(&slider, setting);
            const float fraction = fractionOf(setting);
            const qreal left = knobOf(&slider).left();
            QVERIFY(left == rect.x() + wayOf(fraction, rect.width()));
            slider.setboundRect(rect);
            QVERIFY(knobOf(&slider).left() == rect.x() + 15 + wayOf(fraction, rect.width()));

            const double wholeRange = double(range.maximum) - double(range.minimum);
            const double doubleFraction = (double(setting.value) - double(range.minimum))
                / wholeRange;
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
        Shown shown;
        shown.slider->setValue(40);
        QVERIFY(shown.show());
        const QSignalSpy changed(shown.slider, &KELSlideControl::valueChanged);
        shown.slider->paints = 0;
        shown.slider->setboundRect(QRectF(20, 20, 200, 50));
        QCOMPARE(shown.slider->style()->boundRect, QRectF(20, 20, 200, 50));
        QCOMPARE(shown.slider->boundingRect(), QRectF(20, 20, 200, 50));
        shown.slider->setboundRect(20, 20, 210, 60);
        QCOMPARE(shown.slider->style()->boundRect, QRectF(20, 20, 210, 60));
        Shown::settle();
        QCOMPARE(shown.slider->paints, 0);
        QCOMPARE(changed.count(), 0);
        QCOMPARE(shown.slider->value(), 40.0F);
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
        QFETCH(qreal, width);
        QFETCH(qreal, left);
        KELSlideControl slider;
        slider.setValue(80);
        slider.setboundRect(100, 20, width, 40);
        QCOMPARE(knobOf(&slider), QRectF(left, 25, 30, 30));
        slider.setboundRect(QRectF(100, 20, width, 40));
        QCOMPARE(knobOf(&slider), QRectF(left + 15, 25, 30, 30));
        slider.setValue(80);
        QCOMPARE(knobOf(&slider), QRectF(left, 25, 30, 30));
        slider.setValue(0);
        QCOMPARE(knobOf(&slider), QRectF(100, 25, 30, 30));
    }

    void isTheHandDrawnPicture_data()
    {
        QTest::addColumn<float>("value");
        QTest::addColumn<bool>("enabled");

        for (const bool enabled : {true, false}) {
            const char *state = enabled ? "enabled" : "disabled";
            QTest::addRow("minimum, %s", state) << 0.0F << enabled;
            QTest::addRow("near the minimum, %s", state) << 3.0F << enabled;
            QTest::addRow("between, %s", state) << 41.7F << enabled;
            QTest::addRow("maximum, %s", state) << 100.0F << enabled;
        }
    }

    void isTheHandDrawnPicture()
    {
        QFETCH(float, value);
        QFETCH(bool, enabled);
        for (const QRectF &rect :
             {QRectF(10, 10, 150, 50), QRectF(5.3, 7.7, 140.4, 33.6), QRectF(20, 30, 60, 30),
              QRectF(50, 10, 30, 110), QRectF(60, 60, 12, 12), QRectF(80, 60, 4, 2),
              QRectF(80, 60, 0, 0), QRectF(150, 90, -90, -50)}) {
            KELSlideControl slider;
            slider.setEnabled(enabled);
            slider.setboundRect(rect.x(), rect.y(), rect.width(), rect.height());
            slider.setValue(value);
            for (const qreal scale : {0.5, 1.0, 1.5, 2.0})
                QCOMPARE(differenceFrom(expectedOf(slider), &slider, scale), QString());
        }
    }

    void isTheHandDrawnPictureAfterTheRectForm()
    {
        for (const float value : {0.0F, 41.7F, 100.0F}) {
            KELSlideControl slider;
            slider.setValue(value);
            slider.setboundRect(QRectF(10.5, 10, 120, 50));
            HandDrawing expected = expectedOf(slider);
            expected.knob.translate(15, 0);
            for (const qreal scale : {0.5, 1.0, 1.5, 2.0})
                QCOMPARE(differenceFrom(expected, &slider, scale), QString());
        }
    }

    void isTheHandDrawnPictureWithoutBrushes_data()
    {
        QTest::addColumn<bool>("groove");
        QTest::addColumn<bool>("fill");
        QTest::addColumn<bool>("outline");
        QTest::addColumn<bool>("enabled");

        for (int mask = 0; mask < 8; ++mask) {
            const bool groove = (mask & 1) != 0;
            const bool fill = (mask & 2) != 0;
            const bool outline = (mask & 4) != 0;
            for (const bool enabled : {true, false}) {
                QTest::addRow("%s groove, %s fill, %s outline, %s", groove ? "with" : "without",
                              fill ? "with" : "without", outline ? "with" : "without",
                              enabled ? "enabled" : "disabled")
                    << groove << fill << outline << enabled;
            }
        }
    }

    void isTheHandDrawnPictureWithoutBrushes()
    {
        QFETCH(bool, groove);
        QFETCH(bool, fill);
        QFETCH(bool, outline);
        QFETCH(bool, enabled);
        KELSlideControl slider;
        slider.setboundRect(10.5, 20, 150, 50);
        slider.setValue(60);
        slider.setEnabled(enabled);
        KELRoundRectControlStyle *style = slider.style();
        style->backgroundBrush = QBrush(Qt::darkGreen, groove ? Qt::SolidPattern : Qt::NoBrush);
        style->foregroundBrush = QBrush(Qt::yellow, fill ? Qt::SolidPattern : Qt::NoBrush);
        style->borderBrush = QBrush(Qt::blue, outline ? Qt::SolidPattern : Qt::NoBrush);
        // What a scene hands over, and what another caller may.
        const Preparation preparations[] = {[](QPainter *) {},
                                            [](QPainter *painter) {
                                                painter->setPen(QPen(Qt::red, 3));
                                                painter->setBrush(Qt::magenta);
                                            },
                                            [](QPainter *painter) {
                                                painter->setPen(Qt::NoPen);
                                                painter->setBrush(Qt::magenta);
                                            }};
        for (const Preparation &prepare : preparations) {
            for (const qreal scale : {0.5, 1.0, 1.5, 2.0})
                QCOMPARE(differenceFrom(expectedOf(slider), &slider, scale, prepare), QString());
        }
    }

    void isTheHandDrawnPictureWithPatternsAndGradients()
    {
        QLinearGradient gradient(0, 0, 190, 0);
        gradient.setColorAt(0, Qt::red);
        gradient.setColorAt(1, QColor(0, 0, 255, 90));
        const QBrush pattern(QColor(90, 120, 60, 130), Qt::DiagCrossPattern);
        for (const qreal scale : {0.5, 1.0, 1.5, 2.0}) {
            KELSlideControl slider;
            slider.setboundRect(10.5, 20, 150, 50);
            slider.setValue(60);
            slider.style()->backgroundBrush = pattern;
            slider.style()->foregroundBrush = gradient;
            slider.style()->borderBrush = pattern;
            QCOMPARE(differenceFrom(expectedOf(slider), &slider, scale), QString());
            slider.style()->backgroundBrush = gradient;
            slider.style()->foregroundBrush = pattern;
            slider.style()->borderBrush = gradient;
            QCOMPARE(differenceFrom(expectedOf(slider), &slider, scale), QString());
            slider.setEnabled(false);
            QCOMPARE(differenceFrom(expectedOf(slider), &slider, scale), QString());
        }
    }

    void isTheHandDrawnPictureInAParent_data()
    {
        QTest::addColumn<QPointF>("corner");

        QTest::newRow("parent begins at the origin") << QPointF(0, 0);
        QTest::newRow("parent begins to the right and below") << QPointF(20, 35);
        QTest::newRow("parent begins to the left and above") << QPointF(-15, -10.5);
        QTest::newRow("parent begins beyond the knob") << QPointF(80, 0);
    }

    void isTheHandDrawnPictureInAParent()
    {
        QFETCH(QPointF, corner);
        PlainParent parent(QRectF(corner, QSizeF(500, 500)));
        auto *slider = new KELSlideControl(&parent);
        slider->setboundRect(30, 30, 90, 40);
        slider->setValue(25);
        // The groove goes along with the parent's rectangle, the knob does not.
        HandDrawing expected = expectedOf(*slider);
        expected.bounds.translate(corner);
        QCOMPARE(expected.knob, QRectF(45, 35, 30, 30));
        for (const qreal scale : {0.5, 1.0, 1.5, 2.0})
            QCOMPARE(differenceFrom(expected, slider, scale), QString());
    }

    void partsHaveTheirNumbers()
    {
        KELSlideControl slider;
        slider.setboundRect(10.5, 20, 150, 51);
        slider.setValue(25);
        const QList<Part> parts = partsOf(&slider);
        QCOMPARE(parts.size(), 3);
        QVERIFY(!parts.at(0).isEllipse);
        QVERIFY(isSamePath(parts.at(0).path, groovePath(QRectF(13.5, 43.5, 144, 4))));
        QVERIFY(!parts.at(1).isEllipse);
        // Up to the centre of the knob.
        QVERIFY(isSamePath(parts.at(1).path, groovePath(QRectF(13.5, 43.5, 42, 4))));
        QVERIFY(parts.at(2).isEllipse);
        QCOMPARE(parts.at(2).ellipse, QRectF(40.5, 30.5, 30, 30));
    }

    void partsHaveTheirPensAndBrushes()
    {
        KELSlideControl slider;
        slider.setboundRect(10, 20, 150, 50);
        slider.setValue(25);
        QList<Part> parts = partsOf(&slider, QPen(Qt::red, 3));
        QCOMPARE(parts.size(), 3);
        QCOMPARE(parts.at(0).pen, QPen(Qt::NoPen));
        QCOMPARE(parts.at(0).brush, QBrush(grooveColour));
        QCOMPARE(parts.at(1).pen, QPen(Qt::NoPen));
        QCOMPARE(parts.at(1).brush, QBrush(fillColour));
        QCOMPARE(parts.at(2).pen,
                 QPen(outlineColour, 2.0, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
        QCOMPARE(parts.at(2).brush, QBrush(fillColour));

        slider.setEnabled(false);
        parts = partsOf(&slider, QPen(Qt::red, 3));
        QCOMPARE(parts.size(), 3);
        QCOMPARE(parts.at(0).brush, QBrush(grooveColour));
        QCOMPARE(parts.at(1).brush, QBrush(disabledFill));
        QCOMPARE(parts.at(2).pen,
                 QPen(disabledOutline, 2.0, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
        QCOMPARE(parts.at(2).brush, QBrush(disabledFill));
    }

    void filledPartNeedsAValueInsideTheBounds_data()
    {
        QTest::addColumn<float>("minimum");
        QTest::addColumn<float>("maximum");
        QTest::addColumn<bool>("isFilled");

        QTest::newRow("inside") << 0.0F << 100.0F << true;
        QTest::newRow("at the maximum") << 0.0F << 40.0F << true;
        QTest::newRow("at the minimum") << 40.0F << 100.0F << true;
        QTest::newRow("at both") << 40.0F << 40.0F << true;
        QTest::newRow("just above the maximum") << 0.0F << 39.999996F << false;
        QTest::newRow("just below the minimum") << 40.000004F << 100.0F << false;
        QTest::newRow("between reversed bounds") << 100.0F << 0.0F << false;
        QTest::newRow("maximum not a number") << 0.0F << notANumber << false;
        QTest::newRow("minimum not a number") << notANumber << 100.0F << false;
        QTest::newRow("infinite bounds") << -infinite << infinite << true;
    }

    void filledPartNeedsAValueInsideTheBounds()
    {
        QFETCH(float, minimum);
        QFETCH(float, maximum);
        QFETCH(bool, isFilled);
        for (const bool enabled : {true, false}) {
            KELSlideControl slider;
            slider.setEnabled(enabled);
            slider.setboundRect(10, 20, 150, 50);
            slider.setValue(40);
            slider.setMinimun(minimum);
            slider.setMaximun(maximum);
            QCOMPARE(slider.value(), 40.0F);
            HandDrawing expected = expectedOf(slider);
            expected.isInsideBounds = isFilled;
            QCOMPARE(partsOf(&slider).size(), isFilled ? 3 : 2);
            for (const qreal scale : {0.5, 1.0, 1.5, 2.0})
                QCOMPARE(differenceFrom(expected, &slider, scale), QString());
        }
    }

    void disabledByItsParent()
    {
        PlainParent parent(QRectF(0, 0, 500, 500));
        auto *slider = new KELSlideControl(&parent);
        slider->setboundRect(10, 20, 150, 50);
        slider->setValue(40);
        QCOMPARE(partsOf(slider).last().brush, QBrush(fillColour));
        parent.setEnabled(false);
        QCOMPARE(partsOf(slider).last().brush, QBrush(disabledFill));
        QCOMPARE(slider->style()->foregroundBrush, QBrush(fillColour));
        parent.setEnabled(true);
        QCOMPARE(partsOf(slider).last().brush, QBrush(fillColour));
    }

    void antialiasingIsTheOnlyHintTurnedOn()
    {
        KELSlideControl slider;
        slider.setboundRect(10, 20, 150, 50);
        for (const bool smooth : {false, true}) {
            RecordingDevice device;
            QPainter painter(&device);
            painter.setRenderHints(painter.renderHints(), false);
            painter.setRenderHint(QPainter::SmoothPixmapTransform, smooth);
            slider.paint(&painter, nullptr);
            painter.end();
            const QPainter::RenderHints expected = smooth
                ? QPainter::Antialiasing | QPainter::SmoothPixmapTransform
                : QPainter::RenderHints(QPainter::Antialiasing);
            const QList<Part> parts = device.parts();
            QCOMPARE(parts.size(), 3);
            for (const Part &part : parts)
                QCOMPARE(part.hints, expected);
        }
    }

    void restOfTheRecordIsNotDrawn()
    {
        KELSlideControl slider;
        slider.setboundRect(10, 20, 150, 50);
        slider.setValue(40);
        KELRoundRectControlStyle *style = slider.style();
        style->borderWidth = 20;
        style->xRadius = 10;
        style->yRadius = 10;
        style->text = u"Speed"_s;
        style->margins = QMarginsF(5, 5, 5, 5);
        style->pixmap = QPixmap(20, 20);
        style->pixmap.fill(Qt::magenta);
        style->icon = KELIconFont('M');
        style->isMouseDown = true;
        style->isCheck = true;
        QCOMPARE(differenceFrom(expectedOf(slider), &slider), QString());
        style->borderWidth = 0;
        QCOMPARE(differenceFrom(expectedOf(slider), &slider), QString());
    }

    void paintingLeavesTheRecordAlone()
    {
        KELSlideControl slider;
        slider.setboundRect(10, 20, 150, 50);
        slider.setValue(40);
        slider.setEnabled(false);
        const QImage first = KelImage::paint(&slider, canvas);
        QCOMPARE(slider.style()->backgroundBrush, QBrush(grooveColour));
        QCOMPARE(slider.style()->foregroundBrush, QBrush(fillColour));
        QCOMPARE(slider.style()->borderBrush, QBrush(outlineColour));
        QCOMPARE(slider.style()->boundRect, QRectF(10, 20, 150, 50));
        QCOMPARE(slider.value(), 40.0F);
        QCOMPARE(KelImage::difference(KelImage::paint(&slider, canvas), first), QString());
    }

    void placeThatIsNotANumberShowsTheGrooveAlone_data()
    {
        QTest::addColumn<Setting>("setting");

        QTest::newRow("equal bounds") << Setting{50, 50, 50};
        QTest::newRow("value not a number") << Setting{0, 100, notANumber};
        QTest::newRow("maximum not a number") << Setting{0, notANumber, 50};
        QTest::newRow("minimum not a number") << Setting{notANumber, 100, 50};
        QTest::newRow("no lower limit") << Setting{-infinite, 100, 50};
        QTest::newRow("infinite value") << Setting{0, infinite, infinite};
    }

    void placeThatIsNotANumberShowsTheGrooveAlone()
    {
        QFETCH(Setting, setting);
        const QImage grooveAlone = KelImage::draw(canvas, 1, [](QPainter *painter) {
            painter->setRenderHint(QPainter::Antialiasing);
            painter->setPen(Qt::NoPen);
            painter->setBrush(Qt::lightGray);
            painter->drawRoundedRect(QRectF(13, 43, 144, 4), 3, 3, Qt::RelativeSize);
        });
        KELSlideControl slider;
        slider.setboundRect(10, 20, 150, 50);
        apply(&slider, setting);
        QCOMPARE(KelImage::difference(KelImage::paint(&slider, canvas), grooveAlone), QString());
        slider.setboundRect(QRectF(10, 20, 150, 50));
        QCOMPARE(KelImage::difference(KelImage::paint(&slider, canvas), grooveAlone), QString());
        // It comes back with numbers.
        apply(&slider, {0, 100, 50});
        QCOMPARE(differenceFrom(expectedOf(slider), &slider), QString());
    }

    void oddGeometryDrawsNothing_data()
    {
        QTest::addColumn<QRectF>("rect");

        constexpr qreal noNumber = std::numeric_limits<qreal>::quiet_NaN();
        constexpr qreal endless = std::numeric_limits<qreal>::infinity();
        QTest::newRow("x not a number") << QRectF(noNumber, 20, 150, 50);
        QTest::newRow("y not a number") << QRectF(10, noNumber, 150, 50);
        QTest::newRow("width not a number") << QRectF(10, 20, noNumber, 50);
        QTest::newRow("height not a number") << QRectF(10, 20, 150, noNumber);
        QTest::newRow("infinite x") << QRectF(endless, 20, 150, 50);
        QTest::newRow("infinite y") << QRectF(10, -endless, 150, 50);
        QTest::newRow("infinite width") << QRectF(10, 20, endless, 50);
        QTest::newRow("infinite height") << QRectF(10, 20, 150, endless);
    }

    void oddGeometryDrawsNothing()
    {
        QFETCH(QRectF, rect);
        const QImage blank = KelImage::draw(canvas, 1, [](QPainter *) {});
        KELSlideControl slider;
        slider.setValue(40);
        slider.setboundRect(rect);
        QCOMPARE(KelImage::difference(KelImage::paint(&slider, canvas), blank), QString());
        slider.setboundRect(rect.x(), rect.y(), rect.width(), rect.height());
        QCOMPARE(KelImage::difference(KelImage::paint(&slider, canvas), blank), QString());
        slider.setValue(60);
        QCOMPARE(KelImage::difference(KelImage::paint(&slider, canvas), blank), QString());
    }

    void staysInsideAwayFromTheEnds()
    {
        for (const bool enabled : {true, false}) {
            KELSlideControl slider;
            slider.setEnabled(enabled);
            slider.setValue(50);
            slider.setboundRect(100, 100, 120, 32);
            for (const qreal scale : {0.5, 1.0, 1.5, 2.0}) {
                QCOMPARE(reachOf(&slider, scale), QMargins());
                QCOMPARE(KelImage::pixelsOutside(&slider, scale), QString());
            }
            slider.setboundRect(QRectF(100, 100, 120, 32));
            for (const qreal scale : {0.5, 1.0, 1.5, 2.0})
                QCOMPARE(reachOf(&slider, scale), QMargins());
        }
    }

    void outlineReachesOnePixelBeyondTheEndsOfTheTravel()
    {
        for (const bool enabled : {true, false}) {
            KELSlideControl slider;
            slider.setEnabled(enabled);
            slider.setboundRect(100, 100, 120, 40);
            for (const qreal scale : {0.5, 1.0, 1.5, 2.0}) {
                const int reach = int(std::ceil(scale));
                slider.setValue(0);
                QCOMPARE(reachOf(&slider, scale), QMargins(reach, 0, 0, 0));
                slider.setValue(100);
                QCOMPARE(reachOf(&slider, scale), QMargins(0, 0, reach, 0));
            }
        }
        KELSlideControl slider;
        slider.setboundRect(100, 100, 120, 40);
        slider.style()->borderBrush = QBrush(Qt::NoBrush);
        for (const float value : {0.0F, 100.0F}) {
            slider.setValue(value);
            QCOMPARE(reachOf(&slider, 1), QMargins());
        }
    }

    void outlineReachesOnePixelAboveAndBelowAControlAsHighAsTheKnob()
    {
        KELSlideControl slider;
        slider.setValue(50);
        slider.setboundRect(100, 100, 120, 30);
        QCOMPARE(reachOf(&slider, 1), QMargins(0, 1, 0, 1));
        QCOMPARE(reachOf(&slider, 2), QMargins(0, 2, 0, 2));
    }

    void knobReachesBeyondALowControl()
    {
        KELSlideControl slider;
        slider.setValue(50);
        slider.setboundRect(100, 100, 120, 20);
        QCOMPARE(reachOf(&slider, 1), QMargins(0, 6, 0, 6));
        QCOMPARE(reachOf(&slider, 2), QMargins(0, 12, 0, 12));
        // Where the constructor leaves it, above and to the left of the control.
        KELSlideControl fresh;
        QCOMPARE(reachOf(&fresh, 1), QMargins(101, 101, 0, 0));
    }

    void knobReachesFifteenPixelsFurtherAfterTheRectForm()
    {
        KELSlideControl slider;
        slider.setValue(100);
        slider.setboundRect(QRectF(100, 100, 120, 40));
        QCOMPARE(reachOf(&slider, 1), QMargins(0, 0, 16, 0));
        QCOMPARE(reachOf(&slider, 2), QMargins(0, 0, 32, 0));
        slider.setValue(100);
        QCOMPARE(reachOf(&slider, 1), QMargins(0, 0, 1, 0));
        slider.setValue(0);
        slider.setboundRect(QRectF(100, 100, 120, 40));
        QCOMPARE(reachOf(&slider, 1), QMargins());
    }

    void ownTimerRepaints()
    {
        // The slider never starts its timer, whose id then is 0.
        const auto nothing = [](OpenSlider *) {};
        const auto edit = [](OpenSlider *slider) {
            slider->style()->backgroundBrush = QBrush(Qt::red);
            slider->style()->foregroundBrush = QBrush(Qt::green);
        };
        const auto editAndFire = [&edit](OpenSlider *slider) {
            edit(slider);
            QTimerEvent event(0);
            slider->timerEvent(&event);
        };
        QCOMPARE(
            KelImage::difference(screenAfter(nothing, editAndFire), screenAfter(edit, nothing)),
            QString());
        // The edit alone shows nothing.
        QCOMPARE(KelImage::difference(screenAfter(nothing, edit), screenAfter(nothing, nothing)),
                 QString());

        Shown shown;
        QVERIFY(shown.show());
        const QSignalSpy changed(shown.slider, &KELSlideControl::valueChanged);
        for (int i = 1; i <= 2; ++i) {
            QTimerEvent event(0);
            QCoreApplication::sendEvent(shown.slider, &event);
            QTRY_COMPARE(shown.slider->paints, i);
        }
        QCOMPARE(changed.count(), 0);
    }

    void otherTimersDoNothing()
    {
        Shown shown;
        QVERIFY(shown.show());
        const QSignalSpy changed(shown.slider, &KELSlideControl::valueChanged);
        const QSignalSpy longPress(shown.slider, &KELSlideControl::mouseLongPress);
        const int foreign = shown.slider->startTimer(1000000);
        for (const int id : {foreign, foreign + 1, -1, 999999}) {
            QTimerEvent event(id);
            QCoreApplication::sendEvent(shown.slider, &event);
        }
        Shown::settle();
        QCOMPARE(shown.slider->paints, 0);
        QCOMPARE(changed.count(), 0);
        QCOMPARE(longPress.count(), 0);
        const auto timers = QAbstractEventDispatcher::instance()->registeredTimers(shown.slider);
        QCOMPARE(timers.size(), 1);
        shown.slider->killTimer(foreign);
    }
};

KEL_TEST_MAIN(tst_KELSlideControl)
#include "tst_kelslidecontrol.moc"
