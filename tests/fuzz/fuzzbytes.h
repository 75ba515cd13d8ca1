// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef FUZZBYTES_H
#define FUZZBYTES_H

#include <QtCore/QByteArray>
#include <QtCore/QMarginsF>
#include <QtCore/QRectF>
#include <QtCore/QString>
#include <QtGui/QBrush>
#include <QtGui/QFont>
#include <QtGui/QTransform>

// Reads the choices of a case from its bytes. After the last byte each choice is the first. Two
// choices must not be arguments of one call: compilers differ in their order.
class FuzzBytes
{
public:
    explicit FuzzBytes(const QByteArray &bytes) : m_bytes(bytes) { }

    bool isAtEnd() const { return m_next >= m_bytes.size(); }
    int byte() { return isAtEnd() ? 0 : uchar(m_bytes.at(m_next++)); }
    int below(int end) { return byte() % end; }
    bool flag() { return (byte() & 1) != 0; }
    int word(); // 16 bits, signed

    // Any value at all; the usual ones are more frequent.
    qreal number();
    int integer();
    QRectF rect();
    QMarginsF margins();
    QColor color();
    QBrush brush();
    QTransform transform();

    // At most 80 characters; also halves of surrogate pairs.
    QString text();
    // Of a family that Qt finds or does not find, up to 63 px high.
    QFont font();

private:
    double real(int size);

    const QByteArray m_bytes;
    int m_next = 0;
};

#endif
