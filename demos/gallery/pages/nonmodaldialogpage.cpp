// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "nonmodaldialogpage.h"

#include "eventlog.h"
#include "parts.h"

#include <KELCheckBox>
#include <KELLabel>
#include <KELNonModalDialog>
#include <KELProcessBar>
#include <KELSlideControl>
#include <QtCore/QEvent>

namespace {

constexpr int periodMs = 6000;
constexpr int tickMs = 100;

constexpr qreal openerPx = 56;
constexpr qreal panelWidthPx = 320;
constexpr qreal barPx = 30;
constexpr qreal switchPx = 82;

// What a panel shows, to its edge: without a compositor the rest of a translucent window is black.
KELRoundRectControl *makeContent(qreal height)
{
    auto *content = new KELRoundRectControl;
    content->setboundRect(0, 0, panelWidthPx, height);
    content->style()->backgroundBrush = QColor(Theme::bar);
    content->style()->borderBrush = QColor(Theme::accent);
    content->style()->borderWidth = 2;
    return content;
}

QRectF rowOf(const KELRoundRectControl *content, int row)
{
    const qreal margin = Theme::pageMargin;
    return {margin, margin + row * (Theme::touch + Theme::gap),
            content->rect().width() - 2 * margin, Theme::touch};
}

qreal heightOf(int rows)
{
    return 2 * Theme::pageMargin + rows * (Theme::touch + Theme::gap) - Theme::gap;
}

} // namespace

NonModalDialogPage::NonModalDialogPage(const PageHost &pageHost, const QRectF &area) :
    Page(pageHost, area, QStringLiteral("Non-modal dialog"),
         QStringLiteral("Panels that close by themselves"))
{
    const QRectF room = body();
    const QVector<QRectF> cells = Parts::grid({room.x(), room.y(), room.width(), openerPx}, 2, 1);
    m_settingsOpener = addOpener(cells.at(0), QStringLiteral("Settings"),
                                 QStringLiteral("open-settings"));
    m_stepsOpener = addOpener(cells.at(1), QStringLiteral("Two steps"),
                              QStringLiteral("open-steps"));

    KELRoundRectControl *card = Parts::addCard(this, room.adjusted(0, openerPx + Theme::gap, 0, 0));
    card->style()->margins = QMarginsF(Theme::gap, 0, Theme::gap, Theme::gap);
    card->style()->textFlags = Qt::AlignHCenter | Qt::AlignBottom; // free of the panels
    card->style()->trimText = false;
    card->setText(QStringLiteral("A press outside closes a panel, and its button, too.\n"
                                 "The settings also close when they are left alone for %1 s.\n"
                                 "Of the two steps one shows at a time.")
                      .arg(periodMs / 1000));
    connect(&m_ticks, &QTimer::timeout, this, &NonModalDialogPage::showCountdown);
}

NonModalDialogPage::~NonModalDialogPage()
{
    delete m_settings;
    delete m_firstStep;
    delete m_secondStep;
}

void NonModalDialogPage::attached()
{
    makeSettings();
    makeSteps();
    connectOpener(m_settingsOpener, {m_settings});
    connectOpener(m_stepsOpener, {m_firstStep, m_secondStep});
    place(m_settingsOpener, m_settings);
    place(m_stepsOpener, m_firstStep);
    place(m_stepsOpener, m_secondStep);
}

bool NonModalDialogPage::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_settingsViewport) {
        if (event->type() == QEvent::MouseButtonPress)
            restartCountdown();
    } else if (event->type() == QEvent::Show && !event->spontaneous()) {
        host.log->add(watched->objectName(), QStringLiteral("shown"));
    } else if (event->type() == QEvent::Hide && !event->spontaneous()) {
        host.log->add(watched->objectName(), QStringLiteral("hidden"));
    }
    return Page::eventFilter(watched, event);
}

KELPushButton *NonModalDialogPage::addOpener(const QRectF &rect, const QString &text,
                                             const QString &objectName)
{
    KELPushButton *button = Parts::addButton(this, rect, text);
    Parts::dressAsPrimary(button);
    button->setObjectName(objectName);
    return button;
}

KELNonModalDialog *NonModalDialogPage::makePanel(const QString &title, KELRoundRectControl *content)
{
    auto *panel = new KELNonModalDialog(host.view);
    // A window of its own, wherever the gallery is: presses are compared with its place on the
    // screen.
    panel->setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
    panel->setAttribute(Qt::WA_ShowWithoutActivating);
    panel->setWindowTitle(title);
    panel->setObjectName(title);
    panel->setFrameShape(QFrame::NoFrame);
    panel->setContent(content);
    panel->installEventFilter(this);
    connect(panel, &KELNonModalDialog::disappeared, this,
            [this, title] { host.log->add(title, QStringLiteral("disappeared")); });
    return panel;
}

