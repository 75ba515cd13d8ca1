// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "tablestage.h"

#include <kelpushbutton.h>

#include <QtCore/QPointer>

#include <functional>
#include <memory>

namespace {

enum class Way { SetSelectIndex, Mouse, Touch };

const QList<QPair<Way, const char *>> ways = {
    {Way::SetSelectIndex, "by index"}, {Way::Mouse, "by mouse"}, {Way::Touch, "by touch"}};

// A shown table whose pages may go away.
class PageStage
{
public:
    explicit PageStage(int count) : view(QSize(500, 400)), table(new OpenTable(nullptr))
    {
        for (KELNavigationTableItem *page : addPages(table, count))
            pages.append(page);
        view.ownScene.addItem(table);
    }

    bool show()
    {
        if (!view.showAndWait())
            return false;
        // A tap elsewhere: the next one must not be the second of a double tap that began in an
        // earlier test.
        view.touchPress(QPoint(480, 390));
        view.touchRelease(QPoint(480, 390));
        return true;
    }

    void select(Way way, int index)
    {
        const QPoint pos(qRound((index + 0.5) * 440 / pages.size()), 270);
        if (way == Way::SetSelectIndex) {
            table->setSelectIndex(index);
        } else if (way == Way::Mouse) {
            view.click(pos);
        } else {
            view.touchPress(pos);
            view.touchRelease(pos);
        }
    }

    // Calls slot when the page is hidden or shown for the first time from now on.
    void once(KELNavigationTableItem *page, const std::function<void()> &slot)
    {
        auto called = std::make_shared<bool>(false);
        QObject::connect(page, &QGraphicsObject::visibleChanged, &view, [slot, called, this] {
            if (std::exchange(*called, true))
                return;
            ++calls;
            const auto copy = slot; // the page may die
            copy();
        });
    }

    // The pages that are alive, in their order.
    QList<KELNavigationTableItem *> alivePages() const
    {
        QList<KELNavigationTableItem *> alive;
        for (const auto &page : pages) {
            if (page)
                alive.append(page);
        }
        return alive;
    }

    // Empty when the table shows this one of the living pages and everything works on.
    QString whatIsWrong(int index)
    {
        const auto alive = alivePages();
        QString wrong = whatIsNotShown(table, alive, index);
        if (!wrong.isEmpty())
            return wrong;
        view.grab();
        // Tabs in equal widths, each for its page.
        for (int i = 0; i < alive.size(); ++i) {
            table->pressAt(QPointF((i + 0.01) * 440 / alive.size() + 0.01, 270));
            wrong = whatIsNotShown(table, alive, i);
            if (!wrong.isEmpty())
                return u"tab %1: "_s.arg(i) + wrong;
            table->pressAt(QPointF((i + 0.99) * 440 / alive.size(), 270));
            wrong = whatIsNotShown(table, alive, i);
            if (!wrong.isEmpty())
                return u"end of tab %1: "_s.arg(i) + wrong;
        }
        table->setSelectIndex(alive.size());
        return whatIsNotShown(table, alive, alive.size() - 1);
    }

    KelTestView view;
    QPointer<OpenTable> table;
    QList<QPointer<KELNavigationTableItem>> pages;
    int calls = 0;
};

void addWays()
{
    QTest::addColumn<int>("way");
    for (const auto &way : ways)
        QTest::newRow(way.second) << int(way.first);
}

} // namespace

// What a page may be wrapped in, as a child of the table.
enum class Wrapper { Object, PlainItem, ObjectInPlainItem, PlainItemInObject };
Q_DECLARE_METATYPE(Wrapper)

