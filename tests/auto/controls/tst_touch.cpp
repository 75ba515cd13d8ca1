// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "fingers.h"
#include "keltest.h"

#include <kelcheckbox.h>
#include <kelcontentview.h>
#include <kellabel.h>
#include <kelpushbutton.h>
#include <kelslidecontrol.h>

#include <QtWidgets/QDialog>
#include <QtWidgets/QGraphicsProxyWidget>
#include <QtWidgets/QMenu>

#include <memory>

namespace {

constexpr int keyCount = 6;
constexpr int keySizePx = 60;

// A keypad with a slider and a check box below it; notes what is clicked.
class Keypad : public QObject
{
public:
    explicit Keypad(QGraphicsScene *scene)
    {
        for (int i = 0; i < keyCount; ++i) {
            auto *const key = new KELPushButton;
            key->setboundRect(i * keySizePx, 0, keySizePx, keySizePx);
            scene->addItem(key);
            note(key, QString::number(i));
            keys.append(key);
        }
        slider->setboundRect(0, 80, 330, 40);
        slider->setboundRect(QRectF(0, 80, 330, 40));
        slider->setValue(0);
        scene->addItem(slider);
        note(slider, u"slider"_s);
        checkBox->setboundRect(0, 140, 100, 40);
        scene->addItem(checkBox);
        note(checkBox, u"check"_s);
        label->setboundRect(120, 140, 100, 40);
        scene->addItem(label);
        note(label, u"label"_s);
    }

    static QPoint at(int key) { return {key * keySizePx + keySizePx / 2, keySizePx / 2}; }
    static QPoint onCheckBox() { return {50, 160}; }
    static QPoint onLabel() { return {170, 160}; }
    static QPoint onNothing() { return {300, 250}; }
    QString takeClicks() { return std::exchange(m_clicks, {}).join(QLatin1Char(' ')); }
    QString takeSignals() { return std::exchange(m_signals, {}).join(QLatin1Char(' ')); }

    QList<QPointer<KELPushButton>> keys;
    KELSlideControl *const slider = new KELSlideControl;
    KELCheckBox *const checkBox = new KELCheckBox;
    KELLabel *const label = new KELLabel;

private:
    void note(KELRoundRectControl *control, const QString &name)
    {
        const auto noting = [this, name](const char *what) {
            return [this, name, what] { m_signals.append(name + QLatin1String(what)); };
        };
        connect(control, &KELRoundRectControl::mouseClicked, this,
                [this, name] { m_clicks.append(name); });
        connect(control, &KELRoundRectControl::mousePress, this, noting("-press"));
        connect(control, &KELRoundRectControl::mouseRelease, this, noting("-release"));
        connect(control, &KELRoundRectControl::mouseClicked, this, noting("-click"));
        connect(control, &KELRoundRectControl::mouseLongPress, this, noting("-long"));
    }

    QStringList m_clicks;
    QStringList m_signals;
};

struct Stage
{
    KelTestView view;
    Keypad keypad{&view.ownScene};
    Fingers fingers{view.viewport()};
};

} // namespace

using KeypadChange = std::function<void(KelTestView *, Keypad *)>;
Q_DECLARE_METATYPE(KeypadChange)

using Deletion = std::function<void(Stage *)>;
Q_DECLARE_METATYPE(Deletion)

