// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "runningscreen.h"

#include <KELLabel>
#include <KELPushButton>

class tst_ExampleCalculator : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(m_screen && QTest::qWaitForWindowExposed(m_screen));
        QCOMPARE(all<KELPushButton>(m_screen).size(), 20);
    }

    void itCalculates_data()
    {
        QTest::addColumn<QString>("keys");
        QTest::addColumn<QString>("shown");
        QTest::newRow("sum") << u"C12+3="_s << u"15"_s;
        QTest::newRow("difference") << u"C1−3="_s << u"-2"_s;
        QTest::newRow("product of a fraction") << u"C1.5×4="_s << u"6"_s;
        QTest::newRow("quotient") << u"C7÷2="_s << u"3.5"_s;
        QTest::newRow("chain") << u"C2+3×4="_s << u"20"_s;
        QTest::newRow("sign") << u"C7±"_s << u"-7"_s;
        QTest::newRow("percent") << u"C50%"_s << u"0.5"_s;
        QTest::newRow("correction") << u"C123⌫⌫⌫"_s << u"0"_s;
    }

    void itCalculates()
    {
        QFETCH(const QString, keys);
        QFETCH(const QString, shown);
        for (const QChar key : keys)
            tapOn(m_screen, withText<KELPushButton>(m_screen, key));
        QCOMPARE(all<KELLabel>(m_screen).first()->text(), shown);
    }

private:
    KELScreen *const m_screen = theScreen();
};

static void start()
{
    runInTheExample<tst_ExampleCalculator>();
}
Q_COREAPP_STARTUP_FUNCTION(start)

#include "tst_examplecalculator.moc"
