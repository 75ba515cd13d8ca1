// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "kelscreen.h"

#include "kelglide_p.h"
#include "kelmotion.h"

#include <QtCore/QPointer>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QGraphicsScene>

namespace {

constexpr QSize usualSize(800, 480);
constexpr QRgb usualBackground = 0xfff3f5f8;

} // namespace

class KELPagePrivate
{
public:
    QPointer<KELScreen> screen;
    QPointer<QGraphicsObject> focus; // when it was left
};

class KELScreenPrivate
{
public:
    explicit KELScreenPrivate(KELScreen *screen) : q(screen), slide(nullptr) { }

    KELPage *current() const { return pages.isEmpty() ? nullptr : pages.last(); }
    void change(KELPage *from, bool isForward);
    void tell(KELPage *from, KELPage *to) const;
    void remove(KELPage *page);
    void placeSliding() const;
    void endSlide();
    void fit() const;

    KELScreen *const q;
    QVector<KELPage *> pages;
    KELGlide slide; // 0 to 1
    QPointer<KELPage> leaving; // while it slides out
    bool isForward = false;
    bool isSlideEnabled = false;
};

// Shows the current page instead of another one.
void KELScreenPrivate::change(KELPage *from, bool forward)
{
    KELPage *const to = current();
    isForward = forward;
    if (to) {
        fit();
        to->show();
    }
    if (from) {
        QGraphicsItem *const focus = from->focusItem();
        from->d->focus = focus ? focus->toGraphicsObject() : nullptr;
    }
    if (from && to && isSlideEnabled && q->isVisible() && KELMotion::isEnabled()) {
        leaving = from;
        slide.setValue(0);
        placeSliding();
        slide.glideTo(1, KELMotion::slideMs);
    } else if (from) {
        from->hide();
    }
    if (to && to->d->focus)
        to->d->focus->setFocus();
}

void KELScreenPrivate::tell(KELPage *from, KELPage *to) const
{
    const QPointer<KELScreen> screen(q);
    const QPointer<KELPage> next(to);
    if (from)
        Q_EMIT from->left();
    if (next)
        Q_EMIT next->entered();
    if (screen)
        Q_EMIT screen->currentPageChanged();
}

// The page is gone to another scene, or dies.
void KELScreenPrivate::remove(KELPage *page)
{
    if (leaving == page)
        endSlide();
    const bool wasCurrent = page == current();
    pages.removeOne(page);
    page->d->screen.clear();
    if (!wasCurrent)
        return;
    endSlide();
    change(nullptr, false);
    tell(nullptr, current());
}

void KELScreenPrivate::placeSliding() const
{
    const bool isFromRight = isForward == (q->layoutDirection() == Qt::LeftToRight);
    const qreal width = isFromRight ? q->viewport()->width() : -q->viewport()->width();
    const qreal gone = qRound(slide.value() * width);
    if (KELPage *page = current())
        page->setPos(width - gone, 0);
    if (leaving)
        leaving->setPos(-gone, 0);
}

void KELScreenPrivate::endSlide()
{
    slide.setValue(1);
    if (KELPage *page = current())
        page->setPos(0, 0);
    if (!leaving)
        return;
    KELPage *const page = leaving;
    leaving.clear();
    page->hide();
    page->setPos(0, 0);
}

void KELScreenPrivate::fit() const
{
    const QRectF area(QPointF(), q->viewport()->size());
    q->scene()->setSceneRect(area);
    for (KELPage *page : pages) {
        page->setLayoutDirection(q->layoutDirection());
        page->setGeometry(area);
    }
}

KELPage::KELPage(QGraphicsItem *parent) : QGraphicsWidget(parent), d(new KELPagePrivate) { }

// Off the screen while it still is a page, and off the scene before a slot may delete it.
KELPage::~KELPage()
{
    if (KELScreen *const screen = d->screen) {
        d->screen.clear();
        scene()->removeItem(this);
        screen->d->remove(this);
    }
    delete d;
}

KELScreen *KELPage::screen() const
{
    return d->screen;
}

bool KELPage::backEvent()
{
    return false;
}

