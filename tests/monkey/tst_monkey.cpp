// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "generator.h"
#include "run.h"

#include <QtTest/QtTest>

#include <cmath>
#include <vector>

using namespace Monkey;

// Each script, and each part of the random run, is played in a process of its own.
class tst_Monkey : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textIsReadAsItWasWritten();
    void errorNamesItsLine();
    void chunkDependsOnNothingElse();
    void script_data();
    void script();
    void randomUse_data();
    void randomUse();
};

void tst_Monkey::textIsReadAsItWasWritten()
{
    const std::string written = "make 1 2 0 0 10 1e+300 nan -inf\non 3 2 delete 4 0\nturn\n";
    Script script;
    std::string error;
    QVERIFY2(fromText("# words\n\n" + written, &script, &error), error.c_str());
    QCOMPARE(script.size(), std::size_t(3));
    QVERIFY(std::isnan(script.at(0).number(6)));
    QCOMPARE(toText(script), written);
}

void tst_Monkey::errorNamesItsLine()
{
    for (const char *line : {"jump 1", "turn 1", "delete 1", "delete one 0", "on 1 2"}) {
        Script script;
        std::string error;
        QVERIFY(!fromText("turn\n" + std::string(line), &script, &error));
        QVERIFY2(error.rfind("line 2 ", 0) == 0, error.c_str());
    }
}

void tst_Monkey::chunkDependsOnNothingElse()
{
    QCOMPARE(toText(makeChunk(1, 2)), toText(makeChunk(1, 2)));
    QVERIFY(toText(makeChunk(1, 2)) != toText(makeChunk(1, 3)));
    QVERIFY(toText(makeChunk(1, 2)) != toText(makeChunk(2, 2)));
}

void tst_Monkey::script_data()
{
    QTest::addColumn<QString>("path");
    const QFileInfo program(QStringLiteral("/proc/self/exe"));
    const QDir folder(QFileInfo(program.symLinkTarget()).path()
                      + QStringLiteral("/monkey-scripts"));
    const QFileInfoList files = folder.entryInfoList({QStringLiteral("*.txt")});
    for (const QFileInfo &file : files)
        QTest::newRow(qPrintable(file.completeBaseName())) << file.filePath();
    if (files.isEmpty())
        QTest::newRow("no scripts") << folder.path(); // fails
}

void tst_Monkey::script()
{
    QFETCH(const QString, path);
    QFile file(path);
    QVERIFY2(file.open(QFile::ReadOnly), qPrintable(path));
    Script script;
    std::string error;
    QVERIFY2(fromText(file.readAll().toStdString(), &script, &error), error.c_str());
    QVERIFY(!script.empty());
    const Outcome outcome = playAlone(script, false);
    QCOMPARE(QString::fromStdString(outcome.failure), QString());
    QCOMPARE(outcome.steps, std::uint64_t(script.size()));
}

void tst_Monkey::randomUse_data()
{
    QTest::addColumn<int>("chunk");
    QTest::addColumn<int>("chunks");
    constexpr int rows = 10;
    const int asked = qEnvironmentVariableIntValue("KEL_MONKEY_STEPS");
    const int steps = asked > 0 ? asked : 30000;
    const int chunks = qMax(1, (steps + stepsPerChunk - 1) / stepsPerChunk / rows);
    for (int row = 0; row < rows && row * chunks * stepsPerChunk < steps; ++row)
        QTest::addRow("from chunk %d", row * chunks) << row * chunks << chunks;
}

void tst_Monkey::randomUse()
{
    QFETCH(const int, chunk);
    QFETCH(const int, chunks);
    RandomRun run;
    run.firstChunk = std::uint64_t(chunk);
    run.steps = std::uint64_t(chunks) * stepsPerChunk;
    const Outcome outcome = playChunks(run);
    const std::string command = outcome.failure + "; see scripts/monkey.sh --chunk "
        + std::to_string(outcome.chunk);
    QVERIFY2(outcome.failure.empty(), command.c_str());
    QVERIFY(outcome.steps >= run.steps); // a chunk ends after a whole gesture
}

// No application object: each child process has its own. It also reports its crashes itself, and
// must not take what glib keeps for the watchdog's thread for a leak.
int main(int argc, char *argv[])
{
    qputenv("QT_NO_GLIB", "1");
    QByteArray option("-nocrashhandler");
    std::vector<char *> arguments(argv, argv + argc);
    arguments.push_back(option.data());
    tst_Monkey test;
    return QTest::qExec(&test, int(arguments.size()), arguments.data());
}

#include "tst_monkey.moc"
