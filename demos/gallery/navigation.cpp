// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "navigation.h"

#include "iconset.h"
#include "pageregistry.h"
#include "parts.h"

#include <KELSideMenu>
#include <QtWidgets/QScrollBar>

namespace {

constexpr qreal rowSlotPx = 84; // wide enough for the caption below the glyph
constexpr qreal rowGapPx = 4;
constexpr qreal turnPx = 44;
constexpr qreal glyphColumnPx = 36;

void dressForBar(KELPushButton *button)
{
    KELRoundRectControlStyle *style = button->style();
    style->backgroundBrush = QBrush(Qt::NoBrush);
    style->borderBrush = QBrush(Qt::NoBrush);
    style->foregroundBrush = QColor(Theme::barText);
    style->font = Theme::font(Theme::smallPx);
    style->iconSize = 18;
    style->xRadius = style->yRadius = Theme::radius;
    button->setIsMouseDownTemplate([](KELPushButtonStyle &look) {
        look.backgroundBrush = QColor(Theme::barPressed);
        look.foregroundBrush = QColor(Theme::onAccent);
    });
    button->setIsCheckedTemplate([](KELPushButtonStyle &look) {
        look.backgroundBrush = QColor(Theme::accent);
        look.foregroundBrush = QColor(Theme::onAccent);
    });
    button->setIsDisableTemplate(
        [](KELPushButtonStyle &look) { look.foregroundBrush = QColor(Theme::barPressed); });
}

// A side menu that is drawn at the scale of the gallery instead of being fitted into itself.
class ScaledMenu : public KELSideMenu
{
public:
    ScaledMenu(qreal scale, QWidget *parent) : KELSideMenu(parent), m_scale(scale)
    {
        setFrameShape(NoFrame);
        setAlignment(Qt::AlignLeft | Qt::AlignTop);
        setTransform(QTransform::fromScale(scale, scale));
    }

protected:
    void resizeEvent(QResizeEvent *event) override
    {
        KELSideMenu::resizeEvent(event);
        setSceneRect(QRectF(QPointF(), QSizeF(size()) / m_scale));
        setTransform(QTransform::fromScale(m_scale, m_scale));
        horizontalScrollBar()->setValue(0);
        verticalScrollBar()->setValue(0);
    }

private:
    Q_DISABLE_COPY(ScaledMenu)

    const qreal m_scale;
};

} // namespace

Navigation::Navigation(const IconSet *icons, const std::vector<PageEntry> &pages,
                       const QRectF &area, QGraphicsObject *parent, QWidget *view) :
    KELRoundRectControl(parent), m_icons(icons), m_pages(pages)
{
    setboundRect(area);
    setCacheMode(NoCache);
    setAcceptedMouseButtons(Qt::NoButton);
    style()->backgroundBrush = QColor(Theme::bar);
    style()->borderBrush = QBrush(Qt::NoBrush);

    const int pageCount = int(pages.size());
    const qreal length = isRow() ? area.width() : area.height();
    m_perLeaf = slotsIn(length);
    const bool turns = m_perLeaf < pageCount;
    if (turns)
        m_perLeaf = slotsIn(length - (isRow() ? 2 * (turnPx + Theme::gap) : turnPx + Theme::gap));
    else
        m_perLeaf = pageCount;
    if (turns)
        addTurnButtons();
    for (int page = 0; page < pageCount; page += m_perLeaf)
        addMenu(page, view);
    turnTo(0);
}

Navigation::~Navigation()
{
    for (const QPointer<KELSideMenu> &menu : qAsConst(m_menus))
        delete menu;
}

void Navigation::setCurrent(int page)
{
    for (int i = 0; i < m_buttons.size(); ++i) {
        m_buttons.at(i)->setCheck(i == page);
        if (KELRoundRectControl *glyph = m_glyphs.at(i)) {
            glyph->style()->foregroundBrush = QColor(i == page ? Theme::onAccent : Theme::barText);
            glyph->update();
        }
    }
    turnTo(page / m_perLeaf);
}

bool Navigation::isRow() const
{
    return rect().width() > rect().height();
}

int Navigation::slotsIn(qreal length) const
{
    const qreal pitch = isRow() ? rowSlotPx + rowGapPx : Theme::touch + Theme::gap;
    return qMax(1, int((length - Theme::gap) / pitch));
}

// Relative to the bar.
QVector<QRectF> Navigation::slotRects() const
{
    const qreal width = rect().width();
    const qreal height = rect().height();
    if (!isRow()) {
        QVector<QRectF> cells;
        for (int slot = 0; slot < m_perLeaf; ++slot) {
            cells.append({Theme::gap, Theme::gap + slot * (Theme::touch + Theme::gap),
                          width - 2 * Theme::gap, Theme::touch});
        }
        return cells;
    }
    const qreal left = m_back ? turnPx + Theme::gap : 0;
    const QRectF room(left + Theme::gap, Theme::gap, width - 2 * left - 2 * Theme::gap,
                      height - 2 * Theme::gap);
    return Parts::grid(room, m_perLeaf, 1, rowGapPx);
}

