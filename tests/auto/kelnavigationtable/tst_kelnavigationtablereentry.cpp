// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "tablestage.h"

namespace {

// The one of two pages whose visibility changes.
std::vector<Named> senders(int oldPage, int newPage)
{
    return {{"when the old page goes", oldPage}, {"when the new page comes", newPage}};
}

} // namespace

// Slots that are called while a table switches to another page or takes one in.
class tst_KELNavigationTableReentry : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void switchedTo_data() { addRows({{"way", switches}}); }

    // What a slot sees: first the old page goes, then the new one comes.
    void switchedTo()
    {
        TableStage stage(3);
        stage.settle();
        QStringList seen;
        for (const int i : {0, 2}) {
            stage.once(stage.pages.at(i), [&stage, &seen, i] {
                seen.append(u"page %1, visible %2, index %3"_s.arg(i)
                                .arg(stage.pages.at(i)->isVisible())
                                .arg(stage->selectIndex()));
            });
        }
        stage.switchTo(2, fetch<Switch>("way"));
        QCOMPARE(seen,
                 QStringList({u"page 0, visible 0, index 0"_s, u"page 2, visible 1, index 2"_s}));
        QCOMPARE(stage.whatIsWrong(2), QString());
    }

    void pageDeletedDuringASwitch_data()
    {
        addRows({{"deleted",
                  {{"one before", 0}, {"the old one", 1}, {"the new one", 2}, {"one behind", 3}}},
                 {"sender", senders(1, 2)},
                 {"way", switches}});
    }

    void pageDeletedDuringASwitch()
    {
        const int deleted = fetch<int>("deleted");
        const int sender = fetch<int>("sender");
        TableStage stage(4);
        stage->setSelectIndex(1);
        stage.settle();
        stage.once(stage.pages.at(sender), [&] { delete stage.pages.at(deleted); });
        stage.switchTo(2, fetch<Switch>("way"));
        QCOMPARE(stage.calls, 1);
        QVERIFY(!stage.pages.at(deleted));
        int selectedThen = deleted == 3 ? 2 : 1;
        if (deleted == 2)
            selectedThen = sender == 1 ? 1 : -1;
        QCOMPARE(stage.whatIsWrong(selectedThen), QString());
    }

    void tableDeletedDuringASwitch_data()
    {
        addRows({{"deletion", deletionWays}, {"sender", senders(0, 1)}, {"way", switches}});
    }

    void tableDeletedDuringASwitch()
    {
        TableStage stage(2);
        stage.settle();
        stage.once(stage.pages.at(fetch<int>("sender")),
                   [&] { stage.destroy(fetch<Way>("deletion")); });
        stage.switchTo(1, fetch<Switch>("way"));
        QCOMPARE(stage.calls, 1);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!stage.control);
        QVERIFY(stage.alivePages().isEmpty());
        QVERIFY(stage.nextControlIsClicked());
    }

    void nestedSelection_data()
    {
        addRows({{"nested", {{"the old page", 0}, {"the new page", 1}, {"another page", 2}}},
                 {"sender", senders(0, 1)},
                 {"way", switches}});
    }

    void nestedSelection()
    {
        const int nested = fetch<int>("nested");
        const int sender = fetch<int>("sender");
        TableStage stage(3);
        stage.settle();
        stage.once(stage.pages.at(sender), [&] { stage->setSelectIndex(nested); });
        stage.switchTo(1, fetch<Switch>("way"));
        QCOMPARE(stage.calls, 1);
        // The old page is still the current one when it goes.
        QCOMPARE(stage.whatIsWrong(nested == 0 && sender == 0 ? 1 : nested), QString());
    }

    void pageAddedDuringASwitch_data() { addRows({{"sender", senders(0, 1)}}); }

    void pageAddedDuringASwitch()
    {
        TableStage stage(2);
        stage.settle();
        stage.once(stage.pages.at(fetch<int>("sender")), [&] { stage.addPages(9); });
        stage->setSelectIndex(1);
        QCOMPARE(stage.calls, 1);
        QCOMPARE(stage.whatIsWrong(1), QString());
    }

    void newPageGoesWhenTheOldOneIsHidden_data() { addRows({{"exit", exits}, {"way", switches}}); }

    void newPageGoesWhenTheOldOneIsHidden()
    {
        TableStage stage(2);
        stage.settle();
        KELNavigationTable other;
        const QPointer<KELNavigationTableItem> page(stage.pages.at(1));
        stage.once(stage.pages.at(0), [&] {
            if (fetch<Exit>("exit") == Exit::ToAnotherParent)
                other.addItem(page);
            else
                takeAway(page, fetch<Exit>("exit"));
        });
        stage.switchTo(1, fetch<Switch>("way"));
        QCOMPARE(stage.calls, 1);
        stage.pages.removeAt(1);
        QCOMPARE(stage.whatIsWrong(0), QString());
        if (fetch<Exit>("exit") == Exit::ToAnotherParent) {
            QCOMPARE(other.selectItem(), page.data());
            QVERIFY(page->isVisible());
        }
        delete page;
    }

    void selectedWhileAdded_data()
    {
        addRows({{"signal", {{"when it gets its parent", 0}, {"when it is hidden", 1}}},
                 {"count", {{"0 before", 0}, {"1 before", 1}, {"3 before", 3}}}});
    }

    void selectedWhileAdded()
    {
        const int count = fetch<int>("count");
        TableStage stage(count);
        stage.settle();
        auto *const page = new KELNavigationTableItem;
        int calls = 0;
        const auto select = [&] {
            if (calls++ == 0)
                stage->setSelectIndex(count);
        };
        if (fetch<int>("signal") == 0)
            connect(page, &QGraphicsObject::parentChanged, &stage.view, select);
        else
            connect(page, &QGraphicsObject::visibleChanged, &stage.view, select);
        stage->addItem(page);
        stage.pages.append(page);
        QVERIFY(calls > 0);
        QCOMPARE(page->boundingRect(), QRectF(0, 0, 440, 230));
        QCOMPARE(stage.whatIsWrong(count), QString());
    }

    void deletedWhileAdded_data()
    {
        addRows(
            {{"what", {{"the page", 0}, {"the table", 1}, {"the page goes to another table", 2}}},
             {"signal",
              {{"when the table's children change", 0},
               {"when the old parent's children change", 1},
               {"when the page gets its parent", 2},
               {"when the page is hidden", 3},
               {"when the page is shown again", 4},
               {"when the page disappears with the table", 5},
               {"when the page is disabled with the table", 6}}},
             {"isElsewhere", {{"same scene", false}, {"from another scene", true}}}});
    }

    void deletedWhileAdded()
    {
        const int what = fetch<int>("what");
        const int signal = fetch<int>("signal");
        TableStage stage(0);
        stage.settle();
        stage->setVisible(signal != 5);
        stage->setEnabled(signal != 6);
        auto *const other = new KELNavigationTable;
        stage.view.ownScene.addItem(other);
        auto *const oldParent = new KELRoundRectControl;
        (fetch<bool>("isElsewhere") ? stage.otherScene : stage.view.ownScene).addItem(oldParent);
        const QPointer<KELNavigationTableItem> page(new KELNavigationTableItem(oldParent));
        int toCome = signal == 4 ? 2 : 1;
        const auto act = [&] {
            if (--toCome != 0)
                return;
            if (what == 0)
                delete page;
            else if (what == 1)
                delete stage.control;
            else
                other->addItem(page);
        };
        using Item = QGraphicsObject;
        if (signal < 2)
            connect(signal == 0 ? stage.control.data() : oldParent, &Item::childrenChanged,
                    &stage.view, act);
        else if (signal == 2)
            connect(page, &Item::parentChanged, &stage.view, act);
        else
            connect(page, signal == 6 ? &Item::enabledChanged : &Item::visibleChanged, &stage.view,
                    act);
        stage->addItem(page);
        QVERIFY(toCome <= 0);
        QCOMPARE(page.isNull(), what != 2);
        QCOMPARE(stage.control.isNull(), what == 1);
        if (what == 2) {
            QCOMPARE(page->parentItem(), other);
            QCOMPARE(other->selectItem(), page.data());
            QVERIFY(page->isVisible());
        }
        isUsable(&stage);
    }

    void addingIsReportedOnce()
    {
        KELRoundRectControl oldParent;
        KELNavigationTable table;
        auto *const page = new KELNavigationTableItem(&oldParent);
        QStringList seen;
        const QObject context;
        const auto note = [&](const char *name) {
            return [&, name] {
                seen.append(QLatin1String(name));
                if (page->parentItem() != &table)
                    seen.append(u"too early"_s);
            };
        };
        connect(&oldParent, &QGraphicsObject::childrenChanged, &context, note("old"));
        connect(&table, &QGraphicsObject::childrenChanged, &context, note("new"));
        connect(page, &QGraphicsObject::parentChanged, &context, note("parent"));
        connect(page, &QGraphicsObject::visibleChanged, &context, note("visible"));
        connect(page, &QGraphicsObject::enabledChanged, &context, note("enabled"));
        table.addItem(page);
        // Hidden as any page, and shown as the first.
        QCOMPARE(seen.join(QLatin1Char(' ')), u"old new parent visible visible"_s);
        seen.clear();
        // A child that is made a page keeps its parent.
        table.addItem(new KELNavigationTableItem(&table));
        QCOMPARE(seen.join(QLatin1Char(' ')), u"new"_s); // of the constructor
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
        TableStage stage(1);
        stage.settle();
        stage->setEnabled(false);
        auto *const page = new KELNavigationTableItem;
        auto *const button = new KELPushButton(page);
        connect(button, &QGraphicsObject::enabledChanged, &stage.view,
                [&] { stage->addItem(page); });
        stage->addItem(page);
        stage.pages.append(page);
        QVERIFY(!button->isEnabled());
        stage->setEnabled(true);
        QCOMPARE(stage.whatIsWrong(0), QString());
        delete page; // which is shown by now
        QCOMPARE(stage.whatIsWrong(-1), QString());
    }

private:
    // What is left takes a page.
    static void isUsable(TableStage *stage)
    {
        if (stage->control) {
            stage->get()->show();
            stage->get()->setEnabled(true);
            QCOMPARE(stage->get()->selectIndex(), -1);
            QVERIFY(!stage->get()->selectItem());
            stage->addPages(1);
            QCOMPARE(stage->whatIsWrong(0), QString());
        }
        stage->view.grab();
    }
};

KEL_TEST_MAIN(tst_KELNavigationTableReentry)
#include "tst_kelnavigationtablereentry.moc"
