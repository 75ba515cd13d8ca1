// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef STYLING_H
#define STYLING_H

class KELNavigationTable;
class KELPushButton;
class KELRoundRectControl;

// The code of docs/guide/styling.md.
void giveLooks(KELPushButton *button);
void fadeWhenDisabled(KELRoundRectControl *control);
void centrePair(KELPushButton *button);
void centreTabs(KELNavigationTable *table);
void shade(KELPushButton *button);

#endif
