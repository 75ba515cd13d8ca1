// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "code.h"

void Code::bindLevel(KELDataBind *binding, QObject *slider, QObject *model,
                     KELDataBind::BindMode mode)
{
    binding->unbind(); // otherwise every change would be carried once more
    // Copies the level of the model to the slider first, then carries changes as mode says.
    binding->setBind(slider, "value", model, "level", mode);
}
