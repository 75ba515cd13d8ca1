// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "scenario.h"

#include <cstdio>

SoakStage::SoakStage() : view(QSize(200, 200))
{
    view.show();
    expect(QTest::qWaitForWindowExposed(&view), "the window is shown");
}

void SoakStage::tap(const QPoint &pos)
{
    finger.tap(pos);
}

void settleRound()
{
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void expect(bool condition, const char *what)
{
    if (condition)
        return;
    std::fprintf(stderr, "soak: not so: %s\n", what);
    std::_Exit(1);
}
