// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef NAVIGATION_H
#define NAVIGATION_H

#include <KELRoundRectControl>
#include <QtCore/QPointer>
#include <QtCore/QVector>

#include <vector>

class IconSet;
class KELPushButton;
class KELSideMenu;
struct PageEntry;

/*
 * A button for each page: a column, or a row when the bar is wider than high.
 *
 * The buttons are in a side menu. When not all of them fit, there are more menus, of which one is
 * shown, and two buttons that turn to the next one.
 */
class Navigation : public KELRoundRectControl
{
    Q_OBJECT

public:
    // icons and pages must outlive the bar. Its menus are child widgets of view, in which parent is
    // in its place already.
    Navigation(const IconSet *icons, const std::vector<PageEntry> &pages, const QRectF &area,
               QGraphicsObject *parent, QWidget *view);
    ~Navigation() override;

    // Marks the page as shown and turns the bar to it.
    void setCurrent(int page);

Q_SIGNALS:
    void chosen(int page);

private:
    Q_DISABLE_COPY(Navigation)

    bool isRow() const;
    int slotsIn(qreal length) const;
    QVector<QRectF> slotRects() const;
    void addMenu(int firstPage, QWidget *view);
    KELPushButton *makePageButton(int page, const QSizeF &size);
    void addGlyph(int page);
    void addTurnButtons();
    KELPushButton *addTurnButton(const QRectF &rect, ushort icon, const QString &text, int step);
    void turnTo(int leaf);

    const IconSet *const m_icons;
    const std::vector<PageEntry> &m_pages;
    QVector<QPointer<KELSideMenu>> m_menus;
    QVector<KELPushButton *> m_buttons;
    QVector<KELRoundRectControl *> m_glyphs; // of the buttons; null where there is none
    KELPushButton *m_back = nullptr;
    KELPushButton *m_forth = nullptr;
    int m_perLeaf = 1;
    int m_leaf = 0;
};

#endif
