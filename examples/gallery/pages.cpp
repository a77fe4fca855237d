#include "pages.h"
#include "PictureView.h"
#include "boxes_page.h"
#include "buttons_page.h"
#include "chiseled_page.h"
#include "combos_page.h"
#include "dates_page.h"
#include "image_views_page.h"
#include "labels_page.h"
#include "live_page.h"
#include "sounds_page.h"
#include "speech_page.h"
#include "tables_page.h"
#include "tabs_page.h"
#include "text_page.h"
#include "windows_page.h"

#include <examples/support/example_options.h>

#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/graphics/NSBitmapImageRep.h>
#include <plix/platform/host/headless/HeadlessHost.h>

#include <filesystem>
#include <iostream>

namespace gallery {

using namespace plix;

namespace {

constexpr Page allPages[] {
    { "live", "Live controls", makeLivePage },
    { "pictures", "Pictures", [] { return Ref<NSView>(make<PictureView>()); } },
    { "text", "Text", makeTextPage },
    { "buttons", "Buttons", makeButtonsPage },
    { "menus", "Menus", makeMenusPage },
    { "combos", "Combo boxes and dates", makeCombosPage },
    { "dates", "Dates in panels", makeDatesPage },
    { "boxes", "Boxes and progress", makeBoxesPage },
    { "image_views", "Image views and segments", makeImageViewsPage },
    { "tables", "Tables and outlines", makeTablesPage },
    { "tabs", "Tab views", makeTabsPage },
    { "alerts", "Alerts", makeAlertsPage },
    { "progress", "Progress windows", makeProgressPage },
    { "backgrounds", "Window backgrounds", makeBackgroundsPage },
    { "labels", "Engraved labels", makeLabelsPage },
    { "many_labels", "300 engraved labels", makeManyLabelsPage },
    { "chiseled", "Engraved titles", makeChiseledPage },
    { "sounds", "Sounds", makeSoundsPage },
    { "speech", "Speech", makeSpeechPage },
};

Ref<NSWindow> windowFor(Page const& page)
{
    auto const view = page.makeView();
    auto window = make<NSWindow>(rectWith({}, view->frame().size()), NSBorderlessWindowMask, NSBackingStoreBuffered, false);
    window->setContentView(view);
    window->orderFront(nullptr);
    return window;
}

}

std::span<Page const> pages()
{
    return allPages;
}

Ref<NSBitmapImageRep> render(Page const& page)
{
    auto const window = windowFor(page);
    window->displayIfNeeded();
    auto picture = window->snapshot();
    window->close();
    return picture;
}

bool dump(std::string const& folder)
{
    auto* machine = dynamic_cast<HeadlessHost*>(&host());
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    for (int const scale : { 1, 2 }) {
        if (machine)
            machine->headlessDisplay().setScreens({ HeadlessDisplay::defaultScreen(static_cast<float>(scale)) });
        for (auto const& page : pages()) {
            auto const window = windowFor(page);
            auto const path = folder + "/" + page.name + (scale == 2 ? "@2x.png" : ".png");
            if (!example::writeWindow(*window, path))
                return false;
            std::cout << path << std::endl;
            window->close();
        }
    }
    return true;
}

}
