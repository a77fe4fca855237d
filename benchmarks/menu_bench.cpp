#include "bench.h"

#include <plix/platform/appkit/MenuTracker.h>
#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/appkit/NSMenu.h>
#include <plix/platform/appkit/NSMenuItem.h>
#include <plix/platform/appkit/NSView.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/host/headless/HeadlessHost.h>

#include <chrono>
#include <string>

namespace plix::bench {

namespace {

constexpr int itemCount = 10000;

/// A window in memory whose view has a menu of ten thousand items.
class Desk {
public:
    Desk()
    {
        auto host = std::make_unique<HeadlessHost>();
        m_host = host.get();
        installHost(std::move(host));
        m_window = make<NSWindow>(Rect { 100, 100, 600, 400 }, NSTitledWindowMask, NSBackingStoreBuffered, false);
        m_window->makeKeyAndOrderFront(nullptr);
        m_menu = make<NSMenu>("many");
        for (int i = 0; i < itemCount; ++i)
            m_menu->addItemWithTitle("Item number " + std::to_string(i), Selector("act:"), "");
    }
    ~Desk()
    {
        m_window->close();
        m_menu = nullptr;
        m_window = nullptr;
        NSApp = nullptr;
        installHost(nullptr);
    }
    Desk(Desk const&) = delete;
    Desk& operator=(Desk const&) = delete;

    /// Opens the menu, draws it, has that done, and dismisses it.
    void open(std::function<void()> const& whileOpen = {})
    {
        auto const event
            = NSEvent::mouseEventWithType(NSRightMouseDown, { 50, 300 }, 0, 0, m_window->windowNumber(), nullptr, 1, 1, 1);
        m_host->script().then([this, &whileOpen] {
            draw();
            if (whileOpen)
                whileOpen();
            m_host->script().then([this] { m_menu->cancelTracking(); });
        });
        NSMenu::popUpContextMenu(*m_menu, *event, m_window->contentView());
    }
    void draw()
    {
        if (auto* window = MenuTracker::windowOfMenu(*m_menu))
            window->displayIfNeeded();
    }
    HeadlessScript& person() { return m_host->script(); }

private:
    HeadlessHost* m_host;
    Ref<NSWindow> m_window;
    Ref<NSMenu> m_menu;
};

}

PLIX_FIGURE("menu.open_10k")
{
    Desk desk;
    figure.time({ [&] { desk.open(); } });
}

// One key each, drawn; what they begin to say is far down.
PLIX_FIGURE("menu.type_ahead")
{
    using Clock = std::chrono::steady_clock;
    constexpr std::string_view typed = "item number 98";
    Desk desk;
    figure.setUnit("us");
    figure.sample([&] {
        Clock::time_point start;
        double micros = 0;
        desk.open([&] {
            start = Clock::now();
            for (char const key : typed) {
                desk.person().type(std::string(1, key));
                desk.person().then([&] { desk.draw(); });
            }
            desk.person().then([&] { micros = std::chrono::duration<double, std::micro>(Clock::now() - start).count(); });
        });
        return micros / static_cast<double>(typed.size());
    });
}

}
