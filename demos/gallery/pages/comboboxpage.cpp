// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "comboboxpage.h"

#include "eventlog.h"
#include "parts.h"

#include <KELComboBox>
#include <KELContentView>
#include <QtCore/QMetaEnum>

namespace {

constexpr int manyEntries = 1000;
constexpr qreal boxPx = Theme::touch;
constexpr qreal panelPx = Theme::notePx + boxPx + 2 * Theme::gap;

const char *const notes[] = {"From an enum", "1,000 entries", "Disabled"};
const char *const buttonTexts[] = {"Next", "Select last", "Enable"};
const char *const buttonNames[] = {"select-next", "select-last", "toggle-enabled"};
constexpr int boxCount = int(std::size(notes));

QString shownBy(const KELComboBox *box)
{
    return box->selectedItem() ? box->selectedItem()->display() : QStringLiteral("nothing");
}

} // namespace

ComboBoxPage::ComboBoxPage(const PageHost &pageHost, const QRectF &area) :
    Page(pageHost, area, QStringLiteral("Combo box"),
         QStringLiteral("A tap opens the list below, another one picks an entry"))
{
    const QRectF room = body();
    const QRectF panel(room.x(), room.y(), room.width(), panelPx);
    KELRoundRectControl *card = Parts::addCard(this, panel);
    card->style()->backgroundBrush = QColor(Theme::bar);
    card->style()->borderBrush = QBrush(Qt::NoBrush);

    const QVector<QRectF> columns = Parts::grid(
        panel.adjusted(Theme::gap, Theme::gap / 2, -Theme::gap, -Theme::gap), boxCount, 1);
    const qreal buttonsTop = panel.bottom() + Theme::gap;
    for (int i = 0; i < boxCount; ++i) {
        const QRectF &column = columns.at(i);
        Parts::addNote(this, {column.x(), column.y(), column.width(), Theme::notePx},
                       QLatin1String(notes[i]), Theme::barText);
        m_slots.append({column.x(), column.bottom() - boxPx, column.width(), boxPx});
        KELPushButton *button = Parts::addButton(
            this, {column.x(), buttonsTop, column.width(), Theme::touch},
            QLatin1String(buttonTexts[i]));
        button->setObjectName(QLatin1String(buttonNames[i]));
        host.log->watch(button, button->text());
        m_buttons.append(button);
    }

    const qreal stateTop = buttonsTop + Theme::touch + Theme::gap;
    m_state = Parts::addCard(this, {room.x(), stateTop, room.width(), room.bottom() - stateTop});
    m_state->setObjectName(QStringLiteral("combo-state"));
    m_state->style()->margins = QMarginsF(Theme::gap, Theme::gap, Theme::gap, Theme::gap);
    m_state->style()->trimText = false;
}

ComboBoxPage::~ComboBoxPage()
{
    delete m_programmes;
    delete m_many;
    delete m_disabled;
}

void ComboBoxPage::attached()
{
    m_programmes = addBox(m_slots.at(0), QStringLiteral("combo-programme"));
    m_many = addBox(m_slots.at(1), QStringLiteral("combo-many"));
    m_disabled = addBox(m_slots.at(2), QStringLiteral("combo-disabled"));
    fill();
    rememberSelection(m_programmes, QStringLiteral("Programme"));
    rememberSelection(m_many, QStringLiteral("Entries"));
    rememberSelection(m_disabled, QStringLiteral("Disabled"));
    m_disabled->setEnabled(remembered(QStringLiteral("enabled")) != 0);
    connectButtons();
    refresh();
}

// Not on the page, which may be scaled: a combo box compares presses with places in the scene.
// There it also lies over everything, however far its list reaches.
KELComboBox *ComboBoxPage::addBox(const QRectF &rect, const QString &name)
{
    const QRect place = mapRectToScene(rect.translated(boundingRect().topLeft())).toRect();
    auto *box = new KELComboBox;
    box->setboundRect(place.x(), place.y(), place.width(), place.height());
    box->setObjectName(name);
    box->setParentItem(host.view->content());
    return box;
}

void ComboBoxPage::fill()
{
    m_programmes->bindEnum(QMetaEnum::fromType<Programme>());
    for (int i = 1; i <= manyEntries; ++i)
        m_many->addItem(i, QStringLiteral("Entry %1").arg(i));
    m_disabled->addItem(true, QStringLiteral("Locked"));
    m_disabled->addItem(false, QStringLiteral("Open"));
}

void ComboBoxPage::rememberSelection(KELComboBox *box, const QString &key)
{
    box->setSelectIndex(remembered(key));
    host.log->watch(box, key);
    connect(box, &KELComboBox::selectItemChanged, this, [this, box, key] {
        remembered(key) = box->selectIndex();
        refresh();
    });
}

void ComboBoxPage::connectButtons()
{
    connect(m_buttons.at(0), &KELPushButton::mouseClicked, m_programmes, [this] {
        m_programmes->setSelectIndex((m_programmes->selectIndex() + 1)
                                     % m_programmes->items().size());
    });
    connect(m_buttons.at(1), &KELPushButton::mouseClicked, m_many,
            [this] { m_many->setSelectIndex(manyEntries - 1); });
    connect(m_buttons.at(2), &KELPushButton::mouseClicked, m_disabled, [this] {
        m_disabled->setEnabled(!m_disabled->isEnabled());
        remembered(QStringLiteral("enabled")) = m_disabled->isEnabled();
        refresh();
    });
}

void ComboBoxPage::refresh()
{
    m_buttons.at(2)->setText(m_disabled->isEnabled() ? QStringLiteral("Disable")
                                                     : QStringLiteral("Enable"));
    m_state->setText(QStringLiteral("%1, %2, %3\n\nNothing keeps a list inside the window: that of "
                                    "1,000 entries ends 30,000 px below its box. The last one is "
                                    "out of reach for a finger.")
                         .arg(shownBy(m_programmes), shownBy(m_many), shownBy(m_disabled)));
}
