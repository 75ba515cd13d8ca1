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
 * \brief A panel that closes by itself: on a press outside it, or after a period without a press.
 *
 * \code
 * auto *panel = new KELNonModalDialog;
 * panel->setContent(controls);
 * panel->enableTime(10000);
 * connect(panel, &KELNonModalDialog::disappeared, this, &Screen::restoreButtons);
 * KELNonModalDialog::showOne(panel);
 * \endcode
 *
 * The panel is a KELContentView that a KELNonModalhelper hides, with the trigger source
 * KELNonModalhelper::TriggerScreen. See that class for what counts as a press outside, and
 * \ref helpertoggle for how the button that opens the panel can close it again. The panel is
 * hidden, not deleted, and can be shown again.
 *
 * A panel may be deleted at any time, even in a slot connected to disappeared(), but not in its own
 * event handlers or in those of its items.
 *
 * GUI thread only.
 *
 * \section nonmodalparent Parent
 * Without a parent the panel is a frameless window. On a platform with only one window (linuxfb
 * without overlap, eglfs) use a child of the full-screen window.
 *
 * With a parent the panel is a child widget, because KELContentView replaces the window flags, and
 * its geometry() is in the coordinates of the parent. It then closes on the correct presses only if
 * the top-left corner of the parent is that of the screen, as in a full-screen window. Otherwise
 * use KELNonModalhelper::TriggerParent: presses on the parent itself then close the panel, and
 * presses on siblings do not.
 *
 * \section nonmodallock One at a time
 * showOne() and activeDialog() take all existing panels into account. Code that runs synchronously
 * while showOne() hides and shows panels, such as a hide event handler, may construct, destroy,
 * show and hide panels and call showOne() and activeDialog().
 * - A panel constructed then is not hidden by the showOne() call in progress.
 * - A panel shown then is hidden, unless showOne() has already passed it.
 * - A nested showOne() is complete when it returns. The outer call then continues: in the end its
 *   panel is shown, if it still exists.
 */
class KELGDI_EXPORT KELNonModalDialog : public KELContentView
{
    Q_OBJECT

public:
    //! Creates a hidden panel, inside \a parent or as a separate window.
    explicit KELNonModalDialog(QWidget *parent = nullptr);

    //! Destroys the panel and its content. Does not emit disappeared().
    ~KELNonModalDialog() override;

    /*!
     * Hides every visible panel except \a dialog, in order of construction, and then shows
     * \a dialog, unless it is null or has been deleted in the meantime. The panels hidden this way
     * do not emit disappeared(). See \ref nonmodallock for what hide event handlers may do.
     */
    static void showOne(KELNonModalDialog *dialog);

    //! Returns the visible panel, or null. If several are visible, returns the one constructed
    //! first.
    static KELNonModalDialog *activeDialog();

    //! Sets which presses close the panel. The default is KELNonModalhelper::TriggerScreen.
    void setTriggerSource(KELNonModalhelper::TriggerSource source);

    //! Returns which presses close the panel.
    KELNonModalhelper::TriggerSource triggerSource() const;

    //! From now on, the panel closes by itself \a ms milliseconds after it was shown or after the
    //! last press inside it, whichever is later. Values below 1 mean 3000. Cannot be undone.
    void enableTime(int ms);

    //! Makes the panel ignore the next press outside instead of closing.
    void ignoreOnce();

Q_SIGNALS:
    //! The panel has closed by itself, after a press outside it or because the timeout set with
    //! enableTime() expired. Not emitted when the application hides the panel.
    void disappeared();

protected:
    //! Starts the timeout set with enableTime().
    void showEvent(QShowEvent *event) override;

private:
    Q_DISABLE_COPY(KELNonModalDialog)

    static QMutex g_modalLock;
    static QList<QPointer<KELNonModalDialog>> g_nonModalDialogs;

    KELNonModalDialogPrivate *const d;
};

#endif
