// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "styling.h"

#include <KELNavigationTable>
#include <KELPushButton>

#include <QFontMetrics>
#include <QLinearGradient>

void giveLooks(KELPushButton *button)
{
    button->setIsMouseDownTemplate(
        [](KELPushButtonStyle &look) { look.backgroundBrush = QColor(24, 60, 100); });
    button->setIsCheckedTemplate([](KELPushButtonStyle &look) {
        look.backgroundBrush = QColor(Qt::white);
        look.foregroundBrush = QColor(24, 60, 100);
    });
    button->setIsDisableTemplate([](KELPushButtonStyle &look) {
        look.backgroundBrush = QColor(70, 84, 102);
        look.borderBrush = QColor(110, 124, 142);
        look.foregroundBrush = QColor(150, 164, 182);
    });
    button->update();
}

void fadeWhenDisabled(KELRoundRectControl *control)
{
    QObject::connect(control, &QGraphicsObject::enabledChanged, control,
                     [control] { control->setOpacity(control->isEnabled() ? 1 : 0.4); });
}

void centrePair(KELPushButton *button)
{
    constexpr qreal gapPx = 6;
    auto *style = static_cast<KELPushButtonStyle *>(button->style());
    const qreal lineHeight = QFontMetrics(style->font).height();
    const qreal edge = (button->rect().height() - style->iconSize - gapPx - lineHeight) / 2;
    style->margins = QMarginsF(4, 0, 4, edge);
    style->iconMargins = QMarginsF(0, edge, 0, gapPx);
}

void centreTabs(KELNavigationTable *table)
{
    constexpr qreal gapPx = 6;
    const auto *style = static_cast<KELNavigationTableStyle *>(table->style());
    const QList<QGraphicsItem *> children = table->childItems();
    for (QGraphicsItem *child : children) {
        auto *page = qobject_cast<KELNavigationTableItem *>(child->toGraphicsObject());
        if (!page)
            continue;
        page->style()->font = style->font;
        const qreal lineHeight = QFontMetrics(style->font).height();
        const qreal tabHeight = qreal(style->tabHeight);
        const qreal edge = (tabHeight - page->style()->iconSize - gapPx - lineHeight) / 2;
        page->style()->margins = QMarginsF(3, gapPx - edge, 3, edge);
    }
}

void shade(KELPushButton *button)
{
    QLinearGradient shade(0, 0, 0, button->rect().height());
    shade.setColorAt(0, QColor(84, 140, 200));
    shade.setColorAt(1, QColor(36, 76, 120));
    button->style()->backgroundBrush = shade;
    button->update();
}
