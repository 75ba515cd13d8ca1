// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "kellayout.h"

#include "keltouch.h"

#include <kelcheckbox.h>
#include <kelcombobox.h>
#include <kellabel.h>
#include <kellineitem.h>
#include <kelnavigationtable.h>
#include <kelprocessbar.h>
#include <kelpushbutton.h>
#include <kelradiobox.h>
#include <kelslidecontrol.h>

#include <QtCore/QPointer>
#include <QtCore/QVector>
#include <QtGui/QFontMetricsF>
#include <QtWidgets/QGraphicsGridLayout>
#include <QtWidgets/QGraphicsLinearLayout>
#include <QtWidgets/QGraphicsWidget>

#include <cmath>

namespace {

constexpr qreal unlimitedPx = (1 << 24) - 1; // the maximum of Qt
constexpr qreal trackWidthPx = 80; // of a check box
constexpr qreal barHeightPx = 30; // of a check box and a progress bar
constexpr qreal circlePx = 25; // of a radio box
constexpr qreal knobPx = 30; // of a slider
constexpr qreal knobOutlinePx = 1; // beyond the knob
constexpr qreal leastComboBoxPx = 80;
constexpr qreal arrowPx = 33; // of a combo box, with its outline

// A number of an application as a size.
qreal usable(qreal size)
{
    return size > 0 ? qMin(size, unlimitedPx) : 0;
}

qreal roundedUp(qreal size)
{
    return std::ceil(usable(size));
}

bool isFinite(const QRectF &rect)
{
    return qIsFinite(rect.x()) && qIsFinite(rect.y()) && qIsFinite(rect.width())
        && qIsFinite(rect.height());
}

qreal rounded(qreal position)
{
    return std::floor(position + 0.5);
}

// Edges, not sizes: neighbours touch afterwards where they did before.
QRectF rounded(const QRectF &rect)
{
    const QPointF topLeft(rounded(rect.left()), rounded(rect.top()));
    return {topLeft, QPointF(rounded(rect.right()), rounded(rect.bottom()))};
}

// What margins add to a size.
QSizeF frameOf(const QMarginsF &margins)
{
    return {usable(margins.left()) + usable(margins.right()),
            usable(margins.top()) + usable(margins.bottom())};
}

qreal lineHeight(const QFont &font)
{
    return QFontMetricsF(font).height();
}

qreal textWidth(const QFont &font, const QString &text)
{
    return roundedUp(QFontMetricsF(font).size(0, text).width());
}

class Layer;

// The item is a child of its control, and hidden: so it dies while the control can still be asked
// whether it is hidden, which layouts do.
class Adapter : public QGraphicsItem, public QGraphicsLayoutItem
{
public:
    explicit Adapter(KELRoundRectControl *control);
    ~Adapter() override;

    static Adapter *of(const QGraphicsItem *control);

    void setGeometry(const QRectF &rect) override;
    void updateGeometry() override;
    QRectF boundingRect() const override { return {}; }
    void paint(QPainter * /*painter*/, const QStyleOptionGraphicsItem * /*option*/,
               QWidget * /*widget*/) override
    { }

protected:
    QSizeF sizeHint(Qt::SizeHint which, const QSizeF &constraint) const override;

private:
    Q_DISABLE_COPY(Adapter)

    void setPolicy(KELRoundRectControl *control);

    QMetaObject::Connection m_zChanged;
    bool m_isUpright = false; // of a line
};

// The widget of a layout on a control.
class Layer : public QGraphicsWidget
{
public:
    using QGraphicsWidget::QGraphicsWidget;

    static Layer *of(const QGraphicsItem *control);

