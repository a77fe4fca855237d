#include "fuzz.h"

#include <plix/platform/base/NSData.h>
#include <plix/platform/base/NSLog.h>
#include <plix/platform/graphics/NSBitmapImageRep.h>

#include <cstring>
#include <vector>

using namespace plix;

static void checkThatItSurvivesARoundTrip(NSBitmapImageRep const& image)
{
    auto const file = image.representationUsingType(NSPNGFileType);
    FUZZ_CHECK(file);
    auto const again = NSBitmapImageRep::imageRepWithData(*file);
    FUZZ_CHECK(again && again->pixelsWide() == image.pixelsWide() && again->pixelsHigh() == image.pixelsHigh());
    // Premultiplied pixels lose a little on their way through a file, once.
    auto const twice = NSBitmapImageRep::imageRepWithData(*again->representationUsingType(NSPNGFileType));
    FUZZ_CHECK(twice);
    for (int y = 0; y < image.pixelsHigh(); ++y)
        for (int x = 0; x < image.pixelsWide(); ++x)
            FUZZ_CHECK(twice->pixelAtX(x, y) == again->pixelAtX(x, y));
}

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    static auto const s_quiet = installLogSink([](std::string_view) {});
    auto const file = make<NSData>(std::vector<std::uint8_t>(data, data + size));
    // Every picture of the file, and drawings as well.
    for (auto const& rep : NSImageRep::imageRepsWithData(*file))
        FUZZ_CHECK(rep->size().width > 0 && rep->size().height > 0);
    auto const image = NSBitmapImageRep::imageRepWithData(*file);
    if (!image)
        return 0;
    auto const pixels = static_cast<long>(image->pixelsWide()) * image->pixelsHigh();
    FUZZ_CHECK(image->pixelsWide() > 0 && image->pixelsHigh() > 0 && pixels <= NSBitmapImageRep::maximumPixels);
    // Coding large ones would only cost time.
    if (pixels <= 1 << 16)
        checkThatItSurvivesARoundTrip(*image);
    return 0;
}
