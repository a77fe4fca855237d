#pragma once

#include <plix/platform/host/sound_volume.h>

#include <functional>
#include <memory>
#include <optional>

namespace plix {

/// How loud the default output of the Pulse server (or of one that speaks as it does) is set. The server is talked to on a thread
/// of its own, which connects when it is first asked, and again when the server was away.
class PulseVolumes {
public:
    /// `changed` is called on another thread when the volume has changed, the default output is another one, or the server has gone
    /// or come. Null where the library to talk to it is missing, or descriptors are.
    static std::unique_ptr<PulseVolumes> make(std::function<void()> changed);
    ~PulseVolumes();

    /// Waits for the server's answer, half a second at most, and not at all for one that hangs already. Where it is not watched
    /// the connection ends a few seconds later.
    std::optional<StereoVolume> ask();
    /// The last answer; never waits.
    std::optional<StereoVolume> known() const;
    /// While it is watched, a server that is away is looked for every second.
    void setWatched(bool);

private:
    class Connection;

    explicit PulseVolumes(std::unique_ptr<Connection>);

    std::unique_ptr<Connection> m_connection;
};

}
