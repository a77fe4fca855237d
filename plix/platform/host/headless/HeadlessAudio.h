#pragma once

#include <plix/platform/base/export.h>
#include <plix/platform/host/Audio.h>

#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace plix {

class HeadlessClock;
class HeadlessEvents;

/// Sounds that nobody hears: what is played is written down, and lasts as long as the script says, by the host's clock. A file is a
/// sound where its first bytes claim so.
class PLIX_EXPORT HeadlessAudio final : public Audio {
public:
    HeadlessAudio(HeadlessClock const&, HeadlessEvents&);

    /// One sound that was begun.
    struct Play {
        /// "" for a sound of bytes.
        std::string path;
        float volume { 0 };
        NSTimeInterval uptime { 0 };
    };
    std::vector<Play> const& plays() const { return m_plays; }
    void forgetPlays() { m_plays.clear(); }
    /// How many sounds play now; those that pause are among them.
    std::size_t playingCount() const { return m_playing.size(); }
    /// The volume of the sounds of that file that play now, the first one begun; -1 where none does.
    float playingVolume(std::string const& path) const;

    // What the script says.
    /// How long sounds last: 1 second unless said. Counts for sounds that are opened from then on.
    void setDuration(NSTimeInterval seconds) { m_usualDuration = seconds; }
    void setDuration(std::string path, NSTimeInterval seconds) { m_durations[std::move(path)] = seconds; }
    /// That file is no sound.
    void refuse(std::string path) { m_refused.insert(std::move(path)); }
    /// Whether there is a decoder; there is at first.
    void setDecodes(bool decodes) { m_decodes = decodes; }
    /// Everything that plays ends now, before its end.
    void breakDown();
    /// Nil: no device. Full volume at first.
    void setOutputVolume(std::optional<StereoVolume>);
    /// Whether there is an alert sound; at first there is none, and the display's bell is rung.
    void setHasAlertSound(bool has) { m_hasAlertSound = has; }
    /// How often beep() was called.
    long beepCount() const { return m_beepCount; }

    // Audio:
    std::vector<std::string> const& fileTypes() const override;
    std::unique_ptr<HostSound> openSound(std::string const& path) override;
    std::unique_ptr<HostSound> openSound(std::span<std::uint8_t const> bytes) override;
    std::optional<StereoVolume> outputVolume() override { return m_outputVolume; }
    bool beep() override;

protected:
    std::optional<StereoVolume> knownOutputVolume() const override { return m_outputVolume; }

private:
    class Sound;

    std::unique_ptr<HostSound> make(std::string path);

    HeadlessClock const& m_clock;
    HeadlessEvents& m_events;
    std::vector<Play> m_plays;
    std::vector<Sound*> m_playing;
    std::map<std::string, NSTimeInterval> m_durations;
    std::set<std::string> m_refused;
    NSTimeInterval m_usualDuration { 1 };
    std::optional<StereoVolume> m_outputVolume { { 1, 1 } };
    std::shared_ptr<int> m_life { std::make_shared<int>() };
    long m_beepCount { 0 };
    bool m_decodes { true };
    bool m_hasAlertSound { false };
};

}
