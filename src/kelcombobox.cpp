// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "kelcombobox.h"

#include "kelcombobox_p.h"
#include "kelpainting_p.h"

#include <QtCore/QMetaEnum>
#include <QtCore/QVector>

#include <utility>

namespace {

constexpr qreal entryHeightPx = 30;
constexpr qreal entryInsetPx = 0.5;
constexpr qreal emptyListHeightPx = 5;
constexpr float minimumPartsWidthPx = 80;
constexpr qreal minimumWidthPx = 60;

void updateWithChildren(QGraphicsItem *item)
{
    item->update();
    const QList<QGraphicsItem *> children = item->childItems();
    for (QGraphicsItem *child : children)
        updateWithChildren(child);
}

} // namespace

KELComboBoxItem::KELComboBoxItem(QGraphicsObject *parent) :
    KELPushButton(parent), d(new KELComboBoxItemPrivate)
{
    m_style = KELComboBoxItem::initStyle();
    d->label.create(this);
    d->label.place(rect());
}

KELComboBoxItem::~KELComboBoxItem()
{
    if (d->box)
        d->box->forget(this);
    delete d;
}

QString KELComboBoxItem::display() const
{
    return d->display;
}

void KELComboBoxItem::setDisplay(QString display) // clazy:exclude=function-args-by-ref
{
    d->display = std::move(display);
    KELComboBoxParts::showText(d->label, d->display);
}

QVariant KELComboBoxItem::value() const
{
    return d->value;
}

void KELComboBoxItem::setValue(QVariant value) // clazy:exclude=function-args-by-ref
{
    d->value = std::move(value);
}

void KELComboBoxItem::setboundRect(const QRectF &rect)
{
    prepareGeometryChange();
    KELPushButton::setboundRect(rect);
    d->label.place(QRectF(0, 0, rect.width(), rect.height()));
    update();
}

void KELComboBoxItem::setboundRect(qreal x, qreal y, qreal w, qreal h)
{
    prepareGeometryChange();
    KELPushButton::setboundRect(x, y, w, h);
    d->label.place(QRectF(0, 0, w, h));
    update();
}

KELPushButtonStyle *KELComboBoxItem::initStyle()
{
    m_style->backgroundBrush = QBrush(Qt::NoBrush);
    m_style->borderWidth = 0;
    m_style->borderBrush = QBrush(Qt::NoBrush);
    return static_cast<KELPushButtonStyle *>(m_style);
}

void KELComboBoxPrivate::createParts()
{
    KELRoundRectControlStyle *const buttonStyle = parts.button.create(q)->style();
    buttonStyle->backgroundBrush = QBrush(Qt::NoBrush);
    buttonStyle->borderWidth = 1.5F;
    buttonStyle->borderBrush = KELPainting::solidBrush(qRgb(255, 255, 255));
    parts.text.create(parts.button.get());
    parts.arrow.create(parts.button.get())->style()->text = KELComboBoxList::arrowWhenClosed();

    KELRoundRectControlStyle *const panelStyle = parts.panel.create(q)->style();
    parts.panel->hide();
    panelStyle->borderBrush = KELPainting::solidBrush(qRgb(255, 255, 255));
    panelStyle->borderWidth = 1.0F;
    panelStyle->backgroundBrush = KELPainting::solidBrush(qRgba(4, 4, 18, 240));
    panelStyle->foregroundBrush = KELPainting::solidBrush(qRgb(255, 255, 255));
}

void KELComboBoxPrivate::placeParts(qreal width, qreal textWidth, qreal arrowX, qreal height)
{
    parts.button.place(QRectF(0, 0, width, height));
    parts.text.place(QRectF(0, 0, textWidth, height));
    parts.arrow.place(QRectF(arrowX, 0, 25, height));
    parts.panel.place(QRectF(0, height - 1, width, panelHeight()));
}

qreal KELComboBoxPrivate::panelHeight() const
{
    return items.isEmpty() ? emptyListHeightPx : entryHeightPx * items.size();
}

void KELComboBoxPrivate::setPanelHeight(qreal height)
{
    // Compat: as wide as the control, which may be narrower than the other parts
    const QRectF rect = q->rect();
    parts.panel.place(QRectF(0, rect.height() - 1, rect.width(), height));
}

void KELComboBoxPrivate::showEnabled() const
{
    const QBrush brush = q->isEnabled() ? KELPainting::solidBrush(qRgb(255, 255, 255))
                                        : KELPainting::solidBrush(qRgba(170, 170, 180, 200));
    if (parts.text)
        parts.text->style()->foregroundBrush = brush;
    if (parts.arrow)
        parts.arrow->style()->foregroundBrush = brush;
}

// Takes an entry out of the list; item may be in its destructor.
void KELComboBoxPrivate::forget(KELComboBoxItem *item)
{
    const int index = items.indexOf(item);
    if (index < 0)
        return;
    item->d->box = nullptr;
    items.removeAt(index);
    // Compat: the entries behind it do not move up
    if (!isClearing)
        setPanelHeight(entryHeightPx * items.size());
    if (selectIndex > index) {
        --selectIndex;
    } else if (selectIndex == index) {
        selectIndex = -1;
        KELComboBoxParts::showText(parts.text, QString());
    }
}

