// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "controlclasses.h"
#include "keltest.h"

#include <QtCore/QEventLoop>
#include <QtCore/QTimer>
#include <QtWidgets/QDialog>
#include <QtWidgets/QMenu>
#include <QtWidgets/QVBoxLayout>

#include <memory>
#include <new>
#include <type_traits>

namespace {

constexpr int wellAfterLongPressMs = 700;

QMenu *newMenu(QWidget *parent = nullptr)
{
    auto *const menu = new QMenu(parent);
    menu->addAction(u"One"_s);
    return menu;
}

// As a right click comes from the window system, without the release.
void rightPress(KelTestView *view, const QPoint &pos)
{
    view->press(pos, Qt::RightButton);
    QContextMenuEvent event(QContextMenuEvent::Mouse, pos, view->viewport()->mapToGlobal(pos));
    QCoreApplication::sendEvent(view->viewport(), &event);
}

} // namespace

using Factory = std::function<KELRoundRectControl *()>;
Q_DECLARE_METATYPE(Factory)

class tst_ContextMenu : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void rightClickOpensTheMenuOnce_data()
    {
        QTest::addColumn<Factory>("factory");
        forEachControl([](auto tag) {
            using Control = typename decltype(tag)::Type;
            if (Control().acceptedMouseButtons().testFlag(Qt::RightButton)) {
                QTest::newRow(Control::staticMetaObject.className())
                    << Factory([] { return new Control; });
            }
        });
        QTest::newRow("push button with the right button") << Factory([] {
            auto *const button = new KELPushButton;
            button->setAcceptedMouseButtons(Qt::AllButtons);
            return button;
        });
    }

    void rightClickOpensTheMenuOnce()
    {
        QFETCH(Factory, factory);
        KelTestView view;
        KELRoundRectControl *const control = factory();
        control->setboundRect(20, 20, 100, 60);
        QMenu *const menu = newMenu();
        control->style()->contextMenu = menu;
        view.ownScene.addItem(control);
        QVERIFY(view.showAndWait());
        QSignalSpy longPress(control, &KELRoundRectControl::mouseLongPress);
        QSignalSpy opened(menu, &QMenu::aboutToShow);
        QPoint movedBy;
        bool returned = false;
        QTimer::singleShot(wellAfterLongPressMs, &view, [&] {
            movedBy = menu->pos() - view.viewport()->mapToGlobal(QPoint(70, 50));
            menu->close();
        });
        // Ends a menu that the first close did not.
        QTimer::singleShot(3 * wellAfterLongPressMs, menu, [menu] { menu->close(); });
        rightPress(&view, QPoint(70, 50));
        returned = true;
        QVERIFY(returned);
        QCOMPARE(opened.count(), 1);
        QCOMPARE(longPress.count(), 0);
        QCOMPARE(movedBy, QPoint());
        QVERIFY(!menu->isVisible());
        view.release(QPoint(70, 50), Qt::RightButton);
    }

    void menuThatIsOpenIsNotOpenedAgain()
    {
        KelTestView view;
        auto *const button = new KELPushButton;
        button->setboundRect(20, 20, 100, 60);
        QMenu *const menu = newMenu();
        button->style()->contextMenu = menu;
        view.ownScene.addItem(button);
        QVERIFY(view.showAndWait());
        QSignalSpy opened(menu, &QMenu::aboutToShow);
        menu->popup(QPoint(5, 5));
        QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(70, 50), QPoint(70, 50));
        QCoreApplication::sendEvent(view.viewport(), &event);
        QCOMPARE(opened.count(), 1);
        QVERIFY(menu->isVisible());
        QCOMPARE(menu->pos(), QPoint(5, 5));
        menu->close();
    }

    // A plain control keeps no press, and so loses none to the menu.
    void noLongPressWhileTheMenuIsOpen()
    {
        KelTestView view;
        auto *const control = new KELRoundRectControl;
        control->setboundRect(20, 20, 100, 60);
        QMenu *const menu = newMenu();
        control->style()->contextMenu = menu;
        view.ownScene.addItem(control);
        QVERIFY(view.showAndWait());
        QSignalSpy longPress(control, &KELRoundRectControl::mouseLongPress);
        view.press(QPoint(70, 50));
        menu->popup(QPoint(5, 5));
        QTest::qWait(wellAfterLongPressMs);
        QCOMPARE(longPress.count(), 0);
        menu->close();
    }

    void menuDiesWithItsWindow_data()
    {
        QTest::addColumn<bool>("pressedBefore");
        QTest::newRow("never used") << false;
        QTest::newRow("control pressed before") << true;
    }

    // Nobody deletes anything but the window.
    void menuDiesWithItsWindow()
    {
        QFETCH(bool, pressedBefore);
        auto window = std::make_unique<QWidget>();
        QMenu *const menu = newMenu(window.get());
        auto *const scene = new QGraphicsScene(window.get());
        auto *const view = new QGraphicsView(scene, window.get());
        auto *const button = new KELPushButton;
        button->setboundRect(20, 20, 100, 60);
        button->style()->contextMenu = menu;
        scene->addItem(button);
        window->resize(300, 200);
        window->show();
        QVERIFY(QTest::qWaitForWindowExposed(window.get()));
        if (pressedBefore)
            QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, view->mapFromScene(70, 50));
        QSignalSpy destroyed(menu, &QObject::destroyed);
        QSignalSpy controlDestroyed(button, &QObject::destroyed);
        window.reset();
        QCOMPARE(destroyed.count(), 1);
        QCOMPARE(controlDestroyed.count(), 1);
    }

    void menuThatDiedIsNotOpened_data() { menuDiesWithItsWindow_data(); }

    void menuThatDiedIsNotOpened()
    {
        QFETCH(bool, pressedBefore);
        KelTestView view;
        auto *const button = new KELPushButton;
        button->setboundRect(20, 20, 100, 60);
        QMenu *const menu = newMenu();
        button->style()->contextMenu = menu;
        view.ownScene.addItem(button);
        QVERIFY(view.showAndWait());
        if (pressedBefore)
            view.click(QPoint(70, 50));
        QSignalSpy longPress(button, &KELRoundRectControl::mouseLongPress);
        delete menu;
        QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(70, 50), QPoint(70, 50));
        QCoreApplication::sendEvent(view.viewport(), &event);
        view.press(QPoint(70, 50));
        QTRY_COMPARE(longPress.count(), 1);
        view.release(QPoint(70, 50));
    }

    // At the address of the dead one.
    void menuThatReplacesADeadOneOpens()
    {
        KelTestView view;
        auto *const button = new KELPushButton;
        button->setboundRect(20, 20, 100, 60);
        view.ownScene.addItem(button);
        QVERIFY(view.showAndWait());
        std::aligned_storage_t<sizeof(QMenu), alignof(QMenu)> place;
        for (int i = 0; i < 3; ++i) {
            auto *const menu = new (&place) QMenu;
            menu->addAction(u"One"_s);
            button->style()->contextMenu = menu;
            QSignalSpy opened(menu, &QMenu::aboutToShow);
            QTimer::singleShot(0, menu, &QMenu::close);
            QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(70, 50), QPoint(70, 50));
            QCoreApplication::sendEvent(view.viewport(), &event);
            QCOMPARE(opened.count(), 1);
            menu->~QMenu();
            QCOMPARE(button->style()->contextMenu, nullptr);
        }
    }
};

KEL_TEST_MAIN(tst_ContextMenu)
#include "tst_contextmenu.moc"
