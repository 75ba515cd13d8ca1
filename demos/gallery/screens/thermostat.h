// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef THERMOSTAT_H
#define THERMOSTAT_H

#include "finishedscreen.h"

#include <QtCore/QVector>

QT_BEGIN_NAMESPACE
class QGraphicsLayoutItem;
class QGraphicsLinearLayout;
QT_END_NAMESPACE
class Dial;
class KELLabel;
class KELPushButton;
class KELRow;
class Room;
class Trend;

// A thermostat: a dial for the temperature, what to do, and how the day has been.
class Thermostat : public FinishedScreen
{
    Q_OBJECT

public:
    // room must outlive the page. Its time passes while the page is in sight.
    Thermostat(KELTheme *theme, Room *room);

protected:
    void build(QGraphicsWidget *content) override;

private:
    Q_DISABLE_COPY(Thermostat)
    Dial *newDial(bool isSmall);
    QGraphicsLinearLayout *newSteps();
    KELPushButton *newStep(const QString &text, const QString &name, double step);
    QGraphicsLayoutItem *newModes(bool isSmall);
    QGraphicsLayoutItem *newRows(bool isSmall);
    QGraphicsLayoutItem *newHistory();
    KELRow *newRow(const QString &caption, int end);
    void chooseHoliday();
    void refresh();
    QString activityText() const;

    Room *const m_room;
    Dial *m_dial = nullptr;
    KELLabel *m_activity = nullptr;
    KELLabel *m_celsius = nullptr;
    KELLabel *m_humidity = nullptr;
    KELLabel *m_clock = nullptr;
    QVector<KELPushButton *> m_modes;
    KELRow *m_schedule = nullptr;
    KELRow *m_boost = nullptr;
    KELRow *m_holiday = nullptr;
    Trend *m_trend = nullptr;
    KELLabel *m_span = nullptr; // of the trend
};

#endif
