#pragma once

#include <plix/platform/foundation/event_source.h>

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <vector>

#include <poll.h>

namespace plix {

/// The other toolkit's main loop, as an adapter knows it.
class PLIX_EXPORT ToolkitLoop {
public:
    virtual ~ToolkitLoop() = default;

    /// Lets the toolkit handle what it has, sleeping first where that is nothing. What it wakes for is asked as always, see below.
    virtual void pass() = 0;
    /// How many of the toolkit's loops run inside each other now. A dialog that the toolkit runs adds one, pass() does not.
    virtual int depth() const = 0;
};

/// The run loop's sleep where another toolkit has the main loop. Each time that the toolkit is about to sleep, an adapter asks
///
///     toolkitWillSleep():  true: do not sleep, but call takeTurn() as soon as may be, as one of the toolkit's events
///     watched():           otherwise sleep until one of these descriptors is ready
///     deadline():          or until that time
///
/// and has nothing to do when the toolkit wakes: before it sleeps again, toolkitWillSleep() is true. While an operation of this
/// library waits (a menu is followed, an alert is modal), the toolkit goes on in passes within wait().
class PLIX_EXPORT EmbeddingEvents final : public EventSource {
public:
    /// The loop must outlive this.
    explicit EmbeddingEvents(ToolkitLoop&);
    ~EmbeddingEvents() override;
    EmbeddingEvents(EmbeddingEvents const&) = delete;
    EmbeddingEvents& operator=(EmbeddingEvents const&) = delete;

    /// What deliverPending() calls; true where there was anything. Set by the display.
    void setDelivery(std::function<bool()> delivery) { m_delivery = std::move(delivery); }

    /// True where something may have happened since the last turn. False in a pass that wait() makes, which ends by itself.
    bool toolkitWillSleep();
    /// What the run loop waits for besides the toolkit, as of its last wait.
    std::vector<pollfd> const& watched() const { return m_watched; }
    /// When the run loop wants to go on, in seconds of clock().uptime(); nullopt where only an event ends its wait.
    std::optional<NSTimeInterval> deadline() const;
    /// Whether the toolkit's innermost loop is a pass that wait() makes.
    bool isPassing() const { return m_pass && m_pass->depth == m_loop.depth(); }
    /// A turn has been taken: what waited is handled, what was dirty is drawn.
    void noteTurn() { m_isSettled = true; }

    // EventSource:
    void wait(std::span<pollfd> descriptors, std::optional<NSTimeInterval> deadline) override;
    bool deliverPending() override;
    void wake() override;

private:
    bool pollNow(std::span<pollfd> descriptors);

    struct Pass {
        int depth { 0 };
        std::optional<NSTimeInterval> deadline;
    };

    ToolkitLoop& m_loop;
    std::function<bool()> m_delivery;
    std::vector<pollfd> m_watched;
    std::optional<Pass> m_pass;
    bool m_isSettled { false };
    bool m_hasPassed { false };
    int m_wakeDescriptor { -1 };
};

}
