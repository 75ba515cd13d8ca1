// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "combostage.h"

#include <limits>
#include <memory>

namespace {

const QBrush greyed = QColor(170, 170, 180, 200);
const QBrush white = QColor(Qt::white);

// A parent item whose rectangle begins somewhere.
class Shelf : public QGraphicsObject
{
public:
    QRectF boundingRect() const override { return QRectF(10, 20, 300, 300); }
    void paint(QPainter *, const QStyleOptionGraphicsItem *, QWidget *) override { }
};

std::unique_ptr<KELComboBox> makeBox(int entries = 3)
{
    auto box = std::make_unique<KELComboBox>();
    box->setboundRect(20, 20, 160, 40);
    addEntries(box.get(), threeTexts.mid(0, entries));
    return box;
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
        QCOMPARE(box.selectIndex(), -1);
        QVERIFY(!box.selectedItem());
        QVERIFY(box.items().isEmpty());
        QCOMPARE(box.rect(), QRectF(0, 0, 100, 30));
        QCOMPARE(box.boundingRect(), QRectF(100, 100, 100, 30));
        QCOMPARE(listState(box), u"closed"_s);
        QCOMPARE(box.zValue(), 0.0);
    }

    void partsOfANewBox()
    {
        const KELComboBox box;
        const ComboParts parts(box);
        QCOMPARE(box.childItems().size(), 2);
        QCOMPARE(parts.button->childItems().size(), 2);
        QVERIFY(parts.panel->childItems().isEmpty());
        QCOMPARE(parts.button->style()->boundRect, QRectF(0, 0, 100, 30));
        QCOMPARE(parts.text->style()->boundRect, QRectF(0, 0, 70, 30));
        QCOMPARE(parts.arrow->style()->boundRect, QRectF(75, 0, 25, 30));
        QCOMPARE(parts.panel->style()->boundRect, QRectF(0, 29, 100, 5));
        QCOMPARE(parts.text->text(), QString());
        QCOMPARE(parts.arrow->text(), downArrow);
        QVERIFY(!parts.panel->isVisible());
        QVERIFY(parts.button->isVisible());
        QCOMPARE(box.findChildren<KELApplicationNotify *>().size(), 1);
        QCOMPARE(parts.notify->parent(), &box);
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

    void looksOfTheParts()
    {
        const KELComboBox box;
        const ComboParts parts(box);
        QCOMPARE(parts.button->style()->backgroundBrush.style(), Qt::NoBrush);
        QCOMPARE(parts.button->style()->borderBrush, white);
        QCOMPARE(parts.button->style()->borderWidth, 1.5F);
        QCOMPARE(parts.button->style()->foregroundBrush, QBrush(QColor(Qt::black)));
        for (const KELLabel *label : {parts.text.data(), parts.arrow.data()}) {
            QCOMPARE(label->style()->foregroundBrush, white);
            QCOMPARE(label->style()->backgroundBrush.style(), Qt::NoBrush);
            QCOMPARE(label->style()->borderWidth, 0.0F);
        }
        QCOMPARE(parts.panel->style()->borderBrush, white);
        QCOMPARE(parts.panel->style()->borderWidth, 1.0F);
        QCOMPARE(parts.panel->style()->backgroundBrush, QBrush(QColor(4, 4, 18, 240)));
        QCOMPARE(parts.panel->style()->foregroundBrush, white);
    }

    void boxHasNeitherFillNorOutline()
    {
        const KELComboBox box;
        QCOMPARE(box.style()->backgroundBrush.style(), Qt::NoBrush);
        QCOMPARE(box.style()->borderBrush.style(), Qt::NoBrush);
        QCOMPARE(box.style()->borderWidth, 0.0F);
        QCOMPARE(box.style()->foregroundBrush, QBrush(QColor(Qt::black)));
    }

    void initStyleReturnsTheRecord()
    {
        KELComboBox box;
        KELRoundRectControlStyle *const record = box.style();
        record->borderWidth = 4;
        record->borderBrush = QColor(Qt::red);
        record->backgroundBrush = QColor(Qt::red);
        record->xRadius = 6;
        QCOMPARE(box.initStyle(), record);
        QCOMPARE(box.style(), record);
        QCOMPARE(record->borderWidth, 0.0F);
        QCOMPARE(record->borderBrush.style(), Qt::NoBrush);
        QCOMPARE(record->backgroundBrush.style(), Qt::NoBrush);
        QCOMPARE(record->xRadius, 6.0);
        KELComboBoxItem item;
        KELRoundRectControlStyle *const itemRecord = item.style();
        itemRecord->borderWidth = 4;
        QCOMPARE(static_cast<KELRoundRectControlStyle *>(item.initStyle()), itemRecord);
        QCOMPARE(itemRecord->borderWidth, 0.0F);
    }

    void newBoxInAParent()
    {
        Shelf shelf;
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
        const QImage blank = KelImage::draw(QSize(200, 200), 1, [](QPainter *) {});
        QCOMPARE(KelImage::difference(KelImage::paint(box.get(), QSize(200, 200)), blank),
                 QString());
    }

    void layoutByRectangle_data()
    {
        QTest::addColumn<QRectF>("rect");
        QTest::addColumn<double>("width");
        QTest::addColumn<double>("textWidth");
        QTest::addColumn<double>("arrowX");

        QTest::newRow("wide") << QRectF(3, 4, 200, 40) << 200.0 << 170.0 << 175.0;
        QTest::newRow("below the minimum") << QRectF(0, 0, 50, 40) << 80.0 << 50.0 << 55.0;
        QTest::newRow("at the minimum") << QRectF(0, 0, 80, 40) << 80.0 << 50.0 << 55.0;
        QTest::newRow("just below") << QRectF(0, 0, 79.75, 40) << 80.0 << 50.0 << 55.0;
        QTest::newRow("just above") << QRectF(0, 0, 80.25, 40) << 80.25 << 50.25 << 55.25;
        QTest::newRow("single precision") << QRectF(0.5, 1.5, 100.1, 33.3) << double(100.1F)
                                          << double(100.1F - 30.0F) << double(100.1F - 25.0F);
        QTest::newRow("negative") << QRectF(0, 0, -5, 40) << 80.0 << 50.0 << 55.0;
    }

    void layoutByRectangle()
    {
        QFETCH(QRectF, rect);
        QFETCH(double, width);
        QFETCH(double, textWidth);
        QFETCH(double, arrowX);
        KELComboBox box;
        box.setboundRect(rect);
        const ComboParts parts(box);
        const qreal height = rect.height();
        QCOMPARE(box.style()->boundRect, rect);
        QCOMPARE(parts.button->style()->boundRect, QRectF(0, 0, width, height));
        QCOMPARE(parts.text->style()->boundRect, QRectF(0, 0, textWidth, height));
        QCOMPARE(parts.arrow->style()->boundRect, QRectF(arrowX, 0, 25, height));
        QCOMPARE(parts.panel->style()->boundRect, QRectF(0, height - 1, width, 5));
    }

    void layoutByNumbers_data()
    {
        QTest::addColumn<double>("given");
        QTest::addColumn<double>("width");

        QTest::newRow("wide") << 200.0 << 200.0;
        QTest::newRow("below the minimum") << 50.0 << 60.0;
        QTest::newRow("at the minimum") << 60.0 << 60.0;
        QTest::newRow("just below") << 59.75 << 60.0;
        QTest::newRow("just above") << 60.25 << 60.25;
        QTest::newRow("below the other minimum") << 70.0 << 70.0;
        QTest::newRow("double precision") << 100.1 << 100.1;
        QTest::newRow("negative") << -5.0 << 60.0;
    }

    void layoutByNumbers()
    {
        QFETCH(double, given);
        QFETCH(double, width);
        KELComboBox box;
        box.setboundRect(3, 4, given, 40.5);
        const ComboParts parts(box);
        QCOMPARE(box.style()->boundRect, QRectF(3, 4, width, 40.5));
        QCOMPARE(parts.button->style()->boundRect, QRectF(0, 0, width, 40.5));
        QCOMPARE(parts.text->style()->boundRect, QRectF(0, 0, width - 30, 40.5));
        QCOMPARE(parts.arrow->style()->boundRect, QRectF(width - 25, 0, 25, 40.5));
        QCOMPARE(parts.panel->style()->boundRect, QRectF(0, 39.5, width, 5));
    }

    void layoutKeepsTheListHeight()
    {
        const auto box = makeBox(2);
        const ComboParts parts(*box);
        box->setboundRect(0, 0, 120, 50);
        QCOMPARE(parts.panel->style()->boundRect, QRectF(0, 49, 120, 60));
        box->setboundRect(QRectF(0, 0, 50, 20));
        QCOMPARE(parts.panel->style()->boundRect, QRectF(0, 19, 80, 60));
    }

    void entriesKeepTheirWidth()
    {
        const auto box = makeBox(1);
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
        QTest::addColumn<int>("after");
        QTest::addColumn<int>("signalCount");

        QTest::newRow("first") << -1 << 0 << 0 << 1;
        QTest::newRow("last") << -1 << 2 << 2 << 1;
        QTest::newRow("another") << 2 << 1 << 1 << 1;
        QTest::newRow("same") << 1 << 1 << 1 << 0;
        QTest::newRow("minus one") << 1 << -1 << 1 << 0;
        QTest::newRow("minus one, none selected") << -1 << -1 << -1 << 0;
        QTest::newRow("very negative") << 1 << -100 << 1 << 0;
        QTest::newRow("the count") << 1 << 3 << 1 << 0;
        QTest::newRow("the count, none selected") << -1 << 3 << -1 << 0;
        QTest::newRow("very large") << 0 << 1000 << 0 << 0;
    }

    void selectIndexBranches()
    {
        QFETCH(int, before);
        QFETCH(int, index);
        QFETCH(int, after);
        QFETCH(int, signalCount);
        const auto box = makeBox();
        box->setSelectIndex(before);
        const QSignalSpy changed(box.get(), &KELComboBox::selectItemChanged);
        box->setSelectIndex(index);
        QCOMPARE(box->selectIndex(), after);
        QCOMPARE(box->selectedItem(), after < 0 ? nullptr : box->items().at(after));
        QCOMPARE(ComboParts(*box).text->text(), after < 0 ? QString() : threeTexts.at(after));
        QCOMPARE(changed.count(), signalCount);
    }

    void selectingShowsTheTextBeforeItTells()
    {
        const auto box = makeBox();
        clickButton(*box);
        QStringList seen;
        connect(box.get(), &KELComboBox::selectItemChanged, this, [&] {
            seen = QStringList({ComboParts(*box).text->text(), QString::number(box->selectIndex()),
                                listState(*box)});
        });
        box->setSelectIndex(2);
        QCOMPARE(seen.join(QLatin1Char(' ')), u"three 2 closed"_s);
    }

    void sameIndexFetchesTheTextAgain()
    {
        const auto box = makeBox();
        box->setSelectIndex(1);
        ComboParts(*box).text->setText(u"written over"_s);
        const QSignalSpy changed(box.get(), &KELComboBox::selectItemChanged);
        box->setSelectIndex(1);
        QCOMPARE(ComboParts(*box).text->text(), u"two"_s);
        QCOMPARE(changed.count(), 0);
    }

    void sameIndexLeavesTheListOpen()
    {
        const auto box = makeBox();
        box->setSelectIndex(1);
        clickButton(*box);
        box->setSelectIndex(1);
        QCOMPARE(listState(*box), u"open"_s);
        Q_EMIT box->items().at(1)->mouseClicked();
        QCOMPARE(listState(*box), u"open"_s);
    }

    void ignoredIndexLeavesTheListOpen()
    {
        const auto box = makeBox();
        clickButton(*box);
        for (const int index : {-1, 3, 50})
            box->setSelectIndex(index);
        QCOMPARE(listState(*box), u"open"_s);
    }

    void newIndexClosesTheList()
    {
        const auto box = makeBox();
        box->setZValue(7);
        clickButton(*box);
        QCOMPARE(listState(*box), u"open"_s);
        box->setSelectIndex(0);
        QCOMPARE(listState(*box), u"closed"_s);
        QCOMPARE(box->zValue(), 7.0);
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
        box->items().at(1)->setDisplay(u"2"_s);
        QCOMPARE(ComboParts(*box).text->text(), u"two"_s);
        box->setSelectIndex(1);
        QCOMPARE(ComboParts(*box).text->text(), u"2"_s);
    }

    void buttonOpensAndCloses()
    {
        const auto box = makeBox();
        const QSignalSpy changed(box.get(), &KELComboBox::selectItemChanged);
        for (int round = 0; round < 3; ++round) {
            clickButton(*box);
            QCOMPARE(listState(*box), u"open"_s);
            clickButton(*box);
            QCOMPARE(listState(*box), u"closed"_s);
            QCOMPARE(box->zValue(), 0.0);
        }
        QCOMPARE(changed.count(), 0);
    }

    void zValueIsCutAndGivenBack_data()
    {
        QTest::addColumn<double>("before");
        QTest::addColumn<double>("after");
        QTest::addColumn<int>("way");

        const Named ways[] = {{"by the button", 0}, {"by a press", 1}, {"by a selection", 2}};
        for (const Named &way : ways) {
            QTest::addRow("whole, %s", way.name) << 5.0 << 5.0 << way.value;
            QTest::addRow("fraction, %s", way.name) << 2.75 << 2.0 << way.value;
            QTest::addRow("below zero, %s", way.name) << -3.9 << -3.0 << way.value;
            QTest::addRow("small, %s", way.name) << 0.5 << 0.0 << way.value;
        }
        constexpr double highest = std::numeric_limits<int>::max();
        constexpr double lowest = std::numeric_limits<int>::min();
        constexpr double infinite = std::numeric_limits<double>::infinity();
        QTest::newRow("2^30") << 1073741824.5 << 1073741824.0 << 0;
        QTest::newRow("highest int") << highest << highest << 0;
        QTest::newRow("above the highest int") << highest + 1 << highest << 0;
        QTest::newRow("infinite") << infinite << highest << 0;
        QTest::newRow("lowest int") << lowest << lowest << 0;
        QTest::newRow("below the lowest int") << lowest - 1 << lowest << 0;
        QTest::newRow("infinite, below zero") << -infinite << lowest << 0;
        QTest::newRow("not a number") << qQNaN() << 0.0 << 0;
    }

    void zValueIsCutAndGivenBack()
    {
        QFETCH(double, before);
        QFETCH(double, after);
        QFETCH(int, way);
        const auto box = makeBox();
        box->setZValue(before);
        clickButton(*box);
        QCOMPARE(box->zValue(), 1.0);
        if (way == 0)
            clickButton(*box);
        else if (way == 1)
            injectPress(*box, QPointF(300, 300), QPointF());
        else
            box->setSelectIndex(1);
        QCOMPARE(box->zValue(), after);
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

    void disabledBoxIsGreyed()
    {
        const auto box = makeBox();
        const ComboParts parts(*box);
        box->setEnabled(false);
        QCOMPARE(parts.text->style()->foregroundBrush, greyed);
        QCOMPARE(parts.arrow->style()->foregroundBrush, greyed);
        QCOMPARE(parts.panel->style()->foregroundBrush, white);
        QCOMPARE(labelOf(box->items().first())->style()->foregroundBrush, white);
        box->setEnabled(true);
        QCOMPARE(parts.text->style()->foregroundBrush, white);
        QCOMPARE(parts.arrow->style()->foregroundBrush, white);
    }

    void disabledByItsParent()
    {
        Shelf shelf;
        auto *box = new KELComboBox(&shelf);
        const ComboParts parts(*box);
        parts.text->style()->foregroundBrush = QColor(Qt::red);
        shelf.setEnabled(false);
        QCOMPARE(parts.text->style()->foregroundBrush, greyed);
        QCOMPARE(parts.arrow->style()->foregroundBrush, greyed);
        shelf.setEnabled(true);
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
            return hearsOfPresses(notify, &event);
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
        QTest::addColumn<bool>("closes");

        QTest::newRow("on the button") << QPointF(100, 40) << false;
        QTest::newRow("corner of the button") << QPointF(20, 20) << false;
        QTest::newRow("other corner of the button") << QPointF(180, 20) << false;
        QTest::newRow("on the list") << QPointF(100, 100) << false;
        QTest::newRow("corner of the list") << QPointF(180, 149) << false;
        QTest::newRow("left of the button") << QPointF(19.5, 40) << true;
        QTest::newRow("right of the button") << QPointF(180.5, 40) << true;
        QTest::newRow("above the button") << QPointF(100, 19.5) << true;
        QTest::newRow("below the list") << QPointF(100, 149.5) << true;
        QTest::newRow("left of the list") << QPointF(19.5, 100) << true;
        QTest::newRow("right of the list") << QPointF(180.5, 100) << true;
        QTest::newRow("origin") << QPointF(0, 0) << true;
    }

    void scenePressOutsideCloses()
    {
        QFETCH(QPointF, pos);
        QFETCH(bool, closes);
        const auto box = makeBox();
        const QSignalSpy changed(box.get(), &KELComboBox::selectItemChanged);
        clickButton(*box);
        injectPress(*box, pos, pos);
        QCOMPARE(listState(*box), closes ? u"closed"_s : u"open"_s);
        QCOMPARE(changed.count(), 0);
    }

    void scenePressIsComparedByItsItemPosition()
    {
        const auto box = makeBox();
        const QPointF inside(100, 40);
        const QPointF outside(300, 300);
        clickButton(*box);
        injectPress(*box, inside, outside);
        QCOMPARE(listState(*box), u"open"_s);
        injectPress(*box, outside, inside);
        QCOMPARE(listState(*box), u"closed"_s);
    }

    void scenePressIsNotConsumed()
    {
        class Target : public QObject
        {
        public:
            bool event(QEvent * /*event*/) override { return ++calls > 0; }
            int calls = 0;
        };
        const auto box = makeBox();
        clickButton(*box);
        Target target;
        QGraphicsSceneMouseEvent press(QEvent::GraphicsSceneMousePress);
        press.setPos(QPointF(300, 300));
        QCoreApplication::sendEvent(&target, &press);
        QCOMPARE(listState(*box), u"closed"_s);
        QCOMPARE(target.calls, 1);
        QVERIFY(press.isAccepted());
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
        injectPress(*box, QPointF(300, 300), QPointF(300, 300));
        box->show();
        QCOMPARE(listState(*box), u"open"_s);
        ComboParts(*box).panel->hide();
        injectPress(*box, QPointF(300, 300), QPointF(300, 300));
        QCOMPARE(ComboParts(*box).arrow->text(), upArrow);
        QCOMPARE(box->zValue(), 1.0);
        clickButton(*box);
        QCOMPARE(listState(*box), u"closed"_s);
    }

    void scenePressWhileClosed()
    {
        const auto box = makeBox();
        box->setZValue(6.5);
        injectPress(*box, QPointF(300, 300), QPointF(300, 300));
        QCOMPARE(box->zValue(), 6.5);
        // also when somebody else shows the list
        ComboParts(*box).panel->show();
        injectPress(*box, QPointF(300, 300), QPointF(300, 300));
        QVERIFY(ComboParts(*box).panel->isVisible());
        QCOMPARE(box->zValue(), 6.5);
    }
};

KEL_TEST_MAIN(tst_KELComboBox)
#include "tst_kelcombobox.moc"
