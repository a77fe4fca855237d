#pragma once

#include <plix/platform/base/Ref.h>
#include <plix/platform/graphics/geometry.h>

#include <span>
#include <string>

namespace plix {

class NSBitmapImageRep;
class NSView;

}

namespace gallery {

/// One page: a view of its own size that shows a subject in all its states.
struct Page {
    char const* name; ///< also of the files it is dumped to
    char const* title;
    plix::Ref<plix::NSView> (*makeView)();
};

/// Every page in the order in which they are shown. A new page is one more line there.
std::span<Page const> pages();

/// The page drawn in a window of its own size, with that window's pixels a point.
plix::Ref<plix::NSBitmapImageRep> render(Page const&);
/// Draws every page at one and at two pixels a point into a folder as NAME.png and NAME@2x.png, and prints the paths. Needs the
/// host in memory. False, with a line on standard error, where something can't be written.
bool dump(std::string const& folder);

}
