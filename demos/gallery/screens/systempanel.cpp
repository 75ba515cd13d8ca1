// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "systempanel.h"

#include "screenkit.h"
#include "systemdata.h"
#include "trend.h"

#include <KELLabel>
#include <KELLayout>
#include <KELProcessBar>
#include <KELPushButton>
#include <KELRange>
#include <KELTheme>
#include <QtCore/QLocale>
#include <QtCore/QSignalBlocker>
#include <QtCore/QTime>
#include <QtWidgets/QGraphicsGridLayout>
#include <QtWidgets/QGraphicsLinearLayout>

#include <cmath>

namespace {

constexpr int shownLoads = 60;
constexpr int fullPercent = 85; // from here on storage is told in the colour of a warning
constexpr qreal barPx = 30;
constexpr qreal linePx = 20;
constexpr qreal notePx = 56;
constexpr qreal tallRowPx = 220;
constexpr qreal lowRowPx = 120;
constexpr qreal rateLinePx = 28;

QString percent(double value)
{
    return QStringLiteral("%1 %").arg(qRound(value));
}

QString sizeText(qint64 bytes)
{
    return QLocale().formattedDataSize(bytes, 1, QLocale::DataSizeSIFormat);
}

} // namespace

SystemPanel::SystemPanel(KELTheme *theme, SystemData *data) : FinishedScreen(theme), m_data(data)
{
    connect(data, &SystemData::changed, this, &SystemPanel::refresh);
    runInSight(data);
}

void SystemPanel::build(QGraphicsWidget *content)
{
    m_processor = m_memory = m_storage = m_temperature = m_network = m_backlight = m_wifi = Tile();
    m_trend = nullptr;
    m_range = nullptr;
    QGraphicsLinearLayout *column = Kit::newColumn(content);
    m_status = Kit::addTitleLine(column, *theme(), tr("System"), QString());
    auto *grid = new QGraphicsGridLayout;
    grid->setSpacing(Kit::cardGapPx(content->size()));
    column->addItem(grid);
    if (Kit::isSmall(content->size())) {
        grid->addItem(newProcessor(), 0, 0);
        grid->addItem(newShare(tr("Memory"), &m_memory), 0, 1);
        grid->addItem(newShare(tr("Storage"), &m_storage), 1, 0);
        grid->addItem(newTemperature(), 1, 1);
    } else if (Kit::isUpright(content->size())) {
        grid->addItem(newProcessor(), 0, 0, 1, 2);
        grid->addItem(newShare(tr("Memory"), &m_memory), 1, 0);
        grid->addItem(newShare(tr("Storage"), &m_storage), 1, 1);
        grid->addItem(newTemperature(), 2, 0);
        grid->addItem(newNetwork(), 2, 1);
        grid->addItem(newBacklight(), 3, 0);
        grid->addItem(newWifi(), 3, 1);
    } else {
        grid->addItem(newProcessor(), 0, 0, 1, 2);
        grid->addItem(newShare(tr("Memory"), &m_memory), 0, 2);
        grid->addItem(newShare(tr("Storage"), &m_storage), 0, 3);
        grid->addItem(newTemperature(), 1, 0, 2, 1);
        grid->addItem(newNetwork(), 1, 1, 2, 1);
        grid->addItem(newBacklight(), 1, 2, 1, 2);
        grid->addItem(newWifi(), 2, 2, 1, 2);
    }
    const qreal gap = grid->horizontalSpacing();
    const qreal room = content->size().width() - 2 * Kit::edgePx(content->size()) + gap;
    for (int i = 0; i < grid->columnCount(); ++i)
        grid->setColumnFixedWidth(i, std::floor(room / grid->columnCount() - gap));
    for (int i = 0; i < grid->rowCount(); ++i)
        grid->setRowMaximumHeight(i, i == 0 || grid->columnCount() < 4 ? tallRowPx : lowRowPx);
    column->addStretch();
    refresh();
}

QGraphicsLayoutItem *SystemPanel::newTile(const QString &heading, Tile *tile) const
{
    const Kit::Card card = Kit::newCard(Kit::isSmall(QGraphicsWidget::size()) ? 8 : Kit::gapPx);
    tile->layout = card.layout;
    tile->heading = new QGraphicsLinearLayout(Qt::Horizontal);
    Kit::addLine(tile->heading, Kit::newMutedLabel(*theme(), heading), linePx);
    tile->layout->addItem(tile->heading);
    QGraphicsLayoutItem *item = KELLayout::item(card.control);
    item->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Expanding);
    return item;
}

