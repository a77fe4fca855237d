#include <plix/platform/graphics/TextLayout.h>

#include <plix/platform/graphics/LineDrawer.h>
#include <plix/platform/graphics/NSAttributedString.h>
#include <plix/platform/graphics/NSGraphicsContext.h>
#include <plix/platform/graphics/caret_stops.h>
#include <plix/platform/graphics/text_body.h>

#include <algorithm>
#include <cmath>

namespace plix {

namespace {

constexpr float widthThatDoesNotWrap = 1e6F;

}

/// A paragraph's line, with all that is asked of it.
struct PlacedLine {
    std::size_t paragraph;
    std::size_t number; ///< in the paragraph
    TextBody::Paragraph const* in;
    TextBody::Line const* line;
    std::shared_ptr<SetParagraph const> set;

    SetLine const& setLine() const { return set->lines[number]; }
    bool isLastOfParagraph() const { return number + 1 == in->lines.size(); }
    float top() const { return in->top + line->place.fragment.y; }
    float bottom() const { return top() + line->place.fragment.height; }
};

struct TextLayout::Body : TextBody {
    PlacedLine placedLine(long index)
    {
        index = std::clamp(index, 0L, lineCount() - 1);
        auto const paragraph = paragraphOfLine(index);
        return placedLine(paragraph, static_cast<std::size_t>(index - paragraphs()[paragraph].firstLine));
    }
    PlacedLine placedLine(std::size_t paragraph, std::size_t number)
    {
        auto set = shaped(paragraph);
        auto const& in = paragraphs()[paragraph];
        return { paragraph, number, &in, &in.lines[number], std::move(set) };
    }
    PlacedLine lineOfUnit(long unit)
    {
        auto const paragraph = paragraphOfUnit(std::clamp(unit, 0L, length()));
        auto const byte = byteInParagraph(paragraph, unit);
        auto const& lines = paragraphs()[paragraph].lines;
        auto const isBefore = [](std::uint32_t wanted, Line const& line) { return wanted < line.firstByte; };
        auto const found = std::upper_bound(lines.begin(), lines.end(), byte, isBefore);
        return placedLine(paragraph, static_cast<std::size_t>(std::max<std::ptrdiff_t>(found - lines.begin() - 1, 0)));
    }
    std::uint32_t byteInParagraph(std::size_t index, long unit)
    {
        auto const& paragraph = paragraphs()[index];
        if (!string())
            return 0;
        auto const byte = string()->positions().byteOfUnit(string()->string(), unit);
        return static_cast<std::uint32_t>(std::min(byte - std::min(byte, paragraph.firstByte), paragraph.contentLength));
    }
    long unitOfByte(TextBody::Paragraph const& paragraph, std::size_t byte) const
    {
        return string() ? string()->positions().unitOfByte(string()->string(), paragraph.firstByte + byte) : 0;
    }
    /// The line's characters, a line end included.
    NSRange rangeOf(PlacedLine const& line) const
    {
        long const first = unitOfByte(*line.in, line.line->firstByte);
        long const end
            = line.isLastOfParagraph() ? line.in->firstUnit + line.in->unitLength : unitOfByte(*line.in, line.line->endByte);
        return { first, end - first };
    }
    /// Where the caret stands at the end of the line: before the blank at which it was wrapped.
    std::uint32_t lastCaretByte(PlacedLine const& line) const
    {
        if (line.isLastOfParagraph())
            return line.line->endByte;
        return static_cast<std::uint32_t>(
            std::max<std::size_t>(line.line->firstByte, previousCaretStop(content(*line.in), line.line->endByte)));
    }
};

TextLayout::TextLayout()
    : m_body(std::make_unique<Body>())
{
}

TextLayout::~TextLayout() = default;

void TextLayout::setString(NSAttributedString const* string)
{
    m_body->setString(string);
}

void TextLayout::stringEdited(NSRange range, long changeInLength)
{
    m_body->stringEdited(range, changeInLength);
}

void TextLayout::setWidth(float width)
{
    m_width = width;
    bool const isUnlimited = width >= widthThatDoesNotWrap;
    m_body->setArea({ isUnlimited ? 0 : usableLength(width), m_body->area().padding, isUnlimited });
}

void TextLayout::setLineFragmentPadding(float padding)
{
    auto area = m_body->area();
    area.padding = usableLength(padding);
    m_body->setArea(area);
}

void TextLayout::setTypingAttributes(Attributes const& attributes)
{
    m_body->setTypingAttributes(attributes);
}

bool TextLayout::isEmpty() const
{
    return m_body->length() == 0;
}

Rect TextLayout::usedRect()
{
    return usedRectWithin(INFINITY);
}

Rect TextLayout::usedRectWithin(float height)
{
    if (isEmpty())
        return {};
    float left = INFINITY;
    float right = 0;
    float bottom = 0;
    for (auto const& paragraph : m_body->paragraphs()) {
        for (auto const& line : paragraph.lines) {
            float const lineBottom = paragraph.top + line.place.fragment.maxY();
            if (!(lineBottom <= height))
                return bottom > 0 ? Rect { left, 0, right - left, bottom } : Rect {};
            left = std::min(left, line.place.left - m_body->area().padding);
            right = std::max(right, line.place.left + line.place.width + m_body->area().padding);
            bottom = lineBottom;
        }
    }
    return { left, 0, right - left, bottom };
}

long TextLayout::linesWithin(float height)
{
    long count = 0;
    for (auto const& paragraph : m_body->paragraphs()) {
        if (paragraph.top + paragraph.height <= height) {
            count += static_cast<long>(paragraph.lines.size());
            continue;
        }
        for (auto const& line : paragraph.lines)
            count += paragraph.top + line.place.fragment.maxY() <= height ? 1 : 0;
        break;
    }
    return count;
}

long TextLayout::numberOfLines()
{
    return m_body->lineCount();
}

TextLine TextLayout::line(long index)
{
    auto const placed = m_body->placedLine(index);
    auto const& place = placed.line->place;
    TextLine line;
    line.range = m_body->rangeOf(placed);
    line.fragment = NSOffsetRect(place.fragment, 0, placed.in->top);
    line.used = { place.left, line.fragment.y, place.width, line.fragment.height };
    line.baseline = placed.in->top + place.baseline;
    return line;
}

long TextLayout::lineOfIndex(long index)
{
    auto const placed = m_body->lineOfUnit(index);
    return placed.in->firstLine + static_cast<long>(placed.number);
}

long TextLayout::lineAtY(float y)
{
    if (std::isnan(y))
        return 0;
    auto const& paragraph = m_body->paragraphs()[m_body->paragraphAtY(y)];
    auto const isAbove = [](float wanted, TextBody::Line const& line) { return wanted < line.place.fragment.y; };
    auto const found = std::upper_bound(paragraph.lines.begin(), paragraph.lines.end(), y - paragraph.top, isAbove);
    return paragraph.firstLine + static_cast<long>(std::max<std::ptrdiff_t>(found - paragraph.lines.begin() - 1, 0));
}

TextPosition TextLayout::positionAt(Point point)
{
    auto const line = m_body->placedLine(lineAtY(point.y));
    auto const text = m_body->content(*line.in);
    float const x = std::isnan(point.x) ? 0 : point.x;
    auto const found = positionInLine(*line.set, line.setLine(), text, x - line.line->place.left);
    TextPosition position;
    position.index = m_body->unitOfByte(*line.in, found.byte);
    position.isTrailing = found.isTrailing;
    position.insertionIndex = m_body->unitOfByte(*line.in, std::min(found.insertion, m_body->lastCaretByte(line)));
    position.isInsideText = found.isInside && point.y >= line.top() && point.y < line.bottom();
    return position;
}

Rect TextLayout::caretRect(long index)
{
    auto const line = m_body->lineOfUnit(index);
    auto const byte = m_body->byteInParagraph(line.paragraph, index);
    float const x = caretInLine(*line.set, line.setLine(), m_body->content(*line.in), byte);
    return { line.line->place.left + x, line.top(), 1, line.line->place.fragment.height };
}

std::vector<Rect> TextLayout::rectsOfRange(NSRange range)
{
    std::vector<Rect> rects;
    if (range.length <= 0 || isEmpty())
        return rects;
    for (long i = lineOfIndex(range.location); i < numberOfLines(); ++i) {
        auto const line = m_body->placedLine(i);
        if (m_body->rangeOf(line).location >= range.end())
            break;
        auto const first = m_body->byteInParagraph(line.paragraph, range.location);
        auto const end = m_body->byteInParagraph(line.paragraph, range.end());
        auto const& place = line.line->place;
        for (auto const& extent : extentsInLine(*line.set, line.setLine(), m_body->content(*line.in),
                 std::max(first, line.line->firstByte), std::min(end, line.line->endByte)))
            rects.push_back({ place.left + extent.left, line.top(), extent.right - extent.left, place.fragment.height });
    }
    return rects;
}

std::vector<Rect> TextLayout::selectionRects(NSRange range)
{
    std::vector<Rect> rects;
    if (range.length <= 0 || isEmpty())
        return rects;
    float const firstEdge = m_body->area().padding;
    for (long i = lineOfIndex(range.location); i < numberOfLines(); ++i) {
        auto const line = m_body->placedLine(i);
        auto const lineRange = m_body->rangeOf(line);
        if (lineRange.location >= range.end())
            break;
        auto const& place = line.line->place;
        float const lastEdge = m_body->area().isUnlimited ? place.left + place.width : m_body->area().width - firstEdge;
        auto lineRects = rectsOfRange(NSIntersectionRange(range, lineRange));
        bool const isRightToLeft = line.setLine().isRightToLeft;
        bool const comesFromBefore = range.location < lineRange.location;
        bool const goesOn = range.end() > lineRange.end()
            || (range.end() == lineRange.end() && i + 1 < numberOfLines() && range.end() > lineRange.location);
        if (lineRects.empty())
            lineRects.push_back({ place.left + (isRightToLeft ? place.width : 0), line.top(), 0, place.fragment.height });
        auto& leftmost = lineRects.front();
        if (isRightToLeft ? goesOn : comesFromBefore) {
            float const right = leftmost.maxX();
            leftmost.x = std::min(leftmost.x, firstEdge);
            leftmost.width = right - leftmost.x;
        }
        auto& rightmost = lineRects.back();
        if (isRightToLeft ? comesFromBefore : goesOn)
            rightmost.width = std::max(rightmost.maxX(), lastEdge) - rightmost.x;
        for (auto const& rect : lineRects) {
            if (rect.width > 0)
                rects.push_back(rect);
        }
    }
    return rects;
}

long TextLayout::indexMovedVisually(long index, int direction)
{
    index = std::clamp(index, 0L, m_body->length());
    auto const line = m_body->lineOfUnit(index);
    auto byte = m_body->byteInParagraph(line.paragraph, index);
    auto const text = m_body->content(*line.in);
    if (moveCaretInLine(*line.set, line.setLine(), text, direction, byte) && byte <= m_body->lastCaretByte(line))
        return m_body->unitOfByte(*line.in, byte);
    bool const isForwards = (direction > 0) != line.setLine().isRightToLeft;
    long const number = line.in->firstLine + static_cast<long>(line.number);
    if (isForwards)
        return number + 1 < numberOfLines() ? m_body->rangeOf(m_body->placedLine(number + 1)).location : index;
    if (number == 0)
        return index;
    auto const before = m_body->placedLine(number - 1);
    return m_body->unitOfByte(*before.in, m_body->lastCaretByte(before));
}

void TextLayout::draw(Point origin, float height, Part part)
{
    drawLines(0, numberOfLines(), origin, height, part);
}

void TextLayout::drawLines(long first, long last, Point origin, float height, Part part)
{
    auto const context = NSGraphicsContext::currentContext();
    if (!context || isEmpty() || !std::isfinite(origin.x) || !std::isfinite(origin.y) || !std::isfinite(height))
        return;
    m_body->beginUse();
    Point const corner { origin.x, context->isFlipped() ? origin.y : origin.y + height };
    LineDrawer drawer(*context, corner);
    // Ink may leave its line by about the line's height.
    auto const clip = context->clipBounds();
    float const visibleTop = context->isFlipped() ? clip.y - corner.y : corner.y - clip.maxY();
    float const visibleBottom = visibleTop + clip.height;
    long const firstVisible = std::max(first, lineAtY(visibleTop) - 1);
    auto const each = [&](auto draw) {
        for (long i = std::max(firstVisible, 0L); i < std::min(last, numberOfLines()); ++i) {
            auto const line = m_body->placedLine(i);
            if (line.top() - line.line->place.fragment.height > visibleBottom)
                return;
            auto place = line.line->place;
            place.fragment.y += line.in->top;
            place.baseline += line.in->top;
            draw(line, place, m_body->spans(*line.in));
        }
    };
    if (part != Part::text)
        each([&](auto const& line, auto const& place, auto const& spans) {
            drawer.drawBackground(*line.set, line.setLine(), place, spans);
        });
    if (part != Part::backgrounds)
        each([&](auto const& line, auto const& place, auto const& spans) {
            drawer.drawText(*line.set, line.setLine(), place, spans);
        });
}

}
