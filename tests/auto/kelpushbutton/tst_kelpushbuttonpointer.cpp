// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "keltest.h"

#include <kelpushbutton.h>

namespace {

const QColor pressedColour(50, 70, 100, 200);
const QColor restColour(0, 0, 0, 20);

enum class Input { Mouse, Touch };

// A shown button that writes its signals down.
class Stage
{
public:
    Stage() : button(new KELPushButton)
    {
        button->setboundRect(100, 100, 120, 50);
        view.ownScene.addItem(button);
        const auto note = [this](const char *name) { signalNames.append(QLatin1String(name)); };
        QObject::connect(button, &KELPushButton::mousePress, &view, [note] { note("press"); });
        QObject::connect(button, &KELPushButton::mouseRelease, &view, [note] { note("release"); });
        QObject::connect(button, &KELPushButton::mouseClicked, &view, [note] { note("click"); });
        QObject::connect(button, &KELPushButton::mouseDoubleClicked, &view,
                         [note] { note("double"); });
        QObject::connect(button, &KELPushButton::mouseLongPress, &view, [note] { note("long"); });
        QObject::connect(button, &KELPushButton::mouseEnter, &view, [note] { note("enter"); });
        QObject::connect(button, &KELPushButton::mouseLeave, &view, [note] { note("leave"); });
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

    QPoint centre() const { return view.centreOf(button); }

    void press(Input input) { press(input, centre()); }
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
    void release(Input input) { release(input, centre()); }

    // Moves the mouse with no button held.
    void hover(const QPoint &pos)
    {
        QMouseEvent event(QEvent::MouseMove, pos, view.viewport()->mapToGlobal(pos), Qt::NoButton,
                          Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(view.viewport(), &event);
    }

    // Press, release, click and so on in the order they came, without the hovering.
    QStringList gesture() const
    {
        QStringList names = signalNames;
        names.removeAll(u"enter"_s);
        names.removeAll(u"leave"_s);
        return names;
    }

    QColor shownBackground() const
    {
        KELPushButtonStyle option = KELPushButtonStyle();
        button->initStyleOption(&option, nullptr);
        return option.backgroundBrush.color();
    }

    // The colour at the corner of the button on the screen, inside its outline.
    QColor colourOnScreen() { return view.grab().toImage().pixelColor(110, 110); }

    KelTestView view;
    KELPushButton *const button;
    QStringList signalNames;
};

QColor over(const QColor &colour)
{
    QImage image(1, 1, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter(&image).fillRect(image.rect(), colour);
    return image.pixelColor(0, 0);
}

} // namespace

Q_DECLARE_METATYPE(Input)

void addInputs()
{
    QTest::addColumn<Input>("input");
    QTest::newRow("mouse") << Input::Mouse;
    QTest::newRow("touch") << Input::Touch;
}

class tst_KELPushButtonPointer : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QApplication::setDoubleClickInterval(5000); }

    void tapIsOneClick_data() { addInputs(); }

    void tapIsOneClick()
    {
        QFETCH(Input, input);
        Stage stage;
        QVERIFY(stage.show());
        stage.press(input);
        QCOMPARE(stage.gesture(), QStringList({u"press"_s}));
        stage.release(input);
        QCOMPARE(stage.gesture(), QStringList({u"press"_s, u"release"_s, u"click"_s}));
        QCoreApplication::processEvents();
        QCOMPARE(stage.gesture().size(), 3);
    }

    void tapsAreNeverLost_data() { addInputs(); }

    void tapsAreNeverLost()
    {
        QFETCH(Input, input);
        Stage stage;
        QVERIFY(stage.show());
        for (int tap = 0; tap < 10; ++tap) {
            // The window system makes every second press of a mouse a double click.
            if (input == Input::Mouse && tap % 2 == 1)
                stage.view.doubleClickPress(stage.centre());
            else
                stage.press(input);
            stage.release(input);
        }
        QCOMPARE(stage.signalNames.count(u"press"_s), 10);
        QCOMPARE(stage.signalNames.count(u"release"_s), 10);
        QCOMPARE(stage.signalNames.count(u"click"_s), 10);
        QCOMPARE(stage.signalNames.count(u"double"_s), 5);
        QCOMPARE(stage.signalNames.count(u"long"_s), 0);
    }

