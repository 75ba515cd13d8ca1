// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "gallerywindow.h"
#include "screens/chargepoint.h"
#include "screens/dial.h"
#include "screens/room.h"
#include "screens/systemdata.h"
#include "screens/systempanel.h"

#include <KELLabel>
#include <KELProcessBar>
#include <KELPushButton>
#include <KELRange>
#include <KELRow>
#include <QtCore/QTemporaryDir>

#include <cmath>

namespace {

qreal luminance(const QColor &colour)
{
    const auto linear = [](qreal share) {
        return share <= 0.03928 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF())
        + 0.0722 * linear(colour.blueF());
}

qreal contrast(const QColor &one, const QColor &other)
{
    const qreal first = luminance(one);
    const qreal second = luminance(other);
    return (qMax(first, second) + 0.05) / (qMin(first, second) + 0.05);
}

// What is painted behind the caption of a control.
QColor groundOf(const KELRoundRectControl *control, const QGraphicsScene *scene)
{
    const QGraphicsItem *item = control;
    while (item) {
        const auto *shape = dynamic_cast<const KELRoundRectControl *>(item);
        if (shape && shape->style()->backgroundBrush.style() != Qt::NoBrush)
            return shape->style()->backgroundBrush.color();
        item = item->parentItem();
    }
    return scene->backgroundBrush().color();
}

// A /proc and a /sys of one's own.
class MadeUpKernel
{
public:
    MadeUpKernel()
    {
        write("proc/stat", "cpu  100 0 100 800 0 0 0 0\n");
        write("proc/cpuinfo", "processor\t: 0\nprocessor\t: 1\n");
        write("proc/meminfo", "MemTotal: 1000000 kB\nMemAvailable: 590000 kB\n");
        write("proc/uptime", "273600.5 1.0\n");
        write("proc/net/dev",
              "h\nh\n  lo: 5 0 0 0 0 0 0 0 5 0\neth0: 1000 0 0 0 0 0 0 0 500 0\n"
              "wlan0: 10 0 0 0 0 0 0 0 5 0\n");
        write("sys/class/thermal/zone0/temp", "52000\n");
        write("sys/class/thermal/zone0/trip_point_0_temp", "85000\n");
        write("sys/class/backlight/panel/max_brightness", "200\n");
        write("sys/class/backlight/panel/brightness", "140\n");
    }

    QString root() const { return m_directory.path() + '/'; }
    void write(const QString &path, const QByteArray &text) const
    {
        const QString whole = root() + path;
        QDir().mkpath(QFileInfo(whole).path());
        QFile file(whole);
        if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
            qFatal("cannot write %s", qPrintable(whole));
    }
    QByteArray read(const QString &path) const
    {
        QFile file(root() + path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    void remove(const QString &path) const { QFile::remove(root() + path); }

private:
    const QTemporaryDir m_directory;
};

// Shows the page of the row, in a window that has its data already: not what this machine has.
class Sources
{
public:
    explicit Sources(GalleryWindow *window)
    {
        const int page = fetch<int>("page");
        const bool isKnown = page < m_screenCount;
        new SystemData(isKnown ? m_kernel.root() : m_nothing.path() + '/', window);
        window->showPage(qMin(page, m_screenCount - 1));
        QCoreApplication::processEvents();
    }

private:
    static constexpr int m_screenCount = 3;
    const MadeUpKernel m_kernel;
    const QTemporaryDir m_nothing;
};

Column pages()
{
    return {"page",
            {{"thermostat", 0}, {"charger", 1}, {"system", 2}, {"system without sources", 3}}};
}

// A screen that counts what is painted anew.
class CountingScreen : public KELScreen
{
public:
    QRegion painted;

protected:
    void paintEvent(QPaintEvent *event) override
    {
        painted += event->region();
        KELScreen::paintEvent(event);
    }
};

} // namespace

// The finished screens: what they do, and that all on them can be read.
class tst_GalleryScreens : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_icons.install(IconSet::defaultPath()); }

