#pragma once

#include "folder_entry.h"

#include <plix/platform/graphics/geometry.h>

namespace browser {

enum class IconTone { normal, dimmed, onSelection };

/// Draws what stands for an entry into a square of a flipped view, as lines and curves, so that it is sharp at every size and
/// scale.
void drawIcon(EntryKind, bool isLink, plix::Rect square, IconTone = IconTone::normal);

}
