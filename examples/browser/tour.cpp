#include "tour.h"
#include "BrowserController.h"
#include "FilesTable.h"

#include <examples/support/example_options.h>

#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSButton.h>
#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/host/headless/HeadlessHost.h>
#include <plix/tables/PLIXTableView.h>

#include <filesystem>
#include <iostream>

namespace browser {

using namespace plix;

namespace {

Point onScreen(NSView const& view, Point point)
{
    return view.window()->convertBaseToScreen(view.convertPointToView(point, nullptr));
}

}

void playTour(HeadlessHost& host, BrowserController& controller)
{
    std::error_code error;
    std::filesystem::create_directories("out", error);
    auto& script = host.script();
    Ref<BrowserController> const kept(controller);
    auto picture = [&script, kept](std::string name) {
        script.then([kept, name] {
            if (example::writeWindow(kept->window(), "out/" + name))
                std::cout << "out/" << name << std::endl;
        });
    };
    auto& table = controller.files().table();
    auto const row = [&](long number) { return onScreen(table, { 60, table.rectOfRow(number).midY() }); };

    picture("browser-1-folder.png");
    script.scroll(row(2), 0, -4);
    picture("browser-2-scrolled.png");
    script.scroll(row(2), 0, 4);
    script.click(row(2));
    script.key(NSDownArrowFunctionKey);
    picture("browser-3-selected.png");
    script.key(NSHomeFunctionKey);
    script.key("\r");
    picture("browser-4-opened.png");
    script.key(NSUpArrowFunctionKey, HostModifierAlternate);
    picture("browser-5-back.png");
    auto const& dates = controller.datesButton();
    script.click(onScreen(dates, { dates.bounds().midX(), dates.bounds().midY() }));
    script.type("1/1/2000");
    script.key("\r");
    picture("browser-6-dates.png");
    script.then([] { NSApp->terminate(nullptr); });
}

}