    void captionsAreWhole_data()
    {
        addRows({pages(),
                 {"size", {{"480x272", 0}, {"480x800", 1}, {"800x480", 2}, {"1280x800", 3}}},
                 {"language",
                  {{"English", Window::English},
                   {"German", Window::German},
                   {"Arabic", Window::Arabic}}}});
    }

    // And all is inside the screen.
    void captionsAreWhole()
    {
        const QSize sizes[] = {{480, 272}, {480, 800}, {800, 480}, {1280, 800}};
        const QSize size = sizes[fetch<int>("size")];
        GalleryWindow window(m_icons, QString(), size);
        window.setLanguage(Window::Language(fetch<int>("language")));
        const Sources sources(&window);
        int captions = 0;
        const QList<QGraphicsItem *> items = window.scene()->items();
        for (QGraphicsItem *item : items) {
            if (!item->isVisible())
                continue;
            const QRectF place = item->sceneBoundingRect();
            const auto *control = dynamic_cast<KELRoundRectControl *>(item);
            if (control || dynamic_cast<KELPart *>(item)) {
                QVERIFY2(QRectF(-1, -1, size.width() + 2, size.height() + 2).contains(place),
                         qPrintable(item->toGraphicsObject()->objectName()));
            }
            if (const auto *row = dynamic_cast<KELRow *>(item))
                compareRow(row);
            if (control && !control->text().isEmpty()) {
                compareCaption(control);
                ++captions;
            }
        }
        QVERIFY(captions >= 4);
        window.setLanguage(Window::English);
    }

    void captionsAreLegible_data()
    {
        addRows({pages(),
                 {"look",
                  {{"light", KELTheme::Light},
                   {"dark", KELTheme::Dark},
                   {"high contrast", KELTheme::HighContrast}}}});
    }

    void captionsAreLegible()
    {
        GalleryWindow window(m_icons, QString());
        window.setLook(KELTheme::Scheme(fetch<int>("look")));
        const Sources sources(&window);
        const QList<QGraphicsItem *> items = window.scene()->items();
        for (QGraphicsItem *item : items) {
            const auto *control = dynamic_cast<KELRoundRectControl *>(item);
            const auto *button = dynamic_cast<KELPushButton *>(item);
            if (!control || !control->isVisible() || control->text().isEmpty()
                || !control->isEnabled() || (button && button->isCheck()))
                continue;
            const qreal ratio = contrast(control->style()->foregroundBrush.color(),
                                         groundOf(control, window.scene()));
            QVERIFY2(ratio >= 4.5, control->text().toUtf8() + ' ' + QByteArray::number(ratio));
        }
    }

    void stepsAndDialSetTheTarget()
    {
        GalleryWindow window(m_icons, "thermostat");
        const auto *room = window.findChild<Room *>();
        QVERIFY(room);
        window.tap("warmer");
        QCOMPARE(room->target(), 22.5);
        window.tap("colder");
        window.tap("colder");
        QCOMPARE(room->target(), 21.5);
        auto *dial = window.find<Dial>("dial");
        QCOMPARE(dial->value(), 21.5);
        const QRect place = window.geometryOf("dial");
        window.tapAt(QPoint(place.center().x(), place.center().y())); // in the ring
        QCOMPARE(room->target(), 21.5);
        const int radius = (qMin(place.width(), place.height()) - 34) / 2;
        window.tapAt(place.center() - QPoint(0, radius));
        QCOMPARE(room->target(), 17.5); // the middle of 5 to 30
        Hand(window.viewport(), Input::Touch)
            .drag(place.center() - QPoint(0, radius), place.center() + QPoint(radius, 0));
        QVERIFY(room->target() > 25);
    }

