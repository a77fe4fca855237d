#include <plix/platform/host/desktop/quiet_thread.h>

#include <csignal>
#include <system_error>
#include <utility>

namespace plix {

std::thread quietThread(std::function<void()> function)
{
    sigset_t all;
    sigset_t before;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before);
    std::thread thread;
    try {
        thread = std::thread(std::move(function));
    } catch (std::system_error const&) {
        // What it was for goes without it.
    }
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
    return thread;
}

}
