// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef ANATOMY_H
#define ANATOMY_H

#include "specimen.h"

#include <QtCore/QLineF>
#include <QtCore/QStringList>
#include <QtGui/QImage>

namespace Anatomy {

// The names of one call-out beside the picture, and the line from them to its point. In px of the
// sheet.
struct Label
{
    QRectF rect;
    QLineF line;
    const CallOut *callOut;
};

// Where a specimen is on its sheet.
struct Placed
{
    const Specimen *specimen;
    QRectF panel;
    std::vector<Label> labels;
};

constexpr int sheetWidthPx = 640;
constexpr qreal enlargement = 2;

// From top to bottom; specimens must outlive the result.
std::vector<Placed> place(const std::vector<Specimen> &specimens);

qreal nameWidth(const QString &name);

// The specimen alone, without lines and names, scale times as large.
QImage drawSpecimen(const Specimen &specimen, qreal scale);

QImage drawAnatomy(const Sheet &sheet);
QImage drawStates(const Sheet &sheet);

// The font of the pictures, which has their glyphs too; empty if it is not installed.
QString fontPath();

// All pictures, by file name.
QStringList fileNames();
QImage draw(const QString &fileName);

// Saves them all in directory. Returns the file that could not be written, or nothing.
QString saveAll(const QString &directory);

} // namespace Anatomy

#endif
