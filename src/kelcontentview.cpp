// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "kelcontentview.h"

#include "kelitemmove_p.h"
#include "kelrounding_p.h"
#include "kelroundrectcontrol.h"
#include "kelsceneview_p.h"

#include <QtCore/QPointer>
#include <QtCore/QVector>
#include <QtWidgets/QGraphicsScene>

#include <utility>

namespace {

int viewPx(qreal value)
{
    return qIsFinite(value) ? KELRounding::towardsZero(value, KELRounding::anyInt) : 0;
}

} // namespace

class KELContentViewPrivate
{
public:
    // Unlike QPointer null while the content's base classes are being destroyed, too.
    // KELItemPointer does that only for items that it creates.
    KELRoundRectControl *intactContent() const
    {
        return qobject_cast<KELRoundRectControl *>(content);
    }
    // Deleting runs slots, which may do anything, also delete the view and with it this.
    void clearScene(const QPointer<KELContentView> &alive) const;
    void deleteSuperseded(const QPointer<KELContentView> &alive);
    void deleteHomeless() const;

    QPointer<QGraphicsScene> scene;
    QPointer<QGraphicsObject> content;
    bool replacing = false;
    QVector<QPointer<QGraphicsObject>> superseded; // given while replacing, and never shown
};

// One at a time: a slot may delete the scene, and an item must have left it by then.
void KELContentViewPrivate::clearScene(const QPointer<KELContentView> &alive) const
{
    while (alive && scene) {
        const QList<QGraphicsItem *> items = scene->items(Qt::AscendingOrder);
        if (items.isEmpty()) {
            scene->clear(); // resets the scene's internal item state
            return;
        }
        KELItemMove::erase(items.first()->topLevelItem());
    }
}

void KELContentViewPrivate::deleteSuperseded(const QPointer<KELContentView> &alive)
{
    while (alive && !superseded.isEmpty()) {
        auto *const control = qobject_cast<KELRoundRectControl *>(superseded.takeLast());
        if (control && control != content && !(content && content->isAncestorOf(control)))
            delete control;
    }
}

// Nobody owns a content that reached no scene.
void KELContentViewPrivate::deleteHomeless() const
{
    KELRoundRectControl *const control = intactContent();
    if (control && !control->scene() && !control->parentItem())
        delete control;
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
    if (d->replacing) {
        d->deleteHomeless();
        d->deleteSuperseded(this);
    }
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

    // The rest may run item slots, which may delete view and scene or re-enter: the outermost call
    // shows the control given last.
    const QPointer<KELContentView> alive(this);
    const bool outermost = !std::exchange(d->replacing, true);
    if (!outermost && d->content != control)
        d->superseded.append(d->content);
    d->content = control;
    KELItemMove::away(control).report();
    if (!alive || !outermost)
        return;
    d->clearScene(alive);
    if (alive)
        d->deleteSuperseded(alive);
    if (!alive)
        return;
    d->replacing = false;

    KELRoundRectControl *const content = d->intactContent();
    if (!d->scene)
        d->deleteHomeless();
    if (!d->scene || !content)
        return;
    KELItemMove::into(d->scene, content).report();
    if (!alive || content != d->intactContent())
        return;
    const QRectF rect = content->rect();
    resize(viewPx(rect.width()), viewPx(rect.height()));
}

void KELContentView::setFocusItem(QGraphicsItem *item)
{
    if (d->scene)
        d->scene->setFocusItem(item, Qt::OtherFocusReason);
}

void KELContentView::resizeEvent(QResizeEvent *event)
{
    const QPointer<KELContentView> alive(this);
    QGraphicsView::resizeEvent(event);
    if (!alive || !d->scene)
        return;
    d->scene->setSceneRect(0, 0, width(), height());
    if (alive)
        fitInView(sceneRect(), Qt::KeepAspectRatio);
}
