// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "togglestage.h"

#include <QtCore/QTimer>
#include <QtWidgets/QDialog>
#include <QtWidgets/QMenu>

#include <memory>

namespace {

void addKinds()
{
    QTest::addColumn<int>("kind");

    for (const Named &kind : kinds)
        QTest::newRow(kind.name) << kind.value;
}

void addKindsAndInputs()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("input");

    for (const Named &kind : kinds) {
        for (const Named &input : inputs)
            QTest::addRow("%s, %s", kind.name, input.name) << kind.value << input.value;
    }
}

// Opens over the box that is pressed, and so gets the release.
std::unique_ptr<QWidget> newCover(const QString &what)
{
    if (what == QLatin1String("menu")) {
        auto menu = std::make_unique<QMenu>();
        menu->addAction(u"Stop"_s);
        menu->popup(QPoint(10, 10));
        return menu;
    }
    if (what == QLatin1String("popup")) {
        auto popup = std::make_unique<QWidget>(nullptr, Qt::Popup);
        popup->show();
        return popup;
    }
    auto dialog = std::make_unique<QDialog>();
    dialog->setWindowModality(Qt::ApplicationModal);
    dialog->show();
    return dialog;
}

const QStringList covers = {u"menu"_s, u"popup"_s, u"modal dialog"_s};

void addKindsAndCovers()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("cover");

    for (const Named &kind : kinds) {
        for (const QString &cover : covers)
            QTest::addRow("%s, %s", kind.name, qPrintable(cover)) << kind.value << cover;
    }
}

} // namespace

