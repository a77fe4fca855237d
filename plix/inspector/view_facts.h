#pragma once

#include <plix/inspector/overlay_plan.h>
#include <plix/inspector/view_fields.h>
#include <plix/platform/base/NSObject.h>

#include <cstdint>
#include <string>
#include <vector>

namespace plix {

class NSView;
class NSWindow;

// What views say of themselves. Nothing here changes a view or keeps one alive.

/// The name of an object's class; of one that is not described also that of the nearest class that is: "DiskView (NSView)".
std::string classNameOf(NSObject const&);
/// The view and all below it.
ViewNode viewNodeOf(NSView const&);
/// All about a view.
ViewFacts viewFactsOf(NSView const&);
/// The view of that serial number at or below another; null where there is none.
NSView* viewWithSerialNumber(NSView& top, std::uint64_t);
/// A view's bounds in the coordinates of its window's content.
Rect rectInContent(NSView const&);
/// The outlines of a view and of all that is seen below it.
void addFrames(NSView const&, Rect clip, std::vector<OverlayShape>&);

}
