// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "kellist.h"

#include "kelkinetic_p.h"
#include "kelrowpainter_p.h"
#include "keltouch.h"

#include <QtCore/QAbstractItemModel>
#include <QtCore/QBasicTimer>
#include <QtCore/QPersistentModelIndex>
#include <QtCore/QPointer>
#include <QtCore/QTimerEvent>
#include <QtGui/QFontMetricsF>
#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QGraphicsSceneWheelEvent>
#include <QtWidgets/QWidget>

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

constexpr int restMs = 300; // after the last movement
constexpr int markWidthPx = 4;
constexpr int leastMarkPx = 24;
constexpr int wheelNotch = 120;
constexpr int preferredRows = 5;
constexpr int leastRows = 2;

// A row in sight, or a heading. What it shows is read once.
struct ShownRow
{
    int row = -1;
    KELRowContent content;
    KELRowCache cache;
    QPixmap picture; // of a delegate, while the list moves
};

enum class Drag { None, Undecided, Vertical, Sideways };

} // namespace

KELListDelegate::~KELListDelegate() = default;

class KELListPrivate final : public KELKinetic::Client
{
public:
    explicit KELListPrivate(KELList *list) : q(list), kinetic(new KELKinetic(this)) { }
    ~KELListPrivate() { kinetic->dispose(); }

    int position() const override { return top; }
    int greatestPosition() const override { return qMax(0, totalHeight() - extent()); }
    int extent() const override { return int(q->size().height()); }
    void moveTo(int position) override;
    void rested() override;

    int rowHeight() const { return height; }
    int totalHeight() const { return count * height + starts.size() * headingHeight; }
    int topOf(int row) const;
    int rowAt(int y) const;
    int firstRow() const;
    void measure();
    void readSections();

    void connectModel();
    void modelDied();
    void refresh();
    void changed(int anchor, int offset);
    void inserted(const QModelIndex &parent, int first, int last);
    void removed(const QModelIndex &parent, int first, int last);
    void dataChanged(const QModelIndex &from, const QModelIndex &to);
    void tellCurrent();

    QModelIndex index(int row) const;
    bool isEnabled(int row) const;
    void setPressedRow(int row);
    void tap(int row);
    void forget(int row);
    void forgetPictures();
    void startResting() { restTimer.start(restMs, q); }
    bool moveByKey(int key);

    ShownRow &shown(int row);
    void read(ShownRow *entry) const;
    void paintRow(QPainter *painter, const QRectF &rect, ShownRow *entry);
    void paintKept(QPainter *painter, const QRectF &rect, ShownRow *entry);
    void paintHeading(QPainter *painter, const QRectF &rect, int section) const;
    void paintMark(QPainter *painter) const;
    KELListDelegate::States statesOf(int row) const;

    KELList *const q;
    KELKinetic *const kinetic;
    QPointer<QAbstractItemModel> model;
    KELListDelegate *delegate = nullptr;
    QPersistentModelIndex current;
    QString emptyText;
    std::vector<ShownRow> rows;
    QVector<int> starts; // the first rows of sections
    QBasicTimer restTimer;
    int count = 0;
    int top = 0;
    int height = 1;
    int headingHeight = 1;
    int toldCurrent = -1;
    int pressedRow = -1;
    int tappedRow = -1;
    QPointF pressPos;
    Drag drag = Drag::None;
    bool isSelectable = false;
    bool hasSections = false;
    bool isMarkShown = false;
};

void KELListPrivate::measure()
{
    const KELPartStyle &style = *q->partStyle();
    height = int(qBound<qreal>(1, KELRowPainter::height(style, false), 4096));
    const qreal heading = std::ceil(QFontMetricsF(style.secondaryFont).height());
    headingHeight = qMax(height / 2, int(qBound<qreal>(1, heading, 4096)));
}

// The place of a row, below its heading.
int KELListPrivate::topOf(int row) const
{
    const auto after = std::upper_bound(starts.begin(), starts.end(), row);
    return row * height + int(after - starts.begin()) * headingHeight;
}

