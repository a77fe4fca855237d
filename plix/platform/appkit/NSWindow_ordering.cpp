#include <plix/platform/appkit/ComboList.h>
#include <plix/platform/appkit/MenuTracker.h>
#include <plix/platform/appkit/NSApplication_internal.h>
#include <plix/platform/appkit/NSPanel.h>
#include <plix/platform/appkit/NSScreen.h>
#include <plix/platform/appkit/NSView_internal.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/appkit/NSWindow_internal.h>
#include <plix/platform/appkit/ToolTips.h>
#include <plix/platform/graphics/NSGraphicsContext.h>
#include <plix/platform/host/Display.h>
#include <plix/platform/host/Host.h>

#include <algorithm>

namespace plix {

// The host's window.

void NSWindow::Internals::makeHost()
{
    if (host)
        return;
    auto const attributes = hostAttributes();
    isHostOfSheet = isSheet();
    host = plix::host().display().makeWindow(attributes, *this);
    host->setTitle(title);
    if (alpha < 1)
        host->setAlpha(alpha);
    updateExtents();
    applySizeLimits();
    contentView->setNeedsDisplay(true);
}

void NSWindow::Internals::dropHost()
{
    context = nullptr;
    contextPixels = {};
    toPresent.clear();
    hasHostFocus = false;
    // What is being drawn goes on into its pixels.
    if (isDrawing)
        hostsInUse.push_back(std::move(host));
    host.reset();
    updateExtents();
}

// Ordering.

void NSWindow::orderFront(NSObject*)
{
    orderWindow(NSWindowAbove, 0);
}

void NSWindow::orderBack(NSObject*)
{
    orderWindow(NSWindowBelow, 0);
}

void NSWindow::orderOut(NSObject*)
{
    orderWindow(NSWindowOut, 0);
}

void NSWindow::orderFrontRegardless()
{
    m->orderIn(NSWindowAbove, nullptr);
}

void NSWindow::orderWindow(NSWindowOrderingMode mode, long relativeTo)
{
    Ref<NSWindow> const protector(this);
    if (mode == NSWindowOut) {
        if (m->isHostOfSheet && !m->isSheet())
            m->slideOut();
        m->orderOut();
    } else if (NSApp->internals().isHidden && m->canHide)
        m->isHiddenByApplication = true;
    else
        m->orderIn(mode, windowWithNumber(relativeTo));
}

void NSWindow::makeKeyAndOrderFront(NSObject* sender)
{
    Ref<NSWindow> const protector(this);
    orderFront(sender);
    makeKeyWindow();
}

void NSWindow::Internals::orderIn(NSWindowOrderingMode mode, NSWindow* relativeTo)
{
    Ref<NSWindow> const protector(self);
    bool const appears = !isOrderedIn;
    if (appears) {
        Rect const constrained = self.constrainFrameRect(frame(), self.screen());
        if (constrained != frame())
            self.setFrame(constrained, false);
        makeHost();
        isOrderedIn = true;
        isHiddenByApplication = false;
        keptOnScreen = Ref<NSWindow>(self);
    }
    NSApp->internals().windowOrderedIn(self, mode, relativeTo);
    if (appears)
        host->show();
    else if (isMiniaturized)
        host->deminiaturize();
    if (!host)
        return;
    if (mode == NSWindowBelow)
        host->lower();
    else if (!appears)
        host->raise();
    if (appears) {
        updateExtents();
        noteScreen();
    }
    bool const isFirstTime = !std::exchange(wasOrderedIn, true);
    if (isFirstTime) {
        selectInitialFirstResponder();
        self.display();
    } else if (appears && autodisplays) {
        self.displayIfNeeded();
    }
    for (auto const& child : std::vector(children))
        child->internals().orderIn(NSWindowAbove, &self);
    if (sheet && !sheet->isVisible())
        sheet->internals().orderIn(NSWindowAbove, &self);
}

void NSWindow::Internals::orderOut()
{
    isHiddenByApplication = false;
    if (!isOrderedIn)
        return;
    Ref<NSWindow> const protector(self);
    if (auto* const above = parent.get())
        above->removeChildWindow(self);
    for (auto const& child : std::vector(children))
        child->internals().orderOut();
    if (level < NSPopUpMenuWindowLevel)
        ToolTips::hide();
    leaveScreen();
    if (isHostOfSheet && !isSheet())
        dropHost();
}

void NSWindow::Internals::leaveScreen()
{
    auto const kept = std::exchange(keptOnScreen, nullptr);
    letGoOfButtons();
    isOrderedIn = false;
    isMiniaturized = false;
    pressedView = nullptr;
    rightPressedView = nullptr;
    otherPressedView = nullptr;
    moveStart.reset();
    hasHostFocus = false;
    if (host)
        host->hide();
    NSApp->internals().windowOrderedOut(self);
    MenuTracker::viewsLeftWindow();
    ComboList::viewsLeftWindow();
}

bool NSWindow::isVisible() const
{
    return m->isOrderedIn && !m->isMiniaturized;
}

int NSWindow::level() const
{
    return m->level;
}

void NSWindow::setLevel(int level)
{
    if (m->level == level)
        return;
    bool const changesKind = (m->level >= NSPopUpMenuWindowLevel) != (level >= NSPopUpMenuWindowLevel);
    m->level = level;
    if (changesKind && !m->isOrderedIn)
        m->dropHost();
    if (m->isOrderedIn)
        NSApp->internals().windowOrderedIn(*this, NSWindowAbove, nullptr);
}

// Parents and children.

void NSWindow::addChildWindow(NSWindow& child, NSWindowOrderingMode mode)
{
    if (&child == this || child.parentWindow() == this)
        return;
    if (auto* const before = child.parentWindow())
        before->removeChildWindow(child);
    m->children.emplace_back(child);
    child.setParentWindow(this);
    if (child.m->host)
        child.m->host->setParent(m->host.get());
    if (m->isOrderedIn)
        child.m->orderIn(mode, this);
}

void NSWindow::removeChildWindow(NSWindow& child)
{
    Ref<NSWindow> const protector(child);
    if (std::erase(m->children, protector) == 0)
        return;
    child.setParentWindow(nullptr);
    if (child.m->host)
        child.m->host->setParent(nullptr);
}

std::vector<Ref<NSWindow>> NSWindow::childWindows() const
{
    return m->children;
}

NSWindow* NSWindow::parentWindow() const
{
    return m->parent.get();
}

void NSWindow::setParentWindow(NSWindow* parent)
{
    m->parent = parent;
}

// Closing.

void NSWindow::close()
{
    if (m->isClosing)
        return;
    Ref<NSWindow> const protector(this);
    m->isClosing = true;
    m->post(NSWindowWillCloseNotification, &NSWindowDelegate::windowWillClose);
    if (auto const sheet = m->sheet) {
        NSApp->endSheet(*sheet, NSRunAbortedResponse);
        sheet->close();
    }
    if (m->isSheet())
        NSApp->endSheet(*this, NSRunAbortedResponse);
    m->orderOut();
    m->dropHost();
    NSApp->internals().windowClosed(*this);
    m->isClosing = false;
}

void NSWindow::performClose(NSObject*)
{
    Ref<NSWindow> const protector(this);
    if (!(m->styleMask & NSClosableWindowMask)) {
        NSBeep();
        return;
    }
    if (m->hooks.windowShouldClose && !m->hooks.windowShouldClose(*this))
        return;
    close();
}

// Miniaturizing and zooming.

void NSWindow::performMiniaturize(NSObject* sender)
{
    if (m->styleMask & NSMiniaturizableWindowMask)
        miniaturize(sender);
    else
        NSBeep();
}

void NSWindow::miniaturize(NSObject*)
{
    if (!m->isOrderedIn || m->isMiniaturized || !m->host)
        return;
    m->post(NSWindowWillMiniaturizeNotification, &NSWindowDelegate::windowWillMiniaturize);
    if (m->host)
        m->host->miniaturize();
}

void NSWindow::deminiaturize(NSObject*)
{
    if (m->isMiniaturized && m->host)
        m->host->deminiaturize();
}

bool NSWindow::isMiniaturized() const
{
    return m->isMiniaturized;
}

void NSWindow::performZoom(NSObject* sender)
{
    if (m->styleMask & NSResizableWindowMask)
        zoom(sender);
    else
        NSBeep();
}

void NSWindow::zoom(NSObject*)
{
    Ref<NSWindow> const protector(this);
    auto* const onScreen = screen();
    Rect standard = (onScreen ? *onScreen : NSScreen::mainScreen()).visibleFrame();
    if (m->hooks.windowWillUseStandardFrame)
        standard = m->hooks.windowWillUseStandardFrame(*this, standard);
    standard = m->limited(standard);
    bool const zoomsBack = isZoomed() && m->unzoomedFrame;
    Rect const target = zoomsBack ? *m->unzoomedFrame : standard;
    if (m->hooks.windowShouldZoom && !m->hooks.windowShouldZoom(*this, target))
        return;
    m->unzoomedFrame = zoomsBack ? std::nullopt : std::optional(frame());
    setFrame(target, true, true);
}

bool NSWindow::isZoomed() const
{
    auto* const onScreen = screen();
    Rect const area = (onScreen ? *onScreen : NSScreen::mainScreen()).visibleFrame();
    return (m->host && m->host->isZoomed()) || (m->unzoomedFrame && frame() != *m->unzoomedFrame) || frame() == m->limited(area);
}

// Key and main.

bool NSWindow::isKeyWindow() const
{
    return NSApp && NSApp->keyWindow() == this;
}

bool NSWindow::isMainWindow() const
{
    return NSApp && NSApp->mainWindow() == this;
}

bool NSWindow::canBecomeKeyWindow() const
{
    return (m->styleMask & (NSTitledWindowMask | NSResizableWindowMask)) != 0 || m->isSheet();
}

bool NSWindow::canBecomeMainWindow() const
{
    return (m->styleMask & (NSTitledWindowMask | NSResizableWindowMask)) != 0 && isVisible() && !m->isSheet();
}

void NSWindow::makeKeyWindow()
{
    Ref<NSWindow> const protector(this);
    if (!canBecomeKeyWindow())
        return;
    auto& application = NSApp->internals();
    if (application.isActive)
        application.setKeyWindow(this);
    else
        application.lastKeyWindow = this;
    if (m->host && m->isOrderedIn)
        m->host->focus();
}

void NSWindow::makeMainWindow()
{
    Ref<NSWindow> const protector(this);
    if (canBecomeMainWindow())
        NSApp->internals().setMainWindow(this);
}

void NSWindow::becomeKeyWindow()
{
    m->contentView->setNeedsDisplay(true);
    m->post(NSWindowDidBecomeKeyNotification, &NSWindowDelegate::windowDidBecomeKey);
}

void NSWindow::resignKeyWindow()
{
    m->contentView->setNeedsDisplay(true);
    m->post(NSWindowDidResignKeyNotification, &NSWindowDelegate::windowDidResignKey);
}

void NSWindow::becomeMainWindow()
{
    m->post(NSWindowDidBecomeMainNotification, &NSWindowDelegate::windowDidBecomeMain);
}

void NSWindow::resignMainWindow()
{
    m->post(NSWindowDidResignMainNotification, &NSWindowDelegate::windowDidResignMain);
}

}
