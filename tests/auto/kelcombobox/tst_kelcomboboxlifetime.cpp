// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "combostage.h"

#include <cmath>
#include <functional>
#include <memory>

namespace {

enum class Signal { Press, Release, Clicked };
const Named entrySignals[] = {{"press", int(Signal::Press)},
                              {"release", int(Signal::Release)},
                              {"clicked", int(Signal::Clicked)}};

enum class Victim { Itself, Earlier, Later, All, Box };
const Named victims[] = {{"itself", int(Victim::Itself)},
                         {"an earlier one", int(Victim::Earlier)},
                         {"a later one", int(Victim::Later)},
                         {"all", int(Victim::All)},
                         {"the combo box", int(Victim::Box)}};

void connectTo(KELRoundRectControl *control, int signal, QObject *context,
               const std::function<void()> &slot)
{
    if (Signal(signal) == Signal::Press)
        QObject::connect(control, &KELRoundRectControl::mousePress, context, slot);
    else if (Signal(signal) == Signal::Release)
        QObject::connect(control, &KELRoundRectControl::mouseRelease, context, slot);
    else
        QObject::connect(control, &KELRoundRectControl::mouseClicked, context, slot);
}

// A new combo box in the place of the old one can be opened and used: nobody remembers the dead
// ones.
bool nextBoxWorks(ComboStage *stage, Input input)
{
    QCoreApplication::processEvents();
    auto *next = new KELComboBox;
    next->setboundRect(210, 20, 160, 40);
    addEntries(next, threeTexts);
    stage->view.ownScene.addItem(next);
    const QPoint far(390, 290);
    stage->tap(input, far);
    stage->tap(input, QPoint(290, 40));
    const bool opened = listState(*next) == QLatin1String("open");
    stage->tap(input, QPoint(290, 104));
    const bool picked = next->selectIndex() == 1 && listState(*next) == QLatin1String("closed");
    shownPicture(stage->view);
    delete next;
    return opened && picked;
}

// A combo box, open in a scene without a view.
struct BareStage
{
    BareStage() : box(new KELComboBox)
    {
        box->setboundRect(20, 20, 160, 40);
        addEntries(box, threeTexts);
        scene.addItem(box);
    }

    QGraphicsScene scene;
    const QPointer<KELComboBox> box;
};

} // namespace

namespace {

enum class End { Clear, DestroyBox, DeleteOne };
const Named ends[] = {{"cleared", int(End::Clear)},
                      {"box destroyed", int(End::DestroyBox)},
                      {"one deleted", int(End::DeleteOne)}};

void addEnds()
{
    QTest::addColumn<int>("way");
    for (const Named &way : ends)
        QTest::newRow(way.name) << way.value;
}

void endEntries(KELComboBox *box, int way)
{
    if (End(way) == End::Clear)
        box->clearItem();
    else if (End(way) == End::DestroyBox)
        delete box;
    else
        delete box->items().first();
}

} // namespace

