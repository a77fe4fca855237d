#pragma once

#include <plix/platform/base/NSDate.h>
#include <plix/platform/base/export.h>

#include <functional>

namespace plix {

/// One sound that was opened, to be played any number of times, from its start each time. Letting go of it while it plays stops it;
/// one whose time is over is only late on its way to the device and is left to play out.
class PLIX_EXPORT HostSound {
public:
    /// Comes on the run loop, with whether the sound was played to its end; not after stop().
    using Finished = std::function<void(bool playedToEnd)>;

    virtual ~HostSound() = default;
    HostSound(HostSound const&) = delete;
    HostSound& operator=(HostSound const&) = delete;

    /// In seconds, of the whole sound.
    virtual NSTimeInterval duration() const = 0;

    void setFinished(Finished finished) { m_finished = std::move(finished); }

    /// As set; 1 at first. What is heard is 0 (silence) to 1 (as recorded): less and more count as these, what is no number as 0.
    float volume() const { return m_volume; }
    /// Also while it plays.
    void setVolume(float);

    // Each does nothing and answers false where the sound is in another state.
    /// Begins; false while it plays or pauses.
    bool play();
    bool pause();
    bool resume();
    /// Ends it whether it plays or pauses.
    bool stop();

    /// Also of one that pauses.
    bool isPlaying() const { return m_state != State::Still; }
    bool isPaused() const { return m_state == State::Paused; }

protected:
    HostSound() = default;

    // What the machine does about it.
    virtual void begin() = 0;
    virtual void hold() = 0;
    virtual void goOn() = 0;
    virtual void end() = 0;
    virtual void applyVolume() { }

    /// For the machine to call, on the main thread, when the sound is over. May destroy it.
    void ended(bool playedToEnd);

private:
    enum class State { Still, Playing, Paused };

    Finished m_finished;
    float m_volume { 1 };
    State m_state { State::Still };
};

}
