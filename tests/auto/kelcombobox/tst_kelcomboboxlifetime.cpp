// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "combostage.h"

namespace {

// In the order of a tap.
const std::vector<Named> tapSignals = {{"press", 0}, {"release", 1}, {"clicked", 2}};

QString fetchSignal()
{
    return QString::fromLatin1(tapSignals.at(size_t(fetch<int>("signal"))).name);
}

// The first three are places in the list.
enum class Victim { Earlier, Itself, Later, All, Box };
const std::vector<Named> victims = {{"an earlier one", int(Victim::Earlier)},
                                    {"itself", int(Victim::Itself)},
                                    {"a later one", int(Victim::Later)},
                                    {"all", int(Victim::All)},
                                    {"the combo box", int(Victim::Box)}};

void deleteWhatWaits()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace

class tst_KELComboBoxLifetime : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void deletedInASlotOfAnEntry_data()
    {
        addRows({{"signal", tapSignals},
                 {"input", inputs},
                 {"victim", victims},
                 {"later", {{"at once", false}, {"later", true}}}});
    }

    void deletedInASlotOfAnEntry()
    {
        const auto victim = fetch<Victim>("victim");
        const bool isWhole = victim == Victim::All || victim == Victim::Box;
        ComboStage stage(fetch<Input>("input"));
        stage.open();
        QList<QPointer<QObject>> entries;
        QList<QPointer<QObject>> condemned;
        for (int place = 0; place < 3; ++place) {
            entries.append(stage.entry(place));
            if (victim == Victim::All || victim == Victim(place))
                condemned.append(stage.entry(place));
        }
        if (victim == Victim::Box)
            condemned.append(stage.get());

        SignalLog log;
        log.listenTo(stage.entry(1));
        log.on(fetchSignal(), [&] {
            for (const QPointer<QObject> &object : qAsConst(condemned)) {
                if (fetch<bool>("later"))
                    object->deleteLater();
                else
                    delete object;
            }
        });
        stage.hand.tap(stage.entryCentre(1));
        QCOMPARE(log.count(fetchSignal()), 1);
        deleteWhatWaits();
        QCOMPARE(stage.control.isNull(), victim == Victim::Box);
        for (int place = 0; place < 3; ++place)
            QCOMPARE(entries.at(place).isNull(), isWhole || victim == Victim(place));
        if (stage.control) {
            QCOMPARE(stage->items().size(), 3 - condemned.size());
            QCOMPARE(stage->selectedItem(), entries.at(1).data());
            QCOMPARE(stage->selectIndex() < 0, entries.at(1).isNull());
        }
        QVERIFY(stage.nextBoxWorks());
        delete stage.control;
        QCOMPARE(applicationFilters.count(), 0);
    }

    void boxDeletedInASlotOfItsButton_data()
    {
        addRows(
            {{"signal", tapSignals}, {"input", inputs}, {"tap", {{"opening", 1}, {"closing", 2}}}});
    }

    void boxDeletedInASlotOfItsButton()
    {
        ComboStage stage(fetch<Input>("input"));
        SignalLog log;
        log.listenTo(stage.parts.button);
        log.on(fetchSignal(), [&] {
            if (log.count(fetchSignal()) == fetch<int>("tap"))
                delete stage.control;
        });
        for (int tap = 0; tap < fetch<int>("tap"); ++tap)
            stage.tapButton();
        QCOMPARE(stage.traces(), QString());
    }

    void boxDeletedWhenSelected_data()
    {
        addRows({{"way", {{"by a tap", 0}, {"by a call while open", 1}, {"by a call", 2}}}});
    }

    void boxDeletedWhenSelected()
    {
        ComboStage stage(Input::Touch);
        stage.log.on(u"selectItemChanged"_s, [&] { delete stage.control; });
        if (fetch<int>("way") != 2)
            stage.open();
        if (fetch<int>("way") == 0)
            stage.hand.tap(stage.entryCentre(1));
        else
            stage->setSelectIndex(1);
        QCOMPARE(stage.traces(), QString());
    }

