// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "labelpage.h"

#include "eventlog.h"
#include "iconset.h"
#include "parts.h"

#include <KELLabel>

namespace {

constexpr qreal minSampleWidthPx = 96;
constexpr qreal minSampleHeightPx = 64;
constexpr qreal paddingPx = 6;

KELLabel *addLabel(QGraphicsObject *parent, const QRectF &rect, const QString &text)
{
    auto *label = new KELLabel(parent);
    label->setboundRect(rect);
    label->style()->text = text;
    label->style()->font = Theme::font(Theme::bodyPx);
    return label;
}

// One that only shows something.
KELLabel *addMute(KELRoundRectControl *panel, const QRectF &rect, const QString &text)
{
    KELLabel *label = addLabel(panel, rect, text);
    label->setAcceptedMouseButtons(Qt::NoButton);
    return label;
}

void dress(KELLabel *label)
{
    KELRoundRectControlStyle *style = label->style();
    style->backgroundBrush = QColor(Theme::accentTint);
    style->borderBrush = QColor(Theme::accent);
    style->borderWidth = 2;
    style->xRadius = style->yRadius = Theme::radius;
    style->foregroundBrush = QColor(Theme::accentDark);
}

struct Sample
{
    const char *caption;
    bool isDark; // for white text
    void (*fill)(KELRoundRectControl *panel, const QRectF &rect, const IconSet &icons);
};

const Sample samples[] = {
    {"Two states", true,
     [](KELRoundRectControl *panel, const QRectF &rect, const IconSet &) {
         const QVector<QRectF> rows = Parts::grid(rect, 1, 2, 0);
         addMute(panel, rows.at(0), QStringLiteral("Enabled"));
         addMute(panel, rows.at(1), QStringLiteral("Disabled"))->setEnabled(false);
     }},
    {"Alignment", true,
     [](KELRoundRectControl *panel, const QRectF &rect, const IconSet &) {
         addMute(panel, rect, QStringLiteral("Left"))->style()->textFlags = Qt::AlignLeft
             | Qt::AlignTop;
         addMute(panel, rect, QStringLiteral("Centre"));
         addMute(panel, rect, QStringLiteral("Right"))->style()->textFlags = Qt::AlignRight
             | Qt::AlignBottom;
     }},
    {"Elided", true,
     [](KELRoundRectControl *panel, const QRectF &rect, const IconSet &) {
         addMute(
             panel, rect,
             QStringLiteral("A caption that is far too long\nand a second line like the first"));
     }},
    {"Wrapped", true,
     [](KELRoundRectControl *panel, const QRectF &rect, const IconSet &) {
         addMute(panel, rect, QStringLiteral("A caption that is far too long for one line"))
             ->style()
             ->trimText
             = false;
     }},
    {"Fill, outline", false,
     [](KELRoundRectControl *panel, const QRectF &rect, const IconSet &) {
         dress(addMute(panel, rect, QStringLiteral("Label")));
     }},
    {"Pixmap", false,
     [](KELRoundRectControl *panel, const QRectF &rect, const IconSet &) {
         addMute(panel, rect, QString())->style()->pixmap = Parts::landscape(rect.size().toSize());
     }},
    {"Glyph", false,
     [](KELRoundRectControl *panel, const QRectF &rect, const IconSet &icons) {
         KELLabel *label = addMute(panel, rect, QString());
         label->style()->icon = icons.glyph(Icon::star);
         label->style()->iconSize = 36;
         label->style()->foregroundBrush = QColor(Theme::warm);
     }},
    {"Margins 20, 10", false,
     [](KELRoundRectControl *panel, const QRectF &rect, const IconSet &) {
         KELLabel *label = addMute(panel, rect, QStringLiteral("Label"));
         dress(label);
         label->style()->margins = QMarginsF(20, 10, 0, 0);
         label->style()->textFlags = Qt::AlignLeft | Qt::AlignTop;
     }},
};

} // namespace

LabelPage::LabelPage(const PageHost &pageHost, const QRectF &area) :
    Page(pageHost, area, QStringLiteral("Label"),
         QStringLiteral("White text by default; the row below is live"))
{
    const QRectF room = body();
    addSamples(room.adjusted(0, 0, 0, -Theme::touch - Theme::pageMargin));
    addLiveLabels({room.x(), room.bottom() - Theme::touch, room.width(), Theme::touch});
}

void LabelPage::addSamples(const QRectF &area)
{
    // Neither number of columns leaves a cell empty.
    const bool isWide = !isUpright()
        && Parts::fitting(area.width(), minSampleWidthPx, 4, Theme::pageMargin) == 4;
    const int columns = isWide ? 4 : 2;
    const int rows = Parts::fitting(area.height(), minSampleHeightPx,
                                    int(std::size(samples)) / columns, Theme::pageMargin);
    const QVector<QRectF> cells = Parts::grid(area, columns, rows, Theme::pageMargin);
    for (int i = 0; i < cells.size(); ++i) {
        const QRectF rect = cells.at(i).adjusted(0, 0, 0, -Theme::notePx);
        KELRoundRectControl *panel = samples[i].isDark ? Parts::addDarkPanel(this, rect)
                                                       : Parts::addPanel(this, rect);
        samples[i].fill(panel, panel->rect().adjusted(paddingPx, paddingPx, -paddingPx, -paddingPx),
                        *host.icons);
        Parts::addNote(this, {rect.x(), rect.bottom(), rect.width(), Theme::notePx},
                       QLatin1String(samples[i].caption));
    }
}

void LabelPage::addLiveLabels(const QRectF &area)
{
    const QVector<QRectF> cells = Parts::grid(area, 3, 1, Theme::pageMargin);
    // It ignores the press, so it gets no release.
    KELLabel *plain = addLabel(this, cells.at(0), QStringLiteral("Plain label"));
    plain->setObjectName(QStringLiteral("plain-label"));
    plain->style()->backgroundBrush = QColor(Theme::bar);
    plain->style()->xRadius = plain->style()->yRadius = Theme::radius;
    host.log->watch(plain, plain->text());

    KELLabel *selectable = addLabel(this, cells.at(1), QStringLiteral("Selectable"));
    selectable->setObjectName(QStringLiteral("selectable-label"));
    selectable->setFlag(ItemIsSelectable);
    selectable->setAcceptHoverEvents(true);
    selectable->setAcceptTouchEvents(true);
    selectable->setAcceptedMouseButtons(Qt::LeftButton);
    dress(selectable);
    host.log->watch(selectable, selectable->text());

    KELPushButton *button = Parts::addButton(this, cells.at(2), QString());
    button->setObjectName(QStringLiteral("button-below"));
    KELLabel *caption = addLabel(this, cells.at(2), QStringLiteral("On a button"));
    caption->setAcceptedMouseButtons(Qt::NoButton);
    caption->style()->foregroundBrush = QColor(Theme::ink);
    host.log->watch(button, QStringLiteral("Button below"));
}
