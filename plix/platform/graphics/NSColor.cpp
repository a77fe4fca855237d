#include <plix/platform/graphics/NSColor.h>

#include <plix/platform/base/ObjectValue.h>
#include <plix/platform/foundation/NSCoder.h>
#include <plix/platform/graphics/NSGraphics.h>
#include <plix/platform/graphics/NSGraphicsContext.h>
#include <plix/platform/graphics/NSImage.h>
#include <plix/platform/graphics/system_colors.h>

#include <cstring>
#include <functional>
#include <string>

namespace plix {

namespace {

ColorComponents gray(float white, float alpha)
{
    float const clamped = clampedComponent(white);
    return { clamped, clamped, clamped, clampedComponent(alpha) };
}

ColorComponents rgb(float red, float green, float blue, float alpha)
{
    return { clampedComponent(red), clampedComponent(green), clampedComponent(blue), clampedComponent(alpha) };
}

std::string_view const spaceNames[] { NSCalibratedWhiteColorSpace, NSDeviceWhiteColorSpace, NSCalibratedRGBColorSpace,
    NSDeviceRGBColorSpace, NSNamedColorSpace, NSPatternColorSpace };

}

PLIX_DESCRIBE(NSColor)
{
}

NSColor::NSColor() = default;

NSColor::~NSColor() = default;

Ref<NSColor> NSColor::colorIn(Space space, ColorComponents components)
{
    auto color = make<NSColor>();
    color->m_space = space;
    color->m_components = components;
    return color;
}

Ref<NSColor> NSColor::colorWithCalibratedWhite(float white, float alpha)
{
    return colorIn(Space::calibratedWhite, gray(white, alpha));
}

Ref<NSColor> NSColor::colorWithCalibratedRed(float red, float green, float blue, float alpha)
{
    return colorIn(Space::calibratedRGB, rgb(red, green, blue, alpha));
}

Ref<NSColor> NSColor::colorWithCalibratedHue(float hue, float saturation, float brightness, float alpha)
{
    return colorIn(Space::calibratedRGB, colorFromHue({ hue, saturation, brightness, alpha }));
}

Ref<NSColor> NSColor::colorWithDeviceWhite(float white, float alpha)
{
    return colorIn(Space::deviceWhite, gray(white, alpha));
}

Ref<NSColor> NSColor::colorWithDeviceRed(float red, float green, float blue, float alpha)
{
    return colorIn(Space::deviceRGB, rgb(red, green, blue, alpha));
}

Ref<NSColor> NSColor::colorWithDeviceHue(float hue, float saturation, float brightness, float alpha)
{
    return colorIn(Space::deviceRGB, colorFromHue({ hue, saturation, brightness, alpha }));
}

Ref<NSColor> NSColor::colorWithPatternImage(Ref<NSImage> const& image)
{
    if (!image)
        return nullptr;
    auto color = colorIn(Space::pattern, { 0, 0, 0, 0 });
    color->m_patternImage = image;
    return color;
}

Ref<NSColor> NSColor::colorWithCatalogName(std::string_view listName, std::string_view colorName)
{
    auto const index = systemColorNamed(colorName);
    return listName == "System" && index ? systemColor(*index) : nullptr;
}

bool NSColor::init(NSCoder& coder)
{
    int const space = coder.decodeIntForKey("space");
    if (space < 0 || space > static_cast<int>(Space::pattern))
        return false;
    m_space = static_cast<Space>(space);
    if (m_space == Space::named) {
        auto const index = systemColorNamed(coder.decodeStringForKey("name"));
        if (!index)
            return false;
        m_systemColor = *index;
        m_name = systemColorName(*index);
        return true;
    }
    if (m_space == Space::pattern) {
        m_patternImage = coder.decodeForKey<NSImage>("image");
        return m_patternImage != nullptr;
    }
    auto const part = [&](char const* key) {
        float const value = coder.decodeFloatForKey(key);
        return value >= 0 ? std::min(value, 1.F) : 0;
    };
    m_components = { part("red"), part("green"), part("blue"), part("alpha") };
    return true;
}

void NSColor::encodeWithCoder(NSCoder& coder) const
{
    Base::encodeWithCoder(coder);
    coder.encodeInt(static_cast<int>(m_space), "space");
    if (m_space == Space::named) {
        coder.encodeObject(m_name, "name");
    } else if (m_space == Space::pattern) {
        coder.encodeObject(m_patternImage, "image");
    } else {
        coder.encodeDouble(m_components.red, "red");
        coder.encodeDouble(m_components.green, "green");
        coder.encodeDouble(m_components.blue, "blue");
        coder.encodeDouble(m_components.alpha, "alpha");
    }
}

Ref<NSColor> NSColor::systemColor(int index)
{
    static NSColor* s_colors[systemColorCount] {};
    auto*& cached = s_colors[index];
    if (!cached) {
        auto color = colorIn(Space::named, {});
        color->m_systemColor = index;
        color->m_name = systemColorName(index);
        cached = color.leak();
    }
    return cached;
}

#define PLIX_COLOR_CONSTANT(name, space, ...)                                                                                      \
    Ref<NSColor> NSColor::name()                                                                                                   \
    {                                                                                                                              \
        static NSColor* const s_color = colorIn(Space::space, ColorComponents __VA_ARGS__).leak();                                 \
        return s_color;                                                                                                            \
    }

PLIX_COLOR_CONSTANT(blackColor, calibratedWhite, { 0, 0, 0, 1 })
PLIX_COLOR_CONSTANT(darkGrayColor, calibratedWhite, { 1 / 3.0F, 1 / 3.0F, 1 / 3.0F, 1 })
PLIX_COLOR_CONSTANT(lightGrayColor, calibratedWhite, { 2 / 3.0F, 2 / 3.0F, 2 / 3.0F, 1 })
PLIX_COLOR_CONSTANT(whiteColor, calibratedWhite, { 1, 1, 1, 1 })
PLIX_COLOR_CONSTANT(grayColor, calibratedWhite, { 0.5F, 0.5F, 0.5F, 1 })
PLIX_COLOR_CONSTANT(redColor, calibratedRGB, { 1, 0, 0, 1 })
PLIX_COLOR_CONSTANT(greenColor, calibratedRGB, { 0, 1, 0, 1 })
PLIX_COLOR_CONSTANT(blueColor, calibratedRGB, { 0, 0, 1, 1 })
PLIX_COLOR_CONSTANT(cyanColor, calibratedRGB, { 0, 1, 1, 1 })
PLIX_COLOR_CONSTANT(yellowColor, calibratedRGB, { 1, 1, 0, 1 })
PLIX_COLOR_CONSTANT(magentaColor, calibratedRGB, { 1, 0, 1, 1 })
PLIX_COLOR_CONSTANT(orangeColor, calibratedRGB, { 1, 0.5F, 0, 1 })
PLIX_COLOR_CONSTANT(purpleColor, calibratedRGB, { 0.5F, 0, 0.5F, 1 })
PLIX_COLOR_CONSTANT(brownColor, calibratedRGB, { 0.6F, 0.4F, 0.2F, 1 })
PLIX_COLOR_CONSTANT(clearColor, calibratedWhite, { 0, 0, 0, 0 })

#undef PLIX_COLOR_CONSTANT

#define PLIX_SYSTEM_COLOR(name)                                                                                                    \
    Ref<NSColor> NSColor::name()                                                                                                   \
    {                                                                                                                              \
        static int const s_index = *systemColorNamed(#name);                                                                       \
        return systemColor(s_index);                                                                                               \
    }

PLIX_SYSTEM_COLOR(controlShadowColor)
PLIX_SYSTEM_COLOR(controlDarkShadowColor)
PLIX_SYSTEM_COLOR(controlColor)
PLIX_SYSTEM_COLOR(controlHighlightColor)
PLIX_SYSTEM_COLOR(controlLightHighlightColor)
PLIX_SYSTEM_COLOR(controlTextColor)
PLIX_SYSTEM_COLOR(controlBackgroundColor)
PLIX_SYSTEM_COLOR(selectedControlColor)
PLIX_SYSTEM_COLOR(secondarySelectedControlColor)
PLIX_SYSTEM_COLOR(selectedControlTextColor)
PLIX_SYSTEM_COLOR(disabledControlTextColor)
PLIX_SYSTEM_COLOR(textColor)
PLIX_SYSTEM_COLOR(textBackgroundColor)
PLIX_SYSTEM_COLOR(selectedTextColor)
PLIX_SYSTEM_COLOR(selectedTextBackgroundColor)
PLIX_SYSTEM_COLOR(gridColor)
PLIX_SYSTEM_COLOR(keyboardFocusIndicatorColor)
PLIX_SYSTEM_COLOR(windowBackgroundColor)
PLIX_SYSTEM_COLOR(scrollBarColor)
PLIX_SYSTEM_COLOR(knobColor)
PLIX_SYSTEM_COLOR(selectedKnobColor)
PLIX_SYSTEM_COLOR(windowFrameColor)
PLIX_SYSTEM_COLOR(windowFrameTextColor)
PLIX_SYSTEM_COLOR(selectedMenuItemColor)
PLIX_SYSTEM_COLOR(selectedMenuItemTextColor)
PLIX_SYSTEM_COLOR(highlightColor)
PLIX_SYSTEM_COLOR(shadowColor)
PLIX_SYSTEM_COLOR(headerColor)
PLIX_SYSTEM_COLOR(headerTextColor)
PLIX_SYSTEM_COLOR(alternateSelectedControlColor)
PLIX_SYSTEM_COLOR(alternateSelectedControlTextColor)

#undef PLIX_SYSTEM_COLOR

std::array<Ref<NSColor>, 2> NSColor::controlAlternatingRowBackgroundColors()
{
    static int const s_odd = *systemColorNamed("alternatingRowBackgroundColor");
    return { controlBackgroundColor(), systemColor(s_odd) };
}

void NSColor::setUserHighlightColor(Ref<NSColor> const& color)
{
    plix::setUserHighlightColor(color ? std::optional(color->components()) : std::nullopt);
}

ColorComponents NSColor::components() const
{
    return m_space == Space::named ? systemColorComponents(m_systemColor) : m_components;
}

std::string_view NSColor::colorSpaceName() const
{
    return spaceNames[static_cast<int>(m_space)];
}

std::string_view NSColor::catalogNameComponent() const
{
    return m_space == Space::named ? "System" : "";
}

Ref<NSColor> NSColor::colorUsingColorSpaceName(std::string_view name) const
{
    if (name == colorSpaceName())
        return const_cast<NSColor*>(this);
    if (m_space == Space::pattern)
        return nullptr;
    auto const from = components();
    float const white = from.white();
    if (name == NSCalibratedRGBColorSpace)
        return colorIn(Space::calibratedRGB, from);
    if (name == NSDeviceRGBColorSpace)
        return colorIn(Space::deviceRGB, from);
    if (name == NSCalibratedWhiteColorSpace || name == NSCalibratedBlackColorSpace)
        return colorIn(Space::calibratedWhite, { white, white, white, from.alpha });
    if (name == NSDeviceWhiteColorSpace || name == NSDeviceBlackColorSpace)
        return colorIn(Space::deviceWhite, { white, white, white, from.alpha });
    return nullptr;
}

void NSColor::getRed(float& red, float& green, float& blue, float& alpha) const
{
    auto const from = components();
    red = from.red;
    green = from.green;
    blue = from.blue;
    alpha = from.alpha;
}

void NSColor::getHue(float& hue, float& saturation, float& brightness, float& alpha) const
{
    auto const from = hueOfColor(components());
    hue = from.hue;
    saturation = from.saturation;
    brightness = from.brightness;
    alpha = from.alpha;
}

void NSColor::getWhite(float& white, float& alpha) const
{
    auto const from = components();
    white = from.white();
    alpha = from.alpha;
}

Ref<NSColor> NSColor::colorWithAlphaComponent(float alpha) const
{
    auto changed = components();
    changed.alpha = clampedComponent(alpha);
    if (m_space == Space::pattern || changed == components())
        return const_cast<NSColor*>(this);
    return colorIn(m_space == Space::named ? Space::calibratedRGB : m_space, changed);
}

Ref<NSColor> NSColor::blendedColorWithFraction(float fraction, NSColor const& other) const
{
    if (m_space == Space::pattern || other.m_space == Space::pattern)
        return nullptr;
    return colorIn(Space::calibratedRGB, blended(components(), other.components(), fraction));
}

Ref<NSColor> NSColor::highlightWithLevel(float level) const
{
    return blendedColorWithFraction(level, *NSColor::highlightColor());
}

Ref<NSColor> NSColor::shadowWithLevel(float level) const
{
    return blendedColorWithFraction(level, *NSColor::shadowColor());
}

void NSColor::set() const
{
    setFill();
    setStroke();
}

void NSColor::setFill() const
{
    if (auto const context = NSGraphicsContext::currentContext())
        context->setFillColor(*this);
}

void NSColor::setStroke() const
{
    if (auto const context = NSGraphicsContext::currentContext())
        context->setStrokeColor(*this);
}

void NSColor::drawSwatchInRect(Rect rect) const
{
    GraphicsState const saved;
    setFill();
    NSRectFillUsingOperation(rect, NSCompositeSourceOver);
}

bool NSColor::isEqual(NSObject const* other) const
{
    auto const* color = dynamic_cast<NSColor const*>(other);
    if (!color)
        return false;
    if (m_space == Space::named || color->m_space == Space::named)
        return m_space == color->m_space && m_systemColor == color->m_systemColor;
    if (m_space == Space::pattern || color->m_space == Space::pattern)
        return m_space == color->m_space && m_patternImage == color->m_patternImage;
    return isWhite() == color->isWhite() && m_components == color->m_components;
}

std::size_t NSColor::hash() const
{
    if (m_space == Space::named)
        return static_cast<std::size_t>(m_systemColor);
    if (m_space == Space::pattern)
        return std::hash<Ref<NSImage>> {}(m_patternImage);
    auto const part = std::hash<float> {};
    return part(m_components.red) ^ part(m_components.green) << 1U ^ part(m_components.blue) << 2U ^ part(m_components.alpha) << 3U;
}

std::string NSColor::description() const
{
    auto const text = [](std::initializer_list<float> values) {
        std::string joined;
        for (float const value : values)
            joined += " " + ObjectValue(value).description();
        return joined;
    };
    std::string const name(colorSpaceName());
    if (m_space == Space::named)
        return name + " System " + std::string(m_name);
    if (m_space == Space::pattern)
        return name + " " + m_patternImage->description();
    auto const& from = m_components;
    return name + (isWhite() ? text({ from.red, from.alpha }) : text({ from.red, from.green, from.blue, from.alpha }));
}

void NSColor::copyStateTo(NSObject& fresh) const
{
    Base::copyStateTo(fresh);
    auto& color = static_cast<NSColor&>(fresh);
    color.m_space = m_space;
    color.m_components = m_components;
    color.m_systemColor = m_systemColor;
    color.m_name = m_name;
    color.m_patternImage = m_patternImage;
}

}
