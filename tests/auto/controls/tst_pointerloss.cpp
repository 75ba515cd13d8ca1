// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "losses.h"

#include <kelcheckbox.h>
#include <kelradiobox.h>

#include <QtWidgets/QDialog>
#include <QtWidgets/QGraphicsRectItem>
#include <QtWidgets/QToolTip>

namespace {

enum class Type { SelectableBase, PushButton, CheckBox, RadioBox, UnselectableBase };
const Named selectableBase{"selectable base", int(Type::SelectableBase)};
const Named pushButton{"push button", int(Type::PushButton)};
const Named checkBox{"check box", int(Type::CheckBox)};
const Named radioBox{"radio box", int(Type::RadioBox)};

const std::vector<Named> moments = {{"later", false}, {"inside the press slot", true}};

KELRoundRectControl *newOf(Type type)
{
    switch (type) {
    case Type::PushButton:
        return new KELPushButton;
    case Type::CheckBox:
        return new KELCheckBox;
    case Type::RadioBox:
        return new KELRadioBox;
    case Type::SelectableBase:
    case Type::UnselectableBase:
        break;
    }
    auto *const base = new KELRoundRectControl;
    base->setFlag(QGraphicsItem::ItemIsSelectable, type == Type::SelectableBase);
    return base;
}

KELRoundRectControl *newControl(Type type)
{
    KELRoundRectControl *const control = newOf(type);
    control->setboundRect(100, 100, 100, 50);
    return control;
}

// A control that loses the pointer.
class LossStage : public ControlStage
{
public:
    explicit LossStage(Type type = Type::PushButton) : ControlStage(newControl(type)) { }
    ~LossStage() { cover.reset(); } // may be a child of the other window

    void pressAndLose(const Loss &loss, bool inSlot = false)
    {
        if (inSlot) {
            log.on(u"press"_s, [this, &loss] {
                if (!std::exchange(m_hasLost, true))
                    loss.lose(*this);
            });
        }
        hand.press(centre());
        if (inSlot)
            return;
        QVERIFY(control->isMouseDown());
        loss.lose(*this);
    }

    // The same, until the control knows it and can be used again. The scene may still take it for
    // the target of the next press.
    void pressLoseAndRestore(const Loss &loss, bool inSlot = false)
    {
        pressAndLose(loss, inSlot);
        QTRY_VERIFY(!control->style()->isMouseDown);
        loss.restore(*this);
        QCoreApplication::processEvents();
        log.take();
    }

    void openModal(QWidget *dialogParent, Qt::WindowModality modality)
    {
        cover = std::make_unique<QDialog>(dialogParent);
        cover->setWindowModality(modality);
        cover->show();
    }

    void openPopup()
    {
        cover = std::make_unique<QWidget>(nullptr, Qt::Popup);
        cover->show();
    }

    void reopenAsModal()
    {
        window.hide();
        window.setWindowModality(Qt::ApplicationModal);
        window.show();
    }

    void reopenAsPopup()
    {
        window.setWindowFlags(Qt::Popup);
        window.show();
    }

