#pragma once

#include <plix/platform/graphics/attribute_names.h>
#include <plix/platform/graphics/geometry.h>

#include <string_view>

namespace plix {

class NSAttributedString;

/// The extent of the text laid out as wide as it wants to be: the widest line's advance and the height of all lines. Nothing for
/// no text. What has been measured or drawn before is not shaped again.
PLIX_EXPORT Size sizeWithAttributes(std::string_view text, Attributes const&);
/// Draws in the current context; the point is the extent's upper left corner in a flipped context, else the lower left.
PLIX_EXPORT void drawAtPoint(std::string_view text, Point, Attributes const&);
/// Draws from the rectangle's top downwards, wrapped or truncated to its width as the paragraph style says. Lines for which there
/// is no room any more are left out, the first excepted.
PLIX_EXPORT void drawInRect(std::string_view text, Rect, Attributes const&);

/// The extent of the text wrapped or truncated to this width, as drawInRect lays it out.
PLIX_EXPORT Size sizeForWidth(std::string_view text, float width, Attributes const&);
PLIX_EXPORT Size sizeForWidth(NSAttributedString const&, float width);

}
