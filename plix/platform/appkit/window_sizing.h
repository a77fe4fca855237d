#pragma once

#include <plix/platform/graphics/geometry.h>

namespace plix {

/// What a window's size becomes when a person asks for `proposed`: changed from `now` in whole increments (at least 1 each), or,
/// where the aspect ratio is not zero, with its height following its width.
Size resizedWindowSize(Size proposed, Size now, Size aspectRatio, Size increments);

}
