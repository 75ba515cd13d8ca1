// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "pageregistry.h"

#include "iconset.h"
#include "pages.h"

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
        {"label", "Label", Icon::tag, create<LabelPage>},
        {"line-item", "Line item", Icon::minus, create<LineItemPage>},
        {"check-box", "Check box", Icon::toggle, create<CheckBoxPage>},
        {"radio-box", "Radio box", Icon::dotInCircle, create<RadioBoxPage>},
        {"progress-bar", "Progress bar", Icon::tasks, create<ProgressBarPage>},
        {"slide-control", "Slide control", Icon::sliders, create<SlideControlPage>},
        {"data-bind", "Data bind", Icon::link, create<DataBindPage>},
        {"dialog-base", "Dialog base", Icon::lock, create<DialogBasePage>},
        {"non-modal-dialog", "Panels", Icon::clone, create<NonModalDialogPage>},
        {"non-modal-helper", "Popup", Icon::comment, create<NonModalHelperPage>},
        {"combo-box", "Combo box", Icon::openBelow, create<ComboBoxPage>},
        {"navigation-table", "Nav. table", Icon::columns, create<NavigationTablePage>},
        {"side-menu", "Side menu", Icon::bars, create<SideMenuPage>},
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
