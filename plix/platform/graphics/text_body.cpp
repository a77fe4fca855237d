#include <plix/platform/graphics/text_body.h>

#include <plix/platform/base/utf16.h>
#include <plix/platform/graphics/NSAttributedString.h>
#include <plix/platform/graphics/paragraph_setter.h>
#include <plix/platform/graphics/text_lines.h>

#include <algorithm>
#include <cmath>
#include <iterator>

namespace plix {

namespace {

// Shaped text takes about thirty bytes a character: this holds some hundred pages.
constexpr std::size_t largestShapedMemory = 24U << 20U;

}

void TextBody::setString(NSAttributedString const* string)
{
    m_string = string;
    m_textSize = string ? string->string().size() : 0;
    m_cursor.restart();
    m_paragraphs = split(0, m_textSize, true);
    m_memory = 0;
    m_isPlaced = false;
    sumUp();
}

void TextBody::stringEdited(NSRange range, long changeInLength)
{
    if (m_paragraphs.empty() || !m_string || m_paragraphs.size() == 1) {
        setString(m_string);
        return;
    }
    // What was there before the edit: the paragraphs that it touched, and the one before, whose end it may have joined.
    long const oldEnd = range.location + range.length - changeInLength;
    auto const at = [this](std::size_t index) { return m_paragraphs.begin() + static_cast<std::ptrdiff_t>(index); };
    auto const holds = [](long unit, Paragraph const& paragraph) { return unit < paragraph.firstUnit; };
    auto const indexOf = [&](long unit) {
        auto const found = std::upper_bound(m_paragraphs.begin(), m_paragraphs.end(), unit, holds);
        return static_cast<std::size_t>(std::max<std::ptrdiff_t>(found - m_paragraphs.begin() - 1, 0));
    };
    auto const first = indexOf(std::max(range.location - 1, 0L));
    auto const last = indexOf(oldEnd);
    auto const newSize = m_string->string().size();
    auto const firstByte = m_paragraphs[first].firstByte;
    auto const oldEndByte = m_paragraphs[last].firstByte + m_paragraphs[last].byteLength;
    auto fresh = split(firstByte, oldEndByte + newSize - m_textSize, last + 1 == m_paragraphs.size());
    for (auto i = first; i <= last; ++i) {
        if (m_paragraphs[i].set)
            m_memory -= m_paragraphs[i].set->memory();
    }
    m_paragraphs.erase(at(first), at(last + 1));
    m_paragraphs.insert(at(first), std::make_move_iterator(fresh.begin()), std::make_move_iterator(fresh.end()));
    m_textSize = newSize;
    m_cursor.restart();
    m_isPlaced = false;
    sumUp();
}

std::vector<TextBody::Paragraph> TextBody::split(std::size_t firstByte, std::size_t endByte, bool isAtEnd) const
{
    std::string_view const text = m_string ? std::string_view(m_string->string()).substr(0, endByte) : std::string_view {};
    std::vector<Paragraph> paragraphs;
    ParagraphBytes bytes { firstByte, firstByte, firstByte };
    do {
        bytes = paragraphAt(text, bytes.end);
        Paragraph paragraph;
        paragraph.byteLength = bytes.end - bytes.start;
        paragraph.contentLength = bytes.contentEnd - bytes.start;
        paragraph.unitLength = utf16Length(text.substr(bytes.start, paragraph.byteLength));
        paragraphs.push_back(std::move(paragraph));
    } while (bytes.end < endByte || (isAtEnd && bytes.isClosed()));
    return paragraphs;
}

void TextBody::setArea(LineArea const& area)
{
    if (area.width == m_area.width && area.padding == m_area.padding && area.isUnlimited == m_area.isUnlimited)
        return;
    m_area = area;
    for (auto& paragraph : m_paragraphs) {
        paragraph.lines.clear();
        paragraph.set = nullptr;
    }
    m_memory = 0;
    m_isPlaced = false;
}

void TextBody::setTypingAttributes(Attributes const& attributes)
{
    m_typingAttributes = attributes;
    if (m_paragraphs.empty() || m_paragraphs.back().contentLength > 0)
        return;
    m_paragraphs.back().lines.clear();
    m_isPlaced = false;
}

long TextBody::length() const
{
    return m_string ? m_string->length() : 0;
}

std::string_view TextBody::content(Paragraph const& paragraph) const
{
    return m_string ? std::string_view(m_string->string()).substr(paragraph.firstByte, paragraph.contentLength)
                    : std::string_view {};
}

std::vector<StyleSpan> TextBody::spans(Paragraph const& paragraph)
{
    bool const isTyping = paragraph.byteLength == 0 && m_typingAttributes;
    if (!m_string || isTyping)
        return { { 0, textStyle(m_typingAttributes ? *m_typingAttributes : Attributes {}) } };
    auto const end = paragraph.firstByte + paragraph.contentLength;
    // An empty paragraph is set as its own line end is.
    if (paragraph.contentLength == 0 && paragraph.byteLength > 0) {
        auto spans = m_cursor.spans(*m_string, paragraph.firstByte, paragraph.firstByte + paragraph.byteLength);
        spans.resize(1);
        spans[0].endByte = 0;
        return spans;
    }
    return m_cursor.spans(*m_string, paragraph.firstByte, end);
}

std::vector<TextBody::Paragraph> const& TextBody::paragraphs()
{
    if (m_isPlaced)
        return m_paragraphs;
    if (m_paragraphs.empty())
        setString(m_string);
    beginUse();
    for (std::size_t i = 0; i < m_paragraphs.size(); ++i) {
        if (m_paragraphs[i].lines.empty())
            place(m_paragraphs[i]);
        if (m_memory > largestShapedMemory) {
            // The last one stays: it may be all there is, and too large by itself.
            beginUse();
            m_paragraphs[i].lastUse = m_use;
            dropUnused();
        }
    }
    sumUp();
    m_isPlaced = true;
    return m_paragraphs;
}

void TextBody::place(Paragraph& paragraph)
{
    auto const spans = this->spans(paragraph);
    auto const& layout = paragraphLayout(spans[0].style);
    float const width = m_area.isUnlimited ? -1 : lineWidthInArea(layout, m_area);
    auto set = setParagraph({ content(paragraph), spans, layout }, width);
    std::vector<LinePlace> places;
    paragraph.height = placeLines(measuresOf(set), layout, m_area, {}, places);
    paragraph.spacingBefore = layout.paragraphSpacingBefore;
    paragraph.spacingAfter = layout.paragraphSpacing;
    paragraph.lines.clear();
    paragraph.lines.reserve(places.size());
    for (std::size_t i = 0; i < places.size(); ++i)
        paragraph.lines.push_back({ set.lines[i].firstByte, set.lines[i].endByte, places[i] });
    keep(paragraph, std::move(set));
}

void TextBody::keep(Paragraph& paragraph, SetParagraph&& set)
{
    if (paragraph.set)
        m_memory -= paragraph.set->memory();
    paragraph.set = std::make_shared<SetParagraph const>(std::move(set));
    paragraph.lastUse = m_use;
    m_memory += paragraph.set->memory();
}

void TextBody::dropUnused()
{
    for (auto& paragraph : m_paragraphs) {
        if (!paragraph.set || paragraph.lastUse == m_use)
            continue;
        m_memory -= paragraph.set->memory();
        paragraph.set = nullptr;
    }
}

std::shared_ptr<SetParagraph const> TextBody::shaped(std::size_t index)
{
    paragraphs();
    auto& paragraph = m_paragraphs[index];
    paragraph.lastUse = m_use;
    if (!paragraph.set) {
        place(paragraph);
        if (m_memory > largestShapedMemory)
            dropUnused();
    }
    return paragraph.set;
}

void TextBody::sumUp()
{
    std::size_t byte = 0;
    long unit = 0;
    long line = 0;
    float y = 0;
    for (auto& paragraph : m_paragraphs) {
        paragraph.firstByte = byte;
        paragraph.firstUnit = unit;
        paragraph.firstLine = line;
        paragraph.top = y + (byte > 0 ? paragraph.spacingBefore : 0);
        byte += paragraph.byteLength;
        unit += paragraph.unitLength;
        line += static_cast<long>(paragraph.lines.size());
        y = paragraph.top + paragraph.height + paragraph.spacingAfter;
    }
}

long TextBody::lineCount()
{
    auto const& last = paragraphs().back();
    return last.firstLine + static_cast<long>(last.lines.size());
}

float TextBody::height()
{
    auto const& last = paragraphs().back();
    return last.top + last.height;
}

std::size_t TextBody::paragraphOfLine(long line)
{
    auto const isBefore = [](long wanted, Paragraph const& paragraph) { return wanted < paragraph.firstLine; };
    auto const& all = paragraphs();
    auto const found = std::upper_bound(all.begin(), all.end(), line, isBefore);
    return static_cast<std::size_t>(std::max<std::ptrdiff_t>(found - all.begin() - 1, 0));
}

std::size_t TextBody::paragraphOfUnit(long unit)
{
    auto const isBefore = [](long wanted, Paragraph const& paragraph) { return wanted < paragraph.firstUnit; };
    auto const& all = paragraphs();
    auto const found = std::upper_bound(all.begin(), all.end(), unit, isBefore);
    return static_cast<std::size_t>(std::max<std::ptrdiff_t>(found - all.begin() - 1, 0));
}

std::size_t TextBody::paragraphAtY(float y)
{
    auto const isBefore = [](float wanted, Paragraph const& paragraph) { return wanted < paragraph.top; };
    auto const& all = paragraphs();
    auto const found = std::upper_bound(all.begin(), all.end(), y, isBefore);
    return static_cast<std::size_t>(std::max<std::ptrdiff_t>(found - all.begin() - 1, 0));
}

}
