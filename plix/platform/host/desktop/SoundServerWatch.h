#pragma once

#include <memory>
#include <string>
#include <vector>

struct pollfd;

namespace plix {

/// Whether a sound server answers, and whether it goes on doing so. The speech service hangs for good when it speaks without one,
/// so it is asked first. Belongs to one thread, whose waiting it takes part in.
class SoundServerWatch {
public:
    enum class State {
        Idle, ///< nobody asked
        Asking,
        There,
        Missing, ///< it did not answer, or was lost
    };

    explicit SoundServerWatch(std::string applicationName);
    ~SoundServerWatch();
    SoundServerWatch(SoundServerWatch const&) = delete;
    SoundServerWatch& operator=(SoundServerWatch const&) = delete;

    /// Asks anew, unless it is asking or there.
    void ask();
    /// Lets the server go; idle again.
    void forget();
    State state() const;

    /// Sleeps until one of the descriptors or the sound server has something, or the milliseconds (-1: any number) are over.
    void wait(std::vector<pollfd>&, int milliseconds);

private:
    struct Connection;

    std::string m_applicationName;
    std::unique_ptr<Connection> m_connection;
};

}
