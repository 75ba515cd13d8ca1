// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "code.h"

#include <KELRadioBox>

// Of the boxes of a group one is checked: that of the group's id, which is 0 at first.
void Code::makeExclusive(KELRadioBoxGroup *group, const QVector<KELRadioBox *> &boxes)
{
    for (int id = 0; id < boxes.size(); ++id)
        group->addRadioBox(boxes.at(id), id);
}
