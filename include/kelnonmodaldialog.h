// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELNONMODALDIALOG_H
#define KELNONMODALDIALOG_H

#include "kelcontentview.h"
#include "kelnonmodalhelper.h"

#include <QtCore/QList>
#include <QtCore/QMutex>
#include <QtCore/QPointer>

class KELNonModalDialogPrivate;

/*!
 * \brief A panel that closes by itself: on a press outside it, or when it is left alone for some time.
 *
 * \image html non-modal-dialog.png
 *
 * \code
 * auto *panel = new KELNonModalDialog;
 * panel->setContent(controls);
 * panel->enableTime(10000);
 * connect(panel, &KELNonModalDialog::disappeared, this, &Screen::restoreButtons);
 * KELNonModalDialog::showOne(panel);
 * \endcode
 *
 * It is a KELContentView and hides through a KELNonModalhelper with source KELNonModalhelper::TriggerScreen;
 * see there what counts as a press outside, and how the button that opens the panel closes it again. The
 * panel is hidden, not deleted, and can be shown again.
 *
 * \section nonmodalparent Parent
 * Without a parent the panel is a frameless window. With one it is a child widget, as KELContentView
 * replaces the window flags, and its geometry() is in the coordinates of the parent: it closes on the right
 * presses only where the parent's corner is that of the screen, as in a full-screen window. Elsewhere,
 * choose KELNonModalhelper::TriggerParent, and expect presses on the parent itself to close it, but none on
 * siblings. On a platform with one window only (linuxfb without overlap, eglfs) use a child of the
 * full-screen window.
 *
 * \section nonmodallock One at a time
 * showOne() and activeDialog() know all living panels. What runs synchronously while showOne() hides and shows
 * panels, hide events for example, may construct, destroy, show and hide panels and call showOne() and
 * activeDialog(), too. A panel that is constructed then is not hidden by the running showOne(); one that is
 * shown then is, unless its turn is over. A showOne() called then is complete when it returns, and the outer one
 * goes on: in the end its panel is shown, if it is still alive.
 *
 * A panel may be deleted at any time but in its own events and in those of its items, also in a slot of
 * disappeared().
 *
 * GUI thread only.
 */
class KELGDI_EXPORT KELNonModalDialog : public KELContentView
{
    Q_OBJECT

public:
    //! Creates a hidden panel, inside \a parent or as a window of its own.
    explicit KELNonModalDialog(QWidget *parent = nullptr);

    //! Destroys the panel and its content; disappeared() is not emitted.
    ~KELNonModalDialog() override;

    /*!
     * Hides every visible panel but \a dialog, in the order of their construction, and then shows \a
     * dialog, if it is not null and has not been deleted meanwhile. The panels hidden so do not emit
     * disappeared(). See \ref nonmodallock for what hide events may do.
     */
    static void showOne(KELNonModalDialog *dialog);

    //! Returns the visible panel, of several the one constructed first, or null.
    static KELNonModalDialog *activeDialog();

    //! Sets which presses close the panel. Default KELNonModalhelper::TriggerScreen.
    void setTriggerSource(KELNonModalhelper::TriggerSource source);

    //! Returns which presses close the panel.
    KELNonModalhelper::TriggerSource triggerSource() const;

    //! Closes the panel, from now on, when no press inside has come for \a ms milliseconds after it was
    //! shown, or 3000 where \a ms is less than 1. Cannot be taken back.
    void enableTime(int ms);

    //! Lets the next press outside pass without closing the panel.
    void ignoreOnce();

Q_SIGNALS:
    //! The panel has closed by itself, after a press outside or at the end of the period of enableTime(). Not
    //! emitted when the application hides the panel.
    void disappeared();

protected:
    //! Begins the period of enableTime().
    void showEvent(QShowEvent *event) override;

private:
    Q_DISABLE_COPY(KELNonModalDialog)

    static QMutex g_modalLock;
    static QList<QPointer<KELNonModalDialog>> g_nonModalDialogs;

    KELNonModalDialogPrivate *const d;
};

#endif
