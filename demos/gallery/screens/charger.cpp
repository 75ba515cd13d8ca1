// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "charger.h"

#include "chargepoint.h"
#include "screenkit.h"
#include "sessions.h"
#include "trend.h"

#include <KELLabel>
#include <KELLayout>
#include <KELProcessBar>
#include <KELPushButton>
#include <KELRange>
#include <KELRow>
#include <KELTheme>
#include <KELValues>
#include <QtCore/QDateTime>
#include <QtWidgets/QGraphicsLinearLayout>

namespace {

constexpr int askingMs = 3000;
constexpr qreal linePx = 24;
constexpr qreal barPx = 30;
constexpr qreal buttonPx = 56;
constexpr qreal settingsPx = 248;
constexpr qreal rangeMarginPx = 12; // with that of the range, as far in as the captions
constexpr qreal powerPx = 130;
constexpr qreal tallestPx = 440;

QString timeText(const QDateTime &time)
{
    return time.toString(QStringLiteral("HH:mm"));
}

} // namespace

Charger::Charger(KELTheme *theme, ChargePoint *point) : FinishedScreen(theme), m_point(point)
{
    connect(point, &ChargePoint::changed, this, &Charger::refresh);
    runInSight(point);
}

void Charger::build(QGraphicsWidget *content)
{
    const bool isSmall = Kit::isSmall(content->size());
    const bool isUpright = Kit::isUpright(content->size());
    m_energy = m_time = m_cost = m_limitNote = nullptr;
    m_stop = nullptr; // the last to be made: until then nothing is refreshed
    m_trend = nullptr;
    QGraphicsLinearLayout *column = Kit::newColumn(content);
    m_clock = Kit::addTitleLine(column, *theme(), tr("Charge point 3"), QString());
    auto *halves = new QGraphicsLinearLayout(isUpright ? Qt::Vertical : Qt::Horizontal);
    halves->setSpacing(Kit::cardGapPx(content->size()));
    column->addItem(halves);
    auto *left = new QGraphicsLinearLayout(Qt::Vertical);
    left->setSpacing(halves->spacing());
    left->addItem(newBattery(isSmall));
    if (!isSmall)
        left->addItem(newTiles());
    halves->addItem(left);
    auto *right = new QGraphicsLinearLayout(Qt::Vertical);
    right->setSpacing(halves->spacing());
    right->addItem(newSettings(isSmall));
    addButtons(right, isSmall);
    halves->addItem(right);
    if (!isUpright) {
        right->setMinimumWidth(isSmall ? 180 : settingsPx);
        right->setMaximumWidth(content->size().width() / 3);
        halves->setMaximumHeight(tallestPx);
        column->addStretch();
    }
    refresh();
}

QGraphicsLayoutItem *Charger::newBattery(bool isSmall)
{
    const Kit::Card card = Kit::newCard(isSmall ? 12 : 32);
    const int figurePx = Kit::figurePxFor(QGraphicsWidget::size());
    auto *head = new QGraphicsLinearLayout(Qt::Horizontal);
    m_percent = Kit::newLabel(QString(), Kit::font(figurePx, QFont::Light));
    m_percent->setObjectName(QStringLiteral("percent"));
    Kit::addLine(head, m_percent, figurePx + 8);
    if (!isSmall) {
        auto *power = new QGraphicsLinearLayout(Qt::Vertical);
        power->setMaximumWidth(powerPx);
        power->setPreferredWidth(powerPx);
        Kit::addLine(
            power, Kit::newMutedLabel(*theme(), tr("Power, kW"), Qt::AlignRight | Qt::AlignVCenter),
            linePx);
        m_trend = new Trend(ChargePoint::keptPowers);
        m_trend->setRange(0, 24);
        power->addItem(m_trend);
        head->addItem(power);
    }
    card.layout->addItem(head);
    card.layout->setSpacing(4);
    m_state = Kit::newLabel(QString(), Kit::font(Kit::bodyPx, QFont::Medium));
    Kit::addLine(card.layout, m_state, linePx);
    auto *bar = new KELProcessBar;
    bar->setAcceptedMouseButtons(Qt::NoButton);
    bar->style()->foregroundBrush = QColor(Qt::transparent); // the figure says it
    bar->style()->borderBrush = theme()->color(KELTheme::Good);
    KELValues::show(m_point, "percent", bar, "percent");
    Kit::addLine(card.layout, bar, barPx);
    if (!isSmall) {
        m_limitNote = Kit::newMutedLabel(*theme(), QString());
        Kit::addLine(card.layout, m_limitNote, linePx);
    }
    card.layout->addStretch();
    QGraphicsLayoutItem *item = KELLayout::item(card.control);
    item->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
    return item;
}

