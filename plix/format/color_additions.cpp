#include <plix/format/color_additions.h>

#include <plix/format/color_text.h>
#include <plix/platform/graphics/NSColor.h>

namespace plix {

Ref<NSColor> colorFromCalibratedRGBString(std::optional<std::string_view> text)
{
    auto const color = colorComponentsForText(text);
    return NSColor::colorWithCalibratedRed(color.red, color.green, color.blue, color.alpha);
}

std::string asCalibratedRGBString(NSColor const& color)
{
    auto const calibrated = color.colorUsingColorSpaceName(NSCalibratedRGBColorSpace);
    return textForColorComponents(calibrated ? calibrated->components() : ColorComponents { 0, 0, 0, 0 });
}

}
