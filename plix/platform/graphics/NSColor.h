#pragma once

#include <plix/platform/base/Class.h>
#include <plix/platform/graphics/Forward.h>
#include <plix/platform/graphics/color_components.h>

#include <array>
#include <cstdint>
#include <string_view>

namespace plix {

// Names of colour spaces.
inline constexpr std::string_view NSCalibratedWhiteColorSpace = "NSCalibratedWhiteColorSpace";
inline constexpr std::string_view NSCalibratedBlackColorSpace = "NSCalibratedBlackColorSpace";
inline constexpr std::string_view NSCalibratedRGBColorSpace = "NSCalibratedRGBColorSpace";
inline constexpr std::string_view NSDeviceWhiteColorSpace = "NSDeviceWhiteColorSpace";
inline constexpr std::string_view NSDeviceBlackColorSpace = "NSDeviceBlackColorSpace";
inline constexpr std::string_view NSDeviceRGBColorSpace = "NSDeviceRGBColorSpace";
inline constexpr std::string_view NSNamedColorSpace = "NSNamedColorSpace";
inline constexpr std::string_view NSPatternColorSpace = "NSPatternColorSpace";

/// A colour that never changes: in one of the white or RGB spaces, named (a system colour, whose components follow the appearance),
/// or a pattern. Calibrated and device spaces agree, since one RGB space lies underneath; components are clamped to 0..1.
/// Component accessors convert where the platform would raise; a pattern reads as transparent black.
class PLIX_EXPORT NSColor : public NSObject {
    PLIX_CLASS(NSColor, NSObject);

public:
    // New colours; components from 0 to 1, the hue too.
    static Ref<NSColor> colorWithCalibratedWhite(float white, float alpha);
    static Ref<NSColor> colorWithCalibratedRed(float red, float green, float blue, float alpha);
    static Ref<NSColor> colorWithCalibratedHue(float hue, float saturation, float brightness, float alpha);
    static Ref<NSColor> colorWithDeviceWhite(float white, float alpha);
    static Ref<NSColor> colorWithDeviceRed(float red, float green, float blue, float alpha);
    static Ref<NSColor> colorWithDeviceHue(float hue, float saturation, float brightness, float alpha);
    /// Repeats the image from the lower left corner of the window or image that is drawn into. Keeps the image.
    static Ref<NSColor> colorWithPatternImage(Ref<NSImage> const&);
    /// The system colour of that name ("controlTextColor"), or null.
    static Ref<NSColor> colorWithCatalogName(std::string_view listName, std::string_view colorName);

    // Calibrated, made once.
    static Ref<NSColor> blackColor();
    static Ref<NSColor> darkGrayColor(); ///< 1/3 white
    static Ref<NSColor> lightGrayColor(); ///< 2/3 white
    static Ref<NSColor> whiteColor();
    static Ref<NSColor> grayColor();
    static Ref<NSColor> redColor();
    static Ref<NSColor> greenColor();
    static Ref<NSColor> blueColor();
    static Ref<NSColor> cyanColor();
    static Ref<NSColor> yellowColor();
    static Ref<NSColor> magentaColor();
    static Ref<NSColor> orangeColor();
    static Ref<NSColor> purpleColor();
    static Ref<NSColor> brownColor();
    static Ref<NSColor> clearColor();

