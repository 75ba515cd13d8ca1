// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "nonmodaldialogpage.h"

#include "eventlog.h"
#include "parts.h"
#include "window.h"

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
    CardPage(pageHost, area, QStringLiteral("Non-modal dialog"),
             QStringLiteral("A press outside closes a panel, and its button does, too"))
{
    m_settingsOpener = addOpener(
        QStringLiteral("Left alone for %1 s, it closes").arg(periodMs / 1000),
        QStringLiteral("Settings"), QStringLiteral("open-settings"));
    m_stepsOpener = addOpener(QStringLiteral("Of two panels one shows at a time"),
                              QStringLiteral("Two steps"), QStringLiteral("open-steps"));
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
    CardPage::attached();
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
    return CardPage::eventFilter(watched, event);
}

KELPushButton *NonModalDialogPage::addOpener(const QString &about, const QString &text,
                                             const QString &objectName)
{
    auto *button = new KELPushButton;
    button->setText(text);
    button->setObjectName(objectName);
    addSamples(newCard(about), {{button, QString(), 0, openerPx}});
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
    host.theme->applyTo(panel->scene());
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
        Parts::addLabel(content, rowOf(content, 0), title, Theme::font(18, true), Theme::ink);
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