    void doubleClickIsReported_data() { addInputs(); }

    void doubleClickIsReported()
    {
        QFETCH(Input, input);
        Stage stage;
        QVERIFY(stage.show());
        stage.press(input);
        stage.release(input);
        if (input == Input::Mouse)
            stage.view.doubleClickPress(stage.centre());
        else
            stage.press(input);
        stage.release(input);
        QCOMPARE(stage.gesture().join(QLatin1Char(' ')),
                 u"press release click press double release click"_s);
    }

    void holdIsALongPress_data() { addInputs(); }

    void holdIsALongPress()
    {
        QFETCH(Input, input);
        Stage stage;
        QVERIFY(stage.show());
        stage.press(input);
        QTRY_COMPARE(stage.gesture().join(QLatin1Char(' ')), u"press long"_s);
        QCOMPARE(stage.shownBackground(), pressedColour);
        stage.release(input);
        QCOMPARE(stage.gesture().join(QLatin1Char(' ')), u"press long release"_s);
        QCOMPARE(stage.shownBackground(), restColour);
    }

    void clickIsLostBeyondTenPixels_data()
    {
        QTest::addColumn<Input>("input");
        QTest::addColumn<QPoint>("step");
        QTest::addColumn<bool>("clicks");

        const QPoint allowed(5, 5);
        const QPoint tooFar(6, 5);
        QTest::newRow("mouse, ten") << Input::Mouse << allowed << true;
        QTest::newRow("mouse, eleven") << Input::Mouse << tooFar << false;
        QTest::newRow("touch, ten") << Input::Touch << allowed << true;
        QTest::newRow("touch, eleven") << Input::Touch << tooFar << false;
    }

    void clickIsLostBeyondTenPixels()
    {
        QFETCH(Input, input);
        QFETCH(QPoint, step);
        QFETCH(bool, clicks);
        Stage stage;
        QVERIFY(stage.show());
        stage.press(input);
        stage.move(input, stage.centre() + step);
        QCOMPARE(stage.shownBackground(), pressedColour);
        stage.release(input, stage.centre() + step);
        QCOMPARE(stage.signalNames.count(u"click"_s), clicks ? 1 : 0);
        QCOMPARE(stage.signalNames.count(u"release"_s), 1);
        QCOMPARE(stage.shownBackground(), restColour);
    }

    void releaseOutsideIsNoClickButEndsThePress_data() { addInputs(); }

    void releaseOutsideIsNoClickButEndsThePress()
    {
        QFETCH(Input, input);
        Stage stage;
        QVERIFY(stage.show());
        const QPoint outside(10, 10);
        stage.press(input);
        stage.move(input, outside);
        stage.release(input, outside);
        QCOMPARE(stage.gesture().join(QLatin1Char(' ')), u"press release"_s);
        QCOMPARE(stage.shownBackground(), restColour);
    }

    void pressBesideTheButton_data() { addInputs(); }

    void pressBesideTheButton()
    {
        QFETCH(Input, input);
        Stage stage;
        QVERIFY(stage.show());
        for (const QPoint &pos :
             {QPoint(98, 120), QPoint(222, 120), QPoint(150, 98), QPoint(150, 152)}) {
            stage.press(input, pos);
            stage.release(input, pos);
        }
        QCOMPARE(stage.gesture(), QStringList());
    }

    void positionIsInTheButton_data() { addInputs(); }

