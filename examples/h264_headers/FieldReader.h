#pragma once

#include <plix/bitstream/PLIXBitstream.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace h264 {

/// One syntax element. Positions count from the NAL unit's first bit, emulation prevention bytes apart.
struct Field {
    std::int64_t position { 0 };
    std::int64_t width { 0 };
    /// As the standard's syntax tables have it, "u(1)", "ue(v)".
    std::string descriptor;
    std::string name;
    std::int64_t value { 0 };
};

/// What is said of a NAL unit that breaks off or holds a value that the standard does not allow.
class Fault : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Reads the fields of one NAL unit and notes each. Throws Fault where one is not whole or out of its range.
class FieldReader {
public:
    /// Of a unit without emulation prevention bytes. What can be read ends before the stop bit.
    explicit FieldReader(std::vector<std::uint8_t> bytes);

    std::vector<Field> const& fields() const { return m_fields; }
    /// Whether there are more fields before the stop bit.
    bool hasMore() const { return m_bits->location() < m_bits->length(); }
    /// The stop bit, which has to come now.
    void readStopBit();

    std::uint32_t u(int width, std::string name);
    bool flag(std::string name) { return u(1, std::move(name)) != 0; }
    /// Codes up to and with `greatest`.
    std::uint32_t ue(std::string name, std::uint32_t greatest = 0xFFFFFFFE);
    std::int32_t se(std::string name);

private:
    std::uint32_t code(std::string const& name);
    void note(std::int64_t position, char const* descriptor, std::string name, std::int64_t value);

    plix::Ref<plix::PLIXBitstream> m_bits;
    std::vector<Field> m_fields;
};

}
