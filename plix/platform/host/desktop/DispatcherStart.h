#pragma once

#include <optional>
#include <string>

#include <sys/types.h>

namespace plix {

/// Starts the speech service where none listens, as its own clients do; it ends by itself some seconds after its last client.
class DispatcherStart {
public:
    enum class State {
        Idle,
        Starting,
        Started, ///< it should listen now, or soon
        Failed, ///< not there, not allowed, or not in time; stays so for a while
    };

    ~DispatcherStart();
    DispatcherStart() = default;
    DispatcherStart(DispatcherStart const&) = delete;
    DispatcherStart& operator=(DispatcherStart const&) = delete;

    /// Nothing while it is starting, or failed a moment ago.
    void begin(std::string const& socketPath, double now);
    State look(double now);
    /// When to look again.
    std::optional<double> deadline() const;
    /// It could be reached: the next time it is missing it may be started at once.
    void noteReached() { m_state = State::Idle; }

private:
    void enter(State, double until);
    void waitForStarter(double now);

    State m_state { State::Idle };
    pid_t m_starter { -1 };
    double m_until { 0 };
    double m_nextLook { 0 };
};

}
