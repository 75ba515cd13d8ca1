// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "loggingpart.h"
#include "losses.h"

#include <QtCore/QTimer>
#include <QtWidgets/QDialog>

namespace {

// A part in the place of the control, beside another one.
class PartStage : public ItemStage
{
public:
    explicit PartStage(LoggingPart *made = new LoggingPart) :
        ItemStage(made, new LoggingPart(QRectF(280, 220, 100, 50)))
    { }

    LoggingPart *operator->() const { return static_cast<LoggingPart *>(item.data()); }
    LoggingPart *other() const { return static_cast<LoggingPart *>(companion.data()); }
    QPoint centre() const { return QPoint(150, 125); }
    QPoint otherCentre() const { return QPoint(330, 245); }
    // Whether a tap on either of them reaches it, and is a tap.
    bool areTapped()
    {
        letEventsRun();
        (*this)->take();
        other()->take();
        hand.tap(otherCentre());
        hand.tap(centre());
        return (*this)->take() == u"press tap"_s && other()->take() == u"press tap"_s;
    }
};

// Opened by a hook, and closed after a moment.
void runDialog()
{
    QDialog dialog;
    QTimer::singleShot(20, &dialog, &QDialog::accept);
    dialog.exec();
}

const std::vector<Named> hooks = {{"press", 0}, {"drag", 1}, {"tap", 2}, {"lost", 3}};

QString hookOfTheRow()
{
    return QString::fromLatin1(hooks.at(fetch<size_t>("hook")).name);
}

} // namespace

