#include "StateSheet.h"

#include <plix/platform/appkit/NSControl.h>
#include <plix/platform/appkit/NSTextField.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSGraphics.h>

#include <cmath>
#include <utility>

namespace gallery {

using namespace plix;

namespace {

constexpr float margin = 20;
constexpr float captionWidth = 104;
constexpr float gap = 12;
constexpr float rowGap = 8;
constexpr float labelHeight = 16;

constexpr std::pair<SheetState, char const*> states[] {
    { SheetState::normal, "Normal" },
    { SheetState::hovered, "Hovered" },
    { SheetState::pressed, "Pressed" },
    { SheetState::focused, "Focused" },
    { SheetState::disabled, "Disabled" },
    { SheetState::inactive, "Inactive window" },
};

/// Looks as if its window were active, or were not, whichever it is.
class Place final : public NSView {
public:
    bool init(Rect frame, bool isActive)
    {
        m_isActive = isActive;
        return NSView::init(frame);
    }
    bool isFlipped() const override { return true; }
    bool looksActive() const override { return m_isActive; }
    // Nothing on a sheet reacts.
    NSView* hitTest(Point) override { return nullptr; }

private:
    bool m_isActive { true };
};

void putOn(SheetState state, NSControl& control)
{
    auto* cell = control.cell();
    control.setRefusesFirstResponder(true);
    switch (state) {
    case SheetState::hovered:
        if (cell)
            cell->setHovered(true);
        return;
    case SheetState::pressed:
        if (cell)
            cell->setHighlighted(true);
        return;
    case SheetState::focused:
        if (cell)
            cell->setShowsFirstResponder(true);
        return;
    case SheetState::disabled:
        control.setEnabled(false);
        return;
    case SheetState::normal:
    case SheetState::inactive:
        return;
    }
}

}

bool StateSheet::init(Size place)
{
    m_place = place;
    if (!NSView::init(Rect {}))
        return false;
    float x = margin + captionWidth + gap;
    m_y = margin;
    for (auto const& state : states) {
        addLabel(state.second, { x, m_y, m_place.width, labelHeight }, false);
        x += m_place.width + gap;
    }
    m_y += labelHeight + rowGap;
    return true;
}

void StateSheet::addLabel(std::string_view text, Rect frame, bool isCaption)
{
    auto const label = NSTextField::labelWithString(text);
    label->setAlignment(isCaption ? NSRightTextAlignment : NSCenterTextAlignment);
    label->setFont(NSFont::systemFontOfSize(11));
    label->setFrame(frame);
    addSubview(*label);
}

void StateSheet::addHeading(std::string_view text)
{
    auto const label = NSTextField::labelWithString(text);
    label->setFont(NSFont::boldSystemFontOfSize(11));
    label->setFrame({ margin, m_y + rowGap, 300, labelHeight });
    addSubview(*label);
    m_y += labelHeight + 2 * rowGap;
}

void StateSheet::addRow(std::string_view caption, MakeControl const& makeControl)
{
    float x = margin + captionWidth + gap;
    float height = m_place.height;
    for (auto const& state : states) {
        auto const control = makeControl();
        auto const size = control->frame().size();
        height = std::max(m_place.height, size.height);
        auto const place = make<Place>(Rect { x, m_y, m_place.width, height }, state.first != SheetState::inactive);
        control->setFrameOrigin({ std::floor((m_place.width - size.width) / 2), std::floor((height - size.height) / 2) });
        place->addSubview(*control);
        putOn(state.first, *control);
        addSubview(*place);
        x += m_place.width + gap;
    }
    // Its small letters stand on the line of the larger ones beside.
    addLabel(caption, { margin, m_y + std::floor((height - labelHeight) / 2) + 1, captionWidth, labelHeight }, true);
    m_y += height + rowGap;
}

void StateSheet::sizeToRows()
{
    auto const columns = static_cast<float>(std::size(states));
    setFrameSize({ 2 * margin + captionWidth + columns * (m_place.width + gap), m_y + margin - rowGap });
}

void StateSheet::drawRect(Rect dirty)
{
    NSColor::windowBackgroundColor()->set();
    NSRectFill(dirty);
}

}
