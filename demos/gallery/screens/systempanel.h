// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef SYSTEMPANEL_H
#define SYSTEMPANEL_H

#include "finishedscreen.h"

QT_BEGIN_NAMESPACE
class QGraphicsGridLayout;
class QGraphicsLayoutItem;
class QGraphicsLinearLayout;
QT_END_NAMESPACE
class KELLabel;
class KELProcessBar;
class KELPushButton;
class KELRange;
class SystemData;
class Trend;

// What the machine says about itself, in tiles. Only what has changed is painted anew.
class SystemPanel : public FinishedScreen
{
    Q_OBJECT

public:
    // data must outlive the page, and is read while the page is in sight.
    SystemPanel(KELTheme *theme, SystemData *data);

protected:
    void build(QGraphicsWidget *content) override;

private:
    Q_DISABLE_COPY(SystemPanel)

    struct Tile
    {
        QGraphicsLinearLayout *layout = nullptr;
        QGraphicsLinearLayout *heading = nullptr;
        KELLabel *note = nullptr; // beside the heading, if there is one
        KELLabel *figure = nullptr;
        KELLabel *detail = nullptr;
        KELProcessBar *bar = nullptr;
    };
    QGraphicsLayoutItem *newTile(const QString &heading, Tile *tile) const;
    void addFigure(Tile *tile, int lines = 1) const;
    void addDetail(Tile *tile, int lines = 1) const;
    void addBar(Tile *tile) const;
    QGraphicsLayoutItem *newProcessor();
    QGraphicsLayoutItem *newShare(const QString &heading, Tile *tile);
    QGraphicsLayoutItem *newTemperature();
    QGraphicsLayoutItem *newNetwork();
    QGraphicsLayoutItem *newBacklight();
    QGraphicsLayoutItem *newWifi();
    void refresh();
    void show(const Tile &tile, double value, const QString &figure, const QString &detail) const;
    void showShare(const Tile &tile, qint64 part, qint64 whole, const QString &detail) const;
    void showNetwork();
    void showBacklight();
    QString missing() const;

    SystemData *const m_data;
    KELLabel *m_status = nullptr;
    Tile m_processor;
    Tile m_memory;
    Tile m_storage;
    Tile m_temperature;
    Tile m_network;
    Tile m_backlight;
    Tile m_wifi;
    Trend *m_trend = nullptr;
    KELLabel *m_sent = nullptr;
    KELPushButton *m_interface = nullptr;
    KELRange *m_range = nullptr;
};

#endif
