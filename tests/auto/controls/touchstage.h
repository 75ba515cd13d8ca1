// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef TOUCHSTAGE_H
#define TOUCHSTAGE_H

#include "stage.h"

#include <kelcheckbox.h>
#include <kellabel.h>
#include <kelslidecontrol.h>

constexpr int keyCount = 6;
constexpr int keySizePx = 60;
constexpr int keysY = 20; // out of the way of the tap that a view is shown with

// The top left corner of a key.
inline QPoint cornerOf(int key)
{
    return {key * keySizePx, keysY};
}

inline QPoint at(int key)
{
    return cornerOf(key) + QPoint(keySizePx / 2, keySizePx / 2);
}

// Where the slider has this value.
inline QPoint onSlider(int value)
{
    return {15 + 3 * value, 120};
}

inline const QPoint onCheckBox(50, 180);
inline const QPoint onLabel(170, 180);
inline const QPoint onNothing(300, 250);

// What one finger does.
struct Step
{
    enum Kind { Down, Move, Up } kind;
    int finger;
    QPoint pos;
};

inline Step down(int finger, const QPoint &pos)
{
    return {Step::Down, finger, pos};
}

inline Step to(int finger, const QPoint &pos)
{
    return {Step::Move, finger, pos};
}

inline Step up(int finger)
{
    return {Step::Up, finger, QPoint()};
}

// A keypad with a slider, a check box and a label below it. The log has the keys by their number.
class Keypad
{
public:
    explicit Keypad(QGraphicsScene *scene)
    {
        for (int i = 0; i < keyCount; ++i) {
            keys.append(new KELPushButton);
            add(scene, keys.last(), QRect(cornerOf(i), QSize(keySizePx, keySizePx)),
                QString::number(i));
        }
        slider->setValue(0);
        add(scene, slider, QRect(0, 100, 330, 40), u"slider"_s);
        add(scene, checkBox, QRect(0, 160, 100, 40), u"check"_s);
        add(scene, label, QRect(120, 160, 100, 40), u"label"_s);
    }

    // What was clicked: "0 5".
    QString takeClicks()
    {
        const QString end = u".clicked"_s;
        const QStringList clicks = log.entries().filter(end);
        log.take();
        return clicks.join(QLatin1Char(' ')).remove(end);
    }

    QList<QPointer<KELPushButton>> keys;
    KELSlideControl *const slider = new KELSlideControl;
    KELCheckBox *const checkBox = new KELCheckBox;
    KELLabel *const label = new KELLabel;
    SignalLog log;

private:
    void add(QGraphicsScene *scene, KELRoundRectControl *control, const QRectF &rect,
             const QString &name)
    {
        control->setboundRect(rect);
        scene->addItem(control);
        log.listenTo(control, name);
    }
};

struct TouchStage
{
    ~TouchStage() { keypad.log.stop(); }

    KELPushButton *key(int key) const { return keypad.keys.at(key); }
    Fingers &fingers() { return hand.fingers(); }
    void play(const std::vector<Step> &steps)
    {
        for (const Step &step : steps) {
            if (step.kind == Step::Down)
                fingers().press(step.finger, step.pos);
            else if (step.kind == Step::Move)
                fingers().move(step.finger, step.pos);
            else
                fingers().release(step.finger);
        }
    }
    QString take() { return keypad.log.take(); }
    QString takeClicks() { return keypad.takeClicks(); }

    QGraphicsScene otherScene;
    KelTestView view;
    Keypad keypad{&view.ownScene};
    Hand hand{&view};
};

#endif
