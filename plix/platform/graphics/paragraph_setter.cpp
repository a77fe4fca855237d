#include <plix/platform/graphics/paragraph_setter.h>

#include <plix/platform/graphics/FontFace.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/inline_object.h>
#include <plix/platform/graphics/simple_setter.h>

#include <algorithm>
#include <cmath>
#include <string>

namespace plix {

namespace {

// In a paragraph all spans of which have their own number, the number is carried through Pango as a colour.
PangoAttribute* spanMark(std::size_t span)
{
    return pango_attr_foreground_new(static_cast<guint16>(span >> 16), static_cast<guint16>(span & 0xFFFF), 0);
}

int pangoUnits(float length)
{
    return static_cast<int>(std::lround(static_cast<double>(length) * PANGO_SCALE));
}

float points(int units)
{
    return static_cast<float>(units) / PANGO_SCALE;
}

Handle<PangoAttrList> attributesOf(ParagraphText const& paragraph)
{
    Handle<PangoAttrList> list(pango_attr_list_new());
    pango_attr_list_insert(list.get(), pango_attr_insert_hyphens_new(FALSE));
    guint start = 0;
    auto const insert = [&](PangoAttribute* attribute, guint end) {
        attribute->start_index = start;
        attribute->end_index = end;
        pango_attr_list_insert(list.get(), attribute);
    };
    for (std::size_t i = 0; i < paragraph.spans.size(); ++i) {
        auto const& [end, style] = paragraph.spans[i];
        if (i > 0)
            insert(spanMark(i), end);
        if (style.font != paragraph.spans[0].style.font)
            insert(pango_attr_font_desc_new(style.font->face().description()), end);
        if (style.kern != 0)
            insert(pango_attr_letter_spacing_new(pangoUnits(style.kern)), end);
        if (!style.hasLigatures)
            insert(pango_attr_font_features_new("liga=0, clig=0, dlig=0"), end);
        if (style.attachment) {
            auto const size = style.attachment->inlineSize();
            PangoRectangle const box { 0, 0, pangoUnits(usableLength(size.width)), 0 };
            insert(pango_attr_shape_new(&box, &box), end);
        }
        start = end;
    }
    return list;
}

Handle<PangoTabArray> tabsOf(ParagraphLayout const& layout)
{
    // More stops than any line has; Pango goes on from the last two.
    constexpr int mostExtraStops = 64;
    float const origin = std::min(layout.headIndent, layout.firstLineHeadIndent);
    auto stops = layout.tabStops;
    float last = stops.empty() ? 0 : stops.back().location;
    for (int i = 0; layout.defaultTabInterval > 0 && i < mostExtraStops; ++i) {
        last = (std::floor(last / layout.defaultTabInterval) + 1) * layout.defaultTabInterval;
        stops.push_back({ last, NSLeftTabStopType });
    }
    Handle<PangoTabArray> tabs(pango_tab_array_new(static_cast<gint>(stops.size()), FALSE));
    constexpr PangoTabAlign alignments[] { PANGO_TAB_LEFT, PANGO_TAB_RIGHT, PANGO_TAB_CENTER, PANGO_TAB_DECIMAL };
    for (std::size_t i = 0; i < stops.size(); ++i) {
        auto const type = std::clamp<int>(stops[i].type, 0, 3);
        pango_tab_array_set_tab(tabs.get(), static_cast<gint>(i), alignments[type], pangoUnits(stops[i].location - origin));
    }
    return tabs;
}

void setLineBreaking(PangoLayout* pango, ParagraphLayout const& layout, float width)
{
    auto const mode = layout.lineBreakMode;
    if (width < 0 || mode == NSLineBreakByClipping)
        return;
    pango_layout_set_width(pango, pangoUnits(width));
    pango_layout_set_wrap(pango, mode == NSLineBreakByCharWrapping ? PANGO_WRAP_CHAR : PANGO_WRAP_WORD_CHAR);
    if (mode == NSLineBreakByTruncatingHead)
        pango_layout_set_ellipsize(pango, PANGO_ELLIPSIZE_START);
    else if (mode == NSLineBreakByTruncatingTail)
        pango_layout_set_ellipsize(pango, PANGO_ELLIPSIZE_END);
    else if (mode == NSLineBreakByTruncatingMiddle)
        pango_layout_set_ellipsize(pango, PANGO_ELLIPSIZE_MIDDLE);
    if (layout.alignment == NSJustifiedTextAlignment)
        pango_layout_set_justify(pango, TRUE);
    pango_layout_set_indent(pango, pangoUnits(layout.firstLineHeadIndent - layout.headIndent));
}

Handle<PangoLayout> layoutOf(ParagraphText const& paragraph, float width)
{
    auto& catalog = FontCatalog::shared();
    auto const direction = paragraph.layout.baseWritingDirection;
    auto* const context = direction == NSWritingDirectionNatural ? catalog.context()
        : direction == NSWritingDirectionRightToLeft             ? catalog.context(PANGO_DIRECTION_RTL)
                                                                 : catalog.context(PANGO_DIRECTION_LTR);
    Handle<PangoLayout> pango(pango_layout_new(context));
    pango_layout_set_auto_dir(pango.get(), direction == NSWritingDirectionNatural);
    pango_layout_set_font_description(pango.get(), paragraph.spans[0].style.font->face().description());
    // A C string would end there.
    if (paragraph.text.find('\0') != std::string_view::npos) {
        std::string text(paragraph.text);
        std::replace(text.begin(), text.end(), '\0', '\1');
        pango_layout_set_text(pango.get(), text.data(), static_cast<int>(text.size()));
    } else {
        pango_layout_set_text(pango.get(), paragraph.text.data(), static_cast<int>(paragraph.text.size()));
    }
    pango_layout_set_attributes(pango.get(), attributesOf(paragraph).get());
    if (paragraph.text.find('\t') != std::string_view::npos)
        pango_layout_set_tabs(pango.get(), tabsOf(paragraph.layout).get());
    setLineBreaking(pango.get(), paragraph.layout, width);
    return pango;
}

/// Copies what Pango has laid out.
class LayoutReader {
public:
    LayoutReader(ParagraphText const& paragraph, SetParagraph& set)
        : m_paragraph(paragraph)
        , m_set(set)
    {
    }

