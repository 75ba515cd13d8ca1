// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "kelnavigationtable.h"

#include "kelitemmove_p.h"
#include "kelpainting_p.h"
#include "kelrounding_p.h"
#include "kelroundrectcontrol_p.h"

#include <QtCore/QList>
#include <QtCore/QPointer>
#include <QtCore/QVector>
#include <QtGui/QFontMetrics>
#include <QtGui/QPainter>
#include <QtWidgets/QGraphicsScene>
#include <QtWidgets/QGraphicsSceneMouseEvent>

namespace {

constexpr qreal titleOverhangPx = 30;

const KELNavigationTableItemStyle &styleOf(const KELNavigationTableItem *page)
{
    return *static_cast<const KELNavigationTableItemStyle *>(page->style());
}

void fill(QPainter *painter, const QRectF &rect, const QBrush &brush)
{
    if (brush.style() == Qt::NoBrush)
        return;
    painter->setPen(Qt::NoPen);
    painter->setBrush(KELPainting::usableBrush(brush));
    KELPainting::drawRoundedRect(painter, rect, 0, 0);
}

void drawTitle(QPainter *painter, const KELNavigationTableStyle &option, const QRectF &title)
{
    if (option.titleForegroundBrush.style() == Qt::NoBrush)
        return;
    const QString text = option.trimText
        ? option.getTrimmingText(option.title, title.width() - 2 * titleOverhangPx, option.font)
        : option.title;
    KELPainting::drawText(painter, option.font, option.titleForegroundBrush, option.textFlags,
                          title.adjusted(-titleOverhangPx, 0, titleOverhangPx, 0), text);
}

// The caption below the glyph, strip high.
QRectF captionRect(const QRectF &tab, const QMarginsF &margins, qreal strip)
{
    return {tab.x() + margins.left(), tab.y() + tab.height() - strip + margins.top(),
            tab.width() - margins.right() - margins.left(),
            tab.height() - margins.bottom() - (tab.height() - strip + margins.top())};
}

// Glyph and caption of a tab. Font and flags are those of the table.
void drawTab(QPainter *painter, const KELNavigationTableStyle &option,
             const KELNavigationTableItemStyle &page, const QRectF &tab)
{
    if (page.buttonForeground.style() == Qt::NoBrush)
        return;
    QRectF caption = KELPainting::contentRect(tab, page.margins);
    if (!page.icon.isNull()) {
        // Compat: measured in the font of the page, drawn in that of the table
        const qreal lineHeight = QFontMetrics(page.font).height();
        qreal strip = lineHeight;
        if (!page.text.isEmpty()) {
            strip = lineHeight + page.margins.top() + page.margins.bottom();
            caption = captionRect(tab, page.margins, strip);
        }
        KELPainting::drawGlyph(painter, page.icon, page.iconSize, page.buttonForeground,
                               option.textFlags, tab.adjusted(0, 0, 0, -strip));
    }
    if (page.text.isEmpty())
        return;
    // Compat: trimmed to the whole tab, margins included
    KELPainting::drawText(painter, option.font, page.buttonForeground, option.textFlags, caption,
                          page.getTrimmingText(page.text, tab.width(), option.font));
}

void setDefaults(KELNavigationTableItemStyle *style)
{
    style->buttonBackground = KELPainting::solidBrush(qRgba(0, 0, 0, 210));
    style->buttonForeground = KELPainting::solidBrush(qRgb(255, 255, 255));
    style->backgroundBrush = QBrush(Qt::NoBrush);
    style->borderWidth = 0;
    style->margins = QMarginsF(3, 3, 3, 3);
}

void setDefaults(KELNavigationTableStyle *style)
{
    style->backgroundBrush = KELPainting::solidBrush(qRgba(20, 15, 55, 200));
    style->borderWidth = 2.0F;
    // Compat: the title is the name of another class
    style->title = QStringLiteral("KELRoundRectControlStyle");
    style->titleBackgroundBrush = KELPainting::solidBrush(qRgba(40, 40, 40, 160));
    style->titleForegroundBrush = KELPainting::solidBrush(qRgb(255, 255, 255));
    style->boundRect = QRectF(0, 0, 440, 310);
    style->xRadius = 0;
    style->yRadius = 0;
    style->showTitle = false;
    style->titleHeight = 35.0F;
    style->tabHeight = 80.0F;
}

} // namespace

class KELNavigationTableItemPrivate
{
public:
    explicit KELNavigationTableItemPrivate(KELRoundRectControlStyle *style) : ownStyle(style) { }
    void unwatch();

