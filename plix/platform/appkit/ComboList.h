#pragma once

#include <plix/platform/appkit/Forward.h>
#include <plix/platform/appkit/combo_layout.h>
#include <plix/platform/base/FunctionRef.h>

#include <functional>
#include <string>

namespace plix {

/// The open list of a combo box, in a window of its own. One is open at a time.
class ComboList {
public:
    struct Items {
        ComboListShape shape;
        bool hasScroller { true };
        long selected { -1 };
        long firstShown { 0 };
        NSFont* font { nullptr };
        std::function<std::string(long)> text;
        /// Told of each item that is lit.
        std::function<void(long)> lit;
        /// Which item the field's text stands for now, after a key has changed it; -1 for none.
        std::function<long()> itemOfField;
    };

    /// Follows mouse and keyboard until an item is chosen, which it answers, or the list is dismissed: -1.
    static long run(NSView& field, Rect frame, Items const&, NSEvent* opening);
    static bool isOpenFor(NSView const& field);
    static void dismiss();
    /// Dismisses the list of a field that has no window any more.
    static void viewsLeftWindow();
    /// The list's window, or null.
    static NSWindow* window();
    /// Of an item in the list's window, on the screen; for tests.
    static Rect rectOfItem(long index);
};

}
