#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace plix {

/// Keeps the values that were made or asked for last, within a number of values and of bytes. Looking one up allocates nothing.
template <typename Key, typename Value> class RecentCache {
public:
    RecentCache(std::size_t mostValues, std::size_t mostBytes)
        : m_mostValues(mostValues)
        , m_mostBytes(mostBytes)
    {
    }

    /// Null where it is not kept; valid until the next keep().
    Value const* find(Key const& key)
    {
        for (auto& entry : m_entries) {
            if (entry.key == key) {
                entry.lastUse = ++m_clock;
                return &entry.value;
            }
        }
        return nullptr;
    }
    /// In place of what was kept under that key. A value larger than all that may be kept is not.
    void keep(Key const& key, Value value, std::size_t bytes)
    {
        remove(key);
        if (bytes > m_mostBytes)
            return;
        while (!m_entries.empty() && (m_entries.size() >= m_mostValues || m_bytes + bytes > m_mostBytes))
            removeOldest();
        m_entries.push_back({ key, std::move(value), bytes, ++m_clock });
        m_bytes += bytes;
    }
    void remove(Key const& key)
    {
        for (std::size_t i = 0; i < m_entries.size(); ++i) {
            if (m_entries[i].key == key) {
                removeAt(i);
                return;
            }
        }
    }

    std::size_t count() const { return m_entries.size(); }
    std::size_t bytes() const { return m_bytes; }

private:
    struct Entry {
        Key key;
        Value value;
        std::size_t bytes;
        std::uint64_t lastUse;
    };

    void removeAt(std::size_t index)
    {
        m_bytes -= m_entries[index].bytes;
        m_entries[index] = std::move(m_entries.back());
        m_entries.pop_back();
    }
    void removeOldest()
    {
        std::size_t oldest = 0;
        for (std::size_t i = 1; i < m_entries.size(); ++i) {
            if (m_entries[i].lastUse < m_entries[oldest].lastUse)
                oldest = i;
        }
        removeAt(oldest);
    }

    std::vector<Entry> m_entries;
    std::size_t m_mostValues;
    std::size_t m_mostBytes;
    std::size_t m_bytes { 0 };
    std::uint64_t m_clock { 0 };
};

}
