// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "finishedscreen.h"

#include <KELTheme>
#include <QtCore/QEvent>

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
    if (event->type() == QEvent::LayoutDirectionChange)
        rebuild();
}

void FinishedScreen::rebuild()
{
    if (size().isEmpty())
        return;
    delete m_content;
    m_content = new QGraphicsWidget(this);
    m_content->resize(size());
    build(m_content);
    m_theme->applyTo(m_content); // at once: what is new would be dressed one iteration later
}