    KELOwnStyle<KELNavigationTableItemStyle> ownStyle;
    QRectF tab; // in the table
    KELNavigationTablePrivate *table = nullptr; // of which it is a page
    QVector<QMetaObject::Connection> watches; // the page and what it is wrapped in
};

void KELNavigationTableItemPrivate::unwatch()
{
    for (const QMetaObject::Connection &watch : qAsConst(watches))
        QObject::disconnect(watch);
    watches.clear();
}

class KELNavigationTablePrivate
{
public:
    KELNavigationTablePrivate(KELNavigationTable *table, KELRoundRectControlStyle *style) :
        q(table), ownStyle(style)
    { }

    const KELNavigationTableStyle &style() const
    {
        return *static_cast<const KELNavigationTableStyle *>(q->style());
    }
    int tabAt(const QPointF &pos) const;
    void adopt(KELNavigationTableItem *page);
    void attach(KELNavigationTableItem *page);
    void showAdopted(const QPointer<KELNavigationTableItem> &page);
    void show(int index);
    void place(KELNavigationTableItem *page) const;
    void layoutTabs() const;
    void follow(KELNavigationTableItem *page);
    void forget(KELNavigationTableItem *page);
    void forgetMoved();

    KELNavigationTable *const q;
    KELOwnStyle<KELNavigationTableStyle> ownStyle;
    QList<KELNavigationTableItem *> items;
    KELNavigationTableItem *current = nullptr;
    int selectIndex = -1;
};

KELNavigationTableItem::KELNavigationTableItem(QGraphicsObject *parent) :
    KELRoundRectControl(parent, KELOwnStyle<KELNavigationTableItemStyle>::create(setDefaults),
                        new KELControlPrivate(this)),
    d(new KELNavigationTableItemPrivate(m_style))
{ }

KELNavigationTableItem::~KELNavigationTableItem()
{
    if (d->table)
        d->table->forget(this);
    if (KELNavigationTableItemStyle *own = d->ownStyle.get(m_style)) {
        own->buttonBackground = QBrush();
        own->buttonForeground = QBrush();
    }
    delete d;
}

void KELNavigationTableItem::setButtonBackground(const QBrush &brush)
{
    static_cast<KELNavigationTableItemStyle *>(m_style)->buttonBackground = brush;
}

void KELNavigationTableItem::setButtonForeground(const QBrush &brush)
{
    static_cast<KELNavigationTableItemStyle *>(m_style)->buttonForeground = brush;
}

void KELNavigationTableItem::paint(QPainter * /*painter*/,
                                   const QStyleOptionGraphicsItem * /*styleOption*/,
                                   QWidget * /*widget*/)
{ }

KELRoundRectControlStyle *KELNavigationTableItem::initStyle()
{
    m_style = d->ownStyle.replace(m_style, setDefaults);
    return m_style;
}

// -1 when there is none.
int KELNavigationTablePrivate::tabAt(const QPointF &pos) const
{
    for (int i = 0; i < items.size(); ++i) {
        if (items.at(i)->d->tab.contains(pos))
            return i;
    }
    return -1;
}

// Emits signals of QGraphicsObject: a slot may do anything to page and table.
void KELNavigationTablePrivate::adopt(KELNavigationTableItem *page)
{
    const QPointer<KELNavigationTable> alive(q);
    const QPointer<KELNavigationTableItem> adopted(page);
    if (page->d->table)
        page->d->table->forget(page);
    const KELItemMove move = KELItemMove::to(q, page);
    if (alive && adopted && page->parentItem() == q && !page->d->table)
        attach(page);
    move.report();
}

void KELNavigationTablePrivate::attach(KELNavigationTableItem *page)
{
    items.append(page);
    page->d->table = this;
    follow(page);
}

// The first page is shown, any other hidden, unless a slot has selected it.
void KELNavigationTablePrivate::showAdopted(const QPointer<KELNavigationTableItem> &page)
{
    const QPointer<KELNavigationTable> alive(q);
    const auto isPage = [&] { return !alive.isNull() && !page.isNull() && page->d->table == this; };
    if (isPage() && current != page)
        page->hide();
    if (isPage() && !current)
        show(items.indexOf(page));
    if (isPage())
        place(page);
}

