#pragma once

#include <plix/platform/host/desktop/SoundOutput.h>

#include <memory>

namespace plix {

/// The machine's default output: Pulse's, or what SDL finds where that is not there. It is opened on a thread of its own, since a
/// server that hangs takes as long as it likes, opened again when its server went away, and closed a few seconds after it was
/// wanted last. SDL_AUDIODRIVER names another driver, as everywhere in SDL.
class DeviceOutput final : public SoundOutput {
public:
    DeviceOutput();
    /// Does not wait for a server that hangs.
    ~DeviceOutput() override;

    // SoundOutput:
    void setFetch(Fetch) override;
    void setWanted(bool) override;
    bool isMissing() const override;

private:
    struct State;

    std::shared_ptr<State> m_state;
};

}
