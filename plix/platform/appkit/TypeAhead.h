#pragma once

#include <plix/platform/base/FunctionRef.h>
#include <plix/platform/base/export.h>

#include <string>
#include <string_view>

namespace plix {

/// Letters typed to find something in a list. Those that follow each other within a second look for one word; the same letter again
/// and again goes from one match to the next.
class PLIX_EXPORT TypeAhead {
public:
    /// `uptime` is when, in seconds that only grow.
    void add(std::string_view text, double uptime);
    void clear();
    bool isEmpty() const { return m_typed.empty(); }
    std::string const& typed() const { return m_typed; }

    /// The first match from where the search goes on, around the end; -1 where there is none. `current` is -1 for nowhere.
    long find(long count, long current, FunctionRef<bool(long index)> matches) const;

private:
    std::string m_typed;
    double m_lastTime { 0 };
    bool m_startsBehindCurrent { true };
};

}
