#pragma once

#include <cstddef>
#include <functional>

namespace plix {

/// Calls for the main thread from any other, and what wakes its run loop for them.
class MainThreadQueue {
public:
    static MainThreadQueue& shared();

    // From any thread:
    void add(std::function<void()>);
    void wake();

    // On the main thread:
    /// Readable once there is a call or wake() was called; -1 where the machine has none left.
    int descriptor() const { return m_descriptor; }
    /// Makes the descriptor unreadable until the next call or wake().
    void clearWake();
    bool isEmpty();
    /// Makes the calls that are there on entry, in order. True where there was one.
    bool drain();

private:
    MainThreadQueue();

    struct Calls;
    Calls& m_calls;
    int m_descriptor { -1 };
};

}
