#include <plix/platform/graphics/string_drawing.h>
#include <plix/platform/graphics/text_line.h>

#include <plix/platform/base/utf16.h>
#include <plix/platform/graphics/FontFace.h>
#include <plix/platform/graphics/GlyphPainter.h>
#include <plix/platform/graphics/LineDrawer.h>
#include <plix/platform/graphics/NSAttributedString.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSGraphicsContext.h>
#include <plix/platform/graphics/NSMutableParagraphStyle.h>
#include <plix/platform/graphics/ShapedTextCache.h>
#include <plix/platform/graphics/paragraph_setter.h>
#include <plix/platform/graphics/simple_setter.h>
#include <plix/platform/graphics/text_spans.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

namespace plix {

namespace {

constexpr float unlimited = -1;
// A line that misses its room by less than this is drawn all the same.
constexpr float tolerance = 0.5F;

bool placesLinesPlainly(ParagraphLayout const& layout)
{
    return layout.baseWritingDirection != NSWritingDirectionRightToLeft && layout.headIndent == 0 && layout.firstLineHeadIndent == 0
        && layout.tailIndent == 0 && layout.minimumLineHeight == 0 && layout.maximumLineHeight == 0
        && layout.lineHeightMultiple == 0;
}

/// Text that one line of one font can show, straight from the font's tables.
class TableLine {
public:
    TableLine(std::string_view text, TextStyle const& style)
        : m_text(text)
        , m_style(&style)
        , m_layout(&paragraphLayout(style))
    {
    }

    bool measure()
    {
        if (!m_style->isPlainlySet() || !placesLinesPlainly(*m_layout))
            return false;
        if (!table().set(m_text, m_advance, [](std::uint32_t, int) {}))
            return false;
        ++settingCounts().tableSettings;
        return true;
    }
    Size size() const { return { static_cast<float>(m_advance), m_style->font->defaultLineHeightForFont() }; }
    bool isPlainlyDrawn() const
    {
        return !m_style->background && !m_style->shadow && m_style->underline == 0 && m_style->strikethrough == 0;
    }

    /// The corner is the line's upper left one.
    void draw(NSGraphicsContext& context, Point corner) const
    {
        thread_local std::vector<SetGlyph> glyphs;
        glyphs.clear();
        int advance = 0;
        table().set(m_text, advance, [](std::uint32_t glyph, int x) { glyphs.push_back({ glyph, static_cast<float>(x), 0 }); });
        float const down = m_style->font->face().metrics().lineAscent();
        GlyphPainter painter(context);
        painter.setColor(m_style->foreground);
        painter.paint(
            *m_style->font->face().glyphs(), glyphs, { corner.x, context.isFlipped() ? corner.y + down : corner.y - down });
    }

private:
    SimpleTextTable& table() const { return m_style->font->face().simpleText(); }

    std::string_view m_text;
    TextStyle const* m_style;
    ParagraphLayout const* m_layout;
    int m_advance { 0 };
};

void drawBlock(NSGraphicsContext& context, SetBlock const& block, std::span<StyleSpan const> spans, Point corner, float height)
{
    LineDrawer drawer(context, corner);
    auto const each = [&](auto draw) {
        bool isFirst = true;
        for (auto const& paragraph : block.paragraphs) {
            auto const local = spans.subspan(paragraph.firstSpan);
            for (std::size_t i = 0; i < paragraph.set.lines.size(); ++i) {
                auto const& place = paragraph.places[i];
                if (!isFirst && !(place.fragment.maxY() <= height + tolerance))
                    return;
                draw(paragraph.set, paragraph.set.lines[i], place, local);
                isFirst = false;
            }
        }
    };
    if (std::any_of(spans.begin(), spans.end(), [](auto const& span) { return span.style.background; }))
        each([&](auto const& set, auto const& line, auto const& place, auto local) {
            drawer.drawBackground(set, line, place, local);
        });
    each([&](auto const& set, auto const& line, auto const& place, auto local) { drawer.drawText(set, line, place, local); });
}

float upperEdge(NSGraphicsContext const& context, float y, float height)
{
    return context.isFlipped() ? y : y + height;
}

/// A text and its spans, on the way to the cache. Spans of several texts may be in use at once: an attachment draws text.
struct SpannedText {
    std::string_view text;
    std::string repaired;
    StyleSpan onlySpan;
    std::vector<StyleSpan> manySpans;
    std::span<StyleSpan const> spans;