// -1 for a heading, and for what is beyond the rows.
int KELListPrivate::rowAt(int y) const
{
    if (y < 0 || y >= totalHeight())
        return -1;
    if (starts.isEmpty())
        return y / height;
    const int row = firstRow(); // in sight: not far
    for (int i = row; i < count && topOf(i) <= y; ++i) {
        if (y < topOf(i) + height)
            return i;
    }
    return -1;
}

// Of those in sight; if it is its heading alone that is in sight, the row below.
int KELListPrivate::firstRow() const
{
    int low = 0;
    int high = qMax(0, count - 1);
    while (low < high) {
        const int middle = (low + high) / 2;
        if (topOf(middle) + height > top)
            high = middle;
        else
            low = middle + 1;
    }
    return low;
}

void KELListPrivate::readSections()
{
    starts.clear();
    if (!hasSections || !model)
        return;
    QString last;
    for (int row = 0; row < count; ++row) {
        const QString section = index(row).data(KELList::SectionRole).toString();
        if (row == 0 || section != last)
            starts.append(row);
        last = section;
    }
}

QModelIndex KELListPrivate::index(int row) const
{
    return model ? model->index(row, 0) : QModelIndex();
}

bool KELListPrivate::isEnabled(int row) const
{
    return q->isEnabled() && index(row).flags().testFlag(Qt::ItemIsEnabled);
}

// The last thing that its callers do.
void KELListPrivate::moveTo(int position)
{
    if (position == top)
        return;
    top = position;
    isMarkShown = true;
    startResting();
    q->update();
    Q_EMIT q->positionChanged();
}

void KELListPrivate::rested()
{
    startResting();
}

void KELListPrivate::forgetPictures()
{
    for (ShownRow &entry : rows)
        entry.picture = QPixmap();
}

void KELListPrivate::forget(int row)
{
    for (ShownRow &entry : rows) {
        if (entry.row == row)
            entry.row = -1;
    }
    q->update();
}

void KELListPrivate::setPressedRow(int row)
{
    if (row == pressedRow)
        return;
    for (ShownRow &entry : rows) {
        if (entry.row == row || entry.row == pressedRow)
            entry.picture = QPixmap();
    }
    pressedRow = row;
    q->update();
}

void KELListPrivate::tellCurrent()
{
    const int row = current.isValid() ? current.row() : -1;
    if (row == toldCurrent)
        return;
    toldCurrent = row;
    forgetPictures();
    q->update();
    Q_EMIT q->currentRowChanged(row);
}

void KELListPrivate::connectModel()
{
    QAbstractItemModel *const m = model;
    QObject::connect(m, &QObject::destroyed, q, [this] { modelDied(); });
    QObject::connect(m, &QAbstractItemModel::modelReset, q, [this] { refresh(); });
    QObject::connect(m, &QAbstractItemModel::layoutChanged, q, [this] { refresh(); });
    QObject::connect(m, &QAbstractItemModel::rowsMoved, q, [this] { refresh(); });
    QObject::connect(
        m, &QAbstractItemModel::rowsInserted, q,
        [this](const QModelIndex &parent, int first, int last) { inserted(parent, first, last); });
    QObject::connect(
        m, &QAbstractItemModel::rowsRemoved, q,
        [this](const QModelIndex &parent, int first, int last) { removed(parent, first, last); });
    QObject::connect(
        m, &QAbstractItemModel::dataChanged, q,
        [this](const QModelIndex &from, const QModelIndex &to) { dataChanged(from, to); });
}

void KELListPrivate::modelDied()
{
    model = nullptr;
    refresh();
}

void KELListPrivate::refresh()
{
    changed(firstRow(), top - topOf(firstRow()));
}

// Everything is read again; the row anchor stays offset px above the upper edge.
void KELListPrivate::changed(int anchor, int offset)
{
    rows.clear();
    pressedRow = tappedRow = -1;
    count = model ? model->rowCount() : 0;
    readSections();
    q->update();
    const int before = top;
    const int kept = count > 0 ? topOf(qBound(0, anchor, count - 1)) + offset : 0;
    const int wanted = qBound(0, kept, greatestPosition());
    if (wanted != kept)
        kinetic->stop();
    kinetic->shift(wanted - before);
    const QPointer<KELList> self(q);
    moveTo(wanted);
    if (self)
        tellCurrent();
}

