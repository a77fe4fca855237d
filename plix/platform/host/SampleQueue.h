#pragma once

#include <algorithm>
#include <cstddef>
#include <span>
#include <vector>

namespace plix {

/// Samples in order, up to a number that stays the same; allocates once.
class SampleQueue {
public:
    explicit SampleQueue(std::size_t capacity)
        : m_samples(capacity)
    {
    }

    std::size_t size() const { return m_size; }
    std::size_t space() const { return m_samples.size() - m_size; }

    /// Takes as many as there is space for.
    void push(std::span<float const> samples)
    {
        auto const count = std::min(samples.size(), space());
        auto const place = (m_first + m_size) % std::max<std::size_t>(m_samples.size(), 1);
        auto const untilEnd = std::min(count, m_samples.size() - place);
        std::copy_n(samples.begin(), untilEnd, m_samples.begin() + static_cast<std::ptrdiff_t>(place));
        std::copy_n(samples.begin() + static_cast<std::ptrdiff_t>(untilEnd), count - untilEnd, m_samples.begin());
        m_size += count;
    }
    /// Answers how many of the wanted samples there were.
    std::size_t pop(std::span<float> samples)
    {
        auto const count = std::min(samples.size(), m_size);
        auto const untilEnd = std::min(count, m_samples.size() - m_first);
        std::copy_n(m_samples.begin() + static_cast<std::ptrdiff_t>(m_first), untilEnd, samples.begin());
        std::copy_n(m_samples.begin(), count - untilEnd, samples.begin() + static_cast<std::ptrdiff_t>(untilEnd));
        m_first = count < m_size ? (m_first + count) % m_samples.size() : 0;
        m_size -= count;
        return count;
    }

private:
    std::vector<float> m_samples;
    std::size_t m_first { 0 };
    std::size_t m_size { 0 };
};

}
