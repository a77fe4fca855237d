#pragma once

#include <plix/platform/base/Ref.h>
#include <plix/platform/graphics/Forward.h>
#include <plix/platform/graphics/color_components.h>

namespace plix {

class NSTableView;

// The colours of selected rows, for tables and outlines of any class. They follow the user's highlight colour while the view has
// the keyboard, itself or in a cell that is edited, and its window is key; else they are grey. So they are while the view is
// disabled.

/// What selected rows are filled with now.
PLIX_EXPORT Ref<NSColor> selectionColor(NSTableView const&);
/// The same without making a colour.
PLIX_EXPORT ColorComponents selectionComponents(NSTableView const&);
/// Of the edge of a selected row: darker, and always opaque.
PLIX_EXPORT Ref<NSColor> selectionOutlineColor(NSTableView const&);
/// Whether selected rows get a gradient in place of the plain colour: the view is active, as above, and enabled.
PLIX_EXPORT bool selectionShouldDrawGradient(NSTableView const&);

}
