#include <plix/platform/graphics/LineDrawer.h>

#include <plix/platform/graphics/GlyphFont.h>
#include <plix/platform/graphics/GlyphPainter.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSGraphics.h>
#include <plix/platform/graphics/NSGraphicsContext.h>
#include <plix/platform/graphics/inline_object.h>

#include <algorithm>
#include <optional>

namespace plix {

LineDrawer::LineDrawer(NSGraphicsContext& context, Point corner)
    : m_context(context)
    , m_corner(corner)
    , m_isFlipped(context.isFlipped())
{
}

Point LineDrawer::userPoint(float x, float y) const
{
    return { m_corner.x + x, m_isFlipped ? m_corner.y + y : m_corner.y - y };
}

Rect LineDrawer::userRect(float x, float y, float width, float height) const
{
    return { m_corner.x + x, m_isFlipped ? m_corner.y + y : m_corner.y - y - height, width, height };
}

void LineDrawer::drawBackground(
    SetParagraph const& paragraph, SetLine const& line, LinePlace const& place, std::span<StyleSpan const> spans)
{
    for (auto i = line.firstRun; i < line.firstRun + line.runCount; ++i) {
        auto const& run = paragraph.runs[i];
        if (auto const* color = spans[run.style].style.background)
            fill(userRect(place.left + run.left, place.fragment.y, run.width, place.fragment.height), color);
    }
}

void LineDrawer::drawText(
    SetParagraph const& paragraph, SetLine const& line, LinePlace const& place, std::span<StyleSpan const> spans)
{
    // A painter reads the context's state once; whatever else draws may change it.
    std::optional<GlyphPainter> painter;
    for (auto i = line.firstRun; i < line.firstRun + line.runCount; ++i) {
        auto const& run = paragraph.runs[i];
        auto const& style = spans[run.style].style;
        if (run.kind == SetRun::Kind::attachment) {
            painter.reset();
            drawAttachment(run, place, style);
        } else if (style.shadow) {
            painter.reset();
            GraphicsState const saved(m_context);
            m_context.setShadow(style.shadow);
            GlyphPainter shadowed(m_context);
            drawRun(shadowed, paragraph, run, place, style);
            drawDecorations(run, place, style);
        } else {
            if (!painter)
                painter.emplace(m_context);
            drawRun(*painter, paragraph, run, place, style);
            if (style.underline || style.strikethrough) {
                painter.reset();
                drawDecorations(run, place, style);
            }
        }
    }
}

void LineDrawer::drawRun(
    GlyphPainter& painter, SetParagraph const& paragraph, SetRun const& run, LinePlace const& place, TextStyle const& style)
{
    painter.setColor(style.foreground);
    std::span<SetGlyph const> const glyphs(paragraph.glyphs.data() + run.firstGlyph, run.glyphCount);
    painter.paint(*run.font, glyphs, userPoint(place.left, place.baseline - run.raise));
}

void LineDrawer::drawDecorations(SetRun const& run, LinePlace const& place, TextStyle const& style)
{
    auto const& metrics = run.font->metrics();
    float const thickness = std::max(1.0F, metrics.underlineThickness);
    float const baseline = place.baseline - run.raise;
    if (style.underline) {
        auto const* color = style.underlineColor ? style.underlineColor : style.foreground;
        float const factor = style.underline & NSUnderlineStyleThick ? 2 : 1;
        float const y = baseline - metrics.underlinePosition - thickness * 0.5F;
        drawRule(run, place, y, thickness * factor, color);
        if ((style.underline & NSUnderlineStyleDouble) == NSUnderlineStyleDouble)
            drawRule(run, place, y + 2 * thickness, thickness, color);
    }
    if (style.strikethrough) {
        auto const* color = style.strikethroughColor ? style.strikethroughColor : style.foreground;
        float const factor = style.strikethrough & NSUnderlineStyleThick ? 2 : 1;
        drawRule(run, place, baseline - metrics.xHeight * 0.5F - thickness * 0.5F, thickness * factor, color);
    }
}

void LineDrawer::drawRule(SetRun const& run, LinePlace const& place, float y, float thickness, NSColor const* color)
{
    fill(userRect(place.left + run.left, y, run.width, thickness), color);
}

void LineDrawer::drawAttachment(SetRun const& run, LinePlace const& place, TextStyle const& style)
{
    if (!style.attachment)
        return;
    auto const size = style.attachment->inlineSize();
    auto const offset = style.attachment->inlineBaselineOffset();
    float const height = usableLength(size.height);
    float const top = place.baseline - run.raise - offset.y - height;
    style.attachment->drawInline(userRect(place.left + run.left + offset.x, top, usableLength(size.width), height));
}

void LineDrawer::fill(Rect user, NSColor const* color)
{
    GraphicsState const saved(m_context);
    m_context.setFillColor(color ? *color : *NSColor::blackColor());
    NSRectFillUsingOperation(user, m_context.compositingOperation());
}

}
