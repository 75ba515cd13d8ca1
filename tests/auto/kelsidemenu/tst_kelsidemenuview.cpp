// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "hand.h"
#include "menustage.h"

#include <kelpushbutton.h>

#include <QtCore/QPointer>
#include <QtGui/QPainter>

#include <memory>

namespace {

// Two controls and a separator of 4 px.
void fillForPicture(Menu *menu)
{
    menu->setSpace(4);
    for (const QColor &colour : {QColor(200, 40, 30), QColor(20, 90, 160)}) {
        KELRoundRectControl *control = newControl({60, 50});
        control->style()->backgroundBrush = colour;
        menu->addItem(control);
    }
    for (QGraphicsItem *item : menu->scene()->items())
        item->setCacheMode(QGraphicsItem::NoCache);
}

void drawByHand(QPainter *painter, bool isHorizontal)
{
    const auto drawControl = [painter](const QPointF &corner, const QColor &colour) {
        painter->setRenderHint(QPainter::Antialiasing, true);
        painter->setPen(QPen(Qt::black, 2, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
        painter->setBrush(colour);
        painter->drawRect(QRectF(corner + QPointF(1, 1), QSizeF(58, 48)));
    };
    drawControl(QPointF(0, 0), QColor(200, 40, 30));
    painter->setRenderHint(QPainter::Antialiasing, false);
    painter->setPen(QPen(Qt::white, 4, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
    painter->drawLine(isHorizontal ? QLineF(60, 0, 60, 54) : QLineF(0, 50, 64, 50));
    drawControl(isHorizontal ? QPointF(64, 0) : QPointF(0, 54), QColor(20, 90, 160));
}

// Deletes the scene before the menu knows its new size.
class SceneKiller : public QObject
{
public:
    explicit SceneKiller(KELSideMenu *menu) : m_menu(menu)
    {
        menu->viewport()->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        if (event->type() == QEvent::Resize)
            delete m_menu->scene();
        return false;
    }

private:
    KELSideMenu *const m_menu;
};

enum class Moment { SelectionComes, FocusComes, OldParentLosesIt, LosesItsParent };
enum class Victim { Menu, Scene, Control };

} // namespace

class tst_KELSideMenuView : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void resizeFitsTheScene_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::newRow("wide") << QSize(400, 100);
        QTest::newRow("high") << QSize(90, 300);
        QTest::newRow("square") << QSize(200, 200);
    }

    void resizeFitsTheScene()
    {
        QFETCH(const QSize, size);
        Menu menu;
        menu.add();
        menu.showAndWait();
        menu.resize(size);
        const QSizeF port = menu.viewport()->size();
        QCOMPARE(menu.scene()->sceneRect(), QRectF(QPointF(), port));
        // QGraphicsView leaves 2 px on each side.
        const qreal scale = qMin((port.width() - 4) / port.width(),
                                 (port.height() - 4) / port.height());
        QCOMPARE(menu.transform().m11(), scale);
        QCOMPARE(menu.transform().m22(), scale);
        QCOMPARE(menu.size(), size);
    }

    void resizeEventGivesTheSceneItsSize()
    {
        Menu menu;
        menu.resize(200, 100);
        menu.showAndWait();
        const QSizeF port = menu.viewport()->size();
        QResizeEvent event(QSize(800, 50), QSize(1, 1));
        menu.resizeEvent(&event);
        QCOMPARE(menu.scene()->sceneRect(), QRectF(0, 0, 800, 50));
        const qreal scale = qMin((port.width() - 4) / 800, (port.height() - 4) / 50);
        QCOMPARE(menu.transform().m11(), scale);
        QCOMPARE(menu.transform().m22(), scale);
    }

    // An application may give the menu a scene rectangle of its own, here in its true size.
    void resizeCentresWhatIsShown()
    {
        Menu menu;
        menu.resize(100, 100);
        menu.showAndWait();
        menu.setSceneRect(menu.viewport()->rect().adjusted(0, 0, -4, -4));
        menu.resize(200, 100);
        const QPoint before = menu.mapFromScene(0, 0);
        menu.resize(300, 100);
        QCOMPARE(menu.mapFromScene(0, 0) - before, QPoint(50, 0));
    }

    void addItemInAShownMenu()
    {
        Menu menu;
        menu.showAndWait();
        menu.add();
        QCOMPARE(menu.size(), QSize(102, 44));
        const KELRoundRectControl *second = menu.add();
        QCOMPARE(menu.size(), QSize(204, 44));
        QCOMPARE(menu.scene()->sceneRect().size(), QSizeF(menu.viewport()->size()));
        QVERIFY(menu.viewport()->rect().contains(
            menu.mapFromScene(second->boundingRect()).boundingRect()));
    }

    void controlsInAShownMenuAreClicked_data()
    {
        addRows({{"input", inputs}, {"orientation", orientations}});
    }

    void controlsInAShownMenuAreClicked()
    {
        Menu menu(fetch<int>("orientation"));
        menu.showAndWait();
        menu.setSpace(20);
        QList<KELPushButton *> buttons;
        for (int i = 0; i < 3; ++i) {
            buttons.append(new KELPushButton(nullptr));
            buttons.last()->setboundRect(0, 0, 100, 60);
            menu.addItem(buttons.last());
        }
        Hand hand(menu.viewport(), fetch<Input>("input"));
        for (KELPushButton *button : qAsConst(buttons)) {
            const QSignalSpy clicked(button, &KELPushButton::mouseClicked);
            hand.tap(menu.mapFromScene(button->boundingRect().center()));
            QCOMPARE(clicked.count(), 1);
        }
    }

    void picture_data() { addRows({{"orientation", orientations}}); }

    void picture()
    {
        const bool isHorizontal = fetch<int>("orientation") == horizontally;
        Menu menu(fetch<int>("orientation"));
        fillForPicture(&menu);
        const QSize canvas(140, 140);
        for (const qreal scale : {0.5, 1.0, 1.5, 2.0}) {
            const QImage actual = KelImage::draw(canvas, scale, [&](QPainter *painter) {
                const QRectF all(QPointF(), canvas);
                menu.scene()->render(painter, all, all);
            });
            const QImage byHand = KelImage::draw(
                canvas, scale, [&](QPainter *painter) { drawByHand(painter, isHorizontal); });
            QCOMPARE(KelImage::difference(actual, byHand), QString());
        }
    }

    void pictureOnTheScreen()
    {
        Menu menu;
        menu.showAndWait();
        fillForPicture(&menu);
        const QImage actual = menu.viewport()->grab().toImage().convertToFormat(
            QImage::Format_ARGB32_Premultiplied);
        QImage byHand(actual.size(), actual.format());
        byHand.fill(Qt::transparent);
        {
            QPainter painter(&byHand);
            painter.setTransform(menu.viewportTransform());
            drawByHand(&painter, true);
        }
        QCOMPARE(KelImage::difference(actual, byHand), QString());
    }

    void separatorIsSeenOnTheScreen_data() { addRows({{"orientation", orientations}}); }

    void separatorIsSeenOnTheScreen()
    {
        Menu menu(fetch<int>("orientation"));
        menu.showAndWait();
        menu.setSpace(2);
        for (int i = 0; i < 2; ++i)
            menu.add()->style()->backgroundBrush = QBrush(Qt::black);
        const QRect line = KelImage::areaOf(menu.viewport()->grab().toImage(), Qt::white);
        // As long as the menu is thick, but for the edges that the scale blurs.
        const bool isHorizontal = fetch<int>("orientation") == horizontally;
        QVERIFY((isHorizontal ? line.height() : line.width()) >= (isHorizontal ? 30 : 80));
    }

    void addItemIgnores_data()
    {
        addRows({{"which",
                  {{"null", 0},
                   {"the first control", 1},
                   {"the last control", 2},
                   {"a child of a control", 3},
                   {"a separator", 4}}}});
    }

    void addItemIgnores()
    {
        Menu menu;
        KELRoundRectControl *first = menu.add();
        auto *child = new KELRoundRectControl(first);
        KELRoundRectControl *last = menu.add();
        KELRoundRectControl *const controls[] = {nullptr, first, last, child,
                                                 menu.separators().first()};
        const auto state = [&] {
            QList<QRectF> all = {QRectF(QPointF(), menu.size())};
            for (QGraphicsItem *item : menu.scene()->items(Qt::AscendingOrder))
                all.append(item->boundingRect());
            return all;
        };
        const auto before = state();
        QCOMPARE(before.size(), 5);
        menu.setBorderWidth(9);
        menu.addItem(controls[fetch<size_t>("which")]);
        QCOMPARE(state(), before);
        QCOMPARE(first->style()->borderWidth, 2.0F);
        QCOMPARE(last->style()->borderWidth, 2.0F);
        QCOMPARE(child->parentItem(), first);
    }

    void nullIsIgnoredByAnEmptyMenu()
    {
        Menu menu;
        menu.addItem(nullptr);
        QVERIFY(menu.scene()->items().isEmpty());
    }

    void controlOfAnotherScene()
    {
        KelTestView view;
        Menu other;
        Menu menu;
        menu.add();
        KELRoundRectControl *fromView = newControl({50, 20});
        view.ownScene.addItem(fromView);
        QVERIFY(view.showAndWait());
        KELRoundRectControl *fromMenu = other.add({60, 30});
        menu.addItem(fromView);
        menu.addItem(fromMenu);
        QVERIFY(view.ownScene.items().isEmpty());
        QVERIFY(other.scene()->items().isEmpty());
        QCOMPARE(fromView->scene(), menu.scene());
        QCOMPARE(fromView->style()->boundRect, QRectF(100.5, 0, 50, 20));
        QCOMPARE(fromMenu->style()->boundRect, QRectF(151.5, 0, 60, 30));
        view.grab();
        // The other menu is as at the beginning.
        QCOMPARE(other.rectOfNext(), QRectF(0, 0, 100, 40));
    }

    void controlOfAParent()
    {
        KELRoundRectControl parent(nullptr);
        parent.setboundRect(40, 40, 300, 300);
        auto *control = new KELRoundRectControl(&parent);
        control->setboundRect(5, 5, 50, 20);
        Menu menu;
        menu.addItem(control);
        QVERIFY(!control->parentItem());
        QVERIFY(parent.childItems().isEmpty());
        QCOMPARE(control->boundingRect(), QRectF(0, 0, 50, 20));
        QCOMPARE(menu.size(), QSize(52, 24));
    }

    void separatorDeleted()
    {
        Menu menu;
        for (int i = 0; i < 4; ++i)
            menu.add();
        const auto separators = menu.separators();
        delete separators.at(1);
        // Six items are left: 400 and five spaces, then the space.
        QCOMPARE(menu.rectOfNext(), QRectF(403, 0, 100, 40));
        delete separators.at(0);
        menu.setSpace(1);
        QCOMPARE(menu.width(), 508);
    }

    void controlDeleted()
    {
        Menu menu;
        KELRoundRectControl *first = menu.add();
        menu.add({70, 40});
        delete first;
        // The separator and 70, one space between them and one before the next.
        QCOMPARE(menu.rectOfNext(), QRectF(71, 0, 100, 40));
        menu.scene()->clear();
        QCOMPARE(menu.rectOfNext(), QRectF(0, 0, 100, 40));
        QCOMPARE(menu.size(), QSize(102, 44));
        QCOMPARE(menu.rectOfNext(), QRectF(100.5, 0, 100, 40));
    }

    void destroyedWithEverything()
    {
        auto menu = std::make_unique<Menu>();
        QList<QPointer<QObject>> objects;
        for (int i = 0; i < 3; ++i)
            objects.append(menu->add());
        for (KELLineItem *line : menu->separators())
            objects.append(line);
        QCOMPARE(objects.size(), 5);
        menu->showAndWait();
        menu.reset();
        QCOMPARE(objects.count(QPointer<QObject>()), 5);
    }

    void slotOfDestroyedCallsTheMenu_data()
    {
        addRows({{"ofASeparator", {{"control", false}, {"separator", true}}},
                 {"shown", {{"hidden", false}, {"shown", true}}}});
    }

    void slotOfDestroyedCallsTheMenu()
    {
        auto *menu = new Menu;
        KELRoundRectControl *dying = menu->add();
        menu->add();
        menu->add();
        if (fetch<bool>("ofASeparator"))
            dying = menu->separators().first();
        if (fetch<bool>("shown"))
            menu->showAndWait();
        int calls = 0;
        const QPointer<KELRoundRectControl> late(newControl({30, 30}));
        const QObject context;
        connect(dying, &QObject::destroyed, &context, [&] {
            ++calls;
            menu->addItem(late);
            menu->addItem(nullptr);
            menu->setSpace(3);
            menu->setBorderWidth(4);
            menu->setOrientation(KELSideMenu::Vertical);
            menu->resize(77, 88);
            QCOMPARE(menu->space(), 3.0F);
            QCOMPARE(menu->borderWidth(), 4.0F);
            QCOMPARE(menu->orientation(), KELSideMenu::Vertical);
        });
        delete menu;
        QCOMPARE(calls, 1);
        // Taken by the scene while there was one, otherwise still ours.
        if (late && !late->scene())
            delete late;
        QVERIFY(!late);
    }

    void sceneDeletedOrReplaced()
    {
        Menu menu;
        menu.add();
        menu.add();
        QGraphicsScene own;
        QGraphicsScene *const scene = menu.scene();
        menu.setScene(&own);
        // The menu goes on with its own scene.
        const KELRoundRectControl *third = menu.add();
        QCOMPARE(third->scene(), scene);
        QCOMPARE(third->style()->boundRect.x(), 201.5);
        QVERIFY(own.items().isEmpty());
        delete scene;
        const std::unique_ptr<KELRoundRectControl> homeless(newControl());
        menu.addItem(homeless.get());
        QVERIFY(!homeless->scene());
        QCOMPARE(homeless->style()->borderWidth, 0.5F);
        const QSize size = menu.size();
        menu.setSpace(8);
        QCOMPARE(menu.space(), 8.0F);
        QCOMPARE(menu.size(), size);
        menu.showAndWait();
        menu.resize(300, 200);
        QCoreApplication::processEvents();
    }

    void repeatedControlOfAReplacedScene()
    {
        Menu menu;
        KELRoundRectControl *const first = menu.add();
        QGraphicsScene own;
        menu.setScene(&own);
        menu.addItem(first); // is in the menu already
        QCOMPARE(first->style()->boundRect, QRectF(0, 0, 100, 40));
        KELRoundRectControl *const shown = newControl({50, 20});
        own.addItem(shown); // is not
        menu.addItem(shown);
        QCOMPARE(shown->scene(), first->scene());
        QCOMPARE(shown->style()->boundRect, QRectF(100.5, 0, 50, 20));
        QVERIFY(own.items().isEmpty());
    }

    void separatorTakenOutDiesWithTheMenu()
    {
        auto menu = std::make_unique<Menu>();
        for (int i = 0; i < 3; ++i)
            menu->add();
        const QPointer<KELLineItem> separator(menu->separators().first());
        const QPointer<KELLineItem> elsewhere(menu->separators().last());
        menu->scene()->removeItem(separator);
        QGraphicsScene other;
        other.addItem(elsewhere);
        menu.reset();
        QVERIFY(!separator);
        QVERIFY(!elsewhere);
        QVERIFY(other.items().isEmpty());
    }

    void controlDeletedWhileAdded()
    {
        Menu menu;
        menu.add();
        menu.showAndWait();
        const QPointer<KELRoundRectControl> control(newControl());
        const auto connection = connect(menu.scene(), &QGraphicsScene::sceneRectChanged, &menu,
                                        [&] { delete control; });
        menu.addItem(control);
        disconnect(connection);
        QVERIFY(!control);
        // The separator was there before: 100 and one space, then the space.
        QCOMPARE(menu.scene()->items().size(), 2);
        QCOMPARE(menu.rectOfNext(), QRectF(101, 0, 100, 40));
    }

    void sceneDeletedWhileAdded_data()
    {
        addRows(
            {{"controls", {{"first control", 0}, {"second control", 1}}},
             {"inItsSignal",
              {{"in a signal of the scene", true}, {"before the menu knows its size", false}}}});
    }

    void sceneDeletedWhileAdded()
    {
        Menu menu;
        for (int i = 0; i < fetch<int>("controls"); ++i)
            menu.add();
        menu.showAndWait();
        std::unique_ptr<SceneKiller> killer;
        if (fetch<bool>("inItsSignal"))
            connect(menu.scene(), &QGraphicsScene::sceneRectChanged, &menu,
                    [&] { delete menu.scene(); });
        else
            killer = std::make_unique<SceneKiller>(&menu);
        const std::unique_ptr<KELRoundRectControl> control(newControl());
        menu.addItem(control.get());
        QVERIFY(!menu.scene());
        QVERIFY(!control->scene());
        menu.addItem(control.get());
        menu.resize(200, 100);
        QVERIFY(!control->scene());
    }

    // Qt itself does not survive this while it resizes a widget, but it does when the event comes
    // from elsewhere.
    void menuDeletedInASlotOfItsScene()
    {
        const QPointer<Menu> menu(new Menu);
        menu->add();
        menu->showAndWait();
        const QObject context;
        connect(menu->scene(), &QGraphicsScene::sceneRectChanged, &context, [&] { delete menu; });
        QResizeEvent event(QSize(800, 50), QSize(1, 1));
        menu->resizeEvent(&event);
        QVERIFY(!menu);
    }

    void deletedInASlotWhileAdded_data()
    {
        addRows({{"victim",
                  {{"the menu", int(Victim::Menu)},
                   {"the scene", int(Victim::Scene)},
                   {"the control", int(Victim::Control)}}},
                 {"moment",
                  {{"when the selection comes", int(Moment::SelectionComes)},
                   {"when the focus comes", int(Moment::FocusComes)},
                   {"when the old parent loses it", int(Moment::OldParentLosesIt)},
                   {"when the control loses its parent", int(Moment::LosesItsParent)}}}});
    }

    void deletedInASlotWhileAdded()
    {
        const auto moment = fetch<Moment>("moment");
        const auto victim = fetch<Victim>("victim");
        const QPointer<Menu> menu(new Menu);
        QGraphicsScene *const scene = menu->scene();
        if (moment != Moment::FocusComes) // the only item gets the focus
            menu->add();
        menu->show();
        QApplication::setActiveWindow(menu);
        QVERIFY(QTest::qWaitForWindowActive(menu));
        QTRY_VERIFY(scene->isActive());
        menu->setFocus();
        KELRoundRectControl oldParent;
        const QPointer<KELRoundRectControl> control(newControl());
        control->setFlags(QGraphicsItem::ItemIsFocusable | QGraphicsItem::ItemIsSelectable
                          | QGraphicsItem::ItemIsPanel);
        // Qt leaks the picture of a panel that gets the focus while it dies with its scene.
        control->setCacheMode(QGraphicsItem::NoCache);
        int calls = 0;
        const QObject context;
        const auto act = [&] {
            if (++calls > 1)
                return;
            if (victim == Victim::Menu)
                delete menu;
            else if (victim == Victim::Scene)
                delete scene;
            else
                delete control;
        };
        if (moment == Moment::SelectionComes) {
            control->setSelected(true);
            connect(scene, &QGraphicsScene::selectionChanged, &context, act);
        } else if (moment == Moment::FocusComes) {
            control->setFocus();
            connect(scene, &QGraphicsScene::focusItemChanged, &context, act);
        } else {
            control->setParentItem(&oldParent);
            if (moment == Moment::OldParentLosesIt)
                connect(&oldParent, &QGraphicsObject::childrenChanged, &context, act);
            else
                connect(control, &QGraphicsObject::parentChanged, &context, act);
        }
        menu->addItem(control);
        QVERIFY(calls > 0);
        QVERIFY(!control);
        QCOMPARE(menu.isNull(), victim == Victim::Menu);
        delete menu;
    }
};

KEL_TEST_MAIN(tst_KELSideMenuView)
#include "tst_kelsidemenuview.moc"
