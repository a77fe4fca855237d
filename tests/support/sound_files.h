#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace plix {

/// A sine of 16 bits a sample.
struct Tone {
    double seconds { 1 };
    double frequency { 440 };
    /// 1 is as loud as can be.
    double amplitude { 0.5 };
    int rate { 48000 };
    int channels { 2 };
};

/// The bytes of sound files, written here by hand.
std::string wavFile(Tone const& = {});
std::string aiffFile(Tone const& = {});

inline std::vector<std::uint8_t> bytesOf(std::string_view text)
{
    return { text.begin(), text.end() };
}

}
