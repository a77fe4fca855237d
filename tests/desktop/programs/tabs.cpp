// A window whose tab view makes it fit its panes. "low" has a red square of 40 points, "high" a blue column of 300, "wide" a custom
// view of 500 by 100 that is magenta. All around the tab view is green, left of it in 7 points. The content's upper left corner is
// at (100, 100) of the display, or further down by the number given. Reports on standard output, one line each: where the tabs'
// middles are in the display's pixels, which tab is shown now with the content's rectangle, and in which field is typed what.

#include <tests/desktop/programs/support/program.h>

#include <plix/controls/PLIXTabView.h>
#include <plix/controls/PLIXTabViewItem.h>
#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/foundation/NSNotification.h>
#include <plix/platform/graphics/NSColor.h>

#include <cstdlib>
#include <sstream>
#include <string>

namespace plix {
namespace {

class Watcher : public NSObject {
    PLIX_CLASS(Watcher, NSObject);

public:
    void reallyDidSelectTabViewItem(NSTabView& tabs, NSTabViewItem* item)
    {
        if (auto const* window = tabs.window())
            report("shown " + item->label() + " at " + textOf(onDisplay(*window->contentView())));
    }
    void windowDidBecomeKey(NSNotification const&) { report("key"); }
};

PLIX_DESCRIBE(Watcher)
{
}

void addTab(PLIXTabView& tabs, char const* label, Ref<NSView> const& inside)
{
    auto const item = make<PLIXTabViewItem>();
    item->setLabel(label);
    if (inside->frame().width == 500)
        item->setCustomView(inside);
    else
        item->view()->addSubview(*inside);
    tabs.addTabViewItem(*item);
}

int run(float down)
{
    NSApplication::sharedApplication();
    auto const watcher = make<Watcher>();
    auto const window = make<NSWindow>(
        Rect { 100, 1024 - 100 - 121 - down, 400, 121 }, NSTitledWindowMask | NSResizableWindowMask, NSBackingStoreBuffered, false);
    window->setTitle("tabs");
    window->setDelegate(watcher);
    window->setContentView(make<ColouredView>(window->contentView()->bounds(), NSColor::greenColor()));
    auto const tabs = make<PLIXTabView>(window->contentView()->bounds());
    addTab(*tabs, "low", make<ColouredView>(Rect { 20, 20, 40, 40 }, NSColor::redColor()));
    addTab(*tabs, "high", make<ColouredView>(Rect { 60, 0, 40, 300 }, NSColor::blueColor()));
    addTab(*tabs, "wide", make<ColouredView>(Rect { 0, 0, 500, 100 }, NSColor::magentaColor()));
    tabs->setDelegate(watcher);
    window->contentView()->addSubview(*tabs);
    window->makeKeyAndOrderFront(nullptr);
    for (auto const& item : tabs->tabViewItems()) {
        auto const place = tabs->rectForTabViewItem(*item);
        auto const middle = onDisplay(*tabs, { place.midX(), place.midY() });
        std::ostringstream out;
        out << "tab " << item->label() << ' ' << middle.x << ' ' << middle.y;
        report(out.str());
    }
    return runReporting();
}

}
}

int main(int argc, char** argv)
{
    return plix::run(argc > 1 ? std::strtof(argv[1], nullptr) : 0);
}
