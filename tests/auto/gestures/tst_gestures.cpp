// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "hand.h"
#include "keltest.h"
#include "signallog.h"
#include "stage.h"

#include <kellist.h>
#include <kelpushbutton.h>
#include <kelrange.h>
#include <kelrow.h>
#include <kelscreen.h>
#include <keltouch.h>

#include <QtCore/QStringListModel>

#include <cstdio>
#include <random>

/*
 * Gestures as fingers make them, at random, on a screen with lists inside pages: none may be
 * misread. A tap never scrolls, and a flick never taps.
 *
 * KEL_GESTURES=<count> makes so many, KEL_SEED=<number> others. A failure names the gesture, and
 * the same two values repeat it; KEL_TELL=1 prints each one.
 */
namespace {

constexpr QSize screenSize(480, 560);
constexpr QRectF listPlace(0, 0, 360, 400);
constexpr QRectF rangePlace(20, 410, 440, 64);
constexpr QRectF rowPlace(0, 490, 480, 64);
constexpr int rowCount = 10000;
constexpr int usualGestures = 1000;
constexpr int tremblePx = 4;

enum class Kind { Tap, Tremble, Hold, Drag, Sideways, Flick, Stop, TwoThumbs, Cancel };
constexpr int kinds = int(Kind::Cancel) + 1;
const char *const kindNames[kinds] = {
    "tap",   "tap of a trembling finger", "hold", "drag", "sideways", "flick", "stop", "two thumbs",
    "cancel"};

class Screen
{
public:
    Screen() : model(captions()), hand(screen.viewport())
    {
        KELTouch::setPixelsPerMillimetre(5);
        screen.resize(screenSize);
        auto *const page = new KELPage;
        list = new KELList(page);
        list->setModel(&model);
        list->setGeometry(listPlace);
        for (int i = 0; i < 4; ++i) {
            buttons[i] = new KELPushButton(page);
            buttons[i]->setboundRect(370, 100 * i, 100, 90);
            log.listenTo(buttons[i], QString::number(i));
        }
        range = new KELRange(page);
        range->setGeometry(rangePlace);
        row = new KELRow(page);
        row->setEnd(KELRow::Switch);
        row->setGeometry(rowPlace);
        log.listenTo(list, u"list"_s);
        log.listenTo(row, u"row"_s);
        log.listenTo(range, u"range"_s);
        screen.push(page);
        screen.show();
    }
    ~Screen()
    {
        log.stop();
        KELTouch::setPixelsPerMillimetre(0);
    }

    // Without what every gesture does.
    QString takeLog()
    {
        QStringList entries = log.take().split(u' ', Qt::SkipEmptyParts);
        entries.removeAll(u"list.positionChanged"_s);
        entries.removeAll(u"range.valueChanged"_s);
        return entries.join(u' ');
    }
    // A row in sight, and a place on it.
    QPoint placeOnList(int y) const { return listPlace.topLeft().toPoint() + QPoint(180, y); }
    int rowAt(const QPoint &pos) const
    {
        return list->indexAt(QPointF(pos) - listPlace.topLeft()).row();
    }
    QPoint centreOf(int button) const { return buttons[button]->boundingRect().center().toPoint(); }

    static QStringList captions()
    {
        QStringList texts;
        for (int i = 0; i < rowCount; ++i)
            texts.append(u"Row %1"_s.arg(i));
        return texts;
    }

    QStringListModel model;
    KELScreen screen;
    KELList *list = nullptr;
    KELPushButton *buttons[4] = {};
    KELRange *range = nullptr;
    KELRow *row = nullptr;
    SignalLog log;
    Hand hand;
};

} // namespace

