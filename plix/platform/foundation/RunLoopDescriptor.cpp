#include <plix/platform/foundation/RunLoopDescriptor.h>

namespace plix {

PLIX_DESCRIBE(RunLoopDescriptor)
{
}

bool RunLoopDescriptor::init(int descriptor, short events, Callback callback)
{
    m_descriptor = descriptor;
    m_events = events;
    m_callback = std::move(callback);
    m_isValid = descriptor >= 0;
    return m_isValid;
}

void RunLoopDescriptor::invalidate()
{
    m_isValid = false;
    auto const callback = std::exchange(m_callback, nullptr);
}

void RunLoopDescriptor::call(short revents)
{
    Ref<RunLoopDescriptor> const protector(this);
    auto const callback = m_callback; // invalidate() inside it clears the member
    if (m_isValid && callback)
        callback(revents);
}

}
