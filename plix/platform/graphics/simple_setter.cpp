#include <plix/platform/graphics/simple_setter.h>

#include <plix/platform/graphics/FontFace.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/paragraph_setter.h>

#include <algorithm>
#include <cmath>

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
    thread_local std::vector<hb_feature_t> features;
    features.clear();
    for (auto const tag : font.simpleText().idleFeatures())
        features.push_back({ tag, 0, HB_FEATURE_GLOBAL_START, HB_FEATURE_GLOBAL_END });
    hb_shape(font.glyphs()->shapingFont(), buffer, features.data(), static_cast<unsigned>(features.size()));
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
        int const advance = PANGO_UNITS_ROUND(position.x_advance) / PANGO_SCALE;
        // Pango makes something else of negative advances.
        if (isOffset || advance < 0)
            return false;
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

/// Bytes of the paragraph that become one line.
struct Piece {
    std::uint32_t firstByte;
    std::uint32_t endByte;
    bool losesFinalBlank; ///< at which it is broken
};

/// Appends lines, with a run for each span.
class LineWriter {
public:
    LineWriter(ParagraphText const& paragraph, FontFace& font, SetParagraph& set)
        : m_paragraph(paragraph)
        , m_font(font)
        , m_set(set)
    {
    }

    void add(Piece const& piece, SimpleGlyphs const& shaped)
    {
        auto const& metrics = m_font.metrics();
        SetLine line { piece.firstByte, piece.endByte, static_cast<std::uint32_t>(m_set.runs.size()), 0, 0, metrics.lineAscent(),
            metrics.lineDescent(), metrics.lineLeading(), false };
        char const* const start = m_paragraph.text.data();
        char const* const end = start + piece.endByte;
        char const* cursor = start + piece.firstByte;
        std::size_t const count = shaped.glyphs.size();
        m_set.glyphs.reserve(m_set.glyphs.size() + count);
        m_set.clusters.reserve(m_set.clusters.size() + count);
        for (std::size_t i = 0; i < count; ++i) {
            auto const byte = static_cast<std::uint32_t>(cursor - start);
            simple_characters::nextSlot(cursor, end);
            auto const length = static_cast<std::uint32_t>(cursor - start) - byte;
            bool const isLost = piece.losesFinalBlank && i + 1 == count;
            auto const left = static_cast<float>(shaped.lefts[i]);
            auto const right = static_cast<float>(i + 1 < count ? shaped.lefts[i + 1] : isLost ? shaped.lefts[i] : shaped.advance);
            auto& run = runAt(byte, line, left);
            m_set.clusters.push_back({ byte, length, left, right - left });
            ++run.clusterCount;
            if (!isLost) {
                m_set.glyphs.push_back({ shaped.glyphs[i], left, 0 });
                ++run.glyphCount;
            }
            run.width = right - run.left;
            line.width = right;
        }
        line.runCount = static_cast<std::uint32_t>(m_set.runs.size()) - line.firstRun;
        m_set.lines.push_back(line);
    }

private:
    SetRun& runAt(std::uint32_t byte, SetLine const& line, float left)
    {
        bool const isNew = m_set.runs.size() == line.firstRun || byte >= m_paragraph.spans[m_span].endByte;
        while (byte >= m_paragraph.spans[m_span].endByte)
            ++m_span;
        if (isNew) {
            SetRun run;
            run.font = m_font.glyphs();
            run.firstGlyph = static_cast<std::uint32_t>(m_set.glyphs.size());
            run.firstCluster = static_cast<std::uint32_t>(m_set.clusters.size());
            run.style = m_span;
            run.left = left;
            run.ascent = line.ascent;
            run.descent = line.descent;
            run.leading = line.leading;
            m_set.runs.push_back(std::move(run));
        }
        return m_set.runs.back();
    }

    ParagraphText const& m_paragraph;
    FontFace& m_font;
    SetParagraph& m_set;
    std::uint32_t m_span { 0 };
};

/// The paragraph in one line with an ellipsis, which stands for the characters that it replaces.
bool setTruncated(ParagraphText const& paragraph, FontFace& font, SimpleGlyphs const& whole, float width, SetParagraph& set)
{
    auto const& layout = paragraph.layout;
    float const room = width - std::max(0.0F, layout.firstLineHeadIndent - layout.headIndent);
    std::string shown;
    Truncation truncation;
    SimpleGlyphs shaped;
    if (!truncateSimply(font, paragraph.text, whole, room, layout.lineBreakMode, shown, truncation)
        || !shapeSimply(font, shown, shaped))
        return false;
    // The line is written as one of the text that is shown, whose bytes are then counted as the paragraph's. The ellipsis looks as
    // what it replaces begins.
    std::vector<StyleSpan> spans;
    auto const ellipsisEnd = truncation.prefixEnd + static_cast<std::uint32_t>(ellipsisText.size());
    for (auto const& [end, style] : paragraph.spans) {
        bool const isBefore = end <= truncation.prefixEnd;
        spans.push_back({ isBefore ? end : std::max(end, truncation.suffixStart) - truncation.suffixStart + ellipsisEnd, style });
    }
    if (spans.back().endByte < shown.size())
        spans.back().endByte = static_cast<std::uint32_t>(shown.size());
    LineWriter({ shown, spans, layout }, font, set).add({ 0, static_cast<std::uint32_t>(shown.size()), false }, shaped);
    for (auto& cluster : set.clusters) {
        if (cluster.byte == truncation.prefixEnd)
            cluster.length = truncation.suffixStart - truncation.prefixEnd;
        else if (cluster.byte > truncation.prefixEnd)
            cluster.byte = cluster.byte - ellipsisEnd + truncation.suffixStart;
    }
    set.lines[0].endByte = static_cast<std::uint32_t>(paragraph.text.size());
    return true;
}

