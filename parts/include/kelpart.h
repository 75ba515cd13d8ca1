// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELPART_H
#define KELPART_H

#include "kelgdiparts_global.h"

#include <QtCore/QMarginsF>
#include <QtGui/QBrush>
#include <QtGui/QFont>
#include <QtWidgets/QGraphicsWidget>

class KELPartPrivate;

/*!
 * \brief The style record of a part: its colours, fonts and measures.
 *
 * Every part owns one and returns it from KELPart::partStyle(). All parts share this record, so a
 * theme and an application dress them alike; each part documents which fields it uses.
 *
 * \code
 * row->partStyle()->accentBrush = QColor(0, 120, 215);
 * row->styleChanged();
 * \endcode
 *
 * The defaults are those of the light theme of KELTheme. Later versions append fields: create
 * records with the constructor of a part only.
 */
struct KELGDIPARTS_EXPORT KELPartStyle
{
    //! The ground of a row, a list or a dialog. With Qt::NoBrush nothing is filled. The default is
    //! #FFFFFF.
    QBrush backgroundBrush;
    //! The ground while the part, or a row of it, is pressed. The default is #EEEEEF.
    QBrush pressedBrush;
    //! The ground of a selected row. The default is #0B62D6.
    QBrush selectedBrush;
    //! Text and glyphs on selectedBrush. The default is #FFFFFF.
    QBrush selectedForegroundBrush;
    //! Text and glyphs. The default is #141A22.
    QBrush foregroundBrush;
    //! Secondary text, sections and arrows. The default is #56616F.
    QBrush mutedBrush;
    //! Text and glyphs of a disabled part. The default is #727883.
    QBrush disabledBrush;
    //! Outlines and separators. The default is #D5DCE5.
    QBrush borderBrush;
    //! What is on, filled or marked; the focus ring; the ground of a bubble. The default is
    //! #0B62D6.
    QBrush accentBrush;
    //! What is drawn on the accent: the knob of a switch that is on, the text of a bubble. The
    //! default is #FFFFFF.
    QBrush accentForegroundBrush;
    //! What is off or unfilled: the track of a slider and of a switch. The default is #DDE3EB.
    QBrush trackBrush;
    //! The knob of a slider and of a switch that is off. The default is #56616F.
    QBrush knobBrush;
    //! The width of outlines and separators in item px. With 0 or less, or NaN, none is drawn. The
    //! default is 1.
    qreal borderWidth;
    //! The corner radius in item px. 0 or less, or NaN, gives square corners. The default is 12.
    qreal radius;
    //! The room between the edge of the part, or of a row, and its content, in item px. The default
    //! is 16, 8, 16, 8 (left, top, right, bottom).
    QMarginsF margins;
    //! The room between things beside each other, in item px. NaN counts as 0. The default is 8.
    qreal spacing;
    //! The least height of a row in item px. NaN, and less than KELTouch::leastSize(), count as
    //! KELTouch::leastSize(). The default is 64.
    qreal rowHeight;
    //! The font of text. The default is the application's font at 16 px.
    QFont font;
    //! The font of secondary text, sections and values. The default is the application's font at
    //! 13 px.
    QFont secondaryFont;
    //! The pixel size of a glyph. Less than 1 draws none. The default is 24.
    int iconSize;

    //! Creates a record with the defaults.
    KELPartStyle();
};

/*!
 * \brief The base of the parts that paint themselves: KELRow, KELList, KELPicker, KELRange and
 * KELPinDialog.
 *
 * A part is a QGraphicsWidget: its rectangle starts at (0, 0), a layout of Qt places it
 * (QGraphicsWidget::setGeometry()), it follows the layout direction, and it may have children.
 *
 * \section partpress Presses
 * A part takes the left mouse button and the first finger. A press becomes a drag when it leaves
 * the place where it began by more than \c slopPx item px (Manhattan distance). A press that is
 * released without having become a drag is a tap. The press is lost, and is no tap, when the grab
 * is taken away, when the window system cancels the touch, when the part or its view is hidden or
 * disabled, when the part is removed from the scene, or when a popup or a modal dialog opens over
 * the view.
 *
 * \section partfocus Focus
 * A part that takes keys has Qt::StrongFocus. The focus ring is drawn only if the focus came by
 * key, or a key was the last thing that was used: a finger leaves no ring.
 *
 * A slot connected to a signal of a part may delete any part, control or model with \c delete or
 * QObject::deleteLater(). The view, its window and the scene are deleted with
 * QObject::deleteLater().
 *
 * GUI thread only.
 */
class KELGDIPARTS_EXPORT KELPart : public QGraphicsWidget
{
    Q_OBJECT

public:
    //! Creates a part as a child item of \a parent, or without a parent if it is null.
    explicit KELPart(QGraphicsItem *parent = nullptr);
    //! Destroys the part, its record and its child items.
    ~KELPart() override;

    //! Returns the style record, for editing; call styleChanged() afterwards. Never null. The part
    //! owns it.
    KELPartStyle *partStyle() const;

    //! Call this after a change of partStyle(): repaints the part and updates what follows from the
    //! record, such as size hints and the records of inner parts.
    virtual void styleChanged();

    //! Returns true while the part is pressed and the press has not been lost.
    bool isPressed() const;

    //! The limits of a tap.
    enum Slop : int {
        slopPx = 10 //!< How far a tap may move, in item px.
    };

protected:
    //! The part was pressed at \a pos. Return false to let the items below have the press. Called
    //! before isPressed() is true. The base accepts.
    virtual bool pressEvent(const QPointF &pos);
    //! The press moved to \a pos. \a isDrag tells whether it has become a drag.
    virtual void dragEvent(const QPointF &pos, bool isDrag);
    //! The press was released at \a pos. \a isTap is false after a drag. isPressed() is false
    //! again.
    virtual void releaseEvent(const QPointF &pos, bool isTap);
    //! The press was lost, and isPressed() is false. Called later, from the event loop, or before
    //! the next press.
    virtual void pressLostEvent();

    //! Returns whether paint() shows the focus ring.
    bool isFocusShown() const;
    //! Returns whether \a event is of a key without a modifier. Qt::KeypadModifier does not count.
    static bool isPlainKey(const QKeyEvent *event);

    bool eventFilter(QObject *watched, QEvent *event) override;
    bool sceneEvent(QEvent *event) override;
    QVariant itemChange(GraphicsItemChange change, const QVariant &value) override;
    void mousePressEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseMoveEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseReleaseEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseDoubleClickEvent(QGraphicsSceneMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    Q_DISABLE_COPY(KELPart)
    friend class KELPartPrivate;
    KELPartPrivate *const d;
};

#endif
