// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "pushbuttonpage.h"

#include "eventlog.h"
#include "iconset.h"
#include "parts.h"

#include <QtGui/QPainter>

namespace {

constexpr qreal headingHeightPx = 36;
constexpr qreal headingGapPx = 4;
constexpr qreal maxCellHeightPx = 72;
constexpr qreal liveHeightPx = 56;
constexpr qreal stackedHeightPx = 144; // enough for two rows of live buttons

enum Layout { PixmapAndCaption, PixmapAlone, GlyphAndCaption, GlyphAlone, CaptionAlone, Rectangle };
enum State { Normal, Pressed, Checked, Disabled };

const char *const layoutNames[] = {"Pixmap,\ncaption", "Pixmap\nalone",  "Glyph,\ncaption",
                                   "Glyph\nalone",     "Caption\nalone", "Rectangle\nalone"};
const char *const stateNames[] = {"Normal", "Pressed", "Checked", "Disabled"};
constexpr int layoutCount = int(std::size(layoutNames));
constexpr int stateCount = int(std::size(stateNames));

// A foreground brush makes room for a caption: these looks leave it alone.
void dressWithoutCaption(KELPushButton *button)
{
    button->style()->foregroundBrush = QBrush(Qt::NoBrush);
    button->setIsMouseDownTemplate([](KELPushButtonStyle &look) {
        look.backgroundBrush = look.borderBrush = QColor(Theme::accentDark);
    });
    button->setIsCheckedTemplate([](KELPushButtonStyle &look) {
        look.backgroundBrush = QColor(Theme::accentTint);
        look.borderBrush = QColor(Theme::accent);
        look.borderWidth = 2;
    });
    button->setIsDisableTemplate([](KELPushButtonStyle &look) {
        look.backgroundBrush = look.borderBrush = QColor(Theme::disabled);
    });
}

// A picture that leaves the rim of the button free: the outline shows its state.
QPixmap framedLandscape(const QSize &size)
{
    constexpr int rimPx = 6;
    QPixmap pixmap(size);
    if (pixmap.isNull())
        return pixmap;
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.drawPixmap(rimPx, rimPx, Parts::landscape(size - QSize(2 * rimPx, 2 * rimPx)));
    return pixmap;
}

} // namespace

PushButtonPage::PushButtonPage(const PageHost &pageHost, const QRectF &area) :
    Page(pageHost, area, QStringLiteral("Push button"),
         QStringLiteral("Six layouts in four states; the buttons below are live"))
{
    const QRectF room = body();
    const qreal tallest = headingHeightPx + headingGapPx
        + stateCount * (maxCellHeightPx + Theme::gap) - Theme::gap;
    const qreal table = qMin(tallest, room.height() - liveHeightPx - Theme::pageMargin);
    addTable({room.x(), room.y(), room.width(), table});
    addLiveButtons(room.adjusted(0, table + Theme::pageMargin, 0, 0));
}

void PushButtonPage::addTable(const QRectF &area)
{
    const qreal headingWidth = area.width() > 560 ? 80 : 64;
    const QVector<QRectF> headings = Parts::grid(
        {area.x() + headingWidth, area.y(), area.width() - headingWidth, headingHeightPx},
        layoutCount, 1);
    for (int layout = 0; layout < layoutCount; ++layout) {
        Parts::addLabel(this, headings.at(layout).adjusted(-4, 0, 4, 0),
                        QLatin1String(layoutNames[layout]), Theme::font(Theme::smallPx),
                        Theme::muted, Qt::AlignCenter);
    }
    const QRectF cellArea = area.adjusted(headingWidth, headingHeightPx + headingGapPx, 0, 0);
    const QVector<QRectF> cells = Parts::grid(cellArea, layoutCount, stateCount);
    for (int state = 0; state < stateCount; ++state) {
        const QRectF &first = cells.at(state * layoutCount);
        Parts::addLabel(this, {area.x(), first.y(), headingWidth, first.height()},
                        QLatin1String(stateNames[state]), Theme::font(Theme::smallPx),
                        Theme::muted);
        for (int layout = 0; layout < layoutCount; ++layout)
            addSample(cells.at(state * layoutCount + layout), layout, state);
    }
}

void PushButtonPage::addSample(const QRectF &rect, int layout, int state)
{
    const bool hasCaption = layout == PixmapAndCaption || layout == GlyphAndCaption
        || layout == CaptionAlone;
    KELPushButton *button = Parts::addButton(this, rect,
                                             hasCaption ? QStringLiteral("Caption") : QString());
    button->setAcceptedMouseButtons(Qt::NoButton);
    button->setAcceptHoverEvents(false);
    auto *style = static_cast<KELPushButtonStyle *>(button->style());
    style->font = Theme::font(Theme::smallPx);
    style->iconMargins = QMarginsF(5, 4, 5, 1);
    style->margins = rect.height() < 56 ? QMarginsF(2, 1, 2, 1) : QMarginsF(2, 2, 2, 5);
    if (layout == PixmapAndCaption)
        style->pixmap = Parts::landscape(rect.size().toSize());
    if (layout == PixmapAlone)
        style->pixmap = framedLandscape(rect.size().toSize());
    if (layout == GlyphAndCaption || layout == GlyphAlone)
        style->icon = host.icons->glyph(Icon::home);
    if (layout == PixmapAlone || layout == Rectangle)
        dressWithoutCaption(button);

    style->isMouseDown = state == Pressed;
    style->isCheck = state == Checked;
    button->setEnabled(state != Disabled);
}

void PushButtonPage::addLiveButtons(const QRectF &area)
{
    QVector<QRectF> cells = Parts::grid(area, 3, 1, Theme::pageMargin);
    if (area.height() >= stackedHeightPx) {
        const QVector<QRectF> rows = Parts::grid(area, 1, 2, Theme::pageMargin);
        cells = rows.mid(0, 1) + Parts::grid(rows.at(1), 2, 1, Theme::pageMargin);
    }
    KELPushButton *press = Parts::addButton(this, cells.at(0), QStringLiteral("Press me"));
    press->setObjectName(QStringLiteral("press-me"));
    Parts::dressAsPrimary(press);
    host.log->watch(press, press->text());

    KELPushButton *check = Parts::addButton(this, cells.at(1), QStringLiteral("Check me"));
    check->setObjectName(QStringLiteral("check-me"));
    check->setCheck(remembered(QStringLiteral("checked")) != 0);
    connect(check, &KELPushButton::mouseClicked, this, [this, check] {
        check->setCheck(!check->isCheck());
        remembered(QStringLiteral("checked")) = check->isCheck();
        host.log->add(check->text(),
                      check->isCheck() ? QStringLiteral("checked") : QStringLiteral("unchecked"));
    });

    KELPushButton *toggle = Parts::addButton(this, cells.at(2), QStringLiteral("Disable"));
    toggle->setObjectName(QStringLiteral("disable"));
    connect(toggle, &KELPushButton::mouseClicked, press, [this, press, toggle] {
        press->setEnabled(!press->isEnabled());
        toggle->setText(press->isEnabled() ? QStringLiteral("Disable") : QStringLiteral("Enable"));
        host.log->add(press->text(),
                      press->isEnabled() ? QStringLiteral("enabled") : QStringLiteral("disabled"));
    });
}
