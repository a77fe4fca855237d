#pragma once

#include <bit>
#include <cstdint>
#include <vector>

namespace h264 {

/// Writes what the standard's syntax tables call u(n), ue(v) and se(v).
class BitWriter {
public:
    void u(std::int64_t value, std::int64_t width)
    {
        while (width-- > 0) {
            if (m_free == 0) {
                m_bytes.push_back(0);
                m_free = 8;
            }
            m_bytes.back() = static_cast<std::uint8_t>(m_bytes.back() | (value >> width & 1) << --m_free);
        }
    }
    void ue(std::int64_t value)
    {
        auto const width = std::bit_width(static_cast<std::uint64_t>(value) + 1);
        u(0, width - 1);
        u(value + 1, width);
    }
    void se(std::int64_t value) { ue(value > 0 ? 2 * value - 1 : -2 * value); }
    std::vector<std::uint8_t> const& bytes() const { return m_bytes; }

private:
    std::vector<std::uint8_t> m_bytes;
    int m_free { 0 };
};

}
