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
 * \brief Hides a widget when the user presses outside it, or leaves it alone for some time.
 *
 * \image html non-modal-helper.png
 *
 * \code
 * // Closes on a press elsewhere in its parent, or after 5 s without a press.
 * KELNonModalhelper::show(panel, KELNonModalhelper::TriggerParent, true, 5000);
 * \endcode
 *
 * A helper watches the mouse presses of the whole application, so the application object must exist when the
 * helper is created. Presses of the application only: none on windows of other programs. A touch counts when
 * Qt makes a mouse press of it, that is unless somebody accepts the touch itself.
 *
 * \section helperpresses What a press does
 * | triggerSource() | hides the widget                                | restarts the period of enableTime()       |
 * |-----------------|-------------------------------------------------|-------------------------------------------|
 * | TriggerNone     | nothing                                         | nothing                                   |
 * | TriggerParent   | on the parent, outside the widget's geometry()  | on the parent inside it; on anything else |
 * | TriggerScreen   | outside the widget's geometry()                 | inside it                                 |
 * | another value   | nothing                                         | every press                               |
 *
 * While the widget is not visible a press never hides; it starts the period anew unless the source is
 * TriggerNone. A press is none of the helper's business, and neither hides nor restarts, in a window or
 * widget that is a popup, tool window, tool tip or splash screen or has such a parent, or that has
 * Qt::WindowDoesNotAcceptFocus: menus and the lists of combo boxes can be used without closing the widget.
 *
 * TriggerParent compares the position of the press in the parent with the geometry(): it is meant for a child
 * widget. A press on a sibling is none on the parent, unless the sibling ignores it.
 *
 * The parent of a child of a QGraphicsView has to be its QAbstractScrollArea::viewport(), because that gets the presses.
 * The second press of a double click goes to the parent as a double click, and closes nothing.
 *
 * TriggerScreen compares the position on the screen with the geometry(): it is meant for a top-level widget.
 * The geometry() of a child widget is in the coordinates of its parent, so with a child widget it gives the
 * right answer only where the parent's corner is that of the screen, as in a full-screen window.
 *
 * A press that hides goes on to its target. The widget is hidden 5 ms later; other presses within these 5 ms
 * are ignored. So the button that opens a panel would, pressed again, close the panel and then open it anew.
 * Let it say so in time:
 * \code
 * connect(button, &KELPushButton::mousePress, panel, [=] {
 *     if (panel->isVisible())
 *         panel->ignoreOnce();
 * });
 * connect(button, &KELPushButton::mouseClicked, panel, [=] { panel->setVisible(!panel->isVisible()); });
 * \endcode
 *
 * \section helperlife Lifetime
 * The widget is borrowed. It and the helper may be destroyed at any time, also in a slot of triggered(); a
 * helper whose widget is gone does nothing any more. A hide scheduled by a press dies with the helper and
 * with the widget, and is carried out, triggered() included, when somebody else has hidden the widget
 * meanwhile. As with every widget of Qt, do not \c delete it in its own hide or show event.
 *
 * GUI thread only.
 */
class KELGDI_EXPORT KELNonModalhelper : public QObject
{
    Q_OBJECT

public:
    //! Which presses hide the widget. Other values hide on none, and restart the period on every press.
    enum TriggerSource : int {
        TriggerNone = 0, //!< No press.
        TriggerParent = 1, //!< A press on the parent of the widget, outside the widget.
        TriggerScreen = 2 //!< Any press outside the widget.
    };

    //! Creates a helper, without a parent, that watches the presses for \a widget, which may be null. It does
    //! not show the widget.
    explicit KELNonModalhelper(QWidget *widget);

    //! Stops watching. The widget stays as it is; triggered() is not emitted.
    ~KELNonModalhelper() override;

    //! Sets which presses hide the widget. Default TriggerParent.
    void setTriggerSource(TriggerSource source);

    //! Returns which presses hide the widget.
    TriggerSource triggerSource() const;

    /*!
     * Hides the widget, from now on, when no press has come for \a ms milliseconds, or 3000 where \a ms is less
     * than 1. When the widget is not hidden the period begins now, otherwise with show(). Cannot be taken back;
     * see stopTime().
     */
    void enableTime(int ms);

    //! Stops the running period, until the next show(), startTime(), enableTime() or restarting press.
    void stopTime();

    //! Returns true once enableTime() has been called.
    bool isTimeEnable() const;

    //! Begins the period anew. Does nothing before enableTime().
    void startTime();

    //! Lets the next press that would hide the widget pass. Does not affect the period of enableTime(). The
    //! wish stays until such a press comes.
    void ignoreOnce();

    //! Shows the widget, and begins the period if enableTime() has been called.
    void show();

    /*!
     * Shows \a widget with a helper of its own, which deletes itself once it has hidden the widget, or when the
     * widget is destroyed. With \a enableTimer the helper gets enableTime(\a ms). \a source is its source.
     *
     * Called again for a widget that is not hidden it only changes the period: enableTime(\a ms) with
     * \a enableTimer, otherwise stopTime(); the source stays. For a widget that somebody else has hidden, the
     * old helper is deleted and a new one made. Does nothing when \a widget is null.
     */
    static void show(QWidget *widget, TriggerSource source, bool enableTimer, int ms);

Q_SIGNALS:
    //! The helper has hidden the widget, after a press or at the end of the period. Not emitted when the
    //! widget is hidden by somebody else, or is hidden already at the end of the period.
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