    void fit();
    void updateGeometry() override;

protected:
    bool event(QEvent *event) override;
};

template <class Item>
Item *childOf(const QGraphicsItem *parent)
{
    if (!parent)
        return nullptr;
    const QList<QGraphicsItem *> children = parent->childItems();
    for (QGraphicsItem *child : children) {
        if (auto *item = dynamic_cast<Item *>(child))
            return item;
    }
    return nullptr;
}

Adapter *Adapter::of(const QGraphicsItem *control)
{
    return childOf<Adapter>(control);
}

Layer *Layer::of(const QGraphicsItem *control)
{
    return childOf<Layer>(control);
}

// Null also while it is being destroyed: then only the part that is an item is left of it.
KELRoundRectControl *controlOf(const QGraphicsItem *adapter)
{
    return qobject_cast<KELRoundRectControl *>(adapter->parentObject());
}

// Says that the rectangle of an item will change, which only the item itself can say: hence a class
// that derives from it.
struct Announcement : QGraphicsItem
{
    static void ofChange(QGraphicsItem *item) { (item->*&Announcement::prepareGeometryChange)(); }
};

void setBounds(KELRoundRectControl *control, const QRectF &bounds)
{
    if (control->style()->boundRect == bounds)
        return;
    Announcement::ofChange(control);
    control->setboundRect(bounds.x(), bounds.y(), bounds.width(), bounds.height());
    control->update();
}

// The overload with four numbers leaves the minimum out of account, and setValue() would emit a
// signal, and change a value that is outside the bounds. So the rectangle is first set where that
// overload puts the knob right.
void setSliderBounds(KELSlideControl *slider, const QRectF &bounds)
{
    const float range = slider->maximun() - slider->minimun();
    const float fraction = (slider->value() - slider->minimun()) / range;
    const qreal way = bounds.width() - knobPx;
    const auto knob = qreal(float(qreal(qBound(0.0F, fraction, 1.0F)) * way));
    const auto offset = qreal(float(qreal(slider->value() / range) * way));
    const qreal shift = qIsFinite(fraction) && qIsFinite(offset) ? knob - offset : 0;
    Announcement::ofChange(slider);
    slider->setboundRect(bounds.x() + shift, bounds.y(), bounds.width(), bounds.height());
    slider->style()->boundRect = bounds;
    slider->update();
}

void setComboBoxBounds(KELComboBox *comboBox, const QRectF &bounds)
{
    setBounds(comboBox, bounds);
    const QList<KELComboBoxItem *> entries = comboBox->items();
    for (KELComboBoxItem *entry : entries) {
        QRectF rect = entry->style()->boundRect;
        rect.setWidth(comboBox->rect().width() - 2 * rect.x());
        if (rect != entry->style()->boundRect)
            entry->setboundRect(rect);
    }
}

// The ends of a line are square and go beyond its points.
void setLineBounds(KELLineItem *line, const QRectF &bounds, bool isUpright)
{
    if (line->style()->boundRect == bounds)
        return;
    const qreal length = isUpright ? bounds.height() : bounds.width();
    const qreal end = qMin(usable(qreal(line->style()->borderWidth)), length) * 0.5;
    QPointF first = bounds.center();
    QPointF last = first;
    if (isUpright) {
        first.setY(bounds.top() + end);
        last.setY(bounds.bottom() - end);
    } else {
        first.setX(bounds.left() + end);
        last.setX(bounds.right() - end);
    }
    Announcement::ofChange(line);
    line->setLine(first, last);
    setBounds(line, bounds);
}

QVector<KELNavigationTableItem *> pagesOf(const KELNavigationTable *table)
{
    QVector<KELNavigationTableItem *> pages;
    const QList<QGraphicsItem *> children = table->childItems();
    for (QGraphicsItem *child : children) {
        if (auto *page = qobject_cast<KELNavigationTableItem *>(child->toGraphicsObject()))
            pages.append(page);
    }
    return pages;
}

const KELNavigationTableStyle &styleOf(const KELNavigationTable *table)
{
    return *static_cast<const KELNavigationTableStyle *>(table->style());
}

qreal titleHeight(const KELNavigationTable *table)
{
    return styleOf(table).showTitle ? qreal(styleOf(table).titleHeight) : 0;
}

// As the table places a page that is added. Returns whether the tabs are still where they were.
bool setTableBounds(KELNavigationTable *table, const QRectF &bounds)
{
    setBounds(table, bounds);
    const qreal top = titleHeight(table);
    const qreal height = bounds.height() - top - qreal(styleOf(table).tabHeight);
    bool isSame = true;
    const QVector<KELNavigationTableItem *> pages = pagesOf(table);
    for (KELNavigationTableItem *page : pages) {
        const auto border = qreal(page->style()->borderWidth);
        const QRectF rect(border, top + border, bounds.width() - border, height - border);
        isSame = isSame && page->style()->boundRect == rect;
        setBounds(page, rect);
        if (Layer *layer = Layer::of(page))
            layer->fit();
    }
    return isSame;
}

// A table places its tabs when a page comes or goes.
void placeTabs(KELNavigationTable *table)
{
    const QPointer<KELNavigationTableItem> page(new KELNavigationTableItem);
    table->addItem(page);
    delete page.data();
}

// What is drawn beyond the rectangle on the left and on the right.
qreal overhang(const KELRoundRectControl *control)
{
    if (qobject_cast<const KELSlideControl *>(control))
        return knobOutlinePx;
    if (qobject_cast<const KELCheckBox *>(control))
        return usable(qreal(control->style()->borderWidth)) * 0.5;
    return 0;
}

// The list of a combo box takes the position of a press in the item for one in the scene.
QPointF originOf(const KELRoundRectControl *control, const QPointF &corner)
{
    if (!qobject_cast<const KELComboBox *>(control))
        return corner;
    const QGraphicsItem *parent = control->parentItem();
    return parent ? parent->mapFromScene(QPointF()) : QPointF();
}

void place(KELRoundRectControl *control, const QRectF &geometry, bool isUpright)
{
    const qreal inset = overhang(control);
    const QRectF rect = geometry.adjusted(inset, 0, -inset, 0);
    const QPointF origin = originOf(control, rect.topLeft());
    const QGraphicsItem *parent = control->parentItem();
    const QPointF corner = parent ? parent->boundingRect().topLeft() : QPointF();
    const QRectF bounds = rect.translated(-origin - corner);
    auto *table = qobject_cast<KELNavigationTable *>(control);
    bool areTabsPlaced = true;
    if (table)
        areTabsPlaced = setTableBounds(table, bounds);
    else if (auto *slider = qobject_cast<KELSlideControl *>(control))
        setSliderBounds(slider, bounds);
    else if (auto *comboBox = qobject_cast<KELComboBox *>(control))
        setComboBoxBounds(comboBox, bounds);
    else if (auto *line = qobject_cast<KELLineItem *>(control))
        setLineBounds(line, bounds, isUpright);
    else
        setBounds(control, bounds);
    control->setPos(origin);
    if (Layer *layer = Layer::of(control))
        layer->fit();
    if (!areTabsPlaced)
        placeTabs(table);
}

// In whole px: controls elide to a whole width.
QSizeF captionSize(const KELRoundRectControlStyle &style, qreal width)
{
    if (style.text.isEmpty())
        return {0, 0};
    const QFontMetricsF metrics(style.font);
    QSizeF size = metrics.size(style.textFlags & ~Qt::TextWordWrap, style.text);
    if (width > 0 && (style.textFlags & Qt::TextWordWrap) != 0 && !style.trimText) {
        const QRectF room(0, 0, width, unlimitedPx);
        size = metrics.boundingRect(room, style.textFlags, style.text).size();
    }
    return {roundedUp(size.width()), roundedUp(size.height())};
}

QSizeF glyphSize(const KELRoundRectControlStyle &style)
{
    const qreal size = style.icon.isNull() ? 0 : usable(style.iconSize);
    return {size, size};
}

// Pictures shrink.
QSizeF pixmapSize(const KELRoundRectControlStyle &style, bool isLeast)
{
    return isLeast ? QSizeF(0, 0) : QSizeF(style.pixmap.size()) / style.pixmap.devicePixelRatio();
}

QSizeF contentSize(const KELRoundRectControl *control, bool isLeast, qreal width)
{
    const KELRoundRectControlStyle &style = *control->style();
    const qreal line = lineHeight(style.font);
    const QSizeF frame = frameOf(style.margins);
    QSizeF content = captionSize(style, width - frame.width()).expandedTo(glyphSize(style));
    if (isLeast)
        content.setWidth(qMin(content.width(), 2 * line));
    content = content.expandedTo(pixmapSize(style, isLeast));
    if (content.height() <= 0 && qobject_cast<const KELLabel *>(control))
        content.setHeight(line);
    return content + frame;
}

QSizeF buttonSize(const KELPushButton *button, bool isLeast, qreal width)
{
    const auto &style = *static_cast<const KELPushButtonStyle *>(button->style());
    const qreal line = lineHeight(style.font);
    const QSizeF frame = frameOf(style.margins);
    QSizeF caption = captionSize(style, width - frame.width()) + frame;
    if (isLeast)
        caption.setWidth(0);
    if (style.pixmap.isNull() && style.icon.isNull())
        return isLeast ? caption : caption + QSizeF(line, line * 0.5);
    const QSizeF picture = frameOf(style.iconMargins)
        + (style.pixmap.isNull() ? glyphSize(style) : pixmapSize(style, isLeast));
    if (style.pixmap.isNull() && style.text.isEmpty())
        return picture;
    const qreal strip = line + frame.height() + usable(style.margins.top());
    return {qMax(picture.width(), caption.width()), picture.height() + strip};
}

// The font of the first label on an item: the text of a combo box or of an entry.
QFont labelFont(const QGraphicsItem *item)
{
    const KELLabel *label = childOf<KELLabel>(item);
    return label ? label->style()->font : QFont();
}

QSizeF comboBoxSize(const KELComboBox *comboBox, bool isLeast, qreal touch)
{
    const QFont font = labelFont(childOf<KELPushButton>(comboBox));
    const qreal line = lineHeight(font);
    qreal width = qMax(leastComboBoxPx, touch);
    const QList<KELComboBoxItem *> entries = isLeast ? QList<KELComboBoxItem *>()
                                                     : comboBox->items();
    for (const KELComboBoxItem *entry : entries) {
        const QString text = entry->display();
        const qreal longer = qMax(textWidth(font, text), textWidth(labelFont(entry), text));
        width = qMax(width, longer + line + arrowPx);
    }
    return {width, qMax(line + 3, touch)};
}

QSizeF tableSize(const KELNavigationTable *table, Qt::SizeHint which, qreal touch)
{
    const QVector<KELNavigationTableItem *> pages = pagesOf(table);
    QSizeF size(touch * pages.size(), touch);
    for (const KELNavigationTableItem *page : pages) {
        const qreal border = usable(qreal(page->style()->borderWidth));
        if (const Layer *layer = Layer::of(page))
            size = size.expandedTo(layer->effectiveSizeHint(which) + QSizeF(border, border));
    }
    return size + QSizeF(0, usable(titleHeight(table)) + usable(qreal(styleOf(table).tabHeight)));
}

QSizeF sizeOf(const KELRoundRectControl *control, Qt::SizeHint which, qreal width)
{
    const bool isLeast = which == Qt::MinimumSize;
    const qreal touch = KELTouch::leastSize();
    const qreal border = usable(qreal(control->style()->borderWidth));
    const QSizeF target(touch, touch);
    const QSizeF borders(2 * border, 2 * border);
    if (auto *button = qobject_cast<const KELPushButton *>(control))
        return buttonSize(button, isLeast, width - borders.width()) + borders;
    if (qobject_cast<const KELCheckBox *>(control))
        return QSizeF(trackWidthPx + border, barHeightPx + border).expandedTo(target);
    if (qobject_cast<const KELRadioBox *>(control))
        return QSizeF(circlePx + border, circlePx + border).expandedTo(target);
    if (qobject_cast<const KELSlideControl *>(control)) {
        const qreal height = qMax(touch, knobPx + 2 * knobOutlinePx);
        return {height * (isLeast ? 2 : 4), height};
    }
    if (qobject_cast<const KELProcessBar *>(control)) {
        const qreal least = textWidth(QFont(), QStringLiteral("100%")) + barHeightPx;
        return {isLeast ? least : qMax(least, 4 * touch), barHeightPx};
    }
    if (auto *comboBox = qobject_cast<const KELComboBox *>(control))
        return comboBoxSize(comboBox, isLeast, touch);
    if (auto *table = qobject_cast<const KELNavigationTable *>(control))
        return tableSize(table, which, touch);
    return contentSize(control, isLeast, width - borders.width()) + borders;
}

Adapter::Adapter(KELRoundRectControl *control) : QGraphicsItem(control)
{
    hide();
    setGraphicsItem(control);
    setOwnedByLayout(true);
    setPolicy(control);
    if (qobject_cast<KELComboBox *>(control)) {
        m_zChanged = QObject::connect(control, &QGraphicsObject::zChanged, control, [this] {
            if (parentLayoutItem())
                setGeometry(geometry());
        });
    }
}

// Here, not in the destructor of the base: layouts may ask for the size of what they remove.
Adapter::~Adapter()
{
    QObject::disconnect(m_zChanged);
    QGraphicsLayoutItem *parent = parentLayoutItem();
    if (!parent || !parent->isLayout())
        return;
    auto *layout = static_cast<QGraphicsLayout *>(parent);
    for (int i = layout->count() - 1; i >= 0; --i) {
        if (layout->itemAt(i) == this)
            layout->removeAt(i);
    }
}

void Adapter::setPolicy(KELRoundRectControl *control)
{
    if (qobject_cast<KELCheckBox *>(control) || qobject_cast<KELRadioBox *>(control)) {
        setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    } else if (qobject_cast<KELSlideControl *>(control) || qobject_cast<KELProcessBar *>(control)) {
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    } else if (qobject_cast<KELComboBox *>(control)) {
        setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    } else if (qobject_cast<KELNavigationTable *>(control)) {
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    } else if (qobject_cast<KELLineItem *>(control)) {
        const QRectF &rect = control->style()->boundRect;
        m_isUpright = rect.height() > rect.width();
        setSizePolicy(m_isUpright ? QSizePolicy::Fixed : QSizePolicy::Expanding,
                      m_isUpright ? QSizePolicy::Expanding : QSizePolicy::Fixed);
    }
}

void Adapter::setGeometry(const QRectF &rect)
{
    if (!isFinite(rect))
        return;
    QGraphicsLayoutItem::setGeometry(rounded(rect));
    if (KELRoundRectControl *control = controlOf(this))
        place(control, geometry(), m_isUpright);
}

void Adapter::updateGeometry()
{
    QGraphicsLayoutItem::updateGeometry();
    if (QGraphicsLayoutItem *parent = parentLayoutItem())
        parent->updateGeometry();
}

QSizeF Adapter::sizeHint(Qt::SizeHint which, const QSizeF &constraint) const
{
    const KELRoundRectControl *control = controlOf(this);
    if (which == Qt::MaximumSize)
        return {unlimitedPx, unlimitedPx};
    if (!control || which == Qt::MinimumDescent)
        return {0, 0};
    QSizeF size;
    if (qobject_cast<const KELLineItem *>(control)) {
        const qreal width = qMax(1.0, usable(qreal(control->style()->borderWidth)));
        size = QSizeF(width, width);
    } else {
        size = sizeOf(control, which, constraint.width());
    }
    if (control->flags().testFlag(QGraphicsItem::ItemIsSelectable))
        size = size.expandedTo(QSizeF(KELTouch::leastSize(), KELTouch::leastSize()));
    if (const Layer *layer = Layer::of(control))
        size = size.expandedTo(layer->effectiveSizeHint(which, constraint));
    return {roundedUp(size.width()), roundedUp(size.height())};
}

// Between the control and the next widget around it, Qt does not hand on the direction.
void Layer::fit()
{
    const KELRoundRectControl *control = controlOf(this);
    if (!control)
        return;
    const QGraphicsItem *around = control->parentItem();
    while (around && !around->isWidget())
        around = around->parentItem();
    if (around)
        setLayoutDirection(static_cast<const QGraphicsWidget *>(around)->layoutDirection());
    const QRectF rect = control->boundingRect();
    if (isFinite(rect))
        setGeometry(rect);
}

void Layer::updateGeometry()
{
    QGraphicsWidget::updateGeometry();
    if (Adapter *adapter = Adapter::of(parentItem()))
        adapter->updateGeometry();
}

bool Layer::event(QEvent *event)
{
    if (event->type() == QEvent::LayoutRequest || event->type() == QEvent::Show)
        fit();
    return QGraphicsWidget::event(event);
}

void forgetHints(QGraphicsItem *item)
{
    if (Adapter *adapter = Adapter::of(item))
        adapter->updateGeometry();
    if (item->isWidget()) {
        auto *widget = static_cast<QGraphicsWidget *>(item);
        if (QGraphicsLayout *layout = widget->layout())
            layout->invalidate();
        else
            static_cast<QGraphicsLayoutItem *>(widget)->updateGeometry();
    }
    const QList<QGraphicsItem *> children = item->childItems();
    for (QGraphicsItem *child : children)
        forgetHints(child);
}

} // namespace

