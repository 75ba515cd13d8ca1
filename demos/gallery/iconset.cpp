// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "iconset.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QLoggingCategory>
#include <QtCore/QStandardPaths>
#include <QtCore/QtEndian>

namespace {

constexpr qreal probeSizePx = 16;
constexpr int headerBytes = 12;
constexpr int tableEntryBytes = 16;

// An OpenType file: a known signature and a table directory that ends inside the file.
bool looksLikeFont(const QByteArray &header, qint64 fileSize)
{
    if (header.size() < headerBytes)
        return false;
    const quint32 signature = qFromBigEndian<quint32>(header.constData());
    if (signature == 0x74746366) // a collection
        return true;
    if (signature != 0x00010000 && signature != 0x4f54544f && signature != 0x74727565)
        return false;
    const int tables = qFromBigEndian<quint16>(header.constData() + 4);
    return tables > 0 && headerBytes + tables * tableEntryBytes <= fileSize;
}

// installFont() reports every call; the gallery says itself what the user has to know.
class QuietDebug
{
public:
    QuietDebug() : m_wasOn(category()->isDebugEnabled())
    {
        category()->setEnabled(QtDebugMsg, false);
    }
    ~QuietDebug() { category()->setEnabled(QtDebugMsg, m_wasOn); }

private:
    Q_DISABLE_COPY(QuietDebug)

    static QLoggingCategory *category() { return QLoggingCategory::defaultCategory(); }

    const bool m_wasOn;
};

} // namespace

QString IconSet::problemWith(const QString &path)
{
    const QFileInfo info(path);
    if (!info.exists())
        return QStringLiteral("no icon font at '%1'").arg(path);
    QFile file(path);
    if (info.isDir() || !file.open(QIODevice::ReadOnly))
        return QStringLiteral("cannot read icon font '%1'").arg(path);
    if (!looksLikeFont(file.read(headerBytes), file.size()))
        return QStringLiteral("'%1' is not a font").arg(path);
    return QString();
}

QString IconSet::defaultPath()
{
    for (const char *name : {"fonts-font-awesome/fonts/fontawesome-webfont.ttf",
                             "fonts/truetype/font-awesome/fontawesome-webfont.ttf"}) {
        const QString path = QStandardPaths::locate(QStandardPaths::GenericDataLocation,
                                                    QLatin1String(name));
        if (!path.isEmpty())
            return path;
    }
    return QString();
}

bool IconSet::install(const QString &path)
{
    const QRawFont font(path, probeSizePx);
    if (!font.isValid())
        return false;
    {
        const QuietDebug quiet;
        KELIconFont::installFont(path);
    }
    if (KELIconFont::fontFamily().isEmpty())
        return false;
    m_path = path;
    m_font = font;
    return true;
}

bool IconSet::isInstalled() const
{
    return m_font.isValid();
}

QString IconSet::path() const
{
    return m_path;
}

bool IconSet::has(ushort codePoint) const
{
    return m_font.isValid() && m_font.supportsCharacter(QChar(codePoint));
}

KELIconFont IconSet::glyph(ushort codePoint) const
{
    return has(codePoint) ? KELIconFont(codePoint) : KELIconFont();
}

QVector<ushort> IconSet::codePoints() const
{
    const QVector<ushort> privateUse = visibleIn(0xe000, 0xf8ff);
    return privateUse.isEmpty() ? visibleIn(0x21, 0xd7ff) : privateUse;
}

QVector<ushort> IconSet::visibleIn(ushort first, ushort last) const
{
    QVector<ushort> found;
    for (int code = first; code <= last; ++code) {
        if (!has(ushort(code)))
            continue;
        const QVector<quint32> glyphs = m_font.glyphIndexesForString(QString(QChar(ushort(code))));
        if (!glyphs.isEmpty() && !m_font.boundingRect(glyphs.constFirst()).isEmpty())
            found.append(ushort(code));
    }
    return found;
}
