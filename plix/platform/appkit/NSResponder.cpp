#include <plix/platform/appkit/NSResponder.h>

#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/appkit/key_bindings.h>

#include <string>

namespace plix {

namespace {

/// Hands an event on; the chain ends where there is no next responder.
void passOn(NSResponder& from, void (NSResponder::*operation)(NSEvent&), NSEvent& event, char const* selector)
{
    if (Ref<NSResponder> const next = from.nextResponder())
        ((*next).*operation)(event);
    else
        from.noResponderFor(Selector(selector));
}

}

PLIX_DESCRIBE(NSResponder)
{
}

void NSResponder::mouseDown(NSEvent& event)
{
    passOn(*this, &NSResponder::mouseDown, event, "mouseDown:");
}

void NSResponder::mouseUp(NSEvent& event)
{
    passOn(*this, &NSResponder::mouseUp, event, "mouseUp:");
}

void NSResponder::mouseDragged(NSEvent& event)
{
    passOn(*this, &NSResponder::mouseDragged, event, "mouseDragged:");
}

void NSResponder::mouseMoved(NSEvent& event)
{
    passOn(*this, &NSResponder::mouseMoved, event, "mouseMoved:");
}

void NSResponder::mouseEntered(NSEvent& event)
{
    passOn(*this, &NSResponder::mouseEntered, event, "mouseEntered:");
}

void NSResponder::mouseExited(NSEvent& event)
{
    passOn(*this, &NSResponder::mouseExited, event, "mouseExited:");
}

void NSResponder::rightMouseDown(NSEvent& event)
{
    passOn(*this, &NSResponder::rightMouseDown, event, "rightMouseDown:");
}

void NSResponder::rightMouseUp(NSEvent& event)
{
    passOn(*this, &NSResponder::rightMouseUp, event, "rightMouseUp:");
}

void NSResponder::rightMouseDragged(NSEvent& event)
{
    passOn(*this, &NSResponder::rightMouseDragged, event, "rightMouseDragged:");
}

void NSResponder::otherMouseDown(NSEvent& event)
{
    passOn(*this, &NSResponder::otherMouseDown, event, "otherMouseDown:");
}

void NSResponder::otherMouseUp(NSEvent& event)
{
    passOn(*this, &NSResponder::otherMouseUp, event, "otherMouseUp:");
}

void NSResponder::otherMouseDragged(NSEvent& event)
{
    passOn(*this, &NSResponder::otherMouseDragged, event, "otherMouseDragged:");
}

void NSResponder::scrollWheel(NSEvent& event)
{
    passOn(*this, &NSResponder::scrollWheel, event, "scrollWheel:");
}

void NSResponder::keyDown(NSEvent& event)
{
    passOn(*this, &NSResponder::keyDown, event, "keyDown:");
}

void NSResponder::keyUp(NSEvent& event)
{
    passOn(*this, &NSResponder::keyUp, event, "keyUp:");
}

void NSResponder::flagsChanged(NSEvent& event)
{
    passOn(*this, &NSResponder::flagsChanged, event, "flagsChanged:");
}

void NSResponder::cursorUpdate(NSEvent& event)
{
    passOn(*this, &NSResponder::cursorUpdate, event, "cursorUpdate:");
}

void NSResponder::helpRequested(NSEvent& event)
{
    passOn(*this, &NSResponder::helpRequested, event, "helpRequested:");
}

bool NSResponder::tryToPerform(Selector action, NSObject* argument)
{
    if (perform(action, argument))
        return true;
    Ref<NSResponder> const next = nextResponder();
    return next && next->tryToPerform(action, argument);
}

void NSResponder::doCommandBySelector(Selector command)
{
    if (perform(command, nullptr))
        return;
    if (Ref<NSResponder> const next = nextResponder())
        next->doCommandBySelector(command);
    else
        NSBeep();
}

void NSResponder::interpretKeyEvents(std::vector<Ref<NSEvent>> const& events)
{
    Ref<NSResponder> const protector(this);
    for (auto const& event : events) {
        auto const meaning = interpretationOfKey(event->modifierFlags(), event->characterIgnoringModifiers(), event->characters());
        for (auto const command : meaning.commands)
            doCommandBySelector(Selector(command));
        if (!meaning.text.empty())
            insertText(meaning.text);
        else if (meaning.commands.empty())
            noResponderFor(Selector("keyDown:"));
    }
}

void NSResponder::insertText(std::string_view text)
{
    if (Ref<NSResponder> const next = nextResponder())
        next->insertText(text);
    else
        NSBeep();
}

void NSResponder::noResponderFor(Selector operation)
{
    if (operation == Selector("keyDown:"))
        NSBeep();
}

NSUndoManager* NSResponder::undoManager() const
{
    auto const* next = nextResponder();
    return next ? next->undoManager() : nullptr;
}

}
