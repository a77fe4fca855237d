// A window with a pop-up button, a pull-down button, a combo box and a context menu. It stands where its arguments say. What is
// chosen, and where menus open on the screen (from its upper left corner), is reported on standard output, one line each.

#include <tests/desktop/programs/support/program.h>

#include <plix/platform/appkit/MenuTracker.h>
#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSComboBox.h>
#include <plix/platform/appkit/NSMenu.h>
#include <plix/platform/appkit/NSMenuItem.h>
#include <plix/platform/appkit/NSPopUpButton.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/foundation/NSNotification.h>

#include <string>

namespace plix {
namespace {

class Watcher : public NSObject {
    PLIX_CLASS(Watcher, NSObject);

public:
    void menuWillOpen(NSMenu& menu) { report("opening " + menu.title()); }
    void windowDidBecomeKey(NSNotification const&) { report("key"); }
    void comboBoxSelectionIsChanging(NSNotification const&) { report("lit in the list"); }
    void menuDidClose(NSMenu& menu) { report("closed " + menu.title()); }
    void willHighlightItem(NSMenu& menu, NSMenuItem* item)
    {
        if (auto const* window = MenuTracker::windowOfMenu(menu))
            report("lit " + (item ? item->title() : std::string("-")) + " in " + textOf(onDisplay(window->frame())));
    }
};

PLIX_DESCRIBE(Watcher)
{
}

int run(Point place)
{
    NSApplication::sharedApplication();
    auto const watcher = make<Watcher>();
    auto const window = make<NSWindow>(Rect { place.x, place.y, 300, 160 }, NSTitledWindowMask, NSBackingStoreBuffered, false);
    window->setTitle("menus");
    window->setDelegate(watcher);
    auto const chosen = [](NSObject* sender) { report("chosen " + static_cast<NSControl*>(sender)->stringValue()); };
    auto const popUp = make<NSPopUpButton>(Rect { 20, 120, 140, 26 }, false);
    popUp->addItemsWithTitles({ "Small", "Medium", "Large" });
    popUp->menu()->setTitle("sizes");
    popUp->menu()->setDelegate(watcher);
    popUp->setActionFunction(chosen);
    window->contentView()->addSubview(*popUp);
    auto const combo = make<NSComboBox>(Rect { 20, 80, 140, 22 });
    combo->addItemsWithObjectValues({ "Apple", "Banana", "Cherry" });
    combo->setDelegate(watcher);
    combo->setActionFunction(chosen);
    window->contentView()->addSubview(*combo);
    auto const context = make<NSMenu>("context");
    context->setAutoenablesItems(false);
    context->setDelegate(watcher);
    for (int i = 1; i <= 12; ++i) {
        auto const item = context->addItemWithTitle("Item " + std::to_string(i), {}, "");
        item->setActionFunction([](NSObject* sender) { report("chosen " + static_cast<NSMenuItem*>(sender)->title()); });
    }
    window->contentView()->setMenu(context);
    window->makeKeyAndOrderFront(nullptr);
    window->makeFirstResponder(popUp.get());
    return runReporting();
}

}
}

int main(int count, char** arguments)
{
    return plix::run(plix::placeFromArguments(count, arguments));
}
