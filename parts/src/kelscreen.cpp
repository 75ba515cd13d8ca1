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
    explicit KELScreenPrivate(KELScreen *screen) : q(screen) { }

    KELPage *current() const { return pages.isEmpty() ? nullptr : pages.last(); }
    void change(KELPage *from, bool forward);
    void leave(KELPage *page) const;
    void enter(KELPage *page, int number) const;
    void tell(KELPage *to, int number);
    void remove(KELPage *page);
    bool goBack() const;
    void placeSliding() const;
    bool endSlide();
    void fit() const;

    KELScreen *const q;
    QPointer<QGraphicsScene> scene; // the application may set another one, or delete it
    QVector<KELPage *> pages;
    KELGlide slide; // 0 to 1
    QPointer<KELPage> leaving; // while it slides out
    QPointer<KELPage> told; // has entered, and not left
    int changes = 0; // a slot may make another one, which then counts instead
    bool isForward = false;
    bool isSlideEnabled = false;
};

// Shows the current page instead of another one.
void KELScreenPrivate::change(KELPage *page, bool forward)
{
    const QPointer<KELScreen> screen(q);
    const QPointer<KELPage> from(page);
    const int number = ++changes;
    const bool isSliding = page && page->isVisible() && isSlideEnabled && q->isVisible()
        && KELMotion::isEnabled();
    if (from)
        leave(from);
    if (screen)
        enter(current(), number);
    if (screen && number == changes && isSliding && from) {
        isForward = forward;
        leaving = from;
        from->show();
        if (screen && number == changes) {
            slide.setValue(0);
            slide.glideTo(1, KELMotion::slideMs, q);
            placeSliding();
        }
    }
    if (screen)
        tell(current(), number);
}

// Hidden even if it slides out: what is pressed on it is lost. Its focus is cleared first, or Qt
// hands it on to whatever is next.
void KELScreenPrivate::leave(KELPage *page) const
{
    const QPointer<KELScreen> screen(q);
    const QPointer<KELPage> alive(page);
    QGraphicsItem *const focus = page->focusItem();
    page->d->focus = focus ? focus->toGraphicsObject() : nullptr;
    if (focus)
        focus->clearFocus();
    if (screen && alive && page != current())
        page->hide();
}

void KELScreenPrivate::enter(KELPage *page, int number) const
{
    const QPointer<KELScreen> screen(q);
    fit();
    if (screen && number == changes && page)
        page->show();
    if (screen && number == changes && page && page->d->focus)
        page->d->focus->setFocus(Qt::ActiveWindowFocusReason); // shows as it did
}

void KELScreenPrivate::tell(KELPage *to, int number)
{
    const QPointer<KELScreen> screen(q);
    if (to && told == to)
        return;
    if (KELPage *const from = told) {
        told.clear();
        Q_EMIT from->left();
    }
    if (!screen || number != changes)
        return;
    told = to;
    if (to)
        Q_EMIT to->entered();
    if (screen && number == changes)
        Q_EMIT screen->currentPageChanged();
}

// The page is gone to another scene, or dies: then it has no screen any more.
void KELScreenPrivate::remove(KELPage *page)
{
    if (told == page && !page->d->screen)
        told.clear();
    if (leaving == page)
        leaving.clear();
    const bool wasCurrent = page == current();
    pages.removeOne(page);
    page->d->screen.clear();
    if (wasCurrent && endSlide())
        change(nullptr, false);
}

// Whether the page or the stack has done something.
bool KELScreenPrivate::goBack() const
{
    const QPointer<KELScreen> screen(q);
    const QPointer<KELPage> page(current());
    if (!page)
        return false;
    return page->backEvent() || !screen || !page || page != current() || screen->pop();
}

void KELScreenPrivate::placeSliding() const
{
    const bool isFromRight = isForward == (q->layoutDirection() == Qt::LeftToRight);
    const qreal width = isFromRight ? q->viewport()->width() : -q->viewport()->width();
    const qreal gone = qRound(slide.value() * width);
    const QPointer<KELPage> out(leaving);
    if (KELPage *page = current())
        page->setPos(width - gone, 0);
    if (out)
        out->setPos(-gone, 0);
}

// Returns false if the screen is deleted meanwhile. At rest, a page is where the application puts
// it.
bool KELScreenPrivate::endSlide()
{
    if (!leaving && !slide.isMoving())
        return true;
    const QPointer<KELScreen> screen(q);
    const QPointer<KELPage> out(leaving);
    leaving.clear();
    slide.setValue(1);
    if (out)
        out->hide();
    if (out && !out->d->screen)
        out->deleteLater();
    if (screen && current())
        current()->setPos(0, 0);
    return screen;
}

