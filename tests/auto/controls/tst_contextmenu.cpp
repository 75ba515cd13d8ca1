// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "controlclasses.h"
#include "stage.h"

#include <new>
#include <type_traits>

namespace {

struct Class
{
    const char *name;
    KELRoundRectControl *(*create)();
};

// Those that take the right button.
const std::vector<Class> &classes()
{
    static const std::vector<Class> all = [] {
        std::vector<Class> found;
        forEachControl([&found](auto tag) {
            using Control = typename decltype(tag)::Type;
            if (Control().acceptedMouseButtons().testFlag(Qt::RightButton)) {
                found.push_back({Control::staticMetaObject.className(),
                                 []() -> KELRoundRectControl * { return new Control; }});
            }
        });
        found.push_back({"push button with the right button", []() -> KELRoundRectControl * {
                             auto *const button = new KELPushButton;
                             button->setAcceptedMouseButtons(Qt::AllButtons);
                             return button;
                         }});
        return found;
    }();
    return all;
}

template <typename Control>
class MenuStage : public Stage<Control>
{
public:
    explicit MenuStage(Control *made = new Control) :
        Stage<Control>(QRectF(100, 100, 100, 50), made), opened(menu, &QMenu::aboutToShow)
    {
        this->control->style()->contextMenu = menu;
    }

    const QPointer<QMenu> menu{newMenu()};
    const QSignalSpy opened;
};

const std::vector<Named> pressedBefore = {{"never used", false}, {"control pressed before", true}};

} // namespace

class tst_ContextMenu : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void rightClickOpensTheMenuOnce_data() { addRows({{"class", namesOf(classes())}}); }

    // The event comes with the press, as on X11.
    void rightClickOpensTheMenuOnce()
    {
        MenuStage<KELRoundRectControl> stage(classes().at(fetch<size_t>("class")).create());
        const QPoint pos = stage.centre();
        QPoint movedBy;
        bool isLongPressToCome = true;
        whenOpen(stage.menu, [&] {
            movedBy = stage.menu->pos() - stage.view.viewport()->mapToGlobal(pos);
            isLongPressToCome = hasTimers(stage.control);
        });
        stage.hand.press(pos, Qt::RightButton);
        stage.hand.openContextMenu(pos);
        QCOMPARE(stage.opened.count(), 1);
        QVERIFY(!isLongPressToCome);
        QCOMPARE(movedBy, QPoint());
        QVERIFY(!stage.menu->isVisible());
        stage.hand.release(pos, Qt::RightButton);
        QVERIFY(!stage.log.take().contains(QLatin1String("longPress")));
    }

    void menuThatIsOpenIsNotOpenedAgain()
    {
        MenuStage<KELPushButton> stage;
        stage.view.showOnce();
        stage.menu->popup(QPoint(5, 5));
        stage.hand.openContextMenu(stage.centre());
        QCOMPARE(stage.opened.count(), 1);
        QVERIFY(stage.menu->isVisible());
        QCOMPARE(stage.menu->pos(), QPoint(5, 5));
        stage.menu->close();
    }

    // A plain control keeps no press, and so loses none to the menu.
    void noLongPressWhileTheMenuIsOpen()
    {
        MenuStage<KELRoundRectControl> stage;
        stage.hand.press(stage.centre());
        stage.menu->popup(QPoint(5, 5));
        endLongPressTime(stage.control);
        QCOMPARE(stage.log.take(), u"press"_s);
        stage.menu->close();
    }

    void menuDiesWithItsWindow_data() { addRows({{"pressedBefore", pressedBefore}}); }

    // Nobody deletes anything but the window.
    void menuDiesWithItsWindow()
    {
        auto window = std::make_unique<QWidget>();
        auto *const menu = new QMenu(window.get());
        auto *const scene = new QGraphicsScene(window.get());
        auto *const view = new QGraphicsView(scene, window.get());
        auto *const button = new KELPushButton;
        button->setboundRect(20, 20, 100, 60);
        button->style()->contextMenu = menu;
        scene->addItem(button);
        window->resize(300, 200);
        window->show();
        QVERIFY(QTest::qWaitForWindowExposed(window.get()));
        if (fetch<bool>("pressedBefore"))
            Hand(view->viewport()).tap(view->mapFromScene(70, 50));
        const QSignalSpy destroyed(menu, &QObject::destroyed);
        const QSignalSpy controlDestroyed(button, &QObject::destroyed);
        window.reset();
        QCOMPARE(destroyed.count(), 1);
        QCOMPARE(controlDestroyed.count(), 1);
    }

    void menuThatDiedIsNotOpened_data() { menuDiesWithItsWindow_data(); }

    void menuThatDiedIsNotOpened()
    {
        MenuStage<KELPushButton> stage;
        if (fetch<bool>("pressedBefore"))
            stage.hand.tap(stage.centre());
        stage.log.take();
        delete stage.menu;
        stage.hand.openContextMenu(stage.centre());
        stage.hand.press(stage.centre());
        endLongPressTime(stage.control);
        stage.hand.release();
        QCOMPARE(stage.log.take(), u"press longPress release"_s);
    }

    // Another menu may come to life at its address.
    void menuThatDiesAfterAPressLeavesTheRecord()
    {
        MenuStage<KELPushButton> stage;
        stage.hand.tap(stage.centre());
        delete stage.menu;
        QCOMPARE(stage->style()->contextMenu, nullptr);
    }

    // At the address of the dead one.
    void menuThatReplacesADeadOneOpens()
    {
        Stage<KELPushButton> stage;
        std::aligned_storage_t<sizeof(QMenu), alignof(QMenu)> place;
        for (int i = 0; i < 3; ++i) {
            auto *const menu = new (&place) QMenu;
            menu->addAction(u"One"_s);
            stage->style()->contextMenu = menu;
            const QSignalSpy opened(menu, &QMenu::aboutToShow);
            whenOpen(menu, [] {});
            stage.hand.openContextMenu(stage.centre());
            QCOMPARE(opened.count(), 1);
            menu->~QMenu();
            QCOMPARE(stage->style()->contextMenu, nullptr);
        }
    }
};

KEL_TEST_MAIN(tst_ContextMenu)
#include "tst_contextmenu.moc"
