// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "combostage.h"
#include "record.h"

#include <limits>

namespace {

const QBrush greyed = QColor(170, 170, 180, 200);
const QBrush white = QColor(Qt::white);

KELRoundRectControlStyle withoutFillAndOutline(KELRoundRectControlStyle record)
{
    record.backgroundBrush = record.borderBrush = QBrush(Qt::NoBrush);
    record.borderWidth = 0;
    return record;
}

// An event as a scene sends it, handed to the combo box.
void injectPress(const KELComboBox &box, const QPointF &pos, const QPointF &scenePos)
{
    QGraphicsSceneMouseEvent press(QEvent::GraphicsSceneMousePress);
    press.setPos(pos);
    press.setScenePos(scenePos);
    QObject target;
    ComboParts(box).notify->toNotify(&target, &press);
}

// Those of a box without entries, in the box.
void comparePlaces(const KELComboBox &box, const QSizeF &size, qreal textWidth, qreal arrowX)
{
    const ComboParts parts(box);
    QCOMPARE(parts.button->style()->boundRect, QRectF(QPointF(), size));
    QCOMPARE(parts.text->style()->boundRect, QRectF(0, 0, textWidth, size.height()));
    QCOMPARE(parts.arrow->style()->boundRect, QRectF(arrowX, 0, 25, size.height()));
    QCOMPARE(parts.panel->style()->boundRect, QRectF(0, size.height() - 1, size.width(), 5));
}

} // namespace

