// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "menustage.h"

#include <kelpushbutton.h>

#include <QtCore/QPointer>
#include <QtGui/QPainter>

#include <memory>

namespace {

// Two controls and a separator of 4 px.
void fillForPicture(OpenMenu *menu)
{
    menu->setSpace(4);
    for (const QColor &colour : {QColor(200, 40, 30), QColor(20, 90, 160)}) {
        KELRoundRectControl *control = makeControl({60, 50});
        control->style()->backgroundBrush = colour;
        menu->addItem(control);
    }
    for (QGraphicsItem *item : menu->scene()->items())
        item->setCacheMode(QGraphicsItem::NoCache);
}

void drawByHand(QPainter *painter, int orientation)
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
    painter->drawLine(orientation == 0 ? QLineF(60, 0, 60, 54) : QLineF(0, 50, 64, 50));
    drawControl(orientation == 0 ? QPointF(64, 0) : QPointF(0, 54), QColor(20, 90, 160));
}

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
        QFETCH(QSize, size);
        KELSideMenu menu(nullptr);
        add(&menu);
        menu.show();
        QVERIFY(QTest::qWaitForWindowExposed(&menu));
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
        OpenMenu menu(nullptr);
        menu.resize(200, 100);
        menu.show();
        QVERIFY(QTest::qWaitForWindowExposed(&menu));
        const QSizeF port = menu.viewport()->size();
        QResizeEvent event(QSize(800, 50), QSize(1, 1));
        menu.resizeEvent(&event);
        QCOMPARE(menu.scene()->sceneRect(), QRectF(0, 0, 800, 50));
        const qreal scale = qMin((port.width() - 4) / 800, (port.height() - 4) / 50);
        QCOMPARE(menu.transform().m11(), scale);
        QCOMPARE(menu.transform().m22(), scale);
    }

    void addItemInAShownMenu()
    {
        KELSideMenu menu(nullptr);
        menu.show();
        QVERIFY(QTest::qWaitForWindowExposed(&menu));
        add(&menu);
        QCOMPARE(menu.size(), QSize(102, 44));
        const KELRoundRectControl *second = add(&menu);
        QCOMPARE(menu.size(), QSize(204, 44));
        QCOMPARE(menu.scene()->sceneRect().size(), QSizeF(menu.viewport()->size()));
        QVERIFY(menu.viewport()->rect().contains(
            menu.mapFromScene(second->boundingRect()).boundingRect()));
    }

    void controlsInAShownMenuAreClicked()
    {
        for (const auto orientation : {KELSideMenu::Horizontal, KELSideMenu::Vertical}) {
            KELSideMenu menu(nullptr);
            menu.setOrientation(orientation);
            menu.show();
            QVERIFY(QTest::qWaitForWindowExposed(&menu));
            menu.setSpace(20);
            QList<KELPushButton *> buttons;
            for (int i = 0; i < 3; ++i) {
                buttons.append(new KELPushButton(nullptr));
                buttons.last()->setboundRect(0, 0, 100, 60);
                menu.addItem(buttons.last());
            }
            for (KELPushButton *button : qAsConst(buttons)) {
                const QSignalSpy clicked(button, &KELPushButton::mouseClicked);
                QTest::mouseClick(menu.viewport(), Qt::LeftButton, Qt::NoModifier,
                                  menu.mapFromScene(button->boundingRect().center()));
                QCOMPARE(clicked.count(), 1);
            }
        }
    }

    void picture_data() { addOrientations(); }

    void picture()
    {
        QFETCH(int, orientation);
        OpenMenu menu(nullptr);
        menu.setOrientationValue(orientation);
        fillForPicture(&menu);
        const QSize canvas(140, 140);
        for (const qreal scale : {0.5, 1.0, 1.5, 2.0}) {
            const QImage actual = KelImage::draw(canvas, scale, [&](QPainter *painter) {
                const QRectF all(QPointF(), canvas);
                menu.scene()->render(painter, all, all);
            });
            const QImage byHand = KelImage::draw(
                canvas, scale, [&](QPainter *painter) { drawByHand(painter, orientation); });
            QCOMPARE(KelImage::difference(actual, byHand), QString());
        }
    }

    void pictureOnTheScreen()
    {
        OpenMenu menu(nullptr);
        menu.show();
        QVERIFY(QTest::qWaitForWindowExposed(&menu));
        fillForPicture(&menu);
        const QImage actual = menu.viewport()->grab().toImage().convertToFormat(
            QImage::Format_ARGB32_Premultiplied);
        QImage byHand(actual.size(), actual.format());
        byHand.fill(Qt::transparent);
        {
            QPainter painter(&byHand);
            painter.setTransform(menu.viewportTransform());
            drawByHand(&painter, 0);
        }
        QCOMPARE(KelImage::difference(actual, byHand), QString());
    }

    void separatorIsSeenOnTheScreen()
    {
        for (const auto orientation : {KELSideMenu::Horizontal, KELSideMenu::Vertical}) {
            KELSideMenu menu(nullptr);
            menu.setOrientation(orientation);
            menu.show();
            QVERIFY(QTest::qWaitForWindowExposed(&menu));
            menu.setSpace(2);
            for (int i = 0; i < 2; ++i)
                add(&menu)->style()->backgroundBrush = QBrush(Qt::black);
            const QImage image = menu.viewport()->grab().toImage();
            int whitePixels = 0;
            for (int y = 0; y < image.height(); ++y) {
                for (int x = 0; x < image.width(); ++x)
                    whitePixels += image.pixelColor(x, y) == QColor(Qt::white) ? 1 : 0;
            }
            QVERIFY(whitePixels >= (orientation == KELSideMenu::Horizontal ? 30 : 80));
        }
    }

    void addItemIgnores_data()
    {
        QTest::addColumn<int>("which");
        QTest::newRow("null") << 0;
        QTest::newRow("the first control") << 1;
        QTest::newRow("the last control") << 2;
        QTest::newRow("a child of a control") << 3;
        QTest::newRow("a separator") << 4;
    }

    void addItemIgnores()
    {
        QFETCH(int, which);
        KELSideMenu menu(nullptr);
        KELRoundRectControl *first = add(&menu);
        auto *child = new KELRoundRectControl(first);
        KELRoundRectControl *last = add(&menu);
        KELLineItem *separator = separatorsOf(menu).first();
        const QSize size = menu.size();
        menu.setBorderWidth(9);
        KELRoundRectControl *const controls[] = {nullptr, first, last, child, separator};
        const auto rects = [&] {
            QList<QRectF> all;
            for (const KELRoundRectControl *control : {first, child, last})
                all.append(control->boundingRect());
            return all << separator->boundingRect();
        };
        const auto before = rects();
        menu.addItem(controls[which]);
        QCOMPARE(rects(), before);
        QCOMPARE(menu.size(), size);
        QCOMPARE(menu.scene()->items().size(), 4);
        QCOMPARE(first->style()->borderWidth, 2.0F);
        QCOMPARE(last->style()->borderWidth, 2.0F);
        QCOMPARE(child->parentItem(), first);
        KELSideMenu empty(nullptr);
        empty.addItem(nullptr);
        QVERIFY(empty.scene()->items().isEmpty());
    }

    void controlOfAnotherScene()
    {
        KelTestView view;
        KELSideMenu other(nullptr);
        KELSideMenu menu(nullptr);
        add(&menu);
        KELRoundRectControl *fromView = makeControl({50, 20});
        view.ownScene.addItem(fromView);
        QVERIFY(view.showAndWait());
        KELRoundRectControl *fromMenu = add(&other, {60, 30});
        menu.addItem(fromView);
        menu.addItem(fromMenu);
        QVERIFY(view.ownScene.items().isEmpty());
        QVERIFY(other.scene()->items().isEmpty());
        QCOMPARE(fromView->scene(), menu.scene());
        QCOMPARE(fromView->style()->boundRect, QRectF(100.5, 0, 50, 20));
        QCOMPARE(fromMenu->style()->boundRect, QRectF(151.5, 0, 60, 30));
        view.grab();
        // The other menu is as at the beginning.
        QCOMPARE(add(&other)->style()->boundRect, QRectF(0, 0, 100, 40));
    }

    void controlOfAParent()
    {
        KELRoundRectControl parent(nullptr);
        parent.setboundRect(40, 40, 300, 300);
        auto *control = new KELRoundRectControl(&parent);
        control->setboundRect(5, 5, 50, 20);
        KELSideMenu menu(nullptr);
        menu.addItem(control);
        QVERIFY(!control->parentItem());
        QVERIFY(parent.childItems().isEmpty());
        QCOMPARE(control->boundingRect(), QRectF(0, 0, 50, 20));
        QCOMPARE(menu.size(), QSize(52, 24));
    }

    void separatorDeleted()
    {
        KELSideMenu menu(nullptr);
        for (int i = 0; i < 4; ++i)
            add(&menu);
        const auto separators = separatorsOf(menu);
        delete separators.at(1);
        // Six items are left: 400 and five spaces, then the space.
        QCOMPARE(add(&menu)->style()->boundRect, QRectF(403, 0, 100, 40));
        delete separators.at(0);
        menu.setSpace(1);
        QCOMPARE(menu.width(), 508);
    }

    void controlDeleted()
    {
        KELSideMenu menu(nullptr);
        KELRoundRectControl *first = add(&menu);
        add(&menu, {70, 40});
        delete first;
        // The separator and 70, one space between them and one before the next.
        QCOMPARE(add(&menu)->style()->boundRect, QRectF(71, 0, 100, 40));
        menu.scene()->clear();
        QCOMPARE(add(&menu)->style()->boundRect, QRectF(0, 0, 100, 40));
        QCOMPARE(menu.size(), QSize(102, 44));
        QCOMPARE(add(&menu)->style()->boundRect, QRectF(100.5, 0, 100, 40));
    }

    void destroyedWithEverything()
    {
        auto *menu = new KELSideMenu(nullptr);
        QList<QPointer<QObject>> objects;
        for (int i = 0; i < 3; ++i)
            objects.append(add(menu));
        for (KELLineItem *line : separatorsOf(*menu))
            objects.append(line);
        QCOMPARE(objects.size(), 5);
        menu->show();
        QVERIFY(QTest::qWaitForWindowExposed(menu));
        delete menu;
        for (const auto &object : qAsConst(objects))
            QVERIFY(!object);
    }

    void slotOfDestroyedCallsTheMenu_data()
    {
        QTest::addColumn<bool>("ofASeparator");
        QTest::addColumn<bool>("shown");

        QTest::newRow("control") << false << false;
        QTest::newRow("control, shown") << false << true;
        QTest::newRow("separator") << true << false;
        QTest::newRow("separator, shown") << true << true;
    }

    void slotOfDestroyedCallsTheMenu()
    {
        QFETCH(bool, ofASeparator);
        QFETCH(bool, shown);
        auto *menu = new KELSideMenu(nullptr);
        KELRoundRectControl *first = add(menu);
        add(menu);
        add(menu);
        if (shown) {
            menu->show();
            QVERIFY(QTest::qWaitForWindowExposed(menu));
        }
        QObject context;
        int calls = 0;
        const QPointer<KELRoundRectControl> late(makeControl({30, 30}));
        const auto callEverything = [&] {
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
        };
        if (ofASeparator)
            connect(separatorsOf(*menu).first(), &QObject::destroyed, &context, callEverything);
        else
            connect(first, &QObject::destroyed, &context, callEverything);
        delete menu;
        QCOMPARE(calls, 1);
        // Taken by the scene while there was one, otherwise still ours.
        if (late && !late->scene())
            delete late;
        QVERIFY(!late);
    }

    void sceneDeletedOrReplaced()
    {
        KELSideMenu menu(nullptr);
        add(&menu);
        add(&menu);
        QGraphicsScene own;
        QGraphicsScene *const scene = menu.scene();
        menu.setScene(&own);
        // The menu goes on with its own scene.
        const KELRoundRectControl *third = add(&menu);
        QCOMPARE(third->scene(), scene);
        QCOMPARE(third->style()->boundRect.x(), 201.5);
        QVERIFY(own.items().isEmpty());
        delete scene;
        const std::unique_ptr<KELRoundRectControl> homeless(makeControl({10, 10}));
        menu.addItem(homeless.get());
        QVERIFY(!homeless->scene());
        QCOMPARE(homeless->style()->borderWidth, 0.5F);
        const QSize size = menu.size();
        menu.setSpace(8);
        QCOMPARE(menu.space(), 8.0F);
        QCOMPARE(menu.size(), size);
        menu.show();
        QVERIFY(QTest::qWaitForWindowExposed(&menu));
        menu.resize(300, 200);
        QCoreApplication::processEvents();
    }

    void repeatedControlOfAReplacedScene()
    {
        KELSideMenu menu(nullptr);
        KELRoundRectControl *const first = add(&menu);
        QGraphicsScene own;
        menu.setScene(&own);
        menu.addItem(first); // is in the menu already
        QCOMPARE(first->style()->boundRect, QRectF(0, 0, 100, 40));
        KELRoundRectControl *const shown = makeControl({50, 20});
        own.addItem(shown); // is not
        menu.addItem(shown);
        QCOMPARE(shown->scene(), first->scene());
        QCOMPARE(shown->style()->boundRect, QRectF(100.5, 0, 50, 20));
        QVERIFY(own.items().isEmpty());
    }

    void separatorTakenOutDiesWithTheMenu()
    {
        auto *menu = new KELSideMenu(nullptr);
        for (int i = 0; i < 3; ++i)
            add(menu);
        const QPointer<KELLineItem> separator(separatorsOf(*menu).first());
        menu->scene()->removeItem(separator);
        const QPointer<KELLineItem> elsewhere(separatorsOf(*menu).first());
        QGraphicsScene other;
        other.addItem(elsewhere);
        delete menu;
        QVERIFY(!separator);
        QVERIFY(!elsewhere);
        QVERIFY(other.items().isEmpty());
    }

    void controlDeletedWhileAdded()
    {
        KELSideMenu menu(nullptr);
        add(&menu);
        menu.show();
        QVERIFY(QTest::qWaitForWindowExposed(&menu));
        QPointer<KELRoundRectControl> control(makeControl({100, 40}));
        const auto connection = connect(menu.scene(), &QGraphicsScene::sceneRectChanged, &menu,
                                        [&control] { delete control; });
        menu.addItem(control);
        disconnect(connection);
        QVERIFY(!control);
        // The separator was there before: 100 and one space, then the space.
        QCOMPARE(menu.scene()->items().size(), 2);
        QCOMPARE(add(&menu)->style()->boundRect, QRectF(101, 0, 100, 40));
    }

    void sceneDeletedWhileAdded_data()
    {
        QTest::addColumn<bool>("isFirst");
        QTest::addColumn<bool>("inItsSignal");
        for (const bool isFirst : {true, false}) {
            const char *name = isFirst ? "first" : "second";
            QTest::addRow("%s control, in a signal of the scene", name) << isFirst << true;
            QTest::addRow("%s control, before the menu knows its size", name) << isFirst << false;
        }
    }

    void sceneDeletedWhileAdded()
    {
        class SceneKiller : public QObject
        {
        public:
            explicit SceneKiller(KELSideMenu *menu) : m_menu(menu) { }

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
        QFETCH(bool, isFirst);
        QFETCH(bool, inItsSignal);
        KELSideMenu menu(nullptr);
        if (!isFirst)
            add(&menu);
        menu.show();
        QVERIFY(QTest::qWaitForWindowExposed(&menu));
        SceneKiller killer(&menu);
        if (inItsSignal)
            connect(menu.scene(), &QGraphicsScene::sceneRectChanged, &menu,
                    [&menu] { delete menu.scene(); });
        else
            menu.viewport()->installEventFilter(&killer);
        const std::unique_ptr<KELRoundRectControl> control(makeControl({100, 40}));
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
        const QPointer<OpenMenu> menu(new OpenMenu(nullptr));
        add(menu);
        menu->show();
        QVERIFY(QTest::qWaitForWindowExposed(menu));
        QObject context;
        connect(menu->scene(), &QGraphicsScene::sceneRectChanged, &context,
                [&menu] { delete menu; });
        QResizeEvent event(QSize(800, 50), QSize(1, 1));
        menu->resizeEvent(&event);
        QVERIFY(!menu);
    }

    void deletedInASlotWhileAdded_data()
    {
        QTest::addColumn<int>("moment");
        QTest::addColumn<int>("victim");
        const char *const moments[] = {"the selection comes", "the focus comes",
                                       "the old parent loses the control",
                                       "the control loses its parent"};
        const char *const victims[] = {"the menu", "the scene", "the control"};
        for (int i = 0; i < 4; ++i) {
            for (int j = 0; j < 3; ++j)
                QTest::addRow("%s, when %s", victims[j], moments[i]) << i << j;
        }
    }

    void deletedInASlotWhileAdded()
    {
        QFETCH(int, moment);
        QFETCH(int, victim);
        const QPointer<KELSideMenu> menu(new KELSideMenu);
        QGraphicsScene *const scene = menu->scene();
        if (moment != 1) // the only item gets the focus
            add(menu);
        menu->show();
        QApplication::setActiveWindow(menu);
        QVERIFY(QTest::qWaitForWindowActive(menu));
        QTRY_VERIFY(scene->isActive());
        menu->setFocus();
        KELRoundRectControl oldParent;
        const QPointer<KELRoundRectControl> control(makeControl({100, 40}));
        control->setFlags(QGraphicsItem::ItemIsFocusable | QGraphicsItem::ItemIsSelectable
                          | QGraphicsItem::ItemIsPanel);
        // Qt leaks the picture of a panel that gets the focus while it dies with its scene.
        control->setCacheMode(QGraphicsItem::NoCache);
        int calls = 0;
        const QObject context;
        const auto act = [&] {
            if (++calls > 1)
                return;
            if (victim == 0)
                delete menu;
            else if (victim == 1)
                delete scene;
            else
                delete control;
        };
        if (moment == 0) {
            control->setSelected(true);
            connect(scene, &QGraphicsScene::selectionChanged, &context, act);
        } else if (moment == 1) {
            control->setFocus();
            connect(scene, &QGraphicsScene::focusItemChanged, &context, act);
        } else {
            control->setParentItem(&oldParent);
            if (moment == 2)
                connect(&oldParent, &QGraphicsObject::childrenChanged, &context, act);
            else
                connect(control, &QGraphicsObject::parentChanged, &context, act);
        }
        menu->addItem(control);
        QVERIFY(calls > 0);
        QVERIFY(!control);
        QCOMPARE(menu.isNull(), victim == 0);
        delete menu;
    }
};

KEL_TEST_MAIN(tst_KELSideMenuView)
#include "tst_kelsidemenuview.moc"
