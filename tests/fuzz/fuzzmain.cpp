// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "fuzztargets.h"
#include "keltest.h"

#ifdef KEL_FUZZ_OWN_APPLICATION
#  include <player.h>
#endif

#include <cstdio>
#include <cstdlib>

// libFuzzer has the main() of this program, and calls these. KEL_FUZZ_TARGET is a function of
// KelFuzz.

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
#ifdef KEL_FUZZ_OWN_APPLICATION
    Q_UNUSED(argc)
    Q_UNUSED(argv)
    Monkey::start();
#else
    // Never destroyed: libFuzzer ends the program with exit(), after Qt's own static objects.
    static const auto *const app = new QApplication(*argc, *argv);
    Q_UNUSED(app)
    KelTest::startRecording();
#endif
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, size_t size)
{
    const auto bytes = QByteArray::fromRawData(reinterpret_cast<const char *>(data), int(size));
    const QString failure = KelFuzz::run({"", KelFuzz::KEL_FUZZ_TARGET}, bytes);
    if (failure.isEmpty())
        return 0;
    std::fprintf(stderr, "\n%s\n", qPrintable(failure));
    std::abort();
}
