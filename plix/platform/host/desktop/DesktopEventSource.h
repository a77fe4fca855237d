#pragma once

#include <plix/platform/foundation/event_source.h>

namespace plix {

class DesktopDisplay;
class XSession;

/// Sleeps on the window system's connections, the caller's descriptors and a wake-up of its own in one system call.
class DesktopEventSource final : public EventSource {
public:
    DesktopEventSource(DesktopDisplay&, XSession&);
    ~DesktopEventSource() override;
    DesktopEventSource(DesktopEventSource const&) = delete;
    DesktopEventSource& operator=(DesktopEventSource const&) = delete;

    // EventSource:
    void wait(std::span<pollfd> descriptors, std::optional<NSTimeInterval> deadline) override;
    bool deliverPending() override;
    void wake() override;

private:
    void sleep(std::span<pollfd>, std::optional<NSTimeInterval> deadline);

    DesktopDisplay& m_display;
    XSession& m_session;
    int m_wakeUp { -1 };
};

}