    void positionIsInTheButton()
    {
        QFETCH(Input, input);
        Stage stage;
        stage.button->setPos(30, 40);
        QVERIFY(stage.show());
        const QSignalSpy pressed(stage.button, &KELPushButton::mousePress);
        const QSignalSpy released(stage.button, &KELPushButton::mouseRelease);
        stage.press(input, QPoint(140, 150));
        stage.move(input, QPoint(145, 150));
        stage.release(input, QPoint(145, 150));
        QCOMPARE(pressed.count(), 1);
        QCOMPARE(pressed.first().first().toPointF(), QPointF(110, 110));
        QCOMPARE(released.count(), 1);
        QCOMPARE(released.first().first().toPointF(), QPointF(115, 110));
    }

    void pressedLookComesAndGoes_data() { addInputs(); }

    void pressedLookComesAndGoes()
    {
        QFETCH(Input, input);
        Stage stage;
        QVERIFY(stage.show());
        QCOMPARE(stage.shownBackground(), restColour);
        stage.press(input);
        QVERIFY(stage.button->isMouseDown());
        QCOMPARE(stage.shownBackground(), pressedColour);
        stage.release(input);
        QVERIFY(!stage.button->isMouseDown());
        QCOMPARE(stage.shownBackground(), restColour);
    }

    void pressedLookIsOnTheScreen()
    {
        Stage stage;
        stage.view.setBackgroundBrush(Qt::white);
        QVERIFY(stage.show());
        QCOMPARE(stage.colourOnScreen(), over(restColour));
        stage.press(Input::Mouse);
        QCOMPARE(stage.colourOnScreen(), over(pressedColour));
        stage.release(Input::Mouse);
        QCOMPARE(stage.colourOnScreen(), over(restColour));
        stage.button->setEnabled(false);
        QCOMPARE(stage.colourOnScreen(), over(restColour));
    }

    void pressedLookWinsOnACheckedButton()
    {
        Stage stage;
        stage.view.setBackgroundBrush(Qt::white);
        stage.button->setIsCheckedTemplate(
            [](KELPushButtonStyle &look) { look.backgroundBrush = QBrush(Qt::green); });
        QVERIFY(stage.show());
        stage.button->setCheck(true);
        QCOMPARE(stage.colourOnScreen(), QColor(Qt::green));
        stage.press(Input::Mouse);
        QCOMPARE(stage.colourOnScreen(), over(pressedColour));
        stage.release(Input::Mouse);
        QCOMPARE(stage.colourOnScreen(), QColor(Qt::green));
    }

    void tapDoesNotCheck()
    {
        Stage stage;
        QVERIFY(stage.show());
        stage.view.click(stage.centre());
        QVERIFY(!stage.button->isCheck());
    }

    void disabledButtonGetsNothing_data() { addInputs(); }

    void disabledButtonGetsNothing()
    {
        QFETCH(Input, input);
        Stage stage;
        stage.button->setEnabled(false);
        QVERIFY(stage.show());
        stage.press(input);
        QVERIFY(!stage.button->isMouseDown());
        stage.release(input);
        QCOMPARE(stage.gesture(), QStringList());
        stage.button->setEnabled(true);
        stage.press(input);
        stage.release(input);
        QCOMPARE(stage.signalNames.count(u"click"_s), 1);
    }

    void buttonDisabledWhilePressed_data() { addInputs(); }

    void buttonDisabledWhilePressed()
    {
        QFETCH(Input, input);
        Stage stage;
        QVERIFY(stage.show());
        stage.press(input);
        stage.button->setEnabled(false);
        QVERIFY(!stage.button->isMouseDown());
        stage.release(input);
        QCOMPARE(stage.signalNames.count(u"click"_s), 0);
        stage.button->setEnabled(true);
        QCOMPARE(stage.shownBackground(), restColour);
        stage.press(input);
        stage.release(input);
        QCOMPARE(stage.signalNames.count(u"click"_s), 1);
    }

    void otherMouseButtonsDoNothing_data()
    {
        QTest::addColumn<int>("mouseButton");

        QTest::newRow("right") << int(Qt::RightButton);
        QTest::newRow("middle") << int(Qt::MiddleButton);
        QTest::newRow("back") << int(Qt::BackButton);
    }

