// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "kellook_p.h"

#include "kelfontwatch_p.h"

#include <QtCore/QCache>
#include <QtCore/QCoreApplication>
#include <QtCore/QScopeGuard>
#include <QtCore/QThread>
#include <QtGui/QImage>
#include <QtGui/QPaintEngine>
#include <QtGui/QPainter>

#include <algorithm>
#include <bitset>
#include <cstring>
#include <memory>
#include <vector>

namespace {

constexpr int storeBytes = 2 * 1024 * 1024;

// One outcome of a drawing, and where it came out so.
struct Picture
{
    KELLookKey::Texts texts;
    int skipped; // bytes, before those that are kept
    QByteArray ink;
    QPen pen;
    QBrush brush;
    QFont font;
    std::vector<KELLook::Place> places; // sorted
};

// The looks of the application, the least recently used out first.
class Store : public QObject
{
public:
    ~Store() override { self = nullptr; }

    // Not without an application, not in another thread than its own, and not if turned off.
    static bool isUsable()
    {
        static const auto owner = qScopeGuard([] { delete self; }); // the library may be unloaded
        QCoreApplication *const app = QCoreApplication::instance();
        if (!app || QThread::currentThread() != app->thread())
            return false;
        if (!self)
            self = new Store(app);
        return self->m_isOn;
    }

    // The first outcome that is as wanted, or null and the number of a new one in the key.
    template <typename IsWanted>
    Picture *find(KELLookKey::Numbers *key, const IsWanted &isWanted) const
    {
        for (key->outcome = 0;; ++key->outcome) {
            Picture *const picture = pictures.object(*key);
            if (!picture || isWanted(*picture))
                return picture;
        }
    }

    // Forgets all from time to time, and takes some for seen that are new.
    bool isNew(quint64 hash)
    {
        auto isSeen = m_seen[hash % m_seen.size()];
        if (isSeen)
            return false;
        if (++m_newCount % 1024 == 0)
            m_seen.reset();
        return isSeen = true;
    }

    static inline Store *self = nullptr;
    QCache<KELLookKey::Numbers, Picture> pictures{storeBytes};

private:
    using QObject::QObject;
    const bool m_isOn = !qEnvironmentVariableIsSet("KEL_NO_KEPT_LOOKS");
    std::bitset<65536> m_seen;
    unsigned m_newCount = 0;
};

template <std::size_t... Index>
const uchar *skipBlank(const uchar *bytes, const uchar *end, std::index_sequence<Index...> /*word*/)
{
    constexpr std::size_t step = sizeof...(Index) * sizeof(quint64);
    while (bytes + step <= end
           && (qFromUnaligned<quint64>(bytes + Index * sizeof(quint64)) | ...) == 0)
        bytes += step;
    return bytes;
}

bool isBlank(const uchar *bytes, int size)
{
    const uchar *const end = bytes + size;
    bytes = skipBlank(bytes, end, std::make_index_sequence<32>()); // most of what a paint costs
    bytes = skipBlank(bytes, end, std::make_index_sequence<1>());
    return std::all_of(bytes, end, [](uchar byte) { return byte == 0; });
}

// All rows but the blank ones at both ends.
Picture *pictureOf(const QImage &image, const KELLookKey::Texts &texts, const QPainter &painter)
{
    const int rowBytes = image.bytesPerLine();
    const uchar *first = image.constBits();
    const uchar *end = first + image.sizeInBytes();
    while (first != end && isBlank(first, rowBytes))
        first += rowBytes;
    while (first != end && isBlank(end - rowBytes, rowBytes))
        end -= rowBytes;
    return new Picture{texts,
                       int(first - image.constBits()),
                       {reinterpret_cast<const char *>(first), int(end - first)},
                       painter.pen(),
                       painter.brush(),
                       painter.font(),
                       {}};
}

} // namespace

KELLookKey &KELLookKey::operator<<(const QBrush &brush)
{
    const bool isSolid = brush.style() == Qt::SolidPattern && brush.color().spec() == QColor::Rgb;
    m_isKeepable = m_isKeepable && (isSolid || brush.style() == Qt::NoBrush);
    return *this << quint64(isSolid) << quint64(brush.color().rgba64());
}

