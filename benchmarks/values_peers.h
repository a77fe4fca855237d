#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

/// What other libraries do in place of the value functions; each is there where its library is.
namespace plix::bench {

/// The sum of the fields of these widths, over and over, with GStreamer's bit reader.
std::uint64_t sumOfFieldsByGStreamer(std::span<std::uint8_t const> bytes, std::span<std::uint8_t const> widths, long rounds);
/// The sum of ue(v) codes over GStreamer's bit reader, by 32-bit peeks and leading zeros: the fastest way that it has.
std::uint64_t sumOfCodesByGStreamer(std::span<std::uint8_t const> bytes, long count);

/// How many fields libcsv's callbacks are given.
std::size_t countOfFieldsByLibcsv(std::string_view line);

std::size_t lengthOfSizeByGLib(std::uint64_t bytes);
/// Whether a sorts before b by collation keys made for the two.
bool sortsBeforeByGLib(std::string const& a, std::string const& b);

}
