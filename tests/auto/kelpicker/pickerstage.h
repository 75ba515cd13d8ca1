// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef PICKERSTAGE_H
#define PICKERSTAGE_H

#include "hand.h"
#include "signallog.h"
#include "stage.h"

#include <kellist.h>
#include <kelpicker.h>
#include <kelpushbutton.h>
#include <keltouch.h>

#include <QtCore/QStringListModel>

// A picker of fruits, 300 px wide and 64 px high, beside a button. Fingers need 48 px.
class PickerStage
{
public:
    explicit PickerStage(int rows = 3, qreal y = 20, const QSize &size = QSize(480, 800)) :
        view(size), parent(new PlainItem), picker(new KELPicker(parent)), other(new KELPushButton)
    {
        KELTouch::setPixelsPerMillimetre(48 / 9.0);
        view.ownScene.setItemIndexMethod(QGraphicsScene::NoIndex);
        other->setboundRect(400, 20, 60, 60);
        other->setAcceptedMouseButtons(Qt::AllButtons);
        view.ownScene.addItem(other);
        for (int i = 0; i < rows; ++i)
            fruits.append(QStringLiteral("fruit %1").arg(i));
        model.setStringList(fruits);
        picker->setCaption(QStringLiteral("Fruit"));
        picker->setModel(&model);
        picker->setGeometry(20, y, 300, 64);
        view.ownScene.addItem(parent);
        view.showOnce();
        log.listenTo(picker);
        logOther.listenTo(other);
    }

    KELList *list() const
    {
        const QList<QGraphicsItem *> items = view.ownScene.items();
        for (QGraphicsItem *item : items) {
            auto *found = qobject_cast<KELList *>(item->toGraphicsObject());
            if (found && found->isVisible())
                return found;
        }
        return nullptr;
    }
    QRectF placeOfList() const { return list()->mapRectToScene(list()->rect()); }
    // Where row is in a list that shows its first rows.
    QPoint entry(int row) const { return view.at(list(), QPointF(100, 64 * row + 32)); }
    QPoint field() const { return view.centreOf(picker); }

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QKeyEvent event(QEvent::KeyPress, key, modifiers);
        QCoreApplication::sendEvent(view.viewport(), &event);
    }

    QStringList fruits;
    QStringListModel model;
    KelTestView view;
    const QPointer<PlainItem> parent;
    const QPointer<KELPicker> picker;
    const QPointer<KELPushButton> other;
    SignalLog log;
    SignalLog logOther;
    Hand hand{&view};

private:
    Q_DISABLE_COPY(PickerStage)
};

#endif
