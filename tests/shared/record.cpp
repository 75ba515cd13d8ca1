// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "record.h"

#include "handdrawing.h"
#include "literals.h"

#include <QtCore/QDebug>

namespace {

template <typename Value>
QString valueText(const Value &value)
{
    QString text;
    QDebug(&text).nospace() << value;
    return text;
}

// A glyph shows its font only to the painter that draws it.
QString glyphText(const KELIconFont &glyph)
{
    QImage image(1, 1, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&image);
    glyph.drawIcon(&painter, QRectF(), 0);
    return valueText(glyph.getIcon()) + u" in "_s + painter.font().toString();
}

struct Field
{
    const char *name;
    QString value;
};

std::vector<Field> fieldsOf(const KELRoundRectControlStyle &record)
{
    return {{"boundRect", valueText(record.boundRect)},
            {"backgroundBrush", valueText(record.backgroundBrush)},
            {"foregroundBrush", valueText(record.foregroundBrush)},
            {"borderBrush", valueText(record.borderBrush)},
            {"borderWidth", valueText(record.borderWidth)},
            {"xRadius", valueText(record.xRadius)},
            {"yRadius", valueText(record.yRadius)},
            {"text", record.text.isNull() ? u"null"_s : valueText(record.text)},
            {"textFlags", valueText(record.textFlags)},
            {"trimText", valueText(record.trimText)},
            {"font", record.font.toString()},
            {"contextMenu", valueText(static_cast<const void *>(record.contextMenu))},
            {"margins", valueText(record.margins)},
            {"pixmap", valueText(record.pixmap.cacheKey())},
            {"icon", glyphText(record.icon)},
            {"iconSize", valueText(record.iconSize)},
            {"isMouseDown", valueText(record.isMouseDown)},
            {"isCheck", valueText(record.isCheck)}};
}

} // namespace

KELRoundRectControlStyle Record::defaults()
{
    KELRoundRectControlStyle record = KELRoundRectControlStyle();
    record.boundRect = QRectF(100, 100, 100, 30);
    record.backgroundBrush = QColor(0, 0, 0, 20);
    record.foregroundBrush = QColor(Qt::black);
    record.borderBrush = QColor(Qt::black);
    record.borderWidth = 0.5F;
    record.textFlags = 0x1084;
    record.trimText = true;
    record.iconSize = 30;
    return record;
}

void Record::fill(KELRoundRectControlStyle *record)
{
    record->boundRect = QRectF(1, 2, 3, 4);
    record->backgroundBrush = QBrush(Qt::red, Qt::Dense4Pattern);
    record->foregroundBrush = QColor(Qt::green);
    record->borderBrush = QBrush(Qt::blue, Qt::CrossPattern);
    record->borderWidth = 7.25F;
    record->xRadius = 8.5;
    record->yRadius = 9.5;
    record->text = u"caption"_s;
    record->textFlags = Qt::AlignRight | Qt::TextSingleLine;
    record->trimText = false;
    record->font = QFont(u"Serif"_s, 33, QFont::Bold, true);
    record->margins = QMarginsF(10, 11, 12, 13);
    record->pixmap = HandDrawing::picture();
    record->icon = KELIconFont(0x2605);
    record->icon.setPixelSize(61);
    record->iconSize = 44;
    record->isMouseDown = true;
    record->isCheck = true;
}

QString Record::difference(const KELRoundRectControlStyle &actual,
                           const KELRoundRectControlStyle &expected)
{
    const std::vector<Field> actualFields = fieldsOf(actual);
    const std::vector<Field> expectedFields = fieldsOf(expected);
    QStringList different;
    for (size_t i = 0; i < actualFields.size(); ++i) {
        if (actualFields[i].value != expectedFields[i].value) {
            different += QLatin1String(actualFields[i].name) + u": "_s + actualFields[i].value
                + u", not "_s + expectedFields[i].value;
        }
    }
    return different.join(QLatin1Char('\n'));
}
