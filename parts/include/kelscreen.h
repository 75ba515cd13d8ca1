// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELSCREEN_H
#define KELSCREEN_H

#include "kelgdiparts_global.h"

#include <QtWidgets/QGraphicsView>
#include <QtWidgets/QGraphicsWidget>

class KELPagePrivate;
class KELScreen;
class KELScreenPrivate;

/*!
 * \brief A page of a KELScreen: a rectangle from (0, 0) to the size of the screen, for controls,
 * parts and layouts.
 *
 * A page paints nothing itself: the background of the screen shows through. Controls on it need no
 * offset, because its rectangle starts at (0, 0). A page whose layout needs more room is larger
 * than the screen, to the right and below. A page has the layout direction of the screen, unless it
 * was given its own.
 *
 * A slot connected to a signal of a page may delete any page. Delete the screen with
 * QObject::deleteLater().
 *
 * GUI thread only.
 */
class KELGDIPARTS_EXPORT KELPage : public QGraphicsWidget
{
    Q_OBJECT

public:
    //! Creates a page that is on no screen, as a child item of \a parent, or without a parent if it
    //! is null. KELScreen::push() removes it from its parent.
    explicit KELPage(QGraphicsItem *parent = nullptr);
    //! Takes the page off its screen and destroys it with all its child items. If it was the
    //! current page, the one below is shown, and emits its signals.
    ~KELPage() override;

    //! Returns the screen that has the page on its stack, or null, the default.
    KELScreen *screen() const;

Q_SIGNALS:
    //! The page has become the current one. It is visible and has the size of the screen; it may
    //! still be sliding.
    void entered();
    //! The page is no longer the current one: another one is, or it was taken off the screen. Not
    //! emitted by a page that is being destroyed.
    void left();

protected:
    /*!
     * Someone wants to go back from this page: KELScreen::back(), or a key. Return true to stay, or
     * after having gone back in another way. The base returns false: the screen pops the page.
     */
    virtual bool backEvent();

    QVariant itemChange(GraphicsItemChange change, const QVariant &value) override;

private:
    Q_DISABLE_COPY(KELPage)
    friend class KELScreen;
    friend class KELScreenPrivate;
    KELPagePrivate *const d;
};

/*!
 * \brief The view of an application: shows a stack of pages, pixel for pixel.
 *
 * \code
 * KELScreen screen;
 * auto *page = new KELPage;
 * auto *button = new KELPushButton(page);
 * button->setboundRect(24, 24, 200, 56);
 * screen.push(page);
 * screen.showFullScreen();
 * \endcode
 *
 * \section screenview The view
 * One item px is one px of the widget. The view has no frame and no scroll bars. It is opaque: it
 * paints its backgroundBrush() or, if it has none, that of its scene(), which is #F3F5F8 by default
 * and which a KELTheme sets. Below a translucent brush it paints black. The scene has no index
 * (QGraphicsScene::NoIndex), and its rectangle is that of the view. A screen without a parent is a
 * frameless window; show it with QWidget::showFullScreen(): on linuxfb and eglfs the first window
 * fills the frame buffer. When the view is resized, or the screen rotated, all pages get its size.
 * Pages stay in the scene that the screen was created with: QGraphicsView::setScene() shows another
 * one, without pages.
 *
 * Items that belong to no page, such as a status bar, may be added to scene(). Pages have Z value
 * 0.
 *
 * \section screenpages Pages
 * The current page is on top of the stack. Only it is visible and gets input. A page that comes
 * back gets back its focus item, if that is a QGraphicsObject.
 * \code
 * push() ---> left() of the old page, entered() of the new one, currentPageChanged()
 * pop() ----> left() of the old page, entered() of the one below, currentPageChanged()
 * \endcode
 * The stack has changed before the first signal. If a slot pushes or pops a page, the signals of
 * that change are emitted at once, and the remaining ones of the first change are not: each
 * entered() is of the current page.
 *
 * The keys Back and Escape go back if no item accepts them; a key that is held goes back once. If
 * there is no page to go back to, and the last one does not go back itself (KELPage::backEvent()),
 * the parent widget gets the key.
 *
 * \section screenslide Slide
 * With setSlideEnabled() pages slide for KELMotion::slideMs: a new one from the right, one that
 * goes back to the right; in a right-to-left layout from and to the left. The old page is hidden
 * and shown again for the slide, so that a press on it is lost. A press, a key, another page, a new
 * size and hiding the view end the slide at once; the press or the key reaches the current page.
 *
 * A slot connected to a signal of the screen or of a page may delete any page. Delete the screen
 * with QObject::deleteLater().
 *
 * GUI thread only.
 */
class KELGDIPARTS_EXPORT KELScreen : public QGraphicsView
{
    Q_OBJECT

public:
    //! Creates a screen without a page, as a child of \a parent, or as a frameless window if it is
    //! null. Its size is 800 x 480 px.
    explicit KELScreen(QWidget *parent = nullptr);
    //! Destroys the screen, its pages, its scene and all items in it. No signal is emitted.
    ~KELScreen() override;

    /*!
     * Puts \a page on top of the stack and shows it. The screen takes ownership. Returns true.
     *
     * A page that is on another screen leaves it. Returns false and does nothing if \a page is null
     * or already on this stack, or if the scene of the pages was deleted. Also returns false if a
     * slot that is called meanwhile deletes the page or pushes it itself.
     */
    bool push(KELPage *page);

    //! Takes the current page off the stack, shows the one below and returns true. The page is
    //! deleted with QObject::deleteLater(), after its slide if it slides, unless a slot has pushed
    //! it again. Does nothing and returns false if there is no page below.
    bool pop();

    //! Returns the page on top of the stack, or null if there is none.
    KELPage *currentPage() const;
    //! Returns the number of pages on the stack.
    int pageCount() const;

    //! Returns whether pages slide. The default is false.
    bool isSlideEnabled() const;
    //! Sets whether pages slide, from the next push() or pop().
    void setSlideEnabled(bool enabled);

public Q_SLOTS:
    //! Goes back: asks KELPage::backEvent() of the current page, then calls pop().
    void back();

Q_SIGNALS:
    //! Another page is the current one, or there is none any more.
    void currentPageChanged();

protected:
    bool viewportEvent(QEvent *event) override;
    void timerEvent(QTimerEvent *event) override;
    void changeEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void drawBackground(QPainter *painter, const QRectF &rect) override;

private:
    Q_DISABLE_COPY(KELScreen)
    friend class KELPage;
    KELScreenPrivate *const d;
};

#endif
