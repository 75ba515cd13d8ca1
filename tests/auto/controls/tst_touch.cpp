// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "touchstage.h"

#include <kelcontentview.h>

#include <QtWidgets/QDialog>
#include <QtWidgets/QGraphicsProxyWidget>
#include <QtWidgets/QGraphicsSceneMouseEvent>

namespace {

// Writes its pointer events down, with all that they say.
class TellingButton : public KELPushButton
{
public:
    QStringList events;

protected:
    void mousePressEvent(QGraphicsSceneMouseEvent *event) override
    {
        writeDown("press", event);
        KELPushButton::mousePressEvent(event);
    }
    void mouseMoveEvent(QGraphicsSceneMouseEvent *event) override
    {
        writeDown("move", event);
        KELPushButton::mouseMoveEvent(event);
    }
    void mouseReleaseEvent(QGraphicsSceneMouseEvent *event) override
    {
        writeDown("release", event);
        KELPushButton::mouseReleaseEvent(event);
    }

private:
    void writeDown(const char *name, const QGraphicsSceneMouseEvent *event)
    {
        QString text;
        QDebug(&text) << name << event->button() << event->modifiers() << event->source()
                      << event->flags() << event->widget() << "now" << event->pos()
                      << event->scenePos() << event->screenPos() << "last" << event->lastPos()
                      << event->lastScenePos() << event->lastScreenPos() << "down"
                      << event->buttonDownPos(Qt::LeftButton)
                      << event->buttonDownScenePos(Qt::LeftButton)
                      << event->buttonDownScreenPos(Qt::LeftButton);
        events.append(text);
    }
};

// As a panel that names the fingers in this order.
void report(const QList<QTouchEvent::TouchPoint> &points)
{
    static QTouchDevice *const panel = QTest::createTouchDevice();
    qt_handleTouchEvent(nullptr, panel, points);
    QCoreApplication::processEvents();
}

QTouchEvent::TouchPoint point(int id, Qt::TouchPointState state, const QWidget *viewport,
                              const QPoint &pos)
{
    QTouchEvent::TouchPoint point(id);
    point.setState(state);
    point.setScreenPos(viewport->mapToGlobal(pos));
    return point;
}

struct Change
{
    const char *name;
    void (*make)(TouchStage &);
};

const std::vector<Change> ofNoPress = {
    {"view not interactive", [](TouchStage &s) { s.view.setInteractive(false); }},
    {"viewport disabled", [](TouchStage &s) { s.view.viewport()->setEnabled(false); }},
    {"behind a modal panel",
     [](TouchStage &s) { s.keypad.label->setPanelModality(QGraphicsItem::SceneModal); }},
    {"child of an item that handles its events",
     [](TouchStage &s) {
         auto *const parent = new PlainItem;
         parent->setHandlesChildEvents(true);
         s.view.ownScene.addItem(parent);
         s.key(3)->setParentItem(parent);
     }},
};

const std::vector<Change> ofTheScene = {
    {"key taken out of the scene", [](TouchStage &s) { s.view.ownScene.removeItem(s.key(3)); }},
    {"key put into another scene", [](TouchStage &s) { s.otherScene.addItem(s.key(3)); }},
    {"view set to another scene", [](TouchStage &s) { s.view.setScene(&s.otherScene); }},
};

const std::vector<Change> deletions = {
    {"its key", [](TouchStage &s) { delete s.key(3); }},
    {"the key of the first finger", [](TouchStage &s) { delete s.key(0); }},
    {"its key later", [](TouchStage &s) { s.key(3)->deleteLater(); }},
    {"all keys",
     [](TouchStage &s) {
         for (const QPointer<KELPushButton> &key : qAsConst(s.keypad.keys))
             delete key;
     }},
};

const QStringList entries = {u"3.press"_s, u"3.release"_s, u"3.clicked"_s};

// The filter of the application is a child of it.
int filters()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return qApp->findChildren<QObject *>().size();
}

} // namespace

