// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "dialogbasepage.h"

#include "eventlog.h"
#include "pindialog.h"
#include "window.h"

#include <KELLabel>
#include <KELPushButton>

// Q_INIT_RESOURCE does not work inside a namespace.
static void initResources()
{
    Q_INIT_RESOURCE(gallery);
}

namespace {

const char *const pin = "2580";

constexpr qreal buttonPx = 56;
constexpr int dimmedAlpha = 140;

} // namespace

DialogBasePage::DialogBasePage(const PageHost &pageHost, const QRectF &area) :
    CardPage(pageHost, area, QStringLiteral("Dialog base"),
             QStringLiteral("A wrong PIN shakes the keypad; the right one is %1")
                 .arg(QLatin1String(pin))),
    m_state(new KELLabel)
{
    initResources(); // the body of the dialog, which a static library does not bring by itself
    auto *button = new KELPushButton;
    button->setText(QStringLiteral("Enter the PIN"));
    button->setObjectName(QStringLiteral("enter-pin"));
    connect(button, &KELPushButton::mouseClicked, this, [this] {
        dim(true);
        m_dialog->ask();
        report(QStringLiteral("opened"), QStringLiteral("Waiting for the PIN"));
    });
    addSamples(newCard(QStringLiteral("A dialog with a picture as its body")),
               {{button, QString(), 0, buttonPx}});
    m_state->setObjectName(QStringLiteral("pin-state"));
    m_state->setAcceptedMouseButtons(Qt::NoButton);
    m_state->style()->font = Theme::font(Theme::titlePx);
    m_state->style()->text = QStringLiteral("Locked");
    addSamples(newCard(QStringLiteral("What has come of it")), {{m_state, QString(), 0, buttonPx}});
}

DialogBasePage::~DialogBasePage()
{
    delete m_dialog;
}

void DialogBasePage::attached()
{
    CardPage::attached();
    m_dialog = new PinDialog(QLatin1String(pin), host.view);
    connect(m_dialog, &PinDialog::shaken, this,
            [this] { report(QStringLiteral("shaken"), QStringLiteral("Wrong PIN")); });
    connect(m_dialog, &QDialog::accepted, this,
            [this] { report(QStringLiteral("accepted"), QStringLiteral("Unlocked")); });
    connect(m_dialog, &QDialog::rejected, this,
            [this] { report(QStringLiteral("rejected"), QStringLiteral("Locked")); });
    // Without a window manager nobody else gives the keyboard back.
    connect(m_dialog, &QDialog::finished, host.view, &QWidget::activateWindow);
    connect(m_dialog, &QDialog::finished, this, [this] { dim(false); });
}

// A dialog does not dim what is behind it.
void DialogBasePage::dim(bool isDimmed)
{
    if (!m_shade) {
        m_shade = new KELRoundRectControl(this);
        m_shade->setboundRect(-boundingRect().x(), -boundingRect().y(), host.view->width(),
                              host.view->height());
        m_shade->setCacheMode(NoCache);
        m_shade->style()->backgroundBrush = QColor(0, 0, 0, dimmedAlpha);
        m_shade->style()->borderBrush = QBrush(Qt::NoBrush);
        m_shade->style()->borderWidth = 0;
        m_shade->style()->xRadius = m_shade->style()->yRadius = 0;
        m_shade->setZValue(1);
    }
    m_shade->setPos(mapFromScene(boundingRect().topLeft()));
    m_shade->setVisible(isDimmed);
}

void DialogBasePage::report(const QString &what, const QString &state)
{
    m_state->setText(state);
    host.log->add(QStringLiteral("Dialog"), what);
}
