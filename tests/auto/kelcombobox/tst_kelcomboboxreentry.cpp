// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "combostage.h"

#include <cmath>

namespace {

enum class End { Clear, DestroyBox, DeleteOne };
const std::vector<Named> ends = {{"cleared", int(End::Clear)},
                                 {"box destroyed", int(End::DestroyBox)},
                                 {"one deleted", int(End::DeleteOne)}};

// What a slot of the first of three entries does when the entry is destroyed.
struct Act
{
    const char *name;
    std::function<void(KELComboBox *, KELComboBoxItem *)> perform;
    bool isLastKept; // although the box does not show it
    QString afterClear;
    QString afterDeletion;
};

const std::vector<Act> acts = {
    {"adds", [](KELComboBox *box, KELComboBoxItem *) { addEntries(box, {u"new"_s}); }, false,
     u"new; -1, ; closed; 30 px"_s, u"two three new; -1, ; closed; 90 px"_s},
    {"removes", [](KELComboBox *box, KELComboBoxItem *last) { box->removeItem(last); }, true,
     u"; -1, ; closed; 5 px"_s, u"two; -1, ; closed; 30 px"_s},
    {"clears", [](KELComboBox *box, KELComboBoxItem *) { box->clearItem(); }, false,
     u"; -1, ; closed; 5 px"_s, u"; -1, ; closed; 5 px"_s}};

const std::vector<Named> moments = {{"shown or hidden", 0}, {"raised or lowered", 1}};

// A raised box has a z-value of 1, and gets back its own one cut to a whole number.
constexpr qreal zValues[] = {0, 5, 5.7};
const std::vector<Named> zValueNames = {{"z 0", 0}, {"z 5", 1}, {"z 5.7", 2}};

qreal fetchZ()
{
    return zValues[fetch<int>("z")];
}

} // namespace

