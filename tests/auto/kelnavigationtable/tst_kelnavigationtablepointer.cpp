// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "tablestage.h"

#include <QtCore/QTimer>
#include <QtWidgets/QDialog>

namespace {

const std::vector<Named> indexMethods = {{"no index", int(QGraphicsScene::NoIndex)},
                                         {"tree", int(QGraphicsScene::BspTreeIndex)}};
const std::vector<Named> firstOrSecond = {{"first page", true}, {"second page", false}};

struct Place
{
    const char *name;
    QPoint pos; // in the table
};
const Place placesElsewhere[] = {{"content", {300, 150}},
                                 {"last line of the content", {300, 229}},
                                 {"title", {300, 15}},
                                 {"left of the table", {-5, 270}},
                                 {"right of the table", {445, 270}},
                                 {"below the table", {300, 315}}};

// With so few items a tree would be one leaf.
void setIndexMethod(QGraphicsScene *scene)
{
    scene->setItemIndexMethod(QGraphicsScene::ItemIndexMethod(fetch<int>("index")));
    if (scene->itemIndexMethod() == QGraphicsScene::BspTreeIndex)
        scene->setBspTreeDepth(8);
}

// A search brings the index of the scene up to date, also halfway through.
void searchWhenShownOrHidden(KELNavigationTableItem *page)
{
    QObject::connect(page, &QGraphicsObject::visibleChanged, page,
                     [page] { page->scene()->items(QPointF(1, 1)); });
}

} // namespace

