#include "bench.h"
#include "values_peers.h"

#include <plix/bitstream/PLIXBitstream.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <numeric>
#include <random>
#include <stdexcept>

namespace plix::bench {

namespace {

[[maybe_unused]] void requireEqual(std::uint64_t a, std::uint64_t b)
{
    if (a != b)
        throw std::runtime_error("the two read different values");
}

// Widths of 1 to 16 bits, each four times, in a shuffled order.
std::array<std::uint8_t, 64> shuffledWidths()
{
    std::array<std::uint8_t, 64> widths;
    for (std::size_t i = 0; i < widths.size(); ++i)
        widths[i] = static_cast<std::uint8_t>(1 + i % 16);
    std::shuffle(widths.begin(), widths.end(), std::mt19937(1));
    return widths;
}

std::vector<std::uint8_t> randomBytes(std::size_t count)
{
    std::mt19937 random(2);
    std::vector<std::uint8_t> bytes(count);
    std::generate(bytes.begin(), bytes.end(), [&] { return static_cast<std::uint8_t>(random()); });
    return bytes;
}

// ue(v) codes of values that fall off exponentially, some 8 bits a code.
std::vector<std::uint8_t> exponentialCodes(long count)
{
    std::mt19937 random(3);
    std::exponential_distribution<double> distribution(1.0 / 25);
    std::vector<std::uint8_t> bytes;
    int free = 0;
    auto const put = [&](bool bit) {
        if (free == 0) {
            bytes.push_back(0);
            free = 8;
        }
        bytes.back() = static_cast<std::uint8_t>(bytes.back() | bit << --free);
    };
    for (long i = 0; i < count; ++i) {
        auto const value = static_cast<unsigned>(std::min(1000.0, std::floor(distribution(random)))) + 1;
        auto const width = std::bit_width(value);
        for (int bit = 2 * width - 2; bit >= 0; --bit)
            put(value >> bit & 1U);
    }
    return bytes;
}

// Functions of their own, as the peer's are.
std::uint64_t sumOfFields(Ref<NSData> const& data, std::span<std::uint8_t const> widths, long rounds)
{
    auto const reader = make<PLIXBitstream>(data);
    std::uint64_t sum = 0;
    for (long round = 0; round < rounds; ++round) {
        for (auto const width : widths)
            sum += reader->readBits(width);
    }
    return sum;
}

std::uint64_t sumOfCodes(Ref<NSData> const& data, long count)
{
    auto const reader = make<PLIXBitstream>(data);
    std::uint64_t sum = 0;
    for (long i = 0; i < count; ++i)
        sum += reader->readExpGolomb();
    return sum;
}

}

PLIX_FIGURE("bits.mix")
{
    auto const widths = shuffledWidths();
    auto const data = make<NSData>(randomBytes(std::size_t { 8 } << 20));
    auto const bitsARound = std::accumulate(widths.begin(), widths.end(), 0L);
    auto const rounds = static_cast<long>(data->length()) * 8 / bitsARound;
    auto const ours = [&] { return sumOfFields(data, widths, rounds); };
#ifdef PLIX_BENCH_GSTREAMER
    auto const theirs = [&] { return sumOfFieldsByGStreamer(data->bytes(), widths, rounds); };
    requireEqual(ours(), theirs());
    figure.wantRatio(3);
    figure.timeAgainst("GStreamer", { [&] { keep(ours()); } }, { [&] { keep(theirs()); } });
#else
    figure.time({ [&] { keep(ours()); } });
#endif
}

PLIX_FIGURE("bits.ue")
{
    constexpr long count = 2'000'000;
    auto const data = make<NSData>(exponentialCodes(count));
    auto const ours = [&] { return sumOfCodes(data, count); };
#ifdef PLIX_BENCH_GSTREAMER
    auto const theirs = [&] { return sumOfCodesByGStreamer(data->bytes(), count); };
    requireEqual(ours(), theirs());
    figure.wantRatio(2.5);
    figure.timeAgainst("GStreamer", { [&] { keep(ours()); } }, { [&] { keep(theirs()); } });
#else
    figure.time({ [&] { keep(ours()); } });
#endif
}

}
