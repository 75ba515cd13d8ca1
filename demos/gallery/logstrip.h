// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef LOGSTRIP_H
#define LOGSTRIP_H

#include <KELRoundRectControl>

class EventLog;

// Shows the newest lines of the log.
class LogStrip : public KELRoundRectControl
{
    Q_OBJECT

public:
    LogStrip(EventLog *log, const QRectF &area, QGraphicsObject *parent);

private:
    Q_DISABLE_COPY(LogStrip)

    void refresh();

    EventLog *const m_log;
    int m_visibleLines = 1;
};

#endif
