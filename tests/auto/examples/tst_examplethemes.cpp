// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "runningscreen.h"

#include <KELProcessBar>
#include <KELRange>
#include <KELRow>

class tst_ExampleThemes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(m_screen && QTest::qWaitForWindowExposed(m_screen)); }

    void aRowChangesTheLook()
    {
        const QVector<KELRow *> rows = all<KELRow>(m_screen);
        QCOMPARE(rows.size(), 3);
        QVERIFY(rows.at(0)->isChecked());
        const QVector<QColor> grounds = {QColor(0xf3f5f8), QColor(0x0e1116), QColor(Qt::black)};
        for (int i = 2; i >= 0; --i) {
            tapOn(m_screen, rows.at(i));
            QCOMPARE(m_screen->scene()->backgroundBrush().color(), grounds.at(i));
        }
    }

    void theBarFollows()
    {
        all<KELRange>(m_screen).first()->setValue(30);
        QCOMPARE(all<KELProcessBar>(m_screen).first()->value(), 30);
    }

private:
    KELScreen *const m_screen = theScreen();
};

static void start()
{
    runInTheExample<tst_ExampleThemes>();
}
Q_COREAPP_STARTUP_FUNCTION(start)

#include "tst_examplethemes.moc"
