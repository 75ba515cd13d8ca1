// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "bindscript.h"
#include "bindworld.h"
#include "fuzztargets.h"

QString KelFuzz::bindings(const QByteArray &bytes)
{
    static const bool isTraced = qEnvironmentVariableIsSet("KEL_FUZZ_TRACE");
    constexpr int mostSteps = 100;

    ScriptWriter writer(bytes);
    const QString failure = runOnModelAndBindings(&writer, mostSteps, isTraced);
    return failure.isEmpty() ? QString() : QLatin1Char('\n') + failure;
}
