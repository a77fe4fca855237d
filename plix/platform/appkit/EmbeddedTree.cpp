#include <plix/platform/appkit/EmbeddedTree.h>

#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/appkit/NSView.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/appkit/key_views.h>
#include <plix/platform/foundation/NSRunLoop.h>
#include <plix/platform/host/embedding/EmbeddedWindow.h>
#include <plix/platform/host/embedding/EmbeddingDisplay.h>
#include <plix/platform/host/embedding/EmbeddingEvents.h>

#include <utility>

namespace plix {

namespace {

/// Without a title, and yet one that takes the keyboard.
class TreeWindow final : public NSWindow {
    PLIX_CLASS(TreeWindow, NSWindow);

public:
    using NSWindow::init;

    // NSWindow:
    bool canBecomeKeyWindow() const override { return true; }
    bool canBecomeMainWindow() const override { return isVisible(); }
};

PLIX_DESCRIBE(TreeWindow)
{
}

/// Between the last view of the loop and the first. The keyboard comes here where it leaves the tree.
class EdgeView final : public NSView {
    PLIX_CLASS(EdgeView, NSView);

public:
    using NSView::init;

    void setTree(EmbeddedTree* tree) { m_tree = tree; }

    // NSView:
    bool acceptsFirstResponder() const override { return true; }
    bool becomeFirstResponder() override
    {
        auto const direction = window() ? window()->keyViewSelectionDirection() : NSDirectSelection;
        if (m_tree && direction != NSDirectSelection)
            m_tree->edgeReached(direction == NSSelectingNext ? EmbeddedTree::Way::forward : EmbeddedTree::Way::backward);
        return true;
    }

private:
    EmbeddedTree* m_tree { nullptr };
};

PLIX_DESCRIBE(EdgeView)
{
}

}

EmbeddedTree::EmbeddedTree(EmbeddingDisplay& display, std::unique_ptr<EmbeddedWindow> place, Ref<NSView> const& root)
    : m_display(display)
{
    NSApplication::sharedApplication().finishLaunching();
    Rect const contentRect = place->contentRect();
    auto const window = make<TreeWindow>(contentRect, unsigned { NSBorderlessWindowMask }, NSBackingStoreBuffered, true);
    Rect const bounds { 0, 0, contentRect.width, contentRect.height };
    auto const content = make<NSView>(bounds);
    auto const edge = make<EdgeView>(Rect { 0, bounds.height, 0, 0 });
    edge->setAutoresizingMask(NSViewMinYMargin);
    edge->setTree(this);
    root->setFrame(bounds);
    root->setAutoresizingMask(NSViewWidthSizable | NSViewHeightSizable);
    content->addSubview(*edge);
    content->addSubview(*root);
    insertInKeyViewLoop(*edge, *root, nullptr);
    window->setContentView(content);
    m_window = window;
    m_edge = edge;
    // Not before the window comes on screen does it ask for its place, and that it does here.
    m_display.giveNextWindow(std::move(place));
    m_window->orderFront(nullptr);
}

EmbeddedTree::~EmbeddedTree()
{
    static_cast<EdgeView&>(*m_edge).setTree(nullptr);
    m_window->close();
}

EmbeddedWindow* EmbeddedTree::place() const
{
    return m_display.windowFor(m_window->hostWindow());
}

void EmbeddedTree::setShown(bool isShown)
{
    if (!place() || isShown == m_window->isVisible())
        return;
    if (isShown)
        m_window->orderFront(nullptr);
    else
        m_window->orderOut(nullptr);
}

void EmbeddedTree::focusEnters(Way way)
{
    if (way == Way::forward)
        m_window->selectKeyViewFollowingView(*m_edge);
    else
        m_window->selectKeyViewPrecedingView(*m_edge);
}

void EmbeddedTree::edgeReached(Way way)
{
    if (m_leaves && m_leaves(way))
        return;
    focusEnters(way);
}

void drawEmbeddedWindow(EmbeddedWindow const& place)
{
    for (auto const& window : NSApplication::sharedApplication().orderedWindows()) {
        if (window->hostWindow() == &place && window->isAutodisplay())
            window->displayIfNeeded();
    }
}

void takeTurn(EmbeddingEvents& events)
{
    if (events.isPassing())
        return;
    auto& application = NSApplication::sharedApplication();
    auto& loop = NSRunLoop::currentRunLoop();
    // One that posts another for each event that it handles leaves the toolkit its share.
    constexpr int mostRounds = 100;
    for (int round = 0; round < mostRounds; ++round) {
        if (auto const event
            = application.nextEventMatchingMask(NSAnyEventMask, NSDate::distantPast(), NSDefaultRunLoopMode, true)) {
            application.sendEvent(*event);
            application.updateWindows();
        } else if (loop.runOnce(NSDefaultRunLoopMode, NSDate::distantPast()) == NSRunLoop::Activity::None) {
            // Before it looked, the run loop has drawn what was dirty.
            events.noteTurn();
            return;
        }
    }
}

}
