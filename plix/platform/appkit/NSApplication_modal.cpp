#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSApplication_internal.h>
#include <plix/platform/appkit/NSWindow_internal.h>

#include <algorithm>

namespace plix {

// Modal windows.

Ref<NSModalSession> NSApplication::beginModalSessionForWindow(NSWindow& window)
{
    Ref<NSApplication> const protector(this);
    Ref<NSWindow> const modal(window);
    auto session = make<NSModalSession>();
    session->m_window = modal;
    session->m_previousKeyWindow = m->keyWindow;
    m->sessions.push_back(session);
    auto& internals = window.internals();
    if (!internals.isOrderedIn && !internals.isSheet()) {
        // A panel that runs while another one is modal stays above that.
        auto* const below = m->sessions.size() > 1 ? m->sessions[m->sessions.size() - 2]->window() : nullptr;
        internals.modalParent = below && below->isVisible() ? below : m->mainWindow.get();
        window.center();
    }
    try {
        window.makeKeyAndOrderFront(nullptr);
    } catch (...) {
        endModalSession(*session);
        throw;
    }
    return session;
}

long NSApplication::runModalSession(NSModalSession& given)
{
    Ref<NSApplication> const protector(this);
    Ref<NSModalSession> const session(given);
    if (session->m_response != NSRunContinuesResponse)
        return session->m_response;
    if (m->queue.empty())
        NSRunLoop::currentRunLoop().runOnce(NSModalPanelRunLoopMode, NSDate::distantFuture());
    while (!m->queue.empty() && session->m_response == NSRunContinuesResponse && !session->m_isEnded) {
        auto const event = m->take(m->queue.begin());
        sendEvent(*event);
        if (std::exchange(m->windowsNeedUpdate, false))
            updateWindows();
    }
    m->displayWindows();
    return session->m_response;
}

void NSApplication::endModalSession(NSModalSession& given)
{
    Ref<NSModalSession> const session(given);
    session->m_isEnded = true;
    if (std::erase(m->sessions, session) == 0)
        return;
    session->m_window->internals().modalParent = nullptr;
    auto* const previous = session->m_previousKeyWindow.get();
    if (previous && previous->isVisible() && session->m_window == m->keyWindow.get() && !session->m_window->isVisible())
        previous->makeKeyWindow();
    // A terminate() from within the last modal loop ends here.
    if (m->isTerminating && m->sessions.empty() && m->runDepth == 0) {
        auto const handler = m->exitHandler;
        handler();
    }
}

long NSApplication::runModalForWindow(NSWindow& window)
{
    Ref<NSApplication> const protector(this);
    auto const session = beginModalSessionForWindow(window);
    struct End {
        NSApplication& application;
        NSModalSession& session;
        ~End() { application.endModalSession(session); }
    } const end { *this, *session };
    for (;;) {
        auto const response = runModalSession(*session);
        if (response != NSRunContinuesResponse)
            return response;
    }
}

void NSApplication::stopModal()
{
    stopModalWithCode(NSRunStoppedResponse);
}

void NSApplication::stopModalWithCode(long code)
{
    if (auto* const session = m->innermostSession())
        session->m_response = code;
    NSRunLoop::wakeUp();
}

void NSApplication::abortModal()
{
    stopModalWithCode(NSRunAbortedResponse);
}

NSWindow* NSApplication::modalWindow() const
{
    auto const* const session = m->innermostSession();
    return session ? session->window() : nullptr;
}

}
