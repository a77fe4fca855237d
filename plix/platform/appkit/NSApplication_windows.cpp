#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSApplication_internal.h>
#include <plix/platform/appkit/NSWindow_internal.h>

#include <algorithm>

namespace plix {

// Windows.

NSWindow* NSApplication::keyWindow() const
{
    return m->keyWindow.get();
}

NSWindow* NSApplication::mainWindow() const
{
    return m->mainWindow.get();
}

NSWindow* NSApplication::windowWithWindowNumber(long number) const
{
    return NSWindow::windowWithNumber(number);
}

std::vector<Ref<NSWindow>> NSApplication::windows() const
{
    auto const& all = NSWindow::Internals::all();
    return { all.begin(), all.end() };
}

std::vector<Ref<NSWindow>> NSApplication::orderedWindows() const
{
    return { m->order.begin(), m->order.end() };
}

void NSApplication::updateWindows()
{
    Ref<NSApplication> const protector(this);
    m->post(NSApplicationWillUpdateNotification, &NSApplicationDelegate::applicationWillUpdate);
    for (auto const& window : orderedWindows()) {
        if (window->isVisible())
            window->update();
    }
    m->post(NSApplicationDidUpdateNotification, &NSApplicationDelegate::applicationDidUpdate);
}

void NSApplication::setWindowsNeedUpdate(bool needUpdate)
{
    m->windowsNeedUpdate = needUpdate;
}

NSWindow* NSApplication::makeWindowsPerform(Selector action, bool inOrder)
{
    for (auto const& window : inOrder ? orderedWindows() : windows()) {
        if (window->perform(action, nullptr))
            return window.get();
    }
    return nullptr;
}

void NSApplication::Internals::windowOrderedIn(NSWindow& window, NSWindowOrderingMode mode, NSWindow* relativeTo)
{
    std::erase(order, &window);
    auto const isAbove = [&](NSWindow const* other) { return other->level() > window.level(); };
    auto const isAboveOrEqual = [&](NSWindow const* other) { return other->level() >= window.level(); };
    auto place = std::ranges::find(order, relativeTo);
    if (relativeTo && place != order.end())
        place += mode == NSWindowBelow ? 1 : 0;
    else
        place = mode == NSWindowBelow ? std::ranges::find_if_not(order, isAboveOrEqual) : std::ranges::find_if_not(order, isAbove);
    order.insert(place, &window);
}

NSWindow* NSApplication::Internals::nextKeyWindow(NSWindow const* except) const
{
    auto* const main = mainWindow.get();
    if (main && main != except && main->isVisible() && main->canBecomeKeyWindow())
        return &main->internals().frontmostSheet();
    auto const found = std::ranges::find_if(order, [&](auto const* window) {
        return window != except && window->isVisible() && window->canBecomeKeyWindow() && !isBlocked(*window);
    });
    return found == order.end() ? nullptr : *found;
}

void NSApplication::Internals::windowOrderedOut(NSWindow& window)
{
    Ref<NSWindow> const protector(window);
    bool const wasKey = keyWindow == &window;
    std::erase(order, &window);
    if (mouseWindow == &window)
        mouseWindow = nullptr;
    if (lastKeyWindow == &window)
        lastKeyWindow = nullptr;
    if (mainWindow == &window) {
        setMainWindow(nullptr);
        auto const next = std::ranges::find_if(order, [](auto const* other) { return other->canBecomeMainWindow(); });
        if (next != order.end())
            setMainWindow(*next);
    }
    if (!wasKey)
        return;
    auto* const next = nextKeyWindow(&window);
    setKeyWindow(nullptr);
    if (next && !keyWindow)
        next->makeKeyWindow();
}

void NSApplication::Internals::windowClosed(NSWindow& window)
{
    for (auto const& session : sessions) {
        if (session->window() == &window && session->m_response == NSRunContinuesResponse)
            session->m_response = NSRunAbortedResponse;
    }
    bool const isLast = std::ranges::none_of(order, [](auto const* other) { return other->isVisible(); });
    if (isLast && hooks.applicationShouldTerminateAfterLastWindowClosed
        && hooks.applicationShouldTerminateAfterLastWindowClosed(self))
        self.terminate(nullptr);
}

// Key, main and active.

void NSApplication::Internals::setKeyWindow(NSWindow* window)
{
    Ref<NSWindow> const before(keyWindow.get());
    if (before == window)
        return;
    Ref<NSWindow> const protector(window);
    keyWindow = window;
    if (before)
        before->resignKeyWindow();
    if (window && keyWindow == window)
        window->becomeKeyWindow();
    if (window && keyWindow == window)
        window->makeMainWindow();
}

void NSApplication::Internals::setMainWindow(NSWindow* window)
{
    Ref<NSWindow> const before(mainWindow.get());
    if (before == window)
        return;
    Ref<NSWindow> const protector(window);
    mainWindow = window;
    if (before)
        before->resignMainWindow();
    if (window && mainWindow == window)
        window->becomeMainWindow();
}

void NSApplication::Internals::focusGained(NSWindow& window)
{
    Ref<NSWindow> const protector(window);
    mayHaveLostFocus = false;
    if (isBlocked(window)) {
        // The keyboard goes on to the window that keeps it.
        auto& front = window.internals().frontmostSheet();
        auto* const session = innermostSession();
        auto* const modal = session ? session->window() : nullptr;
        Ref<NSWindow> const wanted(&front != &window ? front : modal ? modal->internals().frontmostSheet() : window);
        lastKeyWindow = wanted;
        setActive(true);
        if (wanted != &window && wanted->isVisible())
            wanted->makeKeyAndOrderFront(nullptr);
        return;
    }
    if (window.canBecomeKeyWindow())
        lastKeyWindow = window;
    setActive(true);
    if (window.canBecomeKeyWindow())
        setKeyWindow(&window);
    windowOrderedIn(window, NSWindowAbove, nullptr);
}

void NSApplication::Internals::focusLost()
{
    mayHaveLostFocus = true;
}

void NSApplication::Internals::setActive(bool active)
{
    if (isActive == active)
        return;
    Ref<NSApplication> const protector(self);
    if (active) {
        post(NSApplicationWillBecomeActiveNotification, &NSApplicationDelegate::applicationWillBecomeActive);
        isActive = true;
        cancelAttention();
        for (auto const& window : self.windows()) {
            if (window->internals().isHiddenByApplication && !isHidden)
                window->orderFrontRegardless();
        }
        if (auto* const key = lastKeyWindow.get(); key && key->isVisible() && !keyWindow)
            setKeyWindow(key);
        post(NSApplicationDidBecomeActiveNotification, &NSApplicationDelegate::applicationDidBecomeActive);
        return;
    }
    post(NSApplicationWillResignActiveNotification, &NSApplicationDelegate::applicationWillResignActive);
    isActive = false;
    lastKeyWindow = keyWindow;
    setKeyWindow(nullptr);
    for (auto const& window : self.orderedWindows()) {
        auto& internals = window->internals();
        bool const isModal = self.modalWindow() == window.get();
        if (!internals.hidesOnDeactivate || internals.isSheet() || isModal)
            continue;
        internals.orderOut();
        internals.isHiddenByApplication = true;
    }
    post(NSApplicationDidResignActiveNotification, &NSApplicationDelegate::applicationDidResignActive);
}

bool NSApplication::isActive() const
{
    return m->isActive;
}

void NSApplication::activateIgnoringOtherApps(bool)
{
    auto* const last = m->lastKeyWindow.get();
    auto* const window = last && last->isVisible() ? last : m->nextKeyWindow(nullptr);
    if (window && window->internals().host)
        window->internals().host->focus();
    // A host that leaves the keyboard where it is does not tell.
    if (!window || window->internals().hasHostFocus) {
        m->lastKeyWindow = window;
        m->setActive(true);
    }
}

void NSApplication::deactivate()
{
    m->setActive(false);
}

bool NSApplication::isHidden() const
{
    return m->isHidden;
}

void NSApplication::hide(NSObject*)
{
    if (m->isHidden)
        return;
    Ref<NSApplication> const protector(this);
    m->post(NSApplicationWillHideNotification, &NSApplicationDelegate::applicationWillHide);
    m->isHidden = true;
    Weak<NSWindow> const key = m->keyWindow;
    for (auto const& window : orderedWindows()) {
        if (!window->canHide())
            continue;
        window->internals().leaveScreen();
        window->internals().isHiddenByApplication = true;
    }
    m->lastKeyWindow = key;
    m->post(NSApplicationDidHideNotification, &NSApplicationDelegate::applicationDidHide);
    m->setActive(false);
}

void NSApplication::unhide(NSObject*)
{
    unhideWithoutActivation();
    activateIgnoringOtherApps(true);
}

void NSApplication::unhideWithoutActivation()
{
    if (!m->isHidden)
        return;
    Ref<NSApplication> const protector(this);
    m->post(NSApplicationWillUnhideNotification, &NSApplicationDelegate::applicationWillUnhide);
    m->isHidden = false;
    for (auto const& window : windows()) {
        if (window->internals().isHiddenByApplication)
            window->orderFrontRegardless();
    }
    m->post(NSApplicationDidUnhideNotification, &NSApplicationDelegate::applicationDidUnhide);
}

/// Other applications are none of ours to hide here.
void NSApplication::hideOtherApplications(NSObject*)
{
}

}
