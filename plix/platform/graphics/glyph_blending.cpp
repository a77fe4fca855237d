#include <plix/platform/graphics/glyph_blending.h>

#include <cstring>
#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace plix {

namespace {

constexpr std::uint32_t oddBytes = 0x00FF00FF;

/// The four bytes of a pixel times a factor of 0 to 255, divided by 255 and rounded.
std::uint32_t scaledPixel(std::uint32_t pixel, std::uint32_t by)
{
    std::uint32_t low = (pixel & oddBytes) * by + 0x00800080;
    std::uint32_t high = ((pixel >> 8) & oddBytes) * by + 0x00800080;
    low = ((low + ((low >> 8) & oddBytes)) >> 8) & oddBytes;
    high = (high + ((high >> 8) & oddBytes)) & ~oddBytes;
    return low | high;
}

#ifdef __SSE2__

/// The same for eight bytes that stand in eight words.
__m128i scaledWords(__m128i words, __m128i by)
{
    __m128i const product = _mm_add_epi16(_mm_mullo_epi16(words, by), _mm_set1_epi16(128));
    return _mm_srli_epi16(_mm_add_epi16(product, _mm_srli_epi16(product, 8)), 8);
}

/// Two pixels in words: the colour by its coverage, over what is there.
__m128i blendedWords(__m128i pixels, __m128i coverage, __m128i color)
{
    __m128i const source = scaledWords(color, coverage);
    constexpr int alphaOfEach = _MM_SHUFFLE(3, 3, 3, 3);
    __m128i const alpha = _mm_shufflehi_epi16(_mm_shufflelo_epi16(source, alphaOfEach), alphaOfEach);
    return _mm_add_epi16(source, scaledWords(pixels, _mm_sub_epi16(_mm_set1_epi16(255), alpha)));
}

/// Blends as many as come in fours and gives their number.
int blendFours(std::uint32_t* pixels, std::uint8_t const* coverage, int count, std::uint32_t color)
{
    __m128i const zero = _mm_setzero_si128();
    __m128i const colorWords = _mm_unpacklo_epi8(_mm_set1_epi32(static_cast<int>(color)), zero);
    int done = 0;
    for (; done + 4 <= count; done += 4) {
        int four = 0;
        std::memcpy(&four, coverage + done, sizeof four);
        if (four == 0)
            continue;
        __m128i const bytes = _mm_cvtsi32_si128(four);
        __m128i const twice = _mm_unpacklo_epi8(bytes, bytes);
        __m128i const fourTimes = _mm_unpacklo_epi16(twice, twice);
        auto* const place = reinterpret_cast<__m128i*>(pixels + done);
        __m128i const there = _mm_loadu_si128(place);
        __m128i const low = blendedWords(_mm_unpacklo_epi8(there, zero), _mm_unpacklo_epi8(fourTimes, zero), colorWords);
        __m128i const high = blendedWords(_mm_unpackhi_epi8(there, zero), _mm_unpackhi_epi8(fourTimes, zero), colorWords);
        _mm_storeu_si128(place, _mm_packus_epi16(low, high));
    }
    return done;
}

#else

int blendFours(std::uint32_t*, std::uint8_t const*, int, std::uint32_t)
{
    return 0;
}

#endif

}

void blendCoverage(std::uint32_t* pixels, std::uint8_t const* coverage, int count, std::uint32_t color)
{
    for (int i = blendFours(pixels, coverage, count, color); i < count; ++i) {
        if (coverage[i] == 0)
            continue;
        std::uint32_t const source = scaledPixel(color, coverage[i]);
        pixels[i] = source + scaledPixel(pixels[i], 0xFF - (source >> 24));
    }
}

}
