// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "combostage.h"

namespace {

const std::vector<Named> overloads = {{"rectangle", true}, {"numbers", false}};

void moveTo(KELRoundRectControl *control, const QRectF &rect)
{
    if (fetch<bool>("overload"))
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

void addInputsAndIndexMethods()
{
    addRows({{"input", inputs}, {"indexMethod", indexMethods}});
}

// A shown stage with an open list, and what the window shows then.
struct OpenStage : public ComboStage
{
    OpenStage() : ComboStage(fetch<Input>("input"), fetch<int>("indexMethod"))
    {
        open();
        before = shownPicture(view);
    }

    // Empty when the window shows something else than before, and all of it.
    QString repaintFaults() const
    {
        return shownPicture(view) == before ? u"nothing was repainted"_s : staleParts(view);
    }

    QImage before;
};

struct Change
{
    const char *name;
    bool isOpen;
    std::function<void(ComboStage &)> apply;
};

std::function<void(ComboStage &)> boxMovedBy(qreal shift)
{
    return [shift](ComboStage &stage) { stage->setboundRect(20 + shift, 20 + shift, 160, 40); };
}

std::function<void(ComboStage &)> boxMovedTo(const QRectF &rect)
{
    return [rect](ComboStage &stage) { stage->setboundRect(rect); };
}

// The first of three entries is selected.
const Change changes[] = {
    {"entry renamed", true, [](ComboStage &s) { s.entry(1)->setDisplay(u"renamed"_s); }},
    {"entry made wider", true,
     [](ComboStage &s) { s.entry(1)->setboundRect(QRectF(0.5, 30, 250, 30)); }},
    {"entry made lower", true, [](ComboStage &s) { s.entry(1)->setboundRect(0.5, 42, 159, 10); }},
    // As many pixels as before, so that only what was reported as changed is repainted.
    {"entry moved by a fraction, rectangle", true,
     [](ComboStage &s) { s.entry(1)->setboundRect(QRectF(0.75, 30, 159, 30)); }},
    {"entry moved by a fraction, numbers", true,
     [](ComboStage &s) { s.entry(1)->setboundRect(0.75, 30, 159, 30); }},
    {"entry selected", false, [](ComboStage &s) { s->setSelectIndex(1); }},
    {"renamed entry selected again", false,
     [](ComboStage &s) {
         s.entry(0)->setDisplay(u"ONE"_s);
         s->setSelectIndex(0);
     }},
    {"selected removed", false, [](ComboStage &s) { s->removeItem(s.entry(0)); }},
    {"selected deleted", false, [](ComboStage &s) { delete s.entry(0); }},
    {"list opened", false, [](ComboStage &s) { clickButton(*s); }},
    {"box disabled", false, [](ComboStage &s) { s->setEnabled(false); }},
    {"closed box moved by 0.25 px", false, boxMovedBy(0.25)},
    {"closed box moved by 0.4 px", false, boxMovedBy(0.4)},
    {"closed box moved by 0.5 px", false, boxMovedBy(0.5)},
    {"closed box moved by 1 px", false, boxMovedBy(1)},
    {"open box moved by 0.25 px", true, boxMovedBy(0.25)},
    {"open box moved by 0.4 px", true, boxMovedBy(0.4)},
    {"open box moved by 0.5 px", true, boxMovedBy(0.5)},
    {"open box moved by 1 px", true, boxMovedBy(1)},
    {"closed box moved by 0.25 px, rectangle", false, boxMovedTo({20.25, 20.25, 160, 40})},
    {"open box moved by 0.25 px, rectangle", true, boxMovedTo({20.25, 20.25, 160, 40})},
};

} // namespace

class tst_KELComboBoxPointer : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void opensPicksAndCloses_data() { addInputsAndIndexMethods(); }

