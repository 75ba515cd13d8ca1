// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELICONFONT_H
#define KELICONFONT_H

#include "kelgdicontrol_global.h"

#include <QtCore/QChar>
#include <QtCore/QRectF>
#include <QtCore/QString>
#include <QtGui/QFont>

QT_BEGIN_NAMESPACE
class QPainter;
QT_END_NAMESPACE

/*!
 * \brief One glyph of the application's icon font, with the font to draw it in.
 *
 * An icon font is a font file whose glyphs are pictures. The library ships none: the application
 * chooses the font and knows its code points. Install the file once with installFont(), before you
 * create controls.
 *
 * \code
 * KELIconFont::installFont("/usr/share/fonts-font-awesome/fonts/fontawesome-webfont.ttf");
 * button->style()->icon = KELIconFont(0xf015);
 * \endcode
 *
 * A KELIconFont is a plain value. It uses the family that was installed when it was constructed; a
 * later installFont() does not change it.
 *
 * GUI thread only. An application object must exist before installFont() is called.
 *
 * \section iconfontcompat Compatibility notes
 * The debug messages of installFont() contain the misspellings \c succeeful and \c intstall.
 */
class KELGDI_EXPORT KELIconFont
{
public:
    //! Constructs a null glyph (code 0) in the currently installed family.
    KELIconFont();

    //! Constructs the glyph \a code, one UTF-16 code unit, in the currently installed family. Code
    //! 0 means "no icon".
    KELIconFont(unsigned short code);

    //! Replaces the glyph with \a icon. The font stays the same.
    void setIcon(const QChar &icon);

    //! Returns the glyph; its code is 0 when there is none.
    QChar getIcon() const;

    //! Returns the glyph, as getIcon() does.
    operator QChar() const;

    //! Returns the glyph as a string of length 1, even if the glyph is null.
    operator QString() const;

    //! Returns true when the glyph's code is 0.
    bool isNull() const;

    //! Sets the pixel size of the glyph's font. \a pixelSize must be greater than 0; any other
    //! value leaves the size unchanged, and Qt prints a warning.
    void setPixelSize(int pixelSize);

    /*!
     * Draws the glyph with \a painter into \a rect, aligned by \a flags (Qt::AlignmentFlag and
     * Qt::TextFlag bits).
     *
     * Replaces the painter's font and uses its current pen. \a painter must not be null and must be
     * active. A glyph that the font lacks is drawn as the font's "missing glyph" box, or in the
     * font that Qt substitutes.
     */
    void drawIcon(QPainter *painter, const QRectF &rect, int flags) const;

    //! Returns a font of the installed family, with Qt's default size and weight.
    static QFont iconFont();

    //! Returns the family of the installed icon font. Empty until installFont() has succeeded.
    static QString fontFamily();

    /*!
     * Registers the font file at \a path (a file or a Qt resource) and makes its first family the
     * icon font of all KELIconFont objects constructed from then on.
     *
     * On success, prints, with qDebug(), <tt>install from "PATH" , font "FAMILY" succeeful</tt>. If
     * the file is missing or is not a font, prints <tt>could not intstall "PATH"</tt> and keeps the
     * previous family. If the font does not name its family, the system chooses the name, usually
     * that of the file.
     */
    static void installFont(const QString &path);

    //! The family of the installed icon font. Only installFont() writes it; read it with
    //! fontFamily().
    static QString g_fontFamily;

private:
    friend class KELGlyphFont;

    QChar m_glyph;
    QFont m_font;
};

#endif
