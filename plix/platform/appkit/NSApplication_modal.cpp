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
        internals.modalParent = m->mainWindow;
        window.center();
    }
    window.makeKeyAndOrderFront(nullptr);
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

// Sheets.

void NSApplication::beginSheet(NSWindow& sheet, NSWindow& modalForWindow, SheetEnded ended)
{
    Ref<NSApplication> const protector(this);
    Ref<NSWindow> const attached(sheet);
    auto& parent = modalForWindow.internals().frontmostSheet();
    if (&parent == &sheet || sheet.isSheet())
        return;
    Ref<NSWindow> const parentProtector(parent);
    auto& above = parent.internals();
    auto& internals = sheet.internals();
    above.post(NSWindowWillBeginSheetNotification, &NSWindowDelegate::windowWillBeginSheet);
    internals.orderOut();
    internals.sheetParent = parent;
    internals.sheetEnded = std::move(ended);
    internals.dropHost();
    above.sheet = attached;
    Rect top { above.contentOffset().x, above.contentOffset().y + above.content.height, above.content.width, 0 };
    if (above.hooks.windowWillPositionSheet)
        top = above.hooks.windowWillPositionSheet(parent, sheet, top);
    Point const onScreen = parent.convertBaseToScreen({ top.midX(), top.y });
    sheet.setFrameTopLeftPoint({ onScreen.x - sheet.frame().width * 0.5F, onScreen.y });
    if (parent.isVisible())
        sheet.makeKeyAndOrderFront(nullptr);
}

void NSApplication::endSheet(NSWindow& sheet, long returnCode)
{
    Ref<NSApplication> const protector(this);
    Ref<NSWindow> const attached(sheet);
    auto& internals = sheet.internals();
    Ref<NSWindow> const parent(internals.sheetParent.get());
    if (!parent)
        return;
    bool const wasKey = sheet.isKeyWindow();
    internals.sheetParent = nullptr;
    parent->internals().sheet = nullptr;
    if (!internals.isOrderedIn)
        internals.dropHost();
    auto const ended = std::exchange(internals.sheetEnded, {});
    if (ended)
        ended(sheet, returnCode);
    parent->internals().post(NSWindowDidEndSheetNotification, &NSWindowDelegate::windowDidEndSheet);
    if (wasKey && parent->isVisible())
        parent->makeKeyWindow();
}

}
