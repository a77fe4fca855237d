// Two windows, each with a pop-up button that has an engraved title; the first one is of a plain class and starts with the
// keyboard. The windows stand where the arguments say and 200 points to the right of there. What the buttons show is reported on
// standard output, one line each.

#include <tests/desktop/programs/support/program.h>

#include <plix/controls/PLIXChiseledTextPopUpButton.h>
#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSMenu.h>
#include <plix/platform/appkit/NSMenuItem.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/graphics/NSImage.h>

#include <string>

namespace plix {
namespace {

class Reporter : public PLIXChiseledTextPopUpButton {
public:
    using PLIXChiseledTextPopUpButton::init;
    void setImage(Ref<NSImage> const& image) override
    {
        PLIXChiseledTextPopUpButton::setImage(image);
        report(name + (image && image == over ? " over" : " idle"));
    }
    void SetMouseOverImage(Ref<NSImage> const& image) override
    {
        over = image;
        PLIXChiseledTextPopUpButton::SetMouseOverImage(image);
    }
    void activate(NSNotification const* sender) override
    {
        PLIXChiseledTextPopUpButton::activate(sender);
        report(name + " active");
    }
    void deactivate(NSNotification const* sender) override
    {
        PLIXChiseledTextPopUpButton::deactivate(sender);
        report(name + " inactive");
    }
    std::string name;
    Ref<NSImage> over;
};

class Watcher : public NSObject {
    PLIX_CLASS(Watcher, NSObject);

public:
    void windowDidBecomeKey(NSNotification const&) { report("key"); }
    void menuWillOpen(NSMenu& menu) { report("opening " + menu.title()); }
    void menuDidClose(NSMenu& menu) { report("closed " + menu.title()); }
    void willHighlightItem(NSMenu&, NSMenuItem* item) { report("lit " + (item ? item->title() : std::string("-"))); }
};

PLIX_DESCRIBE(Watcher)
{
}

struct Shown {
    Ref<NSWindow> window;
    Ref<Reporter> button;
};

Shown show(std::string const& name, Point place, Ref<Watcher> const& watcher)
{
    auto window = make<NSWindow>(Rect { place.x, place.y, 180, 100 }, NSTitledWindowMask, NSBackingStoreBuffered, false);
    window->setTitle(name);
    auto button = make<Reporter>(Rect { 20, 60, 80, 20 });
    button->name = name;
    button->SetFrameAnchorMask(0);
    for (auto const* title : { "Today", "This week", "In the last month" }) {
        auto const item = button->addItemWithTitle(title);
        item->setActionFunction([weak = Weak<Reporter>(button)](NSObject* sender) {
            auto const& chosen = static_cast<NSMenuItem&>(*sender);
            weak->selectItemAtIndex(weak->menu()->indexOfItem(chosen));
            report("chosen " + weak->title() + " wide " + std::to_string(static_cast<int>(weak->frame().width)));
        });
    }
    button->selectItemAtIndex(0);
    button->menu()->setTitle(name);
    button->menu()->setDelegate(watcher);
    window->contentView()->addSubview(*button);
    return { window, button };
}

int run(Point place)
{
    NSApplication::sharedApplication();
    auto const watcher = make<Watcher>();
    auto const second = show("second", { place.x + 200, place.y }, watcher);
    auto const first = show("first", place, watcher);
    first.window->setDelegate(watcher);
    second.window->orderFront(nullptr);
    first.window->makeKeyAndOrderFront(nullptr);
    return runReporting();
}

}
}

int main(int count, char** arguments)
{
    return plix::run(plix::placeFromArguments(count, arguments));
}
