#pragma once

#include <plix/platform/host/desktop/DesktopAudio.h>
#include <plix/platform/host/desktop/DesktopMedia.h>
#include <plix/platform/host/headless/HeadlessHost.h>

#include <memory>

namespace plix {

/// A machine without a display, in the time of this one, with this one's sound and media; the one in use as long as it lives.
class SoundHost {
public:
    SoundHost()
    {
        auto machine = std::make_unique<Machine>(*this);
        m_audio = &machine->desktopAudio;
        m_before = installHost(std::move(machine));
    }
    ~SoundHost() { installHost(std::move(m_before)); }
    SoundHost(SoundHost const&) = delete;
    SoundHost& operator=(SoundHost const&) = delete;

    DesktopAudio& audio() { return *m_audio; }
    /// How often the bell was rung for beeps that nobody could have heard.
    long bellCount() const { return m_bellCount; }

private:
    struct Machine final : Host {
        explicit Machine(SoundHost& owner)
            : desktopAudio([&owner] { ++owner.m_bellCount; })
        {
        }
        HeadlessHost headless;
        DesktopAudio desktopAudio;
        DesktopMedia desktopMedia;

        // Host:
        std::string_view name() const override { return "sound"; }
        Display& display() override { return headless.display(); }
        Clipboard& clipboard() override { return headless.clipboard(); }
        EventSource& events() override { return headless.events(); }
        Audio* audio() override { return &desktopAudio; }
        Media* media() override { return &desktopMedia; }
    };

    std::unique_ptr<Host> m_before;
    DesktopAudio* m_audio { nullptr };
    long m_bellCount { 0 };
};

}
