#include <plix/platform/foundation/timer_heap.h>

#include <algorithm>

namespace plix {

namespace {

constexpr auto firesLater = [](TimerHeap::Entry const& a, TimerHeap::Entry const& b) { return b.isBefore(a); };
constexpr std::size_t fewEntries = 32;

}

void TimerHeap::push(Entry entry)
{
    m_entries.push_back(std::move(entry));
    std::push_heap(m_entries.begin(), m_entries.end(), firesLater);
}

TimerHeap::Entry TimerHeap::pop()
{
    std::pop_heap(m_entries.begin(), m_entries.end(), firesLater);
    auto entry = std::move(m_entries.back());
    m_entries.pop_back();
    return entry;
}

void TimerHeap::dropStaleTop()
{
    while (!m_entries.empty() && !m_entries.front().isCurrent()) {
        auto const dropped = pop();
        m_stale -= m_stale > 0;
    }
}

std::optional<NSTimeInterval> TimerHeap::nextUptime()
{
    dropStaleTop();
    if (m_entries.empty())
        return {};
    return m_entries.front().uptime;
}

void TimerHeap::popDue(NSTimeInterval now, std::vector<Entry>& due)
{
    for (auto next = nextUptime(); next && *next <= now; next = nextUptime())
        due.push_back(pop());
}

void TimerHeap::noteEntryStale()
{
    if (++m_stale < fewEntries || m_stale * 2 < m_entries.size())
        return;
    std::vector<Entry> stale;
    auto const firstStale
        = std::partition(m_entries.begin(), m_entries.end(), [](Entry const& entry) { return entry.isCurrent(); });
    std::move(firstStale, m_entries.end(), std::back_inserter(stale));
    m_entries.erase(firstStale, m_entries.end());
    std::make_heap(m_entries.begin(), m_entries.end(), firesLater);
    m_stale = 0;
}

}
