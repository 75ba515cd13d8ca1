// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "sidemenupage.h"

#include "eventlog.h"
#include "iconset.h"
#include "parts.h"
#include "window.h"

#include <KELContentView>

#include <KELContentView>

namespace {

struct Entry
{
    const char *text;
    ushort icon;
};

constexpr Entry entries[] = {
    {"Home", Icon::home}, {"Marked", Icon::star}, {"Alarms", Icon::bell}, {"Locks", Icon::lock}};
constexpr int entryCount = int(std::size(entries));

constexpr qreal leastEntryPx = 48;
constexpr float spacePx = 2;
constexpr qreal iconPx = 20;
constexpr qreal captionPx = 16;
constexpr qreal leastPairPx = 56;
constexpr float outlinePx = 1;
constexpr qreal columnPx = 112;
constexpr qreal columnLengthPx = 308;
constexpr qreal rowPx = 72;
constexpr qreal statePx = 96;
// What a menu puts between its entries, and around them, at most.
constexpr qreal betweenPx = 4 * spacePx;

} // namespace

SideMenuPage::SideMenuPage(const PageHost &pageHost, const QRectF &area) :
    Page(pageHost, area, QStringLiteral("Side menu"),
         QStringLiteral("Lines up controls in a column or a row, with lines between them"))
{
    const QRectF room = body();
    m_columnFrame = Parts::addDarkPanel(
        this, {room.x(), room.y(), columnPx, qMin(columnLengthPx, room.height())});
    const QRectF rest = room.adjusted(columnPx + Theme::pageMargin, 0, 0, 0);
    m_rowFrame = Parts::addDarkPanel(this, {rest.x(), rest.y(), rest.width(), rowPx});
    m_columnFrame->setObjectName(QStringLiteral("frame-column"));
    m_rowFrame->setObjectName(QStringLiteral("frame-row"));
    const qreal stateTop = rest.y() + rowPx + Theme::pageMargin;
    m_state = Parts::addCard(
        this, {rest.x(), stateTop, rest.width(), qMin(statePx, room.bottom() - stateTop)});
    m_state->setObjectName(QStringLiteral("menu-state"));
    m_state->style()->font = Theme::font(Theme::titlePx, true);
    m_state->style()->text = QStringLiteral("Nothing chosen yet");
}

SideMenuPage::~SideMenuPage()
{
    delete m_column;
    delete m_row;
}

void SideMenuPage::attached()
{
    m_column = makeMenu(m_columnFrame, KELSideMenu::Vertical, QStringLiteral("Column"));
    m_row = makeMenu(m_rowFrame, KELSideMenu::Horizontal, QStringLiteral("Row"));
}

// As large as its frame on the screen, at whatever scale the gallery is drawn.
KELSideMenu *SideMenuPage::makeMenu(const KELRoundRectControl *frame,
                                    KELSideMenu::OrientationMode orientation, const QString &name)
{
    const QRect place = host.view->mapFromScene(frame->sceneBoundingRect()).boundingRect();
    auto *menu = new KELSideMenu(host.view);
    menu->setObjectName(name);
    menu->setFrameShape(QFrame::NoFrame);
    menu->setOrientation(orientation);
    menu->setBorderWidth(outlinePx);
    menu->setSpace(spacePx);

    const bool isColumn = orientation == KELSideMenu::Vertical;
    const qreal length = isColumn ? place.height() : place.width();
    const int count = qBound(1, int(length / (leastEntryPx + betweenPx)), entryCount);
    const qreal along = qMax(1.0, qreal(int(length / count - betweenPx)));
    const qreal across = qMax(1.0, (isColumn ? place.width() : place.height()) - 2 * Theme::gap);
    for (int i = 0; i < count; ++i) {
        addEntry(menu, isColumn ? QSizeF(across, along) : QSizeF(along, across),
                 QLatin1String(entries[i].text), entries[i].icon);
    }
    menu->move(place.center() - menu->rect().center());
    menu->show();
    return menu;
}

void SideMenuPage::addEntry(KELSideMenu *menu, const QSizeF &size, const QString &text, ushort icon)
{
    auto *button = new KELPushButton;
    button->setboundRect(QRectF(QPointF(), size));
    Parts::dress(button);
    auto *style = static_cast<KELPushButtonStyle *>(button->style());
    style->backgroundBrush = QColor(Theme::bar);
    style->borderBrush = QBrush(Qt::NoBrush);
    style->foregroundBrush = QColor(Theme::barText);
    style->font = Theme::font(Theme::smallPx);
    // Glyph and caption are a pair in the middle, with 6 px between them, if both have room.
    const qreal around = (size.height() - iconPx - 6 - captionPx) / 2;
    style->iconSize = iconPx;
    if (size.height() >= leastPairPx) {
        style->icon = host.icons->glyph(icon);
        style->iconMargins = QMarginsF(0, around, 0, 3);
        style->margins = QMarginsF(0, 3, 0, around);
    }
    style->text = text;
    const QString name = menu->objectName();
    button->setObjectName((name + QLatin1Char('-') + text).toLower());
    host.log->watch(button, name + QLatin1Char(' ') + text);
    connect(button, &KELPushButton::mouseClicked, this,
            [this, name, text] { m_state->setText(name + QStringLiteral(": ") + text); });
    menu->addItem(button);
}
