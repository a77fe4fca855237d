// A window with two text fields, one below the other. It is named by its first argument and stands where the next two say. What is
// typed is reported on standard output, one line each.

#include <tests/desktop/programs/support/program.h>

#include <plix/inspector/inspector.h>
#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSTextField.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/foundation/NSNotification.h>

#include <cstdlib>
#include <string>

namespace plix {
namespace {

class Watcher : public NSObject {
    PLIX_CLASS(Watcher, NSObject);

public:
    void controlTextDidChange(NSNotification const& notification) { tell("changed", notification); }
    void controlTextDidEndEditing(NSNotification const& notification) { tell("ended", notification); }
    void windowDidBecomeKey(NSNotification const&) { report("key"); }

private:
    static void tell(std::string const& what, NSNotification const& notification)
    {
        auto const& field = static_cast<NSTextField const&>(*notification.object);
        report(what + ' ' + std::to_string(field.tag()) + " [" + field.stringValue() + ']');
    }
};

PLIX_DESCRIBE(Watcher)
{
}

int run(std::string const& title, float x, float y)
{
    NSApplication::sharedApplication();
    installInspector();
    auto const watcher = make<Watcher>();
    auto const window = make<NSWindow>(Rect { x, y, 300, 100 }, NSTitledWindowMask, NSBackingStoreBuffered, false);
    window->setTitle(title);
    window->setDelegate(watcher);
    for (int i = 0; i < 2; ++i) {
        auto const field = make<NSTextField>(Rect { 20, 60 - 40 * static_cast<float>(i), 260, 22 });
        field->cell()->setScrollable(true);
        field->setTag(i + 1);
        field->setDelegate(watcher);
        field->setActionFunction([](NSObject* sender) { report("action " + static_cast<NSTextField*>(sender)->stringValue()); });
        window->contentView()->addSubview(*field);
    }
    window->makeKeyAndOrderFront(nullptr);
    return runReporting();
}

}
}

int main(int count, char** arguments)
{
    if (count < 4)
        return 2;
    return plix::run(arguments[1], std::strtof(arguments[2], nullptr), std::strtof(arguments[3], nullptr));
}
