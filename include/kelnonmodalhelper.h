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
 * \image html non-modal-helper.png
 *
 * \code
 * // Closes on a press elsewhere in its parent, or after 5 s without a press.
 * KELNonModalhelper::show(panel, KELNonModalhelper::TriggerParent, true, 5000);
 * \endcode
 *
 * A helper watches the mouse presses of the whole application, so the application object must exist
 * when the helper is created. Presses on windows of other programs do not count. A touch counts if
 * Qt synthesises a mouse press from it, that is unless the touch itself is accepted.
 *
 * \section helperpresses What a press does
 * A press hides the widget or restarts the period of enableTime(), depending on triggerSource():
 * | source        | hides the widget                    | restarts the period                    |
 * | ------------- | ----------------------------------- | -------------------------------------- |
 * | TriggerNone   | nothing                             | nothing                                |
 * | TriggerParent | on the parent, outside the geometry | on the parent inside; on other objects |
 * | TriggerScreen | outside the geometry                | inside it                              |
 * | another value | nothing                             | every press                            |
 *
 * The geometry is the geometry() of the widget. While the widget is not visible a press never hides
 * it; it restarts the period unless the source is TriggerNone.
 *
 * A press is ignored, and neither hides nor restarts, in a window or widget that is a popup, tool
 * window, tool tip or splash screen or has such a parent, or that has Qt::WindowDoesNotAcceptFocus:
 * menus and the lists of combo boxes can be used without closing the widget.
 *
 * <b>TriggerParent</b> compares the position of the press in the parent with the geometry(). Use it
 * for a child widget. A press on a sibling is not a press on the parent, unless the sibling ignores
 * it. The parent of a child of a QGraphicsView must be its QAbstractScrollArea::viewport(), because
 * the viewport gets the presses. The second press of a double click reaches the parent as a double
 * click and closes nothing.
 *
 * <b>TriggerScreen</b> compares the position on the screen with the geometry(). Use it for a
 * top-level widget. The geometry() of a child widget is in the coordinates of its parent. With a
 * child widget it is therefore correct only where the parent's corner is that of the screen, as in
 * a full-screen window.
 *
 * \section helpertoggle The button that opens the panel
 * A press that hides still reaches its target. The widget is hidden 5 ms later; other presses
 * within these 5 ms are ignored. If the button that opens a panel is pressed again, it would
 * therefore close the panel and then reopen it. Connect it like this:
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
 * The helper does not own the widget. Both may be destroyed at any time, even in a slot of
 * triggered(); a helper whose widget is gone does nothing. As with every widget of Qt, do not
 * \c delete the widget in its own hide or show event.
 *
 * A hide scheduled by a press is cancelled if the helper or the widget is destroyed. It is carried
 * out, triggered() included, even if other code has hidden the widget meanwhile.
 *
 * GUI thread only.
 */
class KELGDI_EXPORT KELNonModalhelper : public QObject
{
    Q_OBJECT

public:
    //! Which presses hide the widget. Other values hide on none and restart the period on every
    //! press.
    enum TriggerSource : int {
        TriggerNone = 0, //!< No press.
        TriggerParent = 1, //!< A press on the parent of the widget, outside the widget.
        TriggerScreen = 2 //!< Any press outside the widget.
    };

    //! Creates a helper, without a parent, that watches the presses for \a widget, which may be
    //! null. Does not show the widget.
    explicit KELNonModalhelper(QWidget *widget);

    //! Stops watching. Leaves the widget as it is and does not emit triggered().
    ~KELNonModalhelper() override;

    //! Sets which presses hide the widget. Default TriggerParent.
    void setTriggerSource(TriggerSource source);

    //! Returns which presses hide the widget.
    TriggerSource triggerSource() const;

    /*!
     * From now on, hides the widget if no press has come for \a ms milliseconds. Values below 1
     * mean 3000. The period starts now if the widget is not hidden, otherwise with show(). Cannot
     * be undone; see stopTime().
     */
    void enableTime(int ms);

    //! Stops the running period until the next show(), startTime(), enableTime() or press that
    //! restarts it.
    void stopTime();

    //! Returns true once enableTime() has been called.
    bool isTimeEnable() const;

    //! Restarts the period. Does nothing before enableTime().
    void startTime();

    //! Makes the helper ignore the next press that would hide the widget. Does not affect the
    //! period of enableTime(). Remains in effect until such a press comes.
    void ignoreOnce();

    //! Shows the widget. Starts the period if enableTime() has been called.
    void show();

    /*!
     * Shows \a widget with a helper of its own and the trigger source \a source. With
     * \a enableTimer the helper gets enableTime(\a ms). The helper deletes itself once it has
     * hidden the widget, or when the widget is destroyed.
     *
     * If \a widget already has such a helper and is not hidden, only the period changes:
     * enableTime(\a ms) with \a enableTimer, otherwise stopTime(); the source stays. If other code
     * has hidden the widget, the old helper is deleted and a new one created. Does nothing if
     * \a widget is null.
     */
    static void show(QWidget *widget, TriggerSource source, bool enableTimer, int ms);

Q_SIGNALS:
    //! The helper has hidden the widget, after a press or at the end of the period. Not emitted if
    //! other code hides the widget, or if the widget is already hidden at the end of the period.
    void triggered();

protected:
    //! Ends the period: hides the widget and emits triggered().
    void timerEvent(QTimerEvent *event) override;

private:
    Q_DISABLE_COPY(KELNonModalhelper)
    friend class KELNonModalhelperPrivate;

    KELNonModalhelperPrivate *const d;
};

#endif
