// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "thermostat.h"

#include "dial.h"
#include "room.h"
#include "screenkit.h"
#include "trend.h"

#include <KELIconFont>
#include <KELLabel>
#include <KELLayout>
#include <KELPushButton>
#include <KELRow>
#include <KELTheme>
#include <KELValues>
#include <QtCore/QCoreApplication>
#include <QtCore/QTime>
#include <QtWidgets/QGraphicsLinearLayout>

#include <algorithm>

namespace {

constexpr double step = 0.5;
constexpr qreal linePx = 24;
constexpr qreal tallestPx = 440;
constexpr qreal stepWidthPx = 80;
constexpr qreal stepPx = 64;
constexpr qreal modePx = 58;
constexpr qreal iconPx = 20;
constexpr int holidays[] = {0, 3, 7, 14}; // days

// Font Awesome 4; the captions say the same.
constexpr ushort modeIcons[] = {0xf011, 0xf06d, 0xf2dc, 0xf021};

QString degrees(double celsius)
{
    return QString::number(celsius, 'f', 1);
}

// Another page: how long nobody is at home.
class HolidayPage : public FinishedScreen
{
    Q_DECLARE_TR_FUNCTIONS(Thermostat)

public:
    HolidayPage(KELTheme *theme, Room *room) : FinishedScreen(theme), m_room(room) { }

    static QString textOf(int days) { return days == 0 ? tr("Not set") : tr("%1 days").arg(days); }

protected:
    void build(QGraphicsWidget *content) override
    {
        QGraphicsLinearLayout *column = Kit::newColumn(content);
        Kit::addTitleLine(column, *theme(), tr("Holiday"), QString());
        auto *card = new QGraphicsLinearLayout(Qt::Vertical);
        card->setSpacing(0);
        QList<KELRow *> rows;
        for (const int days : holidays) {
            auto *row = new KELRow;
            row->setCaption(textOf(days));
            row->setEnd(KELRow::Radio);
            row->setChecked(days == m_room->holidayDays());
            connect(row, &KELRow::clicked, m_room,
                    [room = m_room, days] { room->setHolidayDays(days); });
            rows.append(row);
            card->addItem(row);
        }
        KELRow::formCard(rows);
        column->addItem(card);
        column->addStretch();
    }

private:
    Room *const m_room;
};

} // namespace

Thermostat::Thermostat(KELTheme *theme, Room *room) : FinishedScreen(theme), m_room(room)
{
    connect(room, &Room::changed, this, &Thermostat::refresh);
    runInSight(room);
}

void Thermostat::build(QGraphicsWidget *content)
{
    const bool isSmall = Kit::isSmall(content->size());
    const bool isUpright = Kit::isUpright(content->size());
    m_schedule = m_boost = m_holiday = nullptr;
    m_trend = nullptr;
    QGraphicsLinearLayout *column = Kit::newColumn(content);
    m_clock = Kit::addTitleLine(column, *theme(), tr("Living room"), QString());
    auto *halves = new QGraphicsLinearLayout(isUpright ? Qt::Vertical : Qt::Horizontal);
    halves->setSpacing(isSmall ? 8 : Kit::gapPx);
    column->addItem(halves);
    m_dial = newDial(isSmall);
    halves->addItem(m_dial);
    auto *cards = new QGraphicsLinearLayout(Qt::Vertical);
    cards->setSpacing(Kit::cardGapPx(content->size()));
    cards->setMaximumWidth(560);
    cards->addItem(newModes(isSmall));
    if (isSmall)
        cards->addItem(newSteps());
    cards->addItem(newRows(isSmall));
    if (!isSmall)
        cards->addItem(newHistory());
    else
        cards->addStretch();
    halves->addItem(cards);
    if (!isUpright) {
        halves->setStretchFactor(m_dial, 6);
        halves->setStretchFactor(cards, 5);
        halves->setMaximumHeight(tallestPx);
        column->addStretch();
    }
    refresh();
}

