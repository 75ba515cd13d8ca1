// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "radioboxpage.h"

#include "eventlog.h"
#include "parts.h"

#include <KELLabel>
#include <KELRadioBox>

namespace {

constexpr qreal boxPx = Theme::touch;
constexpr qreal cardHeightPx = 72;
constexpr qreal buttonsHeightPx = 2 * Theme::touch + Theme::gap;

const char *const captions[] = {"Slow", "Normal", "Fast", "Turbo"};
constexpr int boxCount = int(std::size(captions));

KELRadioBox *addBox(QGraphicsObject *parent, const QRectF &row, const QString &objectName)
{
    auto *box = new KELRadioBox(parent);
    box->setboundRect(row.x(), row.center().y() - boxPx / 2, boxPx, boxPx);
    box->setObjectName(objectName);
    return box;
}

KELLabel *addCaption(QGraphicsObject *parent, const QRectF &row, const QString &text)
{
    auto *label = new KELLabel(parent);
    label->setboundRect(row.adjusted(boxPx + Theme::gap, 0, 0, 0));
    label->style()->text = text;
    label->style()->font = Theme::font(18);
    label->style()->textFlags = Qt::AlignLeft | Qt::AlignVCenter;
    return label;
}

// Not through the box's own style(), which would put the default look back at every call.
void dress(KELRadioBox *box)
{
    KELRoundRectControlStyle *style = box->KELRoundRectControl::style();
    style->backgroundBrush = QColor(Theme::card);
    style->borderBrush = QColor(Theme::accent);
    style->foregroundBrush = QColor(Theme::accent);
}

} // namespace

RadioBoxPage::RadioBoxPage(const PageHost &pageHost, const QRectF &area) :
    Page(pageHost, area, QStringLiteral("Radio box"),
         QStringLiteral("A group, a box on its own, and buttons that select by program")),
    m_group(new KELRadioBoxGroup(this))
{
    const QRectF room = body();
    const qreal controls = 2 * cardHeightPx + buttonsHeightPx + 2 * Theme::pageMargin;
    const QVector<QRectF> halves = Parts::grid(room, 2, 1, Theme::pageMargin);
    const QRectF left = isUpright() ? room.adjusted(0, 0, 0, -controls - Theme::pageMargin)
                                    : halves.at(0);
    const QRectF right = isUpright() ? room.adjusted(0, room.height() - controls, 0, 0)
                                     : halves.at(1);
    addGroup(Parts::addDarkPanel(this, left));

    const QRectF buttons = right.adjusted(0, right.height() - buttonsHeightPx, 0, 0);
    const QVector<QRectF> cards = Parts::grid(
        right.adjusted(0, 0, 0, -buttonsHeightPx - Theme::pageMargin), 1, 2, Theme::pageMargin);
    addIdCard(Parts::addPanel(this, cards.at(0)));
    addLoner(Parts::addPanel(this, cards.at(1)));
    addSelectButtons(buttons);
}

void RadioBoxPage::addGroup(KELRoundRectControl *panel)
{
    const QVector<QRectF> rows = Parts::grid(
        panel->rect().adjusted(Theme::gap, Theme::gap, -Theme::gap, -Theme::gap), 1, boxCount);
    QVector<KELRadioBox *> boxes;
    for (int id = 0; id < boxCount; ++id) {
        KELRadioBox *box = addBox(panel, rows.at(id), QStringLiteral("radio-%1").arg(id));
        KELLabel *caption = addCaption(panel, rows.at(id), QLatin1String(captions[id]));
        caption->setObjectName(QStringLiteral("caption-%1").arg(id));
        connect(caption, &KELLabel::mousePress, m_group, [this, id] { m_group->setId(id); });
        host.log->watch(box, QLatin1String(captions[id]));
        // Nothing for the log: this is where the page begins.
        box->blockSignals(true);
        m_group->addRadioBox(box, id);
        boxes.append(box);
    }
    m_group->setId(remembered(QStringLiteral("id")));
    for (KELRadioBox *box : qAsConst(boxes))
        box->blockSignals(false);
    host.log->watch(m_group, QStringLiteral("Group"));
    connect(m_group, &KELRadioBoxGroup::idChanged, this,
            [this] { remembered(QStringLiteral("id")) = m_group->id(); });
}

void RadioBoxPage::addIdCard(KELRoundRectControl *panel)
{
    auto *label = new KELLabel(panel);
    label->setboundRect(panel->rect());
    label->setObjectName(QStringLiteral("current-id"));
    label->setAcceptedMouseButtons(Qt::NoButton);
    label->style()->font = Theme::font(Theme::titlePx, true);
    label->style()->foregroundBrush = QColor(Theme::accentDark);
    const auto refresh = [this, label] {
        label->setText(QStringLiteral("Current id: %1").arg(m_group->id()));
    };
    connect(m_group, &KELRadioBoxGroup::idChanged, label, refresh);
    refresh();
}

void RadioBoxPage::addLoner(KELRoundRectControl *panel)
{
    const QRectF row = panel->rect().adjusted(Theme::gap, 0, -Theme::gap, 0);
    KELRadioBox *box = addBox(panel, row, QStringLiteral("radio-alone"));
    dress(box);
    box->setCheck(remembered(QStringLiteral("alone"), 1) != 0);
    KELLabel *caption = addCaption(panel, row, QStringLiteral("In no group"));
    caption->style()->foregroundBrush = QColor(Theme::ink);
    connect(caption, &KELLabel::mousePress, box, [box] { box->setCheck(!box->isCheck()); });
    host.log->watch(box, caption->text());
    connect(box, &KELRadioBox::checkChanged, this,
            [this, box] { remembered(QStringLiteral("alone")) = box->isCheck(); });
}

void RadioBoxPage::addSelectButtons(const QRectF &area)
{
    const QVector<QRectF> cells = Parts::grid(area, 2, boxCount / 2);
    for (int id = 0; id < boxCount; ++id) {
        KELPushButton *button = Parts::addButton(this, cells.at(id),
                                                 QStringLiteral("Select %1").arg(id));
        button->setObjectName(QStringLiteral("select-%1").arg(id));
        host.log->watch(button, button->text());
        connect(button, &KELPushButton::mouseClicked, m_group, [this, id] { m_group->setId(id); });
    }
}
