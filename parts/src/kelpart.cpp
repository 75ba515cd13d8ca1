// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "kelpart.h"

#include "kelthemes_p.h"

#include <QtCore/QEvent>
#include <QtCore/QPointer>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QGraphicsScene>
#include <QtWidgets/QGraphicsSceneMouseEvent>
#include <QtWidgets/QGraphicsView>

namespace {

QFont fontOfSize(int px)
{
    QFont font;
    font.setPixelSize(px);
    return font;
}

QBrush brush(QRgb colour)
{
    return QBrush(QColor(colour));
}

bool isByKey(Qt::FocusReason reason)
{
    return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason
        || reason == Qt::ShortcutFocusReason;
}

} // namespace

class KELPartPrivate
{
public:
    void watch(KELPart *part, QWidget *where);
    void unwatch(KELPart *part);
    bool isPointerElsewhere(const KELPart *part) const;
    void losePress(KELPart *part);
    void queueLoss(KELPart *part);
    void tellLoss(KELPart *part);

    KELPartStyle style;
    QPointF pressPos;
    // From before pressEvent() to the release or the loss.
    bool isWatching = false;
    QPointer<QWidget> viewport;
    const QWidget *popup = nullptr; // when the press came, only compared
    const QWidget *modal = nullptr;
    bool isPressed = false;
    bool isDrag = false;
    bool isFocusShown = false;
    bool isLossUntold = false;
};

KELPartStyle::KELPartStyle() :
    backgroundBrush(brush(0xffffff)),
    pressedBrush(brush(0xeeeeef)),
    selectedBrush(brush(0x0b62d6)),
    selectedForegroundBrush(brush(0xffffff)),
    foregroundBrush(brush(0x141a22)),
    mutedBrush(brush(0x56616f)),
    disabledBrush(brush(0x727883)),
    borderBrush(brush(0xd5dce5)),
    accentBrush(brush(0x0b62d6)),
    accentForegroundBrush(brush(0xffffff)),
    trackBrush(brush(0xdde3eb)),
    knobBrush(brush(0x56616f)),
    borderWidth(1),
    radius(12),
    margins(16, 8, 16, 8),
    spacing(8),
    rowHeight(64),
    font(fontOfSize(16)),
    secondaryFont(fontOfSize(13)),
    iconSize(24)
{ }

KELPart::KELPart(QGraphicsItem *parent) : QGraphicsWidget(parent), d(new KELPartPrivate)
{
    setAcceptedMouseButtons(Qt::LeftButton);
}

KELPart::~KELPart()
{
    delete d;
}

KELPartStyle *KELPart::partStyle() const
{
    return &d->style;
}

void KELPart::styleChanged()
{
    updateGeometry();
    update();
}

bool KELPart::isPressed() const
{
    return d->isPressed;
}

bool KELPart::pressEvent(const QPointF & /*pos*/)
{
    return true;
}

void KELPart::dragEvent(const QPointF & /*pos*/, bool /*isDrag*/) { }

void KELPart::releaseEvent(const QPointF & /*pos*/, bool /*isTap*/) { }

void KELPart::pressLostEvent() { }

// A control is a panel, and the first one in a scene the active one: hasFocus() is then false for
// whatever is outside of it, which has the keys all the same.
bool KELPart::isFocusShown() const
{
    return d->isFocusShown && scene() && scene()->focusItem() == this;
}

bool KELPart::isPlainKey(const QKeyEvent *event)
{
    return (event->modifiers() & ~Qt::KeypadModifier) == 0;
}

void KELPartPrivate::watch(KELPart *part, QWidget *where)
{
    isWatching = true;
    viewport = where;
    popup = QApplication::activePopupWidget();
    modal = QApplication::activeModalWidget();
    qApp->installEventFilter(part);
}

void KELPartPrivate::unwatch(KELPart *part)
{
    isWatching = false;
    qApp->removeEventFilter(part);
}

// Of popups, dialogs and what is done to the view, Qt tells an item nothing. The release goes
// elsewhere, and the grab would send the part the next press, wherever that is.
bool KELPartPrivate::isPointerElsewhere(const KELPart *part) const
{
    if (!(part->acceptedMouseButtons() & Qt::LeftButton))
        return true;
    const QWidget *const covers[] = {QApplication::activePopupWidget(),
                                     QApplication::activeModalWidget()};
    for (const QWidget *cover : covers) {
        if (cover && cover != popup && cover != modal && !cover->isAncestorOf(viewport))
            return true;
    }
    if (!viewport)
        return false;
    const auto *const view = qobject_cast<QGraphicsView *>(viewport->parentWidget());
    return view
        && (!view->isVisible() || !view->isEnabled() || !view->isInteractive()
            || view->scene() != part->scene());
}

