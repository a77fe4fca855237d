#pragma once

#include <plix/platform/host/desktop/SoundMixer.h>
#include <plix/platform/host/desktop/SoundOutput.h>

#include <atomic>
#include <thread>

namespace plix {

/// Plays sounds on an output: a thread that reads their files, and lets their time pass in silence while the output fetches
/// nothing.
class SoundPlayer {
public:
    /// `outputMissing` is called on another thread when a sound has begun and the output can't be opened; again where it throws
    /// std::bad_alloc, as `ended` is below.
    SoundPlayer(std::unique_ptr<SoundOutput>, std::function<void()> outputMissing);
    ~SoundPlayer();
    SoundPlayer(SoundPlayer const&) = delete;
    SoundPlayer& operator=(SoundPlayer const&) = delete;

    /// `ended` is called on another thread when the last sample was fetched, with whether the file could be read to its end; on
    /// this one where there is no thread to play it.
    std::shared_ptr<SoundMixer::Voice> play(std::shared_ptr<SoundReader>, float gain, SoundMixer::Ended);
    /// Its `ended` may still be on its way.
    void stop(SoundMixer::Voice const&);
    SoundMixer& mixer() { return *m_mixer; }

private:
    void run();
    void tellNews();
    void letTimePass(SoundMixer::Clock::time_point& passedUntil);
    void noteOutput();

    std::shared_ptr<SoundMixer> m_mixer { std::make_shared<SoundMixer>() };
    std::unique_ptr<SoundOutput> m_output;
    std::function<void()> m_outputMissing;
    /// The reading thread's own: of how many sounds it was said that the output is missing.
    std::size_t m_toldMissing { 0 };
    bool m_wasWanted { false };
    std::atomic<bool> m_isOver { false };
    std::thread m_thread;
};

}
