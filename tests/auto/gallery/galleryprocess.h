// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef GALLERYPROCESS_H
#define GALLERYPROCESS_H

#include <QtCore/QProcess>
#include <QtCore/QStringList>

namespace Gallery {

// How a run ended.
struct Result
{
    int exitCode = -1; // -1: crashed, or did not end
    QString out;
    QStringList errorLines;
};

// The gallery to start: what KEL_GALLERY says, or the one that is installed.
QString program();

// The environment of a machine without a display. runtimeDir keeps Qt from warning that there is
// none.
QProcessEnvironment environment(const QString &runtimeDir);

// Runs the gallery to its end.
Result run(const QStringList &arguments, const QProcessEnvironment &environment);

} // namespace Gallery

#endif
