// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "pickerstage.h"

namespace {

const std::vector<Named> keysThatOpen{{"space", Qt::Key_Space},
                                      {"return", Qt::Key_Return},
                                      {"enter", Qt::Key_Enter},
                                      {"select", Qt::Key_Select}};
const std::vector<Named> keysThatClose{
    {"escape", Qt::Key_Escape}, {"back", Qt::Key_Back}, {"cancel", Qt::Key_Cancel}};

} // namespace

class tst_KELPicker : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void aTapOnAnEntryMakesItCurrent_data() { addRows({{"input", inputs}}); }

    void aTapOnAnEntryMakesItCurrent()
    {
        PickerStage stage;
        stage.hand.use(fetch<Input>("input"));
        QCOMPARE(stage.picker->currentIndex(), -1);
        QCOMPARE(stage.picker->currentText(), QString());
        stage.hand.tap(stage.field());
        QVERIFY(stage.picker->isOpen());
        QCOMPARE(stage.log.take(), u"clicked"_s);
        stage.log.on(u"currentIndexChanged"_s, [&stage] {
            QVERIFY(!stage.picker->isOpen());
            QCOMPARE(stage.picker->currentText(), u"fruit 1"_s);
        });
        stage.hand.tap(stage.entry(1));
        QCOMPARE(stage.log.take(), u"currentIndexChanged currentTextChanged activated"_s);
        QCOMPARE(stage.log.lastArguments(), QVariantList{1});
        QCOMPARE(stage.picker->value(), u"fruit 1"_s);
        stage.hand.tap(stage.field());
        QCOMPARE(stage.list()->currentRow(), 1);
        stage.hand.tap(stage.entry(1));
        QCOMPARE(stage.log.take(), u"clicked activated"_s);
    }

    void codeMakesAnEntryCurrent_data()
    {
        addRows({{"index",
                  {{"first", 0},
                   {"last", 2},
                   {"none", -1},
                   {"before the first", -2},
                   {"after the last", 3}}}});
    }

    void codeMakesAnEntryCurrent()
    {
        PickerStage stage;
        stage.picker->setCurrentIndex(1);
        QCOMPARE(stage.log.take(), u"currentIndexChanged currentTextChanged"_s);
        const int index = fetch<int>("index");
        stage.picker->setCurrentIndex(index);
        const bool exists = index >= 0 && index < 3;
        QCOMPARE(stage.picker->currentIndex(), exists ? index : -1);
        QCOMPARE(stage.picker->currentText(), exists ? stage.fruits.at(index) : QString());
        QCOMPARE(stage.log.take(), u"currentIndexChanged currentTextChanged"_s);
        stage.picker->setCurrentIndex(index);
        QCOMPARE(stage.log.take(), QString());
    }

    void aSlotMayChooseAnotherEntry()
    {
        PickerStage stage;
        QStringList texts;
        connect(stage.picker, &KELPicker::currentTextChanged, this,
                [&texts](const QString &text) { texts.append(text); });
        stage.log.on(u"currentIndexChanged"_s, [&stage] { stage.picker->setCurrentIndex(0); });
        stage.picker->setCurrentIndex(2);
        QCOMPARE(stage.picker->currentText(), u"fruit 0"_s);
        QCOMPARE(texts, QStringList{u"fruit 0"_s});
    }

    void aPlaceholderStandsForNoEntry()
    {
        PickerStage stage;
        stage.picker->setPlaceholder(u"Not set"_s);
        QCOMPARE(stage.picker->value(), u"Not set"_s);
        QCOMPARE(stage.picker->currentText(), QString());
        stage.picker->setCurrentIndex(0);
        QCOMPARE(stage.picker->value(), u"fruit 0"_s);
        stage.picker->setPlaceholder(u"None"_s);
        QCOMPARE(stage.picker->value(), u"fruit 0"_s);
        stage.picker->setCurrentIndex(-1);
        QCOMPARE(stage.picker->value(), u"None"_s);
    }

    void aPressBesideTheListClosesIt_data()
    {
        addRows({{"input", inputs},
                 {"where", {{"on another control", 0}, {"on the picker", 1}, {"on nothing", 2}}}});
    }

    void aPressBesideTheListClosesIt()
    {
        PickerStage stage;
        stage.hand.use(fetch<Input>("input"));
        stage.hand.tap(stage.field());
        const QVector<QPoint> places{stage.view.centreOf(stage.other), stage.field(),
                                     QPoint(440, 500)};
        const QPoint place = places.at(fetch<int>("where"));
        stage.log.take();
        stage.hand.press(place);
        QVERIFY(!stage.picker->isOpen());
        stage.hand.release();
        QVERIFY(!stage.picker->isOpen());
        QCOMPARE(stage.log.take(), QString());
        QCOMPARE(stage.logOther.take(), QString());
        stage.hand.tap(stage.view.centreOf(stage.other));
        QCOMPARE(stage.logOther.count(u"clicked"_s), 1);
    }

    void nothingElseGetsPointers()
    {
        PickerStage stage;
        stage.picker->open();
        const QPoint place = stage.view.centreOf(stage.other);
        stage.hand.hover(place);
        stage.hand.hover(place + QPoint(3, 3));
        stage.hand.openContextMenu(place);
        QVERIFY(stage.picker->isOpen());
        stage.hand.press(place, Qt::RightButton);
        QCOMPARE(stage.logOther.takeWithHover(), QString());
    }

    void theListIsNotTheActivePanel()
    {
        KelTestView view;
        auto *picker = new KELPicker;
        picker->setItems({u"nut"_s});
        view.ownScene.addItem(picker);
        view.showOnce();
        picker->open();
        QVERIFY(picker->isOpen());
        QCOMPARE(view.ownScene.activePanel(), nullptr);
    }

    void aKeyOpensTheList_data() { addRows({{"key", keysThatOpen}}); }

    void aKeyOpensTheList()
    {
        PickerStage stage;
        stage.picker->setFocus();
        stage.press(fetch<Qt::Key>("key"));
        QVERIFY(stage.picker->isOpen());
        stage.press(Qt::Key_Down);
        stage.press(Qt::Key_Down);
        stage.press(Qt::Key_Return);
        QVERIFY(!stage.picker->isOpen());
        QCOMPARE(stage.log.take(), u"clicked currentIndexChanged currentTextChanged activated"_s);
        QCOMPARE(stage.log.lastArguments(), QVariantList{1});
        QCOMPARE(stage.view.ownScene.focusItem(), stage.picker);
    }

    void altWithDownOpensTheList()
    {
        PickerStage stage;
        stage.picker->setFocus();
        stage.press(Qt::Key_Down, Qt::AltModifier);
        QVERIFY(stage.picker->isOpen());
        QCOMPARE(stage.picker->currentIndex(), -1);
    }

    void aKeyClosesTheList_data() { addRows({{"key", keysThatClose}}); }

    void aKeyClosesTheList()
    {
        PickerStage stage;
        stage.picker->setFocus();
        stage.picker->open();
        stage.press(fetch<Qt::Key>("key"));
        QVERIFY(!stage.picker->isOpen());
        QCOMPARE(stage.log.take(), QString());
    }

    void keysStepThroughTheEntries_data()
    {
        QTest::addColumn<int>("from");
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("to");
        QTest::newRow("down") << 0 << int(Qt::Key_Down) << 1;
        QTest::newRow("up") << 2 << int(Qt::Key_Up) << 1;
        QTest::newRow("down at the end") << 2 << int(Qt::Key_Down) << 2;
        QTest::newRow("up at the beginning") << 0 << int(Qt::Key_Up) << 0;
        QTest::newRow("down from none") << -1 << int(Qt::Key_Down) << 0;
        QTest::newRow("up from none") << -1 << int(Qt::Key_Up) << 2;
    }

    void keysStepThroughTheEntries()
    {
        PickerStage stage;
        const int from = fetch<int>("from");
        stage.picker->setCurrentIndex(from);
        stage.picker->setFocus();
        stage.log.take();
        stage.press(fetch<Qt::Key>("key"));
        QCOMPARE(stage.picker->currentIndex(), fetch<int>("to"));
        QVERIFY(!stage.picker->isOpen());
        const bool isOther = from != fetch<int>("to");
        QCOMPARE(stage.log.take(),
                 isOther ? u"currentIndexChanged currentTextChanged activated"_s : QString());
    }

    void theFocusComesBack_data() { addRows({{"input", inputs}}); }

    void theFocusComesBack()
    {
        PickerStage stage;
        stage.hand.use(fetch<Input>("input"));
        stage.hand.tap(stage.field());
        QCOMPARE(stage.view.ownScene.focusItem(), stage.picker);
        stage.hand.tap(stage.entry(2));
        QCOMPARE(stage.view.ownScene.focusItem(), stage.picker);
        stage.press(Qt::Key_Up);
        QCOMPARE(stage.picker->currentIndex(), 1);
    }

    void theEntryStaysTheSame()
    {
        PickerStage stage;
        stage.picker->setCurrentIndex(1);
        stage.log.take();
        stage.model.insertRows(0, 2);
        QCOMPARE(stage.picker->currentIndex(), 3);
        QCOMPARE(stage.log.take(), u"currentIndexChanged"_s);
        stage.model.removeRows(0, 1);
        QCOMPARE(stage.picker->currentIndex(), 2);
        QCOMPARE(stage.log.take(), u"currentIndexChanged"_s);
        stage.model.insertRows(3, 2);
        QCOMPARE(stage.log.take(), QString());
        stage.model.moveRow(QModelIndex(), 2, QModelIndex(), 0);
        QCOMPARE(stage.picker->currentIndex(), 0);
        QCOMPARE(stage.picker->currentText(), u"fruit 1"_s);
        QCOMPARE(stage.log.take(), u"currentIndexChanged"_s);
        stage.model.sort(0);
        QCOMPARE(stage.picker->currentText(), u"fruit 1"_s);
        QVERIFY(stage.picker->currentIndex() > 0);
    }

    void aChangedTextIsShown()
    {
        PickerStage stage;
        stage.picker->setCurrentIndex(1);
        stage.log.take();
        stage.model.setData(stage.model.index(0), u"apple"_s);
        QCOMPARE(stage.log.take(), QString());
        stage.model.setData(stage.model.index(1), u"pear"_s);
        QCOMPARE(stage.picker->currentText(), u"pear"_s);
        QCOMPARE(stage.picker->value(), u"pear"_s);
        QCOMPARE(stage.log.take(), u"currentTextChanged"_s);
        QCOMPARE(stage.log.lastArguments(), QVariantList{u"pear"_s});
    }

    void thereIsNoEntryLeft_data()
    {
        addRows({{"change",
                  {{"row removed", 0},
                   {"reset", 1},
                   {"another model", 2},
                   {"no model", 3},
                   {"other items", 4}}},
                 {"open", {{"no", 0}, {"yes", 1}}}});
    }

    void thereIsNoEntryLeft()
    {
        PickerStage stage;
        QStringListModel another({u"nut"_s});
        stage.picker->setCurrentIndex(1);
        stage.log.take();
        if (fetch<bool>("open"))
            stage.picker->open();
        const int change = fetch<int>("change");
        if (change == 0)
            stage.model.removeRows(1, 1);
        else if (change == 1)
            stage.model.setStringList({u"nut"_s, u"leaf"_s});
        else if (change == 4)
            stage.picker->setItems({u"nut"_s, u"leaf"_s});
        else
            stage.picker->setModel(change == 2 ? &another : nullptr);
        QCOMPARE(stage.picker->currentIndex(), -1);
        QCOMPARE(stage.picker->currentText(), QString());
        QCOMPARE(stage.log.take(), u"currentIndexChanged currentTextChanged"_s);
        QCOMPARE(stage.picker->isOpen(), fetch<bool>("open") && change < 2);
        stage.view.grab();
    }

    void aDeadModelHasNoEntries()
    {
        PickerStage stage;
        auto *model = new QStringListModel({u"nut"_s, u"leaf"_s});
        stage.picker->setModel(model);
        stage.picker->setCurrentIndex(1);
        stage.picker->open();
        stage.log.take();
        delete model;
        QVERIFY(!stage.picker->isOpen());
        QCOMPARE(stage.picker->model(), nullptr);
        QCOMPARE(stage.picker->currentIndex(), -1);
        QCOMPARE(stage.log.take(), u"currentIndexChanged currentTextChanged"_s);
        stage.picker->setCurrentIndex(0);
        stage.picker->open();
        QVERIFY(!stage.picker->isOpen());
        QCOMPARE(stage.log.take(), QString());
    }

    void ownItemsDieWithThePicker()
    {
        PickerStage stage;
        stage.picker->setItems({u"nut"_s, u"leaf"_s});
        const QPointer<QAbstractItemModel> first(stage.picker->model());
        stage.picker->setItems({u"root"_s});
        QCoreApplication::sendPostedEvents(first, QEvent::DeferredDelete);
        QVERIFY(!first);
        const QPointer<QAbstractItemModel> second(stage.picker->model());
        delete stage.picker;
        QVERIFY(!second);
    }
};

KEL_TEST_MAIN(tst_KELPicker)
#include "tst_kelpicker.moc"
