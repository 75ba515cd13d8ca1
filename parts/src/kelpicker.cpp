// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "kelpicker.h"

#include "kellist.h"
#include "keltouch.h"
#include "kelveil_p.h"

#include <QtCore/QStringListModel>
#include <QtGui/QKeyEvent>
#include <QtGui/QPalette>
#include <QtWidgets/QGraphicsScene>

namespace {

constexpr QRgb dimColour = qRgba(0, 0, 0, 77);

} // namespace

class KELPickerPrivate
{
public:
    explicit KELPickerPrivate(KELPicker *picker) : q(picker) { }

    int count() const { return model ? model->rowCount() : 0; }
    void showText() { q->setValue(row < 0 ? placeholder : text); }
    void connectModel() const;
    void makeCover();
    void makeList();
    QRectF placeOfList(qreal wantedHeight) const;
    void drop();
    int nextEnabled(int from, int direction) const;
    void handleKeyOfList(QKeyEvent *event) const;

    KELPicker *const q;
    QPointer<QAbstractItemModel> model;
    QPersistentModelIndex current;
    QString text;
    QString placeholder;
    int row = -1;
    QPointer<QGraphicsWidget> cover; // while the list is open
    QPointer<KELList> list;
    KELVeil veil;
};

// Each may make the current entry another one, or give it another text or row.
void KELPickerPrivate::connectModel() const
{
    for (const char *signal :
         {SIGNAL(rowsInserted(QModelIndex, int, int)), SIGNAL(rowsRemoved(QModelIndex, int, int)),
          SIGNAL(rowsMoved(QModelIndex, int, int, QModelIndex, int)), SIGNAL(layoutChanged()),
          SIGNAL(dataChanged(QModelIndex, QModelIndex)), SIGNAL(modelReset()), SIGNAL(destroyed())})
        QObject::connect(model, signal, q, SLOT(followModel()));
}

void KELPickerPrivate::makeCover()
{
    cover = new QGraphicsWidget;
    QPalette palette;
    palette.setColor(QPalette::Window, QColor::fromRgba(dimColour));
    cover->setPalette(palette);
    cover->setAutoFillBackground(true);
    q->scene()->addItem(cover);
    cover->installSceneEventFilter(q);
}

// Below the row, above it or, if it fits nowhere, where there is more room.
QRectF KELPickerPrivate::placeOfList(qreal wantedHeight) const
{
    const QRectF view = cover->rect();
    const QRectF field = cover->mapRectFromScene(q->mapRectToScene(q->rect()));
    const qreal above = qMin(field.top(), view.height());
    const qreal below = view.height() - qMax(0.0, field.bottom());
    const bool isBelow = below >= qMin(wantedHeight, above);
    qreal room = qMax(above, below);
    if (isBelow || wantedHeight <= above)
        room = isBelow ? below : above;
    const bool isCramped = room < KELTouch::leastSize();
    if (isCramped)
        room = view.height();
    const QSizeF size(qMin(field.width(), view.width()), qMin(wantedHeight, room));
    const qreal left = qBound(0.0, field.left(), view.width() - size.width());
    const qreal edge = isBelow ? view.height() - room : room - size.height();
    return {QPointF(left, isCramped ? 0 : edge), size};
}

void KELPickerPrivate::makeList()
{
    list = new KELList(cover);
    list->setFocusPolicy(Qt::NoFocus); // its keys come by the cover
    list->setMinimumSize(0, 0); // where there is less room than it asks for
    list->setSelectable(true);
    list->setLayoutDirection(q->layoutDirection());
    *list->partStyle() = *q->partStyle();
    list->styleChanged();
    list->setModel(model);
    const qreal rowHeight = list->rowRect(0).height();
    list->setGeometry(placeOfList(rowHeight * count()));
    list->setCurrentRow(row);
    const qreal above = (list->size().height() / rowHeight - 1) / 2;
    list->setPosition(int(rowHeight) * qRound(row - above));
    QObject::connect(list, &KELList::clicked, q, &KELPicker::choose);
}

// While Qt is in the middle of its own work, when no code of the application may run.
void KELPickerPrivate::drop()
{
    if (!cover)
        return;
    QGraphicsWidget *dropped = cover;
    cover.clear();
    list.clear();
    dropped->disconnect(q);
    q->setFlag(QGraphicsItem::ItemSendsScenePositionChanges, false);
    veil.uncover();
    dropped->hide();
    dropped->deleteLater();
}

// -1 if there is none.
int KELPickerPrivate::nextEnabled(int from, int direction) const
{
    const int rows = count();
    int next = from < 0 && direction < 0 ? rows - 1 : from + direction;
    while (next >= 0 && next < rows && !(model->flags(model->index(next, 0)) & Qt::ItemIsEnabled))
        next += direction;
    return next < rows ? next : -1;
}

void KELPickerPrivate::handleKeyOfList(QKeyEvent *event) const
{
    const int key = event->key();
    const bool isPress = event->type() == QEvent::KeyPress;
    if (isPress && (key == Qt::Key_Escape || key == Qt::Key_Back || key == Qt::Key_Cancel))
        q->close();
    else if (list)
        cover->scene()->sendEvent(list, event);
}

