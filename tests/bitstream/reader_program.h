#pragma once

#include <plix/bitstream/PLIXBitstream.h>
#include <tests/bitstream/reference_reader.h>

#include <cstring>
#include <optional>
#include <span>
#include <string>

namespace plix::test {

/// Runs a program of reader operations, made from any bytes, on a PLIXBitstream and on the reference side by side. The first
/// half of the bytes is the data, the rest the program. Answers what differed first, or nothing.
class ReaderProgram {
public:
    explicit ReaderProgram(std::span<std::uint8_t const> input)
        : m_program(input.subspan(input.size() / 2))
        , m_bytes(input.begin(), input.begin() + static_cast<std::ptrdiff_t>(input.size() / 2))
        , m_data(make<NSData>(m_bytes))
    {
        m_reader = make<PLIXBitstream>(m_data);
        m_reference.setData(m_bytes);
    }

    std::optional<std::string> run()
    {
        for (int step = 0; !m_program.empty(); ++step) {
            auto const operation = static_cast<unsigned>(next<std::uint8_t>() % 16);
            auto const argument = nextArgument();
            auto const got = outcome([&] { return perform(*m_reader, operation, argument); });
            auto const wanted = outcome([&] { return perform(m_reference, operation, argument); });
            auto const location = m_reference.reportedLocation();
            auto const length = m_reference.reportedLength();
            if (got != wanted || m_reader->location() != location || m_reader->length() != length)
                return "step " + std::to_string(step) + " operation " + std::to_string(operation) + " of "
                    + std::to_string(argument) + ": " + text(got) + " instead of " + text(wanted) + ", at "
                    + std::to_string(m_reader->location()) + " instead of " + std::to_string(location);
        }
        return {};
    }

private:
    using Outcome = std::optional<std::int64_t>;

    template <typename Value> Value next()
    {
        Value value {};
        auto const count = std::min(sizeof value, m_program.size());
        std::memcpy(&value, m_program.data(), count);
        m_program = m_program.subspan(count);
        return value;
    }
    // Mostly near zero, sometimes near the ends of the data and of the types.
    std::int64_t nextArgument()
    {
        auto const bits = static_cast<std::int64_t>(m_bytes.size() * 8);
        auto const small = std::int64_t { next<std::int8_t>() };
        switch (next<std::uint8_t>() % 16) {
        case 0:
            return bits + small;
        case 1:
            return bits / 2 + small;
        case 2:
            return next<std::int64_t>();
        case 3:
            return INT64_MAX - (small & 63);
        case 4:
            return INT64_MIN + (small & 63);
        case 5:
            return next<std::int32_t>();
        default:
            return small < -16 ? small & 31 : small;
        }
    }
    template <typename Call> static Outcome outcome(Call call)
    {
        try {
            return call();
        } catch (NSRangeException const&) {
            return {};
        }
    }
    static std::string text(Outcome const& value) { return value ? std::to_string(*value) : "NSRangeException"; }

    static void setLengthOf(PLIXBitstream& reader, std::int64_t length) { reader.setLength(length); }
    static void setLengthOf(ReferenceReader& reader, std::int64_t length) { reader.length = length; }
    void takeData(PLIXBitstream& reader, bool isNil) const { reader.setData(isNil ? Ref<NSData>() : m_data); }
    void takeData(ReferenceReader& reader, bool isNil) const
    {
        reader.setData(isNil ? std::optional<std::vector<std::uint8_t>>() : std::optional(m_bytes));
    }

    template <typename Reader> std::int64_t perform(Reader& reader, unsigned operation, std::int64_t argument)
    {
        switch (operation) {
        case 0:
            return reader.readBit();
        case 1:
        case 2:
        case 3:
            return reader.readBits(argument);
        case 4:
            return reader.readByte();
        case 5:
            return reader.readBytes(static_cast<std::int32_t>(argument));
        case 6:
        case 7:
            return reader.readExpGolomb();
        case 8:
            return reader.readSignedExpGolomb();
        case 9:
            reader.skipBits(argument);
            return 0;
        case 10:
            reader.skipBytes(static_cast<std::int32_t>(argument));
            return 0;
        case 11:
            reader.skipExpGolomb();
            return 0;
        case 12:
        case 13:
            reader.setLocation(argument);
            return 0;
        case 14:
            setLengthOf(reader, argument);
            return 0;
        default:
            takeData(reader, argument % 2 != 0);
            return 0;
        }
    }

    std::span<std::uint8_t const> m_program;
    std::vector<std::uint8_t> m_bytes;
    Ref<NSData> m_data;
    Ref<PLIXBitstream> m_reader;
    ReferenceReader m_reference;
};

}