class tst_KELComboBox : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void metaObjects()
    {
        const QMetaObject &box = KELComboBox::staticMetaObject;
        QCOMPARE(box.superClass(), &KELRoundRectControl::staticMetaObject);
        QCOMPARE(box.methodCount() - box.methodOffset(), 1);
        QCOMPARE(box.method(box.methodOffset()).methodSignature(),
                 QByteArray("selectItemChanged()"));
        QCOMPARE(box.method(box.methodOffset()).methodType(), QMetaMethod::Signal);
        QCOMPARE(box.propertyCount(), box.propertyOffset());
        const QMetaObject &item = KELComboBoxItem::staticMetaObject;
        QCOMPARE(item.superClass(), &KELPushButton::staticMetaObject);
        QCOMPARE(item.methodCount(), item.methodOffset());
        QCOMPARE(item.propertyCount(), item.propertyOffset());
    }

    void newBox()
    {
        const KELComboBox box;
        QCOMPARE(summaryOf(box), u"; -1, ; closed; 5 px"_s);
        QCOMPARE(box.rect(), QRectF(0, 0, 100, 30));
        QCOMPARE(box.boundingRect(), QRectF(100, 100, 100, 30));
        QCOMPARE(box.zValue(), 0.0);
    }

    void partsOfANewBox()
    {
        const KELComboBox box;
        const ComboParts parts(box);
        QCOMPARE(box.childItems().size(), 2);
        QCOMPARE(parts.button->childItems().size(), 2);
        QVERIFY(parts.panel->childItems().isEmpty());
        QVERIFY(parts.button->isVisible());
        QCOMPARE(box.findChildren<KELApplicationNotify *>().size(), 1);
        QCOMPARE(parts.notify->parent(), &box);
        comparePlaces(box, QSizeF(100, 30), 70, 75);
    }

    void partsLieInTheBox()
    {
        const auto box = makeBox();
        const ComboParts parts(*box);
        QCOMPARE(parts.button->sceneBoundingRect(), QRectF(20, 20, 160, 40));
        QCOMPARE(parts.text->sceneBoundingRect(), QRectF(20, 20, 130, 40));
        QCOMPARE(parts.arrow->sceneBoundingRect(), QRectF(155, 20, 25, 40));
        QCOMPARE(parts.panel->sceneBoundingRect(), QRectF(20, 59, 160, 90));
        QCOMPARE(box->items().at(1)->sceneBoundingRect(), QRectF(20.5, 89, 159, 30));
        QCOMPARE(labelOf(box->items().at(1))->sceneBoundingRect(), QRectF(20.5, 89, 159, 30));
    }

    // The others show in pictures.
    void brushesOfThePartsThatNothingShows()
    {
        const KELComboBox box;
        const ComboParts parts(box);
        QCOMPARE(parts.button->style()->foregroundBrush, QBrush(QColor(Qt::black)));
        QCOMPARE(parts.panel->style()->foregroundBrush, white);
        QCOMPARE(parts.text->style()->borderWidth, 0.0F);
        QCOMPARE(parts.arrow->style()->borderWidth, 0.0F);
    }

    void boxHasNeitherFillNorOutline()
    {
        QCOMPARE(
            Record::difference(*KELComboBox().style(), withoutFillAndOutline(Record::defaults())),
            QString());
    }

    void initStyleReturnsTheRecord()
    {
        KELComboBox box;
        KELComboBoxItem entry;
        for (KELRoundRectControl *const control : {static_cast<KELRoundRectControl *>(&box),
                                                   static_cast<KELRoundRectControl *>(&entry)}) {
            KELRoundRectControlStyle *const record = control->style();
            Record::fill(record);
            const KELRoundRectControlStyle expected = withoutFillAndOutline(*record);
            QCOMPARE(control->initStyle(), record);
            QCOMPARE(control->style(), record);
            QCOMPARE(Record::difference(*record, expected), QString());
        }
    }

    void newBoxInAParent()
    {
        PlainItem shelf(QRectF(10, 20, 300, 300));
        auto *box = new KELComboBox(&shelf);
        QCOMPARE(box->parentItem(), &shelf);
        QCOMPARE(box->boundingRect(), QRectF(110, 120, 100, 30));
        const ComboParts parts(*box);
        QCOMPARE(parts.button->sceneBoundingRect(), QRectF(110, 120, 100, 30));
        QCOMPARE(parts.panel->sceneBoundingRect(), QRectF(110, 149, 100, 5));
    }

    void boxPaintsNothing()
    {
        const auto box = makeBox();
        box->setSelectIndex(0);
        box->setText(u"text"_s);
        box->style()->backgroundBrush = QColor(Qt::red);
        const QSize size(200, 200);
        QCOMPARE(KelImage::difference(KelImage::paint(box.get(), size), KelImage::blank(size)),
                 QString());
    }

    void layout_data()
    {
        QTest::addColumn<double>("given");
        QTest::addColumn<double>("byRectangle");
        QTest::addColumn<double>("byNumbers");

        QTest::newRow("wide") << 200.0 << 200.0 << 200.0;
        QTest::newRow("just above the wider minimum") << 80.25 << 80.25 << 80.25;
        QTest::newRow("at the wider minimum") << 80.0 << 80.0 << 80.0;
        QTest::newRow("just below the wider minimum") << 79.75 << 80.0 << 79.75;
        QTest::newRow("just above the narrower minimum") << 60.25 << 80.0 << 60.25;
        QTest::newRow("at the narrower minimum") << 60.0 << 80.0 << 60.0;
        QTest::newRow("just below the narrower minimum") << 59.75 << 80.0 << 60.0;
        QTest::newRow("narrow") << 50.0 << 80.0 << 60.0;
        QTest::newRow("negative") << -5.0 << 80.0 << 60.0;
        QTest::newRow("single and double precision") << 100.1 << double(100.1F) << 100.1;
    }

    void layout()
    {
        const auto given = fetch<double>("given");
        KELComboBox box;
        box.setboundRect(QRectF(3, 4, given, 40.5));
        QCOMPARE(box.style()->boundRect, QRectF(3, 4, given, 40.5));
        const auto single = float(fetch<double>("byRectangle"));
        comparePlaces(box, QSizeF(double(single), 40.5), double(single - 30.0F),
                      double(single - 25.0F));
        box.setboundRect(3, 4, given, 40.5);
        const auto width = fetch<double>("byNumbers");
        QCOMPARE(box.style()->boundRect, QRectF(3, 4, width, 40.5));
        comparePlaces(box, QSizeF(width, 40.5), width - 30, width - 25);
    }

    void layoutKeepsTheListHeight()
    {
        const auto box = makeBox({u"one"_s, u"two"_s});
        const ComboParts parts(*box);
        box->setboundRect(0, 0, 120, 50);
        QCOMPARE(parts.panel->style()->boundRect, QRectF(0, 49, 120, 60));
        box->setboundRect(QRectF(0, 0, 50, 20));
        QCOMPARE(parts.panel->style()->boundRect, QRectF(0, 19, 80, 60));
    }

    void entriesKeepTheirWidth()
    {
        const auto box = makeBox({u"one"_s});
        box->setboundRect(0, 0, 300, 50);
        addEntries(box.get(), {u"new"_s});
        box->setboundRect(QRectF(0, 0, 90, 50));
        QCOMPARE(box->items().at(0)->style()->boundRect, QRectF(0.5, 0, 159, 30));
        QCOMPARE(box->items().at(1)->style()->boundRect, QRectF(0.5, 30, 299, 30));
    }

    void listIsAsWideAsTheBoxOnceEntriesChange()
    {
        KELComboBox box;
        box.setboundRect(QRectF(0, 0, 50, 40));
        const ComboParts parts(box);
        QCOMPARE(parts.panel->style()->boundRect, QRectF(0, 39, 80, 5));
        addEntries(&box, threeTexts);
        QCOMPARE(parts.panel->style()->boundRect, QRectF(0, 39, 50, 90));
        QCOMPARE(box.items().first()->style()->boundRect, QRectF(0.5, 0, 49, 30));
        box.setboundRect(QRectF(0, 0, 50, 40));
        box.removeItem(box.items().last());
        QCOMPARE(parts.panel->style()->boundRect, QRectF(0, 39, 50, 60));
        box.setboundRect(QRectF(0, 0, 50, 40));
        box.clearItem();
        QCOMPARE(parts.panel->style()->boundRect, QRectF(0, 39, 50, 5));
    }

    void selectIndexBranches_data()
    {
        QTest::addColumn<int>("before");
        QTest::addColumn<int>("index");
        QTest::addColumn<QString>("selection");

        QTest::newRow("first") << -1 << 0 << u"0, one, told"_s;
        QTest::newRow("last") << -1 << 2 << u"2, three, told"_s;
        QTest::newRow("another") << 2 << 1 << u"1, two, told"_s;
        QTest::newRow("same") << 1 << 1 << u"1, two"_s;
        QTest::newRow("minus one") << 1 << -1 << u"1, two"_s;
        QTest::newRow("minus one, none selected") << -1 << -1 << u"-1, "_s;
        QTest::newRow("very negative") << 1 << -100 << u"1, two"_s;
        QTest::newRow("the count") << 1 << 3 << u"1, two"_s;
        QTest::newRow("the count, none selected") << -1 << 3 << u"-1, "_s;
        QTest::newRow("very large") << 0 << 1000 << u"0, one"_s;
    }

    void selectIndexBranches()
    {
        const auto box = makeBox();
        box->setSelectIndex(fetch<int>("before"));
        const QSignalSpy changed(box.get(), &KELComboBox::selectItemChanged);
        box->setSelectIndex(fetch<int>("index"));
        QString selection = fetch<QString>("selection");
        QCOMPARE(changed.count(), selection.endsWith(u", told"_s) ? 1 : 0);
        selection.remove(u", told"_s);
        QCOMPARE(summaryOf(*box), u"one two three; %1; closed; 90 px"_s.arg(selection));
    }

    void selectingShowsTheTextBeforeItTells()
    {
        const auto box = makeBox();
        clickButton(*box);
        QString seen;
        connect(box.get(), &KELComboBox::selectItemChanged, this, [&] { seen = summaryOf(*box); });
        box->setSelectIndex(2);
        QCOMPARE(seen, u"one two three; 2, three; closed; 90 px"_s);
    }

    void indexThatChangesNothingLeavesTheListOpen()
    {
        const auto box = makeBox();
        box->setSelectIndex(1);
        clickButton(*box);
        for (const int index : {1, -1, 3, 50})
            box->setSelectIndex(index);
        QCOMPARE(listState(*box), u"open"_s);
    }

    void selectingWhileClosedKeepsTheZValue()
    {
        const auto box = makeBox();
        box->setZValue(7.5);
        box->setSelectIndex(0);
        QCOMPARE(box->zValue(), 7.5);
        QCOMPARE(listState(*box), u"closed"_s);
    }

    void renamedEntryIsShownOnceItIsSelectedAgain()
    {
        const auto box = makeBox();
        box->setSelectIndex(1);
        const QSignalSpy changed(box.get(), &KELComboBox::selectItemChanged);
        box->items().at(1)->setDisplay(u"2"_s);
        QCOMPARE(ComboParts(*box).text->text(), u"two"_s);
        box->setSelectIndex(1);
        QCOMPARE(ComboParts(*box).text->text(), u"2"_s);
        QCOMPARE(changed.count(), 0);
    }

    void buttonOpensAndCloses()
    {
        const auto box = makeBox();
        const QSignalSpy changed(box.get(), &KELComboBox::selectItemChanged);
        for (const char *const expected : {"open", "closed", "open", "closed"}) {
            clickButton(*box);
            QCOMPARE(listState(*box), QString::fromLatin1(expected));
        }
        QCOMPARE(box->zValue(), 0.0);
        QCOMPARE(changed.count(), 0);
    }

    void zValueIsCutAndGivenBack_data()
    {
        QTest::addColumn<double>("before");
        QTest::addColumn<double>("after");

        constexpr double highest = std::numeric_limits<int>::max();
        constexpr double lowest = std::numeric_limits<int>::min();
        constexpr double infinite = std::numeric_limits<double>::infinity();
        QTest::newRow("whole") << 5.0 << 5.0;
        QTest::newRow("fraction") << 2.75 << 2.0;
        QTest::newRow("below zero") << -3.9 << -3.0;
        QTest::newRow("small") << 0.5 << 0.0;
        QTest::newRow("2^30") << 1073741824.5 << 1073741824.0;
        QTest::newRow("highest int") << highest << highest;
        QTest::newRow("above the highest int") << highest + 1 << highest;
        QTest::newRow("infinite") << infinite << highest;
        QTest::newRow("lowest int") << lowest << lowest;
        QTest::newRow("below the lowest int") << lowest - 1 << lowest;
        QTest::newRow("infinite, below zero") << -infinite << lowest;
        QTest::newRow("not a number") << qQNaN() << 0.0;
    }

    void zValueIsCutAndGivenBack()
    {
        const auto box = makeBox();
        const std::function<void()> ways[] = {[&] { clickButton(*box); },
                                              [&] { injectPress(*box, farAway, QPointF()); },
                                              [&] { box->setSelectIndex(1); }};
        for (const std::function<void()> &close : ways) {
            box->setZValue(fetch<double>("before"));
            clickButton(*box);
            QCOMPARE(box->zValue(), 1.0);
            close();
            QCOMPARE(box->zValue(), fetch<double>("after"));
        }
    }

    void zValueIsTakenWhenTheListOpens()
    {
        const auto box = makeBox();
        box->setZValue(3);
        clickButton(*box);
        box->setZValue(8);
        clickButton(*box);
        QCOMPARE(box->zValue(), 3.0);
        box->setZValue(4);
        clickButton(*box);
        clickButton(*box);
        QCOMPARE(box->zValue(), 4.0);
    }

    void disabledBoxIsGreyed_data()
    {
        addRows({{"isParent", {{"itself", false}, {"with its parent", true}}}});
    }

    void disabledBoxIsGreyed()
    {
        PlainItem shelf;
        KELComboBox *const box = makeBox().release();
        box->setParentItem(&shelf);
        const ComboParts parts(*box);
        parts.text->style()->foregroundBrush = QColor(Qt::red);
        QGraphicsItem *const disabled = fetch<bool>("isParent") ? &shelf : box->toGraphicsObject();
        disabled->setEnabled(false);
        QCOMPARE(parts.text->style()->foregroundBrush, greyed);
        QCOMPARE(parts.arrow->style()->foregroundBrush, greyed);
        QCOMPARE(parts.panel->style()->foregroundBrush, white);
        QCOMPARE(labelOf(box->items().first())->style()->foregroundBrush, white);
        disabled->setEnabled(true);
        QCOMPARE(parts.text->style()->foregroundBrush, white);
        QCOMPARE(parts.arrow->style()->foregroundBrush, white);
    }

    void notifierWatchesScenePressesWhileOpen()
    {
        const auto box = makeBox();
        KELApplicationNotify *const notify = ComboParts(*box).notify;
        const QPointF inside = ComboParts(*box).button->sceneBoundingRect().center();
        const auto hears = [&](QEvent::Type type, bool accepted) {
            QGraphicsSceneMouseEvent event(type);
            event.setPos(inside);
            event.setAccepted(accepted);
            return ApplicationFilters::hears(notify, &event);
        };
        QVERIFY(!hears(QEvent::GraphicsSceneMousePress, true));
        clickButton(*box);
        QVERIFY(hears(QEvent::GraphicsSceneMousePress, true));
        QVERIFY(!hears(QEvent::GraphicsSceneMousePress, false));
        QVERIFY(!hears(QEvent::GraphicsSceneMouseRelease, true));
        QVERIFY(!hears(QEvent::GraphicsSceneMouseDoubleClick, true));
        QVERIFY(!hears(QEvent::GraphicsSceneMouseMove, true));
        clickButton(*box);
        QVERIFY(!hears(QEvent::GraphicsSceneMousePress, true));
    }

    void scenePressOutsideCloses_data()
    {
        QTest::addColumn<QPointF>("pos");
        QTest::addColumn<QString>("state");

        QTest::newRow("on the button") << QPointF(100, 40) << u"open"_s;
        QTest::newRow("corner of the button") << QPointF(20, 20) << u"open"_s;
        QTest::newRow("other corner of the button") << QPointF(180, 20) << u"open"_s;
        QTest::newRow("on the list") << QPointF(100, 100) << u"open"_s;
        QTest::newRow("corner of the list") << QPointF(180, 149) << u"open"_s;
        QTest::newRow("left of the button") << QPointF(19.5, 40) << u"closed"_s;
        QTest::newRow("right of the button") << QPointF(180.5, 40) << u"closed"_s;
        QTest::newRow("above the button") << QPointF(100, 19.5) << u"closed"_s;
        QTest::newRow("below the list") << QPointF(100, 149.5) << u"closed"_s;
        QTest::newRow("left of the list") << QPointF(19.5, 100) << u"closed"_s;
        QTest::newRow("right of the list") << QPointF(180.5, 100) << u"closed"_s;
        QTest::newRow("origin") << QPointF(0, 0) << u"closed"_s;
    }

    // Compat: by the position in the pressed item.
    void scenePressOutsideCloses()
    {
        const auto pos = fetch<QPointF>("pos");
        const auto box = makeBox();
        const QSignalSpy changed(box.get(), &KELComboBox::selectItemChanged);
        for (const QPointF &scenePos : {pos, QPointF(100, 40), QPointF(farAway)}) {
            if (listState(*box) == u"closed"_s)
                clickButton(*box);
            injectPress(*box, pos, scenePos);
            QCOMPARE(listState(*box), fetch<QString>("state"));
        }
        QCOMPARE(changed.count(), 0);
    }

    void injectedEventOfAnotherType()
    {
        const auto box = makeBox();
        clickButton(*box);
        QEvent event(QEvent::User);
        QObject target;
        ComboParts(*box).notify->toNotify(&target, &event);
        QCOMPARE(listState(*box), u"open"_s);
    }

    void scenePressWhileTheBoxIsHidden()
    {
        const auto box = makeBox();
        clickButton(*box);
        box->hide();
        injectPress(*box, farAway, farAway);
        box->show();
        QCOMPARE(listState(*box), u"open"_s);
        ComboParts(*box).panel->hide();
        injectPress(*box, farAway, farAway);
        QCOMPARE(ComboParts(*box).arrow->text(), upArrow);
        QCOMPARE(box->zValue(), 1.0);
        clickButton(*box);
        QCOMPARE(listState(*box), u"closed"_s);
    }

    void scenePressWhileClosed()
    {
        const auto box = makeBox();
        box->setZValue(6.5);
        injectPress(*box, farAway, farAway);
        QCOMPARE(box->zValue(), 6.5);
        // also when somebody else shows the list
        ComboParts(*box).panel->show();
        injectPress(*box, farAway, farAway);
        QVERIFY(ComboParts(*box).panel->isVisible());
        QCOMPARE(box->zValue(), 6.5);
    }
};

KEL_TEST_MAIN(tst_KELComboBox)
#include "tst_kelcombobox.moc"
