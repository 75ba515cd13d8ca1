// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "runningexample.h"

#include <KELCheckBox>
#include <KELLabel>
#include <KELSlideControl>

class tst_ExampleDataBind : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        const QWidgetList windows = QApplication::topLevelWidgets();
        QCOMPARE(windows.size(), 1);
        m_view = qobject_cast<KELContentView *>(windows.first());
        QVERIFY(m_view && QTest::qWaitForWindowExposed(m_view));
        m_checkBox = find<KELCheckBox>(m_view);
        m_label = find<KELLabel>(m_view);
        m_slider = find<KELSlideControl>(m_view);
        QVERIFY(m_checkBox && m_label && m_slider);
    }

    void sliderStartsWhereTheProgramPutIt()
    {
        QCOMPARE(m_slider->value(), 20.0F);
        QCOMPARE(m_label->text(), QStringLiteral("68.0 °F"));
        QVERIFY(m_checkBox->isCheck());
    }

    void labelShowsFahrenheit_data()
    {
        QTest::addColumn<float>("celsius");
        QTest::addColumn<QString>("text");
        QTest::newRow("lower bound") << -40.0F << QStringLiteral("-40.0 °F");
        QTest::newRow("below the lower bound") << -50.0F << QStringLiteral("-40.0 °F");
        QTest::newRow("freezing point") << 0.0F << QStringLiteral("32.0 °F");
        QTest::newRow("between whole numbers") << 36.6F << QStringLiteral("97.9 °F");
        QTest::newRow("upper bound") << 100.0F << QStringLiteral("212.0 °F");
    }

    void labelShowsFahrenheit()
    {
        m_slider->setValue(fetch<float>("celsius"));
        QTEST(m_label->text(), "text");
    }

    void tapOnTheSliderReachesTheLabel()
    {
        tapOn(m_slider, QPointF(-15, 0)); // the middle of the travel
        const double celsius = double(m_slider->value());
        QVERIFY(qAbs(celsius - 30) < 1); // a pixel of the view is half a degree
        QCOMPARE(m_label->text(), QStringLiteral("%1 °F").arg(celsius * 1.8 + 32, 0, 'f', 1));
    }

    void heatSwitchesTheCheckBoxOff()
    {
        m_slider->setValue(90);
        m_checkBox->setCheck(true);
        QVERIFY(m_checkBox->isCheck());
        m_slider->setValue(95);
        QVERIFY(!m_checkBox->isCheck());
    }

    void tapOnTheCheckBoxReachesTheHeater()
    {
        m_slider->setValue(20);
        m_checkBox->setCheck(false);
        tapOn(m_checkBox);
        QVERIFY(m_checkBox->isCheck());
        // Only a heater that is on can switch itself off.
        m_slider->setValue(100);
        QVERIFY(!m_checkBox->isCheck());
    }

private:
    void tapOn(const QGraphicsItem *item, const QPointF &besideCentre = QPointF()) const
    {
        tap(m_view, item->mapToScene(item->boundingRect().center() + besideCentre));
    }

    KELContentView *m_view = nullptr;
    KELCheckBox *m_checkBox = nullptr;
    KELLabel *m_label = nullptr;
    KELSlideControl *m_slider = nullptr;
};

static void start()
{
    runInTheExample<tst_ExampleDataBind>();
}
Q_COREAPP_STARTUP_FUNCTION(start)

#include "tst_exampledatabind.moc"
