#pragma once

namespace plix {

/// What is drawn around a view.
enum NSBorderType : int { NSNoBorder = 0, NSLineBorder = 1, NSBezelBorder = 2, NSGrooveBorder = 3 };

}
