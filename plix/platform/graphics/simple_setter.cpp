#include <plix/platform/graphics/simple_setter.h>

#include <plix/platform/graphics/FontFace.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/paragraph_setter.h>

#include <algorithm>

namespace plix {

namespace {

hb_buffer_t& shapingBuffer()
{
    static auto& s_buffer = *new Handle<hb_buffer_t>(hb_buffer_create());
    return *s_buffer;
}

bool hasLetter(std::string_view text)
{
    char const* cursor = text.data();
    char const* const end = cursor + text.size();
    while (cursor != end) {
        int const slot = simple_characters::nextSlot(cursor, end);
        if (slot != simple_characters::none && simple_characters::isLetter(slot))
            return true;
    }
    return false;
}

bool shapeByFont(FontFace& font, std::string_view text, SimpleGlyphs& result)
{
    ++settingCounts().shapings;
    auto* const buffer = &shapingBuffer();
    hb_buffer_clear_contents(buffer);
    auto const length = static_cast<int>(text.size());
    hb_buffer_add_utf8(buffer, text.data(), length, 0, length);
    hb_buffer_set_direction(buffer, HB_DIRECTION_LTR);
    hb_buffer_set_script(buffer, hasLetter(text) ? HB_SCRIPT_LATIN : HB_SCRIPT_COMMON);
    hb_buffer_set_language(buffer, hb_language_from_string("en", -1));
    hb_buffer_set_flags(buffer, static_cast<hb_buffer_flags_t>(HB_BUFFER_FLAG_BOT | HB_BUFFER_FLAG_EOT));
    hb_shape(font.glyphs()->shapingFont(), buffer, nullptr, 0);
    unsigned count = 0;
    auto const* infos = hb_buffer_get_glyph_infos(buffer, &count);
    auto const* positions = hb_buffer_get_glyph_positions(buffer, &count);
    thread_local std::vector<SimpleTextTable::ShapedGlyph> shaped;
    shaped.clear();
    std::size_t byte = 0;
    for (unsigned i = 0; i < count; ++i) {
        if (infos[i].cluster != byte)
            return false;
        auto const& position = positions[i];
        bool const isOffset = PANGO_UNITS_ROUND(position.x_offset) != 0 || PANGO_UNITS_ROUND(position.y_offset) != 0;
        if (isOffset)
            return false;
        int const advance = PANGO_UNITS_ROUND(position.x_advance) / PANGO_SCALE;
        result.glyphs.push_back(infos[i].codepoint);
        result.lefts.push_back(result.advance);
        result.advance += advance;
        shaped.push_back({ infos[i].codepoint, advance, position.x_offset != 0 || position.y_offset != 0 });
        char const* cursor = text.data() + byte;
        simple_characters::nextSlot(cursor, text.data() + text.size());
        byte = static_cast<std::size_t>(cursor - text.data());
    }
    if (byte != text.size())
        return false;
    font.simpleText().learn(font, text, shaped);
    return true;
}

bool isSimplyStyled(ParagraphText const& paragraph)
{
    auto const& layout = paragraph.layout;
    if (layout.baseWritingDirection == NSWritingDirectionRightToLeft || paragraph.text.empty())
        return false;
    auto const* font = paragraph.spans[0].style.font;
    return std::all_of(paragraph.spans.begin(), paragraph.spans.end(),
        [font](StyleSpan const& span) { return span.style.font == font && span.style.isPlainlySet(); });
}

/// Copies the glyphs into one line, a run for each span.
void addLine(ParagraphText const& paragraph, FontFace& font, SimpleGlyphs const& shaped, SetParagraph& set)
{
    auto const& metrics = font.metrics();
    auto const length = static_cast<std::uint32_t>(paragraph.text.size());
    SetLine line { 0, length, 0, 0, static_cast<float>(shaped.advance), metrics.lineAscent(), metrics.lineDescent(),
        metrics.lineLeading(), false };
    char const* const start = paragraph.text.data();
    char const* const end = start + length;
    char const* cursor = start;
    std::uint32_t span = 0;
    std::size_t const count = shaped.glyphs.size();
    set.glyphs.reserve(count);
    set.clusters.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        auto const byte = static_cast<std::uint32_t>(cursor - start);
        bool const isNewSpan = set.runs.empty() || byte >= paragraph.spans[span].endByte;
        while (byte >= paragraph.spans[span].endByte)
            ++span;
        auto const left = static_cast<float>(shaped.lefts[i]);
        if (isNewSpan) {
            SetRun run;
            run.font = font.glyphs();
            run.firstGlyph = run.firstCluster = static_cast<std::uint32_t>(i);
            run.style = span;
            run.left = left;
            run.ascent = line.ascent;
            run.descent = line.descent;
            run.leading = line.leading;
            set.runs.push_back(std::move(run));
        }
        simple_characters::nextSlot(cursor, end);
        auto const right = static_cast<float>(i + 1 < count ? shaped.lefts[i + 1] : shaped.advance);
        set.glyphs.push_back({ shaped.glyphs[i], left, 0 });
        set.clusters.push_back({ byte, static_cast<std::uint32_t>(cursor - start) - byte, left, right - left });
        auto& run = set.runs.back();
        ++run.glyphCount;
        ++run.clusterCount;
        run.width = right - run.left;
    }
    line.runCount = static_cast<std::uint32_t>(set.runs.size());
    set.lines.push_back(line);
}

}

bool shapeSimply(FontFace& font, std::string_view text, SimpleGlyphs& result)
{
    result.glyphs.clear();
    result.lefts.clear();
    auto const add = [&](std::uint32_t glyph, int left) {
        result.glyphs.push_back(glyph);
        result.lefts.push_back(left);
    };
    if (font.simpleText().set(text, result.advance, add)) {
        ++settingCounts().tableSettings;
        return true;
    }
    result.glyphs.clear();
    result.lefts.clear();
    result.advance = 0;
    return font.simpleText().covers(font, text) && shapeByFont(font, text, result);
}

bool setSimply(ParagraphText const& paragraph, float width, SetParagraph& set)
{
    if (!isSimplyStyled(paragraph))
        return false;
    auto& font = paragraph.spans[0].style.font->face();
    thread_local SimpleGlyphs shaped;
    if (!shapeSimply(font, paragraph.text, shaped))
        return false;
    auto const& layout = paragraph.layout;
    bool const isUnbroken = width < 0 || layout.lineBreakMode == NSLineBreakByClipping
        || static_cast<float>(shaped.advance) <= width - std::max(0.0F, layout.firstLineHeadIndent - layout.headIndent);
    if (!isUnbroken)
        return false;
    addLine(paragraph, font, shaped, set);
    return true;
}

}
