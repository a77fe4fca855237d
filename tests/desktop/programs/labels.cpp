// Windows with an engraved label each: two plain ones and one of a class of the program's own, side by side from the place that the
// arguments say. Active text is green on black, inactive red, the shadow blue. What the labels are told is reported on standard
// output, one line each.

#include <plix/controls/PLIXChiseledTextField.h>
#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSGraphics.h>

#include <cstdlib>
#include <iostream>
#include <string>

namespace plix {
namespace {

void report(std::string const& line)
{
    std::cout << line << std::endl;
}

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

class Ground : public NSView {
public:
    using NSView::init;
    bool isOpaque() const override { return true; }
    void drawRect(Rect dirty) override
    {
        NSColor::blackColor()->set();
        NSRectFill(dirty);
    }
};

class OwnWindow : public NSWindow {
public:
    using NSWindow::init;
};

template <typename Window> Ref<NSWindow> show(std::string const& name, Point place)
{
    auto window = make<Window>(Rect { place.x, place.y, 180, 100 }, NSTitledWindowMask, NSBackingStoreBuffered, false);
    window->setTitle(name);
    auto const ground = make<Ground>(Rect { 0, 0, 180, 100 });
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
    auto& application = NSApplication::sharedApplication();
    auto const second = show<NSWindow>("second", { place.x + 200, place.y });
    auto const own = show<OwnWindow>("own", { place.x + 400, place.y });
    auto const first = show<NSWindow>("first", place);
    second->orderFront(nullptr);
    own->orderFront(nullptr);
    first->makeKeyAndOrderFront(nullptr);
    report("ready");
    application.run();
    return 0;
}

}
}

int main(int count, char** arguments)
{
    if (count < 3)
        return 2;
    return plix::run({ std::strtof(arguments[1], nullptr), std::strtof(arguments[2], nullptr) });
}
