#include "bench.h"

#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSView.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSGraphics.h>
#include <plix/platform/host/headless/HeadlessHost.h>

namespace plix {
namespace {

class Tile final : public NSView {
public:
    using NSView::init;
    Ref<NSColor> color;
    void drawRect(Rect rect) override
    {
        color->set();
        NSRectFill(rect);
    }
};

/// A window with 1,000 views of 10 x 10 points, 40 in a row.
class Tiles {
public:
    Tiles()
    {
        constexpr int count = 1000;
        constexpr int columns = 40;
        constexpr float step = 12;
        installHost(std::make_unique<HeadlessHost>());
        window = make<NSWindow>(Rect { 0, 0, 500, 320 }, NSTitledWindowMask, NSBackingStoreBuffered, false);
        for (int i = 0; i < count; ++i) {
            auto tile = make<Tile>(Rect { static_cast<float>(i % columns) * step, static_cast<float>(i / columns) * step, 10, 10 });
            tile->color = i % 2 ? NSColor::redColor() : NSColor::blueColor();
            window->contentView()->addSubview(*tile);
            tiles.push_back(std::move(tile));
        }
        window->makeKeyAndOrderFront(nullptr);
        window->displayIfNeeded();
    }
    ~Tiles()
    {
        window->close();
        window = nullptr;
        NSApp = nullptr;
        installHost(nullptr);
    }
    Tiles(Tiles const&) = delete;
    Tiles& operator=(Tiles const&) = delete;

    Ref<NSWindow> window;
    std::vector<Ref<Tile>> tiles;
};

}
}

PLIX_FIGURE("view.small_change")
{
    using namespace plix;
    Tiles shown;
    auto const oneTile = [&] {
        shown.tiles[500]->setNeedsDisplay(true);
        shown.window->displayIfNeeded();
    };
    auto const allTiles = [&] {
        for (auto const& tile : shown.tiles)
            tile->setNeedsDisplay(true);
        shown.window->displayIfNeeded();
    };
    figure.timeAgainst("all 1,000 views marked dirty", { oneTile }, { allTiles });
}
