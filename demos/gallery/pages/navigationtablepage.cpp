// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "navigationtablepage.h"

#include "eventlog.h"
#include "iconset.h"
#include "parts.h"

#include <KELCheckBox>
#include <KELNavigationTable>
#include <KELSlideControl>

namespace {

constexpr qreal switchPx = 82;
constexpr qreal leastTablePx = 220;
constexpr float tabPx = 72;
constexpr float smallTabPx = 56;
constexpr qreal iconPx = 24;
constexpr qreal captionPx = 18;

QRectF rowOf(const KELRoundRectControl *panel, int row)
{
    const qreal top = Theme::gap + row * (Theme::touch + Theme::gap);
    return {Theme::gap, top, panel->rect().width() - 2 * Theme::gap, Theme::touch};
}

void addCaption(KELRoundRectControl *panel, const QRectF &rect, const QString &text)
{
    Parts::addLabel(panel, rect, text, Theme::font(Theme::bodyPx), Theme::ink);
}

} // namespace

NavigationTablePage::NavigationTablePage(const PageHost &pageHost, const QRectF &area) :
    Page(pageHost, area, QStringLiteral("Navigation table"),
         QStringLiteral("A press on a tab shows its page, below a title or without one"))
{
    // One alone, where two have no room.
    const bool isAlone = body().height() < leastTablePx;
    const QVector<QRectF> cells = isAlone ? QVector<QRectF>{body(), body()}
        : isUpright()                     ? Parts::grid(body(), 1, 2)
                                          : Parts::grid(body(), 2, 1);
    addTable(cells.at(0), QStringLiteral("Titled"), !isAlone);
    if (!isAlone)
        addTable(cells.at(1), QStringLiteral("Plain"), false);
}

KELNavigationTable *NavigationTablePage::addTable(const QRectF &rect, const QString &name,
                                                  bool showTitle)
{
    const QPointF corner = boundingRect().topLeft();
    auto *table = new KELNavigationTable(this);
    // Its tabs want a rectangle that begins at (0, 0).
    table->setboundRect({-corner, rect.size()});
    table->setPos(corner + rect.topLeft());
    table->setObjectName(QStringLiteral("table-") + name.toLower());
    auto *style = static_cast<KELNavigationTableStyle *>(table->style());
    const bool isSmall = rect.height() < leastTablePx;
    style->showTitle = showTitle;
    style->title = QStringLiteral("With a title");
    style->font = Theme::font(Theme::bodyPx);
    style->tabHeight = isSmall ? smallTabPx : tabPx;

    addLightPage(table);
    addSoundPage(table);
    addAlarmPage(table);
    table->setSelectIndex(remembered(name));
    reportSwitching(table, name);
    return table;
}

// The panel to put the controls of the page on.
KELRoundRectControl *NavigationTablePage::addTablePage(KELNavigationTable *table,
                                                       const QString &caption, ushort icon)
{
    auto *page = new KELNavigationTableItem;
    page->setText(caption);
    page->style()->icon = host.icons->glyph(icon);
    // Glyph and caption are a pair in the middle of the tab, with 6 px between them.
    const qreal tab = qreal(static_cast<KELNavigationTableStyle *>(table->style())->tabHeight);
    page->style()->iconSize = iconPx;
    const qreal around = (tab - iconPx - 6 - captionPx) / 2;
    page->style()->margins = QMarginsF(around, around, around, around);
    table->addItem(page);
    KELRoundRectControl *panel = Parts::addPanel(page, page->rect());
    panel->style()->backgroundBrush = panel->style()->borderBrush = QBrush(Qt::NoBrush);
    return panel;
}

void NavigationTablePage::addLightPage(KELNavigationTable *table)
{
    KELRoundRectControl *panel = addTablePage(table, QStringLiteral("Light"), Icon::bulb);
    const char *const lamps[] = {"Ceiling", "Desk"};
    for (int i = 0; i < int(std::size(lamps)); ++i) {
        const QString name = QLatin1String(lamps[i]);
        const QRectF row = rowOf(panel, i);
        addCaption(panel, row.adjusted(0, 0, -switchPx - Theme::gap, 0), name);
        auto *box = new KELCheckBox(panel);
        box->setboundRect(row.adjusted(row.width() - switchPx, 0, 0, 0));
        box->setObjectName(table->objectName() + QLatin1Char('-') + name.toLower());
        host.log->watch(box, name);
    }
}

void NavigationTablePage::addSoundPage(KELNavigationTable *table)
{
    KELRoundRectControl *panel = addTablePage(table, QStringLiteral("Sound"), Icon::speaker);
    addCaption(panel, rowOf(panel, 0), QStringLiteral("Volume"));
    const QRectF row = rowOf(panel, 1);
    auto *slider = new KELSlideControl(panel);
    slider->setboundRect(row.x(), row.y(), row.width(), row.height());
    slider->setObjectName(table->objectName() + QStringLiteral("-volume"));
    slider->setValue(30);
    host.log->watch(slider, QStringLiteral("Volume"));
}

void NavigationTablePage::addAlarmPage(KELNavigationTable *table)
{
    KELRoundRectControl *panel = addTablePage(table, QStringLiteral("Alarm"), Icon::bell);
    addCaption(panel, rowOf(panel, 0), QStringLiteral("Every day at 7:00"));
    auto *button = new KELPushButton(panel);
    button->setboundRect(rowOf(panel, 1));
    button->setText(QStringLiteral("Ring now"));
    button->setObjectName(table->objectName() + QStringLiteral("-ring"));
    host.log->watch(button, button->text());
}

// A table has no signal for it, its pages have: those of all graphics objects.
void NavigationTablePage::reportSwitching(KELNavigationTable *table, const QString &name)
{
    host.log->watch(table, name);
    const QList<QGraphicsItem *> children = table->childItems();
    for (QGraphicsItem *child : children) {
        auto *page = dynamic_cast<KELNavigationTableItem *>(child);
        connect(page, &QGraphicsObject::visibleChanged, this, [this, table, page, name] {
            if (!page->isVisible())
                return;
            remembered(name) = table->selectIndex();
            host.log->add(name, QStringLiteral("page ") + page->text());
        });
    }
}
