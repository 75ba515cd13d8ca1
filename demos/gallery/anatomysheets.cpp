// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "stand.h"

#include <KELCheckBox>
#include <KELLabel>
#include <KELLineItem>
#include <KELProcessBar>
#include <KELPushButton>
#include <KELRadioBox>
#include <KELSlideControl>
#include <KELTextPixmap>
#include <QtGui/QPainter>

namespace Anatomy {

// In anatomycomposites.cpp.
std::vector<Specimen> comboBoxes();
std::vector<Specimen> navigationTables();
std::vector<Specimen> sideMenus();

namespace {

using Style = KELRoundRectControlStyle;

constexpr qreal widthPx = 150;
constexpr int gear = 0x2699;
const QColor fillColour(59, 110, 165);

void dress(Style *style)
{
    style->backgroundBrush = fillColour;
    style->foregroundBrush = QColor(Qt::white);
    style->borderBrush = QColor(Qt::white);
    style->borderWidth = 3;
    style->xRadius = 12;
    style->yRadius = 12;
}

Field radius(Style *style, const char *name, qreal Style::*member)
{
    return field(name, style, member, 0.0);
}

std::vector<Field> radii(Style *style)
{
    return {radius(style, "xRadius", &Style::xRadius), radius(style, "yRadius", &Style::yRadius)};
}

std::vector<Field> border(Style *style)
{
    return {brush("borderBrush", style, &Style::borderBrush),
            field("borderWidth", style, &Style::borderWidth, 9.0F)};
}

Field background(Style *style)
{
    return brush("backgroundBrush", style, &Style::backgroundBrush);
}

Field foreground(Style *style)
{
    return brush("foregroundBrush", style, &Style::foregroundBrush);
}

Field text(Style *style)
{
    return field("text", style, &Style::text, QStringLiteral("II"));
}

Field font(Style *style)
{
    return field("font", style, &Style::font, plainFont(6));
}

Field textFlags(Style *style)
{
    return field("textFlags", style, &Style::textFlags, int(Qt::AlignRight | Qt::AlignBottom));
}

Field margins(Style *style)
{
    return field("margins", style, &Style::margins, QMarginsF(40, 20, 2, 2));
}

Field icon(Style *style)
{
    return field("icon", style, &Style::icon, KELIconFont(0x266a));
}

Field iconSize(Style *style)
{
    return field("iconSize", style, &Style::iconSize, 8);
}

Field pixmapField(Style *style)
{
    QPixmap other(8, 8);
    other.fill(signalColour);
    return field("pixmap", style, &Style::pixmap, other);
}

Field iconMargins(KELPushButtonStyle *style)
{
    return field("iconMargins", style, &KELPushButtonStyle::iconMargins, QMarginsF(22, 20, 2, 2));
}

QPixmap picture()
{
    QPixmap pixmap(80, 80);
    pixmap.fill(QColor(244, 162, 60));
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(255, 236, 179));
    painter.drawEllipse(QRectF(18, 18, 44, 44));
    return pixmap;
}

QRectF inside(const QRectF &rect, const QMarginsF &margins)
{
    return rect.marginsRemoved(margins);
}

Specimen captionedRect()
{
    const Stand stand;
    const QRectF rect(8, 8, 134, 66);
    auto *const control = stand.add(new KELRoundRectControl, rect);
    Style *const style = control->style();
    dress(style);
    style->xRadius = style->yRadius = 16;
    style->text = QStringLiteral("Pump");
    style->textFlags = Qt::AlignLeft | Qt::AlignVCenter;
    style->margins = QMarginsF(24, 10, 12, 10);
    return stand.specimen(
        QStringLiteral("Rectangle and caption"), {widthPx, 82},
        {{Side::Left, {12.7, 12.7}, radii(style)},
         {Side::Left, {32.8, 41}, {margins(style)}},
         {Side::Left, {24, 66}, {background(style)}},
         {Side::Right, {112, 9.5}, border(style)},
         {Side::Right, {74, 43}, {text(style), font(style), foreground(style), textFlags(style)}},
         {Side::Right,
          {141, 60},
          {field("boundRect", style, &Style::boundRect, QRectF(8, 8, 100, 40))}}},
        {inside(rect, style->margins)});
}

Specimen picturedRects()
{
    const Stand stand;
    const QRectF left(8, 8, 62, 62);
    const QRectF right(80, 8, 62, 62);
    Style *const pictured = stand.add(new KELRoundRectControl, left)->style();
    Style *const iconed = stand.add(new KELRoundRectControl, right)->style();
    for (Style *style : {pictured, iconed}) {
        dress(style);
        style->margins = QMarginsF(12, 12, 12, 12);
    }
    pictured->pixmap = picture();
    iconed->icon = KELIconFont(gear);
    iconed->iconSize = 40;
    return stand.specimen(QStringLiteral("Picture, and glyph"), {widthPx, 78},
                          {{Side::Left, {39, 30}, {pixmapField(pictured)}},
                           {Side::Left, {20.5, 52}, {margins(pictured)}},
                           {Side::Right, {117, 29}, {icon(iconed), foreground(iconed)}},
                           {Side::Right, {121, 43}, {iconSize(iconed)}}},
                          {inside(left, pictured->margins), inside(right, iconed->margins)});
}

std::vector<Specimen> roundRects()
{
    return {captionedRect(), picturedRects()};
}

KELPushButtonStyle *styleOf(const KELPushButton *button)
{
    return static_cast<KELPushButtonStyle *>(button->style());
}

KELPushButtonStyle *addButton(const Stand &stand, const QRectF &rect, const QString &caption)
{
    auto *const style = styleOf(stand.add(new KELPushButton, rect));
    dress(style);
    style->text = caption;
    return style;
}

Specimen captionedButton()
{
    const Stand stand;
    const QRectF rect(8, 8, 134, 48);
    auto *const style = addButton(stand, rect, QStringLiteral("Start"));
    style->margins = QMarginsF(16, 6, 16, 6);
    return stand.specimen(
        QStringLiteral("Caption alone"), {widthPx, 64},
        {{Side::Left, {11.5, 11.5}, radii(style)},
         {Side::Left, {20, 48}, {background(style)}},
         {Side::Right, {112, 9.5}, border(style)},
         {Side::Right, {90.5, 30}, {text(style), font(style), foreground(style), margins(style)}}},
        {inside(rect, style->margins)});
}

// Where the strip of a caption begins below the picture.
QRectF pictureRect(const QRectF &rect, const KELPushButtonStyle &style)
{
    const qreal strip = QFontMetrics(style.font).height() + 2 * style.margins.top()
        + style.margins.bottom();
    return inside(rect.adjusted(0, 0, 0, -strip), style.iconMargins);
}

void centrePair(const QRectF &rect, KELPushButtonStyle *style)
{
    const qreal edge = pairEdge(rect.height(), *style);
    const qreal side = (rect.width() - style->iconSize) / 2;
    style->margins = QMarginsF(4, 0, 4, edge);
    style->iconMargins = QMarginsF(side, edge, side, pairGapPx);
}

Specimen picturedButton()
{
    const Stand stand;
    const QRectF rect(35, 8, 80, 88);
    auto *const style = addButton(stand, rect, QStringLiteral("Light"));
    style->pixmap = picture();
    style->iconSize = 44; // of the picture here
    centrePair(rect, style);
    const QRectF place = pictureRect(rect, *style);
    return stand.specimen(
        QStringLiteral("Picture above a caption"), {widthPx, 104},
        {{Side::Left, place.center(), {pixmapField(style)}},
         {Side::Left, {place.left(), place.bottom() - 4}, {iconMargins(style)}},
         {Side::Right, {94.5, 82}, {text(style), font(style), foreground(style), margins(style)}}},
        {place});
}

Specimen glyphButton()
{
    const Stand stand;
    const QRectF rect(35, 8, 80, 88);
    auto *const style = addButton(stand, rect, QStringLiteral("Setup"));
    style->icon = KELIconFont(gear);
    style->iconSize = 44;
    centrePair(rect, style);
    const QRectF place = pictureRect(rect, *style);
    return stand.specimen(
        QStringLiteral("Glyph above a caption"), {widthPx, 104},
        {{Side::Left,
          {place.center().x() - 9, place.center().y()},
          {icon(style), iconSize(style), iconMargins(style)}},
         {Side::Right, {place.center().x() + 9, place.center().y()}, {foreground(style)}},
         {Side::Right, {96, 82}, {text(style), font(style), margins(style)}}},
        {place});
}

Specimen glyphOnlyButton()
{
    const Stand stand;
    const QRectF rect(43, 8, 64, 64);
    auto *const style = addButton(stand, rect, QString());
    style->icon = KELIconFont(gear);
    style->iconSize = 40;
    style->iconMargins = QMarginsF(8, 8, 8, 8);
    const QPointF middle = rect.center();
    return stand.specimen(
        QStringLiteral("Glyph alone"), {widthPx, 80},
        {{Side::Left, {middle.x() - 9, middle.y()}, {icon(style), iconSize(style)}},
         {Side::Right, {middle.x() + 9, middle.y()}, {foreground(style), iconMargins(style)}}},
        {inside(rect, style->iconMargins)});
}

std::vector<Specimen> pushButtons()
{
    return {captionedButton(), picturedButton(), glyphButton(), glyphOnlyButton()};
}

std::vector<Specimen> labels()
{
    const Stand stand;
    const QRectF rect(8, 8, 134, 34);
    Style *const style = stand.add(new KELLabel, rect)->style();
    style->text = QStringLiteral("Boiler temperature");
    style->textFlags = Qt::AlignLeft | Qt::AlignVCenter | Qt::TextWordWrap;
    style->margins = QMarginsF(8, 4, 8, 4);
    return {stand.specimen(
        QString(), {widthPx, 50},
        {{Side::Left,
          {17.5, 25},
          {text(style), font(style), foreground(style), textFlags(style), margins(style)}},
         {Side::Right, {130, 14}, {background(style)}},
         {Side::Right, {127.5, 30}, {field("trimText", style, &Style::trimText, false)}}},
        {inside(rect, style->margins)})};
}

KELCheckBoxStyle *addBox(const Stand &stand, bool isOn)
{
    auto *const box = stand.add(new KELCheckBox, QRectF(30, 8, 90, 34));
    box->setCheck(isOn);
    return static_cast<KELCheckBoxStyle *>(box->style());
}

Field indicator(KELCheckBoxStyle *style)
{
    // A check box adds 70 to its components.
    return field("indicatorBrush", style, &KELCheckBoxStyle::indicatorBrush,
                 QBrush(QColor(185, 0, 120)));
}

Specimen boxOff()
{
    const Stand stand;
    auto *const style = addBox(stand, false);
    return stand.specimen(QStringLiteral("Off"), {widthPx, 50},
                          {{Side::Left, {46, 25}, {indicator(style)}},
                           {Side::Right, {90, 10}, border(style)},
                           {Side::Right, {95, 25}, {background(style)}},
                           {Side::Right, {110.6, 35.6}, radii(style)}});
}

Specimen boxOn()
{
    const Stand stand;
    auto *const style = addBox(stand, true);
    auto colour = indicator(style);
    return stand.specimen(QStringLiteral("On"), {widthPx, 50},
                          {{Side::Left, {56, 25}, {colour}}, {Side::Right, {102, 25}, {colour}}});
}

std::vector<Specimen> checkBoxes()
{
    return {boxOff(), boxOn()};
}

std::vector<Specimen> radioBoxes()
{
    const Stand stand;
    auto *const box = stand.add(new KELRadioBox, QRectF(55, 8, 40, 40));
    Style *const style = box->KELRoundRectControl::style();
    style->backgroundBrush = QColor(20, 28, 38);
    box->setCheck(true);
    return {stand.specimen(QString(), {widthPx, 56},
                           {{Side::Left, {64.6, 28}, {background(style)}},
                            {Side::Right, {83.8, 19.2}, border(style)},
                            {Side::Right, {78, 30}, {foreground(style)}}})};
}

std::vector<Specimen> progressBars()
{
    const Stand stand;
    auto *const bar = stand.add(new KELProcessBar, QRectF(8, 8, 134, 36));
    bar->setValue(42);
    Style *const style = bar->style();
    return {
        stand.specimen(QString(), {widthPx, 52},
                       {{Side::Left, {30, 26}, {brush("borderBrush", style, &Style::borderBrush)}},
                        {Side::Right, {122, 16}, {background(style)}},
                        {Side::Right, {88, 29}, {foreground(style)}},
                        {Side::Right, {137.6, 36.6}, radii(style)}})};
}

std::vector<Specimen> sliders()
{
    const Stand stand;
    auto *const slider = stand.add(new KELSlideControl, QRectF(8, 8, 134, 36));
    slider->setValue(40);
    Style *const style = slider->style();
    return {stand.specimen(
        QString(), {widthPx, 52},
        {{Side::Left, {60, 18}, {foreground(style)}},
         {Side::Left, {28, 26}, {foreground(style)}},
         {Side::Right, {75.2, 15.4}, {brush("borderBrush", style, &Style::borderBrush)}},
         {Side::Right, {122, 26}, {background(style)}}})};
}

std::vector<Specimen> lines()
{
    const Stand stand;
    auto *const line = stand.add(new KELLineItem, QRectF());
    line->setLine(QPointF(14, 17), QPointF(136, 17));
    line->setboundRect(8, 8, 134, 18);
    Style *const style = line->style();
    style->borderBrush = QColor(Qt::white);
    style->borderWidth = 3;
    return {stand.specimen(
        QString(), {widthPx, 34},
        {{Side::Left, {50, 17}, {brush("borderBrush", style, &Style::borderBrush)}},
         {Side::Right, {100, 15.5}, {field("borderWidth", style, &Style::borderWidth, 12.0F)}}})};
}

struct TextPicture
{
    QString text = QStringLiteral("42");
    QSize size = QSize(64, 48);
    QBrush textBrush = QColor(Qt::white);
    QBrush backgroundBrush = QColor(38, 120, 80);
    QFont font = plainFont(30);
};

std::vector<Specimen> textPixmaps()
{
    const auto made = std::make_shared<TextPicture>();
    TextPicture *const picture = made.get();
    Specimen specimen;
    specimen.size = QSizeF(widthPx, 64);
    specimen.draw = [made](QPainter *painter) {
        painter->drawPixmap(QPointF(43, 8),
                            KELTextPixmap(made->text, made->size, made->textBrush,
                                          made->backgroundBrush, made->font));
    };
    specimen.callOuts = {
        {Side::Left, {48, 14}, {brush("backgroundBrush", picture, &TextPicture::backgroundBrush)}},
        {Side::Left,
         {58.5, 36.5},
         {field("text", picture, &TextPicture::text, QString()),
          field("font", picture, &TextPicture::font, plainFont(6))}},
        {Side::Right, {85, 25}, {brush("textBrush", picture, &TextPicture::textBrush)}},
        {Side::Right, {106.5, 52}, {field("size", picture, &TextPicture::size, QSize(30, 20))}}};
    return {specimen};
}

} // namespace

const std::vector<Sheet> &anatomySheets()
{
    static const std::vector<Sheet> sheets = {
        {"round-rect", roundRects}, {"push-button", pushButtons},
        {"label", labels},          {"check-box", checkBoxes},
        {"radio-box", radioBoxes},  {"progress-bar", progressBars},
        {"slide-control", sliders}, {"combo-box", comboBoxes},
        {"line-item", lines},       {"navigation-table", navigationTables},
        {"side-menu", sideMenus},   {"text-pixmap", textPixmaps},
    };
    return sheets;
}

} // namespace Anatomy
