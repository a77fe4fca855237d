#include <plix/platform/host/headless/HeadlessHost.h>

namespace plix {

HeadlessHost::HeadlessHost(Time time)
    : m_events(m_clock, time == Time::Movable ? HeadlessEvents::Waiting::MovesClock : HeadlessEvents::Waiting::Sleeps)
    , m_script(m_display, m_events)
    , m_speech(m_events)
    , m_audio(m_clock, m_events)
{
    if (time == Time::Movable) {
        m_clock.stop();
        installClock(&m_clock);
    }
    installEventSource(&m_events);
}

HeadlessHost::~HeadlessHost()
{
    if (&clock() == &m_clock)
        installClock(nullptr);
    if (eventSource() == &m_events)
        installEventSource(nullptr);
}

}
