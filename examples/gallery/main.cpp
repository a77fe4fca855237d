#include "pages.h"

#include <examples/support/example_options.h>

#include <plix/app/PLIXApplication.h>
#include <plix/platform/appkit/NSView.h>
#include <plix/platform/appkit/NSWindow.h>

#include <iostream>
#include <string>
#include <vector>

namespace {

using namespace plix;

class GalleryDelegate : public NSObject {
public:
    bool applicationShouldTerminateAfterLastWindowClosed(NSApplication&) { return true; }
};

gallery::Page const* pageNamed(std::string const& name)
{
    for (auto const& page : gallery::pages()) {
        if (page.name == name)
            return &page;
    }
    return nullptr;
}

Ref<NSWindow> showPage(gallery::Page const& page)
{
    auto const view = page.makeView();
    auto window = make<NSWindow>(rectWith({}, view->frame().size()),
        NSTitledWindowMask | NSClosableWindowMask | NSMiniaturizableWindowMask, NSBackingStoreBuffered, false);
    window->setTitle(page.title);
    window->setContentView(view);
    window->center();
    window->makeKeyAndOrderFront(nullptr);
    return window;
}

int run(example::Options const& options, std::string const& dumpFolder)
{
    example::prepare(options);
    auto const application = make<PLIXApplication>();
    if (!dumpFolder.empty())
        return gallery::dump(dumpFolder) ? 0 : 1;
    auto const delegate = make<GalleryDelegate>();
    application->setDelegate(delegate);
    std::vector<Ref<NSWindow>> windows;
    for (auto const& page : gallery::pages()) {
        bool const isAsked = options.arguments.empty() || pageNamed(options.arguments[0]) == &page;
        if (isAsked)
            windows.push_back(showPage(page));
    }
    if (!options.screenshot.empty())
        return example::writeWindow(*windows.back(), options.screenshot) ? 0 : 1;
    if (options.exitsAfterFirstFrame) {
        windows.back()->displayIfNeeded();
        return 0;
    }
    application->run();
    return 0;
}

std::string usage()
{
    std::string text = "Usage: gallery [OPTIONS] [PAGE]\nShows every page, or one of:";
    for (auto const& page : gallery::pages())
        text += std::string(" ") + page.name;
    return text + "\n  --dump DIR                 draw every page in memory at 1x and 2x into a folder, and end\n"
        + example::optionsHelp();
}

}

int main(int argc, char** argv)
{
    std::vector<char const*> words(argv, argv + argc);
    std::string dumpFolder;
    for (std::size_t i = 1; i + 1 < words.size(); ++i) {
        if (std::string_view(words[i]) == "--dump") {
            dumpFolder = words[i + 1];
            words.erase(words.begin() + static_cast<std::ptrdiff_t>(i), words.begin() + static_cast<std::ptrdiff_t>(i) + 2);
            break;
        }
    }
    auto options = example::parseOptions(static_cast<int>(words.size()), words.data());
    if (!dumpFolder.empty())
        options.drawsInMemory = true;
    if (options.problem.empty() && !options.arguments.empty() && !pageNamed(options.arguments[0]))
        options.problem = "there is no page " + options.arguments[0];
    if (options.showsHelp || !options.problem.empty()) {
        (options.showsHelp ? std::cout : std::cerr)
            << (options.problem.empty() ? "" : "gallery: " + options.problem + "\n") << usage();
        return options.showsHelp ? 0 : 2;
    }
    return run(options, dumpFolder);
}