KELComboBox::KELComboBox(QGraphicsObject *parent) :
    KELRoundRectControl(parent), d(new KELComboBoxPrivate(this))
{
    m_style = KELComboBox::initStyle();
    d->createParts();
    const QRectF rect = boundingRect();
    d->placeParts(rect.width(), rect.width() - 30, rect.width() - 25, rect.height());
    connect(d->parts.button.get(), &KELRoundRectControl::mouseClicked, this,
            [this] { d->list.toggle(); });
    d->list.connectScenePresses();
    connect(this, &QGraphicsObject::enabledChanged, this, [this] { d->showEnabled(); });
}

KELComboBox::~KELComboBox()
{
    d->list.unwatchPresses();
    if (d->parts.button)
        d->parts.button->disconnect(this);
    d->selectIndex = -1;
    // Slots of what dies here may still call the combo box.
    while (!d->items.isEmpty()) {
        KELComboBoxItem *const item = d->items.takeFirst();
        item->d->box = nullptr;
        delete item;
    }
    delete d->parts.panel.get();
    delete d->parts.button.get();
    delete d;
}

void KELComboBox::addItem(QVariant value, QString display) // clazy:exclude=function-args-by-ref
{
    if (!d->parts.panel)
        return;
    auto *const item = new KELComboBoxItem(d->parts.panel.get());
    if (display.isEmpty())
        display = value.toString();
    item->setValue(std::move(value));
    item->setDisplay(std::move(display));
    item->setboundRect(entryInsetPx, entryHeightPx * d->items.size(),
                       boundingRect().width() - 2 * entryInsetPx, entryHeightPx);
    item->d->box = d;
    d->items.append(item);
    d->setPanelHeight(entryHeightPx * d->items.size());
    connect(item, &KELRoundRectControl::mouseClicked, this,
            [this, item] { setSelectIndex(d->items.indexOf(item)); });
}

void KELComboBox::removeItem(KELComboBoxItem *item)
{
    d->forget(item);
}

void KELComboBox::clearItem()
{
    const QPointer<KELComboBox> alive(this);
    QVector<QPointer<KELComboBoxItem>> entries;
    entries.reserve(d->items.size());
    for (KELComboBoxItem *item : qAsConst(d->items))
        entries.append(item);
    // A shown list looks at all its entries when its rectangle changes: once, not for each one.
    const bool wasClearing = std::exchange(d->isClearing, true);
    for (const QPointer<KELComboBoxItem> &entry : qAsConst(entries)) {
        if (entry && entry->d->box == d)
            delete entry.data();
        if (!alive)
            return;
    }
    d->isClearing = wasClearing;
    d->setPanelHeight(d->panelHeight());
}

void KELComboBox::setSelectIndex(int index)
{
    if (index < 0 || index >= d->items.size())
        return;
    if (index == d->selectIndex) {
        KELComboBoxParts::showText(d->parts.text, d->items.at(index)->display());
        return;
    }
    const int selection = ++d->selectionGeneration;
    d->selectIndex = index;
    if (d->list.isOpen()) {
        const QPointer<KELComboBox> alive(this);
        d->list.close();
        // A slot may have selected another one, or taken this one out.
        if (!alive || d->selectionGeneration != selection || d->selectIndex < 0)
            return;
    }
    KELComboBoxParts::showText(d->parts.text, selectedItem()->display());
    Q_EMIT selectItemChanged();
}

int KELComboBox::selectIndex() const
{
    return d->selectIndex;
}

KELComboBoxItem *KELComboBox::selectedItem() const
{
    return d->items.value(d->selectIndex);
}

QList<KELComboBoxItem *> KELComboBox::items() const
{
    return d->items;
}

void KELComboBox::bindEnum(QMetaEnum e)
{
    // Compat: the names are the values, not the numbers
    for (int i = 0; i < e.keyCount(); ++i)
        addItem(QString::fromUtf8(e.key(i)), QString());
}

void KELComboBox::setboundRect(const QRectF &rect)
{
    prepareGeometryChange();
    // Compat: wider than a narrow control, and computed in single precision
    const float width = qMax(minimumPartsWidthPx, float(rect.width()));
    // First, while the parts are still where they were: they tell the scene.
    d->placeParts(qreal(width), qreal(width - 30.0F), qreal(width - 25.0F), rect.height());
    KELRoundRectControl::setboundRect(rect);
    updateWithChildren(this);
}

void KELComboBox::setboundRect(qreal x, qreal y, qreal w, qreal h)
{
    prepareGeometryChange();
    const qreal width = qMax(minimumWidthPx, w);
    d->placeParts(width, width - 30, width - 25, h);
    KELRoundRectControl::setboundRect(x, y, width, h);
    updateWithChildren(this);
}

void KELComboBox::paint(QPainter * /*painter*/, const QStyleOptionGraphicsItem * /*styleOption*/,
                        QWidget * /*widget*/)
{ }

KELRoundRectControlStyle *KELComboBox::initStyle()
{
    m_style->backgroundBrush = QBrush(Qt::NoBrush);
    m_style->borderBrush = QBrush(Qt::NoBrush);
    m_style->borderWidth = 0;
    return m_style;
}
