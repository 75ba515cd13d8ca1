// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "kelradiobox.h"

#include "kelpainting_p.h"
#include "kelroundrectcontrol_p.h"

#include <QtCore/QDebug>
#include <QtCore/QHash>
#include <QtCore/QVector>
#include <QtGui/QPainter>
#include <QtWidgets/QGraphicsSceneMouseEvent>

#include <utility>

namespace {

constexpr qreal circleSizePx = 25;
constexpr qreal dotInsetPx = 3;

void setListening(KELRadioBox *box, bool listening)
{
    box->setAcceptHoverEvents(listening);
    box->setAcceptTouchEvents(listening);
    box->setFlag(QGraphicsItem::ItemIsSelectable, listening);
    box->setAcceptedMouseButtons(listening ? Qt::LeftButton : Qt::NoButton);
}

void unselect(KELRadioBox *box)
{
    setListening(box, true);
    box->setCheck(false);
}

} // namespace

class KELRadioBoxPrivate
{
public:
    QVector<KELRadioBoxGroup *> groups; // living ones
};

KELRadioBox::KELRadioBox(QGraphicsObject *parent) :
    KELRoundRectControl(parent), d(new KELRadioBoxPrivate)
{
    style();
    setListening(this, true);
}

KELRadioBox::~KELRadioBox()
{
    for (KELRadioBoxGroup *group : qAsConst(d->groups))
        group->forget(this);
    delete d;
}

KELRoundRectControlStyle *KELRadioBox::style()
{
    // kept: every call puts these four fields back
    m_style->backgroundBrush = QBrush(Qt::NoBrush);
    m_style->borderBrush = KELPainting::solidBrush(qRgb(255, 255, 255));
    m_style->borderWidth = 2.0F;
    m_style->foregroundBrush = KELPainting::solidBrush(qRgb(50, 173, 235));
    return m_style;
}

void KELRadioBox::paint(QPainter *painter, const QStyleOptionGraphicsItem * /*styleOption*/,
                        QWidget * /*widget*/)
{
    painter->setRenderHint(QPainter::Antialiasing, true);
    // kept: the rectangle as it is stored, not moved by that of a parent
    const QRectF &rect = m_style->boundRect;
    const QRectF circle(rect.x() + rect.width() * 0.5 - circleSizePx * 0.5,
                        rect.y() + rect.height() * 0.5 - circleSizePx * 0.5, circleSizePx,
                        circleSizePx);
    painter->setPen(KELPainting::outlinePen(m_style->borderBrush, m_style->borderWidth));
    painter->setBrush(m_style->backgroundBrush);
    KELPainting::drawEllipse(painter, circle);
    if (!m_style->isCheck)
        return;
    painter->setPen(Qt::NoPen);
    painter->setBrush(m_style->foregroundBrush);
    KELPainting::drawEllipse(painter,
                             circle.adjusted(dotInsetPx, dotInsetPx, -dotInsetPx, -dotInsetPx));
}

void KELRadioBox::mousePressEvent(QGraphicsSceneMouseEvent *event)
{
    const KELPressScope scope(this, event);
    const bool listened = acceptedMouseButtons().testFlag(Qt::LeftButton);
    KELRoundRectControl::mousePressEvent(event);
    if (!scope.isForControl() || event->button() != Qt::LeftButton)
        return;
    // A slot of this press may have had a group select the box: it stays checked then.
    if (listened && !acceptedMouseButtons().testFlag(Qt::LeftButton))
        return;
    setCheck(!isCheck());
}

void KELRadioBox::onCheckedEvent(bool check)
{
    const QPointer<KELRadioBox> alive(this);
    // kept: the argument is reported, not the stored state
    if (check)
        Q_EMIT checked();
    else
        Q_EMIT unchecked();
    if (alive)
        Q_EMIT checkChanged();
}

class KELRadioBoxGroupPrivate
{
public:
    int currentId = 0;
    QHash<int, KELRadioBox *> idToBox;
    QHash<KELRadioBox *, int> boxToId;
    QMultiHash<KELRadioBox *, QMetaObject::Connection> connections;
    quint64 selections = 0; // begun so far
    const KELRadioBox *entering = nullptr; // being checked by the group
};

KELRadioBoxGroup::KELRadioBoxGroup(QObject *parent) :
    QObject(parent), d(new KELRadioBoxGroupPrivate)
{ }