    void modesAndBoostChangeWhatIsDone()
    {
        GalleryWindow window(m_icons, "thermostat");
        auto *room = window.findChild<Room *>();
        QCOMPARE(room->activity(), Room::Heating);
        window.tap("mode-0");
        QCOMPARE(room->mode(), Room::Off);
        QCOMPARE(room->activity(), Room::Resting);
        QVERIFY(window.find<KELPushButton>("mode-0")->isCheck());
        QVERIFY(!window.find<KELPushButton>("mode-1")->isCheck());
        room->setBoosted(true);
        QCOMPARE(room->goal(), 24.0);
        for (int minute = 0; minute < 30; ++minute)
            room->tick();
        QVERIFY(!room->isBoosted());
    }

    void aRoomReachesItsTargetAndHoldsIt()
    {
        Room room;
        room.setTarget(23);
        for (int minute = 0; minute < 600; ++minute)
            room.tick();
        QVERIFY(qAbs(room.celsius() - 23) < 0.3);
        QCOMPARE(room.history().size(), int(Room::historySize));
        room.setTarget(99);
        QCOMPARE(room.target(), 30.0);
        room.setTarget(-5);
        QCOMPARE(room.target(), 5.0);
    }

    void timePassesOnlyWhileSomeoneLooks()
    {
        GalleryWindow window(m_icons, "thermostat");
        const auto *room = window.findChild<Room *>();
        const double before = room->celsius();
        QTRY_VERIFY(!qFuzzyCompare(room->celsius(), before));
        window.tap("back");
        const double left = room->celsius();
        QTest::qWait(1200);
        QCOMPARE(room->celsius(), left);
    }

    void stoppingIsAskedForTwice()
    {
        GalleryWindow window(m_icons, "charger");
        const auto *point = window.findChild<ChargePoint *>();
        QCOMPARE(point->state(), ChargePoint::Charging);
        window.tap("stop");
        QCOMPARE(point->state(), ChargePoint::Charging);
        QCOMPARE(window.find<KELPushButton>("stop")->text(), "Tap again to stop");
        window.tap("stop");
        QCOMPARE(point->state(), ChargePoint::Stopped);
        QCOMPARE(window.find<KELPushButton>("stop")->text(), "Start charging");
        window.tap("stop");
        QCOMPARE(point->state(), ChargePoint::Charging);
        QCOMPARE(point->minutes(), 0);
    }

    void theQuestionIsTakenBack()
    {
        GalleryWindow window(m_icons, "charger");
        auto *stop = window.find<KELPushButton>("stop");
        window.tap("stop");
        QCOMPARE(stop->text(), "Tap again to stop");
        QTRY_COMPARE_WITH_TIMEOUT(stop->text(), "Stop charging", 8000);
    }

    void whatEndsIsListedOnce()
    {
        ChargePoint point;
        const int before = point.sessions().size();
        while (point.state() == ChargePoint::Charging)
            point.tick();
        QCOMPARE(point.state(), ChargePoint::Done);
        QCOMPARE(point.sessions().size(), before + 1);
        point.setCharging(true); // nothing is left to charge
        QCOMPARE(point.state(), ChargePoint::Done);
        point.setLimit(90);
        QCOMPARE(point.state(), ChargePoint::Stopped);
        point.setCharging(true);
        QCOMPARE(point.state(), ChargePoint::Charging);
        point.setCharging(false);
        QCOMPARE(point.sessions().size(), before + 2);
        point.setLimit(20);
        QCOMPARE(point.state(), ChargePoint::Stopped); // by hand
    }

    void readyIsWhenItIs()
    {
        ChargePoint point;
        point.setLimit(100);
        const QDateTime promised = point.readyAt();
        while (point.state() == ChargePoint::Charging)
            point.tick();
        QVERIFY(qAbs(promised.secsTo(point.now())) <= 60);
    }

