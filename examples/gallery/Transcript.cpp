#include "Transcript.h"
#include "code_wrapping.h"

#include <plix/platform/appkit/Theme.h>
#include <plix/platform/base/exceptions.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSGraphics.h>
#include <plix/platform/graphics/NSParagraphStyle.h>
#include <plix/platform/graphics/string_drawing.h>

#include <algorithm>
#include <cmath>

namespace gallery {

using namespace plix;

namespace {

constexpr float padding = 8;
constexpr float gap = 16;
constexpr float lineHeight = 18;
constexpr float expressionShare = 0.58F;
constexpr float fontSize = 11;
constexpr float headingGap = 5;

Attributes attributes(Ref<NSFont> const& font, Ref<NSColor> const& color)
{
    return { { NSFontAttributeName, font }, { NSForegroundColorAttributeName, color } };
}

Attributes codeAttributes(Ref<NSColor> const& color)
{
    return attributes(NSFont::userFixedPitchFontOfSize(fontSize), color);
}

/// Blue enough to be told apart, dark or light enough to be read.
Ref<NSColor> resultColor()
{
    return NSColor::keyboardFocusIndicatorColor()->blendedColorWithFraction(0.4F, *NSColor::controlTextColor());
}

/// Code in as many lines as it takes in that width.
std::string shown(std::string_view code, float width)
{
    float const character = NSFont::userFixedPitchFontOfSize(fontSize)->widthOfString("0");
    return wrappedCode(code, static_cast<long>(width / character));
}

float extent(std::string_view text, float width, Attributes const& look)
{
    return text.empty() ? 0 : std::ceil(sizeForWidth(text, width, look).height);
}

Attributes noteAttributes()
{
    return attributes(NSFont::systemFontOfSize(fontSize), Theme::current().color(ThemeRole::secondaryText));
}

Attributes headingAttributes()
{
    return attributes(NSFont::boldSystemFontOfSize(12), NSColor::controlTextColor());
}

}

bool Transcript::init(float width)
{
    return NSView::init(Rect { 0, 0, width, 2 * margin });
}

void Transcript::addHeading(std::string_view text)
{
    append(Kind::heading, text, {});
}

void Transcript::addNote(std::string_view text)
{
    append(Kind::note, text, {});
}

long Transcript::evaluate(std::string_view expression, FunctionRef<std::string()> value)
{
    try {
        return add(expression, value());
    } catch (NSRangeException const&) {
        return add(expression, "raises NSRangeException");
    }
}

long Transcript::add(std::string_view expression, std::string_view result)
{
    return append(Kind::line, expression, result);
}

long Transcript::append(Kind kind, std::string_view expression, std::string_view result)
{
    m_lines.push_back({ kind, std::string(expression), std::string(result) });
    m_lines.back().height = heightOf(m_lines.back());
    if (m_limit > 0 && lineCount() > m_limit)
        m_lines.erase(m_lines.begin(), m_lines.end() - m_limit);
    layOut();
    return lineCount() - 1;
}

void Transcript::setResult(long line, std::string_view result)
{
    auto& changed = m_lines.at(static_cast<std::size_t>(line));
    if (changed.result == result)
        return;
    changed.result = result;
    changed.height = heightOf(changed);
    layOut();
}

void Transcript::setLimit(long lines)
{
    m_limit = std::max(lines, 0L);
    if (m_limit > 0 && lineCount() > m_limit)
        m_lines.erase(m_lines.begin(), m_lines.end() - m_limit);
    layOut();
}

void Transcript::clear()
{
    m_lines.clear();
    layOut();
}

float Transcript::resultLeft() const
{
    return std::floor(margin + padding + (bounds().width - 2 * margin - 2 * padding) * expressionShare + gap / 2);
}

float Transcript::columnWidth(Line const& line) const
{
    if (line.kind != Kind::line || line.result.empty())
        return bounds().width - 2 * margin - 2 * padding;
    return resultLeft() - gap - margin - padding;
}

float Transcript::heightOf(Line const& line) const
{
    auto const color = NSColor::controlTextColor();
    if (line.kind == Kind::heading)
        return 26;
    if (line.kind == Kind::note)
        return std::max(lineHeight, extent(line.expression, columnWidth(line), noteAttributes()) + 5);
    float const left = extent(shown(line.expression, columnWidth(line)), columnWidth(line), codeAttributes(color));
    float const width = bounds().width - margin - padding - resultLeft();
    float const right = extent(shown(line.result, width), width, codeAttributes(color));
    return std::max(lineHeight, std::max(left, right) + 5);
}

void Transcript::layOut()
{
    // A heading has room above, which the page's edge gives the first one.
    float y = m_lines.empty() || m_lines.front().kind != Kind::heading ? margin : margin - headingGap;
    for (auto& line : m_lines) {
        line.top = y;
        y += line.height;
    }
    if (m_limit > 0)
        y = std::max(y, margin + static_cast<float>(m_limit) * lineHeight);
    setFrameSize({ frame().width, y + margin });
    setNeedsDisplay(true);
}

void Transcript::drawLine(Line const& line, bool isTinted) const
{
    float const width = columnWidth(line);
    Rect const place { margin + padding, line.top + 2, width, line.height };
    if (line.kind == Kind::note) {
        drawInRect(line.expression, place, noteAttributes());
        return;
    }
    if (line.kind == Kind::heading) {
        drawInRect(line.expression, NSOffsetRect(place, 0, headingGap), headingAttributes());
        return;
    }
    if (isTinted) {
        NSColor::controlTextColor()->colorWithAlphaComponent(0.045F)->set();
        NSRectFillUsingOperation({ margin, line.top, bounds().width - 2 * margin, line.height }, NSCompositeSourceOver);
    }
    drawInRect(shown(line.expression, width), place, codeAttributes(NSColor::controlTextColor()));
    if (line.result.empty())
        return;
    float const left = resultLeft();
    float const resultWidth = bounds().width - margin - padding - left;
    drawInRect(shown(line.result, resultWidth), { left, place.y, resultWidth, line.height }, codeAttributes(resultColor()));
}

void Transcript::drawRect(Rect dirty)
{
    NSColor::windowBackgroundColor()->set();
    NSRectFill(dirty);
    bool isTinted = false;
    for (auto const& line : m_lines) {
        isTinted = line.kind == Kind::line && !isTinted;
        if (line.top < dirty.maxY() && line.top + line.height > dirty.y)
            drawLine(line, isTinted);
    }
}

}
