// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "kellook_p.h"

#include "kelfontwatch_p.h"

#include <QtCore/QCache>
#include <QtCore/QCoreApplication>
#include <QtCore/QPointer>
#include <QtCore/QThread>
#include <QtCore/QtMath>
#include <QtGui/QBrush>
#include <QtGui/QImage>
#include <QtGui/QPaintEngine>
#include <QtGui/QPainter>
#include <QtGui/QPen>

#include <algorithm>
#include <cstring>
#include <memory>
#include <utility>
#include <vector>

namespace {

constexpr int storeBytes = 2 * 1024 * 1024;
constexpr int largestPictureBytes = storeBytes / 8;
constexpr int seenLooks = 1024;

// One outcome of a drawing, and where it came out so.
struct Picture
{
    // With what the containers add, roughly.
    int cost() const
    {
        constexpr int otherBytes = 900;
        return otherBytes + ink.size() + int(sizeof(KELLook::Place) * places.capacity());
    }

    int skipped; // bytes, before those that are kept
    QByteArray ink;
    QPen pen;
    QBrush brush;
    QFont font;
    std::vector<KELLook::Place> places; // sorted
};

// The looks of the application, the least recently used out first.
class Store
{
public:
    static Store &instance()
    {
        static Store store;
        return store;
    }

    // On, and in the thread of the application.
    bool isUsable()
    {
        QCoreApplication *const app = QCoreApplication::instance();
        if (!app || QThread::currentThread() != app->thread())
            return false;
        if (m_app != app)
            adopt(app);
        return m_isOn;
    }

    bool isFirstSight(uint hash) { return std::exchange(m_seen[hash % seenLooks], hash) != hash; }

    QCache<KELLookKey, Picture> pictures{storeBytes};

private:
    Q_DISABLE_COPY(Store)

    Store() = default;
    ~Store() { QObject::disconnect(m_connection); } // the library may be unloaded

    void adopt(QCoreApplication *app)
    {
        m_app = app;
        m_isOn = !qEnvironmentVariableIsSet("KEL_NO_KEPT_LOOKS");
        m_connection = QObject::connect(app, &QObject::destroyed, [this] { pictures.clear(); });
    }

    QPointer<QCoreApplication> m_app;
    QMetaObject::Connection m_connection;
    bool m_isOn = false;
    std::array<uint, seenLooks> m_seen = {};
};

// An image whose bytes are those that the painter writes.
QImage *imageOf(const QPainter &painter)
{
    const QPaintEngine *const engine = painter.paintEngine();
    if (engine->type() != QPaintEngine::Raster || !engine->systemClip().isEmpty())
        return nullptr;
    auto *const image = dynamic_cast<QImage *>(engine->paintDevice());
    const bool isUsable = image && image->format() == QImage::Format_ARGB32_Premultiplied
        && image->bytesPerLine() == 4 * image->width()
        && image->sizeInBytes() <= largestPictureBytes;
    return isUsable ? image : nullptr;
}

template <int Words>
Q_ALWAYS_INLINE quint64 allBits(const uchar *bytes)
{
    if constexpr (Words > 1) {
        return allBits<Words / 2>(bytes) | allBits<Words / 2>(bytes + Words / 2 * sizeof(quint64));
    } else {
        quint64 word = 0;
        std::memcpy(&word, bytes, sizeof word);
        return word;
    }
}

bool isBlank(const uchar *bytes, int size)
{
    constexpr int stepWords = 32;
    constexpr int step = stepWords * int(sizeof(quint64));
    const uchar *const end = bytes + size;
    const uchar *const lastStep = end - size % step;
    for (; bytes != lastStep; bytes += step) {
        if (allBits<stepWords>(bytes) != 0)
            return false;
    }
    return std::all_of(bytes, end, [](uchar byte) { return byte == 0; });
}

// All rows but the blank ones at both ends; skipped is the number of bytes before.
QByteArray inkOf(const QImage &image, int *skipped)
{
    int first = 0;
    int end = image.height();
    const auto isBlankRow = [&image](int y) {
        return isBlank(image.constScanLine(y), image.bytesPerLine());
    };
    while (first < end && isBlankRow(first))
        ++first;
    while (first < end && isBlankRow(end - 1))
        --end;
    *skipped = first * image.bytesPerLine();
    return {reinterpret_cast<const char *>(image.constBits()) + *skipped,
            (end - first) * image.bytesPerLine()};
}

} // namespace

KELLookKey::KELLookKey(const void *drawing, const QRectF &rect) : m_corner(rect.topLeft())
{
    *this << quint64(quintptr(drawing)) << rect.width() << rect.height();
}

KELLookKey &KELLookKey::operator<<(qreal number)
{
    quint64 bits = 0;
    std::memcpy(&bits, &number, sizeof bits);
    return *this << bits;
}

KELLookKey &KELLookKey::operator<<(const QBrush &brush)
{
    const bool isSolid = brush.style() == Qt::SolidPattern && brush.color().spec() == QColor::Rgb;
    m_isKeepable = m_isKeepable && (isSolid || brush.style() == Qt::NoBrush);
    return *this << quint64(isSolid) << quint64(brush.color().rgba64());
}

