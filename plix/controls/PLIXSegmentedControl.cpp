#include <plix/controls/PLIXSegmentedControl.h>

#include <plix/controls/segment_separators.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/graphics/NSAffineTransform.h>
#include <plix/platform/graphics/NSBezierPath.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSImage.h>
#include <plix/system/identity.h>

#include <cstdint>

namespace plix {

std::map<std::string, std::vector<std::string>>* separatorsForSegmentedControls = nullptr;

namespace {

constexpr std::uint32_t versionBeforeTags = 0x103F;

std::string keyOf(NSView const& control)
{
    return std::to_string(reinterpret_cast<std::uintptr_t>(&control));
}

}

PLIX_DESCRIBE(PLIXSegmentedCell)
{
}

bool PLIXSegmentedCell::init()
{
    return Base::init();
}

bool PLIXSegmentedCell::init(NSCoder& coder)
{
    return Base::init(coder);
}

void PLIXSegmentedCell::drawSegment(int segment, Rect frame, NSView& controlView)
{
    Base::drawSegment(segment, frame, controlView);
    if (auto const separator = segmentSeparator(segment, segmentCount(), selectedSegment(), frame))
        PLIXSegmentedControl::addSeparator(NSStringFromRect(*separator), &controlView);
}

// MARK: the control

PLIX_DESCRIBE(PLIXSegmentedControl)
{
}

bool PLIXSegmentedControl::init()
{
    return Base::init();
}

bool PLIXSegmentedControl::init(Rect frame)
{
    return Base::init(frame);
}

bool PLIXSegmentedControl::init(NSCoder& coder)
{
    return Base::init(coder);
}

std::vector<std::string> PLIXSegmentedControl::separatorsForSegmentedControl(NSView const* control)
{
    if (!control || !separatorsForSegmentedControls)
        return {};
    auto const found = separatorsForSegmentedControls->find(keyOf(*control));
    return found == separatorsForSegmentedControls->end() ? std::vector<std::string> {} : found->second;
}

void PLIXSegmentedControl::addSeparator(std::optional<std::string_view> rectangle, NSView const* control)
{
    if (!rectangle || !control)
        return;
    if (!separatorsForSegmentedControls)
        separatorsForSegmentedControls = new std::map<std::string, std::vector<std::string>>;
    (*separatorsForSegmentedControls)[keyOf(*control)].emplace_back(*rectangle);
}

void PLIXSegmentedControl::removeSeparatorsForSegmentedControl(NSView const* control)
{
    if (!control || !separatorsForSegmentedControls)
        return;
    auto const found = separatorsForSegmentedControls->find(keyOf(*control));
    if (found != separatorsForSegmentedControls->end())
        found->second.clear();
}

void PLIXSegmentedControl::drawRect(Rect dirty)
{
    removeSeparatorsForSegmentedControl(this);
    Base::drawRect(dirty);
    if (!window() || !window()->isKeyWindow())
        return;
    NSColor::colorWithCalibratedRed(0, 0, 0, 0.33F)->set();
    NSBezierPath::setDefaultLineWidth(1);
    for (auto const& text : separatorsForSegmentedControl(this)) {
        auto const line = NSRectFromString(text);
        NSBezierPath::strokeLineFromPoint({ line.x + 0.5F, line.y }, { line.x + 0.5F, line.y + line.height });
    }
}

void PLIXSegmentedControl::drawCell(NSCell& cell)
{
    Base::drawCell(cell);
}

void PLIXSegmentedControl::drawCellInside(NSCell& cell)
{
    Base::drawCellInside(cell);
}

// MARK: the button

PLIX_DESCRIBE(PLIXSegmentedControlButton)
{
}

PLIXSegmentedControlButton::PLIXSegmentedControlButton() = default;
PLIXSegmentedControlButton::~PLIXSegmentedControlButton() = default;

bool PLIXSegmentedControlButton::init()
{
    return Base::init();
}

bool PLIXSegmentedControlButton::init(Rect frame)
{
    return Base::init(frame);
}

bool PLIXSegmentedControlButton::init(NSCoder& coder)
{
    return Base::init(coder);
}

NSImage* PLIXSegmentedControlButton::image() const
{
    return m_image.get();
}

void PLIXSegmentedControlButton::setImage(Ref<NSImage> const& image)
{
    m_image = image;
    setNeedsDisplay(true);
}

void PLIXSegmentedControlButton::drawRect(Rect dirty)
{
    Base::drawRect(dirty);
    if (!m_image)
        return;
    auto const origin = centredImageOrigin(bounds().size(), m_image->size());
    // The frame's height, not the bounds'.
    auto const mirror = make<NSAffineTransform>(AffineTransform { 1, 0, 0, -1, 0, frame().height });
    if (isFlipped())
        mirror->concat();
    m_image->drawInRect(rectWith(origin, m_image->size()), rectWith({}, m_image->size()), NSCompositeSourceOver, 1);
    if (isFlipped()) {
        mirror->invert();
        mirror->concat();
    }
}

// MARK: tags

int selectedSegmentTag(NSSegmentedControl const& control)
{
    long const selected = control.selectedSegment();
    auto const* cell = dynamic_cast<NSSegmentedCell const*>(control.cell());
    return selected < 0 || !cell ? -1 : static_cast<int>(cell->tagForSegment(selected));
}

int segmentWithTag(NSSegmentedControl const& control, int tag)
{
    auto const* cell = dynamic_cast<NSSegmentedCell const*>(control.cell());
    for (long i = 0; cell && i < cell->segmentCount(); ++i) {
        if (cell->tagForSegment(i) == tag)
            return static_cast<int>(i);
    }
    return -1;
}

bool selectSegmentWithTag(NSSegmentedControl& control, int tag)
{
    auto* cell = dynamic_cast<NSSegmentedCell*>(control.cell());
    if (!cell)
        return false;
    if (PLIXSystemVersion() > versionBeforeTags)
        return cell->selectSegmentWithTag(tag);
    int const segment = segmentWithTag(control, tag);
    if (segment >= 0)
        cell->setSelectedSegment(segment);
    return segment >= 0;
}

}
