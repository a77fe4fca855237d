#include "bitstream_pages.h"
#include "Transcript.h"

#include <plix/bitstream/PLIXBitstream.h>
#include <plix/platform/base/NSData.h>

namespace gallery {

using namespace plix;

namespace {

Ref<NSView> makePLIXBitstreamPage()
{
    auto const transcript = make<Transcript>();
    transcript->run("// The header of an H.264 video, 640 by 480 pixels");
    RUN(std::vector<std::uint8_t> const bytes { 0x67, 0x42, 0xC0, 0x1E, 0xDA, 0x02, 0x80, 0xF6, 0x40 });
    RUN(auto const bits = PLIXBitstream::bitstreamWithData(make<NSData>(bytes)));
    RUN(bits->skipBits(3));
    SHOW(bits->readBits(5));
    SHOW(bits->readByte());
    RUN(bits->skipByte());
    SHOW(bits->readByte());
    SHOW(bits->readExpGolomb());
    SHOW(bits->readExpGolomb());
    SHOW(bits->readExpGolomb());
    SHOW(bits->readExpGolomb());
    SHOW(bits->readBit());
    SHOW((bits->readExpGolomb() + 1) * 16);
    SHOW((bits->readExpGolomb() + 1) * 16);
    SHOW(bits->readBit());
    SHOW(bits->location());
    transcript->addNote("Unit type 7, profile 66, level 30, numbers of frames, width, height, whole frames.");
    return transcript;
}

Ref<NSView> makeBitEdgesPage()
{
    auto const transcript = make<Transcript>();
    RUN(auto const bits = make<PLIXBitstream>());
    SHOW(bits->location());
    SHOW(bits->length());
    RUN(std::vector<std::uint8_t> const bytes { 0xA5, 0x0F, 0x00 });
    RUN(bits->setData(make<NSData>(bytes)));
    SHOW(bits->length());
    SHOW(bits->readBits(4));
    SHOW(bits->readBits(0));
    SHOW(bits->readSignedExpGolomb());
    SHOW(bits->location());
    RUN(bits->setLocation(20));
    SHOW(bits->readBits(32));
    SHOW(bits->location());
    SHOW(bits->readBit());
    RUN(bits->skipBits(100));
    SHOW(bits->location());
    RUN(bits->setLocation(16));
    SHOW(bits->readExpGolomb());
    RUN(bits->setLength(400));
    RUN(bits->setLocation(30));
    SHOW(bits->readBits(8));
    return transcript;
}

constexpr Page all[] {
    { "PLIXBitstream", "PLIXBitstream", valuesSection, "bitstream_pages.cpp", makePLIXBitstreamPage },
    { "bit_edges", "The bit reader’s edges", valuesSection, "bitstream_pages.cpp", makeBitEdgesPage },
};

}

std::span<Page const> bitstreamPages()
{
    return all;
}

}
