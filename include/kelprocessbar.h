// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELPROCESSBAR_H
#define KELPROCESSBAR_H

#include "kelroundrectcontrol.h"

class KELProcessBarPrivate;

/*!
 * \brief A progress bar: a pill filled from the left, with the percentage in the middle.
 *
 * \image html states-progress-bar.png
 *
 * \code
 * auto *bar = new KELProcessBar;
 * bar->setboundRect(20, 20, 300, 30);
 * QObject::connect(bar, &KELProcessBar::completed, [] { qInfo("done"); });
 * bar->setValue(42);
 * scene->addItem(bar);
 * \endcode
 *
 * The value is an \c int in percent, default 0. Its range is not limited: a negative value shows
 * its number without a fill, and a value above 100 shows its number and a full bar. The fill is
 * <tt>value * width / 100</tt> px wide, truncated to a whole number.
 *
 * When the value changes, the bar emits, in this order,
 * \code
 * valueChanged, completed (only when the new value is exactly 100)
 * \endcode
 *
 * The bar is as wide as the control and 30 px high, vertically centred. In a control less than
 * 30 px high it extends beyond the rectangle; see \ref outside. It uses these fields of the style
 * record: \c backgroundBrush fills the bar, \c borderBrush the completed part; \c foregroundBrush
 * draws the number; \c xRadius and \c yRadius round the ends.
 *
 * For the effect of a press on the bar see \ref passive.
 *
 * \section processbarcompat Compatibility notes
 * - The property \c value is a bool. It reads as true when value() is not 0, and writing it sets
 *   the value to 0 or 1.
 * - The number is drawn in the painter's font, not in \c font. The painter's font is that of the
 *   application or, if the control is not cached, that of the view.
 * - The round ends are drawn with a clip that replaces the painter's own and is not restored. This
 *   has a visible effect in two cases, both without the cache: in a view with
 *   QGraphicsView::DontSavePainterState, and in a parent that clips its children, where the bar is
 *   not clipped. With the cache, a view may paint the bar without leaving the clip: the painter
 *   ends with the bar.
 */
// Compat: the class name, for a progress bar.
class KELGDI_EXPORT KELProcessBar : public KELRoundRectControl
{
    Q_OBJECT
    // Compat: a bool, which only reports whether the value is not 0.
    //! True if value() is not 0; writing sets the value to 0 or 1. For the number use value() and
    //! setValue().
    Q_PROPERTY(bool value READ value WRITE setValue NOTIFY valueChanged)

public:
    //! Creates a progress bar with value 0, as a child item of \a parent, or without a parent if it
    //! is null.
    explicit KELProcessBar(QGraphicsObject *parent = nullptr);
    //! Destroys the progress bar.
    ~KELProcessBar() override;

    //! Returns the value in percent. The default is 0. Not limited to 0 to 100; see setValue().
    int value() const;

    //! Paints the progress bar with \a painter; \a styleOption and \a widget are not used.
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *styleOption,
               QWidget *widget = nullptr) override;

    /*!
     * Applies the progress bar's defaults to the current record and returns it: rectangle (0, 0,
     * 100, 30), background RGB (69, 69, 69), fill (\c borderBrush) RGB (67, 110, 238), a white
     * number and corner radii of 15 px. The bar still owns the record.
     */
    KELRoundRectControlStyle *initStyle() override;

public Q_SLOTS:
    //! Sets the value to \a v percent, which may be any number. Repaints the bar, emits
    //! valueChanged() and, if \a v is exactly 100, completed(). Does nothing if \a v is the current
    //! value.
    void setValue(int v);

Q_SIGNALS:
    //! The value changed.
    void valueChanged();
    //! The value has become 100. Emitted right after valueChanged(), unless a slot connected to
    //! that signal has changed the value again.
    void completed();

private:
    Q_DISABLE_COPY(KELProcessBar)

    KELProcessBarPrivate *const d;
};

#endif
