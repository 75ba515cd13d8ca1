// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "stage.h"

#include <QtWidgets/QGraphicsSceneHoverEvent>

#include <QtWidgets/QGraphicsRectItem>

#include <new>
#include <type_traits>

namespace {

const QPoint onLeft(70, 50);
const QPoint onRight(270, 50);
const QPoint onNothing(170, 250);

// Two buttons on a plain control.
struct HoverStage
{
    HoverStage()
    {
        page->setboundRect(0, 0, 400, 200);
        left->setboundRect(20, 20, 100, 60);
        right->setboundRect(220, 20, 100, 60);
        view.ownScene.addItem(page);
        log.listenTo(left, u"left"_s);
        log.listenTo(right, u"right"_s);
    }
    ~HoverStage() { log.stop(); }

    KelTestView view;
    QPointer<KELRoundRectControl> page{new KELRoundRectControl};
    QPointer<KELPushButton> left{new KELPushButton(page)};
    QPointer<KELPushButton> right{new KELPushButton(page)};
    SignalLog log;
    Hand hand{&view};
};

// An item of another kind that takes hover events, where nothing else is.
class HoverItem : public QGraphicsRectItem
{
public:
    explicit HoverItem(HoverStage *stage, const QRectF &rect = QRectF(20, 220, 200, 60),
                       QGraphicsItem *parent = nullptr) :
        QGraphicsRectItem(rect, parent)
    {
        setAcceptHoverEvents(true);
        if (!parent)
            stage->view.ownScene.addItem(this);
    }
};

class CountingControl : public KELRoundRectControl
{
public:
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override
    {
        ++paints;
        KELRoundRectControl::paint(painter, option, widget);
    }

    int paints = 0;
};

struct Deletion
{
    const char *name;
    void (*run)(HoverStage &);
};

const std::vector<Deletion> deletions = {
    {"the one that is entered", [](HoverStage &s) { delete s.right; }},
    {"the one that is left", [](HoverStage &s) { delete s.left; }},
    {"both",
     [](HoverStage &s) {
         delete s.right;
         delete s.left;
     }},
    {"the parent of both", [](HoverStage &s) { delete s.page; }},
    {"everything", [](HoverStage &s) { s.view.ownScene.clear(); }},
    {"later the one that is entered", [](HoverStage &s) { s.right->deleteLater(); }},
    {"hides the one that is entered", [](HoverStage &s) { s.right->hide(); }},
    {"takes the one that is entered out",
     [](HoverStage &s) {
         s.view.ownScene.removeItem(s.right);
         delete s.right;
     }},
};

} // namespace

