#include <plix/platform/appkit/NSTableHeaderCell.h>

#include <plix/platform/appkit/Theme.h>
#include <plix/platform/appkit/cell_layout.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSImage.h>

#include <cmath>

namespace plix {

namespace {

/// Between the title or indicator and the header's edges.
constexpr float sidePadding = 3; // where the text of cells begins

}

PLIX_DESCRIBE(NSTableHeaderCell)
{
}

NSTableHeaderCell::NSTableHeaderCell() = default;
NSTableHeaderCell::~NSTableHeaderCell() = default;

bool NSTableHeaderCell::init()
{
    return NSTableHeaderCell::init(std::string_view {});
}

bool NSTableHeaderCell::init(std::string_view title)
{
    if (!Base::init(title))
        return false;
    setFont(NSFont::systemFontOfSize(NSFont::smallSystemFontSize()));
    setLineBreakMode(NSLineBreakByTruncatingTail);
    return true;
}

bool NSTableHeaderCell::init(NSCoder& coder)
{
    return Base::init(coder);
}

void NSTableHeaderCell::setIndicatorImage(Ref<NSImage> const& image)
{
    m_indicatorImage = image;
}

Rect NSTableHeaderCell::indicatorRectForBounds(Rect bounds) const
{
    if (!m_indicatorImage)
        return {};
    auto const size = m_indicatorImage->size();
    float const width = std::min(size.width, bounds.width);
    return { bounds.maxX() - sidePadding - width, bounds.y + std::floor((bounds.height - size.height) / 2), width, size.height };
}

Rect NSTableHeaderCell::titleRectForBounds(Rect bounds) const
{
    float const lineHeight = std::ceil(Base::cellSizeForBounds({ 0, 0, 40000, 40000 }).height);
    float const right = m_indicatorImage ? indicatorRectForBounds(bounds).x - sidePadding : bounds.maxX() - sidePadding;
    float const left = bounds.x + sidePadding - cellTextPadding;
    return { left, bounds.y + std::floor((bounds.height - 1 - lineHeight) / 2), std::max(0.F, right + cellTextPadding - left),
        lineHeight };
}

Size NSTableHeaderCell::cellSizeForBounds(Rect bounds) const
{
    auto size = Base::cellSizeForBounds(bounds);
    size.width += 2 * (sidePadding - cellTextPadding) + 1;
    if (m_indicatorImage)
        size.width += m_indicatorImage->size().width + sidePadding;
    size.height = std::max(size.height, Theme::headerHeight());
    return size;
}

void NSTableHeaderCell::drawWithFrame(Rect frame, NSView& controlView)
{
    setControlView(&controlView);
    auto const& theme = Theme::current();
    theme.drawHeaderCell(frame, isHighlighted() ? HeaderShade::pressed : m_isChosen ? HeaderShade::chosen : HeaderShade::plain);
    if (m_indicatorImage)
        Theme::drawImage(*m_indicatorImage, indicatorRectForBounds(frame), isEnabled());
    drawInteriorWithFrame(frame, controlView);
}

Ref<NSColor> NSTableHeaderCell::colorForText() const
{
    bool const isOwn = textColor() && textColor()->colorSpaceName() != NSNamedColorSpace;
    return isOwn || !isEnabled() ? Base::colorForText() : Theme::current().color(ThemeRole::headerText);
}

void NSTableHeaderCell::copyStateTo(NSObject& fresh) const
{
    Base::copyStateTo(fresh);
    auto& other = static_cast<NSTableHeaderCell&>(fresh);
    other.m_indicatorImage = m_indicatorImage;
    other.m_isChosen = m_isChosen;
}

}
