// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "handrow.h"
#include "signallog.h"
#include "stage.h"

#include <kelmotion.h>
#include <keltouch.h>

#include <QtWidgets/QGraphicsLinearLayout>

namespace {

const std::vector<Named> ends = {{"no end", KELRow::NoEnd},
                                 {"switch", KELRow::Switch},
                                 {"radio", KELRow::Radio},
                                 {"value", KELRow::Value},
                                 {"arrow", KELRow::Arrow}};
const std::vector<Named> keys = {{"space", Qt::Key_Space},
                                 {"return", Qt::Key_Return},
                                 {"enter", Qt::Key_Enter},
                                 {"select", Qt::Key_Select}};
const std::vector<Named> ways = {{"delete", int(Way::Delete)},
                                 {"delete later", int(Way::DeleteLater)},
                                 {"clear the scene", int(Way::ClearScene)},
                                 {"delete the parent", int(Way::DeleteParent)}};

// Three rows below each other in one parent item; the log has the signals of each.
class RowStage
{
public:
    explicit RowStage(KELRow::End end, Input input = Input::Mouse) : hand(&view, input)
    {
        parent = new PlainItem(QRectF(0, 0, 300, 200));
        view.ownScene.setItemIndexMethod(QGraphicsScene::NoIndex);
        for (int i = 0; i < 3; ++i) {
            rows[i] = new KELRow(parent);
            rows[i]->setCaption(u"Row"_s);
            rows[i]->setEnd(end);
            rows[i]->setGeometry(0, 64 * i, 300, 64);
            log.listenTo(rows[i], QString::number(i));
        }
        parent->setPos(50, 50);
        view.ownScene.addItem(parent);
    }

    static QPoint at(int row) { return QPoint(200, 50 + 64 * row + 32); }

    void destroy(Way way, int row)
    {
        if (way == Way::Delete)
            delete rows[row];
        else if (way == Way::DeleteLater)
            rows[row]->deleteLater();
        else if (way == Way::ClearScene)
            view.ownScene.clear();
        else
            delete parent;
    }

    // Whether the row with the focus took it.
    bool pressKey(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
                  bool isRepeated = false)
    {
        QKeyEvent event(QEvent::KeyPress, key, modifiers, QString(), isRepeated);
        QCoreApplication::sendEvent(view.viewport(), &event);
        return event.isAccepted();
    }

    QString checkedRows() const
    {
        QString checked;
        for (const QPointer<KELRow> &row : rows)
            checked += row && row->isChecked() ? u'1' : u'0';
        return checked;
    }

    KelTestView view;
    QPointer<PlainItem> parent;
    QPointer<KELRow> rows[3];
    SignalLog log;
    Hand hand;
};

// Where the knob of a row of 300 px is: the x of its middle.
int knobOf(KELRow *row)
{
    row->partStyle()->backgroundBrush = Qt::NoBrush;
    const QImage image = KelImage::paint(row, QSize(300, 64));
    const QColor colour = (row->isChecked() ? row->partStyle()->accentForegroundBrush
                                            : row->partStyle()->knobBrush)
                              .color();
    return KelImage::areaOf(image.copy(228, 20, 56, 24), colour).center().x();
}

} // namespace

