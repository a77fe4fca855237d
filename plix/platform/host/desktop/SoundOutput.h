#pragma once

#include <functional>
#include <span>

namespace plix {

/// A device that sound comes out of, or would.
class SoundOutput {
public:
    /// Fills with samples, two channels side by side; called on a thread of the device's own.
    using Fetch = std::function<void(std::span<float> stereo)>;

    virtual ~SoundOutput() = default;
    SoundOutput(SoundOutput const&) = delete;
    SoundOutput& operator=(SoundOutput const&) = delete;

    /// Once, before anything else.
    virtual void setFetch(Fetch) = 0;
    /// Whether there is something to play. Comes back at once; the device is opened when there is, and may be closed some time
    /// after there was. Said again of a device that is missing, what it needs beside the device is tried anew.
    virtual void setWanted(bool) = 0;
    /// Whether it could not be opened when it was tried last, since it is wanted. Never waits.
    virtual bool isMissing() const = 0;

protected:
    SoundOutput() = default;
};

}
