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

void setAcceptsPointer(KELRadioBox *box, bool accepts)
{
    box->setAcceptHoverEvents(accepts);
    box->setAcceptTouchEvents(accepts);
    box->setFlag(QGraphicsItem::ItemIsSelectable, accepts);
    box->setAcceptedMouseButtons(accepts ? Qt::LeftButton : Qt::NoButton);
}

void unselect(KELRadioBox *box)
{
    setAcceptsPointer(box, true);
    box->setCheck(false);
}

} // namespace

// Replaces the base's private object: the public class has no member of its own, which is its ABI.
class KELRadioBoxPrivate : public KELControlPrivate
{
public:
    using KELControlPrivate::KELControlPrivate;

    static KELRadioBoxPrivate *get(const KELRadioBox *box)
    {
        return static_cast<KELRadioBoxPrivate *>(KELControlPrivate::get(box));
    }

    QVector<KELRadioBoxGroupPrivate *> groups; // living ones
};

class KELRadioBoxGroupPrivate
{
public:
    explicit KELRadioBoxGroupPrivate(KELRadioBoxGroup *group) : q(group) { }
    ~KELRadioBoxGroupPrivate();

    void add(KELRadioBox *box, int id);
    void forget(KELRadioBox *box);
    bool isSelected(const KELRadioBox *box) const { return idToBox.value(currentId) == box; }
    // clicked is the box whose checked() asks for it, or null.
    void select(int id, const KELRadioBox *clicked);
    void selectClicked(KELRadioBox *box);
    void abandonSelection(int id, const KELRadioBox *clicked) const;
    void enforceUnselected(int previousId, const KELRadioBox *previous) const;
    void applySelection(const KELRadioBox *clicked);
    void refusePointer(KELRadioBox *box) const;

    KELRadioBoxGroup *const q;
    int currentId = 0;
    QHash<int, KELRadioBox *> idToBox;
    QHash<KELRadioBox *, int> boxToId;
    QMultiHash<KELRadioBox *, QMetaObject::Connection> connections;
    quint64 selectionGeneration = 0; // counts the selections that were begun
    const KELRadioBox *boxBeingChecked = nullptr; // by the group

private:
    Q_DISABLE_COPY(KELRadioBoxGroupPrivate)
};

KELRadioBox::KELRadioBox(QGraphicsObject *parent) :
    KELRoundRectControl(parent, KELControlPrivate::newStyle(), new KELRadioBoxPrivate(this))
{
    style(); // sets the look, as each call does
    setAcceptsPointer(this, true);
}

KELRadioBox::~KELRadioBox()
{
    const QVector<KELRadioBoxGroupPrivate *> groups = KELRadioBoxPrivate::get(this)->groups;
    for (KELRadioBoxGroupPrivate *group : groups)
        group->forget(this);
}

KELRoundRectControlStyle *KELRadioBox::style()
{
    // Compat: every call puts these four fields back
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
    // Compat: the rectangle as it is stored, not moved by that of a parent
    const QRectF &rect = m_style->boundRect;
    const QRectF circle(rect.x() + rect.width() * 0.5 - circleSizePx * 0.5,
                        rect.y() + rect.height() * 0.5 - circleSizePx * 0.5, circleSizePx,
                        circleSizePx);
    const auto makeKey = [&] {
        KELLookKey key(&staticMetaObject, rect);
        key << qreal(m_style->borderWidth) << m_style->borderBrush << m_style->backgroundBrush
            << m_style->foregroundBrush << quint64(m_style->isCheck);
        return key;
    };
    KELLook::paint(painter, makeKey, [&] {
        painter->setPen(KELPainting::outlinePen(m_style->borderBrush, m_style->borderWidth));
        painter->setBrush(KELPainting::usableBrush(m_style->backgroundBrush));
        KELPainting::drawEllipse(painter, circle);
        if (!m_style->isCheck)
            return;
        painter->setPen(Qt::NoPen);
        painter->setBrush(KELPainting::usableBrush(m_style->foregroundBrush));
        KELPainting::drawEllipse(painter,
                                 circle.adjusted(dotInsetPx, dotInsetPx, -dotInsetPx, -dotInsetPx));
    });
}

void KELRadioBox::mousePressEvent(QGraphicsSceneMouseEvent *event)
{
    const QPointer<KELRadioBox> alive(this);
    KELRoundRectControl::mousePressEvent(event);
    if (!KELPress::isOwn(alive) || event->button() != Qt::LeftButton)
        return;
    // The selected box of a group is deaf, and stays checked: a slot of this press may have
    // selected it, and a box that holds the grab gets presses although it accepts no buttons.
    if (isCheck() && !acceptedMouseButtons().testFlag(Qt::LeftButton))
        return;
    setCheck(!isCheck());
    KELPress::finishDelivery(alive, event);
}

