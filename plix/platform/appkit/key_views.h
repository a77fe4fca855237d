#pragma once

#include <vector>

namespace plix {

class NSView;

/// All views in the view, at any depth, in the order in which a person reads them, each before those in it; without the view
/// itself.
std::vector<NSView*> viewsInReadingOrder(NSView&);

/// Puts a pane and the views in it into the key view loop behind a view that is outside: in the order in which they are linked
/// already, in a circle from `first` on where that is one of them, else as they are read. Nothing where they are there already.
void insertInKeyViewLoop(NSView& behind, NSView& pane, NSView* first);
/// Takes those of the pane out that follow the view in the loop; among themselves they stay linked. False where there were none.
bool removeFromKeyViewLoop(NSView& behind, NSView& pane);

}
