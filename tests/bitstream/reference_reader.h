#pragma once

#include <plix/platform/base/exceptions.h>

#include <cstdint>
#include <optional>
#include <vector>

namespace plix::test {

/// The plain definition of a bit reader, one bit after the other and nothing remembered: what PLIXBitstream has to equal.
struct ReferenceReader {
    std::optional<std::vector<std::uint8_t>> data;
    std::int64_t location { 0 };
    std::int64_t length { 0 };

    static std::int64_t wrapped(std::uint64_t value) { return static_cast<std::int64_t>(value); }
    static std::uint64_t raw(std::int64_t value) { return static_cast<std::uint64_t>(value); }

    void setData(std::optional<std::vector<std::uint8_t>> bytes)
    {
        data = std::move(bytes);
        if (!data)
            return;
        location = 0;
        length = static_cast<std::uint32_t>(data->size() * 8);
    }
    std::int64_t reportedLocation() const { return data ? location : -1; }
    std::int64_t reportedLength() const { return data ? length : -1; }
    void setLocation(std::int64_t value)
    {
        if (data)
            location = value;
    }

    std::uint8_t readBit()
    {
        if (location >= length || !data)
            return 0;
        auto const byte = location / 8;
        auto const bit = location % 8;
        if (byte < 0 || raw(byte) >= data->size())
            raiseRangeException("reference", byte, 0);
        ++location;
        return static_cast<std::uint8_t>(((*data)[raw(byte)] >> (7 - bit)) & 1);
    }
    std::uint32_t readBits(std::int64_t count)
    {
        auto const available = wrapped(raw(length) - raw(location));
        if (count > available)
            count = available;
        if (count > 32)
            skipBits(count - 32);
        std::uint32_t result = 0;
        while (count > 0) {
            auto const before = location;
            auto const bit = readBit();
            if (location == before)
                break; // nothing but zeros from here on
            --count;
            result |= std::uint32_t { bit } << (count % 32);
        }
        return result;
    }
    std::uint8_t readByte() { return static_cast<std::uint8_t>(readBits(8) & 0xFF); }
    std::uint32_t readBytes(std::int32_t count)
    {
        if (static_cast<std::uint32_t>(count) > 4)
            skipBytes(static_cast<std::int32_t>(static_cast<std::uint32_t>(count) - 4U));
        std::uint32_t const b0 = readByte();
        std::uint32_t const b1 = readByte();
        std::uint32_t const b2 = readByte();
        std::uint32_t const b3 = readByte();
        return b0 << 24 | b1 << 16 | b2 << 8 | b3;
    }
    std::int64_t prefix()
    {
        for (std::int64_t zeros = 0;; ++zeros) {
            if (!data || location >= length)
                raiseRangeException("reference", location, length);
            if (readBit() == 1)
                return zeros;
        }
    }
    std::uint32_t readExpGolomb()
    {
        auto const zeros = prefix();
        if (zeros == 0)
            return 0;
        return (1U << (zeros % 32)) + readBits(zeros) - 1U;
    }
    std::int32_t readSignedExpGolomb()
    {
        auto const k = std::int64_t { readExpGolomb() };
        return static_cast<std::int32_t>(k % 2 == 0 ? -(k / 2) : (k + 1) / 2);
    }
    void skipBytes(std::int32_t count) { skipBits(static_cast<std::int32_t>(static_cast<std::uint32_t>(count) * 8U)); }
    void skipBits(std::int64_t count)
    {
        location = wrapped(raw(location) + raw(count));
        if (location >= length)
            location = wrapped(raw(length) - 1U);
    }
    void skipExpGolomb()
    {
        auto const zeros = prefix();
        if (zeros > 0)
            skipBits(zeros);
    }
};

}