    void boxDeletedWhileTheListOpensOrCloses_data()
    {
        std::vector<Named> changes = {{"opening", -1}};
        changes.insert(changes.end(), closings.begin(), closings.end());
        changes.push_back({"closing by a press that only the scene tells", 3});
        addRows(
            {{"change", changes}, {"moment", {{"shown or hidden", 0}, {"raised or lowered", 1}}}});
    }

    void boxDeletedWhileTheListOpensOrCloses()
    {
        const int change = fetch<int>("change");
        ComboStage stage;
        int toCome = change < 0 ? 1 : 2;
        const auto destroy = [&] {
            if (--toCome == 0)
                delete stage.control;
        };
        if (fetch<int>("moment") == 0)
            connect(stage.parts.panel, &QGraphicsObject::visibleChanged, this, destroy);
        else
            connect(stage.get(), &QGraphicsObject::zChanged, this, destroy);
        stage.open();
        if (change == 3) {
            QGraphicsSceneMouseEvent press(QEvent::GraphicsSceneMousePress);
            QObject target;
            QCoreApplication::sendEvent(&target, &press);
        } else if (change >= 0) {
            stage.close(Closing(change));
        }
        QCOMPARE(stage.log.count(u"selectItemChanged"_s), 0);
        QCOMPARE(stage.traces(), QString());
    }

    void boxDeletedWhenDisabled()
    {
        ComboStage stage;
        stage.open();
        connect(stage.get(), &QGraphicsObject::enabledChanged, this, [&] { delete stage.control; });
        stage->setEnabled(false);
        QCOMPARE(stage.traces(), QString());
    }

    void boxDeletedByAPressOutside_data() { addRows({{"input", inputs}}); }

    void boxDeletedByAPressOutside()
    {
        ComboStage stage(fetch<Input>("input"));
        stage.log.on(u"other.press"_s, [&] { delete stage.control; });
        stage.open();
        stage.hand.tap(stage.otherCentre());
        QCOMPARE(stage.traces(), QString());
    }

    void destroyedWithOpenList_data() { addRows({{"way", deletionWays}}); }

    void destroyedWithOpenList()
    {
        ComboStage stage;
        stage.open();
        QVERIFY(applicationFilters.count() > 1);
        stage.destroy(fetch<Way>("way"));
        deleteWhatWaits();
        QCOMPARE(stage.traces(), QString());
    }

    void viewDestroyedWithOpenList()
    {
        auto view = std::make_unique<KelTestView>();
        const KELComboBox *const box = makeBox().release();
        view->ownScene.addItem(const_cast<KELComboBox *>(box));
        Hand(view.get()).tap(view->centreOf(box));
        QCOMPARE(listState(*box), u"open"_s);
        view.reset();
        QCOMPARE(applicationFilters.count(), 0);
    }

    void takenOutOfTheSceneWithOpenList()
    {
        ComboStage stage;
        stage.open();
        stage.view.ownScene.removeItem(stage.control);
        stage.hand.tap(farAway);
        QVERIFY(stage.control);
        delete stage.control;
        QCOMPARE(stage.traces(), QString());
    }

    void destroyedBoxEmitsNothing()
    {
        auto box = makeBox();
        box->setSelectIndex(1);
        clickButton(*box);
        const QSignalSpy changed(box.get(), &KELComboBox::selectItemChanged);
        const QSignalSpy raised(box.get(), &QGraphicsObject::zChanged);
        box.reset();
        QCOMPARE(changed.count(), 0);
        QCOMPARE(raised.count(), 0);
    }

    void dyingBoxIsNotOpenedAgain_data() { addRows({{"isOpen", closedOrOpen}}); }

    // A press that comes while the parts die must not reach the box either.
    void dyingBoxIsNotOpenedAgain()
    {
        ComboStage stage;
        if (fetch<bool>("isOpen"))
            stage.open();
        QStringList seen;
        connect(stage.entry(0), &QObject::destroyed, this, [&] {
            Q_EMIT stage.parts.button->mouseClicked();
            seen.append(stage.parts.panel->isVisible() ? u"open"_s : u"closed"_s);
            seen.append(stage.parts.arrow->text());
        });
        connect(stage.parts.button, &QObject::destroyed, this, [&] {
            seen.append(QString::number(applicationFilters.listening()));
            QGraphicsSceneMouseEvent press(QEvent::GraphicsSceneMousePress);
            press.setPos(farAway);
            QObject target;
            QCoreApplication::sendEvent(&target, &press);
        });
        delete stage.control;
        QCOMPARE(seen,
                 fetch<bool>("isOpen") ? QStringList({u"open"_s, upArrow, u"0"_s})
                                       : QStringList({u"closed"_s, downArrow, u"0"_s}));
        QCOMPARE(stage.traces(), QString());
    }

