#pragma once

#include <csignal>
#include <new>
#include <system_error>
#include <thread>
#include <utility>

namespace plix {

/// Keeps all signals from this thread, and from those that it starts meanwhile.
class SignalsBlocked {
public:
    SignalsBlocked();
    ~SignalsBlocked();
    SignalsBlocked(SignalsBlocked const&) = delete;
    SignalsBlocked& operator=(SignalsBlocked const&) = delete;

private:
    sigset_t m_before {};
};

/// A thread that no signal is delivered to: these are the application's own matter. Not joinable where the system gives none, or
/// no memory for it. The function throws nothing.
template <typename Function> std::thread quietThread(Function&& function)
{
    SignalsBlocked const blocked;
    try {
        return std::thread(std::forward<Function>(function));
    } catch (std::system_error const&) {
        // What it was for goes without it.
        return {};
    } catch (std::bad_alloc const&) {
        return {};
    }
}

}
