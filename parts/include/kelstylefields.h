// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELSTYLEFIELDS_H
#define KELSTYLEFIELDS_H

#include "kelgdiparts_global.h"

#include <QtCore/QPointer>
#include <QtCore/QStringList>
#include <QtWidgets/QGraphicsObject>

/*!
 * \brief The fields of a style record by name, as text: for themes, for tools and for files.
 *
 * \code
 * KELStyleFields fields(button);
 * fields.setText("backgroundBrush", "#0B62D6");
 * for (const QString &name : fields.names()) {
 *     if (!fields.isDefault(name))
 *         qInfo() << name << fields.text(name);
 * }
 * \endcode
 *
 * The names are those of the record's members: of KELRoundRectControlStyle, KELPushButtonStyle,
 * KELCheckBoxStyle, KELNavigationTableStyle and KELNavigationTableItemStyle for a control of the
 * library or a class derived from it, and of KELPartStyle for a part.
 *
 * \section stylefieldstext Texts
 * | type of the field | text |
 * |---|---|
 * | brush | "#RRGGBB" or "#AARRGGBB", "none" for Qt::NoBrush; "other" for a gradient, a pattern or a texture, which cannot be set |
 * | number | as in C, for example "0.5"; not NaN, not infinite |
 * | whole number | decimal; \c iconSize of a control is at least 1 |
 * | bool | "true" or "false" |
 * | margins | left, top, right, bottom: "5,1,5,1" |
 * | rectangle | x, y, width, height: "0,0,100,30" |
 * | font | QFont::toString() |
 * | glyph | the code in hexadecimal, "f011"; "none" without one |
 * | text | itself |
 * | picture, menu | "other", or "none" if it is null; cannot be set |
 *
 * The states \c isMouseDown and \c isCheck can be read only.
 *
 * An object that has died, or has no style record, has no fields: names() is empty, text() null,
 * and nothing can be set. GUI thread only.
 */
class KELGDIPARTS_EXPORT KELStyleFields
{
public:
    //! Looks at the record of \a object, a control or a part, which may be null.
    explicit KELStyleFields(QGraphicsObject *object);

    //! Returns the names of the fields in the order of the record.
    QStringList names() const;
    //! Returns the field \a name as text, or a null string if there is none.
    QString text(const QString &name) const;
    //! Sets the field \a name to \a text, repaints the object and returns true. If there is no such
    //! field, or it cannot be set, or \a text is no value for it, the object stays as it is; then a
    //! sentence in English is written to \a error, unless that is null, and false is returned.
    bool setText(const QString &name, const QString &text, QString *error = nullptr);
    //! Returns whether the field \a name has the value that it has in a new object of the same
    //! class. An inner control of a KELComboBox is compared with a new one of its own class.
    bool isDefault(const QString &name) const;
    //! Gives the field \a name the value that it has in a new object, even if it cannot be set as
    //! text. Returns false, and changes nothing, for a state and if there is no such field.
    bool reset(const QString &name);

private:
    QPointer<QGraphicsObject> m_object;
};

#endif
