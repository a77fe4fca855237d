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
    /// Takes note of what the starter did, and ends one that takes too long.
    void goOn(double now);
    State state() const { return m_state; }
    /// When to go on.
    std::optional<double> deadline() const;
    /// The service with that number could be reached: the next time it is missing it may be started at once.
    void noteReached(pid_t service);
    /// The service that was started from here; it may be ended from here when it hangs. 0 for none.
    pid_t startedService() const { return m_startedService; }
    void forgetService() { m_startedService = 0; }

private:
    void enter(State, double until);
    void waitForStarter(double now);

    State m_state { State::Idle };
    pid_t m_starter { -1 };
    double m_until { 0 };
    double m_nextLook { 0 };
    pid_t m_startedService { 0 };
    /// What could be reached while its starter had not ended yet.
    std::optional<pid_t> m_reached;
};

}
