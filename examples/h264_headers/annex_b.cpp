#include "annex_b.h"

#include <algorithm>
#include <array>

namespace h264 {

namespace {

constexpr std::array<std::uint8_t, 3> startCode { 0, 0, 1 };

}

std::vector<NalUnit> nalUnitsOf(Bytes stream)
{
    std::vector<NalUnit> units;
    auto const findStart = [&](auto from) { return std::search(from, stream.end(), startCode.begin(), startCode.end()); };
    for (auto code = findStart(stream.begin()); code != stream.end();) {
        auto const start = code + startCode.size();
        code = findStart(start);
        auto end = code;
        while (end != start && end[-1] == 0)
            --end;
        if (end != start)
            units.push_back({ static_cast<std::size_t>(start - stream.begin()), Bytes(start, end) });
    }
    return units;
}

std::vector<std::uint8_t> withoutEmulationPrevention(Bytes nalUnit)
{
    std::vector<std::uint8_t> bytes;
    bytes.reserve(nalUnit.size());
    int zeros = 0;
    for (auto const byte : nalUnit) {
        if (zeros >= 2 && byte == 3) {
            zeros = 0;
            continue;
        }
        zeros = byte == 0 ? zeros + 1 : 0;
        bytes.push_back(byte);
    }
    return bytes;
}

}
