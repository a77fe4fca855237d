#include "bench.h"

#include <plix/controls/PLIXSegmentedControl.h>
#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/host/headless/HeadlessHost.h>

namespace plix::bench {

// A window of 30 controls with five segments each, redrawn whole.
PLIX_FIGURE("segments.redraw")
{
    installHost(std::make_unique<HeadlessHost>());
    {
        auto const window = make<NSWindow>(Rect { 0, 0, 640, 400 }, NSTitledWindowMask, NSBackingStoreBuffered, false);
        for (int i = 0; i < 30; ++i) {
            auto const control = make<PLIXSegmentedControl>(
                Rect { 10 + static_cast<float>(i % 2) * 320, 10 + static_cast<float>(i / 2) * 26, 300, 24 });
            control->setCell(make<PLIXSegmentedCell>());
            control->setSegmentCount(5);
            for (long segment = 0; segment < 5; ++segment)
                control->setLabel("Segment " + std::to_string(segment), segment);
            control->setSelectedSegment(i % 5);
            window->contentView()->addSubview(*control);
        }
        window->makeKeyAndOrderFront(nullptr);
        figure.time({ [&] {
            window->contentView()->setNeedsDisplay(true);
            window->displayIfNeeded();
        } });
        window->close();
    }
    NSApp = nullptr;
    installHost(nullptr);
}

}
