// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "kelfontwatch_p.h"

#include <QtCore/QPointer>
#include <QtGui/QFont>
#include <QtGui/QGuiApplication>

namespace {

class FontWatch
{
public:
    FontWatch() = default;
    ~FontWatch() { QObject::disconnect(m_connection); } // the library may be unloaded

    int generation()
    {
        auto *const app = qobject_cast<QGuiApplication *>(QCoreApplication::instance());
        if (m_app != app) {
            m_app = app;
            ++m_generation;
            if (app) {
                m_connection = QObject::connect(app, &QGuiApplication::fontDatabaseChanged, app,
                                                [this] { ++m_generation; });
            }
        }
        return m_generation;
    }

private:
    Q_DISABLE_COPY(FontWatch)

    QPointer<QGuiApplication> m_app;
    QMetaObject::Connection m_connection;
    int m_generation = 0;
};

} // namespace

int KELFontWatch::generation()
{
    static FontWatch watch;
    return watch.generation();
}

QStringList KELFontWatch::substitutesOf(const QFont &font)
{
    if (QFont::substitutions().isEmpty()) // the usual case
        return {};
    QStringList substitutes = QFont::substitutes(font.family());
    const QStringList families = font.families();
    for (const QString &family : families)
        substitutes += QFont::substitutes(family);
    return substitutes;
}
