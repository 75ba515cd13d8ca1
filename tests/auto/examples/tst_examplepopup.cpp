// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "runningexample.h"
#include "stage.h"

#include <KELCheckBox>
#include <KELNonModalDialog>
#include <KELPushButton>

#include <QtCore/QAbstractEventDispatcher>
#include <QtCore/QElapsedTimer>

#include <algorithm>

namespace {

constexpr int patienceMs = 20000;

// A press outside hides the panel a moment later. Qt's single shots are children of the dispatcher.
bool isPressOver()
{
    const QObjectList children = QAbstractEventDispatcher::instance()->children();
    return std::none_of(children.begin(), children.end(), hasTimers);
}

} // namespace

class tst_ExamplePopup : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
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

    void cleanup() { m_panel->hide(); }

    void buttonOpensThePanelBelowItself()
    {
        tapButton();
        QVERIFY(m_panel->isVisible());
        QCOMPARE(m_panel->size(), QSize(240, 80));
        const QRect button(m_window->mapToGlobal(QPoint(16, 16)), QSize(160, 56));
        QVERIFY(!m_panel->geometry().intersects(button));
        const QRect window(m_window->mapToGlobal(QPoint(0, 0)), m_window->size());
        QVERIFY(window.contains(m_panel->geometry()));
    }

    void buttonClosesThePanelForGood()
    {
        const QSignalSpy disappeared(m_panel, &KELNonModalDialog::disappeared);
        for (int i = 0; i < 2; ++i) {
            tapButton();
            QVERIFY(m_panel->isVisible());
            tapButton();
            QVERIFY(!m_panel->isVisible());
            QTRY_VERIFY(isPressOver());
            QVERIFY(!m_panel->isVisible());
        }
        QCOMPARE(disappeared.size(), 0);
        // No wish to ignore a press is left over.
        tapButton();
        tapOutside();
        QTRY_VERIFY_WITH_TIMEOUT(!m_panel->isVisible(), patienceMs);
        QCOMPARE(disappeared.size(), 1);
    }

    void pressInsideLeavesThePanelOpen()
    {
        tapButton();
        auto *box = find<KELCheckBox>(m_panel);
        QVERIFY(box);
        const bool wasOn = box->isCheck();
        tap(m_panel, box->sceneBoundingRect().center());
        QCOMPARE(box->isCheck(), !wasOn);
        QTRY_VERIFY(isPressOver());
        QVERIFY(m_panel->isVisible());
    }

    void pressOutsideClosesThePanel()
    {
        const QSignalSpy disappeared(m_panel, &KELNonModalDialog::disappeared);
        m_button->setText(QString());
        tapButton();
        tapOutside();
        QVERIFY(m_panel->isVisible()); // the press has gone on to its target first
        QVERIFY(!isPressOver());
        QTRY_COMPARE_WITH_TIMEOUT(disappeared.size(), 1, patienceMs);
        QVERIFY(!m_panel->isVisible());
        QCOMPARE(m_button->text(), QStringLiteral("Settings (closed)"));
    }

    void panelLeftAloneCloses()
    {
        const QSignalSpy disappeared(m_panel, &KELNonModalDialog::disappeared);
        QElapsedTimer timer;
        timer.start();
        tapButton();
        QVERIFY(m_panel->isVisible());
        QTRY_COMPARE_WITH_TIMEOUT(disappeared.size(), 1, patienceMs);
        QVERIFY(timer.elapsed() >= 4990);
        QVERIFY(!m_panel->isVisible());
    }

private:
    void tapButton() const { tap(m_window, m_button->sceneBoundingRect().center()); }
    void tapOutside() const { tap(m_window, QPointF(470, 310)); }

    KELContentView *m_window = nullptr;
    KELNonModalDialog *m_panel = nullptr;
    KELPushButton *m_button = nullptr;
};

static void start()
{
    runInTheExample<tst_ExamplePopup>();
}
Q_COREAPP_STARTUP_FUNCTION(start)

#include "tst_examplepopup.moc"
