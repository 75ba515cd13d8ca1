// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "keltest.h"

#include <cstdio>
#include <sys/wait.h>

// Runs a program to its end. A leak found by the sanitizers is an exit code and a message, too.
namespace {

struct Result
{
    int exitCode = -1;
    QString output;
};

// QProcess does not work under an emulator.
Result run(const char *scenario)
{
    Result result;
    const QByteArray command = qgetenv("KEL_EMULATOR") + " '"
        + QFile::encodeName(KelTest::besideProgram(u"kel_exit_scenario"_s)) + "' " + scenario
        + " 2>&1";
    FILE *const pipe = popen(command.constData(), "r");
    if (!pipe)
        return result;
    QByteArray line(4096, '\0');
    while (std::fgets(line.data(), line.size(), pipe)) {
        const QString text = QString::fromLocal8Bit(line.constData());
        // What Qt says about the machine, not about the program.
        if (!text.startsWith(QLatin1String("This plugin does not support "))
            && !text.startsWith(QLatin1String("QStandardPaths: ")))
            result.output += text;
    }
    const int status = pclose(pipe);
    if (WIFEXITED(status))
        result.exitCode = WEXITSTATUS(status);
    return result;
}

} // namespace

class tst_KELDialogExit : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void endsQuietly_data()
    {
        QTest::addColumn<QByteArray>("scenario");
        QTest::newRow("with an open dialog") << QByteArray("open-dialog");
        QTest::newRow("with a shaking dialog") << QByteArray("shaking-dialog");
        QTest::newRow("with a dialog about to shake") << QByteArray("dialog-about-to-shake");
        QTest::newRow("out of a modal dialog") << QByteArray("modal-dialog");
        QTest::newRow("with a static dialog") << QByteArray("static-dialog");
        QTest::newRow("with a static panel") << QByteArray("static-panel");
        QTest::newRow("with an open panel") << QByteArray("open-panel");
        QTest::newRow("with a scheduled hide") << QByteArray("scheduled-hide");
    }

    void endsQuietly()
    {
        QFETCH(QByteArray, scenario);
        const Result result = run(scenario.constData());
        QCOMPARE(result.output, QString());
        QCOMPARE(result.exitCode, 0);
    }

    void unknownScenarioFails() { QCOMPARE(run("something-else").exitCode, 2); }
};

KEL_TEST_MAIN(tst_KELDialogExit)
#include "tst_keldialogexit.moc"
