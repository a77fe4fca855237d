#include <plix/app/PLIXApplication.h>

#include <plix/inspector/inspector.h>
#include <plix/platform/appkit/NSDocument.h>
#include <plix/platform/appkit/NSDocumentController.h>
#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/appkit/NSWindowController.h>
#include <plix/platform/foundation/NSNotificationCenter.h>

namespace plix {

namespace {

bool isUserInput(NSEventType type)
{
    switch (type) {
    case NSLeftMouseDown:
    case NSLeftMouseUp:
    case NSRightMouseDown:
    case NSRightMouseUp:
    case NSLeftMouseDragged:
    case NSRightMouseDragged:
    case NSKeyDown:
    case NSOtherMouseDown:
    case NSOtherMouseUp:
    case NSOtherMouseDragged:
        return true;
    default:
        return false;
    }
}

}

PLIX_DESCRIBE(PLIXApplication)
{
}

NSApplication& PLIXApplication::sharedApplication()
{
    if (!NSApp)
        make<PLIXApplication>();
    return *NSApp;
}

bool PLIXApplication::init()
{
    if (!NSApplication::init())
        return false;
    m_shortCircuitRequestUserAttention = false;
    installInspector();
    return true;
}

void PLIXApplication::sendEvent(NSEvent& event)
{
    Ref<PLIXApplication> const protector(this);
    Ref<NSEvent> const kept(event);
    auto& center = NSNotificationCenter::defaultCenter();
    auto const type = event.type();
    if (type == NSLeftMouseDown)
        center.postNotificationName(PLIXApplicationMouseDownNotification, protector);
    if (isUserInput(type))
        center.postNotificationName(PLIXApplicationUserInputNotification, protector);
    m_lastEventTimestamp = NSDate::date().timeIntervalSince1970();
    NSApplication::sendEvent(event);
}

void PLIXApplication::terminate(NSObject* sender)
{
    Ref<PLIXApplication> const protector(this);
    if (Ref<NSDocument> const document = NSDocumentController::sharedDocumentController().currentDocument()) {
        Ref<NSWindowController> const controller
            = document->windowControllers().empty() ? nullptr : document->windowControllers().front();
        if (Ref<NSWindow> const window = controller ? controller->window() : nullptr)
            window->makeFirstResponder(window.get());
    }
    NSApplication::terminate(sender);
}

long PLIXApplication::requestUserAttention(NSRequestUserAttentionType type)
{
    if (!m_shortCircuitRequestUserAttention)
        return NSApplication::requestUserAttention(type);
    if (type == NSCriticalRequest)
        return 0;
    auto const request = NSApplication::requestUserAttention(type);
    NSApplication::cancelUserAttentionRequest(request);
    return request;
}

}
