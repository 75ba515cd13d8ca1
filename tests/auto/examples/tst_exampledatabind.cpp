// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include <KELCheckBox>
#include <KELContentView>
#include <KELLabel>
#include <KELSlideControl>

#include <QtCore/QTimer>
#include <QtTest/QtTest>
#include <QtWidgets/QApplication>

// Runs in the example's own event loop, on the window that its main() shows.
class tst_ExampleDataBind : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void sliderStartsWhereTheProgramPutIt();
    void labelShowsFahrenheit_data();
    void labelShowsFahrenheit();
    void tapOnTheSliderReachesTheLabel();
    void heatSwitchesTheCheckBoxOff();
    void tapOnTheCheckBoxReachesTheHeater();

private:
    template <typename Control>
    Control *find() const;
    void tap(const QGraphicsItem *item, const QPointF &pos) const;

    KELContentView *m_view = nullptr;
    KELCheckBox *m_checkBox = nullptr;
    KELLabel *m_label = nullptr;
    KELSlideControl *m_slider = nullptr;
};

template <typename Control>
Control *tst_ExampleDataBind::find() const
{
    const QList<QGraphicsItem *> items = m_view->scene()->items();
    for (QGraphicsItem *item : items) {
        if (auto *control = dynamic_cast<Control *>(item))
            return control;
    }
    return nullptr;
}

void tst_ExampleDataBind::tap(const QGraphicsItem *item, const QPointF &pos) const
{
    QTest::mouseClick(m_view->viewport(), Qt::LeftButton, Qt::NoModifier,
                      m_view->mapFromScene(item->mapToScene(pos)));
}

void tst_ExampleDataBind::initTestCase()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    QCOMPARE(windows.size(), 1);
    m_view = qobject_cast<KELContentView *>(windows.first());
    QVERIFY(m_view && QTest::qWaitForWindowExposed(m_view));
    m_checkBox = find<KELCheckBox>();
    m_label = find<KELLabel>();
    m_slider = find<KELSlideControl>();
    QVERIFY(m_checkBox && m_label && m_slider);
}

void tst_ExampleDataBind::sliderStartsWhereTheProgramPutIt()
{
    QCOMPARE(m_slider->value(), 20.0F);
    QCOMPARE(m_label->text(), QStringLiteral("68.0 °F"));
    QVERIFY(m_checkBox->isCheck());
}

void tst_ExampleDataBind::labelShowsFahrenheit_data()
{
    QTest::addColumn<float>("celsius");
    QTest::addColumn<QString>("text");
    QTest::newRow("lower bound") << -40.0F << QStringLiteral("-40.0 °F");
    QTest::newRow("below the lower bound") << -50.0F << QStringLiteral("-40.0 °F");
    QTest::newRow("freezing point") << 0.0F << QStringLiteral("32.0 °F");
    QTest::newRow("between whole numbers") << 36.6F << QStringLiteral("97.9 °F");
    QTest::newRow("upper bound") << 100.0F << QStringLiteral("212.0 °F");
}

void tst_ExampleDataBind::labelShowsFahrenheit()
{
    QFETCH(float, celsius);
    QFETCH(QString, text);
    m_slider->setValue(celsius);
    QCOMPARE(m_label->text(), text);
}

void tst_ExampleDataBind::tapOnTheSliderReachesTheLabel()
{
    tap(m_slider, m_slider->boundingRect().center() - QPointF(15, 0)); // the middle of the travel
    const double celsius = double(m_slider->value());
    QVERIFY(qAbs(celsius - 30) < 1); // a pixel of the view is half a degree
    QCOMPARE(m_label->text(), QStringLiteral("%1 °F").arg(celsius * 1.8 + 32, 0, 'f', 1));
}

void tst_ExampleDataBind::heatSwitchesTheCheckBoxOff()
{
    m_slider->setValue(90);
    m_checkBox->setCheck(true);
    QVERIFY(m_checkBox->isCheck());
    m_slider->setValue(95);
    QVERIFY(!m_checkBox->isCheck());
}

void tst_ExampleDataBind::tapOnTheCheckBoxReachesTheHeater()
{
    m_slider->setValue(20);
    m_checkBox->setCheck(false);
    tap(m_checkBox, m_checkBox->boundingRect().center());
    QVERIFY(m_checkBox->isCheck());
    // Only a heater that is on can switch itself off.
    m_slider->setValue(100);
    QVERIFY(!m_checkBox->isCheck());
}

static void testOnceItRuns()
{
    QTimer::singleShot(0, qApp, [] {
        tst_ExampleDataBind test;
        QCoreApplication::exit(QTest::qExec(&test));
    });
}
Q_COREAPP_STARTUP_FUNCTION(testOnceItRuns)

#include "tst_exampledatabind.moc"
