// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "roundrectpage.h"

#include "code/code.h"
#include "eventlog.h"
#include "iconset.h"
#include "parts.h"
#include "window.h"

#include <QtGui/QLinearGradient>
#include <QtWidgets/QMenu>

namespace {

constexpr QSizeF samplePx(88, 64);
constexpr qreal tilePx = 56;

KELRoundRectControl *newControl(qreal xRadius, qreal yRadius)
{
    auto *control = new KELRoundRectControl;
    control->setAcceptedMouseButtons(Qt::NoButton);
    control->style()->xRadius = xRadius;
    control->style()->yRadius = yRadius;
    control->style()->borderWidth = 1;
    return control;
}

KELRoundRectControl *newOutlined(QRgb colour, qreal width)
{
    KELRoundRectControl *control = newControl(16, 16);
    control->style()->borderBrush = QColor(colour);
    control->style()->borderWidth = width;
    return control;
}

KELRoundRectControl *newGradient()
{
    KELRoundRectControl *control = newControl(16, 16);
    QLinearGradient gradient({0, 0}, {samplePx.width(), samplePx.height()}); // in item px
    gradient.setColorAt(0, QColor(0x57, 0x8f, 0xf7));
    gradient.setColorAt(1, QColor(0x9b, 0x51, 0xe0));
    control->style()->backgroundBrush = gradient;
    control->style()->borderBrush = QBrush(Qt::NoBrush);
    return control;
}

KELRoundRectControl *newPicture(qreal margin)
{
    KELRoundRectControl *control = newControl(0, 0);
    control->style()->margins = QMarginsF(margin, margin, margin, margin);
    control->style()->pixmap = Parts::landscape(
        (samplePx - QSizeF(2 * margin, 2 * margin)).toSize());
    return control;
}

KELRoundRectControl *newGlyph(const IconSet &icons)
{
    KELRoundRectControl *control = newControl(16, 16);
    control->style()->icon = icons.glyph(Icon::star);
    control->style()->iconSize = 36;
    control->style()->foregroundBrush = QColor(Theme::warm);
    return control;
}

KELRoundRectControl *newElided()
{
    KELRoundRectControl *control = newControl(Theme::radius, Theme::radius);
    control->style()->text = QStringLiteral("Short line\nA line that is far too long for the box "
                                            "that it is in\nAnother one that does not fit in its "
                                            "box either, by far");
    control->style()->font = Theme::font(Theme::smallPx);
    control->style()->textFlags = Qt::AlignLeft | Qt::AlignVCenter;
    control->style()->margins = QMarginsF(10, 4, 10, 4);
    return control;
}

} // namespace

// A base control for the finger, with a pressed and a checked look.
class Tile : public KELRoundRectControl
{
    Q_OBJECT

public:
    explicit Tile(EventLog *log) : m_log(log)
    {
        // The base is not selectable and would get no release without that.
        setFlag(ItemIsSelectable);
        setAcceptHoverEvents(true);
        setAcceptTouchEvents(true);
        setAcceptedMouseButtons(Qt::LeftButton);
        style()->borderWidth = 1;
        style()->xRadius = style()->yRadius = Theme::radius;
        style()->font = Theme::font(Theme::bodyPx);
    }

    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override
    {
        const bool isLit = isMouseDown() || isCheck();
        style()->backgroundBrush = QColor(isLit ? Theme::accent : Theme::card);
        style()->borderBrush = QColor(Theme::accent);
        style()->foregroundBrush = QColor(isLit ? Theme::onAccent : Theme::accent);
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
    CardPage(
        pageHost, area, QStringLiteral("Round rect control"),
        QStringLiteral("The base of every control: shape, picture, glyph, caption and pointer"))
{
    const auto sized = [](KELRoundRectControl *control, const char *caption) {
        return Sample{control, QLatin1String(caption), samplePx.width(), samplePx.height()};
    };
    addTiles();
    addSamples(newCard(QStringLiteral("Corners: xRadius, yRadius")),
               {sized(newControl(0, 0), "0, 0"), sized(newControl(20, 20), "20, 20"),
                sized(newControl(44, 16), "44, 16")},
               samplePx.width());
    addSamples(newCard(QStringLiteral("Outline: borderBrush, borderWidth")),
               {sized(newOutlined(Theme::line, 1), "1 px"),
                sized(newOutlined(Theme::accent, 3), "3 px"),
                sized(newOutlined(Theme::warm, 8), "8 px")},
               samplePx.width());
    addSamples(newCard(QStringLiteral("Picture: pixmap, icon, margins")),
               {sized(newPicture(0), "pixmap"), sized(newPicture(16), "margins 16"),
                sized(newGlyph(*host.icons), "icon")},
               samplePx.width());
    addSamples(newCard(QStringLiteral("Ground: backgroundBrush, a gradient")),
               {sized(newGradient(), "in item px")}, samplePx.width());
    addSamples(newCard(QStringLiteral("Lines that are too long are elided")),
               {{newElided(), QString(), 0, samplePx.height()}});
}

void RoundRectPage::addTiles()
{
    Tile *signalsTile = newTile(QStringLiteral("Seven signals"), QStringLiteral("seven-signals"));
    host.log->watch(signalsTile, signalsTile->text());

    Tile *menuTile = newTile(QStringLiteral("Hold for a menu"), QStringLiteral("hold-for-menu"));
    addMenu(menuTile);
    connect(menuTile, &KELRoundRectControl::mouseLongPress, host.log, [log = host.log] {
        log->add(QStringLiteral("Hold for a menu"), QStringLiteral("mouseLongPress"));
    });

    Tile *checkTile = newTile(QStringLiteral("Check me"), QStringLiteral("check-me"));
    connect(checkTile, &KELRoundRectControl::mouseClicked, checkTile,
            [checkTile] { checkTile->setCheck(!checkTile->isCheck()); });
    addSamples(newWideCard(QStringLiteral("Touch them, and look at the signals")),
               {{signalsTile, QString(), 0, tilePx},
                {menuTile, QString(), 0, tilePx},
                {checkTile, QString(), 0, tilePx}},
               128);
    addSamples(newCard(QStringLiteral("A card; its code is shown")),
               {{Code::newCard(), QString(), 0, tilePx}});
}

Tile *RoundRectPage::newTile(const QString &text, const QString &objectName)
{
    auto *tile = new Tile(host.log);
    tile->setObjectName(objectName);
    tile->style()->text = text;
    return tile;
}

void RoundRectPage::addMenu(Tile *tile)
{
    // The control disposes of the menu; the view does when the event loop has ended before.
    auto *menu = new QMenu(host.view);
    menu->setStyleSheet(
        QStringLiteral("QMenu { background: %1; border: 1px solid %2; padding: 4px; }"
                       "QMenu::item { color: %3; font-size: 16px; padding: 15px 40px 15px 20px; }"
                       "QMenu::item:selected { background: %4; }")
            .arg(QColor(Theme::card).name(), QColor(Theme::line).name(), QColor(Theme::ink).name(),
                 QColor(Theme::barPressed).name()));
    for (const char *entry : {"Copy", "Paste", "Delete"})
        menu->addAction(QLatin1String(entry));
    connect(menu, &QMenu::triggered, host.log, [log = host.log](const QAction *action) {
        log->add(QStringLiteral("Hold for a menu"), QStringLiteral("menu entry ") + action->text());
    });
    tile->style()->contextMenu = menu;
}

#include "roundrectpage.moc"
