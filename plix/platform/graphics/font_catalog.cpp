#include <plix/platform/graphics/font_catalog.h>

#include <algorithm>
#include <cstdlib>
#include <pango/pangofc-fontmap.h>

namespace plix {

namespace {

// Where distributions keep these families. A directory that is not there does no harm.
constexpr char configurationText[] = R"(<?xml version="1.0"?>
<!DOCTYPE fontconfig SYSTEM "urn:fontconfig:fonts.dtd">
<fontconfig>
  <dir>/usr/share/fonts/opentype/inter</dir>
  <dir>/usr/share/fonts/truetype/inter</dir>
  <dir>/usr/share/fonts/rsms-inter-fonts</dir>
  <dir>/usr/share/fonts/truetype/dejavu</dir>
  <dir>/usr/share/fonts/dejavu-sans-fonts</dir>
  <dir>/usr/share/fonts/dejavu-sans-mono-fonts</dir>
  <cachedir>/var/cache/fontconfig</cachedir>
  <cachedir prefix="xdg">fontconfig</cachedir>
</fontconfig>)";

Handle<FcConfig> makeConfiguration()
{
    Handle<FcConfig> configuration(FcConfigCreate());
    FcConfigParseAndLoadFromMemory(configuration.get(), reinterpret_cast<FcChar8 const*>(configurationText), FcTrue);
    FcConfigBuildFonts(configuration.get());
    return configuration;
}

Handle<PangoFontMap> makeFontMap(FcConfig* configuration)
{
    // A new font map makes Pango load the user's configuration in the background, which costs more than all of this. While
    // ours is current it does not.
    FcConfigSetCurrent(configuration);
    Handle<PangoFontMap> map(pango_cairo_font_map_new_for_font_type(CAIRO_FONT_TYPE_FT));
    pango_fc_font_map_set_config(PANGO_FC_FONT_MAP(map.get()), configuration);
    FcConfigSetCurrent(nullptr);
    pango_cairo_font_map_set_resolution(PANGO_CAIRO_FONT_MAP(map.get()), 72);
    return map;
}

// Without hints a width is the same at every scale; whole advances keep the spacing even.
Handle<PangoContext> makeContext(PangoFontMap* map, PangoDirection direction)
{
    Handle<PangoContext> context(pango_font_map_create_context(map));
    Handle<cairo_font_options_t> options(cairo_font_options_create());
    cairo_font_options_set_antialias(options.get(), CAIRO_ANTIALIAS_GRAY);
    cairo_font_options_set_hint_style(options.get(), CAIRO_HINT_STYLE_NONE);
    cairo_font_options_set_hint_metrics(options.get(), CAIRO_HINT_METRICS_OFF);
    pango_cairo_context_set_font_options(context.get(), options.get());
    pango_context_set_language(context.get(), pango_language_from_string("en"));
    pango_context_set_base_dir(context.get(), direction);
    pango_context_set_round_glyph_positions(context.get(), TRUE);
    return context;
}

std::string text(FcPattern const* pattern, char const* object)
{
    FcChar8* value = nullptr;
    if (FcPatternGetString(pattern, object, 0, &value) != FcResultMatch)
        return {};
    return reinterpret_cast<char const*>(value);
}

int number(FcPattern const* pattern, char const* object, int otherwise)
{
    int value = 0;
    return FcPatternGetInteger(pattern, object, 0, &value) == FcResultMatch ? value : otherwise;
}

}

FontCatalog& FontCatalog::shared()
{
    static auto& s_catalog = *new FontCatalog;
    return s_catalog;
}

FontCatalog::FontCatalog()
    : m_configuration(makeConfiguration())
    , m_map(makeFontMap(m_configuration.get()))
    , m_context(makeContext(m_map.get(), PANGO_DIRECTION_WEAK_LTR))
{
    m_missing.family = m_missing.fullName = m_missing.postScriptName = interfaceFamily;
    listMembers();
}

