#pragma once

#include <plix/platform/base/Ref.h>
#include <plix/platform/graphics/geometry.h>

#include <functional>
#include <string>

namespace example {

class DemoTree;

}

namespace plix {

class NSView;

}

namespace plix::desktop {

/// What a toolkit's half of the program can tell and do.
struct ToolkitHalf {
    float scale { 1 };
    /// Of its button "add" and its line of text "name": on the display, in points.
    std::function<Rect(std::string const& part)> place;
    std::function<std::string()> name;
    std::function<std::string()> label;
    /// Puts another widget with a tree into the window.
    std::function<void(Ref<NSView> const&)> addSecond;
    /// Destroys the widget that the tree is in.
    std::function<void()> destroyEmbedded;
};

/// Has the program report what the tree does, and obey lines that ask where its parts are and how it stands; says that all is
/// ready. Places are told in the display's pixels, the middle of the part first, then its size.
void reportEmbedded(example::DemoTree&, ToolkitHalf);

}
