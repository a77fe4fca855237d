#include <plix/platform/graphics/pixel_operations.h>

#include <algorithm>
#include <cstddef>
#include <cstring>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace plix {

namespace {

std::uint32_t plusDarkerPixel(std::uint32_t source, std::uint32_t destination)
{
    int const sourceAlpha = static_cast<int>(source >> 24U);
    int const destinationAlpha = static_cast<int>(destination >> 24U);
    int const alpha = std::min(sourceAlpha + destinationAlpha, 255);
    auto pixel = static_cast<std::uint32_t>(alpha) << 24U;
    for (unsigned shift = 0; shift < 24; shift += 8) {
        int const missing = sourceAlpha - static_cast<int>(source >> shift & 255U) + destinationAlpha
            - static_cast<int>(destination >> shift & 255U);
        pixel |= static_cast<std::uint32_t>(std::max(alpha - missing, 0)) << shift;
    }
    return pixel;
}

std::uint32_t overPixel(std::uint32_t source, std::uint32_t destination)
{
    return saturatedSum(source, scaledPixel(destination, 255 - (source >> 24U)));
}

std::uint32_t recoloredPixel(std::uint32_t source, std::uint32_t color)
{
    return saturatedSum(scaledPixel(source, 255 - (color >> 24U)), scaledPixel(color, source >> 24U));
}

#ifdef __SSE2__

constexpr int pixelsAtOnce = 4;

__m128i load(std::uint32_t const* pixels)
{
    return _mm_loadu_si128(reinterpret_cast<__m128i const*>(pixels));
}

void store(std::uint32_t* pixels, __m128i values)
{
    _mm_storeu_si128(reinterpret_cast<__m128i*>(pixels), values);
}

/// Eight 16-bit products of bytes, divided by 255 and rounded.
__m128i dividedBy255(__m128i products)
{
    // (x + 128) * 257 / 65536 is the same as the two shifted sums.
    return _mm_mulhi_epu16(_mm_add_epi16(products, _mm_set1_epi16(128)), _mm_set1_epi16(257));
}

/// Each channel times the 16-bit factor at its place.
__m128i scaled(__m128i pixels, __m128i lowFactors, __m128i highFactors)
{
    __m128i const zero = _mm_setzero_si128();
    __m128i const low = dividedBy255(_mm_mullo_epi16(_mm_unpacklo_epi8(pixels, zero), lowFactors));
    __m128i const high = dividedBy255(_mm_mullo_epi16(_mm_unpackhi_epi8(pixels, zero), highFactors));
    return _mm_packus_epi16(low, high);
}

__m128i scaled(__m128i pixels, std::uint32_t factor)
{
    __m128i const factors = _mm_set1_epi16(static_cast<short>(factor));
    return scaled(pixels, factors, factors);
}

/// Of two 32-bit numbers, each twice, the low halves four times.
__m128i spread(__m128i twice)
{
    return _mm_shufflehi_epi16(_mm_shufflelo_epi16(twice, _MM_SHUFFLE(2, 2, 0, 0)), _MM_SHUFFLE(2, 2, 0, 0));
}

/// The alphas of the first two of four pixels, each four times as 16-bit numbers.
__m128i lowAlphas(__m128i alphas)
{
    return spread(_mm_unpacklo_epi32(alphas, alphas));
}

/// Likewise of the last two.
__m128i highAlphas(__m128i alphas)
{
    return spread(_mm_unpackhi_epi32(alphas, alphas));
}

__m128i over(__m128i source, __m128i destination)
{
    __m128i const inverse = _mm_sub_epi32(_mm_set1_epi32(255), _mm_srli_epi32(source, 24));
    return _mm_adds_epu8(source, scaled(destination, lowAlphas(inverse), highAlphas(inverse)));
}

bool areAllOpaque(__m128i pixels)
{
    __m128i const ones = _mm_cmpeq_epi32(_mm_srli_epi32(pixels, 24), _mm_set1_epi32(255));
    return _mm_movemask_epi8(ones) == 0xFFFF;
}

bool areAllClear(__m128i pixels)
{
    return _mm_movemask_epi8(_mm_cmpeq_epi32(pixels, _mm_setzero_si128())) == 0xFFFF;
}

int blendWideOver(std::uint32_t* destination, std::uint32_t const* source, int count, std::uint32_t fraction)
{
    int x = 0;
    for (; x + pixelsAtOnce <= count; x += pixelsAtOnce) {
        __m128i pixels = load(source + x);
        if (areAllClear(pixels))
            continue;
        if (fraction < 255)
            pixels = scaled(pixels, fraction);
        __m128i const below = load(destination + x);
        bool const replaces = areAllClear(below) || areAllOpaque(pixels);
        store(destination + x, replaces ? pixels : over(pixels, below));
    }
    return x;
}

int copyWide(std::uint32_t* destination, std::uint32_t const* source, int count, std::uint32_t fraction)
{
    int x = 0;
    for (; x + pixelsAtOnce <= count; x += pixelsAtOnce)
        store(destination + x, scaled(load(source + x), fraction));
    return x;
}

int recolorWide(std::uint32_t* destination, std::uint32_t const* source, int count, std::uint32_t color)
{
    __m128i const wideColor = _mm_unpacklo_epi8(_mm_set1_epi32(static_cast<int>(color)), _mm_setzero_si128());
    std::uint32_t const rest = 255 - (color >> 24U);
    int x = 0;
    for (; x + pixelsAtOnce <= count; x += pixelsAtOnce) {
        __m128i const pixels = load(source + x);
        __m128i const alphas = _mm_srli_epi32(pixels, 24);
        __m128i const low = dividedBy255(_mm_mullo_epi16(wideColor, lowAlphas(alphas)));
        __m128i const high = dividedBy255(_mm_mullo_epi16(wideColor, highAlphas(alphas)));
        __m128i const painted = _mm_packus_epi16(low, high);
        store(destination + x, rest == 0 ? painted : _mm_adds_epu8(painted, scaled(pixels, rest)));
    }
    return x;
}

#else

int blendWideOver(std::uint32_t*, std::uint32_t const*, int, std::uint32_t)
{
    return 0;
}

int copyWide(std::uint32_t*, std::uint32_t const*, int, std::uint32_t)
{
    return 0;
}

int recolorWide(std::uint32_t*, std::uint32_t const*, int, std::uint32_t)
{
    return 0;
}

#endif

}

