// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "pinstage.h"
#include "stage.h"

#include <QtWidgets/QScrollBar>

namespace {

const std::vector<QSize> viewSizes{{480, 272}, {800, 480}, {480, 800}, {1280, 800}};
const std::vector<Named> sizeNames{
    {"480 x 272", 0}, {"800 x 480", 1}, {"480 x 800", 2}, {"1280 x 800", 3}};
const std::vector<Named> directions{{"left to right", Qt::LeftToRight},
                                    {"right to left", Qt::RightToLeft}};
const std::vector<Named> signalNames{
    {"entered", 0}, {"accepted", 1}, {"cancelled", 2}, {"closed", 3}};
const std::vector<Named> ways{{"delete", int(Way::Delete)},
                              {"deleteLater", int(Way::DeleteLater)},
                              {"scene cleared", int(Way::ClearScene)}};

QSize rowSize(const char *column)
{
    return viewSizes.at(fetch<size_t>(column));
}

QRectF inScene(const QGraphicsItem *item)
{
    return item->mapRectToScene(item->boundingRect());
}

} // namespace

class tst_KELPinDialogPlace : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void allKeysFitAndAreLargeEnough_data()
    {
        addRows({{"size", sizeNames}, {"direction", directions}});
    }

    void allKeysFitAndAreLargeEnough()
    {
        const QSize size = rowSize("size");
        PinStage stage(true, size);
        stage.dialog->setLayoutDirection(fetch<Qt::LayoutDirection>("direction"));
        QCOMPARE(inScene(stage.dialog), QRectF(QPointF(), size));
        const QList<KELPushButton *> keys = stage.keys();
        QCOMPARE(keys.size(), 12);
        for (const KELPushButton *key : keys) {
            const QRectF place = inScene(key);
            QVERIFY(stage.dialog->boundingRect().contains(place));
            QVERIFY2(place.width() >= 48 && place.height() >= 48, qPrintable(key->text()));
            for (const KELPushButton *other : keys)
                QVERIFY(other == key || !inScene(other).intersects(place.adjusted(-7, -7, 7, 7)));
        }
    }

    void digitsAreNotMirrored()
    {
        PinStage stage;
        const qreal remove = stage.removeKey()->scenePos().x();
        QVERIFY(stage.cancelKey()->scenePos().x() < remove);
        QVERIFY(inScene(stage.key(u'1')).left() > 200);
        stage.dialog->setLayoutDirection(Qt::RightToLeft);
        QVERIFY(stage.cancelKey()->scenePos().x() > stage.removeKey()->scenePos().x());
        QVERIFY(inScene(stage.key(u'3')).right() < 280);
        QVERIFY(inScene(stage.key(u'1')).right() < inScene(stage.key(u'3')).left());
    }

    void followsItsView_data() { addRows({{"from", sizeNames}, {"to", sizeNames}}); }

    void followsItsView()
    {
        const QSize size = rowSize("to");
        PinStage stage(true, rowSize("from"));
        PinStage expected(true, size);
        stage.view.ownScene.setSceneRect(QRectF(QPointF(), size));
        stage.view.resize(size);
        QTRY_COMPARE(inScene(stage.dialog), QRectF(QPointF(), size));
        QCOMPARE(inScene(stage.key(u'1')), inScene(expected.key(u'1')));
        stage.tapDigits(u"1590"_s);
        QCOMPARE(stage.log.lastArguments(), QVariantList{u"1590"_s});
        stage.behind->hide();
        expected.behind->hide();
        expected.tapDigits(u"1590"_s);
        QCOMPARE(KelImage::difference(stage.view.grab().toImage(), expected.view.grab().toImage()),
                 QString());
    }

    void opensBeforeTheViewIsShown()
    {
        PinStage stage(false, QSize(480, 272));
        KelTestView view(QSize(480, 272));
        stage.dialog->open(&view.ownScene);
        view.showOnce();
        QCOMPARE(inScene(stage.dialog), QRectF(0, 0, 480, 272));
    }

    void coversAScaledAndScrolledView()
    {
        PinStage stage;
        stage.view.scale(2, 2);
        QTRY_COMPARE(inScene(stage.dialog).size(), QSizeF(240, 136));
        stage.view.horizontalScrollBar()->setValue(100);
        QTRY_COMPARE(inScene(stage.dialog), QRectF(50, 0, 240, 136));
    }

    void hasSmallerKeysWithoutRoom()
    {
        PinStage stage(true, QSize(200, 120));
        const QList<KELPushButton *> keys = stage.keys();
        for (const KELPushButton *key : keys) {
            QVERIFY(stage.dialog->boundingRect().contains(inScene(key)));
            QVERIFY(inScene(key).height() < 48);
        }
        stage.view.resize(1, 1);
        QTRY_COMPARE(inScene(stage.dialog).size(), QSizeF(1, 1));
    }

    void aLongCaptionLeavesTheKeysTheirSize()
    {
        PinStage stage(true, QSize(272, 480));
        stage.dialog->setCaption(u"Enter the PIN of the installer, please. "_s.repeated(50));
        const QList<KELPushButton *> keys = stage.keys();
        for (const KELPushButton *key : keys) {
            QVERIFY(inScene(key).height() >= 48);
            QVERIFY(stage.dialog->boundingRect().contains(inScene(key)));
        }
    }

    void oddMeasuresCount_data()
    {
        QTest::addColumn<qreal>("number");
        QTest::addColumn<qreal>("gap");
        QTest::newRow("NaN") << qQNaN() << 0.0;
        QTest::newRow("negative") << -5.0 << 0.0;
        QTest::newRow("infinite") << qInf() << 24.0;
        QTest::newRow("fraction") << 4.7 << 4.0;
    }

    void oddMeasuresCount()
    {
        PinStage stage(true, QSize(800, 480));
        KELPartStyle *style = stage.dialog->partStyle();
        style->spacing = style->radius = style->borderWidth = fetch<qreal>("number");
        stage.dialog->styleChanged();
        const QRectF one = inScene(stage.key(u'1'));
        const QRectF two = inScene(stage.key(u'2'));
        QCOMPARE(two.left() - one.right(), fetch<qreal>("gap"));
        stage.view.grab();
    }

    void coversASceneWithoutView()
    {
        QGraphicsScene scene(10, 20, 300, 400);
        auto *dialog = new KELPinDialog;
        dialog->open(&scene);
        QVERIFY(dialog->isOpen());
        QCOMPARE(dialog->geometry(), QRectF(10, 20, 300, 400));
    }

    void doesNotOpenWithoutScene()
    {
        KELPinDialog dialog;
        dialog.open(nullptr);
        QVERIFY(!dialog.isOpen());
    }

    void opensAgainInAnotherScene()
    {
        PinStage stage;
        stage.tapDigits(u"12"_s);
        stage.dialog->cancel();
        KelTestView other(QSize(800, 480));
        other.showOnce();
        stage.dialog->open(&other.ownScene);
        QCOMPARE(stage.dialog->scene(), &other.ownScene);
        QCOMPARE(inScene(stage.dialog), QRectF(0, 0, 800, 480));
        for (int i = 0; i < 4; ++i)
            QTest::keyClick(other.viewport(), Qt::Key_7);
        QCOMPARE(stage.log.lastArguments(), QVariantList{u"7777"_s});
        stage.dialog->open(&stage.view.ownScene);
        QCOMPARE(stage.dialog->scene(), &other.ownScene);
    }

    void theLastOpenedDialogLiesAbove()
    {
        PinStage stage;
        auto *second = new KELPinDialog;
        second->open(&stage.view.ownScene);
        second->cancel();
        stage.dialog->cancel();
        second->open(&stage.view.ownScene);
        stage.dialog->open(&stage.view.ownScene);
        QVERIFY(stage.dialog->isAncestorOf(stage.view.itemAt(stage.centreOf(stage.key(u'5')))));
        second->cancel();
        stage.press(Qt::Key_1);
        stage.dialog->setPinLength(1);
        stage.press(Qt::Key_2);
        QCOMPARE(stage.log.lastArguments(), QVariantList{u"2"_s});
    }

    void aHiddenOrRemovedDialogIsClosed_data()
    {
        addRows({{"way", {{"hidden", 0}, {"removed", 1}}}});
    }

    void aHiddenOrRemovedDialogIsClosed()
    {
        PinStage stage;
        stage.tapDigits(u"12"_s);
        if (fetch<int>("way") == 0)
            stage.dialog->hide();
        else
            stage.view.ownScene.removeItem(stage.dialog);
        QVERIFY(!stage.dialog->isOpen());
        QCOMPARE(stage.log.take(), QString());
        letEventsRun();
        QCOMPARE(stage.log.take(), u"closed"_s);
        stage.dialog->open(&stage.view.ownScene);
        stage.tapDigits(u"3456"_s);
        QCOMPARE(stage.log.lastArguments(), QVariantList{u"3456"_s});
    }

    void theLengthIsBounded_data()
    {
        QTest::addColumn<int>("digits");
        QTest::addColumn<int>("length");
        QTest::newRow("least") << 1 << 1;
        QTest::newRow("less") << 0 << 1;
        QTest::newRow("negative") << -7 << 1;
        QTest::newRow("most") << 12 << 12;
        QTest::newRow("more") << 13 << 12;
    }

    void theLengthIsBounded()
    {
        PinStage stage;
        QCOMPARE(stage.dialog->pinLength(), 4);
        stage.tapDigits(u"555"_s);
        stage.dialog->setPinLength(fetch<int>("digits"));
        const int length = fetch<int>("length");
        QCOMPARE(stage.dialog->pinLength(), length);
        stage.tapDigits(QString(length, u'6'));
        QCOMPARE(stage.log.take(), u"entered"_s);
        QCOMPARE(stage.log.lastArguments(), QVariantList{QString(length, u'6')});
    }

    void thePinIsNotPrinted()
    {
        PinStage stage;
        stage.tapDigits(u"9876"_s);
        qDebug() << stage.dialog.data();
        stage.dialog->dumpObjectInfo();
        const QString lines = takeDebugLines().join(u'\n');
        QVERIFY(lines.contains(u"KELPinDialog"));
        QVERIFY(!lines.contains(u"987"));
    }

    void aSlotMayDeleteTheDialog_data()
    {
        addRows({{"signal", signalNames}, {"way", ways}, {"input", inputs}});
    }

    void aSlotMayDeleteTheDialog()
    {
        PinStage stage;
        stage.hand.use(fetch<Input>("input"));
        const QString signal = QString::fromLatin1(signalNames.at(fetch<size_t>("signal")).name);
        stage.log.on(u"entered"_s, [&] {
            if (signal == u"accepted")
                stage.dialog->accept();
        });
        int calls = 0;
        stage.log.on(signal, [&] {
            ++calls;
            const auto way = fetch<Way>("way");
            if (way == Way::Delete)
                delete stage.dialog;
            else if (way == Way::DeleteLater)
                stage.dialog->deleteLater();
            else
                stage.view.ownScene.clear();
        });
        stage.tapDigits(u"1234"_s);
        if (stage.dialog && stage.dialog->isOpen())
            stage.hand.tap(stage.centreOf(stage.cancelKey()));
        letEventsRun();
        QCOMPARE(calls, 1);
        QVERIFY(!stage.dialog);
    }

    void mayDieWhileItShakes()
    {
        PinStage stage;
        stage.dialog->reject();
        delete stage.dialog;
        letEventsRun();
    }
};

KEL_TEST_MAIN(tst_KELPinDialogPlace)
#include "tst_kelpindialogplace.moc"