bool KELLookKey::operator==(const KELLookKey &other) const
{
    return m_outcome == other.m_outcome && m_numbers == other.m_numbers && m_texts == other.m_texts;
}

uint qHash(const KELLookKey &key, uint seed)
{
    const auto bytes = std::size_t(key.m_numbers.size()) * sizeof(quint64);
    uint hash = qHashBits(key.m_numbers.constData(), bytes, seed + uint(key.m_outcome));
    for (const KELLookKey::Text &text : key.m_texts)
        hash = qHash(text.text, hash);
    return hash;
}

KELLook::KELLook(QPainter *painter, KELLookKey *key) : m_painter(painter), m_key(key)
{
    const bool isExact = key->m_isKeepable && painter->isActive() && Store::instance().isUsable()
        && addTarget() && addPainter() && (key->m_texts.isEmpty() || addFonts());
    if (!isExact)
        m_image = nullptr;
}

bool KELLook::addTarget()
{
    m_image = imageOf(*m_painter);
    const QTransform &toDevice = m_painter->deviceTransform();
    if (!m_image || toDevice.type() > QTransform::TxScale)
        return false;
    m_place = {m_key->m_corner.x(), m_key->m_corner.y(), toDevice.dx(), toDevice.dy()};
    const QPointF corner = toDevice.map(m_key->m_corner);
    *m_key << corner.x() << corner.y() << toDevice.m11() << toDevice.m22()
           << quint64(m_image->width()) << quint64(m_image->height());
    return qIsFinite(corner.x()) && qIsFinite(corner.y());
}

// Pen and brush are those of a new painter, or none.
bool KELLook::addPainter()
{
    const bool hasPen = m_painter->pen().style() != Qt::NoPen;
    *m_key << quint64(hasPen) << quint64(m_painter->renderHints());
    return !m_painter->hasClipping() && m_painter->opacity() >= 1
        && m_painter->compositionMode() == QPainter::CompositionMode_SourceOver
        && m_painter->backgroundMode() == Qt::TransparentMode
        && m_painter->pen() == (hasPen ? QPen() : QPen(Qt::NoPen))
        && m_painter->brush() == QBrush();
}

// Where text is scaled, it also depends on the texts before: Qt keeps their glyphs.
bool KELLook::addFonts()
{
    // What a font leaves open comes from the one with which the painter began.
    const QFont font = m_painter->font();
    m_painter->setFont(QFont());
    m_key->addText(QString(), m_painter->font());
    m_painter->setFont(font);
    *m_key << quint64(m_painter->layoutDirection()) << quint64(m_painter->device()->logicalDpiY())
           << quint64(KELFontWatch::generation());
    return m_painter->deviceTransform().type() <= QTransform::TxTranslate
        && QFont::substitutions().isEmpty();
}

// From the second sight on: most of what is drawn once does not come again.
bool KELLook::giveBack()
{
    if (!m_image)
        return false;
    Store &store = Store::instance();
    const auto isKnownHere = [this](const Picture &picture) {
        return std::binary_search(picture.places.begin(), picture.places.end(), m_place);
    };
    const Picture *picture = store.pictures.object(*m_key);
    const bool isNew = !picture && store.isFirstSight(qHash(*m_key, 0));
    for (; picture && !isKnownHere(*picture); picture = store.pictures.object(*m_key))
        ++m_key->m_outcome;
    if (isNew || !isBlank(m_image->constBits(), int(m_image->sizeInBytes()))) {
        m_image = nullptr;
        return false;
    }
    if (!picture)
        return false;
    // As the painter does, into the bytes that it got when it began.
    std::memmove(const_cast<uchar *>(m_image->constBits()) + picture->skipped,
                 picture->ink.constData(), std::size_t(picture->ink.size()));
    m_painter->setPen(picture->pen);
    m_painter->setBrush(picture->brush);
    if (!m_key->m_texts.isEmpty())
        m_painter->setFont(picture->font);
    return true;
}

void KELLook::keep()
{
    if (!m_image)
        return;
    QCache<KELLookKey, Picture> &pictures = Store::instance().pictures;
    int skipped = 0;
    const QByteArray ink = inkOf(*m_image, &skipped);
    m_key->m_outcome = 0;
    const Picture *known = pictures.object(*m_key);
    for (; known && (known->skipped != skipped || known->ink != ink);
         known = pictures.object(*m_key))
        ++m_key->m_outcome;
    std::unique_ptr<Picture> picture(pictures.take(*m_key));
    if (!picture) {
        picture.reset(
            new Picture{skipped, ink, m_painter->pen(), m_painter->brush(), m_painter->font(), {}});
    }
    auto &places = picture->places;
    places.insert(std::lower_bound(places.begin(), places.end(), m_place), m_place);
    const int cost = picture->cost();
    pictures.insert(*m_key, picture.release(), cost);
}