void KELRadioBox::onCheckedEvent(bool check)
{
    const QPointer<KELRadioBox> alive(this);
    // Compat: the argument is reported, not the stored state
    if (check)
        Q_EMIT checked();
    else
        Q_EMIT unchecked();
    if (alive)
        Q_EMIT checkChanged();
}

KELRadioBoxGroupPrivate::~KELRadioBoxGroupPrivate()
{
    for (const QMetaObject::Connection &connection : qAsConst(connections))
        QObject::disconnect(connection);
    for (auto it = boxToId.keyBegin(); it != boxToId.keyEnd(); ++it)
        KELRadioBoxPrivate::get(*it)->groups.removeOne(this);
}

void KELRadioBoxGroupPrivate::add(KELRadioBox *box, int id)
{
    idToBox.insert(id, box);
    boxToId.insert(box, id);
    QVector<KELRadioBoxGroupPrivate *> &groups = KELRadioBoxPrivate::get(box)->groups;
    if (!groups.contains(this))
        groups.append(this);

    const QPointer<KELRadioBoxGroup> alive(q);
    if (id == currentId) {
        box->setCheck(true);
        if (alive && isSelected(box))
            refusePointer(box);
        if (!alive || !boxToId.contains(box))
            return;
    }
    connections.insert(box,
                       QObject::connect(
                           box, &KELRadioBox::checked, box, [this, box] { selectClicked(box); },
                           Qt::DirectConnection));
}

void KELRadioBoxGroupPrivate::forget(KELRadioBox *box)
{
    boxToId.remove(box);
    connections.remove(box);
    for (auto it = idToBox.begin(); it != idToBox.end();)
        it = *it == box ? idToBox.erase(it) : std::next(it);
}

void KELRadioBoxGroupPrivate::selectClicked(KELRadioBox *box)
{
    // A slot of this very checked() has selected another box: the newer selection wins.
    if (box == boxBeingChecked && !box->isCheck())
        return;
    select(boxToId[box], box);
}

void KELRadioBoxGroupPrivate::select(int id, const KELRadioBox *clicked)
{
    if (id == currentId || !idToBox.contains(id))
        return;
    const QPointer<KELRadioBoxGroup> alive(q);
    const quint64 generation = ++selectionGeneration;
    const int previousId = currentId;
    const QPointer<KELRadioBox> previous(idToBox.value(previousId));
    if (previous)
        unselect(previous);
    if (alive && generation != selectionGeneration) {
        abandonSelection(id, clicked);
        return;
    }
    if (alive) {
        currentId = id;
        enforceUnselected(previousId, previous);
    }
    if (alive)
        applySelection(clicked);
    if (alive)
        Q_EMIT alive->idChanged();
}

// A slot has selected another box before id was selected: the newer selection wins.
void KELRadioBoxGroupPrivate::abandonSelection(int id, const KELRadioBox *clicked) const
{
    KELRadioBox *const box = idToBox.value(id);
    if (box && box == clicked && !isSelected(box))
        box->setCheck(false);
}

// A slot may have checked the box that was just unselected, or added another one under its id.
void KELRadioBoxGroupPrivate::enforceUnselected(int previousId, const KELRadioBox *previous) const
{
    KELRadioBox *const box = idToBox.value(previousId);
    if (!box || isSelected(box))
        return;
    if (box == previous)
        box->setCheck(false);
    else
        unselect(box);
}

void KELRadioBoxGroupPrivate::applySelection(const KELRadioBox *clicked)
{
    KELRadioBox *const box = idToBox.value(currentId); // null when a slot destroyed it
    if (!box)
        return;
    const QPointer<KELRadioBoxGroup> alive(q);
    refusePointer(box);
    if (!alive || !isSelected(box) || (box == clicked && box->isCheck()))
        return;
    const QPointer<KELRadioBox> aliveBox(box);
    const KELRadioBox *const outer = std::exchange(boxBeingChecked, box);
    box->setProperty("check", true);
    if (alive)
        boxBeingChecked = outer;
    if (aliveBox)
        box->update();
}

void KELRadioBoxGroupPrivate::refusePointer(KELRadioBox *box) const
{
    const QPointer<KELRadioBoxGroup> alive(q);
    setAcceptsPointer(box, false);
    // This may have deselected it in the scene, and a slot of that may have selected another box.
    if (alive && boxToId.contains(box) && !isSelected(box))
        setAcceptsPointer(box, true);
}

KELRadioBoxGroup::KELRadioBoxGroup(QObject *parent) :
    QObject(parent), d(new KELRadioBoxGroupPrivate(this))
{ }

KELRadioBoxGroup::~KELRadioBoxGroup()
{
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
        // Compat: misspelling kept
        qDebug() << "waring : id" << id << "is already exist";
        return;
    }
    d->add(box, id);
}

void KELRadioBoxGroup::setId(int idin)
{
    d->select(idin, nullptr);
}
