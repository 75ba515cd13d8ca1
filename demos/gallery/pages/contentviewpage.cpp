// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "contentviewpage.h"

#include "eventlog.h"
#include "iconset.h"
#include "parts.h"
#include "window.h"

#include <KELContentView>

#include <KELContentView>
#include <QtGui/QLinearGradient>

namespace {

const char *const contentNames[] = {"keypad", "button", "gradient"};
const char *const sizeNames[] = {"fill", "medium", "small"};
const char *const enabledNames[] = {"enabled", "disabled"};

KELRoundRectControl *makeGradient(const QSizeF &size)
{
    auto *control = new KELRoundRectControl;
    control->setboundRect(QRectF(QPointF(), size));
    QLinearGradient gradient(0, 0, size.width(), size.height());
    gradient.setColorAt(0, QColor(0x14, 0x9e, 0x8c));
    gradient.setColorAt(1, QColor(0x0b, 0x63, 0xce));
    control->style()->backgroundBrush = gradient;
    control->style()->borderBrush = QBrush(Qt::NoBrush);
    control->style()->foregroundBrush = QColor(Theme::onAccent);
    control->style()->xRadius = control->style()->yRadius = 24;
    control->style()->font = Theme::font(Theme::titlePx, true);
    control->style()->text = QStringLiteral("%1 x %2").arg(size.width()).arg(size.height());
    return control;
}

KELRoundRectControl *makeButton(const QSizeF &size, EventLog *log, const IconSet &icons)
{
    auto *button = new KELPushButton;
    button->setboundRect(QRectF(QPointF(), size));
    Parts::dress(button);
    button->setText(QStringLiteral("Embedded button"));
    button->style()->icon = icons.glyph(Icon::bell);
    button->style()->iconSize = 32;
    button->style()->backgroundBrush = QColor(Theme::accentTint);
    button->style()->margins = QMarginsF(4, 6, 4, 6);
    log->watch(button, button->text());
    return button;
}

KELRoundRectControl *makeKeypad(const QSizeF &size, EventLog *log)
{
    auto *pad = new KELRoundRectControl;
    pad->setboundRect(QRectF(QPointF(), size));
    pad->setAcceptedMouseButtons(Qt::NoButton);
    pad->style()->backgroundBrush = QColor(Theme::accentTint);
    pad->style()->borderBrush = QBrush(Qt::NoBrush);
    pad->style()->xRadius = pad->style()->yRadius = Theme::radius;
    const QRectF room = pad->rect().adjusted(Theme::gap, Theme::gap, -Theme::gap, -Theme::gap);
    const QVector<QRectF> cells = Parts::grid(room, 3, Parts::fitting(room.height(), 44, 3));
    for (int i = 0; i < cells.size(); ++i) {
        const QString digit = QString::number(i + 1);
        KELPushButton *key = Parts::addButton(pad, cells.at(i), digit);
        key->style()->font = Theme::font(Theme::titlePx, true);
        log->watch(key, QStringLiteral("Key ") + digit);
    }
    return pad;
}

} // namespace

ContentViewPage::ContentViewPage(const PageHost &pageHost, const QRectF &area) :
    Page(pageHost, area, QStringLiteral("Content view"),
         QStringLiteral("Another view inside this one, sized by the control that it shows"))
{
    const QRectF room = body();
    const QVector<QRectF> cells = Parts::grid({room.x(), room.y(), room.width(), Theme::touch}, 3,
                                              1);
    m_contentButton = addCycle(cells.at(0), QStringLiteral("content"),
                               int(std::size(contentNames)));
    m_sizeButton = addCycle(cells.at(1), QStringLiteral("size"), int(std::size(sizeNames)));
    m_enabledButton = addCycle(cells.at(2), QStringLiteral("state"), int(std::size(enabledNames)));
    m_frame = Parts::addCard(this, room.adjusted(0, Theme::touch + Theme::gap, 0, 0));
    m_frame->setObjectName(QStringLiteral("embedded-frame"));
}

ContentViewPage::~ContentViewPage()
{
    delete m_embedded;
}

void ContentViewPage::attached()
{
    m_embedded = new KELContentView(host.view);
    m_embedded->setObjectName(QStringLiteral("embedded-view"));
    refresh();
    m_embedded->show();
}

KELPushButton *ContentViewPage::addCycle(const QRectF &rect, const QString &key, int choices)
{
    KELPushButton *button = Parts::addButton(this, rect, QString());
    button->setObjectName(QStringLiteral("cycle-") + key);
    connect(button, &KELPushButton::mouseClicked, this, [this, button, key, choices] {
        int &choice = remembered(key);
        choice = (choice + 1) % choices;
        refresh();
        host.log->add(QStringLiteral("Content view"), button->text());
    });
    return button;
}

void ContentViewPage::refresh()
{
    const int content = remembered(QStringLiteral("content"));
    const int size = remembered(QStringLiteral("size"));
    const int state = remembered(QStringLiteral("state"));
    m_contentButton->setText(QStringLiteral("Content: ") + QLatin1String(contentNames[content]));
    m_sizeButton->setText(QStringLiteral("Size: ") + QLatin1String(sizeNames[size]));
    m_enabledButton->setText(QStringLiteral("State: ") + QLatin1String(enabledNames[state]));

    const QRect frame = host.view->mapFromScene(m_frame->sceneBoundingRect()).boundingRect();
    KELRoundRectControl *control = makeContent(contentSize(frame.size()));
    control->setEnabled(state == 0);
    m_embedded->setContent(control);
    m_embedded->move(frame.center() - m_embedded->rect().center());
}

QSizeF ContentViewPage::contentSize(const QSizeF &room) const
{
    const QSizeF whole = (room - QSizeF(2 * Theme::gap, 2 * Theme::gap)).expandedTo(QSizeF(1, 1));
    const qreal share[] = {1, 0.75, 0.5};
    const qreal factor = share[remembered(QStringLiteral("size"))];
    return {qreal(int(whole.width() * factor)), qreal(int(whole.height() * factor))};
}

KELRoundRectControl *ContentViewPage::makeContent(const QSizeF &size) const
{
    switch (remembered(QStringLiteral("content"))) {
    case 1:
        return makeButton(size, host.log, *host.icons);
    case 2:
        return makeGradient(size);
    default:
        return makeKeypad(size, host.log);
    }
}
