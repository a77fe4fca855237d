#pragma once

#include <plix/platform/appkit/button_constants.h>
#include <plix/platform/appkit/cell_layout.h>
#include <plix/platform/graphics/geometry.h>
#include <plix/platform/graphics/paragraph_layout.h>

namespace plix {

/// What a button's face is: a bezel of a style, a check box or radio button beside its title, or nothing.
enum class ButtonFace { plain, bezel, checkBox, radio };

/// What is drawn on a button: sizes of nothing are zero.
struct ButtonContent {
    Size title;
    Size image;
    NSCellImagePosition position { NSNoImage };
    NSTextAlignment alignment { NSCenterTextAlignment };
};

struct ButtonContentPlan {
    Rect title;
    Rect image;
    friend bool operator==(ButtonContentPlan const&, ButtonContentPlan const&) = default;
};

/// Where title and image stand in an area of a flipped view: together in its middle, or at the side that the title is aligned to;
/// on whole points. The title is cut where there is no room for it, an image is scaled down in proportion.
PLIX_EXPORT ButtonContentPlan buttonContentPlan(ButtonContent const&, Rect area);
/// What they take together.
PLIX_EXPORT Size buttonContentSize(ButtonContent const&);

/// From the frame to the content, for each bezel style and size.
PLIX_EXPORT CellInsets buttonInsets(ButtonFace, NSBezelStyle, NSControlSize);
/// The side of a check box or radio button.
PLIX_EXPORT float indicatorSide(NSControlSize);
/// Its place: at the frame's left end, on the middle of its height.
PLIX_EXPORT Rect indicatorRect(Rect frame, NSControlSize);

}