    QWidget otherWindow;

private:
    bool m_hasLost = false;
};

std::vector<Named> lossesNamed(const QByteArrayList &names)
{
    std::vector<Named> found;
    for (const Named &loss : lossNames()) {
        if (names.contains(loss.name))
            found.push_back(loss);
    }
    return found;
}

const Loss &lossOfTheRow()
{
    return losses().at(fetch<size_t>("loss"));
}

void addLosses(const std::vector<Named> &types)
{
    addRows({{"loss", lossNames()}, {"type", types}, {"inSlot", moments}});
}

// What takes the release, and so leaves a stale grab.
std::vector<Named> covers()
{
    return lossesNamed({"menu opened", "popup window opened", "application-modal dialog opened"});
}

void addCovers()
{
    addRows({{"loss", covers()}, {"type", {pushButton, checkBox, radioBox}}});
}

using Step = void (*)(LossStage &);

struct Harmless
{
    const char *name;
    Step before;
    Step during;
};

void nothing(LossStage & /*stage*/) { }

void closeCover(LossStage &stage)
{
    stage.cover.reset();
}

void openPopup(LossStage &stage)
{
    stage.openPopup();
}

void reopenAsPopup(LossStage &stage)
{
    stage.reopenAsPopup();
}

void reopenAsModal(LossStage &stage)
{
    stage.reopenAsModal();
}

void showOtherWindow(LossStage &stage)
{
    stage.otherWindow.show();
}

const std::vector<Harmless> harmless = {
    {"nothing happens", nothing, nothing},
    {"popup open before", openPopup, nothing},
    {"popup open before closes", openPopup, closeCover},
    {"modal dialog open before", [](LossStage &s) { s.openModal(nullptr, Qt::ApplicationModal); },
     nothing},
    {"inside a popup", reopenAsPopup, nothing},
    {"inside a modal dialog", reopenAsModal, nothing},
    {"inside a popup, a popup over it closes",
     [](LossStage &s) {
         s.reopenAsPopup();
         s.openPopup();
     },
     closeCover},
    {"inside a modal dialog, a dialog over it closes",
     [](LossStage &s) {
         s.reopenAsModal();
         s.openModal(&s.window, Qt::ApplicationModal);
     },
     closeCover},
    {"window-modal dialog of another window opens", showOtherWindow,
     [](LossStage &s) { s.openModal(&s.otherWindow, Qt::WindowModal); }},
    {"dialog that is not modal opens", nothing,
     [](LossStage &s) { s.openModal(&s.window, Qt::NonModal); }},
    {"tool tip opens", nothing,
     [](LossStage &s) { QToolTip::showText(s.view.mapToGlobal(s.centre()), u"Tip"_s, &s.view); }},
    {"tool window opens", nothing,
     [](LossStage &s) {
         s.cover = std::make_unique<QWidget>(&s.window, Qt::Tool);
         s.cover->show();
     }},
    {"another control is disabled", nothing, [](LossStage &s) { s.other->setEnabled(false); }},
    {"another control is hidden", nothing, [](LossStage &s) { s.other->hide(); }},
    {"another view of the scene is hidden",
     [](LossStage &s) {
         s.cover = std::make_unique<QGraphicsView>(&s.view.ownScene);
         s.cover->show();
     },
     [](LossStage &s) { s.cover->hide(); }},
    {"another window closes", showOtherWindow, [](LossStage &s) { s.otherWindow.close(); }},
    {"repainted", nothing, [](LossStage &s) { s.control->update(); }},
};

void deleteToolTip()
{
    QToolTip::hideText();
    const QWidgetList widgets = QApplication::topLevelWidgets();
    for (QWidget *widget : widgets) {
        if (widget->inherits("QTipLabel"))
            delete widget;
    }
}

} // namespace