void KELPartPrivate::losePress(KELPart *part)
{
    if (!isWatching)
        return;
    unwatch(part);
    if (isPressed)
        queueLoss(part);
}

// The hook is called from the event loop: Qt is in the middle of its own work, with the children of
// an item that is hidden for one, which a slot must not delete.
void KELPartPrivate::queueLoss(KELPart *part)
{
    isPressed = false;
    isLossUntold = true;
    part->update();
    QMetaObject::invokeMethod(
        part, [this, part] { tellLoss(part); }, Qt::QueuedConnection);
}

void KELPartPrivate::tellLoss(KELPart *part)
{
    if (isLossUntold) {
        isLossUntold = false;
        part->pressLostEvent();
    }
}

// Qt turns a touch that the window system cancels into a release of the mouse, which follows.
bool KELPart::eventFilter(QObject *watched, QEvent *event)
{
    if (d->isWatching && (event->type() == QEvent::TouchCancel || d->isPointerElsewhere(this))) {
        d->losePress(this);
        if (scene() && scene()->mouseGrabberItem() == this)
            ungrabMouse();
    }
    return QGraphicsWidget::eventFilter(watched, event);
}

bool KELPart::sceneEvent(QEvent *event)
{
    if (event->type() == QEvent::UngrabMouse)
        d->losePress(this);
    return QGraphicsWidget::sceneEvent(event);
}

// Qt takes the grab away on its own when an item is hidden, disabled or removed, and says so with
// UngrabMouse; but not for a press whose grab an ancestor's filter holds.
QVariant KELPart::itemChange(GraphicsItemChange change, const QVariant &value)
{
    if ((change == ItemVisibleHasChanged && !isVisible())
        || (change == ItemEnabledHasChanged && !isEnabled()) || change == ItemSceneHasChanged)
        d->losePress(this);
    if (change == ItemSceneHasChanged && scene() && !parentItem())
        KELThemes::partEntered(scene());
    return QGraphicsWidget::itemChange(change, value);
}

void KELPart::mousePressEvent(QGraphicsSceneMouseEvent *event)
{
    event->setAccepted(event->button() == Qt::LeftButton);
    if (!event->isAccepted())
        return;
    const QPointer<KELPart> self(this);
    d->losePress(this);
    d->tellLoss(this); // of the press before
    if (!self)
        return;
    d->watch(this, event->widget());
    const bool isTaken = pressEvent(event->pos());
    if (!self)
        return;
    // The scene takes back the grab of a press that is ignored, and warns if it is gone.
    const bool isLost = !d->isWatching;
    event->setAccepted(isTaken || isLost);
    d->pressPos = event->pos();
    d->isPressed = isTaken;
    d->isDrag = false;
    d->isFocusShown = d->isFocusShown && !isTaken;
    if (isTaken && isLost)
        d->queueLoss(this);
    else if (!isTaken)
        d->losePress(this);
    update();
}

void KELPart::mouseMoveEvent(QGraphicsSceneMouseEvent *event)
{
    if (!d->isPressed)
        return;
    d->isDrag = d->isDrag || (event->pos() - d->pressPos).manhattanLength() > slopPx;
    dragEvent(event->pos(), d->isDrag);
}

void KELPart::mouseReleaseEvent(QGraphicsSceneMouseEvent *event)
{
    if (!d->isPressed || event->button() != Qt::LeftButton)
        return;
    const bool isDrag = d->isDrag || (event->pos() - d->pressPos).manhattanLength() > slopPx;
    d->isPressed = false;
    d->unwatch(this);
    update();
    releaseEvent(event->pos(), !isDrag);
}

// A second tap is a tap.
void KELPart::mouseDoubleClickEvent(QGraphicsSceneMouseEvent *event)
{
    mousePressEvent(event);
}

void KELPart::keyPressEvent(QKeyEvent *event)
{
    d->isFocusShown = true;
    update();
    QGraphicsWidget::keyPressEvent(event);
}

void KELPart::focusInEvent(QFocusEvent *event)
{
    // The focus that returns to where it was shows as it did.
    if (event->reason() != Qt::ActiveWindowFocusReason && event->reason() != Qt::PopupFocusReason)
        d->isFocusShown = isByKey(event->reason());
    update();
    QGraphicsWidget::focusInEvent(event);
}

void KELPart::focusOutEvent(QFocusEvent *event)
{
    update();
    QGraphicsWidget::focusOutEvent(event);
}

void KELPart::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LayoutDirectionChange || event->type() == QEvent::LocaleChange) {
        updateGeometry();
        update();
    }
    QGraphicsWidget::changeEvent(event);
}