class tst_Touch : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void cancelledTouchIsNoClick()
    {
        TouchStage stage;
        stage.fingers().press(0, at(1));
        QVERIFY(stage.key(1)->isMouseDown());
        stage.fingers().cancel();
        QCOMPARE(stage.take(), u"1.press 1.release"_s);
        QVERIFY(!stage.key(1)->isMouseDown());
        stage.fingers().tap(0, at(1));
        QCOMPARE(stage.takeClicks(), u"1"_s);
    }

    void cancelledTouchOnACheckBoxIsNoClick()
    {
        TouchStage stage;
        stage.fingers().press(0, onCheckBox);
        stage.fingers().cancel();
        QCOMPARE(stage.take(), u"check.press check.checked check.checkChanged check.release"_s);
        QVERIFY(stage.keypad.checkBox->isCheck());
    }

    void cancelledDragLeavesTheSliderWhereItIs()
    {
        TouchStage stage;
        stage.play({down(0, onSlider(0)), to(0, onSlider(50))});
        QCOMPARE(stage.keypad.slider->value(), 50.0F);
        stage.fingers().cancel();
        QCOMPARE(stage.keypad.slider->value(), 50.0F);
        QCOMPARE(stage.take(), u"slider.press slider.valueChanged slider.release"_s);
        stage.fingers().press(0, onSlider(50));
        stage.fingers().cancel();
        QCOMPARE(stage.take(), u"slider.press slider.release"_s);
    }

    void cancelEndsAllFingers()
    {
        TouchStage stage;
        stage.play({down(0, at(1)), down(1, at(3))});
        stage.fingers().cancel();
        QVERIFY(!stage.key(1)->style()->isMouseDown);
        QVERIFY(!stage.key(3)->style()->isMouseDown);
        QCOMPARE(stage.keypad.log.count(u"1.release"_s), 1);
        QCOMPARE(stage.keypad.log.count(u"3.release"_s), 1);
        QCOMPARE(stage.takeClicks(), QString());
    }

    // Five times each key, each tap beginning before the one on the other key ends.
    void alternatingThumbsClickEachKey()
    {
        TouchStage stage;
        stage.fingers().press(0, at(1));
        for (int tap = 1; tap < 10; ++tap) {
            const int id = tap % 2;
            stage.play({down(id, at(id == 0 ? 1 : 4)), up(1 - id)});
            QCoreApplication::processEvents();
        }
        stage.fingers().release(1);
        QCOMPARE(stage.takeClicks(), u"1 4 1 4 1 4 1 4 1 4"_s);
        for (const QPointer<KELPushButton> &key : qAsConst(stage.keypad.keys))
            QVERIFY(!key->style()->isMouseDown);
    }

    void threeFingersClickInOrder()
    {
        TouchStage stage;
        stage.play({down(0, at(0)), down(1, at(2)), down(2, at(4)), up(1), up(0), down(0, at(5)),
                    up(2), up(0)});
        QCOMPARE(stage.takeClicks(), u"2 0 4 5"_s);
    }

    void fingersOfOneEvent()
    {
        TouchStage stage;
        stage.fingers().pressBoth(0, at(0), 1, at(5));
        stage.play({up(1), up(0)});
        QCOMPARE(stage.takeClicks(), u"5 0"_s);
    }

    void fingersThatChangeInOneEvent()
    {
        TouchStage stage;
        stage.fingers().press(0, at(0));
        stage.fingers().releaseAndPress(0, 1, at(2));
        stage.fingers().releaseAndPress(1, 0, at(3));
        stage.fingers().release(0);
        QCOMPARE(stage.takeClicks(), u"0 2 3"_s);
    }

    // Qt takes the finger that is named first for the mouse.
    void fingersThatArriveTogetherAndChangeTheirOrder()
    {
        TouchStage stage;
        stage.view.showOnce();
        const QWidget *const viewport = stage.view.viewport();
        report({point(1, Qt::TouchPointPressed, viewport, at(4)),
                point(0, Qt::TouchPointPressed, viewport, at(1))});
        report({point(0, Qt::TouchPointReleased, viewport, at(1)),
                point(1, Qt::TouchPointStationary, viewport, at(4))});
        report({point(1, Qt::TouchPointReleased, viewport, at(4))});
        QCOMPARE(stage.takeClicks(), u"1 4"_s);
    }

    void secondFingerSaysTheSameAsTheFirst()
    {
        Stage<TellingButton> stage;
        const auto drag = [&](int finger) {
            stage.hand.fingers().press(finger, stage.centre());
            stage.hand.fingers().move(finger, stage.centre() + QPoint(3, 4));
            stage.hand.fingers().move(finger, stage.centre() + QPoint(9, -7));
            stage.hand.fingers().release(finger);
            return std::exchange(stage->events, {});
        };
        const QStringList ofTheFirst = drag(0);
        QCOMPARE(ofTheFirst.size(), 4);
        stage.hand.fingers().press(0, stage.otherCentre());
        QCOMPARE(drag(1), ofTheFirst);
    }

    void fingerThatRestsDoesNotMove()
    {
        Stage<TellingButton> stage;
        Fingers &fingers = stage.hand.fingers();
        fingers.press(0, stage.otherCentre());
        fingers.press(1, stage.centre());
        fingers.move(0, stage.otherCentre() + QPoint(2, 2));
        fingers.move(1, stage.centre());
        QCOMPARE(stage->events.size(), 1);
        fingers.release(1);
        QCOMPARE(stage->events.size(), 2);
    }

    void secondFingerOnAKeyThatLeavesTheView_data() { addRows({{"change", namesOf(ofTheScene)}}); }

    void secondFingerOnAKeyThatLeavesTheView()
    {
        TouchStage stage;
        const std::unique_ptr<KELPushButton> key(stage.key(3));
        stage.play({down(0, at(0)), down(1, at(3))});
        ofTheScene.at(fetch<size_t>("change")).make(stage);
        stage.play({to(1, at(3) + QPoint(1, 1)), up(1)});
        QCOMPARE(stage.take(), u"0.press 3.press"_s);
        QTRY_VERIFY(!key->style()->isMouseDown);
    }

    void secondFingerIsAPressLikeAnother()
    {
        TouchStage stage;
        stage.fingers().press(0, at(0));
        stage.keypad.log.takePoints();
        stage.fingers().press(1, cornerOf(3) + QPoint(7, 11));
        QVERIFY(stage.key(0)->isMouseDown());
        QVERIFY(stage.key(3)->isMouseDown());
        QCoreApplication::processEvents();
        QVERIFY(stage.key(3)->isMouseDown());
        QCOMPARE(stage.keypad.log.takePoints(), QList<QPointF>{cornerOf(3) + QPointF(7, 11)});
        stage.fingers().release(1);
        QVERIFY(stage.key(0)->isMouseDown());
        QVERIFY(!stage.key(3)->isMouseDown());
        stage.fingers().release(0);
        QCOMPARE(stage.take(), u"0.press 3.press 3.release 3.clicked 0.release 0.clicked"_s);
    }

    void secondFingerThatMovesTooFarIsNoClick()
    {
        TouchStage stage;
        stage.play({down(0, at(0)), down(1, at(3)), to(1, at(3) + QPoint(5, 5)), down(2, at(5)),
                    to(2, at(5) + QPoint(6, 5)), up(1), up(2), up(0)});
        QCOMPARE(stage.takeClicks(), u"3 0"_s);
    }

    void secondFingerHeldIsALongPress()
    {
        TouchStage stage;
        stage.play({down(0, at(0)), down(1, at(3))});
        endLongPressTime(stage.key(3));
        stage.fingers().release(1);
        QCOMPARE(stage.take(), u"0.press 3.press 3.longPress 3.release"_s);
    }

    void firstFingerGoesOnDragging()
    {
        TouchStage stage;
        stage.play({down(0, onSlider(0)), to(0, onSlider(20))});
        QCOMPARE(stage.keypad.slider->value(), 20.0F);
        stage.play({down(1, at(3)), to(0, onSlider(40))});
        QCOMPARE(stage.keypad.slider->value(), 40.0F);
        stage.play({up(1), to(0, onSlider(60))});
        QCOMPARE(stage.keypad.slider->value(), 60.0F);
        stage.fingers().release(0);
        QCOMPARE(stage.takeClicks(), u"3"_s);
    }

    // At the end of a press Qt forgets where the items were that it moves, unless another goes on.
    void firstFingerGoesOnMovingAKey()
    {
        TouchStage stage;
        stage.key(0)->setFlag(QGraphicsItem::ItemIsMovable);
        stage.play({down(0, at(0)), to(0, at(0) + QPoint(0, 60)), down(1, at(3)), up(1),
                    to(0, at(0) + QPoint(0, 80)), up(0)});
        QCOMPARE(stage.key(0)->pos(), QPointF(0, 80));
    }

    void secondFingerDragsASlider()
    {
        TouchStage stage;
        stage.play({down(0, at(2)), down(1, onSlider(0)), to(1, onSlider(50))});
        QCOMPARE(stage.keypad.slider->value(), 50.0F);
        stage.play({up(0), to(1, onSlider(60))});
        QCOMPARE(stage.keypad.slider->value(), 60.0F);
        stage.fingers().release(1);
        QCOMPARE(stage.takeClicks(), u"2"_s);
    }

    void secondFingerTogglesACheckBox()
    {
        TouchStage stage;
        stage.play({down(0, at(2)), down(1, onCheckBox), up(1)});
        QVERIFY(stage.keypad.checkBox->isCheck());
        stage.fingers().tap(1, onCheckBox);
        QVERIFY(!stage.keypad.checkBox->isCheck());
        stage.fingers().release(0);
        QCOMPARE(stage.takeClicks(), u"check check 2"_s);
    }

    void secondFingerOnThePressedKeyIsIgnored()
    {
        TouchStage stage;
        stage.play(
            {down(0, at(2)), down(1, at(2) + QPoint(9, 9)), to(1, at(2) + QPoint(29, 9)), up(1)});
        QVERIFY(stage.key(2)->isMouseDown());
        stage.fingers().release(0);
        QCOMPARE(stage.take(), u"2.press 2.release 2.clicked"_s);
    }

    // Qt hands the events of the label on to the key.
    void secondFingerOnALabelOnThePressedKeyIsIgnored()
    {
        TouchStage stage;
        auto *const label = new KELLabel(stage.key(2));
        label->setboundRect(0, 0, keySizePx, keySizePx / 3);
        stage.play({down(0, at(2)), down(1, cornerOf(2) + QPoint(9, 9)), up(1), up(0)});
        QCOMPARE(stage.take(), u"2.press 2.release 2.clicked"_s);
    }

    void secondFingerOnADisabledOrHiddenKey()
    {
        TouchStage stage;
        stage.key(3)->setEnabled(false);
        stage.key(4)->hide();
        stage.play({down(0, at(2)), down(1, at(3)), up(1), down(1, at(4)), up(1), up(0)});
        QCOMPARE(stage.take(), u"2.press 2.release 2.clicked"_s);
    }

    // A label does not keep its press, whichever finger it is of.
    void secondFingerOnNothingAndOnALabel()
    {
        TouchStage stage;
        stage.play({down(0, at(2)), down(1, onNothing), up(1), down(1, onLabel), up(1), up(0)});
        QCOMPARE(stage.take(), u"2.press label.press 2.release 2.clicked"_s);
    }

    void secondFingerWhileTheFirstRestsOnALabel()
    {
        TouchStage stage;
        stage.play({down(0, onLabel), down(1, at(2)), up(1), down(1, at(4)), up(1), up(0)});
        QCOMPARE(stage.takeClicks(), u"2 4"_s);
    }

    // An editable text takes the press, as that of a mouse.
    void secondFingerOnAnEditorOverAKey()
    {
        TouchStage stage;
        auto *const editor = new QGraphicsTextItem(u"editable text"_s);
        editor->setPos(cornerOf(3));
        editor->setTextInteractionFlags(Qt::TextEditorInteraction);
        editor->setZValue(1);
        stage.view.ownScene.addItem(editor);
        const QPoint pos = stage.view.centreOf(editor);
        stage.hand.tap(pos);
        QCOMPARE(stage.takeClicks(), QString());
        stage.play({down(0, at(0)), down(1, pos), up(1), up(0)});
        QCOMPARE(stage.takeClicks(), u"0"_s);
    }

    void secondFingerOnAPictureOverAKey()
    {
        TouchStage stage;
        auto *const text = new QGraphicsTextItem(u"text"_s);
        text->setPos(cornerOf(3));
        text->setZValue(1);
        stage.view.ownScene.addItem(text);
        const QRect key(0, 0, keySizePx, keySizePx);
        auto *const frame = stage.view.ownScene.addRect(key.translated(cornerOf(4)));
        frame->setZValue(1);
        auto *const movable = stage.view.ownScene.addRect(key.translated(cornerOf(5)));
        movable->setFlag(QGraphicsItem::ItemIsMovable);
        movable->setZValue(1);
        stage.play({down(0, at(0)), down(1, stage.view.centreOf(text)), up(1), down(1, at(4)),
                    up(1), down(1, at(5)), up(1), up(0)});
        QCOMPARE(stage.takeClicks(), u"3 4 0"_s);
    }

    void secondFingerWhereNothingIsToBePressed_data() { addRows({{"change", namesOf(ofNoPress)}}); }

    void secondFingerWhereNothingIsToBePressed()
    {
        TouchStage stage;
        TouchStage other;
        other.view.setGeometry(400, 0, 400, 300);
        ofNoPress.at(fetch<size_t>("change")).make(other);
        stage.view.showOnce();
        QVERIFY(other.view.showAndWait());
        stage.fingers().press(0, at(0));
        stage.fingers().pressIn(other.view.viewport(), 1, at(3));
        stage.play({up(1), up(0)});
        QCOMPARE(other.take(), QString());
        QCOMPARE(stage.takeClicks(), u"0"_s);
    }

    // Qt would move it with the key of the first finger.
    void secondFingerOnAMovableKeyIsIgnored()
    {
        TouchStage stage;
        stage.key(3)->setFlag(QGraphicsItem::ItemIsMovable);
        stage.play({down(0, at(0)), down(1, at(3)), up(1), up(0)});
        QCOMPARE(stage.takeClicks(), u"0"_s);
    }

    void secondFingerWhileAPopupIsOpen()
    {
        TouchStage stage;
        stage.fingers().press(0, at(0));
        const std::unique_ptr<QMenu> menu(newMenu());
        menu->popup(stage.view.viewport()->mapToGlobal(QPoint(10, 200)));
        stage.fingers().press(1, at(3));
        QVERIFY(!stage.key(3)->isMouseDown());
        menu->close();
        stage.play({up(1), up(0)});
        QVERIFY(!stage.take().contains(QLatin1Char('3')));
    }

    void secondFingerDeletesItsWindow()
    {
        TouchStage stage;
        QGraphicsScene scene(0, 0, 400, 300);
        Keypad keypad(&scene);
        QPointer<KelTestView> view(new KelTestView);
        view->setScene(&scene);
        view->setGeometry(400, 0, 400, 300);
        stage.view.showOnce();
        QVERIFY(view->showAndWait());
        keypad.log.on(u"3.press"_s, [&] { delete view; });
        stage.fingers().press(0, at(0));
        stage.fingers().pressIn(view->viewport(), 1, at(3));
        QVERIFY(!view);
        stage.fingers().release(0);
        QCOMPARE(stage.takeClicks(), u"0"_s);
        QTRY_VERIFY(!keypad.keys.at(3)->style()->isMouseDown);
    }

    void thumbsInAContentView()
    {
        KELContentView view;
        auto *const page = new KELRoundRectControl;
        page->setboundRect(0, 0, 400, 300);
        auto *const left = new KELPushButton(page);
        left->setboundRect(0, 0, 100, 100);
        auto *const right = new KELPushButton(page);
        right->setboundRect(200, 0, 100, 100);
        view.setContent(page);
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view));
        SignalLog log;
        log.listenTo(left, u"left"_s);
        log.listenTo(right, u"right"_s);
        Fingers fingers(view.viewport());
        fingers.press(0, view.mapFromScene(50, 50));
        fingers.press(1, view.mapFromScene(250, 50));
        fingers.release(0);
        fingers.release(1);
        QCOMPARE(log.take(),
                 u"left.press right.press left.release left.clicked right.release "
                 "right.clicked"_s);
    }

    void thumbsInAScaledView()
    {
        TouchStage stage;
        stage.view.scale(0.5, 0.5);
        stage.view.rotate(90);
        stage.view.showOnce();
        stage.play({down(0, stage.view.mapFromScene(at(0))),
                    down(1, stage.view.mapFromScene(at(5))), up(0), up(1)});
        QCOMPARE(stage.takeClicks(), u"0 5"_s);
    }

    void thumbsInAProxy()
    {
        KelTestView outer;
        auto *const inner = new KelTestView(QSize(380, 200));
        Keypad keypad(&inner->ownScene);
        outer.ownScene.addWidget(inner);
        Hand hand(&outer);
        hand.fingers().press(0, at(0));
        hand.fingers().press(1, at(5));
        hand.fingers().release(0);
        hand.fingers().release(1);
        QCOMPARE(keypad.takeClicks(), u"0 5"_s);
    }

    void dialogTakesBothFingers()
    {
        TouchStage stage;
        stage.play({down(0, at(0)), down(1, at(3))});
        auto dialog = std::make_unique<QDialog>();
        dialog->setModal(true);
        dialog->show();
        QTRY_VERIFY(!stage.key(0)->style()->isMouseDown);
        QTRY_VERIFY(!stage.key(3)->style()->isMouseDown);
        stage.play({up(1), up(0)});
        QCOMPARE(stage.takeClicks(), QString());
        dialog.reset();
        stage.play({down(0, at(5)), up(0), down(0, at(1)), down(1, at(2)), up(1), up(0)});
        QCOMPARE(stage.takeClicks(), u"5 2 1"_s);
    }

    void secondFingerDeletes_data()
    {
        addRows({{"signal", {{"press", 0}, {"release", 1}, {"clicked", 2}}},
                 {"deletion", namesOf(deletions)}});
    }

    void secondFingerDeletes()
    {
        const QString entry = entries.at(fetch<int>("signal"));
        TouchStage stage;
        stage.keypad.log.on(entry, [&] { deletions.at(fetch<size_t>("deletion")).make(stage); });
        stage.play({down(0, at(0)), down(1, at(3)), to(1, at(3) + QPoint(1, 1)), up(1), up(0)});
        QCOMPARE(stage.keypad.log.count(entry), 1);
        stage.fingers().tap(0, at(5));
    }

    void noFilterIsLeftByACancel_data()
    {
        addRows({{"fingers", {{"of one finger", 1}, {"of two fingers", 2}}}});
    }

    void noFilterIsLeftByACancel()
    {
        TouchStage stage;
        stage.fingers().tap(0, at(2));
        const int before = filters();
        for (int id = 0; id < fetch<int>("fingers"); ++id)
            stage.fingers().press(id, at(id));
        QVERIFY(filters() > before);
        stage.fingers().cancel();
        QCOMPARE(filters(), before);
    }

    void noFilterIsLeft()
    {
        TouchStage stage;
        stage.fingers().tap(0, at(2));
        const int before = filters();
        stage.play({down(0, at(2)), down(1, at(3)), up(0), up(1)});
        QCOMPARE(filters(), before);
    }

    void noFilterIsLeftWhenTheWindowDies_data()
    {
        addRows({{"fingers", {{"under the first finger", 1}, {"under two fingers", 2}}}});
    }

    void noFilterIsLeftWhenTheWindowDies()
    {
        auto view = std::make_unique<KelTestView>();
        const Keypad keypad(&view->ownScene);
        Hand hand(view.get());
        hand.fingers().tap(0, at(2));
        const int before = filters();
        for (int id = 0; id < fetch<int>("fingers"); ++id)
            hand.fingers().press(id, at(id));
        QVERIFY(filters() > before);
        view.reset();
        QCOMPARE(filters(), before);

        TouchStage next;
        next.play({down(0, at(0)), down(1, at(1)), up(1), up(0)});
        QCOMPARE(next.takeClicks(), u"1 0"_s);
    }

    // Qt cancels the touch of a window behind a dialog when its last finger leaves.
    void fingerBehindADialogLeaves()
    {
        TouchStage stage;
        TouchStage dialog;
        dialog.view.setGeometry(400, 0, 400, 300);
        stage.fingers().press(0, at(0));
        dialog.view.setWindowModality(Qt::ApplicationModal);
        QVERIFY(dialog.view.showAndWait());
        QTRY_VERIFY(!stage.key(0)->isMouseDown());
        stage.fingers().pressIn(dialog.view.viewport(), 1, at(1));
        QVERIFY(dialog.key(1)->isMouseDown());
        stage.fingers().release(0);
        // Qt still takes it for the mouse.
        stage.fingers().pressIn(dialog.view.viewport(), 0, at(2));
        stage.play({up(0), up(1)});
        QCOMPARE(stage.takeClicks(), QString());
        QCOMPARE(dialog.take(), u"1.press 2.press 2.release 2.clicked 1.release 1.clicked"_s);
        dialog.play({down(0, at(0)), down(1, at(1)), up(1), up(0)});
        QCOMPARE(dialog.takeClicks(), u"1 0"_s);
    }

    void cancelOfATouchPad()
    {
        TouchStage stage;
        stage.play({down(0, at(0)), down(1, at(1))});
        QTouchEvent cancel(QEvent::TouchCancel, QTest::createTouchDevice(QTouchDevice::TouchPad));
        QCoreApplication::sendEvent(stage.view.windowHandle(), &cancel);
        stage.play({up(1), up(0)});
        QCOMPARE(stage.takeClicks(), u"1 0"_s);
    }
};

KEL_TEST_MAIN(tst_Touch)
#include "tst_touch.moc"