class tst_KELComboBoxLifetime : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void deletedInASlotOfAnEntry_data()
    {
        QTest::addColumn<int>("input");
        QTest::addColumn<int>("signal");
        QTest::addColumn<int>("victim");
        QTest::addColumn<bool>("later");
        for (const Named &input : inputs) {
            for (const Named &signal : entrySignals) {
                for (const Named &victim : victims) {
                    for (const bool later : {false, true})
                        QTest::addRow("%s by %s, %s, %s", signal.name, input.name, victim.name,
                                      later ? "later" : "at once")
                            << input.value << signal.value << victim.value << later;
                }
            }
        }
    }

    void deletedInASlotOfAnEntry()
    {
        QFETCH(int, input);
        QFETCH(int, signal);
        QFETCH(int, victim);
        QFETCH(bool, later);
        const NotifierCensus census;
        ComboStage stage;
        QVERIFY(stage.show());
        stage.open(Input(input));
        const QPoint pos = stage.entryCentre(1);
        const QPointer<KELComboBoxItem> first(stage.box->items().at(0));
        const QPointer<KELComboBoxItem> second(stage.box->items().at(1));
        const QPointer<KELComboBoxItem> third(stage.box->items().at(2));
        const auto end = [later](QObject *object) {
            if (later)
                object->deleteLater();
            else
                delete object;
        };
        int calls = 0;
        connectTo(second, signal, &stage.view, [&] {
            ++calls;
            if (Victim(victim) == Victim::Box)
                end(stage.box);
            for (const QPointer<KELComboBoxItem> &entry : {second, first, third}) {
                const bool isMeant = Victim(victim) == Victim::All
                    || (Victim(victim) == Victim::Itself && entry == second)
                    || (Victim(victim) == Victim::Earlier && entry == first)
                    || (Victim(victim) == Victim::Later && entry == third);
                if (entry && isMeant)
                    end(entry);
            }
        });
        stage.tap(Input(input), pos);
        QCOMPARE(calls, 1);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        const bool boxIsGone = Victim(victim) == Victim::Box;
        const bool allGone = Victim(victim) == Victim::All || boxIsGone;
        QCOMPARE(stage.box.isNull(), boxIsGone);
        QCOMPARE(second.isNull(), allGone || Victim(victim) == Victim::Itself);
        QCOMPARE(first.isNull(), allGone || Victim(victim) == Victim::Earlier);
        QCOMPARE(third.isNull(), allGone || Victim(victim) == Victim::Later);
        if (stage.box) {
            QCOMPARE(stage.box->items().contains(second), !second.isNull());
            if (!second.isNull())
                QCOMPARE(stage.box->selectedItem(), second.data());
            else
                QCOMPARE(stage.box->selectIndex(), -1);
        }
        QVERIFY(nextBoxWorks(&stage, Input(input)));
        delete stage.box;
        QCOMPARE(census.all().size(), 0);
    }

    void boxDeletedInASlotOfItsButton_data()
    {
        QTest::addColumn<int>("input");
        QTest::addColumn<int>("signal");
        QTest::addColumn<int>("tap");
        for (const Named &input : inputs) {
            for (const Named &signal : entrySignals) {
                QTest::addRow("%s by %s, opening", signal.name, input.name)
                    << input.value << signal.value << 1;
                QTest::addRow("%s by %s, closing", signal.name, input.name)
                    << input.value << signal.value << 2;
            }
        }
    }

    void boxDeletedInASlotOfItsButton()
    {
        QFETCH(int, input);
        QFETCH(int, signal);
        QFETCH(int, tap);
        const NotifierCensus census;
        ComboStage stage;
        QVERIFY(stage.show());
        const QPoint pos = stage.buttonCentre();
        int calls = 0;
        connectTo(ComboParts(*stage.box).button, signal, &stage.view, [&] {
            if (++calls == tap)
                delete stage.box;
        });
        for (int n = 0; n < tap; ++n)
            stage.tap(Input(input), pos);
        QVERIFY(!stage.box);
        QCOMPARE(census.all().size(), 0);
        QVERIFY(nextBoxWorks(&stage, Input(input)));
    }

    void boxDeletedWhenSelected_data()
    {
        QTest::addColumn<int>("way");
        const Named ways[] = {{"by a tap", 0}, {"by a call while open", 1}, {"by a call", 2}};
        for (const Named &way : ways)
            QTest::newRow(way.name) << way.value;
    }

    void boxDeletedWhenSelected()
    {
        QFETCH(int, way);
        const NotifierCensus census;
        ComboStage stage;
        QVERIFY(stage.show());
        connect(stage.box, &KELComboBox::selectItemChanged, &stage.view, [&] { delete stage.box; });
        if (way != 2)
            stage.open();
        if (way == 0)
            stage.tap(Input::Touch, stage.entryCentre(1));
        else
            stage.box->setSelectIndex(1);
        QVERIFY(!stage.box);
        QCOMPARE(census.all().size(), 0);
        QVERIFY(nextBoxWorks(&stage, Input::Touch));
    }

    void boxDeletedWhenTheListIsShownOrHidden_data()
    {
        QTest::addColumn<int>("change");
        QTest::addColumn<int>("way");
        QTest::newRow("opening") << 1 << 0;
        QTest::newRow("closing by the button") << 2 << 0;
        QTest::newRow("closing by a selection") << 2 << 1;
        QTest::newRow("closing by a press outside") << 2 << 2;
        QTest::newRow("closing by a scene press") << 2 << 3;
    }

    void boxDeletedWhenTheListIsShownOrHidden()
    {
        QFETCH(int, change);
        QFETCH(int, way);
        const NotifierCensus census;
        ComboStage stage;
        QVERIFY(stage.show());
        const QSignalSpy changed(stage.box, &KELComboBox::selectItemChanged);
        int changes = 0;
        connect(ComboParts(*stage.box).panel, &QGraphicsObject::visibleChanged, &stage.view, [&] {
            if (++changes == change)
                delete stage.box;
        });
        stage.open();
        if (change == 2) {
            QVERIFY(stage.box);
            if (way == 0) {
                stage.open();
            } else if (way == 1) {
                stage.tap(Input::Mouse, stage.entryCentre(1));
            } else if (way == 2) {
                stage.tap(Input::Mouse, QPoint(390, 290));
            } else {
                QGraphicsSceneMouseEvent press(QEvent::GraphicsSceneMousePress);
                QObject target;
                QCoreApplication::sendEvent(&target, &press);
            }
        }
        QVERIFY(!stage.box);
        QCOMPARE(changed.count(), 0);
        QCOMPARE(census.all().size(), 0);
        QVERIFY(nextBoxWorks(&stage, Input::Mouse));
    }

    void boxDeletedWhenRaised_data()
    {
        QTest::addColumn<int>("change");
        QTest::addColumn<bool>("bySelection");
        QTest::newRow("raised") << 1 << false;
        QTest::newRow("lowered by the button") << 2 << false;
        QTest::newRow("lowered by a selection") << 2 << true;
    }

    void boxDeletedWhenRaised()
    {
        QFETCH(int, change);
        QFETCH(bool, bySelection);
        const NotifierCensus census;
        ComboStage stage;
        QVERIFY(stage.show());
        int changes = 0;
        connect(stage.box, &QGraphicsObject::zChanged, &stage.view, [&] {
            if (++changes == change)
                delete stage.box;
        });
        stage.open();
        if (change == 2)
            stage.tap(Input::Mouse, bySelection ? stage.entryCentre(0) : stage.buttonCentre());
        QVERIFY(!stage.box);
        QCOMPARE(census.all().size(), 0);
        QVERIFY(nextBoxWorks(&stage, Input::Mouse));
    }

    void boxDeletedWhenDisabled()
    {
        const NotifierCensus census;
        ComboStage stage;
        QVERIFY(stage.show());
        stage.open();
        connect(stage.box, &QGraphicsObject::enabledChanged, &stage.view,
                [&] { delete stage.box; });
        stage.box->setEnabled(false);
        QVERIFY(!stage.box);
        QCOMPARE(census.all().size(), 0);
        QVERIFY(nextBoxWorks(&stage, Input::Mouse));
    }

    void boxDeletedByAPressOutside_data()
    {
        QTest::addColumn<int>("input");
        for (const Named &input : inputs)
            QTest::newRow(input.name) << input.value;
    }

    void boxDeletedByAPressOutside()
    {
        QFETCH(int, input);
        const NotifierCensus census;
        ComboStage stage;
        auto *killer = new KELPushButton;
        killer->setboundRect(300, 200, 80, 60);
        stage.view.ownScene.addItem(killer);
        QVERIFY(stage.show());
        connect(killer, &KELPushButton::mousePress, &stage.view, [&] { delete stage.box; });
        stage.open(Input(input));
        stage.tap(Input(input), QPoint(340, 230));
        QVERIFY(!stage.box);
        QCOMPARE(census.all().size(), 0);
        QVERIFY(nextBoxWorks(&stage, Input(input)));
    }

    void destroyedWithOpenList_data()
    {
        QTest::addColumn<int>("way");
        const Named ways[] = {{"box deleted", 0},
                              {"box deleted later", 1},
                              {"scene cleared", 2},
                              {"scene and view deleted", 3},
                              {"taken out of the scene", 4},
                              {"parent deleted", 5}};
        for (const Named &way : ways)
            QTest::newRow(way.name) << way.value;
    }

    void destroyedWithOpenList()
    {
        QFETCH(int, way);
        const NotifierCensus census;
        auto stage = std::make_unique<ComboStage>();
        auto *parent = new KELLabel;
        stage->view.ownScene.addItem(parent);
        QVERIFY(stage->show());
        const QPointer<KELComboBox> box(stage->box);
        if (way == 5) {
            parent->setboundRect(0, 0, 300, 290);
            box->setParentItem(parent);
        }
        stage->open();
        QVERIFY(census.all().size() > 1);
        if (way == 0) {
            delete box;
        } else if (way == 1) {
            box->deleteLater();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        } else if (way == 2) {
            stage->view.ownScene.clear();
        } else if (way == 3) {
            stage.reset();
        } else if (way == 4) {
            stage->view.ownScene.removeItem(box);
            stage->tap(Input::Mouse, QPoint(390, 290)); // a press while it is in no scene
            QVERIFY(box);
            delete box;
        } else {
            delete parent;
        }
        QVERIFY(!box);
        QCOMPARE(census.all().size(), 0);
        if (stage)
            QVERIFY(nextBoxWorks(stage.get(), Input::Mouse));
    }

    void destroyedBoxEmitsNothing()
    {
        auto box = std::make_unique<KELComboBox>();
        addEntries(box.get(), threeTexts);
        box->setSelectIndex(1);
        clickButton(*box);
        const QSignalSpy changed(box.get(), &KELComboBox::selectItemChanged);
        const QSignalSpy raised(box.get(), &QGraphicsObject::zChanged);
        box.reset();
        QCOMPARE(changed.count(), 0);
        QCOMPARE(raised.count(), 0);
    }

    // A press that comes while the parts die must not reach the box either.
    void dyingBoxIsNotOpenedAgain()
    {
        const NotifierCensus census;
        BareStage stage;
        const ComboParts parts(*stage.box);
        QStringList seen;
        connect(stage.box->items().first(), &QObject::destroyed, this, [&] {
            Q_EMIT parts.button->mouseClicked();
            seen.append(parts.panel->isVisible() ? u"open"_s : u"closed"_s);
            seen.append(parts.arrow->text());
        });
        connect(parts.button, &QObject::destroyed, this, [&] {
            seen.append(QString::number(census.listening()));
            QGraphicsSceneMouseEvent press(QEvent::GraphicsSceneMousePress);
            press.setPos(QPointF(390, 290));
            QObject target;
            QCoreApplication::sendEvent(&target, &press);
        });
        delete stage.box;
        QCOMPARE(seen, QStringList({u"closed"_s, downArrow, u"0"_s}));
        QCOMPARE(census.all().size(), 0);
    }

    void entriesDieWithTheBox()
    {
        BareStage stage;
        QStringList deleted;
        const QList<KELComboBoxItem *> items = stage.box->items();
        for (KELComboBoxItem *item : items) {
            const QString text = item->display();
            connect(item, &QObject::destroyed, this, [&deleted, text] { deleted.append(text); });
        }
        const ComboParts parts(*stage.box);
        connect(parts.panel, &QObject::destroyed, this, [&] { deleted.append(u"list"_s); });
        delete stage.box;
        QCOMPARE(deleted.join(QLatin1Char(' ')), u"one two three list"_s);
        QVERIFY(!parts.button && !parts.text && !parts.arrow && !parts.panel && !parts.notify);
    }

    void removedEntryDiesWithTheBox()
    {
        BareStage stage;
        const QPointer<KELComboBoxItem> entry(stage.box->items().at(1));
        stage.box->removeItem(entry);
        delete stage.box;
        QVERIFY(!entry);
    }

    // A slot that is called with the box asks it as a combo box, not as what is left of one.
    void dyingRemovedEntryStillSeesTheBox()
    {
        BareStage stage;
        KELComboBox *const box = stage.box;
        const QPointer<KELComboBoxItem> entry(box->items().at(1));
        box->setSelectIndex(2);
        box->removeItem(entry);
        QStringList seen;
        connect(entry, &QObject::destroyed, box, [box, &seen] {
            const QString type = QString::fromLatin1(box->metaObject()->className());
            if (type == QLatin1String("KELComboBox"))
                seen.append(textsOf(*box) << QString::number(box->selectIndex()));
            seen.append(type);
        });
        delete box;
        QVERIFY(!entry);
        QCOMPARE(seen, QStringList({u"-1"_s, u"KELComboBox"_s}));
    }

    void removedEntryOutlivesTheBox()
    {
        ComboStage stage;
        const QPointer<KELComboBoxItem> entry(stage.box->items().at(1));
        stage.box->removeItem(entry);
        entry->setParentItem(nullptr);
        entry->setboundRect(20, 200, 100, 30);
        delete stage.box;
        QVERIFY(entry);
        QVERIFY(stage.show());
        const QSignalSpy clicked(entry, &KELComboBoxItem::mouseClicked);
        stage.tap(Input::Mouse, QPoint(70, 215));
        QCOMPARE(clicked.count(), 1);
        entry->setDisplay(u"alone"_s);
        QCOMPARE(entry->display(), u"alone"_s);
        QVERIFY(nextBoxWorks(&stage, Input::Mouse));
        delete entry;
    }

    void entryWithAnotherParentDiesWithTheBox()
    {
        BareStage stage;
        auto *const shelf = new KELLabel;
        stage.scene.addItem(shelf);
        const QPointer<KELComboBoxItem> entry(stage.box->items().at(1));
        entry->setParentItem(shelf);
        QCOMPARE(stage.box->items().size(), 3);
        delete stage.box;
        QVERIFY(!entry);
        QVERIFY(shelf->childItems().isEmpty());
    }

    void entryDeletedFromOutside_data()
    {
        QTest::addColumn<int>("input");
        QTest::addColumn<bool>("whilePressed");
        for (const Named &input : inputs) {
            QTest::addRow("%s, shown", input.name) << input.value << false;
            QTest::addRow("%s, pressed", input.name) << input.value << true;
        }
    }

    void entryDeletedFromOutside()
    {
        QFETCH(int, input);
        QFETCH(bool, whilePressed);
        ComboStage stage;
        stage.box->setSelectIndex(1);
        QVERIFY(stage.show());
        stage.open(Input(input));
        const QPoint pos = stage.entryCentre(1);
        if (whilePressed)
            stage.press(Input(input), pos);
        delete stage.box->items().at(1);
        if (whilePressed)
            stage.release(Input(input), pos);
        QCOMPARE(textsOf(*stage.box), QStringList({threeTexts.at(0), threeTexts.at(2)}));
        QCOMPARE(stage.box->selectIndex(), -1);
        QCOMPARE(listState(*stage.box), u"open"_s);
        stage.tap(Input(input), stage.rowCentre(0));
        QCOMPARE(stage.box->selectIndex(), 0);
        QVERIFY(nextBoxWorks(&stage, Input(input)));
    }

    void removedEntryDeletedLater()
    {
        BareStage stage;
        stage.box->setSelectIndex(0);
        KELComboBoxItem *const entry = stage.box->items().at(1);
        stage.box->removeItem(entry);
        entry->deleteLater();
        addEntries(stage.box, {u"four"_s});
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(textsOf(*stage.box).join(QLatin1Char(' ')), u"one three four"_s);
        QCOMPARE(stage.box->selectIndex(), 0);
    }

    void partDeletedFromOutside_data()
    {
        QTest::addColumn<int>("part");
        QTest::addColumn<bool>("whileOpen");
        const Named partNames[] = {
            {"button", 0}, {"text", 1}, {"arrow", 2}, {"list", 3}, {"all", 4}};
        for (const Named &part : partNames) {
            QTest::addRow("%s, closed", part.name) << part.value << false;
            QTest::addRow("%s, open", part.name) << part.value << true;
        }
    }

    // Whatever is called afterwards, nothing touches the dead part.
    void partDeletedFromOutside()
    {
        QFETCH(int, part);
        QFETCH(bool, whileOpen);
        const NotifierCensus census;
        ComboStage stage;
        stage.box->setSelectIndex(0);
        QVERIFY(stage.show());
        if (whileOpen)
            stage.open();
        const ComboParts parts(*stage.box);
        if (part == 1 || part == 4)
            delete parts.text;
        if (part == 2 || part == 4)
            delete parts.arrow;
        if (part == 3 || part == 4)
            delete parts.panel;
        if (part == 0 || part == 4)
            delete parts.button;

        const bool hasPanel = !parts.panel.isNull();
        QCOMPARE(stage.box->items().size(), hasPanel ? 3 : 0);
        QCOMPARE(stage.box->selectIndex(), hasPanel ? 0 : -1);
        stage.tap(Input::Mouse, QPoint(390, 290));
        stage.tap(Input::Mouse, QPoint(100, 40));
        stage.tap(Input::Mouse, QPoint(100, 104));
        QGraphicsSceneMouseEvent press(QEvent::GraphicsSceneMousePress);
        press.setPos(QPointF(390, 290));
        parts.notify->toNotify(this, &press);
        addEntries(stage.box, {u"four"_s});
        QCOMPARE(stage.box->items().size(), hasPanel ? 4 : 0);
        stage.box->setSelectIndex(2);
        stage.box->setSelectIndex(2);
        QCOMPARE(stage.box->selectIndex(), hasPanel ? 2 : -1);
        stage.box->setboundRect(20, 30, 150, 30);
        stage.box->setboundRect(QRectF(20, 20, 160, 40));
        stage.box->setEnabled(false);
        stage.box->setEnabled(true);
        if (hasPanel)
            stage.box->removeItem(stage.box->items().at(2));
        stage.box->clearItem();
        QVERIFY(stage.box->items().isEmpty());
        shownPicture(stage.view);
        delete stage.box;
        QCOMPARE(census.all().size(), 0);
        QVERIFY(nextBoxWorks(&stage, Input::Mouse));
    }

    void notifierDeletedFromOutside_data()
    {
        QTest::addColumn<bool>("whileOpen");
        QTest::newRow("closed") << false;
        QTest::newRow("open") << true;
    }

    // The list still opens and closes; only what the scene alone tells is not heard of any more.
    void notifierDeletedFromOutside()
    {
        QFETCH(bool, whileOpen);
        const NotifierCensus census;
        ComboStage stage;
        QVERIFY(stage.show());
        if (whileOpen)
            stage.open();
        delete ComboParts(*stage.box).notify;
        if (!whileOpen)
            stage.open();
        QVERIFY(stage.isOpen());
        stage.tap(Input::Mouse, farAway);
        QVERIFY(!stage.isOpen());
        QCOMPARE(stage.box->zValue(), 0.0);
        QCOMPARE(census.all().size(), 0);
        stage.open();
        stage.tap(Input::Mouse, stage.entryCentre(1));
        QCOMPARE(stage.box->selectIndex(), 1);
        stage.open();
        delete stage.box;
        QCOMPARE(census.all().size(), 0);
        QVERIFY(nextBoxWorks(&stage, Input::Mouse));
    }

    void slotOfDestroyedAdds_data() { addEnds(); }

    void slotOfDestroyedAdds()
    {
        QFETCH(int, way);
        BareStage stage;
        KELComboBox *const box = stage.box;
        connect(box->items().first(), &QObject::destroyed, this,
                [box] { addEntries(box, {u"new"_s}); });
        endEntries(box, way);
        if (End(way) == End::DestroyBox)
            return;
        QCOMPARE(textsOf(*box).join(QLatin1Char(' ')),
                 End(way) == End::Clear ? u"new"_s : u"two three new"_s);
        QCOMPARE(ComboParts(*box).panel->rect().height(), End(way) == End::Clear ? 30.0 : 90.0);
    }

    void slotOfDestroyedRemoves_data() { addEnds(); }

    void slotOfDestroyedRemoves()
    {
        QFETCH(int, way);
        BareStage stage;
        KELComboBox *const box = stage.box;
        const QPointer<KELComboBoxItem> last(box->items().last());
        int calls = 0;
        connect(box->items().first(), &QObject::destroyed, this, [&] {
            ++calls;
            box->removeItem(last);
        });
        endEntries(box, way);
        QCOMPARE(calls, 1);
        if (End(way) == End::DestroyBox) {
            QVERIFY(!last);
            return;
        }
        QVERIFY(last);
        QCOMPARE(textsOf(*box), End(way) == End::Clear ? QStringList() : QStringList(u"two"_s));
        QCOMPARE(ComboParts(*box).panel->rect().height(), End(way) == End::Clear ? 5.0 : 30.0);
    }

    void slotOfDestroyedClears_data() { addEnds(); }

    void slotOfDestroyedClears()
    {
        QFETCH(int, way);
        BareStage stage;
        KELComboBox *const box = stage.box;
        const QPointer<KELComboBoxItem> last(box->items().last());
        connect(box->items().first(), &QObject::destroyed, this, [box] { box->clearItem(); });
        endEntries(box, way);
        QVERIFY(!last);
        if (End(way) == End::DestroyBox)
            return;
        QVERIFY(box->items().isEmpty());
        QCOMPARE(ComboParts(*box).panel->rect().height(), 5.0);
    }

    void slotOfDestroyedFillsAnew_data()
    {
        QTest::addColumn<int>("before");
        QTest::addColumn<bool>("whileOpen");
        const Named ways[] = {
            {"others deleted first", 0}, {"cleared first", 1}, {"one of each", 2}};
        for (const Named &way : ways) {
            QTest::addRow("%s, closed", way.name) << way.value << false;
            QTest::addRow("%s, open", way.name) << way.value << true;
        }
    }

    void slotOfDestroyedFillsAnew()
    {
        QFETCH(int, before);
        QFETCH(bool, whileOpen);
        BareStage stage;
        KELComboBox *const box = stage.box;
        if (whileOpen)
            clickButton(*box);
        const QPointer<KELComboBoxItem> second(box->items().at(1));
        const QPointer<KELComboBoxItem> third(box->items().at(2));
        int calls = 0;
        connect(box->items().at(0), &QObject::destroyed, this, [&] {
            ++calls;
            addEntries(box, {u"too early"_s});
            KELComboBoxItem *const early = box->items().last();
            if (before == 0) {
                delete second;
                delete third;
                delete early;
            } else if (before == 1) {
                box->clearItem();
            } else {
                box->removeItem(early);
                delete third;
            }
            addEntries(box, {u"new"_s, u"newer"_s});
            box->setSelectIndex(box->items().size() - 1);
        });
        box->clearItem();
        QCOMPARE(calls, 1);
        QVERIFY(!second && !third);
        QCOMPARE(textsOf(*box).join(QLatin1Char(' ')), u"new newer"_s);
        QCOMPARE(ComboParts(*box).panel->rect().height(), 60.0);
        QCOMPARE(box->selectIndex(), 1);
        QCOMPARE(ComboParts(*box).text->text(), u"newer"_s);
    }

    void slotOfDestroyedDeletesTheBox()
    {
        BareStage stage;
        const QPointer<KELComboBoxItem> last(stage.box->items().last());
        connect(stage.box->items().first(), &QObject::destroyed, this, [&] { delete stage.box; });
        stage.box->clearItem();
        QVERIFY(!stage.box);
        QVERIFY(!last);
    }

    void slotOfDestroyedSelects()
    {
        auto box = std::make_unique<KELComboBox>();
        addEntries(box.get(), threeTexts);
        box->setSelectIndex(2);
        KELComboBox *const target = box.get();
        QList<int> seen;
        const auto look = [&seen, target] {
            seen.append(target->selectIndex());
            target->setSelectIndex(0);
            seen.append(target->selectIndex());
            KELComboBoxItem *const selected = target->selectedItem();
            if (selected)
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
        QVERIFY(stage.show());
        connect(stage.box, &KELComboBox::selectItemChanged, &stage.view,
                [&] { stage.box->clearItem(); });
        stage.open();
        stage.tap(Input::Mouse, stage.entryCentre(1));
        QVERIFY(stage.box->items().isEmpty());
        QCOMPARE(stage.box->selectIndex(), -1);
        QCOMPARE(ComboParts(*stage.box).text->text(), QString());
        QCOMPARE(listState(*stage.box), u"closed"_s);
        QVERIFY(nextBoxWorks(&stage, Input::Mouse));
    }

    void nestedSelectionWins_data()
    {
        QTest::addColumn<bool>("byHeight");
        QTest::addColumn<int>("nested");
        QTest::newRow("list hidden, another index") << false << 2;
        QTest::newRow("list hidden, the same index") << false << 1;
        QTest::newRow("list hidden, cleared") << false << -1;
        QTest::newRow("lowered, another index") << true << 2;
        QTest::newRow("lowered, the same index") << true << 1;
        QTest::newRow("lowered, cleared") << true << -1;
    }

    void nestedSelectionWins()
    {
        QFETCH(bool, byHeight);
        QFETCH(int, nested);
        const NotifierCensus census;
        BareStage stage;
        KELComboBox *const box = stage.box;
        box->setZValue(5);
        clickButton(*box);
        QList<int> told;
        connect(box, &KELComboBox::selectItemChanged, this,
                [&] { told.append(box->selectIndex()); });
        const auto select = [&] {
            if (nested < 0)
                box->clearItem();
            else
                box->setSelectIndex(nested);
        };
        if (byHeight)
            connect(box, &QGraphicsObject::zChanged, this, select);
        else
            connect(ComboParts(*box).panel, &QGraphicsObject::visibleChanged, this, select);
        box->setSelectIndex(1);
        QCOMPARE(box->selectIndex(), nested);
        QCOMPARE(ComboParts(*box).text->text(), nested < 0 ? QString() : threeTexts.at(nested));
        QCOMPARE(told, nested < 0 ? QList<int>() : QList<int>({nested}));
        QCOMPARE(listState(*box), u"closed"_s);
        QCOMPARE(box->zValue(), 5.0);
        QCOMPARE(census.all().size(), 1);
        QCOMPARE(census.listening(), 0);
    }

    void repeatedNestedSelectionIsToldOnce()
    {
        BareStage stage;
        KELComboBox *const box = stage.box;
        clickButton(*box);
        QList<int> told;
        connect(box, &KELComboBox::selectItemChanged, this,
                [&] { told.append(box->selectIndex()); });
        connect(ComboParts(*box).panel, &QGraphicsObject::visibleChanged, this, [box] {
            box->setSelectIndex(0);
            box->setSelectIndex(2);
        });
        box->setSelectIndex(2);
        QCOMPARE(told, QList<int>({0, 2}));
        QCOMPARE(box->selectIndex(), 2);
        QCOMPARE(ComboParts(*box).text->text(), u"three"_s);
        QCOMPARE(listState(*box), u"closed"_s);
    }

    void entryGoneWhileClosing_data()
    {
        QTest::addColumn<bool>("byHeight");
        QTest::addColumn<bool>("byRemoval");
        QTest::addColumn<QList<int>>("gone");
        QTest::addColumn<int>("selected");
        const QPair<const char *, QList<int>> rows[] = {
            {"an earlier one", {0}},
            {"both earlier ones", {0, 1}},
            {"a later one", {3}},
            {"the chosen one", {2}},
            {"the chosen one and an earlier one", {2, 0}},
            {"all", {3, 2, 1, 0}}};
        for (const bool byHeight : {false, true}) {
            for (const bool byRemoval : {false, true}) {
                for (const auto &row : rows) {
                    const int earlier = row.second.count(0) + row.second.count(1);
                    QTest::addRow("%s %s when %s", row.first, byRemoval ? "removed" : "deleted",
                                  byHeight ? "lowered" : "hidden")
                        << byHeight << byRemoval << row.second
                        << (row.second.contains(2) ? -1 : 2 - earlier);
                }
            }
        }
    }

    void entryGoneWhileClosing()
    {
        QFETCH(bool, byHeight);
        QFETCH(bool, byRemoval);
        QFETCH(QList<int>, gone);
        QFETCH(int, selected);
        BareStage stage;
        KELComboBox *const box = stage.box;
        addEntries(box, {u"four"_s});
        box->setSelectIndex(1);
        clickButton(*box);
        QStringList told;
        connect(box, &KELComboBox::selectItemChanged, this,
                [&] { told.append(box->selectedItem()->display()); });
        const QList<KELComboBoxItem *> items = box->items();
        int calls = 0;
        const auto take = [&] {
            if (calls++ > 0)
                return;
            for (const int place : gone) {
                if (byRemoval)
                    box->removeItem(items.at(place));
                else
                    delete items.at(place);
            }
        };
        if (byHeight)
            connect(box, &QGraphicsObject::zChanged, this, take);
        else
            connect(ComboParts(*box).panel, &QGraphicsObject::visibleChanged, this, take);
        box->setSelectIndex(2);
        QCOMPARE(calls, 1);
        const QString text = selected < 0 ? QString() : threeTexts.at(2);
        QCOMPARE(box->selectIndex(), selected);
        QCOMPARE(box->items().size(), 4 - gone.size());
        QCOMPARE(box->selectedItem(), selected < 0 ? nullptr : items.at(2));
        QCOMPARE(ComboParts(*box).text->text(), text);
        QCOMPARE(told, selected < 0 ? QStringList() : QStringList(text));
        QCOMPARE(listState(*box), u"closed"_s);
    }

    void reopenedWhileClosing_data()
    {
        QTest::addColumn<int>("way");
        QTest::addColumn<qreal>("z");
        const Named ways[] = {{"by the button", 0}, {"by a selection", 1}, {"by a press", 2}};
        for (const Named &way : ways) {
            for (const qreal z : {0.0, 5.0, 5.7})
                QTest::addRow("%s, z %g", way.name, z) << way.value << z;
        }
    }

    void reopenedWhileClosing()
    {
        QFETCH(int, way);
        QFETCH(qreal, z);
        const NotifierCensus census;
        ComboStage stage;
        stage.box->setZValue(z);
        QVERIFY(stage.show());
        KELComboBox *const box = stage.box;
        stage.open();
        KELLabel *const panel = ComboParts(*box).panel;
        const auto reopen = connect(panel, &QGraphicsObject::visibleChanged, this, [&] {
            if (!panel->isVisible())
                clickButton(*box);
        });
        if (way == 0)
            clickButton(*box);
        else if (way == 1)
            box->setSelectIndex(2);
        else
            stage.tap(Input::Mouse, QPoint(390, 290));
        QCOMPARE(listState(*box), u"open"_s);
        QVERIFY(census.all().size() > 1);
        QCOMPARE(box->selectIndex(), way == 1 ? 2 : -1);
        disconnect(reopen);
        clickButton(*box);
        QCOMPARE(listState(*box), u"closed"_s);
        QCOMPARE(box->zValue(), std::trunc(z));
        QCOMPARE(census.all().size(), 1);
    }

    void closedWhileOpening_data()
    {
        QTest::addColumn<bool>("byHeight");
        QTest::addColumn<bool>("bySelection");
        QTest::addColumn<qreal>("z");
        for (const bool bySelection : {false, true}) {
            const char *way = bySelection ? "selection" : "button";
            for (const qreal z : {0.0, 5.0, 5.7}) {
                QTest::addRow("list shown, %s, z %g", way, z) << false << bySelection << z;
                QTest::addRow("raised, %s, z %g", way, z) << true << bySelection << z;
            }
        }
    }

    void closedWhileOpening()
    {
        QFETCH(bool, byHeight);
        QFETCH(bool, bySelection);
        QFETCH(qreal, z);
        const NotifierCensus census;
        BareStage stage;
        KELComboBox *const box = stage.box;
        box->setZValue(z);
        KELLabel *const panel = ComboParts(*box).panel;
        const auto close = [&] {
            if (!panel->isVisible() || (byHeight && box->zValue() != 1))
                return;
            if (bySelection)
                box->setSelectIndex(1);
            else
                clickButton(*box);
        };
        if (byHeight)
            connect(box, &QGraphicsObject::zChanged, this, close);
        else
            connect(panel, &QGraphicsObject::visibleChanged, this, close);
        clickButton(*box);
        QCOMPARE(listState(*box), u"closed"_s);
        // A list that was not raised yet leaves the z-value as it is, with its fraction.
        QCOMPARE(box->zValue(), byHeight ? std::trunc(z) : z);
        QCOMPARE(box->selectIndex(), bySelection ? 1 : -1);
        QCOMPARE(census.all().size(), 1);
        QCOMPARE(census.listening(), 0);
    }

    void closedByAnEntryThatIsShown_data()
    {
        QTest::addColumn<qreal>("z");
        for (const qreal z : {0.0, 5.0, 5.7})
            QTest::addRow("z %g", z) << z;
    }

    // An entry is shown before the list that it is in.
    void closedByAnEntryThatIsShown()
    {
        QFETCH(qreal, z);
        const NotifierCensus census;
        BareStage stage;
        KELComboBox *const box = stage.box;
        box->setZValue(z);
        const auto select = connect(box->items().at(0), &QGraphicsObject::visibleChanged, this,
                                    [box] { box->setSelectIndex(0); });
        clickButton(*box);
        QCOMPARE(listState(*box), u"closed"_s);
        QCOMPARE(box->zValue(), z);
        QCOMPARE(box->selectIndex(), 0);
        QCOMPARE(census.all().size(), 1);
        disconnect(select);
        clickButton(*box);
        QCOMPARE(listState(*box), u"open"_s);
        clickButton(*box);
        QCOMPARE(box->zValue(), std::trunc(z));
    }

    void reopenedWhileOpening_data()
    {
        QTest::addColumn<bool>("byHeight");
        QTest::addColumn<qreal>("z");
        for (const qreal z : {0.0, 5.0, 5.7}) {
            QTest::addRow("list shown, z %g", z) << false << z;
            QTest::addRow("raised, z %g", z) << true << z;
        }
    }

    void reopenedWhileOpening()
    {
        QFETCH(bool, byHeight);
        QFETCH(qreal, z);
        const NotifierCensus census;
        BareStage stage;
        KELComboBox *const box = stage.box;
        box->setZValue(z);
        int calls = 0;
        const auto closeAndOpen = [&] {
            if (calls++ > 0)
                return;
            clickButton(*box);
            clickButton(*box);
        };
        if (byHeight)
            connect(box, &QGraphicsObject::zChanged, this, closeAndOpen);
        else
            connect(ComboParts(*box).panel, &QGraphicsObject::visibleChanged, this, closeAndOpen);
        clickButton(*box);
        QVERIFY(calls > 0);
        QCOMPARE(listState(*box), u"open"_s);
        clickButton(*box);
        QCOMPARE(listState(*box), u"closed"_s);
        QCOMPARE(box->zValue(), std::trunc(z));
        QCOMPARE(census.all().size(), 1);
    }

    void nestedSelectionInTheSignal()
    {
        BareStage stage;
        KELComboBox *const box = stage.box;
        clickButton(*box);
        QList<int> told;
        connect(box, &KELComboBox::selectItemChanged, this, [&] {
            told.append(box->selectIndex());
            box->setSelectIndex(2);
        });
        box->setSelectIndex(0);
        QCOMPARE(told, QList<int>({0, 2}));
        QCOMPARE(box->selectIndex(), 2);
        QCOMPARE(ComboParts(*box).text->text(), u"three"_s);
    }
};

KEL_TEST_MAIN(tst_KELComboBoxLifetime)
#include "tst_kelcomboboxlifetime.moc"
