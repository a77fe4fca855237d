#include "FieldReader.h"

#include <plix/platform/base/exceptions.h>

#include <bit>

namespace h264 {

namespace {

/// The place of the last 1, which ends what a NAL unit says (clause 7.2); 0 where there is none.
std::int64_t stopBitOf(std::vector<std::uint8_t> const& bytes)
{
    for (auto i = bytes.size(); i > 0; --i) {
        if (auto const byte = bytes[i - 1])
            return static_cast<std::int64_t>(i) * 8 - 1 - std::countr_zero(byte);
    }
    return 0;
}

std::int64_t widthOfCode(std::uint32_t value)
{
    return 2 * std::bit_width(std::uint64_t { value } + 1) - 1;
}

}

FieldReader::FieldReader(std::vector<std::uint8_t> bytes)
{
    auto const stopBit = stopBitOf(bytes);
    m_bits = plix::PLIXBitstream::bitstreamWithData(plix::make<plix::NSData>(std::move(bytes)));
    m_bits->setLength(stopBit);
}

void FieldReader::readStopBit()
{
    if (hasMore())
        throw Fault(std::to_string(m_bits->length() - m_bits->location()) + " bits are left over");
    m_bits->setLength(m_bits->length() + 1);
    flag("rbsp_stop_one_bit");
}

std::uint32_t FieldReader::u(int width, std::string name)
{
    auto const position = m_bits->location();
    if (m_bits->length() - position < width)
        throw Fault("ends in " + name);
    auto const value = m_bits->readBits(width);
    note(position, ("u(" + std::to_string(width) + ")").c_str(), std::move(name), value);
    return value;
}

std::uint32_t FieldReader::code(std::string const& name)
{
    auto const position = m_bits->location();
    try {
        auto const value = m_bits->readExpGolomb();
        // The bits that are missing at the end read as none, so that the code is shorter than its value's.
        if (m_bits->location() - position == widthOfCode(value))
            return value;
    } catch (plix::NSRangeException const&) {
    }
    throw Fault("no whole code for " + name);
}

std::uint32_t FieldReader::ue(std::string name, std::uint32_t greatest)
{
    auto const position = m_bits->location();
    auto const value = code(name);
    note(position, "ue(v)", name, value);
    if (value > greatest)
        throw Fault(name + " is beyond " + std::to_string(greatest));
    return value;
}

std::int32_t FieldReader::se(std::string name)
{
    auto const position = m_bits->location();
    code(name);
    m_bits->setLocation(position);
    auto const value = m_bits->readSignedExpGolomb();
    note(position, "se(v)", std::move(name), value);
    return value;
}

void FieldReader::note(std::int64_t position, char const* descriptor, std::string name, std::int64_t value)
{
    m_fields.push_back({ position, m_bits->location() - position, descriptor, std::move(name), value });
}

}
