// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef FINGERS_H
#define FINGERS_H

#include "keltest.h"

#include <QtCore/QMap>
#include <QtCore/QSet>

#include <memory>

QTouchDevice *touchPanel();

// Several fingers on a touch screen, reported as a panel does: each event names all of them.
class Fingers
{
public:
    explicit Fingers(QWidget *target);
    ~Fingers();

    void press(int id, const QPoint &pos);
    void pressIn(QWidget *widget, int id, const QPoint &pos);
    void move(int id, const QPoint &pos);
    void release(int id);
    void releaseAt(int id, const QPoint &pos);
    void tap(int id, const QPoint &pos);
    // Two fingers that come down in one event.
    void pressBoth(int id, const QPoint &pos, int otherId, const QPoint &otherPos);
    // Two that change places in one event: one leaves, the other comes down.
    void releaseAndPress(int released, int pressed, const QPoint &pos);
    // The window system takes the whole gesture away.
    void cancel();

private:
    Q_DISABLE_COPY(Fingers)

    struct Finger
    {
        QPoint pos;
        QPointer<QWidget> widget;
    };
    using Change = std::function<void(QTest::QTouchEventSequence *)>;
    void send(const QSet<int> &changed, const Change &change);

    const QPointer<QWidget> m_target;
    const std::unique_ptr<QTest::QTouchEventSequence> m_sequence;
    QMap<int, Finger> m_down;
};

#endif
