#pragma once

#include <plix/platform/base/Ref.h>
#include <plix/platform/foundation/NSTimer.h>

#include <optional>
#include <vector>

namespace plix {

/// The timers of one mode, the next to fire on top. An entry whose timer has moved or become invalid since is dropped when it
/// comes up, or when such entries outnumber the others.
class TimerHeap {
public:
    struct Entry {
        NSTimeInterval uptime;
        std::uint64_t sequence;
        Ref<NSTimer> timer;
        std::uint32_t version;

        bool isCurrent() const { return timer->isValid() && timer->version() == version; }
        bool isBefore(Entry const& other) const
        {
            return uptime != other.uptime ? uptime < other.uptime : sequence < other.sequence;
        }
    };

    void push(Entry);
    std::optional<NSTimeInterval> nextUptime();
    /// Moves what is due at `now` to `due`, in order.
    void popDue(NSTimeInterval now, std::vector<Entry>& due);
    void noteEntryStale();
    bool isEmpty() const { return m_entries.empty(); }

private:
    void dropStaleTop();
    Entry pop();

    std::vector<Entry> m_entries;
    std::size_t m_stale { 0 };
};

}
