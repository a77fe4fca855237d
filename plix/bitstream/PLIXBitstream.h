#pragma once

#include <plix/platform/base/NSData.h>

#include <array>
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
class PLIX_EXPORT PLIXBitstream : public NSObject {
    PLIX_CLASS(PLIXBitstream, NSObject);

public:
    using Base::init;
    bool init(Ref<NSData> const& data);
    /// Made by init() with the same arguments.
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

    // Reading.
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

    // Skipping.
    void skipBit() { skipBits(1); }
    void skipByte() { skipBytes(1); }
    /// skipBits() of eight times the count, in 32 bits.
    void skipBytes(std::int32_t count);
    /// Moves on, or back where count is negative; at or beyond the end it stops on the last bit. Does not need data.
    void skipBits(std::int64_t count);
    void skipExpGolomb();

private:
    void copyStateTo(NSObject& fresh) const override;

    // The last m_windowBits bits of m_window are those from position() to m_windowEnd; what is above them has been read. They are
    // inside both the length and the data. Without a window position() is m_windowEnd and may be anything.
    std::int64_t position() const { return m_windowEnd - m_windowBits; }
    /// The window's bits from the top down, with zeros behind; anything without a window.
    std::uint64_t leftAlignedWindow() const { return m_window << (-m_windowBits & 63); }
    void moveTo(std::int64_t position);
    bool fillFromEightBytes();
    bool fillNearEnd();
    void countFillablePositions();

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

namespace detail {

/// The numbers whose last 0 to 32 bits are set: looked up faster than shifted.
inline constexpr auto lastBits = [] {
    std::array<std::uint32_t, 33> masks {};
    for (std::size_t i = 1; i < masks.size(); ++i)
        masks[i] = masks[i - 1] << 1 | 1;
    return masks;
}();

}

inline bool PLIXBitstream::fillFromEightBytes()
{
    auto const position = static_cast<std::uint64_t>(this->position());
    if (position >= m_fillablePositions) [[unlikely]]
        return false;
    std::memcpy(&m_window, m_bytes + position / 8, sizeof m_window);
    if constexpr (std::endian::native == std::endian::little)
        m_window = __builtin_bswap64(m_window);
    m_windowBits = static_cast<std::int64_t>(64 - position % 8);
    m_windowEnd = static_cast<std::int64_t>(position) + m_windowBits;
    return true;
}

inline std::uint8_t PLIXBitstream::readBit()
{
    if (m_windowBits == 0 && !fillFromEightBytes()) [[unlikely]]
        return readBitOutsideWindow();
    --m_windowBits;
    return static_cast<std::uint8_t>(m_window >> m_windowBits & 1);
}

inline std::uint32_t PLIXBitstream::readBits(std::int64_t count)
{
    if (static_cast<std::uint64_t>(count) > 32) [[unlikely]]
        return readBitsOutsideWindow(count);
    auto rest = m_windowBits - count;
    if (rest < 0) {
        if (!fillFromEightBytes()) [[unlikely]]
            return readBitsOutsideWindow(count);
        rest = m_windowBits - count;
    }
    m_windowBits = rest;
    return static_cast<std::uint32_t>(m_window >> (rest & 63)) & detail::lastBits[static_cast<std::size_t>(count)];
}

inline std::uint32_t PLIXBitstream::readExpGolomb()
{
    // A code of z zeros has 2 z + 1 bits; its value is that of the last z + 1 less 1. Without a 1 the width is beyond any window's.
    auto window = leftAlignedWindow();
    auto width = 2 * std::int64_t { std::countl_zero(window) } + 1;
    if (width > m_windowBits) {
        if (!fillFromEightBytes()) [[unlikely]]
            return readLongExpGolomb();
        window = leftAlignedWindow();
        width = 2 * std::int64_t { std::countl_zero(window) } + 1;
        if (width > m_windowBits) [[unlikely]]
            return readLongExpGolomb();
    }
    m_windowBits -= width;
    return static_cast<std::uint32_t>(window >> (64 - width)) - 1;
}

inline void PLIXBitstream::skipBits(std::int64_t count)
{
    if (count < 0 || count >= m_windowBits) [[unlikely]]
        return skipBitsOutsideWindow(count);
    m_windowBits -= count;
}

}
