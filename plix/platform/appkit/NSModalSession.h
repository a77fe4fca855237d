#pragma once

#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSWindow.h>

namespace plix {

/// One modal window's turn. Made by NSApplication::beginModalSessionForWindow().
class PLIX_EXPORT NSModalSession : public NSObject {
public:
    // What is modal, and whether that is over.
    NSWindow* window() const { return m_window.get(); }
    /// NSRunContinuesResponse until it is stopped.
    long response() const { return m_response; }
    bool isEnded() const { return m_isEnded; }

private:
    friend class NSApplication;
    friend struct NSApplication::Internals;

    Ref<NSWindow> m_window;
    Weak<NSWindow> m_previousKeyWindow;
    long m_response { NSRunContinuesResponse };
    bool m_isEnded { false };
};

}
