#include <plix/controls/TQComboBoxCell.h>

#include <plix/drawing/focused_image.h>
#include <plix/drawing/geometry_helpers.h>
#include <plix/drawing/image_additions.h>
#include <plix/drawing/image_composition.h>
#include <plix/platform/appkit/NSView.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSImage.h>
#include <plix/platform/graphics/appearance.h>

namespace plix {

namespace {

constexpr float knobRoom = 10;

}

PLIX_DESCRIBE(TQComboBoxCell)
{
    description.bundle("plix");
}

bool TQComboBoxCell::init()
{
    return Base::init();
}

bool TQComboBoxCell::init(std::string_view text)
{
    return Base::init(text);
}

bool TQComboBoxCell::init(NSCoder& coder)
{
    return Base::init(coder);
}

Rect TQComboBoxCell::buttonRectForBounds(Rect bounds) const
{
    Rect slice;
    Rect rest;
    NSDivideRect(bounds, slice, rest, knobRoom, NSMaxXEdge);
    return slice;
}

void TQComboBoxCell::drawWithFrame(Rect frame, NSView& controlView)
{
    setControlView(&controlView);
    Rect slice;
    Rect rest;
    NSDivideRect(frame, slice, rest, knobRoom, NSMaxXEdge);
    drawInteriorWithFrame(rest, controlView);
    auto const image = imageNamed("popupknob_small", &describedClass());
    if (!image)
        return;
    Rect const knob = PLIXNormalizedRect(PLIXRectCenterOnRect(PLIXMakeRectWithSize(image->size()), slice));
    // It is made for a light ground.
    bool const isDark = currentAppearance() == Appearance::dark;
    drawUpright(isDark ? *ReplaceColorsInImage(image, NSColor::controlTextColor()) : *image, knob);
}

}
