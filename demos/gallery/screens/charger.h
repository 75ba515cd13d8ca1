// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef CHARGER_H
#define CHARGER_H

#include "finishedscreen.h"

#include <QtCore/QDeadlineTimer>

QT_BEGIN_NAMESPACE
class QGraphicsLayoutItem;
class QGraphicsLinearLayout;
QT_END_NAMESPACE
class ChargePoint;
class KELLabel;
class KELPushButton;
class Trend;

// A charge point: how far the battery is, what it costs, and how far it is to go.
class Charger : public FinishedScreen
{
    Q_OBJECT

public:
    // point must outlive the page. Its time passes while the page is in sight.
    Charger(KELTheme *theme, ChargePoint *point);

protected:
    void build(QGraphicsWidget *content) override;

private:
    Q_DISABLE_COPY(Charger)
    QGraphicsLayoutItem *newBattery(bool isSmall);
    QGraphicsLayoutItem *newSettings(bool isSmall);
    QGraphicsLinearLayout *newTiles();
    QGraphicsLayoutItem *newTile(const QString &heading, const QString &unit, KELLabel **figure);
    void addButtons(QGraphicsLinearLayout *column, bool isSmall);
    void showSessions();
    void toggle();
    void refresh();
    QString stateText() const;

    ChargePoint *const m_point;
    KELLabel *m_clock = nullptr;
    KELLabel *m_percent = nullptr;
    KELLabel *m_state = nullptr;
    KELLabel *m_limit = nullptr;
    KELLabel *m_limitNote = nullptr;
    KELLabel *m_energy = nullptr;
    KELLabel *m_time = nullptr;
    KELLabel *m_cost = nullptr;
    KELPushButton *m_stop = nullptr;
    Trend *m_trend = nullptr;
    bool m_isAsking = false; // whether to stop
    QDeadlineTimer m_asking;
};

#endif
