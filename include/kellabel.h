// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELLABEL_H
#define KELLABEL_H

#include "kelroundrectcontrol.h"

/*!
 * \brief A caption: white text without fill or outline.
 *
 * \image html states-label.png
 *
 * \code
 * auto *label = new KELLabel(panel);
 * label->setboundRect(20, 10, 160, 30);
 * label->setText(QObject::tr("Temperature"));
 * label->style()->foregroundBrush = QColor(Qt::yellow);
 * \endcode
 *
 * All other features are those of KELRoundRectControl: eliding, font, margins, and a pixmap or a
 * glyph instead of the text. A label whose text is empty draws nothing.
 *
 * A label keeps the base class's input settings, so it blocks presses on the items below. If taps
 * are meant for the item below, call <tt>setAcceptedMouseButtons(Qt::NoButton)</tt>; see
 * \ref passive.
 */
class KELGDI_EXPORT KELLabel : public KELRoundRectControl
{
    Q_OBJECT

public:
    //! Creates a label as a child item of \a parent, or without a parent if it is null.
    explicit KELLabel(QGraphicsObject *parent = nullptr);
    //! Destroys the label.
    ~KELLabel() override;

    //! Paints the label with \a painter, as KELRoundRectControl::paint() does.
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *styleOption,
               QWidget *widget = nullptr) override;

    /*!
     * Applies the label's defaults to the current record and returns it: a white caption, no
     * background and a 0 px outline. The other fields keep the base class's defaults: caption
     * centred, wrapped and elided, in the default font. The label still owns the record.
     */
    KELRoundRectControlStyle *initStyle() override;

private:
    Q_DISABLE_COPY(KELLabel)
};

#endif