class tst_KELPart : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void aPressIsATapOrADrag_data() { addRows({{"input", inputs}}); }

    void aPressIsATapOrADrag()
    {
        PartStage stage;
        stage.hand.use(fetch<Input>("input"));
        stage.hand.press(stage.centre());
        QVERIFY(stage->isPressed());
        stage.hand.release();
        QVERIFY(!stage->isPressed());
        QCOMPARE(stage->take(), u"press tap"_s);
        stage.hand.press(stage.centre());
        stage.hand.move(stage.centre() + QPoint(5, 5));
        stage.hand.move(stage.centre() + QPoint(6, 5));
        stage.hand.move(stage.centre());
        stage.hand.release();
        QCOMPARE(stage->take(), u"press move drag drag release"_s);
    }

    void aReleaseFarAwayIsNoTap()
    {
        PartStage stage;
        stage.hand.press(stage.centre());
        stage.hand.release(stage.centre() + QPoint(-11, 0));
        QCOMPARE(stage->take(), u"press release"_s);
        QCOMPARE(stage->pos, QPointF(39, 25));
    }

    void theSecondOfTwoTapsIsATap()
    {
        PartStage stage;
        stage.hand.doubleTap(stage.centre());
        QCOMPARE(stage->take(), u"press tap press tap"_s);
    }

    void onlyTheLeftButtonPresses_data() { addRows({{"button", otherMouseButtons}}); }

    void onlyTheLeftButtonPresses()
    {
        const auto button = fetch<Qt::MouseButton>("button");
        PartStage stage;
        stage.hand.press(stage.centre(), button);
        stage.hand.release(stage.centre(), button);
        QCOMPARE(stage->take(), QString());
        stage.hand.press(stage.centre());
        stage.hand.press(stage.centre(), button);
        stage.hand.release(stage.centre(), button);
        QVERIFY(stage->isPressed());
        stage.hand.release();
        QCOMPARE(stage->take(), u"press tap"_s);
    }

    void aRefusedPressGoesToTheItemBelow()
    {
        PartStage stage;
        auto *const above = new LoggingPart;
        above->takesPresses = false;
        above->setZValue(1);
        stage.view.ownScene.addItem(above);
        stage.hand.tap(stage.centre());
        QVERIFY(!above->isPressed());
        QCOMPARE(above->take(), u"press"_s);
        QCOMPARE(stage->take(), u"press tap"_s);
    }

    void aLostPressIsNoTap_data() { addRows({{"loss", lossNames()}, {"input", inputs}}); }

    // Qt takes the grab from some, and knows nothing of others.
    void aLostPressIsNoTap()
    {
        const Loss &loss = losses().at(fetch<size_t>("loss"));
        PartStage stage;
        stage.hand.use(fetch<Input>("input"));
        stage.hand.press(stage.centre());
        loss.lose(stage);
        QCoreApplication::postEvent(qApp, new QEvent(QEvent::User)); // some causes no event tells
        letEventsRun();
        QVERIFY(!stage->isPressed());
        QCOMPARE(stage->take(), u"press lost"_s);
        loss.restore(stage);
        stage.hand.release();
        QCOMPARE(stage->take(), QString());
        QVERIFY(stage.areTapped());
    }

    void aCancelledTouchIsNoTap()
    {
        PartStage stage;
        stage.hand.use(Input::Touch);
        stage.hand.press(stage.centre());
        stage.hand.cancel();
        letEventsRun();
        QVERIFY(!stage->isPressed());
        QCOMPARE(stage->take(), u"press lost"_s);
        QVERIFY(stage.areTapped());
    }

    void aLossIsToldAfterItsCause()
    {
        PartStage stage;
        stage.hand.press(stage.centre());
        stage->hide();
        QVERIFY(!stage->isPressed());
        QCOMPARE(stage->take(), u"press"_s);
        letEventsRun();
        QCOMPARE(stage->take(), u"lost"_s);
    }

    void aLossIsToldBeforeTheNextPress()
    {
        PartStage stage;
        stage.hand.press(stage.centre());
        stage->ungrabMouse();
        stage.hand.press(stage.centre());
        QCOMPARE(stage->take(), u"press lost press"_s);
        QVERIFY(stage->isPressed());
    }

    // The release went elsewhere, so there is nothing to wait for.
    void aHookThatRunsADialogLosesThePress_data() { addRows({{"input", inputs}}); }

    void aHookThatRunsADialogLosesThePress()
    {
        PartStage stage;
        stage.hand.use(fetch<Input>("input"));
        stage->actsOn = u"press"_s;
        stage->action = runDialog;
        stage.hand.press(stage.centre());
        QVERIFY(!stage->isPressed());
        stage->actsOn.clear();
        stage.hand.release();
        letEventsRun();
        QCOMPARE(stage->take(), u"press lost"_s);
        QVERIFY(stage.areTapped());
    }

    void aHookThatHidesThePartLosesThePress()
    {
        PartStage stage;
        stage->actsOn = u"press"_s;
        stage->action = [&stage] { stage->hide(); };
        stage.hand.press(stage.centre());
        QVERIFY(!stage->isPressed());
        stage->actsOn.clear();
        stage->show();
        stage.hand.release();
        QVERIFY(stage.areTapped());
    }

    void aTapMayRunADialog()
    {
        PartStage stage;
        stage->actsOn = u"tap"_s;
        stage->action = runDialog;
        stage.hand.tap(stage.centre());
        stage->actsOn.clear();
        QCOMPARE(stage->take(), u"press tap"_s);
        QVERIFY(stage.areTapped());
    }

    void hooksMayDeleteThePart_data()
    {
        addRows({{"hook", hooks}, {"input", inputs}, {"isLater", {{"at once", 0}, {"later", 1}}}});
    }

    void hooksMayDeleteThePart()
    {
        const QString hook = hookOfTheRow();
        const bool isLater = fetch<bool>("isLater");
        PartStage stage;
        stage.hand.use(fetch<Input>("input"));
        stage->actsOn = hook;
        stage->action = [&stage, isLater] {
            if (isLater)
                stage->deleteLater();
            else
                delete stage.item;
        };
        stage.hand.press(stage.centre());
        if (hook == u"drag"_s)
            stage.hand.move(stage.centre() + QPoint(20, 0));
        if (hook == u"lost"_s)
            stage->ungrabMouse();
        else
            stage.hand.release();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        letEventsRun();
        QVERIFY(!stage.item);
        stage.hand.tap(stage.otherCentre());
        QCOMPARE(stage.other()->take(), u"press tap"_s);
    }

    // As a slot does that belongs to another item.
    void aPressedPartMayBeDeleted()
    {
        PartStage stage;
        stage.hand.press(stage.centre());
        delete stage.item;
        stage.hand.move(stage.otherCentre());
        stage.hand.release();
        stage.hand.tap(stage.otherCentre());
        QCOMPARE(stage.other()->take(), u"press tap"_s);
    }

    void theRingFollowsTheKeys_data()
    {
        addRows({{"reason",
                  {{"tab", Qt::TabFocusReason},
                   {"backtab", Qt::BacktabFocusReason},
                   {"shortcut", Qt::ShortcutFocusReason},
                   {"mouse", Qt::MouseFocusReason},
                   {"other", Qt::OtherFocusReason}}}});
    }

    void theRingFollowsTheKeys()
    {
        const auto reason = fetch<Qt::FocusReason>("reason");
        const bool isByKey = reason != Qt::MouseFocusReason && reason != Qt::OtherFocusReason;
        PartStage stage;
        stage.view.showOnce();
        QVERIFY(!stage->isFocusShown());
        stage->setFocus(reason);
        QCOMPARE(stage->isFocusShown(), isByKey);
        QTest::keyClick(stage.view.viewport(), Qt::Key_A);
        QVERIFY(stage->isFocusShown());
        stage.hand.tap(stage.centre());
        QVERIFY(stage->hasFocus());
        QVERIFY(!stage->isFocusShown());
        stage->setFocus(Qt::TabFocusReason);
        stage->clearFocus();
        QVERIFY(!stage->isFocusShown());
    }

    void theRingComesBackWithTheWindow_data()
    {
        addRows(
            {{"reason", {{"window", Qt::ActiveWindowFocusReason}, {"popup", Qt::PopupFocusReason}}},
             {"wasShown", {{"ring", 1}, {"no ring", 0}}}});
    }

    void theRingComesBackWithTheWindow()
    {
        const auto reason = fetch<Qt::FocusReason>("reason");
        const bool wasShown = fetch<bool>("wasShown");
        PartStage stage;
        stage.view.showOnce();
        stage->setFocus(wasShown ? Qt::TabFocusReason : Qt::OtherFocusReason);
        QFocusEvent leaving(QEvent::FocusOut, reason);
        QCoreApplication::sendEvent(&stage.view, &leaving);
        QFocusEvent returning(QEvent::FocusIn, reason);
        QCoreApplication::sendEvent(&stage.view, &returning);
        QVERIFY(stage->hasFocus());
        QCOMPARE(stage->isFocusShown(), wasShown);
    }

    void aPlainKeyHasNoModifier()
    {
        const auto isPlain = [](Qt::KeyboardModifiers modifiers) {
            const QKeyEvent event(QEvent::KeyPress, Qt::Key_Up, modifiers);
            return LoggingPart::isPlainKey(&event);
        };
        QVERIFY(isPlain(Qt::NoModifier));
        QVERIFY(isPlain(Qt::KeypadModifier));
        QVERIFY(!isPlain(Qt::ShiftModifier));
        QVERIFY(!isPlain(Qt::KeypadModifier | Qt::ControlModifier));
    }

    void theRecordIsThatOfTheLightTheme()
    {
        const LoggingPart part;
        const KELPartStyle *const style = part.partStyle();
        QCOMPARE(style->backgroundBrush, QBrush(QColor(0xff, 0xff, 0xff)));
        QCOMPARE(style->pressedBrush, QBrush(QColor(0xee, 0xee, 0xef)));
        QCOMPARE(style->selectedBrush, QBrush(QColor(0x0b, 0x62, 0xd6)));
        QCOMPARE(style->selectedForegroundBrush, QBrush(QColor(0xff, 0xff, 0xff)));
        QCOMPARE(style->foregroundBrush, QBrush(QColor(0x14, 0x1a, 0x22)));
        QCOMPARE(style->mutedBrush, QBrush(QColor(0x56, 0x61, 0x6f)));
        QCOMPARE(style->disabledBrush, QBrush(QColor(0x72, 0x78, 0x83)));
        QCOMPARE(style->borderBrush, QBrush(QColor(0xd5, 0xdc, 0xe5)));
        QCOMPARE(style->accentBrush, QBrush(QColor(0x0b, 0x62, 0xd6)));
        QCOMPARE(style->accentForegroundBrush, QBrush(QColor(0xff, 0xff, 0xff)));
        QCOMPARE(style->trackBrush, QBrush(QColor(0xdd, 0xe3, 0xeb)));
        QCOMPARE(style->knobBrush, QBrush(QColor(0x56, 0x61, 0x6f)));
        QCOMPARE(style->borderWidth, 1.0);
        QCOMPARE(style->radius, 12.0);
        QCOMPARE(style->margins, QMarginsF(16, 8, 16, 8));
        QCOMPARE(style->spacing, 8.0);
        QCOMPARE(style->rowHeight, 64.0);
        QCOMPARE(style->font.pixelSize(), 16);
        QCOMPARE(style->secondaryFont.pixelSize(), 13);
        QCOMPARE(style->iconSize, 24);
    }

    void theFocusIsShownBesideControls_data()
    {
        addRows({{"reason",
                  {{"tab", Qt::TabFocusReason},
                   {"pointer", Qt::MouseFocusReason},
                   {"other", Qt::OtherFocusReason}}}});
    }

    void theFocusIsShownBesideControls()
    {
        KelTestView view;
        view.ownScene.addItem(new KELPushButton);
        auto *part = new LoggingPart;
        view.ownScene.addItem(part);
        view.showOnce();
        const auto reason = fetch<Qt::FocusReason>("reason");
        part->setFocus(reason);
        QCOMPARE(part->isFocusShown(), reason == Qt::TabFocusReason);
        view.ownScene.setFocusItem(nullptr);
        QVERIFY(!part->isFocusShown());
        part->setFocus(Qt::PopupFocusReason); // comes back as it was
        QCOMPARE(part->isFocusShown(), reason == Qt::TabFocusReason);
    }
};

KEL_TEST_MAIN(tst_KELPart)
#include "tst_kelpart.moc"
