// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "kelcontentview.h"

#include "kelroundrectcontrol.h"
#include "kelsceneview_p.h"

#include <QtCore/QPointer>
#include <QtCore/QVector>
#include <QtWidgets/QGraphicsScene>

#include <limits>
#include <utility>

namespace {

int truncatedPx(qreal value)
{
    if (!qIsFinite(value))
        return 0;
    constexpr qreal limit = std::numeric_limits<int>::max();
    return int(qBound(-limit, value, limit));
}

// Takes the item out of its scene and from its parent.
void detach(QGraphicsItem *item)
{
    if (item->scene())
        item->scene()->removeItem(item);
    else
        item->setParentItem(nullptr);
}

} // namespace

class KELContentViewPrivate
{
public:
    // Null also while the content is being destroyed: only its base classes are left then.
    KELRoundRectControl *intactContent() const
    {
        return qobject_cast<KELRoundRectControl *>(content);
    }
    void deleteSuperseded();

    QPointer<QGraphicsScene> scene;
    QPointer<QGraphicsObject> content;
    bool replacing = false;
    QVector<QPointer<QGraphicsObject>> superseded; // given while replacing, and never shown
};

// Deleting runs slots, which may give further controls.
void KELContentViewPrivate::deleteSuperseded()
{
    while (!superseded.isEmpty()) {
        auto *const control = qobject_cast<KELRoundRectControl *>(superseded.takeLast());
        if (control && control != content && !(content && content->isAncestorOf(control)))
            delete control;
    }
}

KELContentView::KELContentView(QWidget *parent) :
    QGraphicsView(parent), d(new KELContentViewPrivate)
{
    d->scene = KELSceneView::setUp(this);
    setScene(d->scene);
}

KELContentView::~KELContentView()
{
    KELSceneView::tearDown(this, &d->scene);
    delete d;
}

KELRoundRectControl *KELContentView::content() const
{
    return d->intactContent();
}

void KELContentView::setContent(KELRoundRectControl *control)
{
    if (!control || !d->scene)
        return;

    // All that follows runs slots of the items, which may call here again: the outermost call shows the
    // control given last.
    const bool outermost = !std::exchange(d->replacing, true);
    if (!outermost && d->content != control)
        d->superseded.append(d->content);
    d->content = control;
    detach(control);
    if (!outermost)
        return;
    d->scene->clear();
    d->deleteSuperseded();
    d->replacing = false;

    KELRoundRectControl *const content = d->intactContent();
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
