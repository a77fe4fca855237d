#include "fuzz.h"

#include <plix/library_classes.h>
#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSMenu.h>
#include <plix/platform/appkit/NSNib.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/base/NSData.h>
#include <plix/platform/base/NSLog.h>
#include <plix/platform/host/headless/HeadlessHost.h>

using namespace plix;

namespace {

/// Takes whatever it is connected to.
class Owner : public NSObject {
    PLIX_CLASS(Owner, NSObject);

public:
    void setObject(Ref<NSObject> const& object) { held = object; }
    void act(NSObject*) { }

    Ref<NSObject> held;
};

PLIX_DESCRIBE(Owner)
{
    description.outlet("window", &Owner::setObject).outlet("view", &Owner::setObject).action("act:", &Owner::act).fillsHooks<>();
}

}

// A document that is read is loaded twice; both loads end alike, and what was loaded can be drawn and let go.
extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    static auto const s_quiet = installLogSink([](std::string_view) {});
    static bool const s_hasMachine = [] {
        installHost(std::make_unique<HeadlessHost>());
        NSApplication::sharedApplication();
        return libraryClassesAreListed;
    }();
    FUZZ_CHECK(s_hasMachine);
    auto const nib = make<NSNib>(*make<NSData>(std::vector<std::uint8_t>(data, data + size)), nullptr);
    if (!nib)
        return 0;
    auto const owner = make<Owner>();
    std::vector<Ref<NSObject>> objects;
    bool const isLoaded = nib->instantiateNibWithOwner(owner.get(), &objects);
    FUZZ_CHECK(isLoaded || objects.empty());
    for (auto const& object : objects) {
        auto const window = as<NSWindow>(object);
        auto const view = as<NSView>(object);
        if (!window && !(view && !view->superview()))
            continue;
        auto const shown = window ? window : make<NSWindow>(Rect { 0, 0, 200, 200 }, 1U, NSBackingStoreBuffered, true);
        if (view)
            shown->contentView()->addSubview(*view);
        if (shown->frame().width <= 4000 && shown->frame().height <= 4000) {
            shown->orderFront(nullptr);
            shown->displayIfNeeded();
        }
        shown->close();
    }
    objects.clear();
    owner->held = nullptr;
    FUZZ_CHECK(nib->instantiateNibWithOwner(nullptr, &objects) == isLoaded);
    for (auto const& window : NSApp->windows())
        window->close();
    NSApp->setMainMenu(nullptr);
    return 0;
}
