#include <plix/platform/appkit/NSPanel.h>

#include <plix/platform/appkit/NSEvent.h>

namespace plix {

PLIX_DESCRIBE(NSPanel)
{
}

bool NSPanel::init()
{
    return NSPanel::init(Rect {}, NSTitledWindowMask | NSClosableWindowMask, NSBackingStoreBuffered, true);
}

bool NSPanel::init(Rect contentRect, unsigned styleMask, NSBackingStoreType backing, bool defer)
{
    return NSPanel::init(contentRect, styleMask, backing, defer, nullptr);
}

bool NSPanel::init(Rect contentRect, unsigned styleMask, NSBackingStoreType backing, bool defer, NSScreen* screen)
{
    if (!NSWindow::init(contentRect, styleMask, backing, defer, screen))
        return false;
    setReleasedWhenClosed(false);
    setHidesOnDeactivate(true);
    return true;
}

void NSPanel::setFloatingPanel(bool floats)
{
    m_isFloating = floats;
    setLevel(floats ? NSFloatingWindowLevel : NSNormalWindowLevel);
}

void NSPanel::keyDown(NSEvent& event)
{
    bool const closes = event.characterIgnoringModifiers() == NSEscapeCharacter && (styleMask() & NSClosableWindowMask);
    if (closes && !performKeyEquivalent(event))
        performClose(this);
    else if (!closes)
        NSWindow::keyDown(event);
}

}
