// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef HANDDRAWNWINDOW_H
#define HANDDRAWNWINDOW_H

#include "firstframe.h"
#include "handdrawing.h"

#include <QtGui/QPaintEvent>

#include <vector>

// A screen of push buttons drawn by hand.
template <typename Window, Benchmark::Role role>
class HandDrawnWindow : public Window
{
public:
    explicit HandDrawnWindow(const char *contender) : m_contender(contender)
    {
        for (int i = 0; i < FirstFrame::count; ++i)
            m_buttons.emplace_back(FirstFrame::placeOf(i), QString::number(i));
        this->resize(FirstFrame::size);
    }

protected:
    void paintEvent(QPaintEvent *event) override
    {
        QPainter painter(this);
        painter.fillRect(event->rect(), Qt::white);
        for (const HandDrawing::PushButton &button : m_buttons)
            button.draw(&painter);
        FirstFrame::end(m_contender, role);
    }

private:
    Q_DISABLE_COPY(HandDrawnWindow)

    const char *const m_contender;
    std::vector<HandDrawing::PushButton> m_buttons;
};

#endif