    void opensPicksAndCloses()
    {
        ComboStage stage(fetch<Input>("input"), fetch<int>("indexMethod"));
        for (const int place : {2, 0, 1}) {
            stage.open();
            QCOMPARE(stage.state(), u"open"_s);
            stage.hand.tap(stage.entryCentre(place));
            QCOMPARE(
                stage.summary(),
                u"one two three; %1, %2; closed; 90 px"_s.arg(place).arg(threeTexts.at(place)));
            QCOMPARE(stage.log.take(), u"selectItemChanged"_s);
        }
    }

    void pickingTheSelectedEntryLeavesItOpen_data() { addRows({{"input", inputs}}); }

    void pickingTheSelectedEntryLeavesItOpen()
    {
        ComboStage stage(fetch<Input>("input"));
        stage->setSelectIndex(1);
        stage.open();
        stage.log.take();
        stage.hand.tap(stage.entryCentre(1));
        QCOMPARE(stage.state(), u"open"_s);
        QCOMPARE(stage.log.take(), QString());
    }

    void secondTapOnTheButtonCloses_data()
    {
        addRows({{"input", inputs}, {"isDouble", {{"late", false}, {"soon", true}}}});
    }

    void secondTapOnTheButtonCloses()
    {
        ComboStage stage(fetch<Input>("input"));
        stage.open();
        if (fetch<bool>("isDouble"))
            stage.hand.pressAgain(stage.buttonCentre());
        else
            stage.hand.press(stage.buttonCentre());
        QCOMPARE(stage.state(), u"open"_s);
        stage.hand.release();
        QCOMPARE(stage.state(), u"closed"_s);
        QCOMPARE(stage.log.take(), QString());
    }

    void wholeButtonOpens_data() { addRows({{"input", inputs}}); }

    void wholeButtonOpens()
    {
        ComboStage stage(fetch<Input>("input"));
        stage->setSelectIndex(0);
        // on the text, between the labels, on the arrow, in the corners
        for (const QPoint &pos :
             {QPoint(85, 40), QPoint(152, 40), QPoint(167, 40), QPoint(21, 21), QPoint(178, 57)}) {
            stage.hand.tap(pos);
            QCOMPARE(stage.state(), u"open"_s);
            stage.hand.tap(pos);
            QCOMPARE(stage.state(), u"closed"_s);
        }
    }

    void disabledBoxDoesNotOpen_data() { addRows({{"input", inputs}}); }

    void disabledBoxDoesNotOpen()
    {
        ComboStage stage(fetch<Input>("input"));
        stage->setEnabled(false);
        stage.tapButton();
        QCOMPARE(stage.state(), u"closed"_s);
        stage->setEnabled(true);
        stage.tapButton();
        QCOMPARE(stage.state(), u"open"_s);
        stage->setEnabled(false);
        stage.hand.tap(stage.entryCentre(1));
        QCOMPARE(stage->selectIndex(), -1);
    }

    void closedListTakesNoPress_data() { addRows({{"input", inputs}}); }

    void closedListTakesNoPress()
    {
        ComboStage stage(fetch<Input>("input"));
        stage->setZValue(1);
        stage.addNeighbour(QRectF(20, 65, 160, 80));
        stage.hand.tap(stage.rowCentre(1));
        QCOMPARE(stage.log.take(), u"neighbour.press neighbour.release neighbour.clicked"_s);
        QCOMPARE(stage->selectIndex(), -1);
    }

    void entryAddedWhileShown_data() { addInputsAndIndexMethods(); }

    void entryAddedWhileShown()
    {
        OpenStage stage;
        addEntries(stage.get(), {u"four"_s});
        QCOMPARE(stage.repaintFaults(), QString());
        stage.hand.tap(QPoint(100, 164));
        QCOMPARE(stage.summary(), u"one two three four; 3, four; closed; 120 px"_s);
        QCOMPARE(staleParts(stage.view), QString());
    }

    void entryRemovedWhileShown_data() { addInputsAndIndexMethods(); }

