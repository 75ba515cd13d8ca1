// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "pageregistry.h"

#include "iconset.h"
#include "pages/contentviewpage.h"
#include "pages/iconfontpage.h"
#include "pages/pushbuttonpage.h"
#include "pages/roundrectpage.h"
#include "pages/textpixmappage.h"

namespace {

template <typename PageType>
Page *create(const PageHost &host, const QRectF &area)
{
    return new PageType(host, area);
}

} // namespace

const std::vector<PageEntry> &galleryPages()
{
    static const std::vector<PageEntry> pages = {
        {"round-rect", "Round rect", Icon::squareOutline, create<RoundRectPage>},
        {"push-button", "Push button", Icon::pointer, create<PushButtonPage>},
        {"icon-font", "Icon font", Icon::flag, create<IconFontPage>},
        {"content-view", "Content view", Icon::window, create<ContentViewPage>},
        {"text-pixmap", "Text pixmap", Icon::font, create<TextPixmapPage>},
    };
    return pages;
}

int galleryPageIndex(const QString &name)
{
    const std::vector<PageEntry> &pages = galleryPages();
    for (size_t i = 0; i < pages.size(); ++i) {
        if (name == QLatin1String(pages[i].name))
            return int(i);
    }
    return -1;
}
