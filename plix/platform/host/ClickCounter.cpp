#include <plix/platform/host/ClickCounter.h>

#include <cstdlib>

namespace plix {

int ClickCounter::press(Press const& press)
{
    // Unsigned, so that the difference is right across the clock's overflow.
    auto const isSoon = press.milliseconds - m_last.milliseconds <= m_interval;
    auto const isNear = std::abs(press.x - m_last.x) <= m_distance && std::abs(press.y - m_last.y) <= m_distance;
    auto const isSame = press.window == m_last.window && press.button == m_last.button;
    m_count = m_count > 0 && isSame && isNear && isSoon ? m_count + 1 : 1;
    m_last = press;
    return m_count;
}

}
