// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef SPECIMEN_H
#define SPECIMEN_H

#include <QtCore/QPointF>
#include <QtCore/QRectF>
#include <QtCore/QString>

#include <functional>
#include <vector>

QT_BEGIN_NAMESPACE
class QPainter;
QT_END_NAMESPACE

// What the pictures of the styling guide show: controls, and which field paints what of them.
namespace Anatomy {

struct Field
{
    QString name;
    std::function<void()> change; // to a value that looks different
};

enum class Side { Left, Right };

// A point of a picture and the fields that decide what is there.
struct CallOut
{
    Side side;
    QPointF point; // item px
    std::vector<Field> fields;
};

// Positions in item px.
struct Specimen
{
    QString title;
    QSizeF size;
    std::function<void(QPainter *)> draw; // into (0, 0, size); keeps alive what it draws
    std::vector<CallOut> callOuts; // from top to bottom on each side
    std::vector<QRectF> guides; // drawn dashed: rectangles that margins leave
};

struct Sheet
{
    const char *name;
    std::vector<Specimen> (*make)();
};

// One a class, what paints what; and one a class with states, what each of them looks like.
const std::vector<Sheet> &anatomySheets();
const std::vector<Sheet> &stateSheets();

} // namespace Anatomy

#endif
