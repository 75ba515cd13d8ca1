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
 * Moves an item between parents and scenes. Qt emits signals while it still needs the item, its parents and the
 * scenes: here they come when it is done, by report(), so that slots may delete any of these.
 */
class KELItemMove
{
public:
    // Out of its scene and its parent, to nobody.
    static KELItemMove away(QGraphicsItem *item);
    // Into a scene, without a parent.
    static KELItemMove into(QGraphicsScene *scene, QGraphicsItem *item);
    // To a parent, and with that into its scene.
    static KELItemMove to(QGraphicsItem *parent, QGraphicsItem *item);

    // Deletes an item when it is in no scene any more, and reports.
    static void erase(QGraphicsItem *item);

    // Emits what has changed. Once.
    void report() const;

private:
    // What a scene signals, before the move.
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