    void entryRemovedWhileShown()
    {
        OpenStage stage;
        stage->removeItem(stage.entry(0));
        QCOMPARE(stage.repaintFaults(), QString());
        // the removed one is still there, and selects nothing
        stage.hand.tap(stage.rowCentre(0));
        QCOMPARE(stage.summary(), u"two three; -1, ; open; 60 px"_s);
        stage.hand.tap(stage.rowCentre(1));
        QCOMPARE(stage.summary(), u"two three; 0, two; closed; 60 px"_s);
    }

    void entryDeletedWhileShown_data() { addInputsAndIndexMethods(); }

    void entryDeletedWhileShown()
    {
        OpenStage stage;
        delete stage.entry(2);
        QCOMPARE(stage.repaintFaults(), QString());
        stage.hand.tap(stage.entryCentre(1));
        QCOMPARE(stage->selectIndex(), 1);
    }

    void clearedAndFilledWhileShown_data() { addInputsAndIndexMethods(); }

    void clearedAndFilledWhileShown()
    {
        OpenStage stage;
        stage->clearItem();
        QCOMPARE(stage.repaintFaults(), QString());
        QCOMPARE(stage.state(), u"open"_s);
        addEntries(stage.get(), {u"new"_s, u"newer"_s});
        QCOMPARE(staleParts(stage.view), QString());
        stage.hand.tap(QPoint(100, 104));
        QCOMPARE(stage->selectIndex(), 1);
        stage.open();
        stage->clearItem();
        stage.hand.press(QPoint(100, 70));
        QCOMPARE(stage.state(), u"closed"_s);
        stage.hand.release();
    }

    void boxMovedWhileShown_data()
    {
        addRows({{"input", inputs}, {"indexMethod", indexMethods}, {"overload", overloads}});
    }

    void boxMovedWhileShown()
    {
        OpenStage stage;
        QCOMPARE(staleParts(stage.view), QString());
        moveTo(stage.get(), QRectF(200, 100, 170, 50));
        const QImage after = shownPicture(stage.view);
        QCOMPARE(after.pixelColor(30, 100), after.pixelColor(5, 5));
        QCOMPARE(stage.repaintFaults(), QString());
        QCOMPARE(stage.entryCentre(1), QPoint(280, 194));
        stage.hand.tap(QPoint(280, 194));
        QCOMPARE(stage->selectIndex(), 1);
        stage.hand.tap(QPoint(285, 125));
        QCOMPARE(stage.state(), u"open"_s);
        stage.hand.press(QPoint(100, 100));
        QCOMPARE(stage.state(), u"closed"_s);
        stage.hand.release();
    }

    void loneEntryMovedWhileShown_data() { boxMovedWhileShown_data(); }

    // Without its label, which would tell the scene where to look.
    void loneEntryMovedWhileShown()
    {
        KelTestView view;
        Hand hand(&view, fetch<Input>("input"));
        if (fetch<int>("indexMethod") == QGraphicsScene::BspTreeIndex)
            makeTreeDeep(&view.ownScene);
        else
            view.ownScene.setItemIndexMethod(QGraphicsScene::NoIndex);
        auto *const entry = new KELComboBoxItem;
        delete labelOf(entry);
        entry->style()->backgroundBrush = QColor(Qt::darkGreen);
        entry->setboundRect(20, 20, 100, 30);
        view.ownScene.addItem(entry);
        const QSignalSpy clicked(entry, &KELComboBoxItem::mouseClicked);
        hand.tap(farAway);
        QCOMPARE(staleParts(view), QString());
        const QColor bare = shownPicture(view).pixelColor(5, 5);
        moveTo(entry, QRectF(250, 200, 130, 50));
        const QImage after = shownPicture(view);
        QCOMPARE(after.pixelColor(70, 35), bare);
        QCOMPARE(after.pixelColor(315, 225), QColor(Qt::darkGreen));
        QCOMPARE(staleParts(view), QString());
        hand.tap(QPoint(70, 35));
        QCOMPARE(clicked.count(), 0);
        hand.tap(QPoint(315, 225));
        QCOMPARE(clicked.count(), 1);
    }

