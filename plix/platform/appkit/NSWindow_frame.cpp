#include <plix/platform/appkit/NSApplication_internal.h>
#include <plix/platform/appkit/NSScreen.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/appkit/NSWindow_internal.h>
#include <plix/platform/appkit/window_animation.h>
#include <plix/platform/foundation/NSUserDefaults.h>
#include <plix/platform/host/Display.h>
#include <plix/platform/host/Host.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <sstream>
#include <utility>

namespace plix {

namespace {

constexpr float resizeDistanceUnit = 150;
constexpr float cascadeStep = 22;
constexpr float titleBarButtonsWidth = 80;
constexpr float titleCharacterWidth = 8;

std::string frameKey(std::string_view name)
{
    return "NSWindow Frame " + std::string(name);
}

HostWindowAttributes attributesForStyle(unsigned styleMask)
{
    HostWindowAttributes attributes;
    attributes.isTitled = (styleMask & NSTitledWindowMask) != 0;
    attributes.isClosable = (styleMask & NSClosableWindowMask) != 0;
    attributes.isMiniaturizable = (styleMask & NSMiniaturizableWindowMask) != 0;
    attributes.isResizable = (styleMask & NSResizableWindowMask) != 0;
    attributes.kind = styleMask & NSUtilityWindowMask ? HostWindowKind::panel : HostWindowKind::document;
    return attributes;
}

Rect outset(Rect rect, HostWindow::FrameExtents extents, float sign)
{
    return { rect.x - sign * extents.left, rect.y - sign * extents.bottom, rect.width + sign * (extents.left + extents.right),
        rect.height + sign * (extents.bottom + extents.top) };
}

float between(float from, float to, float fraction)
{
    return std::round(from + (to - from) * fraction);
}

Rect between(Rect from, Rect to, float fraction)
{
    return { between(from.x, to.x, fraction), between(from.y, to.y, fraction), between(from.width, to.width, fraction),
        between(from.height, to.height, fraction) };
}

}

// Frame and content.

Rect NSWindow::frameRectForContentRect(Rect rect, unsigned styleMask)
{
    return outset(rect, host().display().frameExtents(attributesForStyle(styleMask)), 1);
}

Rect NSWindow::contentRectForFrameRect(Rect rect, unsigned styleMask)
{
    return outset(rect, host().display().frameExtents(attributesForStyle(styleMask)), -1);
}

float NSWindow::minFrameWidthWithTitle(std::string_view title, unsigned styleMask)
{
    auto const extents = host().display().frameExtents(attributesForStyle(styleMask));
    float const titleWidth
        = styleMask & NSTitledWindowMask ? titleBarButtonsWidth + static_cast<float>(title.size()) * titleCharacterWidth : 0;
    return extents.left + extents.right + titleWidth;
}

HostWindowAttributes NSWindow::Internals::hostAttributes() const
{
    auto attributes = attributesForStyle(styleMask);
    attributes.contentRect = shownContent();
    if (isSheet())
        attributes.isTitled = false;
    if (level >= NSPopUpMenuWindowLevel)
        attributes.kind = HostWindowKind::popup;
    else if (isSheet() || self.isKindOfClass(*NSClassFromString("NSPanel")))
        attributes.kind = HostWindowKind::panel;
    auto const* above = isSheet() ? sheetParent.get() : parent ? parent.get() : modalParent.get();
    if (above && above != &self)
        attributes.parent = above->internals().host.get();
    return attributes;
}

void NSWindow::Internals::updateExtents()
{
    extents = host ? host->frameExtents() : plix::host().display().frameExtents(hostAttributes());
}

Rect NSWindow::Internals::frameAround(Rect contentRect) const
{
    return outset(contentRect, extents, 1);
}

Rect NSWindow::Internals::contentInside(Rect frameRect) const
{
    Rect rect = outset(frameRect, extents, -1);
    rect.width = std::max(rect.width, 0.0F);
    rect.height = std::max(rect.height, 0.0F);
    return rect;
}

Rect NSWindow::frameRectForContentRect(Rect rect) const
{
    return m->frameAround(rect);
}

Rect NSWindow::contentRectForFrameRect(Rect rect) const
{
    return m->contentInside(rect);
}

Rect NSWindow::frame() const
{
    return m->frame();
}

Rect NSWindow::Internals::limited(Rect rect) const
{
    rect.width = std::max(rect.width, minSize.width);
    rect.height = std::max(rect.height, minSize.height);
    if (maxSize.width > 0)
        rect.width = std::min(rect.width, maxSize.width);
    if (maxSize.height > 0)
        rect.height = std::min(rect.height, maxSize.height);
    return rect;
}

void NSWindow::setFrame(Rect frame, bool display)
{
    m->setFrame(frame, display);
}

void NSWindow::Internals::setFrame(Rect frameRect, bool display)
{
    Ref<NSWindow> const protector(self);
    Rect const before = content;
    Rect const changed = contentInside(limited(frameRect));
    if (changed != before) {
        content = changed;
        // The host answers with what it made of it, which is another change where it differs.
        placeHost();
        contentRectChanged(before);
    }
    if (display)
        self.displayIfNeeded();
}

void NSWindow::Internals::placeHost()
{
    // A new size takes the pixels away that are being drawn into.
    if (host && !isDrawing && host->contentRect() != shownContent())
        host->setContentRect(shownContent());
}

void NSWindow::Internals::contentRectChanged(Rect before)
{
    Ref<NSWindow> const protector(self);
    if (content == before)
        return;
    bool const resized = content.size() != before.size();
    bool const moved = content.origin() != before.origin();
    if (resized) {
        contentView->setFrame({ 0, 0, content.width, content.height });
        needsDisplay = true;
    }
    if (moved) {
        for (auto const& child : std::vector(children)) {
            auto const origin = child->frame().origin();
            child->setFrameOrigin({ origin.x + content.x - before.x, origin.y + content.y - before.y });
        }
        post(NSWindowDidMoveNotification, &NSWindowDelegate::windowDidMove);
    }
    if (resized)
        post(NSWindowDidResizeNotification, &NSWindowDelegate::windowDidResize);
    if (sheet)
        placeSheet();
    if (!autosaveName.empty())
        self.saveFrameUsingName(autosaveName);
    noteScreen();
}

void NSWindow::Internals::noteScreen()
{
    auto const* const onScreen = self.screen();
    if (!isOrderedIn || !onScreen)
        return;
    auto const before = std::exchange(screenFrame, onScreen->frame());
    if (before && before != screenFrame)
        post(NSWindowDidChangeScreenNotification, &NSWindowDelegate::windowDidChangeScreen);
}

void NSWindow::setFrame(Rect frame, bool display, bool animate)
{
    Ref<NSWindow> const protector(this);
    Rect const from = this->frame();
    frame = m->limited(frame);
    if (animate && isVisible()) {
        runWindowAnimation(animationResizeTime(frame), [&](float progress) {
            if (isVisible())
                m->setFrame(between(from, frame, progress), true);
            return isVisible();
        });
    }
    m->setFrame(frame, display);
}

NSTimeInterval NSWindow::animationResizeTime(Rect newFrame)
{
    Rect const now = frame();
    float const change = std::max({ std::abs(newFrame.x - now.x), std::abs(newFrame.y - now.y),
        std::abs(newFrame.width - now.width), std::abs(newFrame.height - now.height) });
    return windowAnimationUnit() * double { change } / double { resizeDistanceUnit };
}

void NSWindow::setFrameOrigin(Point origin)
{
    m->setFrame(rectWith(origin, frame().size()), false);
}

void NSWindow::setFrameTopLeftPoint(Point topLeft)
{
    setFrameOrigin({ topLeft.x, topLeft.y - frame().height });
}

Point NSWindow::cascadeTopLeftFromPoint(Point topLeft)
{
    if (topLeft != NSZeroPoint)
        setFrameTopLeftPoint(topLeft);
    auto* const onScreen = screen();
    Rect const area = (onScreen ? *onScreen : NSScreen::mainScreen()).visibleFrame();
    Rect now = frame();
    if (topLeft != NSZeroPoint && (now.maxX() > area.maxX() || now.y < area.y)) {
        setFrameTopLeftPoint({ area.x, area.maxY() });
        now = frame();
    }
    return { now.x + cascadeStep, now.maxY() - cascadeStep };
}

void NSWindow::setContentSize(Size size)
{
    setFrame(m->frameAround(rectWith(m->content.origin(), size)), false);
}

Rect NSWindow::constrainFrameRect(Rect rect, NSScreen* screen)
{
    if (!(m->styleMask & NSTitledWindowMask) || m->isSheet())
        return rect;
    Rect const area = (screen ? *screen : NSScreen::mainScreen()).visibleFrame();
    if (rect.height > area.height) {
        rect.y += rect.height - area.height;
        rect.height = area.height;
    }
    if (rect.maxY() > area.maxY())
        rect.y = area.maxY() - rect.height;
    // A window that lies nowhere on the screen comes back whole.
    if (!NSIntersectsRect(rect, area)) {
        rect.x = std::clamp(rect.x, area.x, std::max(area.x, area.maxX() - rect.width));
        rect.y = std::clamp(rect.y, area.y, std::max(area.y, area.maxY() - rect.height));
    }
    return rect;
}

void NSWindow::center()
{
    auto* const onScreen = screen();
    Rect const area = (onScreen ? *onScreen : NSScreen::mainScreen()).visibleFrame();
    Rect const now = frame();
    // Somewhat above the middle, where it looks centred.
    constexpr float shareBelow = 2.0F / 3.0F;
    setFrameOrigin({ std::round(area.x + (area.width - now.width) * 0.5F),
        std::round(area.y + std::max(0.0F, area.height - now.height) * shareBelow) });
}

// Limits.

void NSWindow::Internals::applySizeLimits()
{
    if (!host)
        return;
    Size const around { extents.left + extents.right, extents.bottom + extents.top };
    auto const inside = [&](Size frameSize) {
        return Size { frameSize.width > 0 ? std::max(frameSize.width - around.width, 1.0F) : 0,
            frameSize.height > 0 ? std::max(frameSize.height - around.height, 1.0F) : 0 };
    };
    host->setSizeLimits(inside(minSize), inside(maxSize));
}

Size NSWindow::minSize() const
{
    return m->minSize;
}

void NSWindow::setMinSize(Size size)
{
    m->minSize = size;
    m->applySizeLimits();
}

Size NSWindow::maxSize() const
{
    return m->maxSize;
}

void NSWindow::setMaxSize(Size size)
{
    m->maxSize = size;
    m->applySizeLimits();
}

Size NSWindow::contentMinSize() const
{
    return contentRectForFrameRect(rectWith({}, m->minSize)).size();
}

void NSWindow::setContentMinSize(Size size)
{
    setMinSize(frameRectForContentRect(rectWith({}, size)).size());
}

Size NSWindow::contentMaxSize() const
{
    return contentRectForFrameRect(rectWith({}, m->maxSize)).size();
}

void NSWindow::setContentMaxSize(Size size)
{
    setMaxSize(frameRectForContentRect(rectWith({}, size)).size());
}

Size NSWindow::aspectRatio() const
{
    return m->aspectRatio;
}

void NSWindow::setAspectRatio(Size ratio)
{
    m->aspectRatio = ratio;
}

Size NSWindow::resizeIncrements() const
{
    return m->resizeIncrements;
}

void NSWindow::setResizeIncrements(Size increments)
{
    m->resizeIncrements = increments;
}

// Screens.

NSScreen* NSWindow::screen() const
{
    return NSScreen::screenForRect(frame());
}

float NSWindow::backingScaleFactor() const
{
    if (m->host)
        return m->host->backingScale();
    auto* const onScreen = screen();
    return (onScreen ? *onScreen : NSScreen::mainScreen()).backingScaleFactor();
}

Point NSWindow::convertBaseToScreen(Point point) const
{
    Rect const now = frame();
    return { now.x + point.x, now.y + point.y };
}

Point NSWindow::convertScreenToBase(Point point) const
{
    Rect const now = frame();
    return { point.x - now.x, point.y - now.y };
}

// Saved frames: the frame's four numbers, then those of the visible area of its screen.

std::string NSWindow::stringWithSavedFrame() const
{
    auto* const onScreen = screen();
    Rect const area = (onScreen ? *onScreen : NSScreen::mainScreen()).visibleFrame();
    Rect const now = frame();
    std::ostringstream text;
    text.imbue(std::locale::classic());
    for (float const number : { now.x, now.y, now.width, now.height, area.x, area.y, area.width, area.height })
        text << std::lround(number) << ' ';
    return text.str();
}

void NSWindow::setFrameFromString(std::string_view text)
{
    std::array<float, 8> numbers {};
    std::size_t count = 0;
    for (std::size_t at = 0; at < text.size() && count < numbers.size();) {
        int number = 0;
        auto const result = std::from_chars(text.data() + at, text.data() + text.size(), number);
        if (result.ec == std::errc::invalid_argument) {
            ++at;
            continue;
        }
        if (result.ec != std::errc {})
            return;
        numbers[count++] = static_cast<float>(number);
        at = static_cast<std::size_t>(result.ptr - text.data());
    }
    constexpr std::size_t numbersOfFrame = 4;
    Rect saved { numbers[0], numbers[1], numbers[2], numbers[3] };
    if (count < numbersOfFrame || saved.isEmpty())
        return;
    if (!(m->styleMask & NSResizableWindowMask)) {
        saved.y += saved.height - frame().height;
        saved = rectWith(saved.origin(), frame().size());
    }
    setFrame(constrainFrameRect(saved, NSScreen::screenForRect(saved)), false);
}

bool NSWindow::setFrameAutosaveName(std::string_view name)
{
    bool const isTaken = !name.empty() && std::ranges::any_of(Internals::all(), [&](auto const* window) {
        return window != this && window->m->autosaveName == name;
    });
    if (isTaken)
        return false;
    m->autosaveName = name;
    if (!name.empty())
        setFrameUsingName(name);
    return true;
}

std::string const& NSWindow::frameAutosaveName() const
{
    return m->autosaveName;
}

bool NSWindow::setFrameUsingName(std::string_view name)
{
    auto const saved = NSUserDefaults::standardUserDefaults().stringForKey(frameKey(name));
    if (saved)
        setFrameFromString(*saved);
    return saved.has_value();
}

void NSWindow::saveFrameUsingName(std::string_view name) const
{
    NSUserDefaults::standardUserDefaults().setObject(stringWithSavedFrame(), frameKey(name));
}

}
