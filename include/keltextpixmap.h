// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELTEXTPIXMAP_H
#define KELTEXTPIXMAP_H

#include "kelgdicontrol_global.h"

#include <QtGui/QPixmap>

QT_BEGIN_NAMESPACE
class QBrush;
class QFont;
QT_END_NAMESPACE

/*!
 * \brief A pixmap that shows a caption, for example as the picture of a control.
 *
 * \image html anatomy-text-pixmap.png
 *
 * The constructor draws the picture once; afterwards the object is an ordinary QPixmap.
 *
 * \code
 * button->style()->pixmap = KELTextPixmap("42", QSize(48, 48), Qt::white, Qt::darkGreen, QFont());
 * \endcode
 *
 * \section textpixmapcompat Compatibility notes
 * Only the colour of the background brush is used. Patterns and gradients are not drawn.
 */
class KELGDI_EXPORT KELTextPixmap : public QPixmap
{
public:
    /*!
     * Draws \a text, centred and word-wrapped, into a picture of size \a size, in pixels.
     *
     * \param text The caption. Text that does not fit into \a size is clipped.
     * \param size The size of the picture. An empty size gives a null pixmap.
     * \param textBrush The brush of the 1 px pen that draws the text. A gradient is allowed, within
     *        the limits of \ref stylebrushes.
     * \param backgroundBrush The background colour; see \ref textpixmapcompat. A
     *        default-constructed brush (Qt::NoBrush) makes the picture transparent.
     * \param font The font of the text.
     */
    KELTextPixmap(const QString &text, const QSize &size, const QBrush &textBrush,
                  const QBrush &backgroundBrush, const QFont &font);
    ~KELTextPixmap() override;
};

#endif
