// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "kelitemmove_p.h"

#include <QtWidgets/QGraphicsScene>

namespace {

// Blocks the signals of an object that may be deleted meanwhile.
class Silenced
{
public:
    explicit Silenced(QObject *object) :
        m_object(object), m_wasBlocked(object != nullptr && object->blockSignals(true))
    { }
    ~Silenced()
    {
        if (m_object)
            m_object->blockSignals(m_wasBlocked);
    }

private:
    Q_DISABLE_COPY(Silenced)

    const QPointer<QObject> m_object;
    const bool m_wasBlocked;
};

QGraphicsObject *objectOf(QGraphicsItem *item)
{
    return item ? item->toGraphicsObject() : nullptr;
}

} // namespace

KELItemMove::Scene::Scene(QGraphicsScene *watched) :
    scene(watched),
    focusItem(watched ? watched->focusItem() : nullptr),
    selectedItems(watched ? watched->selectedItems().size() : 0)
{ }

void KELItemMove::Scene::report() const
{
    if (!scene.isNull() && scene->focusItem() != focusItem)
        Q_EMIT scene->focusItemChanged(scene->focusItem(), isFocusItemDead ? nullptr : focusItem,
                                       Qt::OtherFocusReason);
    if (!scene.isNull() && scene->selectedItems().size() != selectedItems)
        Q_EMIT scene->selectionChanged();
}

KELItemMove::KELItemMove(QGraphicsItem *item, QGraphicsItem *newParent, QGraphicsScene *newScene) :
    m_item(objectOf(item)),
    m_oldParent(objectOf(item->parentItem())),
    m_newParent(objectOf(newParent)),
    m_oldScene(item->scene()),
    m_newScene(newScene == item->scene() ? nullptr : newScene),
    m_wasVisible(item->isVisible()),
    m_wasEnabled(item->isEnabled())
{
    const QGraphicsItem *const oldParent = item->parentItem();
    const Silenced silencedItem(m_item);
    const Silenced silencedOldParent(m_oldParent);
    const Silenced silencedNewParent(m_newParent == m_oldParent ? nullptr : m_newParent.data());
    const Silenced silencedOldScene(m_oldScene.scene);
    const Silenced silencedNewScene(m_newScene.scene);
    // Qt cannot give an item a parent in another scene.
    if (item->scene() && item->scene() != newScene)
        item->scene()->removeItem(item);
    if (item->parentItem() != newParent)
        item->setParentItem(newParent);
    if (newScene && item->scene() != newScene)
        newScene->addItem(item);
    m_hasNewParent = newParent != oldParent;
}

KELItemMove KELItemMove::away(QGraphicsItem *item)
{
    return {item, nullptr, nullptr};
}

KELItemMove KELItemMove::into(QGraphicsScene *scene, QGraphicsItem *item)
{
    return {item, nullptr, scene};
}

KELItemMove KELItemMove::to(QGraphicsItem *parent, QGraphicsItem *item)
{
    return {item, parent, parent->scene()};
}

void KELItemMove::erase(QGraphicsItem *item)
{
    KELItemMove move = away(item);
    delete item;
    move.m_oldScene.isFocusItemDead = true; // only used if the focus item changed
    move.report();
}

void KELItemMove::report() const
{
    m_oldScene.report();
    m_newScene.report();
    if (!m_hasNewParent)
        return;
    if (m_oldParent)
        Q_EMIT m_oldParent->childrenChanged();
    if (m_newParent)
        Q_EMIT m_newParent->childrenChanged();
    if (m_item && m_item->isVisible() != m_wasVisible)
        Q_EMIT m_item->visibleChanged();
    if (m_item && m_item->isEnabled() != m_wasEnabled)
        Q_EMIT m_item->enabledChanged();
    if (m_item)
        Q_EMIT m_item->parentChanged();
}
