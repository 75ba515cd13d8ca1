// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "keliconfont.h"

#include <QtCore/QDebug>
#include <QtGui/QFontDatabase>
#include <QtGui/QGuiApplication>
#include <QtGui/QPainter>
#include <QtGui/QScreen>

#include <functional>

QString KELIconFont::g_fontFamily;

namespace {

// The icon font for all glyphs: each new font costs an allocation.
QFont sharedIconFont()
{
    // A font takes the screen's resolution when it is created.
    static QFont font;
    static QString family;
    static qreal dpi = -1;
    const QScreen *const screen = QGuiApplication::primaryScreen();
    const qreal screenDpi = screen ? screen->logicalDotsPerInchY() : 0;
    if (family != KELIconFont::g_fontFamily || !std::equal_to<>()(dpi, screenDpi)) {
        font = KELIconFont::iconFont();
        family = KELIconFont::g_fontFamily;
        dpi = screenDpi;
    }
    return font;
}

} // namespace

KELIconFont::KELIconFont() : KELIconFont(0) { }

KELIconFont::KELIconFont(unsigned short code) : m_glyph(code), m_font(sharedIconFont()) { }

void KELIconFont::setIcon(const QChar &icon)
{
    m_glyph = icon;
}

QChar KELIconFont::getIcon() const
{
    return m_glyph;
}

KELIconFont::operator QChar() const
{
    return m_glyph;
}

KELIconFont::operator QString() const
{
    return {m_glyph};
}

bool KELIconFont::isNull() const
{
    return m_glyph.isNull();
}

void KELIconFont::setPixelSize(int pixelSize)
{
    m_font.setPixelSize(pixelSize);
}

void KELIconFont::drawIcon(QPainter *painter, const QRectF &rect, int flags) const
{
    painter->setFont(m_font);
    painter->drawText(rect, flags, QString(m_glyph));
}

QFont KELIconFont::iconFont()
{
    return {g_fontFamily, -1, -1, false};
}

QString KELIconFont::fontFamily()
{
    return g_fontFamily;
}

void KELIconFont::installFont(const QString &path)
{
    const int id = QFontDatabase::addApplicationFont(path);
    const QStringList families = id < 0 ? QStringList()
                                        : QFontDatabase::applicationFontFamilies(id);
    if (families.isEmpty()) {
        qDebug() << "could not intstall" << path; // Compat: misspelling kept
        return;
    }
    g_fontFamily = families.first();
    qDebug() << "install from" << path << ", font" << g_fontFamily
             << "succeeful"; // Compat: misspelling kept
}