class tst_KELNavigationTablePointer : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QApplication::setDoubleClickInterval(5000); }

    void tabsDoNotFollowTheRectangle()
    {
        TableStage stage(0);
        stage->setPos(0, 0);
        stage->setboundRect(50, 40, 400, 300);
        stage.addPages(2);
        // The tabs are at (0, 220) and (200, 220), of which the table shows what is in its
        // rectangle.
        stage.hand.tap(QPoint(210, 290));
        QCOMPARE(stage->selectIndex(), 1);
        stage.hand.tap(QPoint(190, 290));
        QCOMPARE(stage->selectIndex(), 0);
        stage.hand.tap(QPoint(430, 320));
        QCOMPARE(stage->selectIndex(), 0);
        stage->setSelectIndex(1);
        stage.hand.tap(QPoint(30, 290));
        QCOMPARE(stage->selectIndex(), 1);
    }

    void tabsFollowThePosition_data() { addRows({{"input", inputs}}); }

    void tabsFollowThePosition()
    {
        TableStage stage(2, fetch<Input>("input"));
        stage.settle();
        stage->setPos(50, 80);
        stage.hand.tap(QPoint(50 + 230, 80 + 235));
        QCOMPARE(stage.whatIsNotShown(1), QString());
        stage.hand.tap(QPoint(50 + 210, 80 + 305));
        QCOMPARE(stage.whatIsNotShown(0), QString());
        stage.hand.tap(QPoint(50 + 230, 80 + 225));
        QCOMPARE(stage.whatIsNotShown(0), QString());
    }

    void pressOnATab_data() { addRows({{"input", inputs}}); }

    void pressOnATab()
    {
        TableStage stage(3, fetch<Input>("input"));
        for (const int index : {2, 1, 0}) {
            stage.settle();
            stage.hand.press(stage.tab(index));
            QCOMPARE(stage.whatIsNotShown(index), QString());
            QVERIFY(stage.wasPainted());
            stage.hand.release();
            QCOMPARE(stage.whatIsNotShown(index), QString());
        }
    }

    void pressIsNotReported_data() { addRows({{"input", inputs}}); }

    void pressIsNotReported()
    {
        TableStage stage(2, fetch<Input>("input"));
        stage.hand.press(stage.tab(1));
        QVERIFY(!stage->isMouseDown());
        QVERIFY(!hasTimers(stage.control));
        stage.hand.release();
        QCOMPARE(stage.log.take(), u"release"_s);
    }

    void pressOnTheSelectedTab_data() { addRows({{"input", inputs}}); }

    void pressOnTheSelectedTab()
    {
        TableStage stage(3, fetch<Input>("input"));
        stage->setSelectIndex(1);
        stage.settle();
        const QSignalSpy visibility(stage.pages.at(1), &QGraphicsObject::visibleChanged);
        stage->pressAt(QPointF(220, 270));
        QVERIFY(!stage.wasPainted());
        stage.hand.tap(stage.tab(1));
        QCOMPARE(stage.whatIsNotShown(1), QString());
        QCOMPARE(visibility.count(), 0);
    }

    void pressElsewhere_data()
    {
        addRows({{"place", namesOf(placesElsewhere)}, {"input", inputs}});
    }

    void pressElsewhere()
    {
        const QPoint pos = placesElsewhere[fetch<int>("place")].pos;
        TableStage stage(0, fetch<Input>("input"));
        styleOf(stage.get())->showTitle = true;
        stage.addPages(2);
        const QSignalSpy visibility(stage.pages.at(0), &QGraphicsObject::visibleChanged);
        stage.hand.tap(stage.at(pos.x(), pos.y()));
        QCOMPARE(stage.whatIsNotShown(0), QString());
        QCOMPARE(visibility.count(), 0);
        stage->pressAt(pos);
        QCOMPARE(stage.whatIsNotShown(0), QString());
    }

    void pressOnTheOnlyPage_data() { addRows({{"input", inputs}}); }

    void pressOnTheOnlyPage()
    {
        TableStage stage(1, fetch<Input>("input"));
        const QSignalSpy visibility(stage.pages.at(0), &QGraphicsObject::visibleChanged);
        stage.hand.tap(stage.tab(0));
        stage.hand.tap(stage.at(220, 100));
        QCOMPARE(stage.whatIsNotShown(0), QString());
        QCOMPARE(visibility.count(), 0);
    }

    void pressBetweenTwoTabs()
    {
        TableStage stage(2);
        stage->setSelectIndex(1);
        stage.hand.tap(stage.at(220, 270));
        QCOMPARE(stage.whatIsNotShown(0), QString());
        stage.hand.tap(stage.at(221, 270));
        QCOMPARE(stage.whatIsNotShown(1), QString());
    }

    void otherButtons_data() { addRows({{"button", otherMouseButtons}}); }

    void otherButtons()
    {
        const auto button = fetch<Qt::MouseButton>("button");
        TableStage stage(2);
        stage.hand.press(stage.tab(1), button);
        stage.hand.release(stage.tab(1), button);
        QTest::mouseDClick(stage.view.viewport(), button, Qt::NoModifier, stage.tab(1));
        QCOMPARE(stage.whatIsNotShown(0), QString());
        QCOMPARE(stage.log.count(u"release"_s), 0);
        // An application that lets another button through gets it.
        stage->pressAt(QPointF(300, 270), button);
        QCOMPARE(stage.whatIsNotShown(1), QString());
    }

    void doubleClickSwitches_data() { addRows({{"input", inputs}}); }

    void doubleClickSwitches()
    {
        TableStage stage(3, fetch<Input>("input"));
        stage.hand.tap(stage.tab(1));
        QCOMPARE(stage.whatIsNotShown(1), QString());
        stage.hand.pressAgain(stage.tab(2));
        QCOMPARE(stage.whatIsNotShown(2), QString());
        stage.hand.release();
        // Two fingers' taps that far apart are no double tap.
        QCOMPARE(stage.log.take(),
                 fetch<Input>("input") == Input::Mouse ? u"release doubleClicked release"_s
                                                       : u"release release"_s);
    }

    void disabledTable_data() { addRows({{"input", inputs}}); }

    void disabledTable()
    {
        TableStage stage(2, fetch<Input>("input"));
        stage->setEnabled(false);
        stage.hand.tap(stage.tab(1));
        QCOMPARE(stage.whatIsNotShown(0), QString());
        stage->setSelectIndex(1);
        QCOMPARE(stage.whatIsNotShown(1), QString());
    }

    void scaledView_data() { addRows({{"input", inputs}}); }

    void scaledView()
    {
        TableStage stage(3, fetch<Input>("input"));
        stage.settle();
        stage.view.scale(0.5, 0.5);
        for (const int index : {1, 2, 0}) {
            stage.hand.tap(stage.tab(index));
            QCOMPARE(stage.whatIsNotShown(index), QString());
        }
    }

    void onlyTheShownPageHasControls_data() { addRows({{"input", inputs}}); }

    void onlyTheShownPageHasControls()
    {
        TableStage stage(3, fetch<Input>("input"));
        SignalLog log;
        QList<KELPushButton *> buttons;
        for (KELNavigationTableItem *page : qAsConst(stage.pages)) {
            buttons.append(new KELPushButton(page));
            buttons.last()->setboundRect(100, 60, 120, 50);
            log.listenTo(buttons.last(), QString::number(buttons.size() - 1));
        }
        for (const int index : {0, 2, 1, 0}) {
            stage.hand.tap(stage.tab(index));
            for (int i = 0; i < 3; ++i)
                QCOMPARE(buttons.at(i)->isVisible(), i == index);
            stage.hand.tap(stage.at(150, 80));
            QCOMPARE(log.take(), u"%1.press %1.release %1.clicked"_s.arg(index));
        }
    }

    void pageAddedWhileShown_data()
    {
        addRows(
            {{"index", indexMethods},
             {"isFirst", firstOrSecond},
             {"isChildFirst", {{"control added before", true}, {"control added after", false}}}});
    }

    void pageAddedWhileShown()
    {
        TableStage stage(fetch<bool>("isFirst") ? 0 : 1);
        setIndexMethod(&stage.view.ownScene);
        styleOf(stage.get())->showTitle = true;
        auto *page = new KELNavigationTableItem;
        // Was somewhere else in the scene, where the index has it.
        page->setboundRect(300, 300, 10, 10);
        auto *button = new KELPushButton;
        button->setboundRect(10, 20, 100, 40);
        if (fetch<bool>("isChildFirst"))
            button->setParentItem(page);
        stage.view.ownScene.addItem(page);
        stage.settle();
        searchWhenShownOrHidden(page);
        stage.view.ownScene.items(QPointF(1, 1));
        stage->addItem(page);
        stage.pages.append(page);
        button->setParentItem(page);
        stage->setSelectIndex(stage.pages.size() - 1);
        stage.settle();

        SignalLog log;
        log.listenTo(button, u"button"_s);
        log.listenTo(page, u"page"_s);
        stage.hand.tap(stage.at(60, 35 + 40));
        QCOMPARE(log.count(u"button.clicked"_s), 1);
        stage.hand.tap(stage.at(430, 200));
        QCOMPARE(log.count(u"page.press"_s), 1);
        QVERIFY(!stage.view.items(stage.at(305, 305)).contains(page));
    }

    void controlBesideTheTableIsFound_data()
    {
        addRows({{"index", indexMethods}, {"isFirst", firstOrSecond}});
    }

    // A control that sticks out of the table moves when its page is placed. Where the table is, a
    // tree always looks.
    void controlBesideTheTableIsFound()
    {
        KelTestView view(QSize(800, 500));
        setIndexMethod(&view.ownScene);
        auto *table = new KELNavigationTable;
        addPages(table, fetch<bool>("isFirst") ? 0 : 1);
        view.ownScene.addItem(table);
        auto *page = new KELNavigationTableItem;
        page->setboundRect(0, 350, 10, 10);
        auto *button = new KELPushButton(page);
        button->setboundRect(600, 100, 60, 40);
        view.ownScene.addItem(page);
        view.showOnce();
        const QPoint before(630, 470);
        const QPoint after(630, 120);
        QVERIFY(view.items(before).contains(button));
        searchWhenShownOrHidden(page);
        table->addItem(page);
        table->setSelectIndex(fetch<bool>("isFirst") ? 0 : 1);
        QVERIFY(view.items(before).isEmpty());
        QVERIFY(view.items(after).contains(button));
        const QSignalSpy clicked(button, &KELPushButton::mouseClicked);
        Hand(&view).tap(after);
        QCOMPARE(clicked.count(), 1);
    }

    void filterOnAChild()
    {
        TableStage stage(2);
        auto *child = new KELRoundRectControl(stage.pages.first());
        child->setboundRect(100, 60, 120, 50);
        child->setFlag(QGraphicsItem::ItemIsSelectable);
        const QPoint pos = stage.view.centreOf(child);
        SignalLog log;
        log.listenTo(child);
        // The table filters for none that did not ask for it.
        stage.hand.press(pos, Qt::RightButton);
        stage.hand.release(pos, Qt::RightButton);
        QCOMPARE(log.take(), u"press"_s);
        child->installSceneEventFilter(stage.get());
        stage.hand.press(pos, Qt::RightButton);
        stage.hand.release(pos, Qt::RightButton);
        QCOMPARE(log.take(), QString());
        stage.hand.tap(pos);
        QCOMPARE(log.take(), u"press release clicked"_s);
    }

    void tapAfterADialogThatATabOpened_data()
    {
        addRows({{"input", inputs},
                 {"isOnTheTable", {{"on a button", false}, {"on another tab", true}}}});
    }

    // The dialog takes the release of the press on the tab.
    void tapAfterADialogThatATabOpened()
    {
        TableStage stage(3, fetch<Input>("input"));
        stage.once(stage.pages.at(1), [] {
            QDialog dialog;
            QTimer::singleShot(50, &dialog, &QDialog::accept);
            dialog.exec();
        });
        stage.hand.press(stage.tab(1));
        QCOMPARE(stage.calls, 1);
        QCOMPARE(stage->selectIndex(), 1);
        if (fetch<Input>("input") == Input::Touch)
            stage.hand.release(); // the panel tells it, and nobody gets it
        if (fetch<bool>("isOnTheTable")) {
            stage.hand.tap(stage.tab(2));
            QCOMPARE(stage->selectIndex(), 2);
            return;
        }
        stage.log.take();
        stage.hand.tap(stage.otherCentre());
        stage.hand.tap(stage.otherCentre());
        QCOMPARE(stage.log.count(u"other.clicked"_s), 2);
    }
};

KEL_TEST_MAIN(tst_KELNavigationTablePointer)
#include "tst_kelnavigationtablepointer.moc"