// The common ways to lose the pointer; tst_kelpress has the rare ones.
class tst_PointerLoss : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void pressIsDropped_data() { addLosses({selectableBase, pushButton, checkBox}); }

    void pressIsDropped()
    {
        LossStage stage(fetch<Type>("type"));
        stage.pressAndLose(lossOfTheRow(), fetch<bool>("inSlot"));
        if (fetch<bool>("inSlot")) // known when the event is done with
            QVERIFY(!stage.control->style()->isMouseDown);
        QTRY_VERIFY(!stage.control->style()->isMouseDown);
        QVERIFY(!stage.control->isMouseDown());
        QVERIFY2(!hasTimers(stage.control), "the long press is still to come");
        lossOfTheRow().restore(stage);
        QCoreApplication::processEvents();
        QVERIFY(!stage.control->style()->isMouseDown);
        QCOMPARE(stage.log.take(),
                 stage.control->isCheck() ? u"press checked checkChanged"_s : u"press"_s);
    }

    // The time ends before the event loop goes round.
    void noLateLongPress_data() { addLosses({selectableBase, pushButton}); }

    void noLateLongPress()
    {
        LossStage stage(fetch<Type>("type"));
        stage.pressAndLose(lossOfTheRow(), fetch<bool>("inSlot"));
        if (hasTimers(stage.control))
            endLongPressTime(stage.control);
        QCOMPARE(stage.log.take(), u"press"_s);
        QVERIFY(!stage.control->isMouseDown());
        lossOfTheRow().restore(stage);
    }

    void releaseAfterwardsIsNoClick_data() { addLosses({selectableBase, pushButton}); }

    void releaseAfterwardsIsNoClick()
    {
        LossStage stage(fetch<Type>("type"));
        stage.pressAndLose(lossOfTheRow(), fetch<bool>("inSlot"));
        // At once: before the event loop goes round.
        stage.hand.release();
        QCoreApplication::processEvents();
        lossOfTheRow().restore(stage);
        stage.hand.release();
        const QString names = stage.log.take().remove(u" other.release"_s);
        QVERIFY2(names == QLatin1String("press") || names == QLatin1String("press release"),
                 qPrintable(names));
        QTRY_VERIFY(!stage.control->style()->isMouseDown);
    }

    void nextTapReachesAnotherControl_data()
    {
        addLosses({selectableBase, pushButton, checkBox, radioBox});
    }

    void nextTapReachesAnotherControl()
    {
        LossStage stage(fetch<Type>("type"));
        stage.pressLoseAndRestore(lossOfTheRow(), fetch<bool>("inSlot"));
        for (int i = 0; i < 2; ++i) {
            stage.hand.tap(stage.otherCentre());
            QCOMPARE(stage.log.take(), u"other.press other.release other.clicked"_s);
        }
    }

    void nextTapOnTheSameControlWorks_data() { nextTapReachesAnotherControl_data(); }

    void nextTapOnTheSameControlWorks()
    {
        LossStage stage(fetch<Type>("type"));
        stage.pressLoseAndRestore(lossOfTheRow(), fetch<bool>("inSlot"));
        const bool isBox = fetch<Type>("type") == Type::CheckBox
            || fetch<Type>("type") == Type::RadioBox;
        for (int i = 0; i < 2; ++i) {
            const QString change = stage.control->isCheck() ? u" unchecked checkChanged"_s
                                                            : u" checked checkChanged"_s;
            stage.hand.press(stage.centre());
            QVERIFY(stage.control->isMouseDown());
            stage.hand.release();
            QCOMPARE(stage.log.take(),
                     u"press%1 release clicked"_s.arg(isBox ? change : QString()));
            QVERIFY(!stage.control->isMouseDown());
        }
    }

    void nextDoubleClickReachesAnotherControl_data() { addCovers(); }

    void nextDoubleClickReachesAnotherControl()
    {
        LossStage stage(fetch<Type>("type"));
        stage.pressLoseAndRestore(lossOfTheRow());
        stage.hand.pressAgain(stage.otherCentre());
        stage.hand.release();
        // Qt turns a double click that follows a press elsewhere into a press.
        QCOMPARE(stage.log.take(), u"other.press other.release other.clicked"_s);
    }

    void nextTouchReachesAnotherControl_data() { addCovers(); }

    void nextTouchReachesAnotherControl()
    {
        LossStage stage(fetch<Type>("type"));
        stage.pressLoseAndRestore(lossOfTheRow());
        stage.hand.use(Input::Touch);
        stage.hand.tap(stage.otherCentre());
        QCOMPARE(stage.log.take(), u"other.press other.release other.clicked"_s);
    }

    void nextPressOnNothingReachesNobody_data() { addCovers(); }

    void nextPressOnNothingReachesNobody()
    {
        LossStage stage(fetch<Type>("type"));
        stage.pressLoseAndRestore(lossOfTheRow());
        stage.hand.tap(QPoint(50, 250));
        QCOMPARE(stage.log.take(), QString());
        stage.hand.tap(stage.otherCentre());
        QCOMPARE(stage.log.take(), u"other.press other.release other.clicked"_s);
    }

    void nextDoubleClickOnTheSameControlWorks_data() { addRows({{"loss", covers()}}); }

    void nextDoubleClickOnTheSameControlWorks()
    {
        LossStage stage;
        stage.pressLoseAndRestore(lossOfTheRow());
        stage.hand.pressAgain(stage.centre());
        stage.hand.release();
        QCOMPARE(stage.log.take(), u"press doubleClicked release clicked"_s);
    }

    void pressedLookLeavesTheScreen_data()
    {
        addRows(
            {{"loss",
              lossesNamed({"ungrabbed", "another item grabs", "menu opened",
                           "window-modal dialog of the window opened", "buttons switched off"})}});
    }

    void pressedLookLeavesTheScreen()
    {
        LossStage stage;
        // The place of the finger, where no caption is drawn.
        const auto colour = [&] { return stage.view.grab().toImage().pixel(stage.centre()); };
        stage.view.showOnce();
        const QRgb released = colour();
        stage.hand.press(stage.centre());
        QTRY_VERIFY(colour() != released);
        lossOfTheRow().lose(stage);
        QTRY_COMPARE(colour(), released);
        lossOfTheRow().restore(stage);
    }

    void ungrabbedByTheChildOfAButton()
    {
        LossStage stage;
        auto *const child = new QGraphicsRectItem(120, 110, 60, 40, stage.control);
        stage.hand.press(stage.centre());
        QVERIFY(stage.control->isMouseDown());
        QCOMPARE(stage.view.ownScene.mouseGrabberItem(), child);
        child->ungrabMouse();
        QTRY_VERIFY(!stage.control->style()->isMouseDown);
        stage.hand.release();
        QCOMPARE(stage.log.take(), u"press"_s);
    }

    void unselectableControlLosesAPress_data()
    {
        addRows({{"loss", namesOf(itemLosses())}, {"inSlot", moments}});
    }

    void unselectableControlLosesAPress()
    {
        LossStage stage(Type::UnselectableBase);
        stage.pressAndLose(itemLosses().at(fetch<size_t>("loss")), fetch<bool>("inSlot"));
        QTRY_VERIFY(!stage.control->style()->isMouseDown);
        QVERIFY2(!hasTimers(stage.control), "the long press is still to come");
        QCOMPARE(stage.log.take(), u"press"_s);
    }

    void unselectableControlIsSwitchedOffAndOn_data()
    {
        addRows(
            {{"loss", lossesNamed({"disabled", "hidden", "parent disabled", "parent hidden"})}});
    }

    // Before the event loop goes round.
    void unselectableControlIsSwitchedOffAndOn()
    {
        LossStage stage(Type::UnselectableBase);
        stage.pressAndLose(lossOfTheRow());
        lossOfTheRow().restore(stage);
        QVERIFY(!stage.control->style()->isMouseDown);
        QVERIFY(!hasTimers(stage.control));
    }

    void releaseAfterTheLongPressMenuIsNoClick_data()
    {
        addRows({{"type", {selectableBase, pushButton}}});
    }

    void releaseAfterTheLongPressMenuIsNoClick()
    {
        LossStage stage(fetch<Type>("type"));
        QMenu *const menu = newMenu();
        stage.control->style()->contextMenu = menu;
        bool wasDown = true;
        whenOpen(menu, [&] { wasDown = stage.control->isMouseDown(); });
        stage.hand.press(stage.centre());
        endLongPressTime(stage.control);
        QVERIFY(!wasDown);
        QCOMPARE(stage.log.take(), u"press longPress"_s);
        stage.hand.release();
        QCOMPARE(stage.log.take(), u"release"_s);
        QVERIFY(!stage.control->isMouseDown());
        stage.hand.tap(stage.centre());
        QCOMPARE(stage.log.take(), u"press release clicked"_s);
    }

    // The finger is lifted over the menu.
    void tapAfterTheLongPressMenuReachesAnotherControl()
    {
        LossStage stage;
        QMenu *const menu = newMenu();
        stage.control->style()->contextMenu = menu;
        whenOpen(menu, [] {});
        stage.hand.press(stage.centre());
        endLongPressTime(stage.control);
        QTRY_VERIFY(!stage.control->style()->isMouseDown);
        stage.hand.tap(stage.otherCentre());
        QCOMPARE(stage.log.take(), u"press longPress other.press other.release other.clicked"_s);
    }

    void pressSurvives_data()
    {
        addRows({{"what", namesOf(harmless)}, {"type", {selectableBase, pushButton}}});
    }

    void pressSurvives()
    {
        const Harmless &what = harmless.at(fetch<size_t>("what"));
        LossStage stage(fetch<Type>("type"));
        stage.view.showOnce();
        what.before(stage);
        QCoreApplication::processEvents();
        stage.hand.press(stage.centre());
        what.during(stage);
        letEventsRun();
        QVERIFY(stage.control->isMouseDown());
        QVERIFY(stage.control->style()->isMouseDown);
        // A slow machine is past the long press already.
        const bool isLong = stage.log.count(u"longPress"_s) > 0;
        QVERIFY(isLong || hasTimers(stage.control));
        stage.hand.release();
        QCOMPARE(stage.log.take(),
                 isLong ? u"press longPress release"_s : u"press release clicked"_s);
        deleteToolTip();
    }

    void childInsideAButtonClicksTheButton_data()
    {
        addRows({{"child", {{"plain child", false}, {"selectable child", true}}}});
    }

    void childInsideAButtonClicksTheButton()
    {
        LossStage stage;
        auto *const child = new QGraphicsRectItem(120, 110, 60, 40, stage.control);
        child->setFlag(QGraphicsItem::ItemIsSelectable, fetch<bool>("child"));
        stage.hand.press(stage.centre());
        QVERIFY(stage.control->isMouseDown());
        stage.hand.release();
        QCOMPARE(stage.log.take(), u"press release clicked"_s);
        stage.hand.press(stage.centre());
        endLongPressTime(stage.control);
        QVERIFY(stage.control->isMouseDown());
        stage.hand.release();
        QCOMPARE(stage.log.take(), u"press longPress release"_s);
    }
};

KEL_TEST_MAIN(tst_PointerLoss)

#include "tst_pointerloss.moc"
