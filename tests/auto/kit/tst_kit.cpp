// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "controltest.h"
#include "handdrawing.h"
#include "livingobjects.h"
#include "looks.h"
#include "losses.h"
#include "program.h"
#include "record.h"

#include <kelapplicationnotify.h>
#include <kelcheckbox.h>

#include <QtCore/QThread>
#include <QtCore/QTimer>
#include <QtWidgets/QPushButton>

#include <memory>

// What the tests are made of does what they believe.
class tst_Kit : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void slidingOffIsNoClick_data() { addRows({{"input", inputs}}); }

    void slidingOffIsNoClick()
    {
        Stage<KELPushButton> stage;
        stage.hand.use(fetch<Input>("input"));
        stage.hand.drag(stage.centre(), QPoint(10, 10));
        QCOMPARE(stage.log.take(), u"press release"_s);
    }

    void logNamesTheSignalsOfBothControls()
    {
        Stage<KELCheckBox> stage;
        stage.hand.tap(stage.centre());
        stage.hand.tap(stage.otherCentre());
        QCOMPARE(stage.log.take(),
                 u"press checked checkChanged release clicked other.press other.release "
                 "other.clicked"_s);
        QCOMPARE(stage.log.takePoints().size(), 4);
        QCOMPARE(stage.log.take(), QString());
    }

    void logRunsSlots_data() { addRows({{"input", inputs}, {"way", deletionWays}}); }

    void logRunsSlots()
    {
        Stage<KELPushButton> stage;
        stage.hand.use(fetch<Input>("input"));
        stage.log.on(u"press"_s, [&] { stage.destroy(fetch<Way>("way")); });
        stage.hand.tap(stage.centre());
        QTRY_VERIFY(!stage.control);
        QCOMPARE(stage.destroyCalls, 1);
        QVERIFY(stage.nextControlIsClicked());
    }

    void doubleTapIsOne_data() { addRows({{"input", inputs}}); }

    void doubleTapIsOne()
    {
        Stage<KELPushButton> stage;
        stage.hand.use(fetch<Input>("input"));
        stage.hand.doubleTap(stage.centre());
        QCOMPARE(stage.log.take(), u"press release clicked press doubleClicked release clicked"_s);
    }

    void holdingNeedsNoTime_data() { addRows({{"input", inputs}}); }

    void holdingNeedsNoTime()
    {
        Stage<KELPushButton> stage;
        stage.hand.use(fetch<Input>("input"));
        stage.hand.press(stage.centre());
        endLongPressTime(stage.control);
        stage.hand.release();
        QCOMPARE(stage.log.take(), u"press longPress release"_s);
    }

    void cancelTakesTheTouchAway()
    {
        Stage<KELPushButton> stage;
        stage.hand.use(Input::Touch);
        stage.hand.press(stage.centre());
        stage.hand.cancel();
        QVERIFY(!stage->isMouseDown());
        QCOMPARE(stage.log.take(), u"press release"_s);
    }

    void hoverIsWrittenDownApart()
    {
        Stage<KELPushButton> stage;
        stage.hand.hover(stage.centre());
        stage.hand.hover(QPoint(10, 10));
        QCOMPARE(stage.log.takeWithHover(), u"enter leave"_s);
        stage.hand.hover(stage.otherCentre());
        QCOMPARE(stage.log.take(), QString());
    }

    void lossTakesThePointerAway_data() { addRows({{"loss", lossNames()}}); }

    void lossTakesThePointerAway()
    {
        const Loss &loss = losses().at(size_t(fetch<int>("loss")));
        Stage<KELPushButton> stage;
        stage.hand.press(stage.centre());
        QVERIFY(stage->isMouseDown());
        loss.lose(stage);
        QTRY_VERIFY(!stage->isMouseDown());
        loss.restore(stage);
        stage.hand.tap(stage.centre());
        QCOMPARE(stage.log.take(), u"press press release clicked"_s);
    }

    void menuIsClosedAfterALook()
    {
        Stage<KELPushButton> stage;
        QMenu *const menu = newMenu();
        stage->style()->contextMenu = menu;
        int looks = 0;
        whenOpen(menu, [&] { ++looks; });
        stage.hand.openContextMenu(stage.centre());
        QCOMPARE(looks, 1);
        QVERIFY(!menu->isVisible());
    }

    void handUsesAWidget_data() { addRows({{"input", inputs}}); }

    void handUsesAWidget()
    {
        QPushButton button;
        button.show();
        QVERIFY(QTest::qWaitForWindowExposed(&button));
        const QSignalSpy clicked(&button, &QPushButton::clicked);
        Hand(&button, fetch<Input>("input")).tap(QPoint(3, 3));
        QCOMPARE(clicked.count(), 1);
    }

    void rowsAreLeftOut_data()
    {
        addRows({{"first", {{"one", 1}, {"two", 2}}}, {"second", {{"three", 3}, {"four", 4}}}},
                [](const std::vector<int> &row) { return row[0] * row[1] == 6; });
    }

    void rowsAreLeftOut()
    {
        QCOMPARE(QByteArray(QTest::currentDataTag()), QByteArray("two, three"));
        QCOMPARE(fetch<size_t>("second"), size_t(3));
    }

    void rowsAreAllCombinations_data()
    {
        addRows({{"first", {{"one", 1}, {"two", 2}}}, {"second", {{"no", false}, {"yes", true}}}});
    }

    void rowsAreAllCombinations()
    {
        const QByteArray first = fetch<int>("first") == 1 ? "one" : "two";
        const QByteArray second = fetch<bool>("second") ? "yes" : "no";
        QCOMPARE(QByteArray(QTest::currentDataTag()), first + ", " + second);
    }

    void rowsHaveTheNamesOfCases_data()
    {
        addRows({{"look", namesOf(looks())}});
        QCOMPARE(namesOf(looks()).size(), looks().size());
    }

    void rowsHaveTheNamesOfCases()
    {
        QCOMPARE(QByteArray(QTest::currentDataTag()),
                 QByteArray(looks().at(fetch<size_t>("look")).name));
    }

    void looksChangeARecord()
    {
        KELRoundRectControlStyle last = Record::defaults();
        for (const NamedLook &look : looks()) {
            KELRoundRectControlStyle record = Record::defaults();
            look.apply(record);
            const bool isNew = QByteArray(look.name) == "new";
            QCOMPARE(Record::difference(record, Record::defaults()).isEmpty(), isNew);
            QCOMPARE(Record::difference(record, last).isEmpty(), isNew);
            last = record;
        }
    }

    void recordNamesTheFieldsThatDiffer()
    {
        const KELRoundRectControl control;
        KELRoundRectControlStyle record = *control.style();
        QCOMPARE(Record::difference(record, Record::defaults()), QString());
        record.iconSize = 31;
        record.text = u""_s;
        QCOMPARE(Record::difference(record, Record::defaults()),
                 u"text: \"\", not null\niconSize: 31, not 30"_s);
    }

    void filledRecordDiffersInEachFieldButTheMenu()
    {
        KELRoundRectControlStyle record = Record::defaults();
        Record::fill(&record);
        const QStringList fields = Record::difference(record, Record::defaults()).split(u'\n');
        QCOMPARE(fields.size(), 17);
        QCOMPARE(record.contextMenu, nullptr);
    }

    void inkIsWhatIsNotPaper()
    {
        const QImage image = KelImage::draw(
            QSize(20, 10), 1, [](QPainter *painter) { painter->fillRect(3, 4, 5, 2, Qt::red); });
        QCOMPARE(KelImage::inkOf(image), QRect(3, 4, 5, 2));
        QCOMPARE(KelImage::areaOf(image, Qt::red), QRect(3, 4, 5, 2));
        QCOMPARE(KelImage::inkOf(image, Qt::red), image.rect());
        QCOMPARE(KelImage::inkOf(KelImage::blank(QSize(20, 10))), QRect());
    }

    void windowHandReachesTheWindowFirst_data() { addRows({{"input", inputs}}); }

    void windowHandReachesTheWindowFirst()
    {
        qRegisterMetaType<QEvent *>();
        QWidget window;
        window.setWindowFlags(Qt::FramelessWindowHint);
        QPushButton button(&window);
        button.move(20, 30);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        KELApplicationNotify notifier(nullptr, QEvent::MouseButtonPress);
        window.windowHandle()->installEventFilter(&notifier);
        const QSignalSpy seen(&notifier, &KELApplicationNotify::notify);
        const QSignalSpy clicked(&button, &QPushButton::clicked);
        WindowHand(fetch<Input>("input")).tap(&button, QPoint(3, 3));
        QCOMPARE(seen.count(), 1);
        QCOMPARE(clicked.count(), 1);
    }

    void endOfAProgramIsReported()
    {
        const QString self = QCoreApplication::applicationFilePath();
        const ProgramEnd good = runProgram(self, {u"-functions"_s});
        QVERIFY(good.output.contains(u"\nendOfAProgramIsReported()\n"_s));
        QCOMPARE(good.exitCode, 0);
        const ProgramEnd bad = runProgram(self, {u"two words"_s});
        QVERIFY(bad.output.contains(u"'two words'"_s));
        QCOMPARE(bad.exitCode, 1);
    }

    void differenceNamesItsPicture()
    {
        const QImage blank = KelImage::blank(QSize(20, 10));
        QCOMPARE(KelImage::difference(blank, blank), QString());
        const QImage marked = KelImage::draw(
            QSize(20, 10), 1, [](QPainter *painter) { painter->fillRect(3, 4, 5, 2, Qt::red); });
        const QString file = u"differenceNamesItsPicture__actual-expected-difference.png"_s;
        QFile::remove(file);
        QCOMPARE(KelImage::difference(marked, blank),
                 u"10 pixels differ, in (3, 4) to (7, 5); see "_s + file);
        QCOMPARE(QImage(file).size(), QSize(3 * 600 + 2 * 10, 300));
        QVERIFY(QFile::remove(file));
    }

    void pixelsOutsideAreNamed()
    {
        class Item : public QGraphicsRectItem
        {
        public:
            QRectF boundingRect() const override { return QRectF(0, 0, 10, 10); }
        } item;
        item.setBrush(Qt::red);
        item.setPen(Qt::NoPen);
        item.setRect(0, 0, 10, 10);
        QCOMPARE(KelImage::pixelsOutside(&item), QString());
        item.setRect(0, 0, 12, 10);
        const QString file = u"pixelsOutsideAreNamed__outside.png"_s;
        QCOMPARE(KelImage::pixelsOutside(&item),
                 u"pixels in (110, 100) to (111, 109) lie outside (100, 100) to (109, 109); see "_s
                     + file);
        QVERIFY(QFile::remove(file));
    }

    void oddRectanglesAreNotFinite_data() { ControlTest::addOddRectangles(); }

    void oddRectanglesAreNotFinite()
    {
        const auto rect = fetch<QRectF>("rect");
        QVERIFY(!qIsFinite(rect.x() + rect.y() + rect.width() + rect.height()));
    }

    void letEventsRunCarriesOutWhatFollows()
    {
        int calls = 0;
        QTimer::singleShot(0, this, [&] {
            ++calls;
            QTimer::singleShot(0, this, [&] { ++calls; });
        });
        letEventsRun();
        QCOMPARE(calls, 2);
    }

    void livingObjectsAreThoseOfTheThread()
    {
        auto object = std::make_unique<PlainItem>();
        QObject *const address = object.get();
        QVERIFY(livingObjects().contains(address));
        QCOMPARE(findLiving<tst_Kit>(), this);
        object.reset();
        QVERIFY(!livingObjects().contains(address));

        QThread thread;
        QObject elsewhere;
        elsewhere.moveToThread(&thread);
        QVERIFY(!livingObjects().contains(&elsewhere));
    }

    void handDrawnControlIsThatOfTheBase()
    {
        KELRoundRectControl control;
        control.setboundRect(5, 5, 80, 40);
        control.style()->text = u"Start"_s;
        control.style()->pixmap = HandDrawing::picture();
        const auto byHand = [&](QPainter *painter) {
            HandDrawing::drawControl(painter, *control.style(), control.boundingRect());
        };
        QCOMPARE(KelImage::differenceFrom(byHand, &control, QSize(90, 50), 1.5), QString());
    }
};

KEL_TEST_MAIN(tst_Kit)

#include "tst_kit.moc"
