#include <plix/platform/graphics/simple_text.h>

#include <plix/platform/graphics/FontFace.h>

#include <algorithm>
#include <hb-ot.h>
#include <iterator>
#include <string>
#include <unordered_map>
#include <vector>

namespace plix {

namespace simple_characters {

namespace {

constexpr int firstLatin1 = 95;
constexpr int firstPunctuation = firstLatin1 + 95;
constexpr std::array<char32_t, 14> punctuation { 0x2013, 0x2014, 0x2018, 0x2019, 0x201A, 0x201C, 0x201D, 0x201E, 0x2022, 0x2026,
    0x2039, 0x203A, 0x20AC, 0x2122 };
constexpr char32_t softHyphen = 0xAD;

int slotOfLatin1(char32_t character)
{
    if (character < 0xA0 || character == softHyphen)
        return none;
    return firstLatin1 + static_cast<int>(character) - 0xA0 - (character > softHyphen ? 1 : 0);
}

}

char32_t characterOfSlot(int slot)
{
    if (slot < firstLatin1)
        return static_cast<char32_t>(slot + 0x20);
    if (slot >= firstPunctuation)
        return punctuation[static_cast<std::size_t>(slot - firstPunctuation)];
    auto const character = static_cast<char32_t>(slot - firstLatin1 + 0xA0);
    return character >= softHyphen ? character + 1 : character;
}

bool isLetter(int slot)
{
    auto const character = characterOfSlot(slot);
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z')
        || (character >= 0xC0 && character <= 0xFF && character != 0xD7 && character != 0xF7);
}

int slotBeyondASCII(char const*& cursor, char const* end)
{
    auto const at = [&](int index) { return static_cast<unsigned char>(cursor[index]); };
    if ((at(0) == 0xC2 || at(0) == 0xC3) && end - cursor >= 2 && (at(1) & 0xC0) == 0x80) {
        auto const character = static_cast<char32_t>((at(0) & 0x1F) << 6 | (at(1) & 0x3F));
        cursor += 2;
        return slotOfLatin1(character);
    }
    if (at(0) == 0xE2 && end - cursor >= 3 && (at(1) & 0xC0) == 0x80 && (at(2) & 0xC0) == 0x80) {
        auto const character = static_cast<char32_t>(0x2000 | (at(1) & 0x3F) << 6 | (at(2) & 0x3F));
        auto const found = std::find(punctuation.begin(), punctuation.end(), character);
        cursor += 3;
        return found == punctuation.end() ? none : firstPunctuation + static_cast<int>(found - punctuation.begin());
    }
    return none;
}

}

namespace {

using namespace simple_characters;

// Reading a font's rules costs as much as shaping some labels: not for a font that sets only a few.
constexpr int textsBeforeRules = 48;

// Not in force unless the text has a fraction slash, which no simple text has.
constexpr hb_tag_t fractionFeatures[] { HB_TAG('f', 'r', 'a', 'c'), HB_TAG('n', 'u', 'm', 'r'), HB_TAG('d', 'n', 'o', 'm'), 0 };
constexpr hb_tag_t substitutionFeatures[] { HB_TAG('r', 'v', 'r', 'n'), HB_TAG('c', 'c', 'm', 'p'), HB_TAG('l', 'o', 'c', 'l'),
    HB_TAG('r', 'l', 'i', 'g'), HB_TAG('c', 'a', 'l', 't'), HB_TAG('c', 'l', 'i', 'g'), HB_TAG('l', 'i', 'g', 'a'),
    HB_TAG('r', 'c', 'l', 't'), 0 };
constexpr hb_tag_t markFeatures[] { HB_TAG('m', 'a', 'r', 'k'), HB_TAG('m', 'k', 'm', 'k'), HB_TAG('a', 'b', 'v', 'm'),
    HB_TAG('b', 'l', 'w', 'm'), 0 };

Handle<hb_set_t> lookupsOfFeatures(hb_face_t* face, hb_tag_t table, hb_tag_t const* features)
{
    Handle<hb_set_t> lookups(hb_set_create());
    hb_ot_layout_collect_lookups(face, table, nullptr, nullptr, features, lookups.get());
    return lookups;
}

std::vector<unsigned> numbersIn(hb_set_t const* set)
{
    std::vector<unsigned> numbers;
    for (hb_codepoint_t number = HB_SET_VALUE_INVALID; hb_set_next(set, &number);)
        numbers.push_back(number);
    return numbers;
}

std::vector<unsigned> lookupsOfPlan(hb_face_t* face, hb_script_t script, hb_tag_t table)
{
    hb_segment_properties_t properties = HB_SEGMENT_PROPERTIES_DEFAULT;
    properties.direction = HB_DIRECTION_LTR;
    properties.script = script;
    properties.language = hb_language_from_string("en", -1);
    auto* plan = hb_shape_plan_create_cached(face, &properties, nullptr, 0, nullptr);
    Handle<hb_set_t> const lookups(hb_set_create());
    hb_ot_shape_plan_collect_lookups(plan, table, lookups.get());
    hb_shape_plan_destroy(plan);
    if (table == HB_OT_TAG_GSUB) {
        auto const fractions = lookupsOfFeatures(face, table, fractionFeatures);
        hb_set_subtract(fractions.get(), lookupsOfFeatures(face, table, substitutionFeatures).get());
        hb_set_subtract(lookups.get(), fractions.get());
    }
    return numbersIn(lookups.get());
}

std::vector<std::uint32_t> idleFeaturesOf(hb_face_t* face, GlyphRules const& rules)
{
    std::vector<std::uint32_t> idle;
    for (auto const* feature = fractionFeatures; *feature; ++feature)
        idle.push_back(*feature);
    auto const firstLive = rules.liveSubstitutions.empty() ? HB_SET_VALUE_INVALID : rules.liveSubstitutions.front();
    for (auto const* feature = substitutionFeatures; *feature; ++feature) {
        hb_tag_t const alone[] { *feature, 0 };
        auto const lookups = numbersIn(lookupsOfFeatures(face, HB_OT_TAG_GSUB, alone).get());
        if (!lookups.empty() && lookups.back() < firstLive)
            idle.push_back(*feature);
    }
    if (rules.livePositionings.empty())
        idle.insert(idle.end(), std::begin(markFeatures), std::end(markFeatures) - 1);
    return idle;
}

std::shared_ptr<SimpleTextRules const> rulesOfFace(hb_face_t* face, std::span<std::uint32_t const> glyphs)
{
    auto const substitutions = lookupsOfPlan(face, HB_SCRIPT_LATIN, HB_OT_TAG_GSUB);
    auto const positionings = lookupsOfPlan(face, HB_SCRIPT_LATIN, HB_OT_TAG_GPOS);
    auto result = std::make_shared<SimpleTextRules>();
    result->needsLetter = substitutions != lookupsOfPlan(face, HB_SCRIPT_COMMON, HB_OT_TAG_GSUB)
        || positionings != lookupsOfPlan(face, HB_SCRIPT_COMMON, HB_OT_TAG_GPOS);
    Handle<hb_blob_t> const gsub(hb_face_reference_table(face, HB_OT_TAG_GSUB));
    Handle<hb_blob_t> const gpos(hb_face_reference_table(face, HB_OT_TAG_GPOS));
    auto const bytes = [](hb_blob_t* blob) {
        unsigned length = 0;
        auto const* data = hb_blob_get_data(blob, &length);
        return std::span(reinterpret_cast<std::uint8_t const*>(data), length);
    };
    result->glyphs = readGlyphRules(bytes(gsub.get()), substitutions, bytes(gpos.get()), positionings, glyphs);
    if (!result->glyphs.alone.all() && !result->needsLetter)
        result->idleFeatures = idleFeaturesOf(face, result->glyphs);
    return result;
}

/// A family member's rules serve all its sizes.
std::shared_ptr<SimpleTextRules const> rulesOfMember(FontFace& font, std::span<std::uint32_t const> glyphs)
{
    static auto& s_rules = *new std::unordered_map<FontMember const*, std::shared_ptr<SimpleTextRules const>>;
    auto& rules = s_rules[&font.member()];
    if (!rules)
        rules = rulesOfFace(hb_font_get_face(font.glyphs()->shapingFont()), glyphs);
    return rules;
}

}

SimpleTextTable::SimpleTextTable()
{
    m_advances.fill(unknown);
}

SimpleTextTable::~SimpleTextTable() = default;

void SimpleTextTable::readGlyphs(FontFace& font)
{
    m_hasGlyphs = true;
    for (int slot = 0; slot < slotCount; ++slot) {
        hb_codepoint_t glyph = 0;
        hb_font_get_nominal_glyph(font.glyphs()->shapingFont(), characterOfSlot(slot), &glyph);
        m_glyphs[static_cast<std::size_t>(slot)] = glyph;
    }
}

void SimpleTextTable::readRules(FontFace& font)
{
    m_rules = rulesOfMember(font, m_glyphs);
    m_needsLetter = m_rules->needsLetter;
    for (std::size_t slot = 0; slot < m_glyphs.size(); ++slot) {
        if (m_glyphs[slot] == 0 || m_rules->glyphs.alone[slot])
            continue;
        auto const advance
            = PANGO_UNITS_ROUND(hb_font_get_glyph_h_advance(font.glyphs()->shapingFont(), m_glyphs[slot])) / PANGO_SCALE;
        if (advance >= 0 && advance <= INT16_MAX)
            m_advances[slot] = static_cast<std::int16_t>(advance);
    }
}

bool SimpleTextTable::covers(FontFace& font, std::string_view text)
{
    if (!font.glyphs())
        return false;
    if (!m_hasGlyphs)
        readGlyphs(font);
    char const* cursor = text.data();
    char const* const end = cursor + text.size();
    while (cursor != end) {
        int const slot = nextSlot(cursor, end);
        if (slot == none || m_glyphs[static_cast<std::size_t>(slot)] == 0)
            return false;
    }
    return true;
}

void SimpleTextTable::learn(FontFace& font, std::string_view text, std::span<ShapedGlyph const> glyphs)
{
    if (!m_rules) {
        if (++m_shapedTexts < textsBeforeRules)
            return;
        readRules(font);
    }
    std::vector<int> slots;
    bool hasLetter = !m_needsLetter;
    char const* const end = text.data() + text.size();
    for (char const* cursor = text.data(); cursor != end;) {
        slots.push_back(nextSlot(cursor, end));
        if (slots.back() == none)
            return;
        hasLetter = hasLetter || isLetter(slots.back());
    }
    if (!hasLetter || slots.size() != glyphs.size())
        return;
    // What a rule has made of one glyph may go on to its neighbours.
    if (m_rules->glyphs.mayApply(slots))
        return;
    auto const isItself = [&](std::size_t i) {
        auto const slot = static_cast<std::size_t>(slots[i]);
        return m_advances[slot] != unknown && glyphs[i].glyph == m_glyphs[slot] && !glyphs[i].isOffset;
    };
    for (std::size_t i = 0; i + 1 < slots.size(); ++i) {
        if (isItself(i) && isItself(i + 1))
            enterPair(static_cast<std::size_t>(slots[i]), static_cast<std::size_t>(slots[i + 1]), glyphs[i].advance);
    }
}

bool SimpleTextTable::mayRuleApply(std::string_view text) const
{
    thread_local std::vector<int> slots;
    slots.clear();
    char const* const end = text.data() + text.size();
    for (char const* cursor = text.data(); cursor != end;) {
        slots.push_back(nextSlot(cursor, end));
        if (slots.back() == none)
            return true;
    }
    return m_rules->glyphs.mayApply(slots);
}

std::span<std::uint32_t const> SimpleTextTable::idleFeatures() const
{
    return m_rules ? std::span<std::uint32_t const>(m_rules->idleFeatures) : std::span<std::uint32_t const> {};
}

void SimpleTextTable::enterPair(std::size_t first, std::size_t second, int advance)
{
    if (advance < 0 || advance >= INT16_MAX)
        return;
    auto& row = m_pairs[first];
    if (!row) {
        row = std::make_unique<std::int16_t[]>(slotCount);
        std::fill_n(row.get(), slotCount, unknown);
    }
    bool const isConditional = m_rules->glyphs.mayChange(first, second);
    row[second] = static_cast<std::int16_t>(isConditional ? -1 - advance : advance);
}

}
