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
 * buttons. A press takes the focus away from what is below; returnFocus() gives it back. The keys
 * of the view go to the item alone. Before each frame the item is given the rectangle that the view
 * shows, whatever has changed that: the view's size, scale or scroll bars.
 */
class KELVeil : public QObject
{
public:
    // Takes the mouse away from what is pressed. The item has a scene.
    void cover(QGraphicsWidget *item);
    void uncover();
    // Afterwards, unless Qt is in the middle of its own work: application code may see it, which
    // may delete this.
    void returnFocus();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void follow();
    bool handleKey(QEvent *event);

    QPointer<QGraphicsWidget> m_item;
    QPointer<QGraphicsObject> m_focused;
    QPointer<QWidget> m_viewport;
};

#endif
