// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "keltest.h"
#include "program.h"
#include "rows.h"

namespace {

int exitCodeOf(const QStringList &scenario)
{
    return runProgram(KelTest::besideProgram(u"kel_exception_scenario"_s), scenario).exitCode;
}

} // namespace

// An exception that foreign code throws while a binding calls it ends the program at once.
class tst_KELDataBindException : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void endsTheProgram_data()
    {
        QTest::addColumn<QStringList>("scenario");
        const auto rows = [](const QString &thrower, const QStringList &calls) {
            for (const QString &call : calls)
                QTest::newRow(qPrintable(thrower + u", "_s + call)) << QStringList{thrower, call};
        };
        rows(u"getter"_s, {u"setBind()"_s, u"bind()"_s, u"update()"_s, u"a change"_s});
        rows(u"setter"_s, {u"setBind()"_s, u"bind()"_s, u"update()"_s, u"a change"_s});
        rows(u"converter"_s, {u"bind()"_s, u"update()"_s, u"a change"_s});
        rows(u"connectNotify()"_s, {u"setBind()"_s, u"bind()"_s});
    }

    void endsTheProgram() { QCOMPARE(exitCodeOf(fetch<QStringList>("scenario")), 42); }

    void unknownScenarioFails() { QCOMPARE(exitCodeOf({u"getter"_s, u"something else"_s}), 2); }
};

KEL_TEST_MAIN(tst_KELDataBindException)
#include "tst_keldatabindexception.moc"
