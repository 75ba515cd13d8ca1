// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef LOGGINGPART_H
#define LOGGINGPART_H

#include "literals.h"

#include <kelpart.h>

#include <QtCore/QStringList>

#include <functional>

// Writes down what it is told, and acts on it as a test wants it to.
class LoggingPart : public KELPart
{
public:
    explicit LoggingPart(const QRectF &rect = QRectF(100, 100, 100, 50))
    {
        setGeometry(rect);
        setFocusPolicy(Qt::StrongFocus);
    }

    QString take()
    {
        const QString taken = m_log.join(u' ');
        m_log.clear();
        return taken;
    }
    using KELPart::isFocusShown;
    using KELPart::isPlainKey;

    QString actsOn;
    std::function<void()> action;
    bool takesPresses = true;
    QPointF pos; // of the last call

protected:
    bool pressEvent(const QPointF &at) override
    {
        const bool isTaken = takesPresses;
        tell(u"press"_s, at);
        return isTaken;
    }
    void dragEvent(const QPointF &at, bool isDrag) override
    {
        tell(isDrag ? u"drag"_s : u"move"_s, at);
    }
    void releaseEvent(const QPointF &at, bool isTap) override
    {
        tell(isTap ? u"tap"_s : u"release"_s, at);
    }
    void pressLostEvent() override { tell(u"lost"_s, pos); }

private:
    // The last thing that a hook does: the action may delete the part.
    void tell(const QString &entry, const QPointF &at)
    {
        m_log.append(entry);
        pos = at;
        if (entry == actsOn) {
            const std::function<void()> acting = action;
            acting();
        }
    }

    QStringList m_log;
};

#endif
