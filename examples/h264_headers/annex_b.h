#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace h264 {

using Bytes = std::span<std::uint8_t const>;

/// One NAL unit of a byte stream, from its header byte on, as it stands there.
struct NalUnit {
    std::size_t position { 0 };
    Bytes bytes;

    int type() const { return bytes[0] & 0x1F; }
};

/// The NAL units of a byte stream (ITU-T H.264 Annex B), without start codes and the zeros around them. None of them is empty.
std::vector<NalUnit> nalUnitsOf(Bytes stream);

/// A NAL unit's bytes without the 3s that keep start codes from arising in it (clause 7.4.1).
std::vector<std::uint8_t> withoutEmulationPrevention(Bytes nalUnit);

}