// What a check box and a radio box that is in no group have in common.
class tst_Toggle : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QApplication::setDoubleClickInterval(5000); }

    void everyChangeEmitsTwoSignals_data() { addKinds(); }

    void everyChangeEmitsTwoSignals()
    {
        QFETCH(int, kind);
        Stage stage{Kind(kind)};
        stage.box->setCheck(true);
        QCOMPARE(stage.takeNames(), u"checked changed"_s);
        QVERIFY(stage.box->isCheck());
        stage.box->setCheck(false);
        QCOMPARE(stage.takeNames(), u"unchecked changed"_s);
        QVERIFY(!stage.box->isCheck());
    }

    void settingThePresentStateDoesNothing_data() { addKinds(); }

    void settingThePresentStateDoesNothing()
    {
        QFETCH(int, kind);
        Stage stage{Kind(kind)};
        stage.box->setCheck(false);
        QCOMPARE(stage.takeNames(), QString());
        stage.box->setCheck(true);
        stage.takeNames();
        stage.box->setCheck(true);
        stage.box->setProperty("check", true);
        QCOMPARE(stage.takeNames(), QString());
        QVERIFY(stage.box->isCheck());
    }

    void checkIsAProperty_data() { addKinds(); }

    void checkIsAProperty()
    {
        QFETCH(int, kind);
        Stage stage{Kind(kind)};
        QCOMPARE(stage.box->property("check"), QVariant(false));
        QVERIFY(stage.box->setProperty("check", true));
        QVERIFY(stage.box->isCheck());
        QCOMPARE(stage.box->property("check"), QVariant(true));
        QCOMPARE(stage.takeNames(), u"checked changed"_s);
        stage.box->setCheck(false);
        QCOMPARE(stage.box->property("check"), QVariant(false));
    }

    void stateIsStoredBeforeTheSignals_data() { addKinds(); }

    void stateIsStoredBeforeTheSignals()
    {
        QFETCH(int, kind);
        Stage stage{Kind(kind)};
        QList<bool> states;
        for (const Signal signal : {Signal::Checked, Signal::Unchecked, Signal::CheckChanged})
            connectTo(stage.box, signal, this, [&] { states.append(stage.box->isCheck()); });
        stage.box->setCheck(true);
        stage.box->setCheck(false);
        QCOMPARE(states, QList<bool>({true, true, false, false}));
    }

    void uncheckedAgainInsideChecked_data() { addKinds(); }

    void uncheckedAgainInsideChecked()
    {
        QFETCH(int, kind);
        Stage stage{Kind(kind)};
        connectTo(stage.box, Signal::Checked, &stage.view, [&] { stage.box->setCheck(false); });
        stage.box->setCheck(true);
        QCOMPARE(stage.takeNames(), u"checked unchecked changed changed"_s);
        QVERIFY(!stage.box->isCheck());
    }

    void checkedAgainInsideUnchecked_data() { addKinds(); }

    void checkedAgainInsideUnchecked()
    {
        QFETCH(int, kind);
        Stage stage{Kind(kind)};
        stage.box->setCheck(true);
        stage.takeNames();
        connectTo(stage.box, Signal::Unchecked, &stage.view, [&] { stage.box->setCheck(true); });
        stage.box->setCheck(false);
        QCOMPARE(stage.takeNames(), u"unchecked checked changed changed"_s);
        QVERIFY(stage.box->isCheck());
    }

    void checkedAgainInsideCheckChanged_data() { addKinds(); }

    void checkedAgainInsideCheckChanged()
    {
        QFETCH(int, kind);
        Stage stage{Kind(kind)};
        connectTo(stage.box, Signal::CheckChanged, &stage.view, [&] { stage.box->setCheck(true); });
        stage.box->setCheck(true);
        QCOMPARE(stage.takeNames(), u"checked changed"_s);
        stage.box->setCheck(false);
        QCOMPARE(stage.takeNames(), u"unchecked changed checked changed"_s);
        QVERIFY(stage.box->isCheck());
    }

    void changeIsRepainted_data() { addKinds(); }

    void changeIsRepainted()
    {
        QFETCH(int, kind);
        Stage stage{Kind(kind)};
        stage.box->KELRoundRectControl::style()->borderBrush = QBrush(Qt::black);
        QVERIFY(stage.show());
        // The middle, which the knob never covers and the dot does.
        const auto colour = [&stage] { return stage.view.grab().toImage().pixelColor(boxCentre); };
        const QColor off = colour();
        stage.box->setCheck(true);
        QTRY_VERIFY(colour() != off);
        stage.box->setCheck(false);
        QTRY_COMPARE(colour(), off);
    }

    void pressToggles_data() { addKindsAndInputs(); }

    void pressToggles()
    {
        QFETCH(int, kind);
        QFETCH(int, input);
        Stage stage{Kind(kind)};
        QVERIFY(stage.show());
        stage.press(Input(input));
        QVERIFY(stage.box->isCheck());
        QVERIFY(stage.box->isMouseDown());
        QCOMPARE(stage.takeNames(), u"press checked changed"_s);
        stage.release(Input(input));
        QVERIFY(stage.box->isCheck());
        QVERIFY(!stage.box->isMouseDown());
        QCOMPARE(stage.takeNames(), u"release click"_s);

        stage.tap(Input(input), besideTheBoxes);
        stage.press(Input(input));
        QVERIFY(!stage.box->isCheck());
        QCOMPARE(stage.takeNames(), u"press unchecked changed"_s);
        stage.release(Input(input));
        QVERIFY(!stage.box->isCheck());
        QCOMPARE(stage.takeNames(), u"release click"_s);
    }

    void moveAwayKeepsTheNewState_data() { addKindsAndInputs(); }

    void moveAwayKeepsTheNewState()
    {
        QFETCH(int, kind);
        QFETCH(int, input);
        Stage stage{Kind(kind)};
        QVERIFY(stage.show());
        stage.press(Input(input));
        stage.move(Input(input), besideTheBoxes);
        stage.release(Input(input), besideTheBoxes);
        QCOMPARE(stage.takeNames(), u"press checked changed release"_s);
        QVERIFY(stage.box->isCheck());
    }

    void doubleClickTogglesTwice_data() { addKindsAndInputs(); }

    void doubleClickTogglesTwice()
    {
        QFETCH(int, kind);
        QFETCH(int, input);
        Stage stage{Kind(kind)};
        QVERIFY(stage.show());
        stage.tap(Input(input));
        QCOMPARE(stage.takeNames(), u"press checked changed release click"_s);
        stage.pressAgain(Input(input));
        QCOMPARE(stage.takeNames(), u"press unchecked changed double"_s);
        stage.release(Input(input));
        QCOMPARE(stage.takeNames(), u"release click"_s);
        QVERIFY(!stage.box->isCheck());
    }

    void otherButtonsAreNotAccepted_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<int>("button");

        for (const Named &kind : kinds) {
            QTest::addRow("%s, right", kind.name) << kind.value << int(Qt::RightButton);
            QTest::addRow("%s, middle", kind.name) << kind.value << int(Qt::MiddleButton);
            QTest::addRow("%s, back", kind.name) << kind.value << int(Qt::BackButton);
        }
    }

    void otherButtonsAreNotAccepted()
    {
        QFETCH(int, kind);
        QFETCH(int, button);
        Stage stage{Kind(kind)};
        QVERIFY(stage.show());
        stage.view.press(boxCentre, Qt::MouseButton(button));
        stage.view.release(boxCentre, Qt::MouseButton(button));
        QCOMPARE(stage.takeNames(), QString());
        QVERIFY(!stage.box->isCheck());
    }

    void otherButtonsPressButDoNotToggle_data() { otherButtonsAreNotAccepted_data(); }

    void otherButtonsPressButDoNotToggle()
    {
        QFETCH(int, kind);
        QFETCH(int, button);
        for (const bool on : {false, true}) {
            Stage stage{Kind(kind)};
            stage.box->setAcceptedMouseButtons(Qt::AllButtons);
            stage.box->setCheck(on);
            QVERIFY(stage.show());
            stage.takeNames();
            stage.pressOnly(boxCentre, Qt::MouseButton(button));
            QCOMPARE(stage.takeNames(), u"press"_s);
            QVERIFY(stage.box->style()->isMouseDown);
            QCOMPARE(stage.box->isCheck(), on);
        }
    }

    void pressBesideTheBox_data() { addKindsAndInputs(); }

    void pressBesideTheBox()
    {
        QFETCH(int, kind);
        QFETCH(int, input);
        Stage stage{Kind(kind)};
        QVERIFY(stage.show());
        for (const QPoint &pos :
             {QPoint(98, 115), QPoint(182, 115), QPoint(140, 98), QPoint(140, 132)})
            stage.tap(Input(input), pos);
        QCOMPARE(stage.takeNames(), QString());
        // The corner belongs to the box, although nothing is drawn there.
        stage.tap(Input(input), QPoint(101, 101));
        QCOMPARE(stage.takeNames(), u"press checked changed release click"_s);
    }

    void disabledBoxDoesNotToggle_data() { addKindsAndInputs(); }

    void disabledBoxDoesNotToggle()
    {
        QFETCH(int, kind);
        QFETCH(int, input);
        Stage stage{Kind(kind)};
        stage.box->setEnabled(false);
        QVERIFY(stage.show());
        stage.tap(Input(input));
        QCOMPARE(stage.takeNames(), QString());
        stage.box->setCheck(true);
        QCOMPARE(stage.takeNames(), u"checked changed"_s);
    }

    void checkedInsideThePressSlot_data() { addKinds(); }

    void checkedInsideThePressSlot()
    {
        QFETCH(int, kind);
        Stage stage{Kind(kind)};
        connectTo(stage.box, Signal::Press, &stage.view, [&] { stage.box->setCheck(true); });
        QVERIFY(stage.show());
        stage.press(Input::Mouse);
        // The press toggles what it finds when its slots have run.
        QCOMPARE(stage.takeNames(), u"press checked changed unchecked changed"_s);
        stage.release(Input::Mouse);
        QVERIFY(!stage.box->isCheck());
    }

    void unselectableBoxToggles_data() { addKinds(); }

    void unselectableBoxToggles()
    {
        QFETCH(int, kind);
        Stage stage{Kind(kind)};
        stage.box->setFlag(QGraphicsItem::ItemIsSelectable, false);
        QVERIFY(stage.show());
        stage.tap(Input::Mouse);
        // The press is ignored, and so the release goes elsewhere.
        QCOMPARE(stage.takeNames(), u"press checked changed"_s);
        QVERIFY(stage.box->isCheck());
    }

    void pressSentByMistakeDoesNotToggle_data() { addKindsAndCovers(); }

    void pressSentByMistakeDoesNotToggle()
    {
        QFETCH(int, kind);
        QFETCH(QString, cover);
        Stage stage{Kind(kind)};
        QVERIFY(stage.show());
        const QSignalSpy otherClicked(stage.other, &KELPushButton::mouseClicked);
        stage.pressOnly(boxCentre);
        QCOMPARE(stage.takeNames(), u"press checked changed"_s);
        auto window = newCover(cover);
        QTRY_VERIFY(!stage.box->style()->isMouseDown);
        window.reset();
        stage.tap(Input::Mouse, otherCentre);
        QCOMPARE(stage.takeNames(), QString());
        QVERIFY(stage.box->isCheck());
        QCOMPARE(otherClicked.count(), 1);
        // Only the one press went astray.
        stage.tap(Input::Mouse);
        QCOMPARE(stage.takeNames(), u"press unchecked changed release click"_s);
    }

    void pressSentByMistakeToNothing_data() { addKindsAndCovers(); }

    void pressSentByMistakeToNothing()
    {
        QFETCH(int, kind);
        QFETCH(QString, cover);
        Stage stage{Kind(kind)};
        QVERIFY(stage.show());
        stage.pressOnly(boxCentre);
        auto window = newCover(cover);
        QTRY_VERIFY(!stage.box->style()->isMouseDown);
        window.reset();
        stage.takeNames();
        stage.tap(Input::Mouse, besideTheBoxes);
        QCOMPARE(stage.takeNames(), QString());
        QVERIFY(stage.box->isCheck());
    }

    void doubleClickSentByMistakeDoesNotToggle_data() { addKindsAndCovers(); }

    void doubleClickSentByMistakeDoesNotToggle()
    {
        QFETCH(int, kind);
        QFETCH(QString, cover);
        Stage stage{Kind(kind)};
        QVERIFY(stage.show());
        const QSignalSpy otherClicked(stage.other, &KELPushButton::mouseClicked);
        stage.pressOnly(boxCentre);
        auto window = newCover(cover);
        QTRY_VERIFY(!stage.box->style()->isMouseDown);
        window.reset();
        stage.takeNames();
        stage.view.doubleClickPress(otherCentre);
        stage.view.release(otherCentre);
        QCOMPARE(stage.takeNames(), QString());
        QVERIFY(stage.box->isCheck());
        QCOMPARE(otherClicked.count(), 1);
    }

    void touchSentByMistakeDoesNotToggle_data() { addKindsAndCovers(); }

    void touchSentByMistakeDoesNotToggle()
    {
        QFETCH(int, kind);
        QFETCH(QString, cover);
        Stage stage{Kind(kind)};
        QVERIFY(stage.show());
        const QSignalSpy otherClicked(stage.other, &KELPushButton::mouseClicked);
        stage.pressOnly(boxCentre);
        auto window = newCover(cover);
        QTRY_VERIFY(!stage.box->style()->isMouseDown);
        window.reset();
        stage.takeNames();
        stage.tap(Input::Touch, otherCentre);
        QCOMPARE(stage.takeNames(), QString());
        QVERIFY(stage.box->isCheck());
        QCOMPARE(otherClicked.count(), 1);
    }

    void nextPressAfterACoverToggles_data() { addKindsAndCovers(); }

    void nextPressAfterACoverToggles()
    {
        QFETCH(int, kind);
        QFETCH(QString, cover);
        Stage stage{Kind(kind)};
        QVERIFY(stage.show());
        stage.pressOnly(boxCentre);
        auto window = newCover(cover);
        QTRY_VERIFY(!stage.box->style()->isMouseDown);
        window.reset();
        stage.takeNames();
        stage.tap(Input::Mouse);
        QCOMPARE(stage.takeNames(), u"press unchecked changed release click"_s);
        stage.tap(Input::Mouse);
        QCOMPARE(stage.takeNames(), u"press checked changed release click"_s);
    }

    void coverOpenedInsideChecked_data() { addKindsAndCovers(); }

    void coverOpenedInsideChecked()
    {
        QFETCH(int, kind);
        QFETCH(QString, cover);
        Stage stage{Kind(kind)};
        std::unique_ptr<QWidget> window;
        connectTo(stage.box, Signal::Checked, &stage.view, [&] { window = newCover(cover); });
        QVERIFY(stage.show());
        const QSignalSpy otherClicked(stage.other, &KELPushButton::mouseClicked);
        stage.pressOnly(boxCentre);
        QCOMPARE(stage.takeNames(), u"press checked changed"_s);
        QTRY_VERIFY(!stage.box->style()->isMouseDown);
        window.reset();
        stage.tap(Input::Mouse, otherCentre);
        QCOMPARE(stage.takeNames(), QString());
        QVERIFY(stage.box->isCheck());
        QCOMPARE(otherClicked.count(), 1);
    }

    void deletedInASlot_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<int>("signal");
        QTest::addColumn<int>("way");
        QTest::addColumn<int>("input");

        for (const Named &kind : kinds) {
            for (const Named &signal : signalNames) {
                for (const Named &way : ways) {
                    for (const Named &input : inputs) {
                        QTest::addRow("%s, %s by %s, %s", kind.name, signal.name, input.name,
                                      way.name)
                            << kind.value << signal.value << way.value << input.value;
                    }
                }
            }
        }
    }

    void deletedInASlot()
    {
        QFETCH(int, kind);
        QFETCH(int, signal);
        QFETCH(int, way);
        QFETCH(int, input);
        Stage stage{Kind(kind)};
        stage.box->setCheck(Signal(signal) == Signal::Unchecked);
        stage.takeNames();
        connectTo(stage.box, Signal(signal), &stage.view, [&] { stage.destroy(Way(way)); });
        QVERIFY(stage.show());
        stage.tap(Input(input));
        if (Signal(signal) == Signal::DoubleClicked) {
            stage.pressAgain(Input(input));
            stage.release(Input(input));
        }
        QCOMPARE(stage.destroyCalls, 1);
        const QString names = stage.takeNames();
        if (Way(way) != Way::DeleteLater)
            QVERIFY2(names.endsWith(nameOf(Signal(signal))), qPrintable(names));
        // Between the events of a finger QTest runs the event loop.
        else if (Input(input) == Input::Mouse)
            QVERIFY2(names.endsWith(QLatin1String("release click")), qPrintable(names));
        else
            QVERIFY2(names.contains(QLatin1String("changed")), qPrintable(names));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!stage.box);
        QCoreApplication::processEvents();

        // The scene has forgotten the dead box: a new one in its place gets one whole tap.
        auto *next = newBox(Kind(kind));
        stage.view.ownScene.addItem(next);
        const QSignalSpy clicked(next, &KELRoundRectControl::mouseClicked);
        stage.tap(Input(input), besideTheBoxes);
        stage.tap(Input(input));
        QCOMPARE(clicked.count(), 1);
        QVERIFY(next->isCheck());
    }

    void deletedInASlotOfSetCheck_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<int>("signal");
        QTest::addColumn<bool>("byProperty");

        const Named states[] = {{"checked", int(Signal::Checked)},
                                {"unchecked", int(Signal::Unchecked)},
                                {"check changed", int(Signal::CheckChanged)}};
        for (const Named &kind : kinds) {
            for (const Named &signal : states) {
                QTest::addRow("%s, %s by setCheck", kind.name, signal.name)
                    << kind.value << signal.value << false;
                QTest::addRow("%s, %s by the property", kind.name, signal.name)
                    << kind.value << signal.value << true;
            }
        }
    }

    void deletedInASlotOfSetCheck()
    {
        QFETCH(int, kind);
        QFETCH(int, signal);
        QFETCH(bool, byProperty);
        QPointer<KELRoundRectControl> box(newBox(Kind(kind)));
        const bool wasOn = Signal(signal) == Signal::Unchecked;
        box->setCheck(wasOn);
        int changes = 0;
        connectTo(box, Signal::CheckChanged, this, [&changes] { ++changes; });
        connectTo(box, Signal(signal), this, [&box] { delete box; });
        if (byProperty)
            box->setProperty("check", !wasOn);
        else
            box->setCheck(!wasOn);
        QVERIFY(!box);
        QCOMPARE(changes, Signal(signal) == Signal::CheckChanged ? 1 : 0);
    }

    void unselectableBoxDeletedInASlot_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<int>("signal");
        QTest::addColumn<int>("way");

        const Named states[] = {{"press", int(Signal::Press)},
                                {"checked", int(Signal::Checked)},
                                {"unchecked", int(Signal::Unchecked)},
                                {"check changed", int(Signal::CheckChanged)}};
        for (const Named &kind : kinds) {
            for (const Named &signal : states) {
                for (const Named &way : ways) {
                    QTest::addRow("%s, %s, %s", kind.name, signal.name, way.name)
                        << kind.value << signal.value << way.value;
                }
            }
        }
    }

    // Qt warns when an item that is gone has ignored its press.
    void unselectableBoxDeletedInASlot()
    {
        QFETCH(int, kind);
        QFETCH(int, signal);
        QFETCH(int, way);
        Stage stage{Kind(kind)};
        stage.box->setCheck(Signal(signal) == Signal::Unchecked);
        stage.box->setFlag(QGraphicsItem::ItemIsSelectable, false);
        connectTo(stage.box, Signal(signal), &stage.view, [&] { stage.destroy(Way(way)); });
        QVERIFY(stage.show());
        stage.tap(Input::Mouse);
        QCOMPARE(stage.destroyCalls, 1);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!stage.box);
        QCOMPARE(takeWarnings(), QStringList());
        QCOMPARE(stage.view.ownScene.mouseGrabberItem(), nullptr);
    }
};

KEL_TEST_MAIN(tst_Toggle)
#include "tst_toggle.moc"
