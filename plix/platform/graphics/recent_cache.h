#pragma once

#include <plix/platform/base/RecentlyUsed.h>

#include <cstddef>
#include <utility>

namespace plix {

/// Keeps the values that were made or asked for last, within a number of values and of bytes. Looking one up allocates nothing.
template <typename Key, typename Value, typename Hash = std::hash<Key>> class RecentCache {
public:
    RecentCache(std::size_t mostValues, std::size_t mostBytes)
        : m_mostValues(mostValues)
        , m_mostBytes(mostBytes)
    {
    }

    /// Null where it is not kept; valid until the next keep().
    Value const* find(Key const& key)
    {
        auto const* const found = m_entries.find(key);
        return found ? &found->value : nullptr;
    }
    /// In place of what was kept under that key. A value larger than all that may be kept is not, nor one whose key is not equal to
    /// itself, as where there is a NaN in it.
    void keep(Key const& key, Value value, std::size_t bytes)
    {
        if (!(key == key))
            return;
        if (auto const* const earlier = m_entries.find(key)) {
            m_bytes -= earlier->bytes;
            m_entries.drop(*earlier);
        }
        if (bytes > m_mostBytes || m_mostValues == 0)
            return;
        while (m_entries.size() >= m_mostValues || m_bytes + bytes > m_mostBytes) {
            m_bytes -= m_entries.oldest().bytes;
            m_entries.dropOldest();
        }
        m_entries.add({ key, std::move(value), bytes });
        m_bytes += bytes;
    }

    std::size_t count() const { return m_entries.size(); }
    std::size_t bytes() const { return m_bytes; }

private:
    struct Entry {
        Key own;
        Value value;
        std::size_t bytes;

        Key const& key() const { return own; }
    };

    RecentlyUsed<Entry, Hash> m_entries;
    std::size_t m_mostValues;
    std::size_t m_mostBytes;
    std::size_t m_bytes { 0 };
};

}
