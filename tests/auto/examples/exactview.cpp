// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include <KELContentView>
#include <KELRoundRectControl>

class ExactView : public KELContentView
{
public:
    explicit ExactView(QWidget *parent) : KELContentView(parent) { setFrameShape(QFrame::NoFrame); }

protected:
    void resizeEvent(QResizeEvent *event) override
    {
        KELContentView::resizeEvent(event);
        resetTransform(); // one item px is one widget px
    }
};

KELContentView *newExactView(KELRoundRectControl *content, QWidget *window, const QPoint &pos)
{
    auto *view = new ExactView(window);
    view->setContent(content);
    view->move(pos);
    return view;
}
