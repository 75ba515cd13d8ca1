// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELLABEL_H
#define KELLABEL_H

#include "kelroundrectcontrol.h"

/*!
 * \brief A caption: white text, no fill, no outline.
 *
 * \image html label.png
 *
 * Everything else is the base's: eliding, font, margins, a pixmap or a glyph instead of the text. With an
 * empty text nothing is drawn.
 *
 * The label changes none of the base's input settings: see \ref passive for what a press on it does, and call
 * <tt>setAcceptedMouseButtons(Qt::NoButton)</tt> where taps are meant for the item below.
 */
class KELGDI_EXPORT KELLabel : public KELRoundRectControl
{
    Q_OBJECT

public:
    //! Creates a label as a child item of \a parent, or without parent when it is null.
    explicit KELLabel(QGraphicsObject *parent = nullptr);
    //! Destroys the label.
    ~KELLabel() override;

    //! Paints the label with \a painter, as KELRoundRectControl::paint() does.
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *styleOption,
               QWidget *widget = nullptr) override;

    /*!
     * Gives the present record the label's look and returns it: caption white, no background, outline 0 px.
     * The other fields keep the base's defaults: caption centred, wrapped and elided, in the default font.
     * The label goes on owning the record.
     */
    KELRoundRectControlStyle *initStyle() override;

private:
    Q_DISABLE_COPY(KELLabel)
};

#endif
