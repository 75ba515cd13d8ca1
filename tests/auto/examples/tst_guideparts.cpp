// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "partsamples.h"
#include "runningscreen.h"

#include <KELLabel>
#include <KELList>
#include <KELPicker>
#include <KELPinDialog>
#include <KELProcessBar>
#include <KELPushButton>
#include <KELRange>
#include <KELRow>
#include <KELTheme>

#include <QtCore/QFile>
#include <QtCore/QTemporaryFile>
#include <QtGui/QStandardItemModel>

// The code of docs/guide/parts.md, in the event loop of its first screen.
class tst_GuideParts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(m_screen && QTest::qWaitForWindowExposed(m_screen)); }

    void theRowOfTheFirstScreenEnablesItsButton()
    {
        auto *const button = withText<KELPushButton>(m_screen, u"Rinse"_s);
        QVERIFY(button);
        QVERIFY(!button->isEnabled());
        tapOn(m_screen, all<KELRow>(m_screen).first());
        QVERIFY(button->isEnabled());
    }

    void theFirstScreenIsDark()
    {
        QCOMPARE(m_screen->scene()->backgroundBrush().color(), QColor(0x0e1116));
    }

    void keysAreOfOneSize()
    {
        QGraphicsWidget page;
        fillKeypad(&page);
        page.resize(400, 400);
        QVector<QSizeF> sizes;
        const QList<QGraphicsItem *> items = page.childItems();
        for (QGraphicsItem *item : items) {
            if (qobject_cast<KELPushButton *>(item->toGraphicsObject()))
                sizes.append(item->boundingRect().size());
        }
        QCOMPARE(sizes.size(), 9);
        QVERIFY(qAbs(sizes.first().width() - sizes.last().width()) <= 1);
        QVERIFY(qAbs(sizes.first().height() - sizes.last().height()) <= 1);
    }

    void whatIsSetByHandStays()
    {
        KELTheme theme;
        auto *const warning = new KELLabel;
        m_screen->scene()->addItem(warning);
        dressScreen(m_screen, &theme, warning);
        theme.setScheme(KELTheme::Light);
        QCOMPARE(warning->style()->foregroundBrush.color(), QColor(0xff8a8a));
        delete warning;
    }

    void theFileOfThePageIsATheme()
    {
        QFile page(qEnvironmentVariable("KEL_GUIDE_PARTS"));
        if (!page.open(QIODevice::ReadOnly))
            QSKIP("the page is not here");
        const QByteArray text = page.readAll();
        const int begin = text.indexOf("```json\n") + 8;
        QTemporaryFile file;
        QVERIFY(file.open());
        file.write(text.mid(begin, text.indexOf("```", begin) - begin));
        file.close();
        KELTheme theme;
        KELRow row;
        theme.applyTo(&row);
        loadTheme(&theme, file.fileName());
        QCOMPARE(theme.scheme(), KELTheme::Dark);
        QCOMPARE(row.partStyle()->accentBrush.color(), QColor(0xff8800));
        QCOMPARE(row.partStyle()->rowHeight, 72.0);
    }

    void valuesAreShown()
    {
        Boiler boiler;
        KELLabel label;
        KELProcessBar bar;
        KELRange range;
        KELRow row;
        showBoiler(&boiler, &label, &bar, &range, &row);
        QCOMPARE(label.text(), u"21.5 °C"_s);
        QCOMPARE(bar.value(), 80);
        range.setValue(55);
        QCOMPARE(boiler.property("target").toInt(), 55);
    }

    void aTapTurnsThePumpOn()
    {
        QStandardItemModel model;
        auto *const page = new KELPage;
        KELList *const list = newPumps(page, &model);
        list->setGeometry(0, 0, 400, 300);
        m_screen->push(page);
        tapOn(m_screen, list);
        QCOMPARE(model.item(0)->checkState(), Qt::Unchecked); // not on the row
        QTest::ignoreMessage(QtInfoMsg, "\"Pump 1\"");
        Hand(m_screen->viewport()).tap(QPoint(200, 20));
        QCOMPARE(model.item(0)->checkState(), Qt::Checked);
        m_screen->pop();
    }

    void oneSpeedIsChecked()
    {
        KELPage page;
        fillCard(&page);
        page.resize(400, 300);
        const QList<QGraphicsItem *> rows = page.childItems();
        QCOMPARE(rows.size(), 3);
        QVERIFY(static_cast<KELRow *>(rows.at(1))->isChecked());
    }

    void theTargetIsSetAtTheEndOfADrag()
    {
        Boiler boiler;
        const QScopedPointer<KELRange> range(newTarget(&boiler));
        QCOMPARE(range->textOf(range->value()), u"21.5 °C"_s);
        const QScopedPointer<KELPicker> zones(newZones());
        QCOMPARE(zones->model()->rowCount(), 3);
    }

    void thePinOpensAPage()
    {
        KELTheme theme;
        theme.setScheme(KELTheme::Dark);
        theme.applyTo(m_screen->scene());
        const QPointer<KELPinDialog> dialog = askForPin(m_screen);
        QTRY_COMPARE(dialog->partStyle()->backgroundBrush.color(), QColor(0x181d25));
        const int pages = m_screen->pageCount();
        QTest::keyClicks(m_screen, u"1234"_s);
        QCOMPARE(m_screen->pageCount(), pages + 1);
        QTRY_VERIFY(!dialog);
        m_screen->pop();
    }

    void aTapTurnsTheLampOn()
    {
        auto *const page = new KELPage;
        KELPart *const lamp = newLamp();
        lamp->setParentItem(page);
        lamp->setGeometry(0, 0, 100, 100);
        m_screen->push(page);
        const auto colour = [this] { return m_screen->grab().toImage().pixelColor(50, 50); };
        QCOMPARE(colour(), lamp->partStyle()->trackBrush.color());
        tapOn(m_screen, lamp);
        QCOMPARE(colour(), lamp->partStyle()->accentBrush.color());
        m_screen->pop();
    }

    void aRunningRecipeStays()
    {
        askBeforeLeaving(m_screen);
        const int pages = m_screen->pageCount();
        m_screen->back();
        QCOMPARE(m_screen->pageCount(), pages);
    }

private:
    KELScreen *const m_screen = theScreen();
};

static void start()
{
    runInTheExample<tst_GuideParts>();
}
Q_COREAPP_STARTUP_FUNCTION(start)

#include "tst_guideparts.moc"
