// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef NAVIGATION_H
#define NAVIGATION_H

#include <KELRoundRectControl>
#include <QtCore/QVector>

#include <vector>

class IconSet;
class KELPushButton;
struct PageEntry;

/*
 * A button for each page: a column, or a row when the bar is wider than high.
 *
 * When not all of them fit, two more buttons turn the bar over.
 */
class Navigation : public KELRoundRectControl
{
    Q_OBJECT

public:
    // icons and pages must outlive the bar.
    Navigation(const IconSet *icons, const std::vector<PageEntry> &pages, const QRectF &area,
               QGraphicsObject *parent);

    // Marks the page as shown and turns the bar to it.
    void setCurrent(int page);

Q_SIGNALS:
    void chosen(int page);

private:
    Q_DISABLE_COPY(Navigation)

    bool isRow() const;
    int slotsIn(qreal length) const;
    QRectF slotRect(int slot) const;
    void addPageButton(int page, const QRectF &rect);
    void addTurnButtons();
    KELPushButton *addTurnButton(const QRectF &rect, ushort icon, const QString &text, int step);
    void turnTo(int leaf);

    const IconSet *const m_icons;
    const std::vector<PageEntry> &m_pages;
    QVector<KELPushButton *> m_buttons;
    QVector<KELRoundRectControl *> m_glyphs; // of the buttons; null where there is none
    KELPushButton *m_back = nullptr;
    KELPushButton *m_forth = nullptr;
    int m_perLeaf = 1;
    int m_leaf = 0;
};

#endif