// The menu lines up its entries without a gap, as one of its own would be a line: each is added as
// long as its slot and the gap behind it, and cut to the slot afterwards. Then come the glyphs,
// which would push other entries on.
void Navigation::addMenu(int firstPage, QWidget *view)
{
    const QVector<QRectF> cells = slotRects();
    const QSizeF gap = isRow() ? QSizeF(rowGapPx, 0) : QSizeF(0, Theme::gap);
    const QRectF room = cells.first().united(cells.last()).translated(boundingRect().topLeft());
    const QRectF place = mapRectToScene(room);
    auto *menu = new ScaledMenu(place.height() / room.height(), view);
    menu->setOrientation(isRow() ? KELSideMenu::Horizontal : KELSideMenu::Vertical);
    menu->setBorderWidth(0);
    menu->setSpace(0);
    const int end = qMin(firstPage + m_perLeaf, int(m_pages.size()));
    for (int page = firstPage; page < end; ++page) {
        const QSizeF size = cells.at(page - firstPage).size();
        m_buttons.append(makePageButton(page, size + gap));
        menu->addItem(m_buttons.last());
    }
    for (int page = firstPage; page < end; ++page) {
        KELPushButton *button = m_buttons.at(page);
        button->setboundRect({button->boundingRect().topLeft(), cells.at(page - firstPage).size()});
        addGlyph(page);
    }
    menu->setGeometry(place.toRect());
    m_menus.append(menu);
}

KELPushButton *Navigation::makePageButton(int page, const QSizeF &size)
{
    const PageEntry &entry = m_pages.at(size_t(page));
    KELPushButton *button = Parts::addButton(nullptr, {QPointF(), size},
                                             QLatin1String(entry.title));
    dressForBar(button);
    button->setObjectName(QStringLiteral("nav-") + QLatin1String(entry.name));
    if (isRow()) {
        button->style()->icon = m_icons->glyph(entry.icon);
        button->style()->margins = QMarginsF(0, 2, 0, 2);
    } else {
        button->style()->textFlags = Qt::AlignLeft | Qt::AlignVCenter;
        button->style()->margins.setLeft(m_icons->isInstalled() ? glyphColumnPx : Theme::gap);
    }
    connect(button, &KELPushButton::mouseClicked, this, [this, page] { Q_EMIT chosen(page); });
    return button;
}

void Navigation::addGlyph(int page)
{
    if (isRow()) {
        m_glyphs.append(nullptr);
        return;
    }
    KELPushButton *button = m_buttons.at(page);
    KELRoundRectControl *glyph = Parts::addLabel(
        button, {0, 0, glyphColumnPx, button->rect().height()}, QString(),
        Theme::font(Theme::smallPx), Theme::barText, Qt::AlignCenter);
    glyph->style()->icon = m_icons->glyph(m_pages.at(size_t(page)).icon);
    glyph->style()->iconSize = 18;
    m_glyphs.append(glyph);
}

void Navigation::addTurnButtons()
{
    const qreal width = rect().width();
    const qreal height = rect().height();
    if (isRow()) {
        const QSizeF size(turnPx, height - 2 * Theme::gap);
        m_back = addTurnButton({QPointF(Theme::gap, Theme::gap), size}, Icon::left,
                               QStringLiteral("<"), -1);
        m_forth = addTurnButton({QPointF(width - Theme::gap - turnPx, Theme::gap), size},
                                Icon::right, QStringLiteral(">"), 1);
        return;
    }
    const QRectF row(Theme::gap, height - Theme::gap - turnPx, width - 2 * Theme::gap, turnPx);
    const QVector<QRectF> cells = Parts::grid(row, 2, 1);
    m_back = addTurnButton(cells.at(0), Icon::up, QStringLiteral("Up"), -1);
    m_forth = addTurnButton(cells.at(1), Icon::down, QStringLiteral("Down"), 1);
}

KELPushButton *Navigation::addTurnButton(const QRectF &rect, ushort icon, const QString &text,
                                         int step)
{
    KELPushButton *button = Parts::addButton(this, rect, QString());
    dressForBar(button);
    button->setObjectName(step < 0 ? QStringLiteral("nav-back") : QStringLiteral("nav-forth"));
    button->style()->icon = m_icons->glyph(icon);
    if (button->style()->icon.isNull())
        button->style()->text = text;
    connect(button, &KELPushButton::mouseClicked, this, [this, step] { turnTo(m_leaf + step); });
    return button;
}

void Navigation::turnTo(int leaf)
{
    const int lastLeaf = (m_buttons.size() - 1) / m_perLeaf;
    m_leaf = qBound(0, leaf, lastLeaf);
    for (int i = 0; i < m_buttons.size(); ++i)
        m_buttons.at(i)->setVisible(i / m_perLeaf == m_leaf);
    for (int i = 0; i < m_menus.size(); ++i)
        m_menus.at(i)->setVisible(i == m_leaf);
    if (m_back) {
        m_back->setEnabled(m_leaf > 0);
        m_forth->setEnabled(m_leaf < lastLeaf);
    }
}
