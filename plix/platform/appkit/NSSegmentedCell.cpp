#include <plix/platform/appkit/NSSegmentedCell.h>

#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/appkit/NSMenu.h>
#include <plix/platform/appkit/NSMenuItem.h>
#include <plix/platform/appkit/NSView.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/appkit/Theme.h>
#include <plix/platform/appkit/button_constants.h>
#include <plix/platform/appkit/button_layout.h>
#include <plix/platform/appkit/cell_layout.h>
#include <plix/platform/appkit/segment_layout.h>
#include <plix/platform/appkit/tracking_wait.h>
#include <plix/platform/base/exceptions.h>
#include <plix/platform/base/utf16.h>
#include <plix/platform/foundation/NSCoder.h>
#include <plix/platform/foundation/NSRunLoop.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSGraphics.h>
#include <plix/platform/graphics/NSImage.h>
#include <plix/platform/graphics/string_drawing.h>

#include <algorithm>
#include <cmath>

namespace plix {

namespace {

constexpr long mostSegments = 2048;
constexpr float contentPadding = 10;
constexpr float imageGap = 4;
/// How long a segment is held before its menu shows, in seconds.
constexpr double menuDelay = 0.4;

float heightOf(NSControlSize size)
{
    return size == NSRegularControlSize ? 24 : size == NSSmallControlSize ? 20 : 17;
}

}

struct NSSegmentedCell::Segment {
    std::string label;
    std::string toolTip;
    Ref<NSImage> image;
    Ref<NSMenu> menu;
    float width { 0 };
    long tag { 0 };
    bool isSelected { false };
    bool isEnabled { true };
};

PLIX_DESCRIBE(NSSegmentedCell)
{
}

NSSegmentedCell::NSSegmentedCell() = default;
NSSegmentedCell::~NSSegmentedCell() = default;

bool NSSegmentedCell::init()
{
    if (!Base::init(std::string_view {}))
        return false;
    setLineBreakMode(NSLineBreakByTruncatingTail);
    return true;
}

bool NSSegmentedCell::init(NSCoder& coder)
{
    if (!Base::init(coder))
        return false;
    auto const segments = coder.decodeObjectForKey("segments");
    for (auto const& value : segments.array() ? *segments.array() : ObjectValue::Array {}) {
        auto const* parts = value.array();
        if (!parts || parts->size() < 8 || segmentCount() == mostSegments)
            continue;
        auto const& part = *parts;
        float const width = part[4].floatValue();
        m_segments.push_back({ part[0].description(), part[1].description(), part[2].as<NSImage>(), part[3].as<NSMenu>(),
            width > 0 ? width : 0, static_cast<long>(part[5].integerValue()), part[6].boolValue(), part[7].boolValue() });
    }
    m_trackingMode = static_cast<NSSegmentSwitchTracking>(std::clamp(coder.decodeIntForKey("trackingMode"), 0, 2));
    m_selected = std::clamp(static_cast<long>(coder.decodeIntForKey("selectedSegment")), -1L, segmentCount() - 1);
    return true;
}

void NSSegmentedCell::encodeWithCoder(NSCoder& coder) const
{
    Base::encodeWithCoder(coder);
    ObjectValue::Array segments;
    for (auto const& each : m_segments) {
        segments.emplace_back(ObjectValue::Array {
            each.label, each.toolTip, each.image, each.menu, each.width, each.tag, each.isSelected, each.isEnabled });
    }
    coder.encodeObject(std::move(segments), "segments");
    coder.encodeInt(m_trackingMode, "trackingMode");
    coder.encodeInt(m_selected, "selectedSegment");
}

NSSegmentedCell::Segment& NSSegmentedCell::segment(long index)
{
    if (index < 0 || index >= segmentCount())
        raiseRangeException("NSSegmentedCell", index, segmentCount());
    return m_segments[static_cast<std::size_t>(index)];
}

NSSegmentedCell::Segment const& NSSegmentedCell::segment(long index) const
{
    return const_cast<NSSegmentedCell*>(this)->segment(index);
}

long NSSegmentedCell::segmentCount() const
{
    return static_cast<long>(m_segments.size());
}

void NSSegmentedCell::setSegmentCount(long count)
{
    if (count < 0 || count > mostSegments)
        raiseRangeException("NSSegmentedCell setSegmentCount", count, mostSegments + 1);
    m_segments.resize(static_cast<std::size_t>(count));
    if (m_selected >= count)
        m_selected = -1;
    m_keySegment = std::clamp(m_keySegment, 0L, std::max(0L, count - 1));
    m_pressed = -1;
    looksChanged();
}

// MARK: selection

void NSSegmentedCell::setSelectedSegment(long index)
{
    if (index != -1)
        segment(index);
    if (m_trackingMode != NSSegmentSwitchTrackingSelectAny) {
        for (auto& each : m_segments)
            each.isSelected = false;
    }
    if (index >= 0)
        segment(index).isSelected = true;
    m_selected = index;
    looksChanged();
}

bool NSSegmentedCell::selectSegmentWithTag(long tag)
{
    auto const found = std::ranges::find(m_segments, tag, &Segment::tag);
    if (found == m_segments.end())
        return false;
    setSelectedSegment(found - m_segments.begin());
    return true;
}

bool NSSegmentedCell::isSelectedForSegment(long index) const
{
    return segment(index).isSelected;
}

void NSSegmentedCell::setSelected(bool isSelected, long index)
{
    if (isSelected) {
        setSelectedSegment(index);
        return;
    }
    segment(index).isSelected = false;
    if (m_selected == index)
        m_selected = -1;
    looksChanged();
}

// MARK: of one segment

float NSSegmentedCell::widthForSegment(long index) const
{
    return segment(index).width;
}

void NSSegmentedCell::setWidth(float width, long index)
{
    segment(index).width = std::isfinite(width) ? std::max(0.F, width) : 0;
    looksChanged();
}

NSImage* NSSegmentedCell::imageForSegment(long index) const
{
    return segment(index).image.get();
}

void NSSegmentedCell::setImage(Ref<NSImage> const& image, long index)
{
    segment(index).image = image;
    looksChanged();
}

std::string const& NSSegmentedCell::labelForSegment(long index) const
{
    return segment(index).label;
}

void NSSegmentedCell::setLabel(std::string_view label, long index)
{
    segment(index).label = validUTF8(label);
    looksChanged();
}

bool NSSegmentedCell::isEnabledForSegment(long index) const
{
    return segment(index).isEnabled;
}

void NSSegmentedCell::setEnabled(bool isEnabled, long index)
{
    segment(index).isEnabled = isEnabled;
    looksChanged();
}

NSMenu* NSSegmentedCell::menuForSegment(long index) const
{
    return segment(index).menu.get();
}

void NSSegmentedCell::setMenu(Ref<NSMenu> const& menu, long index)
{
    segment(index).menu = menu;
}

std::string const& NSSegmentedCell::toolTipForSegment(long index) const
{
    return segment(index).toolTip;
}

void NSSegmentedCell::setToolTip(std::string_view text, long index)
{
    segment(index).toolTip = validUTF8(text);
}

long NSSegmentedCell::tagForSegment(long index) const
{
    return segment(index).tag;
}

void NSSegmentedCell::setTag(long tag, long index)
{
    segment(index).tag = tag;
}

// MARK: geometry

float NSSegmentedCell::contentWidth(Segment const& each) const
{
    float width = 2 * contentPadding;
    if (each.image)
        width += each.image->size().width;
    if (!each.label.empty())
        width += std::ceil(sizeWithAttributes(each.label, textAttributes()).width);
    return each.image && !each.label.empty() ? width + imageGap : width;
}

std::vector<float> NSSegmentedCell::widthsIn(float length) const
{
    std::vector<SegmentWidth> wanted;
    for (auto const& each : m_segments)
        wanted.push_back({ each.width, each.width > 0 ? 0 : contentWidth(each) });
    return segmentWidths(wanted, length);
}

Size NSSegmentedCell::cellSizeForBounds(Rect bounds) const
{
    float width = 0;
    for (auto const& each : m_segments)
        width += each.width > 0 ? each.width : contentWidth(each);
    return { std::min(width, std::max(0.F, bounds.width)), heightOf(controlSize()) };
}

Rect NSSegmentedCell::rectForSegment(long index, Rect frame) const
{
    segment(index);
    auto const widths = widthsIn(frame.width);
    float x = frame.x;
    for (long i = 0; i < index; ++i)
        x += widths[static_cast<std::size_t>(i)];
    return { x, frame.y, widths[static_cast<std::size_t>(index)], frame.height };
}

long NSSegmentedCell::segmentAtPoint(Point point, Rect frame) const
{
    if (point.y < frame.y || point.y >= frame.maxY())
        return -1;
    float x = frame.x;
    auto const widths = widthsIn(frame.width);
    for (long i = 0; i < segmentCount(); ++i) {
        float const end = x + widths[static_cast<std::size_t>(i)];
        if (point.x >= x && point.x < end)
            return i;
        x = end;
    }
    return -1;
}

// MARK: pressing

void NSSegmentedCell::press(long index)
{
    Ref<NSSegmentedCell> const protector(this);
    if (m_trackingMode == NSSegmentSwitchTrackingSelectAny && segment(index).isSelected) {
        segment(index).isSelected = false;
        m_selected = index;
    } else {
        setSelectedSegment(index);
    }
    m_keySegment = index;
    looksChanged();
    sendAction();
    if (m_trackingMode == NSSegmentSwitchTrackingMomentary && m_selected == index)
        setSelectedSegment(-1);
}

void NSSegmentedCell::setPressed(long index)
{
    if (m_pressed == index)
        return;
    m_pressed = index;
    looksChanged();
}

void NSSegmentedCell::showMenu(long index, Rect frame, NSView& controlView, NSEvent& event)
{
    Ref<NSMenu> const menu = segment(index).menu;
    auto const chosen = menu->popUpBelow(controlView, rectForSegment(index, frame), &event);
    setPressed(-1);
    if (chosen)
        chosen->sendAction();
}

bool NSSegmentedCell::trackMouse(NSEvent& event, Rect frame, NSView& controlView, bool)
{
    Ref<NSSegmentedCell> const protector(this);
    Ref<NSView> const view(controlView);
    setControlView(&controlView);
    long const pressed = segmentAtPoint(view->convertPointFromView(event.locationInWindow(), nullptr), frame);
    if (!isEnabled() || pressed < 0 || !segment(pressed).isEnabled)
        return true;
    setPressed(pressed);
    bool const hasMenu = segment(pressed).menu != nullptr;
    if (hasMenu && m_trackingMode == NSSegmentSwitchTrackingMomentary) {
        showMenu(pressed, frame, *view, event);
        return true;
    }
    auto const deadline = hasMenu ? NSDate::dateWithTimeIntervalSinceNow(menuDelay) : NSDate::distantFuture();
    while (Ref<NSWindow> const window = view->window()) {
        auto const next
            = window->nextEventMatchingMask(NSLeftMouseUpMask | NSLeftMouseDraggedMask, deadline, NSEventTrackingRunLoopMode, true);
        // The host may have taken segments away meanwhile.
        if (pressed >= segmentCount())
            break;
        if (!next) {
            if (hasMenu && m_pressed == pressed && segment(pressed).menu)
                showMenu(pressed, frame, *view, event);
            break;
        }
        long const under = segmentAtPoint(view->convertPointFromView(next->locationInWindow(), nullptr), frame);
        if (next->type() == NSLeftMouseUp) {
            setPressed(-1);
            if (under == pressed && !isAbandoned(*next))
                press(pressed);
            return true;
        }
        setPressed(under == pressed ? pressed : -1);
    }
    setPressed(-1);
    return true;
}

// MARK: keys

void NSSegmentedCell::makeNextSegmentKey()
{
    for (long i = m_keySegment + 1; i < segmentCount(); ++i) {
        if (segment(i).isEnabled) {
            m_keySegment = i;
            looksChanged();
            return;
        }
    }
}

void NSSegmentedCell::makePreviousSegmentKey()
{
    for (long i = m_keySegment - 1; i >= 0; --i) {
        if (segment(i).isEnabled) {
            m_keySegment = i;
            looksChanged();
            return;
        }
    }
}

void NSSegmentedCell::pressKeySegment()
{
    if (isEnabled() && m_keySegment < segmentCount() && segment(m_keySegment).isEnabled)
        press(m_keySegment);
}

// MARK: drawing

void NSSegmentedCell::drawWithFrame(Rect frame, NSView& controlView)
{
    drawInteriorWithFrame(frame, controlView);
}

void NSSegmentedCell::drawInteriorWithFrame(Rect frame, NSView& controlView)
{
    setControlView(&controlView);
    auto const widths = widthsIn(frame.width);
    float x = frame.x;
    for (long i = 0; i < segmentCount(); ++i) {
        float const width = widths[static_cast<std::size_t>(i)];
        drawSegment(static_cast<int>(i), { x, frame.y, width, frame.height }, controlView);
        x += width;
        // A segment that is drawn may be taken away.
        if (widths.size() != m_segments.size())
            return;
    }
}

void NSSegmentedCell::drawSegment(int index, Rect frame, NSView& controlView)
{
    auto const& each = segment(index);
    ButtonLook look { .control = lookInView(controlView), .style = NSRoundedBezelStyle };
    look.control.isEnabled = isEnabled() && each.isEnabled;
    look.control.isPressed = m_pressed == index || (isHighlighted() && m_pressed < 0);
    look.control.isFocused = drawsFocusRing(controlView) && m_keySegment == index;
    look.isOn = each.isSelected;
    look.joinsLeft = index > 0;
    look.joinsRight = index + 1 < segmentCount();
    auto const& theme = Theme::current();
    // Neighbours share the line between them.
    theme.drawButtonBezel(look.joinsRight ? Rect { frame.x, frame.y, frame.width + 1, frame.height } : frame, look);
    auto const textSize = each.label.empty() ? Size {} : sizeWithAttributes(each.label, textAttributes());
    float const imageWidth = each.image ? each.image->size().width : 0;
    float const gap = each.image && !each.label.empty() ? imageGap : 0;
    float const room = std::max(0.F, frame.width - 2);
    float const width = std::min(room, imageWidth + gap + std::ceil(textSize.width));
    float x = frame.x + std::floor((frame.width - width) / 2);
    if (each.image) {
        Rect const area { x, frame.y, std::min(imageWidth, room), frame.height };
        Theme::drawImage(*each.image, centredImageRect(area, each.image->size()), look.control.isEnabled);
        x += imageWidth + gap;
    }
    if (each.label.empty() || x >= frame.maxX())
        return;
    auto const attributes = textAttributesWithColor(theme.buttonTextColor(look));
    float const height = std::ceil(textSize.height);
    drawInRect(each.label, { x, frame.y + std::floor((frame.height - height) / 2), frame.maxX() - x - 1, height }, attributes);
}

void NSSegmentedCell::copyStateTo(NSObject& fresh) const
{
    Base::copyStateTo(fresh);
    auto& other = static_cast<NSSegmentedCell&>(fresh);
    other.m_segments = m_segments;
    for (auto& each : other.m_segments) {
        if (each.menu)
            each.menu = each.menu->copy();
    }
    other.m_selected = m_selected;
    other.m_keySegment = m_keySegment;
    other.m_trackingMode = m_trackingMode;
}

}