// Whatever a page does about its new geometry, none is left out.
void KELScreenPrivate::fit() const
{
    const QPointer<KELScreen> screen(q);
    const QRectF area(QPointF(), q->maximumViewportSize()); // the viewport's before it is shown
    if (scene)
        scene->setSceneRect(area);
    for (int i = screen ? pages.size() : 0; screen && i-- > 0;) {
        const QPointer<KELPage> page(i < pages.size() ? pages.at(i) : nullptr);
        if (page && !page->testAttribute(Qt::WA_SetLayoutDirection)) {
            page->setLayoutDirection(q->layoutDirection());
            if (page)
                page->setAttribute(Qt::WA_SetLayoutDirection, false); // it follows
        }
        if (page)
            page->setGeometry(area);
    }
}

KELPage::KELPage(QGraphicsItem *parent) : QGraphicsWidget(parent), d(new KELPagePrivate) { }

// Off the screen while it still is a page, and off the scene before a slot may delete it.
KELPage::~KELPage()
{
    const QPointer<KELScreen> screen(d->screen);
    d->screen.clear();
    if (screen)
        scene()->removeItem(this);
    if (screen)
        screen->d->remove(this);
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
        && ((change == ItemSceneHasChanged && scene() != d->screen->d->scene)
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

    d->scene = new QGraphicsScene(this);
    d->scene->setItemIndexMethod(QGraphicsScene::NoIndex);
    d->scene->setBackgroundBrush(QColor(usualBackground));
    setScene(d->scene);
    resize(usualSize);
}

KELScreen::~KELScreen()
{
    for (KELPage *page : qAsConst(d->pages))
        page->d->screen.clear();
    d->pages.clear();
    QGraphicsScene *const scene = d->scene;
    d->scene.clear(); // nothing is pushed any more
    delete scene;
    delete d;
}

bool KELScreen::push(KELPage *page)
{
    if (!page || page->d->screen == this)
        return false;
    const QPointer<KELScreen> self(this);
    const QPointer<KELPage> pushed(page);
    if (d->leaving == page)
        d->leaving.clear();
    if (page->d->screen)
        page->d->screen->d->remove(page);
    if (!self || !d->endSlide() || !pushed || page->d->screen || !d->scene)
        return false;
    page->setParentItem(nullptr);
    if (page->scene() != d->scene)
        d->scene->addItem(page);
    KELPage *const from = d->current();
    page->d->screen = this;
    d->pages.append(page);
    d->change(from, true);
    return true;
}

bool KELScreen::pop()
{
    if (!d->endSlide() || d->pages.size() < 2)
        return false;
    const QPointer<KELScreen> self(this);
    const QPointer<KELPage> from(d->pages.takeLast());
    from->d->screen.clear();
    d->change(from, false);
    if (self && from && !from->d->screen && d->leaving != from)
        from->deleteLater();
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
    d->goBack();
}

// What comes while a page slides is meant for the page that the user sees coming.
bool KELScreen::viewportEvent(QEvent *event)
{
    const QEvent::Type type = event->type();
    const bool isPress = type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick
        || type == QEvent::Wheel || type == QEvent::TouchBegin
        || (type == QEvent::TouchUpdate
            && static_cast<QTouchEvent *>(event)->touchPointStates() & Qt::TouchPointPressed);
    return (isPress && !d->endSlide()) || QGraphicsView::viewportEvent(event);
}

void KELScreen::timerEvent(QTimerEvent *event)
{
    if (!d->slide.tick(event->timerId())) {
        QGraphicsView::timerEvent(event);
        return;
    }
    const QPointer<KELScreen> self(this);
    d->placeSliding();
    if (self && !d->slide.isMoving())
        d->endSlide();
}

void KELScreen::changeEvent(QEvent *event)
{
    QGraphicsView::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange && d->endSlide())
        d->fit();
}

void KELScreen::resizeEvent(QResizeEvent *event)
{
    QGraphicsView::resizeEvent(event);
    if (d->endSlide())
        d->fit();
}

void KELScreen::hideEvent(QHideEvent *event)
{
    if (d->endSlide())
        QGraphicsView::hideEvent(event);
}

void KELScreen::keyPressEvent(QKeyEvent *event)
{
    const QPointer<KELScreen> self(this);
    if (!d->endSlide())
        return;
    QGraphicsView::keyPressEvent(event);
    const bool isBack = event->key() == Qt::Key_Back || event->key() == Qt::Key_Escape;
    if (self && !event->isAccepted() && isBack)
        event->setAccepted(event->isAutoRepeat() || d->goBack()); // a held key goes back once
}

void KELScreen::drawBackground(QPainter *painter, const QRectF &rect)
{
    const QBrush own = backgroundBrush();
    if (!(own.style() == Qt::NoBrush ? scene()->backgroundBrush() : own).isOpaque())
        painter->fillRect(rect, Qt::black);
    QGraphicsView::drawBackground(painter, rect);
}
