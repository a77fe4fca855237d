#pragma once

#include <plix/platform/base/Class.h>
#include <plix/platform/graphics/Forward.h>

#include <string>
#include <string_view>
#include <vector>

namespace plix {

/// A set of bits.
using NSFontTraitMask = unsigned;

// Traits; the bits are joined.
inline constexpr NSFontTraitMask NSItalicFontMask = 0x00000001;
inline constexpr NSFontTraitMask NSBoldFontMask = 0x00000002;
inline constexpr NSFontTraitMask NSUnboldFontMask = 0x00000004;
inline constexpr NSFontTraitMask NSNarrowFontMask = 0x00000010;
inline constexpr NSFontTraitMask NSExpandedFontMask = 0x00000020;
inline constexpr NSFontTraitMask NSCondensedFontMask = 0x00000040;
inline constexpr NSFontTraitMask NSFixedPitchFontMask = 0x00000400;
inline constexpr NSFontTraitMask NSUnitalicFontMask = 0x01000000;

/// Finds fonts and turns them into their relatives. A conversion that there is no font for answers the font it was given.
class PLIX_EXPORT NSFontManager : public NSObject {
    PLIX_CLASS(NSFontManager, NSObject);

public:
    /// The one there is.
    static NSFontManager& sharedFontManager();

    /// In alphabetical order.
    std::vector<std::string> const& availableFontFamilies() const;
    /// PostScript names in alphabetical order.
    std::vector<std::string> const& availableFonts() const;

    /// The traits that the font has.
    NSFontTraitMask traitsOfFont(NSFont const&) const;
    /// 0 to 15; 5 is regular, 9 bold.
    int weightOfFont(NSFont const&) const;

    /// With one trait more, or one less for the unbold and unitalic masks.
    Ref<NSFont> convertFontToHaveTrait(NSFont const&, NSFontTraitMask) const;
    Ref<NSFont> convertFontToNotHaveTrait(NSFont const&, NSFontTraitMask) const;
    Ref<NSFont> convertFontToSize(NSFont const&, float size) const;
    Ref<NSFont> convertFontToFamily(NSFont const&, std::string_view family) const;
    Ref<NSFont> convertFontToFace(NSFont const&, std::string_view fontName) const;
    /// One step bolder or lighter, among the family's weights.
    Ref<NSFont> convertWeight(bool isUp, NSFont const&) const;

    /// The member of the family with exactly these traits whose weight is nearest; null where the family is not there.
    Ref<NSFont> fontWithFamily(std::string_view family, NSFontTraitMask traits, int weight, float size) const;
};

}
