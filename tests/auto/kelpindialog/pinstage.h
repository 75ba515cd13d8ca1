// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef PINSTAGE_H
#define PINSTAGE_H

#include "hand.h"
#include "signallog.h"

#include <kelpindialog.h>
#include <kelpushbutton.h>
#include <keltouch.h>

// A dialog in a view, open unless the test opens it, in front of a button. Fingers need 48 px.
class PinStage
{
public:
    explicit PinStage(bool isOpened = true, const QSize &size = QSize(480, 272)) :
        view(size), dialog(new KELPinDialog), behind(new KELPushButton)
    {
        KELTouch::setPixelsPerMillimetre(48 / 9.0);
        behind->setboundRect(2, 2, 30, size.height() - 4);
        behind->setAcceptedMouseButtons(Qt::AllButtons);
        view.ownScene.addItem(behind);
        view.showOnce();
        log.listenTo(dialog);
        logBehind.listenTo(behind);
        if (isOpened)
            dialog->open(&view.ownScene);
    }

    ~PinStage()
    {
        if (dialog && !dialog->scene())
            delete dialog;
    }

    KELPushButton *key(QChar digit) const
    {
        const QList<KELPushButton *> all = keys();
        for (KELPushButton *key : all) {
            if (key->text() == digit)
                return key;
        }
        return nullptr;
    }
    // Those without a digit, beside the 0.
    KELPushButton *cancelKey() const
    {
        return besideZero(dialog->layoutDirection() != Qt::LeftToRight);
    }
    KELPushButton *removeKey() const
    {
        return besideZero(dialog->layoutDirection() == Qt::LeftToRight);
    }

    QList<KELPushButton *> keys() const
    {
        QList<KELPushButton *> found;
        const QList<QGraphicsItem *> items = view.ownScene.items();
        for (QGraphicsItem *item : items) {
            auto *key = qobject_cast<KELPushButton *>(item->toGraphicsObject());
            if (key && dialog->isAncestorOf(key))
                found.append(key);
        }
        return found;
    }

    QPoint centreOf(const QGraphicsItem *item) const { return view.centreOf(item); }

    void tapDigits(const QString &digits)
    {
        for (const QChar digit : digits)
            hand.tap(centreOf(key(digit)));
    }

    void press(Qt::Key keyboardKey, Qt::KeyboardModifier modifier = Qt::NoModifier)
    {
        // Not all keys of devices are known to QTest.
        QKeyEvent event(QEvent::KeyPress, keyboardKey, modifier);
        QCoreApplication::sendEvent(view.viewport(), &event);
    }

    KelTestView view;
    const QPointer<KELPinDialog> dialog;
    const QPointer<KELPushButton> behind;
    SignalLog log;
    SignalLog logBehind;
    Hand hand{&view};

private:
    Q_DISABLE_COPY(PinStage)

    KELPushButton *besideZero(bool isRight) const
    {
        const QList<KELPushButton *> all = keys();
        for (KELPushButton *one : all) {
            if (one->text().isEmpty()
                && (one->scenePos().x() > key(QLatin1Char('0'))->scenePos().x()) == isRight)
                return one;
        }
        return nullptr;
    }
};

#endif
