#pragma once

#include <plix/platform/graphics/geometry.h>

namespace plix {

/// Where a chiseled pop-up button puts its title, slices and arrow, in the composed image's coordinates, y upwards, and how large
/// it makes itself. Widths are those of the slice images; a missing one is 0 wide.

struct SliceWidths {
    float left { 0 };
    float middle { 0 };
    float right { 0 };
};

enum class PopUpBackground { hover, pressed };

struct PopUpSlices {
    Rect left;
    Rect right;
    Rect middle; ///< drawn last
    friend bool operator==(PopUpSlices const&, PopUpSlices const&) = default;
};

/// All three images place the title by the pressed left cap.
PLIX_EXPORT Point chiseledTitleOrigin(Rect button, Size title, float pressedLeftWidth);
/// The pressed middle begins at its own width and is as wide as the hover caps leave it: it covers part of the left cap, which is
/// meant.
PLIX_EXPORT PopUpSlices popUpSlices(PopUpBackground, Rect button, SliceWidths pressed, SliceWidths hover);
/// Behind the title; its height counts from the image's bottom edge by the title's and the arrow's heights alone.
PLIX_EXPORT Point popUpArrowOrigin(Rect title, Size arrow);

struct PopUpFrameRequest {
    Rect frame;
    Size title; ///< after it was sized to its text
    SliceWidths pressed;
    float arrowWidth { 0 };
    bool sizesHeightToFit { false };
    bool keepsRightEdge { true };
};

/// The frame for a new title. Sizes are cut to whole points.
PLIX_EXPORT Size popUpSizeForTitle(PopUpFrameRequest const&);
/// The origin once the button has taken its new width.
PLIX_EXPORT Point popUpOriginForWidth(PopUpFrameRequest const&, float newWidth);

}