/// Breaks a paragraph where Pango would: behind the last opportunity that fits, a blank there not counted; where none fits, behind
/// the last character that does.
class LineBreaker {
public:
    LineBreaker(ParagraphText const& paragraph, FontFace& font, float width)
        : m_paragraph(paragraph)
        , m_font(font)
        , m_width(width)
    {
    }

    /// False where this may be another result than Pango's.
    bool breakInto(SetParagraph& set, SimpleGlyphs const& whole)
    {
        constexpr std::size_t longestToShapeAgain = 2000;
        if (!whole.isFromTable && m_paragraph.text.size() > longestToShapeAgain)
            return false;
        findOpportunities();
        m_rest = whole;
        LineWriter writer(m_paragraph, m_font, set);
        while (m_firstCharacter < m_characters) {
            float const room = roomInLine(set.lines.empty());
            auto const count = charactersThatFit(room);
            if (m_isUncertain)
                return false;
            Piece piece { m_byteOf[m_firstCharacter], m_byteOf[m_firstCharacter + count], false };
            bool const isLast = m_firstCharacter + count == m_characters;
            bool const endsInBlank = m_opportunities[m_firstCharacter + count - 1].is_white;
            piece.losesFinalBlank = !isLast && endsInBlank;
            if (!shapeSimply(m_font, m_paragraph.text.substr(piece.firstByte, piece.endByte - piece.firstByte), m_piece))
                return false;
            int const advance = endsInBlank ? m_piece.lefts.back() : m_piece.advance;
            if (count > 1 && static_cast<float>(advance) > room)
                return false;
            writer.add(piece, m_piece);
            m_firstCharacter += count;
            if (isLast)
                break;
            if (!dropFromRest(count))
                return false;
        }
        return true;
    }

private:
    void findOpportunities()
    {
        auto const text = m_paragraph.text;
        char const* const end = text.data() + text.size();
        for (char const* cursor = text.data(); cursor != end;) {
            m_byteOf.push_back(static_cast<std::uint32_t>(cursor - text.data()));
            m_slots.push_back(simple_characters::nextSlot(cursor, end));
        }
        m_characters = m_byteOf.size();
        m_byteOf.push_back(static_cast<std::uint32_t>(text.size()));
        m_opportunities.resize(m_characters + 1);
        pango_get_log_attrs(text.data(), static_cast<int>(text.size()), 0, pango_language_from_string("en"), m_opportunities.data(),
            static_cast<int>(m_opportunities.size()));
    }

    float roomInLine(bool isFirst) const
    {
        float const difference = m_paragraph.layout.firstLineHeadIndent - m_paragraph.layout.headIndent;
        return m_width - std::max(0.0F, isFirst ? difference : -difference);
    }

    /// The left end of a character of the rest, or its right end behind the last.
    float leftInRest(std::size_t index) const
    {
        return static_cast<float>((index < m_rest.lefts.size() ? m_rest.lefts[index] : m_rest.advance) - m_restOrigin);
    }

    std::size_t charactersThatFit(float room)
    {
        std::size_t const left = m_characters - m_firstCharacter;
        bool const endsInBlank = m_opportunities[m_characters - 1].is_white;
        if (leftInRest(m_restFirst + left - (endsInBlank ? 1 : 0)) <= room)
            return left;
        if (m_paragraph.layout.lineBreakMode != NSLineBreakByCharWrapping) {
            auto const words = lastFitting(room, [](PangoLogAttr const& attributes) { return attributes.is_line_break; });
            if (words > 0)
                return words;
        }
        auto const characters = lastFitting(room, [](PangoLogAttr const& attributes) { return attributes.is_char_break; });
        // Where nothing fits, Pango takes the blank along if kerning makes both the narrower.
        m_isUncertain = m_isUncertain || (characters == 0 && left > 1 && m_opportunities[m_firstCharacter + 1].is_white);
        return std::max<std::size_t>(characters, 1);
    }

    template <typename MayBreak> std::size_t lastFitting(float room, MayBreak const& mayBreak)
    {
        std::size_t best = 0;
        for (std::size_t count = 1; m_firstCharacter + count < m_characters; ++count) {
            if (leftInRest(m_restFirst + count - 1) > room)
                break;
            if (mayBreak(m_opportunities[m_firstCharacter + count]) && fits(count, room))
                best = count;
        }
        return best;
    }

