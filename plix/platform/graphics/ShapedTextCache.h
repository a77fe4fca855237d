#pragma once

#include <plix/platform/base/RecentlyUsed.h>
#include <plix/platform/graphics/geometry.h>
#include <plix/platform/graphics/set_text.h>
#include <plix/platform/graphics/text_placement.h>
#include <plix/platform/graphics/text_style.h>

#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

// Private to plix/platform/graphics.

namespace plix {

/// A text in lines, one below the other: all that is needed to measure and to draw it in any colours.
struct SetBlock {
    struct Paragraph {
        SetParagraph set;
        std::vector<LinePlace> places; ///< of each line
        std::uint32_t firstByte { 0 };
        std::uint32_t firstSpan { 0 }; ///< the text's span that is span 0 of the paragraph
    };
    std::vector<Paragraph> paragraphs;
    Size size;

    std::size_t memory() const;
};

/// Sets and places a whole text, valid UTF-8, in spans that cover it; a width below 0 is as wide as it wants to be.
SetBlock setBlock(std::string_view text, std::span<StyleSpan const>, float width);

/// What has been set lately, for measuring and drawing again: nothing is shaped or allocated for what is in it. The least recently
/// used goes when it outgrows its memory.
class ShapedTextCache {
public:
    static ShapedTextCache& shared();

    /// Holds until the next call.
    SetBlock const& block(std::string_view text, std::span<StyleSpan const>, float width);

    struct Counts {
        long hits { 0 };
        long misses { 0 };
    };
    Counts counts() const { return m_counts; }
    std::size_t memory() const { return m_memory; }
    std::size_t size() const { return m_entries.size(); }
    void setLargestMemory(std::size_t bytes);
    void clear();

private:
    struct Entry {
        std::string setting; ///< the width, the styles and the text
        SetBlock block;
        std::size_t memory { 0 };

        std::string_view key() const { return setting; }
    };

    void shrink();

    RecentlyUsed<Entry> m_entries;
    std::string m_key;
    std::size_t m_memory { 0 };
    std::size_t m_largestMemory { 8U << 20U };
    Counts m_counts;
};

}
