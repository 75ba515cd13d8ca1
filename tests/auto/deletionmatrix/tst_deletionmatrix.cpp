// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "kelclasses.h"
#include "keltest.h"
#include "matrixexemptions.h"
#include "matrixstage.h"

#include <QtCore/QHash>
#include <QtCore/QMetaMethod>

#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <memory>
#include <random>
#include <type_traits>

#if defined(__SANITIZE_ADDRESS__)
#  include <sanitizer/lsan_interface.h>

// What threads hold that are not there any more in the process of the cells.
extern "C" Q_DECL_EXPORT const char *__lsan_default_suppressions() // NOLINT
{
    return "leak:g_malloc0\nleak:libfontconfig.so\n";
}
#endif

/*
 * Every signal that fires while something is done to the objects of a stage, with a slot that
 * deletes one of them.
 *
 * What fires is found out by a rehearsal of each action on each stage, with all signals of all
 * objects connected. Each signal that fired makes cells: it times every object of the stage,
 * deleted at once or later. Of cells that differ in the place only, one is run. What is left out
 * stands in matrixexemptions.cpp.
 *
 * The cells run in a process of their own, which is replaced when it ends: a cell that crashes or
 * hangs is named, and the others run all the same.
 *
 * KEL_MATRIX_CELLS=<count> runs that many of them, chosen evenly, always the same;
 * KEL_MATRIX_CELLS=all also those that differ in the place only. KEL_MATRIX_CELL=<number> runs one
 * in this process, for a debugger.
 */

namespace {

constexpr int wantedCells = 10000;
constexpr unsigned patienceS = 20;
constexpr int mostFailures = 200; // each takes a new process
constexpr int leakExitCode = 23;

struct Cell
{
    int stage;
    int action;
    int spot; // -1 without
    int sender;
    int signal; // index of the method
    int nth; // which emission
    int victim;
    bool isLater;
};

enum class Outcome : quint8 { NotRun, Running, Silent, Fired, Warned };

// Counts what one object sends.
class Ear : public QObject
{
    Q_OBJECT

public:
    // Calls heard with the count.
    explicit Ear(const std::function<void(int)> &heard = nullptr) : m_heard(heard) { }

    void listenTo(QObject *sender, const QMetaMethod &signal)
    {
        connect(sender, signal, this, metaObject()->method(metaObject()->indexOfSlot("hear()")));
    }