    void entriesDieWithTheBox()
    {
        ComboStage stage;
        QStringList deleted;
        for (int place = 0; place < 3; ++place) {
            connect(stage.entry(place), &QObject::destroyed, this,
                    [&, place] { deleted.append(threeTexts.at(place)); });
        }
        connect(stage.parts.panel, &QObject::destroyed, this, [&] { deleted.append(u"list"_s); });
        delete stage.control;
        QCOMPARE(deleted, threeTexts + QStringList(u"list"_s));
        const ComboParts &parts = stage.parts;
        QVERIFY(!parts.button && !parts.text && !parts.arrow && !parts.panel && !parts.notify);
    }

    void removedEntryDiesWithTheBox()
    {
        ComboStage stage;
        const QPointer<KELComboBoxItem> entry(stage.entry(1));
        stage->removeItem(entry);
        delete stage.control;
        QVERIFY(!entry);
    }

    // A slot that is called with the box asks it as a combo box, not as what is left of one.
    void dyingRemovedEntryStillSeesTheBox()
    {
        ComboStage stage;
        KELComboBox *const box = stage.get();
        KELComboBoxItem *const entry = stage.entry(1);
        box->setSelectIndex(2);
        box->removeItem(entry);
        QString seen;
        connect(entry, &QObject::destroyed, box, [box, &seen] {
            seen = QString::fromLatin1(box->metaObject()->className());
            if (seen == u"KELComboBox"_s)
                seen += u", %1 entries, index %2"_s.arg(box->items().size())
                            .arg(box->selectIndex());
        });
        delete box;
        QCOMPARE(seen, u"KELComboBox, 0 entries, index -1"_s);
    }

    void dyingPartStillSeesTheBox_data()
    {
        addRows({{"part", {{"text", 0}, {"arrow", 1}, {"list", 2}, {"button", 3}}}});
    }

    void dyingPartStillSeesTheBox()
    {
        ComboStage stage;
        KELComboBox *const box = stage.get();
        const QGraphicsObject *const parts[] = {stage.parts.text, stage.parts.arrow,
                                                stage.parts.panel, stage.parts.button};
        QByteArray seen;
        connect(parts[fetch<int>("part")], &QObject::destroyed, this,
                [box, &seen] { seen = box->metaObject()->className(); });
        delete box;
        QCOMPARE(seen, QByteArray("KELComboBox"));
    }

    void removedEntryOutlivesTheBox()
    {
        ComboStage stage;
        const QPointer<KELComboBoxItem> entry(stage.entry(1));
        stage->removeItem(entry);
        entry->setParentItem(nullptr);
        entry->setboundRect(20, 200, 100, 30);
        delete stage.control;
        QVERIFY(entry);
        stage.log.listenTo(entry, u"entry"_s);
        stage.hand.tap(stage.view.centreOf(entry));
        QCOMPARE(stage.log.take(), u"entry.press entry.release entry.clicked"_s);
        entry->setDisplay(u"alone"_s);
        QCOMPARE(entry->display(), u"alone"_s);
        QCOMPARE(stage.traces(), QString());
    }

    void entryWithAnotherParentDiesWithTheBox()
    {
        ComboStage stage;
        const QPointer<KELComboBoxItem> entry(stage.entry(1));
        entry->setParentItem(stage.other);
        QCOMPARE(stage->items().size(), 3);
        delete stage.control;
        QVERIFY(!entry);
        QVERIFY(stage.other->childItems().isEmpty());
    }

    void entryDeletedFromOutside_data()
    {
        addRows({{"input", inputs}, {"isPressed", {{"shown", false}, {"pressed", true}}}});
    }

