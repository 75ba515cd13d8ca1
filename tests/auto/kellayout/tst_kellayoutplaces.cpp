// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "hand.h"
#include "layoutcontrols.h"
#include "signallog.h"
#include "stage.h"

#include <QtGui/QScreen>
#include <QtGui/QWindow>

namespace {

// Where the widget with the layout is.
enum class Place { Scene, Moved, Card, CardOnCard, TitleBar, OutlinedPage, TableInALayout };

const std::vector<Named> places{{"in the scene", int(Place::Scene)},
                                {"on a moved widget", int(Place::Moved)},
                                {"on a card", int(Place::Card)},
                                {"on a card on a card", int(Place::CardOnCard)},
                                {"below a title bar", int(Place::TitleBar)},
                                {"on an outlined page", int(Place::OutlinedPage)},
                                {"in a table in a layout", int(Place::TableInALayout)}};
const std::vector<Named> targets{{"button", int(Kind::Button)},
                                 {"check box", int(Kind::Check)},
                                 {"radio box", int(Kind::Radio)},
                                 {"slider", int(Kind::Slider)}};
const std::vector<Named> indexes{{"no index", QGraphicsScene::NoIndex},
                                 {"an index", QGraphicsScene::BspTreeIndex}};
const std::vector<Named> caches{{"cached", QGraphicsItem::DeviceCoordinateCache},
                                {"not cached", QGraphicsItem::NoCache}};

// Paints nothing itself.
KELRoundRectControl *newCard(const QRectF &rect, KELRoundRectControl *parent = nullptr)
{
    auto *card = new KELRoundRectControl(parent);
    card->style()->backgroundBrush = QBrush(Qt::NoBrush);
    card->style()->borderWidth = 0;
    card->setboundRect(rect);
    return card;
}

KELNavigationTable *newTableWithPage(KELNavigationTableItem *page)
{
    auto *table = new KELNavigationTable;
    auto *style = static_cast<KELNavigationTableStyle *>(table->style());
    style->showTitle = true;
    style->title = QString();
    style->titleBackgroundBrush = QBrush(Qt::NoBrush);
    style->backgroundBrush = QBrush(Qt::NoBrush);
    table->setboundRect(0, 0, 360, 280);
    table->addItem(page);
    return table;
}

QGraphicsWidget *newWidget(QGraphicsLayout *layout)
{
    auto *widget = new QGraphicsWidget;
    widget->setLayout(layout);
    widget->setGeometry(0, 0, 400, 300);
    return widget;
}

// The topmost item, with the layout somewhere on it.
QGraphicsItem *newHost(Place place, QGraphicsLayout *layout)
{
    if (place == Place::Scene || place == Place::Moved) {
        QGraphicsWidget *widget = newWidget(layout);
        if (place == Place::Moved)
            widget->setGeometry(60, 40, 320, 240);
        return widget;
    }
    if (place == Place::Card || place == Place::CardOnCard) {
        KELRoundRectControl *outer = newCard(QRectF(30, 40, 350, 240));
        KELRoundRectControl *card = outer;
        if (place == Place::CardOnCard)
            card = newCard(QRectF(7, 9, 300, 200), outer);
        KELLayout::setLayout(card, layout);
        return outer;
    }
    auto *page = new KELNavigationTableItem;
    page->style()->borderWidth = place == Place::OutlinedPage ? 6 : 0;
    KELLayout::setLayout(page, layout); // before the table places the page
    KELNavigationTable *table = newTableWithPage(page);
    if (place != Place::TableInALayout)
        return table;
    auto *rows = new QGraphicsLinearLayout(Qt::Vertical);
    auto *heading = new KELLabel;
    KELLayout::item(heading)->setMinimumHeight(20);
    KELLayout::add(rows, heading);
    KELLayout::add(rows, table, 1);
    return newWidget(rows);
}

// A control in a layout, above something that takes the rest.
class PlaceStage
{
public:
    PlaceStage(Kind kind, Place place, int indexMethod = QGraphicsScene::NoIndex) :
        control(newControl(kind)), layout(new QGraphicsLinearLayout(Qt::Vertical))
    {
        KELLayout::add(layout, control);
        layout->addStretch(1);
        view.ownScene.setItemIndexMethod(QGraphicsScene::ItemIndexMethod(indexMethod));
        view.ownScene.setBackgroundBrush(KelImage::paper);
        host = newHost(place, layout);
        view.ownScene.addItem(host);
        QCoreApplication::sendPostedEvents();
    }

