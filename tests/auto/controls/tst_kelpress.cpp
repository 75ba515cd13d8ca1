// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "keltest.h"

#include <kelcheckbox.h>
#include <kellabel.h>
#include <kelpushbutton.h>
#include <kelslidecontrol.h>

#include <QtCore/QEventLoop>
#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtWidgets/QDialog>
#include <QtWidgets/QGraphicsProxyWidget>
#include <QtWidgets/QGraphicsSceneMouseEvent>

#include <memory>

namespace {

constexpr int wellAfterLongPressMs = 700;

// Accepts every press, but only after the base has handled it.
class LateAcceptingControl : public KELRoundRectControl
{
protected:
    void mousePressEvent(QGraphicsSceneMouseEvent *event) override
    {
        KELRoundRectControl::mousePressEvent(event);
        event->accept();
    }
};

// Ignores every press after the base has handled it.
template <typename Control>
class IgnoringControl : public Control
{
protected:
    void mousePressEvent(QGraphicsSceneMouseEvent *event) override
    {
        Control::mousePressEvent(event);
        event->ignore();
    }
};

class PressCounter : public QGraphicsRectItem
{
public:
    explicit PressCounter(const QRectF &rect) : QGraphicsRectItem(rect) { }
    int presses = 0;

protected:
    void mousePressEvent(QGraphicsSceneMouseEvent *event) override
    {
        ++presses;
        event->ignore();
    }
};

struct Spies
{
    explicit Spies(const KELRoundRectControl *control) :
        press(control, &KELRoundRectControl::mousePress),
        release(control, &KELRoundRectControl::mouseRelease),
        clicked(control, &KELRoundRectControl::mouseClicked),
        longPress(control, &KELRoundRectControl::mouseLongPress)
    { }
    QSignalSpy press;
    QSignalSpy release;
    QSignalSpy clicked;
    QSignalSpy longPress;
};

std::unique_ptr<QDialog> openDialog(QWidget *parent, Qt::WindowModality modality)
{
    auto dialog = std::make_unique<QDialog>(parent);
    dialog->setWindowModality(modality);
    dialog->show();
    return dialog;
}

template <typename Control>
Control *placed(KelTestView *view, const QRectF &rect)
{
    auto *control = new Control;
    control->setboundRect(rect);
    view->ownScene.addItem(control);
    return control;
}

const QRectF leftRect(20, 20, 100, 60);
const QRectF rightRect(200, 20, 100, 60);

} // namespace

using Change = std::function<void(KelTestView *, QGraphicsProxyWidget *)>;
using Factory = std::function<KELRoundRectControl *()>;
Q_DECLARE_METATYPE(Change)
Q_DECLARE_METATYPE(Factory)

