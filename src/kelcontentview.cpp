// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "kelcontentview.h"

#include "kelroundrectcontrol.h"

#include <QtCore/QPointer>
#include <QtWidgets/QGraphicsScene>

#include <limits>

namespace {

int truncatedPx(qreal value)
{
    if (!qIsFinite(value))
        return 0;
    constexpr qreal limit = std::numeric_limits<int>::max();
    return int(qBound(-limit, value, limit));
}

} // namespace

class KELContentViewPrivate
{
public:
    QPointer<QGraphicsScene> scene;
    QPointer<KELRoundRectControl> content;
    bool clearing = false;
};

KELContentView::KELContentView(QWidget *parent) :
    QGraphicsView(parent), d(new KELContentViewPrivate)
{
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setStyleSheet(QStringLiteral("background: transparent;"));
    setWindowFlags(Qt::FramelessWindowHint);
    setAttribute(Qt::WA_TranslucentBackground);

    d->scene = new QGraphicsScene(this);
    // setboundRect() does not tell the scene: an index would keep the old rectangle.
    d->scene->setItemIndexMethod(QGraphicsScene::NoIndex);
    setScene(d->scene);
}

KELContentView::~KELContentView()
{
    // The scene would die with the other children, but its items have slots that may still call here.
    QGraphicsScene *const scene = d->scene;
    d->scene.clear();
    if (scene && scene->parent() == this)
        delete scene;
    delete d;
}

KELRoundRectControl *KELContentView::content() const
{
    return d->content;
}

void KELContentView::setContent(KELRoundRectControl *control)
{
    if (!control || !d->scene)
        return;

    if (control->scene() == d->scene)
        d->scene->removeItem(control);
    if (d->clearing) {
        // A slot of an item that is being deleted calls: the control given last is shown.
        if (d->content != control)
            delete d->content;
        d->content = control;
        return;
    }
    d->content = control;
    d->clearing = true;
    d->scene->clear();
    d->clearing = false;
    // Read again: a slot may have replaced it, or deleted it.
    KELRoundRectControl *const content = d->content;
    if (!content)
        return;

    d->scene->addItem(content);
    const QRectF rect = content->rect();
    resize(truncatedPx(rect.width()), truncatedPx(rect.height()));
}

void KELContentView::setFocusItem(QGraphicsItem *item)
{
    if (d->scene)
        d->scene->setFocusItem(item, Qt::OtherFocusReason);
}

void KELContentView::resizeEvent(QResizeEvent *event)
{
    QGraphicsView::resizeEvent(event);
    if (!d->scene)
        return;
    d->scene->setSceneRect(0, 0, width(), height());
    fitInView(sceneRect(), Qt::KeepAspectRatio);
}
