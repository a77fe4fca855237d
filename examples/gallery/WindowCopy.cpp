#include "WindowCopy.h"

#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSGraphics.h>
#include <plix/platform/graphics/NSGraphicsContext.h>

namespace gallery {

using namespace plix;

namespace {

constexpr float rim = 1;

}

WindowCopy::WindowCopy() = default;
WindowCopy::~WindowCopy() = default;

bool WindowCopy::init(Ref<NSWindow> const& window, Point origin)
{
    Ref<NSView> const content(window->contentView());
    Size const size = content->frame().size();
    if (!NSView::init(Rect { origin.x, origin.y, size.width + 2 * rim, size.height + 2 * rim }))
        return false;
    m_window = window;
    setAppearance(window->effectiveAppearance());
    window->setContentView(nullptr);
    content->setFrameOrigin({ rim, rim });
    addSubview(*content);
    return true;
}

void WindowCopy::drawRect(Rect)
{
    GraphicsState const saved;
    auto const context = NSGraphicsContext::currentContext();
    Rect const inside = NSInsetRect(bounds(), rim, rim);
    context->setPatternPhase(convertPointToView(inside.origin(), nullptr));
    if (auto* const background = m_window->backgroundColor())
        background->set();
    else
        NSColor::windowBackgroundColor()->set();
    NSRectFill(inside);
    NSColor::colorWithCalibratedWhite(0.5F, 1)->set();
    NSFrameRect(bounds());
}

}
