// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "pickerstage.h"

#include <QtGui/QPainter>
#include <QtWidgets/QScrollBar>

namespace {

const std::vector<QSize> viewSizes{{480, 272}, {800, 480}, {480, 800}, {1280, 800}};
const std::vector<Named> sizeNames{
    {"480 x 272", 0}, {"800 x 480", 1}, {"480 x 800", 2}, {"1280 x 800", 3}};
const std::vector<Named> directions{{"left to right", Qt::LeftToRight},
                                    {"right to left", Qt::RightToLeft}};
const std::vector<Named> ways{{"delete", int(Way::Delete)},
                              {"deleteLater", int(Way::DeleteLater)},
                              {"scene cleared", int(Way::ClearScene)},
                              {"parent deleted", int(Way::DeleteParent)}};

void destroy(PickerStage *stage, Way way)
{
    if (way == Way::Delete)
        delete stage->picker;
    else if (way == Way::DeleteLater)
        stage->picker->deleteLater();
    else if (way == Way::ClearScene)
        stage->view.ownScene.clear();
    else
        delete stage->parent;
}

struct Change
{
    const char *name;
    std::function<void(PickerStage *)> make;
};

// Each closes the list.
const std::vector<Change> changes{
    {"hidden", [](PickerStage *stage) { stage->picker->hide(); }},
    {"parent hidden", [](PickerStage *stage) { stage->parent->hide(); }},
    {"disabled", [](PickerStage *stage) { stage->picker->setEnabled(false); }},
    {"moved", [](PickerStage *stage) { stage->picker->setX(30); }},
    {"parent moved", [](PickerStage *stage) { stage->parent->setY(10); }},
    {"resized", [](PickerStage *stage) { stage->picker->resize(200, 64); }},
    {"removed", [](PickerStage *stage) { stage->view.ownScene.removeItem(stage->parent); }},
    {"view resized", [](PickerStage *stage) { stage->view.resize(400, 300); }},
    {"view scaled", [](PickerStage *stage) { stage->view.scale(2, 2); }},
    {"emptied", [](PickerStage *stage) { stage->model.setStringList({}); }},
    {"last row removed", [](PickerStage *stage) { stage->model.removeRows(0, 3); }},
};

} // namespace