KELRadioBoxGroup::~KELRadioBoxGroup()
{
    for (const QMetaObject::Connection &connection : qAsConst(d->connections))
        disconnect(connection);
    for (auto it = d->boxToId.keyBegin(); it != d->boxToId.keyEnd(); ++it)
        (*it)->d->groups.removeOne(this);
    delete d;
}

int KELRadioBoxGroup::id() const
{
    return d->currentId;
}

void KELRadioBoxGroup::addRadioBox(KELRadioBox *box, int id)
{
    if (!box)
        return;
    if (d->idToBox.contains(id)) {
        // kept: spelled so
        qDebug() << "waring : id" << id << "is already exist";
        return;
    }
    d->idToBox.insert(id, box);
    d->boxToId.insert(box, id);
    if (!box->d->groups.contains(this))
        box->d->groups.append(this);

    const QPointer<KELRadioBoxGroup> alive(this);
    if (id == d->currentId) {
        box->setCheck(true);
        if (alive && isSelected(box))
            makeDeaf(box);
        if (!alive || !d->boxToId.contains(box))
            return;
    }
    d->connections.insert(box,
                          connect(
                              box, &KELRadioBox::checked, box, [this, box] { selectClicked(box); },
                              Qt::DirectConnection));
}

void KELRadioBoxGroup::selectClicked(KELRadioBox *box)
{
    // A slot of this very checked() has selected another box: that one stays.
    if (box == d->entering && !box->isCheck())
        return;
    select(d->boxToId[box], box);
}

void KELRadioBoxGroup::setId(int idin)
{
    select(idin, nullptr);
}

bool KELRadioBoxGroup::isSelected(const KELRadioBox *box) const
{
    return d->idToBox.value(d->currentId) == box;
}

// Selects id; clicked is the box whose checked() asks for it, or null.
void KELRadioBoxGroup::select(int id, const KELRadioBox *clicked)
{
    if (id == d->currentId || !d->idToBox.contains(id))
        return;
    const QPointer<KELRadioBoxGroup> alive(this);
    const quint64 selection = ++d->selections;
    const int previousId = d->currentId;
    const QPointer<KELRadioBox> previous(d->idToBox.value(previousId));
    if (previous)
        unselect(previous);
    if (alive && selection != d->selections) {
        giveUp(id, clicked);
        return;
    }
    if (alive) {
        d->currentId = id;
        unselectAgain(previousId, previous);
    }
    if (alive)
        enterSelected(clicked);
    if (alive)
        Q_EMIT idChanged();
}

// A slot has selected another box before id was selected: that one stays.
void KELRadioBoxGroup::giveUp(int id, const KELRadioBox *clicked)
{
    KELRadioBox *const box = d->idToBox.value(id);
    if (box && box == clicked && !isSelected(box))
        box->setCheck(false);
}

// A slot may have checked the box that was just unselected, or added another one under its id.
void KELRadioBoxGroup::unselectAgain(int previousId, const KELRadioBox *previous)
{
    KELRadioBox *const box = d->idToBox.value(previousId);
    if (!box || isSelected(box))
        return;
    if (box == previous)
        box->setCheck(false);
    else
        unselect(box);
}

void KELRadioBoxGroup::enterSelected(const KELRadioBox *clicked)
{
    KELRadioBox *const box = d->idToBox.value(d->currentId); // null when a slot destroyed it
    if (!box)
        return;
    const QPointer<KELRadioBoxGroup> alive(this);
    makeDeaf(box);
    if (!alive || !isSelected(box) || (box == clicked && box->isCheck()))
        return;
    const QPointer<KELRadioBox> aliveBox(box);
    const KELRadioBox *const outer = std::exchange(d->entering, box);
    box->setProperty("check", true);
    if (alive)
        d->entering = outer;
    if (aliveBox)
        box->update();
}

void KELRadioBoxGroup::makeDeaf(KELRadioBox *box)
{
    const QPointer<KELRadioBoxGroup> alive(this);
    setListening(box, false);
    // It may have been selected in the scene, so that a slot ran and chose another box.
    if (alive && d->boxToId.contains(box) && !isSelected(box))
        setListening(box, true);
}

void KELRadioBoxGroup::forget(KELRadioBox *box)
{
    d->boxToId.remove(box);
    d->connections.remove(box);
    for (auto it = d->idToBox.begin(); it != d->idToBox.end();)
        it = *it == box ? d->idToBox.erase(it) : std::next(it);
}