    void movedItemLeavesTheTree_data()
    {
        addRows({{"isBox", {{"combo box", true}, {"entry", false}}}, {"overload", overloads}});
    }

    // A tree that was not told of the move goes on to find at the old place what is no longer in
    // the scene.
    void movedItemLeavesTheTree()
    {
        QGraphicsScene scene(0, 0, 400, 300);
        makeTreeDeep(&scene);
        const QRectF oldRect(20, 20, 100, 30);
        const QRectF newRect(250, 150, 100, 30);
        std::unique_ptr<KELRoundRectControl> item = std::make_unique<KELComboBoxItem>();
        if (fetch<bool>("isBox")) {
            item = makeBox();
            clickButton(static_cast<const KELComboBox &>(*item));
        }
        item->setboundRect(oldRect);
        scene.addItem(item.get());
        QVERIFY(scene.items(oldRect).contains(item.get()));
        moveTo(item.get(), newRect);
        QVERIFY(scene.items(oldRect).isEmpty());
        QVERIFY(scene.items(newRect).contains(item.get()));
        scene.removeItem(item.get());
        item->setboundRect(oldRect); // where the tree had it
        QVERIFY(scene.items(oldRect).isEmpty());
    }

    void changeIsPaintedAtOnce_data()
    {
        addRows({{"change", namesOf(changes)}, {"indexMethod", indexMethods}});
    }

    void changeIsPaintedAtOnce()
    {
        const Change &change = changes[fetch<size_t>("change")];
        ComboStage stage(Input::Mouse, fetch<int>("indexMethod"));
        stage.view.setBackgroundBrush(Qt::darkCyan);
        stage.entry(1)->style()->borderBrush = QColor(Qt::red);
        stage.entry(1)->style()->borderWidth = 2;
        stage->setSelectIndex(0);
        stage.view.showOnce();
        if (change.isOpen)
            stage.open();
        QCOMPARE(staleParts(stage.view), QString());
        const QImage before = shownPicture(stage.view);
        change.apply(stage);
        QVERIFY(shownPicture(stage.view) != before);
        QCOMPARE(staleParts(stage.view), QString());
    }

    void transformedView_data()
    {
        addRows({{"input", inputs},
                 {"transform",
                  {{"half", 0},
                   {"one and a half", 1},
                   {"quarter turn", 2},
                   {"slanting", 3},
                   {"mirrored", 4}}}});
    }

    void transformedView()
    {
        const QTransform transforms[] = {QTransform::fromScale(0.5, 0.5),
                                         QTransform::fromScale(1.5, 1.5), QTransform().rotate(90),
                                         QTransform().rotate(30), QTransform::fromScale(-1, 1)};
        ComboStage stage(fetch<Input>("input"));
        stage.view.setTransform(transforms[fetch<int>("transform")]);
        stage.view.showOnce();
        stage.view.centerOn(100, 85);
        stage.open();
        QCOMPARE(stage.state(), u"open"_s);
        stage.hand.tap(stage.entryCentre(2));
        QCOMPARE(stage->selectIndex(), 2);
        QCOMPARE(stage.state(), u"closed"_s);
        // just inside and just outside the list, on its left
        stage.open();
        stage.hand.press(stage.view.mapFromScene(QPointF(26, 134)));
        QCOMPARE(stage.state(), u"open"_s);
        stage.hand.release();
        stage->setSelectIndex(0);
        stage.open();
        const QPoint outside = stage.view.mapFromScene(QPointF(14, 134));
        QVERIFY(stage.view.viewport()->rect().contains(outside));
        stage.hand.press(outside);
        QCOMPARE(stage.state(), u"closed"_s);
        stage.hand.release();
    }