    int count = 0;

public Q_SLOTS:
    void hear()
    {
        ++count;
        if (m_heard)
            m_heard(count);
    }

private:
    const std::function<void(int)> m_heard;
};

bool isSignal(const QMetaMethod &method)
{
    // Those of default arguments are the same signal once more.
    return method.methodType() == QMetaMethod::Signal
        && !(method.attributes() & QMetaMethod::Cloned);
}

void settle()
{
    for (int round = 0; round < 2; ++round) {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }
}

void play(MatrixStage *stage, const Action &action, int spot)
{
    const MatrixStage::Spot copy = spot < 0 ? MatrixStage::Spot() : stage->spots.at(spot);
    action.run(stage, &copy);
    settle();
}

std::unique_ptr<MatrixStage> makeStage(int kind, QWidget *desk)
{
    auto stage = std::make_unique<MatrixStage>(desk);
    stageKinds().at(kind).build(stage.get());
    stage->walk();
    QCoreApplication::processEvents();
    return stage;
}

// The public classes that send signals.
QStringList objectClasses()
{
    QStringList names;
    const auto add = [&names](const char *name, bool isObject) {
        if (isObject)
            names.append(QString::fromLatin1(name));
    };
#define KEL_ADD(Class) add(#Class, std::is_base_of_v<QObject, Class>);
    KEL_FOR_EACH_CLASS(KEL_ADD)
#undef KEL_ADD
    return names;
}

const QObject *ownerOf(const QObject *object)
{
    const auto *const graphics = qobject_cast<const QGraphicsObject *>(object);
    if (!graphics)
        return object->parent();
    for (const QGraphicsItem *item = graphics->parentItem(); item; item = item->parentItem()) {
        if (item->toGraphicsObject())
            return item->toGraphicsObject();
    }
    return graphics->scene();
}

bool holds(const QObject *holder, const QObject *object)
{
    while (object && object != holder)
        object = ownerOf(object);
    return object != nullptr;
}

const QGraphicsItem *outermost(const QObject *object)
{
    const auto *item = qobject_cast<const QGraphicsObject *>(object);
    return item ? item->topLevelItem() : nullptr;
}

// The item that gets the press, or the one that is called.
const QObject *targetOf(const MatrixStage &stage, int spot)
{
    if (spot < 0 || !stage.view)
        return stage.subject;
    const QList<QGraphicsItem *> items = stage.view->items(stage.spots.at(spot).pos);
    for (QGraphicsItem *item : items) {
        if (item->toGraphicsObject() && item->acceptedMouseButtons().testFlag(Qt::LeftButton))
            return item->toGraphicsObject();
    }
    return nullptr;
}

// Cells alike in this are the same once more, on another stage or at another place.
QString kindOf(const CellFacts &facts, int nth)
{
    const int relation = int(facts.isItself) + 2 * int(facts.victimHoldsSender)
        + 4 * int(facts.senderHoldsVictim) + 8 * int(facts.areInOneTree)
        + 16 * int(facts.victimHoldsTarget);
    // The scene sends it from the event loop, whatever was done.
    const bool isFromTheLoop = facts.is("changed") && !facts.isLater;
    return QStringList({QString::fromLatin1(facts.senderClass->className()), facts.signal,
                        isFromTheLoop ? QString() : facts.action,
                        QString::fromLatin1(facts.victimClass->className()),
                        QString::number(relation), QString::number(nth),
                        QString::number(int(facts.isLater))})
        .join(QLatin1Char(' '));
}

// What the playing process reports to the waiting one.
struct Board
{
    int cell;
    Outcome *outcomes() { return reinterpret_cast<Outcome *>(this + 1); }
};

} // namespace

class tst_DeletionMatrix : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void everyCell()
    {
        m_desk = std::make_unique<QWidget>();
        m_desk->setWindowFlags(Qt::FramelessWindowHint);
        m_desk->setGeometry(0, 0, 240, 180);
        m_desk->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_desk.get()));
        rehearse();
        const bool isComplete = !choose();
        const size_t size = sizeof(Board) + size_t(m_cells.size());
        m_board = static_cast<Board *>(
            mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));
        QVERIFY(m_board != MAP_FAILED);
        if (qEnvironmentVariableIsSet("KEL_MATRIX_CELL")) {
            const int number = qEnvironmentVariableIntValue("KEL_MATRIX_CELL");
            std::printf("%s\n", qPrintable(nameOf(m_cells.at(number))));
            QVERIFY(run(m_cells.at(number)) != Outcome::Warned);
        } else {
            runAll();
            m_desk.reset();
            const int fired = report();
            QVERIFY2(m_failures == 0, "the cells that failed are named above");
            if (isComplete) {
                QCOMPARE(missingSignals().join(QLatin1Char('\n')), QString());
                QVERIFY2(fired >= wantedCells, "too few cells have fired");
                // What is left out for nothing hides the next defect.
                QCOMPARE(m_exempted.indexOf(0), -1);
            }
        }
        munmap(m_board, size);
        m_desk.reset();
    }

