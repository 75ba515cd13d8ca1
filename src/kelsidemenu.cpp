// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "kelsidemenu.h"

#include "kelitemmove_p.h"
#include "kellineitem.h"
#include "kelpainting_p.h"
#include "kelrounding_p.h"
#include "kelsceneview_p.h"

#include <QtCore/QList>
#include <QtCore/QPointer>
#include <QtGui/QResizeEvent>
#include <QtWidgets/QGraphicsScene>

#include <algorithm>

class KELSideMenuPrivate
{
public:
    bool isHorizontal() const { return orientation == KELSideMenu::Horizontal; }
    float lengthOfItems(float space) const;
    void addSeparator(float position, const QSize &view);
    void place(KELRoundRectControl *control, const QSizeF &size, float position) const;
    QSize firstSize(const QSizeF &control) const;
    QSize grownSize(const QSize &view, const QSizeF &control, float position) const;

    QPointer<QGraphicsScene> scene;
    float space = 0.5F;
    float borderWidth = 2.0F;
    QList<QPointer<KELLineItem>> lines;
    KELSideMenu::OrientationMode orientation = KELSideMenu::Horizontal;
};

// In single precision, from the topmost item down.
float KELSideMenuPrivate::lengthOfItems(float itemSpace) const
{
    QList<QGraphicsItem *> items = scene->items();
    // Without an index Qt lists them the other way round, whatever order is asked for.
    if (scene->itemIndexMethod() == QGraphicsScene::NoIndex)
        std::reverse(items.begin(), items.end());
    float length = 0;
    for (const QGraphicsItem *item : qAsConst(items)) {
        const QRectF rect = item->boundingRect();
        length = float(qreal(length) + (isHorizontal() ? rect.width() : rect.height()));
    }
    // Compat: child items and separators count like controls
    return length + float(items.size() - 1) * itemSpace;
}

void KELSideMenuPrivate::addSeparator(float position, const QSize &view)
{
    auto *const line = new KELLineItem;
    const auto at = qreal(position);
    if (isHorizontal())
        line->setLine(QPointF(at, 0), QPointF(at, view.height()));
    else
        line->setLine(QPointF(0, at), QPointF(view.width(), at));
    line->style()->borderWidth = space;
    line->style()->borderBrush = KELPainting::solidBrush(qRgb(255, 255, 255));
    lines.append(line);
    KELItemMove::into(scene, line).report();
}

void KELSideMenuPrivate::place(KELRoundRectControl *control, const QSizeF &size,
                               float position) const
{
    if (isHorizontal())
        control->setboundRect(qreal(position), 0, size.width(), size.height());
    else
        control->setboundRect(0, qreal(position), size.width(), size.height());
}

QSize KELSideMenuPrivate::firstSize(const QSizeF &control) const
{
    // Compat: the border only once along the menu
    const auto once = qreal(borderWidth);
    const qreal twice = 2 * once;
    return isHorizontal() ? QSize(KELRounding::towardsZero(control.width() + once),
                                  KELRounding::towardsZero(control.height() + twice))
                          : QSize(KELRounding::towardsZero(control.width() + twice),
                                  KELRounding::towardsZero(control.height() + once));
}

// View size after appending a control behind the items that end at position.
QSize KELSideMenuPrivate::grownSize(const QSize &view, const QSizeF &control, float position) const
{
    const auto border = qreal(borderWidth);
    const qreal along = isHorizontal() ? control.width() : control.height();
    const qreal across = isHorizontal() ? control.height() : control.width();
    const int length = KELRounding::towardsZero(qreal(position) + along + qreal(space)
                                                + 2 * border);
    int thickness = isHorizontal() ? view.height() : view.width();
    if (thickness < across + border)
        thickness = KELRounding::towardsZero(across + 2 * border);
    return isHorizontal() ? QSize(length, thickness) : QSize(thickness, length);
}

KELSideMenu::KELSideMenu(QWidget *parent) : QGraphicsView(parent), d(new KELSideMenuPrivate)
{
    d->scene = KELSceneView::setUp(this);
    d->scene->setSceneRect(0, 0, width(), height());
    setScene(d->scene);
}

KELSideMenu::~KELSideMenu()
{
    while (!d->lines.isEmpty())
        delete d->lines.takeFirst();
    KELSceneView::tearDown(this, &d->scene);
    delete d;
}

void KELSideMenu::setOrientation(KELSideMenu::OrientationMode orientation)
{
    d->orientation = orientation;
}

KELSideMenu::OrientationMode KELSideMenu::orientation() const
{
    return d->orientation;
}

void KELSideMenu::setBorderWidth(float width)
{
    d->borderWidth = width;
}

float KELSideMenu::borderWidth() const
{
    return d->borderWidth;
}

void KELSideMenu::setSpace(float space)
{
    d->space = space;
    if (!d->scene)
        return;
    // Compat: 2 px, whatever the border width is
    const int length = KELRounding::towardsZero(qreal(d->lengthOfItems(space)) + 2);
    if (d->isHorizontal())
        resize(length, height());
    else
        resize(width(), length);
}

float KELSideMenu::space() const
{
    return d->space;
}

void KELSideMenu::addItem(KELRoundRectControl *control)
{
    if (!control || !d->scene || control->scene() == d->scene)
        return;
    control->style()->borderWidth = d->borderWidth;
    const QSizeF size = control->boundingRect().size();
    // Resizing the view and adding items emit signals.
    const QPointer<KELSideMenu> alive(this);
    const QPointer<KELRoundRectControl> added(control);
    if (d->scene->items().isEmpty()) {
        control->setboundRect(0, 0, size.width(), size.height());
        resize(d->firstSize(size));
    } else {
        const float begin = d->lengthOfItems(d->space);
        if (d->space > 0)
            d->addSeparator(begin, QWidget::size());
        if (!alive || !added)
            return;
        d->place(control, size, begin + d->space);
        resize(d->grownSize(QWidget::size(), size, begin));
    }
    if (alive && added && d->scene)
        KELItemMove::into(d->scene, control).report();
}

void KELSideMenu::resizeEvent(QResizeEvent *event)
{
    const QPointer<KELSideMenu> alive(this);
    QGraphicsView::resizeEvent(event);
    if (!alive || !d->scene)
        return;
    d->scene->setSceneRect(0, 0, event->size().width(), event->size().height());
    if (alive)
        fitInView(sceneRect(), Qt::KeepAspectRatio);
}
