// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "anatomy.h"

#include "stand.h"

#include <QtCore/QBuffer>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QStandardPaths>
#include <QtGui/QFontMetricsF>
#include <QtGui/QPainter>

#include <algorithm>

namespace Anatomy {

namespace {

constexpr int textSizePx = 12;
constexpr qreal lineHeightPx = 16;
constexpr qreal labelGapPx = 9;
constexpr qreal labelWidthPx = 160;
constexpr qreal lineGapPx = 5; // between a name and its line
constexpr qreal edgePx = 4;
constexpr qreal titleHeightPx = 26;
constexpr qreal bandGapPx = 16;
constexpr qreal dotRadiusPx = 2.5;
constexpr int columnCount = 4;
constexpr qreal cellPaddingPx = 10;
constexpr qreal captionHeightPx = 24;

const QColor paper(255, 255, 255);
const QColor ink(26, 26, 26);
const QColor panelColour(47, 59, 74);
const QColor lineColour(214, 20, 100);
const QColor haloColour(255, 255, 255, 210);
const QColor guideColour(255, 255, 255, 150);

QImage blankSheet(qreal height)
{
    QImage image(sheetWidthPx, qRound(height), QImage::Format_RGB32);
    image.fill(paper);
    return image;
}

qreal labelHeight(const CallOut &callOut)
{
    return qreal(callOut.fields.size()) * lineHeightPx;
}

std::vector<const CallOut *> callOutsOn(const Specimen &specimen, Side side)
{
    std::vector<const CallOut *> found;
    for (const CallOut &callOut : specimen.callOuts) {
        if (callOut.side == side)
            found.push_back(&callOut);
    }
    return found;
}

qreal heightOf(const std::vector<const CallOut *> &callOuts)
{
    qreal height = 0;
    for (const CallOut *callOut : callOuts)
        height += labelHeight(*callOut) + labelGapPx;
    return height;
}

// The widest line of names, from the edge at which the line to the point begins.
Label labelAt(const CallOut &callOut, qreal top, const QPointF &target)
{
    const bool isLeft = callOut.side == Side::Left;
    const QRectF rect(isLeft ? edgePx : sheetWidthPx - edgePx - labelWidthPx, top, labelWidthPx,
                      labelHeight(callOut));
    const QPointF from(isLeft ? rect.right() + lineGapPx : rect.left() - lineGapPx,
                       rect.center().y());
    return {rect, QLineF(from, target), &callOut};
}

// Each label as near to the height of its point as the others let it.
std::vector<Label> labelsOn(const Specimen &specimen, Side side, const QRectF &panel,
                            const QRectF &band)
{
    const std::vector<const CallOut *> callOuts = callOutsOn(specimen, side);
    const auto targetOf = [&](const CallOut *callOut) {
        return panel.topLeft() + callOut->point * enlargement;
    };
    std::vector<qreal> tops;
    qreal free = band.top();
    for (const CallOut *callOut : callOuts) {
        tops.push_back(qMax(free, targetOf(callOut).y() - labelHeight(*callOut) / 2));
        free = tops.back() + labelHeight(*callOut) + labelGapPx;
    }
    qreal bottom = band.bottom();
    for (size_t i = callOuts.size(); i-- > 0;) {
        tops[i] = qMin(tops[i], bottom - labelHeight(*callOuts[i]));
        bottom = tops[i] - labelGapPx;
    }
    std::vector<Label> labels;
    for (size_t i = 0; i < callOuts.size(); ++i)
        labels.push_back(labelAt(*callOuts[i], tops[i], targetOf(callOuts[i])));
    return labels;
}

void drawPanel(QPainter *painter, const QRectF &panel)
{
    painter->setPen(Qt::NoPen);
    painter->setBrush(panelColour);
    painter->drawRect(panel);
}

void drawLabel(QPainter *painter, const Label &label)
{
    painter->setBrush(Qt::NoBrush);
    painter->setPen(QPen(haloColour, 3.4, Qt::SolidLine, Qt::RoundCap));
    painter->drawLine(label.line);
    painter->setPen(QPen(lineColour, 1.4, Qt::SolidLine, Qt::RoundCap));
    painter->drawLine(label.line);
    painter->setPen(QPen(haloColour, 1));
    painter->setBrush(lineColour);
    painter->drawEllipse(label.line.p2(), dotRadiusPx + 0.5, dotRadiusPx + 0.5);

    painter->setPen(ink);
    painter->setFont(plainFont(textSizePx));
    QRectF row(label.rect.left(), label.rect.top(), label.rect.width(), lineHeightPx);
    const int side = label.callOut->side == Side::Left ? Qt::AlignRight : Qt::AlignLeft;
    for (const Field &field : label.callOut->fields) {
        painter->drawText(row, side | Qt::AlignVCenter, field.name);
        row.translate(0, lineHeightPx);
    }
}

void drawPlaced(QPainter *painter, const Placed &placed)
{
    const Specimen &specimen = *placed.specimen;
    drawPanel(painter, placed.panel);
    painter->drawImage(placed.panel.topLeft(), drawSpecimen(specimen, enlargement));
    painter->setBrush(Qt::NoBrush);
    painter->setPen(QPen(guideColour, 1, Qt::DashLine));
    for (const QRectF &guide : specimen.guides) {
        painter->drawRect(QRectF(placed.panel.topLeft() + guide.topLeft() * enlargement,
                                 guide.size() * enlargement));
    }
    painter->setPen(ink);
    painter->setFont(plainFont(textSizePx, QFont::Bold));
    painter->drawText(placed.panel.adjusted(0, -titleHeightPx, 0, 0),
                      Qt::AlignHCenter | Qt::AlignTop, specimen.title);
    for (const Label &label : placed.labels)
        drawLabel(painter, label);
}

void drawState(QPainter *painter, const Specimen &specimen, const QRectF &cell)
{
    const QRectF panel = cell.adjusted(cellPaddingPx / 2, 0, -cellPaddingPx / 2, -captionHeightPx);
    drawPanel(painter, panel);
    const QPointF room((panel.width() - specimen.size.width()) / 2,
                       (panel.height() - specimen.size.height()) / 2);
    painter->drawImage((panel.topLeft() + room).toPoint(), drawSpecimen(specimen, 1));
    painter->setPen(ink);
    painter->setFont(plainFont(textSizePx));
    painter->drawText(QRectF(cell.left(), panel.bottom(), cell.width(), captionHeightPx),
                      Qt::AlignCenter, specimen.title);
}

bool save(const QImage &image, const QString &path)
{
    QBuffer png;
    QFile file(path);
    return image.save(&png, "PNG") && file.open(QIODevice::WriteOnly | QIODevice::Truncate)
        && file.write(png.data()) == png.size() && file.flush();
}

QString fileNameOf(const char *kind, const Sheet &sheet)
{
    return QLatin1String(kind) + QLatin1Char('-') + QLatin1String(sheet.name)
        + QLatin1String(".png");
}

} // namespace

std::vector<Placed> place(const std::vector<Specimen> &specimens)
{
    std::vector<Placed> all;
    qreal top = edgePx;
    for (const Specimen &specimen : specimens) {
        const QSizeF size = specimen.size * enlargement;
        const qreal height = std::max({size.height(), heightOf(callOutsOn(specimen, Side::Left)),
                                       heightOf(callOutsOn(specimen, Side::Right))});
        const qreal titleHeight = specimen.title.isEmpty() ? 0 : titleHeightPx;
        const QRectF band(0, top + titleHeight, sheetWidthPx, height);
        const QPointF corner((band.width() - size.width()) / 2,
                             band.top() + (height - size.height()) / 2);
        const QRectF panel(corner.toPoint(), size);
        std::vector<Label> labels = labelsOn(specimen, Side::Left, panel, band);
        for (const Label &label : labelsOn(specimen, Side::Right, panel, band))
            labels.push_back(label);
        all.push_back({&specimen, panel, labels});
        top = band.bottom() + bandGapPx;
    }
    return all;
}

qreal nameWidth(const QString &name)
{
    return QFontMetricsF(plainFont(textSizePx)).horizontalAdvance(name);
}

QImage drawSpecimen(const Specimen &specimen, qreal scale)
{
    QImage image((specimen.size * scale).toSize(), QImage::Format_RGB32);
    image.fill(panelColour);
    QPainter painter(&image);
    painter.scale(scale, scale);
    specimen.draw(&painter);
    return image;
}

QImage drawAnatomy(const Sheet &sheet)
{
    const std::vector<Specimen> specimens = sheet.make();
    const std::vector<Placed> all = place(specimens);
    qreal bottom = 0;
    for (const Placed &placed : all) {
        bottom = qMax(bottom, placed.panel.bottom());
        for (const Label &label : placed.labels)
            bottom = qMax(bottom, label.rect.bottom());
    }
    QImage image = blankSheet(bottom + bandGapPx / 2);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    for (const Placed &placed : all)
        drawPlaced(&painter, placed);
    return image;
}

QImage drawStates(const Sheet &sheet)
{
    const std::vector<Specimen> specimens = sheet.make();
    qreal height = 0;
    for (const Specimen &specimen : specimens)
        height = qMax(height, specimen.size.height());
    const QSizeF cell(qreal(sheetWidthPx) / columnCount, height + captionHeightPx);
    const int count = int(specimens.size());
    QImage image = blankSheet((count + columnCount - 1) / columnCount * cell.height() + 2 * edgePx);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    for (int i = 0; i < count; ++i) {
        const QPointF corner(i % columnCount * cell.width(),
                             edgePx + i / columnCount * cell.height());
        drawState(&painter, specimens[size_t(i)], QRectF(corner, cell));
    }
    return image;
}

QString fontPath()
{
    return QStandardPaths::locate(QStandardPaths::GenericDataLocation,
                                  QStringLiteral("fonts/truetype/dejavu/DejaVuSans.ttf"));
}

QStringList fileNames()
{
    QStringList names;
    for (const Sheet &sheet : anatomySheets())
        names += fileNameOf("anatomy", sheet);
    for (const Sheet &sheet : stateSheets())
        names += fileNameOf("states", sheet);
    return names;
}

QImage draw(const QString &fileName)
{
    for (const Sheet &sheet : anatomySheets()) {
        if (fileName == fileNameOf("anatomy", sheet))
            return drawAnatomy(sheet);
    }
    for (const Sheet &sheet : stateSheets()) {
        if (fileName == fileNameOf("states", sheet))
            return drawStates(sheet);
    }
    return QImage();
}

QString saveAll(const QString &directory)
{
    const QStringList names = fileNames();
    for (const QString &name : names) {
        const QString path = QDir(directory).filePath(name);
        if (!save(draw(name), path))
            return path;
    }
    return QString();
}

} // namespace Anatomy
