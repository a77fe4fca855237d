#include "GalleryController.h"
#include "page_search.h"

#include <examples/support/example_options.h>

#include <plix/app/PLIXApplication.h>
#include <plix/platform/appkit/NSMenu.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/graphics/appearance.h>

#include <iostream>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace plix;

class GalleryDelegate : public NSObject {
public:
    bool applicationShouldTerminateAfterLastWindowClosed(NSApplication&) { return true; }
};

/// What the gallery takes beyond other examples.
struct GalleryOptions {
    std::string dumpFolder;
    bool listsPages { false };
};

/// Takes its own words out.
GalleryOptions takeOptions(std::vector<char const*>& words)
{
    GalleryOptions options;
    for (std::size_t i = 1; i < words.size();) {
        std::string_view const word = words[i];
        bool const isDump = word == "--dump" && i + 1 < words.size();
        if (isDump)
            options.dumpFolder = words[i + 1];
        else if (word == "--list")
            options.listsPages = true;
        auto const place = words.begin() + static_cast<std::ptrdiff_t>(i);
        if (isDump || word == "--list")
            words.erase(place, place + (isDump ? 2 : 1));
        else
            ++i;
    }
    return options;
}

int run(example::Options const& options, std::string const& dumpFolder)
{
    example::prepare(options);
    auto const application = make<PLIXApplication>();
    if (!dumpFolder.empty())
        return gallery::dump(dumpFolder) ? 0 : 1;
    auto const delegate = make<GalleryDelegate>();
    application->setDelegate(delegate);
    auto const controller = make<gallery::GalleryController>();
    application->setMainMenu(controller->makeMenu());
    auto& window = controller->window();
    bool const isForAPicture = !options.screenshot.empty();
    if (!isForAPicture)
        controller->remember();
    if (options.isDark) {
        auto settings = controller->settings();
        settings.appearance = Appearance::dark;
        controller->setSettings(settings);
    }
    if (!options.arguments.empty())
        controller->showPage(*gallery::pageNamed(gallery::pages(), options.arguments[0]));
    window.makeKeyAndOrderFront(nullptr);
    if (isForAPicture)
        return example::writeWindow(window, options.screenshot) ? 0 : 1;
    if (options.exitsAfterFirstFrame) {
        window.displayIfNeeded();
        return 0;
    }
    application->run();
    return 0;
}

void listPages()
{
    std::string_view section;
    for (auto const& page : gallery::pages()) {
        if (section != page.section)
            std::cout << (section.empty() ? "" : "\n") << page.section << '\n';
        section = page.section;
        std::cout << "  " << page.name << '\n';
    }
}

std::string usage()
{
    return "Usage: gallery [OPTIONS] [PAGE]\nShows every class, and opens the window on a page of --list.\n"
           "  --dump DIR                 draw every page in memory at 1x and 2x, light and dark, into a folder, and end\n"
           "  --list                     print the names of pages by section, and end\n"
        + example::optionsHelp();
}

}

int main(int argc, char** argv)
{
    std::vector<char const*> words(argv, argv + argc);
    auto const own = takeOptions(words);
    auto options = example::parseOptions(static_cast<int>(words.size()), words.data());
    if (!own.dumpFolder.empty())
        options.drawsInMemory = true;
    if (options.problem.empty() && !options.arguments.empty() && !gallery::pageNamed(gallery::pages(), options.arguments[0]))
        options.problem = "there is no page " + options.arguments[0];
    if (options.showsHelp || !options.problem.empty()) {
        (options.showsHelp ? std::cout : std::cerr)
            << (options.problem.empty() ? "" : "gallery: " + options.problem + "\n") << usage();
        return options.showsHelp ? 0 : 2;
    }
    if (own.listsPages) {
        listPages();
        return 0;
    }
    return run(options, own.dumpFolder);
}
