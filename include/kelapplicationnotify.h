// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELAPPLICATIONNOTIFY_H
#define KELAPPLICATIONNOTIFY_H

#include "kelgdicontrol_global.h"

#include <QtCore/QEvent>
#include <QtCore/QObject>

/*!
 * \brief An event filter that emits a signal for each event of one type.
 *
 * The notifier does not install itself and never consumes an event. Install it on the object to
 * watch, and remove it when you are done:
 * \code
 * auto *notify = new KELApplicationNotify(this, QEvent::MouseButtonPress);
 * connect(notify, &KELApplicationNotify::notify, this, &Screen::wakeUp, Qt::DirectConnection);
 * QCoreApplication::instance()->installEventFilter(notify);
 * \endcode
 *
 * Installed on the application object, it sees the events of all objects. One press arrives there
 * at least twice: for the QWindow and then for the widget under the pointer, and again for each
 * parent of a widget that ignores it.
 *
 * GUI thread only.
 */
class KELGDI_EXPORT KELApplicationNotify : public QObject
{
    Q_OBJECT

public:
    //! Creates a notifier for events of type \a type, as a child of \a parent. The type cannot be
    //! changed.
    KELApplicationNotify(QObject *parent, QEvent::Type type);

    //! Destroys the notifier without removing it as a filter: Qt drops destroyed filters itself.
    ~KELApplicationNotify() override;

    /*!
     * Calls toNotify() if \a event has the watched type and its accepted flag is still set, as it
     * is in a newly created event.
     *
     * Returns false, so that the event is delivered. Returns true only if a slot has destroyed
     * \a watched, because the event then has no target. \a watched may be null.
     */
    bool eventFilter(QObject *watched, QEvent *event) override;

public Q_SLOTS:
    //! Emits notify() with the same arguments, whatever the type of \a event. Call it to inject an
    //! event.
    void toNotify(QObject *watched, QEvent *event);

Q_SIGNALS:
    /*!
     * \a event is about to be delivered to \a watched.
     *
     * The event is valid only during the emission: connect directly, and do not store the pointer.
     * A slot may delete the notifier and \a watched. If it installs another event filter on the
     * same object, Qt filters the event again, and the notifier reports it twice.
     */
    void notify(QObject *watched, QEvent *event);

private:
    Q_DISABLE_COPY(KELApplicationNotify)

    const QEvent::Type m_type;
};

#endif
