#pragma once

#include <plix/platform/base/export.h>

#include <cstdint>

namespace plix {

/// Tells double and triple clicks from single ones: the same button in the same window, soon after the press before and close to
/// it.
class PLIX_EXPORT ClickCounter {
public:
    struct Press {
        std::uint64_t window { 0 };
        int button { 0 };
        std::uint32_t milliseconds { 0 }; ///< the window system's time, which starts again at 0 after 49 days
        int x { 0 };
        int y { 0 };
    };

    ClickCounter(std::uint32_t intervalInMilliseconds, int distanceInPixels)
        : m_interval(intervalInMilliseconds)
        , m_distance(distanceInPixels)
    {
    }

    /// The count for a press, 1 at least.
    int press(Press const&);
    /// The count that the release of the last press has.
    int count() const { return m_count; }

private:
    std::uint32_t m_interval;
    int m_distance;
    Press m_last;
    int m_count { 0 };
};

}
