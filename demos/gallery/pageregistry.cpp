// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "pageregistry.h"

#include "controlpage.h"
#include "iconset.h"
#include "pages.h"
#include "screens/chargepoint.h"
#include "screens/charger.h"
#include "screens/room.h"
#include "screens/systemdata.h"
#include "screens/systempanel.h"
#include "screens/thermostat.h"
#include "window.h"

#include <QtCore/QCoreApplication>

namespace {

template <typename PageType>
Page *create(const PageHost &host, const QRectF &area)
{
    return new PageType(host, area);
}

// The state of a screen outlives its page.
template <typename ScreenType, typename ModelType>
KELPage *createScreen(const PageHost &host)
{
    auto *model = host.view->template findChild<ModelType *>(QString(), Qt::FindDirectChildrenOnly);
    if (!model) {
        model = new ModelType;
        model->setParent(host.view);
    }
    return new ScreenType(host.theme, model);
}

} // namespace

const std::vector<PageEntry> &galleryPages()
{
    static const std::vector<PageEntry> pages = {
        {"thermostat", QT_TRANSLATE_NOOP("Screens", "Thermostat"), Icon::home,
         createScreen<Thermostat, Room>, nullptr},
        {"charger", QT_TRANSLATE_NOOP("Screens", "Charger"), Icon::bolt,
         createScreen<Charger, ChargePoint>, nullptr},
        {"system", QT_TRANSLATE_NOOP("Screens", "System"), Icon::tasks,
         createScreen<SystemPanel, SystemData>, nullptr},
        {"round-rect", "Round rect", Icon::squareOutline, nullptr, create<RoundRectPage>},
        {"push-button", "Push button", Icon::pointer, nullptr, create<PushButtonPage>},
        {"label", "Label", Icon::tag, nullptr, create<LabelPage>},
        {"line-item", "Line item", Icon::minus, nullptr, create<LineItemPage>},
        {"check-box", "Check box", Icon::toggle, nullptr, create<CheckBoxPage>},
        {"radio-box", "Radio box", Icon::dotInCircle, nullptr, create<RadioBoxPage>},
        {"progress-bar", "Progress bar", Icon::tasks, nullptr, create<ProgressBarPage>},
        {"slide-control", "Slide control", Icon::sliders, nullptr, create<SlideControlPage>},
        {"data-bind", "Data bind", Icon::link, nullptr, create<DataBindPage>},
        {"dialog-base", "Dialog base", Icon::lock, nullptr, create<DialogBasePage>},
        {"non-modal-dialog", "Panels", Icon::clone, nullptr, create<NonModalDialogPage>},
        {"non-modal-helper", "Popup", Icon::comment, nullptr, create<NonModalHelperPage>},
        {"combo-box", "Combo box", Icon::openBelow, nullptr, create<ComboBoxPage>},
        {"navigation-table", "Nav. table", Icon::columns, nullptr, create<NavigationTablePage>},
        {"side-menu", "Side menu", Icon::bars, nullptr, create<SideMenuPage>},
        {"icon-font", "Icon font", Icon::flag, nullptr, create<IconFontPage>},
        {"content-view", "Content view", Icon::window, nullptr, create<ContentViewPage>},
        {"text-pixmap", "Text pixmap", Icon::font, nullptr, create<TextPixmapPage>},
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

KELPage *newGalleryPage(const PageHost &host, const PageEntry &entry)
{
    return entry.createScreen ? entry.createScreen(host) : new ControlPage(host, entry);
}
