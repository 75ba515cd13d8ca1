// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "keltest.h"

#include <kelpushbutton.h>
#include <kelslidecontrol.h>

#include <QtCore/QAbstractEventDispatcher>
#include <QtCore/QElapsedTimer>
#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtWidgets/QDialog>
#include <QtWidgets/QGraphicsSceneMouseEvent>
#include <QtWidgets/QMenu>

#include <limits>
#include <memory>
#include <vector>

namespace {

constexpr float notANumber = std::numeric_limits<float>::quiet_NaN();
constexpr float infinite = std::numeric_limits<float>::infinity();
constexpr float largest = std::numeric_limits<float>::max();

enum class Input { Mouse, Touch };
enum class Way { Delete, DeleteLater, ClearScene, DeleteParent };
enum class Moment { Press, Jump, SecondJump, Drag, Release, Click };

// Where the slider of the stage is at 0, and how far its knob goes: 2 px are 1 unit.
const QRectF stageRect(20, 100, 230, 40);
const QPoint onKnobAtZero(35, 120);

class OpenSlider : public KELSlideControl
{
public:
    using KELSlideControl::KELSlideControl;
    using KELSlideControl::mouseMoveEvent;
    using KELSlideControl::mousePressEvent;
};

// Straight to the handler, at places between the pixels too.
void sendPress(OpenSlider *slider, const QPointF &pos, Qt::MouseButton button = Qt::LeftButton)
{
    QGraphicsSceneMouseEvent event(QEvent::GraphicsSceneMousePress);
    event.setPos(pos);
    event.setButton(button);
    event.setButtons(button);
    slider->mousePressEvent(&event);
}

void sendMove(OpenSlider *slider, const QPointF &pos)
{
    QGraphicsSceneMouseEvent event(QEvent::GraphicsSceneMouseMove);
    event.setPos(pos);
    slider->mouseMoveEvent(&event);
}

void place(KELSlideControl *slider, const QRectF &rect)
{
    slider->setboundRect(rect.x(), rect.y(), rect.width(), rect.height());
}

class PlainParent : public QGraphicsObject
{
public:
    explicit PlainParent(const QRectF &bounds = QRectF()) : m_bounds(bounds) { }
    QRectF boundingRect() const override { return m_bounds; }
    void paint(QPainter * /*painter*/, const QStyleOptionGraphicsItem * /*option*/,
               QWidget * /*widget*/) override
    { }

private:
    QRectF m_bounds;
};

// A slider and a button below it in a view; writes the slider's signals down.
class Stage
{
public:
    Stage() : parent(new PlainParent), slider(new OpenSlider(parent)), other(new KELPushButton)
    {
        place(slider, stageRect);
        view.ownScene.addItem(parent);
        other->setboundRect(300, 200, 80, 50);
        view.ownScene.addItem(other);
        const auto noting = [this](const char *name) {
            return [this, name] { signalNames.append(QLatin1String(name)); };
        };
        QObject::connect(slider, &KELSlideControl::mousePress, &view, noting("press"));
        QObject::connect(slider, &KELSlideControl::mouseRelease, &view, noting("release"));
        QObject::connect(slider, &KELSlideControl::mouseClicked, &view, noting("click"));
        QObject::connect(slider, &KELSlideControl::mouseDoubleClicked, &view, noting("double"));
        QObject::connect(slider, &KELSlideControl::mouseLongPress, &view, noting("long"));
        QObject::connect(slider, &KELSlideControl::valueChanged, &view, noting("value"));
    }

    bool show()
    {
        if (!view.showAndWait())
            return false;
        // A tap elsewhere: the next one must not be the second of a double tap that began in an
        // earlier test.
        view.touchPress(QPoint(3, 3));
        view.touchRelease(QPoint(3, 3));
        return true;
    }

    void press(Input input, const QPoint &pos)
    {
        if (input == Input::Touch)
            view.touchPress(pos);
        else
            view.press(pos);
    }
    void move(Input input, const QPoint &pos)
    {
        if (input == Input::Touch)
            view.touchMove(pos);
        else
            view.move(pos);
    }
    void release(Input input, const QPoint &pos)
    {
        if (input == Input::Touch)
            view.touchRelease(pos);
        else
            view.release(pos);
    }
    // Unlike QTest it does not mind when nobody takes the press.
    void pressWith(const QPoint &pos, Qt::MouseButton button)
    {
        sendMouse(QEvent::MouseButtonPress, pos, button, button);
    }
    // Several buttons at a time.
    void sendMouse(QEvent::Type type, const QPoint &pos, Qt::MouseButton button,
                   Qt::MouseButtons buttons)
    {
        QMouseEvent event(type, pos, view.viewport()->mapToGlobal(pos), button, buttons,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(view.viewport(), &event);
    }

    QString takeNames() { return std::exchange(signalNames, QStringList()).join(QLatin1Char(' ')); }
    int valueSignals() const { return signalNames.count(u"value"_s); }

    void destroy(Way way)
    {
        ++destroyCalls;
        switch (way) {
        case Way::Delete:
            delete slider;
            break;
        case Way::DeleteLater:
            slider->deleteLater();
            break;
        case Way::ClearScene:
            view.ownScene.clear();
            break;
        case Way::DeleteParent:
            delete parent;
            break;
        }
    }

    // Shows that the scene has forgotten the slider.
    bool nextControlIsClicked(Input input)
    {
        QCoreApplication::processEvents();
        auto *next = new KELPushButton;
        next->setboundRect(stageRect);
        view.ownScene.addItem(next);
        const QSignalSpy clicked(next, &KELRoundRectControl::mouseClicked);
        press(input, stageRect.center().toPoint());
        release(input, stageRect.center().toPoint());
        view.grab();
        return clicked.count() == 1;
    }

    QStringList signalNames;
    int destroyCalls = 0;
    KelTestView view;
    const QPointer<PlainParent> parent;
    const QPointer<OpenSlider> slider;
    const QPointer<KELPushButton> other;
    std::unique_ptr<QWidget> cover; // over the view
};

using Step = std::function<void(Stage &)>;

struct Loss
{
    const char *name;
    Step lose;
    Step restore;
};

const std::vector<Loss> &losses()
{
    static const std::vector<Loss> all = {
        {"popup opened",
         [](Stage &s) {
             s.cover = std::make_unique<QWidget>(nullptr, Qt::Popup);
             s.cover->show();
         },
         [](Stage &s) { s.cover.reset(); }},
        {"modal dialog opened",
         [](Stage &s) {
             auto dialog = std::make_unique<QDialog>();
             dialog->setModal(true);
             dialog->show();
             s.cover = std::move(dialog);
         },
         [](Stage &s) { s.cover.reset(); }},
        {"view hidden", [](Stage &s) { s.view.hide(); }, [](Stage &s) { s.view.show(); }},
        {"view disabled", [](Stage &s) { s.view.setEnabled(false); },
         [](Stage &s) { s.view.setEnabled(true); }},
        {"buttons switched off", [](Stage &s) { s.slider->setAcceptedMouseButtons(Qt::NoButton); },
         [](Stage &s) { s.slider->setAcceptedMouseButtons(Qt::LeftButton); }},
        {"ungrabbed", [](Stage &s) { s.slider->ungrabMouse(); }, [](Stage &) {}},
        {"another item grabs", [](Stage &s) { s.other->grabMouse(); },
         [](Stage &s) { s.other->ungrabMouse(); }},
        {"disabled", [](Stage &s) { s.slider->setEnabled(false); },
         [](Stage &s) { s.slider->setEnabled(true); }},
        {"hidden", [](Stage &s) { s.slider->hide(); }, [](Stage &s) { s.slider->show(); }},
    };
    return all;
}

// Ways of losing the pointer after which the scene sends the slider the next press by mistake.
constexpr size_t lossesThatLeaveTheGrab = 3;

bool hasTimer(QObject *object)
{
    return !QAbstractEventDispatcher::instance()->registeredTimers(object).isEmpty();
}

class TimerCounter : public QObject
{
public:
    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        count += event->type() == QEvent::Timer ? 1 : 0;
        return false;
    }

