#pragma once

#include <plix/platform/base/NSData.h>

#include <bit>
#include <cstdint>
#include <cstring>

namespace plix {

/// Reads a buffer bit by bit, the most significant bit of each byte first, with the Exp-Golomb codes of video headers (ue(v) and
/// se(v), ITU-T H.264 clause 9.1). Positions and lengths are in bits.
///
/// The end is where length() says. Reads at or beyond it give zero bits and stay; skips stop on the last bit before it. Bits at
/// -1 to -7 read as 0. A read outside the bytes that are really there raises NSRangeException, and so does a code whose first 1
/// does not come before the end; the location is then where the reads had got to.
class PLIXBitstream : public NSObject {
    PLIX_CLASS(PLIXBitstream, NSObject);

public:
    using Base::init;
    bool init(Ref<NSData> const& data);
    static Ref<PLIXBitstream> bitstreamWithData(Ref<NSData> const& data);

    /// The bytes, shared. Setting some starts at bit 0 with their length in bits, computed in 32 bits: 512 MiB wrap to 0. Setting
    /// nil keeps location and length, which then answer -1.
    Ref<NSData> const& data() const { return m_data; }
    void setData(Ref<NSData> const&);

    /// The next bit's index; -1 without data. Setting takes any value, and is ignored without data.
    std::int64_t location() const { return m_data ? position() : -1; }
    void setLocation(std::int64_t);
    /// How many bits may be read; -1 without data. Setting takes any value.
    std::int64_t length() const { return m_data ? m_length : -1; }
    void setLength(std::int64_t);

    std::uint8_t readBit();
    /// The next 0 to 32 bits, the first one read the most significant; near the end what is left, at the end 0. A larger count
    /// first skips count - 32 bits and then reads count bits, whose value means nothing.
    std::uint32_t readBits(std::int64_t count);
    /// The next 8 bits.
    std::uint8_t readByte() { return static_cast<std::uint8_t>(readBits(8)); }
    /// The last four of `count` bytes as a big-endian number. Four bytes are read also where count is less.
    std::uint32_t readBytes(std::int32_t count);
    /// An unsigned code, ue(v).
    std::uint32_t readExpGolomb();
    /// A signed code, se(v).
    std::int32_t readSignedExpGolomb();

    void skipBit() { skipBits(1); }
    void skipByte() { skipBytes(1); }
    /// skipBits() of eight times the count, in 32 bits.
    void skipBytes(std::int32_t count);
    /// Moves on, or back where count is negative; at or beyond the end it stops on the last bit. Does not need data.
    void skipBits(std::int64_t count);
    void skipExpGolomb();

private:
    void copyStateTo(NSObject& fresh) const override;

    // The bits from position() to m_windowEnd, left-aligned in m_window with zeros behind them. What is in the window is inside
    // both the length and the data; without a window position() is m_windowEnd and may be anything.
    std::int64_t position() const { return m_windowEnd - m_windowBits; }
    void moveTo(std::int64_t position);
    void take(std::int64_t count);
    bool fillFromEightBytes();
    bool fillNearEnd();
    void findLastFill();

    std::uint8_t readBitOutsideWindow();
    std::uint32_t readBitsOutsideWindow(std::int64_t count);
    std::int64_t readPrefix();
    std::uint32_t readLongExpGolomb();
    void skipBitsOutsideWindow(std::int64_t count);

    Ref<NSData> m_data;
    std::uint8_t const* m_bytes { nullptr };
    std::uint64_t m_window { 0 };
    std::int64_t m_windowBits { 0 };
    std::int64_t m_windowEnd { 0 };
    std::int64_t m_length { 0 };
    // How many positions, from 0 on, have eight bytes of data and 64 bits of length behind the start of their byte.
    std::uint64_t m_fillablePositions { 0 };
};

inline void PLIXBitstream::take(std::int64_t count)
{
    m_window <<= count;
    m_windowBits -= count;
}

inline bool PLIXBitstream::fillFromEightBytes()
{
    auto const position = static_cast<std::uint64_t>(this->position());
    if (position >= m_fillablePositions) [[unlikely]]
        return false;
    std::uint64_t word = 0;
    std::memcpy(&word, m_bytes + position / 8, sizeof word);
    if constexpr (std::endian::native == std::endian::little)
        word = __builtin_bswap64(word);
    auto const offset = position % 8;
    m_window = word << offset;
    m_windowBits = static_cast<std::int64_t>(64 - offset);
    m_windowEnd = static_cast<std::int64_t>(position + 64 - offset);
    return true;
}

inline std::uint8_t PLIXBitstream::readBit()
{
    if (m_windowBits == 0 && !fillFromEightBytes()) [[unlikely]]
        return readBitOutsideWindow();
    auto const bit = static_cast<std::uint8_t>(m_window >> 63);
    take(1);
    return bit;
}

inline std::uint32_t PLIXBitstream::readBits(std::int64_t count)
{
    if (static_cast<std::uint64_t>(count) - 1 >= 32) [[unlikely]]
        return readBitsOutsideWindow(count);
    if (count > m_windowBits && !fillFromEightBytes()) [[unlikely]]
        return readBitsOutsideWindow(count);
    auto const value = static_cast<std::uint32_t>(m_window >> (64 - count));
    take(count);
    return value;
}

inline std::uint32_t PLIXBitstream::readExpGolomb()
{
    // A code of z zeros has 2 z + 1 bits; its value is that of the last z + 1 less 1. An empty window gives a width of 129.
    auto const widthInWindow = [this] { return 2 * std::int64_t { std::countl_zero(m_window) } + 1; };
    auto width = widthInWindow();
    if (width > m_windowBits) {
        if (!fillFromEightBytes()) [[unlikely]]
            return readLongExpGolomb();
        width = widthInWindow();
        if (width > m_windowBits) [[unlikely]]
            return readLongExpGolomb();
    }
    auto const value = static_cast<std::uint32_t>(m_window >> (64 - width)) - 1;
    take(width);
    return value;
}

inline void PLIXBitstream::skipBits(std::int64_t count)
{
    if (count < 0 || count >= m_windowBits) [[unlikely]]
        return skipBitsOutsideWindow(count);
    take(count);
}

}
