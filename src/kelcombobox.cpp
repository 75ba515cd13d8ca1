// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "kelcombobox.h"

#include "kelapplicationnotify.h"
#include "kelitempointer_p.h"
#include "kellabel.h"
#include "kelpainting_p.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QMetaEnum>
#include <QtCore/QPointer>
#include <QtCore/QVector>
#include <QtGui/QMouseEvent>
#include <QtGui/QPolygonF>
#include <QtGui/QTouchEvent>
#include <QtGui/QWindow>
#include <QtWidgets/QGraphicsProxyWidget>
#include <QtWidgets/QGraphicsScene>
#include <QtWidgets/QGraphicsSceneMouseEvent>
#include <QtWidgets/QGraphicsView>

#include <array>
#include <limits>
#include <memory>
#include <utility>

namespace {

constexpr qreal entryHeightPx = 30;
constexpr qreal entryInsetPx = 0.5;
constexpr qreal emptyListHeightPx = 5;
constexpr float minimumPartsWidthPx = 80;
constexpr qreal minimumWidthPx = 60;
constexpr qreal openZValue = 1;

constexpr std::array<QEvent::Type, 3> watchedPresses = {
    QEvent::MouseButtonPress, QEvent::MouseButtonDblClick, QEvent::TouchBegin};

QString downArrow()
{
    return {QChar(0x25BC)};
}

QString upArrow()
{
    return {QChar(0x25B2)};
}

void showText(const KELItemPointer<KELLabel> &label, const QString &text)
{
    if (label)
        label->setText(text);
}

void removeFilter(QObject *filter)
{
    if (QCoreApplication *app = QCoreApplication::instance())
        app->removeEventFilter(filter);
}

// Where a press on the receiver may come to the viewport: an ignored one goes on to parents, and a view in a proxy
// gets its presses from the views of the proxy.
// Views may show each other: those on the way here are left out.
QVector<QPoint> mapThroughProxies(const QWidget *viewport, const QWidget *receiver,
                                  const QPoint &pos, QVector<const QWidget *> visited = {})
{
    QWidget *const window = viewport->window();
    if (receiver->window() == window) {
        const bool related = receiver == viewport || receiver->isAncestorOf(viewport)
            || viewport->isAncestorOf(receiver);
        return related ? QVector<QPoint>{viewport->mapFrom(window, receiver->mapTo(window, pos))}
                       : QVector<QPoint>();
    }
    QVector<QPoint> positions;
    const QGraphicsProxyWidget *const proxy = window->graphicsProxyWidget();
    if (!proxy || !proxy->scene())
        return positions;
    visited.append(viewport);
    const QList<QGraphicsView *> outerViews = proxy->scene()->views();
    for (const QGraphicsView *outer : outerViews) {
        if (visited.contains(outer->viewport()))
            continue;
        const QVector<QPoint> outerPositions = mapThroughProxies(outer->viewport(), receiver, pos,
                                                                 visited);
        for (const QPoint &outerPos : outerPositions) {
            const QPointF inProxy = proxy->mapFromScene(outer->mapToScene(outerPos));
            positions.append(viewport->mapFrom(window, inProxy.toPoint()));
        }
    }
    return positions;
}

// True when the pixel, in the scene, is on the item, as a scene finds the item that is pressed.
bool isOn(const QGraphicsItem *item, const QPolygonF &pixel)
{
    return item != nullptr
        && item->mapFromScene(pixel).boundingRect().intersects(item->boundingRect());
}

// Cut towards zero; the nearest int when it does not fit.
int wholeZValue(qreal zValue)
{
    using Limits = std::numeric_limits<int>;
    return qIsNaN(zValue) ? 0 : int(qBound(qreal(Limits::min()), zValue, qreal(Limits::max())));
}

void updateWithChildren(QGraphicsItem *item)
{
    item->update();
    const QList<QGraphicsItem *> children = item->childItems();
    for (QGraphicsItem *child : children)
        updateWithChildren(child);
}

// In the widget that gets the press.
QPoint pressPos(const QEvent *event)
{
    if (event->type() != QEvent::TouchBegin)
        return static_cast<const QMouseEvent *>(event)->pos();
    const auto &points = static_cast<const QTouchEvent *>(event)->touchPoints();
    return points.isEmpty() ? QPoint() : points.first().pos().toPoint();
}

} // namespace

