#include <plix/platform/graphics/NSFontManager.h>

#include <plix/platform/graphics/FontFace.h>
#include <plix/platform/graphics/font_table.h>

#include <algorithm>
#include <array>
#include <cstdlib>

namespace plix {

namespace {

constexpr int regularWeight = 400;
constexpr int boldWeight = 700;
constexpr int condensedWidth = 87;

// The platform's weights for 100, 200 and so on; 5 is regular, 9 bold.
constexpr std::array<int, 10> platformWeights { 2, 3, 4, 5, 6, 8, 9, 10, 11, 12 };

int platformWeight(int weight)
{
    int const hundreds = std::clamp((weight + 50) / 100, 1, 10);
    return platformWeights[static_cast<std::size_t>(hundreds - 1)];
}

int weightOfPlatform(int platform)
{
    auto const nearer = [platform](int a, int b) { return std::abs(a - platform) < std::abs(b - platform); };
    auto const found = std::min_element(platformWeights.begin(), platformWeights.end(), nearer);
    return static_cast<int>(found - platformWeights.begin() + 1) * 100;
}

Ref<NSFont> converted(NSFont const& font, FontMember const* member)
{
    if (!member || member == &font.face().member())
        return const_cast<NSFont*>(&font);
    return FontTable::shared().font(*member, font.pointSize());
}

FontMember const* relative(FontMember const& member, int weight, bool isItalic, int width)
{
    return FontCatalog::shared().memberOfFamily(member.family, weight, isItalic, width);
}

}

PLIX_DESCRIBE(NSFontManager)
{
}

NSFontManager& NSFontManager::sharedFontManager()
{
    static auto& s_manager = *make<NSFontManager>().leak();
    return s_manager;
}

std::vector<std::string> const& NSFontManager::availableFontFamilies() const
{
    static auto const& s_families = *[] {
        auto* families = new std::vector<std::string>;
        for (auto const& member : FontCatalog::shared().members())
            families->push_back(member.family);
        std::sort(families->begin(), families->end());
        families->erase(std::unique(families->begin(), families->end()), families->end());
        return families;
    }();
    return s_families;
}

std::vector<std::string> const& NSFontManager::availableFonts() const
{
    static auto const& s_names = *[] {
        auto* names = new std::vector<std::string>;
        for (auto const& member : FontCatalog::shared().members())
            names->push_back(member.postScriptName);
        return names;
    }();
    return s_names;
}

NSFontTraitMask NSFontManager::traitsOfFont(NSFont const& font) const
{
    auto const& member = font.face().member();
    return (member.isItalic ? NSItalicFontMask : 0) | (member.isBold() ? NSBoldFontMask : 0)
        | (member.isFixedPitch ? NSFixedPitchFontMask : 0) | (member.width < 100 ? NSCondensedFontMask : 0);
}

int NSFontManager::weightOfFont(NSFont const& font) const
{
    return platformWeight(font.face().member().weight);
}

Ref<NSFont> NSFontManager::convertFontToHaveTrait(NSFont const& font, NSFontTraitMask trait) const
{
    auto const& member = font.face().member();
    int weight = member.weight;
    if ((trait & NSBoldFontMask) && !member.isBold())
        weight = boldWeight;
    else if ((trait & NSUnboldFontMask) && member.isBold())
        weight = regularWeight;
    bool const isItalic = (trait & NSItalicFontMask) || (member.isItalic && !(trait & NSUnitalicFontMask));
    int const width = trait & (NSCondensedFontMask | NSNarrowFontMask) ? condensedWidth
        : trait & NSExpandedFontMask                                   ? 100
                                                                       : member.width;
    if ((trait & NSFixedPitchFontMask) && !member.isFixedPitch) {
        auto const& fixed = FontCatalog::shared().fixedPitchMember();
        return converted(font, relative(fixed, weight, isItalic, width));
    }
    return converted(font, relative(member, weight, isItalic, width));
}

Ref<NSFont> NSFontManager::convertFontToNotHaveTrait(NSFont const& font, NSFontTraitMask trait) const
{
    auto const& member = font.face().member();
    int const weight = (trait & NSBoldFontMask) && member.isBold() ? regularWeight : member.weight;
    bool const isItalic = member.isItalic && !(trait & NSItalicFontMask);
    int const width = trait & (NSCondensedFontMask | NSNarrowFontMask) ? 100 : member.width;
    if ((trait & NSFixedPitchFontMask) && member.isFixedPitch)
        return converted(font, relative(FontCatalog::shared().interfaceMember(weight), weight, isItalic, width));
    return converted(font, relative(member, weight, isItalic, width));
}

Ref<NSFont> NSFontManager::convertFontToSize(NSFont const& font, float size) const
{
    return FontTable::shared().font(font.face().member(), size > 0 ? size : font.pointSize());
}

Ref<NSFont> NSFontManager::convertFontToFamily(NSFont const& font, std::string_view family) const
{
    auto const& member = font.face().member();
    return converted(font, FontCatalog::shared().memberOfFamily(family, member.weight, member.isItalic, member.width));
}

Ref<NSFont> NSFontManager::convertFontToFace(NSFont const& font, std::string_view fontName) const
{
    return converted(font, FontCatalog::shared().memberNamed(fontName));
}

Ref<NSFont> NSFontManager::convertWeight(bool isUp, NSFont const& font) const
{
    auto const& member = font.face().member();
    FontMember const* next = nullptr;
    for (auto const& other : FontCatalog::shared().members()) {
        if (other.family != member.family || other.isItalic != member.isItalic || other.width != member.width)
            continue;
        bool const isFurther = isUp ? other.weight > member.weight : other.weight < member.weight;
        if (isFurther && (!next || std::abs(other.weight - member.weight) < std::abs(next->weight - member.weight)))
            next = &other;
    }
    return converted(font, next);
}

Ref<NSFont> NSFontManager::fontWithFamily(std::string_view family, NSFontTraitMask traits, int weight, float size) const
{
    // Weight counts only where the traits do not say bold.
    int const wanted = traits & NSBoldFontMask ? std::max(boldWeight, weightOfPlatform(weight)) : weightOfPlatform(weight);
    int const width = traits & (NSCondensedFontMask | NSNarrowFontMask) ? condensedWidth : 100;
    auto const* member = FontCatalog::shared().memberOfFamily(family, wanted, (traits & NSItalicFontMask) != 0, width);
    return member ? FontTable::shared().font(*member, size > 0 ? size : NSFont::systemFontSize()) : nullptr;
}

}
