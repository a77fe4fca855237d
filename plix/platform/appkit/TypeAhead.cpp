#include <plix/platform/appkit/TypeAhead.h>

namespace plix {

namespace {

constexpr double longestPause = 1;

}

void TypeAhead::add(std::string_view text, double uptime)
{
    if (uptime - m_lastTime > longestPause)
        m_typed.clear();
    m_lastTime = uptime;
    bool const isFirst = m_typed.empty();
    bool const isSameAgain = m_typed == text;
    if (!isSameAgain)
        m_typed += text;
    m_startsBehindCurrent = isFirst || isSameAgain;
}

void TypeAhead::clear()
{
    m_typed.clear();
}

long TypeAhead::find(long count, long current, FunctionRef<bool(long)> matches) const
{
    if (count <= 0 || m_typed.empty())
        return -1;
    long const start = current < 0 ? 0 : current + (m_startsBehindCurrent ? 1 : 0);
    for (long i = 0; i < count; ++i) {
        long const index = (start + i) % count;
        if (matches(index))
            return index;
    }
    return -1;
}

}
