#include "BrowserController.h"
#include "tour.h"

#include <examples/support/example_options.h>

#include <plix/app/PLIXApplication.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/host/headless/HeadlessHost.h>

#include <filesystem>
#include <iostream>

namespace {

using namespace plix;

/// Ends the application with its window.
class BrowserDelegate : public NSObject {
public:
    bool applicationShouldTerminateAfterLastWindowClosed(NSApplication&) { return true; }
};

// Absolute and without dots and doubled slashes, but with its links as they are.
std::string absolutePath(std::string const& path)
{
    std::error_code error;
    auto const absolute = std::filesystem::absolute(path, error).lexically_normal();
    std::string text = error ? path : absolute.string();
    while (text.size() > 1 && text.ends_with('/'))
        text.pop_back();
    return text;
}

int run(example::Options const& options)
{
    example::prepare(options);
    auto const application = make<PLIXApplication>();
    auto const delegate = make<BrowserDelegate>();
    application->setDelegate(delegate);
    auto const controller = make<browser::BrowserController>(absolutePath(options.arguments.empty() ? "." : options.arguments[0]));
    auto& window = controller->window();
    bool const isForAPicture = !options.screenshot.empty();
    if (isForAPicture)
        window.center();
    else
        controller->rememberLayout();
    window.makeKeyAndOrderFront(nullptr);
    if (isForAPicture)
        return example::writeWindow(window, options.screenshot) ? 0 : 1;
    if (options.exitsAfterFirstFrame) {
        window.displayIfNeeded();
        return 0;
    }
    if (auto* headless = dynamic_cast<HeadlessHost*>(&host()))
        browser::playTour(*headless, *controller);
    application->run();
    return 0;
}

}

int main(int argc, char** argv)
{
    example::returnMemory();
    auto options = example::parseOptions(argc, argv);
    if (options.problem.empty() && options.arguments.size() > 1)
        options.problem = "one folder at a time";
    if (options.showsHelp || !options.problem.empty()) {
        (options.showsHelp ? std::cout : std::cerr)
            << (options.problem.empty() ? "" : "browser: " + options.problem + "\n")
            << "Usage: browser [OPTIONS] [FOLDER]\nShows a folder, the current one at first.\n"
            << example::optionsHelp();
        return options.showsHelp ? 0 : 2;
    }
    return run(options);
}
