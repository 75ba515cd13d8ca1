// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "drawer.h"

#include "parts.h"

#include <QtCore/QHash>
#include <QtGui/QMouseEvent>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QScroller>

namespace {

constexpr qreal headPx = Theme::touch + Theme::gap;
constexpr qreal buttonWidthPx = 96;
constexpr int keptLines = 200;

QPlainTextEdit *newText(QWidget *viewport)
{
    auto *text = new QPlainTextEdit(viewport);
    text->setReadOnly(true);
    text->setFocusPolicy(Qt::NoFocus);
    text->setTextInteractionFlags(Qt::NoTextInteraction);
    text->setFrameShape(QFrame::NoFrame);
    text->setLayoutDirection(Qt::LeftToRight);
    text->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    text->setFont(Theme::monospaced(Theme::smallPx));
    QPalette palette;
    palette.setColor(QPalette::Base, QColor(Theme::card));
    palette.setColor(QPalette::Text, QColor(Theme::ink));
    text->setPalette(palette);
    text->hide();
    return text;
}

} // namespace

Drawer::Drawer(QWidget *viewport, const QRectF &rect, const QString &title,
               QGraphicsObject *parent) :
    KELRoundRectControl(parent), m_text(newText(viewport)), m_buttonRight(rect.width() - Theme::gap)
{
    setboundRect(rect);
    setZValue(1);
    hide();
    style()->backgroundBrush = QColor(Theme::card);
    style()->borderBrush = QColor(Theme::line);
    style()->borderWidth = 1;
    style()->xRadius = style()->yRadius = Theme::radius;
    Parts::addLabel(this, {Theme::pageMargin, 0, rect.width() - 2 * Theme::pageMargin, headPx},
                    title, Theme::font(Theme::bodyPx, true));
    KELPushButton *close = addButton(tr("Close"), QStringLiteral("drawer-close"));
    connect(close, &KELPushButton::mouseClicked, this, [this] {
        setOpen(false);
        Q_EMIT closed();
    });
    m_clock.start();
    m_text->viewport()->installEventFilter(this);
    const QRectF room = rect.adjusted(Theme::gap, headPx, -Theme::gap, -Theme::gap);
    m_text->setGeometry(room.toRect());
}

Drawer::~Drawer()
{
    delete m_text;
}

void Drawer::setText(const QString &text)
{
    m_text->setPlainText(text);
}

void Drawer::append(const QString &line)
{
    m_text->setMaximumBlockCount(keptLines);
    m_text->appendPlainText(line);
    m_text->verticalScrollBar()->setValue(m_text->verticalScrollBar()->maximum());
}

KELPushButton *Drawer::addButton(const QString &text, const QString &name)
{
    const QRectF place(m_buttonRight - buttonWidthPx, Theme::gap / 2, buttonWidthPx, Theme::touch);
    KELPushButton *button = Parts::addButton(this, place, text);
    button->setObjectName(name);
    m_buttonRight = place.left() - Theme::gap;
    return button;
}

void Drawer::setOpen(bool open)
{
    setVisible(open);
    m_text->setVisible(open);
    if (open)
        m_text->raise();
}

// By hand: Qt does not delete what QScroller::grabGesture() makes for a widget.
bool Drawer::eventFilter(QObject *watched, QEvent *event)
{
    static const QHash<int, QScroller::Input> inputs = {
        {QEvent::MouseButtonPress, QScroller::InputPress},
        {QEvent::MouseMove, QScroller::InputMove},
        {QEvent::MouseButtonRelease, QScroller::InputRelease}};
    if (!inputs.contains(event->type()))
        return KELRoundRectControl::eventFilter(watched, event);
    QScroller::scroller(watched)->handleInput(inputs.value(event->type()),
                                              static_cast<QMouseEvent *>(event)->localPos(),
                                              m_clock.elapsed());
    return true;
}

bool Drawer::isOpen() const
{
    return isVisible();
}
