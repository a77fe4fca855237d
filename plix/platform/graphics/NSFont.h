#pragma once

#include <plix/platform/base/Class.h>
#include <plix/platform/graphics/control_size.h>
#include <plix/platform/graphics/geometry.h>

#include <memory>
#include <string>
#include <string_view>

namespace plix {

class FontFace;

/// A typeface at a size in points, in the text system's own set of fonts: what the user has configured changes nothing. Fonts never
/// change and are interned: equal fonts are the same object as long as one of them is held. Metrics are in points, the same at
/// every backing scale.
class PLIX_EXPORT NSFont final : public NSObject {
    PLIX_CLASS(NSFont, NSObject);

public:
    // A size of 0 or less, or that is no number, gives the default size of that kind.
    static Ref<NSFont> systemFontOfSize(float size);
    static Ref<NSFont> boldSystemFontOfSize(float size);
    static Ref<NSFont> userFontOfSize(float size);
    static Ref<NSFont> userFixedPitchFontOfSize(float size);
    static Ref<NSFont> labelFontOfSize(float size);
    static Ref<NSFont> messageFontOfSize(float size);
    static Ref<NSFont> menuFontOfSize(float size);
    static Ref<NSFont> menuBarFontOfSize(float size);
    static Ref<NSFont> titleBarFontOfSize(float size);
    static Ref<NSFont> paletteFontOfSize(float size);
    static Ref<NSFont> toolTipsFontOfSize(float size);
    static Ref<NSFont> controlContentFontOfSize(float size);

    // Sizes in points.
    static constexpr float systemFontSize() { return 13; }
    static constexpr float smallSystemFontSize() { return 11; }
    static constexpr float labelFontSize() { return 10; }
    static constexpr float systemFontSizeForControlSize(NSControlSize size)
    {
        return size == NSRegularControlSize ? 13.0F : size == NSSmallControlSize ? 11.0F : 9.0F;
    }

    /// By PostScript name ("Inter-Bold"), full name ("Inter Bold") or family ("Inter"); null for one that is not there.
    static Ref<NSFont> fontWithName(std::string_view name, float size);

    /// The PostScript name.
    std::string const& fontName() const;
    /// "Inter Bold".
    std::string const& displayName() const;
    std::string const& familyName() const;
    float pointSize() const { return m_size; }
    bool isFixedPitch() const;

    /// Above the baseline.
    float ascender() const;
    /// Below the baseline, as a negative number.
    float descender() const;
    /// Between the lines, beyond ascender and descender.
    float leading() const;
    float capHeight() const;
    float xHeight() const;
    float italicAngle() const;
    float underlinePosition() const;
    float underlineThickness() const;
    Rect boundingRectForFont() const;
    Size maximumAdvancement() const;
    /// The height of a line of this font as it is laid out: ascender and descender each rounded to whole points, and the leading.
    float defaultLineHeightForFont() const;
    /// How far the text advances on one line, kerning and replacement fonts included.
    float widthOfString(std::string_view text) const;

    /// Sets nothing by itself; text takes its font from its attributes.
    void set() const;

    /// What shapes and draws with it; lives as long as the font. For the graphics folder's own sources.
    FontFace& face() const { return *m_face; }

    using NSObject::init;
    /// The system font where there is none of that name any more.
    bool init(NSCoder&);
    void encodeWithCoder(NSCoder&) const override;

    // NSObject:
    bool isEqual(NSObject const* other) const override;
    std::size_t hash() const override;
    std::string description() const override;

    NSFont();
    ~NSFont() override;

private:
    friend class FontTable;
    void copyStateTo(NSObject& fresh) const override;

    float m_size { 0 };
    std::shared_ptr<FontFace> m_face;
};

}