KELPicker::KELPicker(QGraphicsItem *parent) : KELRow(parent), d(new KELPickerPrivate(this))
{
    setEnd(Arrow);
    connect(this, &KELRow::clicked, this, &KELPicker::open);
}

KELPicker::~KELPicker()
{
    d->drop();
    delete d;
}

QAbstractItemModel *KELPicker::model() const
{
    return d->model;
}

void KELPicker::setModel(QAbstractItemModel *model)
{
    if (model == d->model)
        return;
    const QPointer<KELPicker> self(this);
    const QPointer<QAbstractItemModel> next(model);
    close();
    if (!self)
        return;
    if (d->model) {
        disconnect(d->model, nullptr, this, nullptr);
        if (d->model->QObject::parent() == this)
            d->model->deleteLater();
    }
    d->model = next;
    d->current = QModelIndex();
    if (next)
        d->connectModel();
    followModel();
}

void KELPicker::setItems(const QStringList &items)
{
    setModel(new QStringListModel(items, this));
}

int KELPicker::currentIndex() const
{
    return d->row;
}

void KELPicker::setCurrentIndex(int index)
{
    const bool exists = index >= 0 && index < d->count();
    d->current = exists ? d->model->index(index, 0) : QModelIndex();
    if (d->list)
        d->list->setCurrentRow(d->current.row());
    followModel();
}

QString KELPicker::currentText() const
{
    return d->text;
}

QString KELPicker::placeholder() const
{
    return d->placeholder;
}

void KELPicker::setPlaceholder(const QString &placeholder)
{
    d->placeholder = placeholder;
    d->showText();
}

bool KELPicker::isOpen() const
{
    return !d->cover.isNull();
}

void KELPicker::open()
{
    if (isOpen() || scene() == nullptr || scene()->views().isEmpty() || !isVisible()
        || !isEnabled())
        return;
    if (d->count() == 0)
        return;
    const QPointer<KELPicker> self(this);
    d->makeCover();
    d->veil.cover(d->cover);
    if (!self || !isOpen())
        return;
    setFlag(ItemSendsScenePositionChanges);
    connect(d->cover, &QGraphicsWidget::geometryChanged, this, &KELPicker::close);
    d->makeList();
}

void KELPicker::close()
{
    if (!isOpen())
        return;
    d->drop();
    d->veil.returnFocus();
}

// Both values are new before the first signal. A slot may choose another entry.
void KELPicker::followModel()
{
    const QPointer<KELPicker> self(this);
    if (d->count() == 0)
        close();
    if (!self)
        return;
    const int row = d->current.row();
    const QString text = d->current.data().toString();
    const bool isOtherRow = row != d->row;
    const bool isOtherText = text != d->text;
    d->row = row;
    d->text = text;
    d->showText();
    if (isOtherRow)
        Q_EMIT currentIndexChanged(row);
    if (self && isOtherText && text == d->text)
        Q_EMIT currentTextChanged(text);
}

void KELPicker::choose(const QModelIndex &index)
{
    const QPointer<KELPicker> self(this);
    const int row = index.row();
    close();
    if (self)
        setCurrentIndex(row);
    if (self)
        Q_EMIT activated(row);
}

void KELPicker::keyPressEvent(QKeyEvent *event)
{
    const QPointer<KELPicker> self(this);
    const int key = event->key();
    if (key == Qt::Key_Down && event->modifiers() == Qt::AltModifier) {
        open();
        return;
    }
    KELRow::keyPressEvent(event);
    if (!self || !isPlainKey(event) || (key != Qt::Key_Down && key != Qt::Key_Up))
        return;
    event->accept();
    const int next = d->nextEnabled(d->row, key == Qt::Key_Down ? 1 : -1);
    if (next >= 0)
        choose(d->model->index(next, 0));
}

void KELPicker::resizeEvent(QGraphicsSceneResizeEvent *event)
{
    KELRow::resizeEvent(event);
    d->drop();
}

// What comes for the list itself goes there; this is what comes beside it, and all keys.
bool KELPicker::sceneEventFilter(QGraphicsItem *watched, QEvent *event)
{
    if (watched != d->cover.data())
        return KELRow::sceneEventFilter(watched, event);
    switch (event->type()) {
    case QEvent::GraphicsSceneMousePress:
    case QEvent::GraphicsSceneMouseDoubleClick:
        close();
        return true;
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        d->handleKeyOfList(static_cast<QKeyEvent *>(event));
        return true;
    default:
        return event->type() == QEvent::GraphicsSceneContextMenu;
    }
}

QVariant KELPicker::itemChange(GraphicsItemChange change, const QVariant &value)
{
    if ((change == ItemVisibleHasChanged && !isVisible())
        || (change == ItemEnabledHasChanged && !isEnabled()) || change == ItemSceneHasChanged
        || change == ItemScenePositionHasChanged)
        d->drop();
    return KELRow::itemChange(change, value);
}