    void entryDeletedFromOutside()
    {
        const bool isPressed = fetch<bool>("isPressed");
        ComboStage stage(fetch<Input>("input"));
        stage->setSelectIndex(1);
        stage.open();
        if (isPressed)
            stage.hand.press(stage.entryCentre(1));
        delete stage.entry(1);
        if (isPressed)
            stage.hand.release();
        QCOMPARE(stage.summary(), u"one three; -1, ; open; 60 px"_s);
        stage.hand.tap(stage.rowCentre(0));
        QCOMPARE(stage->selectIndex(), 0);
        QVERIFY(stage.nextBoxWorks());
    }

    void removedEntryDeletedLater()
    {
        ComboStage stage;
        stage->setSelectIndex(0);
        KELComboBoxItem *const entry = stage.entry(1);
        stage->removeItem(entry);
        entry->deleteLater();
        addEntries(stage.get(), {u"four"_s});
        deleteWhatWaits();
        QCOMPARE(stage.summary(), u"one three four; 0, one; closed; 90 px"_s);
    }

    void partDeletedFromOutside_data()
    {
        addRows({{"part", {{"text", 0}, {"arrow", 1}, {"list", 2}, {"button", 3}, {"all", 4}}},
                 {"isOpen", closedOrOpen}});
    }

    // Whatever is called afterwards, nothing touches the dead part.
    void partDeletedFromOutside()
    {
        const int part = fetch<int>("part");
        ComboStage stage;
        stage->setSelectIndex(0);
        if (fetch<bool>("isOpen"))
            stage.open();
        const QPointer<QObject> parts[] = {stage.parts.text.data(), stage.parts.arrow.data(),
                                           stage.parts.panel.data(), stage.parts.button.data()};
        for (int i = 0; i < 4; ++i) {
            if (part == i || part == 4)
                delete parts[i];
        }
        const bool hasPanel = !stage.parts.panel.isNull();
        QCOMPARE(stage->items().size(), hasPanel ? 3 : 0);
        QCOMPARE(stage->selectIndex(), hasPanel ? 0 : -1);
        for (const QPoint &pos : {farAway, QPoint(100, 40), QPoint(100, 104)})
            stage.hand.tap(pos);
        QGraphicsSceneMouseEvent press(QEvent::GraphicsSceneMousePress);
        press.setPos(farAway);
        stage.parts.notify->toNotify(this, &press);
        addEntries(stage.get(), {u"four"_s});
        QCOMPARE(stage->items().size(), hasPanel ? 4 : 0);
        stage->setSelectIndex(2);
        stage->setSelectIndex(2);
        QCOMPARE(stage->selectIndex(), hasPanel ? 2 : -1);
        stage->setboundRect(20, 30, 150, 30);
        stage->setboundRect(QRectF(20, 20, 160, 40));
        stage->setEnabled(false);
        stage->setEnabled(true);
        if (hasPanel)
            stage->removeItem(stage.entry(2));
        stage->clearItem();
        QVERIFY(stage->items().isEmpty());
        shownPicture(stage.view);
        delete stage.control;
        QCOMPARE(stage.traces(), QString());
    }

    void notifierDeletedFromOutside_data() { addRows({{"isOpen", closedOrOpen}}); }

    // The list still opens and closes; only what the scene alone tells is not heard of any more.
    void notifierDeletedFromOutside()
    {
        ComboStage stage;
        if (fetch<bool>("isOpen"))
            stage.open();
        delete stage.parts.notify;
        if (!fetch<bool>("isOpen"))
            stage.open();
        QVERIFY(stage.parts.panel->isVisible());
        stage.hand.tap(farAway);
        QVERIFY(!stage.parts.panel->isVisible());
        QCOMPARE(stage->zValue(), 0.0);
        QCOMPARE(applicationFilters.count(), 0);
        stage.open();
        stage.hand.tap(stage.entryCentre(1));
        QCOMPARE(stage->selectIndex(), 1);
        stage.open();
        delete stage.control;
        QCOMPARE(stage.traces(), QString());
    }
};

KEL_TEST_MAIN(tst_KELComboBoxLifetime)
#include "tst_kelcomboboxlifetime.moc"