void NonModalDialogPage::makeSettings()
{
    KELRoundRectControl *content = makeContent(heightOf(2) + Theme::gap + barPx);
    auto *slider = new KELSlideControl(content);
    slider->setboundRect(rowOf(content, 0));
    slider->setObjectName(QStringLiteral("panel-slider"));
    slider->setValue(60);
    host.log->watch(slider, QStringLiteral("Brightness"));

    const QRectF row = rowOf(content, 1);
    auto *label = new KELLabel(content);
    label->setboundRect(row.adjusted(0, 0, -switchPx - Theme::gap, 0));
    label->setAcceptedMouseButtons(Qt::NoButton);
    label->style()->text = QStringLiteral("Night mode");
    label->style()->font = Theme::font(18);
    label->style()->textFlags = Qt::AlignLeft | Qt::AlignVCenter;
    auto *box = new KELCheckBox(content);
    box->setboundRect(row.adjusted(row.width() - switchPx, 0, 0, 0));
    box->setObjectName(QStringLiteral("panel-switch"));
    host.log->watch(box, QStringLiteral("Night mode"));

    m_bar = new KELProcessBar(content);
    m_bar->setboundRect(row.x(), row.bottom() + Theme::gap, row.width(), barPx);
    m_bar->setAcceptedMouseButtons(Qt::NoButton);
    m_bar->setObjectName(QStringLiteral("panel-countdown"));

    m_settings = makePanel(QStringLiteral("Settings panel"), content);
    m_settings->enableTime(periodMs);
    m_settingsViewport = m_settings->viewport();
    m_settingsViewport->installEventFilter(this);
}

void NonModalDialogPage::makeSteps()
{
    const auto makeStep = [this](const QString &title, const QString &go,
                                 const QString &objectName) {
        KELRoundRectControl *content = makeContent(heightOf(2));
        Parts::addLabel(content, rowOf(content, 0), title, Theme::font(18, true), Theme::onAccent);
        KELPushButton *button = Parts::addButton(content, rowOf(content, 1), go);
        button->setObjectName(objectName);
        return std::make_pair(makePanel(title, content), button);
    };
    const auto first = makeStep(QStringLiteral("First step"), QStringLiteral("Next"),
                                QStringLiteral("go-forth"));
    const auto second = makeStep(QStringLiteral("Second step"), QStringLiteral("Back"),
                                 QStringLiteral("go-back"));
    m_firstStep = first.first;
    m_secondStep = second.first;
    connect(first.second, &KELPushButton::mouseClicked, m_secondStep,
            [this] { showBelow(m_stepsOpener, m_secondStep); });
    connect(second.second, &KELPushButton::mouseClicked, m_firstStep,
            [this] { showBelow(m_stepsOpener, m_firstStep); });
}

// The press that would close the panel is the opener's own: without ignoreOnce() the click opened
// it again.
void NonModalDialogPage::connectOpener(KELPushButton *opener,
                                       const QVector<KELNonModalDialog *> &panels)
{
    connect(opener, &KELPushButton::mousePress, this, [=] {
        for (KELNonModalDialog *panel : panels) {
            if (panel->isVisible())
                panel->ignoreOnce();
        }
    });
    connect(opener, &KELPushButton::mouseClicked, this, [=] {
        for (KELNonModalDialog *panel : panels) {
            if (panel->isVisible()) {
                panel->hide();
                return;
            }
        }
        showBelow(opener, panels.first());
    });
}

void NonModalDialogPage::showBelow(const KELRoundRectControl *opener, KELNonModalDialog *panel)
{
    place(opener, panel);
    KELNonModalDialog::showOne(panel);
    panel->resetTransform(); // fitting leaves an empty frame
    if (panel == m_settings)
        restartCountdown();
}

// Below the opener, and inside the gallery's window as far as the panel fits.
void NonModalDialogPage::place(const KELRoundRectControl *opener, KELNonModalDialog *panel) const
{
    const QRect anchor = host.view->mapFromScene(opener->sceneBoundingRect()).boundingRect();
    const int margin = int(Theme::pageMargin);
    const QSize room = host.view->size() - panel->size() - QSize(margin, margin);
    const QPoint corner(qMin(anchor.left(), room.width()),
                        qMin(anchor.bottom() + int(Theme::gap), room.height()));
    panel->move(host.view->mapToGlobal(QPoint(qMax(0, corner.x()), qMax(0, corner.y()))));
}

void NonModalDialogPage::restartCountdown()
{
    m_deadline.setRemainingTime(periodMs, Qt::PreciseTimer);
    m_ticks.start(tickMs);
    showCountdown();
}

void NonModalDialogPage::showCountdown()
{
    if (m_bar)
        m_bar->setValue(int(m_deadline.remainingTime() * 100 / periodMs));
    if (!m_settings || !m_settings->isVisible())
        m_ticks.stop();
}
