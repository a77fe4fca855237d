#pragma once

#include <plix/platform/host/SampleQueue.h>

#include <array>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <vector>

namespace plix {

class SoundReader;

/// What plays now, added up. Files are read on one thread, what comes out is fetched on another one and sounds begin and end on a
/// third; whoever fetches never waits for a file.
class SoundMixer {
public:
    using Clock = std::chrono::steady_clock;
    /// Where the sum goes: to the device, or nowhere, to let time pass.
    enum class Listener { Device, Nobody };

    using Ended = std::function<void(bool wasRead)>;
    struct Voice;

    SoundMixer();
    ~SoundMixer();
    SoundMixer(SoundMixer const&) = delete;
    SoundMixer& operator=(SoundMixer const&) = delete;

    /// Begins a sound from its start. `ended` is for tellEnded(), with whether the file could be read.
    std::shared_ptr<Voice> add(std::shared_ptr<SoundReader>, float gain, Ended);
    void remove(Voice const&);
    void setPaused(Voice&, bool paused);
    void setGain(Voice&, float);
    /// How long it took from its beginning to the first sample that the device fetched; nil where none was.
    std::optional<double> delayOf(Voice const&) const;

    /// Also of those that pause.
    std::size_t voiceCount() const;
    /// Whether any plays that does not pause.
    bool isAnyoneHeard() const;
    /// How many sounds have begun, ever.
    std::size_t begunCount() const;

    // For the thread that reads.
    /// Reads on in the sound that needs it most; false where none does. One that there is no memory for counts as one that could
    /// not be read.
    bool readAhead();
    /// Calls what is for the end of one of the sounds that have ended, and lets it go; false where there is none. What throws is
    /// called again the next time.
    bool tellEnded();
    /// Sleeps until there is something to read, a sound has begun or ended, wakeUp() was called or the time has come.
    void waitForWork(std::optional<Clock::time_point> until);
    void wakeUp();
    /// When the device last fetched, or since when it could have: the first sound began, or went on, when all was still.
    Clock::time_point lastFetch() const;

    /// Fills with the sum, two channels side by side. Allocates nothing.
    void fetch(std::span<float> stereo, Listener);

private:
    static constexpr std::size_t samplesAtOnce = 4096;

    bool hasWork() const;
    bool isAnyoneHeardNow() const;
    void mix(std::span<float> sum, Listener);
    void mixVoice(Voice&, std::span<float> sum, Listener);

    mutable std::mutex m_mutex;
    std::condition_variable m_work;
    std::vector<std::shared_ptr<Voice>> m_voices;
    /// They have ended, and are let go where files may be closed.
    std::vector<std::shared_ptr<Voice>> m_over;
    std::array<float, samplesAtOnce> m_mixed {};
    std::size_t m_begunCount { 0 };
    Clock::time_point m_lastFetch {};
    bool m_isWoken { false };
};

}
