// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef PAGESTAGE_H
#define PAGESTAGE_H

#include "keltest.h"
#include "signallog.h"

#include <kelscreen.h>

#include <QtCore/QPointer>

constexpr int slideEndMs = 2000; // however slow the machine

// A screen and two pages, and what they tell.
struct PageStage
{
    PageStage()
    {
        screen.resize(400, 300);
        log.listenTo(&screen, u"screen"_s);
        for (KELPage *page : {first.data(), second.data()})
            log.listenTo(page, page == first ? u"first"_s : u"second"_s);
    }
    ~PageStage()
    {
        log.stop();
        for (KELPage *page : {first.data(), second.data()}) {
            if (page && !page->screen())
                delete page;
        }
    }
    void pushBoth()
    {
        screen.push(first);
        screen.push(second);
        log.take();
    }
    bool show()
    {
        screen.show();
        return QTest::qWaitForWindowExposed(&screen);
    }

    KELScreen screen;
    const QPointer<KELPage> first = new KELPage;
    const QPointer<KELPage> second = new KELPage;
    SignalLog log;
};

#endif
