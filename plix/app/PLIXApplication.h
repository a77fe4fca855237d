#pragma once

#include <plix/platform/appkit/NSApplication.h>

namespace plix {

/// Posted with the application as object before a left mouse button's press is dispatched, ahead of the one below.
inline constexpr char const* PLIXApplicationMouseDownNotification = "PLIXApplicationMouseDownNotification";
/// Posted with the application as object before what a person does is dispatched: every press, release and drag of a mouse button
/// and every key press. Moving the pointer, scrolling, and pressing or releasing modifier keys do not count.
inline constexpr char const* PLIXApplicationUserInputNotification = "PLIXApplicationUserInputNotification";

/// An application that announces user input, knows when the last event was dispatched, and can keep requests for attention
/// harmless. Where the library was built with the inspector, Control-Shift-I opens it.
class PLIX_EXPORT PLIXApplication : public NSApplication {
    PLIX_CLASS(PLIXApplication, NSApplication);

public:
    /// The application, made as a PLIXApplication where there is none yet.
    static NSApplication& sharedApplication();
    bool init();

    /// Seconds since 1 January 1970 00:00 UTC when the last event was dispatched; 0 before the first. Observers of the
    /// notifications above still read the time of the event before.
    double lastEventTimestamp() const { return m_lastEventTimestamp; }

    /// While set, a critical request for attention answers 0 and does nothing, and an informational one is withdrawn at once.
    bool shortCircuitRequestUserAttention() const { return m_shortCircuitRequestUserAttention; }
    void setShortCircuitRequestUserAttention(bool shortCircuits) { m_shortCircuitRequestUserAttention = shortCircuits; }

    // NSApplication:
    void sendEvent(NSEvent&) override;
    /// Has the current document's first window commit what is edited there first.
    void terminate(NSObject* sender) override;
    long requestUserAttention(NSRequestUserAttentionType) override;

private:
    double m_lastEventTimestamp { 0 };
    bool m_shortCircuitRequestUserAttention { false };
};

}
