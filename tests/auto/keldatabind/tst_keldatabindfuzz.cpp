// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "bindmodel.h"
#include "bindscript.h"
#include "bindworld.h"
#include "keltest.h"

#include <cstdio>

/*
 * Runs made-up scripts with bindings and with a model of them, and compares after each step.
 *
 *   KEL_FUZZ_SCRIPTS   how many scripts, 100000 without it
 *   KEL_FUZZ_SEED      the seed of the first, 1 without it; each further script has the next number
 *   KEL_FUZZ_TRACE     when set, every step is printed before it is done: for steps that crash
 */

namespace {

int numberFromEnvironment(const char *name, int otherwise)
{
    bool isNumber = false;
    const int number = qEnvironmentVariableIntValue(name, &isNumber);
    return isNumber ? number : otherwise;
}

} // namespace

class tst_KELDataBindFuzz : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void scriptsReachEveryCase();
    void bindingsDoWhatTheModelDoes_data();
    void bindingsDoWhatTheModelDoes();

private:
    static QString runScript(quint32 seed);
};

// A script that avoids what is difficult proves nothing.
void tst_KELDataBindFuzz::scriptsReachEveryCase()
{
    QMap<QByteArray, int> reached;
    Traces traces;
    for (quint32 seed = 1; seed <= 3000; ++seed) {
        ScriptWriter writer(seed);
        BindModel model;
        for (int left = writer.length(); left > 0; --left) {
            const Step step = writer.next(model);
            BindModel after = model;
            if (!after.run(step, &traces)) {
                ++reached["circle"];
                continue;
            }
            model = after;
            for (const char *what : qAsConst(traces.cases))
                ++reached[what];
        }
    }

    const QVector<const char *> cases = {
        "binding deleted with its parent",
        "no such source property",
        "no such destination property",
        "mode of an earlier setBind kept",
        "setBind twice",
        "meta-property of another class",
        "connected twice",
        "disconnected",
        "bind without an object",
        "bound again",
        "block of the application ended",
        "notified without an object",
        "copied",
        "copied by a copy",
        "converted",
        "converter gave nothing",
        "invalid value written",
        "dynamic property written",
        "value of no use",
        "error : bind is not setted",
        "waring : could not find src notify",
        "waring : could not find dst notify",
        "waring : could not find any notify",
    };
    for (const char *what : cases)
        QVERIFY2(reached[what] >= 20, what);
    QVERIFY2(reached["circle"] < 300, "too many steps are left out");
}

void tst_KELDataBindFuzz::bindingsDoWhatTheModelDoes_data()
{
    QTest::addColumn<quint32>("firstSeed");
    QTest::addColumn<int>("count");

    constexpr int mostInARow = 10000;
    const int count = numberFromEnvironment("KEL_FUZZ_SCRIPTS", 100000);
    const auto seed = quint32(numberFromEnvironment("KEL_FUZZ_SEED", 1));
    for (int done = 0; done < count; done += mostInARow) {
        const quint32 first = seed + quint32(done);
        const int inThisRow = qMin(mostInARow, count - done);
        QTest::addRow("%d scripts from seed %u", inThisRow, first) << first << inThisRow;
    }
}

void tst_KELDataBindFuzz::bindingsDoWhatTheModelDoes()
{
    QFETCH(quint32, firstSeed);
    QFETCH(int, count);

    for (quint32 seed = firstSeed; seed < firstSeed + quint32(count); ++seed) {
        const QString failure = runScript(seed);
        QVERIFY2(failure.isEmpty(), qPrintable(failure));
    }
}

// Empty, or the difference and how to get there.
QString tst_KELDataBindFuzz::runScript(quint32 seed)
{
    static const bool isTraced = qEnvironmentVariableIsSet("KEL_FUZZ_TRACE");

    ScriptWriter writer(seed);
    if (isTraced)
        std::fprintf(stderr, "script %u\n", seed);
    const QString failure = runOnModelAndBindings(&writer, writer.length(), isTraced);
    return failure.isEmpty()
        ? QString()
        : QStringLiteral("\nKEL_FUZZ_SEED=%1 KEL_FUZZ_SCRIPTS=1\n").arg(seed) + failure;
}

KEL_TEST_MAIN(tst_KELDataBindFuzz)
#include "tst_keldatabindfuzz.moc"