class tst_Gestures : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    // Half of them each. A screen has one or the other: Qt remembers where the first finger is.
    void noneIsMisread_data() { addRows({{"input", inputs}}); }

    void noneIsMisread()
    {
        bool isSet = false;
        const int wanted = qEnvironmentVariableIntValue("KEL_GESTURES", &isSet);
        const int count = isSet ? wanted : usualGestures;
        const auto seed = unsigned(qEnvironmentVariableIntValue("KEL_SEED"));
        m_random.seed(seed);
        const auto input = fetch<Input>("input");
        const Kind last = input == Input::Touch ? Kind::Cancel : Kind::Stop;
        Screen screen;
        screen.hand.use(input);
        QVERIFY(QTest::qWaitForWindowExposed(&screen.screen));
        for (int i = 0; i < count / 2; ++i) {
            const auto kind = Kind(number(0, int(last)));
            const QString wrong = play(&screen, kind);
            QVERIFY2(wrong.isEmpty(),
                     qPrintable(u"gesture %1 of seed %2, %3: %4"_s.arg(i).arg(seed).arg(
                         QString::fromLatin1(kindNames[int(kind)]), wrong)));
        }
    }

private:
    int number(int from, int to) { return std::uniform_int_distribution<int>(from, to)(m_random); }
    QPoint tremble() { return {number(-tremblePx, tremblePx), number(-tremblePx, tremblePx)}; }

    static QString expect(const QString &what, const QString &wanted, const QString &actual)
    {
        return wanted == actual ? QString() : u"%1: \"%2\", not \"%3\""_s.arg(what, actual, wanted);
    }
    static QString expect(const QString &what, int wanted, int actual)
    {
        return expect(what, QString::number(wanted), QString::number(actual));
    }

    QString play(Screen *screen, Kind kind)
    {
        if (m_isTelling)
            std::fprintf(stderr, "%s\n", kindNames[int(kind)]);
        screen->list->setPosition(number(0, 10) == 0 ? 0 : number(500, 500000));
        screen->takeLog();
        switch (kind) {
        case Kind::Tap:
        case Kind::Tremble:
        case Kind::Hold:
            return tap(screen, kind);
        case Kind::Drag:
        case Kind::Sideways:
            return drag(screen, kind == Kind::Sideways);
        case Kind::Flick:
        case Kind::Stop:
            return flick(screen, kind == Kind::Stop);
        case Kind::TwoThumbs:
            return useTwoThumbs(screen);
        case Kind::Cancel:
            break;
        }
        return cancel(screen);
    }

    // On a row of the list, on the row below it, or on a button.
    QString tap(Screen *screen, Kind kind)
    {
        const int target = number(0, 2);
        const int button = number(0, 3);
        const QPoint pos = target == 0 ? screen->placeOnList(number(10, 390))
            : target == 1              ? rowPlace.center().toPoint()
                                       : screen->centreOf(button);
        const int row = screen->rowAt(pos);
        const int before = screen->list->position();
        screen->hand.press(pos);
        for (int i = 0; kind == Kind::Tremble && i < number(1, 5); ++i)
            screen->hand.move(pos + tremble());
        if (kind == Kind::Hold && target == 2)
            endLongPressTime(screen->buttons[button]);
        else if (kind == Kind::Hold)
            letEventsRun();
        screen->hand.release();
        const QString wanted = target == 0 ? u"list.clicked"_s
            : target == 1                  ? u"row.checkedChanged row.clicked"_s
            : kind == Kind::Hold           ? u"%1.press %1.longPress %1.release"_s.arg(button)
                                           : u"%1.press %1.release %1.clicked"_s.arg(button);
        QString log = screen->takeLog();
        log.remove(QRegularExpression(u" ?[0-3]\\.(enter|leave|doubleClicked)"_s));
        QString wrong = expect(u"signals"_s, wanted, log.trimmed());
        if (target == 0 && wrong.isEmpty())
            wrong = expect(u"row"_s, row,
                           screen->log.lastArguments().value(0).toModelIndex().row());
        return wrong.isEmpty() ? expect(u"position"_s, before, screen->list->position()) : wrong;
    }

    QString drag(Screen *screen, bool isSideways)
    {
        const int before = screen->list->position();
        const QPoint start = screen->placeOnList(number(160, 240));
        const int sign = number(0, 1) ? 1 : -1;
        const QPoint first = isSideways ? QPoint(sign * number(12, 40), number(-8, 8))
                                        : QPoint(number(-8, 8), sign * number(12, 40));
        screen->hand.press(start);
        screen->hand.move(start + tremble());
        screen->hand.move(start + first);
        QPoint last = start + first;
        for (int i = 0; i < number(1, 6); ++i) {
            last += QPoint(number(-20, 20), number(-20, 20));
            screen->hand.move(last);
        }
        const int moved = start.y() - last.y() + (first.y() < 0 ? -1 : 1) * KELPart::slopPx;
        int wanted = isSideways ? before : before + moved;
        if (wanted < 0)
            wanted = qRound(wanted / 2.0);
        const QString wrong = expect(u"position"_s, wanted, screen->list->position());
        screen->hand.release();
        screen->list->setPosition(screen->list->position());
        return wrong.isEmpty() ? expect(u"signals"_s, QString(), screen->takeLog()) : wrong;
    }

    // A tap stops it, and is no tap.
    QString flick(Screen *screen, bool isStopped)
    {
        const int sign = number(0, 1) ? 1 : -1;
        const int before = screen->list->position();
        const QPoint start = screen->placeOnList(200);
        screen->hand.drag(start, start + QPoint(number(-5, 5), sign * number(60, 200)),
                          number(2, 6));
        const int released = screen->list->position();
        const bool hasMoved = sign < 0 ? released > before : released < before;
        if (!hasMoved)
            return u"it has not moved"_s;
        QCoreApplication::processEvents();
        const bool isMoving = screen->list->isMoving();
        if (isStopped) {
            const QPoint pos = screen->placeOnList(number(10, 390));
            screen->hand.press(pos);
            const int stopped = screen->list->position();
            screen->hand.release();
            if (screen->list->isMoving())
                return u"it is not stopped"_s;
            const QString wrong = expect(u"position"_s, stopped, screen->list->position());
            if (!wrong.isEmpty())
                return wrong;
        }
        screen->list->setPosition(screen->list->position());
        QString log = screen->takeLog();
        // One that had come to rest already is tapped.
        if (isStopped && !isMoving)
            log.remove(u"list.clicked"_s);
        return expect(u"signals"_s, QString(), log);
    }

    // The first on a button, the second on another one or on the list.
    QString useTwoThumbs(Screen *screen)
    {
        const int before = screen->list->position();
        const bool isOnList = number(0, 1);
        const int first = number(0, 1);
        const int second = first + 2;
        const QPoint pos = isOnList ? screen->placeOnList(100) : screen->centreOf(second);
        screen->hand.press(screen->centreOf(first));
        screen->hand.fingers().press(1, pos);
        if (isOnList)
            screen->hand.fingers().move(1, pos + QPoint(0, 80));
        const bool isCrossed = number(0, 1);
        if (isCrossed)
            screen->hand.release();
        screen->hand.fingers().release(1);
        if (!isCrossed)
            screen->hand.release();
        const QString one = u"%1.press %1.release %1.clicked"_s.arg(first);
        const QString log = screen->takeLog();
        for (const QString &entry : one.split(u' ')) {
            if (log.count(entry) != 1)
                return expect(u"signals"_s, one, log);
        }
        if (!isOnList && log.count(u"%1.clicked"_s.arg(second)) != 1)
            return expect(u"signals"_s, u"both are clicked"_s, log);
        if (log.contains(u"list"_s))
            return expect(u"signals"_s, one, log);
        return expect(u"position"_s, before, screen->list->position());
    }

    // The window system takes the touch away.
    QString cancel(Screen *screen)
    {
        const int before = screen->list->position();
        const QPoint pos = screen->placeOnList(number(10, 390));
        screen->hand.press(pos);
        const bool isDrag = number(0, 1);
        if (isDrag)
            screen->hand.move(pos + QPoint(0, 30));
        screen->hand.cancel();
        letEventsRun();
        const QString log = screen->takeLog();
        screen->list->setPosition(screen->list->position());
        const QString wrong = expect(u"signals"_s, QString(), log);
        return wrong.isEmpty() && !isDrag ? expect(u"position"_s, before, screen->list->position())
                                          : wrong;
    }

    std::mt19937 m_random;
    const bool m_isTelling = qEnvironmentVariableIsSet("KEL_TELL");
};

KEL_TEST_MAIN(tst_Gestures)
#include "tst_gestures.moc"
