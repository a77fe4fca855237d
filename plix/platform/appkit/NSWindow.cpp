#include <plix/platform/appkit/NSWindow.h>

#include <plix/platform/appkit/NSApplication_internal.h>
#include <plix/platform/appkit/NSScreen.h>
#include <plix/platform/appkit/NSView_internal.h>
#include <plix/platform/appkit/NSWindow_internal.h>
#include <plix/platform/foundation/NSNotificationCenter.h>
#include <plix/platform/foundation/NSUndoManager.h>
#include <plix/platform/graphics/NSGraphicsContext.h>
#include <plix/platform/host/Display.h>
#include <plix/platform/host/Host.h>

#include <algorithm>

namespace plix {

namespace {

constexpr unsigned usualStyle = NSTitledWindowMask | NSClosableWindowMask | NSMiniaturizableWindowMask | NSResizableWindowMask;

long nextWindowNumber()
{
    static long s_number = 0;
    return ++s_number;
}

}

PLIX_DESCRIBE(NSWindow)
{
    description.outlet<NSView>(
        "initialFirstResponder", [](NSWindow& window, Ref<NSView> const& view) { window.setInitialFirstResponder(view.get()); });
    description.hookOutlet("delegate", &NSWindow::takeHooks)
        .action("performClose:", &NSWindow::performClose)
        .action("performMiniaturize:", &NSWindow::performMiniaturize)
        .action("performZoom:", &NSWindow::performZoom)
        .action("miniaturize:", &NSWindow::miniaturize)
        .action("deminiaturize:", &NSWindow::deminiaturize)
        .action("zoom:", &NSWindow::zoom)
        .action("orderFront:", &NSWindow::orderFront)
        .action("orderBack:", &NSWindow::orderBack)
        .action("orderOut:", &NSWindow::orderOut)
        .action("makeKeyAndOrderFront:", &NSWindow::makeKeyAndOrderFront)
        .action("undo:", &NSWindow::undo)
        .action("redo:", &NSWindow::redo)
        .action("selectNextKeyView:", &NSWindow::selectNextKeyView)
        .action("selectPreviousKeyView:", &NSWindow::selectPreviousKeyView);
}

std::vector<NSWindow*>& NSWindow::Internals::all()
{
    static auto& s_all = *new std::vector<NSWindow*>;
    return s_all;
}

NSWindow::Internals::Internals(NSWindow& window)
    : self(window)
    , number(nextWindowNumber())
    , tracking(window)
{
    all().push_back(&window);
}

NSWindow::Internals::~Internals()
{
    std::erase(all(), &self);
}

NSWindow::NSWindow()
    : m(std::make_unique<Internals>(*this))
{
}

NSWindow::~NSWindow()
{
    if (NSApp)
        std::erase(NSApp->internals().order, this);
    m->host.reset();
    if (m->contentView) {
        NSView::Access::forgetWindow(*m->contentView);
        m->contentView->setNextResponder(nullptr);
    }
    for (auto const& child : m->children)
        child->setParentWindow(nullptr);
}

bool NSWindow::init()
{
    return NSWindow::init(Rect {}, usualStyle, NSBackingStoreBuffered, true);
}

bool NSWindow::init(Rect contentRect, unsigned styleMask, NSBackingStoreType backing, bool defer)
{
    return NSWindow::init(contentRect, styleMask, backing, defer, nullptr);
}

bool NSWindow::init(Rect contentRect, unsigned styleMask, NSBackingStoreType, bool, NSScreen* screen)
{
    if (!NSResponder::init())
        return false;
    NSApplication::sharedApplication();
    if (screen) {
        contentRect.x += screen->frame().x;
        contentRect.y += screen->frame().y;
    }
    m->content = contentRect;
    m->styleMask = styleMask;
    m->isMovableByBackground = (styleMask & NSTexturedBackgroundWindowMask) != 0;
    m->updateExtents();
    setContentView(nullptr);
    return true;
}

void NSWindow::Internals::post(char const* name, Hook<void(NSNotification const&)> NSWindowDelegate::*hook)
{
    Ref<NSWindow> const protector(self);
    NSNotification const notification { name, Ref<NSObject>(self), {} };
    (hooks.*hook)(notification);
    NSNotificationCenter::defaultCenter().postNotification(notification);
}

// Content.

NSView* NSWindow::contentView() const
{
    return m->contentView.get();
}

void NSWindow::setContentView(Ref<NSView> const& given)
{
    Ref<NSWindow> const protector(this);
    Ref<NSView> const view = given ? given : make<NSView>();
    if (view == m->contentView)
        return;
    if (auto const old = std::exchange(m->contentView, nullptr)) {
        NSView::Access::moveToWindow(*old, nullptr);
        old->setNextResponder(nullptr);
    }
    view->removeFromSuperview();
    m->contentView = view;
    view->setNextResponder(this);
    view->setFrame({ 0, 0, m->content.width, m->content.height });
    NSView::Access::moveToWindow(*view, this);
    m->needsDisplay = true;
}

std::string const& NSWindow::title() const
{
    return m->title;
}

void NSWindow::setTitle(std::string_view title)
{
    if (m->title == title)
        return;
    m->title = title;
    if (m->host)
        m->host->setTitle(title);
}

std::string const& NSWindow::representedFilename() const
{
    return m->representedFilename;
}

void NSWindow::setRepresentedFilename(std::string_view name)
{
    m->representedFilename = name;
}

bool NSWindow::isDocumentEdited() const
{
    return m->isDocumentEdited;
}

void NSWindow::setDocumentEdited(bool edited)
{
    m->isDocumentEdited = edited;
}

NSColor* NSWindow::backgroundColor() const
{
    return m->background.get();
}

void NSWindow::setBackgroundColor(Ref<NSColor> const& color)
{
    if (m->background == color)
        return;
    m->background = color;
    m->contentView->setNeedsDisplay(true);
}

std::optional<Appearance> NSWindow::appearance() const
{
    return m->appearance;
}

void NSWindow::setAppearance(std::optional<Appearance> appearance)
{
    if (m->appearance == appearance)
        return;
    m->appearance = appearance;
    m->contentView->setNeedsDisplay(true);
}

Appearance NSWindow::effectiveAppearance() const
{
    return m->appearance.value_or(processAppearance());
}

bool NSWindow::isOpaque() const
{
    return m->isOpaque;
}

void NSWindow::setOpaque(bool opaque)
{
    m->isOpaque = opaque;
}

bool NSWindow::hasShadow() const
{
    return m->hasShadow;
}

void NSWindow::setHasShadow(bool hasShadow)
{
    m->hasShadow = hasShadow;
}

float NSWindow::alphaValue() const
{
    return m->alpha;
}

void NSWindow::setAlphaValue(float alpha)
{
    m->alpha = std::clamp(alpha, 0.0F, 1.0F);
    if (m->host)
        m->host->setAlpha(m->alpha);
}

bool NSWindow::showsResizeIndicator() const
{
    return m->showsResizeIndicator;
}

void NSWindow::setShowsResizeIndicator(bool shows)
{
    m->showsResizeIndicator = shows;
}

// Flags.

bool NSWindow::hidesOnDeactivate() const
{
    return m->hidesOnDeactivate;
}

void NSWindow::setHidesOnDeactivate(bool hides)
{
    m->hidesOnDeactivate = hides;
}

bool NSWindow::canHide() const
{
    return m->canHide;
}

void NSWindow::setCanHide(bool canHide)
{
    m->canHide = canHide;
}

bool NSWindow::isMovableByWindowBackground() const
{
    return m->isMovableByBackground;
}

void NSWindow::setMovableByWindowBackground(bool movable)
{
    m->isMovableByBackground = movable;
}

bool NSWindow::isReleasedWhenClosed() const
{
    return m->isReleasedWhenClosed;
}

void NSWindow::setReleasedWhenClosed(bool released)
{
    m->isReleasedWhenClosed = released;
}

bool NSWindow::isExcludedFromWindowsMenu() const
{
    return m->isExcludedFromMenu;
}

void NSWindow::setExcludedFromWindowsMenu(bool excluded)
{
    m->isExcludedFromMenu = excluded;
}

unsigned NSWindow::styleMask() const
{
    return m->styleMask;
}

long NSWindow::windowNumber() const
{
    return m->number;
}

HostWindow* NSWindow::hostWindow() const
{
    return m->host.get();
}

NSWindow* NSWindow::windowWithNumber(long number)
{
    auto const found = std::ranges::find_if(Internals::all(), [number](auto const* window) { return window->m->number == number; });
    return found == Internals::all().end() ? nullptr : *found;
}

NSWindowController* NSWindow::windowController() const
{
    return m->controller.get();
}

void NSWindow::setWindowController(NSWindowController* controller)
{
    m->controller = controller;
}

// Delegate.

void NSWindow::takeHooks(HookSource const& source)
{
    m->delegateSource = source;
    m->hooks = source.hooks<NSWindowDelegate>();
}

NSObject* NSWindow::delegate() const
{
    return m->delegateSource.object();
}

NSWindowDelegate const& NSWindow::delegateHooks() const
{
    return m->hooks;
}

bool NSWindow::tryToPerform(Selector action, NSObject* argument)
{
    if (NSResponder::tryToPerform(action, argument))
        return true;
    Ref<NSObject> const host = delegate();
    return host && host != this && host->perform(action, argument);
}

NSUndoManager* NSWindow::undoManager() const
{
    if (m->hooks.windowWillReturnUndoManager) {
        if (auto* const given = m->hooks.windowWillReturnUndoManager(*const_cast<NSWindow*>(this)))
            return given;
    }
    if (!m->undoManager)
        m->undoManager = make<NSUndoManager>();
    return m->undoManager.get();
}

void NSWindow::undo(NSObject*)
{
    Ref<NSUndoManager> const manager(undoManager());
    if (manager->canUndo())
        manager->undo();
    else
        NSBeep();
}

void NSWindow::redo(NSObject*)
{
    Ref<NSUndoManager> const manager(undoManager());
    if (manager->canRedo())
        manager->redo();
    else
        NSBeep();
}

}
