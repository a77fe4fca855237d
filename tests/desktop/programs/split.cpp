// A window with a split view of three coloured panes beside each other: red, green and blue, 160, 100 and 120 points wide, with
// dividers of 10 points. The red pane may collapse, at a double click too, and keeps 60 points else. Each new layout is reported on
// standard output, with the panes' widths.

#include <tests/desktop/programs/support/program.h>

#include <plix/controls/TQSplitView.h>
#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSCursor.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/foundation/NSNotification.h>
#include <plix/platform/graphics/NSColor.h>

#include <string>

namespace plix {
namespace {

class Watcher : public NSObject {
    PLIX_CLASS(Watcher, NSObject);

public:
    float constrainMinCoordinate(NSSplitView&, float proposed, long divider) { return divider == 0 ? 60 : proposed; }
    bool canCollapseSubview(NSSplitView& view, NSView& pane) { return view.subviews().front() == &pane; }
    bool shouldCollapseSubview(NSSplitView&, NSView&, long) { return true; }
    void splitViewDidResizeSubviews(NSNotification const& notification)
    {
        auto const& view = static_cast<NSSplitView const&>(*notification.object);
        std::string line = "panes";
        for (auto const& pane : view.subviews())
            line += ' ' + std::to_string(view.isSubviewCollapsed(*pane) ? 0 : static_cast<int>(pane->frame().width));
        report(line);
    }
    void windowDidBecomeKey(NSNotification const&) { report("key"); }
};

PLIX_DESCRIBE(Watcher)
{
}

int run()
{
    NSApplication::sharedApplication();
    auto const watcher = make<Watcher>();
    auto const window
        = make<NSWindow>(Rect { 100, 724, 400, 200 }, NSTitledWindowMask | NSResizableWindowMask, NSBackingStoreBuffered, false);
    window->setTitle("split");
    window->setDelegate(watcher);
    auto const split = make<TQSplitView>(window->contentView()->bounds());
    split->setVertical(true);
    split->setDividerThickness(10);
    split->setAutoresizingMask(NSViewWidthSizable | NSViewHeightSizable);
    split->addSubview(*make<ColouredView>(Rect { 0, 0, 160, 200 }, NSColor::redColor()));
    split->addSubview(*make<ColouredView>(Rect { 170, 0, 100, 200 }, NSColor::greenColor()));
    split->addSubview(*make<ColouredView>(Rect { 280, 0, 120, 200 }, NSColor::blueColor()));
    split->setPosition(160, 0);
    split->setPosition(270, 1);
    split->setDelegate(watcher);
    window->contentView()->addSubview(*split);
    window->makeKeyAndOrderFront(nullptr);
    return runReporting();
}

}
}

int main()
{
    return plix::run();
}
