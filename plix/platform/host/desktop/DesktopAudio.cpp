#include <plix/platform/host/desktop/DesktopAudio.h>

#include <plix/platform/base/clock.h>
#include <plix/platform/foundation/NSFileManager.h>
#include <plix/platform/foundation/NSRunLoop.h>
#include <plix/platform/host/desktop/DeviceOutput.h>
#include <plix/platform/host/desktop/PulseVolumes.h>
#include <plix/platform/host/desktop/SoundPlayer.h>
#include <plix/platform/host/desktop/SoundReader.h>
#include <plix/platform/host/sound_folders.h>

#include <array>
#include <utility>

namespace plix {

namespace {

/// The first that the system's folder of sounds has.
constexpr std::array alertSounds { "bell.oga", "bell.wav", "dialog-warning.oga", "message.oga" };

}

class DesktopAudio::Sound final : public HostSound {
public:
    Sound(std::shared_ptr<SoundPlayer> player, std::unique_ptr<SoundDecoder> decoder)
        : m_player(std::move(player))
        , m_reader(std::make_shared<SoundReader>(std::move(decoder)))
        , m_duration(m_reader->duration())
    {
    }
    ~Sound() override
    {
        // One whose time is over is late on its way to the device.
        bool const isLate = !isPaused() && m_played + clock().uptime() - m_since >= m_duration;
        if (isPlaying() && !isLate)
            end();
    }

    /// Called with each voice that is begun.
    void setBegun(std::function<void(std::shared_ptr<SoundMixer::Voice> const&)> begun) { m_begun = std::move(begun); }

    // HostSound:
    NSTimeInterval duration() const override { return m_duration; }

private:
    void begin() override
    {
        m_played = 0;
        m_since = clock().uptime();
        // Of a sound that was stopped and begun again only the end of the last run counts.
        m_run = std::make_shared<Sound*>(this);
        m_voice = m_player->play(m_reader, volume(), [run = std::weak_ptr(m_run)](bool wasRead) {
            NSRunLoop::performOnMainThread([run, wasRead] {
                if (auto const sound = run.lock())
                    (*sound)->runEnded(wasRead);
            });
        });
        if (m_begun)
            m_begun(m_voice);
    }
    void hold() override
    {
        m_played += clock().uptime() - m_since;
        m_player->mixer().setPaused(*m_voice, true);
    }
    void goOn() override
    {
        m_since = clock().uptime();
        m_player->mixer().setPaused(*m_voice, false);
    }
    void end() override
    {
        m_run.reset();
        m_player->stop(*m_voice);
    }
    void applyVolume() override
    {
        if (m_voice)
            m_player->mixer().setGain(*m_voice, volume());
    }
    void runEnded(bool wasRead)
    {
        m_run.reset();
        ended(wasRead);
    }

    std::shared_ptr<SoundPlayer> m_player;
    std::shared_ptr<SoundReader> m_reader;
    NSTimeInterval m_duration { 0 };
    std::function<void(std::shared_ptr<SoundMixer::Voice> const&)> m_begun;
    std::shared_ptr<SoundMixer::Voice> m_voice;
    std::shared_ptr<Sound*> m_run;
    NSTimeInterval m_played { 0 };
    NSTimeInterval m_since { 0 };
};

DesktopAudio::DesktopAudio(std::function<void()> ringBell)
    : DesktopAudio(std::move(ringBell), std::make_unique<DeviceOutput>())
{
}

DesktopAudio::DesktopAudio(std::function<void()> ringBell, std::unique_ptr<SoundOutput> output)
    : m_ringBell(std::move(ringBell))
    , m_player(std::make_shared<SoundPlayer>(std::move(output), [life = std::weak_ptr(m_life)] {
        NSRunLoop::performOnMainThread([life] {
            if (auto const audio = life.lock())
                (*audio)->outputMissing();
        });
    }))
{
}

DesktopAudio::~DesktopAudio() = default;

std::vector<std::string> const& DesktopAudio::fileTypes() const
{
    return SoundDecoder::fileTypes();
}

std::unique_ptr<HostSound> DesktopAudio::openSound(std::string const& path)
{
    return openSound(SoundFileBytes::open(path));
}

std::unique_ptr<HostSound> DesktopAudio::openSound(std::span<std::uint8_t const> bytes)
{
    return openSound(std::make_unique<SoundFileBytes>(std::vector(bytes.begin(), bytes.end())));
}

std::unique_ptr<HostSound> DesktopAudio::openSound(std::unique_ptr<SoundFileBytes> bytes)
{
    auto decoder = SoundDecoder::open(std::move(bytes));
    if (!decoder)
        return nullptr;
    auto sound = std::make_unique<Sound>(m_player, std::move(decoder));
    sound->setBegun([life = std::weak_ptr(m_life)](auto const& voice) {
        if (auto const audio = life.lock())
            (*audio)->m_lastVoice = voice;
    });
    return sound;
}

std::optional<double> DesktopAudio::lastDelay() const
{
    auto const voice = m_lastVoice.lock();
    return voice ? m_player->mixer().delayOf(*voice) : std::nullopt;
}

PulseVolumes* DesktopAudio::volumes()
{
    if (!std::exchange(m_hasLookedForVolumes, true)) {
        m_volumes = PulseVolumes::make([life = std::weak_ptr(m_life)] {
            NSRunLoop::performOnMainThread([life] {
                if (auto const audio = life.lock())
                    (*audio)->tellOutputVolumeChanged();
            });
        });
    }
    return m_volumes.get();
}

std::optional<StereoVolume> DesktopAudio::outputVolume()
{
    auto* const known = volumes();
    return known ? known->ask() : std::nullopt;
}

std::optional<StereoVolume> DesktopAudio::knownOutputVolume() const
{
    return m_volumes ? m_volumes->known() : std::nullopt;
}

void DesktopAudio::watchOutputVolume(bool watched)
{
    if (auto* const known = watched ? volumes() : m_volumes.get())
        known->setWatched(watched);
}

// Alerts.

bool DesktopAudio::findAlertSound()
{
    auto const folder = soundFolders().system;
    for (auto const* name : alertSounds) {
        auto const path = folder + name;
        if (m_alertSound && m_alertPath == path)
            return true;
        if (auto sound = openSound(path)) {
            m_alertSound = std::move(sound);
            m_alertPath = path;
            return true;
        }
    }
    return false;
}

bool DesktopAudio::beep()
{
    if (beepVolume() == 0)
        return true;
    if (m_alertSound && m_alertSound->isPlaying())
        return true;
    if (!findAlertSound())
        return false;
    m_alertSound->setVolume(beepVolumeFraction(beepVolume()));
    return m_alertSound->play();
}

void DesktopAudio::outputMissing()
{
    if (!m_alertSound || !m_alertSound->isPlaying())
        return;
    m_alertSound->stop();
    m_ringBell();
}

}