void SystemPanel::addFigure(Tile *tile, int lines) const
{
    const bool isSmall = Kit::isSmall(QGraphicsWidget::size());
    const int figurePx = isSmall ? Kit::smallFigurePx : Kit::figurePx;
    tile->figure = Kit::newLabel(QString(), Kit::font(figurePx, QFont::Light));
    Kit::addLine(tile->layout, tile->figure, figurePx + 8);
    addDetail(tile, isSmall ? 1 : lines);
}

void SystemPanel::addDetail(Tile *tile, int lines) const
{
    tile->detail = Kit::newMutedLabel(*theme(), QString());
    tile->detail->style()->trimText = false;
    tile->detail->style()->textFlags |= Qt::TextWordWrap;
    Kit::addLine(tile->layout, tile->detail, lines * linePx);
}

// Where there is room for one.
void SystemPanel::addBar(Tile *tile) const
{
    if (Kit::isSmall(QGraphicsWidget::size())) {
        tile->layout->addStretch();
        return;
    }
    tile->bar = new KELProcessBar;
    tile->bar->setAcceptedMouseButtons(Qt::NoButton);
    tile->bar->style()->foregroundBrush = QColor(Qt::transparent); // the figure says it
    tile->layout->addStretch();
    Kit::addLine(tile->layout, tile->bar, barPx);
}

QGraphicsLayoutItem *SystemPanel::newProcessor()
{
    QGraphicsLayoutItem *item = newTile(tr("Processor"), &m_processor);
    addFigure(&m_processor);
    if (!Kit::isSmall(QGraphicsWidget::size())) {
        m_trend = new Trend(shownLoads);
        m_trend->setRange(0, 100);
        m_trend->setGridShown(true);
        m_processor.layout->addItem(m_trend);
    } else {
        m_processor.layout->addStretch();
    }
    return item;
}

// Memory, or storage.
QGraphicsLayoutItem *SystemPanel::newShare(const QString &heading, Tile *tile)
{
    QGraphicsLayoutItem *item = newTile(heading, tile);
    addFigure(tile, 2);
    addBar(tile);
    return item;
}

QGraphicsLayoutItem *SystemPanel::newTemperature()
{
    QGraphicsLayoutItem *item = newTile(tr("Temperature"), &m_temperature);
    addFigure(&m_temperature, 2);
    m_temperature.layout->addStretch();
    return item;
}

QGraphicsLayoutItem *SystemPanel::newNetwork()
{
    QGraphicsLayoutItem *item = newTile(tr("Network"), &m_network);
    const QFont font = Kit::font(Kit::bodyPx);
    m_network.figure = Kit::newLabel(QString(), font);
    m_sent = Kit::newLabel(QString(), font);
    for (KELLabel *label : {m_network.figure, m_sent})
        Kit::addLine(m_network.layout, label, rateLinePx);
    addDetail(&m_network, 2);
    m_network.layout->addStretch();
    m_interface = new KELPushButton;
    m_interface->setObjectName(QStringLiteral("interface"));
    m_interface->style()->font = font;
    connect(m_interface, &KELPushButton::mouseClicked, m_data, [data = m_data] {
        const QStringList names = data->interfaces();
        if (!names.isEmpty())
            data->setCurrentInterface(
                names.at((names.indexOf(data->currentInterface()) + 1) % names.size()));
    });
    Kit::addLine(m_network.layout, m_interface, Kit::titleLinePx);
    return item;
}

QGraphicsLayoutItem *SystemPanel::newBacklight()
{
    QGraphicsLayoutItem *item = newTile(tr("Backlight"), &m_backlight);
    m_backlight.note = Kit::newMutedLabel(*theme(), QString(), Qt::AlignRight | Qt::AlignVCenter);
    Kit::addLine(m_backlight.heading, m_backlight.note, linePx);
    KELLayout::item(m_backlight.note)->setMaximumWidth(notePx);
    m_range = new KELRange;
    m_range->setObjectName(QStringLiteral("backlight"));
    m_range->setMinimum(1); // never dark
    connect(m_range, &KELRange::valueChanged, m_data, &SystemData::setBacklight);
    m_backlight.layout->addItem(m_range);
    addDetail(&m_backlight);
    return item;
}