    void openListIsAboveItsNeighbours_data() { addRows({{"input", inputs}}); }

    void openListIsAboveItsNeighbours()
    {
        ComboStage stage(fetch<Input>("input"));
        stage.addNeighbour(QRectF(20, 65, 160, 80));
        stage.open();
        stage.hand.tap(stage.entryCentre(1));
        QCOMPARE(stage->selectIndex(), 1);
        QCOMPARE(stage.log.take(), u"selectItemChanged"_s);
        stage.hand.tap(stage.rowCentre(1));
        QCOMPARE(stage.log.count(u"neighbour.clicked"_s), 1);
    }

    void higherNeighbourTakesThePress()
    {
        ComboStage stage;
        stage.addNeighbour(QRectF(20, 65, 160, 80))->setZValue(2);
        stage.open();
        stage.hand.tap(stage.entryCentre(1));
        QCOMPARE(stage.log.count(u"neighbour.clicked"_s), 1);
        QCOMPARE(stage.state(), u"open"_s);
    }

    void secondBoxClosesTheFirst_data() { addInputsAndIndexMethods(); }

    void secondBoxClosesTheFirst()
    {
        ComboStage stage(fetch<Input>("input"), fetch<int>("indexMethod"));
        KELComboBox *const second = makeBox(threeTexts, QRectF(210, 20, 160, 40)).release();
        stage.view.ownScene.addItem(second);
        stage.open();
        stage.hand.tap(stage.view.centreOf(second));
        QVERIFY(!stage.parts.panel->isVisible());
        QCOMPARE(stage->zValue(), 0.0);
        QCOMPARE(listState(*second), u"open"_s);
        stage.open();
        QCOMPARE(stage.state(), u"open"_s);
        QCOMPARE(second->zValue(), 0.0);
        stage.hand.tap(stage.entryCentre(0));
        QCOMPARE(stage.state(), u"closed"_s);
        QCOMPARE(listState(*second), u"closed"_s);
        QCOMPARE(second->selectIndex(), -1);
    }

    void roundsLeaveNoFilter_data() { addRows({{"input", inputs}, {"way", closings}}); }

    void roundsLeaveNoFilter()
    {
        ComboStage stage(fetch<Input>("input"));
        for (int round = 0; round < 20; ++round) {
            stage.open();
            QCOMPARE(stage.state(), u"open"_s);
            QVERIFY(applicationFilters.count() > 1);
            stage.close(fetch<Closing>("way"), round % 3);
            QCOMPARE(stage.state(), u"closed"_s);
            QCOMPARE(applicationFilters.count(), 1);
            QCOMPARE(applicationFilters.listening(), 0);
        }
    }

    void closedBoxHearsOfNothing()
    {
        ComboStage stage;
        stage->setZValue(2.5);
        stage.log.listenTo(stage.parts.notify);
        QCOMPARE(applicationFilters.count(), 1);
        for (const Named &input : inputs) {
            stage.hand.use(Input(input.value));
            for (const QPoint &pos :
                 {farAway, stage.otherCentre(), QPoint(250, 50), QPoint(100, 100)})
                stage.hand.tap(pos);
        }
        QCOMPARE(stage.log.count(u"notify"_s), 0);
        QCOMPARE(stage->zValue(), 2.5);
        stage.hand.use(Input::Mouse);
        stage.open();
        stage.tapButton(); // hears of the press on the button
        QCOMPARE(stage.log.count(u"notify"_s), 1);
        stage.open();
        stage.hand.tap(stage.otherCentre());
        stage.log.take();
        stage.hand.tap(stage.otherCentre());
        QCOMPARE(stage.log.take(), u"other.press other.release other.clicked"_s);
    }
};

KEL_TEST_MAIN(tst_KELComboBoxPointer)
#include "tst_kelcomboboxpointer.moc"