    void theLimitFollowsTheFinger()
    {
        GalleryWindow window(m_icons, "charger");
        const auto *point = window.findChild<ChargePoint *>();
        const QRect range = window.geometryOf("limit");
        window.tapAt(QPoint(range.right() - 2, range.center().y()));
        QCOMPARE(point->limit(), 100);
        window.tapAt(QPoint(range.left() + 2, range.center().y()));
        QCOMPARE(point->limit(), 20);
        QCOMPARE(point->state(), ChargePoint::Done);
        QVERIFY(!window.find<KELPushButton>("stop")->isEnabled());
    }

    void nightTariffWaitsForTheNight()
    {
        ChargePoint point(QDateTime(QDate(2026, 1, 1), QTime(21, 58)));
        point.setNightOnly(true);
        QCOMPARE(point.state(), ChargePoint::Waiting);
        QCOMPARE(point.kilowatts(), 0.0);
        point.tick();
        QCOMPARE(point.state(), ChargePoint::Waiting);
        point.tick();
        QCOMPARE(point.state(), ChargePoint::Charging);
        QVERIFY(point.readyAt() > point.now());
        for (int minute = 0; minute < 600 && point.state() == ChargePoint::Charging; ++minute)
            point.tick();
        QCOMPARE(point.percent(), 80);
        QCOMPARE(point.state(), ChargePoint::Done);
    }

    void detailsListTheSessions()
    {
        GalleryWindow window(m_icons, "charger");
        window.tap("details");
        const auto *list = window.find<KELList>("sessions");
        QVERIFY(list);
        QCOMPARE(list->model()->rowCount(), 20);
        window.showPage(-1);
    }

    void theKernelIsRead()
    {
        const MadeUpKernel kernel;
        SystemData data(kernel.root());
        data.read();
        kernel.write("proc/stat", "cpu  120 0 110 870 0 0 0 0\n");
        QTest::qWait(20);
        kernel.write("proc/net/dev", "h\nh\neth0: 3000 0 0 0 0 0 0 0 500 0\n");
        data.read();
        QCOMPARE(data.load(), 30.0);
        QCOMPARE(data.loads().size(), 1);
        QCOMPARE(data.cores(), 2);
        QCOMPARE(data.memoryUsed(), qint64(410000) * 1024);
        QCOMPARE(data.celsius(), 52.0);
        QCOMPARE(data.celsiusLimit(), 85.0);
        QCOMPARE(data.backlight(), 70.0);
        QCOMPARE(data.uptimeSeconds(), qint64(273600));
        QCOMPARE(data.currentInterface(), "eth0");
        QVERIFY(data.received() > 0);
        QCOMPARE(data.sent(), 0.0);
        QCOMPARE(data.wifi(), -1.0);
        data.setBacklight(50);
        QCOMPARE(kernel.read("sys/class/backlight/panel/brightness"), QByteArray("100"));
    }

