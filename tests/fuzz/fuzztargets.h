// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef FUZZTARGETS_H
#define FUZZTARGETS_H

#include <QtCore/QByteArray>
#include <QtCore/QString>

/*
 * What the fuzzer tries, and what the test of the corpora replays. Each target reads bytes, any
 * bytes, as a case and goes through it. Empty when all is as promised; otherwise says what is not.
 * The same bytes are the same case on every machine.
 *
 * They need an application, and the recording of KelTest.
 */
namespace KelFuzz {

// Captions: elided, and painted by a control that painted others before.
QString trimming(const QByteArray &bytes);
// The bytes as the file of an icon font.
QString fonts(const QByteArray &bytes);
// Scripts of bindings, compared with a model of them.
QString bindings(const QByteArray &bytes);
// Style records of all controls, painted.
QString records(const QByteArray &bytes);
// Random use of scenes with all controls. Not among the targets: it has an application of its own.
QString monkey(const QByteArray &bytes);

struct Target
{
    const char *name; // also that of the folder in corpus
    QString (*run)(const QByteArray &bytes);
};

// A new target is added here, and in KEL_FUZZ_TARGETS in CMakeLists.txt.
constexpr Target targets[] = {
    {"bindings", bindings},
    {"fonts", fonts},
    {"records", records},
    {"trimming", trimming},
};

// Runs the target. A warning of Qt is wrong, too.
QString run(const Target &target, const QByteArray &bytes);

// The first warning since the last call that is neither about a font nor the promised one.
QString unexpectedWarning(const char *promised = nullptr);

} // namespace KelFuzz

#endif
