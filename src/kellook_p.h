// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELLOOK_P_H
#define KELLOOK_P_H

#include <QtCore/QRectF>
#include <QtCore/QString>
#include <QtCore/QVarLengthArray>
#include <QtGui/QFont>

#include <array>

QT_BEGIN_NAMESPACE
class QBrush;
class QImage;
class QPainter;
QT_END_NAMESPACE

// Everything that a drawing depends on, besides the painter. Numbers are compared bit by bit.
class KELLookKey
{
public:
    // Each drawing has an address of its own. What it draws lies relative to rect.
    KELLookKey(const void *drawing, const QRectF &rect);

    KELLookKey &operator<<(qreal number);
    KELLookKey &operator<<(const QBrush &brush); // a gradient or a texture is never kept
    KELLookKey &operator<<(quint64 number)
    {
        m_numbers.append(number);
        return *this;
    }
    void addText(const QString &text, const QFont &font) { m_texts.append({text, font}); }

    bool operator==(const KELLookKey &other) const;

private:
    friend class KELLook;
    friend uint qHash(const KELLookKey &key, uint seed);

    struct Text
    {
        bool operator==(const Text &other) const
        {
            return text == other.text && font == other.font;
        }

        QString text;
        QFont font;
    };

    QPointF m_corner;
    QVarLengthArray<quint64, 40> m_numbers;
    QVarLengthArray<Text, 3> m_texts;
    int m_outcome = 0; // of those that differ from place to place
    bool m_isKeepable = true;
};

/*
 * Keeps what was drawn into an empty picture and gives it back, byte for byte, when the same is
 * drawn again. A scene paints each control into such a picture whenever its state changes.
 *
 * The same shape is not the same everywhere: a rounded rectangle may differ by a few pixels between
 * two places, even at whole pixels. So a look is given back at a place only after it was drawn
 * there once and came out equal. On any doubt it is drawn.
 */
class KELLook
{
public:
    // Calls draw(), or leaves picture and painter as it would. draw() may change the painter's pen
    // and brush, and its font if the key has a text, but nothing else of it.
    template <typename Draw>
    static void paint(QPainter *painter, KELLookKey &&key, const Draw &draw)
    {
        KELLook look(painter, &key);
        if (look.giveBack())
            return;
        draw();
        look.keep();
    }

    // The corner of the drawing, and what the painter adds to it.
    using Place = std::array<qreal, 4>;

private:
    Q_DISABLE_COPY(KELLook)

    KELLook(QPainter *painter, KELLookKey *key);
    bool addTarget();
    bool addPainter();
    bool addFonts();
    bool giveBack();
    void keep();

    QPainter *const m_painter;
    KELLookKey *const m_key;
    Place m_place = {};
    QImage *m_image = nullptr; // while the look may be kept
};

#endif
