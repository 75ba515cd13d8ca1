// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "keltest.h"
#include "partstage.h"
#include "rows.h"

#include <kelmotion.h>

#include <QtCore/QMetaMethod>

#include <cstdio>
#include <memory>

/*
 * Every signal of a part, page or screen that fires while something is done to a stage, with a slot
 * that deletes one of its objects: at once or, as the view and its scene ask for, later.
 *
 * A rehearsal finds out what fires. KEL_CELLS=1 prints each cell before it is played;
 * with KEL_MATRIX_CELLS every fifth one is.
 */
namespace {

class Ear : public QObject
{
    Q_OBJECT

public:
    void listenTo(QObject *sender, int signal)
    {
        connect(sender, sender->metaObject()->method(signal), this,
                metaObject()->method(metaObject()->indexOfSlot("hear()")));
    }

    int count = 0;
    QPointer<QObject> victim;
    bool isLater = false;

public Q_SLOTS:
    void hear()
    {
        QObject *const dying = count++ == 0 ? victim.data() : nullptr;
        if (dying && isLater)
            dying->deleteLater();
        else
            delete dying;
    }
};

struct Cell
{
    int sender;
    int signal;
    int victim;
    bool isLater;
};

void settle()
{
    for (int round = 0; round < 2; ++round) {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }
}

std::unique_ptr<PartStage> makeStage(size_t kind)
{
    auto stage = std::make_unique<PartStage>();
    partStages().at(kind).build(stage.get());
    stage->walk();
    stage->screen->show();
    QCoreApplication::processEvents();
    return stage;
}

void play(PartStage *stage, const PartAction &action)
{
    if (!action.needsSpot) {
        action.play(stage, QPoint());
        settle();
        return;
    }
    const QVector<QPoint> spots = stage->spots;
    for (const QPoint &spot : spots) {
        if (stage->screen)
            action.play(stage, spot);
        settle();
    }
}

// Qt's own visibleChanged() and enabledChanged() come from the middle of its work, and so do those
// that pass them on.
bool isMeant(const QMetaMethod &method)
{
    return method.methodType() == QMetaMethod::Signal
        && QByteArray(method.enclosingMetaObject()->className()).startsWith("KEL")
        && method.name() != "visibleChanged" && method.name() != "enabledChanged";
}

std::vector<Cell> rehearse(size_t kind, const PartAction &action)
{
    const std::unique_ptr<PartStage> stage = makeStage(kind);
    const int objects = stage->count();
    std::vector<std::pair<Cell, std::unique_ptr<Ear>>> heard;
    for (int sender = 0; sender < objects; ++sender) {
        const QMetaObject *const meta = stage->at(sender)->metaObject();
        for (int i = 0; i < meta->methodCount(); ++i) {
            if (!isMeant(meta->method(i)))
                continue;
            heard.emplace_back(Cell{sender, i, 0, false}, std::make_unique<Ear>());
            heard.back().second->listenTo(stage->at(sender), i);
        }
    }
    play(stage.get(), action);
    std::vector<Cell> cells;
    for (const auto &[cell, ear] : heard) {
        for (int victim = 0; ear->count > 0 && victim < objects; ++victim) {
            cells.push_back({cell.sender, cell.signal, victim, true});
            if (victim != 0) // not the view
                cells.push_back({cell.sender, cell.signal, victim, false});
        }
    }
    return cells;
}

} // namespace

class tst_PartsDeletion : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void anySlotMayDeleteAnything_data()
    {
        addRows({{"stage", namesOf(partStages())}, {"action", namesOf(partActions())}});
    }

    void anySlotMayDeleteAnything()
    {
        const auto kind = fetch<size_t>("stage");
        const PartAction &action = partActions().at(fetch<size_t>("action"));
        const std::vector<Cell> cells = rehearse(kind, action);
        for (size_t i = m_played % m_step; i < cells.size(); i += m_step)
            run(cells.at(i), kind, action);
        takeWarnings(); // of KELValues about what has died
    }

    void enoughHasBeenPlayed()
    {
        QVERIFY2(m_played >= 2000 / m_step, QByteArray::number(qulonglong(m_played)));
    }

private:
    void run(const Cell &cell, size_t kind, const PartAction &action)
    {
        const std::unique_ptr<PartStage> stage = makeStage(kind);
        QObject *const sender = stage->at(cell.sender);
        QObject *const victim = stage->at(cell.victim);
        if (m_isTelling) {
            std::printf("%s sends %s, %s dies%s\n", sender->metaObject()->className(),
                        sender->metaObject()->method(cell.signal).name().constData(),
                        victim->metaObject()->className(), cell.isLater ? " later" : "");
            std::fflush(stdout);
        }
        Ear ear;
        ear.victim = victim;
        ear.isLater = cell.isLater;
        ear.listenTo(sender, cell.signal);
        play(stage.get(), action);
        ++m_played;
    }

    const bool m_isTelling = qEnvironmentVariableIsSet("KEL_CELLS");
    const size_t m_step = qEnvironmentVariableIsSet("KEL_MATRIX_CELLS") ? 5 : 1;
    size_t m_played = 0;
};

KEL_TEST_MAIN(tst_PartsDeletion)
#include "tst_partsdeletion.moc"