class KELComboBoxItemPrivate
{
public:
    KELItemPointer<KELLabel> label;
    QVariant value;
    QString display;
    KELComboBoxPrivate *box = nullptr; // of which it is an entry
};

class KELComboBoxPrivate
{
public:
    explicit KELComboBoxPrivate(KELComboBox *comboBox) : q(comboBox) { }

    void createParts();
    void watchOutsidePresses();
    void placeParts(qreal width, qreal textWidth, qreal arrowX, qreal height);
    qreal listHeight() const;
    void setListHeight(qreal height);
    void toggle();
    void open();
    void close();
    void unwatchOutsidePresses();
    void handleScenePress(const QGraphicsSceneMouseEvent *event);
    void handlePress(const QObject *receiver, const QEvent *event);
    bool isOutside(const QWidget *receiver, const QPoint &pos) const;
    bool isListShown() const { return q->isVisible() && panel && panel->isVisible(); }
    void showEnabled() const;
    void forget(KELComboBoxItem *item);

    KELComboBox *const q;
    KELItemPointer<KELPushButton> button;
    KELItemPointer<KELLabel> text;
    KELItemPointer<KELLabel> arrow;
    KELItemPointer<KELLabel> panel;
    QList<KELComboBoxItem *> items;
    int selectIndex = -1;
    bool expanded = false;
    bool isClearing = false;
    bool isRaised = false; // the z-value is that of an open list
    int openGeneration = 0; // how often the list was opened or closed
    int selectionGeneration = 0;
    int savedZ = 0;
    QPointer<KELApplicationNotify> notify;
    // While open: these see what the scene does not tell notify, see handlePress().
    std::array<std::unique_ptr<KELApplicationNotify>, watchedPresses.size()> watches;
};

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
    showText(d->label, d->display);
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
    KELRoundRectControlStyle *const buttonStyle = button.create(q)->style();
    buttonStyle->backgroundBrush = QBrush(Qt::NoBrush);
    buttonStyle->borderWidth = 1.5F;
    buttonStyle->borderBrush = KELPainting::solidBrush(qRgb(255, 255, 255));
    text.create(button.get());
    arrow.create(button.get())->style()->text = downArrow();

    KELRoundRectControlStyle *const panelStyle = panel.create(q)->style();
    panel->hide();
    panelStyle->borderBrush = KELPainting::solidBrush(qRgb(255, 255, 255));
    panelStyle->borderWidth = 1.0F;
    panelStyle->backgroundBrush = KELPainting::solidBrush(qRgba(4, 4, 18, 240));
    panelStyle->foregroundBrush = KELPainting::solidBrush(qRgb(255, 255, 255));
}

void KELComboBoxPrivate::placeParts(qreal width, qreal textWidth, qreal arrowX, qreal height)
{
    button.place(QRectF(0, 0, width, height));
    text.place(QRectF(0, 0, textWidth, height));
    arrow.place(QRectF(arrowX, 0, 25, height));
    panel.place(QRectF(0, height - 1, width, listHeight()));
}

qreal KELComboBoxPrivate::listHeight() const
{
    return items.isEmpty() ? emptyListHeightPx : entryHeightPx * items.size();
}

void KELComboBoxPrivate::setListHeight(qreal height)
{
    // Compat: as wide as the control, which may be narrower than the other parts
    const QRectF rect = q->rect();
    panel.place(QRectF(0, rect.height() - 1, rect.width(), height));
}

