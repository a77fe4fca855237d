#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

namespace browser {

/// A file's bytes wherever they are wanted: how many of them could be read from that place on.
using ReadAt = std::function<std::size_t(std::uint64_t place, std::span<std::uint8_t>)>;

/// H.264 parameter sets as a byte stream (ITU-T H.264 Annex B) out of a file of `size` bytes: the beginning of one that is such a
/// stream, or those that the first "avcC" box of an MP4 or QuickTime file holds (ISO/IEC 14496-15, 5.2.4.1). Empty where there are
/// none, or the file is broken.
std::vector<std::uint8_t> videoHeaders(std::uint64_t size, ReadAt const&);

/// What the first sequence parameter set of a byte stream says.
struct VideoFormat {
    std::string profile; ///< "High"; the number of one without a name
    std::string level; ///< "4.1"
    unsigned width { 0 }; ///< in pixels, as shown
    unsigned height { 0 };
    double framesPerSecond { 0 }; ///< 0 where it is not said
};
/// False where there is none, or it is broken before its picture size.
bool readVideoFormat(std::span<std::uint8_t const> byteStream, VideoFormat&);

}
