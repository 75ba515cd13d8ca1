// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef DIALOGSTAGE_H
#define DIALOGSTAGE_H

#include "keltest.h"

#include <kelnonmodaldialog.h>
#include <kelroundrectcontrol.h>

#include <QtCore/QElapsedTimer>
#include <QtCore/QEventLoop>
#include <QtCore/QPointer>
#include <QtCore/QTimer>

#include <memory>

enum class Input { Mouse, Touch };

constexpr int patienceMs = 60000;

// Comes after every timer that was started before and is shorter, however slow the machine is.
inline void wait(int ms)
{
    QEventLoop loop;
    QTimer::singleShot(ms, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec();
}

// Until a hide that was scheduled by a press, 5 ms, has been carried out.
inline void waitForTheHide()
{
    wait(20);
}

// What the window system does.
class Finger
{
public:
    explicit Finger(Input input) : m_input(input) { }

    void press(const QWidget *window, const QPoint &pos)
    {
        if (m_input == Input::Touch)
            QTest::touchEvent(window->windowHandle(), screen())
                .press(0, pos, window->windowHandle());
        else
            QTest::mousePress(window->windowHandle(), Qt::LeftButton, Qt::NoModifier, pos);
    }
    void release(const QWidget *window, const QPoint &pos)
    {
        if (m_input == Input::Touch)
            QTest::touchEvent(window->windowHandle(), screen())
                .release(0, pos, window->windowHandle());
        else
            QTest::mouseRelease(window->windowHandle(), Qt::LeftButton, Qt::NoModifier, pos);
    }
    void tap(const QWidget *window, const QPoint &pos)
    {
        press(window, pos);
        release(window, pos);
    }

private:
    static QTouchDevice *screen()
    {
        static QTouchDevice *const device = QTest::createTouchDevice();
        return device;
    }

    const Input m_input;
};

// Another window of the application, that covers a corner of the screen and counts its presses.
class Ground : public QWidget
{
public:
    Ground()
    {
        setWindowFlags(Qt::FramelessWindowHint);
        setGeometry(0, 0, 250, 150);
    }

    bool showAndWait()
    {
        show();
        return QTest::qWaitForWindowExposed(this);
    }
    QPoint centre() const { return rect().center(); }

    int presses = 0;

protected:
    void mousePressEvent(QMouseEvent *) override { ++presses; }
};

// A panel beside the ground, that notes when it is shown and hidden.
class Panel : public KELNonModalDialog
{
public:
    explicit Panel(const QString &name = QString(), QStringList *log = nullptr,
                   QWidget *parent = nullptr) :
        KELNonModalDialog(parent), m_name(name), m_log(log)
    {
        auto *control = new KELRoundRectControl;
        control->setboundRect(0, 0, 200, 100);
        setContent(control);
        move(300, 200);
    }

    bool showAndWait()
    {
        show();
        return QTest::qWaitForWindowExposed(this);
    }
    QPoint centre() const { return rect().center(); }

    std::function<void()> onShow;
    std::function<void()> onHide;

protected:
    void showEvent(QShowEvent *event) override
    {
        note(u"show"_s);
        KELNonModalDialog::showEvent(event);
        if (onShow)
            onShow();
    }
    void hideEvent(QHideEvent *event) override
    {
        note(u"hide"_s);
        KELNonModalDialog::hideEvent(event);
        if (onHide)
            onHide();
    }

private:
    void note(const QString &what)
    {
        if (m_log)
            m_log->append(what + QLatin1Char(' ') + m_name);
    }

    const QString m_name;
    QStringList *const m_log;
};

#endif
