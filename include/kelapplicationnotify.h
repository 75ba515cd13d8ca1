// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELAPPLICATIONNOTIFY_H
#define KELAPPLICATIONNOTIFY_H

#include "kelgdicontrol_global.h"

#include <QtCore/QEvent>
#include <QtCore/QObject>

/*!
 * \brief Turns one type of event, seen as an event filter, into a signal.
 *
 * The notifier installs itself nowhere and never stops an event. Whoever creates it installs it, and takes it
 * out again before destroying it:
 * \code
 * auto *notify = new KELApplicationNotify(this, QEvent::MouseButtonPress);
 * connect(notify, &KELApplicationNotify::notify, this, &Screen::wakeUp, Qt::DirectConnection);
 * QCoreApplication::instance()->installEventFilter(notify);
 * \endcode
 *
 * On the application object it sees the events of all objects. One press comes there at least twice: for the
 * QWindow and then for the widget below the pointer, and again for each parent of a widget that ignores it.
 *
 * GUI thread only.
 */
class KELGDI_EXPORT KELApplicationNotify : public QObject
{
    Q_OBJECT

public:
    //! Creates a notifier for events of type \a type, as a child of \a parent. The type cannot be changed.
    KELApplicationNotify(QObject *parent, QEvent::Type type);

    //! Takes no filter out: Qt forgets a destroyed filter by itself.
    ~KELApplicationNotify() override;

    /*!
     * Calls toNotify() when \a event is of the type to watch and still accepted, as a newly made event is.
     *
     * Returns false, so that the event goes on to \a watched, which may be null; but true when a slot destroyed
     * \a watched, as the event has no target any more.
     */
    bool eventFilter(QObject *watched, QEvent *event) override;

public Q_SLOTS:
    //! Emits notify() with the same arguments, whatever the type of \a event is: for injected events.
    void toNotify(QObject *watched, QEvent *event);

Q_SIGNALS:
    /*!
     * \a event is about to be delivered to \a watched.
     *
     * The event is valid during the emission only: connect directly, and do not keep the pointer. A slot may
     * delete the notifier and \a watched.
     */
    void notify(QObject *watched, QEvent *event);

private:
    Q_DISABLE_COPY(KELApplicationNotify)

    const QEvent::Type m_type;
};

#endif
