#pragma once

#include <plix/platform/base/NSDate.h>

#include <optional>
#include <span>

struct pollfd;

namespace plix {

/// How the run loop sleeps: the door to what the machine has to say. The host installs one; without one the run loop polls its file
/// descriptors alone.
class PLIX_EXPORT EventSource {
public:
    virtual ~EventSource() = default;

    /// Sleeps until one of the descriptors is ready (its revents are set), the host has something to deliver, wake() was called, or
    /// clock().uptime() reaches the deadline; without a deadline as long as it takes. May come back early.
    /// A host whose clock the tests move advances that clock to the deadline instead of sleeping.
    virtual void wait(std::span<pollfd> descriptors, std::optional<NSTimeInterval> deadline) = 0;

    /// Hands what has arrived to whoever listens, without blocking. True where there was anything.
    virtual bool deliverPending() = 0;

    /// Ends the current or the next wait. May be called from any thread.
    virtual void wake() = 0;
};

/// The installed source, or null.
PLIX_EXPORT EventSource* eventSource();
/// Installs a source, which must live until another one or null is installed.
PLIX_EXPORT void installEventSource(EventSource*);

}