class tst_KELPickerList : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void standsWhereThereIsRoom_data()
    {
        QTest::addColumn<int>("rows");
        QTest::addColumn<qreal>("y"); // of the picker, in 480 px
        QTest::addColumn<QRectF>("place");
        QTest::newRow("below") << 3 << 20.0 << QRectF(20, 84, 300, 192);
        QTest::newRow("below, exactly") << 3 << 224.0 << QRectF(20, 288, 300, 192);
        QTest::newRow("above") << 3 << 225.0 << QRectF(20, 33, 300, 192);
        QTest::newRow("above, at the bottom") << 3 << 416.0 << QRectF(20, 224, 300, 192);
        QTest::newRow("more room below") << 100 << 100.0 << QRectF(20, 164, 300, 316);
        QTest::newRow("more room above") << 100 << 300.0 << QRectF(20, 0, 300, 300);
        QTest::newRow("as much room") << 100 << 208.0 << QRectF(20, 272, 300, 208);
        QTest::newRow("beyond the top") << 3 << -200.0 << QRectF(20, 0, 300, 192);
        QTest::newRow("beyond the bottom") << 3 << 600.0 << QRectF(20, 288, 300, 192);
    }

    void standsWhereThereIsRoom()
    {
        PickerStage stage(fetch<int>("rows"), fetch<qreal>("y"), QSize(480, 480));
        stage.picker->open();
        QCOMPARE(stage.placeOfList(), fetch<QRectF>("place"));
    }

    void takesTheWholeHeightWhereNothingFits()
    {
        PickerStage stage(10, 20, QSize(480, 104));
        stage.picker->open();
        QCOMPARE(stage.placeOfList(), QRectF(20, 0, 300, 104));
    }

    void staysInTheView_data()
    {
        QTest::addColumn<qreal>("x");
        QTest::addColumn<qreal>("width");
        QTest::addColumn<QRectF>("place");
        QTest::newRow("beyond the start") << -100.0 << 300.0 << QRectF(0, 84, 300, 192);
        QTest::newRow("beyond the end") << 400.0 << 300.0 << QRectF(180, 84, 300, 192);
        QTest::newRow("wider than the view") << -10.0 << 600.0 << QRectF(0, 84, 480, 192);
    }

    void staysInTheView()
    {
        PickerStage stage;
        stage.picker->setGeometry(fetch<qreal>("x"), 20, fetch<qreal>("width"), 64);
        stage.picker->open();
        QCOMPARE(stage.placeOfList(), fetch<QRectF>("place"));
    }

    void opensInAScaledAndScrolledView()
    {
        PickerStage stage;
        stage.view.scale(2, 2);
        stage.view.horizontalScrollBar()->setValue(40);
        stage.picker->open();
        QCOMPARE(stage.placeOfList(), QRectF(20, 84, 240, 192));
        stage.hand.tap(stage.entry(2));
        QCOMPARE(stage.picker->currentIndex(), 2);
    }

    void rowsAreOfTouchSize()
    {
        PickerStage stage;
        stage.picker->partStyle()->rowHeight = 10;
        stage.picker->styleChanged();
        stage.picker->open();
        QCOMPARE(stage.list()->rowRect(0).height(), 48.0);
        QCOMPARE(stage.placeOfList().height(), 144.0);
    }

    void looksLikeThePicker()
    {
        PickerStage stage;
        stage.picker->setLayoutDirection(Qt::RightToLeft);
        stage.picker->partStyle()->selectedBrush = Qt::magenta;
        stage.picker->partStyle()->backgroundBrush = Qt::yellow;
        stage.picker->setCurrentIndex(0);
        stage.picker->open();
        QCOMPARE(stage.list()->layoutDirection(), Qt::RightToLeft);
        const QImage image = stage.view.grab().toImage();
        QCOMPARE(image.pixelColor(22, 86), QColor(Qt::magenta));
        QCOMPARE(image.pixelColor(22, 86 + 64), QColor(Qt::yellow));
    }

    void showsTheCurrentEntry_data()
    {
        addRows({{"size", sizeNames}, {"row", {{"first", 0}, {"middle", 15}, {"last", 29}}}});
    }

    void showsTheCurrentEntry()
    {
        PickerStage stage(30, 20, viewSizes.at(fetch<size_t>("size")));
        const int row = fetch<int>("row");
        stage.picker->setCurrentIndex(row);
        stage.hand.tap(stage.field());
        KELList *const list = stage.list();
        QCOMPARE(list->currentRow(), row);
        QVERIFY(list->isSelectable());
        QVERIFY(list->rect().contains(list->rowRect(row)));
        if (row == 15)
            QVERIFY(qAbs(list->rowRect(row).center().y() - list->rect().center().y()) <= 32);
    }

    void allEntriesCanBeReached_data()
    {
        addRows({{"size", sizeNames}, {"input", inputs}}, [](const std::vector<int> &row) {
            // The touch screen of the tests is 600 px high.
            return row[0] < 2 || Input(row[1]) == Input::Mouse;
        });
    }

    void allEntriesCanBeReached()
    {
        PickerStage stage(30, 20, viewSizes.at(fetch<size_t>("size")));
        stage.hand.use(fetch<Input>("input"));
        stage.hand.tap(stage.field());
        stage.list()->scrollTo(29);
        stage.hand.tap(stage.view.at(stage.list(), stage.list()->rowRect(29).center()));
        QCOMPARE(stage.picker->currentText(), u"fruit 29"_s);
        stage.hand.tap(stage.field());
        stage.hand.drag(stage.view.at(stage.list(), QPointF(50, 10)),
                        stage.view.at(stage.list(), QPointF(50, 60)));
        QVERIFY(stage.picker->isOpen());
        QCOMPARE(stage.picker->currentIndex(), 29);
    }

    void doesNotOpen_data()
    {
        addRows({{"reason",
                  {{"no entries", 0},
                   {"no model", 1},
                   {"hidden", 2},
                   {"disabled", 3},
                   {"no view", 4},
                   {"no scene", 5}}}});
    }

    void doesNotOpen()
    {
        PickerStage stage;
        QGraphicsScene other;
        const int reason = fetch<int>("reason");
        if (reason == 0)
            stage.picker->setItems({});
        else if (reason == 1)
            stage.picker->setModel(nullptr);
        else if (reason == 2)
            stage.picker->hide();
        else if (reason == 3)
            stage.picker->setEnabled(false);
        else if (reason == 4)
            other.addItem(stage.parent);
        else
            stage.view.ownScene.removeItem(stage.parent);
        stage.picker->open();
        QVERIFY(!stage.picker->isOpen());
        QVERIFY(!stage.list());
        if (reason > 3)
            delete stage.parent;
    }

    void aChangeClosesTheList_data() { addRows({{"change", namesOf(changes)}}); }

    void aChangeClosesTheList()
    {
        PickerStage stage;
        stage.picker->open();
        changes.at(fetch<size_t>("change")).make(&stage);
        QTRY_VERIFY(!stage.picker->isOpen());
        QVERIFY(!stage.list());
        stage.hand.tap(stage.view.centreOf(stage.other));
        QCOMPARE(stage.logOther.count(u"clicked"_s), 1);
        if (stage.parent->scene() == nullptr)
            delete stage.parent;
    }

    void staysOpenWhileEntriesCome()
    {
        PickerStage stage;
        stage.picker->setCurrentIndex(1);
        stage.picker->open();
        stage.model.insertRows(0, 5);
        stage.model.removeRows(7, 1);
        QVERIFY(stage.picker->isOpen());
        QCOMPARE(stage.list()->currentRow(), 6);
        stage.picker->setCurrentIndex(2);
        QCOMPARE(stage.list()->currentRow(), 2);
        stage.log.take();
        stage.picker->setCurrentIndex(6);
        stage.press(Qt::Key_Up);
        stage.press(Qt::Key_Return);
        QCOMPARE(stage.picker->currentIndex(), 5);
    }

    void openingManyEntriesReadsThoseInSight()
    {
        class CountingModel : public QAbstractListModel
        {
        public:
            int rowCount(const QModelIndex & /*parent*/) const override { return 1000; }
            QVariant data(const QModelIndex &index, int role) const override
            {
                reads += role == Qt::DisplayRole ? 1 : 0;
                return role == Qt::DisplayRole ? QVariant(index.row()) : QVariant();
            }
            mutable int reads = 0;
        };
        CountingModel model;
        PickerStage stage;
        stage.picker->setModel(&model);
        stage.picker->setCurrentIndex(500);
        model.reads = 0;
        stage.picker->open();
        stage.view.grab();
        QVERIFY2(model.reads < 25, qPrintable(QString::number(model.reads)));
    }

    void disabledEntriesAreNotChosen()
    {
        class Model : public QStringListModel
        {
        public:
            using QStringListModel::QStringListModel;
            Qt::ItemFlags flags(const QModelIndex &index) const override
            {
                return index.row() % 2 == 0 ? Qt::NoItemFlags : Qt::ItemIsEnabled;
            }
        };
        Model model({u"a"_s, u"b"_s, u"c"_s, u"d"_s, u"e"_s});
        PickerStage stage;
        stage.picker->setModel(&model);
        stage.picker->setFocus();
        stage.press(Qt::Key_Down);
        QCOMPARE(stage.picker->currentIndex(), 1);
        stage.press(Qt::Key_Down);
        QCOMPARE(stage.picker->currentIndex(), 3);
        stage.press(Qt::Key_Down);
        QCOMPARE(stage.picker->currentIndex(), 3);
        stage.picker->open();
        stage.hand.tap(stage.entry(2));
        QVERIFY(stage.picker->isOpen());
        QCOMPARE(stage.picker->currentIndex(), 3);
    }

    void aFurtherFingerReachesNothing()
    {
        PickerStage stage;
        stage.picker->open();
        stage.hand.fingers().press(0, stage.entry(1));
        stage.hand.fingers().tap(1, stage.view.centreOf(stage.other));
        QCOMPARE(stage.logOther.take(), QString());
    }

    void aSlotMayDeleteThePicker_data()
    {
        addRows({{"signal",
                  {{"clicked", 0},
                   {"currentIndexChanged", 1},
                   {"currentTextChanged", 2},
                   {"activated", 3}}},
                 {"way", ways},
                 {"input", inputs}});
    }

    void aSlotMayDeleteThePicker()
    {
        PickerStage stage;
        stage.hand.use(fetch<Input>("input"));
        const QVector<QString> names{u"clicked"_s, u"currentIndexChanged"_s,
                                     u"currentTextChanged"_s, u"activated"_s};
        int calls = 0;
        stage.log.on(names.at(fetch<int>("signal")), [&] {
            ++calls;
            destroy(&stage, fetch<Way>("way"));
        });
        stage.hand.tap(stage.field());
        if (stage.list())
            stage.hand.tap(stage.entry(1));
        letEventsRun();
        QCOMPARE(calls, 1);
        QVERIFY(!stage.picker);
        QVERIFY(!stage.list());
    }

    void mayDieWhileItsListIsOpen_data() { addRows({{"way", ways}}); }

    void mayDieWhileItsListIsOpen()
    {
        PickerStage stage;
        stage.picker->open();
        destroy(&stage, fetch<Way>("way"));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!stage.picker);
        QVERIFY(!stage.list());
        stage.hand.tap(QPoint(200, 200));
    }

    void aSlotMayDeleteTheModel()
    {
        PickerStage stage;
        auto *model = new QStringListModel({u"nut"_s, u"leaf"_s});
        stage.picker->setModel(model);
        stage.log.on(u"currentIndexChanged"_s, [&model] { delete std::exchange(model, nullptr); });
        stage.hand.tap(stage.field());
        stage.hand.tap(stage.entry(1));
        QCOMPARE(stage.picker->currentIndex(), -1);
        QCOMPARE(stage.picker->currentText(), QString());
    }

    void isPaintedAsDocumented_data() { addRows({{"size", sizeNames}, {"direction", directions}}); }

    // The list as KELList paints it, above the dimmed view.
    void isPaintedAsDocumented()
    {
        const QSize size = viewSizes.at(fetch<size_t>("size"));
        PickerStage stage(30, 20, size);
        stage.picker->setLayoutDirection(fetch<Qt::LayoutDirection>("direction"));
        stage.picker->setCurrentIndex(1);
        QImage expected = stage.view.grab().toImage();
        stage.picker->open();
        QPainter painter(&expected);
        painter.fillRect(expected.rect(), QColor(0, 0, 0, 77));
        painter.translate(stage.placeOfList().topLeft());
        KelImage::paintTree(&painter, stage.list());
        painter.end();
        const QImage actual = stage.view.grab().toImage();
        QCOMPARE(KelImage::difference(actual, expected), QString());
    }
};

KEL_TEST_MAIN(tst_KELPickerList)
#include "tst_kelpickerlist.moc"
