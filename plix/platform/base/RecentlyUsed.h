#pragma once

#include <cstddef>
#include <functional>
#include <list>
#include <type_traits>
#include <unordered_map>
#include <utility>

namespace plix {

/// What a cache keeps, in the order of use: entries are found by what their `key()` answers, which is compared and hashed by value,
/// may be a view of what the entry owns, and does not change. Who owns this decides how many there are, and drops the oldest.
/// Entries stay where they are in memory.
template <typename Entry, typename Hash = std::hash<std::remove_cvref_t<decltype(std::declval<Entry const&>().key())>>>
class RecentlyUsed {
public:
    using Key = std::remove_cvref_t<decltype(std::declval<Entry const&>().key())>;

    RecentlyUsed() = default;
    // The keys may be views of the entries.
    RecentlyUsed(RecentlyUsed const&) = delete;
    RecentlyUsed& operator=(RecentlyUsed const&) = delete;

    /// Null where there is none. What is found is the most recently used.
    Entry* find(Key const& key)
    {
        auto const found = m_places.find(key);
        if (found == m_places.end())
            return nullptr;
        m_entries.splice(m_entries.begin(), m_entries, found->second);
        return &*found->second;
    }
    /// As the most recently used. Another of that key must not be there. Nothing is added when this throws.
    Entry& add(Entry entry)
    {
        std::list<Entry> made;
        made.push_front(std::move(entry));
        m_places.emplace(made.front().key(), made.begin());
        m_entries.splice(m_entries.begin(), made);
        return m_entries.front();
    }
    /// The least recently used. There must be one.
    Entry const& oldest() const { return m_entries.back(); }
    void dropOldest()
    {
        m_places.erase(m_entries.back().key());
        m_entries.pop_back();
    }
    /// One that find() or add() answered.
    void drop(Entry const& entry)
    {
        auto const place = m_places.find(entry.key());
        auto const dropped = place->second;
        m_places.erase(place);
        m_entries.erase(dropped);
    }
    void clear()
    {
        m_places.clear();
        m_entries.clear();
    }
    std::size_t size() const { return m_entries.size(); }

private:
    std::list<Entry> m_entries;
    std::unordered_map<Key, typename std::list<Entry>::iterator, Hash> m_places;
};

}
