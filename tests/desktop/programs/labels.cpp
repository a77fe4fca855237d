// Windows with an engraved label each: two plain ones and one of a class of the program's own, side by side from the place that the
// arguments say. Active text is green on black, inactive red, the shadow blue. What the labels are told is reported on standard
// output, one line each.

#include <tests/desktop/programs/support/program.h>

#include <plix/controls/PLIXChiseledTextField.h>
#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>

#include <string>

namespace plix {
namespace {

class Reporter : public PLIXChiseledTextField {
public:
    using PLIXChiseledTextField::init;
    void activate(NSNotification const* sender) override
    {
        PLIXChiseledTextField::activate(sender);
        if (sender)
            report(name + " active");
    }
    void deactivate(NSNotification const* sender) override
    {
        PLIXChiseledTextField::deactivate(sender);
        report(name + " inactive");
    }
    std::string name;
};

class OwnWindow : public NSWindow {
public:
    using NSWindow::init;
};

template <typename Window> Ref<NSWindow> show(std::string const& name, Point place)
{
    auto window = make<Window>(Rect { place.x, place.y, 180, 100 }, NSTitledWindowMask, NSBackingStoreBuffered, false);
    window->setTitle(name);
    auto const ground = make<ColouredView>(Rect { 0, 0, 180, 100 }, NSColor::blackColor());
    auto const label = make<Reporter>(Rect { 0, 0, 180, 100 });
    label->name = name;
    label->setActiveColor(NSColor::greenColor());
    label->setInactiveColor(NSColor::redColor());
    label->setShadowActiveColor(NSColor::blueColor());
    label->setShadowInactiveColor(NSColor::blueColor());
    label->activate(nullptr);
    label->setFont(NSFont::systemFontOfSize(60));
    // Full blocks: any point of them has the text's colour.
    label->setStringValue("\u2588\u2588\u2588");
    ground->addSubview(*label);
    window->setContentView(ground);
    return window;
}

int run(Point place)
{
    NSApplication::sharedApplication();
    auto const second = show<NSWindow>("second", { place.x + 200, place.y });
    auto const own = show<OwnWindow>("own", { place.x + 400, place.y });
    auto const first = show<NSWindow>("first", place);
    second->orderFront(nullptr);
    own->orderFront(nullptr);
    first->makeKeyAndOrderFront(nullptr);
    return runReporting();
}

}
}

int main(int count, char** arguments)
{
    return plix::run(plix::placeFromArguments(count, arguments));
}
