#pragma once

#include <plix/platform/graphics/geometry.h>

namespace plix {

/// Where a disclosure image's origin goes: just left of the row's first cell and in the middle of its height, on points cut to
/// whole ones.
Point disclosureOrigin(Rect firstCell, Size image);

}