    // System colours, made once; what they look like follows the appearance.
    static Ref<NSColor> controlShadowColor();
    static Ref<NSColor> controlDarkShadowColor();
    static Ref<NSColor> controlColor();
    static Ref<NSColor> controlHighlightColor();
    static Ref<NSColor> controlLightHighlightColor();
    static Ref<NSColor> controlTextColor();
    static Ref<NSColor> controlBackgroundColor();
    static Ref<NSColor> selectedControlColor();
    static Ref<NSColor> secondarySelectedControlColor();
    static Ref<NSColor> selectedControlTextColor();
    static Ref<NSColor> disabledControlTextColor();
    static Ref<NSColor> textColor();
    static Ref<NSColor> textBackgroundColor();
    static Ref<NSColor> selectedTextColor();
    static Ref<NSColor> selectedTextBackgroundColor();
    static Ref<NSColor> gridColor();
    static Ref<NSColor> keyboardFocusIndicatorColor();
    static Ref<NSColor> windowBackgroundColor();
    static Ref<NSColor> scrollBarColor();
    static Ref<NSColor> knobColor();
    static Ref<NSColor> selectedKnobColor();
    static Ref<NSColor> windowFrameColor();
    static Ref<NSColor> windowFrameTextColor();
    static Ref<NSColor> selectedMenuItemColor();
    static Ref<NSColor> selectedMenuItemTextColor();
    static Ref<NSColor> highlightColor();
    static Ref<NSColor> shadowColor();
    static Ref<NSColor> headerColor();
    static Ref<NSColor> headerTextColor();
    /// The user's highlight colour.
    static Ref<NSColor> alternateSelectedControlColor();
    static Ref<NSColor> alternateSelectedControlTextColor();
    /// For alternating rows: the even rows' colour, then the odd rows'.
    static std::array<Ref<NSColor>, 2> controlAlternatingRowBackgroundColors();

    /// What alternateSelectedControlColor and the selection colours derived from it look like; null goes back to the default.
    static void setUserHighlightColor(Ref<NSColor> const&);

    /// One of the names above.
    std::string_view colorSpaceName() const;
    /// "System" and the name of a named colour; empty for others.
    std::string_view catalogNameComponent() const;
    std::string_view colorNameComponent() const { return m_name; }
    /// Null for a space there is no way to, such as out of a pattern. The same object where it is in that space already.
    Ref<NSColor> colorUsingColorSpaceName(std::string_view name) const;

    // Components from 0 to 1.
    float redComponent() const { return components().red; }
    float greenComponent() const { return components().green; }
    float blueComponent() const { return components().blue; }
    float alphaComponent() const { return components().alpha; }
    float whiteComponent() const { return components().white(); }
    float hueComponent() const { return hueOfColor(components()).hue; }
    float saturationComponent() const { return hueOfColor(components()).saturation; }
    float brightnessComponent() const { return hueOfColor(components()).brightness; }
    void getRed(float& red, float& green, float& blue, float& alpha) const;
    void getHue(float& hue, float& saturation, float& brightness, float& alpha) const;
    void getWhite(float& white, float& alpha) const;
    /// What is drawn now: of a named colour under the current appearance.
    ColorComponents components() const;

    /// Null for what is no pattern.
    NSImage* patternImage() const { return m_patternImage.get(); }

    /// The colour itself with another alpha; a pattern stays as it is. The same object where nothing changes.
    Ref<NSColor> colorWithAlphaComponent(float alpha) const;
    /// `fraction` of the other colour, the rest of this one, in calibrated RGB. Null where either is a pattern.
    Ref<NSColor> blendedColorWithFraction(float fraction, NSColor const& other) const;
    /// Mixed with white or black. A `level` of 0 changes nothing.
    Ref<NSColor> highlightWithLevel(float level) const;
    Ref<NSColor> shadowWithLevel(float level) const;

    /// Becomes the current context's fill and stroke colour, or one of them. Nothing without a current context.
    void set() const;
    void setFill() const;
    void setStroke() const;
    void drawSwatchInRect(Rect) const;

    bool init() { return true; }
    /// A named color that is unknown is refused.
    bool init(NSCoder&);
    void encodeWithCoder(NSCoder&) const override;

    // NSObject:
    bool isEqual(NSObject const* other) const override;
    std::size_t hash() const override;
    std::string description() const override;

    NSColor();
    ~NSColor() override;

private:
    enum class Space : std::uint8_t { calibratedWhite, deviceWhite, calibratedRGB, deviceRGB, named, pattern };

    static Ref<NSColor> colorIn(Space, ColorComponents);
    static Ref<NSColor> systemColor(int index);
    bool isWhite() const { return m_space == Space::calibratedWhite || m_space == Space::deviceWhite; }
    void copyStateTo(NSObject& fresh) const override;

    Space m_space { Space::calibratedWhite };
    ColorComponents m_components { 0, 0, 0, 0 };
    int m_systemColor { -1 };
    std::string_view m_name;
    Ref<NSImage> m_patternImage;
};

}