KELLook::KELLook(QPainter *painter, KELLookKey *key, QImage *image) :
    m_painter(painter), m_key(key), m_image(image)
{
    // From the second sight on: most of what is drawn once does not come again.
    if (!key->m_isKeepable || !addPainter() || Store::self->isNew(key->m_numbers.hash)
        || (!key->m_texts.isEmpty() && !addFonts()))
        m_image = nullptr;
}

// An image whose bytes are those that the painter writes.
QImage *KELLook::blankImageOf(const QPainter &painter)
{
    const QPaintEngine *const engine = painter.paintEngine();
    if (!engine || engine->type() != QPaintEngine::Raster || !Store::isUsable()
        || engine->paintDevice()->devType() != QInternal::Image)
        return nullptr;
    auto *const image = static_cast<QImage *>(engine->paintDevice());
    const auto *const pixels = reinterpret_cast<const QRgb *>(image->constBits());
    const bool isUsable = image->format() == QImage::Format_ARGB32_Premultiplied
        && image->bytesPerLine() == 4 * image->width() && image->sizeInBytes() <= storeBytes / 8
        && pixels[0] == 0 && pixels[image->height() / 2 * image->width() + image->width() / 2] == 0
        && engine->systemClip().isEmpty();
    return isUsable ? image : nullptr;
}

// Pen and brush must be those of a new painter, or none.
bool KELLook::addPainter()
{
    const QTransform &toDevice = m_painter->deviceTransform();
    const QPointF corner = toDevice.map(m_key->m_corner);
    static const QPen noPen(Qt::NoPen);
    const QPen &pen = m_painter->pen();
    m_place = {m_key->m_corner.x(), m_key->m_corner.y(), toDevice.dx(), toDevice.dy()};
    *m_key << corner.x() << corner.y() << toDevice.m11() << toDevice.m22()
           << quint64(m_image->width()) << quint64(m_image->height()) << quint64(pen.style())
           << quint64(m_painter->renderHints());
    return toDevice.type() <= QTransform::TxScale && qIsFinite(corner.x()) && qIsFinite(corner.y())
        && !m_painter->hasClipping() && m_painter->opacity() >= 1
        && m_painter->compositionMode() == QPainter::CompositionMode_SourceOver
        && m_painter->backgroundMode() == Qt::TransparentMode && (pen == QPen() || pen == noPen)
        && m_painter->brush() == QBrush();
}

// Where text is scaled, it also depends on the texts before: Qt keeps their glyphs.
bool KELLook::addFonts()
{
    // What a font leaves open comes from the one with which the painter began.
    const QFont font = m_painter->font();
    m_painter->setFont(QFont());
    m_key->m_texts.append({{}, m_painter->font()});
    m_painter->setFont(font);
    *m_key << quint64(m_painter->layoutDirection()) << quint64(m_painter->device()->logicalDpiY())
           << quint64(KELFontWatch::generation());
    return m_painter->deviceTransform().type() <= QTransform::TxTranslate
        && QFont::substitutions().isEmpty();
}

bool KELLook::giveBack()
{
    if (!m_image)
        return false;
    const auto *const picture = Store::self->find(&m_key->m_numbers, [this](const Picture &each) {
        return std::binary_search(each.places.begin(), each.places.end(), m_place)
            && each.texts == m_key->m_texts;
    });
    // The bytes that the painter got when it began. Drawing leaves rows without ink as they are.
    uchar *const bytes = const_cast<uchar *>(m_image->constBits())
        + (picture ? picture->skipped : 0);
    const int size = picture ? picture->ink.size() : int(m_image->sizeInBytes());
    m_image = isBlank(bytes, size) ? m_image : nullptr;
    if (!m_image || !picture)
        return false;
    std::memmove(bytes, picture->ink.constData(), std::size_t(size));
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
    std::unique_ptr<Picture> picture(pictureOf(*m_image, m_key->m_texts, *m_painter));
    const auto *const known = Store::self->find(&m_key->m_numbers, [&picture](const Picture &each) {
        return each.skipped == picture->skipped && each.ink == picture->ink
            && each.texts == picture->texts;
    });
    if (known)
        picture.reset(Store::self->pictures.take(m_key->m_numbers)); // its cost changes
    auto &places = picture->places;
    places.insert(std::lower_bound(places.begin(), places.end(), m_place), m_place);
    const int cost = 1000 + picture->ink.size() + int(sizeof m_place * places.capacity()); // about
    Store::self->pictures.insert(m_key->m_numbers, picture.release(), cost);
}
