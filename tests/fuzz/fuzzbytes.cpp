// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "fuzzbytes.h"

#include <QtCore/QtNumeric>
#include <QtGui/QGradient>

#include <cstring>
#include <limits>

namespace {

// Where numbers go wrong.
const qreal oddNumbers[] = {
    0,
    -0.0,
    0.5,
    -0.5,
    qQNaN(),
    qInf(),
    -qInf(),
    std::numeric_limits<qreal>::min(),
    std::numeric_limits<qreal>::denorm_min(),
    std::numeric_limits<qreal>::max(),
    -std::numeric_limits<qreal>::max(),
    qreal(std::numeric_limits<float>::max()),
    1e-6,
    1e5,
    1e9,
    -1e9,
    1e12,
    1e38,
    32767,
    32768,
    -32769,
    2147483647,
    2147483648.0,
    -2147483649.0,
    1073741823,
    16777216,
    8388607.5,
};

} // namespace

int FuzzBytes::word()
{
    const int low = byte();
    return qint16(low | byte() << 8);
}

// As it lies in memory, little-endian on every machine.
double FuzzBytes::real(int size)
{
    quint64 bits = 0;
    for (int i = 0; i < size; ++i)
        bits |= quint64(byte()) << (8 * i);
    if (size == 4) {
        const auto half = quint32(bits);
        float value = 0;
        std::memcpy(&value, &half, sizeof(value));
        return double(value);
    }
    double value = 0;
    std::memcpy(&value, &bits, sizeof(value));
    return value;
}

qreal FuzzBytes::number()
{
    const int kind = byte();
    switch (kind % 8) {
    case 0:
    case 1:
    case 2:
        return byte();
    case 3:
        return qint8(byte());
    case 4:
        return word() / 16.0;
    case 5:
        return oddNumbers[size_t(below(int(std::size(oddNumbers))))];
    case 6:
        return real(4);
    default:
        return real(8);
    }
}

int FuzzBytes::integer()
{
    const int kind = byte();
    switch (kind % 8) {
    case 0:
    case 1:
    case 2:
    case 3:
    case 4:
        return byte();
    case 5:
        return qint8(byte());
    case 6:
        return word();
    default: {
        const auto low = quint32(quint16(word()));
        return int(low | quint32(quint16(word())) << 16);
    }
    }
}

QRectF FuzzBytes::rect()
{
    const qreal x = number();
    const qreal y = number();
    const qreal width = number();
    return {x, y, width, number()};
}

QMarginsF FuzzBytes::margins()
{
    const qreal left = number();
    const qreal top = number();
    const qreal right = number();
    return {left, top, right, number()};
}

QColor FuzzBytes::color()
{
    const int red = byte();
    const int green = byte();
    const int blue = byte();
    return {red, green, blue, flag() ? 255 : byte()};
}

QBrush FuzzBytes::brush()
{
    const int kind = byte();
    const auto point = [this] {
        const qreal x = number();
        return QPointF(x, number());
    };
    QBrush brush;
    const auto fill = [&](QGradient gradient) {
        for (int stops = below(4); stops > 0; --stops) {
            const qreal at = number();
            // Qt warns of a stop beyond 0 and 1.
            if (at >= 0 && at <= 1)
                gradient.setColorAt(at, color());
        }
        gradient.setSpread(QGradient::Spread(below(3)));
        gradient.setCoordinateMode(QGradient::CoordinateMode(below(4)));
        brush = QBrush(gradient);
    };
    switch (kind % 8) {
    case 0:
        return QBrush(Qt::NoBrush);
    case 1:
    case 2:
    case 3:
        brush = color();
        return brush;
    case 4: {
        // From Dense1Pattern to DiagCrossPattern.
        const QColor pattern = color();
        brush = QBrush(pattern, Qt::BrushStyle(below(13) + 2));
        break;
    }
    case 5: {
        const QPointF start = point();
        fill(QLinearGradient(start, point()));
        break;
    }
    case 6: {
        const QPointF centre = point();
        const qreal radius = number();
        const QPointF focus = point();
        fill(QRadialGradient(centre, radius, focus, number()));
        break;
    }
    default: {
        const QPointF centre = point();
        fill(QConicalGradient(centre, number()));
    }
    }
    if (flag())
        brush.setTransform(transform());
    return brush;
}

QTransform FuzzBytes::transform()
{
    QTransform transform;
    switch (below(6)) {
    case 0:
        break;
    case 1: {
        const qreal x = number();
        transform.translate(x, number());
        break;
    }
    case 2: {
        const qreal x = number();
        transform.scale(x, number());
        break;
    }
    case 3:
        transform.rotate(qint8(byte()));
        break;
    case 4: {
        const qreal x = number();
        transform.shear(x, number());
        break;
    }
    default: {
        qreal m[9];
        for (qreal &element : m)
            element = number();
        transform = QTransform(m[0], m[1], m[2], m[3], m[4], m[5], m[6], m[7], m[8]);
    }
    }
    return transform;
}

QString FuzzBytes::text()
{
    const int kind = byte();
    const int length = qMin(byte() % 81, m_bytes.size() - m_next);
    if (kind % 4 != 0) {
        const QByteArray utf8 = m_bytes.mid(m_next, length);
        m_next += length;
        return QString::fromUtf8(utf8);
    }
    QString text;
    for (int i = 0; i < length / 2; ++i)
        text += QChar(ushort(word()));
    return text;
}

QFont FuzzBytes::font()
{
    static const char *const families[] = {"DejaVu Sans", "DejaVu Serif",   "DejaVu Sans Mono",
                                           "FontAwesome", "No such family", ""};
    const int family = below(int(std::size(families)));
    QFont font{QString(QLatin1String(families[family]))};
    const int size = byte();
    if (size < 128)
        font.setPixelSize(size % 63 + 1);
    else
        font.setPointSizeF((size - 127) / 4.0);
    const int look = byte();
    font.setBold((look & 1) != 0);
    font.setItalic((look & 2) != 0);
    font.setUnderline((look & 4) != 0);
    font.setOverline((look & 8) != 0);
    font.setStrikeOut((look & 16) != 0);
    font.setKerning((look & 32) == 0);
    if (look & 64)
        font.setLetterSpacing(QFont::AbsoluteSpacing, qint8(byte()) / 8.0);
    if (look & 128) {
        font.setWordSpacing(qint8(byte()) / 8.0);
        font.setCapitalization(QFont::Capitalization(below(5)));
        font.setStretch(50 + byte());
    }
    return font;
}
