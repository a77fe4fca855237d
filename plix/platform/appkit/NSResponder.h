#pragma once

#include <plix/platform/appkit/Forward.h>
#include <plix/platform/base/Class.h>
#include <plix/platform/base/NSRange.h>

#include <string_view>
#include <vector>

namespace plix {

/// A link of the chain along which events and actions are offered. Each event operation hands the event to the next responder
/// unless a subclass does something about it.
class PLIX_EXPORT NSResponder : public NSObject {
    PLIX_CLASS(NSResponder, NSObject);

public:
    bool init() { return true; }

    virtual NSResponder* nextResponder() const { return m_nextResponder.get(); }
    /// Not kept alive.
    virtual void setNextResponder(NSResponder* responder) { m_nextResponder = responder; }

    /// Whether it takes the keyboard.
    virtual bool acceptsFirstResponder() const { return false; }
    /// Asked when the receiver is about to become its window's first responder; false refuses.
    virtual bool becomeFirstResponder() { return true; }
    /// Asked when another shall become first responder; false refuses.
    virtual bool resignFirstResponder() { return true; }

    // Events. Each is handed on to the next responder by those who do nothing with it.
    virtual void mouseDown(NSEvent&);
    virtual void mouseUp(NSEvent&);
    virtual void mouseDragged(NSEvent&);
    virtual void mouseMoved(NSEvent&);
    virtual void mouseEntered(NSEvent&);
    virtual void mouseExited(NSEvent&);
    virtual void rightMouseDown(NSEvent&);
    virtual void rightMouseUp(NSEvent&);
    virtual void rightMouseDragged(NSEvent&);
    virtual void otherMouseDown(NSEvent&);
    virtual void otherMouseUp(NSEvent&);
    virtual void otherMouseDragged(NSEvent&);
    virtual void scrollWheel(NSEvent&);
    virtual void keyDown(NSEvent&);
    virtual void keyUp(NSEvent&);
    virtual void flagsChanged(NSEvent&);
    virtual void cursorUpdate(NSEvent&);
    virtual void helpRequested(NSEvent&);

    /// True where the receiver took the key as a shortcut of its own.
    virtual bool performKeyEquivalent(NSEvent&) { return false; }
    virtual bool performMnemonic(std::string_view) { return false; }

    /// Performs the action where the receiver's class describes one, else offers it to the next responder. True where one took it.
    virtual bool tryToPerform(Selector, NSObject* argument);
    /// Like tryToPerform() with nil as sender, but beeps where nobody takes the command.
    virtual void doCommandBySelector(Selector);
    /// Turns key presses into commands and text by the key bindings: calls doCommandBySelector() and insertText().
    void interpretKeyEvents(std::vector<Ref<NSEvent>> const&);
    /// Text that the keyboard or an input method entered. Offered along the chain.
    virtual void insertText(std::string_view);
    /// Text that an input method shows but has not entered yet, with the selection in it; empty text ends it. False where the
    /// receiver edits no text.
    virtual bool setMarkedText(std::string_view, NSRange /*selected*/) { return false; }
    /// The chain ends here for that operation. Beeps for keyDown:.
    virtual void noResponderFor(Selector);

    /// The manager of the nearest responder that has one, or null.
    virtual NSUndoManager* undoManager() const;

private:
    Weak<NSResponder> m_nextResponder;
};

}
