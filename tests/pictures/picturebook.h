// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef PICTUREBOOK_H
#define PICTUREBOOK_H

#include "hand.h"

#include <kelscreen.h>
#include <keltheme.h>

#include <functional>

class KELRoundRectControl;

// What a picture depends on besides what is on it.
struct Variant
{
    QString name() const;

    KELTheme::Scheme scheme;
    QSize size;
    bool isMirrored;
};

/*
 * Pictures of parts in their states, as a screen shows them.
 *
 * A part gets a cell with the name of its state above it. Cells fill the columns of a page, and
 * then those of the next one. A finger is on one item at a time, so two cells with something to do
 * are on two pages.
 */
class PictureBook
{
public:
    // What makes the state, once the page is shown.
    using Act = std::function<void(Hand *hand)>;

    // Without a folder nothing is saved.
    PictureBook(const Variant &newVariant, const QString &newFolder);
    ~PictureBook();

    void begin(const QString &sheet);
    // In a cell as high as it asks for, or as given.
    void add(const QString &state, QGraphicsWidget *part, const Act &act = Act(), qreal height = 0);
    void add(const QString &state, KELRoundRectControl *control, const QSizeF &size,
             const Act &act = Act());
    // On a page of its own, with a margin or without.
    void addPage(const QString &state, QGraphicsWidget *part, const Act &act = Act());
    // An empty page, for what opens above it.
    void addPage(const QString &state, const Act &act);
    void end();

    // One of two texts, for the direction of the variant.
    QString say(const QString &leftToRight, const QString &rightToLeft) const
    {
        return m_variant.isMirrored ? rightToLeft : leftToRight;
    }
    bool isMirrored() const { return m_variant.isMirrored; }
    // The item's middle on the screen.
    QPoint middleOf(const QGraphicsItem *item) const;
    KELScreen *screen() { return &m_screen; }

    int pictureCount() const { return m_pictureCount; }
    // Cells in which nothing is to be seen, or the same as in another one of the sheet.
    const QStringList &faults() const { return m_faults; }

private:
    Q_DISABLE_COPY(PictureBook)

    struct Cell
    {
        QString state;
        QRect area;
        QImage picture;
    };

    QRectF place(const QString &state, qreal height, const Act &act);
    void startPage();
    void finishPage();
    void look(const QImage &picture);

    const Variant m_variant;
    const QString m_folder;
    KELScreen m_screen;
    KELTheme m_theme;
    QString m_sheet;
    KELPage *m_page = nullptr;
    Act m_act;
    QPointF m_next; // where the next cell begins
    QVector<Cell> m_cells; // of the page
    QVector<Cell> m_seen; // of the sheet
    int m_pageNumber = 0;
    int m_pictureCount = 0;
    QStringList m_faults;
};

#endif
