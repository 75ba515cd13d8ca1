// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "fuzztargets.h"

#include "keltest.h"

#include <algorithm>

namespace {

// Of broken fonts, and of characters for which no font has the rules.
bool isAboutAFont(const QString &warning)
{
    const char *const parts[] = {"OpenType support missing", "glyph failed", "minimum bearings",
                                 "QFontDatabase"};
    return std::any_of(std::begin(parts), std::end(parts), [&warning](const char *part) {
        return warning.contains(QLatin1String(part));
    });
}

} // namespace

QString KelFuzz::run(const Target &target, const QByteArray &bytes)
{
    const auto runOnce = [&] {
        const QString failure = target.run(bytes);
        KelTest::takeDebugLines();
        const QString warning = unexpectedWarning();
        return failure.isEmpty() ? warning : failure;
    };
    // Qt draws some things, an accent for example, differently the first time. Only a failure that
    // recurs counts.
    return runOnce().isEmpty() ? QString() : runOnce();
}

QString KelFuzz::unexpectedWarning(const char *promised)
{
    const QStringList warnings = KelTest::takeWarnings();
    const auto unexpected = std::find_if(
        warnings.begin(), warnings.end(), [promised](const QString &warning) {
            return !isAboutAFont(warning) && warning != QLatin1String(promised);
        });
    return unexpected == warnings.end() ? QString() : *unexpected;
}
