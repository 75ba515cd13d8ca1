// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "dialogbasepage.h"

#include "eventlog.h"
#include "parts.h"
#include "pindialog.h"

#include <KELContentView>

// Q_INIT_RESOURCE does not work inside a namespace.
static void initResources()
{
    Q_INIT_RESOURCE(gallery);
}

namespace {

const char *const pin = "2580";

constexpr qreal buttonPx = 64;

} // namespace

DialogBasePage::DialogBasePage(const PageHost &pageHost, const QRectF &area) :
    Page(pageHost, area, QStringLiteral("Dialog base"),
         QStringLiteral("A wrong PIN shakes the keypad; the right one is %1")
             .arg(QLatin1String(pin)))
{
    initResources(); // the body of the dialog, which a static library does not bring by itself
    const QRectF room = body();
    KELPushButton *button = Parts::addButton(this, {room.x(), room.y(), room.width(), buttonPx},
                                             QStringLiteral("Enter the PIN"));
    Parts::dressAsPrimary(button);
    button->setObjectName(QStringLiteral("enter-pin"));
    connect(button, &KELPushButton::mouseClicked, this, [this] {
        m_dialog->ask();
        report(QStringLiteral("opened"), QStringLiteral("Waiting for the PIN"));
    });

    m_state = Parts::addCard(this, room.adjusted(0, buttonPx + Theme::gap, 0, 0));
    m_state->setObjectName(QStringLiteral("pin-state"));
    m_state->style()->font = Theme::font(Theme::titlePx, true);
    m_state->style()->text = QStringLiteral("Locked");
}

DialogBasePage::~DialogBasePage()
{
    delete m_dialog;
}

void DialogBasePage::attached()
{
    m_dialog = new PinDialog(QLatin1String(pin), host.view);
    connect(m_dialog, &PinDialog::shaken, this,
            [this] { report(QStringLiteral("shaken"), QStringLiteral("Wrong PIN")); });
    connect(m_dialog, &QDialog::accepted, this,
            [this] { report(QStringLiteral("accepted"), QStringLiteral("Unlocked")); });
    connect(m_dialog, &QDialog::rejected, this,
            [this] { report(QStringLiteral("rejected"), QStringLiteral("Locked")); });
    // Without a window manager nobody else gives the keyboard back.
    connect(m_dialog, &QDialog::finished, host.view, &QWidget::activateWindow);
}

void DialogBasePage::report(const QString &what, const QString &state)
{
    m_state->setText(state);
    host.log->add(QStringLiteral("Dialog"), what);
}