    SpannedText(std::string_view plain, TextStyle const& style)
        : text(plain)
    {
        if (!isValidUTF8(plain)) {
            repaired = validUTF8(plain);
            text = repaired;
        }
        onlySpan = { static_cast<std::uint32_t>(text.size()), style };
        spans = { &onlySpan, 1 };
    }
    explicit SpannedText(NSAttributedString const& string)
        : text(string.string())
        , manySpans(SpanCursor().spans(string, 0, text.size()))
        , spans(manySpans)
    {
    }
    SpannedText(SpannedText const&) = delete;
    SpannedText& operator=(SpannedText const&) = delete;

    SetBlock const& block(float width) const { return ShapedTextCache::shared().block(text, spans, width); }
    /// The line break mode that the text as a whole goes by.
    NSLineBreakMode lineBreakMode() const { return paragraphLayout(spans[0].style).lineBreakMode; }

    /// What is drawn may end up drawing text itself, in an attachment: the block is kept out of the cache's reach.
    void draw(float width, Point corner, float height) const
    {
        auto const context = NSGraphicsContext::currentContext();
        bool const hasAttachment
            = std::any_of(spans.begin(), spans.end(), [](StyleSpan const& span) { return span.style.attachment != nullptr; });
        if (hasAttachment) {
            SetBlock const own = block(width);
            drawBlock(*context, own, spans, corner, height);
        } else {
            drawBlock(*context, block(width), spans, corner, height);
        }
    }

