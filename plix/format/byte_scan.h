#pragma once

#include <bit>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace plix {

/// Finds the bytes of a small set in a text one after the other, eight bytes at a time.
template <char... Wanted> class ByteScan {
public:
    explicit ByteScan(std::string_view text)
        : m_text(text)
    {
        load();
    }

    /// The next position of one of the bytes, npos when there are no more.
    std::size_t next()
    {
        while (m_matches == 0) {
            m_word += wordSize;
            if (m_word >= m_text.size())
                return std::string_view::npos;
            load();
        }
        auto const position = m_word + static_cast<std::size_t>(std::countr_zero(m_matches)) / 8;
        m_matches &= m_matches - 1;
        return position;
    }

    /// How often they occur.
    static std::size_t count(std::string_view text)
    {
        std::size_t count = 0;
        for (ByteScan scan(text);; scan.load()) {
            count += (scan.m_matches >> 7) * (~std::uint64_t { 0 } / 0xFF) >> 56;
            scan.m_word += wordSize;
            if (scan.m_word >= text.size())
                return count;
        }
    }

private:
    static constexpr std::size_t wordSize = 8;
    static constexpr std::uint64_t lowBits = 0x7F7F7F7F7F7F7F7F;

    // The top bit of each byte that equals the wanted one; exact, nothing carries from byte to byte.
    static std::uint64_t matchesOf(std::uint64_t word, char wanted)
    {
        auto const difference = word ^ (~std::uint64_t { 0 } / 0xFF * static_cast<unsigned char>(wanted));
        return ~(((difference & lowBits) + lowBits) | difference | lowBits);
    }

    void load()
    {
        auto const count = m_text.size() - m_word;
        std::uint64_t word = 0;
        if (count >= wordSize)
            std::memcpy(&word, m_text.data() + m_word, wordSize);
        else if (count > 0)
            std::memcpy(&word, m_text.data() + m_word, count);
        if constexpr (std::endian::native == std::endian::big)
            word = __builtin_bswap64(word);
        m_matches = (matchesOf(word, Wanted) | ...);
        if (count < wordSize)
            m_matches &= (std::uint64_t { 1 } << (8 * count)) - 1;
    }

    std::string_view m_text;
    std::size_t m_word { 0 };
    std::uint64_t m_matches { 0 };
};

}