    QImage picture()
    {
        QImage image(400, 300, QImage::Format_ARGB32_Premultiplied);
        image.fill(KelImage::paper);
        QPainter painter(&image);
        view.ownScene.render(&painter, QRectF(0, 0, 400, 300), QRectF(0, 0, 400, 300));
        return image;
    }

    // What is on the screen, where only that was painted again which the view was told of.
    QImage shown()
    {
        letEventsRun();
        QScreen *const screen = view.windowHandle()->screen();
        return screen->grabWindow(view.winId())
            .toImage()
            .convertToFormat(QImage::Format_ARGB32_Premultiplied);
    }

    KelTestView view;
    KELRoundRectControl *const control;
    QGraphicsLinearLayout *const layout;
    QGraphicsItem *host;
};

// The same control alone at a place, as its own reference says.
QImage pictureAlone(Kind kind, const QRectF &bounds)
{
    const QRectF rect(QPointF(0, 0), bounds.size());
    const QScopedPointer<KELRoundRectControl> alone(kind == Kind::Table ? newTable(rect)
                                                                        : newControl(kind));
    alone->setboundRect(0, 0, bounds.width(), bounds.height());
    if (auto *slider = qobject_cast<KELSlideControl *>(alone.data())) {
        const float value = slider->value();
        slider->setStep(0);
        slider->setValue(value);
    }
    if (auto *line = qobject_cast<KELLineItem *>(alone.data())) {
        const bool isAcross = kind == Kind::Line;
        const QPointF half = isAcross ? QPointF(1.5, 0) : QPointF(0, 1.5);
        const QPointF middle(bounds.width() / 2, bounds.height() / 2);
        const QPointF way = isAcross ? QPointF(middle.x(), 0) : QPointF(0, middle.y());
        line->setLine(middle - way + half, middle + way - half);
    }
    return KelImage::draw(QSize(400, 300), 1, [&](QPainter *painter) {
        painter->translate(bounds.topLeft());
        KelImage::paintTree(painter, alone.data());
    });
}

} // namespace

