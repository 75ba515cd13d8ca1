// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELSTYLERECORD_P_H
#define KELSTYLERECORD_P_H

#include <QtCore/QString>

QT_BEGIN_NAMESPACE
class QGraphicsObject;
QT_END_NAMESPACE

/*
 * The members of style records by name. A field is at the same place in all records of a kind, so
 * that two can be compared and copied without a word about their types.
 */
struct KELStyleField
{
    enum Type : unsigned char {
        Brush,
        Real,
        Float,
        Int,
        PositiveInt,
        Bool,
        Text,
        Font,
        Margins,
        Rect,
        Glyph,
        Pixmap,
        Menu,
        State
    };

    const char *name;
    Type type;
    unsigned short offset;
};

namespace KELStyleRecord {

// The record of an object, and the tables of its fields; null without one.
char *of(const QGraphicsObject *object);
const KELStyleField *field(const QGraphicsObject *object, int index);
const KELStyleField *field(const QGraphicsObject *object, const QString &name);

bool isEqual(const KELStyleField &field, const char *one, const char *other);
void copy(const KELStyleField &field, char *to, const char *from);
QString toText(const KELStyleField &field, const char *record);
// False if the text means nothing.
bool fromText(const KELStyleField &field, char *record, const QString &text);

// How many kinds of objects have defaults of their own; which one an object is of; a new one.
int kinds();
int kindOf(const QGraphicsObject *object); // -1 without a record
const char *nameOf(int kind);
QGraphicsObject *make(int kind);
// Everything that the library has of a kind's name is its own or a base of it.
bool inherits(int kind, const QString &className);

// Repaints, and tells a part.
void changed(QGraphicsObject *object);

} // namespace KELStyleRecord

#endif