// Rare ways to get and to lose the pointer; the common ones have a table of their own.
class tst_KELPress : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void pressInsideTheReleaseOfAnotherIsWatched()
    {
        KelTestView view;
        auto *button = placed<KELPushButton>(&view, leftRect);
        QVERIFY(view.showAndWait());
        Spies spies(button);
        bool nested = false;
        connect(button, &KELPushButton::mouseRelease, &view, [&] {
            if (std::exchange(nested, true))
                return;
            QEventLoop loop;
            QTimer::singleShot(0, &view, [&] { view.press(view.centreOf(button)); });
            QTimer::singleShot(20, &loop, &QEventLoop::quit);
            loop.exec();
        });
        view.click(view.centreOf(button));
        QCOMPARE(spies.press.count(), 2);
        // The end of the outer release took the grab of the inner press away.
        QTRY_VERIFY(!button->style()->isMouseDown);
        QTest::qWait(wellAfterLongPressMs);
        QCOMPARE(spies.longPress.count(), 0);
    }

    void controlThatHeldTheGrabBeforeIsWatched()
    {
        KelTestView view;
        auto *button = placed<KELPushButton>(&view, leftRect);
        QVERIFY(view.showAndWait());
        Spies spies(button);
        button->grabMouse();
        view.press(view.centreOf(button));
        QVERIFY(button->isMouseDown());
        const auto dialog = openDialog(nullptr, Qt::ApplicationModal);
        QTRY_VERIFY(!button->style()->isMouseDown);
        QTest::qWait(wellAfterLongPressMs);
        QCOMPARE(spies.longPress.count(), 0);
    }

    void grabOfTheApplicationIsLeftAlone()
    {
        KelTestView view;
        auto *button = placed<KELPushButton>(&view, leftRect);
        auto *other = placed<KELPushButton>(&view, rightRect);
        QVERIFY(view.showAndWait());
        Spies spies(button);
        Spies otherSpies(other);
        button->grabMouse();
        view.press(view.centreOf(button));
        auto dialog = openDialog(nullptr, Qt::ApplicationModal);
        QTRY_VERIFY(!button->style()->isMouseDown);
        dialog.reset();
        view.press(view.centreOf(other));
        QCOMPARE(view.ownScene.mouseGrabberItem(), button);
        QCOMPARE(spies.press.count(), 2);
        QCOMPARE(otherSpies.press.count(), 0);
    }

    void secondButtonDoesNotBlindTheWatch()
    {
        KelTestView view;
        auto *button = placed<KELPushButton>(&view, leftRect);
        QVERIFY(view.showAndWait());
        Spies spies(button);
        view.press(view.centreOf(button));
        view.press(view.centreOf(button), Qt::RightButton);
        const auto dialog = openDialog(nullptr, Qt::ApplicationModal);
        QTRY_VERIFY(!button->style()->isMouseDown);
        QTest::qWait(wellAfterLongPressMs);
        QCOMPARE(spies.longPress.count(), 0);
    }

    void controlThatAcceptsLateIsWatched()
    {
        KelTestView view;
        auto *control = placed<LateAcceptingControl>(&view, leftRect);
        QVERIFY(view.showAndWait());
        Spies spies(control);
        view.click(view.centreOf(control));
        QCOMPARE(spies.clicked.count(), 1);

        view.press(view.centreOf(control));
        QCoreApplication::processEvents();
        QVERIFY(control->isMouseDown());
        const auto dialog = openDialog(nullptr, Qt::ApplicationModal);
        QTRY_VERIFY(!control->style()->isMouseDown);
        QTest::qWait(wellAfterLongPressMs);
        QCOMPARE(spies.longPress.count(), 0);
    }

    void childThatGrabsForItselfTakesThePointer()
    {
        KelTestView view;
        auto *control = placed<KELRoundRectControl>(&view, leftRect);
        control->setFlag(QGraphicsItem::ItemIsSelectable);
        auto *child = new QGraphicsRectItem(30, 30, 10, 10, control);
        QVERIFY(view.showAndWait());
        Spies spies(control);
        view.press(view.centreOf(control));
        child->grabMouse();
        QTRY_VERIFY(!control->style()->isMouseDown);
        QTest::qWait(wellAfterLongPressMs);
        QCOMPARE(spies.longPress.count(), 0);
    }

    void dialogOpenedByTheSelectionCounts()
    {
        KelTestView view;
        auto *button = placed<KELPushButton>(&view, leftRect);
        QVERIFY(view.showAndWait());
        Spies spies(button);
        std::unique_ptr<QDialog> dialog;
        QObject context; // the dying scene changes its selection again
        connect(&view.ownScene, &QGraphicsScene::selectionChanged, &context,
                [&] { dialog = openDialog(nullptr, Qt::ApplicationModal); });
        view.press(view.centreOf(button));
        QVERIFY(dialog);
        QTRY_VERIFY(!button->style()->isMouseDown);
        QTest::qWait(wellAfterLongPressMs);
        QCOMPARE(spies.longPress.count(), 0);
    }

    void grabTakenByTheSelectionCounts()
    {
        KelTestView view;
        auto *button = placed<KELPushButton>(&view, leftRect);
        QVERIFY(view.showAndWait());
        Spies spies(button);
        QObject context; // the dying scene changes its selection again
        connect(&view.ownScene, &QGraphicsScene::selectionChanged, &context,
                [&] { button->ungrabMouse(); });
        view.press(view.centreOf(button));
        QTRY_VERIFY(!button->style()->isMouseDown);
        QTest::qWait(wellAfterLongPressMs);
        QCOMPARE(spies.longPress.count(), 0);
    }

    void freshPressIsNotHandedOnTwice()
    {
        KelTestView view;
        auto *button = placed<KELPushButton>(&view, leftRect);
        auto *cover = new PressCounter(leftRect);
        view.ownScene.addItem(cover);
        QVERIFY(view.showAndWait());
        Spies spies(button);
        view.press(view.centreOf(button));
        auto dialog = openDialog(nullptr, Qt::ApplicationModal);
        QTRY_VERIFY(!button->style()->isMouseDown);
        dialog.reset();
        cover->presses = 0;
        // Lets go of the old grab, as a release would that the scene gets after all.
        button->ungrabMouse();
        view.click(view.centreOf(button));
        QCOMPARE(cover->presses, 1);
        QCOMPARE(spies.press.count(), 2);
        QCOMPARE(spies.clicked.count(), 1);
    }

    void clickWorksThroughAProxy()
    {
        KelTestView outer;
        auto *inner = new KelTestView(QSize(300, 200));
        auto *button = placed<KELPushButton>(inner, leftRect);
        outer.ownScene.addWidget(inner);
        QVERIFY(outer.showAndWait());
        Spies spies(button);
        outer.press(QPoint(70, 50));
        QCoreApplication::processEvents();
        QVERIFY(button->isMouseDown());
        outer.release(QPoint(70, 50));
        QCOMPARE(spies.clicked.count(), 1);
    }

    void hiddenOrDisabledProxyLosesThePress_data()
    {
        QTest::addColumn<Change>("change");
        QTest::newRow("outer view hidden")
            << Change([](KelTestView *outer, QGraphicsProxyWidget *) { outer->hide(); });
        QTest::newRow("outer view disabled")
            << Change([](KelTestView *outer, QGraphicsProxyWidget *) { outer->setEnabled(false); });
        QTest::newRow("proxy hidden")
            << Change([](KelTestView *, QGraphicsProxyWidget *proxy) { proxy->hide(); });
        QTest::newRow("proxy disabled")
            << Change([](KelTestView *, QGraphicsProxyWidget *proxy) { proxy->setEnabled(false); });
        QTest::newRow("proxy taken out")
            << Change([](KelTestView *outer, QGraphicsProxyWidget *proxy) {
                   outer->ownScene.removeItem(proxy);
               });
    }

    void hiddenOrDisabledProxyLosesThePress()
    {
        QFETCH(Change, change);
        KelTestView outer;
        auto *inner = new KelTestView(QSize(300, 200));
        auto *button = placed<KELPushButton>(inner, leftRect);
        const QPointer<QGraphicsProxyWidget> proxy(outer.ownScene.addWidget(inner));
        QVERIFY(outer.showAndWait());
        Spies spies(button);
        outer.press(QPoint(70, 50));
        QVERIFY(button->isMouseDown());
        change(&outer, proxy);
        QTRY_VERIFY(!button->style()->isMouseDown);
        QTest::qWait(wellAfterLongPressMs);
        QCOMPARE(spies.longPress.count(), 0);
        if (!proxy->scene())
            delete proxy;
    }

    // It is never painted, which Qt would do for ever. The other view serves nobody, so that no
    // view ends the search.
    void viewInsideTheSceneItShows()
    {
        KelTestView outer;
        outer.setInteractive(false);
        auto *button = placed<KELPushButton>(&outer, leftRect);
        auto *inner = new QGraphicsView(&outer.ownScene);
        inner->setUpdatesEnabled(false);
        inner->setFrameShape(QFrame::NoFrame);
        inner->setAlignment(Qt::AlignLeft | Qt::AlignTop);
        inner->resize(150, 100);
        QGraphicsProxyWidget *const proxy = outer.ownScene.addWidget(inner);
        proxy->setFlag(QGraphicsItem::ItemHasNoContents);
        proxy->setPos(200, 150);
        QVERIFY(outer.showAndWait());
        Spies spies(button);
        const QPoint pos = inner->mapFromScene(leftRect.center());
        QTest::mousePress(inner->viewport(), Qt::LeftButton, Qt::NoModifier, pos);
        QCoreApplication::processEvents();
        QVERIFY(button->isMouseDown());
        QTest::mouseRelease(inner->viewport(), Qt::LeftButton, Qt::NoModifier, pos);
        QCOMPARE(spies.clicked.count(), 1);
    }

    void windowModalDialogOfASiblingWindowCounts()
    {
        QDialog root;
        root.show();
        auto *window = new QDialog(&root);
        auto *sibling = new QDialog(&root);
        auto *view = new KelTestView;
        auto *button = placed<KELPushButton>(view, leftRect);
        view->setParent(window);
        window->resize(view->size());
        window->show();
        QVERIFY(QTest::qWaitForWindowExposed(window));
        view->press(view->centreOf(button));
        QVERIFY(button->isMouseDown());
        const auto dialog = openDialog(sibling, Qt::WindowModal);
        QTRY_VERIFY(!button->style()->isMouseDown);
    }

    void eventsWithoutAViewStillClick()
    {
        QGraphicsScene scene;
        auto *button = new KELPushButton;
        button->setboundRect(leftRect);
        scene.addItem(button);
        Spies spies(button);
        for (const QEvent::Type type :
             {QEvent::GraphicsSceneMousePress, QEvent::GraphicsSceneMouseRelease}) {
            QGraphicsSceneMouseEvent event(type);
            event.setButton(Qt::LeftButton);
            event.setButtons(type == QEvent::GraphicsSceneMousePress ? Qt::LeftButton
                                                                     : Qt::NoButton);
            event.setPos(leftRect.center());
            scene.sendEvent(button, &event);
            QCoreApplication::processEvents();
        }
        QCOMPARE(spies.clicked.count(), 1);
    }

    void rightTapOnASelectableControlLeavesNothing_data()
    {
        QTest::addColumn<Factory>("factory");
        QTest::newRow("base with the flag") << Factory([] {
            auto *const control = new KELRoundRectControl;
            control->setFlag(QGraphicsItem::ItemIsSelectable);
            return control;
        });
        QTest::newRow("label with the flag") << Factory([] {
            auto *const control = new KELLabel;
            control->setFlag(QGraphicsItem::ItemIsSelectable);
            return control;
        });
        QTest::newRow("push button") << Factory([] { return new KELPushButton; });
        QTest::newRow("check box") << Factory([] { return new KELCheckBox; });
        QTest::newRow("slider") << Factory([] { return new KELSlideControl; });
    }

    void rightTapOnASelectableControlLeavesNothing()
    {
        QFETCH(Factory, factory);
        KelTestView view;
        KELRoundRectControl *const control = factory();
        control->setAcceptedMouseButtons(Qt::AllButtons);
        control->setboundRect(leftRect);
        view.ownScene.addItem(control);
        QVERIFY(view.showAndWait());
        Spies spies(control);
        view.press(view.centreOf(control), Qt::RightButton);
        QTRY_VERIFY(!control->style()->isMouseDown);
        view.release(view.centreOf(control), Qt::RightButton);
        QVERIFY(!control->isMouseDown());
        QTest::qWait(wellAfterLongPressMs);
        QCOMPARE(spies.press.count(), 1);
        QCOMPARE(spies.longPress.count(), 0);
        QCOMPARE(spies.clicked.count(), 0);
        view.click(view.centreOf(control));
        QCOMPARE(spies.clicked.count(), 1);
    }

    void rightPressThatADerivedClassAcceptsClicks()
    {
        KelTestView view;
        auto *control = placed<LateAcceptingControl>(&view, leftRect);
        control->setFlag(QGraphicsItem::ItemIsSelectable);
        QVERIFY(view.showAndWait());
        Spies spies(control);
        view.press(view.centreOf(control), Qt::RightButton);
        QCoreApplication::processEvents();
        QVERIFY(control->isMouseDown());
        view.release(view.centreOf(control), Qt::RightButton);
        QCOMPARE(spies.release.count(), 1);
        QCOMPARE(spies.clicked.count(), 1);
    }

    void ignoredPressStaysAsDescribed_data()
    {
        QTest::addColumn<Factory>("factory");
        QTest::newRow("control that is not selectable")
            << Factory([] { return new KELRoundRectControl; });
        QTest::newRow("derived from the base") << Factory([] {
            auto *const control = new IgnoringControl<KELRoundRectControl>;
            control->setFlag(QGraphicsItem::ItemIsSelectable);
            return control;
        });
        QTest::newRow("derived from the push button")
            << Factory([] { return new IgnoringControl<KELPushButton>; });
        QTest::newRow("derived from the check box")
            << Factory([] { return new IgnoringControl<KELCheckBox>; });
    }

    void ignoredPressStaysAsDescribed()
    {
        QFETCH(Factory, factory);
        KelTestView view;
        KELRoundRectControl *const control = factory();
        control->setboundRect(leftRect);
        view.ownScene.addItem(control);
        QVERIFY(view.showAndWait());
        Spies spies(control);
        view.press(view.centreOf(control));
        QVERIFY(control->isMouseDown());
        QTest::qWait(20);
        QVERIFY(control->isMouseDown());
        QVERIFY(control->style()->isMouseDown);
        view.release(view.centreOf(control));
        QTRY_COMPARE(spies.longPress.count(), 1);
        QCOMPARE(spies.press.count(), 1);
        QCOMPARE(spies.release.count(), 0);
        QCOMPARE(spies.clicked.count(), 0);
        QVERIFY(control->isMouseDown());
    }

    void tapAfterAnIgnoredPress()
    {
        KelTestView view;
        auto *ignoring = placed<IgnoringControl<KELPushButton>>(&view, leftRect);
        auto *button = placed<KELPushButton>(&view, rightRect);
        QVERIFY(view.showAndWait());
        Spies spies(button);
        view.click(view.centreOf(ignoring));
        view.click(view.centreOf(button));
        QCOMPARE(spies.clicked.count(), 1);
    }

    void plainControlFollowsItsButtonsInOneTurn()
    {
        KelTestView view;
        auto *control = placed<KELRoundRectControl>(&view, leftRect);
        QVERIFY(view.showAndWait());
        view.press(view.centreOf(control));
        QTest::qWait(1);
        QVERIFY(control->style()->isMouseDown);
        control->setAcceptedMouseButtons(Qt::NoButton);
        QVERIFY(!control->isMouseDown());
        QEventLoop loop;
        QTimer::singleShot(0, &loop, &QEventLoop::quit);
        loop.exec();
        QVERIFY(!control->style()->isMouseDown);
    }
};

KEL_TEST_MAIN(tst_KELPress)
#include "tst_kelpress.moc"
