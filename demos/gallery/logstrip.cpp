// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "logstrip.h"

#include "eventlog.h"
#include "theme.h"

#include <QtGui/QFontMetricsF>

LogStrip::LogStrip(EventLog *log, const QRectF &area, QGraphicsObject *parent) :
    KELRoundRectControl(parent), m_log(log)
{
    setboundRect(area);
    setAcceptedMouseButtons(Qt::NoButton);
    style()->backgroundBrush = QColor(Theme::logPaper);
    style()->borderBrush = QBrush(Qt::NoBrush);
    style()->font = Theme::monospaced(Theme::smallPx);
    style()->margins = QMarginsF(Theme::pageMargin, Theme::gap, Theme::pageMargin, Theme::gap);
    style()->textFlags = Qt::AlignLeft | Qt::AlignTop;

    const qreal lineHeight = qMax(1.0, QFontMetricsF(style()->font).lineSpacing());
    m_visibleLines = qMax(1, int((area.height() - 2 * Theme::gap) / lineHeight));
    refresh();
    connect(log, &EventLog::changed, this, &LogStrip::refresh);
}

void LogStrip::refresh()
{
    const QStringList lines = m_log->tail(m_visibleLines);
    style()->foregroundBrush = QColor(lines.isEmpty() ? Theme::logHint : Theme::logText);
    setText(lines.isEmpty() ? QStringLiteral("Touch a control: its signals appear here.")
                            : lines.join(QLatin1Char('\n')));
}
