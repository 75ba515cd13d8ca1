// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "tablestage.h"

namespace {

enum class Wrapper { Object, PlainItem, ObjectInPlainItem, PlainItemInObject };
const std::vector<Named> wrappers = {
    {"an object", int(Wrapper::Object)},
    {"a plain item", int(Wrapper::PlainItem)},
    {"an object in a plain item", int(Wrapper::ObjectInPlainItem)},
    {"a plain item in an object", int(Wrapper::PlainItemInObject)}};

// The outer item, whose parent is the table, and the inner one.
struct Wrapping
{
    QGraphicsItem *outer;
    QGraphicsItem *inner;
};

Wrapping wrapIn(Wrapper wrapper, KELNavigationTable *table)
{
    // One of Qt's items, which does not report its new parent, and one that does.
    const auto plain = [](QGraphicsItem *parent) { return new QGraphicsRectItem(parent); };
    const auto object = [](QGraphicsItem *parent) { return new PlainItem(QRectF(), parent); };
    QGraphicsItem *outer = nullptr;
    if (wrapper == Wrapper::PlainItem || wrapper == Wrapper::ObjectInPlainItem)
        outer = plain(table);
    else
        outer = object(table);
    if (wrapper == Wrapper::ObjectInPlainItem)
        return {outer, object(outer)};
    if (wrapper == Wrapper::PlainItemInObject)
        return {outer, plain(outer)};
    return {outer, outer};
}

Wrapping wrap(TableStage *stage, int index, Wrapper wrapper)
{
    const Wrapping wrapping = wrapIn(wrapper, stage->get());
    stage->pages.at(index)->setParentItem(wrapping.inner);
    return wrapping;
}

} // namespace

