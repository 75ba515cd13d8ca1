// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "pindialog.h"

#include "parts.h"

#include <KELContentView>

namespace {

constexpr qreal marginPx = 14;
constexpr qreal headerPx = 56; // as in the picture
constexpr qreal dotPx = 16;
constexpr qreal dotPitchPx = 28;
constexpr int shakePx = 12;

constexpr int keyColumns = 4;
const char *const keys[] = {"1", "2", "3", "Delete", "4", "5", "6", "Cancel", "7", "8", "9", "0"};
constexpr int keyCount = int(std::size(keys));

} // namespace

PinDialog::PinDialog(const QString &pin, QWidget *window) : KELDialogBase(window), m_pin(pin)
{
    // Above the window instead of inside it, so that it can be modal.
    setWindowFlags(Qt::Dialog | Qt::FramelessWindowHint);
    setWindowTitle(QStringLiteral("PIN"));
    view()->setFrameShape(QFrame::NoFrame);

    auto *pad = new KELRoundRectControl;
    pad->setboundRect(QRectF(QPointF(), size()));
    pad->setAcceptedMouseButtons(Qt::NoButton);
    pad->style()->backgroundBrush = pad->style()->borderBrush = QBrush(Qt::NoBrush);
    addHeader(pad);
    addKeys(pad);
    view()->scene()->addItem(pad);
    m_theme.applyTo(pad); // light, as the picture is
    moveToMiddle();
}

void PinDialog::ask()
{
    m_entered.clear();
    m_caption->setText(QStringLiteral("Enter the PIN"));
    refresh();
    moveToMiddle();
    open();
    // Fitting leaves an empty frame, which is black without a compositor.
    view()->resetTransform();
}

void PinDialog::moveToMiddle()
{
    const QPoint middle = parentWidget()->rect().center() - rect().center();
    move(parentWidget()->mapToGlobal(QPoint(qMax(0, middle.x()), qMax(0, middle.y()))));
}

void PinDialog::addHeader(KELRoundRectControl *pad)
{
    const qreal dotsPx = (m_pin.size() - 1) * dotPitchPx + dotPx;
    const qreal dotsLeft = pad->rect().right() - marginPx - dotsPx;
    m_caption = Parts::addLabel(pad, {marginPx, 0, dotsLeft - 2 * marginPx, headerPx}, QString(),
                                Theme::font(18, true), qRgb(255, 255, 255));
    for (int i = 0; i < m_pin.size(); ++i) {
        KELRoundRectControl *dot = Parts::addLabel(
            pad, {dotsLeft + i * dotPitchPx, (headerPx - dotPx) / 2, dotPx, dotPx}, QString(),
            QFont());
        dot->style()->borderBrush = QColor(Qt::white);
        dot->style()->borderWidth = 2;
        dot->style()->xRadius = dot->style()->yRadius = dotPx / 2;
        m_dots.append(dot);
    }
}

void PinDialog::addKeys(KELRoundRectControl *pad)
{
    const QRectF room = pad->rect().adjusted(marginPx, headerPx + marginPx, -marginPx, -marginPx);
    const QVector<QRectF> cells = Parts::grid(room, keyColumns, keyCount / keyColumns);
    for (int i = 0; i < keyCount; ++i) {
        const QString text = QLatin1String(keys[i]);
        auto *key = new KELPushButton(pad);
        key->setboundRect(cells.at(i));
        key->setText(text);
        key->setObjectName(QStringLiteral("key-") + text.toLower());
        if (text.size() == 1)
            key->style()->font = Theme::font(Theme::titlePx, true);
        connect(key, &KELPushButton::mouseClicked, this, [this, text] { press(text); });
    }
}

void PinDialog::press(const QString &key)
{
    if (key == QLatin1String("Cancel")) {
        reject();
        return;
    }
    if (key == QLatin1String("Delete"))
        m_entered.chop(1);
    else
        m_entered += key;
    refresh();
    if (m_entered == m_pin)
        accept();
    else if (m_entered.size() == m_pin.size())
        refuse();
}

void PinDialog::refuse()
{
    m_entered.clear();
    m_caption->setText(QStringLiteral("Wrong PIN, try again"));
    refresh();
    // A shake that is running has moved it.
    moveToMiddle();
    dialogShake(shakePx);
    Q_EMIT shaken();
}

void PinDialog::refresh()
{
    for (int i = 0; i < m_dots.size(); ++i) {
        m_dots.at(i)->style()->backgroundBrush = i < m_entered.size() ? QBrush(QColor(Qt::white))
                                                                      : QBrush(Qt::NoBrush);
        m_dots.at(i)->update();
    }
}
