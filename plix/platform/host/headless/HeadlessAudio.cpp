#include <plix/platform/host/headless/HeadlessAudio.h>

#include <plix/platform/host/headless/HeadlessClock.h>
#include <plix/platform/host/headless/HeadlessEvents.h>
#include <plix/platform/host/sound_file_bytes.h>
#include <plix/platform/host/sound_kind.h>

#include <algorithm>

namespace plix {

class HeadlessAudio::Sound final : public HostSound {
public:
    Sound(HeadlessAudio& audio, std::string path, NSTimeInterval duration)
        : m_audio(audio)
        , m_audioLife(audio.m_life)
        , m_path(std::move(path))
        , m_duration(duration)
    {
    }
    ~Sound() override { leave(); }

    std::string const& path() const { return m_path; }
    void breakDown()
    {
        leave();
        ended(false);
    }

    // HostSound:
    NSTimeInterval duration() const override { return m_duration; }

private:
    void begin() override
    {
        m_rest = m_duration;
        if (m_audioLife.expired())
            return;
        m_audio.m_plays.push_back({ m_path, volume(), m_audio.m_clock.uptime() });
        m_audio.m_playing.push_back(this);
        goOn();
    }
    void hold() override
    {
        m_run.reset();
        if (!m_audioLife.expired())
            m_rest -= m_audio.m_clock.uptime() - m_since;
    }
    void goOn() override
    {
        if (m_audioLife.expired())
            return;
        m_since = m_audio.m_clock.uptime();
        m_run = std::make_shared<Sound*>(this);
        m_audio.m_events.postAfter(m_rest, [run = std::weak_ptr(m_run)] {
            if (auto const sound = run.lock()) {
                (*sound)->leave();
                (*sound)->ended(true);
            }
        });
    }
    void end() override { leave(); }

    void leave()
    {
        m_run.reset();
        if (!m_audioLife.expired())
            std::erase(m_audio.m_playing, this);
    }

    HeadlessAudio& m_audio;
    std::weak_ptr<int> m_audioLife;
    std::string m_path;
    NSTimeInterval m_duration;
    NSTimeInterval m_rest { 0 };
    NSTimeInterval m_since { 0 };
    /// Of the run that goes on now.
    std::shared_ptr<Sound*> m_run;
};

HeadlessAudio::HeadlessAudio(HeadlessClock const& clock, HeadlessEvents& events)
    : m_clock(clock)
    , m_events(events)
{
}

float HeadlessAudio::playingVolume(std::string const& path) const
{
    auto const found = std::ranges::find(m_playing, path, &Sound::path);
    return found == m_playing.end() ? -1 : (*found)->volume();
}

void HeadlessAudio::breakDown()
{
    for (auto* const sound : std::vector(m_playing)) {
        if (std::ranges::find(m_playing, sound) != m_playing.end())
            sound->breakDown();
    }
}

void HeadlessAudio::setOutputVolume(std::optional<StereoVolume> volume)
{
    if (m_outputVolume == volume)
        return;
    m_outputVolume = volume;
    m_events.post([this, life = std::weak_ptr(m_life)] {
        if (!life.expired())
            tellOutputVolumeChanged();
    });
}

std::vector<std::string> const& HeadlessAudio::fileTypes() const
{
    static auto const& s_none = *new std::vector<std::string>;
    return m_decodes ? soundFileTypes() : s_none;
}

std::unique_ptr<HostSound> HeadlessAudio::make(std::string path)
{
    auto const known = m_durations.find(path);
    auto const duration = known == m_durations.end() ? m_usualDuration : known->second;
    return std::make_unique<Sound>(*this, std::move(path), duration);
}

std::unique_ptr<HostSound> HeadlessAudio::openSound(std::string const& path)
{
    auto const bytes = SoundFileBytes::open(path);
    if (!m_decodes || m_refused.contains(path) || !bytes || !soundKind(bytes->firstBytes()))
        return nullptr;
    return make(path);
}

std::unique_ptr<HostSound> HeadlessAudio::openSound(std::span<std::uint8_t const> bytes)
{
    return m_decodes && soundKind(bytes) ? make({}) : nullptr;
}

bool HeadlessAudio::beep()
{
    ++m_beepCount;
    return m_hasAlertSound;
}

}
