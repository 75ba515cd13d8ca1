// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include <KELCheckBox>
#include <KELNonModalDialog>
#include <KELPushButton>

#include <QtCore/QElapsedTimer>
#include <QtCore/QTimer>
#include <QtTest/QtTest>
#include <QtWidgets/QApplication>

namespace {

constexpr int patienceMs = 20000;

} // namespace

// Runs in the example's own event loop, on the windows that its main() makes.
class tst_ExamplePopup : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();
    void buttonOpensThePanelBelowItself();
    void buttonClosesThePanelForGood();
    void pressInsideLeavesThePanelOpen();
    void pressOutsideClosesThePanel();
    void panelLeftAloneCloses();

private:
    template <typename Control>
    static Control *find(const KELContentView *view);
    static void tap(const KELContentView *view, const QPointF &scenePos);
    void tapButton() const { tap(m_window, m_button->sceneBoundingRect().center()); }
    void tapOutside() const { tap(m_window, QPointF(470, 310)); }

    KELContentView *m_window = nullptr;
    KELNonModalDialog *m_panel = nullptr;
    KELPushButton *m_button = nullptr;
};

template <typename Control>
Control *tst_ExamplePopup::find(const KELContentView *view)
{
    const QList<QGraphicsItem *> items = view->scene()->items();
    for (QGraphicsItem *item : items) {
        if (auto *control = dynamic_cast<Control *>(item))
            return control;
    }
    return nullptr;
}

void tst_ExamplePopup::tap(const KELContentView *view, const QPointF &scenePos)
{
    QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier,
                      view->mapFromScene(scenePos));
}

void tst_ExamplePopup::initTestCase()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    QCOMPARE(windows.size(), 2);
    for (QWidget *window : windows) {
        if (auto *panel = qobject_cast<KELNonModalDialog *>(window))
            m_panel = panel;
        else
            m_window = qobject_cast<KELContentView *>(window);
    }
    QVERIFY(m_panel && m_window && QTest::qWaitForWindowExposed(m_window));
    m_button = find<KELPushButton>(m_window);
    QVERIFY(m_button);
    QVERIFY(!m_panel->isVisible());
}

void tst_ExamplePopup::cleanup()
{
    m_panel->hide();
}

void tst_ExamplePopup::buttonOpensThePanelBelowItself()
{
    tapButton();
    QVERIFY(m_panel->isVisible());
    QCOMPARE(m_panel->size(), QSize(240, 80));
    const QRect button(m_window->mapToGlobal(QPoint(16, 16)), QSize(160, 56));
    QVERIFY(!m_panel->geometry().intersects(button));
    const QRect window(m_window->mapToGlobal(QPoint(0, 0)), m_window->size());
    QVERIFY(window.contains(m_panel->geometry()));
}

void tst_ExamplePopup::buttonClosesThePanelForGood()
{
    QSignalSpy disappeared(m_panel, &KELNonModalDialog::disappeared);
    for (int i = 0; i < 2; ++i) {
        tapButton();
        QVERIFY(m_panel->isVisible());
        tapButton();
        QVERIFY(!m_panel->isVisible());
        QTest::qWait(50); // a press hides after 5 ms
        QVERIFY(!m_panel->isVisible());
    }
    QCOMPARE(disappeared.size(), 0);
    // No wish to ignore a press is left over.
    tapButton();
    tapOutside();
    QTRY_VERIFY_WITH_TIMEOUT(!m_panel->isVisible(), patienceMs);
    QCOMPARE(disappeared.size(), 1);
}

void tst_ExamplePopup::pressInsideLeavesThePanelOpen()
{
    tapButton();
    auto *box = find<KELCheckBox>(m_panel);
    QVERIFY(box);
    const bool wasOn = box->isCheck();
    tap(m_panel, box->sceneBoundingRect().center());
    QCOMPARE(box->isCheck(), !wasOn);
    QTest::qWait(50);
    QVERIFY(m_panel->isVisible());
}

void tst_ExamplePopup::pressOutsideClosesThePanel()
{
    QSignalSpy disappeared(m_panel, &KELNonModalDialog::disappeared);
    m_button->setText(QString());
    tapButton();
    tapOutside();
    QVERIFY(m_panel->isVisible()); // the press has gone on to its target first
    QTRY_COMPARE_WITH_TIMEOUT(disappeared.size(), 1, patienceMs);
    QVERIFY(!m_panel->isVisible());
    QCOMPARE(m_button->text(), QStringLiteral("Settings (closed)"));
}

void tst_ExamplePopup::panelLeftAloneCloses()
{
    QSignalSpy disappeared(m_panel, &KELNonModalDialog::disappeared);
    QElapsedTimer timer;
    timer.start();
    tapButton();
    QVERIFY(m_panel->isVisible());
    QTRY_COMPARE_WITH_TIMEOUT(disappeared.size(), 1, patienceMs);
    QVERIFY(timer.elapsed() >= 4990);
    QVERIFY(!m_panel->isVisible());
}

static void testOnceItRuns()
{
    QTimer::singleShot(0, qApp, [] {
        tst_ExamplePopup test;
        QCoreApplication::exit(QTest::qExec(&test));
    });
}
Q_COREAPP_STARTUP_FUNCTION(testOnceItRuns)

#include "tst_examplepopup.moc"