    void otherMouseButtonsDoNothing()
    {
        QFETCH(int, mouseButton);
        Stage stage;
        QVERIFY(stage.show());
        stage.view.press(stage.centre(), Qt::MouseButton(mouseButton));
        QVERIFY(!stage.button->isMouseDown());
        stage.view.release(stage.centre(), Qt::MouseButton(mouseButton));
        QTest::mouseDClick(stage.view.viewport(), Qt::MouseButton(mouseButton), Qt::NoModifier,
                           stage.centre());
        QCOMPARE(stage.gesture(), QStringList());
    }

    void otherMouseButtonDuringAPress()
    {
        Stage stage;
        QVERIFY(stage.show());
        stage.view.press(stage.centre());
        QMouseEvent rightPress(QEvent::MouseButtonPress, stage.centre(),
                               stage.view.viewport()->mapToGlobal(stage.centre()), Qt::RightButton,
                               Qt::LeftButton | Qt::RightButton, Qt::NoModifier);
        QCoreApplication::sendEvent(stage.view.viewport(), &rightPress);
        QMouseEvent rightRelease(QEvent::MouseButtonRelease, stage.centre(),
                                 stage.view.viewport()->mapToGlobal(stage.centre()),
                                 Qt::RightButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(stage.view.viewport(), &rightRelease);
        stage.view.release(stage.centre());
        QCOMPARE(stage.signalNames.count(u"click"_s), 1);
        QVERIFY(!stage.button->isMouseDown());
    }

    void hoverEntersAndLeaves()
    {
        Stage stage;
        QVERIFY(stage.show());
        stage.hover(QPoint(10, 10));
        stage.signalNames.clear();
        stage.hover(stage.centre());
        QCOMPARE(stage.signalNames, QStringList({u"enter"_s}));
        stage.hover(stage.centre() + QPoint(5, 5));
        QCOMPARE(stage.signalNames, QStringList({u"enter"_s}));
        stage.hover(QPoint(10, 10));
        QCOMPARE(stage.signalNames, QStringList({u"enter"_s, u"leave"_s}));
        QCOMPARE(stage.shownBackground(), restColour);
    }

    void hoverOfADisabledButton()
    {
        Stage stage;
        stage.button->setEnabled(false);
        QVERIFY(stage.show());
        stage.hover(QPoint(10, 10));
        stage.hover(stage.centre());
        stage.hover(QPoint(10, 10));
        QCOMPARE(stage.signalNames, QStringList());
    }

    void buttonInAScaledView_data() { addInputs(); }

    void buttonInAScaledView()
    {
        QFETCH(Input, input);
        Stage stage;
        QVERIFY(stage.show());
        stage.view.scale(0.5, 0.5);
        const QPoint centre = stage.centre();
        stage.press(input, centre);
        // 4 px on the screen are 8 px in the button.
        stage.move(input, centre + QPoint(4, 0));
        stage.release(input, centre + QPoint(4, 0));
        QCOMPARE(stage.signalNames.count(u"click"_s), 1);
        stage.press(input, centre);
        stage.move(input, centre + QPoint(6, 0));
        stage.release(input, centre + QPoint(6, 0));
        QCOMPARE(stage.signalNames.count(u"click"_s), 1);
        QCOMPARE(stage.signalNames.count(u"release"_s), 2);
    }

    void buttonOnTopGetsThePress_data() { addInputs(); }

    void buttonOnTopGetsThePress()
    {
        QFETCH(Input, input);
        Stage stage;
        auto *top = new KELPushButton;
        top->setboundRect(150, 110, 40, 30);
        stage.view.ownScene.addItem(top);
        QVERIFY(stage.show());
        const QSignalSpy clicked(top, &KELPushButton::mouseClicked);
        stage.press(input, stage.view.centreOf(top));
        stage.release(input, stage.view.centreOf(top));
        QCOMPARE(clicked.count(), 1);
        QCOMPARE(stage.gesture(), QStringList());
    }
};

KEL_TEST_MAIN(tst_KELPushButtonPointer)
#include "tst_kelpushbuttonpointer.moc"