class tst_KELRow : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void aTapDoesWhatTheEndSays_data() { addRows({{"end", ends}, {"input", inputs}}); }

    void aTapDoesWhatTheEndSays()
    {
        const auto end = fetch<KELRow::End>("end");
        const bool isCheckable = end == KELRow::Switch || end == KELRow::Radio;
        RowStage stage(end, fetch<Input>("input"));
        stage.hand.tap(stage.at(1));
        QCOMPARE(stage.log.take(), isCheckable ? u"1.checkedChanged 1.clicked"_s : u"1.clicked"_s);
        QCOMPARE(stage.rows[1]->isChecked(), isCheckable);
        stage.hand.tap(stage.at(1));
        QCOMPARE(stage.log.take(),
                 end == KELRow::Switch ? u"1.checkedChanged 1.clicked"_s : u"1.clicked"_s);
        QCOMPARE(stage.rows[1]->isChecked(), end == KELRow::Radio);
    }

    void theWholeRowIsTheTarget()
    {
        RowStage stage(KELRow::Switch);
        for (const QPoint &corner :
             {QPoint(51, 115), QPoint(348, 115), QPoint(51, 176), QPoint(348, 176)}) {
            stage.hand.tap(corner);
            QCOMPARE(stage.log.take(), u"1.checkedChanged 1.clicked"_s);
        }
    }

    void aDragIsNoTap()
    {
        RowStage stage(KELRow::Switch);
        stage.hand.drag(stage.at(1), stage.at(1) + QPoint(30, 0));
        QCOMPARE(stage.log.take(), QString());
        QVERIFY(!stage.rows[1]->isChecked());
    }

    void aDisabledRowIsNotTapped()
    {
        RowStage stage(KELRow::Switch);
        stage.rows[1]->setEnabled(false);
        stage.hand.tap(stage.at(1));
        QCOMPARE(stage.log.take(), QString());
    }

    void aKeyIsATap_data() { addRows({{"end", ends}, {"key", keys}}); }

    void aKeyIsATap()
    {
        const auto end = fetch<KELRow::End>("end");
        const bool isCheckable = end == KELRow::Switch || end == KELRow::Radio;
        RowStage stage(end);
        QVERIFY(stage.view.showAndWait());
        stage.rows[1]->setFocus();
        stage.pressKey(fetch<Qt::Key>("key"));
        QCOMPARE(stage.log.take(), isCheckable ? u"1.checkedChanged 1.clicked"_s : u"1.clicked"_s);
    }

    void otherKeysAreNone()
    {
        RowStage stage(KELRow::Switch);
        QVERIFY(stage.view.showAndWait());
        stage.rows[1]->setFocus();
        QVERIFY(!stage.pressKey(Qt::Key_A));
        QVERIFY(!stage.pressKey(Qt::Key_Space, Qt::ControlModifier));
        QVERIFY(stage.pressKey(Qt::Key_Space, Qt::NoModifier, true));
        QCOMPARE(stage.log.take(), QString());
    }

    void radioRowsOfAParentAreExclusive()
    {
        RowStage stage(KELRow::Radio);
        stage.hand.tap(stage.at(0));
        QCOMPARE(stage.log.take(), u"0.checkedChanged 0.clicked"_s);
        stage.hand.tap(stage.at(2));
        QCOMPARE(stage.log.take(), u"0.checkedChanged 2.checkedChanged 2.clicked"_s);
        QCOMPARE(stage.checkedRows(), u"001"_s);
        stage.rows[1]->setChecked(true);
        QCOMPARE(stage.log.take(), u"2.checkedChanged 1.checkedChanged"_s);
        QCOMPARE(stage.checkedRows(), u"010"_s);
        stage.rows[1]->setChecked(false);
        QCOMPARE(stage.log.take(), u"1.checkedChanged"_s);
        QCOMPARE(stage.checkedRows(), u"000"_s);
    }

    void bothStatesAreNewBeforeTheFirstSignal()
    {
        RowStage stage(KELRow::Radio);
        stage.rows[0]->setChecked(true);
        QStringList seen;
        stage.log.on(u"0.checkedChanged"_s, [&] { seen += stage.checkedRows(); });
        stage.log.on(u"1.checkedChanged"_s, [&] { seen += stage.checkedRows(); });
        stage.hand.tap(stage.at(1));
        QCOMPARE(seen, QStringList({u"010"_s, u"010"_s}));
        QCOMPARE(stage.log.lastArguments(), QVariantList());
    }

    void tellsTheState()
    {
        KELRow row;
        QList<bool> told;
        connect(&row, &KELRow::checkedChanged, &row, [&](bool checked) { told += checked; });
        row.setChecked(true);
        row.setChecked(true);
        row.setChecked(false);
        QCOMPARE(told, QList<bool>({true, false}));
    }

    void otherRowsAreNoneOfTheGroup()
    {
        RowStage stage(KELRow::Radio);
        stage.rows[0]->setEnd(KELRow::Switch);
        stage.rows[0]->setChecked(true);
        PlainItem elsewhere;
        stage.rows[2]->setParentItem(&elsewhere);
        stage.rows[2]->setChecked(true);
        stage.rows[1]->setChecked(true);
        QCOMPARE(stage.checkedRows(), u"111"_s);
        stage.rows[2]->setParentItem(stage.parent);
        QCOMPARE(stage.checkedRows(), u"111"_s);
        stage.rows[1]->setChecked(false);
        stage.rows[1]->setChecked(true);
        QCOMPARE(stage.checkedRows(), u"110"_s);
    }

    void rowsWithoutAParentAreExclusiveInTheirScene()
    {
        QGraphicsScene scene;
        KELRow alone;
        KELRow *rows[] = {new KELRow, new KELRow};
        alone.setEnd(KELRow::Radio);
        alone.setChecked(true);
        for (KELRow *row : rows) {
            row->setEnd(KELRow::Radio);
            scene.addItem(row);
            row->setChecked(true);
        }
        auto *child = new KELRow(rows[0]);
        child->setEnd(KELRow::Radio);
        child->setChecked(true);
        rows[0]->setChecked(true);
        rows[1]->setChecked(true);
        QVERIFY(alone.isChecked());
        QVERIFY(child->isChecked());
        QVERIFY(!rows[0]->isChecked());
        QVERIFY(rows[1]->isChecked());
    }

    void aSlotMayCheckAnotherRow()
    {
        RowStage stage(KELRow::Radio);
        stage.rows[0]->setChecked(true);
        stage.log.take();
        stage.log.on(u"0.checkedChanged"_s, [&] { stage.rows[0]->setChecked(true); });
        stage.hand.tap(stage.at(1));
        QCOMPARE(stage.log.take(),
                 u"0.checkedChanged 1.checkedChanged 0.checkedChanged 1.clicked"_s);
        QCOMPARE(stage.checkedRows(), u"100"_s);
    }

    void aSlotMayUndoTheTap()
    {
        RowStage stage(KELRow::Switch);
        stage.log.on(u"1.checkedChanged"_s, [&] { stage.rows[1]->setChecked(false); });
        stage.hand.tap(stage.at(1));
        QCOMPARE(stage.log.take(), u"1.checkedChanged 1.checkedChanged 1.clicked"_s);
        QVERIFY(!stage.rows[1]->isChecked());
    }

    void aSlotMayDeleteRows_data()
    {
        addRows({{"signal",
                  {{"the former row's checkedChanged", 0}, {"checkedChanged", 1}, {"clicked", 2}}},
                 {"way", ways},
                 {"row", {{"the former row", 0}, {"the tapped row", 1}, {"another row", 2}}}});
    }

    void aSlotMayDeleteRows()
    {
        const QStringList signalsInOrder{u"0.checkedChanged"_s, u"1.checkedChanged"_s,
                                         u"1.clicked"_s};
        RowStage stage(KELRow::Radio);
        stage.rows[0]->setChecked(true);
        stage.log.take();
        stage.log.on(signalsInOrder[fetch<int>("signal")],
                     [&] { stage.destroy(fetch<Way>("way"), fetch<int>("row")); });
        stage.hand.tap(stage.at(1));
        letEventsRun();
        QVERIFY(!stage.rows[fetch<int>("row")]);
    }

    void theKnobGlides()
    {
        RowStage stage(KELRow::Switch);
        QVERIFY(stage.view.showAndWait());
        stage.hand.tap(stage.at(1));
        QCOMPARE(knobOf(stage.rows[1]), 15);
        QTRY_COMPARE(knobOf(stage.rows[1]), 39);
        stage.hand.tap(stage.at(1));
        QCOMPARE(knobOf(stage.rows[1]), 39);
        QTRY_COMPARE(knobOf(stage.rows[1]), 15);
    }

    void theKnobArrivesWhereNobodySeesIt_data()
    {
        addRows({{"case", {{"hidden", 0}, {"removed", 1}, {"no motion", 2}}}});
    }

    void theKnobArrivesWhereNobodySeesIt()
    {
        const int where = fetch<int>("case");
        RowStage stage(KELRow::Switch);
        QVERIFY(stage.view.showAndWait());
        KELMotion::setEnabled(where != 2);
        stage.hand.tap(stage.at(1));
        KELMotion::setEnabled(true);
        QCOMPARE(knobOf(stage.rows[1]), where == 2 ? 39 : 15);
        const std::unique_ptr<QGraphicsItem> removed(where == 1 ? stage.parent.data() : nullptr);
        if (where == 0)
            stage.parent->hide();
        else if (where == 1)
            stage.view.ownScene.removeItem(stage.parent);
        QTRY_COMPARE(knobOf(stage.rows[1]), 39);
    }

    void aHiddenSwitchDoesNotGlide()
    {
        RowStage stage(KELRow::Switch);
        stage.rows[0]->hide();
        stage.rows[0]->setChecked(true);
        QCOMPARE(knobOf(stage.rows[0]), 39);
        KELRow alone;
        alone.setEnd(KELRow::Switch);
        alone.resize(300, 64);
        alone.setChecked(true);
        QCOMPARE(knobOf(&alone), 39);
    }

    void asksForTheHeightOfARow()
    {
        KELRow row;
        const auto height = [&row] {
            row.styleChanged();
            return row.effectiveSizeHint(Qt::PreferredSize).height();
        };
        QCOMPARE(height(), 64.0);
        row.setDetail(u"detail"_s);
        QCOMPARE(height(), 64.0);
        row.partStyle()->rowHeight = 100;
        QCOMPARE(height(), 100.0);
        row.partStyle()->rowHeight = 3;
        QVERIFY(height() >= KELTouch::leastSize());
        KELTouch::setPixelsPerMillimetre(20);
        const qreal asked = height();
        KELTouch::setPixelsPerMillimetre(0);
        QCOMPARE(asked, 180.0);
    }

    void growsWithItsFonts()
    {
        KELRow row;
        row.partStyle()->font.setPixelSize(80);
        row.styleChanged();
        const qreal lineHeight = QFontMetricsF(row.partStyle()->font).height();
        QCOMPARE(row.effectiveSizeHint(Qt::PreferredSize).height(), std::ceil(lineHeight + 16));
        row.setDetail(u"detail"_s);
        const qreal detailHeight = QFontMetricsF(row.partStyle()->secondaryFont).height();
        QCOMPARE(row.effectiveSizeHint(Qt::PreferredSize).height(),
                 std::ceil(lineHeight + 4 + detailHeight + 16));
    }

    // At the width of the hint nothing is elided, at one px less something is.
    void asksForTheWidthOfItsContent_data() { addRows({{"end", ends}}); }

    void asksForTheWidthOfItsContent()
    {
        HandRow hand;
        hand.caption = u"Lock after"_s;
        hand.value = u"5 minutes"_s;
        hand.glyph = u"A"_s;
        hand.end = fetch<KELRow::End>("end");
        const std::unique_ptr<KELRow> row(newRow(hand));
        const qreal width = row->effectiveSizeHint(Qt::PreferredSize).width();
        const qreal marks[] = {0, 56 + 16, 24 + 16, 0, 8 + 16};
        const QFontMetricsF metrics(row->partStyle()->font);
        QCOMPARE(width,
                 std::ceil(16 + 24 + 16 + metrics.horizontalAdvance(hand.caption) + 16
                           + metrics.horizontalAdvance(hand.value) + marks[hand.end] + 16));
        row->setDetail(QString(60, u'm'));
        QVERIFY(row->effectiveSizeHint(Qt::PreferredSize).width() > width);
    }

    void aLayoutGivesItTheWidth()
    {
        QGraphicsScene scene;
        auto *page = new QGraphicsWidget;
        auto *layout = new QGraphicsLinearLayout(Qt::Vertical, page);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->setSpacing(0);
        auto *row = new KELRow;
        layout->addItem(row);
        layout->addItem(new KELRow);
        layout->addStretch();
        scene.addItem(page);
        page->setGeometry(0, 0, 480, 272);
        QCoreApplication::sendPostedEvents();
        QCOMPARE(row->geometry(), QRectF(0, 0, 480, 64));
        row->partStyle()->rowHeight = 80;
        row->styleChanged();
        QCoreApplication::sendPostedEvents();
        QCOMPARE(row->geometry(), QRectF(0, 0, 480, 80));
    }

    void rowsFormACard()
    {
        KELRow rows[3];
        KELRow::formCard({&rows[0], &rows[1], nullptr, &rows[2]});
        QCOMPARE(rows[0].card(), KELRow::CardTop);
        QCOMPARE(rows[1].card(), KELRow::CardMiddle);
        QCOMPARE(rows[2].card(), KELRow::CardBottom);
        KELRow::formCard({&rows[1]});
        QCOMPARE(rows[1].card(), KELRow::WholeCard);
        rows[1].setCard(KELRow::Card(9));
        QCOMPARE(rows[1].card(), KELRow::NoCard);
        KELRow::formCard({});
        KELRow::formCard({nullptr});
    }

    void keepsWhatItIsGiven()
    {
        KELRow row;
        QCOMPARE(row.end(), KELRow::NoEnd);
        QVERIFY(row.hasSeparator());
        QVERIFY(row.glyph().isNull());
        QVERIFY(row.picture().isNull());
        row.setProperty("caption", u"caption"_s);
        row.setProperty("detail", u"detail"_s);
        row.setProperty("value", u"value"_s);
        row.setProperty("end", u"Radio"_s);
        row.setProperty("checked", true);
        row.setProperty("separator", false);
        row.setGlyph(KELIconFont(0xf015));
        QCOMPARE(row.caption(), u"caption"_s);
        QCOMPARE(row.detail(), u"detail"_s);
        QCOMPARE(row.value(), u"value"_s);
        QCOMPARE(row.end(), KELRow::Radio);
        QVERIFY(row.isChecked());
        QVERIFY(!row.hasSeparator());
        QCOMPARE(row.glyph().getIcon(), QChar(0xf015));
        row.setGlyph(KELIconFont());
        QVERIFY(row.glyph().isNull());
        row.setEnd(KELRow::End(77));
        QCOMPARE(row.end(), KELRow::NoEnd);
        row.setEnd(KELRow::End(-1));
        QCOMPARE(row.end(), KELRow::NoEnd);
    }
};

KEL_TEST_MAIN(tst_KELRow)
#include "tst_kelrow.moc"
