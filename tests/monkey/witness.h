// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef MONKEY_WITNESS_H
#define MONKEY_WITNESS_H

#include <kelroundrectcontrol.h>

namespace Monkey {

class Stage;

// Counts the signals of a control, its parent.
class Witness : public QObject
{
    Q_OBJECT

public:
    Witness(Stage *stage, KELRoundRectControl *control);
    ~Witness() override;

    KELRoundRectControl *control() const { return m_control; }
    // After each step: a control that is out of reach has lost its pointer.
    void look();
    // The grab was taken: a press that was refused has none.
    void losePointer() { m_isLost = m_isLost || (m_isDown && !m_mayStay); }
    // A press that the control does not accept: it stays pressed.
    void expectToStay() { m_mayStay = true; }
    bool mayStay() const { return m_mayStay; }
    bool isOdd() const { return m_isOdd; }
    void setOdd() { m_isOdd = true; } // its look has been edited

private:
    void press();
    void release();
    void click();
    void longPress();

    Stage *const m_stage;
    KELRoundRectControl *const m_control;
    const QGraphicsScene *m_scene = nullptr; // of the press; only compared
    int m_presses = 0;
    int m_clicks = 0;
    int m_longPresses = 0;
    bool m_isDown = false;
    bool m_isLost = false;
    bool m_mayStay = false;
    bool m_isOdd = false;
};

} // namespace Monkey

#endif