void blendRowOver(std::uint32_t* destination, std::uint32_t const* source, int count, std::uint32_t fraction)
{
    for (int x = blendWideOver(destination, source, count, fraction); x < count; ++x) {
        if (source[x] != 0)
            destination[x] = overPixel(scaledPixel(source[x], fraction), destination[x]);
    }
}

void copyRow(std::uint32_t* destination, std::uint32_t const* source, int count, std::uint32_t fraction)
{
    if (fraction == 255) {
        std::copy_n(source, count, destination);
        return;
    }
    for (int x = copyWide(destination, source, count, fraction); x < count; ++x)
        destination[x] = scaledPixel(source[x], fraction);
}

void recolorRow(std::uint32_t* destination, std::uint32_t const* source, int count, std::uint32_t premultipliedColor)
{
    for (int x = recolorWide(destination, source, count, premultipliedColor); x < count; ++x)
        destination[x] = recoloredPixel(source[x], premultipliedColor);
}

void plusDarker(std::uint8_t* destination, std::uint8_t const* source, int width, int height, int stride)
{
    for (int y = 0; y < height; ++y) {
        auto const offset = static_cast<std::ptrdiff_t>(y) * stride;
        for (int x = 0; x < width; ++x) {
            std::uint32_t from;
            std::uint32_t to;
            std::memcpy(&from, source + offset + 4 * x, 4);
            std::memcpy(&to, destination + offset + 4 * x, 4);
            to = plusDarkerPixel(from, to);
            std::memcpy(destination + offset + 4 * x, &to, 4);
        }
    }
}

}
