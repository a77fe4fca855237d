#include "Form.h"
#include "page_parts.h"

#include <plix/platform/appkit/Theme.h>
#include <plix/platform/graphics/NSFont.h>

#include <algorithm>
#include <cmath>

namespace gallery {

using namespace plix;

namespace {

constexpr float lineHeight = 26;
constexpr float captionHeight = 16;
// What is higher holds more than one line.
constexpr float highestLine = 44;

/// Level with the first of the row, or near the top of a high one.
float captionTop(std::vector<Ref<NSView>> const& controls, float height)
{
    if (controls.empty())
        return (lineHeight - captionHeight) / 2;
    auto const& first = *controls.front();
    float const line = heightAboveCaption(first);
    if (line > highestLine)
        return (lineHeight - captionHeight) / 2;
    return std::floor((height - first.frame().height) / 2) + std::floor((line - captionHeight) / 2);
}

}

Ref<Form> Form::page(float width)
{
    return make<Form>(Rect { 0, 0, width, 100 });
}

void Form::addRow(std::string_view caption, std::vector<Ref<NSView>> const& controls)
{
    float height = lineHeight;
    for (auto const& control : controls)
        height = std::max(height, control->frame().height);
    auto const label = NSTextField::labelWithString(caption);
    label->setAlignment(NSRightTextAlignment);
    label->setFrame({ 20, m_y + captionTop(controls, height), captionWidth, captionHeight });
    addSubview(*label);
    float x = left;
    for (auto const& control : controls) {
        control->setFrameOrigin({ x, m_y + std::floor((height - control->frame().height) / 2) });
        addSubview(*control);
        x = control->frame().maxX() + 10;
    }
    m_y += height + 10;
}

void Form::addNote(std::string_view text)
{
    auto const label = NSTextField::labelWithString(text);
    label->cell()->setWraps(true);
    label->setFont(NSFont::systemFontOfSize(11));
    label->setTextColor(Theme::current().color(ThemeRole::secondaryText));
    float const width = bounds().width - 40;
    float const height = std::ceil(label->cell()->cellSizeForBounds({ 0, 0, width, 1000 }).height);
    label->setFrame({ 20, m_y, width, height });
    addSubview(*label);
    m_y += height + 10;
}

void Form::addHeading(std::string_view text)
{
    auto const label = NSTextField::labelWithString(text);
    label->setFont(NSFont::boldSystemFontOfSize(13));
    label->setFrame({ 20, m_y + 4, bounds().width - 40, 18 });
    addSubview(*label);
    m_y += 32;
}

void Form::addView(Ref<NSView> const& view)
{
    view->setFrameOrigin({ 20, m_y });
    addSubview(*view);
    m_y += view->frame().height + 10;
}

void Form::sizeToRows()
{
    setFrameSize({ frame().width, m_y + (m_status ? 36 : 10) });
    if (m_status)
        m_status->setFrameOrigin({ 20, bounds().height - 30 });
}

void Form::addGap()
{
    m_y += 12;
}

void Form::addStatus(std::string_view text)
{
    m_status = NSTextField::labelWithString(text);
    m_status->setTextColor(Theme::current().color(ThemeRole::secondaryText));
    m_status->setFrame({ 20, bounds().height - 30, bounds().width - 40, 16 });
    addSubview(*m_status);
}

void Form::setStatus(std::string_view text)
{
    if (m_status)
        m_status->setStringValue(text);
}

}
