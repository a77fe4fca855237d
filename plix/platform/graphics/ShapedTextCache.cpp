#include <plix/platform/graphics/ShapedTextCache.h>

#include <plix/platform/graphics/paragraph_setter.h>
#include <plix/platform/graphics/text_lines.h>

#include <algorithm>

namespace plix {

namespace {

// The cache always keeps the last one, however large.
constexpr std::size_t fewestEntries = 1;

/// The spans of the paragraph, with bytes counted from its start. At least one, for an empty paragraph too.
std::vector<StyleSpan> spansOfParagraph(std::span<StyleSpan const> spans, ParagraphBytes const& bytes, std::size_t& first)
{
    while (first + 1 < spans.size() && spans[first].endByte <= bytes.start)
        ++first;
    std::vector<StyleSpan> inside;
    for (auto i = first; i < spans.size(); ++i) {
        auto const end = std::min<std::size_t>(spans[i].endByte, bytes.contentEnd);
        inside.push_back({ static_cast<std::uint32_t>(end - std::min(end, bytes.start)), spans[i].style });
        if (spans[i].endByte >= bytes.contentEnd)
            break;
    }
    return inside;
}

}

std::size_t SetBlock::memory() const
{
    std::size_t bytes = sizeof *this + paragraphs.capacity() * sizeof(Paragraph);
    for (auto const& paragraph : paragraphs)
        bytes += paragraph.set.memory() + paragraph.places.capacity() * sizeof(LinePlace);
    return bytes;
}

SetBlock setBlock(std::string_view text, std::span<StyleSpan const> spans, float width)
{
    SetBlock block;
    std::vector<ParagraphLayout const*> layouts;
    std::size_t span = 0;
    bool const isUnlimited = width < 0;
    float widest = 0;
    ParagraphBytes bytes;
    do {
        bytes = paragraphAt(text, bytes.end);
        auto const inside = spansOfParagraph(spans, bytes, span);
        auto const& layout = paragraphLayout(inside[0].style);
        auto const content = text.substr(bytes.start, bytes.contentEnd - bytes.start);
        float const lineWidth = isUnlimited ? -1 : lineWidthInArea(layout, { width, 0, false });
        block.paragraphs.push_back({ setParagraph({ content, inside, layout }, lineWidth), {},
            static_cast<std::uint32_t>(bytes.start), static_cast<std::uint32_t>(span) });
        layouts.push_back(&layout);
        float indent = layout.firstLineHeadIndent;
        for (auto const& line : block.paragraphs.back().set.lines) {
            widest = std::max(widest, line.width + indent);
            indent = layout.headIndent;
        }
    } while (bytes.isClosed());
    LineArea const area { isUnlimited ? widest : width, 0, isUnlimited && layouts.size() == 1 };
    float y = 0;
    for (std::size_t i = 0; i < layouts.size(); ++i) {
        auto& paragraph = block.paragraphs[i];
        y = placeLines(measuresOf(paragraph.set), *layouts[i], area, { y, i == 0, i + 1 == layouts.size() }, paragraph.places);
    }
    block.size = { widest, y };
    return block;
}

ShapedTextCache& ShapedTextCache::shared()
{
    static auto& s_cache = *new ShapedTextCache;
    return s_cache;
}

SetBlock const& ShapedTextCache::block(std::string_view text, std::span<StyleSpan const> spans, float width)
{
    m_key.clear();
    m_key.append(reinterpret_cast<char const*>(&width), sizeof width);
    appendSettingKey(m_key, spans);
    m_key.append(text);
    if (auto const* const found = m_entries.find(m_key)) {
        ++m_counts.hits;
        return found->block;
    }
    ++m_counts.misses;
    auto& entry = m_entries.add({ m_key, setBlock(text, spans, width), 0 });
    entry.memory = sizeof entry + entry.setting.capacity() + entry.block.memory();
    m_memory += entry.memory;
    shrink();
    return entry.block;
}

void ShapedTextCache::shrink()
{
    while (m_memory > m_largestMemory && m_entries.size() > fewestEntries) {
        m_memory -= m_entries.oldest().memory;
        m_entries.dropOldest();
    }
}

void ShapedTextCache::setLargestMemory(std::size_t bytes)
{
    m_largestMemory = bytes;
    shrink();
}

void ShapedTextCache::clear()
{
    m_entries.clear();
    m_memory = 0;
}

}
