#pragma once

#include <plix/platform/base/NSRange.h>
#include <plix/platform/graphics/attribute_names.h>
#include <plix/platform/graphics/set_text.h>
#include <plix/platform/graphics/text_placement.h>
#include <plix/platform/graphics/text_spans.h>
#include <plix/platform/graphics/text_style.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

// Private to plix/platform/graphics.

namespace plix {

class NSAttributedString;

/// The paragraphs of a text, placed one below the other. Their lines' places stay; what is shaped is kept as far as memory allows,
/// and made again when it is asked for.
class TextBody {
public:
    struct Line {
        std::uint32_t firstByte; ///< in the paragraph
        std::uint32_t endByte;
        LinePlace place; ///< y from the paragraph's top
    };
    struct Paragraph {
        std::size_t byteLength { 0 }; ///< the line end included
        std::size_t contentLength { 0 };
        long unitLength { 0 };
        std::vector<Line> lines; ///< empty until it is placed
        float height { 0 };
        float spacingBefore { 0 };
        float spacingAfter { 0 };
        std::shared_ptr<SetParagraph const> set;
        std::uint32_t lastUse { 0 };
        // Sums over what comes before:
        std::size_t firstByte { 0 };
        long firstUnit { 0 };
        long firstLine { 0 };
        float top { 0 };
    };

    void setString(NSAttributedString const*);
    void stringEdited(NSRange range, long changeInLength);
    void setArea(LineArea const&);
    LineArea const& area() const { return m_area; }
    void setTypingAttributes(Attributes const&);

    NSAttributedString const* string() const { return m_string; }
    long length() const;
    std::string_view content(Paragraph const&) const;

    /// Placed, in order, at least one.
    std::vector<Paragraph> const& paragraphs();
    long lineCount();
    float height();
    std::size_t paragraphOfLine(long line);
    std::size_t paragraphOfUnit(long unit);
    std::size_t paragraphAtY(float y);
    /// With its last line's end known to be the text's.
    std::shared_ptr<SetParagraph const> shaped(std::size_t paragraph);
    std::vector<StyleSpan> spans(Paragraph const&);
    /// Between what is called at once, nothing that is used is dropped.
    void beginUse() { ++m_use; }
    std::size_t memory() const { return m_memory; }

private:
    std::vector<Paragraph> split(std::size_t firstByte, std::size_t endByte, bool isAtEnd) const;
    void place(Paragraph&);
    void keep(Paragraph&, SetParagraph&&);
    void dropUnused();
    void sumUp();

    NSAttributedString const* m_string { nullptr };
    LineArea m_area { 0, 0, true };
    std::optional<Attributes> m_typingAttributes;
    std::vector<Paragraph> m_paragraphs;
    SpanCursor m_cursor;
    std::size_t m_textSize { 0 };
    std::size_t m_memory { 0 };
    std::uint32_t m_use { 0 };
    bool m_isPlaced { false };
};

}
