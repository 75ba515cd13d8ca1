// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "roundrectpage.h"

#include "eventlog.h"
#include "iconset.h"
#include "parts.h"

#include <KELContentView>
#include <QtGui/QLinearGradient>
#include <QtWidgets/QMenu>

namespace {

constexpr qreal captionPx = 20;
constexpr qreal minSampleWidthPx = 104;
constexpr qreal tileHeightPx = 64;

QLinearGradient gradientFor(const KELRoundRectControl *control)
{
    const QRectF rect = control->boundingRect();
    QLinearGradient gradient(rect.topLeft(), rect.bottomRight());
    gradient.setColorAt(0, QColor(0x57, 0x8f, 0xf7));
    gradient.setColorAt(1, QColor(0x9b, 0x51, 0xe0));
    return gradient;
}

void setRadii(KELRoundRectControlStyle *style, qreal xRadius, qreal yRadius)
{
    style->xRadius = xRadius;
    style->yRadius = yRadius;
}

void showPicture(KELRoundRectControl *control, qreal margin)
{
    control->style()->margins = QMarginsF(margin, margin, margin, margin);
    control->style()->pixmap = Parts::landscape(
        (control->rect().size() - QSizeF(2 * margin, 2 * margin)).toSize());
}

struct Sample
{
    const char *caption;
    void (*apply)(KELRoundRectControl *control, const IconSet &icons);
};

const Sample samples[] = {
    {"Square corners",
     [](KELRoundRectControl *control, const IconSet &) { setRadii(control->style(), 0, 0); }},
    {"Radius 20",
     [](KELRoundRectControl *control, const IconSet &) { setRadii(control->style(), 20, 20); }},
    {"Radii 48, 16",
     [](KELRoundRectControl *control, const IconSet &) { setRadii(control->style(), 48, 16); }},
    {"Outline 3 px",
     [](KELRoundRectControl *control, const IconSet &) {
         control->style()->borderBrush = QColor(Theme::accent);
         control->style()->borderWidth = 3;
     }},
    {"Outline 8 px",
     [](KELRoundRectControl *control, const IconSet &) {
         control->style()->borderBrush = QColor(Theme::warm);
         control->style()->borderWidth = 8;
         setRadii(control->style(), 16, 16);
     }},
    {"Gradient",
     [](KELRoundRectControl *control, const IconSet &) {
         control->style()->backgroundBrush = gradientFor(control);
         control->style()->borderBrush = QBrush(Qt::NoBrush);
     }},
    {"Pixmap",
     [](KELRoundRectControl *control, const IconSet &) {
         setRadii(control->style(), 0, 0);
         showPicture(control, 1);
     }},
    {"Margins 16", [](KELRoundRectControl *control, const IconSet &) { showPicture(control, 16); }},
    {"Glyph",
     [](KELRoundRectControl *control, const IconSet &icons) {
         control->style()->icon = icons.glyph(Icon::star);
         control->style()->iconSize = 36;
         control->style()->foregroundBrush = QColor(Theme::warm);
     }},
    {"Elided lines",
     [](KELRoundRectControl *control, const IconSet &) {
         control->style()->text = QStringLiteral(
             "Short line\nA line that is far too long for its box\n"
             "Another one that does not fit either");
         control->style()->font = Theme::font(Theme::smallPx);
         control->style()->textFlags = Qt::AlignLeft | Qt::AlignVCenter;
         control->style()->margins = QMarginsF(10, 4, 10, 4);
     }},
};

} // namespace

// A base control for the finger, with a pressed and a checked look.
class Tile : public KELRoundRectControl
{
    Q_OBJECT

public:
    Tile(EventLog *log, QGraphicsObject *parent) : KELRoundRectControl(parent), m_log(log)
    {
        // The base is not selectable and would get no release without that.
        setFlag(ItemIsSelectable);
        setAcceptHoverEvents(true);
        setAcceptTouchEvents(true);
        setAcceptedMouseButtons(Qt::LeftButton);
        style()->borderWidth = 1;
        setRadii(style(), Theme::radius, Theme::radius);
        style()->font = Theme::font(Theme::bodyPx);
    }

    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override
    {
        const bool isLit = isMouseDown() || isCheck();
        const QRgb fill = isMouseDown() ? Theme::accentDark : Theme::accent;
        style()->backgroundBrush = QColor(isLit ? fill : Theme::card);
        style()->borderBrush = QColor(isLit ? fill : Theme::accent);
        style()->foregroundBrush = QColor(isLit ? Theme::onAccent : Theme::accentDark);
        KELRoundRectControl::paint(painter, option, widget);
    }

