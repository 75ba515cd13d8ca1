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

    // Deleting the old items runs slots of the application, which may delete the new one or call here
    // again: then the control given last is shown.
    const QPointer<KELRoundRectControl> content(control);
    d->content = content;
    if (content->scene() == d->scene)
        d->scene->removeItem(content);
    d->scene->clear();
    if (d->content != content) {
        delete content;
        return;
    }
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
