// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELITEMMOVE_P_H
#define KELITEMMOVE_P_H

#include <QtCore/QPointer>
#include <QtWidgets/QGraphicsObject>

QT_BEGIN_NAMESPACE
class QGraphicsScene;
QT_END_NAMESPACE

/*
 * Moves an item between parents and scenes. Qt emits signals while it still uses the item, its
 * parents and the scenes. Here report() emits them after the move, so slots may delete any of the
 * objects.
 */
class KELItemMove
{
public:
    // Out of its scene and its parent; nobody owns it then.
    static KELItemMove away(QGraphicsItem *item);
    // Into a scene, without a parent.
    static KELItemMove into(QGraphicsScene *scene, QGraphicsItem *item);
    // To a parent, and with that into its scene.
    static KELItemMove to(QGraphicsItem *parent, QGraphicsItem *item);

    // Takes an item out of its scene, deletes it and reports.
    static void erase(QGraphicsItem *item);

    // Emits what has changed. Once.
    void report() const;

private:
    // What a scene signals, as it was before the move.
    struct Scene
    {
        explicit Scene(QGraphicsScene *watched);
        void report() const;

        QPointer<QGraphicsScene> scene;
        QGraphicsItem *focusItem;
        bool isFocusItemDead = false;
        int selectedItems;
    };

    KELItemMove(QGraphicsItem *item, QGraphicsItem *newParent, QGraphicsScene *newScene);

    const QPointer<QGraphicsObject> m_item;
    const QPointer<QGraphicsObject> m_oldParent;
    const QPointer<QGraphicsObject> m_newParent;
    Scene m_oldScene;
    Scene m_newScene;
    bool m_hasNewParent = false;
    const bool m_wasVisible;
    const bool m_wasEnabled;
};

#endif
