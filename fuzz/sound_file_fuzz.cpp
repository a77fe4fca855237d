#include "fuzz.h"

#include <plix/platform/host/desktop/SoundReader.h>
#include <plix/platform/host/sound_kind.h>

#include <cmath>
#include <vector>

using namespace plix;

static std::unique_ptr<SoundDecoder> open(std::uint8_t const* data, std::size_t size)
{
    return SoundDecoder::open(std::make_unique<SoundFileBytes>(std::vector<std::uint8_t>(data, data + size)));
}

static void checkThatItReadsWholeFrames(SoundDecoder& decoder)
{
    constexpr int mostReads = 64;
    std::vector<float> samples(4096);
    for (int i = 0; i < mostReads; ++i) {
        auto const count = decoder.read(samples);
        FUZZ_CHECK(count <= samples.size() && count % static_cast<std::size_t>(decoder.channels()) == 0);
        if (count == 0)
            break;
    }
}

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    auto decoder = open(data, size);
    if (!decoder)
        return 0;
    FUZZ_CHECK(soundKind({ data, size }));
    FUZZ_CHECK(decoder->channels() >= 1 && decoder->rate() >= 1 && decoder->frames() >= 0);
    checkThatItReadsWholeFrames(*decoder);
    if (decoder->rewind())
        checkThatItReadsWholeFrames(*decoder);
    SoundReader reader(open(data, size));
    FUZZ_CHECK(std::isfinite(reader.duration()) && reader.duration() >= 0);
    std::vector<float> stereo(8192);
    for (int round = 0; round < 2; ++round) {
        auto const count = reader.read(stereo);
        FUZZ_CHECK(count <= stereo.size() && count % 2 == 0);
        if (!reader.rewind())
            break;
    }
    return 0;
}
