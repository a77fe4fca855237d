#include "fuzz.h"

#include <examples/browser/video_headers.h>

#include <algorithm>

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    if (size > 65536)
        return 0;
    std::span const file(data, size);
    std::size_t reads = 0;
    auto const stream = browser::videoHeaders(size, [&](std::uint64_t place, std::span<std::uint8_t> into) {
        FUZZ_CHECK(++reads < 100'000 && place <= size);
        auto const part = file.subspan(place, std::min<std::size_t>(into.size(), size - place));
        std::ranges::copy(part, into.begin());
        return part.size();
    });
    FUZZ_CHECK(stream.size() <= 3 * size);
    browser::VideoFormat format;
    if (browser::readVideoFormat(stream, format))
        FUZZ_CHECK(!format.profile.empty() && format.framesPerSecond >= 0);
    return 0;
}
