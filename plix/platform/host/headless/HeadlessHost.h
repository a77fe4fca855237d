#pragma once

#include <plix/platform/host/Host.h>
#include <plix/platform/host/headless/HeadlessAudio.h>
#include <plix/platform/host/headless/HeadlessClipboard.h>
#include <plix/platform/host/headless/HeadlessClock.h>
#include <plix/platform/host/headless/HeadlessDisplay.h>
#include <plix/platform/host/headless/HeadlessEvents.h>
#include <plix/platform/host/headless/HeadlessMedia.h>
#include <plix/platform/host/headless/HeadlessScript.h>
#include <plix/platform/host/headless/HeadlessSpeech.h>

namespace plix {

/// A machine without a display: windows are images in memory, a script takes the place of the person, and time may be moved.
class PLIX_EXPORT HeadlessHost final : public Host {
public:
    /// Whether waiting takes time.
    enum class Time {
        Machine, ///< waits as long as it takes
        Movable, ///< waiting moves the clock to the deadline at once
    };

    explicit HeadlessHost(Time = Time::Machine);
    ~HeadlessHost() override;

    // The parts of the machine, to look at and to play a person's part.
    HeadlessDisplay& headlessDisplay() { return m_display; }
    HeadlessScript& script() { return m_script; }
    /// Stands still between waits where time is movable.
    HeadlessClock& headlessClock() { return m_clock; }
    HeadlessEvents& headlessEvents() { return m_events; }
    HeadlessSpeech& headlessSpeech() { return m_speech; }
    HeadlessAudio& headlessAudio() { return m_audio; }
    HeadlessMedia& headlessMedia() { return m_media; }

    /// Whether the machine has these services at all; it has at first.
    void setHasAudio(bool has) { m_hasAudio = has; }
    void setHasMedia(bool has) { m_hasMedia = has; }

    // Host:
    std::string_view name() const override { return "headless"; }
    Display& display() override { return m_display; }
    Clipboard& clipboard() override { return m_clipboard; }
    EventSource& events() override { return m_events; }
    Speech* speech() override { return &m_speech; }
    Audio* audio() override { return m_hasAudio ? &m_audio : nullptr; }
    Media* media() override { return m_hasMedia ? &m_media : nullptr; }

private:
    HeadlessClock m_clock;
    HeadlessEvents m_events;
    HeadlessDisplay m_display;
    HeadlessScript m_script;
    HeadlessClipboard m_clipboard;
    HeadlessSpeech m_speech;
    HeadlessAudio m_audio;
    HeadlessMedia m_media;
    bool m_hasAudio { true };
    bool m_hasMedia { true };
};

}
