#pragma once

#include <plix/platform/base/export.h>
#include <plix/platform/host/HostSound.h>
#include <plix/platform/host/sound_volume.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace plix {

/// Sounds. A machine without an output device plays in silence: sounds begin, last and end as if they were heard.
class PLIX_EXPORT Audio {
public:
    virtual ~Audio() = default;
    Audio(Audio const&) = delete;
    Audio& operator=(Audio const&) = delete;

    /// The extensions of files that can be played, in lower case; none where there is no decoder.
    virtual std::vector<std::string> const& fileTypes() const = 0;

    /// Null for what is no sound, and where there is no decoder. Never waits for a FIFO or the like.
    virtual std::unique_ptr<HostSound> openSound(std::string const& path) = 0;
    /// Of a sound file's bytes, which are copied.
    virtual std::unique_ptr<HostSound> openSound(std::span<std::uint8_t const> bytes) = 0;

    /// Of the default output device. Nil where there is none, it has no volume, or its server does not answer within half a second.
    virtual std::optional<StereoVolume> outputVolume() = 0;
    /// The last one known, in two halves, the left one below, each 0x0100 at most; never waits. That of full volume where none is
    /// known.
    std::uint32_t defaultOutputVolume() const;
    /// Calls on the run loop when the volume, or which device is the default one, has changed, for as long as the result is held.
    [[nodiscard]] std::shared_ptr<void> observeOutputVolume(std::function<void()>);

    /// How loud alerts are: two halves of 0x0100 at most, read as one unsigned number. 0 is no alert at all.
    std::uint32_t beepVolume() const { return m_beepVolume; }
    void setBeepVolume(std::uint32_t volume) { m_beepVolume = volume; }
    /// Plays the alert sound at the beep volume, unless it sounds already. False where it can't be heard: then the display's bell
    /// is to be rung.
    virtual bool beep() = 0;

protected:
    Audio() = default;

    virtual std::optional<StereoVolume> knownOutputVolume() const = 0;
    /// There are observers now, or no more.
    virtual void watchOutputVolume(bool) { }
    void tellOutputVolumeChanged();

private:
    struct Observer;

    std::vector<std::weak_ptr<Observer>> m_observers;
    std::shared_ptr<int> m_life { std::make_shared<int>() };
    std::uint32_t m_beepVolume { 0x01000100 };
};

}
