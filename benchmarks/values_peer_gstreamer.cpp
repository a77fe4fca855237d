#include "values_peers.h"

#include <bit>
#include <stdexcept>

#include <gst/base/gstbitreader.h>

namespace plix::bench {

namespace {

GstBitReader readerOver(std::span<std::uint8_t const> bytes)
{
    GstBitReader reader;
    gst_bit_reader_init(&reader, bytes.data(), static_cast<guint>(bytes.size()));
    return reader;
}

bool readBitByBit(GstBitReader& reader, guint32& value)
{
    guint zeros = 0;
    for (guint8 bit = 0;; ++zeros) {
        if (zeros > 31 || !gst_bit_reader_get_bits_uint8(&reader, &bit, 1))
            return false;
        if (bit)
            break;
    }
    guint32 rest = 0;
    if (zeros && !gst_bit_reader_get_bits_uint32(&reader, &rest, zeros))
        return false;
    value = (1U << zeros) - 1 + rest;
    return true;
}

inline bool readCode(GstBitReader& reader, guint32& value)
{
    if (gst_bit_reader_get_remaining(&reader) >= 32) {
        auto const word = gst_bit_reader_peek_bits_uint32_unchecked(&reader, 32);
        if (word >> 16) {
            auto const width = 2 * static_cast<guint>(std::countl_zero(word)) + 1;
            value = (word >> (32 - width)) - 1;
            gst_bit_reader_skip_unchecked(&reader, width);
            return true;
        }
    }
    return readBitByBit(reader, value);
}

}

std::uint64_t sumOfFieldsByGStreamer(std::span<std::uint8_t const> bytes, std::span<std::uint8_t const> widths, long rounds)
{
    auto reader = readerOver(bytes);
    std::uint64_t sum = 0;
    guint16 value = 0;
    for (long round = 0; round < rounds; ++round) {
        for (auto const width : widths) {
            if (!gst_bit_reader_get_bits_uint16(&reader, &value, width))
                throw std::runtime_error("the peer ran out of bits");
            sum += value;
        }
    }
    return sum;
}

std::uint64_t sumOfCodesByGStreamer(std::span<std::uint8_t const> bytes, long count)
{
    auto reader = readerOver(bytes);
    std::uint64_t sum = 0;
    guint32 value = 0;
    for (long i = 0; i < count; ++i) {
        if (!readCode(reader, value))
            throw std::runtime_error("the peer ran out of codes");
        sum += value;
    }
    return sum;
}

}
