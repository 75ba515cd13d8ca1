// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "kelrow.h"

#include "kelglide_p.h"
#include "kelmotion.h"
#include "kelrowpainter_p.h"
#include "keltouch.h"

#include <QtCore/QPointer>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QGraphicsScene>

#include <keliconfont.h>

class KELRowPrivate
{
public:
    explicit KELRowPrivate(KELRow *newRow) : row(newRow) { }

    void contentChanged();
    void setText(QString *text, const QString &newText);
    KELRow *otherCheckedRadio() const;
    void showChecked(bool checked);
    void knobMoved();
    void activate();

    KELRow *const row;
    KELRowContent content;
    KELRowCache cache;
    KELGlide knob;
    KELRow::Card card = KELRow::NoCard;
    bool hasSeparator = true;
};

void KELRowPrivate::contentChanged()
{
    row->updateGeometry();
    row->update();
}

void KELRowPrivate::setText(QString *text, const QString &newText)
{
    if (*text == newText)
        return;
    *text = newText;
    contentChanged();
}

KELRow *KELRowPrivate::otherCheckedRadio() const
{
    const QGraphicsItem *parent = row->parentItem();
    QList<QGraphicsItem *> items;
    if (parent)
        items = parent->childItems();
    else if (row->scene())
        items = row->scene()->items();
    for (QGraphicsItem *item : qAsConst(items)) {
        auto *other = qobject_cast<KELRow *>(item->toGraphicsObject());
        if (other && other != row && other->parentItem() == parent && other->end() == KELRow::Radio
            && other->isChecked())
            return other;
    }
    return nullptr;
}

void KELRowPrivate::showChecked(bool checked)
{
    content.isOn = checked;
    if (content.end == KELRow::Switch)
        knob.glideTo(checked, KELMotion::switchMs, row);
    else
        knob.setValue(checked);
    knobMoved();
}

void KELRowPrivate::knobMoved()
{
    row->update();
    if (!row->isVisible() || !row->scene())
        knob.finish();
}

void KELRowPrivate::activate()
{
    const QPointer<KELRow> self(row);
    if (content.end == KELRow::Switch)
        row->setChecked(!content.isOn);
    else if (content.end == KELRow::Radio)
        row->setChecked(true);
    if (self)
        Q_EMIT self->clicked();
}

KELRow::KELRow(QGraphicsItem *parent) : KELPart(parent), d(new KELRowPrivate(this))
{
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

KELRow::~KELRow()
{
    delete d;
}

QString KELRow::caption() const
{
    return d->content.caption;
}

void KELRow::setCaption(const QString &caption)
{
    d->setText(&d->content.caption, caption);
}

QString KELRow::detail() const
{
    return d->content.detail;
}

void KELRow::setDetail(const QString &detail)
{
    d->setText(&d->content.detail, detail);
}

QString KELRow::value() const
{
    return d->content.value;
}

void KELRow::setValue(const QString &value)
{
    d->setText(&d->content.value, value);
}

KELIconFont KELRow::glyph() const
{
    const QString &glyph = d->content.glyph;
    return KELIconFont(glyph.isEmpty() ? 0 : glyph.at(0).unicode());
}

void KELRow::setGlyph(const KELIconFont &glyph)
{
    const QChar icon = glyph.getIcon();
    d->setText(&d->content.glyph, icon.isNull() ? QString() : QString(icon));
}

QPixmap KELRow::picture() const
{
    return d->content.picture;
}

void KELRow::setPicture(const QPixmap &picture)
{
    d->content.picture = picture;
    d->contentChanged();
}

KELRow::End KELRow::end() const
{
    return d->content.end;
}

void KELRow::setEnd(End end)
{
    d->content.end = end >= NoEnd && end <= Arrow ? end : NoEnd;
    d->contentChanged();
}

bool KELRow::isChecked() const
{
    return d->content.isOn;
}

// A slot may check another row, or delete any.
void KELRow::setChecked(bool checked)
{
    if (d->content.isOn == checked)
        return;
    const QPointer<KELRow> self(this);
    d->showChecked(checked);
    while (self && checked && d->content.isOn && d->content.end == Radio) {
        KELRow *other = d->otherCheckedRadio();
        if (!other)
            break;
        other->d->showChecked(false);
        Q_EMIT other->checkedChanged(false);
    }
    if (self && d->content.isOn == checked)
        Q_EMIT checkedChanged(checked);
}

bool KELRow::hasSeparator() const
{
    return d->hasSeparator;
}

void KELRow::setSeparator(bool separator)
{
    d->hasSeparator = separator;
    update();
}

KELRow::Card KELRow::card() const
{
    return d->card;
}

void KELRow::setCard(Card card)
{
    d->card = card >= NoCard && card <= WholeCard ? card : NoCard;
    update();
}

void KELRow::formCard(const QList<KELRow *> &rows)
{
    for (KELRow *row : rows) {
        const bool isFirst = row == rows.first();
        const bool isLast = row == rows.last();
        if (row)
            row->setCard(isFirst ? (isLast ? WholeCard : CardTop)
                                 : (isLast ? CardBottom : CardMiddle));
    }
}

void KELRow::paint(QPainter *painter, const QStyleOptionGraphicsItem * /*option*/,
                   QWidget * /*widget*/)
{
    d->content.isEnabled = isEnabled();
    KELRowState state;
    state.isPressed = isPressed();
    state.isFocusShown = isFocusShown();
    state.hasSeparator = d->hasSeparator;
    state.card = d->card;
    state.knob = d->knob.value();
    state.direction = layoutDirection();
    KELRowPainter::paint(painter, rect(), *partStyle(), d->content, state, &d->cache);
}

void KELRow::releaseEvent(const QPointF & /*pos*/, bool isTap)
{
    if (isTap)
        d->activate();
}

void KELRow::keyPressEvent(QKeyEvent *event)
{
    KELPart::keyPressEvent(event);
    const int key = event->key();
    if (!isPlainKey(event)
        || (key != Qt::Key_Space && key != Qt::Key_Return && key != Qt::Key_Enter
            && key != Qt::Key_Select))
        return;
    event->accept();
    if (!event->isAutoRepeat())
        d->activate();
}

void KELRow::timerEvent(QTimerEvent *event)
{
    if (d->knob.tick(event->timerId()))
        d->knobMoved();
    else
        KELPart::timerEvent(event);
}

QSizeF KELRow::sizeHint(Qt::SizeHint which, const QSizeF &constraint) const
{
    if (which == Qt::MaximumSize)
        return KELPart::sizeHint(which, constraint);
    const QSizeF preferred = KELRowPainter::hint(*partStyle(), d->content);
    return which == Qt::MinimumSize ? QSizeF(KELTouch::leastSize(), preferred.height()) : preferred;
}
