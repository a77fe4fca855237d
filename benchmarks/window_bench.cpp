#include "bench.h"
#include "headless_machine.h"
#include "window_peer.h"

#include <plix/platform/graphics/NSBitmapImageRep.h>
#include <plix/platform/graphics/NSImage.h>
#include <plix/platform/host/headless/HeadlessWindow.h>
#include <plix/windows/PLIXWindow.h>

#include <cstring>

namespace plix::bench {

namespace {

constexpr int width = 1000;
constexpr int height = 800;
/// Steps of a resize in one timed run.
constexpr int steps = 8;

std::vector<std::uint32_t> pixelsOf(NSImage const& image)
{
    auto const bitmap = image.bitmapAtScale(1);
    std::vector<std::uint32_t> pixels;
    for (int y = 0; y < bitmap->pixelsHigh(); ++y) {
        for (int x = 0; x < bitmap->pixelsWide(); ++x)
            pixels.push_back(bitmap->pixelAtX(x, y));
    }
    return pixels;
}

/// A window that follows its resizes, and a person who drags its edge.
struct ResizedWindow {
    Machine machine;
    Ref<PLIXWindow> window;

    ResizedWindow()
    {
        NSApplication::sharedApplication();
        window = make<PLIXWindow>(Rect { 0, 0, width, height }, NSResizableWindowMask, NSBackingStoreBuffered, false);
        window->setDelegate(window);
        window->makeKeyAndOrderFront(nullptr);
        window->displayIfNeeded();
    }
    ~ResizedWindow()
    {
        window->setDelegate(nullptr);
        window->close();
    }
    void resize(int newHeight)
    {
        static_cast<HeadlessWindow*>(window->hostWindow())->resizeByPerson({ 0, 0, width, static_cast<float>(newHeight) });
        window->displayIfNeeded();
    }
};

std::function<void(int)> peerOf(PLIXWindow const&)
{
    auto const background = PLIXWindow::backgroundImage();
    return cairoWindowRepaint(pixelsOf(*background), background->bitmapAtScale(1)->pixelsWide(), width);
}

}

PLIX_FIGURE("window.resize_repaint")
{
    ResizedWindow shown;
    auto const theirs = peerOf(*shown.window);
    auto const throughSizes = [](auto const& resize) {
        for (int i = 0; i < steps; ++i)
            resize(height - steps + 2 * i + 1);
    };
    figure.setUnit("us");
    figure.wantRatio(3);
    figure.timeAgainst("the pattern composed anew with Cairo", { [&] { throughSizes([&](int size) { shown.resize(size); }); } },
        { [&] { throughSizes(theirs); } });
}

PLIX_FIGURE("window.resize_repaint_new")
{
    ResizedWindow shown;
    auto const theirs = peerOf(*shown.window);
    // Two of each run for the warm-up, and never the same height twice.
    int ours = height - 100;
    int peers = ours;
    auto const run = [](int& size, auto const& resize) {
        for (int i = 0; i < steps; ++i)
            resize(size++);
    };
    figure.setUnit("us");
    figure.wantRatio(1 / 1.2);
    figure.timeAgainst("the pattern composed anew with Cairo", { [&] { run(ours, [&](int size) { shown.resize(size); }); }, [] {} },
        { [&] { run(peers, theirs); }, [] {} });
}

}
