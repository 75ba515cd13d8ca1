// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "runningscreen.h"

#include <KELPicker>
#include <KELPinDialog>
#include <KELProcessBar>
#include <KELRange>
#include <KELRow>

#include <QtCore/QAbstractItemModel>

class tst_ExampleSettings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(m_screen && QTest::qWaitForWindowExposed(m_screen)); }

    void theModelIsShown()
    {
        QVERIFY(row(u"Heating"_s)->isChecked());
        QCOMPARE(all<KELRange>(m_screen).first()->value(), 40.0);
        QCOMPARE(all<KELProcessBar>(m_screen).first()->value(), 40);
    }

    void theRangeMovesTheBar()
    {
        all<KELRange>(m_screen).first()->setValue(70);
        QCOMPARE(all<KELProcessBar>(m_screen).first()->value(), 70);
    }

    void aPinOpensTheServicePage()
    {
        tapOn(m_screen, row(u"Service"_s));
        auto *const dialog = all<KELPinDialog>(m_screen).value(0);
        QVERIFY(dialog);
        typePin(u"1111"_s);
        QVERIFY(dialog->isOpen());
        typePin(u"1234"_s);
        QVERIFY(!dialog->isOpen());
        QCOMPARE(m_screen->pageCount(), 2);
        QTRY_COMPARE(m_screen->currentPage()->x(), 0.0);
    }

    void theServicePageWorks()
    {
        tapOn(m_screen, row(u"Fast pump"_s));
        QVERIFY(row(u"Fast pump"_s)->isChecked());
        tapOn(m_screen, row(u"Slow pump"_s));
        QVERIFY(!row(u"Fast pump"_s)->isChecked());
        auto *const picker = all<KELPicker>(m_screen).value(0);
        QVERIFY(picker);
        QCOMPARE(picker->model()->rowCount(), 30);
        picker->setCurrentIndex(29);
        QCOMPARE(picker->currentText(), u"Zone 30"_s);
        m_screen->back();
        QCOMPARE(m_screen->pageCount(), 1);
    }

private:
    KELRow *row(const QString &caption) const
    {
        for (KELRow *row : all<KELRow>(m_screen)) {
            if (row->caption() == caption)
                return row;
        }
        return nullptr;
    }
    void typePin(const QString &pin) const
    {
        for (const QChar digit : pin)
            QTest::keyClick(m_screen, Qt::Key(digit.unicode()));
    }

    KELScreen *const m_screen = theScreen();
};

static void start()
{
    runInTheExample<tst_ExampleSettings>();
}
Q_COREAPP_STARTUP_FUNCTION(start)

#include "tst_examplesettings.moc"
