#pragma once

#include <plix/platform/base/Class.h>

#include <functional>

namespace plix {

/// A file descriptor as a source of a run loop. Does not own the descriptor; invalidate before closing it.
class PLIX_EXPORT RunLoopDescriptor : public NSObject {
    PLIX_CLASS(RunLoopDescriptor, NSObject);

public:
    /// Given what poll() reported (POLLIN and the rest).
    using Callback = std::function<void(short revents)>;

    /// Events as poll() takes them.
    bool init(int descriptor, short events, Callback);

    // What it was made with, and whether it is still called.
    int descriptor() const { return m_descriptor; }
    short events() const { return m_events; }
    bool isValid() const { return m_isValid; }
    /// Stops it for good; the run loop lets it go. May be called inside its callback.
    void invalidate();
    /// As the run loop does when it is ready; nothing once it is invalid.
    void call(short revents);

private:
    Callback m_callback;
    int m_descriptor { -1 };
    short m_events { 0 };
    bool m_isValid { false };
};

}
