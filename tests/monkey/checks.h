// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef MONKEY_CHECKS_H
#define MONKEY_CHECKS_H

namespace Monkey {

class Stage;

// What the reference promises, whatever has happened. Each reports to the stage.
void checkAfterStep(Stage *stage);
void checkAfterTurn(Stage *stage); // what holds once the event loop has had its turn
void checkPaintingOf(Stage *stage); // nothing is painted outside a control: slow

} // namespace Monkey

#endif
