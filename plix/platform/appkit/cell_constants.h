#pragma once

#include <plix/platform/graphics/control_size.h>

namespace plix {

enum NSCellType : int { NSNullCellType = 0, NSTextCellType = 1, NSImageCellType = 2 };

enum NSCellStateValue : int { NSMixedState = -1, NSOffState = 0, NSOnState = 1 };

enum NSTextFieldBezelStyle : int { NSTextFieldSquareBezel = 0, NSTextFieldRoundedBezel = 1 };

}
