#pragma once

#include <plix/platform/base/Ref.h>
#include <plix/platform/base/export.h>

#include <functional>
#include <memory>

namespace plix {

class EmbeddedWindow;
class EmbeddingDisplay;
class EmbeddingEvents;
class NSView;
class NSWindow;

/// A view tree that lives in a widget of another toolkit. It is the content of a window without frame, which is key while the
/// widget has the toolkit's focus; all that views do in a window works. The widget's adapter has one of these.
class PLIX_EXPORT EmbeddedTree {
public:
    /// The window gets its pixels from that place of the toolkit's, which lives as long as the window is open. The root view fills
    /// it, and is resized with it.
    EmbeddedTree(EmbeddingDisplay&, std::unique_ptr<EmbeddedWindow>, Ref<NSView> const& root);
    /// Closes the window, and with it menus and sheets that belong to it.
    ~EmbeddedTree();
    EmbeddedTree(EmbeddedTree const&) = delete;
    EmbeddedTree& operator=(EmbeddedTree const&) = delete;

    /// The window that the tree is in; the application may close it.
    NSWindow& window() const { return *m_window; }
    /// Where the tree's part in it is, or null when the application has closed the window.
    EmbeddedWindow* place() const;
    /// On screen or not, as the widget is.
    void setShown(bool);

    /// Along the key view loop.
    enum class Way { forward, backward };
    /// Tab leads out of the tree at both ends of its key view loop, which a view of no size marks that comes first in it. A loop of
    /// the application's own has that view in it, or Tab never leaves.
    NSView& edge() const { return *m_edge; }
    /// The toolkit's focus came with Tab: the first or the last view of the tree gets the keyboard.
    void focusEnters(Way);
    /// Asked to move the toolkit's focus on; false where there is nowhere to go, and Tab goes round the tree then.
    void setFocusLeaves(std::function<bool(Way)> leaves) { m_leaves = std::move(leaves); }
    /// Told by the view at the edge.
    void edgeReached(Way);

private:
    EmbeddingDisplay& m_display;
    Ref<NSWindow> m_window;
    Ref<NSView> m_edge;
    std::function<bool(Way)> m_leaves;
};

/// Draws what is dirty in a window now: for the toolkit, which is about to paint it.
PLIX_EXPORT void drawEmbeddedWindow(EmbeddedWindow const&);

/// What the toolkit's loop calls when EmbeddingEvents::toolkitWillSleep() was true: the application handles the events that wait
/// and the timers that are due, and draws what is dirty then. Does nothing in a pass, where a turn that was asked for earlier
/// comes late.
PLIX_EXPORT void takeTurn(EmbeddingEvents&);

}
