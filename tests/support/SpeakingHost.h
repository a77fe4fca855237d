#pragma once

#include <plix/platform/host/desktop/DispatcherSpeech.h>
#include <plix/platform/host/headless/HeadlessHost.h>
#include <tests/support/SpeechServer.h>
#include <tests/support/run_until.h>

#include <functional>
#include <string>
#include <utility>

namespace plix {

/// A machine without a display that speaks by a service, and whose time passes as it does.
class SpeakingHost final : public Host {
public:
    explicit SpeakingHost(DispatcherOptions options)
        : m_speech(std::move(options))
    {
    }
    std::string_view name() const override { return "speaking"; }
    Display& display() override { return m_inner.display(); }
    Clipboard& clipboard() override { return m_inner.clipboard(); }
    EventSource& events() override { return m_inner.events(); }
    Speech* speech() override { return &m_speech; }

private:
    HeadlessHost m_inner;
    DispatcherSpeech m_speech;
};

inline DispatcherOptions optionsFor(std::string socketPath)
{
    DispatcherOptions options;
    options.user = "tester";
    options.application = "test";
    options.socketPath = std::move(socketPath);
    options.start = DispatcherOptions::Start::Never;
    return options;
}

/// Runs the loop until the condition holds, and has what is heard recorded meanwhile. False when that did not come in time.
inline bool listenUntil(PulseRecorder& recorder, std::function<bool()> const& condition)
{
    return runUntil([&] {
        recorder.record(0);
        return condition();
    });
}

}
