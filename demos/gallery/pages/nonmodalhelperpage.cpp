// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "nonmodalhelperpage.h"

#include "eventlog.h"
#include "iconset.h"
#include "parts.h"

#include <KELContentView>
#include <KELLabel>
#include <KELNonModalhelper>
#include <KELRadioBox>
#include <QtCore/QEvent>

namespace {

constexpr qreal boxPx = 44;
constexpr qreal timeoutsWidthPx = 160;
constexpr qreal timeoutsHeightPx = 208;
constexpr qreal openerPx = 64;
constexpr qreal popupWidthPx = 240;
constexpr qreal popupHeightPx = 128;

// The index is the id in the group.
constexpr int timeoutsMs[] = {0, 2000, 5000};
constexpr int timeoutCount = int(std::size(timeoutsMs));

QString nameOf(int timeoutMs)
{
    return timeoutMs == 0 ? QStringLiteral("No time-out")
                          : QStringLiteral("%1 s").arg(timeoutMs / 1000);
}

} // namespace

NonModalHelperPage::NonModalHelperPage(const PageHost &pageHost, const QRectF &area) :
    Page(pageHost, area, QStringLiteral("Non-modal helper"),
         QStringLiteral("Makes a popup of any widget")),
    m_timeouts(new KELRadioBoxGroup(this))
{
    const QRectF room = body();
    const QRectF timeouts(room.x(), room.y(), isUpright() ? room.width() : timeoutsWidthPx,
                          isUpright() ? timeoutsHeightPx : room.height());
    const QRectF rest = isUpright() ? room.adjusted(0, timeouts.height() + Theme::pageMargin, 0, 0)
                                    : room.adjusted(timeouts.width() + Theme::pageMargin, 0, 0, 0);
    addTimeouts(Parts::addDarkPanel(this, timeouts));
    addOpener({rest.x(), rest.y(), rest.width(), openerPx});
    m_frame = Parts::addCard(this, rest.adjusted(0, openerPx + Theme::gap, 0, 0));
    m_frame->style()->font = Theme::font(Theme::smallPx);
    m_frame->style()->foregroundBrush = QColor(Theme::muted);
    m_frame->style()->text = QStringLiteral("The popup comes up here.");
}

NonModalHelperPage::~NonModalHelperPage()
{
    delete m_popup;
}

void NonModalHelperPage::attached()
{
    // The child of the viewport: that is who gets the presses beside the popup.
    m_popup = new KELContentView(host.view->viewport());
    m_popup->setFrameShape(QFrame::NoFrame);
    auto *content = new KELPushButton;
    content->setboundRect(0, 0, popupWidthPx, popupHeightPx);
    Parts::dressAsPrimary(content);
    content->style()->xRadius = content->style()->yRadius = 24;
    content->style()->text = QStringLiteral("Press beside me");
    content->setObjectName(QStringLiteral("popup-content"));
    m_popup->setContent(content);
    const QRect frame = host.view->mapFromScene(m_frame->sceneBoundingRect()).boundingRect();
    m_popup->move(frame.center() - m_popup->rect().center());
    host.log->watch(content, QStringLiteral("Popup"));
    m_popup->hide(); // otherwise it came up with the window
    m_popup->installEventFilter(this);
}

bool NonModalHelperPage::eventFilter(QObject *watched, QEvent *event)
{
    if (event->spontaneous())
        return Page::eventFilter(watched, event);
    if (event->type() == QEvent::Show)
        host.log->add(QStringLiteral("Popup"), QStringLiteral("shown"));
    else if (event->type() == QEvent::Hide)
        host.log->add(QStringLiteral("Popup"), QStringLiteral("hidden"));
    return Page::eventFilter(watched, event);
}

void NonModalHelperPage::addTimeouts(KELRoundRectControl *panel)
{
    const QVector<QRectF> rows = Parts::grid(
        panel->rect().adjusted(Theme::gap, Theme::gap, -Theme::gap, -Theme::gap), 1, timeoutCount);
    for (int id = 0; id < timeoutCount; ++id) {
        const QRectF &row = rows.at(id);
        auto *box = new KELRadioBox(panel);
        box->setboundRect(row.x(), row.center().y() - boxPx / 2, boxPx, boxPx);
        box->setObjectName(QStringLiteral("timeout-%1").arg(timeoutsMs[id]));
        m_timeouts->addRadioBox(box, id);
        auto *caption = new KELLabel(panel);
        caption->setboundRect(row.adjusted(boxPx + Theme::gap, 0, 0, 0));
        caption->style()->text = nameOf(timeoutsMs[id]);
        caption->style()->font = Theme::font(Theme::bodyPx);
        caption->style()->textFlags = Qt::AlignLeft | Qt::AlignVCenter;
        connect(caption, &KELLabel::mousePress, m_timeouts, [this, id] { m_timeouts->setId(id); });
    }
    m_timeouts->setId(remembered(QStringLiteral("timeout")));
    host.log->watch(m_timeouts, QStringLiteral("Time-out"));
    connect(m_timeouts, &KELRadioBoxGroup::idChanged, this,
            [this] { remembered(QStringLiteral("timeout")) = m_timeouts->id(); });
}

void NonModalHelperPage::addOpener(const QRectF &rect)
{
    KELPushButton *opener = Parts::addButton(this, rect, QStringLiteral("Show the popup"));
    Parts::dressAsPrimary(opener);
    opener->setObjectName(QStringLiteral("open-popup"));
    // The press closes the popup a moment later; the click of the same tap must not open it again.
    connect(opener, &KELPushButton::mousePress, this,
            [this] { m_wasVisible = m_popup->isVisible(); });
    connect(opener, &KELPushButton::mouseClicked, this, [this] {
        if (m_wasVisible)
            m_popup->hide(); // the second press of a double click closes nothing
        else
            showPopup();
    });
}

void NonModalHelperPage::showPopup()
{
    const int timeoutMs = timeoutsMs[m_timeouts->id()];
    KELNonModalhelper::show(m_popup, KELNonModalhelper::TriggerParent, timeoutMs > 0, timeoutMs);
    m_popup->resetTransform(); // fitting leaves an empty frame
}
