#include "pages.h"
#include "FixedWorld.h"
#include "base_pages.h"
#include "bitstream_pages.h"
#include "buttons_pages.h"
#include "cells_pages.h"
#include "combo_pages.h"
#include "events_pages.h"
#include "files_pages.h"
#include "format_pages.h"
#include "foundation_pages.h"
#include "graphics_pages.h"
#include "host_pages.h"
#include "image_pages.h"
#include "layout_pages.h"
#include "loop_pages.h"
#include "menus_pages.h"
#include "scrolling_pages.h"
#include "sheet_pages.h"
#include "sound_pages.h"
#include "system_pages.h"
#include "tables_pages.h"
#include "tabs_pages.h"
#include "text_pages.h"
#include "theme_pages.h"
#include "welcome_pages.h"
#include "windows_pages.h"

#include <examples/support/example_options.h>

#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/graphics/NSBitmapImageRep.h>
#include <plix/platform/graphics/appearance.h>
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

std::vector<Page> gathered()
{
    std::vector<Page> all;
    for (std::span<Page const> const family : { welcomePages(), buttonsPages(), menusPages(), comboPages(), cellsPages(),
             tabsPages(), scrollingPages(), themePages(), tablesPages(), windowsPages(), textPages(), basePages(),
             foundationPages(), filesPages(), loopPages(), eventsPages(), soundPages(), graphicsPages(), imagePages(),
             layoutPages(), formatPages(), bitstreamPages(), systemPages(), hostPages(), sheetPages() })
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
    if (isSheet)
        window->orderFront(nullptr);
    else
        window->makeKeyAndOrderFront(nullptr);
    // Looks as while it is used, but for what would show where the keyboard is.
    window->makeFirstResponder(nullptr);
    return window;
}

bool write(Page const& page, std::string const& path)
{
    auto const window = windowFor(page);
    bool const isWritten = example::writeWindow(*window, path);
    if (isWritten)
        std::cout << path << std::endl;
    window->close();
    return isWritten;
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

bool dump(std::string const& folder, std::span<Page const> dumped)
{
    auto* machine = dynamic_cast<HeadlessHost*>(&host());
    FixedWorld const world;
    auto const before = currentAppearance();
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    bool isWritten = true;
    for (auto const appearance : { Appearance::light, Appearance::dark }) {
        setCurrentAppearance(appearance);
        for (int const scale : { 1, 2 }) {
            if (machine)
                machine->headlessDisplay().setScreens({ HeadlessDisplay::defaultScreen(static_cast<float>(scale)) });
            std::string const ending
                = std::string(appearance == Appearance::dark ? "_dark" : "") + (scale == 2 ? "@2x.png" : ".png");
            for (auto const& page : dumped)
                isWritten = isWritten && write(page, folder + "/" + page.name + ending);
        }
    }
    setCurrentAppearance(before);
    return isWritten;
}

}
