#pragma once

#include <plix/platform/base/export.h>
#include <plix/platform/graphics/NSParagraphStyle.h>
#include <plix/platform/graphics/geometry.h>

#include <string_view>

namespace plix {

class NSColor;
class NSFont;

/// How single lines are drawn by those who draw many: a font and a colour (null is black) that are there already, no dictionaries.
/// Wrapping modes clip.
struct TextLineStyle {
    NSFont const& font;
    NSColor const* color { nullptr };
    NSTextAlignment alignment { NSLeftTextAlignment };
    NSLineBreakMode lineBreakMode { NSLineBreakByTruncatingTail };
};

/// What drawInRect draws of a text without line ends, cut to the rectangle's width. Text that the font can set from its tables,
/// which is most, costs neither memory nor a look into the cache, seen before or not.
PLIX_EXPORT void drawTextLine(std::string_view text, Rect, TextLineStyle const&);
/// The advance of the text on one line.
PLIX_EXPORT float widthOfTextLine(std::string_view text, NSFont const&);

}
