// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef BINDWORLD_H
#define BINDWORLD_H

#include <QtCore/QString>

class ScriptWriter;

// Runs at most length steps with real objects and bindings, and with a model of them. Empty when
// all that can be seen is the same after each step; otherwise the steps, and what is not. Needs
// KelTest's recording. When it is traced, every step is printed before it is done: for steps that
// crash.
QString runOnModelAndBindings(ScriptWriter *writer, int length, bool isTraced);

#endif