// The big figure is in the middle of the ring, and the steps are in its gap.
Dial *Thermostat::newDial(bool isSmall)
{
    auto *dial = new Dial(Room::leastCelsius, Room::mostCelsius);
    dial->setObjectName(QStringLiteral("dial"));
    KELValues::edit(m_room, "target", dial, "value");
    auto *column = new QGraphicsLinearLayout(Qt::Vertical, dial);
    column->setSpacing(0);
    column->addStretch(isSmall ? 1 : 3);
    m_activity = Kit::newLabel(QString(), Kit::font(Kit::bodyPx), Qt::AlignCenter);
    Kit::addLine(column, m_activity, linePx);
    const int figurePx = Kit::figurePxFor(QGraphicsWidget::size());
    auto *figure = new QGraphicsLinearLayout(Qt::Horizontal);
    figure->setSpacing(0);
    m_celsius = Kit::newLabel(QString(), Kit::font(figurePx, QFont::Light), Qt::AlignCenter);
    Kit::addLine(figure, m_celsius, figurePx + 4);
    column->addItem(figure);
    m_humidity = Kit::newMutedLabel(*theme(), QString(), Qt::AlignCenter);
    m_humidity->style()->font = Kit::font(Kit::bodyPx);
    Kit::addLine(column, m_humidity, linePx);
    column->addStretch(isSmall ? 1 : 2);
    if (!isSmall)
        column->addItem(newSteps());
    return dial;
}

QGraphicsLinearLayout *Thermostat::newSteps()
{
    auto *line = new QGraphicsLinearLayout(Qt::Horizontal);
    line->setSpacing(linePx);
    line->addStretch();
    KELLayout::add(line, newStep(QStringLiteral("\u2212"), QStringLiteral("colder"), -step));
    KELLayout::add(line, newStep(QStringLiteral("+"), QStringLiteral("warmer"), step));
    line->addStretch();
    return line;
}

KELPushButton *Thermostat::newStep(const QString &text, const QString &name, double difference)
{
    auto *button = new KELPushButton;
    button->setObjectName(name);
    button->setText(text);
    button->style()->font = Kit::font(Kit::smallFigurePx);
    QGraphicsLayoutItem *item = KELLayout::item(button);
    const qreal widthPx = Kit::isUpright(QGraphicsWidget::size()) ? stepPx : stepWidthPx;
    item->setMinimumSize(widthPx, stepPx);
    item->setMaximumSize(widthPx, stepPx);
    connect(button, &KELPushButton::mouseClicked, m_room,
            [room = m_room, difference] { room->setTarget(room->target() + difference); });
    return button;
}

QGraphicsLayoutItem *Thermostat::newModes(bool isSmall)
{
    const QString names[] = {tr("Off"), tr("Heat"), tr("Cool"), tr("Auto")};
    const Kit::Card card = Kit::newCard(isSmall ? 4 : 6);
    auto *line = new QGraphicsLinearLayout(Qt::Horizontal);
    line->setSpacing(isSmall ? 0 : 4);
    m_modes.clear();
    for (int mode = 0; mode < 4; ++mode) {
        auto *button = new KELPushButton;
        button->setObjectName(QStringLiteral("mode-%1").arg(mode));
        button->setText(names[mode]);
        auto *style = static_cast<KELPushButtonStyle *>(button->style());
        style->backgroundBrush = theme()->color(KELTheme::Surface);
        style->borderBrush = QBrush(Qt::NoBrush);
        style->borderWidth = 0;
        style->font = Kit::font(Kit::secondaryPx);
        if (!isSmall && !KELIconFont::fontFamily().isEmpty()) {
            style->icon = KELIconFont(modeIcons[mode]);
            style->iconSize = iconPx;
            style->iconMargins = QMarginsF(0, 8, 0, 3); // a pair in the middle, 6 px apart
            style->margins = QMarginsF(0, 3, 0, 8);
        }
        connect(button, &KELPushButton::mouseClicked, m_room,
                [room = m_room, mode] { room->setMode(Room::Mode(mode)); });
        Kit::addLine(line, button, isSmall ? 48 : modePx);
        m_modes.append(button);
    }
    card.layout->addItem(line);
    return KELLayout::item(card.control);
}