QGraphicsLayoutItem *Charger::newSettings(bool isSmall)
{
    const Kit::Card card = Kit::newCard(0);
    card.layout->setContentsMargins(0, isSmall ? 4 : Kit::gapPx, 0, 0);
    auto *heading = new QGraphicsLinearLayout(Qt::Horizontal);
    heading->setContentsMargins(Kit::gapPx, 0, Kit::gapPx, 0);
    Kit::addLine(heading, Kit::newLabel(tr("Limit"), Kit::font(Kit::bodyPx)), linePx);
    m_limit = Kit::newLabel(QString(), Kit::font(Kit::bodyPx, QFont::Bold),
                            Qt::AlignRight | Qt::AlignVCenter);
    Kit::addLine(heading, m_limit, linePx);
    card.layout->addItem(heading);
    auto *range = new KELRange;
    range->setObjectName(QStringLiteral("limit"));
    range->setRange(ChargePoint::leastLimit, ChargePoint::mostLimit);
    range->setStep(5);
    KELValues::edit(m_point, "limit", range, "value");
    range->partStyle()->knobBrush = theme()->color(KELTheme::Accent);
    auto *line = new QGraphicsLinearLayout(Qt::Horizontal);
    line->setContentsMargins(rangeMarginPx, 0, rangeMarginPx, 0);
    line->addItem(range);
    card.layout->addItem(line);
    const auto addSwitch = [this, &card](const QString &caption, const char *property) {
        auto *row = new KELRow;
        row->setObjectName(QLatin1String(property));
        row->setCaption(caption);
        row->setEnd(KELRow::Switch);
        row->setSeparator(false);
        row->partStyle()->backgroundBrush = QBrush(Qt::NoBrush); // that of the card
        KELValues::edit(m_point, property, row, "checked");
        card.layout->addItem(row);
    };
    if (!isSmall) {
        addSwitch(tr("Lock cable"), "locked");
        addSwitch(tr("Night only"), "nightOnly");
    }
    card.layout->addStretch();
    QGraphicsLayoutItem *item = KELLayout::item(card.control);
    item->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
    return item;
}

QGraphicsLinearLayout *Charger::newTiles()
{
    auto *tiles = new QGraphicsLinearLayout(Qt::Horizontal);
    tiles->setSpacing(Kit::gapPx);
    tiles->addItem(newTile(tr("Energy"), tr("kWh"), &m_energy));
    tiles->addItem(newTile(tr("Time"), tr("hours"), &m_time));
    tiles->addItem(newTile(tr("Cost"), tr("EUR"), &m_cost));
    return tiles;
}

QGraphicsLayoutItem *Charger::newTile(const QString &heading, const QString &unit,
                                      KELLabel **figure)
{
    const Kit::Card card = Kit::newCard(12);
    Kit::addLine(card.layout, Kit::newMutedLabel(*theme(), heading), linePx - 4);
    *figure = Kit::newLabel(QString(), Kit::font(Kit::smallFigurePx, QFont::Light));
    Kit::addLine(card.layout, *figure, Kit::smallFigurePx + 14);
    Kit::addLine(card.layout, Kit::newMutedLabel(*theme(), unit), linePx - 4);
    QGraphicsLayoutItem *item = KELLayout::item(card.control);
    item->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    return item;
}