PangoContext* FontCatalog::context(PangoDirection direction)
{
    auto& context = direction == PANGO_DIRECTION_RTL ? m_rightToLeftContext : m_leftToRightContext;
    if (!context)
        context = makeContext(m_map.get(), direction);
    return context.get();
}

void FontCatalog::listMembers()
{
    FcFontSet const* fonts = FcConfigGetFonts(m_configuration.get(), FcSetSystem);
    for (int i = 0; fonts && i < fonts->nfont; ++i) {
        FcPattern const* pattern = fonts->fonts[i];
        FontMember member;
        member.family = text(pattern, FC_FAMILY);
        member.fullName = text(pattern, FC_FULLNAME);
        member.postScriptName = text(pattern, FC_POSTSCRIPT_NAME);
        member.weight = FcWeightToOpenType(number(pattern, FC_WEIGHT, FC_WEIGHT_REGULAR));
        member.width = number(pattern, FC_WIDTH, FC_WIDTH_NORMAL);
        member.isItalic = number(pattern, FC_SLANT, FC_SLANT_ROMAN) != FC_SLANT_ROMAN;
        member.isFixedPitch = number(pattern, FC_SPACING, FC_PROPORTIONAL) >= FC_DUAL;
        if (!member.family.empty() && !member.postScriptName.empty())
            m_members.push_back(std::move(member));
    }
    auto const byName = [](FontMember const& a, FontMember const& b) { return a.postScriptName < b.postScriptName; };
    std::sort(m_members.begin(), m_members.end(), byName);
    auto const isSame = [](FontMember const& a, FontMember const& b) { return a.postScriptName == b.postScriptName; };
    m_members.erase(std::unique(m_members.begin(), m_members.end(), isSame), m_members.end());
}

FontMember const* FontCatalog::memberNamed(std::string_view name) const
{
    for (auto const& member : m_members) {
        if (member.postScriptName == name)
            return &member;
    }
    for (auto const& member : m_members) {
        if (member.fullName == name && member.family != name)
            return &member;
    }
    return memberOfFamily(name, 400, false, 100);
}

FontMember const* FontCatalog::memberOfFamily(std::string_view family, int weight, bool isItalic, int width) const
{
    FontMember const* best = nullptr;
    int bestDistance = 0;
    for (auto const& member : m_members) {
        if (member.family != family || member.isItalic != isItalic)
            continue;
        int const distance = std::abs(member.width - width) * 1000 + std::abs(member.weight - weight);
        if (best && distance >= bestDistance)
            continue;
        best = &member;
        bestDistance = distance;
    }
    return best;
}

FontMember const& FontCatalog::interfaceMember(int weight) const
{
    for (auto const* family : { interfaceFamily, fallbackFamily }) {
        if (auto const* member = memberOfFamily(family, weight, false, 100))
            return *member;
    }
    return m_members.empty() ? m_missing : m_members.front();
}

FontMember const& FontCatalog::fixedPitchMember() const
{
    auto const* member = memberOfFamily(fixedPitchFamily, 400, false, 100);
    return member ? *member : interfaceMember(400);
}

Handle<PangoFontDescription> FontCatalog::description(FontMember const& member, float size) const
{
    Handle<PangoFontDescription> description(pango_font_description_new());
    std::string families = member.family;
    for (auto const* family : { interfaceFamily, fallbackFamily }) {
        if (member.family != family)
            families += std::string(",") + family;
    }
    pango_font_description_set_family(description.get(), families.c_str());
    pango_font_description_set_weight(description.get(), static_cast<PangoWeight>(member.weight));
    pango_font_description_set_style(description.get(), member.isItalic ? PANGO_STYLE_ITALIC : PANGO_STYLE_NORMAL);
    if (member.width < 100)
        pango_font_description_set_stretch(description.get(), PANGO_STRETCH_SEMI_CONDENSED);
    pango_font_description_set_absolute_size(description.get(), static_cast<double>(size) * PANGO_SCALE);
    return description;
}

}
