#include <plix/windows/PLIXWindow.h>

#include <plix/drawing/image_additions.h>
#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/appkit/NSImageView.h>
#include <plix/platform/appkit/NSScreen.h>
#include <plix/platform/foundation/NSCoder.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSImage.h>
#include <plix/system/identity.h>
#include <plix/windows/background_plan.h>
#include <plix/windows/window_background.h>

namespace plix {

Global<NSImage> PLIXWindow_BackgroundImage;

namespace {

constexpr std::uint32_t lastVersionWithPatterns = 0x104F;
constexpr char const* backgroundName = "windowbackground";
constexpr char const* indicatorName = "resizeindicator";
constexpr char const* indicatorKey = "resizeIndicatorView";

bool drawsPatterns()
{
    return PLIXSystemVersion() <= lastVersionWithPatterns;
}

}

PLIX_DESCRIBE(PLIXWindow)
{
    description.bundle("plix").fillsHooks<NSWindowDelegate>();
}

PLIXWindow::PLIXWindow() = default;
PLIXWindow::~PLIXWindow() = default;

bool PLIXWindow::init()
{
    return NSWindow::init() && initLook(FirstBackground::wholeImage);
}

bool PLIXWindow::init(Rect contentRect, unsigned styleMask, NSBackingStoreType backing, bool defer)
{
    return NSWindow::init(contentRect, styleMask, backing, defer) && initLook(FirstBackground::byMode);
}

bool PLIXWindow::init(Rect contentRect, unsigned styleMask, NSBackingStoreType backing, bool defer, NSScreen* screen)
{
    return NSWindow::init(contentRect, styleMask, backing, defer, screen) && initLook(FirstBackground::byMode);
}

bool PLIXWindow::init(HostWindow* windowRef)
{
    return NSWindow::init(windowRef) && initLook(FirstBackground::byMode);
}

bool PLIXWindow::init(NSCoder& coder)
{
    if (!NSWindow::init(coder))
        return false;
    // It is among the content's views where it was shown, and is made anew.
    if (auto const earlier = coder.decodeForKey<NSView>(indicatorKey))
        earlier->removeFromSuperview();
    return initLook(FirstBackground::byMode);
}

void PLIXWindow::encodeWithCoder(NSCoder& coder) const
{
    NSWindow::encodeWithCoder(coder);
    coder.encodeObject(m_resizeIndicatorView, indicatorKey);
}

bool PLIXWindow::initLook(FirstBackground background)
{
    m_backgroundMode = PLIXBackgroundHalves;
    if (background == FirstBackground::wholeImage)
        updateBackgroundColor();
    else
        updateBackgroundColorForSize(frame().size());
    m_worksWhenModal = false;
    NSWindow::setShowsResizeIndicator(false);
    m_PLIXWindow_ShowsResizeIndicator = true;
    initResizeIndicatorView();
    return true;
}

// Background.

Ref<NSImage> PLIXWindow::backgroundImage()
{
    if (!PLIXWindow_BackgroundImage)
        PLIXWindow_BackgroundImage = NSImage::imageNamed(backgroundName);
    return PLIXWindow_BackgroundImage.ref();
}

void PLIXWindow::setBackgroundMode(int mode)
{
    m_backgroundMode = mode;
    updateBackgroundColorForSize(frame().size());
    display();
}

void PLIXWindow::updateBackgroundColorForSize(Size size)
{
    if (!drawsPatterns())
        return;
    if (m_backgroundMode == PLIXBackgroundNone) {
        setBackgroundColor(nullptr);
        return;
    }
    setBackgroundColor(NSColor::colorWithPatternImage(backgroundPattern(backgroundImage().get(), m_backgroundMode, size.height)));
}

void PLIXWindow::updateBackgroundColor()
{
    if (!drawsPatterns())
        return;
    // By its name: what a host assigned to the global is not taken here, as is meant.
    auto const image = NSImage::imageNamed(backgroundName);
    setBackgroundColor(NSColor::colorWithPatternImage(stretchedBackground(image.get(), frame().size())));
}

void PLIXWindow::updateBackgroundColorForSize2(Size size)
{
    if (!drawsPatterns())
        return;
    auto const image = NSImage::imageNamed(backgroundName);
    float const height = image ? image->size().height : 0;
    setBackgroundColor(NSColor::colorWithPatternImage(stretchedBackground(image.get(), { size.width, height })));
}

Size PLIXWindow::windowWillResize(NSWindow&, Size proposed)
{
    if (frame().height != m_lastWindowFrame.height) {
        updateBackgroundColorForSize(proposed);
        m_lastWindowFrame = frame();
    }
    return proposed;
}

void PLIXWindow::backgroundFollowsWidth()
{
    if (frame().width == m_lastWindowFrame.width)
        return;
    updateBackgroundColor();
    m_lastWindowFrame = frame();
}

void PLIXWindow::windowDidResize2(NSNotification const&)
{
    backgroundFollowsWidth();
}

void PLIXWindow::orderFront2(NSObject*)
{
    backgroundFollowsWidth();
}

Appearance PLIXWindow::effectiveAppearance() const
{
    auto const* const background = backgroundColor();
    bool const hasImage = background && background->patternImage();
    return hasImage ? appearance().value_or(Appearance::light) : NSWindow::effectiveAppearance();
}

// Resize indicator.

Ref<NSImageView> PLIXWindow::initResizeIndicatorView()
{
    auto const image = imageNamed(indicatorName, &describedClass());
    auto const size = image ? image->size() : Size {};
    m_resizeIndicatorView = make<NSImageView>(resizeIndicatorFrame(contentView()->bounds(), size));
    m_resizeIndicatorView->setAutoresizingMask(NSViewMinXMargin | NSViewMaxYMargin);
    m_resizeIndicatorView->setImage(image);
    return m_resizeIndicatorView;
}

void PLIXWindow::refreshResizeIndicator()
{
    auto const indicator = m_resizeIndicatorView;
    if (!(styleMask() & NSResizableWindowMask) || !m_PLIXWindow_ShowsResizeIndicator || !indicator)
        return;
    indicator->removeFromSuperview();
    indicator->setFrameOrigin(resizeIndicatorOrigin(contentView()->frame(), indicator->frame().width));
    contentView()->addSubview(*indicator, NSWindowAbove, nullptr);
}

void PLIXWindow::setShowsResizeIndicator(bool shows)
{
    m_PLIXWindow_ShowsResizeIndicator = shows;
    if (!shows && m_resizeIndicatorView)
        m_resizeIndicatorView->removeFromSuperview();
    display();
}

// NSWindow:

void PLIXWindow::display()
{
    Ref<PLIXWindow> const protector(this);
    NSWindow::display();
    refreshResizeIndicator();
}

void PLIXWindow::setFrame(Rect frame, bool display)
{
    Ref<PLIXWindow> const protector(this);
    updateBackgroundColorForSize(frame.size());
    NSWindow::setFrame(frame, display);
    this->display();
}

void PLIXWindow::setFrame(Rect frame, bool display, bool animate)
{
    Ref<PLIXWindow> const protector(this);
    NSWindow::setFrame(frame, display, animate);
    // Later than in the setter without animation, as is meant.
    updateBackgroundColorForSize(frame.size());
    this->display();
}

void PLIXWindow::sendEvent(NSEvent& event)
{
    if (event.type() != NSLeftMouseDown || !(event.modifierFlags() & NSControlKeyMask)) {
        NSWindow::sendEvent(event);
        return;
    }
    auto const right = NSEvent::mouseEventWithType(NSRightMouseDown, event.locationInWindow(), event.modifierFlags(),
        event.timestamp(), event.windowNumber(), event.context(), event.eventNumber(), event.clickCount(), event.pressure());
    NSWindow::sendEvent(*right);
}

Rect PLIXWindow::constrainFrameRect(Rect rect, NSScreen* screen)
{
    NSScreen& given = screen ? *screen : NSScreen::mainScreen();
    Rect const visible = given.visibleFrame();
    return rect.height > visible.height ? frameWithTopVisible(rect, visible) : NSWindow::constrainFrameRect(rect, &given);
}

}
