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
 * An icon font is a font file whose glyphs are pictures. The application installs the file once,
 * before it creates controls, with installFont(); every KELIconFont made afterwards uses its family.
 * The library ships no font: which code points mean what is the application's own knowledge.
 *
 * A KELIconFont is a plain value. One that was built before installFont() keeps the family it was
 * built with.
 *
 * \code
 * KELIconFont::installFont("/usr/share/fonts-font-awesome/fonts/fontawesome-webfont.ttf");
 * button->style()->icon = KELIconFont(0xf015);
 * \endcode
 *
 * GUI thread only. An application object must exist before installFont() is called.
 */
class KELGDI_EXPORT KELIconFont
{
public:
    //! Builds a null glyph (code 0) in the family installed at this moment.
    KELIconFont();

    //! Builds the glyph \a code, one UTF-16 code unit, in the family installed at this moment.
    //! Code 0 means "no icon".
    KELIconFont(unsigned short code);

    //! Replaces the glyph by \a icon; the font stays as it is.
    void setIcon(const QChar &icon);

    //! Returns the glyph; its code is 0 when there is none.
    QChar getIcon() const;

    //! Returns the glyph, as getIcon() does.
    operator QChar() const;

    //! Returns a string of length one that holds the glyph, also when the glyph is null.
    operator QString() const;

    //! Returns true when the glyph's code is 0.
    bool isNull() const;

    //! Sets the pixel size of the glyph's font. \a pixelSize must be greater than 0; anything else
    //! leaves the size as it was, and Qt prints a warning.
    void setPixelSize(int pixelSize);

    /*!
     * Draws the glyph with \a painter into \a rect, placed by \a flags (Qt::AlignmentFlag and
     * Qt::TextFlag bits).
     *
     * The painter's font is replaced; its pen is used as the caller set it. \a painter must not be
     * null and must be active. A glyph that the font lacks is drawn as the font's "missing glyph" box,
     * or in whatever font Qt substitutes.
     */
    void drawIcon(QPainter *painter, const QRectF &rect, int flags) const;

    //! Returns a font of the installed family in Qt's default size and weight.
    static QFont iconFont();

    //! Returns the family of the installed icon font: empty until installFont() succeeded.
    static QString fontFamily();

    /*!
     * Registers the font file at \a path (a file or a Qt resource) and makes its first family the
     * icon font of everything built from now on.
     *
     * On success prints, with qDebug(), <tt>install from "PATH" , font "FAMILY" succeeful</tt>. When the
     * file is missing or is not a font, prints <tt>could not intstall "PATH"</tt> and leaves the family as
     * it was. A font that names no family is known by the name that the system gives it, in general that
     * of its file.
     */
    static void installFont(const QString &path);

    //! The family of the installed icon font. Written by installFont() only; read it with fontFamily().
    static QString g_fontFamily;

private:
    QChar m_glyph;
    QFont m_font;
};

#endif
