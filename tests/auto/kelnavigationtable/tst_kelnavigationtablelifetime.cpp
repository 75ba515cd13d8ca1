// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "tablestage.h"

class tst_KELNavigationTableLifetime : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void pageDeleted_data()
    {
        QTest::addColumn<int>("selected");
        QTest::addColumn<int>("deleted");
        QTest::addColumn<int>("selectedThen");

        QTest::newRow("the current one, first") << 0 << 0 << -1;
        QTest::newRow("the current one, in the middle") << 1 << 1 << -1;
        QTest::newRow("the current one, last") << 3 << 3 << -1;
        QTest::newRow("one before the current one") << 2 << 0 << 1;
        QTest::newRow("the one right before") << 2 << 1 << 1;
        QTest::newRow("one behind the current one") << 1 << 3 << 1;
        QTest::newRow("the first, with the last selected") << 3 << 0 << 2;
    }

    void pageDeleted()
    {
        QFETCH(int, selected);
        QFETCH(int, deleted);
        for (const bool later : {false, true}) {
            TableStage stage(4);
            stage->setSelectIndex(selected);
            stage.settle();
            if (later) {
                stage.pages.at(deleted)->deleteLater();
                QCOMPARE(stage->selectIndex(), selected);
                QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            } else {
                delete stage.pages.at(deleted);
            }
            QCOMPARE(stage.whatIsWrong(fetch<int>("selectedThen")), QString());
        }
    }

    void allPagesDeleted_data()
    {
        addRows({{"fromTheEnd", {{"from the first on", false}, {"from the last on", true}}}});
    }

    void allPagesDeleted()
    {
        TableStage stage(3);
        stage->setSelectIndex(1);
        for (int i = 0; i < 3; ++i) {
            stage.settle();
            delete stage.pages.at(fetch<bool>("fromTheEnd") ? 2 - i : i);
            QVERIFY(stage.wasPainted());
        }
        QVERIFY(!stage->selectItem());
        QCOMPARE(stage->selectIndex(), -1);
        stage.hand.tap(stage.at(220, 270));
        stage->setSelectIndex(0);
        stage->setSelectIndex(-1);
        QCOMPARE(stage->selectIndex(), -1);
        stage.addPages(1);
        QCOMPARE(stage.whatIsWrong(0), QString());
    }

    void selectAfterTheCurrentPageWasDeleted_data()
    {
        addRows({{"index", {{"the first", 0}, {"the last", 1}}}});
    }

    void selectAfterTheCurrentPageWasDeleted()
    {
        TableStage stage(3);
        delete stage.pages.first();
        stage->setSelectIndex(-1);
        QCOMPARE(stage->selectIndex(), -1);
        stage->setSelectIndex(fetch<int>("index"));
        QCOMPARE(stage.whatIsWrong(fetch<int>("index")), QString());
    }

    void addAfterTheCurrentPageWasDeleted()
    {
        TableStage stage(3);
        delete stage.pages.first();
        stage.addPages(1);
        QCOMPARE(stage.whatIsWrong(2), QString());
    }

    void pressOnTheOnlyPageLeft_data()
    {
        addRows({{"x", {{"at the left", 5}, {"at the right", 435}}}});
    }

    void pressOnTheOnlyPageLeft()
    {
        TableStage stage(2);
        stage.settle();
        delete stage.pages.first();
        // One page has no tab to be seen, but there is room for it.
        stage.hand.tap(stage.at(fetch<int>("x"), 270));
        QCOMPARE(stage.whatIsWrong(0), QString());
    }

    void unrelatedChildDeleted()
    {
        TableStage stage(2);
        auto *other = new KELNavigationTableItem(stage.get());
        delete new KELNavigationTableItem;
        stage.settle();
        delete other;
        QCOMPARE(stage.whatIsWrong(0), QString());
    }

    void pageGivenAwayLeavesTheTable_data() { addRows({{"exit", exits}}); }

    void pageGivenAwayLeavesTheTable()
    {
        const auto exit = fetch<Exit>("exit");
        TableStage stage(3);
        stage->setSelectIndex(1);
        stage.settle();
        KELNavigationTableItem *const given = stage.pages.at(1);
        auto *const other = new KELNavigationTable;
        stage.view.ownScene.addItem(other);
        if (exit == Exit::ToAnotherParent)
            other->addItem(given);
        else
            takeAway(given, exit);
        QCOMPARE(stage->selectIndex(), -1);
        QVERIFY(!stage->selectItem());
        stage->setSelectIndex(1);
        QCOMPARE(stage->selectItem(), stage.pages.at(2).data());
        delete stage.control;
        QVERIFY(stage.pages.at(1));
        QCOMPARE(other->selectItem(), exit == Exit::ToAnotherParent ? given : nullptr);
        if (exit == Exit::OutOfTheScene)
            delete given;
        stage.view.grab();
    }

    void pageGivenAwayComesBack()
    {
        TableStage stage(2);
        stage.pages.at(0)->setParentItem(nullptr);
        stage->addItem(stage.pages.at(0));
        QCOMPARE(stage.pages.at(0)->parentItem(), stage.get());
        QCOMPARE(stage->selectItem(), stage.pages.at(0).data());
        stage->setSelectIndex(0);
        QCOMPARE(stage->selectItem(), stage.pages.at(1).data());
    }

    void dyingPageStillSeesTheTable()
    {
        TableStage stage(2);
        KELNavigationTable *const table = stage.get();
        QList<int> indexes;
        for (KELNavigationTableItem *page : qAsConst(stage.pages)) {
            connect(page, &QObject::destroyed, table, [table, &indexes] {
                indexes.append(table->selectIndex());
                table->setSelectIndex(0);
            });
        }
        delete table;
        QCOMPARE(indexes.size(), 2);
        QCOMPARE(indexes.first(), -1);
    }

    void pageOfAnotherTable_data()
    {
        addRows({{"moved", {{"its current page", 1}, {"a page before", 0}, {"a page behind", 2}}},
                 {"pages", {{"to an empty table", 0}, {"to one with a page", 1}}}});
    }

    void pageOfAnotherTable()
    {
        const int moved = fetch<int>("moved");
        TableStage stage(3);
        stage->setSelectIndex(1);
        auto *other = new KELNavigationTable;
        other->setPos(0, 320);
        Pages otherPages = addPages(other, fetch<int>("pages"));
        stage.view.ownScene.addItem(other);
        stage.settle();
        KELNavigationTableItem *const page = stage.pages.takeAt(moved);
        other->addItem(page);
        otherPages.append(page);
        QCOMPARE(page->parentItem(), other);
        QCOMPARE(whatIsNotShown(other, otherPages, 0), QString());
        QCOMPARE(stage.whatIsWrong(moved == 1 ? -1 : moved / 2), QString());
        // It is a page of the other table alone.
        delete page;
        QCOMPARE(other->selectIndex(), fetch<int>("pages") - 1);
        QCOMPARE(stage.whatIsWrong(1), QString());
    }

    void pageOfAnotherScene()
    {
        KelTestView elsewhere;
        Hand hand(&elsewhere);
        auto *const page = new KELNavigationTableItem;
        auto *const button = new KELPushButton(page);
        button->setboundRect(50, 50, 100, 40);
        elsewhere.ownScene.addItem(page);
        hand.press(elsewhere.centreOf(button));
        TableStage stage(1);
        stage->addItem(page);
        stage.pages.append(page);
        QCOMPARE(page->scene(), &stage.view.ownScene);
        QVERIFY(elsewhere.ownScene.items().isEmpty());
        hand.release();
        elsewhere.grab();
        stage->setSelectIndex(1);
        stage.settle();
        const QSignalSpy clicked(button, &KELPushButton::mouseClicked);
        stage.hand.tap(stage.view.centreOf(button));
        QCOMPARE(clicked.count(), 1);
        QCOMPARE(stage.whatIsWrong(1), QString());
    }

    void pageBetweenScenesAndTables()
    {
        TableStage first(2);
        TableStage second(1);
        first.settle();
        second.settle();
        second.pages.append(first.pages.takeFirst());
        second->addItem(second.pages.last());
        QCOMPARE(second.pages.last()->scene(), &second.view.ownScene);
        QCOMPARE(first.whatIsWrong(-1), QString());
        QCOMPARE(second.whatIsWrong(0), QString());
        // To a table that is in no scene.
        KELNavigationTable homeless;
        homeless.addItem(second.pages.takeFirst());
        QVERIFY(!homeless.selectItem()->scene());
        QCOMPARE(second.whatIsWrong(0), QString());
    }

    void tableInAPage()
    {
        TableStage outer(2);
        auto *inner = new KELNavigationTable(outer.pages.at(0));
        const Pages innerPages = addPages(inner, 2);
        outer.settle();
        inner->addItem(outer.pages.at(0));
        QCOMPARE(outer.pages.at(0)->parentItem(), outer.get());
        QCOMPARE(whatIsNotShown(inner, innerPages, 0), QString());
        inner->addItem(outer.pages.at(1));
        QCOMPARE(outer.pages.at(1)->parentItem(), inner);
        outer.pages.removeAt(1);
        QCOMPARE(whatIsNotShown(inner, innerPages, 0), QString());
        QCOMPARE(outer.whatIsWrong(0), QString());
    }

    void tableDestroyedWithPages_data()
    {
        addRows({{"way", deletionWays}, {"selected", {{"the first", 0}, {"the last", 2}}}});
    }

    void tableDestroyedWithPages()
    {
        TableStage stage(3);
        stage->setSelectIndex(fetch<int>("selected"));
        stage.settle();
        const QSignalSpy destroyed(stage.pages.at(0), &QObject::destroyed);
        stage.destroy(fetch<Way>("way"));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(destroyed.count(), 1);
        QVERIFY(!stage.control);
        QVERIFY(stage.alivePages().isEmpty());
        QVERIFY(stage.nextControlIsClicked());
    }

    void pageOutlivesItsTable_data()
    {
        addRows({{"place", {{"in the scene", 0}, {"with another parent", 1}, {"nowhere", 2}}}});
    }

    void pageOutlivesItsTable()
    {
        KELRoundRectControl parent;
        TableStage stage(3);
        stage.settle();
        KELNavigationTableItem *const page = stage.pages.at(0);
        page->setParentItem(fetch<int>("place") == 1 ? &parent : nullptr);
        if (fetch<int>("place") == 2)
            stage.view.ownScene.removeItem(page);
        delete stage.control;
        QVERIFY(stage.pages.at(0));
        QVERIFY(!stage.pages.at(1));
        stage.view.grab();
        // It can be a page again.
        KELNavigationTable next;
        next.addItem(page);
        QCOMPARE(next.selectItem(), page);
        delete page;
        QCOMPARE(next.selectIndex(), -1);
    }

    // A page that left the table for the scene is cleared for itself, before the table or after.
    void sceneClearedWithAFreePage()
    {
        TableStage stage(3);
        auto *other = new KELNavigationTable;
        addPages(other, 2);
        stage.view.ownScene.addItem(other);
        stage.pages.at(0)->setParentItem(nullptr);
        stage.settle();
        stage.view.ownScene.clear();
        QVERIFY(!stage.control);
        QVERIFY(stage.alivePages().isEmpty());
        stage.view.grab();
    }

    // The leak check of the sanitizers watches this one.
    void recordsAreFreed()
    {
        KELNavigationTable table;
        const QBrush picture(QPixmap(20, 20));
        styleOf(&table)->title = QString(300, QLatin1Char('t'));
        styleOf(&table)->titleBackgroundBrush = styleOf(&table)->titleForegroundBrush = picture;
        auto *page = new KELNavigationTableItem;
        for (int round = 0; round < 2; ++round) {
            page->initStyle();
            page->setButtonBackground(picture);
            page->setButtonForeground(picture);
        }
        table.addItem(page);
        table.initStyle();
        styleOf(&table)->title = QString(300, QLatin1Char('u'));
        QCOMPARE(table.selectItem(), page);
    }
};

KEL_TEST_MAIN(tst_KELNavigationTableLifetime)
#include "tst_kelnavigationtablelifetime.moc"