QGraphicsLayoutItem *KELLayout::item(KELRoundRectControl *control)
{
    if (!control)
        return nullptr;
    Adapter *adapter = Adapter::of(control);
    return adapter ? adapter : new Adapter(control);
}

void KELLayout::add(QGraphicsLinearLayout *layout, KELRoundRectControl *control, int stretch)
{
    if (!layout || !control)
        return;
    QGraphicsLayoutItem *adapter = item(control);
    layout->addItem(adapter);
    layout->setStretchFactor(adapter, qMax(0, stretch));
    layout->setAlignment(adapter, Qt::AlignVCenter);
}

void KELLayout::add(QGraphicsGridLayout *layout, KELRoundRectControl *control, int row, int column,
                    int rowSpan, int columnSpan)
{
    if (!layout || !control || qMin(row, column) < 0 || qMin(rowSpan, columnSpan) < 1)
        return;
    QGraphicsLayoutItem *adapter = item(control);
    layout->addItem(adapter, row, column, rowSpan, columnSpan);
    layout->setAlignment(adapter, Qt::AlignVCenter);
}

void KELLayout::addCell(QGraphicsGridLayout *layout, KELRoundRectControl *control, int columns)
{
    if (!layout || !control || columns < 1)
        return;
    int row = 0;
    int column = 0;
    while (row < layout->rowCount() && column < layout->columnCount()
           && layout->itemAt(row, column)) {
        column = (column + 1) % columns;
        row += column == 0 ? 1 : 0;
    }
    add(layout, control, row, column);
    // Qt gives columns of the same stretch factor the same width only if they prefer the same.
    item(control)->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    layout->setRowStretchFactor(row, 1);
    for (int i = 0; i < columns; ++i)
        layout->setColumnStretchFactor(i, 1);
}

KELLabel *KELLayout::addRow(QGraphicsGridLayout *layout, const QString &caption,
                            KELRoundRectControl *control)
{
    if (!layout)
        return nullptr;
    auto *label = new KELLabel;
    label->setText(caption);
    label->style()->textFlags = Qt::AlignLeft | Qt::AlignVCenter | Qt::TextWordWrap;
    const int row = layout->rowCount();
    add(layout, label, row, 0, 1, control ? 1 : 2);
    add(layout, control, row, 1);
    return label;
}

QGraphicsWidget *KELLayout::setLayout(KELRoundRectControl *control, QGraphicsLayout *layout)
{
    if (!control)
        return nullptr;
    Layer *layer = Layer::of(control);
    if (!layer)
        layer = new Layer(control);
    layer->setLayout(layout);
    layer->fit();
    return layer;
}

void KELLayout::updateHints(QGraphicsItem *item)
{
    if (!item)
        return;
    forgetHints(item);
    // By themselves the layouts around would hear of it one by one, with paints in between.
    for (QGraphicsItem *around = item->parentItem(); around; around = around->parentItem()) {
        if (auto *layer = dynamic_cast<Layer *>(around))
            layer->updateGeometry();
    }
}
