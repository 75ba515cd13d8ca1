// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELVEIL_P_H
#define KELVEIL_P_H

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtWidgets/QGraphicsWidget>

/*
 * Lays an item over everything else in the first view of its scene, for as long as it covers.
 *
 * The item is a panel, so that no press, wheel or touch reaches the items below, and takes all
 * buttons. Presses leave the keyboard focus where it is. Before each frame the item is given the
 * rectangle that the view shows, whatever has changed that: the view's size, scale or scroll bars.
 */
class KELVeil : public QObject
{
public:
    // Takes the mouse away from what is pressed. The item, which has a scene, outlives this or the
    // call of uncover().
    void cover(QGraphicsWidget *item);
    void uncover();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void follow();

    QGraphicsWidget *m_item = nullptr;
    QPointer<QWidget> m_viewport;
};

#endif
