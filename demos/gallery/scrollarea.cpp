// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "scrollarea.h"

#include <QtGui/QPainter>
#include <QtGui/qevent.h>
#include <QtWidgets/QGraphicsLayout>
#include <QtWidgets/QGraphicsSceneWheelEvent>
#include <QtWidgets/QScroller>

namespace {

constexpr qreal markPx = 4;
constexpr qreal leastMarkPx = 24;
constexpr qreal wheelPx = 48;
constexpr int notch = 120;

// How far the content is scrolled, at the edge of the area.
class Mark : public QGraphicsWidget
{
public:
    explicit Mark(const KELPartStyle *style, QGraphicsItem *parent) :
        QGraphicsWidget(parent), m_style(style)
    {
        setAcceptedMouseButtons(Qt::NoButton);
    }
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *) override
    {
        painter->fillRect(rect(), m_style->mutedBrush);
    }

private:
    const KELPartStyle *const m_style;
};

} // namespace

ScrollArea::ScrollArea(QGraphicsItem *parent) :
    KELPart(parent), m_content(new QGraphicsWidget(this)), m_mark(new Mark(partStyle(), this))
{
    setFlag(ItemClipsChildrenToShape);
    setFocusPolicy(Qt::NoFocus);
    m_clock.start();
    QScroller *scroller = QScroller::scroller(this);
    QScrollerProperties properties = scroller->scrollerProperties();
    properties.setScrollMetric(QScrollerProperties::HorizontalOvershootPolicy,
                               QScrollerProperties::OvershootAlwaysOff);
    properties.setScrollMetric(QScrollerProperties::VerticalOvershootPolicy,
                               QScrollerProperties::OvershootAlwaysOff);
    scroller->setScrollerProperties(properties);
}

QGraphicsWidget *ScrollArea::content() const
{
    return m_content;
}

void ScrollArea::fitContent()
{
    QGraphicsLayout *layout = m_content->layout();
    layout->activate();
    const qreal wanted = layout->effectiveSizeHint(Qt::PreferredSize, {size().width(), -1})
                             .height();
    m_content->resize(size().width(), wanted);
    setPosition(position());
}

qreal ScrollArea::position() const
{
    return -m_content->y();
}

void ScrollArea::setPosition(qreal position)
{
    const qreal wanted = qRound(qBound(0.0, position, greatestPosition()));
    m_content->setY(-wanted);
    const qreal height = size().height();
    const qreal whole = qMax(height, m_content->size().height());
    const qreal length = qMax(leastMarkPx, height * height / whole);
    const qreal x = layoutDirection() == Qt::RightToLeft ? 0 : size().width() - markPx;
    const qreal way = greatestPosition() > 0 ? wanted / greatestPosition() : 0;
    m_mark->setGeometry(x, qRound(way * (height - length)), markPx, length);
    m_mark->setVisible(greatestPosition() > 0);
    Q_EMIT positionChanged();
}

void ScrollArea::paint(QPainter *, const QStyleOptionGraphicsItem *, QWidget *) { }

bool ScrollArea::event(QEvent *event)
{
    if (event->type() == QEvent::ScrollPrepare) {
        auto *prepare = static_cast<QScrollPrepareEvent *>(event);
        prepare->setViewportSize(size());
        prepare->setContentPosRange({0, 0, 0, greatestPosition()});
        prepare->setContentPos({0, position()});
        prepare->accept();
        return true;
    }
    if (event->type() == QEvent::Scroll) {
        event->accept();
        setPosition(static_cast<QScrollEvent *>(event)->contentPos().y());
        return true;
    }
    return KELPart::event(event);
}

bool ScrollArea::pressEvent(const QPointF &pos)
{
    if (greatestPosition() <= 0)
        return false;
    m_lastPos = pos;
    QScroller::scroller(this)->handleInput(QScroller::InputPress, pos, m_clock.elapsed());
    return true;
}

void ScrollArea::dragEvent(const QPointF &pos, bool)
{
    m_lastPos = pos;
    QScroller::scroller(this)->handleInput(QScroller::InputMove, pos, m_clock.elapsed());
}

void ScrollArea::releaseEvent(const QPointF &pos, bool)
{
    QScroller::scroller(this)->handleInput(QScroller::InputRelease, pos, m_clock.elapsed());
}

void ScrollArea::pressLostEvent()
{
    releaseEvent(m_lastPos, false);
}

void ScrollArea::wheelEvent(QGraphicsSceneWheelEvent *event)
{
    setPosition(position() - wheelPx * event->delta() / notch);
}

qreal ScrollArea::greatestPosition() const
{
    return qMax(0.0, m_content->size().height() - size().height());
}