// Hiding and showing pages emits signals of QGraphicsObject: a slot may select another page, delete
// pages or the table.
void KELNavigationTablePrivate::show(int index)
{
    const QPointer<KELNavigationTable> alive(q);
    const QPointer<KELNavigationTableItem> page(items.at(index));
    KELNavigationTableItem *const previous = current;
    if (previous)
        previous->hide();
    if (!alive || (current && current != previous)) // selected by a slot
        return;
    if (!page || page->d->table != this) {
        if (current)
            current->show();
        return;
    }
    current = page;
    selectIndex = items.indexOf(page);
    page->show();
    if (alive)
        q->update();
}

void KELNavigationTablePrivate::place(KELNavigationTableItem *page) const
{
    const KELNavigationTableStyle &table = style();
    const auto border = qreal(page->style()->borderWidth);
    const auto top = qreal(table.showTitle ? table.titleHeight : 0);
    page->prepareGeometryChange();
    // Compat: only the left and the top edge go inwards, and the tabs get their room also when a
    // single page has none
    page->setboundRect(border, top + border, table.boundRect.width() - border,
                       table.boundRect.height() - top - qreal(table.tabHeight) - border);
}

void KELNavigationTablePrivate::layoutTabs() const
{
    const KELNavigationTableStyle &table = style();
    const int count = items.size();
    const auto width = float(table.boundRect.width() / qMax(1, count));
    for (int i = 0; i < count; ++i) {
        // Compat: not moved by the corner of the table's rectangle
        items.at(i)->d->tab = QRectF(qreal(float(i) * width),
                                     table.boundRect.height() - qreal(table.tabHeight),
                                     qreal(width), qreal(table.tabHeight));
    }
}

// The page, or an item that wraps it, has a new parent item: watches all of them while they are in
// the table.
void KELNavigationTablePrivate::follow(KELNavigationTableItem *page)
{
    if (!q->isAncestorOf(page)) {
        forget(page);
        return;
    }
    page->d->unwatch();
    for (QGraphicsItem *item = page; item != q; item = item->parentItem()) {
        QGraphicsObject *const object = item->toGraphicsObject();
        if (!object)
            continue; // see forgetMoved()
        page->d->watches.append(QObject::connect(object, &QGraphicsObject::parentChanged, q,
                                                 [this, page] { follow(page); }));
    }
}

// A plain item that wraps a page does not report that it was moved away.
void KELNavigationTablePrivate::forgetMoved()
{
    for (int i = items.size() - 1; i >= 0; --i) {
        KELNavigationTableItem *const page = items.at(i);
        if (page->parentItem() != q && !q->isAncestorOf(page))
            forget(page);
    }
}

// Takes a page out; it may be in its destructor.
void KELNavigationTablePrivate::forget(KELNavigationTableItem *page)
{
    const int index = items.indexOf(page);
    page->d->table = nullptr;
    page->d->unwatch();
    items.removeAt(index);
    if (page == current) {
        current = nullptr;
        selectIndex = -1;
    } else if (index < selectIndex) {
        --selectIndex;
    }
    layoutTabs();
    q->update();
}

KELNavigationTable::KELNavigationTable(QGraphicsObject *parent) :
    KELRoundRectControl(parent, KELOwnStyle<KELNavigationTableStyle>::create(setDefaults),
                        new KELControlPrivate(this)),
    d(new KELNavigationTablePrivate(this, m_style))
{
    setAcceptHoverEvents(true);
    setAcceptTouchEvents(true);
    setFlag(ItemIsSelectable, true);
    setAcceptedMouseButtons(Qt::LeftButton);
}

KELNavigationTable::~KELNavigationTable()
{
    // Now, not with the other child items: slots of what dies may still call the table.
    d->current = nullptr;
    d->selectIndex = -1;
    while (!d->items.isEmpty()) {
        KELNavigationTableItem *const page = d->items.takeFirst();
        page->d->table = nullptr;
        page->d->unwatch();
        if (isAncestorOf(page))
            delete page;
    }
    if (KELNavigationTableStyle *own = d->ownStyle.get(m_style)) {
        own->title = QString();
        own->titleBackgroundBrush = QBrush();
        own->titleForegroundBrush = QBrush();
    }
    delete d;
}

void KELNavigationTable::addItem(KELNavigationTableItem *item)
{
    d->forgetMoved();
    if (!item || item->d->table == d || item->isAncestorOf(this))
        return;
    const QPointer<KELNavigationTable> alive(this);
    const QPointer<KELNavigationTableItem> page(item);
    d->adopt(item);
    if (alive)
        d->showAdopted(page);
    if (!alive)
        return;
    d->layoutTabs();
    update();
}

