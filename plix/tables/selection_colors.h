#pragma once

#include <plix/platform/graphics/color_components.h>

namespace plix {

/// The colours that selected rows and drop targets are drawn in, all derived from the user's highlight colour (`base`).

enum class ViewFocus { inactive, active };
enum class ViewState { disabled, enabled };

/// What selected rows are filled with: the base while the view has the keyboard in the key window, else a grey. A disabled view's
/// is brought to the grey of its paler shade.
PLIX_EXPORT ColorComponents selectionFill(ColorComponents const& base, ViewFocus, ViewState);
/// The edge of a filled row: opaque, and four fifths as bright.
PLIX_EXPORT ColorComponents selectionEdge(ColorComponents const& fill);

/// From a row's upper edge to its lower one.
struct GradientColors {
    ColorComponents top;
    ColorComponents bottom;
};
/// Paler and lighter at the top, richer and darker at the bottom.
PLIX_EXPORT GradientColors highlightGradientColors(ColorComponents const& base);

/// The line around a drop target that is not selected, or around a whole view.
PLIX_EXPORT ColorComponents dropLine(ColorComponents const& edge);
/// The wash over a drop target that is not selected.
PLIX_EXPORT ColorComponents dropWash(ColorComponents const& fill);

}