void KELComboBoxPrivate::toggle()
{
    if (expanded)
        close();
    else
        open();
}

// What is shown, hidden and raised emits signals of QGraphicsObject: a slot may open or close the list or delete
// the control.
void KELComboBoxPrivate::open()
{
    const QPointer<KELComboBox> alive(q);
    const int generation = ++openGeneration;
    expanded = true;
    showText(arrow, upArrow());
    watchOutsidePresses();
    if (panel)
        panel->show();
    if (!alive || generation != openGeneration)
        return;
    // Compat: cut to a whole number, and lowered to 1 when it was higher
    if (!isRaised)
        savedZ = wholeZValue(q->zValue());
    isRaised = true;
    q->setZValue(openZValue);
}

void KELComboBoxPrivate::close()
{
    const QPointer<KELComboBox> alive(q);
    const int generation = ++openGeneration;
    expanded = false;
    showText(arrow, downArrow());
    unwatchOutsidePresses();
    if (panel)
        panel->hide();
    if (alive && generation == openGeneration && isRaised) {
        isRaised = false;
        q->setZValue(savedZ);
    }
}

void KELComboBoxPrivate::watchOutsidePresses()
{
    QCoreApplication *const app = QCoreApplication::instance();
    if (notify)
        app->installEventFilter(notify);
    for (std::size_t i = 0; i < watches.size(); ++i) {
        auto watch = std::make_unique<KELApplicationNotify>(nullptr, watchedPresses.at(i));
        QObject::connect(
            watch.get(), &KELApplicationNotify::notify, q,
            [this](QObject *receiver, QEvent *event) { handlePress(receiver, event); },
            Qt::DirectConnection);
        app->installEventFilter(watch.get());
        watches.at(i) = std::move(watch);
    }
}

void KELComboBoxPrivate::unwatchOutsidePresses()
{
    removeFilter(notify);
    for (std::unique_ptr<KELApplicationNotify> &watch : watches) {
        if (watch)
            removeFilter(watch.get());
        watch.reset();
    }
}

void KELComboBoxPrivate::handleScenePress(const QGraphicsSceneMouseEvent *event)
{
    if (!isListShown())
        return;
    // Compat: the position in the item that is pressed is taken for one in the scene
    const QPointF pos = event->pos();
    if (button && button->sceneBoundingRect().contains(pos))
        return;
    if (panel->sceneBoundingRect().contains(pos))
        return;
    if (expanded)
        close();
}

// A scene tells its filters of a press only once an enabled control takes it. This hears of all the others: on the
// bare scene, on a plain item, on a disabled control, on another widget.
void KELComboBoxPrivate::handlePress(const QObject *receiver, const QEvent *event)
{
    if (!isListShown() || !q->scene())
        return;
    bool outside = false;
    if (receiver->isWidgetType())
        outside = isOutside(static_cast<const QWidget *>(receiver), pressPos(event));
    else if (receiver->isWindowType()) // that of a widget passes the press on to the widget
        outside = !receiver->inherits("QWidgetWindow");
    if (outside)
        close();
}

bool KELComboBoxPrivate::isOutside(const QWidget *receiver, const QPoint &pos) const
{
    const QList<QGraphicsView *> views = q->scene()->views();
    for (const QGraphicsView *view : views) {
        const QVector<QPoint> positions = mapThroughProxies(view->viewport(), receiver, pos);
        for (const QPoint &viewPos : positions) {
            const QPolygonF pixel = view->mapToScene(QRect(viewPos, QSize(1, 1)));
            if (view->viewport()->rect().contains(viewPos)
                && (isOn(button.get(), pixel) || isOn(panel.get(), pixel)))
                return false;
        }
    }
    return true;
}

