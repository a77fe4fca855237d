#include <plix/bitstream/PLIXBitstream.h>

#include <plix/platform/base/exceptions.h>

#include <algorithm>

namespace plix {

PLIX_DESCRIBE(PLIXBitstream)
{
}

namespace {

// Locations, lengths and counts may be anything; sums of them wrap.
std::int64_t wrappingSum(std::int64_t a, std::int64_t b)
{
    return static_cast<std::int64_t>(static_cast<std::uint64_t>(a) + static_cast<std::uint64_t>(b));
}

std::int64_t wrappingDifference(std::int64_t a, std::int64_t b)
{
    return static_cast<std::int64_t>(static_cast<std::uint64_t>(a) - static_cast<std::uint64_t>(b));
}

}

bool PLIXBitstream::init(Ref<NSData> const& data)
{
    if (!Base::init())
        return false;
    setData(data);
    return true;
}

Ref<PLIXBitstream> PLIXBitstream::bitstreamWithData(Ref<NSData> const& data)
{
    return make<PLIXBitstream>(data);
}

void PLIXBitstream::copyStateTo(NSObject& fresh) const
{
    Base::copyStateTo(fresh);
    auto& stream = static_cast<PLIXBitstream&>(fresh);
    stream.setData(m_data);
    stream.setLength(m_length);
    stream.moveTo(position());
}

void PLIXBitstream::setData(Ref<NSData> const& data)
{
    moveTo(data ? 0 : position());
    m_data = data;
    m_bytes = data ? data->bytes().data() : nullptr;
    if (data)
        m_length = static_cast<std::uint32_t>(data->length() * 8); // 32 bits are meant
    countFillablePositions();
}

void PLIXBitstream::setLocation(std::int64_t location)
{
    if (m_data)
        moveTo(location);
}

void PLIXBitstream::setLength(std::int64_t length)
{
    moveTo(position());
    m_length = length;
    countFillablePositions();
}

void PLIXBitstream::moveTo(std::int64_t position)
{
    m_window = 0;
    m_windowBits = 0;
    m_windowEnd = position;
}

void PLIXBitstream::countFillablePositions()
{
    auto const lengthOfData = m_data ? static_cast<std::int64_t>(m_data->length()) * 8 : 0;
    m_fillablePositions = static_cast<std::uint64_t>(std::max<std::int64_t>(std::min(m_length, lengthOfData), 63) - 63);
}

bool PLIXBitstream::fillNearEnd()
{
    auto const position = this->position();
    if (!m_data || position < 0 || position >= m_length)
        return false;
    auto const bytes = m_data->bytes();
    auto const firstByte = static_cast<std::size_t>(position / 8);
    if (firstByte >= bytes.size())
        return false;
    auto const rest = bytes.subspan(firstByte, std::min<std::size_t>(bytes.size() - firstByte, 8));
    m_window = 0;
    for (auto const byte : rest)
        m_window = m_window << 8 | byte;
    auto const available = static_cast<std::int64_t>(rest.size()) * 8 - position % 8;
    m_windowBits = std::min(available, m_length - position);
    m_window >>= available - m_windowBits;
    m_windowEnd = position + m_windowBits;
    return true;
}

std::uint8_t PLIXBitstream::readBitOutsideWindow()
{
    if (fillNearEnd())
        return readBit();
    auto const position = this->position();
    if (position >= m_length || !m_data)
        return 0;
    auto const byteCount = static_cast<std::int64_t>(m_data->length());
    if (position / 8 < 0 || position / 8 >= byteCount)
        raiseRangeException("PLIXBitstream", position, byteCount * 8);
    // Only -1 to -7 are left. Truncating division puts them in byte 0, their shift by 8 to 14 leaves 0.
    moveTo(position + 1);
    return 0;
}

std::uint32_t PLIXBitstream::readBitsOutsideWindow(std::int64_t count)
{
    count = std::min(count, wrappingDifference(m_length, position()));
    if (count > 32)
        skipBits(count - 32); // count stays as it is, which is meant
    if (count > 0 && count <= 32 && fillNearEnd() && count <= m_windowBits)
        return readBits(count);
    std::uint32_t result = 0;
    // Further bits at the end, and all bits without data, are zeros.
    for (; count > 0 && m_data && position() < m_length; --count)
        result |= static_cast<std::uint32_t>(readBit()) << ((count - 1) % 32);
    return result;
}

std::uint32_t PLIXBitstream::readBytes(std::int32_t count)
{
    if (static_cast<std::uint32_t>(count) > 4)
        skipBytes(static_cast<std::int32_t>(static_cast<std::uint32_t>(count) - 4));
    std::uint32_t value = 0;
    for (int i = 0; i < 4; ++i)
        value = value << 8 | readByte(); // always four, which is meant
    return value;
}

std::int64_t PLIXBitstream::readPrefix()
{
    for (std::int64_t zeros = 0;;) {
        if (m_windowBits == 0 && !fillNearEnd()) {
            auto const position = this->position();
            if (!m_data || position >= m_length)
                raiseRangeException("PLIXBitstream", position, length());
            zeros += readBitOutsideWindow() == 0;
            continue;
        }
        auto const leading = std::min<std::int64_t>(std::countl_zero(leftAlignedWindow()), m_windowBits);
        zeros += leading;
        m_windowBits -= leading;
        if (m_windowBits > 0) {
            --m_windowBits;
            return zeros;
        }
    }
}

std::uint32_t PLIXBitstream::readLongExpGolomb()
{
    auto const zeros = readPrefix();
    if (zeros == 0)
        return 0;
    return (std::uint32_t { 1 } << (zeros % 32)) + readBits(zeros) - 1;
}

std::int32_t PLIXBitstream::readSignedExpGolomb()
{
    auto const code = std::int64_t { readExpGolomb() };
    return static_cast<std::int32_t>(code % 2 == 0 ? -(code / 2) : (code + 1) / 2);
}

void PLIXBitstream::skipBytes(std::int32_t count)
{
    skipBits(static_cast<std::int32_t>(static_cast<std::uint32_t>(count) * 8));
}

void PLIXBitstream::skipBitsOutsideWindow(std::int64_t count)
{
    auto const position = wrappingSum(this->position(), count);
    moveTo(position >= m_length ? wrappingDifference(m_length, 1) : position);
}

void PLIXBitstream::skipExpGolomb()
{
    auto const zeros = readPrefix();
    if (zeros > 0)
        skipBits(zeros);
}

}