QGraphicsLayoutItem *Thermostat::newRows(bool isSmall)
{
    auto *card = new QGraphicsLinearLayout(Qt::Vertical);
    card->setSpacing(0);
    QList<KELRow *> rows;
    if (!isSmall) {
        m_schedule = newRow(tr("Schedule"), KELRow::Switch);
        KELValues::edit(m_room, "schedule", m_schedule, "checked");
        rows.append(m_schedule);
    }
    m_boost = newRow(tr("Boost"), KELRow::Switch);
    KELValues::edit(m_room, "boost", m_boost, "checked");
    rows.append(m_boost);
    if (!isSmall) {
        m_holiday = newRow(tr("Holiday"), KELRow::Arrow);
        connect(m_holiday, &KELRow::clicked, this, &Thermostat::chooseHoliday);
        rows.append(m_holiday);
    }
    KELRow::formCard(rows);
    for (KELRow *row : qAsConst(rows))
        card->addItem(row);
    return card;
}

KELRow *Thermostat::newRow(const QString &caption, int end)
{
    auto *row = new KELRow;
    row->setCaption(caption);
    row->setEnd(KELRow::End(end));
    return row;
}

QGraphicsLayoutItem *Thermostat::newHistory()
{
    const Kit::Card card = Kit::newCard();
    auto *heading = new QGraphicsLinearLayout(Qt::Horizontal);
    Kit::addLine(heading, Kit::newMutedLabel(*theme(), tr("Last 24 hours")), linePx);
    m_span = Kit::newMutedLabel(*theme(), QString(), Qt::AlignRight | Qt::AlignVCenter);
    Kit::addLine(heading, m_span, linePx);
    card.layout->addItem(heading);
    m_trend = new Trend(Room::historySize);
    card.layout->addItem(m_trend);
    return KELLayout::item(card.control);
}

void Thermostat::chooseHoliday()
{
    if (screen())
        screen()->push(new HolidayPage(const_cast<KELTheme *>(theme()), m_room));
}

void Thermostat::refresh()
{
    if (!m_dial)
        return;
    const Room::Activity activity = m_room->activity();
    const QColor fill = theme()->color(activity == Room::Heating ? KELTheme::Warning
                                                                 : KELTheme::Accent);
    m_dial->setFill(fill);
    if (m_activity->style()->foregroundBrush != QBrush(fill)) {
        m_activity->style()->foregroundBrush = fill;
        m_activity->update();
    }
    Kit::setText(m_clock, QTime::currentTime().toString(QStringLiteral("HH:mm")));
    Kit::setText(m_activity, activityText());
    Kit::setText(m_celsius, tr("%1\u00B0").arg(degrees(m_room->celsius())));
    Kit::setText(m_humidity, tr("Humidity %1 %").arg(m_room->humidity()));
    for (int mode = 0; mode < m_modes.size(); ++mode)
        m_modes.at(mode)->setCheck(mode == m_room->mode());
    m_boost->setDetail(m_room->isBoosted() ? tr("%1 minutes left").arg(m_room->boostMinutes())
                                           : tr("30 minutes at 24.0"));
    if (!m_trend)
        return;
    m_schedule->setDetail(tr("18.0 from 22:30"));
    m_holiday->setDetail(HolidayPage::textOf(m_room->holidayDays()));
    m_trend->setValues(m_room->history());
    const auto ends = std::minmax_element(m_room->history().cbegin(), m_room->history().cend());
    Kit::setText(m_span,
                 QStringLiteral("%1 \u2013 %2").arg(degrees(*ends.first), degrees(*ends.second)));
}

QString Thermostat::activityText() const
{
    switch (m_room->activity()) {
    case Room::Heating:
        return tr("Heating to %1").arg(degrees(m_room->goal()));
    case Room::Cooling:
        return tr("Cooling to %1").arg(degrees(m_room->goal()));
    case Room::Resting:
        break;
    }
    return m_room->mode() == Room::Off ? tr("Off") : tr("Holding %1").arg(degrees(m_room->goal()));
}