// Slots that are called while a combo box opens, closes, selects or loses entries.
class tst_KELComboBoxReentry : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void slotOfDestroyedChangesTheEntries_data()
    {
        addRows({{"act", namesOf(acts)}, {"end", ends}});
    }

    void slotOfDestroyedChangesTheEntries()
    {
        const Act &act = acts[fetch<size_t>("act")];
        ComboStage stage;
        int calls = 0;
        const QPointer<KELComboBoxItem> last(stage.entry(2));
        connect(stage.entry(0), &QObject::destroyed, this, [&, box = stage.get()] {
            ++calls;
            act.perform(box, last);
        });
        endEntries(&stage);
        QCOMPARE(calls, 1);
        if (!stage.control) {
            QVERIFY(!last);
            return;
        }
        const QString summary = stage.summary();
        QCOMPARE(summary, fetch<End>("end") == End::Clear ? act.afterClear : act.afterDeletion);
        QCOMPARE(bool(last), act.isLastKept || summary.contains(u"three"_s));
    }

    void slotOfDestroyedFillsAnew_data()
    {
        addRows(
            {{"before", {{"others deleted first", 0}, {"cleared first", 1}, {"one of each", 2}}},
             {"isOpen", closedOrOpen}});
    }

    void slotOfDestroyedFillsAnew()
    {
        ComboStage stage;
        KELComboBox *const box = stage.get();
        if (fetch<bool>("isOpen"))
            clickButton(*box);
        const QPointer<KELComboBoxItem> second(stage.entry(1));
        const QPointer<KELComboBoxItem> third(stage.entry(2));
        int calls = 0;
        connect(stage.entry(0), &QObject::destroyed, this, [&] {
            ++calls;
            addEntries(box, {u"too early"_s});
            KELComboBoxItem *const early = box->items().last();
            switch (fetch<int>("before")) {
            case 0:
                delete second;
                delete third;
                delete early;
                break;
            case 1:
                box->clearItem();
                break;
            default:
                box->removeItem(early);
                delete third;
            }
            addEntries(box, {u"new"_s, u"newer"_s});
            box->setSelectIndex(box->items().size() - 1);
        });
        box->clearItem();
        QCOMPARE(calls, 1);
        QVERIFY(!second && !third);
        QCOMPARE(stage.summary(), u"new newer; 1, newer; closed; 60 px"_s);
    }

    void slotOfDestroyedDeletesTheBox()
    {
        ComboStage stage;
        const QPointer<KELComboBoxItem> last(stage.entry(2));
        connect(stage.entry(0), &QObject::destroyed, this, [&] { delete stage.control; });
        stage->clearItem();
        QVERIFY(!stage.control);
        QVERIFY(!last);
    }

    void slotOfDestroyedSelects()
    {
        auto box = makeBox();
        box->setSelectIndex(2);
        QList<int> seen;
        const auto look = [&seen, target = box.get()] {
            seen.append(target->selectIndex());
            target->setSelectIndex(0);
            seen.append(target->selectIndex());
            if (KELComboBoxItem *const selected = target->selectedItem())
                selected->setValue(1);
        };
        connect(box->items().at(0), &QObject::destroyed, this, look);
        delete box->items().at(0);
        QCOMPARE(seen, QList<int>({1, 0}));
        seen.clear();
        connect(box->items().at(0), &QObject::destroyed, this, look);
        box.reset();
        QCOMPARE(seen, QList<int>({-1, 0}));
    }

    void slotOfSelectionClears()
    {
        ComboStage stage;
        stage.log.on(u"selectItemChanged"_s, [&] { stage->clearItem(); });
        stage.open();
        stage.hand.tap(stage.entryCentre(1));
        QCOMPARE(stage.summary(), u"; -1, ; closed; 5 px"_s);
        QVERIFY(stage.nextBoxWorks());
    }

    void slotOfSelectionSelects()
    {
        ComboStage stage;
        clickButton(*stage);
        QList<int> told;
        stage.log.on(u"selectItemChanged"_s, [&] {
            told.append(stage->selectIndex());
            stage->setSelectIndex(2);
        });
        stage->setSelectIndex(0);
        QCOMPARE(told, QList<int>({0, 2}));
        QCOMPARE(stage.summary(), u"one two three; 2, three; closed; 90 px"_s);
    }

    void nestedSelectionWins_data()
    {
        addRows({{"moment", moments},
                 {"nested", {{"another index", 2}, {"the same index", 1}, {"cleared", -1}}}});
    }

    void nestedSelectionWins()
    {
        const int nested = fetch<int>("nested");
        ComboStage stage;
        stage->setZValue(5);
        clickButton(*stage);
        QList<int> told;
        stage.log.on(u"selectItemChanged"_s, [&] { told.append(stage->selectIndex()); });
        atMoment(stage, [&] {
            if (nested < 0)
                stage->clearItem();
            else
                stage->setSelectIndex(nested);
        });
        stage->setSelectIndex(1);
        QCOMPARE(stage->selectIndex(), nested);
        QCOMPARE(stage.shownText(), nested < 0 ? QString() : threeTexts.at(nested));
        QCOMPARE(told, nested < 0 ? QList<int>() : QList<int>({nested}));
        isClosedAt(stage, 5);
    }

    void repeatedNestedSelectionIsToldOnce()
    {
        ComboStage stage;
        clickButton(*stage);
        QList<int> told;
        stage.log.on(u"selectItemChanged"_s, [&] { told.append(stage->selectIndex()); });
        connect(stage.parts.panel, &QGraphicsObject::visibleChanged, this, [&] {
            stage->setSelectIndex(0);
            stage->setSelectIndex(2);
        });
        stage->setSelectIndex(2);
        QCOMPARE(told, QList<int>({0, 2}));
        QCOMPARE(stage.summary(), u"one two three; 2, three; closed; 90 px"_s);
    }

    void entryGoneWhileClosing_data()
    {
        // A bit for each place of the four.
        addRows({{"gone",
                  {{"an earlier one", 0b0001},
                   {"both earlier ones", 0b0011},
                   {"a later one", 0b1000},
                   {"the chosen one", 0b0100},
                   {"the chosen one and an earlier one", 0b0101},
                   {"all", 0b1111}}},
                 {"isDeleted", {{"removed", false}, {"deleted", true}}},
                 {"moment", moments}});
    }

    // The third of four entries is chosen.
    void entryGoneWhileClosing()
    {
        const int gone = fetch<int>("gone");
        ComboStage stage;
        addEntries(stage.get(), {u"four"_s});
        stage->setSelectIndex(1);
        clickButton(*stage);
        QStringList told;
        stage.log.on(u"selectItemChanged"_s,
                     [&] { told.append(stage->selectedItem()->display()); });
        const QList<KELComboBoxItem *> entries = stage->items();
        int calls = 0;
        atMoment(stage, [&] {
            if (calls++ > 0)
                return;
            for (int place = 3; place >= 0; --place) {
                if ((gone & 1 << place) == 0)
                    continue;
                if (fetch<bool>("isDeleted"))
                    delete entries.at(place);
                else
                    stage->removeItem(entries.at(place));
            }
        });
        stage->setSelectIndex(2);
        QCOMPARE(calls, 1);
        const bool isChosenGone = (gone & 0b0100) != 0;
        const QString text = isChosenGone ? QString() : u"three"_s;
        QCOMPARE(stage->items().size(), 4 - int(qPopulationCount(uint(gone))));
        QCOMPARE(stage->selectIndex(),
                 isChosenGone ? -1 : 2 - int(qPopulationCount(uint(gone & 0b0011))));
        QCOMPARE(stage->selectedItem(), isChosenGone ? nullptr : entries.at(2));
        QCOMPARE(stage.shownText(), text);
        QCOMPARE(told.join(QLatin1Char(' ')), text);
        QCOMPARE(stage.state(), u"closed"_s);
    }

    void reopenedWhileClosing_data() { addRows({{"way", closings}, {"z", zValueNames}}); }

    void reopenedWhileClosing()
    {
        const auto way = fetch<Closing>("way");
        ComboStage stage;
        stage->setZValue(fetchZ());
        stage.open();
        const auto reopen = connect(stage.parts.panel, &QGraphicsObject::visibleChanged, this, [&] {
            if (!stage.parts.panel->isVisible())
                clickButton(*stage);
        });
        stage.close(way);
        QCOMPARE(stage.state(), u"open"_s);
        QVERIFY(applicationFilters.count() > 1);
        QCOMPARE(stage->selectIndex(), way == Closing::ByAPick ? 1 : -1);
        disconnect(reopen);
        clickButton(*stage);
        isClosedAt(stage, std::trunc(fetchZ()));
    }

    void closedWhileOpening_data()
    {
        addRows({{"moment", moments},
                 {"isPick", {{"by the button", false}, {"by a selection", true}}},
                 {"z", zValueNames}});
    }

    void closedWhileOpening()
    {
        const bool isRaised = fetch<int>("moment") == 1;
        ComboStage stage;
        stage->setZValue(fetchZ());
        atMoment(stage, [&] {
            if (!stage.parts.panel->isVisible() || (isRaised && stage->zValue() != 1))
                return;
            if (fetch<bool>("isPick"))
                stage->setSelectIndex(1);
            else
                clickButton(*stage);
        });
        clickButton(*stage);
        QCOMPARE(stage->selectIndex(), fetch<bool>("isPick") ? 1 : -1);
        // A list that was not raised yet leaves the z-value as it is, with its fraction.
        isClosedAt(stage, isRaised ? std::trunc(fetchZ()) : fetchZ());
    }

    void closedByAnEntryThatIsShown_data() { addRows({{"z", zValueNames}}); }

    // An entry is shown before the list that it is in.
    void closedByAnEntryThatIsShown()
    {
        ComboStage stage;
        stage->setZValue(fetchZ());
        const auto select = connect(stage.entry(0), &QGraphicsObject::visibleChanged, this,
                                    [&] { stage->setSelectIndex(0); });
        clickButton(*stage);
        QCOMPARE(stage->selectIndex(), 0);
        isClosedAt(stage, fetchZ());
        disconnect(select);
        clickButton(*stage);
        QCOMPARE(stage.state(), u"open"_s);
        clickButton(*stage);
        QCOMPARE(stage->zValue(), std::trunc(fetchZ()));
    }

    void reopenedWhileOpening_data() { addRows({{"moment", moments}, {"z", zValueNames}}); }

    void reopenedWhileOpening()
    {
        ComboStage stage;
        stage->setZValue(fetchZ());
        int calls = 0;
        atMoment(stage, [&] {
            if (calls++ > 0)
                return;
            clickButton(*stage);
            clickButton(*stage);
        });
        clickButton(*stage);
        QVERIFY(calls > 0);
        QCOMPARE(stage.state(), u"open"_s);
        clickButton(*stage);
        isClosedAt(stage, std::trunc(fetchZ()));
    }

private:
    static void endEntries(ComboStage *stage)
    {
        switch (fetch<End>("end")) {
        case End::Clear:
            stage->get()->clearItem();
            break;
        case End::DestroyBox:
            delete stage->control;
            break;
        case End::DeleteOne:
            delete stage->entry(0);
        }
    }

    void atMoment(const ComboStage &stage, const std::function<void()> &slot)
    {
        if (fetch<int>("moment") == 0)
            connect(stage.parts.panel, &QGraphicsObject::visibleChanged, this, slot);
        else
            connect(stage.get(), &QGraphicsObject::zChanged, this, slot);
    }

    // When it fails, the test goes on.
    static void isClosedAt(const ComboStage &stage, qreal z)
    {
        QCOMPARE(stage.state(), u"closed"_s);
        QCOMPARE(stage->zValue(), z);
        QCOMPARE(applicationFilters.count(), 1);
        QCOMPARE(applicationFilters.listening(), 0);
    }
};

KEL_TEST_MAIN(tst_KELComboBoxReentry)
#include "tst_kelcomboboxreentry.moc"
