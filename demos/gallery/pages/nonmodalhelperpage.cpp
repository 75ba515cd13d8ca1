// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "nonmodalhelperpage.h"

#include "eventlog.h"
#include "window.h"

#include <KELContentView>
#include <KELLabel>
#include <KELNonModalhelper>
#include <KELPushButton>
#include <KELRadioBox>
#include <QtCore/QEvent>
#include <QtWidgets/QGraphicsScene>

namespace {

constexpr qreal openerPx = 56;
constexpr qreal popupWidthPx = 240;
constexpr qreal popupHeightPx = 88;

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
    CardPage(pageHost, area, QStringLiteral("Non-modal helper"),
             QStringLiteral("Makes a popup of any widget, here of a view with one button")),
    m_timeouts(new KELRadioBoxGroup(this))
{
    addOpener();
    addTimeouts();
}

NonModalHelperPage::~NonModalHelperPage()
{
    delete m_popup;
}

void NonModalHelperPage::attached()
{
    CardPage::attached();
    // The child of the viewport: that is who gets the presses beside the popup.
    m_popup = new KELContentView(host.view->viewport());
    m_popup->setFrameShape(QFrame::NoFrame);
    auto *content = new KELPushButton;
    content->setboundRect(0, 0, popupWidthPx, popupHeightPx);
    content->style()->backgroundBrush = QColor(Theme::accent);
    content->style()->foregroundBrush = QColor(Theme::onAccent);
    content->style()->text = QStringLiteral("Press beside me");
    content->setObjectName(QStringLiteral("popup-content"));
    m_popup->setContent(content);
    host.theme->applyTo(m_popup->scene());
    placePopup();
    host.log->watch(content, QStringLiteral("Popup"));
    m_popup->hide(); // otherwise it came up with the window
    m_popup->installEventFilter(this);
}

bool NonModalHelperPage::eventFilter(QObject *watched, QEvent *event)
{
    if (event->spontaneous())
        return CardPage::eventFilter(watched, event);
    if (event->type() == QEvent::Show)
        host.log->add(QStringLiteral("Popup"), QStringLiteral("shown"));
    else if (event->type() == QEvent::Hide)
        host.log->add(QStringLiteral("Popup"), QStringLiteral("hidden"));
    return CardPage::eventFilter(watched, event);
}

void NonModalHelperPage::addOpener()
{
    auto *opener = new KELPushButton;
    opener->setText(QStringLiteral("Show the popup"));
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
    addSamples(newCard(QStringLiteral("A press beside the popup closes it")),
               {{opener, QString(), 0, openerPx}});
}

void NonModalHelperPage::addTimeouts()
{
    QGraphicsLinearLayout *card = newCard(QStringLiteral("And so does time"));
    for (int id = 0; id < timeoutCount; ++id) {
        auto *box = new KELRadioBox;
        box->setObjectName(QStringLiteral("timeout-%1").arg(timeoutsMs[id]));
        m_timeouts->addRadioBox(box, id);
        const KELLabel *caption = addChoice(card, box, nameOf(timeoutsMs[id]));
        connect(caption, &KELLabel::mousePress, m_timeouts, [this, id] { m_timeouts->setId(id); });
    }
    m_timeouts->setId(remembered(QStringLiteral("timeout")));
    host.log->watch(m_timeouts, QStringLiteral("Time-out"));
    connect(m_timeouts, &KELRadioBoxGroup::idChanged, this,
            [this] { remembered(QStringLiteral("timeout")) = m_timeouts->id(); });
}

// At the bottom, where the button that shows it is free.
void NonModalHelperPage::placePopup()
{
    const QSize room = host.view->size();
    m_popup->move((room.width() - m_popup->width()) / 2,
                  qMax(0, room.height() - m_popup->height() - int(Theme::pageMargin)));
}

void NonModalHelperPage::showPopup()
{
    const int timeoutMs = timeoutsMs[m_timeouts->id()];
    placePopup();
    KELNonModalhelper::show(m_popup, KELNonModalhelper::TriggerParent, timeoutMs > 0, timeoutMs);
    m_popup->resetTransform(); // fitting leaves an empty frame
}