void KELComboBoxPrivate::showEnabled() const
{
    const QBrush brush = q->isEnabled() ? KELPainting::solidBrush(qRgb(255, 255, 255))
                                        : KELPainting::solidBrush(qRgba(170, 170, 180, 200));
    if (text)
        text->style()->foregroundBrush = brush;
    if (arrow)
        arrow->style()->foregroundBrush = brush;
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
        setListHeight(entryHeightPx * items.size());
    if (selectIndex > index) {
        --selectIndex;
    } else if (selectIndex == index) {
        selectIndex = -1;
        showText(text, QString());
    }
}

KELComboBox::KELComboBox(QGraphicsObject *parent) :
    KELRoundRectControl(parent), d(new KELComboBoxPrivate(this))
{
    m_style = KELComboBox::initStyle();
    d->createParts();
    const QRectF rect = boundingRect();
    d->placeParts(rect.width(), rect.width() - 30, rect.width() - 25, rect.height());
    d->savedZ = wholeZValue(zValue());
    connect(d->button.get(), &KELRoundRectControl::mouseClicked, this, [this] { d->toggle(); });

    d->notify = new KELApplicationNotify(this, QEvent::GraphicsSceneMousePress);
    connect(
        d->notify, &KELApplicationNotify::notify, this,
        [this](QObject * /*receiver*/, QEvent *event) {
            // An injected event may be of any type.
            if (event->type() == QEvent::GraphicsSceneMousePress)
                d->handleScenePress(static_cast<QGraphicsSceneMouseEvent *>(event));
        },
        Qt::DirectConnection);
    connect(this, &QGraphicsObject::enabledChanged, this, [this] { d->showEnabled(); });
}

KELComboBox::~KELComboBox()
{
    d->unwatchOutsidePresses();
    if (d->button)
        d->button->disconnect(this);
    d->selectIndex = -1;
    // Slots of what dies here may still call the combo box.
    while (!d->items.isEmpty()) {
        KELComboBoxItem *const item = d->items.takeFirst();
        item->d->box = nullptr;
        delete item;
    }
    delete d->panel.get();
    delete d->button.get();
    delete d;
}

void KELComboBox::addItem(QVariant value, QString display) // clazy:exclude=function-args-by-ref
{
    if (!d->panel)
        return;
    auto *const item = new KELComboBoxItem(d->panel.get());
    if (display.isEmpty())
        display = value.toString();
    item->setValue(std::move(value));
    item->setDisplay(std::move(display));
    item->setboundRect(entryInsetPx, entryHeightPx * d->items.size(),
                       boundingRect().width() - 2 * entryInsetPx, entryHeightPx);
    item->d->box = d;
    d->items.append(item);
    d->setListHeight(entryHeightPx * d->items.size());
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
    d->setListHeight(d->listHeight());
}

void KELComboBox::setSelectIndex(int index)
{
    if (index < 0 || index >= d->items.size())
        return;
    if (index == d->selectIndex) {
        showText(d->text, d->items.at(index)->display());
        return;
    }
    const int selection = ++d->selectionGeneration;
    d->selectIndex = index;
    if (d->expanded) {
        const QPointer<KELComboBox> alive(this);
        d->close();
        // A slot may have selected another one, or taken this one out.
        if (!alive || d->selectionGeneration != selection || d->selectIndex < 0)
            return;
    }
    showText(d->text, selectedItem()->display());
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
    KELRoundRectControl::setboundRect(rect);
    // Compat: wider than a narrow control, and computed in single precision
    const float width = qMax(minimumPartsWidthPx, float(rect.width()));
    d->placeParts(qreal(width), qreal(width - 30.0F), qreal(width - 25.0F), rect.height());
    updateWithChildren(this);
}

void KELComboBox::setboundRect(qreal x, qreal y, qreal w, qreal h)
{
    prepareGeometryChange();
    const qreal width = qMax(minimumWidthPx, w);
    KELRoundRectControl::setboundRect(x, y, width, h);
    d->placeParts(width, width - 30, width - 25, h);
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
