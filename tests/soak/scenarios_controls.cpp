// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "scenario.h"

#include <kelprocessbar.h>
#include <kelpushbutton.h>
#include <kelradiobox.h>
#include <kelslidecontrol.h>
#include <keltextpixmap.h>

#include <QtCore/QAbstractEventDispatcher>

namespace {

constexpr QRect controlRect(20, 20, 160, 60);
constexpr QPoint onControl(100, 50);

class Press final : public Scenario
{
public:
    Press()
    {
        QObject::connect(m_button, &KELRoundRectControl::mouseClicked, m_button,
                         [this] { ++m_clicks; });
    }
    void round() override
    {
        m_clicks = 0;
        m_stage.tap(onControl);
        m_stage.mouse.tap(onControl);
        expect(m_clicks == 2, "a finger and the mouse click");
        settleRound();
    }

private:
    SoakStage m_stage;
    KELPushButton *const m_button = m_stage.add<KELPushButton>(controlRect);
    int m_clicks = 0;
};

class LongPress final : public Scenario
{
public:
    LongPress()
    {
        QObject::connect(m_button, &KELRoundRectControl::mouseLongPress, m_button,
                         [this] { ++m_longPresses; });
    }
    void round() override
    {
        m_longPresses = 0;
        m_stage.finger.press(onControl);
        endLongPressTime();
        m_stage.finger.release();
        expect(m_longPresses == 1, "a finger that stays down is a long press");
        settleRound();
    }

private:
    // Nobody waits for half a second.
    void endLongPressTime()
    {
        const auto timers = QAbstractEventDispatcher::instance()->registeredTimers(m_button);
        expect(timers.size() == 1, "a press runs a timer");
        QTimerEvent event(timers.first().timerId);
        QCoreApplication::sendEvent(m_button, &event);
    }

    SoakStage m_stage;
    KELPushButton *const m_button = m_stage.add<KELPushButton>(controlRect);
    int m_longPresses = 0;
};

class NewButton final : public Scenario
{
public:
    void round() override
    {
        auto *const button = m_stage.add<KELPushButton>(controlRect);
        button->setText(QStringLiteral("A caption that is too long for its button"));
        m_stage.finger.press(onControl);
        settleRound();
        delete button; // with the finger still on it
        m_stage.finger.release();
        settleRound();
    }

private:
    SoakStage m_stage;
};

class GroupedBox final : public Scenario
{
public:
    GroupedBox() { m_group.addRadioBox(m_stage.add<KELRadioBox>(QRect(20, 100, 40, 40)), 1); }

    void round() override
    {
        auto *const box = m_stage.add<KELRadioBox>(controlRect);
        m_group.addRadioBox(box, 2);
        m_stage.tap(onControl);
        expect(m_group.id() == 2, "a tap selects the box");
        m_group.setId(1);
        delete box;
        settleRound();
    }

private:
    SoakStage m_stage;
    KELRadioBoxGroup m_group;
};

class Bar final : public Scenario
{
public:
    void round() override
    {
        m_value = (m_value + 5) % 105; // 21 looks, so that the warm-up sees them all twice
        m_bar->setValue(m_value);
        settleRound();
    }

private:
    SoakStage m_stage;
    KELProcessBar *const m_bar = m_stage.add<KELProcessBar>(controlRect);
    int m_value = 0;
};

class Slider final : public Scenario
{
public:
    void round() override
    {
        m_slider->setValue(0);
        m_stage.finger.press(QPoint(100, 50));
        m_stage.finger.move(QPoint(120, 50));
        m_stage.finger.release();
        expect(m_slider->value() > 0, "a finger moves the slider");
        settleRound();
    }

private:
    SoakStage m_stage;
    KELSlideControl *const m_slider = m_stage.add<KELSlideControl>(controlRect);
};

class IconPixmap final : public Scenario
{
public:
    void round() override
    {
        m_round = (m_round + 1) % 100;
        m_button->style()->pixmap = KELTextPixmap(QString::number(m_round), QSize(40, 40),
                                                  Qt::white, Qt::darkGreen, QFont());
        m_button->style()->icon = KELIconFont(ushort('A' + m_round % 26));
        m_button->update();
        settleRound();
    }

private:
    SoakStage m_stage;
    KELPushButton *const m_button = m_stage.add<KELPushButton>(controlRect);
    int m_round = 0;
};

} // namespace

Scenarios controlScenarios()
{
    return {scenario<Press>("press", "push button: click"),
            scenario<LongPress>("longpress", "push button: long press"),
            scenario<NewButton>("button", "push button: create, press, delete"),
            scenario<GroupedBox>("group", "radio box: join a group, tap, delete"),
            scenario<Bar>("bar", "progress bar: change the value"),
            scenario<Slider>("slider", "slider: drag"),
            scenario<IconPixmap>("icon", "push button: another picture and icon")};
}
