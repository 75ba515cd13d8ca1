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
 * The panel is a KELContentView and hides through a KELNonModalhelper with source
 * KELNonModalhelper::TriggerScreen. See there what counts as a press outside, and in
 * \ref helpertoggle how the button that opens the panel can close it again. The panel is hidden,
 * not deleted, and can be shown again.
 *
 * A panel may be deleted at any time, even in a slot of disappeared(), but not in its own events or
 * in those of its items.
 *
 * GUI thread only.
 *
 * \section nonmodalparent Parent
 * Without a parent the panel is a frameless window. On a platform with only one window (linuxfb
 * without overlap, eglfs) use a child of the full-screen window.
 *
 * With a parent the panel is a child widget, because KELContentView replaces the window flags, and
 * its geometry() is in the coordinates of the parent. It then closes on the correct presses only
 * where the parent's corner is that of the screen, as in a full-screen window. Elsewhere use
 * KELNonModalhelper::TriggerParent: presses on the parent itself close the panel, presses on
 * siblings do not.
 *
 * \section nonmodallock One at a time
 * showOne() and activeDialog() know all living panels. Code that runs synchronously while showOne()
 * hides and shows panels, hide events for example, may construct, destroy, show and hide panels and
 * call showOne() and activeDialog().
 * - A panel constructed then is not hidden by the running showOne().
 * - A panel shown then is hidden, unless showOne() has already passed it.
 * - A nested showOne() is complete when it returns. The outer one then continues: in the end its
 *   panel is shown, if it is still alive.
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
     * Hides every visible panel but \a dialog, in the order of their construction, and then shows
     * \a dialog, if it is not null and has not been deleted meanwhile. The panels hidden this way
     * do not emit disappeared(). See \ref nonmodallock for what hide events may do.
     */
    static void showOne(KELNonModalDialog *dialog);

    //! Returns the visible panel, or null. If several are visible, returns the one constructed
    //! first.
    static KELNonModalDialog *activeDialog();

    //! Sets which presses close the panel. Default KELNonModalhelper::TriggerScreen.
    void setTriggerSource(KELNonModalhelper::TriggerSource source);

    //! Returns which presses close the panel.
    KELNonModalhelper::TriggerSource triggerSource() const;

    //! From now on, closes the panel if no press inside has come for \a ms milliseconds after it
    //! was shown. Values below 1 mean 3000. Cannot be undone.
    void enableTime(int ms);

    //! Makes the panel ignore the next press outside instead of closing.
    void ignoreOnce();

Q_SIGNALS:
    //! The panel has closed by itself, after a press outside or at the end of the period of
    //! enableTime(). Not emitted when the application hides the panel.
    void disappeared();

protected:
    //! Starts the period of enableTime().
    void showEvent(QShowEvent *event) override;

private:
    Q_DISABLE_COPY(KELNonModalDialog)

    static QMutex g_modalLock;
    static QList<QPointer<KELNonModalDialog>> g_nonModalDialogs;

    KELNonModalDialogPrivate *const d;
};

#endif