    void drawInRect(Rect rect) const
    {
        auto const context = NSGraphicsContext::currentContext();
        float const width = usableLength(rect.width);
        Point const corner { rect.x, upperEdge(*context, rect.y, rect.height) };
        bool const clips = lineBreakMode() == NSLineBreakByClipping && block(unlimited).size.width > width;
        std::optional<GraphicsState> saved;
        if (clips) {
            saved.emplace(*context);
            context->clipToRect(rect);
        }
        draw(width, corner, rect.height);
    }
};

bool canDrawAt(Point point)
{
    return NSGraphicsContext::currentContext() && std::isfinite(point.x) && std::isfinite(point.y);
}

/// Where the line's left end stands in a rectangle that has room for it.
float alignedLeft(Rect rect, float advance, NSTextAlignment alignment)
{
    float const spare = rect.width - advance;
    return rect.x + (alignment == NSRightTextAlignment ? spare : alignment == NSCenterTextAlignment ? spare * 0.5F : 0);
}

/// One style for each alignment and mode, made once.
NSParagraphStyle const& lineParagraphStyle(NSTextAlignment alignment, NSLineBreakMode mode)
{
    constexpr std::size_t modes = NSLineBreakByTruncatingMiddle + 1;
    static auto& s_styles = *new std::array<Ref<NSParagraphStyle>, (NSNaturalTextAlignment + 1) * modes>;
    auto& style = s_styles.at(static_cast<std::size_t>(alignment) * modes + static_cast<std::size_t>(mode));
    if (!style) {
        auto const made = make<NSMutableParagraphStyle>();
        made->setAlignment(alignment);
        made->setLineBreakMode(mode);
        style = made;
    }
    return *style;
}

/// A text that does not fit, with an ellipsis, in tables alone; false where they can't.
bool truncateByTable(FontFace& font, std::string_view text, float width, NSLineBreakMode mode, std::string& shown)
{
    thread_local SimpleGlyphs whole;
    Truncation truncation;
    return shapeFromTable(font, text, whole) && truncateSimply(font, text, whole, width, mode, shown, truncation);
}

}

float widthOfTextLine(std::string_view text, NSFont const& font)
{
    TextStyle style;
    style.font = &font;
    TableLine line(text, style);
    if (text.empty())
        return 0;
    return line.measure() ? line.size().width : SpannedText(text, style).block(unlimited).size.width;
}

void drawTextLine(std::string_view text, Rect rect, TextLineStyle const& lineStyle)
{
    if (text.empty() || !canDrawAt(rect.origin()))
        return;
    TextStyle style;
    style.font = &lineStyle.font;
    style.foreground = lineStyle.color;
    auto const context = NSGraphicsContext::currentContext();
    TableLine line(text, style);
    thread_local std::string shown;
    bool isSet = line.measure();
    bool const truncates = lineStyle.lineBreakMode >= NSLineBreakByTruncatingHead;
    if (isSet && line.size().width > rect.width) {
        isSet = truncates && truncateByTable(style.font->face(), text, rect.width, lineStyle.lineBreakMode, shown);
        line = TableLine(shown, style);
        isSet = isSet && line.measure();
    }
    if (isSet) {
        float const left = alignedLeft(rect, line.size().width, lineStyle.alignment);
        line.draw(*context, { left, upperEdge(*context, rect.y, rect.height) });
        return;
    }
    auto& paragraph = lineParagraphStyle(lineStyle.alignment, truncates ? lineStyle.lineBreakMode : NSLineBreakByClipping);
    style.paragraph = &paragraph;
    SpannedText(text, style).drawInRect(rect);
}

Size sizeWithAttributes(std::string_view text, Attributes const& attributes)
{
    if (text.empty())
        return {};
    auto const style = textStyle(attributes);
    TableLine line(text, style);
    return line.measure() ? line.size() : SpannedText(text, style).block(unlimited).size;
}

void drawAtPoint(std::string_view text, Point point, Attributes const& attributes)
{
    if (text.empty() || !canDrawAt(point))
        return;
    auto const style = textStyle(attributes);
    auto const context = NSGraphicsContext::currentContext();
    TableLine line(text, style);
    if (line.isPlainlyDrawn() && line.measure()) {
        line.draw(*context, { point.x, upperEdge(*context, point.y, line.size().height) });
        return;
    }
    SpannedText const spanned(text, style);
    float const height = spanned.block(unlimited).size.height;
    spanned.draw(unlimited, { point.x, upperEdge(*context, point.y, height) }, height);
}

void drawInRect(std::string_view text, Rect rect, Attributes const& attributes)
{
    if (text.empty() || !canDrawAt(rect.origin()))
        return;
    auto const style = textStyle(attributes);
    TableLine line(text, style);
    if (line.isPlainlyDrawn() && line.measure() && line.size().width <= rect.width) {
        auto const context = NSGraphicsContext::currentContext();
        float const left = alignedLeft(rect, line.size().width, paragraphLayout(style).alignment);
        line.draw(*context, { left, upperEdge(*context, rect.y, rect.height) });
        return;
    }
    SpannedText(text, style).drawInRect(rect);
}

Size sizeForWidth(std::string_view text, float width, Attributes const& attributes)
{
    if (text.empty())
        return {};
    auto const style = textStyle(attributes);
    TableLine line(text, style);
    if (line.measure() && line.size().width <= width)
        return line.size();
    return SpannedText(text, style).block(usableLength(width)).size;
}

Size sizeForWidth(NSAttributedString const& string, float width)
{
    return string.length() == 0 ? Size {} : SpannedText(string).block(usableLength(width)).size;
}

Size NSAttributedString::size() const
{
    if (m_runs.size() == 1)
        return sizeWithAttributes(m_text, *m_runs[0].attributes);
    return m_text.empty() ? Size {} : SpannedText(*this).block(unlimited).size;
}

void NSAttributedString::drawAtPoint(Point point) const
{
    if (m_runs.size() == 1) {
        plix::drawAtPoint(m_text, point, *m_runs[0].attributes);
    } else if (!m_text.empty() && canDrawAt(point)) {
        SpannedText const spanned(*this);
        float const height = spanned.block(unlimited).size.height;
        spanned.draw(unlimited, { point.x, upperEdge(*NSGraphicsContext::currentContext(), point.y, height) }, height);
    }
}

void NSAttributedString::drawInRect(Rect rect) const
{
    if (m_runs.size() == 1)
        plix::drawInRect(m_text, rect, *m_runs[0].attributes);
    else if (!m_text.empty() && canDrawAt(rect.origin()))
        SpannedText(*this).drawInRect(rect);
}

}
