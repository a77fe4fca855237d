#pragma once

#include <plix/platform/host/desktop/SoundOutput.h>

#include <chrono>
#include <memory>
#include <string>

namespace plix {

/// A stream to the default output of the Pulse server (or of one that speaks as it does), on a connection of its own. Belongs to
/// one thread, on which it fetches; a server that hangs holds nobody up.
class PulsePlayback {
public:
    enum class State {
        Opening,
        Open,
        Lost, ///< for good: no server is there, it has no output, or it went away
    };

    /// Whether the library to talk to it is there.
    static bool isAvailable();

    /// Begins to connect. What fetches lives longer, and throws nothing.
    PulsePlayback(SoundOutput::Fetch const&, std::string const& applicationName);
    ~PulsePlayback();
    PulsePlayback(PulsePlayback const&) = delete;
    PulsePlayback& operator=(PulsePlayback const&) = delete;

    State state() const;
    /// Waits at most so long for something to do, and does it.
    void turn(std::chrono::microseconds);

private:
    struct Connection;

    std::unique_ptr<Connection> m_connection;
};

}