// Pages that an application puts into an item of its own.
class tst_KELNavigationTableWrapper : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void wrappedPageStays_data()
    {
        addRows({{"wrapper", wrappers}, {"wrapped", {{"page 0", 0}, {"page 1", 1}}}});
    }

    void wrappedPageStays()
    {
        TableStage stage(3);
        stage.settle();
        wrap(&stage, fetch<int>("wrapped"), fetch<Wrapper>("wrapper"));
        QCOMPARE(stage.whatIsWrong(0), QString());
        stage->setSelectIndex(1);
        QCOMPARE(stage.whatIsWrong(1), QString());
        delete stage.pages.at(fetch<int>("wrapped"));
        QCOMPARE(stage.whatIsWrong(1), QString());
    }

    void wrappedPageIsNotAddedAgain()
    {
        TableStage stage(2);
        stage.settle();
        QGraphicsItem *const wrapper = wrap(&stage, 1, Wrapper::Object).inner;
        stage->addItem(stage.pages.at(1));
        QCOMPARE(stage.pages.at(1)->parentItem(), wrapper);
        QCOMPARE(stage.whatIsWrong(0), QString());
    }

    void wrapperTakenAway_data()
    {
        addRows({{"wrapper", wrappers},
                 {"exit", exits},
                 {"asked",
                  {{"asked for the index", 0},
                   {"asked for the page", 1},
                   {"asked for a picture", 2},
                   {"asked for a press", 3},
                   {"asked to select", 4},
                   {"asked to add", 5}}}});
    }

    // A plain item does not tell: the table finds out when it is asked.
    void wrapperTakenAway()
    {
        const auto exit = fetch<Exit>("exit");
        KELRoundRectControl other;
        TableStage stage(3);
        stage->setSelectIndex(1);
        const Wrapping wrapping = wrap(&stage, 1, fetch<Wrapper>("wrapper"));
        QCOMPARE(stage.whatIsWrong(1), QString());
        stage->setSelectIndex(1);
        QCoreApplication::processEvents();
        takeAway(wrapping.outer, exit, &other);
        const QPointer<KELNavigationTableItem> left = stage.pages.takeAt(1);
        compareAnswer(&stage);
        stage->setSelectIndex(0);
        QCOMPARE(stage.whatIsWrong(0), QString());
        delete stage.control;
        QVERIFY(left);
        if (exit == Exit::OutOfTheScene)
            delete wrapping.outer;
    }

    void tableIsRepaintedWhenAnObjectLeaves_data()
    {
        addRows({{"wrapper",
                  {{"an object", int(Wrapper::Object)},
                   {"a plain item in an object", int(Wrapper::PlainItemInObject)}}}});
    }

    void tableIsRepaintedWhenAnObjectLeaves()
    {
        TableStage stage(3);
        const Wrapping wrapping = wrap(&stage, 1, fetch<Wrapper>("wrapper"));
        stage.settle();
        wrapping.outer->setParentItem(nullptr);
        QVERIFY(stage.wasPainted());
    }

    void outerWrapperTakenAway()
    {
        TableStage stage(2);
        stage.settle();
        QGraphicsItem *const outer = wrapIn(Wrapper::Object, stage.get()).outer;
        // The wrapper is wrapped after the page.
        wrap(&stage, 0, Wrapper::Object).outer->setParentItem(outer);
        QCOMPARE(stage.whatIsWrong(0), QString());
        stage->setSelectIndex(0);
        outer->setParentItem(nullptr);
        stage.pages.removeAt(0);
        QCOMPARE(stage.whatIsWrong(-1), QString());
    }

    void wrapperDeleted_data() { addRows({{"wrapper", wrappers}}); }

    void wrapperDeleted()
    {
        TableStage stage(3);
        stage.settle();
        delete wrap(&stage, 0, fetch<Wrapper>("wrapper")).outer;
        QVERIFY(!stage.pages.at(0));
        QCOMPARE(stage.whatIsWrong(-1), QString());
    }

    void pageUnwrapped()
    {
        TableStage stage(3);
        stage.settle();
        const Wrapping wrapping = wrap(&stage, 1, Wrapper::PlainItemInObject);
        stage.pages.at(1)->setParentItem(stage.get());
        // Neither of them has anything to do with the page any more.
        wrapping.outer->setParentItem(nullptr);
        delete wrapping.outer;
        QCOMPARE(stage.whatIsWrong(0), QString());
    }

    void pageOutOfAWrapperOutside()
    {
        KELRoundRectControl outside;
        TableStage stage(2);
        stage->setSelectIndex(1);
        stage.settle();
        wrap(&stage, 1, Wrapper::PlainItem);
        stage.pages.at(1)->setParentItem(&outside);
        stage.pages.removeAt(1);
        QCOMPARE(stage.whatIsWrong(-1), QString());
    }

    void tableDestroyedWithWrappedPages_data() { addRows({{"wrapper", wrappers}}); }

    void tableDestroyedWithWrappedPages()
    {
        TableStage stage(3);
        stage.settle();
        KELNavigationTable *const table = stage.get();
        wrap(&stage, 0, fetch<Wrapper>("wrapper"));
        wrap(&stage, 2, fetch<Wrapper>("wrapper"));
        QList<int> indexes;
        for (KELNavigationTableItem *page : qAsConst(stage.pages)) {
            connect(page, &QObject::destroyed, table, [table, &indexes] {
                table->setSelectIndex(0);
                indexes.append(table->selectIndex());
            });
        }
        delete table;
        QCOMPARE(indexes.size(), 3);
        QVERIFY(stage.alivePages().isEmpty());
        QVERIFY(stage.parent->childItems().isEmpty());
        QCOMPARE(stage.view.ownScene.items().size(), 2); // the parent and the other control
    }

    void tableDestroyedAfterAWrapperLeft()
    {
        TableStage stage(2);
        stage.settle();
        // Nobody asks the table meanwhile.
        wrap(&stage, 1, Wrapper::PlainItem).outer->setParentItem(nullptr);
        delete stage.control;
        QVERIFY(!stage.pages.at(0));
        QVERIFY(stage.pages.at(1));
        delete stage.pages.at(1);
    }

    void wrapperOutlivesTheTable()
    {
        TableStage stage(2);
        stage.settle();
        const Wrapping wrapping = wrap(&stage, 1, Wrapper::Object);
        // The slot runs while the pages of the table die.
        connect(stage.pages.at(0), &QObject::destroyed, &stage.view,
                [&] { wrapping.outer->setParentItem(nullptr); });
        delete stage.control;
        QVERIFY(stage.pages.at(1));
        delete wrapping.outer;
        QVERIFY(!stage.pages.at(1));
    }

    void pageWrappedInAPage()
    {
        TableStage stage(3);
        stage.settle();
        stage.pages.at(2)->setParentItem(stage.pages.at(1));
        QCOMPARE(stage->selectIndex(), 0);
        // It goes where the other goes.
        stage.pages.at(1)->setParentItem(nullptr);
        stage.pages = {stage.pages.first()};
        QCOMPARE(stage.whatIsWrong(0), QString());
    }

private:
    // The first question after the page in the middle, the current one, has left.
    static void compareAnswer(TableStage *stage)
    {
        OpenTable &table = **stage;
        switch (fetch<int>("asked")) {
        case 0:
            QCOMPARE(table.selectIndex(), -1);
            break;
        case 1:
            QVERIFY(!table.selectItem());
            break;
        case 2: {
            // Two tabs of half the width.
            const QImage picture = KelImage::paint(&table, QSize(440, 310));
            KELNavigationTable expected;
            const Pages pages = addPages(&expected, 3);
            expected.setSelectIndex(1);
            delete pages.at(1);
            QCOMPARE(KelImage::difference(picture, KelImage::paint(&expected, QSize(440, 310))),
                     QString());
            break;
        }
        case 3:
            // Of two tabs the first, of three the one of the page that left.
            table.pressAt(QPointF(200, 270));
            QCOMPARE(table.selectItem(), stage->pages.at(0).data());
            break;
        case 4:
            table.setSelectIndex(2);
            QCOMPARE(table.selectIndex(), -1);
            break;
        default:
            stage->addPages(1);
            QCOMPARE(table.selectItem(), stage->pages.last().data());
        }
    }
};

KEL_TEST_MAIN(tst_KELNavigationTableWrapper)
#include "tst_kelnavigationtablewrapper.moc"
