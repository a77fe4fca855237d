#include <plix/platform/host/desktop/DesktopHost.h>

#include <plix/platform/host/desktop/DesktopAudio.h>
#include <plix/platform/host/desktop/DesktopClipboard.h>
#include <plix/platform/host/desktop/DesktopDisplay.h>
#include <plix/platform/host/desktop/DesktopEventSource.h>
#include <plix/platform/host/desktop/DesktopMedia.h>
#include <plix/platform/host/desktop/XSession.h>

#ifdef PLIX_SPEECH
#include <plix/platform/host/desktop/DispatcherSpeech.h>
#endif

#include <cstdlib>

namespace plix {

namespace {

class DesktopHost final : public Host {
public:
    DesktopHost(std::unique_ptr<XSession> session, std::unique_ptr<DesktopDisplay> display)
        : m_session(std::move(session))
        , m_display(std::move(display))
        , m_clipboard(*m_session)
        , m_events(*m_display, *m_session)
        , m_audio([this] { m_display->beep(); })
    {
        installEventSource(&m_events);
    }

    ~DesktopHost() override
    {
        if (eventSource() == &m_events)
            installEventSource(nullptr);
    }

    // Host:
    std::string_view name() const override { return "desktop"; }
    Display& display() override { return *m_display; }
    Clipboard& clipboard() override { return m_clipboard; }
    EventSource& events() override { return m_events; }
    Audio* audio() override { return &m_audio; }
    Media* media() override { return &m_media; }
#ifdef PLIX_SPEECH
    Speech* speech() override
    {
        return &m_speech;
    }
#endif

private:
    std::unique_ptr<XSession> m_session;
    std::unique_ptr<DesktopDisplay> m_display;
    DesktopClipboard m_clipboard;
    DesktopEventSource m_events;
    DesktopAudio m_audio;
    DesktopMedia m_media;
#ifdef PLIX_SPEECH
    DispatcherSpeech m_speech;
#endif
};

}

std::unique_ptr<Host> makeDesktopHost(std::string& whyNot)
{
    auto const* const name = std::getenv("DISPLAY");
    if (!name || !*name) {
        whyNot = "no display is named (DISPLAY is not set)";
        return nullptr;
    }
    auto session = XSession::open();
    if (!session) {
        whyNot = std::string("the display ") + name + " does not answer";
        return nullptr;
    }
    auto display = DesktopDisplay::open(*session, whyNot);
    if (!display)
        return nullptr;
    return std::make_unique<DesktopHost>(std::move(session), std::move(display));
}

}