    void read(PangoLayout* pango)
    {
        for (auto* node = pango_layout_get_lines_readonly(pango); node; node = node->next)
            readLine(*static_cast<PangoLayoutLine*>(node->data));
        m_set.lines.back().endByte = static_cast<std::uint32_t>(m_paragraph.text.size());
    }

private:
    void readLine(PangoLayoutLine const& pango)
    {
        SetLine line;
        line.firstByte = static_cast<std::uint32_t>(pango.start_index);
        line.endByte = static_cast<std::uint32_t>(pango.start_index + pango.length);
        line.firstRun = static_cast<std::uint32_t>(m_set.runs.size());
        line.isRightToLeft = pango.resolved_dir == PANGO_DIRECTION_RTL;
        m_pen = 0;
        for (auto* node = pango.runs; node; node = node->next)
            readRun(*static_cast<PangoGlyphItem*>(node->data), line);
        line.runCount = static_cast<std::uint32_t>(m_set.runs.size()) - line.firstRun;
        line.width = points(m_pen);
        if (line.runCount == 0)
            addEmptyLineMetrics(line, spanAt(line.firstByte).style);
        m_set.lines.push_back(line);
    }

    void readRun(PangoGlyphItem const& item, SetLine& line)
    {
        ++settingCounts().shapings;
        SetRun run;
        run.style = static_cast<std::uint32_t>(markOf(item));
        auto const& style = m_paragraph.spans[run.style].style;
        bool const isAttachment = style.attachment && isShaped(item);
        run.kind = isAttachment ? SetRun::Kind::attachment : SetRun::Kind::glyphs;
        run.font = GlyphFont::of(item.item->analysis.font);
        run.raise = style.raise;
        run.isRightToLeft = (item.item->analysis.level & 1) != 0;
        run.left = points(m_pen);
        run.firstGlyph = static_cast<std::uint32_t>(m_set.glyphs.size());
        run.firstCluster = static_cast<std::uint32_t>(m_set.clusters.size());
        readGlyphs(item, run.isRightToLeft);
        run.glyphCount = static_cast<std::uint32_t>(m_set.glyphs.size()) - run.firstGlyph;
        run.clusterCount = static_cast<std::uint32_t>(m_set.clusters.size()) - run.firstCluster;
        run.width = points(m_pen) - run.left;
        measureRun(run, style, isAttachment);
        line.ascent = std::max(line.ascent, run.ascent);
        line.descent = std::max(line.descent, run.descent);
        line.leading = std::max(line.leading, run.leading);
        m_set.runs.push_back(std::move(run));
    }

