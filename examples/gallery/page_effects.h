#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace plix {

class NSView;

}

namespace gallery {

// What switches do to a page that is there.
/// Of all the library's tables and outlines in it.
void setHighlightStyle(plix::NSView& page, std::uint32_t style);
void disableControls(plix::NSView& page);

/// A source of this folder, from the program's resources; "" where it is not there.
std::string sourceFile(std::string_view name);

}