void KELListPrivate::inserted(const QModelIndex &parent, int first, int last)
{
    if (parent.isValid())
        return;
    const int anchor = firstRow();
    const int offset = top - topOf(anchor);
    changed(count > 0 && first <= anchor ? anchor + last - first + 1 : anchor, offset);
}

void KELListPrivate::removed(const QModelIndex &parent, int first, int last)
{
    if (parent.isValid())
        return;
    const int anchor = firstRow();
    const int offset = top - topOf(anchor);
    if (last < anchor)
        changed(anchor - (last - first + 1), offset);
    else
        changed(qMin(first, anchor), first <= anchor ? 0 : offset);
}

void KELListPrivate::dataChanged(const QModelIndex &from, const QModelIndex &to)
{
    if (from.parent().isValid() || from.column() > 0)
        return;
    if (hasSections) {
        refresh();
        return;
    }
    for (ShownRow &entry : rows) {
        if (entry.row >= from.row() && entry.row <= to.row())
            entry.row = -1;
    }
    q->update();
}

KELListDelegate::States KELListPrivate::statesOf(int row) const
{
    KELListDelegate::States states;
    states.setFlag(KELListDelegate::Pressed, row == pressedRow);
    states.setFlag(KELListDelegate::Selected, isSelectable && row == toldCurrent);
    states.setFlag(KELListDelegate::Mirrored, q->layoutDirection() == Qt::RightToLeft);
    return states;
}

// The entry of a row. One of a row out of sight is used again.
ShownRow &KELListPrivate::shown(int row)
{
    const int first = firstRow();
    const int last = first + extent() / height + 1;
    ShownRow *unused = nullptr;
    for (ShownRow &entry : rows) {
        if (entry.row == row)
            return entry;
        if (entry.row < first || entry.row > last)
            unused = &entry;
    }
    if (!unused) {
        rows.emplace_back();
        unused = &rows.back();
    }
    unused->row = row;
    unused->picture = QPixmap();
    read(unused);
    return *unused;
}

void KELListPrivate::read(ShownRow *entry) const
{
    if (delegate)
        return;
    const QModelIndex read = index(entry->row);
    KELRowContent &content = entry->content;
    content.caption = read.data(Qt::DisplayRole).toString();
    content.detail = read.data(KELList::DetailRole).toString();
    content.value = read.data(KELList::ValueRole).toString();
    const QVariant decoration = read.data(Qt::DecorationRole);
    const bool isPicture = decoration.userType() == QMetaType::QPixmap;
    content.picture = isPicture ? decoration.value<QPixmap>() : QPixmap();
    content.glyph = isPicture ? QString() : decoration.toString();
    const QVariant check = read.data(Qt::CheckStateRole);
    content.end = check.isValid() ? KELRow::Switch : KELRow::NoEnd;
    content.isOn = check.toInt() == Qt::Checked;
    content.isEnabled = isEnabled(entry->row);
}

void KELListPrivate::paintRow(QPainter *painter, const QRectF &rect, ShownRow *entry)
{
    const KELListDelegate::States states = statesOf(entry->row);
    if (delegate) {
        delegate->paint(painter, rect, index(entry->row), *q->partStyle(), states);
        return;
    }
    KELRowState state;
    state.isPressed = states.testFlag(KELListDelegate::Pressed);
    state.isSelected = states.testFlag(KELListDelegate::Selected);
    state.isFocusShown = entry->row == toldCurrent && q->isFocusShown();
    state.knob = entry->content.isOn ? 1 : 0;
    state.direction = q->layoutDirection();
    KELRowPainter::paint(painter, rect, *q->partStyle(), entry->content, state, &entry->cache);
}

// While the list moves, a delegate paints a row once, and then it is copied: nobody knows how long
// the delegate takes. A row of the list's own kind takes little more than a copy of it.
void KELListPrivate::paintKept(QPainter *painter, const QRectF &rect, ShownRow *entry)
{
    if (entry->picture.isNull()) {
        QPixmap picture(rect.size().toSize());
        picture.fill(Qt::black); // opaque
        QPainter own(&picture);
        own.setRenderHints(painter->renderHints());
        paintRow(&own, QRectF(QPointF(), rect.size()), entry);
        own.end();
        entry->picture = picture;
    }
    painter->drawPixmap(rect.topLeft(), entry->picture);
}

