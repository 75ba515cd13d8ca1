// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "pickerstage.h"

class tst_KELPickerList : public KelTest
{
    Q_OBJECT
};

KEL_TEST_MAIN(tst_KELPickerList)
#include "tst_kelpickerlist.moc"