    int count = 0;
};

} // namespace

Q_DECLARE_METATYPE(Input)
Q_DECLARE_METATYPE(Way)
Q_DECLARE_METATYPE(Moment)
Q_DECLARE_METATYPE(Step)

class tst_KELSlideControlPointer : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QApplication::setDoubleClickInterval(5000); }

    void knobFollowsThePointer_data() { addInputs(); }

    void knobFollowsThePointer()
    {
        QFETCH(Input, input);
        Stage stage;
        QVERIFY(stage.show());
        stage.press(input, onKnobAtZero);
        const QList<QPair<int, float>> steps = {{40, 20}, {41, 20.5F}, {150, 75}, {20, 10}, {0, 0}};
        int moves = 0;
        for (const auto &step : steps) {
            stage.move(input, onKnobAtZero + QPoint(step.first, 0));
            QCOMPARE(stage.slider->value(), step.second);
            QCOMPARE(stage.valueSignals(), ++moves);
        }
        stage.move(input, onKnobAtZero + QPoint(60, 0));
        stage.release(input, onKnobAtZero + QPoint(60, 0));
        QCOMPARE(stage.slider->value(), 30.0F);
        QCOMPARE(stage.takeNames(), u"press value value value value value value release"_s);
        // The knob is where the pointer left it.
        stage.press(input, onKnobAtZero + QPoint(60, 0));
        stage.move(input, onKnobAtZero + QPoint(80, 0));
        stage.release(input, onKnobAtZero + QPoint(80, 0));
        QCOMPARE(stage.slider->value(), 40.0F);
    }

    void verticalMotionDoesNotCount_data() { addInputs(); }

    void verticalMotionDoesNotCount()
    {
        QFETCH(Input, input);
        Stage stage;
        stage.slider->setValue(30);
        QVERIFY(stage.show());
        const QPoint grip = onKnobAtZero + QPoint(60, 0);
        stage.press(input, grip);
        for (const int y : {-15, 15, -100, 150}) {
            stage.signalNames.clear();
            stage.move(input, grip + QPoint(0, y));
            QCOMPARE(stage.slider->value(), 30.0F);
            stage.move(input, grip + QPoint(0, y - 1));
            QCOMPARE(stage.slider->value(), 30.0F);
            // The same value is told again.
            QCOMPARE(stage.valueSignals(), 2);
            stage.move(input, grip + QPoint(20, y));
            QCOMPARE(stage.slider->value(), 40.0F);
        }
        stage.release(input, grip);
    }

    void dragStopsAtTheBounds_data() { addInputs(); }

    void dragStopsAtTheBounds()
    {
        QFETCH(Input, input);
        Stage stage;
        stage.slider->setValue(50);
        QVERIFY(stage.show());
        const QPoint grip = onKnobAtZero + QPoint(100, 0);
        stage.press(input, grip);
        stage.move(input, grip + QPoint(101, 0));
        QCOMPARE(stage.slider->value(), 100.0F);
        stage.move(input, grip + QPoint(250, 0));
        QCOMPARE(stage.slider->value(), 100.0F);
        stage.move(input, grip - QPoint(101, 0));
        QCOMPARE(stage.slider->value(), 0.0F);
        stage.move(input, grip - QPoint(130, 0));
        QCOMPARE(stage.slider->value(), 0.0F);
        // The way beyond is not lost.
        stage.move(input, grip + QPoint(10, 0));
        QCOMPARE(stage.slider->value(), 55.0F);
        stage.release(input, grip);
    }

    void dragCountsFromThePress_data() { addInputs(); }

    void dragCountsFromThePress()
    {
        QFETCH(Input, input);
        Stage stage;
        stage.slider->setMinimun(-50);
        stage.slider->setMaximun(150);
        stage.slider->setValue(50);
        QVERIFY(stage.show());
        // Anywhere on the knob, which covers 120 to 150.
        for (const int x : {121, 135, 149}) {
            stage.slider->setValue(50);
            stage.press(input, QPoint(x, 120));
            stage.move(input, QPoint(x + 30, 120));
            QCOMPARE(stage.slider->value(), 80.0F);
            stage.move(input, QPoint(x - 60, 120));
            QCOMPARE(stage.slider->value(), -10.0F);
            stage.release(input, QPoint(x - 60, 120));
        }
    }

    void dragInSteps_data()
    {
        QTest::addColumn<int>("way");
        QTest::addColumn<float>("expected");
        QTest::addColumn<int>("signalCount");

        QTest::newRow("less than a step") << 19 << 50.0F << 0;
        QTest::newRow("less than a step down") << -19 << 50.0F << 0;
        QTest::newRow("one step") << 20 << 60.0F << 1;
        QTest::newRow("1.45 steps") << 29 << 60.0F << 1;
        QTest::newRow("1.5 steps") << 30 << 70.0F << 1;
        QTest::newRow("-1.5 steps") << -30 << 40.0F << 1;
        QTest::newRow("2.5 steps") << 50 << 80.0F << 1;
        QTest::newRow("-2.5 steps") << -50 << 30.0F << 1;
        QTest::newRow("beyond the maximum") << 190 << 100.0F << 1;
    }

    void dragInSteps()
    {
        QFETCH(int, way);
        QFETCH(float, expected);
        QFETCH(int, signalCount);
        for (const Input input : {Input::Mouse, Input::Touch}) {
            Stage stage;
            stage.slider->setValue(50);
            stage.slider->setStep(10);
            QVERIFY(stage.show());
            stage.signalNames.clear();
            const QPoint grip = onKnobAtZero + QPoint(100, 0);
            stage.press(input, grip);
            stage.move(input, grip + QPoint(way, 0));
            QCOMPARE(stage.slider->value(), expected);
            QCOMPARE(stage.valueSignals(), signalCount);
            // The way counts from the press, the step from the present value: back at the press, it
            // is a whole number of steps.
            stage.move(input, grip);
            QCOMPARE(stage.slider->value(), 50.0F);
            stage.release(input, grip);
        }
    }

    void dragTakesTheKnobBackAfterTheRectForm()
    {
        Stage stage;
        stage.slider->setboundRect(stageRect);
        QVERIFY(stage.show());
        // The knob begins 15 px further to the right, and is back in its place with the first move.
        stage.view.press(QPoint(60, 120));
        QCOMPARE(stage.takeNames(), u"press"_s);
        stage.view.move(QPoint(62, 120));
        QCOMPARE(stage.slider->value(), 1.0F);
        stage.view.release(QPoint(62, 120));
        stage.takeNames();
        stage.view.press(QPoint(60, 120));
        QCOMPARE(stage.takeNames(), u"press value"_s);
        QCOMPARE(stage.slider->value(), 20.0F);
        stage.view.release(QPoint(60, 120));
    }

    void dragWithReversedBounds()
    {
        OpenSlider slider;
        slider.setMinimun(100);
        slider.setMaximun(0);
        place(&slider, stageRect);
        slider.setValue(50);
        QCOMPARE(slider.value(), 0.0F);
        // The value is at the maximum, so at the right end.
        sendPress(&slider, QPointF(235, 120));
        QCOMPARE(slider.value(), 0.0F);
        sendMove(&slider, QPointF(215, 120)); // 10 units more, which is above the maximum
        QCOMPARE(slider.value(), 0.0F);
        sendMove(&slider, QPointF(255, 120)); // 10 units less, which is below the minimum
        QCOMPARE(slider.value(), 100.0F);
    }

    void pressOnTheKnobChangesNothing_data() { addInputs(); }

    void pressOnTheKnobChangesNothing()
    {
        QFETCH(Input, input);
        Stage stage;
        stage.slider->setValue(50);
        QVERIFY(stage.show());
        stage.signalNames.clear();
        const QPoint grip = onKnobAtZero + QPoint(100, 0);
        stage.press(input, grip);
        stage.release(input, grip);
        QCOMPARE(stage.takeNames(), u"press release click"_s);
        QCOMPARE(stage.slider->value(), 50.0F);
    }

    void squareOfTheKnobTakesHold_data()
    {
        QTest::addColumn<QPointF>("pos");

        QTest::newRow("centre") << QPointF(85, 120);
        QTest::newRow("left side") << QPointF(70, 120);
        QTest::newRow("right side") << QPointF(100, 120);
        QTest::newRow("top") << QPointF(85, 105);
        QTest::newRow("bottom") << QPointF(85, 135);
        QTest::newRow("top left corner, outside the circle") << QPointF(70, 105);
        QTest::newRow("top right corner, outside the circle") << QPointF(100, 105);
        QTest::newRow("bottom left corner, outside the circle") << QPointF(70, 135);
        QTest::newRow("bottom right corner, outside the circle") << QPointF(100, 135);
    }

    void squareOfTheKnobTakesHold()
    {
        QFETCH(QPointF, pos);
        OpenSlider slider;
        place(&slider, stageRect);
        slider.setValue(25);
        const QSignalSpy changed(&slider, &KELSlideControl::valueChanged);
        sendPress(&slider, pos);
        QCOMPARE(changed.count(), 0);
        sendMove(&slider, pos + QPointF(20, 7));
        QCOMPARE(slider.value(), 35.0F);
        QCOMPARE(changed.count(), 1);
    }

    void besideTheSquareOfTheKnobJumps_data()
    {
        QTest::addColumn<QPointF>("pos");

        QTest::newRow("just to the left") << QPointF(69.999, 120);
        QTest::newRow("just to the right") << QPointF(100.001, 120);
        QTest::newRow("just above") << QPointF(85, 104.999);
        QTest::newRow("just below") << QPointF(85, 135.001);
        QTest::newRow("far to the right") << QPointF(240, 120);
        QTest::newRow("below, at its left side") << QPointF(70, 139);
    }

    void besideTheSquareOfTheKnobJumps()
    {
        QFETCH(QPointF, pos);
        OpenSlider slider;
        place(&slider, stageRect);
        slider.setValue(25);
        const QSignalSpy changed(&slider, &KELSlideControl::valueChanged);
        sendPress(&slider, pos);
        QCOMPARE(changed.count(), 1);
        const float reached = qMin(100.0F, float((pos.x() - 20) / 2));
        QCOMPARE(slider.value(), reached);
        sendMove(&slider, pos - QPointF(20, 0));
        QCOMPARE(slider.value(), reached);
        QCOMPARE(changed.count(), 1);
    }

    void dragFollowsTheFormulaToTheBit()
    {
        const QRectF rect(0.3, 10, 173.7, 40);
        const float minimum = -1.1F;
        const float maximum = 7.7F;
        const float start = 2.3F;
        const QPointF grip(70.7, 30);
        int singleResults = 0;
        for (int i = -90; i <= 90; ++i) {
            OpenSlider slider;
            slider.setMinimun(minimum);
            slider.setMaximun(maximum);
            place(&slider, rect);
            slider.setValue(start);
            sendPress(&slider, grip);
            QVERIFY(slider.value() == start);
            const QPointF pos = grip + QPointF(i * 0.57, 0);
            sendMove(&slider, pos);

            const float range = maximum - minimum;
            const double way = (pos.x() - grip.x()) / (rect.width() - 30);
            const float expected = float(double(start) + double(range) * way);
            QVERIFY(slider.value() == expected);
            const float product = range * float(way);
            singleResults += start + product == expected ? 0 : 1;
        }
        // Less precision on the way would show.
        QVERIFY(singleResults > 10);
    }

    void pressOffTheKnobJumps_data()
    {
        QTest::addColumn<Input>("input");
        QTest::addColumn<int>("x");
        QTest::addColumn<float>("expected");

        for (const Input input : {Input::Mouse, Input::Touch}) {
            const char *device = input == Input::Mouse ? "mouse" : "touch";
            QTest::addRow("%s, beside the knob", device) << input << 52 << 16.0F;
            QTest::addRow("%s, half way", device) << input << 120 << 50.0F;
            QTest::addRow("%s, odd pixel", device) << input << 121 << 50.5F;
            QTest::addRow("%s, where the travel ends", device) << input << 220 << 100.0F;
            QTest::addRow("%s, beyond the travel", device) << input << 247 << 100.0F;
        }
    }

    void pressOffTheKnobJumps()
    {
        QFETCH(Input, input);
        QFETCH(int, x);
        QFETCH(float, expected);
        for (const int y : {103, 120, 138}) {
            Stage stage;
            QVERIFY(stage.show());
            stage.press(input, QPoint(x, y));
            QCOMPARE(stage.slider->value(), expected);
            stage.release(input, QPoint(x, y));
            QCOMPARE(stage.takeNames(), u"press value release click"_s);
            QCOMPARE(stage.slider->value(), expected);
        }
    }

    void jumpInSteps_data()
    {
        QTest::addColumn<int>("x");
        QTest::addColumn<float>("expected");
        QTest::addColumn<bool>("changes");

        // The knob of value 50 covers 120 to 150.
        QTest::newRow("less than a step to the right") << 151 << 50.0F << false;
        QTest::newRow("less than a step to the left") << 86 << 50.0F << false;
        QTest::newRow("one step to the left") << 80 << 30.0F << true;
        QTest::newRow("1.5 steps to the right") << 180 << 90.0F << true;
        QTest::newRow("1.5 steps to the left") << 60 << 30.0F << true;
        QTest::newRow("2.5 steps to the left") << 20 << 10.0F << true;
        QTest::newRow("beyond the maximum") << 240 << 100.0F << true;
    }

    void jumpInSteps()
    {
        QFETCH(int, x);
        QFETCH(float, expected);
        QFETCH(bool, changes);
        Stage stage;
        stage.slider->setValue(50);
        stage.slider->setStep(20);
        QVERIFY(stage.show());
        stage.signalNames.clear();
        stage.view.press(QPoint(x, 120));
        QCOMPARE(stage.slider->value(), expected);
        QCOMPARE(stage.valueSignals(), changes ? 1 : 0);
        // Neither way the press took hold of the knob.
        stage.view.move(QPoint(x + 100, 120));
        stage.view.move(QPoint(x - 100, 120));
        QCOMPARE(stage.slider->value(), expected);
        stage.view.release(QPoint(x, 120));
    }

    void jumpPutsTheLeftSideOfTheKnobBelowTheFinger()
    {
        Stage stage;
        QVERIFY(stage.show());
        stage.view.click(QPoint(120, 120));
        QCOMPARE(stage.slider->value(), 50.0F);
        stage.takeNames();
        for (const int x : {120, 135, 150}) {
            stage.view.click(QPoint(x, 120));
            QCOMPARE(stage.takeNames(), u"press release click"_s);
        }
        stage.view.click(QPoint(119, 120));
        QCOMPARE(stage.takeNames(), u"press value release click"_s);
        QCOMPARE(stage.slider->value(), 49.5F);
    }

    void jumpIsNoDrag_data() { addInputs(); }

    void jumpIsNoDrag()
    {
        QFETCH(Input, input);
        Stage stage;
        QVERIFY(stage.show());
        stage.press(input, QPoint(120, 120));
        for (const int x : {130, 200, 30}) {
            stage.move(input, QPoint(x, 120));
            QCOMPARE(stage.slider->value(), 50.0F);
        }
        stage.release(input, QPoint(30, 120));
        QCOMPARE(stage.takeNames(), u"press value release"_s);
    }

    void jumpFollowsTheFormulaToTheBit()
    {
        const QRectF rect(0.3, 10, 173.7, 40);
        const float minimum = -1.1F;
        const float maximum = 7.7F;
        int singleResults = 0;
        for (int i = 0; i < 200; ++i) {
            OpenSlider slider;
            slider.setMinimun(minimum);
            slider.setMaximun(maximum);
            place(&slider, rect);
            const QPointF pos(0.3 + i * 0.717, 12); // above the knob
            sendPress(&slider, pos);

            const float range = maximum - minimum;
            const double place = (pos.x() - rect.x()) / (rect.width() - 30);
            const float expected = float(double(minimum) + double(range) * place);
            QVERIFY(slider.value() == qBound(minimum, expected, maximum));
            const float product = range * float(place);
            singleResults += minimum + product == expected ? 0 : 1;
        }
        QVERIFY(singleResults > 10);
    }

    void jumpByTheRectangleOfTheRecord()
    {
        OpenSlider slider;
        place(&slider, stageRect);
        slider.style()->boundRect = QRectF(40, 100, 130, 40);
        sendPress(&slider, QPointF(65, 120));
        QCOMPARE(slider.value(), 25.0F);
        // The knob is at 65 now; 100 px of travel.
        sendPress(&slider, QPointF(80, 120));
        sendMove(&slider, QPointF(90, 120));
        QCOMPARE(slider.value(), 35.0F);
    }

    void controlWithoutTravel_data()
    {
        QTest::addColumn<qreal>("width");
        QTest::addColumn<QPointF>("pressPos");
        QTest::addColumn<qreal>("way");
        QTest::addColumn<float>("expected");

        // The knob of value 50 covers the control, but not its upper edge.
        const QPointF onKnob(100, 40);
        QTest::newRow("as wide as the knob, dragged right") << 30.0 << onKnob << 5.0 << 100.0F;
        QTest::newRow("as wide as the knob, dragged left") << 30.0 << onKnob << -5.0 << 0.0F;
        QTest::newRow("as wide as the knob, not dragged") << 30.0 << onKnob << 0.0 << notANumber;
        QTest::newRow("as wide as the knob, jump") << 30.0 << QPointF(105, 21) << 0.0 << 100.0F;
        QTest::newRow("as wide as the knob, jump to the left")
            << 30.0 << QPointF(95, 21) << 0.0 << 0.0F;
        QTest::newRow("as wide as the knob, jump to the corner")
            << 30.0 << QPointF(100, 21) << 0.0 << notANumber;
        QTest::newRow("narrower, dragged right") << 10.0 << onKnob << 5.0 << 25.0F;
        QTest::newRow("narrower, dragged left") << 10.0 << onKnob << -5.0 << 75.0F;
        QTest::newRow("narrower, jump") << 10.0 << QPointF(95, 21) << 0.0 << 25.0F;
        QTest::newRow("without width, dragged right") << 0.0 << onKnob << 6.0 << 30.0F;
        QTest::newRow("negative width, dragged right") << -20.0 << onKnob << 5.0 << 40.0F;
    }

    void controlWithoutTravel()
    {
        QFETCH(qreal, width);
        QFETCH(QPointF, pressPos);
        QFETCH(qreal, way);
        QFETCH(float, expected);
        OpenSlider slider;
        slider.setValue(50);
        slider.setboundRect(100, 20, width, 40);
        sendPress(&slider, pressPos);
        sendMove(&slider, pressPos + QPointF(way, 0));
        if (qIsNaN(expected))
            QVERIFY(qIsNaN(slider.value()));
        else
            QCOMPARE(slider.value(), expected);
        KelImage::paint(&slider, QSize(200, 100));
        place(&slider, stageRect);
        slider.setValue(25);
        QCOMPARE(slider.value(), 25.0F);
    }

    void oddBounds_data()
    {
        QTest::addColumn<float>("minimum");
        QTest::addColumn<float>("maximum");
        QTest::addColumn<float>("expected");

        QTest::newRow("equal") << 5.0F << 5.0F << 5.0F;
        QTest::newRow("reversed, above the maximum") << 80.0F << 20.0F << 20.0F;
        QTest::newRow("no upper limit") << 0.0F << infinite << infinite;
        QTest::newRow("no lower limit") << -infinite << 0.0F << notANumber;
        QTest::newRow("no limits") << -infinite << infinite << notANumber;
        QTest::newRow("not a number") << notANumber << notANumber << notANumber;
        QTest::newRow("as far apart as floats") << -largest << largest << largest;
    }

    void oddBounds()
    {
        QFETCH(float, minimum);
        QFETCH(float, maximum);
        QFETCH(float, expected);
        for (const float step : {0.0F, 10.0F}) {
            Stage stage;
            stage.slider->setMinimun(minimum);
            stage.slider->setMaximun(maximum);
            QVERIFY(stage.show());
            // Above the knob, wherever that is.
            stage.view.press(QPoint(120, 102));
            if (qIsNaN(expected))
                QVERIFY(qIsNaN(stage.slider->value()));
            else
                QVERIFY(stage.slider->value() == expected);
            stage.view.release(QPoint(120, 102));
            // Whatever follows is harmless.
            stage.slider->setStep(step);
            for (const QPoint &pos : {onKnobAtZero, QPoint(120, 120), QPoint(235, 120)}) {
                stage.view.press(pos);
                stage.view.move(pos + QPoint(40, 0));
                stage.view.grab();
                stage.view.move(pos - QPoint(15, 0));
                stage.view.release(pos);
                stage.view.grab();
            }
            // Well again with good bounds.
            stage.slider->setStep(0);
            stage.slider->setMinimun(0);
            stage.slider->setMaximun(100);
            stage.slider->setValue(0);
            stage.view.click(QPoint(120, 120));
            QCOMPARE(stage.slider->value(), 50.0F);
        }
    }

    void draggingRemainsAfterTheRelease()
    {
        Stage stage;
        QVERIFY(stage.show());
        stage.view.press(onKnobAtZero);
        stage.view.release(onKnobAtZero);
        sendMove(stage.slider, onKnobAtZero + QPoint(40, 0));
        QCOMPARE(stage.slider->value(), 20.0F);
        // The scene itself sends no move to a slider that is not pressed.
        stage.view.move(onKnobAtZero + QPoint(80, 0));
        QCOMPARE(stage.slider->value(), 20.0F);
    }

    void pressBesideTheKnobEndsDragging()
    {
        Stage stage;
        QVERIFY(stage.show());
        sendMove(stage.slider, QPointF(200, 120));
        QCOMPARE(stage.slider->value(), 0.0F);
        stage.view.click(onKnobAtZero);
        stage.view.click(QPoint(120, 120));
        QCOMPARE(stage.slider->value(), 50.0F);
        sendMove(stage.slider, QPointF(160, 120));
        QCOMPARE(stage.slider->value(), 50.0F);

        // Also when the jump is less than a step.
        stage.view.click(QPoint(130, 120));
        stage.slider->setStep(90);
        stage.view.click(QPoint(170, 120));
        stage.slider->setStep(0);
        sendMove(stage.slider, QPointF(10, 120));
        QCOMPARE(stage.slider->value(), 50.0F);
    }

    void pressOnTheKnobBeginsDraggingAnew()
    {
        Stage stage;
        QVERIFY(stage.show());
        stage.view.press(onKnobAtZero);
        stage.view.move(onKnobAtZero + QPoint(40, 0));
        stage.view.release(onKnobAtZero + QPoint(40, 0));
        stage.slider->setValue(50);
        stage.view.press(QPoint(145, 120));
        stage.view.move(QPoint(155, 120));
        QCOMPARE(stage.slider->value(), 55.0F);
        stage.view.release(QPoint(155, 120));
    }

    void secondButtonDuringADrag()
    {
        // The scene sends every further button to the item that is pressed.
        Stage stage;
        QVERIFY(stage.show());
        const Qt::MouseButtons both = Qt::LeftButton | Qt::RightButton;
        stage.view.press(onKnobAtZero);
        stage.view.move(onKnobAtZero + QPoint(40, 0));
        QCOMPARE(stage.slider->value(), 20.0F);
        // On the knob: the drag starts again from here.
        stage.sendMouse(QEvent::MouseButtonPress, QPoint(85, 120), Qt::RightButton, both);
        QCOMPARE(stage.slider->value(), 20.0F);
        stage.view.move(QPoint(95, 120));
        QCOMPARE(stage.slider->value(), 25.0F);
        // Beside it: a jump, and no drag any more.
        stage.sendMouse(QEvent::MouseButtonPress, QPoint(180, 120), Qt::MiddleButton,
                        both | Qt::MiddleButton);
        QCOMPARE(stage.slider->value(), 80.0F);
        stage.view.move(QPoint(120, 120));
        QCOMPARE(stage.slider->value(), 80.0F);
        stage.sendMouse(QEvent::MouseButtonRelease, QPoint(120, 120), Qt::MiddleButton, both);
        stage.sendMouse(QEvent::MouseButtonRelease, QPoint(120, 120), Qt::RightButton,
                        Qt::LeftButton);
        stage.view.release(QPoint(120, 120));
        QVERIFY(!stage.slider->isMouseDown());
    }

    void otherButtonsAreIgnored_data()
    {
        QTest::addColumn<int>("button");

        QTest::newRow("right") << int(Qt::RightButton);
        QTest::newRow("middle") << int(Qt::MiddleButton);
        QTest::newRow("back") << int(Qt::BackButton);
    }

    void otherButtonsAreIgnored()
    {
        QFETCH(int, button);
        Stage stage;
        QVERIFY(stage.show());
        for (const QPoint &pos : {onKnobAtZero, QPoint(120, 120)}) {
            stage.pressWith(pos, Qt::MouseButton(button));
            sendMove(stage.slider, pos + QPoint(40, 0));
            stage.view.release(pos, Qt::MouseButton(button));
        }
        QCOMPARE(stage.takeNames(), QString());
        QCOMPARE(stage.slider->value(), 0.0F);
    }

    void everyAcceptedButtonActs()
    {
        Stage stage;
        stage.slider->setAcceptedMouseButtons(Qt::AllButtons);
        QVERIFY(stage.show());
        stage.pressWith(QPoint(120, 120), Qt::RightButton);
        stage.view.release(QPoint(120, 120), Qt::RightButton);
        QCOMPARE(stage.slider->value(), 50.0F);
        sendMove(stage.slider, QPointF(180, 120));
        QCOMPARE(stage.slider->value(), 50.0F);
        stage.pressWith(QPoint(135, 120), Qt::MiddleButton);
        QCOMPARE(stage.slider->value(), 50.0F);
        sendMove(stage.slider, QPointF(155, 120));
        QCOMPARE(stage.slider->value(), 60.0F);
        stage.view.release(QPoint(155, 120), Qt::MiddleButton);
    }

    void doubleClickBesideTheKnob_data() { addInputs(); }

    void doubleClickBesideTheKnob()
    {
        QFETCH(Input, input);
        Stage stage;
        stage.slider->setValue(100);
        QVERIFY(stage.show());
        stage.signalNames.clear();
        // Above the knob, where no value brings it.
        const QPoint pos(120, 102);
        stage.press(input, pos);
        stage.release(input, pos);
        if (input == Input::Mouse)
            stage.view.doubleClickPress(pos);
        else
            stage.press(input, pos);
        stage.release(input, pos);
        QCOMPARE(stage.takeNames(),
                 u"press value release click press value double release click"_s);
        QCOMPARE(stage.slider->value(), 50.0F);
    }

    void doubleClickOnTheKnob_data() { addInputs(); }

    void doubleClickOnTheKnob()
    {
        QFETCH(Input, input);
        Stage stage;
        QVERIFY(stage.show());
        stage.press(input, onKnobAtZero);
        stage.release(input, onKnobAtZero);
        if (input == Input::Mouse)
            stage.view.doubleClickPress(onKnobAtZero);
        else
            stage.press(input, onKnobAtZero);
        stage.move(input, onKnobAtZero + QPoint(40, 0));
        stage.release(input, onKnobAtZero + QPoint(40, 0));
        QCOMPARE(stage.takeNames(), u"press release click press double value release"_s);
        QCOMPARE(stage.slider->value(), 20.0F);
    }

    void valueComesAfterThePress_data() { addInputs(); }

    void valueComesAfterThePress()
    {
        QFETCH(Input, input);
        Stage stage;
        QVERIFY(stage.show());
        QList<float> valuesAtPress;
        QPointF posOfPress;
        connect(stage.slider, &KELSlideControl::mousePress, this, [&](const QPointF &pos) {
            valuesAtPress.append(stage.slider->value());
            posOfPress = pos;
            QVERIFY(stage.slider->isMouseDown());
        });
        stage.press(input, QPoint(120, 130));
        QCOMPARE(stage.takeNames(), u"press value"_s);
        QCOMPARE(valuesAtPress, QList<float>({0}));
        QCOMPARE(posOfPress, QPointF(120, 130));
        stage.release(input, QPoint(120, 130));
        QCOMPARE(stage.takeNames(), u"release click"_s);
        QVERIFY(!stage.slider->isMouseDown());
    }

    void smallDragIsAClick_data()
    {
        QTest::addColumn<Input>("input");
        QTest::addColumn<QPoint>("step");
        QTest::addColumn<bool>("clicks");

        QTest::newRow("mouse, ten") << Input::Mouse << QPoint(6, 4) << true;
        QTest::newRow("mouse, eleven") << Input::Mouse << QPoint(6, 5) << false;
        QTest::newRow("touch, ten") << Input::Touch << QPoint(6, 4) << true;
        QTest::newRow("touch, eleven") << Input::Touch << QPoint(6, 5) << false;
    }

    void smallDragIsAClick()
    {
        QFETCH(Input, input);
        QFETCH(QPoint, step);
        QFETCH(bool, clicks);
        Stage stage;
        QVERIFY(stage.show());
        stage.press(input, onKnobAtZero);
        stage.move(input, onKnobAtZero + step);
        QCOMPARE(stage.slider->value(), 3.0F);
        stage.release(input, onKnobAtZero + step);
        QCOMPARE(stage.takeNames(),
                 clicks ? u"press value release click"_s : u"press value release"_s);
    }

    void clickIsLostBeforeTheValueChanges()
    {
        Stage stage;
        QVERIFY(stage.show());
        QList<bool> pending;
        connect(stage.slider, &KELSlideControl::valueChanged, this,
                [&] { pending.append(hasTimer(stage.slider)); });
        stage.view.press(onKnobAtZero);
        QVERIFY(hasTimer(stage.slider));
        stage.view.move(onKnobAtZero + QPoint(4, 0));
        stage.view.move(onKnobAtZero + QPoint(40, 0));
        QCOMPARE(pending, QList<bool>({true, false}));
        stage.view.release(onKnobAtZero + QPoint(40, 0));
    }

    void holdIsAClickAndNoLongPress_data() { addInputs(); }

    void holdIsAClickAndNoLongPress()
    {
        QFETCH(Input, input);
        Stage stage;
        auto *menu = new QMenu;
        menu->addAction(u"One"_s);
        stage.slider->style()->contextMenu = menu;
        const QSignalSpy opened(menu, &QMenu::aboutToShow);
        connect(menu, &QMenu::aboutToShow, menu,
                [menu] { QTimer::singleShot(0, menu, &QMenu::close); });
        TimerCounter timers;
        stage.slider->installEventFilter(&timers);
        QVERIFY(stage.show());
        for (const QPoint &pos : {onKnobAtZero, QPoint(120, 120)}) {
            stage.slider->setValue(0);
            stage.signalNames.clear();
            timers.count = 0;
            QElapsedTimer clock;
            clock.start();
            stage.press(input, pos);
            QTRY_VERIFY(timers.count > 0);
            QVERIFY(clock.elapsed() >= 490);
            QVERIFY(stage.slider->isMouseDown());
            const QString names = stage.takeNames();
            QCOMPARE(names, pos == onKnobAtZero ? u"press"_s : u"press value"_s);
            stage.release(input, pos);
            QCOMPARE(stage.takeNames(), u"release click"_s);
            QVERIFY(!hasTimer(stage.slider));
        }
        QCOMPARE(opened.count(), 0);
    }

    void disabledSliderGetsNothing_data() { addInputs(); }

    void disabledSliderGetsNothing()
    {
        QFETCH(Input, input);
        Stage stage;
        stage.slider->setEnabled(false);
        QVERIFY(stage.show());
        for (const QPoint &pos : {onKnobAtZero, QPoint(120, 120)}) {
            stage.press(input, pos);
            stage.move(input, pos + QPoint(30, 0));
            stage.release(input, pos + QPoint(30, 0));
        }
        QCOMPARE(stage.takeNames(), QString());
        QCOMPARE(stage.slider->value(), 0.0F);
        stage.slider->setEnabled(true);
        stage.press(input, QPoint(120, 120));
        stage.release(input, QPoint(120, 120));
        QCOMPARE(stage.slider->value(), 50.0F);
    }

    void valueSetInThePressSlot()
    {
        Stage stage;
        QVERIFY(stage.show());
        float wanted = 5;
        connect(stage.slider, &KELSlideControl::mousePress, this,
                [&] { stage.slider->setValue(wanted); });
        // The knob moves by 10 px and stays below the finger: the drag begins at the new value.
        stage.view.press(QPoint(45, 120));
        QCOMPARE(stage.slider->value(), 5.0F);
        stage.view.move(QPoint(65, 120));
        QCOMPARE(stage.slider->value(), 15.0F);
        stage.view.release(QPoint(65, 120));
        // The knob moves away: a jump.
        wanted = 90;
        stage.view.press(QPoint(60, 120));
        QCOMPARE(stage.slider->value(), 20.0F);
        stage.view.move(QPoint(100, 120));
        QCOMPARE(stage.slider->value(), 20.0F);
        stage.view.release(QPoint(100, 120));
        // The knob comes below the finger: no jump.
        wanted = 50;
        stage.view.press(QPoint(130, 120));
        QCOMPARE(stage.slider->value(), 50.0F);
        stage.view.move(QPoint(140, 120));
        QCOMPARE(stage.slider->value(), 55.0F);
        stage.view.release(QPoint(140, 120));
    }

    void geometryChangedInThePressSlot()
    {
        Stage stage;
        stage.view.ownScene.setItemIndexMethod(QGraphicsScene::NoIndex);
        QVERIFY(stage.show());
        QRectF rect;
        connect(stage.slider, &KELSlideControl::mousePress, this,
                [&] { place(stage.slider, rect); });
        // Half the travel: the jump goes by it.
        rect = QRectF(20, 100, 130, 40);
        stage.view.press(QPoint(70, 120));
        QCOMPARE(stage.slider->value(), 50.0F);
        stage.view.release(QPoint(70, 120));
        // The knob leaves the finger, then comes back below it.
        rect = QRectF(60, 100, 130, 40);
        stage.view.press(QPoint(80, 120));
        QCOMPARE(stage.slider->value(), 20.0F);
        stage.view.release(QPoint(80, 120));
        rect = QRectF(140, 100, 230, 40);
        stage.takeNames();
        stage.view.press(QPoint(185, 120));
        QCOMPARE(stage.takeNames(), u"press"_s);
        stage.view.move(QPoint(205, 120));
        QCOMPARE(stage.slider->value(), 30.0F);
        // A change during the drag counts from the next move on.
        place(stage.slider, QRectF(140, 100, 130, 40));
        stage.view.move(QPoint(195, 120));
        QCOMPARE(stage.slider->value(), 30.0F);
        stage.view.release(QPoint(195, 120));
    }

    void boundsChangedInThePressSlot()
    {
        Stage stage;
        QVERIFY(stage.show());
        connect(stage.slider, &KELSlideControl::mousePress, this, [&] {
            stage.slider->setMinimun(-100);
            stage.slider->setMaximun(300);
        });
        stage.view.press(QPoint(120, 120));
        QCOMPARE(stage.slider->value(), 100.0F);
        stage.view.release(QPoint(120, 120));
        stage.view.press(QPoint(130, 120));
        stage.view.move(QPoint(150, 120));
        QCOMPARE(stage.slider->value(), 140.0F);
        // Also during the drag.
        stage.slider->setMaximun(100);
        stage.view.move(QPoint(110, 120));
        QCOMPARE(stage.slider->value(), 80.0F);
        stage.view.release(QPoint(110, 120));
    }

    void valueSetInTheValueSlot()
    {
        Stage stage;
        QVERIFY(stage.show());
        connect(stage.slider, &KELSlideControl::valueChanged, this, [&] {
            if (stage.slider->value() > 40)
                stage.slider->setValue(40);
        });
        stage.view.press(onKnobAtZero);
        stage.view.move(onKnobAtZero + QPoint(150, 0));
        QCOMPARE(stage.slider->value(), 40.0F);
        QCOMPARE(stage.valueSignals(), 2);
        stage.view.move(onKnobAtZero + QPoint(60, 0));
        QCOMPARE(stage.slider->value(), 30.0F);
        stage.view.release(onKnobAtZero + QPoint(60, 0));
        stage.view.click(QPoint(200, 120));
        QCOMPARE(stage.slider->value(), 40.0F);
        // The knob is where the last value put it.
        stage.takeNames();
        stage.view.click(QPoint(101, 120));
        QCOMPARE(stage.takeNames(), u"press release click"_s);
    }

    void sliderInAScaledView_data()
    {
        QTest::addColumn<Input>("input");
        QTest::addColumn<qreal>("scale");

        for (const Input input : {Input::Mouse, Input::Touch}) {
            const char *device = input == Input::Mouse ? "mouse" : "touch";
            for (const qreal scale : {0.5, 1.5, 2.0})
                QTest::addRow("%s, %g", device, scale) << input << scale;
        }
    }

    void sliderInAScaledView()
    {
        QFETCH(Input, input);
        QFETCH(qreal, scale);
        Stage stage;
        stage.view.resize(800, 600);
        stage.view.ownScene.setSceneRect(QRectF(0, 0, 800 / scale, 600 / scale));
        stage.view.scale(scale, scale);
        QVERIFY(stage.show());
        const auto at = [&](const QPointF &pos) { return stage.view.at(stage.slider, pos); };
        stage.press(input, at(QPointF(36, 120)));
        stage.move(input, at(QPointF(76, 120)));
        QCOMPARE(stage.slider->value(), 20.0F);
        stage.release(input, at(QPointF(76, 120)));
        stage.press(input, at(QPointF(160, 120)));
        QCOMPARE(stage.slider->value(), 70.0F);
        stage.release(input, at(QPointF(160, 120)));
    }

    void sliderInARotatedView()
    {
        Stage stage;
        stage.view.resize(400, 400);
        stage.view.ownScene.setSceneRect(QRectF(0, 0, 400, 400));
        stage.view.rotate(90);
        QVERIFY(stage.show());
        const auto at = [&](const QPointF &pos) { return stage.view.at(stage.slider, pos); };
        const QPoint grip = at(QPointF(35, 120));
        stage.view.press(grip);
        stage.view.move(grip + QPoint(40, 0)); // across the slider
        QCOMPARE(stage.slider->value(), 0.0F);
        stage.view.move(grip + QPoint(0, 40));
        QCOMPARE(stage.slider->value(), 20.0F);
        stage.view.release(grip + QPoint(0, 40));
        stage.view.click(at(QPointF(160, 120)));
        QCOMPARE(stage.slider->value(), 70.0F);
    }

    void sliderTurnedByItself()
    {
        Stage stage;
        stage.slider->setTransformOriginPoint(135, 120);
        stage.slider->setRotation(180);
        stage.slider->setPos(30, 50);
        QVERIFY(stage.show());
        const QPoint grip = stage.view.at(stage.slider, QPointF(35, 120));
        QCOMPARE(grip, QPoint(265, 170));
        stage.view.press(grip);
        stage.view.move(grip - QPoint(40, 0));
        QCOMPARE(stage.slider->value(), 20.0F);
        stage.view.release(grip - QPoint(40, 0));
        stage.view.click(stage.view.at(stage.slider, QPointF(160, 120)));
        QCOMPARE(stage.slider->value(), 70.0F);
    }

    void sliderInAParentThatBeginsElsewhere()
    {
        Stage stage;
        auto *parent = new PlainParent(QRectF(40, 10, 300, 80));
        auto *slider = new OpenSlider(parent);
        slider->setboundRect(0, 0, 230, 40);
        stage.view.ownScene.addItem(parent);
        QVERIFY(stage.show());
        QCOMPARE(slider->boundingRect(), QRectF(40, 10, 230, 40));
        const QSignalSpy changed(slider, &KELSlideControl::valueChanged);
        // A jump goes by the stored rectangle.
        stage.view.click(QPoint(150, 30));
        QCOMPARE(slider->value(), 75.0F);
        QCOMPARE(changed.count(), 1);
        // So does the knob: 150 to 180 across, 5 to 35 down.
        stage.view.press(QPoint(165, 20));
        QCOMPARE(changed.count(), 1);
        stage.view.move(QPoint(185, 20));
        QCOMPARE(slider->value(), 85.0F);
        stage.view.release(QPoint(185, 20));
        stage.view.click(QPoint(185, 45));
        QCOMPARE(slider->value(), 92.5F);
    }

    void movesAfterTheLossDoNotDrag_data()
    {
        QTest::addColumn<Step>("lose");
        QTest::addColumn<Step>("restore");
        QTest::addColumn<bool>("atOnce");

        for (const Loss &loss : losses()) {
            QTest::addRow("%s, at once", loss.name) << loss.lose << loss.restore << true;
            QTest::addRow("%s, later", loss.name) << loss.lose << loss.restore << false;
        }
    }

    void movesAfterTheLossDoNotDrag()
    {
        QFETCH(Step, lose);
        QFETCH(Step, restore);
        QFETCH(bool, atOnce);
        Stage stage;
        QVERIFY(stage.show());
        stage.view.press(onKnobAtZero);
        stage.view.move(onKnobAtZero + QPoint(40, 0));
        QCOMPARE(stage.slider->value(), 20.0F);
        stage.takeNames();
        lose(stage);
        if (!atOnce) {
            for (int i = 0; i < 5; ++i)
                QCoreApplication::processEvents();
        }
        stage.view.move(onKnobAtZero + QPoint(60, 0));
        QCOMPARE(stage.slider->value(), 20.0F);
        QTRY_VERIFY(!stage.slider->style()->isMouseDown);
        stage.view.move(onKnobAtZero + QPoint(80, 0));
        restore(stage);
        QCoreApplication::processEvents();
        // The finger is still down, or has been lifted elsewhere.
        stage.view.move(onKnobAtZero + QPoint(100, 0));
        QCOMPARE(stage.slider->value(), 20.0F);
        QCOMPARE(stage.takeNames(), QString());
        stage.view.release(onKnobAtZero + QPoint(100, 0));
        QCOMPARE(stage.slider->value(), 20.0F);

        // The next drag works.
        stage.view.press(onKnobAtZero + QPoint(40, 0));
        stage.view.move(onKnobAtZero + QPoint(60, 0));
        QCOMPARE(stage.slider->value(), 30.0F);
        stage.view.release(onKnobAtZero + QPoint(60, 0));
    }

    void pressByMistakeNeitherJumpsNorDrags_data()
    {
        QTest::addColumn<Step>("lose");
        QTest::addColumn<Step>("restore");
        QTest::addColumn<QPoint>("firstPress");
        QTest::addColumn<Input>("input");
        QTest::addColumn<bool>("onOther");

        for (size_t i = 0; i < lossesThatLeaveTheGrab; ++i) {
            const Loss &loss = losses()[i];
            for (const Input input : {Input::Mouse, Input::Touch}) {
                const char *device = input == Input::Mouse ? "mouse" : "touch";
                for (const bool onOther : {true, false}) {
                    const char *where = onOther ? "on another control" : "on nothing";
                    QTest::addRow("%s after a press on the knob, %s %s", loss.name, device, where)
                        << loss.lose << loss.restore << onKnobAtZero << input << onOther;
                    QTest::addRow("%s after a jump, %s %s", loss.name, device, where)
                        << loss.lose << loss.restore << QPoint(120, 120) << input << onOther;
                }
            }
        }
    }

    void pressByMistakeNeitherJumpsNorDrags()
    {
        QFETCH(Step, lose);
        QFETCH(Step, restore);
        QFETCH(QPoint, firstPress);
        QFETCH(Input, input);
        QFETCH(bool, onOther);
        Stage stage;
        QVERIFY(stage.show());
        const QSignalSpy clicked(stage.other, &KELRoundRectControl::mouseClicked);
        stage.view.press(firstPress);
        lose(stage);
        QTRY_VERIFY(!stage.slider->style()->isMouseDown);
        // The release went elsewhere: the scene still takes the slider for the pressed one.
        QCOMPARE(stage.view.ownScene.mouseGrabberItem(), stage.slider.data());
        restore(stage);
        QCoreApplication::processEvents();
        const float value = stage.slider->value();
        stage.takeNames();

        const QPoint pos = onOther ? QPoint(340, 225) : QPoint(200, 200);
        if (input == Input::Mouse)
            stage.pressWith(pos, Qt::LeftButton);
        else
            stage.press(input, pos);
        stage.move(input, pos + QPoint(3, 0));
        stage.move(input, pos - QPoint(3, 0));
        stage.release(input, pos);
        QCOMPARE(stage.takeNames(), QString());
        QCOMPARE(stage.slider->value(), value);
        QCOMPARE(clicked.count(), onOther ? 1 : 0);
    }

    void nextPressOnTheSliderAfterALoss_data()
    {
        QTest::addColumn<Step>("lose");
        QTest::addColumn<Step>("restore");
        QTest::addColumn<Input>("input");

        for (const Loss &loss : losses()) {
            QTest::addRow("%s, mouse", loss.name) << loss.lose << loss.restore << Input::Mouse;
            QTest::addRow("%s, touch", loss.name) << loss.lose << loss.restore << Input::Touch;
        }
    }

    void nextPressOnTheSliderAfterALoss()
    {
        QFETCH(Step, lose);
        QFETCH(Step, restore);
        QFETCH(Input, input);
        Stage stage;
        QVERIFY(stage.show());
        const auto loseThePress = [&](const QPoint &pos) {
            stage.view.press(pos);
            lose(stage);
            QTRY_VERIFY(!stage.slider->style()->isMouseDown);
            restore(stage);
            QCoreApplication::processEvents();
            stage.takeNames();
        };
        // One jump, not two.
        loseThePress(onKnobAtZero);
        stage.press(input, QPoint(120, 120));
        QCOMPARE(stage.takeNames(), u"press value"_s);
        QCOMPARE(stage.slider->value(), 50.0F);
        stage.move(input, QPoint(140, 120));
        stage.release(input, QPoint(140, 120));
        QCOMPARE(stage.takeNames(), u"release"_s);
        QCOMPARE(stage.slider->value(), 50.0F);
        // And a drag after a lost jump.
        loseThePress(QPoint(20, 120));
        QCOMPARE(stage.slider->value(), 0.0F);
        stage.press(input, onKnobAtZero);
        stage.move(input, onKnobAtZero + QPoint(40, 0));
        QCOMPARE(stage.slider->value(), 20.0F);
        stage.release(input, onKnobAtZero + QPoint(40, 0));
        // The window system may take it for the second of a double click.
        loseThePress(onKnobAtZero + QPoint(40, 0));
        stage.view.doubleClickPress(QPoint(160, 102));
        stage.view.release(QPoint(160, 102));
        QVERIFY(stage.takeNames().startsWith(QLatin1String("press value ")));
        QCOMPARE(stage.slider->value(), 70.0F);
    }

    void pointerLostInThePressSlot_data()
    {
        QTest::addColumn<Step>("lose");
        QTest::addColumn<Step>("restore");

        for (const Loss &loss : losses())
            QTest::newRow(loss.name) << loss.lose << loss.restore;
    }

    void pointerLostInThePressSlot()
    {
        QFETCH(Step, lose);
        QFETCH(Step, restore);
        Stage stage;
        QVERIFY(stage.show());
        auto *context = new QObject(&stage.view);
        connect(stage.slider, &KELSlideControl::mousePress, context, [&, context] {
            context->deleteLater();
            lose(stage);
        });
        stage.pressWith(onKnobAtZero, Qt::LeftButton);
        stage.view.move(onKnobAtZero + QPoint(40, 0));
        QCOMPARE(stage.slider->value(), 0.0F);
        QTRY_VERIFY(!stage.slider->style()->isMouseDown);
        restore(stage);
        QCoreApplication::processEvents();
        QCOMPARE(stage.takeNames(), u"press"_s);
        stage.view.click(QPoint(120, 120));
        QCOMPARE(stage.slider->value(), 50.0F);
    }

    void deletedInASlot_data()
    {
        QTest::addColumn<Moment>("moment");
        QTest::addColumn<bool>("onKnob");
        QTest::addColumn<Way>("way");
        QTest::addColumn<Input>("input");

        struct Case
        {
            const char *name;
            Moment moment;
            bool onKnob;
        };
        const Case cases[] = {{"press on the knob", Moment::Press, true},
                              {"press beside the knob", Moment::Press, false},
                              {"value of a jump", Moment::Jump, false},
                              {"value of the jump of a double click", Moment::SecondJump, false},
                              {"value of a drag", Moment::Drag, true},
                              {"release after a drag", Moment::Release, true},
                              {"release after a jump", Moment::Release, false},
                              {"click on the knob", Moment::Click, true},
                              {"click beside the knob", Moment::Click, false}};
        const QList<QPair<Way, const char *>> ways = {{Way::Delete, "delete"},
                                                      {Way::DeleteLater, "deleteLater"},
                                                      {Way::ClearScene, "scene cleared"},
                                                      {Way::DeleteParent, "parent deleted"}};
        for (const Case &one : cases) {
            for (const auto &way : ways) {
                for (const Input input : {Input::Mouse, Input::Touch}) {
                    QTest::addRow("%s, %s, %s", one.name, way.second,
                                  input == Input::Mouse ? "mouse" : "touch")
                        << one.moment << one.onKnob << way.first << input;
                }
            }
        }
    }

    void deletedInASlot()
    {
        QFETCH(Moment, moment);
        QFETCH(bool, onKnob);
        QFETCH(Way, way);
        QFETCH(Input, input);
        Stage stage;
        QVERIFY(stage.show());
        int values = 0;
        const auto destroy = [&] {
            if (stage.destroyCalls > 0)
                return;
            stage.destroy(way);
            // Whoever still reads the slider is told so by the memory checker; signals are told
            // here.
            stage.signalNames.clear();
        };
        const auto destroyAtValue = [&] {
            if (moment != Moment::SecondJump || ++values == 2)
                destroy();
        };
        if (moment == Moment::Press)
            connect(stage.slider, &KELSlideControl::mousePress, &stage.view, destroy);
        else if (moment == Moment::Release)
            connect(stage.slider, &KELSlideControl::mouseRelease, &stage.view, destroy);
        else if (moment == Moment::Click)
            connect(stage.slider, &KELSlideControl::mouseClicked, &stage.view, destroy);
        else
            connect(stage.slider, &KELSlideControl::valueChanged, &stage.view, destroyAtValue);

        const QPoint pos = onKnob ? onKnobAtZero : QPoint(120, 102);
        stage.press(input, pos);
        if (moment == Moment::SecondJump) {
            stage.release(input, pos);
            if (input == Input::Mouse)
                stage.view.doubleClickPress(pos);
            else
                stage.press(input, pos);
        }
        if (moment != Moment::Click) {
            stage.move(input, pos + QPoint(40, 0));
            stage.move(input, pos + QPoint(60, 0));
        }
        stage.release(input, pos);
        QCOMPARE(stage.destroyCalls, 1);
        if (way == Way::DeleteLater)
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        else
            QCOMPARE(stage.signalNames, QStringList());
        QVERIFY(!stage.slider);
        QCOMPARE(stage.other.isNull(), way == Way::ClearScene);
        QVERIFY(stage.nextControlIsClicked(input));
    }

private:
    static void addInputs()
    {
        QTest::addColumn<Input>("input");
        QTest::newRow("mouse") << Input::Mouse;
        QTest::newRow("touch") << Input::Touch;
    }
};

KEL_TEST_MAIN(tst_KELSlideControlPointer)
#include "tst_kelslidecontrolpointer.moc"