void KELListPrivate::paintHeading(QPainter *painter, const QRectF &rect, int section) const
{
    const KELPartStyle &style = *q->partStyle();
    painter->fillRect(rect, style.backgroundBrush);
    const QMarginsF margins(style.margins.left(), 0, style.margins.right(), 0);
    painter->setPen(QPen(style.mutedBrush, 1));
    painter->setFont(style.secondaryFont);
    const int side = q->layoutDirection() == Qt::RightToLeft ? Qt::AlignRight : Qt::AlignLeft;
    painter->drawText(rect.marginsRemoved(margins), side | Qt::AlignVCenter | Qt::AlignAbsolute,
                      index(starts.at(section)).data(KELList::SectionRole).toString());
}

void KELListPrivate::paintMark(QPainter *painter) const
{
    const qreal whole = totalHeight();
    const qreal seen = extent();
    if (whole <= seen)
        return;
    const qreal length = qMax<qreal>(leastMarkPx, seen * seen / whole);
    const qreal way = qBound<qreal>(0, qreal(top) / greatestPosition(), 1) * (seen - length);
    const qreal x = q->layoutDirection() == Qt::RightToLeft ? 0 : q->size().width() - markWidthPx;
    painter->fillRect(QRectF(x, std::floor(way), markWidthPx, length), q->partStyle()->mutedBrush);
}

