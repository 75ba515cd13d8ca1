// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELPINDIALOG_H
#define KELPINDIALOG_H

#include "kelpart.h"

#include <QtCore/QString>

class KELPinDialogPrivate;

/*!
 * \brief A dialog that asks for a PIN: a keypad in the middle of the view, above everything else.
 *
 * \code
 * auto *dialog = new KELPinDialog;
 * dialog->setCaption(QObject::tr("Enter your PIN"));
 * QObject::connect(dialog, &KELPinDialog::entered, dialog, [dialog](const QString &pin) {
 *     if (pin == "1234")
 *         dialog->accept();
 *     else
 *         dialog->reject();
 * });
 * QObject::connect(dialog, &KELPinDialog::accepted, page, &Page::unlock);
 * QObject::connect(dialog, &KELPinDialog::closed, dialog, &QObject::deleteLater);
 * dialog->open(view->scene());
 * \endcode
 *
 * The dialog is an item, not a window, so it works without a window system. While it is open it
 * covers what the first view of the scene shows, also after the view was resized, turned, scaled or
 * scrolled. In a scene without a view it covers the QGraphicsScene::sceneRect(). It dims the items
 * behind it with black of 60 %, and lets no press, wheel, hover or key through to them. A press
 * that was going on there is lost. Items with z-values above 1e9 may stay uncovered.
 *
 * \section pinsignals Signals
 * The application compares the PIN, at once or later, and calls accept() or reject(). Until then
 * further digits are ignored.
 * \code
 * last digit ------------------> entered
 *   accept() ------------------> accepted, closed
 *   reject() ------------------> (shakes, no digits)
 * cancel key, Escape, Back ----> cancelled, closed
 * hidden or removed while open > closed
 * deleted while open ----------> no signal
 * \endcode
 * closed() comes in a later iteration of the event loop, if the dialog still lives then. The scene
 * owns the dialog from open() on, also when it is closed. It may be opened again.
 *
 * \section pinkeys Keys
 * A digit counts when its key goes down, so that two thumbs may type as fast as they can: the order
 * of the digits is that of the presses, and a key counts even if the finger stays on it or slides
 * off. Only a second finger on a key that is still down does not count. The cross, in the last row
 * where a line of text begins, cancels on a tap; the key at the other end of that row removes the
 * last digit. All keys are KELPushButton items; see \ref fingers for what further fingers do.
 *
 * From a keyboard it takes 0 to 9, Backspace and Delete; Escape, Back and Cancel, which cancel; and
 * Return, Enter and Select, which shake the dialog while digits are missing. Other keys of that
 * view, and shortcuts, have no effect. If the item that had the focus has lost it to a press, it
 * gets it back before accepted() and cancelled().
 *
 * \section pinsecrecy Secrecy
 * The digits are shown as dots. They are overwritten when they are removed, rejected or accepted,
 * and when the dialog is closed or destroyed. The string of entered() is overwritten after the
 * signal, but not a copy that a slot has kept. No function returns the digits, and nothing prints
 * them.
 *
 * \section pinlook Look
 * If the view is wider than high, the caption and the dots stand beside the keypad, which is as
 * wide as they are or, where there is less room, takes 55 % of it. Otherwise they stand above it.
 * The dialog shakes for 400 ms, by up to 12 px to both sides; not at all if KELMotion is off.
 *
 * The keys are as large as fits, up to one and a half times KELTouch::leastSize(). They are smaller
 * than KELTouch::leastSize() only if the view has no room for that: 480 x 272 px suffice for 48 px.
 * With the default style, 8 px lie between the keys and between dialog and view, and 16 px inside
 * the edge of the dialog. The digits are two fifths of a key high. Text that does not fit is cut.
 *
 * The dialog has the layout direction of the first view of its scene, as of open(), unless it was
 * given its own. From right to left, caption and keypad change sides, the dots are filled from the
 * right, and the cross and the key beside the 0 change places. The digits stay where they are.
 *
 * These fields of partStyle() are used: \c backgroundBrush, \c borderBrush, \c borderWidth and
 * \c radius for the dialog and, with two thirds of the radius, for the keys; \c pressedBrush;
 * \c foregroundBrush and \c font for the caption and the keys; \c accentBrush for the dots of
 * digits; \c mutedBrush for the rings of those to come; \c disabledBrush; \c spacing, up to 24 px,
 * for all distances.
 */
class KELGDIPARTS_EXPORT KELPinDialog final : public KELPart
{
    Q_OBJECT
    //! The text above or beside the keypad. The default is empty.
    Q_PROPERTY(QString caption READ caption WRITE setCaption)
    //! The number of digits of a PIN. The default is 4.
    Q_PROPERTY(int pinLength READ pinLength WRITE setPinLength)
    //! Whether the dialog is open. The default is false.
    Q_PROPERTY(bool open READ isOpen)

public:
    //! The limits of pinLength().
    enum Limit : int {
        mostDigits = 12 //!< The longest PIN.
    };

    //! Creates a closed dialog without a scene.
    KELPinDialog();
    //! Destroys the dialog, also while it is open.
    ~KELPinDialog() override;

    //! Returns the text above or beside the keypad.
    QString caption() const;
    //! Sets the text above or beside the keypad to \a caption. It is plain text, broken into lines.
    void setCaption(const QString &caption);

    //! Returns the number of digits of a PIN.
    int pinLength() const;
    //! Sets the number of digits of a PIN to \a digits and removes those entered so far. Less than
    //! 1 counts as 1, more than mostDigits as that.
    void setPinLength(int digits);

    //! Returns whether the dialog is open.
    bool isOpen() const;

    //! Puts the dialog into \a scene as a top-level item and opens it without digits. Does nothing
    //! if \a scene is null or the dialog is already open.
    void open(QGraphicsScene *scene);

    void styleChanged() override;

    //! Paints the dialog without its keys with \a painter; \a option and \a widget are not used.
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option,
               QWidget *widget = nullptr) override;

public Q_SLOTS:
    //! The PIN is right: closes the dialog. Does nothing while it is closed.
    void accept();
    //! The PIN is wrong: removes all digits and shakes the dialog. Does nothing while it is closed.
    void reject();
    //! Closes the dialog without a PIN. Does nothing while it is closed.
    void cancel();

Q_SIGNALS:
    //! The last digit was entered; \a pin has all pinLength() of them, each from 0 to 9. Answer
    //! with accept() or reject().
    void entered(const QString &pin);
    //! accept() has closed the dialog.
    void accepted();
    //! The user or cancel() has closed the dialog.
    void cancelled();
    //! The dialog is closed, for whatever reason. Emitted in a later iteration of the event loop.
    void closed();

protected:
    KELGDIPARTS_HIDDEN void keyPressEvent(QKeyEvent *event) override;
    KELGDIPARTS_HIDDEN void timerEvent(QTimerEvent *event) override;
    KELGDIPARTS_HIDDEN void contextMenuEvent(QGraphicsSceneContextMenuEvent *event) override;
    KELGDIPARTS_HIDDEN void resizeEvent(QGraphicsSceneResizeEvent *event) override;
    KELGDIPARTS_HIDDEN void changeEvent(QEvent *event) override;
    KELGDIPARTS_HIDDEN QVariant itemChange(GraphicsItemChange change,
                                           const QVariant &value) override;

private:
    Q_DISABLE_COPY(KELPinDialog)
    friend class KELPinDialogPrivate;
    KELPinDialogPrivate *const d;
};

#endif
