#include <plix/platform/host/desktop/quiet_thread.h>

namespace plix {

SignalsBlocked::SignalsBlocked()
{
    sigset_t all;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &m_before);
}

SignalsBlocked::~SignalsBlocked()
{
    pthread_sigmask(SIG_SETMASK, &m_before, nullptr);
}

}