namespace {

void addWrappers()
{
    QTest::addColumn<Wrapper>("wrapper");
    QTest::newRow("an object") << Wrapper::Object;
    QTest::newRow("a plain item") << Wrapper::PlainItem;
    QTest::newRow("an object in a plain item") << Wrapper::ObjectInPlainItem;
    QTest::newRow("a plain item in an object") << Wrapper::PlainItemInObject;
}

// The outer item, whose parent is the table, and the inner one.
struct Wrapping
{
    QGraphicsItem *outer;
    QGraphicsItem *inner;
};

Wrapping wrapIn(Wrapper wrapper, KELNavigationTable *table)
{
    const auto object = [](QGraphicsItem *parent) -> QGraphicsItem * {
        auto *const control = new KELRoundRectControl;
        control->setboundRect(0, 0, 0, 0);
        control->setParentItem(parent);
        return control;
    };
    const auto plain = [](QGraphicsItem *parent) -> QGraphicsItem * {
        return new QGraphicsRectItem(parent);
    };
    const bool isOuterPlain = wrapper == Wrapper::PlainItem
        || wrapper == Wrapper::ObjectInPlainItem;
    QGraphicsItem *const outer = isOuterPlain ? plain(table) : object(table);
    if (wrapper == Wrapper::ObjectInPlainItem)
        return {outer, object(outer)};
    if (wrapper == Wrapper::PlainItemInObject)
        return {outer, plain(outer)};
    return {outer, outer};
}

} // namespace

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
        QFETCH(int, selectedThen);
        for (const bool later : {false, true}) {
            PageStage stage(4);
            stage.table->setSelectIndex(selected);
            QVERIFY(stage.show());
            if (later) {
                stage.pages.at(deleted)->deleteLater();
                QCOMPARE(stage.table->selectIndex(), selected);
                QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            } else {
                delete stage.pages.at(deleted);
            }
            QCOMPARE(stage.whatIsWrong(selectedThen), QString());
        }
    }

    void allPagesDeleted_data()
    {
        QTest::addColumn<bool>("fromTheEnd");
        QTest::newRow("from the first on") << false;
        QTest::newRow("from the last on") << true;
    }

    void allPagesDeleted()
    {
        QFETCH(bool, fromTheEnd);
        PageStage stage(3);
        stage.table->setSelectIndex(1);
        QVERIFY(stage.show());
        for (int i = 0; i < 3; ++i)
            delete stage.pages.at(fromTheEnd ? 2 - i : i);
        QVERIFY(!stage.table->selectItem());
        QCOMPARE(stage.table->selectIndex(), -1);
        stage.view.click(QPoint(220, 270));
        stage.table->setSelectIndex(0);
        stage.table->setSelectIndex(-1);
        QCOMPARE(stage.table->selectIndex(), -1);
        stage.view.grab();
        stage.pages = {new KELNavigationTableItem(nullptr)};
        stage.table->addItem(stage.pages.first());
        QCOMPARE(stage.whatIsWrong(0), QString());
    }

    void selectAfterTheCurrentPageWasDeleted()
    {
        for (int index = 0; index < 2; ++index) {
            PageStage stage(3);
            QVERIFY(stage.show());
            delete stage.pages.first();
            stage.table->setSelectIndex(-1);
            QCOMPARE(stage.table->selectIndex(), -1);
            stage.table->setSelectIndex(index);
            QCOMPARE(stage.whatIsWrong(index), QString());
        }
    }

    void addAfterTheCurrentPageWasDeleted()
    {
        PageStage stage(3);
        QVERIFY(stage.show());
        delete stage.pages.first();
        stage.pages.append(new KELNavigationTableItem(nullptr));
        stage.table->addItem(stage.pages.last());
        QCOMPARE(stage.whatIsWrong(2), QString());
    }

    void pressOnTheOnlyPageLeft()
    {
        PageStage stage(2);
        QVERIFY(stage.show());
        delete stage.pages.first();
        // One page has no tab to be seen, but there is room for it.
        stage.view.click(QPoint(100, 270));
        QCOMPARE(stage.whatIsWrong(0), QString());
    }

    void deletionRepaints()
    {
        PageStage stage(3);
        QVERIFY(stage.show());
        for (int i = 2; i >= 0; --i) {
            QCoreApplication::processEvents();
            stage.view.grab();
            stage.table->paints = 0;
            delete stage.pages.at(i);
            QCoreApplication::processEvents();
            QVERIFY(stage.table->paints > 0);
        }
    }

    void unrelatedChildDeleted()
    {
        PageStage stage(2);
        auto *other = new KELNavigationTableItem(stage.table);
        delete new KELNavigationTableItem(nullptr);
        QVERIFY(stage.show());
        delete other;
        QCOMPARE(stage.whatIsWrong(0), QString());
    }

    void switchedTo_data() { addWays(); }

    void switchedTo()
    {
        QFETCH(int, way);
        PageStage stage(3);
        QVERIFY(stage.show());
        // What a slot sees: first the old page goes, then the new one comes.
        QStringList seen;
        for (const int i : {0, 2}) {
            stage.once(stage.pages.at(i), [&stage, &seen, i] {
                seen.append(u"page %1, visible %2, index %3"_s.arg(i)
                                .arg(stage.pages.at(i)->isVisible())
                                .arg(stage.table->selectIndex()));
            });
        }
        stage.select(Way(way), 2);
        QCOMPARE(seen,
                 QStringList({u"page 0, visible 0, index 0"_s, u"page 2, visible 1, index 2"_s}));
        QCOMPARE(stage.whatIsWrong(2), QString());
    }

    void pageDeletedDuringASwitch_data()
    {
        QTest::addColumn<int>("way");
        QTest::addColumn<int>("sender");
        QTest::addColumn<int>("deleted");
        QTest::addColumn<int>("selectedThen");

        for (const auto &way : ways) {
            const auto add = [&way](const char *name, int sender, int deleted, int then) {
                QTest::addRow("%s, %s", name, way.second)
                    << int(way.first) << sender << deleted << then;
            };
            // Pages 1 and 2 of four: from the first to the second.
            add("the new one, when the old one goes", 1, 2, 1);
            add("the old one, when it goes", 1, 1, 1);
            add("one before, when the old one goes", 1, 0, 1);
            add("one behind, when the old one goes", 1, 3, 2);
            add("the new one, when it comes", 2, 2, -1);
            add("the old one, when the new one comes", 2, 1, 1);
            add("one before, when the new one comes", 2, 0, 1);
            add("one behind, when the new one comes", 2, 3, 2);
        }
    }

    void pageDeletedDuringASwitch()
    {
        QFETCH(int, way);
        QFETCH(int, sender);
        QFETCH(int, deleted);
        QFETCH(int, selectedThen);
        PageStage stage(4);
        stage.table->setSelectIndex(1);
        QVERIFY(stage.show());
        stage.once(stage.pages.at(sender), [&] { delete stage.pages.at(deleted); });
        stage.select(Way(way), 2);
        QCOMPARE(stage.calls, 1);
        QVERIFY(!stage.pages.at(deleted));
        QCOMPARE(stage.whatIsWrong(selectedThen), QString());
    }

    void tableDeletedDuringASwitch_data()
    {
        QTest::addColumn<int>("way");
        QTest::addColumn<int>("sender");

        for (const auto &way : ways) {
            QTest::addRow("when the old page goes, %s", way.second) << int(way.first) << 0;
            QTest::addRow("when the new page comes, %s", way.second) << int(way.first) << 1;
        }
    }

    void tableDeletedDuringASwitch()
    {
        QFETCH(int, way);
        QFETCH(int, sender);
        PageStage stage(2);
        QVERIFY(stage.show());
        stage.once(stage.pages.at(sender), [&] { delete stage.table; });
        stage.select(Way(way), 1);
        QCOMPARE(stage.calls, 1);
        QVERIFY(!stage.table);
        QVERIFY(stage.alivePages().isEmpty());
        QCoreApplication::processEvents();
        auto *button = new KELPushButton(nullptr);
        button->setboundRect(0, 0, 440, 310);
        stage.view.ownScene.addItem(button);
        const QSignalSpy clicked(button, &KELPushButton::mouseClicked);
        stage.view.click(QPoint(100, 100));
        QCOMPARE(clicked.count(), 1);
    }

    void pageGivenAwayLeavesTheTable_data()
    {
        QTest::addColumn<int>("way");
        QTest::newRow("without parent") << 0;
        QTest::newRow("out of the scene") << 1;
        QTest::newRow("to another table") << 2;
    }

    void pageGivenAwayLeavesTheTable()
    {
        QFETCH(int, way);
        PageStage stage(3);
        QVERIFY(stage.show());
        stage.table->setSelectIndex(1);
        KELNavigationTableItem *const given = stage.pages.at(1);
        auto *const other = new KELNavigationTable;
        stage.view.ownScene.addItem(other);
        if (way == 0)
            given->setParentItem(nullptr);
        else if (way == 1)
            stage.view.ownScene.removeItem(given);
        else
            other->addItem(given);
        QCOMPARE(stage.table->selectIndex(), -1);
        QVERIFY(!stage.table->selectItem());
        stage.table->setSelectIndex(1);
        QCOMPARE(stage.table->selectItem(), stage.pages.at(2).data());
        delete stage.table;
        QVERIFY(stage.pages.at(1));
        QCOMPARE(other->selectItem(), way == 2 ? given : nullptr);
        if (way == 1)
            delete given;
        stage.view.grab();
    }

    void pageGivenAwayComesBack()
    {
        PageStage stage(2);
        QVERIFY(stage.show());
        stage.pages.at(0)->setParentItem(nullptr);
        stage.table->addItem(stage.pages.at(0));
        QCOMPARE(stage.pages.at(0)->parentItem(), stage.table.data());
        QCOMPARE(stage.table->selectItem(), stage.pages.at(0).data());
        stage.table->setSelectIndex(0);
        QCOMPARE(stage.table->selectItem(), stage.pages.at(1).data());
    }

    void dyingPageStillSeesTheTable()
    {
        PageStage stage(2);
        QVERIFY(stage.show());
        KELNavigationTable *const table = stage.table;
        QList<int> indexes;
        for (const QPointer<KELNavigationTableItem> &page : qAsConst(stage.pages)) {
            connect(page, &QObject::destroyed, table, [table, &indexes] {
                table->setSelectIndex(0);
                indexes.append(table->selectIndex());
            });
        }
        delete table;
        QCOMPARE(indexes.size(), 2);
    }

    void sceneClearedDuringASwitch_data() { tableDeletedDuringASwitch_data(); }

    void sceneClearedDuringASwitch()
    {
        QFETCH(int, way);
        QFETCH(int, sender);
        PageStage stage(2);
        QVERIFY(stage.show());
        stage.once(stage.pages.at(sender), [&] { stage.view.ownScene.clear(); });
        stage.select(Way(way), 1);
        QCOMPARE(stage.calls, 1);
        QVERIFY(!stage.table);
        QVERIFY(stage.alivePages().isEmpty());
        stage.view.grab();
    }

    void nestedSelection_data()
    {
        QTest::addColumn<int>("way");
        QTest::addColumn<int>("sender");
        QTest::addColumn<int>("nested");
        QTest::addColumn<int>("selectedThen");

        for (const auto &way : ways) {
            const auto add = [&way](const char *name, int sender, int nested, int then) {
                QTest::addRow("%s, %s", name, way.second)
                    << int(way.first) << sender << nested << then;
            };
            // From page 0 to page 1.
            add("another page, when the old one goes", 0, 2, 2);
            add("the new page, when the old one goes", 0, 1, 1);
            add("the old page, when it goes", 0, 0, 1);
            add("another page, when the new one comes", 1, 2, 2);
            add("the old page, when the new one comes", 1, 0, 0);
            add("the new page, when it comes", 1, 1, 1);
        }
    }

    void nestedSelection()
    {
        QFETCH(int, way);
        QFETCH(int, sender);
        QFETCH(int, nested);
        QFETCH(int, selectedThen);
        PageStage stage(3);
        QVERIFY(stage.show());
        stage.once(stage.pages.at(sender), [&] { stage.table->setSelectIndex(nested); });
        stage.select(Way(way), 1);
        QCOMPARE(stage.calls, 1);
        QCOMPARE(stage.whatIsWrong(selectedThen), QString());
    }

    void pageAddedDuringASwitch_data()
    {
        QTest::addColumn<int>("sender");
        QTest::newRow("when the old page goes") << 0;
        QTest::newRow("when the new page comes") << 1;
    }

    void pageAddedDuringASwitch()
    {
        QFETCH(int, sender);
        PageStage stage(2);
        QVERIFY(stage.show());
        stage.once(stage.pages.at(sender), [&] {
            for (KELNavigationTableItem *page : addPages(stage.table, 9))
                stage.pages.append(page);
        });
        stage.table->setSelectIndex(1);
        QCOMPARE(stage.calls, 1);
        QCOMPARE(stage.whatIsWrong(1), QString());
    }

    void pageMovedAwayDuringASwitch()
    {
        PageStage stage(3);
        QVERIFY(stage.show());
        KELNavigationTable other(nullptr);
        stage.once(stage.pages.at(0), [&] { other.addItem(stage.pages.at(1)); });
        stage.table->setSelectIndex(1);
        QCOMPARE(stage.calls, 1);
        QCOMPARE(other.selectItem(), stage.pages.at(1).data());
        QVERIFY(stage.pages.at(1)->isVisible());
        QCOMPARE(stage.table->selectItem(), stage.pages.at(0).data());
        QCOMPARE(stage.table->selectIndex(), 0);
    }

    void pageGoneWhenTheOldOneIsHidden_data()
    {
        QTest::addColumn<int>("way");
        QTest::addColumn<int>("end");
        for (const auto &way : ways) {
            QTest::addRow("deleted, %s", way.second) << int(way.first) << 0;
            QTest::addRow("without parent, %s", way.second) << int(way.first) << 1;
            QTest::addRow("out of the scene, %s", way.second) << int(way.first) << 2;
        }
    }

    void pageGoneWhenTheOldOneIsHidden()
    {
        QFETCH(int, way);
        QFETCH(int, end);
        PageStage stage(2);
        QVERIFY(stage.show());
        std::unique_ptr<KELNavigationTableItem> homeless;
        stage.once(stage.pages.at(0), [&] {
            if (end == 0) {
                delete stage.pages.at(1);
            } else if (end == 1) {
                stage.pages.at(1)->setParentItem(nullptr);
            } else {
                stage.view.ownScene.removeItem(stage.pages.at(1));
                homeless.reset(stage.pages.at(1));
            }
        });
        stage.select(Way(way), 1);
        QCOMPARE(stage.calls, 1);
        stage.pages.removeAt(1);
        QCOMPARE(stage.whatIsWrong(0), QString());
    }

    void selectedWhileAdded_data()
    {
        QTest::addColumn<int>("count");
        QTest::addColumn<int>("signal");
        for (const int count : {0, 1, 3}) {
            QTest::addRow("when it gets its parent, %d before", count) << count << 0;
            QTest::addRow("when it is hidden, %d before", count) << count << 1;
        }
    }

    void selectedWhileAdded()
    {
        QFETCH(int, count);
        QFETCH(int, signal);
        PageStage stage(count);
        QVERIFY(stage.show());
        auto *const page = new KELNavigationTableItem;
        int calls = 0;
        const auto select = [&] {
            if (calls++ == 0)
                stage.table->setSelectIndex(count);
        };
        if (signal == 0)
            connect(page, &QGraphicsObject::parentChanged, &stage.view, select);
        else
            connect(page, &QGraphicsObject::visibleChanged, &stage.view, select);
        stage.table->addItem(page);
        stage.pages.append(page);
        QVERIFY(calls > 0);
        QCOMPARE(page->boundingRect(), QRectF(0, 0, 440, 230));
        QCOMPARE(stage.whatIsWrong(count), QString());
    }

    void deletedWhileAdded_data()
    {
        QTest::addColumn<int>("signal");
        QTest::addColumn<int>("what");

        const char *const signalNames[] = {"gets its parent", "is hidden", "is shown again"};
        for (int i = 0; i < 3; ++i) {
            QTest::addRow("the page, when it %s", signalNames[i]) << i << 0;
            QTest::addRow("the table, when the page %s", signalNames[i]) << i << 1;
            QTest::addRow("the page is taken by another table, when it %s", signalNames[i])
                << i << 2;
        }
    }

    void deletedWhileAdded()
    {
        QFETCH(int, signal);
        QFETCH(int, what);
        PageStage stage(0);
        QVERIFY(stage.show());
        auto *other = new OpenTable(nullptr);
        stage.view.ownScene.addItem(other);
        const QPointer<KELNavigationTableItem> page(new KELNavigationTableItem(nullptr));
        int calls = 0;
        const auto act = [&] {
            ++calls;
            if (what == 0)
                delete page;
            else if (what == 1)
                delete stage.table;
            else
                other->addItem(page);
        };
        if (signal == 0) {
            connect(page, &QGraphicsObject::parentChanged, &stage.view, [&] {
                if (calls == 0)
                    act();
            });
        } else {
            int changes = 0;
            connect(page, &QGraphicsObject::visibleChanged, &stage.view, [&, changes]() mutable {
                if (++changes == signal && calls == 0)
                    act();
            });
        }
        stage.table->addItem(page);
        QCOMPARE(calls, 1);
        QCOMPARE(page.isNull(), what != 2);
        QCOMPARE(stage.table.isNull(), what == 1);
        if (what == 2) {
            QCOMPARE(page->parentItem(), other);
            QCOMPARE(other->selectItem(), page.data());
            QVERIFY(page->isVisible());
        }
        if (stage.table) {
            QCOMPARE(stage.table->selectIndex(), -1);
            QVERIFY(!stage.table->selectItem());
            stage.pages = {new KELNavigationTableItem(nullptr)};
            stage.table->addItem(stage.pages.first());
            QCOMPARE(stage.whatIsWrong(0), QString());
        }
        stage.view.grab();
    }

    void deletedInTheMiddleOfAdding_data()
    {
        QTest::addColumn<int>("signal");
        QTest::addColumn<bool>("deletesTable");
        QTest::addColumn<bool>("otherScene");

        const char *const signalNames[] = {
            "the table's children change", "the old parent's children change",
            "the page disappears with the table", "the page is disabled with the table"};
        for (int i = 0; i < 4; ++i) {
            for (const bool otherScene : {false, true}) {
                const char *const where = otherScene ? ", from another scene" : "";
                QTest::addRow("the table, when %s%s", signalNames[i], where)
                    << i << true << otherScene;
                QTest::addRow("the page, when %s%s", signalNames[i], where)
                    << i << false << otherScene;
            }
        }
    }

    void deletedInTheMiddleOfAdding()
    {
        QFETCH(int, signal);
        QFETCH(bool, deletesTable);
        QFETCH(bool, otherScene);
        PageStage stage(0);
        QVERIFY(stage.show());
        if (signal == 2)
            stage.table->hide();
        if (signal == 3)
            stage.table->setEnabled(false);
        QGraphicsScene elsewhere;
        auto *const oldParent = new KELRoundRectControl;
        (otherScene ? &elsewhere : &stage.view.ownScene)->addItem(oldParent);
        const QPointer<KELNavigationTableItem> page(new KELNavigationTableItem(oldParent));
        int calls = 0;
        const auto act = [&] {
            if (++calls > 1)
                return;
            if (deletesTable)
                delete stage.table;
            else
                delete page;
        };
        if (signal == 0)
            connect(stage.table, &QGraphicsObject::childrenChanged, &stage.view, act);
        else if (signal == 1)
            connect(oldParent, &QGraphicsObject::childrenChanged, &stage.view, act);
        else if (signal == 2)
            connect(page, &QGraphicsObject::visibleChanged, &stage.view, act);
        else
            connect(page, &QGraphicsObject::enabledChanged, &stage.view, act);
        stage.table->addItem(page);
        QVERIFY(calls > 0);
        QVERIFY(!page);
        QCOMPARE(stage.table.isNull(), deletesTable);
        if (stage.table) {
            stage.table->show();
            stage.table->setEnabled(true);
            QCOMPARE(stage.table->selectIndex(), -1);
            stage.pages = {new KELNavigationTableItem};
            stage.table->addItem(stage.pages.first());
            QCOMPARE(stage.whatIsWrong(0), QString());
        }
        stage.view.grab();
    }

    void addingIsReportedOnce()
    {
        KELRoundRectControl oldParent;
        KELNavigationTable table;
        auto *const page = new KELNavigationTableItem(&oldParent);
        const QSignalSpy lost(&oldParent, &QGraphicsObject::childrenChanged);
        const QSignalSpy got(&table, &QGraphicsObject::childrenChanged);
        const QSignalSpy parent(page, &QGraphicsObject::parentChanged);
        const QSignalSpy visible(page, &QGraphicsObject::visibleChanged);
        const QSignalSpy enabled(page, &QGraphicsObject::enabledChanged);
        QStringList seen;
        const QObject context;
        const auto note = [&](const char *name) {
            return [&, name] {
                if (page->parentItem() == &table)
                    seen.append(QLatin1String(name));
            };
        };
        connect(&oldParent, &QGraphicsObject::childrenChanged, &context, note("old"));
        connect(&table, &QGraphicsObject::childrenChanged, &context, note("new"));
        connect(page, &QGraphicsObject::parentChanged, &context, note("parent"));
        table.addItem(page);
        QCOMPARE(lost.count(), 1);
        QCOMPARE(got.count(), 1);
        QCOMPARE(parent.count(), 1);
        QCOMPARE(visible.count(), 2); // hidden as any page, and shown as the first
        QCOMPARE(enabled.count(), 0);
        QCOMPARE(seen, QStringList({u"old"_s, u"new"_s, u"parent"_s}));
        // A child that is made a page keeps its parent.
        table.addItem(new KELNavigationTableItem(&table));
        QCOMPARE(got.count(), 2); // of the constructor
    }

    void blockedSignalsStayBlocked()
    {
        KELNavigationTable table;
        auto *const page = new KELNavigationTableItem;
        const QSignalSpy got(&table, &QGraphicsObject::childrenChanged);
        const QSignalSpy parent(page, &QGraphicsObject::parentChanged);
        table.blockSignals(true);
        page->blockSignals(true);
        table.addItem(page);
        QCOMPARE(got.count(), 0);
        QCOMPARE(parent.count(), 0);
        QVERIFY(table.signalsBlocked());
        QVERIFY(page->signalsBlocked());
        table.blockSignals(false);
        page->blockSignals(false);
        table.addItem(new KELNavigationTableItem);
        QCOMPARE(got.count(), 1);
        QVERIFY(!table.signalsBlocked());
    }

    void addedAgainWhileAdded()
    {
        PageStage stage(1);
        QVERIFY(stage.show());
        stage.table->setEnabled(false);
        auto *const page = new KELNavigationTableItem;
        auto *const button = new KELPushButton(page);
        connect(button, &QGraphicsObject::enabledChanged, &stage.view,
                [&] { stage.table->addItem(page); });
        stage.table->addItem(page);
        stage.pages.append(page);
        QVERIFY(!button->isEnabled());
        stage.table->setEnabled(true);
        QCOMPARE(stage.whatIsWrong(0), QString());
        delete page; // which is shown by now
        QCOMPARE(stage.whatIsWrong(-1), QString());
    }

    void wrappedPageStays_data() { addWrappers(); }

    void wrappedPageStays()
    {
        QFETCH(Wrapper, wrapper);
        for (const int wrapped : {0, 1}) {
            PageStage stage(3);
            QVERIFY(stage.show());
            stage.pages.at(wrapped)->setParentItem(wrapIn(wrapper, stage.table).inner);
            QCOMPARE(stage.whatIsWrong(0), QString());
            stage.table->setSelectIndex(1);
            QCOMPARE(stage.whatIsWrong(1), QString());
            delete stage.pages.at(wrapped);
            QCOMPARE(stage.whatIsWrong(stage.alivePages().size() - 1), QString());
        }
    }

    void wrappedPageIsNotAddedAgain()
    {
        PageStage stage(2);
        QVERIFY(stage.show());
        QGraphicsItem *const wrapper = wrapIn(Wrapper::Object, stage.table).inner;
        stage.pages.at(1)->setParentItem(wrapper);
        stage.table->addItem(stage.pages.at(1));
        QCOMPARE(stage.pages.at(1)->parentItem(), wrapper);
        QCOMPARE(stage.whatIsWrong(0), QString());
    }

    void wrapperTakenAway_data()
    {
        QTest::addColumn<Wrapper>("wrapper");
        QTest::addColumn<int>("way");
        QTest::addColumn<int>("asked");

        const QPair<Wrapper, const char *> wrappers[] = {
            {Wrapper::Object, "an object"},
            {Wrapper::PlainItem, "a plain item"},
            {Wrapper::ObjectInPlainItem, "an object in a plain item"},
            {Wrapper::PlainItemInObject, "a plain item in an object"}};
        const char *const waysAway[] = {"without parent", "out of the scene", "to another parent"};
        const char *const asked[] = {"the index", "the page",  "a picture",
                                     "a press",   "to select", "to add"};
        for (const auto &wrapper : wrappers) {
            for (int i = 0; i < 3; ++i) {
                for (int j = 0; j < 6; ++j) {
                    QTest::addRow("%s, %s, asked for %s", wrapper.second, waysAway[i], asked[j])
                        << wrapper.first << i << j;
                }
            }
        }
    }

    void wrapperTakenAway()
    {
        QFETCH(Wrapper, wrapper);
        QFETCH(int, way);
        QFETCH(int, asked);
        KELRoundRectControl other;
        PageStage stage(3);
        QVERIFY(stage.show());
        stage.table->setSelectIndex(1);
        const Wrapping wrapping = wrapIn(wrapper, stage.table);
        stage.pages.at(1)->setParentItem(wrapping.inner);
        QCOMPARE(stage.whatIsWrong(1), QString());
        stage.table->setSelectIndex(1);
        QCoreApplication::processEvents();
        if (way == 0)
            wrapping.outer->setParentItem(nullptr);
        else if (way == 1)
            stage.view.ownScene.removeItem(wrapping.outer);
        else
            wrapping.outer->setParentItem(&other);
        const QPointer<KELNavigationTableItem> left = stage.pages.takeAt(1);
        if (asked == 0) {
            QCOMPARE(stage.table->selectIndex(), -1);
        } else if (asked == 1) {
            QVERIFY(!stage.table->selectItem());
        } else if (asked == 2) {
            // Two tabs of half the width.
            const QImage picture = KelImage::paint(stage.table, QSize(440, 310));
            KELNavigationTable expected;
            auto remaining = addPages(&expected, 3);
            expected.setSelectIndex(1);
            delete remaining.at(1);
            QCOMPARE(KelImage::difference(picture, KelImage::paint(&expected, QSize(440, 310))),
                     QString());
        } else if (asked == 3) {
            // Of two tabs the first, of three the one of the page that left.
            stage.table->pressAt(QPointF(200, 270));
            QCOMPARE(stage.table->selectItem(), stage.pages.at(0).data());
        } else if (asked == 4) {
            stage.table->setSelectIndex(2);
            QCOMPARE(stage.table->selectIndex(), -1);
        } else {
            stage.pages.append(new KELNavigationTableItem);
            stage.table->addItem(stage.pages.last());
            QCOMPARE(stage.table->selectItem(), stage.pages.last().data());
        }
        stage.table->setSelectIndex(0);
        QCOMPARE(stage.whatIsWrong(0), QString());
        delete stage.table;
        QVERIFY(left);
        if (way == 1)
            delete wrapping.outer;
    }

    void outerWrapperTakenAway()
    {
        PageStage stage(2);
        QVERIFY(stage.show());
        QGraphicsItem *const outer = wrapIn(Wrapper::Object, stage.table).outer;
        QGraphicsItem *const inner = wrapIn(Wrapper::Object, stage.table).outer;
        stage.pages.at(0)->setParentItem(inner);
        // The wrapper is wrapped after the page.
        inner->setParentItem(outer);
        QCOMPARE(stage.whatIsWrong(0), QString());
        stage.table->setSelectIndex(0);
        outer->setParentItem(nullptr);
        stage.pages.removeAt(0);
        QCOMPARE(stage.whatIsWrong(-1), QString());
    }

    void wrapperDeleted_data() { addWrappers(); }

    void wrapperDeleted()
    {
        QFETCH(Wrapper, wrapper);
        PageStage stage(3);
        QVERIFY(stage.show());
        const Wrapping wrapping = wrapIn(wrapper, stage.table);
        stage.pages.at(0)->setParentItem(wrapping.inner);
        delete wrapping.outer;
        QVERIFY(!stage.pages.at(0));
        QCOMPARE(stage.whatIsWrong(-1), QString());
    }

    void pageUnwrapped()
    {
        PageStage stage(3);
        QVERIFY(stage.show());
        const Wrapping wrapping = wrapIn(Wrapper::PlainItemInObject, stage.table);
        stage.pages.at(1)->setParentItem(wrapping.inner);
        stage.pages.at(1)->setParentItem(stage.table);
        // Neither of them has anything to do with the page any more.
        wrapping.outer->setParentItem(nullptr);
        delete wrapping.outer;
        QCOMPARE(stage.whatIsWrong(0), QString());
    }

    void pageOutOfAWrapperOutside()
    {
        PageStage stage(2);
        QVERIFY(stage.show());
        KELRoundRectControl outside;
        stage.table->setSelectIndex(1);
        const Wrapping wrapping = wrapIn(Wrapper::PlainItem, stage.table);
        stage.pages.at(1)->setParentItem(wrapping.inner);
        stage.pages.at(1)->setParentItem(&outside);
        stage.pages.removeAt(1);
        QCOMPARE(stage.whatIsWrong(-1), QString());
    }

    void tableDestroyedWithWrappedPages_data() { addWrappers(); }

    void tableDestroyedWithWrappedPages()
    {
        QFETCH(Wrapper, wrapper);
        PageStage stage(3);
        QVERIFY(stage.show());
        KELNavigationTable *const table = stage.table;
        stage.pages.at(0)->setParentItem(wrapIn(wrapper, table).inner);
        stage.pages.at(2)->setParentItem(wrapIn(wrapper, table).inner);
        QList<int> indexes;
        for (const QPointer<KELNavigationTableItem> &page : qAsConst(stage.pages)) {
            connect(page, &QObject::destroyed, table, [table, &indexes] {
                table->setSelectIndex(0);
                indexes.append(table->selectIndex());
            });
        }
        delete table;
        QCOMPARE(indexes.size(), 3);
        QVERIFY(stage.alivePages().isEmpty());
        QVERIFY(stage.view.ownScene.items().isEmpty());
    }

    void tableDestroyedAfterAWrapperLeft()
    {
        PageStage stage(2);
        QVERIFY(stage.show());
        const Wrapping wrapping = wrapIn(Wrapper::PlainItem, stage.table);
        stage.pages.at(1)->setParentItem(wrapping.inner);
        wrapping.outer->setParentItem(nullptr);
        // Nobody has asked the table meanwhile.
        delete stage.table;
        QVERIFY(!stage.pages.at(0));
        QVERIFY(stage.pages.at(1));
        delete stage.pages.at(1);
    }

    void wrapperOutlivesTheTable()
    {
        PageStage stage(2);
        QVERIFY(stage.show());
        const Wrapping wrapping = wrapIn(Wrapper::Object, stage.table);
        stage.pages.at(1)->setParentItem(wrapping.inner);
        // The slot runs while the pages of the table die.
        connect(stage.pages.at(0), &QObject::destroyed, &stage.view,
                [&] { wrapping.outer->setParentItem(nullptr); });
        delete stage.table;
        QVERIFY(stage.pages.at(1));
        delete wrapping.outer;
        QVERIFY(!stage.pages.at(1));
    }

    void pageWrappedInAPage()
    {
        PageStage stage(3);
        QVERIFY(stage.show());
        stage.pages.at(2)->setParentItem(stage.pages.at(1));
        QCOMPARE(stage.table->selectIndex(), 0);
        // It goes where the other goes.
        stage.pages.at(1)->setParentItem(nullptr);
        stage.pages.removeAt(1);
        stage.pages.removeAt(1);
        QCOMPARE(stage.whatIsWrong(0), QString());
    }

    void pageOfAnotherTable_data()
    {
        QTest::addColumn<int>("moved");
        QTest::addColumn<int>("leftIndex");

        QTest::newRow("its current page") << 1 << -1;
        QTest::newRow("a page before") << 0 << 0;
        QTest::newRow("a page behind") << 2 << 1;
    }

    void pageOfAnotherTable()
    {
        QFETCH(int, moved);
        QFETCH(int, leftIndex);
        for (const int existing : {0, 1}) {
            PageStage stage(3);
            stage.table->setSelectIndex(1);
            auto *other = new OpenTable(nullptr);
            other->setPos(0, 320);
            auto otherPages = addPages(other, existing);
            stage.view.ownScene.addItem(other);
            QVERIFY(stage.show());
            KELNavigationTableItem *page = stage.pages.takeAt(moved);
            other->addItem(page);
            otherPages.append(page);
            QCOMPARE(page->parentItem(), other);
            QCOMPARE(whatIsNotShown(other, otherPages, 0), QString());
            QCOMPARE(stage.whatIsWrong(leftIndex), QString());
            // It is a page of the other table alone.
            delete page;
            QCOMPARE(other->selectIndex(), existing == 0 ? -1 : 0);
            QCOMPARE(stage.whatIsWrong(1), QString());
        }
    }

    void pageOfAnotherScene()
    {
        KelTestView elsewhere;
        const QPointer<KELNavigationTableItem> page(new KELNavigationTableItem(nullptr));
        auto *button = new KELPushButton(page);
        button->setboundRect(50, 50, 100, 40);
        elsewhere.ownScene.addItem(page);
        QVERIFY(elsewhere.showAndWait());
        elsewhere.press(QPoint(200, 180)); // on the button
        PageStage stage(1);
        QVERIFY(stage.show());
        stage.table->addItem(page);
        stage.pages.append(page);
        QCOMPARE(page->scene(), &stage.view.ownScene);
        QVERIFY(elsewhere.ownScene.items().isEmpty());
        elsewhere.release(QPoint(200, 180));
        elsewhere.grab();
        stage.table->setSelectIndex(1);
        stage.view.grab();
        const QSignalSpy clicked(button, &KELPushButton::mouseClicked);
        stage.view.click(QPoint(100, 70));
        QCOMPARE(clicked.count(), 1);
        QCOMPARE(stage.whatIsWrong(1), QString());
    }

    void pageBetweenScenesAndTables()
    {
        PageStage first(2);
        PageStage second(1);
        QVERIFY(first.show());
        QVERIFY(second.show());
        second.pages.append(first.pages.takeFirst());
        second.table->addItem(second.pages.last());
        QCOMPARE(second.pages.last()->scene(), &second.view.ownScene);
        QCOMPARE(first.whatIsWrong(-1), QString());
        QCOMPARE(second.whatIsWrong(0), QString());
        // To a table that is in no scene.
        KELNavigationTable homeless(nullptr);
        homeless.addItem(second.pages.takeFirst());
        QVERIFY(!homeless.selectItem()->scene());
        QCOMPARE(second.whatIsWrong(0), QString());
    }

    void tableInAPage()
    {
        PageStage outer(2);
        auto *inner = new OpenTable(outer.pages.at(0));
        const auto innerPages = addPages(inner, 2);
        QVERIFY(outer.show());
        inner->addItem(outer.pages.at(0));
        QCOMPARE(outer.pages.at(0)->parentItem(), outer.table);
        QCOMPARE(whatIsNotShown(inner, innerPages, 0), QString());
        inner->addItem(outer.pages.at(1));
        QCOMPARE(outer.pages.at(1)->parentItem(), inner);
        outer.pages.removeAt(1);
        QCOMPARE(whatIsNotShown(inner, innerPages, 0), QString());
        QCOMPARE(outer.whatIsWrong(0), QString());
    }

    void tableDestroyedWithPages()
    {
        for (const int selected : {0, 2}) {
            PageStage stage(3);
            stage.table->setSelectIndex(selected);
            QVERIFY(stage.show());
            const QSignalSpy destroyed(stage.pages.at(0), &QObject::destroyed);
            delete stage.table;
            QCOMPARE(destroyed.count(), 1);
            QVERIFY(stage.alivePages().isEmpty());
            QVERIFY(stage.view.ownScene.items().isEmpty());
            stage.view.grab();
        }
    }

    void pageOutlivesItsTable()
    {
        for (const bool inScene : {false, true}) {
            PageStage stage(3);
            QVERIFY(stage.show());
            KELRoundRectControl parent(nullptr);
            KELNavigationTableItem *page = stage.pages.at(0);
            if (inScene)
                page->setParentItem(nullptr);
            else
                page->setParentItem(&parent);
            delete stage.table;
            QVERIFY(stage.pages.at(0));
            QVERIFY(!stage.pages.at(1));
            stage.view.grab();
            // It can be a page again.
            KELNavigationTable next(nullptr);
            next.addItem(page);
            QCOMPARE(next.selectItem(), page);
            delete page;
            QCOMPARE(next.selectIndex(), -1);
        }
        // Or just die.
        auto *table = new KELNavigationTable(nullptr);
        const std::unique_ptr<KELNavigationTableItem> page(new KELNavigationTableItem(nullptr));
        table->addItem(page.get());
        page->setParentItem(nullptr);
        delete table;
        QVERIFY(page);
    }

    void parentDestroyed()
    {
        auto *parent = new KELRoundRectControl(nullptr);
        auto *table = new KELNavigationTable(parent);
        const QPointer<KELNavigationTableItem> page(addPages(table, 3).first());
        delete parent;
        QVERIFY(!page);
    }

    void sceneCleared()
    {
        PageStage stage(3);
        auto *other = new OpenTable(nullptr);
        addPages(other, 2);
        stage.view.ownScene.addItem(other);
        // A page that left the table for the scene is cleared for itself, before the table or
        // after.
        stage.pages.at(0)->setParentItem(nullptr);
        QVERIFY(stage.show());
        stage.view.ownScene.clear();
        QVERIFY(!stage.table);
        QVERIFY(stage.alivePages().isEmpty());
        stage.view.grab();
    }

    void recordsAreFreed()
    {
        // The leak check of the sanitizers watches this one.
        KELNavigationTable table(nullptr);
        auto *style = static_cast<KELNavigationTableStyle *>(table.style());
        style->title = QString(300, QLatin1Char('t'));
        style->titleBackgroundBrush = QBrush(QPixmap(20, 20));
        style->titleForegroundBrush = QBrush(QPixmap(20, 20));
        auto *page = new KELNavigationTableItem(nullptr);
        page->setButtonBackground(QBrush(QPixmap(20, 20)));
        page->setButtonForeground(QBrush(QPixmap(20, 20)));
        page->initStyle();
        page->setButtonBackground(QBrush(QPixmap(20, 20)));
        table.addItem(page);
        table.initStyle();
        style = static_cast<KELNavigationTableStyle *>(table.style());
        style->title = QString(300, QLatin1Char('u'));
        QCOMPARE(table.selectItem(), page);
    }
};

KEL_TEST_MAIN(tst_KELNavigationTableLifetime)
#include "tst_kelnavigationtablelifetime.moc"
