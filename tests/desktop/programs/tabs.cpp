// A window whose tab view makes it fit its panes. "low" has a red square of 40 points, "high" a blue column of 300, "wide" a custom
// view of 500 by 100 that is magenta. All around the tab view is green, left of it in 7 points. The content's upper left corner is
// at (100, 100) of the display, or further down by the number given. Reports on standard output, one line each: where the tabs'
// middles are in the display's pixels, which tab is shown now with the content's rectangle, and in which field is typed what.

#include <plix/controls/PLIXTabView.h>
#include <plix/controls/PLIXTabViewItem.h>
#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSScreen.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/foundation/NSNotification.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSGraphics.h>

#include <cstdlib>
#include <iostream>
#include <sstream>
#include <string>

namespace plix {
namespace {

void report(std::string const& line)
{
    std::cout << line << std::endl;
}

class Coloured : public NSView {
    PLIX_CLASS(Coloured, NSView);

public:
    using NSView::init;
    bool init(Rect frame, Ref<NSColor> color)
    {
        m_color = std::move(color);
        return Base::init(frame);
    }
    bool isOpaque() const override { return true; }
    void drawRect(Rect rect) override
    {
        m_color->set();
        NSRectFill(rect);
    }

private:
    Ref<NSColor> m_color;
};

PLIX_DESCRIBE(Coloured)
{
}

/// In the display's pixels, y downwards.
Rect onDisplay(NSWindow const& window, Rect inBase)
{
    auto const origin = window.convertBaseToScreen(inBase.origin());
    return { origin.x, NSScreen::mainScreen().frame().height - origin.y - inBase.height, inBase.width, inBase.height };
}

class Watcher : public NSObject {
    PLIX_CLASS(Watcher, NSObject);

public:
    void reallyDidSelectTabViewItem(NSTabView& tabs, NSTabViewItem* item)
    {
        auto const* window = tabs.window();
        if (!window)
            return;
        auto const* content = window->contentView();
        auto const place = onDisplay(*window, content->convertRectToView(content->bounds(), nullptr));
        std::ostringstream out;
        out << "shown " << item->label() << " at " << place.x << ' ' << place.y << ' ' << place.width << ' ' << place.height;
        report(out.str());
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
    auto& application = NSApplication::sharedApplication();
    auto const watcher = make<Watcher>();
    auto const window = make<NSWindow>(
        Rect { 100, 1024 - 100 - 121 - down, 400, 121 }, NSTitledWindowMask | NSResizableWindowMask, NSBackingStoreBuffered, false);
    window->setTitle("tabs");
    window->setDelegate(watcher);
    window->setContentView(make<Coloured>(window->contentView()->bounds(), NSColor::greenColor()));
    auto const tabs = make<PLIXTabView>(window->contentView()->bounds());
    addTab(*tabs, "low", make<Coloured>(Rect { 20, 20, 40, 40 }, NSColor::redColor()));
    addTab(*tabs, "high", make<Coloured>(Rect { 60, 0, 40, 300 }, NSColor::blueColor()));
    addTab(*tabs, "wide", make<Coloured>(Rect { 0, 0, 500, 100 }, NSColor::magentaColor()));
    tabs->setDelegate(watcher);
    window->contentView()->addSubview(*tabs);
    window->makeKeyAndOrderFront(nullptr);
    for (auto const& item : tabs->tabViewItems()) {
        auto const place = onDisplay(*window, tabs->convertRectToView(tabs->rectForTabViewItem(*item), nullptr));
        std::ostringstream out;
        out << "tab " << item->label() << ' ' << place.midX() << ' ' << place.midY();
        report(out.str());
    }
    report("ready");
    application.run();
    return 0;
}

}
}

int main(int argc, char** argv)
{
    return plix::run(argc > 1 ? std::strtof(argv[1], nullptr) : 0);
}