private:
    QString nameOf(const Cell &cell) const
    {
        const Action &action = actions().at(cell.action);
        const QStringList &names = m_names.at(cell.stage);
        const QMetaObject *const meta = m_metas.at(cell.stage).at(cell.sender);
        QString text = QString::fromLatin1(stageKinds().at(cell.stage).name) + QLatin1String(": ")
            + QString::fromLatin1(action.name);
        if (cell.spot >= 0)
            text += u" at spot %1"_s.arg(cell.spot);
        return text
            + u"; %1 sends %2 (%3), which %5 %4"_s.arg(
                names.at(cell.sender), QString::fromLatin1(meta->method(cell.signal).name()),
                QString::number(cell.nth), names.at(cell.victim),
                cell.isLater ? u"deletes later"_s : u"deletes"_s);
    }

    CellFacts factsOf(const Cell &cell, const MatrixStage &stage) const
    {
        CellFacts facts;
        facts.stage = QString::fromLatin1(stageKinds().at(cell.stage).name);
        facts.action = QString::fromLatin1(actions().at(cell.action).name);
        if (cell.spot >= 0)
            facts.spot = QString::fromLatin1(stage.spots.at(cell.spot).name);
        facts.sender = stage.nameOf(cell.sender);
        facts.senderClass = stage.metaOf(cell.sender);
        facts.signal = QString::fromLatin1(facts.senderClass->method(cell.signal).name());
        facts.victim = stage.nameOf(cell.victim);
        facts.victimClass = stage.metaOf(cell.victim);
        facts.isGesture = actions().at(cell.action).isGesture;
        facts.isLater = cell.isLater;
        facts.isItself = cell.victim == cell.sender;
        const QObject *const sender = stage.at(cell.sender);
        const QObject *const victim = stage.at(cell.victim);
        facts.victimHoldsSender = holds(victim, sender);
        facts.senderHoldsVictim = holds(sender, victim);
        const QGraphicsItem *const senderTop = outermost(sender);
        facts.areInOneTree = senderTop && senderTop == outermost(victim);
        facts.victimHoldsTarget = holds(victim, targetOf(stage, cell.spot));
        return facts;
    }

    bool isExempt(const CellFacts &facts)
    {
        for (int i = 0; i < exemptions().size(); ++i) {
            if (exemptions().at(i).applies(facts)) {
                ++m_exempted[i];
                return true;
            }
        }
        return false;
    }

    void rehearse()
    {
        m_exempted.fill(0, exemptions().size());
        for (int kind = 0; kind < stageKinds().size(); ++kind) {
            const std::unique_ptr<MatrixStage> stage = makeStage(kind, m_desk.get());
            QStringList names;
            QVector<const QMetaObject *> metas;
            for (int i = 0; i < stage->count(); ++i) {
                names.append(stage->nameOf(i));
                metas.append(stage->metaOf(i));
                m_classes.insert(QString::fromLatin1(metas.last()->className()), metas.last());
            }
            m_names.append(names);
            m_metas.append(metas);
            for (int action = 0; action < actions().size(); ++action) {
                if (!actions().at(action).applies(*stage))
                    continue;
                if (!actions().at(action).isGesture)
                    rehearse(kind, action, -1);
                for (int spot = 0; actions().at(action).isGesture && spot < stage->spots.size();
                     ++spot)
                    rehearse(kind, action, spot);
            }
        }
    }

    void rehearse(int kind, int action, int spot)
    {
        ++m_rehearsals;
        struct Line
        {
            Cell cell;
            std::unique_ptr<Ear> ear;
        };
        std::vector<Line> lines;
        // Below the other one, so that fingers do not find it.
        const std::unique_ptr<MatrixStage> untouched = makeStage(kind, m_desk.get());
        const std::unique_ptr<MatrixStage> stage = makeStage(kind, m_desk.get());
        for (int sender = 0; sender < stage->count(); ++sender) {
            const QMetaObject *const meta = stage->metaOf(sender);
            for (int i = 0; i < meta->methodCount(); ++i) {
                if (!isSignal(meta->method(i)))
                    continue;
                auto ear = std::make_unique<Ear>();
                ear->listenTo(stage->at(sender), meta->method(i));
                lines.push_back({{kind, action, spot, sender, i, 0, 0, false}, std::move(ear)});
            }
        }
        play(stage.get(), actions().at(action), spot);
        for (const Line &line : lines) {
            if (line.ear->count == 0)
                continue;
            Cell cell = line.cell;
            const QMetaMethod method = stage->metaOf(cell.sender)->method(cell.signal);
            const bool isOfQt = method.enclosingMetaObject()->className()[0] == 'Q';
            const int emissions = qMin(isOfQt ? 1 : 2, line.ear->count);
            for (cell.nth = 1; cell.nth <= emissions; ++cell.nth) {
                for (cell.victim = 0; cell.victim < stage->count(); ++cell.victim) {
                    for (const bool isLater : {false, true}) {
                        cell.isLater = isLater;
                        const CellFacts facts = factsOf(cell, *untouched);
                        if (isExempt(facts))
                            continue;
                        if (m_wantsAll || !m_kinds.contains(kindOf(facts, cell.nth))) {
                            m_kinds.insert(kindOf(facts, cell.nth));
                            m_cells.append(cell);
                        }
                    }
                }
            }
        }
    }

    Outcome run(const Cell &cell)
    {
        bool hasKilled = false;
        {
            const std::unique_ptr<MatrixStage> stage = makeStage(cell.stage, m_desk.get());
            Ear ear([&](int count) {
                QObject *const victim = count == cell.nth ? stage->at(cell.victim) : nullptr;
                if (!victim)
                    return;
                hasKilled = true;
                if (cell.isLater)
                    victim->deleteLater();
                else
                    delete victim;
            });
            QObject *const sender = stage->at(cell.sender);
            ear.listenTo(sender, sender->metaObject()->method(cell.signal));
            play(stage.get(), actions().at(cell.action), cell.spot);
        }
        settle();
        const QStringList warnings = takeWarnings();
        if (!warnings.isEmpty()) {
            std::fprintf(stderr, "%s\n", qPrintable(warnings.join(QLatin1Char('\n'))));
            return Outcome::Warned;
        }
        return hasKilled ? Outcome::Fired : Outcome::Silent;
    }

    [[noreturn]] void runFrom(int cell)
    {
        prctl(PR_SET_PDEATHSIG, SIGKILL); // nobody else would end it
#if !defined(__SANITIZE_ADDRESS__)
        // QtTest would start a debugger.
        for (const int signal : {SIGSEGV, SIGABRT, SIGBUS, SIGILL, SIGFPE})
            std::signal(signal, SIG_DFL);
#endif
        for (; cell < m_cells.size(); ++cell) {
            alarm(patienceS);
            m_board->cell = cell;
            m_board->outcomes()[cell] = Outcome::Running;
            m_board->outcomes()[cell] = run(m_cells.at(cell));
        }
        m_desk.reset();
        int code = 0;
#if defined(__SANITIZE_ADDRESS__)
        if (__lsan_do_recoverable_leak_check() != 0)
            code = leakExitCode;
#endif
        std::fflush(stderr);
        _exit(code);
    }

    void runAll()
    {
        int next = 0;
        while (next < m_cells.size() && m_failures < mostFailures) {
            const pid_t player = fork();
            if (player < 0)
                qFatal("no process for the cells");
            if (player == 0)
                runFrom(next);
            int status = 0;
            waitpid(player, &status, 0);
            const int last = m_board->cell;
            if (m_board->outcomes()[last] == Outcome::Running) {
                fail(last,
                     WIFSIGNALED(status) && WTERMSIG(status) == SIGALRM ? "hangs" : "crashes");
            } else if (status != 0) {
                std::fprintf(stderr, "The cells from %d on leave memory behind.\n", next);
                ++m_failures;
            }
            next = last + 1;
        }
        for (int cell = 0; cell < m_cells.size(); ++cell) {
            if (m_board->outcomes()[cell] == Outcome::Warned)
                fail(cell, "warns");
        }
    }

    void fail(int cell, const char *how)
    {
        std::fprintf(stderr, "Cell %d %s: %s\n", cell, how, qPrintable(nameOf(m_cells.at(cell))));
        ++m_failures;
    }

    // Returns true when some are left out.
    bool choose()
    {
        const int count = qEnvironmentVariableIntValue("KEL_MATRIX_CELLS");
        if (count <= 0 || count >= m_cells.size())
            return false;
        std::mt19937 random(1); // NOLINT(cert-msc51-cpp): always the same cells
        QVector<Cell> chosen;
        for (int i = 0; i < m_cells.size(); ++i) {
            // Selection sampling: each set of that many cells is as likely as any other.
            if (random() % quint32(m_cells.size() - i) < quint32(count - chosen.size()))
                chosen.append(m_cells.at(i));
        }
        m_cells = chosen;
        return true;
    }

    QStringList missingSignals() const
    {
        QStringList missing;
        for (const QString &name : objectClasses()) {
            const QMetaObject *const meta = m_classes.value(name);
            if (!meta)
                missing.append(name
                               + QLatin1String(" stands on no stage: add one to matrixstage.cpp"));
            for (int i = 0; meta && i < meta->methodCount(); ++i) {
                const QMetaMethod method = meta->method(i);
                const QByteArray owner(method.enclosingMetaObject()->className());
                if (isSignal(method) && owner.startsWith("KEL") && !isSilent(name, method.name())
                    && !m_fired.value(name).contains(method.name()))
                    missing.append(u"%1::%2 is never sent: add an action to matrixactions.cpp, "
                                   "or a line to silentSignals()"_s.arg(
                                       name, QString::fromLatin1(method.name())));
            }
        }
        return missing;
    }

    static bool isSilent(const QString &className, const QByteArray &signal)
    {
        const auto isMeant = [&](const SilentSignal &silent) {
            return className == QLatin1String(silent.className) && signal == silent.signal;
        };
        return std::any_of(silentSignals().begin(), silentSignals().end(), isMeant);
    }

    int report()
    {
        QMap<QString, int> byClass;
        QSet<QPair<QString, QByteArray>> signalsFired;
        int count = 0;
        for (int i = 0; i < m_cells.size(); ++i) {
            const Cell &cell = m_cells.at(i);
            const QMetaObject *const meta = m_metas.at(cell.stage).at(cell.sender);
            const QString name = QString::fromLatin1(meta->className());
            if (m_board->outcomes()[i] != Outcome::Fired)
                continue;
            ++count;
            ++byClass[name];
            m_fired[name].insert(meta->method(cell.signal).name());
            signalsFired.insert({name, meta->method(cell.signal).name()});
        }
        std::printf("%d stages, %d actions, %d pairs of them; %d signals; %d cells, %d fired\n",
                    int(stageKinds().size()), int(actions().size()), m_rehearsals,
                    int(signalsFired.size()), int(m_cells.size()), count);
        for (auto it = byClass.cbegin(); it != byClass.cend(); ++it)
            std::printf("%7d of %s\n", it.value(), qPrintable(it.key()));
        for (int i = 0; i < exemptions().size(); ++i)
            std::printf("%7d left out, %s\n", m_exempted.at(i), exemptions().at(i).reason);
        std::fflush(stdout);
        return count;
    }

    std::unique_ptr<QWidget> m_desk;
    QVector<Cell> m_cells;
    QHash<QString, QSet<QByteArray>> m_fired; // by class
    QHash<QString, const QMetaObject *> m_classes; // that stand on a stage
    QVector<int> m_exempted;
    QVector<QStringList> m_names; // of the objects of a stage
    QVector<QVector<const QMetaObject *>> m_metas;
    QSet<QString> m_kinds;
    const bool m_wantsAll = qEnvironmentVariable("KEL_MATRIX_CELLS") == QLatin1String("all");
    int m_rehearsals = 0;
    Board *m_board = nullptr;
    int m_failures = 0;
};

KEL_TEST_MAIN(tst_DeletionMatrix)
#include "tst_deletionmatrix.moc"