class tst_Hover : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void leaveComesBeforeEnter()
    {
        HoverStage stage;
        stage.hand.hover(onLeft);
        QCOMPARE(stage.log.takeWithHover(), u"left.enter"_s);
        stage.hand.hover(onRight);
        QCOMPARE(stage.log.takeWithHover(), u"left.leave right.enter"_s);
        stage.hand.hover(onLeft);
        QCOMPARE(stage.log.takeWithHover(), u"right.leave left.enter"_s);
    }

    // Applications may draw what is hovered over in another way.
    void hoveredControlIsRepainted()
    {
        Stage<CountingControl> stage;
        stage->setAcceptHoverEvents(true);
        stage.view.showOnce();
        QTRY_COMPARE(stage->paints, 1);
        stage.hand.hover(stage.centre());
        QTRY_COMPARE(stage->paints, 2);
        stage.hand.hover(QPoint(5, 5));
        QTRY_COMPARE(stage->paints, 3);
    }

    void leaveComesAtOnceWhenNothingIsEntered()
    {
        HoverStage stage;
        stage.hand.hover(onLeft);
        stage.hand.hover(onNothing);
        QCOMPARE(stage.log.takeWithHover(), u"left.enter left.leave"_s);
    }

    // As an application may send it.
    void leaveWithoutAView()
    {
        HoverStage stage;
        QGraphicsSceneHoverEvent leave(QEvent::GraphicsSceneHoverLeave);
        stage.view.ownScene.sendEvent(stage.left, &leave);
        QCOMPARE(stage.log.takeWithHover(), u"left.leave"_s);
    }

    void leaveComesWithoutAnEnter()
    {
        HoverStage stage;
        const HoverItem item(&stage);
        stage.hand.hover(onLeft);
        stage.hand.hover(onNothing);
        QTRY_COMPARE(stage.log.count(u"left.leave"_s), 1);
        stage.hand.hover(onRight);
        QCoreApplication::processEvents();
        QCOMPARE(stage.log.takeWithHover(), u"left.enter left.leave right.enter"_s);
    }

    // Both are left at once, for an item that does not say that it is entered.
    void childAndParentAreLeft()
    {
        HoverStage stage;
        stage.view.showOnce();
        stage.log.listenTo(stage.page, u"page"_s);
        stage.page->setAcceptHoverEvents(true);
        stage.left->setFlag(QGraphicsItem::ItemIsPanel, false); // whose parents Qt hovers over, too
        const HoverItem item(&stage);
        stage.hand.hover(onLeft);
        stage.hand.hover(onNothing);
        QTRY_COMPARE(stage.log.count(u"page.leave"_s), 1);
        QCOMPARE(stage.log.takeWithHover(), u"page.enter left.enter left.leave page.leave"_s);
    }

    void leavingTheView()
    {
        HoverStage stage;
        stage.hand.hover(onLeft);
        // A popup opens there, for example.
        QCursor::setPos(stage.view.viewport()->mapToGlobal(onLeft));
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(stage.view.viewport(), &leave);
        QCOMPARE(stage.log.takeWithHover(), u"left.enter left.leave"_s);
    }

    void leaveSlotDeletes_data()
    {
        addRows({{"deletion", namesOf(deletions)},
                 {"plain", {{"a button is entered", false}, {"a plain item is entered", true}}}});
    }

    void leaveSlotDeletes()
    {
        HoverStage stage;
        if (fetch<bool>("plain")) // it goes with the button that it lies on
            (new HoverItem(&stage, QRectF(225, 25, 90, 50), stage.page))->setZValue(9);
        stage.hand.hover(onLeft);
        stage.log.on(u"left.leave"_s, [&] { deletions.at(fetch<size_t>("deletion")).run(stage); });
        stage.hand.hover(onRight);
        QTRY_COMPARE(stage.log.count(u"left.leave"_s), 1);
        stage.hand.hover(onNothing);
        stage.hand.hover(onRight);
        stage.hand.hover(onLeft);
        QCoreApplication::processEvents();
    }

    void leaveSlotDeletesWhatScrollsBelowThePointer_data()
    {
        addRows({{"deletion", namesOf(deletions)}});
    }

    // The pointer rests meanwhile, in the view.
    void leaveSlotDeletesWhatScrollsBelowThePointer()
    {
        HoverStage stage;
        stage.view.setSceneRect(0, 0, 400, 300);
        stage.hand.hover(onLeft);
        stage.view.viewport()->setAttribute(Qt::WA_UnderMouse);
        stage.log.on(u"left.leave"_s, [&] { deletions.at(fetch<size_t>("deletion")).run(stage); });
        stage.view.setSceneRect(QRectF(onRight - onLeft, QSizeF(400, 300)));
        stage.hand.hover(onLeft);
        QTRY_COMPARE(stage.log.count(u"left.leave"_s), 1);
        stage.hand.hover(onNothing);
        QCoreApplication::processEvents();
    }

    void enterSlotDeletes_data() { addRows({{"deletion", namesOf(deletions)}}); }

    void enterSlotDeletes()
    {
        HoverStage stage;
        stage.hand.hover(onLeft);
        stage.log.on(u"right.enter"_s, [&] { deletions.at(fetch<size_t>("deletion")).run(stage); });
        stage.hand.hover(onRight);
        stage.hand.hover(onNothing);
        stage.hand.hover(onLeft);
    }

    // Another control comes to life at its address, lest the leave go unseen.
    void leftControlThatDiesIsForgotten()
    {
        HoverStage stage;
        const HoverItem item(&stage);
        std::aligned_storage_t<sizeof(KELPushButton), alignof(KELPushButton)> place;
        auto *const dying = new (&place) KELPushButton(stage.page);
        dying->setboundRect(20, 100, 100, 60);
        stage.hand.hover(QPoint(70, 130));
        stage.hand.hover(onNothing);
        dying->~KELPushButton();
        auto *const next = new (&place) KELPushButton;
        stage.log.listenTo(next, u"next"_s);
        stage.hand.hover(onRight);
        QCoreApplication::processEvents();
        QCOMPARE(stage.log.takeWithHover(), u"right.enter"_s);
        next->~KELPushButton();
    }
};

KEL_TEST_MAIN(tst_Hover)
#include "tst_hover.moc"