class tst_Touch : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void cancelledTouchIsNoClick()
    {
        Stage stage;
        QVERIFY(stage.view.showAndWait());
        stage.fingers.press(0, Keypad::at(1));
        QVERIFY(stage.keypad.keys.at(1)->isMouseDown());
        stage.fingers.cancel();
        QCOMPARE(stage.keypad.takeSignals(), u"1-press 1-release"_s);
        QVERIFY(!stage.keypad.keys.at(1)->isMouseDown());
    }

    void cancelledTouchOnACheckBoxIsNoClick()
    {
        Stage stage;
        QVERIFY(stage.view.showAndWait());
        stage.fingers.press(0, Keypad::onCheckBox());
        stage.fingers.cancel();
        QCOMPARE(stage.keypad.takeSignals(), u"check-press check-release"_s);
        QVERIFY(stage.keypad.checkBox->isCheck());
    }

    void cancelledDragLeavesTheSliderWhereItIs()
    {
        Stage stage;
        QVERIFY(stage.view.showAndWait());
        stage.keypad.slider->setValue(0);
        stage.fingers.press(0, QPoint(15, 100));
        stage.fingers.move(0, QPoint(165, 100));
        QCOMPARE(stage.keypad.slider->value(), 50.0F);
        stage.fingers.cancel();
        QCOMPARE(stage.keypad.slider->value(), 50.0F);
        QCOMPARE(stage.keypad.takeSignals(), u"slider-press slider-release"_s);
        stage.fingers.press(0, QPoint(165, 100));
        stage.fingers.cancel();
        QCOMPARE(stage.keypad.takeSignals(), u"slider-press slider-release"_s);
    }

    void tapAfterACancelClicks()
    {
        Stage stage;
        QVERIFY(stage.view.showAndWait());
        stage.fingers.press(0, Keypad::at(1));
        stage.fingers.cancel();
        stage.fingers.tap(0, Keypad::at(1));
        QCOMPARE(stage.keypad.takeClicks(), u"1"_s);
    }

    void cancelEndsAllFingers()
    {
        Stage stage;
        QVERIFY(stage.view.showAndWait());
        stage.fingers.press(0, Keypad::at(1));
        stage.fingers.press(1, Keypad::at(3));
        stage.fingers.cancel();
        QCOMPARE(stage.keypad.takeClicks(), QString());
        QVERIFY(!stage.keypad.keys.at(1)->style()->isMouseDown);
        QVERIFY(!stage.keypad.keys.at(3)->style()->isMouseDown);
        const QString all = stage.keypad.takeSignals();
        QVERIFY2(all.contains(QLatin1String("1-release")), qPrintable(all));
        QVERIFY2(all.contains(QLatin1String("3-release")), qPrintable(all));
    }

    // Five times each key, each tap beginning before the one on the other key ends.
    void alternatingThumbsClickEachKey()
    {
        Stage stage;
        QVERIFY(stage.view.showAndWait());
        stage.fingers.press(0, Keypad::at(1));
        for (int tap = 1; tap < 10; ++tap) {
            const int id = tap % 2;
            stage.fingers.press(id, Keypad::at(id == 0 ? 1 : 4));
            stage.fingers.release(1 - id);
            QCoreApplication::processEvents();
        }
        stage.fingers.release(1);
        QCOMPARE(stage.keypad.takeClicks(), u"1 4 1 4 1 4 1 4 1 4"_s);
        for (const QPointer<KELPushButton> &key : qAsConst(stage.keypad.keys))
            QVERIFY(!key->style()->isMouseDown);
    }

    void threeFingersClickInOrder()
    {
        Stage stage;
        QVERIFY(stage.view.showAndWait());
        stage.fingers.press(0, Keypad::at(0));
        stage.fingers.press(1, Keypad::at(2));
        stage.fingers.press(2, Keypad::at(4));
        stage.fingers.release(1);
        stage.fingers.release(0);
        stage.fingers.press(0, Keypad::at(5));
        stage.fingers.release(2);
        stage.fingers.release(0);
        QCOMPARE(stage.keypad.takeClicks(), u"2 0 4 5"_s);
    }

    void fingersOfOneEvent()
    {
        Stage stage;
        QVERIFY(stage.view.showAndWait());
        stage.fingers.pressBoth(0, Keypad::at(0), 1, Keypad::at(5));
        stage.fingers.release(1);
        stage.fingers.release(0);
        QCOMPARE(stage.keypad.takeClicks(), u"5 0"_s);
    }

    void fingersThatChangeInOneEvent()
    {
        Stage stage;
        QVERIFY(stage.view.showAndWait());
        stage.fingers.press(0, Keypad::at(0));
        stage.fingers.releaseAndPress(0, 1, Keypad::at(2));
        stage.fingers.releaseAndPress(1, 0, Keypad::at(3));
        stage.fingers.release(0);
        QCOMPARE(stage.keypad.takeClicks(), u"0 2 3"_s);
    }

    void secondFingerIsAPressLikeAnother()
    {
        Stage stage;
        QVERIFY(stage.view.showAndWait());
        QSignalSpy press(stage.keypad.keys.at(3), &KELRoundRectControl::mousePress);
        stage.fingers.press(0, Keypad::at(0));
        stage.fingers.press(1, QPoint(3 * keySizePx + 7, 11));
        QVERIFY(stage.keypad.keys.at(0)->isMouseDown());
        QVERIFY(stage.keypad.keys.at(3)->isMouseDown());
        QCoreApplication::processEvents();
        QVERIFY(stage.keypad.keys.at(3)->isMouseDown());
        QCOMPARE(press.count(), 1);
        QCOMPARE(press.at(0).at(0).toPointF(), QPointF(3 * keySizePx + 7, 11));
        stage.fingers.release(1);
        QVERIFY(stage.keypad.keys.at(0)->isMouseDown());
        QVERIFY(!stage.keypad.keys.at(3)->isMouseDown());
        stage.fingers.release(0);
        QCOMPARE(stage.keypad.takeSignals(),
                 u"0-press 3-press 3-release 3-click 0-release 0-click"_s);
    }

    void secondFingerThatMovesTooFarIsNoClick()
    {
        Stage stage;
        QVERIFY(stage.view.showAndWait());
        stage.fingers.press(0, Keypad::at(0));
        stage.fingers.press(1, Keypad::at(3));
        stage.fingers.move(1, Keypad::at(3) + QPoint(5, 5));
        stage.fingers.press(2, Keypad::at(5));
        stage.fingers.move(2, Keypad::at(5) + QPoint(6, 5));
        stage.fingers.release(1);
        stage.fingers.release(2);
        stage.fingers.release(0);
        QCOMPARE(stage.keypad.takeClicks(), u"3 0"_s);
    }

    void secondFingerHeldIsALongPress()
    {
        Stage stage;
        QVERIFY(stage.view.showAndWait());
        QSignalSpy longPress(stage.keypad.keys.at(3), &KELRoundRectControl::mouseLongPress);
        stage.fingers.press(0, Keypad::at(0));
        stage.fingers.press(1, Keypad::at(3));
        QTRY_COMPARE(longPress.count(), 1);
        stage.fingers.release(1);
        stage.fingers.release(0);
        QCOMPARE(stage.keypad.takeClicks(), QString());
    }

    void firstFingerGoesOnDragging()
    {
        Stage stage;
        QVERIFY(stage.view.showAndWait());
        stage.keypad.slider->setValue(0);
        stage.fingers.press(0, QPoint(15, 100));
        stage.fingers.move(0, QPoint(75, 100));
        QCOMPARE(stage.keypad.slider->value(), 20.0F);
        stage.fingers.press(1, Keypad::at(3));
        stage.fingers.move(0, QPoint(135, 100));
        QCOMPARE(stage.keypad.slider->value(), 40.0F);
        stage.fingers.release(1);
        stage.fingers.move(0, QPoint(195, 100));
        QCOMPARE(stage.keypad.slider->value(), 60.0F);
        stage.fingers.release(0);
        QCOMPARE(stage.keypad.takeClicks(), u"3"_s);
    }

    void secondFingerDragsASlider()
    {
        Stage stage;
        QVERIFY(stage.view.showAndWait());
        stage.keypad.slider->setValue(0);
        stage.fingers.press(0, Keypad::at(2));
        stage.fingers.press(1, QPoint(15, 100));
        stage.fingers.move(1, QPoint(165, 100));
        QCOMPARE(stage.keypad.slider->value(), 50.0F);
        stage.fingers.release(0);
        stage.fingers.move(1, QPoint(195, 100));
        QCOMPARE(stage.keypad.slider->value(), 60.0F);
        stage.fingers.release(1);
        QCOMPARE(stage.keypad.takeClicks(), u"2"_s);
    }

    void secondFingerTogglesACheckBox()
    {
        Stage stage;
        QVERIFY(stage.view.showAndWait());
        stage.fingers.press(0, Keypad::at(2));
        stage.fingers.tap(1, Keypad::onCheckBox());
        QVERIFY(stage.keypad.checkBox->isCheck());
        stage.fingers.tap(1, Keypad::onCheckBox());
        QVERIFY(!stage.keypad.checkBox->isCheck());
        stage.fingers.release(0);
        QCOMPARE(stage.keypad.takeClicks(), u"check check 2"_s);
    }

    void secondFingerOnThePressedKeyIsIgnored()
    {
        Stage stage;
        QVERIFY(stage.view.showAndWait());
        stage.fingers.press(0, Keypad::at(2));
        stage.fingers.press(1, Keypad::at(2) + QPoint(9, 9));
        stage.fingers.move(1, Keypad::at(2) + QPoint(29, 9));
        stage.fingers.release(1);
        QVERIFY(stage.keypad.keys.at(2)->isMouseDown());
        stage.fingers.release(0);
        QCOMPARE(stage.keypad.takeSignals(), u"2-press 2-release 2-click"_s);
    }

    void secondFingerOnADisabledOrHiddenKey()
    {
        Stage stage;
        QVERIFY(stage.view.showAndWait());
        stage.keypad.keys.at(3)->setEnabled(false);
        stage.keypad.keys.at(4)->hide();
        stage.fingers.press(0, Keypad::at(2));
        stage.fingers.tap(1, Keypad::at(3));
        stage.fingers.tap(1, Keypad::at(4));
        stage.fingers.release(0);
        QCOMPARE(stage.keypad.takeSignals(), u"2-press 2-release 2-click"_s);
    }

    // A label does not keep its press, whichever finger it is of.
    void secondFingerOnNothingAndOnALabel()
    {
        Stage stage;
        QVERIFY(stage.view.showAndWait());
        stage.fingers.press(0, Keypad::at(2));
        stage.fingers.tap(1, Keypad::onNothing());
        stage.fingers.tap(1, Keypad::onLabel());
        stage.fingers.release(0);
        QCOMPARE(stage.keypad.takeSignals(), u"2-press label-press 2-release 2-click"_s);
    }

    void secondFingerWhileTheFirstRestsOnALabel()
    {
        Stage stage;
        QVERIFY(stage.view.showAndWait());
        stage.fingers.press(0, Keypad::onLabel());
        stage.fingers.tap(1, Keypad::at(2));
        stage.fingers.tap(1, Keypad::at(4));
        stage.fingers.release(0);
        QCOMPARE(stage.keypad.takeClicks(), u"2 4"_s);
    }

    // An editable text takes the press, as that of a mouse.
    void secondFingerOnAnEditorOverAKey()
    {
        Stage stage;
        auto *const editor = new QGraphicsTextItem(u"editable text"_s);
        editor->setPos(3 * keySizePx, 10);
        editor->setTextInteractionFlags(Qt::TextEditorInteraction);
        editor->setZValue(1);
        stage.view.ownScene.addItem(editor);
        QVERIFY(stage.view.showAndWait());
        const QPoint pos = stage.view.centreOf(editor);
        stage.view.click(pos);
        QCOMPARE(stage.keypad.takeClicks(), QString());
        stage.fingers.press(0, Keypad::at(0));
        stage.fingers.tap(1, pos);
        stage.fingers.release(0);
        QCOMPARE(stage.keypad.takeClicks(), u"0"_s);
    }

    void secondFingerOnAPictureOverAKey()
    {
        Stage stage;
        auto *const text = new QGraphicsTextItem(u"text"_s);
        text->setPos(3 * keySizePx, 10);
        text->setZValue(1);
        stage.view.ownScene.addItem(text);
        auto *const frame = stage.view.ownScene.addRect(4 * keySizePx, 0, keySizePx, keySizePx);
        frame->setZValue(1);
        auto *const movable = stage.view.ownScene.addRect(5 * keySizePx, 0, keySizePx, keySizePx);
        movable->setFlag(QGraphicsItem::ItemIsMovable);
        movable->setZValue(1);
        QVERIFY(stage.view.showAndWait());
        stage.fingers.press(0, Keypad::at(0));
        stage.fingers.tap(1, stage.view.centreOf(text));
        stage.fingers.tap(1, Keypad::at(4));
        stage.fingers.tap(1, Keypad::at(5));
        stage.fingers.release(0);
        QCOMPARE(stage.keypad.takeClicks(), u"3 4 0"_s);
    }

    void secondFingerWhereNothingIsToBePressed_data()
    {
        QTest::addColumn<KeypadChange>("change");
        QTest::newRow("view not interactive")
            << KeypadChange([](KelTestView *view, Keypad *) { view->setInteractive(false); });
        QTest::newRow("viewport disabled") << KeypadChange(
            [](KelTestView *view, Keypad *) { view->viewport()->setEnabled(false); });
        QTest::newRow("behind a modal panel") << KeypadChange([](KelTestView *, Keypad *keypad) {
            keypad->label->setPanelModality(QGraphicsItem::SceneModal);
        });
        QTest::newRow("child of an item that handles its events")
            << KeypadChange([](KelTestView *view, Keypad *keypad) {
                   view->ownScene.createItemGroup({keypad->keys.at(3)});
               });
    }

    void secondFingerWhereNothingIsToBePressed()
    {
        QFETCH(KeypadChange, change);
        Stage stage;
        Stage other;
        other.view.setGeometry(400, 0, 400, 300);
        change(&other.view, &other.keypad);
        QVERIFY(stage.view.showAndWait());
        QVERIFY(other.view.showAndWait());
        stage.fingers.press(0, Keypad::at(0));
        stage.fingers.pressIn(other.view.viewport(), 1, Keypad::at(3));
        stage.fingers.release(1);
        stage.fingers.release(0);
        QCOMPARE(other.keypad.takeSignals(), QString());
        QCOMPARE(stage.keypad.takeClicks(), u"0"_s);
    }

    // Qt would move it with the key of the first finger.
    void secondFingerOnAMovableKeyIsIgnored()
    {
        Stage stage;
        stage.keypad.keys.at(3)->setFlag(QGraphicsItem::ItemIsMovable);
        QVERIFY(stage.view.showAndWait());
        stage.fingers.press(0, Keypad::at(0));
        stage.fingers.tap(1, Keypad::at(3));
        stage.fingers.release(0);
        QCOMPARE(stage.keypad.takeClicks(), u"0"_s);
    }

    void secondFingerWhileAPopupIsOpen()
    {
        Stage stage;
        QVERIFY(stage.view.showAndWait());
        stage.fingers.press(0, Keypad::at(0));
        QMenu menu;
        menu.addAction(u"One"_s);
        menu.popup(stage.view.viewport()->mapToGlobal(QPoint(10, 200)));
        stage.fingers.press(1, Keypad::at(3));
        QVERIFY(!stage.keypad.keys.at(3)->isMouseDown());
        menu.close();
        stage.fingers.release(1);
        stage.fingers.release(0);
        QVERIFY(!stage.keypad.takeSignals().contains(QLatin1Char('3')));
    }

    void secondFingerDeletesItsWindow()
    {
        Stage stage;
        QGraphicsScene scene(0, 0, 400, 300);
        Keypad keypad(&scene);
        QPointer<KelTestView> view(new KelTestView);
        view->setScene(&scene);
        view->setGeometry(400, 0, 400, 300);
        QVERIFY(stage.view.showAndWait());
        QVERIFY(view->showAndWait());
        connect(keypad.keys.at(3), &KELRoundRectControl::mousePress, &keypad, [&] { delete view; });
        stage.fingers.press(0, Keypad::at(0));
        stage.fingers.pressIn(view->viewport(), 1, Keypad::at(3));
        QVERIFY(!view);
        stage.fingers.release(0);
        QCOMPARE(stage.keypad.takeClicks(), u"0"_s);
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
        QStringList clicks;
        connect(left, &KELRoundRectControl::mouseClicked, &view, [&] { clicks.append(u"left"_s); });
        connect(right, &KELRoundRectControl::mouseClicked, &view,
                [&] { clicks.append(u"right"_s); });
        Fingers fingers(view.viewport());
        fingers.press(0, view.mapFromScene(50, 50));
        fingers.press(1, view.mapFromScene(250, 50));
        fingers.release(0);
        fingers.press(0, view.mapFromScene(50, 50));
        fingers.release(1);
        fingers.release(0);
        QCOMPARE(clicks.join(QLatin1Char(' ')), u"left right left"_s);
    }

    void thumbsInAScaledView()
    {
        Stage stage;
        stage.view.scale(0.5, 0.5);
        stage.view.rotate(90);
        QVERIFY(stage.view.showAndWait());
        const auto at = [&](int key) { return stage.view.mapFromScene(Keypad::at(key)); };
        stage.fingers.press(0, at(0));
        stage.fingers.press(1, at(5));
        stage.fingers.release(0);
        stage.fingers.release(1);
        QCOMPARE(stage.keypad.takeClicks(), u"0 5"_s);
    }

    void thumbsInAProxy()
    {
        KelTestView outer;
        auto *const inner = new KelTestView(QSize(380, 200));
        Keypad keypad(&inner->ownScene);
        outer.ownScene.addWidget(inner);
        QVERIFY(outer.showAndWait());
        Fingers fingers(outer.viewport());
        fingers.press(0, Keypad::at(0));
        fingers.press(1, Keypad::at(5));
        fingers.release(0);
        fingers.release(1);
        QCOMPARE(keypad.takeClicks(), u"0 5"_s);
    }

    void dialogTakesBothFingers()
    {
        Stage stage;
        QVERIFY(stage.view.showAndWait());
        stage.fingers.press(0, Keypad::at(0));
        stage.fingers.press(1, Keypad::at(3));
        auto dialog = std::make_unique<QDialog>();
        dialog->setModal(true);
        dialog->show();
        QTRY_VERIFY(!stage.keypad.keys.at(0)->style()->isMouseDown);
        QTRY_VERIFY(!stage.keypad.keys.at(3)->style()->isMouseDown);
        stage.fingers.release(1);
        stage.fingers.release(0);
        QCOMPARE(stage.keypad.takeClicks(), QString());
        dialog.reset();
        stage.fingers.tap(0, Keypad::at(5));
        stage.fingers.press(0, Keypad::at(1));
        stage.fingers.tap(1, Keypad::at(2));
        stage.fingers.release(0);
        QCOMPARE(stage.keypad.takeClicks(), u"5 2 1"_s);
    }

    void secondFingerDeletes_data()
    {
        QTest::addColumn<QByteArray>("signal");
        QTest::addColumn<Deletion>("deletion");
        const std::vector<std::pair<const char *, Deletion>> deletions = {
            {"its key", [](Stage *s) { delete s->keypad.keys.at(3); }},
            {"the key of the first finger", [](Stage *s) { delete s->keypad.keys.at(0); }},
            {"its key later", [](Stage *s) { s->keypad.keys.at(3)->deleteLater(); }},
            {"all keys",
             [](Stage *s) {
                 for (const QPointer<KELPushButton> &key : qAsConst(s->keypad.keys))
                     delete key;
             }},
        };
        const QByteArrayList signatures = {SIGNAL(mousePress(QPointF)),
                                           SIGNAL(mouseRelease(QPointF)), SIGNAL(mouseClicked())};
        for (const QByteArray &signal : signatures) {
            for (const auto &deletion : deletions) {
                QTest::addRow("%s: %s", signal.mid(1).constData(), deletion.first)
                    << signal << deletion.second;
            }
        }
    }

    void secondFingerDeletes()
    {
        QFETCH(QByteArray, signal);
        QFETCH(Deletion, deletion);
        Stage stage;
        QVERIFY(stage.view.showAndWait());
        int calls = 0;
        QSignalSpy spy(stage.keypad.keys.at(3), signal.constData());
        QTimer relay;
        connect(stage.keypad.keys.at(3), signal.constData(), &relay, SIGNAL(timeout()));
        // A slot that is connected to the relay runs inside the signal.
        connect(&relay, &QTimer::timeout, &stage.view, [&] {
            ++calls;
            deletion(&stage);
        });
        stage.fingers.press(0, Keypad::at(0));
        stage.fingers.press(1, Keypad::at(3));
        stage.fingers.move(1, Keypad::at(3) + QPoint(1, 1));
        stage.fingers.release(1);
        stage.fingers.release(0);
        QCOMPARE(calls, 1);
        stage.fingers.tap(0, Keypad::at(5));
    }

    void noFilterIsLeft()
    {
        Stage stage;
        QVERIFY(stage.view.showAndWait());
        const auto children = [] { return qApp->findChildren<QObject *>().size(); };
        stage.fingers.tap(0, Keypad::at(2));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        const int before = children();
        stage.fingers.press(0, Keypad::at(2));
        stage.fingers.press(1, Keypad::at(3));
        stage.fingers.release(0);
        stage.fingers.release(1);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(children(), before);
        stage.fingers.press(0, Keypad::at(2));
        stage.fingers.cancel();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(children(), before);
    }

    void noFilterIsLeftWhenTheWindowDies_data()
    {
        QTest::addColumn<int>("fingers");
        QTest::newRow("under the first finger") << 1;
        QTest::newRow("under two fingers") << 2;
    }

    void noFilterIsLeftWhenTheWindowDies()
    {
        QFETCH(int, fingers);
        const auto children = [] { return qApp->findChildren<QObject *>().size(); };
        auto view = std::make_unique<KelTestView>();
        const Keypad keypad(&view->ownScene);
        QVERIFY(view->showAndWait());
        Fingers panel(view->viewport());
        panel.tap(0, Keypad::at(2));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        const int before = children();
        for (int id = 0; id < fingers; ++id)
            panel.press(id, Keypad::at(id));
        QVERIFY(children() > before);
        view.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(children(), before);

        Stage next;
        QVERIFY(next.view.showAndWait());
        next.fingers.press(0, Keypad::at(0));
        next.fingers.tap(1, Keypad::at(1));
        next.fingers.release(0);
        QCOMPARE(next.keypad.takeClicks(), u"1 0"_s);
    }

    // Qt cancels the touch of a window behind a dialog when its last finger leaves.
    void fingerBehindADialogLeaves()
    {
        Stage stage;
        Stage dialog;
        dialog.view.setGeometry(400, 0, 400, 300);
        QVERIFY(stage.view.showAndWait());
        stage.fingers.press(0, Keypad::at(0));
        dialog.view.setWindowModality(Qt::ApplicationModal);
        QVERIFY(dialog.view.showAndWait());
        QTRY_VERIFY(!stage.keypad.keys.at(0)->isMouseDown());
        stage.fingers.pressIn(dialog.view.viewport(), 1, Keypad::at(1));
        QVERIFY(dialog.keypad.keys.at(1)->isMouseDown());
        stage.fingers.release(0);
        stage.fingers.pressIn(dialog.view.viewport(), 0,
                              Keypad::at(2)); // Qt still takes it for the mouse
        stage.fingers.release(0);
        stage.fingers.release(1);
        QCOMPARE(stage.keypad.takeClicks(), QString());
        QCOMPARE(dialog.keypad.takeSignals(),
                 u"1-press 2-press 2-release 2-click 1-release 1-click"_s);
        dialog.keypad.takeClicks();
        dialog.fingers.press(0, Keypad::at(0));
        dialog.fingers.tap(1, Keypad::at(1));
        dialog.fingers.release(0);
        QCOMPARE(dialog.keypad.takeClicks(), u"1 0"_s);
    }

    void cancelOfATouchPad()
    {
        Stage stage;
        QVERIFY(stage.view.showAndWait());
        stage.fingers.press(0, Keypad::at(0));
        stage.fingers.press(1, Keypad::at(1));
        QTouchEvent cancel(QEvent::TouchCancel, QTest::createTouchDevice(QTouchDevice::TouchPad));
        QCoreApplication::sendEvent(stage.view.windowHandle(), &cancel);
        stage.fingers.release(1);
        stage.fingers.release(0);
        QCOMPARE(stage.keypad.takeClicks(), u"1 0"_s);
    }
};

KEL_TEST_MAIN(tst_Touch)
#include "tst_touch.moc"
