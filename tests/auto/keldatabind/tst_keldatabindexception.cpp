// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "keltest.h"

#include <cstdlib>
#include <sys/wait.h>

// An exception that foreign code throws while a binding calls it ends the program at once.
namespace {

constexpr int terminated = 42;

// QProcess does not work under an emulator.
int exitCodeOf(const char *scenario)
{
    const QByteArray command = qgetenv("KEL_EMULATOR") + " '"
        + QFile::encodeName(KelTest::besideProgram(u"kel_exception_scenario"_s)) + "' " + scenario;
    const int status = std::system(command.constData());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

} // namespace

class tst_KELDataBindException : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void endsTheProgram_data()
    {
        QTest::addColumn<QByteArray>("scenario");
        QTest::newRow("getter, in setBind()") << QByteArray("getter-in-set-bind");
        QTest::newRow("setter, in setBind()") << QByteArray("setter-in-set-bind");
        QTest::newRow("connectNotify(), in setBind()") << QByteArray("connection-in-set-bind");
        QTest::newRow("getter, in update()") << QByteArray("getter-in-update");
        QTest::newRow("setter, in update()") << QByteArray("setter-in-update");
        QTest::newRow("converter, in update()") << QByteArray("converter-in-update");
        QTest::newRow("converter, in bind()") << QByteArray("converter-in-bind");
        QTest::newRow("connectNotify(), in bind()") << QByteArray("connection-in-bind");
        QTest::newRow("getter, after a change") << QByteArray("getter-in-a-change");
        QTest::newRow("setter, after a change") << QByteArray("setter-in-a-change");
        QTest::newRow("converter, after a change") << QByteArray("converter-in-a-change");
    }

    void endsTheProgram()
    {
        QFETCH(QByteArray, scenario);
        QCOMPARE(exitCodeOf(scenario.constData()), terminated);
    }

    void unknownScenarioFails() { QCOMPARE(exitCodeOf("something-else"), 2); }
};

KEL_TEST_MAIN(tst_KELDataBindException)
#include "tst_keldatabindexception.moc"