void Charger::addButtons(QGraphicsLinearLayout *column, bool isSmall)
{
    if (!isSmall) {
        auto *details = new KELPushButton;
        details->setObjectName(QStringLiteral("details"));
        details->setText(tr("Details"));
        details->style()->font = Kit::font(Kit::buttonPx);
        connect(details, &KELPushButton::mouseClicked, this, &Charger::showSessions);
        Kit::addLine(column, details, buttonPx);
    }
    m_stop = new KELPushButton;
    m_stop->setObjectName(QStringLiteral("stop"));
    m_stop->style()->font = Kit::font(Kit::buttonPx);
    connect(m_stop, &KELPushButton::mouseClicked, this, &Charger::toggle);
    Kit::addLine(column, m_stop, buttonPx);
}

void Charger::showSessions()
{
    if (screen())
        screen()->push(new Sessions(const_cast<KELTheme *>(theme()), m_point));
}

// A second tap stops, if it comes soon.
void Charger::toggle()
{
    const ChargePoint::State state = m_point->state();
    const bool isOn = state == ChargePoint::Charging || state == ChargePoint::Waiting;
    if (isOn && !m_isAsking) {
        m_isAsking = true;
        m_asking.setRemainingTime(askingMs);
        refresh();
        return;
    }
    m_isAsking = false;
    m_point->setCharging(!isOn);
    refresh();
}

void Charger::refresh()
{
    if (!m_stop)
        return;
    const ChargePoint::State state = m_point->state();
    const bool isOn = state == ChargePoint::Charging || state == ChargePoint::Waiting;
    m_isAsking = m_isAsking && isOn && !m_asking.hasExpired();
    Kit::setText(m_clock,
                 tr("%1 per kWh").arg(ChargePoint::tariff(), 0, 'f', 2) + QStringLiteral("   ")
                     + timeText(m_point->now()));
    Kit::setText(m_percent, QStringLiteral("%1 %").arg(m_point->percent()));
    const QColor colour = theme()->color(state == ChargePoint::Stopped       ? KELTheme::Muted
                                             : state == ChargePoint::Waiting ? KELTheme::Warning
                                                                             : KELTheme::Good);
    if (m_state->style()->foregroundBrush != QBrush(colour)) {
        m_state->style()->foregroundBrush = colour;
        m_state->update();
    }
    Kit::setText(m_state, stateText());
    const QString limit = QStringLiteral("%1 %").arg(m_point->limit());
    Kit::setText(m_limit, limit);
    const QString stop = m_isAsking ? tr("Tap again to stop")
        : isOn                      ? tr("Stop charging")
                                    : tr("Start charging");
    if (m_stop->text() != stop) {
        m_stop->setText(stop);
        const KELTheme::Role ground = isOn ? KELTheme::Bad : KELTheme::Accent;
        m_stop->style()->backgroundBrush = theme()->color(ground);
        m_stop->style()->foregroundBrush = Kit::ownBrush(
            theme()->color(isOn ? KELTheme::OnBad : KELTheme::OnAccent));
    }
    m_stop->setEnabled(state != ChargePoint::Done);
    if (!m_trend)
        return;
    m_trend->setValues(m_point->powers());
    Kit::setText(m_limitNote, tr("Limit %1").arg(limit));
    Kit::setText(m_energy, QString::number(m_point->kilowattHours(), 'f', 1));
    Kit::setText(m_time,
                 QStringLiteral("%1:%2")
                     .arg(m_point->minutes() / 60)
                     .arg(m_point->minutes() % 60, 2, 10, QLatin1Char('0')));
    Kit::setText(m_cost, QString::number(m_point->cost(), 'f', 2));
}

QString Charger::stateText() const
{
    switch (m_point->state()) {
    case ChargePoint::Charging:
        return tr("Charging, ready at %1").arg(timeText(m_point->readyAt()));
    case ChargePoint::Waiting:
        return tr("Waiting for the night");
    case ChargePoint::Done:
        return tr("Done");
    case ChargePoint::Stopped:
        break;
    }
    return tr("Stopped");
}