void KELListPrivate::tap(int row)
{
    const QPersistentModelIndex tapped(index(row));
    const QPointer<KELList> self(q);
    const QVariant check = tapped.data(Qt::CheckStateRole);
    if (check.isValid() && tapped.flags().testFlag(Qt::ItemIsUserCheckable)) {
        const bool isOn = check.toInt() == Qt::Checked;
        model->setData(tapped, isOn ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
    }
    if (self && isSelectable && tapped.isValid()) {
        current = tapped;
        tellCurrent();
    }
    if (self && tapped.isValid())
        Q_EMIT self->clicked(tapped);
}

bool KELListPrivate::moveByKey(int key)
{
    const int page = qMax(1, extent() / height - 1);
    const int from = isSelectable ? toldCurrent : firstRow();
    int to = from;
    if (key == Qt::Key_Down)
        to = from + 1;
    else if (key == Qt::Key_Up)
        to = qMax(0, from - 1);
    else if (key == Qt::Key_PageDown)
        to = from + page;
    else if (key == Qt::Key_PageUp)
        to = qMax(0, from - page);
    else if (key == Qt::Key_Home)
        to = 0;
    else if (key == Qt::Key_End)
        to = count - 1;
    else
        return false;
    to = qBound(0, to, qMax(0, count - 1));
    if (!isSelectable) {
        q->setPosition(topOf(to));
        return true;
    }
    const QPointer<KELList> self(q);
    q->setCurrentRow(to);
    if (self)
        q->scrollTo(to);
    return true;
}

KELList::KELList(QGraphicsItem *parent) : KELPart(parent), d(new KELListPrivate(this))
{
    d->measure();
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

KELList::~KELList()
{
    delete d;
}

QAbstractItemModel *KELList::model() const
{
    return d->model;
}

void KELList::setModel(QAbstractItemModel *model)
{
    if (model == d->model)
        return;
    if (d->model)
        disconnect(d->model, nullptr, this, nullptr);
    d->kinetic->stop();
    d->model = model;
    if (model)
        d->connectModel();
    d->current = QPersistentModelIndex();
    d->changed(0, 0);
}

void KELList::setDelegate(KELListDelegate *delegate)
{
    d->delegate = delegate;
    d->rows.clear();
    update();
}

int KELList::position() const
{
    return d->top;
}

int KELList::currentRow() const
{
    return d->current.isValid() ? d->current.row() : -1;
}

bool KELList::isSelectable() const
{
    return d->isSelectable;
}

void KELList::setSelectable(bool selectable)
{
    d->isSelectable = selectable;
    d->forgetPictures();
    update();
}

bool KELList::areSectionsShown() const
{
    return d->hasSections;
}

void KELList::setSectionsShown(bool shown)
{
    if (shown == d->hasSections)
        return;
    const int first = d->firstRow();
    d->hasSections = shown;
    d->changed(first, first == 0 ? -d->headingHeight : 0);
}

QString KELList::emptyText() const
{
    return d->emptyText;
}

void KELList::setEmptyText(const QString &text)
{
    d->emptyText = text;
    update();
}

bool KELList::isMoving() const
{
    return d->kinetic->isGliding() || d->drag == Drag::Vertical;
}

QModelIndex KELList::indexAt(const QPointF &pos) const
{
    const int row = rect().contains(pos) ? d->rowAt(d->top + int(std::floor(pos.y()))) : -1;
    return row < 0 ? QModelIndex() : d->index(row);
}

QRectF KELList::rowRect(int row) const
{
    if (row < 0 || row >= d->count)
        return QRectF();
    return QRectF(0, d->topOf(row) - d->top, size().width(), d->height);
}

void KELList::paint(QPainter *painter, const QStyleOptionGraphicsItem * /*option*/,
                    QWidget * /*widget*/)
{
    const KELPartStyle &style = *partStyle();
    const QTransform &transform = painter->worldTransform();
    const bool isExact = transform.type() <= QTransform::TxTranslate
        && transform.dx() == std::floor(transform.dx())
        && transform.dy() == std::floor(transform.dy())
        && painter->device()->devicePixelRatioF() == 1
        && size().width() == std::floor(size().width());
    const bool isKept = isExact && d->delegate && d->restTimer.isActive()
        && style.backgroundBrush.isOpaque();

    painter->save();
    painter->setClipRect(rect(), Qt::IntersectClip);
    const int first = d->firstRow();
    int y = -d->top;
    auto section = std::lower_bound(d->starts.cbegin(), d->starts.cend(), first);
    int row = first;
    int bottom = d->count > 0 ? d->topOf(first) - d->top : 0;
    if (bottom > 0 && d->starts.isEmpty())
        painter->fillRect(QRectF(0, 0, size().width(), bottom), style.backgroundBrush);
    for (; row < d->count && bottom < size().height(); ++row) {
        y = d->topOf(row) - d->top;
        if (section != d->starts.cend() && *section == row) {
            const QRectF heading(0, y - d->headingHeight, size().width(), d->headingHeight);
            d->paintHeading(painter, heading, int(section - d->starts.cbegin()));
            ++section;
        }
        const QRectF place(0, y, size().width(), d->height);
        ShownRow &entry = d->shown(row);
        if (isKept)
            d->paintKept(painter, place, &entry);
        else
            d->paintRow(painter, place, &entry);
        bottom = y + d->height;
    }
    if (bottom < size().height()) {
        painter->fillRect(QRectF(0, qMax(0, bottom), size().width(), size().height()),
                          style.backgroundBrush);
    }
    if (d->count == 0 && !d->emptyText.isEmpty()) {
        painter->setPen(QPen(style.mutedBrush, 1));
        painter->setFont(style.font);
        painter->drawText(rect(), Qt::AlignCenter | Qt::TextWordWrap, d->emptyText);
    }
    if (d->isMarkShown)
        d->paintMark(painter);
    painter->restore();
}

void KELList::styleChanged()
{
    const int first = d->firstRow();
    const int offset = d->top - d->topOf(first);
    d->measure();
    KELPart::styleChanged();
    d->changed(first, offset);
}

void KELList::setPosition(int position)
{
    d->kinetic->stop();
    d->moveTo(qBound(0, position, d->greatestPosition()));
}

void KELList::setCurrentRow(int row)
{
    d->current = row >= 0 && row < d->count ? QPersistentModelIndex(d->index(row))
                                            : QPersistentModelIndex();
    d->tellCurrent();
}

void KELList::scrollTo(int row)
{
    if (row < 0 || row >= d->count)
        return;
    const int above = d->topOf(row) - (d->starts.contains(row) ? d->headingHeight : 0);
    const int below = d->topOf(row) + d->height - d->extent();
    if (d->top > above)
        setPosition(above);
    else if (d->top < below)
        setPosition(below);
}

bool KELList::pressEvent(const QPointF &pos)
{
    d->pressPos = pos;
    d->drag = d->kinetic->isGliding() ? Drag::Undecided : Drag::None;
    d->tappedRow = -1;
    if (d->drag == Drag::Undecided) { // a press that stops the list is no tap
        d->kinetic->stop();
        d->startResting();
        return true;
    }
    d->drag = Drag::Undecided;
    const int row = d->rowAt(d->top + int(std::floor(pos.y())));
    if (row >= 0 && d->isEnabled(row))
        d->tappedRow = row;
    d->setPressedRow(d->tappedRow);
    return true;
}

void KELList::dragEvent(const QPointF &pos, bool isDrag)
{
    if (!isDrag || d->drag == Drag::None)
        return;
    if (d->drag == Drag::Undecided) {
        const QPointF way = pos - d->pressPos;
        const bool isVertical = qAbs(way.y()) >= qAbs(way.x());
        d->drag = isVertical ? Drag::Vertical : Drag::Sideways;
        d->tappedRow = -1;
        d->setPressedRow(-1);
        if (isVertical) // the way that a tap may go is not gone again
            d->kinetic->grab(d->pressPos.y() + (way.y() < 0 ? -slopPx : slopPx));
    }
    if (d->drag == Drag::Vertical)
        d->kinetic->follow(pos.y());
}

void KELList::releaseEvent(const QPointF & /*pos*/, bool isTap)
{
    const int row = d->tappedRow;
    const bool isVertical = d->drag == Drag::Vertical;
    d->drag = Drag::None;
    d->tappedRow = -1;
    d->setPressedRow(-1);
    if (isVertical)
        d->kinetic->letGo();
    else if (isTap && row >= 0)
        d->tap(row);
}

void KELList::pressLostEvent()
{
    const bool isVertical = d->drag == Drag::Vertical;
    d->drag = Drag::None;
    d->tappedRow = -1;
    d->setPressedRow(-1);
    if (isVertical)
        setPosition(d->top); // from beyond an end
}

void KELList::wheelEvent(QGraphicsSceneWheelEvent *event)
{
    if (event->orientation() != Qt::Vertical) {
        event->ignore();
        return;
    }
    event->accept();
    setPosition(d->top - event->delta() * d->height / (2 * wheelNotch));
}

void KELList::keyPressEvent(QKeyEvent *event)
{
    const QPointer<KELList> self(this);
    const int key = event->key();
    const bool isTap = key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter
        || key == Qt::Key_Select;
    bool isUsed = false;
    if (isPlainKey(event) && d->count > 0) {
        if (isTap && d->isSelectable && d->toldCurrent >= 0) {
            isUsed = true;
            if (!event->isAutoRepeat() && d->isEnabled(d->toldCurrent))
                d->tap(d->toldCurrent);
        } else {
            isUsed = d->moveByKey(key);
        }
    }
    if (!self)
        return;
    KELPart::keyPressEvent(event);
    event->setAccepted(isUsed);
}

void KELList::timerEvent(QTimerEvent *event)
{
    if (event->timerId() != d->restTimer.timerId()) {
        KELPart::timerEvent(event);
        return;
    }
    if (isMoving())
        return;
    d->restTimer.stop();
    d->forgetPictures();
    d->isMarkShown = false;
    update();
}

void KELList::resizeEvent(QGraphicsSceneResizeEvent *event)
{
    KELPart::resizeEvent(event);
    d->rows.clear();
    const int bounded = qBound(0, d->top, d->greatestPosition());
    if (bounded != d->top) {
        d->kinetic->stop();
        d->moveTo(bounded);
    }
}

void KELList::changeEvent(QEvent *event)
{
    d->forgetPictures();
    KELPart::changeEvent(event);
}

QVariant KELList::itemChange(GraphicsItemChange change, const QVariant &value)
{
    if (change == ItemEnabledHasChanged)
        d->rows.clear();
    if (change == ItemVisibleHasChanged && !isVisible()) {
        d->kinetic->stop();
        d->top = qBound(0, d->top, d->greatestPosition());
    }
    return KELPart::itemChange(change, value);
}

QSizeF KELList::sizeHint(Qt::SizeHint which, const QSizeF & /*constraint*/) const
{
    if (which == Qt::MaximumSize)
        return QSizeF(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    const int shownRows = which == Qt::MinimumSize ? leastRows : preferredRows;
    return QSizeF(shownRows * d->height, shownRows * d->height);
}
