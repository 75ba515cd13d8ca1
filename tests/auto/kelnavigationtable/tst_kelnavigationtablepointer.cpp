// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "tablestage.h"

#include <kelpushbutton.h>

#include <QtCore/QAbstractEventDispatcher>
#include <QtCore/QTimer>
#include <QtWidgets/QDialog>

#include <memory>

namespace {

void addInputs()
{
    QTest::addColumn<Input>("input");
    QTest::newRow("mouse") << Input::Mouse;
    QTest::newRow("touch") << Input::Touch;
}

} // namespace

class tst_KELNavigationTablePointer : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QApplication::setDoubleClickInterval(5000); }

    void tabsDoNotFollowTheRectangle()
    {
        Stage stage(0);
        stage.table->setPos(0, 0);
        stage.table->setboundRect(50, 40, 400, 300);
        stage.pages = addPages(stage.table, 2);
        QVERIFY(stage.show());
        // The tabs are at (0, 220) and (200, 220), of which the table shows what is in its
        // rectangle.
        stage.view.click(QPoint(210, 290));
        QCOMPARE(stage.table->selectIndex(), 1);
        stage.view.click(QPoint(190, 290));
        QCOMPARE(stage.table->selectIndex(), 0);
        stage.view.click(QPoint(430, 320));
        QCOMPARE(stage.table->selectIndex(), 0);
        stage.table->setSelectIndex(1);
        stage.view.click(QPoint(30, 290));
        QCOMPARE(stage.table->selectIndex(), 1);
    }

    void tabsFollowThePosition_data() { addInputs(); }

    void tabsFollowThePosition()
    {
        QFETCH(Input, input);
        Stage stage(2);
        QVERIFY(stage.show());
        stage.table->setPos(50, 80);
        stage.tap(input, QPoint(50 + 230, 80 + 235));
        QCOMPARE(stage.whatIsNotShown(1), QString());
        stage.tap(input, QPoint(50 + 210, 80 + 305));
        QCOMPARE(stage.whatIsNotShown(0), QString());
        stage.tap(input, QPoint(50 + 230, 80 + 225));
        QCOMPARE(stage.whatIsNotShown(0), QString());
    }

    void pressOnATab_data() { addInputs(); }

    void pressOnATab()
    {
        QFETCH(Input, input);
        Stage stage(3);
        QVERIFY(stage.show());
        for (const int index : {2, 1, 0}) {
            stage.settle();
            stage.press(input, stage.tab(index));
            QCOMPARE(stage.whatIsNotShown(index), QString());
            QCoreApplication::processEvents();
            QVERIFY(stage.table->paints > 0);
            stage.release(input, stage.tab(index));
            QCOMPARE(stage.whatIsNotShown(index), QString());
        }
    }

    void pressIsNotReported_data() { addInputs(); }

    void pressIsNotReported()
    {
        QFETCH(Input, input);
        Stage stage(2);
        QVERIFY(stage.show());
        const SignalCount reported(stage.table);
        stage.press(input, stage.tab(1));
        QVERIFY(!stage.table->isMouseDown());
        QVERIFY(QAbstractEventDispatcher::instance()->registeredTimers(stage.table).isEmpty());
        QCoreApplication::processEvents();
        stage.release(input, stage.tab(1));
        QString names = reported.all();
        names.remove(u"enter "_s);
        QCOMPARE(names, u"release"_s);
    }

    void pressOnTheSelectedTab_data() { addInputs(); }

    void pressOnTheSelectedTab()
    {
        QFETCH(Input, input);
        Stage stage(3);
        stage.table->setSelectIndex(1);
        QVERIFY(stage.show());
        const QSignalSpy visibility(stage.pages.at(1), &QGraphicsObject::visibleChanged);
        stage.table->pressAt(QPointF(220, 270));
        QCoreApplication::processEvents();
        QCOMPARE(stage.table->paints, 0);
        stage.tap(input, stage.tab(1));
        QCOMPARE(stage.whatIsNotShown(1), QString());
        QCOMPARE(visibility.count(), 0);
    }

    void pressElsewhere_data()
    {
        QTest::addColumn<Input>("input");
        QTest::addColumn<QPoint>("pos");

        const QPair<Input, const char *> inputs[] = {{Input::Mouse, "mouse"},
                                                     {Input::Touch, "touch"}};
        for (const auto &input : inputs) {
            QTest::addRow("content, %s", input.second) << input.first << QPoint(300, 150);
            QTest::addRow("last line of the content, %s", input.second)
                << input.first << QPoint(300, 229);
            QTest::addRow("title, %s", input.second) << input.first << QPoint(300, 15);
            QTest::addRow("left of the table, %s", input.second) << input.first << QPoint(-5, 270);
            QTest::addRow("right of the table, %s", input.second)
                << input.first << QPoint(445, 270);
            QTest::addRow("below the table, %s", input.second) << input.first << QPoint(300, 315);
        }
    }

    void pressElsewhere()
    {
        QFETCH(Input, input);
        QFETCH(QPoint, pos);
        Stage stage(0);
        styleOf(stage.table)->showTitle = true;
        stage.pages = addPages(stage.table, 2);
        QVERIFY(stage.show());
        const QSignalSpy visibility(stage.pages.at(0), &QGraphicsObject::visibleChanged);
        stage.tap(input, QPoint(20, 30) + pos);
        QCOMPARE(stage.whatIsNotShown(0), QString());
        QCOMPARE(visibility.count(), 0);
        stage.table->pressAt(pos);
        QCOMPARE(stage.whatIsNotShown(0), QString());
    }

    void pressOnTheOnlyPage_data() { addInputs(); }

    void pressOnTheOnlyPage()
    {
        QFETCH(Input, input);
        Stage stage(1);
        QVERIFY(stage.show());
        const QSignalSpy visibility(stage.pages.at(0), &QGraphicsObject::visibleChanged);
        stage.tap(input, stage.tab(0));
        stage.tap(input, stage.view.at(stage.table, QPointF(220, 100)));
        QCOMPARE(stage.whatIsNotShown(0), QString());
        QCOMPARE(visibility.count(), 0);
    }

    void pressBetweenTwoTabs()
    {
        Stage stage(2);
        QVERIFY(stage.show());
        stage.table->setSelectIndex(1);
        stage.view.click(QPoint(20 + 220, 30 + 270));
        QCOMPARE(stage.whatIsNotShown(0), QString());
        stage.view.click(QPoint(20 + 221, 30 + 270));
        QCOMPARE(stage.whatIsNotShown(1), QString());
    }

    void otherMouseButtons_data()
    {
        QTest::addColumn<int>("button");

        QTest::newRow("right") << int(Qt::RightButton);
        QTest::newRow("middle") << int(Qt::MiddleButton);
        QTest::newRow("back") << int(Qt::BackButton);
    }

    void otherMouseButtons()
    {
        QFETCH(int, button);
        Stage stage(2);
        QVERIFY(stage.show());
        const SignalCount reported(stage.table);
        stage.view.press(stage.tab(1), Qt::MouseButton(button));
        stage.view.release(stage.tab(1), Qt::MouseButton(button));
        QTest::mouseDClick(stage.view.viewport(), Qt::MouseButton(button), Qt::NoModifier,
                           stage.tab(1));
        QCOMPARE(stage.whatIsNotShown(0), QString());
        QVERIFY(!reported.all().contains(QLatin1String("release")));
        // An application that lets another button through gets it.
        stage.table->pressAt(QPointF(300, 270), Qt::MouseButton(button));
        QCOMPARE(stage.whatIsNotShown(1), QString());
    }

    void doubleClickSwitches_data() { addInputs(); }

    void doubleClickSwitches()
    {
        QFETCH(Input, input);
        Stage stage(3);
        QVERIFY(stage.show());
        SignalCount reported(stage.table);
        stage.tap(input, stage.tab(1));
        QCOMPARE(stage.whatIsNotShown(1), QString());
        // The window system makes a second fast press of a mouse a double click.
        if (input == Input::Mouse)
            stage.view.doubleClickPress(stage.tab(2));
        else
            stage.press(input, stage.tab(2));
        QCOMPARE(stage.whatIsNotShown(2), QString());
        stage.release(input, stage.tab(2));
        QString names = reported.all();
        names.remove(u"enter "_s);
        // Two fingers' taps that far apart are no double tap.
        QCOMPARE(names, input == Input::Mouse ? u"release double release"_s : u"release release"_s);
    }

    void disabledTable_data() { addInputs(); }

    void disabledTable()
    {
        QFETCH(Input, input);
        Stage stage(2);
        stage.table->setEnabled(false);
        QVERIFY(stage.show());
        stage.tap(input, stage.tab(1));
        QCOMPARE(stage.whatIsNotShown(0), QString());
        stage.table->setSelectIndex(1);
        QCOMPARE(stage.whatIsNotShown(1), QString());
    }

    void scaledView_data() { addInputs(); }

    void scaledView()
    {
        QFETCH(Input, input);
        Stage stage(3);
        QVERIFY(stage.show());
        stage.view.scale(0.5, 0.5);
        for (const int index : {1, 2, 0}) {
            stage.tap(input, stage.tab(index));
            QCOMPARE(stage.whatIsNotShown(index), QString());
        }
    }

    void onlyTheShownPageHasControls_data() { addInputs(); }

    void onlyTheShownPageHasControls()
    {
        QFETCH(Input, input);
        Stage stage(3);
        QList<KELPushButton *> buttons;
        QList<QSignalSpy *> clicks;
        for (KELNavigationTableItem *page : qAsConst(stage.pages)) {
            buttons.append(new KELPushButton(page));
            buttons.last()->setboundRect(100, 60, 120, 50);
            clicks.append(new QSignalSpy(buttons.last(), &KELPushButton::mouseClicked));
        }
        QVERIFY(stage.show());
        const QPoint onTheButton = QPoint(20, 30) + QPoint(150, 80);
        QList<int> expected = {0, 0, 0};
        for (const int index : {0, 2, 1, 0}) {
            stage.tap(input, stage.tab(index));
            for (int i = 0; i < 3; ++i)
                QCOMPARE(buttons.at(i)->isVisible(), i == index);
            stage.tap(input, onTheButton);
            ++expected[index];
            for (int i = 0; i < 3; ++i)
                QCOMPARE(clicks.at(i)->count(), expected.at(i));
        }
        qDeleteAll(clicks);
    }

    void pageAddedWhileShown_data()
    {
        QTest::addColumn<int>("index");
        QTest::addColumn<bool>("isFirst");
        QTest::addColumn<bool>("childFirst");

        for (const bool isFirst : {true, false}) {
            for (const bool childFirst : {true, false}) {
                QTest::addRow("no index, %s page, control added %s", isFirst ? "first" : "second",
                              childFirst ? "before" : "after")
                    << int(QGraphicsScene::NoIndex) << isFirst << childFirst;
                QTest::addRow("tree, %s page, control added %s", isFirst ? "first" : "second",
                              childFirst ? "before" : "after")
                    << int(QGraphicsScene::BspTreeIndex) << isFirst << childFirst;
            }
        }
    }

    void pageAddedWhileShown()
    {
        QFETCH(int, index);
        QFETCH(bool, isFirst);
        QFETCH(bool, childFirst);
        Stage stage(isFirst ? 0 : 1);
        stage.view.ownScene.setItemIndexMethod(QGraphicsScene::ItemIndexMethod(index));
        // With so few items the tree would be one leaf.
        if (index == QGraphicsScene::BspTreeIndex)
            stage.view.ownScene.setBspTreeDepth(8);
        styleOf(stage.table)->showTitle = true;
        QVERIFY(stage.show());
        auto *page = new KELNavigationTableItem(nullptr);
        // Was somewhere else in the scene, where the index has it.
        page->setboundRect(300, 300, 10, 10);
        std::unique_ptr<KELPushButton> button(new KELPushButton(nullptr));
        button->setboundRect(10, 20, 100, 40);
        if (childFirst)
            button->setParentItem(page);
        stage.view.ownScene.addItem(page);
        // A search brings the index up to date, also halfway through.
        const auto search = [&stage] { stage.view.ownScene.items(QPointF(1, 1)); };
        connect(page, &QGraphicsObject::visibleChanged, &stage.view, search);
        search();
        stage.table->addItem(page);
        stage.pages.append(page);
        if (!childFirst)
            button->setParentItem(page);
        KELPushButton *const child = button.release();
        stage.table->setSelectIndex(stage.pages.size() - 1);
        stage.settle();

        const QSignalSpy clicked(child, &KELPushButton::mouseClicked);
        stage.view.click(QPoint(20 + 60, 30 + 35 + 40));
        QCOMPARE(clicked.count(), 1);
        const QSignalSpy pressed(page, &KELNavigationTableItem::mousePress);
        stage.view.click(QPoint(20 + 430, 30 + 200));
        QCOMPARE(pressed.count(), 1);
        QVERIFY(!stage.view.ownScene.items(QPointF(20 + 305, 30 + 305)).contains(page));
    }

    void controlBesideTheTableIsFound_data()
    {
        QTest::addColumn<int>("index");
        QTest::addColumn<bool>("isFirst");
        for (const bool isFirst : {true, false}) {
            const char *page = isFirst ? "first" : "second";
            QTest::addRow("no index, %s page", page) << int(QGraphicsScene::NoIndex) << isFirst;
            QTest::addRow("tree, %s page", page) << int(QGraphicsScene::BspTreeIndex) << isFirst;
        }
    }

    // A control that sticks out of the table moves when its page is placed. Where the table is, a
    // tree always looks.
    void controlBesideTheTableIsFound()
    {
        QFETCH(int, index);
        QFETCH(bool, isFirst);
        KelTestView view(QSize(800, 500));
        view.ownScene.setItemIndexMethod(QGraphicsScene::ItemIndexMethod(index));
        if (index == QGraphicsScene::BspTreeIndex)
            view.ownScene.setBspTreeDepth(8);
        auto *table = new KELNavigationTable;
        addPages(table, isFirst ? 0 : 1);
        view.ownScene.addItem(table);
        auto *page = new KELNavigationTableItem;
        page->setboundRect(0, 350, 10, 10);
        auto *button = new KELPushButton(page);
        button->setboundRect(600, 100, 60, 40);
        view.ownScene.addItem(page);
        QVERIFY(view.showAndWait());
        const QPoint before(630, 470);
        const QPoint after(630, 120);
        QVERIFY(view.items(before).contains(button));
        // A search brings the tree up to date, also halfway through.
        connect(page, &QGraphicsObject::visibleChanged, &view,
                [&view] { view.ownScene.items(QPointF(1, 1)); });
        table->addItem(page);
        table->setSelectIndex(isFirst ? 0 : 1);
        QVERIFY(view.items(before).isEmpty());
        QVERIFY(view.items(after).contains(button));
        const QSignalSpy clicked(button, &KELPushButton::mouseClicked);
        view.click(after);
        QCOMPARE(clicked.count(), 1);
    }

    void filterOnAChild()
    {
        Stage stage(2);
        auto *child = new KELRoundRectControl(stage.pages.first());
        child->setboundRect(100, 60, 120, 50);
        child->setFlag(QGraphicsItem::ItemIsSelectable);
        QVERIFY(stage.show());
        const SignalCount reported(child);
        const QPoint pos = stage.view.centreOf(child);
        // The table filters for none that did not ask for it.
        stage.view.press(pos, Qt::RightButton);
        stage.view.release(pos, Qt::RightButton);
        QCOMPARE(reported.all(), u"press"_s);
        child->installSceneEventFilter(stage.table);
        stage.view.press(pos, Qt::RightButton);
        stage.view.release(pos, Qt::RightButton);
        QCOMPARE(reported.all(), u"press"_s);
        stage.view.click(pos);
        QCOMPARE(reported.all(), u"press press release click"_s);
    }

    void tapAfterADialogThatATabOpened_data()
    {
        QTest::addColumn<Input>("input");
        QTest::addColumn<bool>("isOnTheTable");
        QTest::newRow("mouse, on a button") << Input::Mouse << false;
        QTest::newRow("touch, on a button") << Input::Touch << false;
        QTest::newRow("mouse, on another tab") << Input::Mouse << true;
        QTest::newRow("touch, on another tab") << Input::Touch << true;
    }

    // The dialog takes the release of the press on the tab.
    void tapAfterADialogThatATabOpened()
    {
        QFETCH(Input, input);
        QFETCH(bool, isOnTheTable);
        Stage stage(3);
        auto *const button = new KELPushButton;
        button->setboundRect(0, 0, 80, 40);
        button->setZValue(1);
        stage.view.ownScene.addItem(button);
        QVERIFY(stage.show());
        QSignalSpy clicked(button, &KELPushButton::mouseClicked);
        int dialogs = 0;
        connect(stage.pages.at(1), &QGraphicsObject::visibleChanged, &stage.view, [&] {
            if (!stage.pages.at(1)->isVisible() || dialogs++ > 0)
                return;
            QDialog dialog;
            QTimer::singleShot(50, &dialog, &QDialog::accept);
            dialog.exec();
        });
        stage.press(input, stage.tab(1));
        QCOMPARE(dialogs, 1);
        QCOMPARE(stage.table->selectIndex(), 1);
        if (input == Input::Touch)
            stage.release(input, stage.tab(1)); // the panel tells it, and nobody gets it
        if (isOnTheTable) {
            stage.tap(input, stage.tab(2));
            QCOMPARE(stage.table->selectIndex(), 2);
            return;
        }
        stage.tap(input, QPoint(20, 20));
        QCOMPARE(clicked.count(), 1);
        stage.tap(input, QPoint(20, 20));
        QCOMPARE(clicked.count(), 2);
    }
};

KEL_TEST_MAIN(tst_KELNavigationTablePointer)
#include "tst_kelnavigationtablepointer.moc"
