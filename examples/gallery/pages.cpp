#include "pages.h"
#include "PictureView.h"
#include "boxes_page.h"
#include "buttons_page.h"
#include "buttons_pages.h"
#include "cells_pages.h"
#include "chiseled_page.h"
#include "combo_pages.h"
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
#include "text_pages.h"
#include "windows_page.h"

#include <examples/support/example_options.h>

#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/graphics/NSBitmapImageRep.h>
#include <plix/platform/host/headless/HeadlessHost.h>

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <string_view>
#include <vector>

namespace gallery {

using namespace plix;

namespace {

constexpr std::string_view sections[] { welcomeSection, controlsSection, tablesSection, windowsSection, textSection, drawingSection,
    valuesSection, filesSection, eventsSection, soundSection, statesSection };

constexpr Page sheetPages[] {
    { "live", "Live controls", statesSection, "live_page.cpp", makeLivePage },
    { "pictures", "Pictures", statesSection, "PictureView.cpp", makePicturesPage },
    { "text", "Text", statesSection, "text_page.cpp", makeTextPage },
    { "buttons", "Buttons", statesSection, "buttons_page.cpp", makeButtonsPage },
    { "menus", "Menus", statesSection, "menus_page.cpp", makeMenusPage },
    { "combos", "Combo boxes and dates", statesSection, "combos_page.cpp", makeCombosPage },
    { "dates", "Dates in panels", statesSection, "dates_page.cpp", makeDatesPage },
    { "boxes", "Boxes and progress", statesSection, "boxes_page.cpp", makeBoxesPage },
    { "image_views", "Image views and segments", statesSection, "image_views_page.cpp", makeImageViewsPage },
    { "tables", "Tables and outlines", statesSection, "tables_page.cpp", makeTablesPage },
    { "tabs", "Tab views", statesSection, "tabs_page.cpp", makeTabsPage },
    { "alerts", "Alerts", statesSection, "windows_page.cpp", makeAlertsPage },
    { "progress", "Progress windows", statesSection, "windows_page.cpp", makeProgressPage },
    { "backgrounds", "Window backgrounds", statesSection, "windows_page.cpp", makeBackgroundsPage },
    { "labels", "Engraved labels", statesSection, "labels_page.cpp", makeLabelsPage },
    { "many_labels", "300 engraved labels", statesSection, "labels_page.cpp", makeManyLabelsPage },
    { "chiseled", "Engraved titles", statesSection, "chiseled_page.cpp", makeChiseledPage },
    { "sounds", "Sounds", statesSection, "sounds_page.cpp", makeSoundsPage },
    { "speech", "Speech", statesSection, "speech_page.cpp", makeSpeechPage },
};

std::vector<Page> gathered()
{
    std::vector<Page> all;
    for (std::span<Page const> const family :
        { std::span<Page const>(sheetPages), buttonsPages(), cellsPages(), comboPages(), textPages() })
        all.insert(all.end(), family.begin(), family.end());
    auto const rank = [](Page const& page) {
        return std::find(std::begin(sections), std::end(sections), std::string_view(page.section)) - std::begin(sections);
    };
    std::stable_sort(all.begin(), all.end(), [&](Page const& a, Page const& b) { return rank(a) < rank(b); });
    return all;
}

Ref<NSWindow> windowFor(Page const& page)
{
    auto const view = page.makeView();
    bool const isSheet = std::string_view(page.section) == statesSection;
    auto window = make<NSWindow>(
        rectWith({}, view->frame().size()), isSheet ? NSBorderlessWindowMask : NSTitledWindowMask, NSBackingStoreBuffered, false);
    window->setContentView(view);
    if (isSheet) {
        window->orderFront(nullptr);
    } else {
        // Looks as while it is used, but for what would show where the keyboard is.
        window->makeKeyAndOrderFront(nullptr);
        window->makeFirstResponder(nullptr);
    }
    return window;
}

}

std::span<Page const> pages()
{
    static std::vector<Page> const s_pages = gathered();
    return s_pages;
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
