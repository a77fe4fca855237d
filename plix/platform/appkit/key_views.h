#pragma once

#include <vector>

namespace plix {

class NSView;

/// All views in the view, at any depth, in the order in which a person reads them, each before those in it; without the view
/// itself.
std::vector<NSView*> viewsInReadingOrder(NSView&);

}