    static void measureRun(SetRun& run, TextStyle const& style, bool isAttachment)
    {
        if (isAttachment) {
            auto const height = usableLength(style.attachment->inlineSize().height);
            auto const below = style.attachment->inlineBaselineOffset().y + run.raise;
            run.ascent = std::ceil(std::max(0.0F, height + below));
            run.descent = std::ceil(std::max(0.0F, -below));
            return;
        }
        auto const& used = run.font->metrics();
        auto const& wanted = style.font->face().metrics();
        run.ascent = std::max(used.lineAscent(), wanted.lineAscent()) + std::ceil(std::max(0.0F, run.raise));
        run.descent = std::max(used.lineDescent(), wanted.lineDescent()) + std::ceil(std::max(0.0F, -run.raise));
        run.leading = std::max(used.lineLeading(), wanted.lineLeading());
    }

    void readGlyphs(PangoGlyphItem const& item, bool isRightToLeft)
    {
        auto const& glyphs = *item.glyphs;
        auto const itemStart = static_cast<std::uint32_t>(item.item->offset);
        auto const itemEnd = itemStart + static_cast<std::uint32_t>(item.item->length);
        auto const first = m_set.clusters.size();
        int previous = -1;
        for (int i = 0; i < glyphs.num_glyphs; ++i) {
            auto const& info = glyphs.glyphs[i];
            auto const left = points(m_pen);
            if (i == 0 || glyphs.log_clusters[i] != previous)
                m_set.clusters.push_back({ itemStart + static_cast<std::uint32_t>(glyphs.log_clusters[i]), 0, left, 0 });
            previous = glyphs.log_clusters[i];
            if (info.glyph & PANGO_GLYPH_UNKNOWN_FLAG)
                m_set.glyphs.push_back(
                    { SetGlyph::isUnknown | static_cast<std::uint32_t>(info.geometry.width / PANGO_SCALE), left, 0 });
            else if (info.glyph != PANGO_GLYPH_EMPTY)
                m_set.glyphs.push_back({ info.glyph, points(m_pen + info.geometry.x_offset), points(info.geometry.y_offset) });
            m_pen += info.geometry.width;
            m_set.clusters.back().width = points(m_pen) - m_set.clusters.back().left;
        }
        for (auto i = first; i < m_set.clusters.size(); ++i) {
            auto& cluster = m_set.clusters[i];
            bool const isAtEnd = isRightToLeft ? i == first : i + 1 == m_set.clusters.size();
            auto const end = isAtEnd ? itemEnd : m_set.clusters[isRightToLeft ? i - 1 : i + 1].byte;
            cluster.length = std::max(end, cluster.byte) - cluster.byte;
        }
    }

    void addEmptyLineMetrics(SetLine& line, TextStyle const& style)
    {
        auto const& metrics = style.font->face().metrics();
        line.ascent = metrics.lineAscent();
        line.descent = metrics.lineDescent();
        line.leading = metrics.lineLeading();
    }

    StyleSpan const& spanAt(std::uint32_t byte) const
    {
        auto const found = std::upper_bound(m_paragraph.spans.begin(), m_paragraph.spans.end(), byte,
            [](std::uint32_t wanted, StyleSpan const& span) { return wanted < span.endByte; });
        return found == m_paragraph.spans.end() ? m_paragraph.spans.back() : *found;
    }

    static bool isShaped(PangoGlyphItem const& item)
    {
        for (auto* node = item.item->analysis.extra_attrs; node; node = node->next) {
            if (static_cast<PangoAttribute*>(node->data)->klass->type == PANGO_ATTR_SHAPE)
                return true;
        }
        return false;
    }

    std::size_t markOf(PangoGlyphItem const& item) const
    {
        for (auto* node = item.item->analysis.extra_attrs; node; node = node->next) {
            auto* const attribute = static_cast<PangoAttribute*>(node->data);
            if (attribute->klass->type != PANGO_ATTR_FOREGROUND)
                continue;
            auto const& color = pango_attribute_as_color(attribute)->color;
            return std::min<std::size_t>(static_cast<std::size_t>(color.red) << 16 | color.green, m_paragraph.spans.size() - 1);
        }
        return 0;
    }

    ParagraphText const& m_paragraph;
    SetParagraph& m_set;
    int m_pen { 0 };
};

}

SettingCounts& settingCounts()
{
    static SettingCounts s_counts;
    return s_counts;
}

SetParagraph setParagraph(ParagraphText const& paragraph, float width)
{
    SetParagraph set;
    return setSimply(paragraph, width, set) ? set : setParagraphFully(paragraph, width);
}

SetParagraph setParagraphFully(ParagraphText const& paragraph, float width)
{
    SetParagraph set;
    auto const pango = layoutOf(paragraph, width);
    LayoutReader(paragraph, set).read(pango.get());
    return set;
}

}
