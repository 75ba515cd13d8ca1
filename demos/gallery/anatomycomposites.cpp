// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "stand.h"

#include <KELComboBox>
#include <KELLabel>
#include <KELNavigationTable>
#include <KELSideMenu>
#include <QtGui/QPainter>

#include <initializer_list>

namespace Anatomy {

std::vector<Specimen> comboBoxes();
std::vector<Specimen> navigationTables();
std::vector<Specimen> sideMenus();

namespace {

using Style = KELRoundRectControlStyle;

constexpr qreal widthPx = 150;
constexpr float tabHeightPx = 56;

template <class Control>
std::vector<Control *> childrenOf(const QGraphicsItem *parent)
{
    std::vector<Control *> found;
    const QList<QGraphicsItem *> children = parent->childItems();
    for (QGraphicsItem *child : children) {
        if (auto *const control = dynamic_cast<Control *>(child))
            found.push_back(control);
    }
    return found;
}

Field font(const char *name, Style *style)
{
    return field(name, style, &Style::font, plainFont(6));
}

std::vector<Specimen> openComboBox()
{
    const Stand stand;
    auto *const box = stand.add(new KELComboBox, QRectF(8, 8, 134, 34));
    for (const char *entry : {"Slow", "Fast"})
        box->addItem(0, QLatin1String(entry));
    box->setSelectIndex(1);
    KELPushButton *const button = childrenOf<KELPushButton>(box).front();
    Style *const list = childrenOf<KELLabel>(box).front()->style();
    Style *const text = childrenOf<KELLabel>(button).front()->style();
    Style *const arrow = childrenOf<KELLabel>(button).back()->style();
    Style *const entry = box->items().constFirst()->style();
    Style *const label = childrenOf<KELLabel>(box->items().constFirst()).front()->style();
    for (Style *style :
         {text, arrow, label, childrenOf<KELLabel>(box->items().at(1)).front()->style()})
        style->font = plainFont(Stand::fontSizePx);
    button->style()->borderWidth = 2;
    Q_EMIT button->mouseClicked();
    return {stand.specimen(
        QString(), {widthPx, 112},
        {{Side::Left,
          {8.7, 18},
          {brush("button: borderBrush", button->style(), &Style::borderBrush),
           field("button: borderWidth", button->style(), &Style::borderWidth, 9.0F)}},
         {Side::Left,
          {22, 34},
          {brush("button: backgroundBrush", button->style(), &Style::backgroundBrush)}},
         {Side::Left,
          {8.5, 62},
          {brush("list: borderBrush", list, &Style::borderBrush),
           field("list: borderWidth", list, &Style::borderWidth, 9.0F)}},
         {Side::Left, {30, 90}, {brush("list: backgroundBrush", list, &Style::backgroundBrush)}},
         {Side::Right,
          {76, 23},
          {brush("text: foregroundBrush", text, &Style::foregroundBrush),
           font("text: font", text)}},
         {Side::Right,
          {130, 25},
          {brush("arrow: foregroundBrush", arrow, &Style::foregroundBrush)}},
         {Side::Right,
          {130, 50},
          {brush("entry: backgroundBrush", entry, &Style::backgroundBrush)}},
         {Side::Right,
          {90, 58},
          {brush("label: foregroundBrush", label, &Style::foregroundBrush),
           font("label: font", label)}}})};
}

KELNavigationTableItem *newPage(const char *title, int glyph)
{
    auto *const page = new KELNavigationTableItem;
    page->setText(QLatin1String(title));
    page->style()->icon = KELIconFont(ushort(glyph));
    page->style()->iconSize = 24;
    page->style()->font = plainFont(12);
    const qreal edge = pairEdge(tabHeightPx, *page->style());
    page->style()->margins = QMarginsF(3, pairGapPx - edge, 3, edge);
    return page;
}

KELNavigationTableItemStyle *styleOf(const KELNavigationTableItem *page)
{
    return static_cast<KELNavigationTableItemStyle *>(page->style());
}

// Tabs are laid out when pages are added.
void addAgain(KELNavigationTable *table, std::initializer_list<KELNavigationTableItem *> pages)
{
    for (KELNavigationTableItem *page : pages)
        page->setParentItem(nullptr);
    for (KELNavigationTableItem *page : pages)
        table->addItem(page);
}

std::vector<CallOut> titleCallOuts(KELNavigationTableStyle *style)
{
    using TableStyle = KELNavigationTableStyle;
    return {
        {Side::Left,
         {55, 22},
         {field("title", style, &TableStyle::title, QStringLiteral("II")),
          brush("titleForegroundBrush", style, &TableStyle::titleForegroundBrush),
          font("font", style)}},
        {Side::Right,
         {120, 14},
         {brush("titleBackgroundBrush", style, &TableStyle::titleBackgroundBrush),
          field("showTitle", style, &TableStyle::showTitle, false)}},
        {Side::Right, {130, 36}, {field("titleHeight", style, &TableStyle::titleHeight, 12.0F)}},
        {Side::Left, {40, 60}, {brush("backgroundBrush", style, &Style::backgroundBrush)}}};
}

std::vector<CallOut> tabCallOuts(KELNavigationTableItem *shown, KELNavigationTableItem *other)
{
    KELNavigationTableItemStyle *const first = styleOf(shown);
    KELNavigationTableItemStyle *const second = styleOf(other);
    return {{Side::Left,
             {14, 90},
             {brush("buttonBackground", first, &KELNavigationTableItemStyle::buttonBackground)}},
            {Side::Left,
             {29, 124},
             {field("text", first, &Style::text, QString()),
              field("margins", first, &Style::margins, QMarginsF(20, 8, 2, 2))}},
            {Side::Right, {138, 90}, {brush("backgroundBrush", second, &Style::backgroundBrush)}},
            {Side::Right,
             {114.5, 96.5},
             {field("icon", second, &Style::icon, KELIconFont()),
              field("iconSize", second, &Style::iconSize, 6),
              brush("buttonForeground", second, &KELNavigationTableItemStyle::buttonForeground)}}};
}

std::vector<Specimen> tableWithTitle()
{
    const Stand stand;
    auto *const table = stand.add(new KELNavigationTable, QRectF(0, 0, 134, 124));
    table->setPos(8, 8);
    auto *const style = static_cast<KELNavigationTableStyle *>(table->style());
    style->font = plainFont(12);
    style->title = QStringLiteral("Heating");
    style->titleBackgroundBrush = QColor(20, 28, 38);
    style->backgroundBrush = QColor(59, 110, 165);
    style->showTitle = true;
    style->titleHeight = 28;
    style->tabHeight = tabHeightPx;
    auto *const first = newPage("Home", 0x2302);
    auto *const second = newPage("Setup", 0x2699);
    second->style()->backgroundBrush = QColor(70, 84, 102);
    table->addItem(first);
    table->addItem(second);

    std::vector<CallOut> callOuts = titleCallOuts(style);
    callOuts.push_back({Side::Right, {100, 82}, {{QStringLiteral("tabHeight"), [=] {
                                                      style->tabHeight = 20;
                                                      addAgain(table, {first, second});
                                                  }}}});
    for (CallOut &callOut : tabCallOuts(first, second))
        callOuts.push_back(std::move(callOut));
    return {stand.specimen(QString(), {widthPx, 140}, callOuts)};
}

std::unique_ptr<KELSideMenu> newMenu(float borderWidth, float space)
{
    auto menu = std::make_unique<KELSideMenu>();
    menu->setOrientation(KELSideMenu::Vertical);
    menu->setBorderWidth(borderWidth);
    menu->setSpace(space);
    for (const char *caption : {"Start", "Stop"}) {
        auto *const button = new KELPushButton;
        button->setboundRect(0, 0, 130, 40);
        button->setText(QLatin1String(caption));
        button->style()->font = plainFont(Stand::fontSizePx);
        button->style()->foregroundBrush = QColor(Qt::white);
        button->style()->borderBrush = QColor(120, 170, 220);
        button->style()->backgroundBrush = QColor(59, 110, 165);
        menu->addItem(button);
    }
    return menu;
}

std::vector<Specimen> columnMenu()
{
    const auto menu = std::make_shared<std::unique_ptr<KELSideMenu>>(newMenu(3, 3));
    Specimen specimen;
    specimen.size = QSizeF(widthPx, 103);
    specimen.draw = [menu](QPainter *painter) {
        painter->translate(10, 10);
        drawScene((*menu)->scene(), QSizeF(widthPx - 20, 83), painter);
    };
    specimen.callOuts = {
        {Side::Left,
         {12, 30},
         {{QStringLiteral("setBorderWidth()"), [menu] { *menu = newMenu(9, 3); }}}},
        {Side::Right, {120, 50}, {{QStringLiteral("setSpace()"), [menu] {
                                       *menu = newMenu(3, 9);
                                   }}}}};
    return {specimen};
}

} // namespace

std::vector<Specimen> comboBoxes()
{
    return openComboBox();
}

std::vector<Specimen> navigationTables()
{
    return tableWithTitle();
}

std::vector<Specimen> sideMenus()
{
    return columnMenu();
}

} // namespace Anatomy
