// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef SLIDERSTAGE_H
#define SLIDERSTAGE_H

#include "sliderparts.h"
#include "stage.h"

#include <QtWidgets/QGraphicsSceneMouseEvent>

// The one of the stage: from 0 to 100 its knob goes 200 px.
const QRectF stageRect(20, 100, 230, 40);

// The centre of the knob when it shows this value.
inline QPoint knobAt(float value)
{
    return QPoint(int(35 + 2 * value), 120);
}

// The place from which a jump goes to this value.
inline QPoint grooveAt(float value)
{
    return QPoint(int(20 + 2 * value), 120);
}

// The same above the knob, where no value brings it.
inline QPoint aboveKnobAt(float value)
{
    return QPoint(int(20 + 2 * value), 102);
}

class OpenSlider : public KELSlideControl
{
public:
    using KELSlideControl::KELSlideControl;

    // Straight to the handler, at places between the pixels too.
    void sendPress(const QPointF &pos)
    {
        QGraphicsSceneMouseEvent event(QEvent::GraphicsSceneMousePress);
        event.setPos(pos);
        event.setButton(Qt::LeftButton);
        event.setButtons(Qt::LeftButton);
        mousePressEvent(&event);
    }
    void sendMove(const QPointF &pos)
    {
        QGraphicsSceneMouseEvent event(QEvent::GraphicsSceneMouseMove);
        event.setPos(pos);
        mouseMoveEvent(&event);
    }
};

class SliderStage : public Stage<OpenSlider>
{
public:
    explicit SliderStage(float value = 0, Input input = Input::Mouse) : Stage(stageRect)
    {
        get()->setValue(value);
        log.take();
        hand.use(input);
    }
};

#endif
