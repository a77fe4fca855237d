#include <tests/support/sound_files.h>

#include <cmath>
#include <numbers>

namespace plix {

namespace {

constexpr int bytesInSample = 2;
constexpr double fullSample = 32767;

enum class Order { LittleEndian, BigEndian };

std::string number(std::uint64_t value, int bytes, Order order)
{
    std::string text;
    for (int i = 0; i < bytes; ++i) {
        auto const shift = 8 * (order == Order::LittleEndian ? i : bytes - 1 - i);
        text += static_cast<char>(value >> shift & 0xFF);
    }
    return text;
}

std::int64_t framesOf(Tone const& tone)
{
    return std::llround(tone.seconds * tone.rate);
}

std::string samples(Tone const& tone, Order order)
{
    std::string text;
    for (std::int64_t frame = 0; frame < framesOf(tone); ++frame) {
        auto const phase = 2 * std::numbers::pi * tone.frequency * static_cast<double>(frame) / tone.rate;
        auto const sample = std::lround(fullSample * tone.amplitude * std::sin(phase));
        for (int channel = 0; channel < tone.channels; ++channel)
            text += number(static_cast<std::uint16_t>(sample), bytesInSample, order);
    }
    return text;
}

/// As AIFF writes a sample rate: an 80 bit float of a whole number.
std::string extendedNumber(unsigned value)
{
    int const exponent = std::ilogb(value);
    return number(static_cast<std::uint64_t>(16383 + exponent), 2, Order::BigEndian)
        + number(static_cast<std::uint64_t>(value) << (63 - exponent), 8, Order::BigEndian);
}

}

std::string wavFile(Tone const& tone)
{
    auto const little = [](std::uint64_t value, int bytes) { return number(value, bytes, Order::LittleEndian); };
    auto const frameBytes = static_cast<unsigned>(bytesInSample * tone.channels);
    auto const rate = static_cast<unsigned>(tone.rate);
    auto const data = samples(tone, Order::LittleEndian);
    auto const format = little(1, 2) + little(static_cast<unsigned>(tone.channels), 2) + little(rate, 4)
        + little(rate * frameBytes, 4) + little(frameBytes, 2) + little(8 * bytesInSample, 2);
    return "RIFF" + little(4 + 8 + format.size() + 8 + data.size(), 4) + "WAVEfmt " + little(format.size(), 4) + format + "data"
        + little(data.size(), 4) + data;
}

std::string aiffFile(Tone const& tone)
{
    auto const big = [](std::uint64_t value, int bytes) { return number(value, bytes, Order::BigEndian); };
    auto const data = samples(tone, Order::BigEndian);
    auto const common = big(static_cast<unsigned>(tone.channels), 2) + big(static_cast<std::uint64_t>(framesOf(tone)), 4)
        + big(8 * bytesInSample, 2) + extendedNumber(static_cast<unsigned>(tone.rate));
    return "FORM" + big(4 + 8 + common.size() + 16 + data.size(), 4) + "AIFFCOMM" + big(common.size(), 4) + common + "SSND"
        + big(8 + data.size(), 4) + big(0, 8) + data;
}

}
