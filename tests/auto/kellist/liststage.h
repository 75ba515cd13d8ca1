// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef LISTSTAGE_H
#define LISTSTAGE_H

#include "hand.h"
#include "keltest.h"
#include "signallog.h"
#include "stage.h"

#include <kellist.h>
#include <keltouch.h>

#include <QtGui/QStandardItemModel>

constexpr int rowPx = 64;
constexpr QRectF listPlace(50, 20, 200, 256); // four rows

// Counts what it is asked for.
class CountingModel : public QStandardItemModel
{
public:
    explicit CountingModel(int rows)
    {
        for (int row = 0; row < rows; ++row)
            appendRow(new QStandardItem(u"Row %1"_s.arg(row)));
    }

    QVariant data(const QModelIndex &index, int role) const override
    {
        if (role == Qt::DisplayRole)
            ++reads;
        return QStandardItemModel::data(index, role);
    }

    mutable int reads = 0;
};

// A list of a hundred rows, 64 px each, in a view.
struct ListStage
{
    explicit ListStage(int rows = 100) : model(std::make_unique<CountingModel>(rows)), hand(&view)
    {
        KELTouch::setPixelsPerMillimetre(1);
        list->setGeometry(listPlace);
        list->setModel(model.get());
        view.ownScene.addItem(list);
        log.listenTo(list);
    }
    ~ListStage()
    {
        log.stop();
        KELTouch::setPixelsPerMillimetre(0);
    }

    // The place of a row that is in sight.
    QPoint placeOf(int row) const
    {
        return view.mapFromScene(list->mapToScene(list->rowRect(row).center()));
    }
    // Without those of the position, which are many.
    QString takeLog()
    {
        QStringList entries = log.take().split(u' ');
        entries.removeAll(u"positionChanged"_s);
        return entries.join(u' ');
    }
    void flick(int by)
    {
        const QPoint from = view.mapFromScene(listPlace.center());
        hand.drag(from, from + QPoint(0, by), 5);
    }

    std::unique_ptr<CountingModel> model;
    KelTestView view;
    const QPointer<KELList> list = new KELList;
    SignalLog log;
    Hand hand;
};

#endif