    void whatIsMissingOrBrokenIsNotKnown_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::newRow("gone") << QByteArray();
        QTest::newRow("empty") << QByteArray("");
        QTest::newRow("not a number") << QByteArray("cpu x y\nMemTotal: many\nwlan0:\n:::\n");
        QTest::newRow("half a line") << QByteArray("cpu  1 2");
        QTest::newRow("binary") << QByteArray("\0\xff\0\xfe:\0", 6);
    }

    void whatIsMissingOrBrokenIsNotKnown()
    {
        const MadeUpKernel kernel;
        SystemData data(kernel.root());
        data.read();
        for (const char *path :
             {"proc/stat", "proc/meminfo", "proc/uptime", "proc/net/dev", "proc/net/wireless",
              "sys/class/thermal/zone0/temp", "sys/class/backlight/panel/brightness"}) {
            const auto text = fetch<QByteArray>("text");
            text.isNull() ? kernel.remove(path) : kernel.write(path, text);
        }
        data.read();
        data.read();
        QCOMPARE(data.load(), -1.0);
        QCOMPARE(data.memoryTotal(), qint64(-1));
        QCOMPARE(data.celsius(), -1.0);
        QCOMPARE(data.backlight(), -1.0);
        QCOMPARE(data.received(), -1.0);
        QVERIFY(!data.canSetBacklight());
    }

    void aMissingSourceIsToldOnItsTile()
    {
        const QTemporaryDir nothing;
        SystemData data(nothing.path() + '/');
        KELTheme theme;
        KELScreen screen;
        screen.resize(800, 480);
        screen.push(new SystemPanel(&theme, &data));
        int told = 0;
        const QList<QGraphicsItem *> items = screen.scene()->items();
        for (QGraphicsItem *item : items) {
            const auto *label = dynamic_cast<KELLabel *>(item);
            told += label && label->text() == "not offered by this kernel";
        }
        // Processor, memory, temperature, network, backlight, Wi-Fi; the disk is that of this
        // machine.
        QCOMPARE(told, data.storageTotal() < 0 ? 7 : 6);
    }

    void onlyTheTileThatChangedIsPainted()
    {
        const MadeUpKernel kernel;
        SystemData data(kernel.root());
        KELTheme theme;
        CountingScreen screen;
        screen.resize(800, 480);
        theme.applyTo(screen.scene());
        screen.push(new SystemPanel(&theme, &data));
        screen.show();
        QVERIFY(QTest::qWaitForWindowExposed(&screen));
        data.stop();
        // The first update after a show paints all.
        kernel.write("sys/class/thermal/zone0/temp", "53000\n");
        data.read();
        settle();
        screen.painted = QRegion();
        data.read();
        settle();
        QVERIFY(screen.painted.isEmpty());

        kernel.write("sys/class/thermal/zone0/temp", "61000\n");
        data.read();
        settle();
        QVERIFY(!screen.painted.isEmpty());
        QVERIFY(tileWith(screen, "61\u00B0").contains(screen.painted.boundingRect()));
    }

private:
    static void settle()
    {
        for (int i = 0; i < 5; ++i)
            QTest::qWait(20);
    }

    // The card that has the caption, with what antialiasing adds.
    static QRect tileWith(const KELScreen &screen, const QString &caption)
    {
        const QList<QGraphicsItem *> items = screen.scene()->items();
        for (QGraphicsItem *item : items) {
            const auto *label = dynamic_cast<KELLabel *>(item);
            if (!label || label->text() != caption)
                continue;
            const QGraphicsItem *card = label->parentItem();
            while (!dynamic_cast<const KELRoundRectControl *>(card))
                card = card->parentItem();
            return card->sceneBoundingRect().toAlignedRect().adjusted(-2, -2, 2, 2);
        }
        return QRect();
    }

    static void compareCaption(const KELRoundRectControl *control)
    {
        const QByteArray text = control->text().toUtf8();
        const QFontMetricsF metrics(control->style()->font);
        if (!(control->style()->textFlags & Qt::TextWordWrap) || control->style()->trimText) {
            QVERIFY2(metrics.horizontalAdvance(control->text()) <= control->rect().width() + 1,
                     text);
        } else {
            const QRectF needed = metrics.boundingRect(control->rect(), control->style()->textFlags,
                                                       control->text());
            QVERIFY2(needed.height() <= control->rect().height() + 1, text);
        }
    }

    // With 16 px at both sides, and 56 px for a switch.
    static void compareRow(const KELRow *row)
    {
        const qreal room = row->size().width() - 2 * 16 - (row->end() == KELRow::Switch ? 64 : 24);
        const KELPartStyle *style = row->partStyle();
        QVERIFY2(QFontMetricsF(style->font).horizontalAdvance(row->caption()) <= room,
                 row->caption().toUtf8());
        QVERIFY2(QFontMetricsF(style->secondaryFont).horizontalAdvance(row->detail()) <= room,
                 row->detail().toUtf8());
    }

    IconSet m_icons;
};

KEL_TEST_MAIN(tst_GalleryScreens)
#include "tst_galleryscreens.moc"