QVariant KELPage::itemChange(GraphicsItemChange change, const QVariant &value)
{
    const bool isElsewhere = d->screen
        && ((change == ItemSceneHasChanged && scene() != d->screen->scene())
            || (change == ItemParentHasChanged && parentItem()));
    const QPointer<KELPage> self(this);
    if (isElsewhere)
        d->screen->d->remove(this);
    return self ? QGraphicsWidget::itemChange(change, value) : value;
}

KELScreen::KELScreen(QWidget *parent) : QGraphicsView(parent), d(new KELScreenPrivate(this))
{
    if (!parent)
        setWindowFlag(Qt::FramelessWindowHint);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setAlignment(Qt::AlignLeft | Qt::AlignTop);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);

    auto *const newScene = new QGraphicsScene(this);
    newScene->setItemIndexMethod(QGraphicsScene::NoIndex);
    newScene->setBackgroundBrush(QColor(usualBackground));
    setScene(newScene);
    connect(&d->slide, &KELGlide::moved, this, [this] { d->placeSliding(); });
    connect(&d->slide, &KELGlide::arrived, this, [this] { d->endSlide(); });
    resize(usualSize);
}

KELScreen::~KELScreen()
{
    for (KELPage *page : qAsConst(d->pages))
        page->d->screen.clear();
    delete scene();
    delete d;
}

bool KELScreen::push(KELPage *page)
{
    if (!page || page->d->screen == this)
        return false;
    const QPointer<KELScreen> self(this);
    const QPointer<KELPage> pushed(page);
    if (page->d->screen)
        page->d->screen->d->remove(page);
    if (!self || !pushed)
        return false;
    d->endSlide();
    KELPage *const from = d->current();
    page->setParentItem(nullptr);
    if (page->scene() != scene())
        scene()->addItem(page);
    page->d->screen = this;
    d->pages.append(page);
    d->change(from, true);
    d->tell(from, page);
    return true;
}

bool KELScreen::pop()
{
    if (d->pages.size() < 2)
        return false;
    d->endSlide();
    KELPage *const from = d->pages.takeLast();
    from->d->screen.clear();
    from->deleteLater();
    d->change(from, false);
    d->tell(from, d->current());
    return true;
}

KELPage *KELScreen::currentPage() const
{
    return d->current();
}

int KELScreen::pageCount() const
{
    return d->pages.size();
}

bool KELScreen::isSlideEnabled() const
{
    return d->isSlideEnabled;
}

void KELScreen::setSlideEnabled(bool enabled)
{
    d->isSlideEnabled = enabled;
}

void KELScreen::back()
{
    const QPointer<KELScreen> self(this);
    const QPointer<KELPage> page(d->current());
    if (page && !page->backEvent() && self && page && page == d->current())
        pop();
}

// What comes while a page slides is meant for the page that the user sees coming.
bool KELScreen::viewportEvent(QEvent *event)
{
    if (d->leaving
        && (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::TouchBegin
            || event->type() == QEvent::Wheel))
        d->endSlide();
    return QGraphicsView::viewportEvent(event);
}

void KELScreen::changeEvent(QEvent *event)
{
    QGraphicsView::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange) {
        d->endSlide();
        d->fit();
    }
}

void KELScreen::resizeEvent(QResizeEvent *event)
{
    QGraphicsView::resizeEvent(event);
    d->endSlide();
    d->fit();
}

void KELScreen::hideEvent(QHideEvent *event)
{
    d->endSlide();
    QGraphicsView::hideEvent(event);
}

void KELScreen::keyPressEvent(QKeyEvent *event)
{
    d->endSlide();
    const QPointer<KELScreen> self(this);
    QGraphicsView::keyPressEvent(event);
    const bool isBack = event->key() == Qt::Key_Back || event->key() == Qt::Key_Escape;
    if (!self || event->isAccepted() || !isBack)
        return;
    const int count = pageCount();
    event->setAccepted(true);
    back();
    if (self && count < 2 && pageCount() == count)
        event->ignore();
}

void KELScreen::drawBackground(QPainter *painter, const QRectF &rect)
{
    const QBrush own = backgroundBrush();
    if (!(own.style() == Qt::NoBrush ? scene()->backgroundBrush() : own).isOpaque())
        painter->fillRect(rect, Qt::black);
    QGraphicsView::drawBackground(painter, rect);
}