QGraphicsLayoutItem *SystemPanel::newWifi()
{
    QGraphicsLayoutItem *item = newTile(tr("Wi-Fi"), &m_wifi);
    addDetail(&m_wifi);
    m_wifi.layout->addStretch();
    return item;
}

void SystemPanel::refresh()
{
    if (!m_status)
        return;
    const qint64 hours = m_data->uptimeSeconds() / 3600;
    Kit::setText(m_status,
                 tr("up %1 d %2 h").arg(hours / 24).arg(hours % 24) + QStringLiteral("   ")
                     + QTime::currentTime().toString(QStringLiteral("HH:mm")));
    const QString cores = tr("%1 cores").arg(m_data->cores());
    const double gigahertz = m_data->gigahertz();
    show(m_processor, m_data->load(), percent(m_data->load()),
         gigahertz > 0 ? tr("%1 of %2 GHz").arg(cores).arg(gigahertz, 0, 'f', 1) : cores);
    if (m_trend)
        m_trend->setValues(m_data->loads());
    showShare(m_memory, m_data->memoryUsed(), m_data->memoryTotal(),
              tr("%1 of %2").arg(sizeText(m_data->memoryUsed()), sizeText(m_data->memoryTotal())));
    const qint64 stored = m_data->storageTotal() - m_data->storageFree();
    const bool isFull = stored * 100 >= m_data->storageTotal() * fullPercent;
    showShare(
        m_storage, stored, m_data->storageTotal(),
        (isFull ? tr("nearly full, %1 free") : tr("%1 free")).arg(sizeText(m_data->storageFree())));
    const int limit = qRound(m_data->celsiusLimit());
    show(m_temperature, m_data->celsius(),
         QStringLiteral("%1\u00B0").arg(qRound(m_data->celsius())),
         limit > 0 ? tr("limit %1\u00B0").arg(limit) : QString());
    if (m_range) {
        showNetwork();
        showBacklight();
        Kit::setText(m_wifi.detail,
                     m_data->wifi() < 0 ? missing()
                                        : tr("quality %1").arg(percent(m_data->wifi())));
    }
}

// A value below 0 is one that the kernel does not tell.
void SystemPanel::show(const Tile &tile, double value, const QString &figure,
                       const QString &detail) const
{
    Kit::setText(tile.figure, value < 0 ? QStringLiteral("\u2013") : figure);
    Kit::setText(tile.detail, value < 0 ? missing() : detail);
}

void SystemPanel::showShare(const Tile &tile, qint64 part, qint64 whole,
                            const QString &detail) const
{
    const double share = whole > 0 ? 100.0 * double(part) / double(whole) : -1;
    show(tile, share, percent(share), detail);
    if (!tile.bar)
        return;
    if (share >= fullPercent)
        tile.bar->style()->borderBrush = theme()->color(KELTheme::Warning);
    if (tile.bar->value() != qRound(share))
        tile.bar->setValue(qMax(0, qRound(share)));
}

void SystemPanel::showNetwork()
{
    const auto rate = [](const char *arrow, double bytes) {
        return QString::fromUtf8(arrow) + tr("%1/s").arg(sizeText(qint64(bytes)));
    };
    show(m_network, m_data->received(), rate("\u2193 ", m_data->received()), QString());
    Kit::setText(m_sent, m_data->sent() < 0 ? QString() : rate("\u2191 ", m_data->sent()));
    Kit::setText(m_interface, m_data->currentInterface());
    m_interface->setEnabled(m_data->interfaces().size() > 1);
}

void SystemPanel::showBacklight()
{
    const double value = m_data->backlight();
    Kit::setText(m_backlight.note, value < 0 ? QString() : percent(value));
    Kit::setText(m_backlight.detail,
                 value < 0                       ? missing()
                     : m_data->canSetBacklight() ? QString()
                                                 : tr("only root may change it"));
    m_range->setEnabled(m_data->canSetBacklight());
    const QSignalBlocker blocker(m_range); // nothing is written back
    if (!m_range->isPressed())
        m_range->setValue(value);
}

QString SystemPanel::missing() const
{
    return tr("not offered by this kernel");
}
