// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "liststage.h"

#include <kelmotion.h>

class tst_KELList : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void aNewListIsEmpty()
    {
        const KELList list;
        QVERIFY(!list.model());
        QCOMPARE(list.position(), 0);
        QCOMPARE(list.currentRow(), -1);
        QVERIFY(!list.isSelectable());
        QVERIFY(!list.areSectionsShown());
        QVERIFY(!list.isMoving());
        QCOMPARE(list.emptyText(), QString());
        QVERIFY(!list.indexAt(QPointF(5, 5)).isValid());
        QVERIFY(list.rowRect(0).isEmpty());
    }

    void thePositionStaysWithinTheRows_data()
    {
        QTest::addColumn<int>("wanted");
        QTest::addColumn<int>("position");
        QTest::newRow("in the middle") << 1000 << 1000;
        QTest::newRow("the end") << 100 * rowPx - 256 << 100 * rowPx - 256;
        QTest::newRow("beyond the end") << 100 * rowPx << 100 * rowPx - 256;
        QTest::newRow("beyond the beginning") << -1 << 0;
    }

    void thePositionStaysWithinTheRows()
    {
        QFETCH(const int, wanted);
        QFETCH(const int, position);
        const ListStage stage;
        stage.list->setPosition(wanted);
        QCOMPARE(stage.list->position(), position);
    }

    void aShortListDoesNotScroll()
    {
        const ListStage stage(2);
        stage.list->setPosition(10);
        QCOMPARE(stage.list->position(), 0);
    }

    void rowsHaveTheirPlaces()
    {
        const ListStage stage;
        stage.list->setPosition(100);
        QCOMPARE(stage.list->rowRect(3), QRectF(0, 3 * rowPx - 100, 200, rowPx));
        QCOMPARE(stage.list->indexAt(QPointF(10, 0)).row(), 1);
        QCOMPARE(stage.list->indexAt(QPointF(10, 27)).row(), 1);
        QCOMPARE(stage.list->indexAt(QPointF(10, 28)).row(), 2);
        QVERIFY(!stage.list->indexAt(QPointF(10, -1)).isValid());
        QVERIFY(!stage.list->indexAt(QPointF(201, 10)).isValid());
    }

    void scrollingToARowShowsAllOfIt_data()
    {
        QTest::addColumn<int>("row");
        QTest::addColumn<int>("position");
        QTest::newRow("above") << 2 << 2 * rowPx;
        QTest::newRow("in sight") << 11 << 10 * rowPx;
        QTest::newRow("below") << 20 << 21 * rowPx - 256;
        QTest::newRow("no row") << 100 << 10 * rowPx;
        QTest::newRow("negative") << -1 << 10 * rowPx;
    }

    void scrollingToARowShowsAllOfIt()
    {
        QFETCH(const int, row);
        QFETCH(const int, position);
        const ListStage stage;
        stage.list->setPosition(10 * rowPx);
        stage.list->scrollTo(row);
        QCOMPARE(stage.list->position(), position);
    }

    void theCurrentRowIsTold()
    {
        ListStage stage;
        stage.list->setCurrentRow(3);
        stage.list->setCurrentRow(3);
        QCOMPARE(stage.list->currentRow(), 3);
        QCOMPARE(stage.log.take(), u"currentRowChanged"_s);
        stage.list->setCurrentRow(100);
        QCOMPARE(stage.list->currentRow(), -1);
        QCOMPARE(stage.log.take(), u"currentRowChanged"_s);
    }

    void theCurrentRowMovesWithItsRow()
    {
        ListStage stage;
        stage.list->setCurrentRow(3);
        stage.log.take();
        stage.model->insertRow(0, new QStandardItem);
        QCOMPARE(stage.list->currentRow(), 4);
        QCOMPARE(stage.takeLog(), u"currentRowChanged"_s);
        stage.model->removeRow(4);
        QCOMPARE(stage.list->currentRow(), -1);
        QCOMPARE(stage.takeLog(), u"currentRowChanged"_s);
    }

    void rowsInSightStay_data()
    {
        QTest::addColumn<int>("inserted");
        QTest::addColumn<int>("removed");
        QTest::addColumn<int>("expected"); // the first row in sight
        QTest::newRow("one is inserted above") << 2 << -1 << 11;
        QTest::newRow("one is inserted in their place") << 10 << -1 << 11;
        QTest::newRow("one is inserted below") << 11 << -1 << 10;
        QTest::newRow("one is removed above") << -1 << 2 << 9;
        QTest::newRow("one is removed below") << -1 << 12 << 10;
    }

    void rowsInSightStay()
    {
        QFETCH(const int, inserted);
        QFETCH(const int, removed);
        QFETCH(const int, expected);
        ListStage stage;
        stage.list->setPosition(10 * rowPx + 5);
        if (inserted >= 0)
            stage.model->insertRow(inserted, new QStandardItem);
        else
            stage.model->removeRow(removed);
        QCOMPARE(stage.list->position(), expected * rowPx + 5);
    }

    void aModelMayShrinkAndDie()
    {
        ListStage stage;
        stage.list->setPosition(5000);
        stage.model->removeRows(50, 50);
        QCOMPARE(stage.list->position(), 50 * rowPx - 256);
        stage.model->clear();
        QCOMPARE(stage.list->position(), 0);
        stage.model->appendRow(new QStandardItem);
        QVERIFY(!stage.list->rowRect(0).isEmpty());
        stage.model.reset();
        QVERIFY(!stage.list->model());
        QVERIFY(stage.list->rowRect(0).isEmpty());
        stage.list->setPosition(10);
        stage.list->setCurrentRow(0);
        QCOMPARE(stage.list->currentRow(), -1);
    }

    void childrenOfRowsDoNotCount()
    {
        ListStage stage(2);
        stage.model->item(0)->appendRow(new QStandardItem);
        QVERIFY(stage.list->rowRect(2).isEmpty());
        stage.model->item(0)->removeRow(0);
        QVERIFY(!stage.list->rowRect(1).isEmpty());
    }

    void sectionsHaveHeadings()
    {
        ListStage stage(6);
        for (int row = 0; row < 6; ++row)
            stage.model->item(row)->setData(row < 4 ? u"first"_s : u"second"_s,
                                            KELList::SectionRole);
        stage.list->setSectionsShown(true);
        const qreal heading = stage.list->rowRect(0).y();
        QCOMPARE(heading, 32.0);
        QCOMPARE(stage.list->rowRect(4).y(), 2 * heading + 4 * rowPx);
        QVERIFY(!stage.list->indexAt(QPointF(10, 10)).isValid());
        QCOMPARE(stage.list->indexAt(QPointF(10, heading)).row(), 0);
        stage.list->setPosition(100000);
        QCOMPARE(stage.list->position(), int(2 * heading) + 6 * rowPx - 256);
        QVERIFY(!stage.list->indexAt(QPointF(10, 256 - 2 * rowPx - 1)).isValid());
        QCOMPARE(stage.list->indexAt(QPointF(10, 256 - 2 * rowPx)).row(), 4);
        stage.list->scrollTo(0);
        QCOMPARE(stage.list->position(), 0);
    }

    void keysMoveTheCurrentRow_data()
    {
        addRows({{"key",
                  {{"down", Qt::Key_Down},
                   {"up", Qt::Key_Up},
                   {"page down", Qt::Key_PageDown},
                   {"page up", Qt::Key_PageUp},
                   {"home", Qt::Key_Home},
                   {"end", Qt::Key_End}}}});
    }

    void keysMoveTheCurrentRow()
    {
        static const QHash<int, int> rows = {{Qt::Key_Down, 51},     {Qt::Key_Up, 49},
                                             {Qt::Key_PageDown, 53}, {Qt::Key_PageUp, 47},
                                             {Qt::Key_Home, 0},      {Qt::Key_End, 99}};
        ListStage stage;
        QVERIFY(stage.view.showAndWait());
        stage.list->setSelectable(true);
        stage.list->setCurrentRow(50);
        stage.list->setFocus();
        QTest::keyClick(&stage.view, fetch<Qt::Key>("key"));
        QCOMPARE(stage.list->currentRow(), rows.value(fetch<int>("key")));
        const QRectF row = stage.list->rowRect(stage.list->currentRow());
        QVERIFY(stage.list->rect().contains(row));
    }

    void keysTapTheCurrentRow()
    {
        ListStage stage;
        QVERIFY(stage.view.showAndWait());
        stage.list->setSelectable(true);
        stage.list->setCurrentRow(2);
        stage.list->setFocus();
        stage.log.take();
        for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter, Qt::Key_Select}) {
            QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
            QCoreApplication::sendEvent(&stage.view, &event);
        }
        QCOMPARE(stage.takeLog(), u"clicked clicked clicked clicked"_s);
    }

    void theModelIsAskedAboutNewRowsOnly()
    {
        ListStage stage(10000);
        QVERIFY(stage.view.showAndWait());
        letEventsRun();
        stage.model->reads = 0;
        for (int position = 0; position < 50 * rowPx; position += 7) {
            stage.list->setPosition(position);
            stage.view.grab();
        }
        QVERIFY2(stage.model->reads <= 52, QByteArray::number(stage.model->reads));
    }

    void slotsMayDelete_data()
    {
        addRows({{"signal", {{"positionChanged", 0}, {"currentRowChanged", 1}, {"clicked", 2}}},
                 {"victim", {{"the list", 0}, {"the model", 1}, {"the list later", 2}}}});
    }

    void slotsMayDelete()
    {
        static const QStringList entries = {u"positionChanged"_s, u"currentRowChanged"_s,
                                            u"clicked"_s};
        ListStage stage;
        stage.list->setSelectable(true);
        QVERIFY(stage.view.showAndWait());
        stage.log.on(entries.at(fetch<int>("signal")), [&stage] {
            if (fetch<int>("victim") == 0)
                delete stage.list;
            else if (fetch<int>("victim") == 1)
                stage.model.reset();
            else
                stage.list->deleteLater();
        });
        stage.hand.tap(stage.placeOf(1));
        if (stage.list)
            stage.flick(-100);
        letEventsRun();
    }
};

KEL_TEST_MAIN(tst_KELList)
#include "tst_kellist.moc"