void KELNavigationTable::setSelectIndex(int index)
{
    d->forgetMoved();
    if (index >= 0 && index < d->items.size() && index != d->selectIndex)
        d->show(index);
}

KELNavigationTableItem *KELNavigationTable::selectItem() const
{
    d->forgetMoved();
    return d->current;
}

int KELNavigationTable::selectIndex() const
{
    d->forgetMoved();
    return d->selectIndex;
}

void KELNavigationTable::initStyleOption(KELNavigationTableStyle *option,
                                         const QStyleOptionGraphicsItem * /*styleOption*/) const
{
    d->forgetMoved();
    const KELNavigationTableStyle &own = d->style();
    option->boundRect = boundingRect();
    option->font = own.font;
    option->textFlags = own.textFlags;
    option->trimText = own.trimText;
    option->showTitle = own.showTitle;
    option->titleHeight = own.showTitle ? own.titleHeight : 0;
    option->tabHeight = d->items.size() > 1 ? own.tabHeight : 0;
    option->pixmap = own.pixmap;
    option->icon = own.icon;
    option->iconSize = own.iconSize;
    // No default initialiser: always assign.
    option->borderWidth = 0;
    option->contextMenu = nullptr;

    if (own.backgroundBrush.style() != Qt::NoBrush)
        option->backgroundBrush = own.backgroundBrush;
    if (own.foregroundBrush.style() != Qt::NoBrush)
        option->foregroundBrush = own.foregroundBrush;
    if (own.borderBrush.style() != Qt::NoBrush && own.borderWidth > 0) {
        option->borderBrush = own.borderBrush;
        option->borderWidth = own.borderWidth;
    }
    if (!own.text.isEmpty())
        option->text = own.text;
    if (!own.title.isEmpty())
        option->title = own.title;
    if (!own.showTitle)
        return;
    if (own.titleBackgroundBrush.style() != Qt::NoBrush)
        option->titleBackgroundBrush = own.titleBackgroundBrush;
    if (own.titleForegroundBrush.style() != Qt::NoBrush)
        option->titleForegroundBrush = own.titleForegroundBrush;
}

void KELNavigationTable::paint(QPainter *painter, const QStyleOptionGraphicsItem *styleOption,
                               QWidget * /*widget*/)
{
    KELNavigationTableStyle option = KELNavigationTableStyle();
    initStyleOption(&option, styleOption);
    const QRectF &rect = option.boundRect;
    if (!KELPainting::isPaintable(rect))
        return;
    const QRectF title(rect.x(), rect.y(), rect.width(), qreal(option.titleHeight));
    const QRectF content(rect.x(), rect.y() + title.height(), rect.width(),
                         rect.height() - title.height() - qreal(option.tabHeight));

    painter->setBrushOrigin(rect.topLeft());
    fill(painter, title, option.titleBackgroundBrush);
    fill(painter, content, option.backgroundBrush);
    painter->setBrush(Qt::NoBrush);
    drawTitle(painter, option, title);
    if (!option.pixmap.isNull() && KELPainting::isPaintable(content))
        // Compat: rounded unlike the pixmaps of other controls
        painter->drawPixmap(KELRounding::halvesAwayFromZero(content), option.pixmap);

    if (d->items.size() < 2)
        return;
    for (int i = 0; i < d->items.size(); ++i) {
        const KELNavigationTableItemStyle &page = styleOf(d->items.at(i));
        const QRectF &tab = d->items.at(i)->d->tab;
        painter->setBrushOrigin(tab.topLeft());
        fill(painter, tab, i == d->selectIndex ? page.buttonBackground : page.backgroundBrush);
        drawTab(painter, option, page, tab);
    }
}

KELRoundRectControlStyle *KELNavigationTable::initStyle()
{
    m_style = d->ownStyle.replace(m_style, setDefaults);
    return m_style;
}

void KELNavigationTable::mousePressEvent(QGraphicsSceneMouseEvent *event)
{
    // Compat: the base does not hear of the press
    KELPress *const press = KELPress::of(this);
    if (!press->arrive(event))
        return;
    press->beginUnseen(event);
    const QPointer<KELNavigationTable> alive(this);
    d->forgetMoved();
    const int index = d->tabAt(event->pos());
    if (index >= 0 && index != d->selectIndex)
        d->show(index);
    KELPress::finishDelivery(alive, event);
}

bool KELNavigationTable::sceneEventFilter(QGraphicsItem * /*watched*/, QEvent *event)
{
    return KELControlPrivate::isEventOfOtherButton(event);
}
