// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELNONMODALHELPER_H
#define KELNONMODALHELPER_H

#include "kelgdicontrol_global.h"

#include <QtCore/QObject>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

class KELNonModalhelperPrivate;

/*!
 * \brief Hides a widget when the user presses outside it, or after a period without a press.
 *
 * \code
 * // Closes on a press elsewhere in its parent, or after 5 s without a press.
 * KELNonModalhelper::show(panel, KELNonModalhelper::TriggerParent, true, 5000);
 * \endcode
 *
 * A helper watches the mouse presses of the whole application, so the application object must exist
 * when the helper is created. Presses on windows of other programs do not count. A touch counts if
 * Qt synthesises a mouse press from it, that is, unless the touch itself is accepted.
 *
 * \section helperpresses What a press does
 * A press hides the widget or restarts the timeout set with enableTime(), depending on
 * triggerSource():
 * | source        | hides the widget                    | restarts the timeout                   |
 * | ------------- | ----------------------------------- | -------------------------------------- |
 * | TriggerNone   | nothing                             | nothing                                |
 * | TriggerParent | on the parent, outside the geometry | anywhere else                          |
 * | TriggerScreen | outside the geometry                | inside it                              |
 * | another value | nothing                             | every press                            |
 *
 * The geometry is the geometry() of the widget. While the widget is not visible, a press restarts
 * the timeout, unless the source is TriggerNone, and does nothing else.
 *
 * Some presses are ignored; they neither hide the widget nor restart the timeout. These are presses
 * on a window or widget that is a popup, tool window, tool tip or splash screen, that has such a
 * parent, or that has the flag Qt::WindowDoesNotAcceptFocus. Menus and the lists of combo boxes can
 * therefore be used without closing the widget.
 *
 * <b>TriggerParent</b> compares the position of the press in the parent with the geometry(). Use it
 * for a child widget. A press on a sibling is not a press on the parent, unless the sibling ignores
 * it. The parent of a child of a QGraphicsView must be its QAbstractScrollArea::viewport(), because
 * the viewport gets the presses. The second press of a double click reaches the parent as a double
 * click and closes nothing.
 *
 * <b>TriggerScreen</b> compares the position on the screen with the geometry(). Use it for a
 * top-level widget. The geometry() of a child widget is in the coordinates of its parent. For a
 * child widget the result is therefore correct only if the top-left corner of the parent is that of
 * the screen, as in a full-screen window.
 *
 * \section helpertoggle The button that opens the panel
 * A press that hides the widget still reaches its target. The widget is hidden 5 ms later; other
 * presses within these 5 ms are ignored. A second tap on the button that opens a panel would
 * therefore close the panel and then reopen it. To avoid this, connect the button as follows:
 * \code
 * connect(button, &KELPushButton::mousePress, panel, [=] {
 *     if (panel->isVisible())
 *         panel->ignoreOnce();
 * });
 * connect(button, &KELPushButton::mouseClicked, panel, [=] {
 *     panel->setVisible(!panel->isVisible());
 * });
 * \endcode
 *
 * \section helperlife Lifetime
 * The helper does not own the widget. Both may be destroyed at any time, even in a slot connected
 * to triggered(); a helper whose widget no longer exists does nothing. As with every Qt widget, do
 * not \c delete the widget in its own hide or show event handler.
 *
 * A hide scheduled by a press is cancelled if the helper or the widget is destroyed. It is carried
 * out, and triggered() is emitted, even if other code has hidden the widget in the meantime.
 *
 * GUI thread only.
 */
class KELGDI_EXPORT KELNonModalhelper : public QObject
{
    Q_OBJECT

public:
    //! Which presses hide the widget. With any other value no press hides it, and every press
    //! restarts the timeout.
    enum TriggerSource : int {
        TriggerNone = 0, //!< No press.
        TriggerParent = 1, //!< A press on the parent of the widget, outside the widget.
        TriggerScreen = 2 //!< Any press outside the widget.
    };

    //! Creates a helper without a parent that watches presses on behalf of \a widget, which may be
    //! null. Does not show the widget.
    explicit KELNonModalhelper(QWidget *widget);

    //! Stops watching. Leaves the widget as it is and does not emit triggered().
    ~KELNonModalhelper() override;

    //! Sets which presses hide the widget. The default is TriggerParent.
    void setTriggerSource(TriggerSource source);

    //! Returns which presses hide the widget.
    TriggerSource triggerSource() const;

    /*!
     * From now on, the helper hides the widget after \a ms milliseconds without a press that
     * restarts the timeout; see \ref helperpresses. Values below 1 mean 3000. The timeout starts
     * now if the widget is not hidden, otherwise when show() is called. Cannot be undone; see
     * stopTime().
     */
    void enableTime(int ms);

    //! Stops the timeout until show(), startTime() or enableTime() is next called, or a press
    //! restarts it.
    void stopTime();

    //! Returns true once enableTime() has been called.
    bool isTimeEnable() const;

    //! Restarts the timeout. Does nothing before enableTime() has been called.
    void startTime();

    //! Makes the helper ignore the next press that would hide the widget. Does not affect the
    //! timeout. Remains in effect until such a press occurs.
    void ignoreOnce();

    //! Shows the widget, and starts the timeout if enableTime() has been called.
    void show();

    /*!
     * Creates a helper with the trigger source \a source for \a widget and shows the widget. If
     * \a enableTimer is true, calls enableTime(\a ms) on the helper. The helper deletes itself once
     * it has hidden the widget, or when the widget is destroyed.
     *
     * If \a widget already has such a helper and is not hidden, only the timeout changes:
     * enableTime(\a ms) is called if \a enableTimer is true, otherwise stopTime(). The source stays
     * the same. If other code has hidden the widget, the old helper is deleted and a new one is
     * created. Does nothing if \a widget is null.
     */
    static void show(QWidget *widget, TriggerSource source, bool enableTimer, int ms);

Q_SIGNALS:
    //! The helper has hidden the widget, after a press or because the timeout expired. Not emitted
    //! if the widget is already hidden when the timeout expires, or if other code hides the widget,
    //! except within the 5 ms after a press; see \ref helperlife.
    void triggered();

protected:
    //! Handles the expiry of the timeout: hides the widget and emits triggered().
    void timerEvent(QTimerEvent *event) override;

private:
    Q_DISABLE_COPY(KELNonModalhelper)
    friend class KELNonModalhelperPrivate;

    KELNonModalhelperPrivate *const d;
};

#endif