    /// Whether a line of so many characters fits, now that its last one stands alone, without the kerning to the next.
    bool fits(std::size_t count, float room)
    {
        auto const last = m_firstCharacter + count - 1;
        float const left = leftInRest(m_restFirst + count - 1);
        if (m_opportunities[last].is_white)
            return left <= room;
        constexpr float largestKerning = 3;
        float const kerned = leftInRest(m_restFirst + count);
        if (!m_rest.isFromTable) {
            m_isUncertain = m_isUncertain || std::abs(kerned - room) < largestKerning;
            return kerned <= room;
        }
        auto const alone = left + static_cast<float>(m_font.simpleText().advanceAlone(m_slots[last]));
        // Pango has its own way with what fits only as long as it is kerned.
        m_isUncertain = m_isUncertain || (kerned <= room && alone > room);
        return alone <= room;
    }

    bool dropFromRest(std::size_t count)
    {
        if (m_rest.isFromTable) {
            m_restFirst += count;
            m_restOrigin = m_rest.lefts[m_restFirst];
            return true;
        }
        m_restFirst = 0;
        m_restOrigin = 0;
        return shapeSimply(m_font, m_paragraph.text.substr(m_byteOf[m_firstCharacter]), m_rest);
    }

    ParagraphText const& m_paragraph;
    FontFace& m_font;
    float m_width;
    std::vector<PangoLogAttr> m_opportunities;
    std::vector<std::uint32_t> m_byteOf;
    std::vector<int> m_slots;
    bool m_isUncertain { false };
    std::size_t m_characters { 0 };
    std::size_t m_firstCharacter { 0 };
    SimpleGlyphs m_rest; ///< from its m_restFirst on what is not in lines yet
    std::size_t m_restFirst { 0 };
    int m_restOrigin { 0 };
    SimpleGlyphs m_piece;
};

}

bool shapeFromTable(FontFace& font, std::string_view text, SimpleGlyphs& result)
{
    result.glyphs.clear();
    result.lefts.clear();
    auto const add = [&](std::uint32_t glyph, int left) {
        result.glyphs.push_back(glyph);
        result.lefts.push_back(left);
    };
    result.isFromTable = font.simpleText().set(text, result.advance, add);
    settingCounts().tableSettings += result.isFromTable ? 1 : 0;
    return result.isFromTable;
}

bool shapeSimply(FontFace& font, std::string_view text, SimpleGlyphs& result)
{
    if (shapeFromTable(font, text, result))
        return true;
    result.glyphs.clear();
    result.lefts.clear();
    result.advance = 0;
    return font.simpleText().covers(font, text) && shapeByFont(font, text, result);
}

bool truncateSimply(FontFace& font, std::string_view text, SimpleGlyphs const& whole, float width, NSLineBreakMode mode,
    std::string& shown, Truncation& truncation)
{
    thread_local SimpleGlyphs tried;
    thread_local std::vector<std::uint32_t> bytes;
    thread_local std::vector<std::int32_t> lefts;
    if (!shapeSimply(font, ellipsisText, tried))
        return false;
    int const ellipsisWidth = tried.advance;
    bytes.clear();
    char const* const end = text.data() + text.size();
    for (char const* cursor = text.data(); cursor != end; simple_characters::nextSlot(cursor, end))
        bytes.push_back(static_cast<std::uint32_t>(cursor - text.data()));
    bytes.push_back(static_cast<std::uint32_t>(text.size()));
    lefts = whole.lefts;
    lefts.push_back(whole.advance);
    bool isSimple = true;
    auto const measure = [&](std::string_view candidate) {
        isSimple = isSimple && shapeSimply(font, candidate, tried);
        return isSimple ? tried.advance : -1;
    };
    truncation = truncationToFit({ text, bytes, lefts, ellipsisWidth, static_cast<int>(std::floor(width)) }, mode, measure);
    writeTruncated(shown, text, truncation);
    return isSimple;
}

bool setSimply(ParagraphText const& paragraph, float width, SetParagraph& set)
{
    if (!isSimplyStyled(paragraph))
        return false;
    auto& font = paragraph.spans[0].style.font->face();
    SimpleGlyphs shaped;
    if (!shapeSimply(font, paragraph.text, shaped))
        return false;
    auto const& layout = paragraph.layout;
    bool const fits = width < 0 || layout.lineBreakMode == NSLineBreakByClipping
        || static_cast<float>(shaped.advance) <= width - std::max(0.0F, layout.firstLineHeadIndent - layout.headIndent);
    if (fits) {
        LineWriter(paragraph, font, set).add({ 0, static_cast<std::uint32_t>(paragraph.text.size()), false }, shaped);
        return true;
    }
    bool const wraps = layout.lineBreakMode == NSLineBreakByWordWrapping || layout.lineBreakMode == NSLineBreakByCharWrapping;
    if (wraps && layout.alignment != NSJustifiedTextAlignment && LineBreaker(paragraph, font, width).breakInto(set, shaped))
        return true;
    set = {};
    return !wraps && setTruncated(paragraph, font, shaped, width, set);
}

}
