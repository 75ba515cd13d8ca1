// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "runningscreen.h"

#include <KELList>
#include <KELPushButton>

#include <QtCore/QAbstractItemModel>

class tst_ExampleList : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(m_screen && QTest::qWaitForWindowExposed(m_screen));
        m_list = all<KELList>(m_screen).value(0);
        QVERIFY(m_list);
        QCOMPARE(m_list->model()->rowCount(), 10000);
    }

    void itFindsParts_data()
    {
        QTest::addColumn<QString>("keys");
        QTest::addColumn<int>("found");
        QTest::newRow("one") << u"C1234"_s << 1;
        QTest::newRow("all with a 12") << u"C12"_s << 299;
        QTest::newRow("none") << u"C12345"_s << 0;
        QTest::newRow("corrected") << u"C12345⌫"_s << 1;
        QTest::newRow("all") << u"C"_s << 10000;
    }

    void itFindsParts()
    {
        QFETCH(const QString, keys);
        QFETCH(const int, found);
        for (const QChar key : keys)
            tapOn(m_screen, withText<KELPushButton>(m_screen, key));
        QCOMPARE(m_list->model()->rowCount(), found);
    }

    void aRowIsChosen()
    {
        tapOn(m_screen, m_list);
        QVERIFY(m_list->currentRow() >= 0);
    }

private:
    KELScreen *const m_screen = theScreen();
    KELList *m_list = nullptr;
};

static void start()
{
    runInTheExample<tst_ExampleList>();
}
Q_COREAPP_STARTUP_FUNCTION(start)

#include "tst_examplelist.moc"
