// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "combostage.h"

#include <memory>

namespace {

void moveTo(KELRoundRectControl *control, const QRectF &rect, bool byRectangle)
{
    if (byRectangle)
        control->setboundRect(rect);
    else
        control->setboundRect(rect.x(), rect.y(), rect.width(), rect.height());
}

// So deep a tree that few items share a leaf.
void makeTreeDeep(QGraphicsScene *scene)
{
    scene->setItemIndexMethod(QGraphicsScene::BspTreeIndex);
    scene->setBspTreeDepth(8);
}

} // namespace

class tst_KELComboBoxPointer : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void opensPicksAndCloses_data() { addInputsAndIndexMethods(); }

    void opensPicksAndCloses()
    {
        QFETCH(int, input);
        QFETCH(int, indexMethod);
        ComboStage stage(indexMethod);
        QVERIFY(stage.show());
        const QSignalSpy changed(stage.box, &KELComboBox::selectItemChanged);
        for (const int place : {2, 0, 1}) {
            stage.open(Input(input));
            QCOMPARE(listState(*stage.box), u"open"_s);
            stage.tap(Input(input), stage.entryCentre(place));
            QCOMPARE(listState(*stage.box), u"closed"_s);
            QCOMPARE(stage.box->selectIndex(), place);
            QCOMPARE(ComboParts(*stage.box).text->text(), threeTexts.at(place));
        }
        QCOMPARE(changed.count(), 3);
    }

    void pickingTheSelectedEntryLeavesItOpen_data() { addInputs(); }

    void pickingTheSelectedEntryLeavesItOpen()
    {
        QFETCH(int, input);
        ComboStage stage;
        stage.box->setSelectIndex(1);
        QVERIFY(stage.show());
        const QSignalSpy changed(stage.box, &KELComboBox::selectItemChanged);
        stage.open(Input(input));
        stage.tap(Input(input), stage.entryCentre(1));
        QCOMPARE(listState(*stage.box), u"open"_s);
        QCOMPARE(changed.count(), 0);
    }

    void secondTapOnTheButtonCloses_data() { addInputs(); }

    void secondTapOnTheButtonCloses()
    {
        QFETCH(int, input);
        ComboStage stage;
        QVERIFY(stage.show());
        stage.open(Input(input));
        stage.press(Input(input), stage.buttonCentre());
        QCOMPARE(listState(*stage.box), u"open"_s);
        stage.release(Input(input), stage.buttonCentre());
        QCOMPARE(listState(*stage.box), u"closed"_s);
        QCOMPARE(stage.box->selectIndex(), -1);
    }

    void doubleClickOpensAndCloses()
    {
        ComboStage stage;
        QVERIFY(stage.show());
        stage.open();
        stage.view.doubleClickPress(stage.buttonCentre());
        QCOMPARE(listState(*stage.box), u"open"_s);
        stage.view.release(stage.buttonCentre());
        QCOMPARE(listState(*stage.box), u"closed"_s);
    }

    void wholeButtonOpens_data() { addInputs(); }

    void wholeButtonOpens()
    {
        QFETCH(int, input);
        ComboStage stage;
        stage.box->setSelectIndex(0);
        QVERIFY(stage.show());
        // on the text, between the labels, on the arrow, in the corners
        for (const QPoint &pos :
             {QPoint(85, 40), QPoint(152, 40), QPoint(167, 40), QPoint(21, 21), QPoint(178, 57)}) {
            stage.tap(Input(input), pos);
            QCOMPARE(listState(*stage.box), u"open"_s);
            stage.tap(Input(input), pos);
            QCOMPARE(listState(*stage.box), u"closed"_s);
        }
    }

    void disabledBoxDoesNotOpen_data() { addInputs(); }

    void disabledBoxDoesNotOpen()
    {
        QFETCH(int, input);
        ComboStage stage;
        stage.box->setEnabled(false);
        QVERIFY(stage.show());
        stage.open(Input(input));
        QCOMPARE(listState(*stage.box), u"closed"_s);
        stage.box->setEnabled(true);
        stage.open(Input(input));
        QCOMPARE(listState(*stage.box), u"open"_s);
        stage.box->setEnabled(false);
        stage.tap(Input(input), stage.entryCentre(1));
        QCOMPARE(stage.box->selectIndex(), -1);
    }

    void closedListTakesNoPress_data() { addInputs(); }

    void closedListTakesNoPress()
    {
        QFETCH(int, input);
        ComboStage stage;
        stage.box->setZValue(1);
        KELPushButton *const neighbour = addNeighbour(&stage, QRectF(20, 65, 160, 80));
        QVERIFY(stage.show());
        const QSignalSpy clicked(neighbour, &KELPushButton::mouseClicked);
        stage.tap(Input(input), stage.rowCentre(1));
        QCOMPARE(clicked.count(), 1);
        QCOMPARE(stage.box->selectIndex(), -1);
    }

    void entryAddedWhileShown_data() { addInputsAndIndexMethods(); }

    void entryAddedWhileShown()
    {
        QFETCH(int, input);
        QFETCH(int, indexMethod);
        ComboStage stage(indexMethod);
        QVERIFY(stage.show());
        stage.open();
        const QImage before = shownPicture(stage.view);
        addEntries(stage.box, {u"four"_s});
        QVERIFY(shownPicture(stage.view) != before);
        QCOMPARE(staleParts(stage.view), QString());
        stage.tap(Input(input), QPoint(100, 164));
        QCOMPARE(stage.box->selectIndex(), 3);
        QCOMPARE(listState(*stage.box), u"closed"_s);
        QCOMPARE(staleParts(stage.view), QString());
    }

    void entryRemovedWhileShown_data() { addInputsAndIndexMethods(); }

    void entryRemovedWhileShown()
    {
        QFETCH(int, input);
        QFETCH(int, indexMethod);
        ComboStage stage(indexMethod);
        QVERIFY(stage.show());
        stage.open();
        const QImage before = shownPicture(stage.view);
        stage.box->removeItem(stage.box->items().at(0));
        QVERIFY(shownPicture(stage.view) != before);
        QCOMPARE(staleParts(stage.view), QString());
        // the removed one is still there, and selects nothing
        stage.tap(Input(input), stage.rowCentre(0));
        QCOMPARE(listState(*stage.box), u"open"_s);
        QCOMPARE(stage.box->selectIndex(), -1);
        stage.tap(Input(input), stage.rowCentre(1));
        QCOMPARE(stage.box->selectIndex(), 0);
        QCOMPARE(ComboParts(*stage.box).text->text(), u"two"_s);
    }

    void entryDeletedWhileShown_data() { addInputsAndIndexMethods(); }

    void entryDeletedWhileShown()
    {
        QFETCH(int, input);
        QFETCH(int, indexMethod);
        ComboStage stage(indexMethod);
        stage.box->setSelectIndex(2);
        QVERIFY(stage.show());
        stage.open();
        const QImage before = shownPicture(stage.view);
        delete stage.box->items().at(2);
        QVERIFY(shownPicture(stage.view) != before);
        QCOMPARE(staleParts(stage.view), QString());
        stage.tap(Input(input), stage.entryCentre(1));
        QCOMPARE(stage.box->selectIndex(), 1);
    }

    void clearedAndFilledWhileShown_data() { addInputsAndIndexMethods(); }

    void clearedAndFilledWhileShown()
    {
        QFETCH(int, input);
        QFETCH(int, indexMethod);
        ComboStage stage(indexMethod);
        QVERIFY(stage.show());
        stage.open();
        const QImage full = shownPicture(stage.view);
        stage.box->clearItem();
        QVERIFY(shownPicture(stage.view) != full);
        QCOMPARE(staleParts(stage.view), QString());
        QCOMPARE(listState(*stage.box), u"open"_s);
        addEntries(stage.box, {u"new"_s, u"newer"_s});
        QCOMPARE(staleParts(stage.view), QString());
        stage.tap(Input(input), QPoint(100, 104));
        QCOMPARE(stage.box->selectIndex(), 1);
        stage.open(Input(input));
        stage.box->clearItem();
        stage.press(Input(input), QPoint(100, 70));
        QCOMPARE(listState(*stage.box), u"closed"_s);
        stage.release(Input(input), QPoint(100, 70));
    }

    void boxMovedWhileShown_data()
    {
        QTest::addColumn<int>("input");
        QTest::addColumn<int>("indexMethod");
        QTest::addColumn<bool>("byRectangle");
        for (const Named &input : inputs) {
            for (const Named &method : indexMethods) {
                QTest::addRow("%s, %s, rectangle", input.name, method.name)
                    << input.value << method.value << true;
                QTest::addRow("%s, %s, numbers", input.name, method.name)
                    << input.value << method.value << false;
            }
        }
    }

    void boxMovedWhileShown()
    {
        QFETCH(int, input);
        QFETCH(int, indexMethod);
        QFETCH(bool, byRectangle);
        ComboStage stage(indexMethod);
        QVERIFY(stage.show());
        stage.open();
        QCOMPARE(staleParts(stage.view), QString());
        const QImage before = shownPicture(stage.view);
        moveTo(stage.box, QRectF(200, 120, 170, 50), byRectangle);
        const QImage after = shownPicture(stage.view);
        QVERIFY(after != before);
        QCOMPARE(after.pixelColor(30, 100), after.pixelColor(5, 5));
        QCOMPARE(staleParts(stage.view), QString());
        QCOMPARE(stage.entryCentre(1), QPoint(280, 214));
        stage.tap(Input(input), QPoint(280, 214));
        QCOMPARE(stage.box->selectIndex(), 1);
        stage.tap(Input(input), QPoint(285, 145));
        QCOMPARE(listState(*stage.box), u"open"_s);
        stage.press(Input(input), QPoint(100, 100));
        QCOMPARE(listState(*stage.box), u"closed"_s);
        stage.release(Input(input), QPoint(100, 100));
    }

    void boxMovedByAFractionIsPaintedAnew_data()
    {
        QTest::addColumn<qreal>("shift");
        QTest::addColumn<bool>("isOpen");
        for (const qreal shift : {0.25, 0.4, 0.5, 1.0}) {
            QTest::addRow("closed, %g px", shift) << shift << false;
            QTest::addRow("open, %g px", shift) << shift << true;
        }
    }

    void boxMovedByAFractionIsPaintedAnew()
    {
        QFETCH(qreal, shift);
        QFETCH(bool, isOpen);
        ComboStage stage;
        stage.view.setBackgroundBrush(Qt::darkCyan);
        stage.box->setSelectIndex(1);
        QVERIFY(stage.show());
        if (isOpen)
            stage.open();
        QCOMPARE(staleParts(stage.view), QString());
        const QImage before = shownPicture(stage.view);
        stage.box->setboundRect(20 + shift, 20 + shift, 160, 40);
        QVERIFY(shownPicture(stage.view) != before);
        QCOMPARE(staleParts(stage.view), QString());
    }

    void entryMovedByAFractionIsPaintedAnew_data()
    {
        QTest::addColumn<int>("indexMethod");
        QTest::addColumn<bool>("byRectangle");
        for (const Named &method : indexMethods) {
            QTest::addRow("%s, rectangle", method.name) << method.value << true;
            QTest::addRow("%s, numbers", method.name) << method.value << false;
        }
    }

    // As many pixels as before, so that only what was reported as changed is repainted.
    void entryMovedByAFractionIsPaintedAnew()
    {
        QFETCH(int, indexMethod);
        QFETCH(bool, byRectangle);
        ComboStage stage(indexMethod);
        KELComboBoxItem *const entry = stage.box->items().at(1);
        entry->style()->borderBrush = QColor(Qt::red);
        entry->style()->borderWidth = 2;
        QVERIFY(stage.show());
        stage.open();
        QCOMPARE(staleParts(stage.view), QString());
        const QImage before = shownPicture(stage.view);
        moveTo(entry, QRectF(0.75, 30, 159, 30), byRectangle);
        QVERIFY(shownPicture(stage.view) != before);
        QCOMPARE(staleParts(stage.view), QString());
    }

    void loneEntryMovedWhileShown_data() { boxMovedWhileShown_data(); }

    // Without its label, which would tell the scene where to look.
    void loneEntryMovedWhileShown()
    {
        QFETCH(int, input);
        QFETCH(int, indexMethod);
        QFETCH(bool, byRectangle);
        KelTestView view;
        if (indexMethod == QGraphicsScene::BspTreeIndex)
            makeTreeDeep(&view.ownScene);
        else
            view.ownScene.setItemIndexMethod(QGraphicsScene::NoIndex);
        auto *const entry = new KELComboBoxItem;
        delete labelOf(entry);
        entry->style()->backgroundBrush = QColor(Qt::darkGreen);
        entry->setboundRect(20, 20, 100, 30);
        view.ownScene.addItem(entry);
        QVERIFY(view.showAndWait());
        const QSignalSpy clicked(entry, &KELComboBoxItem::mouseClicked);
        const auto tap = [&](const QPoint &pos) {
            if (Input(input) == Input::Touch) {
                view.touchPress(pos);
                view.touchRelease(pos);
            } else {
                view.click(pos);
            }
        };
        tap(farAway);
        QCOMPARE(staleParts(view), QString());
        const QColor bare = shownPicture(view).pixelColor(5, 5);
        moveTo(entry, QRectF(250, 200, 130, 50), byRectangle);
        const QImage after = shownPicture(view);
        QCOMPARE(after.pixelColor(70, 35), bare);
        QCOMPARE(after.pixelColor(315, 225), QColor(Qt::darkGreen));
        QCOMPARE(staleParts(view), QString());
        tap(QPoint(70, 35));
        QCOMPARE(clicked.count(), 0);
        tap(QPoint(315, 225));
        QCOMPARE(clicked.count(), 1);
    }

    void movedItemLeavesTheTree_data()
    {
        QTest::addColumn<bool>("isBox");
        QTest::addColumn<bool>("byRectangle");
        QTest::newRow("combo box, rectangle") << true << true;
        QTest::newRow("combo box, numbers") << true << false;
        QTest::newRow("entry, rectangle") << false << true;
        QTest::newRow("entry, numbers") << false << false;
    }

    // A tree that was not told of the move goes on to find at the old place what is no longer in
    // the scene.
    void movedItemLeavesTheTree()
    {
        QFETCH(bool, isBox);
        QFETCH(bool, byRectangle);
        QGraphicsScene scene(0, 0, 400, 300);
        makeTreeDeep(&scene);
        std::unique_ptr<KELRoundRectControl> item;
        if (isBox) {
            auto box = std::make_unique<KELComboBox>();
            addEntries(box.get(), threeTexts);
            clickButton(*box);
            item = std::move(box);
        } else {
            item = std::make_unique<KELComboBoxItem>();
        }
        const QRectF oldRect(20, 20, 100, 30);
        item->setboundRect(oldRect);
        scene.addItem(item.get());
        QVERIFY(scene.items(oldRect).contains(item.get()));
        moveTo(item.get(), QRectF(250, 150, 100, 30), byRectangle);
        QVERIFY(scene.items(oldRect).isEmpty());
        QVERIFY(scene.items(QRectF(250, 150, 100, 30)).contains(item.get()));
        scene.removeItem(item.get());
        item->setboundRect(oldRect); // where the tree had it
        QVERIFY(scene.items(oldRect).isEmpty());
    }

    void textsArePaintedAtOnce_data()
    {
        QTest::addColumn<int>("change");
        const Named changes[] = {{"entry renamed", 0},    {"entry selected", 1},
                                 {"list opened", 2},      {"box disabled", 3},
                                 {"entry made wider", 4}, {"same entry again", 5},
                                 {"selected removed", 6}, {"entry made lower", 7}};
        for (const Named &change : changes)
            QTest::newRow(change.name) << change.value;
    }

    void textsArePaintedAtOnce()
    {
        QFETCH(int, change);
        ComboStage stage;
        stage.view.setBackgroundBrush(Qt::darkCyan);
        stage.box->setSelectIndex(0);
        QVERIFY(stage.show());
        KELComboBoxItem *const second = stage.box->items().at(1);
        if (change == 0 || change == 4 || change == 7)
            stage.open();
        if (change == 5)
            stage.box->items().at(0)->setDisplay(u"ONE"_s);
        const QImage before = shownPicture(stage.view);
        if (change == 0)
            second->setDisplay(u"renamed"_s);
        else if (change == 1)
            stage.box->setSelectIndex(1);
        else if (change == 2)
            clickButton(*stage.box);
        else if (change == 3)
            stage.box->setEnabled(false);
        else if (change == 4)
            second->setboundRect(QRectF(0.5, 30, 250, 30));
        else if (change == 5)
            stage.box->setSelectIndex(0);
        else if (change == 6)
            stage.box->removeItem(stage.box->items().at(0));
        else
            second->setboundRect(0.5, 42, 159, 10);
        QVERIFY(shownPicture(stage.view) != before);
        QCOMPARE(staleParts(stage.view), QString());
    }

    void transformedView_data()
    {
        QTest::addColumn<int>("input");
        QTest::addColumn<QTransform>("transform");
        for (const Named &input : inputs) {
            QTest::addRow("%s, half", input.name) << input.value << QTransform::fromScale(0.5, 0.5);
            QTest::addRow("%s, one and a half", input.name)
                << input.value << QTransform::fromScale(1.5, 1.5);
            QTest::addRow("%s, quarter turn", input.name) << input.value << QTransform().rotate(90);
            QTest::addRow("%s, slanting", input.name) << input.value << QTransform().rotate(30);
            QTest::addRow("%s, mirrored", input.name)
                << input.value << QTransform::fromScale(-1, 1);
        }
    }

    void transformedView()
    {
        QFETCH(int, input);
        QFETCH(QTransform, transform);
        ComboStage stage;
        stage.view.setTransform(transform);
        QVERIFY(stage.show());
        stage.view.centerOn(100, 85);
        stage.open(Input(input));
        QCOMPARE(listState(*stage.box), u"open"_s);
        stage.tap(Input(input), stage.entryCentre(2));
        QCOMPARE(stage.box->selectIndex(), 2);
        QCOMPARE(listState(*stage.box), u"closed"_s);
        // just inside and just outside the list, on its left
        stage.open(Input(input));
        const QPoint inside = stage.view.mapFromScene(QPointF(26, 134));
        stage.press(Input(input), inside);
        QCOMPARE(listState(*stage.box), u"open"_s);
        stage.release(Input(input), inside);
        stage.box->setSelectIndex(0);
        stage.open(Input(input));
        const QPoint outside = stage.view.mapFromScene(QPointF(14, 134));
        QVERIFY(stage.view.viewport()->rect().contains(outside));
        stage.press(Input(input), outside);
        QCOMPARE(listState(*stage.box), u"closed"_s);
        stage.release(Input(input), outside);
    }

    void openListIsAboveItsNeighbours_data() { addInputs(); }

    void openListIsAboveItsNeighbours()
    {
        QFETCH(int, input);
        ComboStage stage;
        KELPushButton *const neighbour = addNeighbour(&stage, QRectF(20, 65, 160, 80));
        QVERIFY(stage.show());
        const QSignalSpy clicked(neighbour, &KELPushButton::mouseClicked);
        stage.open(Input(input));
        stage.tap(Input(input), stage.entryCentre(1));
        QCOMPARE(stage.box->selectIndex(), 1);
        QCOMPARE(clicked.count(), 0);
        stage.tap(Input(input), neighbour->boundingRect().center().toPoint());
        QCOMPARE(clicked.count(), 1);
    }

    void higherNeighbourTakesThePress()
    {
        ComboStage stage;
        KELPushButton *const neighbour = addNeighbour(&stage, QRectF(20, 65, 160, 80));
        neighbour->setZValue(2);
        QVERIFY(stage.show());
        const QSignalSpy clicked(neighbour, &KELPushButton::mouseClicked);
        stage.open();
        stage.tap(Input::Mouse, stage.entryCentre(1));
        QCOMPARE(clicked.count(), 1);
        QCOMPARE(listState(*stage.box), u"open"_s);
    }

    void secondBoxClosesTheFirst_data() { addInputsAndIndexMethods(); }

    void secondBoxClosesTheFirst()
    {
        QFETCH(int, input);
        QFETCH(int, indexMethod);
        ComboStage stage(indexMethod);
        auto *second = new KELComboBox;
        second->setboundRect(210, 20, 160, 40);
        addEntries(second, threeTexts);
        stage.view.ownScene.addItem(second);
        QVERIFY(stage.show());
        const QPoint secondCentre(290, 40);
        stage.open(Input(input));
        stage.tap(Input(input), secondCentre);
        QVERIFY(!stage.isOpen());
        QCOMPARE(stage.box->zValue(), 0.0);
        QCOMPARE(listState(*second), u"open"_s);
        stage.open(Input(input));
        QCOMPARE(listState(*stage.box), u"open"_s);
        QCOMPARE(second->zValue(), 0.0);
        stage.tap(Input(input), stage.entryCentre(0));
        QCOMPARE(listState(*stage.box), u"closed"_s);
        QCOMPARE(listState(*second), u"closed"_s);
        QCOMPARE(second->selectIndex(), -1);
    }

    void roundsLeaveNoFilter_data()
    {
        QTest::addColumn<int>("input");
        QTest::addColumn<int>("way");
        const Named ways[] = {{"by the button", 0}, {"by a pick", 1}, {"by a press outside", 2}};
        for (const Named &input : inputs) {
            for (const Named &way : ways)
                QTest::addRow("%s, %s", input.name, way.name) << input.value << way.value;
        }
    }

    void roundsLeaveNoFilter()
    {
        QFETCH(int, input);
        QFETCH(int, way);
        const NotifierCensus census;
        ComboStage stage;
        QVERIFY(stage.show());
        for (int round = 0; round < 20; ++round) {
            stage.open(Input(input));
            QCOMPARE(listState(*stage.box), u"open"_s);
            QVERIFY(census.all().size() > 1);
            if (way == 0)
                stage.open(Input(input));
            else if (way == 1)
                stage.tap(Input(input), stage.entryCentre(round % 3));
            else
                stage.tap(Input(input), farAway);
            QCOMPARE(listState(*stage.box), u"closed"_s);
            QCOMPARE(census.all().size(), 1);
            QCOMPARE(census.listening(), 0);
        }
    }

    void closedBoxHearsOfNothing()
    {
        const NotifierCensus census;
        ComboStage stage;
        stage.box->setZValue(2.5);
        addNeighbour(&stage, QRectF(300, 200, 90, 90));
        QVERIFY(stage.show());
        int calls = 0;
        QCOMPARE(census.all().size(), 1);
        connect(ComboParts(*stage.box).notify, &KELApplicationNotify::notify, this,
                [&calls] { ++calls; });
        for (const QPoint &pos : {farAway, QPoint(250, 50), QPoint(100, 100)}) {
            stage.tap(Input::Mouse, pos);
            stage.tap(Input::Touch, pos);
        }
        QCOMPARE(calls, 0);
        QCOMPARE(stage.box->zValue(), 2.5);
        stage.open();
        stage.open(); // hears of the press on the button
        QCOMPARE(calls, 1);
        stage.open();
        stage.tap(Input::Mouse, farAway);
        calls = 0;
        stage.tap(Input::Mouse, farAway);
        QCOMPARE(calls, 0);
    }
};

KEL_TEST_MAIN(tst_KELComboBoxPointer)
#include "tst_kelcomboboxpointer.moc"