    void onCheckedEvent(bool check) override
    {
        setText(check ? QStringLiteral("Checked") : QStringLiteral("Check me"));
        m_log->add(QStringLiteral("Check me"),
                   check ? QStringLiteral("checked") : QStringLiteral("unchecked"));
    }

private:
    EventLog *const m_log;
};

RoundRectPage::RoundRectPage(const PageHost &pageHost, const QRectF &area) :
    Page(pageHost, area, QStringLiteral("Round rect control"),
         QStringLiteral("The base of every control: shape, picture, glyph, caption and pointer"))
{
    const QRectF room = body();
    addSamples(room.adjusted(0, 0, 0, -tileHeightPx - Theme::pageMargin));
    addTiles({room.x(), room.bottom() - tileHeightPx, room.width(), tileHeightPx});
}

void RoundRectPage::addSamples(const QRectF &area)
{
    const int count = int(std::size(samples));
    // Both leave no cell empty.
    const int columns = Parts::fitting(area.width(), minSampleWidthPx, 5, Theme::pageMargin) == 5
        ? 5
        : 2;
    const QVector<QRectF> cells = Parts::grid(area, columns, count / columns, Theme::pageMargin);
    for (int i = 0; i < count; ++i) {
        const QRectF &cell = cells.at(i);
        const qreal height = qMax(0.0, cell.height() - captionPx);
        KELRoundRectControl *control = Parts::addCard(this,
                                                      {cell.x(), cell.y(), cell.width(), height});
        Parts::addLabel(this, {cell.x(), cell.y() + height, cell.width(), captionPx},
                        QLatin1String(samples[i].caption), Theme::font(Theme::smallPx),
                        Theme::muted, Qt::AlignCenter);
        // Applied within the page, where the gradient finds the final rectangle.
        samples[i].apply(control, *host.icons);
    }
}

void RoundRectPage::addTiles(const QRectF &area)
{
    const QVector<QRectF> cells = Parts::grid(area, 3, 1, Theme::pageMargin);
    Tile *signalsTile = addTile(cells.at(0), QStringLiteral("Seven signals"),
                                QStringLiteral("seven-signals"));
    host.log->watch(signalsTile, signalsTile->text());

    Tile *menuTile = addTile(cells.at(1), QStringLiteral("Hold for a menu"),
                             QStringLiteral("hold-for-menu"));
    addMenu(menuTile);
    connect(menuTile, &KELRoundRectControl::mouseLongPress, host.log, [log = host.log] {
        log->add(QStringLiteral("Hold for a menu"), QStringLiteral("mouseLongPress"));
    });

    Tile *checkTile = addTile(cells.at(2), QStringLiteral("Check me"), QStringLiteral("check-me"));
    connect(checkTile, &KELRoundRectControl::mouseClicked, checkTile,
            [checkTile] { checkTile->setCheck(!checkTile->isCheck()); });
}

Tile *RoundRectPage::addTile(const QRectF &rect, const QString &text, const QString &objectName)
{
    auto *tile = new Tile(host.log, this);
    tile->setboundRect(rect);
    tile->setObjectName(objectName);
    tile->style()->text = text;
    return tile;
}

void RoundRectPage::addMenu(Tile *tile)
{
    // The control disposes of the menu; the view does when the event loop has ended before.
    auto *menu = new QMenu(host.view);
    menu->setStyleSheet(QStringLiteral(
        "QMenu { background: #ffffff; border: 1px solid #cfd8e3; padding: 4px; }"
        "QMenu::item { color: #17212e; font-size: 16px; padding: 15px 40px 15px 20px; }"
        "QMenu::item:selected { background: #e1edfc; color: #084a9c; }"));
    for (const char *entry : {"Copy", "Paste", "Delete"})
        menu->addAction(QLatin1String(entry));
    connect(menu, &QMenu::triggered, host.log, [log = host.log](const QAction *action) {
        log->add(QStringLiteral("Hold for a menu"), QStringLiteral("menu entry ") + action->text());
    });
    tile->style()->contextMenu = menu;
}

#include "roundrectpage.moc"
