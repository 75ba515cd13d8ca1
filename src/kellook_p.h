// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELLOOK_P_H
#define KELLOOK_P_H

#include <QtCore/QRectF>
#include <QtCore/QVarLengthArray>
#include <QtCore/QtEndian>
#include <QtGui/QFont>

#include <array>
#include <utility>

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
    KELLookKey(const void *drawing, const QRectF &rect) : m_corner(rect.topLeft())
    {
        *this << quint64(quintptr(drawing)) << rect.width() << rect.height();
    }

    KELLookKey &operator<<(qreal number) { return *this << qFromUnaligned<quint64>(&number); }
    KELLookKey &operator<<(const QBrush &brush); // a gradient or a texture is never kept
    KELLookKey &operator<<(quint64 number)
    {
        Q_ASSERT(m_size < m_numbers.all.size());
        m_numbers.all[m_size++] = number;
        const quint64 mixed = (m_numbers.hash ^ number) * 0x9E3779B97F4A7C15;
        m_numbers.hash = mixed >> 32 | mixed << 32;
        return *this;
    }
    void addText(const QString &text, const QFont &font)
    {
        m_texts.append({text, font});
        *this << quint64(qHash(text));
    }
    void refuse() { m_isKeepable = false; }

    using Texts = QVarLengthArray<std::pair<QString, QFont>, 3>;
    struct Numbers
    {
        bool operator==(const Numbers &other) const
        {
            return outcome == other.outcome && all == other.all;
        }
        friend uint qHash(const Numbers &key, uint seed) { return uint(key.hash) ^ seed; }

        std::array<quint64, 40> all = {}; // a push button with a glyph has 37
        quint64 hash = 0;
        int outcome = 0; // of those that differ from place to place
    };

private:
    friend class KELLook;

    QPointF m_corner;
    Numbers m_numbers;
    std::size_t m_size = 0;
    Texts m_texts;
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
    // Calls draw(), or leaves picture and painter as it would and returns true: its pen, its brush
    // and, if the key has a text, its font. What else draw() changes is not given back.
    template <typename MakeKey, typename Draw>
    static bool paint(QPainter *painter, const MakeKey &makeKey, const Draw &draw)
    {
        if (QImage *const image = blankImageOf(*painter)) {
            KELLookKey key = makeKey();
            KELLook look(painter, &key, image);
            if (look.giveBack())
                return true;
            draw();
            look.keep();
        } else {
            draw();
        }
        return false;
    }

    // The corner of the drawing, and what the painter adds to it.
    using Place = std::array<qreal, 4>;

private:
    Q_DISABLE_COPY(KELLook)

    KELLook(QPainter *painter, KELLookKey *key, QImage *image);
    static QImage *blankImageOf(const QPainter &painter); // perhaps blank, or null
    bool addPainter();
    bool addFonts();
    bool giveBack();
    void keep();

    QPainter *const m_painter;
    KELLookKey *const m_key;
    Place m_place = {};
    QImage *m_image; // while the look may be kept
};

#endif