class tst_KELLayoutPlaces : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void allInkIsInTheGeometry_data()
    {
        addRows({{"kind", kinds},
                 {"place", places},
                 {"direction", {{"", Qt::LeftToRight}, {"right to left", Qt::RightToLeft}}}});
    }

    void allInkIsInTheGeometry()
    {
        PlaceStage stage(fetch<Kind>("kind"), fetch<Place>("place"));
        static_cast<QGraphicsWidget *>(stage.control->parentItem())
            ->setLayoutDirection(fetch<Qt::LayoutDirection>("direction"));
        QCoreApplication::sendPostedEvents();
        const QRect geometry = sceneGeometry(stage.control).toRect();
        QCOMPARE(QRectF(geometry), sceneGeometry(stage.control));
        const QRect ink = KelImage::inkOf(stage.picture());
        QVERIFY(ink.width() > 2 && ink.height() > 2);
        QVERIFY2(
            geometry.contains(ink),
            qPrintable(
                u"%1 %2 %3 %4"_s.arg(ink.x()).arg(ink.y()).arg(ink.right()).arg(ink.bottom())));
    }

    void aControlLooksAsItDoesAlone_data() { addRows({{"kind", kinds}, {"place", places}}); }

    void aControlLooksAsItDoesAlone()
    {
        PlaceStage stage(fetch<Kind>("kind"), fetch<Place>("place"));
        // Without it, as the one alone: a picture that is kept is blended twice.
        const QList<QGraphicsItem *> items = stage.view.ownScene.items();
        for (QGraphicsItem *item : items)
            item->setCacheMode(QGraphicsItem::NoCache);
        const QImage alone = pictureAlone(fetch<Kind>("kind"), sceneBounds(stage.control));
        QCOMPARE(KelImage::difference(stage.picture(), alone), QString());
    }

    void aPressReachesIt_data()
    {
        addRows({{"kind", targets}, {"place", places}, {"input", inputs}});
    }

    void aPressReachesIt()
    {
        PlaceStage stage(fetch<Kind>("kind"), fetch<Place>("place"));
        SignalLog log;
        log.listenTo(stage.control);
        Hand hand(&stage.view, fetch<Input>("input"));
        hand.tap(sceneGeometry(stage.control).center().toPoint());
        const QString entries = log.take();
        QVERIFY2(entries.contains(u"press") && entries.contains(u"clicked"), qPrintable(entries));
        hand.tap(sceneGeometry(stage.control).bottomRight().toPoint() + QPoint(2, 2));
        QCOMPARE(log.take(), QString());
    }

    void aFingerTakesTheKnobWhereItIsDrawn_data()
    {
        addRows({{"place", places}, {"input", inputs}});
    }

    void aFingerTakesTheKnobWhereItIsDrawn()
    {
        PlaceStage stage(Kind::Slider, fetch<Place>("place"));
        auto *slider = static_cast<KELSlideControl *>(stage.control);
        slider->setStep(0);
        const QRectF bounds = sceneBounds(slider);
        const qreal way = bounds.width() - 30;
        // 50 of 20 to 60
        const QPoint knob(qRound(bounds.x() + 0.75 * way + 15), qRound(bounds.center().y()));
        Hand hand(&stage.view, fetch<Input>("input"));
        hand.press(knob + QPoint(12, 0));
        QCOMPARE(slider->value(), 50.0F); // taken, not jumped to
        hand.move(knob + QPoint(12 - qRound(way / 2), 0));
        hand.release();
        QVERIFY(qAbs(slider->value() - 30) < 0.3F);
    }

    void anEntryIsSelectedWhereItIsDrawn_data() { addRows({{"place", places}, {"input", inputs}}); }

    void anEntryIsSelectedWhereItIsDrawn()
    {
        PlaceStage stage(Kind::Combo, fetch<Place>("place"));
        auto *comboBox = static_cast<KELComboBox *>(stage.control);
        Hand hand(&stage.view, fetch<Input>("input"));
        const QRectF box = sceneBounds(comboBox);
        for (const int index : {2, 0}) {
            hand.tap(box.center().toPoint());
            const KELComboBoxItem *entry = comboBox->items().at(index);
            QVERIFY(entry->isVisible());
            QCOMPARE(entry->mapRectToScene(entry->boundingRect()),
                     QRectF(box.x() + 0.5, box.bottom() - 1 + 30 * index, box.width() - 1, 30));
            hand.tap(stage.view.centreOf(entry));
            QVERIFY(!entry->isVisible());
            QCOMPARE(comboBox->selectIndex(), index);
        }
    }

    void aTapOnTheOpenBoxClosesIt_data() { anEntryIsSelectedWhereItIsDrawn_data(); }

    void aTapOnTheOpenBoxClosesIt()
    {
        PlaceStage stage(Kind::Combo, fetch<Place>("place"));
        auto *comboBox = static_cast<KELComboBox *>(stage.control);
        Hand hand(&stage.view, fetch<Input>("input"));
        const QPoint centre = sceneBounds(comboBox).center().toPoint();
        hand.tap(centre);
        QVERIFY(comboBox->items().at(0)->isVisible());
        hand.tap(centre);
        QVERIFY(!comboBox->items().at(0)->isVisible());
    }

    // A page that slides in, after it was laid out.
    void aComboBoxWorksAfterItsPageHasMoved()
    {
        PlaceStage stage(Kind::Combo, Place::Moved);
        auto *comboBox = static_cast<KELComboBox *>(stage.control);
        const QRectF before = sceneBounds(comboBox);
        stage.host->moveBy(13, -21);
        QCOMPARE(sceneBounds(comboBox), before.translated(13, -21));
        Hand hand(&stage.view);
        hand.tap(sceneBounds(comboBox).center().toPoint());
        QCOMPARE(sceneBounds(comboBox), before.translated(13, -21));
        hand.tap(stage.view.centreOf(comboBox->items().at(2)));
        QCOMPARE(comboBox->selectIndex(), 2);
    }

    void anOpenListStaysWithItsBox()
    {
        PlaceStage stage(Kind::Combo, Place::Moved);
        auto *comboBox = static_cast<KELComboBox *>(stage.control);
        Hand hand(&stage.view);
        hand.tap(sceneBounds(comboBox).center().toPoint());
        static_cast<QGraphicsWidget *>(stage.host)->setGeometry(20, 30, 200, 260);
        QVERIFY(comboBox->items().at(0)->isVisible());
        QCOMPARE(comboBox->items().at(2)->rect().width(), sceneGeometry(comboBox).width() - 1);
        hand.tap(stage.view.centreOf(comboBox->items().at(2)));
        QCOMPARE(comboBox->selectIndex(), 2);
        QVERIFY(!comboBox->items().at(0)->isVisible());
    }

    void aCardAsksForTheRoomOfItsLayout()
    {
        auto *inner = new QGraphicsLinearLayout(Qt::Vertical);
        inner->setContentsMargins(10, 10, 10, 10);
        inner->setSpacing(5);
        auto *slider = new KELSlideControl;
        auto *label = new KELLabel;
        KELLayout::add(inner, slider);
        KELLayout::add(inner, label);
        KELRoundRectControl *card = newCard(QRectF());
        QGraphicsWidget *layer = KELLayout::setLayout(card, inner);
        auto *outer = new QGraphicsLinearLayout(Qt::Vertical);
        KELLayout::add(outer, card);
        outer->addStretch(1);
        QScopedPointer<QGraphicsWidget> widget(newWidget(outer));
        QCoreApplication::sendPostedEvents();
        const qreal before = card->rect().height();
        QCOMPARE(before, layer->preferredHeight());
        QCOMPARE(layer->rect(), card->rect());
        label->setText(u"one\ntwo\nthree"_s);
        KELLayout::updateHints(label);
        QCoreApplication::sendPostedEvents();
        QVERIFY(card->rect().height() > before + 10);
        QCOMPARE(layer->rect(), card->rect());
    }

    void aLayoutOnACardFollowsItsDirectionAndSize()
    {
        auto *inner = new QGraphicsLinearLayout;
        auto *first = new KELCheckBox;
        KELLayout::add(inner, first);
        inner->addStretch(1);
        KELRoundRectControl *card = newCard(QRectF(10, 10, 300, 100));
        KELLayout::setLayout(card, inner);
        auto *outer = new QGraphicsLinearLayout;
        KELLayout::add(outer, card);
        QScopedPointer<QGraphicsWidget> widget(newWidget(outer));
        widget->setLayoutDirection(Qt::RightToLeft);
        QCoreApplication::sendPostedEvents();
        QVERIFY(sceneBounds(first).left() > sceneBounds(card).center().x());

        KELRoundRectControl *alone = newCard(QRectF(50, 60, 300, 100));
        QGraphicsWidget *layer = KELLayout::setLayout(alone, new QGraphicsLinearLayout);
        QCOMPARE(layer->geometry(), QRectF(50, 60, 300, 100));
        alone->setboundRect(5, 6, 200, 120);
        KELLayout::updateHints(alone);
        QCoreApplication::sendPostedEvents();
        QCOMPARE(layer->geometry(), QRectF(5, 6, 200, 120));
        QCOMPARE(KELLayout::setLayout(alone, nullptr), layer);
        delete alone;
    }

    // A pressed control.

    void aPressedControlStaysPressedWhenItMoves_data()
    {
        addRows({{"input", inputs}, {"index", indexes}});
    }

    void aPressedControlStaysPressedWhenItMoves()
    {
        PlaceStage stage(Kind::Button, Place::Moved, fetch<int>("index"));
        SignalLog log;
        log.listenTo(stage.control);
        // A slot moves it while it is being pressed.
        connect(stage.control, &KELRoundRectControl::mousePress, this, [&stage] {
            stage.layout->setContentsMargins(0, 30, 0, 0);
            stage.layout->activate();
        });
        Hand hand(&stage.view, fetch<Input>("input"));
        const QRectF before = sceneBounds(stage.control);
        hand.press(before.center().toPoint());
        QVERIFY(stage.control->isMouseDown());
        QVERIFY(sceneBounds(stage.control) != before);
        hand.release();
        QVERIFY(!stage.control->isMouseDown());
        QCOMPARE(log.take(), u"press release clicked"_s);
        hand.tap(sceneBounds(stage.control).center().toPoint() + QPoint(0, 5));
        QCOMPARE(log.take(), u"press release clicked"_s);
    }

    void aSlotDeletesControlLayoutOrScreen_data()
    {
        addRows({{"kind", targets},
                 {"what", {{"control", 0}, {"layout", 1}, {"widget", 2}}},
                 {"input", inputs}});
    }

    void aSlotDeletesControlLayoutOrScreen()
    {
        PlaceStage stage(fetch<Kind>("kind"), Place::Moved);
        const QPointer<KELRoundRectControl> control(stage.control);
        connect(stage.control, &KELRoundRectControl::mousePress, this, [&stage] {
            auto *widget = static_cast<QGraphicsWidget *>(stage.host);
            if (fetch<int>("what") == 0)
                delete stage.control;
            else if (fetch<int>("what") == 1)
                widget->setLayout(nullptr);
            else
                delete widget;
        });
        Hand hand(&stage.view, fetch<Input>("input"));
        hand.tap(sceneBounds(stage.control).center().toPoint());
        QCOMPARE(control.isNull(), fetch<int>("what") != 1);
        QCoreApplication::sendPostedEvents();
    }

    // Repainting.

    void oldAndNewPlaceAreRepainted_data()
    {
        addRows({{"kind", kinds}, {"index", indexes}, {"cache", caches}});
    }

    void oldAndNewPlaceAreRepainted()
    {
        PlaceStage stage(fetch<Kind>("kind"), Place::Scene, fetch<int>("index"));
        stage.control->setCacheMode(fetch<QGraphicsItem::CacheMode>("cache"));
        stage.view.showOnce();
        stage.shown();
        auto *widget = static_cast<QGraphicsWidget *>(stage.host);
        for (int step = 0; step < 3; ++step) {
            stage.layout->setContentsMargins(20 + 31 * step, 10 + 23 * step, 12, 12);
            widget->resize(390 - 40 * step, 300);
            QCOMPARE(KelImage::difference(stage.shown(), stage.picture()), QString());
        }
    }

    void theSceneFindsItWhereItIs_data() { addRows({{"kind", kinds}, {"index", indexes}}); }

    void theSceneFindsItWhereItIs()
    {
        PlaceStage stage(fetch<Kind>("kind"), Place::Moved, fetch<int>("index"));
        stage.view.showOnce();
        letEventsRun();
        const QPointer<KELRoundRectControl> control(stage.control);
        for (int step = 0; step < 4; ++step) {
            stage.view.ownScene.items(QRectF(0, 0, 400, 300)); // fills the index
            const QRectF before = sceneBounds(control);
            stage.layout->setContentsMargins(20 + 40 * step, 10 + 50 * (step % 2), 10, 10);
            static_cast<QGraphicsWidget *>(stage.host)->resize(300 - 20 * step, 240);
            stage.layout->activate();
            letEventsRun();
            const QRectF bounds = sceneBounds(control);
            QVERIFY(bounds != before);
            for (const QPointF &pos : {bounds.center(), bounds.topLeft() + QPointF(1, 1),
                                       bounds.bottomRight() - QPointF(1, 1)}) {
                const QList<QGraphicsItem *> items = stage.view.ownScene.items(pos);
                QVERIFY(items.contains(control));
            }
            QVERIFY(!stage.view.ownScene.items(bounds.topLeft() - QPointF(3, 3)).contains(control));
        }
        delete stage.control; // out of the index, too
        QVERIFY(stage.view.ownScene.items(QRectF(-500, -500, 2000, 2000)).size() < 4);
        letEventsRun();
    }

    void nothingIsRepaintedWhenNothingMoves()
    {
        PlaceStage stage(Kind::Button, Place::Scene);
        stage.view.showOnce();
        letEventsRun();
        const QSignalSpy changes(&stage.view.ownScene, &QGraphicsScene::changed);
        letEventsRun();
        const int before = changes.size();
        stage.layout->invalidate();
        stage.layout->activate();
        letEventsRun();
        QCOMPARE(changes.size(), before);
    }

    // A layout on a layout on a card settles.
    void layoutsComeToRest()
    {
        PlaceStage stage(Kind::Combo, Place::TableInALayout);
        letEventsRun();
        struct Counter : QObject
        {
            bool eventFilter(QObject * /*object*/, QEvent *event) override
            {
                count += event->type() == QEvent::LayoutRequest ? 1 : 0;
                return false;
            }
            int count = 0;
        } counter;
        stage.host->toGraphicsObject()->installEventFilter(&counter);
        KELLayout::updateHints(stage.host);
        for (int i = 0; i < 20; ++i)
            letEventsRun();
        QVERIFY2(counter.count < 5, qPrintable(QString::number(counter.count)));
    }
};

KEL_TEST_MAIN(tst_KELLayoutPlaces)
#include "tst_kellayoutplaces.moc"
