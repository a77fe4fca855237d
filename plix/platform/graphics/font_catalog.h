#pragma once

#include <plix/platform/graphics/text_handles.h>

#include <string>
#include <string_view>
#include <vector>

// Private to plix/platform/graphics.

namespace plix {

/// A font file's face, as the catalogue lists it.
struct FontMember {
    std::string family;
    std::string fullName;
    std::string postScriptName;
    int weight { 400 }; ///< 100 to 1000, 400 regular, 700 bold
    int width { 100 }; ///< in percent
    bool isItalic { false };
    bool isFixedPitch { false };

    bool isBold() const { return weight >= 600; }
};

/// The fonts there are: Inter for the interface, the DejaVu family behind it, in a configuration of our own, so that nothing the
/// user has configured changes a metric. Set up when first asked for.
class FontCatalog {
public:
    static FontCatalog& shared();
    FontCatalog(FontCatalog const&) = delete;
    FontCatalog& operator=(FontCatalog const&) = delete;

    static constexpr char const interfaceFamily[] = "Inter";
    static constexpr char const fallbackFamily[] = "DejaVu Sans";
    static constexpr char const fixedPitchFamily[] = "DejaVu Sans Mono";

    /// For text that goes where its first character with a direction goes.
    PangoContext* context() const { return m_context.get(); }
    /// For text that goes this way whatever its characters are.
    PangoContext* context(PangoDirection);
    PangoFontMap* fontMap() const { return m_map.get(); }

    /// Ordered by PostScript name. The members live as long as the catalogue.
    std::vector<FontMember> const& members() const { return m_members; }
    /// By PostScript name, full name or family, which gives its regular member; null for none.
    FontMember const* memberNamed(std::string_view name) const;
    /// Of the family's members with this slant, the nearest in weight and width; null where there is none.
    FontMember const* memberOfFamily(std::string_view family, int weight, bool isItalic, int width) const;
    /// The interface family's, or the nearest there is. Fonts that are nowhere on the machine are an empty regular member.
    FontMember const& interfaceMember(int weight) const;
    FontMember const& fixedPitchMember() const;

    /// Describes the member and what stands behind it for characters that it lacks.
    Handle<PangoFontDescription> description(FontMember const&, float size) const;

private:
    FontCatalog();
    ~FontCatalog() = default;
    void listMembers();

    Handle<FcConfig> m_configuration;
    Handle<PangoFontMap> m_map;
    Handle<PangoContext> m_context;
    Handle<PangoContext> m_leftToRightContext;
    Handle<PangoContext> m_rightToLeftContext;
    std::vector<FontMember> m_members;
    FontMember m_missing;
};

}
