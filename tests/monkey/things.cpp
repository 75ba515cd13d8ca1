// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "things.h"

#include <keltextpixmap.h>

#include <QtGui/QFont>

#include <array>

using namespace Monkey;

void Model::setNumber(double number)
{
    if (number == m_number || (qIsNaN(number) && qIsNaN(m_number)))
        return;
    m_number = number;
    Q_EMIT numberChanged();
}

QVariant Passing::Convert(QObject * /*object*/, const QVariant &value)
{
    return isMute ? QVariant() : value;
}

QVariant Passing::ConvertBack(QObject *object, const QVariant &value)
{
    return Convert(object, value);
}

IKELValueConverter *Converters::at(int index)
{
    mute.isMute = true;
    switch (index % 4) {
    case 0:
        return &passing;
    case 1:
        return &mute;
    case 2:
        return &identity;
    default:
        return nullptr;
    }
}

QBrush Monkey::brush(int index)
{
    const qreal odd = index % 2 == 0 ? qQNaN() : 1e300;
    QRadialGradient touching(0, 0, 10, 5, 0, 5);
    QLinearGradient stops(0, 0, 10, 10);
    stops.setColorAt(0.5, Qt::yellow);
    switch (index % brushCount) {
    case 0:
        return QBrush(Qt::NoBrush);
    case 1:
        return QBrush(Qt::Dense4Pattern);
    case 2:
        return QBrush(QColor());
    case 3:
        return QBrush(pixmap(1));
    case 4:
        return QBrush(pixmap(0));
    case 5:
        return stops;
    case 6:
    case 7:
        return QLinearGradient(0, odd, 10, 10);
    case 8:
        return touching;
    case 9:
        return QRadialGradient(0, 0, odd);
    case 10:
        return QConicalGradient(5, 5, odd);
    case 11: {
        QBrush singular(stops);
        singular.setTransform(QTransform(0, 0, 0, 0, 0, 0));
        return singular;
    }
    default:
        return QColor((index * 37) % 256, (index * 91) % 256, 120, 255 - index % 3 * 100);
    }
}

QString Monkey::text(int index)
{
    static const std::array<QString, textCount> all = {
        QString(),
        QStringLiteral("Start"),
        QStringLiteral("Start all of the pumps now, please"),
        QStringLiteral("two\nlines"),
        QStringLiteral("\n\n\nempty lines\n\n"),
        QString(QChar(0xd800)),
        QString(QChar(0xdc00)) + QChar(0xd83d),
        QStringLiteral("\u0645\u0631\u062d\u0628\u0627 \u0628\u0643"),
        QStringLiteral("left \u202eright\u202c \u05d0\u05d1 12"),
        QStringLiteral("&Mnemonic && more &"),
        QStringLiteral("tab\ttab\r\nreturn\u2028separator\u2029"),
        QStringLiteral("<b>bold</b>"),
        QString(QChar(0)) + QStringLiteral("after a zero"),
        QStringLiteral("a\u0301\u0302\u0303\u0304\u0305 \u200b\u200d"),
        QString(2000, QLatin1Char('x')),
        QStringLiteral("word ").repeated(20000), // 100 kB
    };
    static_assert(textCount == 16, "below");
    return all.at(std::size_t(index & 15));
}

QPixmap Monkey::pixmap(int index)
{
    const auto filled = [](int width, int height) {
        QPixmap picture(width, height);
        picture.fill(Qt::magenta);
        return picture;
    };
    switch (index % pixmapCount) {
    case 1:
        return filled(16, 16);
    case 2:
        return filled(1, 1);
    case 3:
        return filled(500, 2);
    case 4:
        return KELTextPixmap(text(index), QSize(20, 20), Qt::white, Qt::darkGreen, QFont());
    case 5:
        return KELTextPixmap(text(3), QSize(-1, 0), Qt::white, brush(index), QFont());
    default:
        return {};
    }
}
