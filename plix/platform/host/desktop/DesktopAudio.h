#pragma once

#include <plix/platform/host/Audio.h>
#include <plix/platform/host/desktop/SoundMixer.h>

namespace plix {

class PulseVolumes;
class SoundFileBytes;
class SoundOutput;
class SoundPlayer;

/// The machine's sound. Nothing is loaded, started or connected before it is wanted.
class DesktopAudio final : public Audio {
public:
    /// `ringBell` is for beeps that turn out to be inaudible.
    explicit DesktopAudio(std::function<void()> ringBell);
    /// With an output of the caller's.
    DesktopAudio(std::function<void()> ringBell, std::unique_ptr<SoundOutput>);
    ~DesktopAudio() override;

    // Audio:
    std::vector<std::string> const& fileTypes() const override;
    std::unique_ptr<HostSound> openSound(std::string const& path) override;
    std::unique_ptr<HostSound> openSound(std::span<std::uint8_t const> bytes) override;
    std::optional<StereoVolume> outputVolume() override;
    bool beep() override;

    /// How long the last sound that was begun took to its first sample at the device, in seconds; nil where that is still to come,
    /// or the sound was let go.
    std::optional<double> lastDelay() const;

protected:
    std::optional<StereoVolume> knownOutputVolume() const override;
    void watchOutputVolume(bool) override;

private:
    class Sound;

    std::unique_ptr<HostSound> openSound(std::unique_ptr<SoundFileBytes>);
    PulseVolumes* volumes();
    void outputMissing();
    bool findAlertSound();

    std::shared_ptr<DesktopAudio*> m_life { std::make_shared<DesktopAudio*>(this) };
    std::function<void()> m_ringBell;
    /// Sounds may outlive the machine that they are of.
    std::shared_ptr<SoundPlayer> m_player;
    std::unique_ptr<PulseVolumes> m_volumes;
    bool m_hasLookedForVolumes { false };
    std::unique_ptr<HostSound> m_alertSound;
    std::string m_alertPath;
    std::weak_ptr<SoundMixer::Voice> m_lastVoice;
};

}
