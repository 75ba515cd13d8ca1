// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "finishedscreen.h"

#include <KELTheme>
#include <QtCore/QEvent>
#include <QtWidgets/QGraphicsLayout>

// Now, from the outside to the inside: what is shown next shall not move afterwards.
static void layOut(QGraphicsItem *item)
{
    if (item->isWidget()) {
        if (QGraphicsLayout *layout = static_cast<QGraphicsWidget *>(item)->layout())
            layout->activate();
    }
    const QList<QGraphicsItem *> children = item->childItems();
    for (QGraphicsItem *child : children)
        layOut(child);
}

FinishedScreen::FinishedScreen(KELTheme *theme) : m_theme(theme)
{
    connect(theme, &KELTheme::changed, this, &FinishedScreen::rebuild);
}

void FinishedScreen::retranslate()
{
    rebuild();
}

const KELTheme *FinishedScreen::theme() const
{
    return m_theme;
}

void FinishedScreen::resizeEvent(QGraphicsSceneResizeEvent *event)
{
    KELPage::resizeEvent(event);
    rebuild();
}

void FinishedScreen::changeEvent(QEvent *event)
{
    KELPage::changeEvent(event);
    // Later: Qt crashes if a layout, which has a hidden window, is deleted while it tells all
    // windows the direction of the application.
    if (event->type() == QEvent::LayoutDirectionChange)
        QMetaObject::invokeMethod(this, &FinishedScreen::rebuild, Qt::QueuedConnection);
}

void FinishedScreen::rebuild()
{
    if (size().isEmpty())
        return;
    delete m_content;
    m_content = new QGraphicsWidget(this);
    m_content->resize(size());
    build(m_content);
    layOut(m_content);
    m_theme->applyTo(m_content); // at once: what is new would be dressed one iteration later
}
