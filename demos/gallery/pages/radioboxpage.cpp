// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "radioboxpage.h"

#include "code/code.h"
#include "eventlog.h"

#include <KELLabel>
#include <KELLayout>
#include <KELPushButton>
#include <KELRadioBox>
#include <QtWidgets/QGraphicsLinearLayout>

namespace {

const char *const captions[] = {"Slow", "Normal", "Fast", "Turbo"};
constexpr int boxCount = int(std::size(captions));

} // namespace

RadioBoxPage::RadioBoxPage(const PageHost &pageHost, const QRectF &area) :
    CardPage(pageHost, area, QStringLiteral("Radio box"),
             QStringLiteral("A group has one choice; a box on its own goes on and off")),
    m_group(new KELRadioBoxGroup(this))
{
    addGroup();
    addSelectButtons();
    addLoner();
}

void RadioBoxPage::addGroup()
{
    QGraphicsLinearLayout *card = newCard(
        QStringLiteral("Choose one; the code of a group is shown"));
    card->setSpacing(0);
    QVector<KELRadioBox *> boxes;
    for (int id = 0; id < boxCount; ++id) {
        auto *box = new KELRadioBox;
        box->setObjectName(QStringLiteral("radio-%1").arg(id));
        // Watched before the group listens: the log shows the order in which all is told.
        host.log->watch(box, QLatin1String(captions[id]));
        box->blockSignals(true); // nothing for the log: this is where the page begins
        KELLabel *caption = addChoice(card, box, QLatin1String(captions[id]));
        caption->setObjectName(QStringLiteral("caption-%1").arg(id));
        connect(caption, &KELLabel::mousePress, m_group, [this, id] { m_group->setId(id); });
        boxes.append(box);
    }
    Code::makeExclusive(m_group, boxes);
    m_group->setId(remembered(QStringLiteral("id")));
    for (KELRadioBox *box : qAsConst(boxes))
        box->blockSignals(false);
    host.log->watch(m_group, QStringLiteral("Group"));
    connect(m_group, &KELRadioBoxGroup::idChanged, this,
            [this] { remembered(QStringLiteral("id")) = m_group->id(); });
}

void RadioBoxPage::addSelectButtons()
{
    QGraphicsLinearLayout *card = newCard(QStringLiteral("Chosen by the program"));
    auto *label = new KELLabel;
    label->setObjectName(QStringLiteral("current-id"));
    label->setAcceptedMouseButtons(Qt::NoButton);
    label->style()->font = Theme::font(Theme::titlePx);
    const auto refresh = [this, label] {
        label->setText(QStringLiteral("Current id: %1").arg(m_group->id()));
    };
    connect(m_group, &KELRadioBoxGroup::idChanged, label, refresh);
    refresh();
    KELLayout::add(card, label);
    QVector<Sample> buttons;
    for (int id = 0; id < boxCount; ++id) {
        auto *button = new KELPushButton;
        button->setText(QStringLiteral("Select %1").arg(id));
        button->setObjectName(QStringLiteral("select-%1").arg(id));
        host.log->watch(button, button->text());
        connect(button, &KELPushButton::mouseClicked, m_group, [this, id] { m_group->setId(id); });
        buttons.append({button, QString()});
    }
    addSamples(card, buttons, 104);
}

void RadioBoxPage::addLoner()
{
    QGraphicsLinearLayout *card = newCard(QStringLiteral("In no group: nothing else turns it off"));
    auto *box = new KELRadioBox;
    box->setObjectName(QStringLiteral("radio-alone"));
    box->setCheck(remembered(QStringLiteral("alone"), 1) != 0);
    const KELLabel *caption = addChoice(card, box, QStringLiteral("In no group"));
    connect(caption, &KELLabel::mousePress, box, [box] { box->setCheck(!box->isCheck()); });
    host.log->watch(box, QStringLiteral("In no group"));
    connect(box, &KELRadioBox::checkChanged, this,
            [this, box] { remembered(QStringLiteral("alone")) = box->isCheck(); });
    addText(card, QStringLiteral("A tap turns it off again: a check box is better."));
}
