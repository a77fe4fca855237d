#include <plix/platform/graphics/pixel_scaling.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace plix {

namespace {

constexpr int weightShift = 14;
constexpr int rounding = 1 << (weightShift - 1);
constexpr int cubicTaps = 4;

/// The Catmull-Rom spline's weights for a place between the second and the third pixel.
std::array<double, cubicTaps> cubicWeights(double t)
{
    double const t2 = t * t;
    double const t3 = t2 * t;
    return { -0.5 * t3 + t2 - 0.5 * t, 1.5 * t3 - 2.5 * t2 + 1, -1.5 * t3 + 2 * t2 + 0.5 * t, 0.5 * t3 - 0.5 * t2 };
}

/// Whole weights of the right sum; what rounding leaves over goes to the heaviest.
void storeWeights(std::array<double, cubicTaps> const& exact, std::int16_t* weights)
{
    int total = 0;
    int heaviest = 0;
    for (int i = 0; i < cubicTaps; ++i) {
        weights[i] = static_cast<std::int16_t>(std::lround(exact[static_cast<std::size_t>(i)] * ScalingAxis::weightSum));
        total += weights[i];
        if (weights[i] > weights[heaviest])
            heaviest = i;
    }
    weights[heaviest] = static_cast<std::int16_t>(weights[heaviest] + ScalingAxis::weightSum - total);
}

#ifdef __SSE2__

/// Sums up weighted pixels, two at a time.
class Accumulator {
public:
    void add(std::uint32_t first, std::uint32_t second, std::int16_t firstWeight, std::int16_t secondWeight)
    {
        __m128i const pair
            = _mm_unpacklo_epi8(_mm_cvtsi32_si128(static_cast<int>(first)), _mm_cvtsi32_si128(static_cast<int>(second)));
        auto const packed
            = static_cast<std::uint32_t>(static_cast<std::uint16_t>(secondWeight)) << 16U | static_cast<std::uint16_t>(firstWeight);
        __m128i const weights = _mm_set1_epi32(static_cast<int>(packed));
        m_sum = _mm_add_epi32(m_sum, _mm_madd_epi16(_mm_unpacklo_epi8(pair, _mm_setzero_si128()), weights));
    }
    std::uint32_t pixel() const
    {
        __m128i const whole = _mm_srai_epi32(m_sum, weightShift);
        __m128i const words = _mm_packs_epi32(whole, whole);
        return static_cast<std::uint32_t>(_mm_cvtsi128_si32(_mm_packus_epi16(words, words)));
    }

private:
    __m128i m_sum { _mm_set1_epi32(rounding) };
};

#else

class Accumulator {
public:
    void add(std::uint32_t first, std::uint32_t second, std::int16_t firstWeight, std::int16_t secondWeight)
    {
        for (unsigned i = 0; i < 4; ++i)
            m_sum[i]
                += static_cast<int>(first >> 8 * i & 255U) * firstWeight + static_cast<int>(second >> 8 * i & 255U) * secondWeight;
    }
    std::uint32_t pixel() const
    {
        std::uint32_t result = 0;
        for (unsigned i = 0; i < 4; ++i)
            result |= static_cast<std::uint32_t>(std::clamp(m_sum[i] >> weightShift, 0, 255)) << 8 * i;
        return result;
    }

private:
    std::array<int, 4> m_sum { rounding, rounding, rounding, rounding };
};

#endif

/// A cubic may reach beyond its pixels: no channel above alpha.
std::uint32_t premultiplied(std::uint32_t pixel)
{
    std::uint32_t const alpha = pixel >> 24U;
    std::uint32_t result = alpha << 24U;
    for (unsigned shift = 0; shift < 24; shift += 8)
        result |= std::min(pixel >> shift & 255U, alpha) << shift;
    return result;
}

void scaleRow(std::uint32_t const* source, int length, ScalingAxis const& axis, int left, int right, std::uint32_t* result)
{
    int const taps = axis.taps();
    int const last = length - 1;
    for (int x = left; x < right; ++x) {
        int const first = axis.first(x);
        auto const* weights = axis.weights(x);
        Accumulator sum;
        for (int i = 0; i < taps; i += 2) {
            int const at = std::clamp(first + i, 0, last);
            int const next = std::clamp(first + i + 1, 0, last);
            sum.add(source[at], source[next], weights[i], i + 1 < taps ? weights[i + 1] : std::int16_t { 0 });
        }
        result[x - left] = taps == cubicTaps ? premultiplied(sum.pixel()) : sum.pixel();
    }
}

/// One pixel of a linear axis, between two of the source.
std::uint32_t mixedAt(std::uint32_t const* source, ScalingAxis const& axis, int place)
{
    auto const* pair = source + axis.first(place);
    auto const* weights = axis.weights(place);
    Accumulator sum;
    sum.add(pair[0], pair[1], weights[0], weights[1]);
    return sum.pixel();
}

#ifdef __SSE2__

/// The 32-bit channels of one pixel between two neighbours.
__m128i mixedPair(std::uint32_t const* neighbours, std::int16_t const* weights)
{
    std::int32_t factors;
    std::memcpy(&factors, weights, sizeof factors);
    __m128i const bytes = _mm_loadl_epi64(reinterpret_cast<__m128i const*>(neighbours));
    __m128i const words = _mm_unpacklo_epi8(bytes, _mm_setzero_si128());
    __m128i const pairs = _mm_unpacklo_epi16(words, _mm_srli_si128(words, 8));
    __m128i const sum = _mm_add_epi32(_mm_madd_epi16(pairs, _mm_set1_epi32(factors)), _mm_set1_epi32(rounding));
    return _mm_srai_epi32(sum, weightShift);
}

/// A stretch of places between the same two pixels, as an even ramp from the first place's true value. Channels are 8.8
/// fixed-point.
void writeRamp(std::uint32_t const* neighbours, int laterWeight, std::int64_t step, int count, std::uint32_t* result)
{
    __m128i const zero = _mm_setzero_si128();
    __m128i const words = _mm_unpacklo_epi8(_mm_loadl_epi64(reinterpret_cast<__m128i const*>(neighbours)), zero);
    __m128i const from = _mm_unpacklo_epi64(words, words);
    // The difference times 128, so that the upper half of a product with a 16-bit factor keeps its digits.
    __m128i const difference = _mm_slli_epi16(_mm_sub_epi16(_mm_unpackhi_epi64(words, words), from), 7);
    __m128i const each = _mm_mulhi_epi16(difference, _mm_set1_epi16(static_cast<short>(step >> 15)));
    __m128i const along = _mm_slli_epi16(_mm_mulhi_epi16(difference, _mm_set1_epi16(static_cast<short>(laterWeight * 2))), 2);
    __m128i const first = _mm_add_epi16(_mm_add_epi16(_mm_slli_epi16(from, 8), _mm_set1_epi16(128)), along);
    __m128i const two = _mm_add_epi16(each, each);
    __m128i const four = _mm_add_epi16(two, two);
    __m128i low = _mm_add_epi16(first, _mm_unpacklo_epi64(zero, each));
    __m128i high = _mm_add_epi16(low, two);
    int x = 0;
    for (; x + 4 <= count; x += 4) {
        __m128i const pixels = _mm_packus_epi16(_mm_srli_epi16(low, 8), _mm_srli_epi16(high, 8));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(result + x), pixels);
        low = _mm_add_epi16(low, four);
        high = _mm_add_epi16(high, four);
    }
    __m128i rest = _mm_packus_epi16(_mm_srli_epi16(low, 8), _mm_srli_epi16(high, 8));
    for (; x < count; ++x, rest = _mm_srli_si128(rest, 4))
        result[x] = static_cast<std::uint32_t>(_mm_cvtsi128_si32(rest));
}

/// For axes that grow so much that many places lie between the same two pixels.
int scaleRamps(std::uint32_t const* source, ScalingAxis const& axis, int place, int end, std::uint32_t* result)
{
    constexpr int longestRamp = 64; // rounded slopes must not add up to a visible error
    while (place < end) {
        int const first = axis.first(place);
        int const count = std::min({ axis.placesUpTo(first + 1, place), longestRamp, end - place });
        writeRamp(source + first, axis.weights(place)[1], axis.step(), count, result);
        place += count;
        result += count;
    }
    return place;
}

/// As many as can be done four at a time; the first place not done.
int scaleWideLinear(std::uint32_t const* source, ScalingAxis const& axis, int place, int end, std::uint32_t* result)
{
    constexpr std::int64_t eighth = std::int64_t { 1 } << 29;
    if (axis.step() <= eighth)
        return scaleRamps(source, axis, place, end, result);
    auto const mixed = [&](int at) { return mixedPair(source + axis.first(at), axis.weights(at)); };
    for (; place + 4 <= end; place += 4, result += 4) {
        __m128i const low = _mm_packs_epi32(mixed(place), mixed(place + 1));
        __m128i const high = _mm_packs_epi32(mixed(place + 2), mixed(place + 3));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(result), _mm_packus_epi16(low, high));
    }
    return place;
}

#else

int scaleWideLinear(std::uint32_t const*, ScalingAxis const&, int place, int, std::uint32_t*)
{
    return place;
}

#endif

void scaleRowLinear(std::uint32_t const* source, int length, ScalingAxis const& axis, int left, int right, std::uint32_t* result)
{
    int const last = length - 1;
    int place = left;
    // Beyond the middles of the end pixels these go on.
    for (; place < right && axis.first(place) < 0; ++place)
        result[place - left] = source[0];
    int inner = right;
    for (; inner > place && axis.first(inner - 1) >= last; --inner)
        result[inner - 1 - left] = source[last];
    place = scaleWideLinear(source, axis, place, inner, result + (place - left));
    for (; place < inner; ++place)
        result[place - left] = mixedAt(source, axis, place);
}

void copyNearest(std::uint32_t const* source, ScalingAxis const& axis, int left, int right, std::uint32_t* result)
{
    for (int x = left; x < right; ++x)
        result[x - left] = source[axis.first(x)];
}

/// Two rows mixed; the weights are those of a vertical axis with two taps.
void mixRows(std::uint32_t const* a, std::uint32_t const* b, std::int16_t const* weights, int count, std::uint32_t* result)
{
    // Weights of 256 together: products of bytes fit 16 bits.
    auto const later = static_cast<std::uint32_t>(weights[1] + 32) >> 6U;
    std::uint32_t const earlier = 256 - later;
    int x = 0;
#ifdef __SSE2__
    __m128i const zero = _mm_setzero_si128();
    __m128i const half = _mm_set1_epi16(128);
    __m128i const upperWeight = _mm_set1_epi16(static_cast<short>(earlier));
    __m128i const lowerWeight = _mm_set1_epi16(static_cast<short>(later));
    auto const mix = [&](__m128i upper, __m128i lower) {
        __m128i const sum = _mm_add_epi16(_mm_mullo_epi16(upper, upperWeight), _mm_mullo_epi16(lower, lowerWeight));
        return _mm_srli_epi16(_mm_add_epi16(sum, half), 8);
    };
    for (; x + 4 <= count; x += 4) {
        __m128i const upper = _mm_loadu_si128(reinterpret_cast<__m128i const*>(a + x));
        __m128i const lower = _mm_loadu_si128(reinterpret_cast<__m128i const*>(b + x));
        __m128i const low = mix(_mm_unpacklo_epi8(upper, zero), _mm_unpacklo_epi8(lower, zero));
        __m128i const high = mix(_mm_unpackhi_epi8(upper, zero), _mm_unpackhi_epi8(lower, zero));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(result + x), _mm_packus_epi16(low, high));
    }
#endif
    for (; x < count; ++x) {
        std::uint32_t pixel = 0;
        for (unsigned shift = 0; shift < 32; shift += 8)
            pixel |= ((a[x] >> shift & 255U) * earlier + (b[x] >> shift & 255U) * later + 128) >> 8U << shift;
        result[x] = pixel;
    }
}

}

void ScalingAxis::prepare(int sourceLength, int resultLength, ScalingQuality quality)
{
    bool const isSame = sourceLength == m_sourceLength && resultLength == m_resultLength && quality == m_quality;
    if (isSame)
        return;
    m_sourceLength = sourceLength;
    m_resultLength = resultLength;
    m_quality = quality;
    m_isIdentity = sourceLength == resultLength;
    if (m_isIdentity || quality == ScalingQuality::nearest)
        prepareNearest(sourceLength, resultLength);
    else if (resultLength < sourceLength && quality != ScalingQuality::linear)
        prepareAveraged(sourceLength, resultLength);
    else if (quality == ScalingQuality::smooth)
        prepareCubic(sourceLength, resultLength);
    else
        prepareLinear(sourceLength, resultLength);
}

void ScalingAxis::prepareNearest(int sourceLength, int resultLength)
{
    m_taps = 1;
    m_first.resize(static_cast<std::size_t>(resultLength));
    m_weights.assign(static_cast<std::size_t>(resultLength), weightSum);
    for (int place = 0; place < resultLength; ++place) {
        auto const twice = (2L * place + 1) * sourceLength;
        m_first[static_cast<std::size_t>(place)] = static_cast<int>(twice / (2L * resultLength));
    }
}

void ScalingAxis::prepareAveraged(int sourceLength, int resultLength)
{
    double const ratio = static_cast<double>(sourceLength) / resultLength;
    m_taps = static_cast<int>(std::ceil(ratio)) + 1;
    m_first.resize(static_cast<std::size_t>(resultLength));
    m_weights.resize(static_cast<std::size_t>(resultLength) * static_cast<std::size_t>(m_taps));
    for (int place = 0; place < resultLength; ++place) {
        double const begin = place * ratio;
        double const end = begin + ratio;
        int const first = static_cast<int>(std::floor(begin + 1e-9));
        m_first[static_cast<std::size_t>(place)] = first;
        // The part of each pixel that is covered, in whole weights whose running sum is exact.
        int given = 0;
        for (int i = 0; i < m_taps; ++i) {
            double const upTo = std::clamp(first + i + 1.0, begin, end);
            int const sum = static_cast<int>(std::lround((upTo - begin) / ratio * weightSum));
            m_weights[static_cast<std::size_t>(place) * static_cast<std::size_t>(m_taps) + static_cast<std::size_t>(i)]
                = static_cast<std::int16_t>(sum - given);
            given = sum;
        }
    }
}

void ScalingAxis::prepareLinear(int sourceLength, int resultLength)
{
    m_taps = 2;
    m_first.resize(static_cast<std::size_t>(resultLength));
    m_weights.resize(static_cast<std::size_t>(resultLength) * 2);
    // Places in the source as 32.32 fixed-point numbers: quicker than floating ones, and far finer than a weight.
    constexpr int fraction = 32;
    std::int64_t const step = (std::int64_t { sourceLength } << fraction) / resultLength;
    m_step = step;
    m_start = (step - (std::int64_t { 1 } << fraction)) / 2;
    std::int64_t at = m_start;
    for (int place = 0; place < resultLength; ++place, at += step) {
        auto const later = static_cast<std::int16_t>(at >> (fraction - weightShift) & (weightSum - 1));
        m_first[static_cast<std::size_t>(place)] = static_cast<int>(at >> fraction);
        m_weights[2 * static_cast<std::size_t>(place)] = static_cast<std::int16_t>(weightSum - later);
        m_weights[2 * static_cast<std::size_t>(place) + 1] = later;
    }
}

int ScalingAxis::placesUpTo(int pixel, int place) const
{
    std::int64_t const rest = (std::int64_t { pixel } << 32) - (m_start + place * m_step);
    return static_cast<int>((rest + m_step - 1) / m_step);
}

void ScalingAxis::prepareCubic(int sourceLength, int resultLength)
{
    double const ratio = static_cast<double>(sourceLength) / resultLength;
    m_taps = cubicTaps;
    m_first.resize(static_cast<std::size_t>(resultLength));
    m_weights.resize(static_cast<std::size_t>(resultLength) * cubicTaps);
    for (int place = 0; place < resultLength; ++place) {
        double const middle = (place + 0.5) * ratio - 0.5;
        int const before = static_cast<int>(std::floor(middle));
        m_first[static_cast<std::size_t>(place)] = before - 1;
        storeWeights(cubicWeights(middle - before), m_weights.data() + static_cast<std::ptrdiff_t>(place) * cubicTaps);
    }
}

void PixelScaler::prepare(PixelView const& source, int width, int height, ScalingQuality quality)
{
    m_source = source;
    m_width = width;
    m_horizontal.prepare(source.width, width, quality);
    m_vertical.prepare(source.height, height, quality);
    auto const rows = static_cast<std::size_t>(std::max(m_vertical.taps(), 1));
    m_kept.resize(rows * static_cast<std::size_t>(width));
    m_keptRows.assign(rows, -1);
    m_result.resize(static_cast<std::size_t>(width));
}

std::uint32_t const* PixelScaler::horizontalRow(int sourceRow, int left, int right)
{
    auto const* source = m_source.row(sourceRow);
    if (m_horizontal.isIdentity())
        return source + left;
    auto const slot = static_cast<std::size_t>(sourceRow) % m_keptRows.size();
    auto* kept = m_kept.data() + slot * static_cast<std::size_t>(m_width);
    if (m_keptRows[slot] == sourceRow)
        return kept;
    m_keptRows[slot] = sourceRow;
    if (m_horizontal.taps() == 1)
        copyNearest(source, m_horizontal, left, right, kept);
    else if (m_horizontal.taps() == 2)
        scaleRowLinear(source, m_source.width, m_horizontal, left, right, kept);
    else
        scaleRow(source, m_source.width, m_horizontal, left, right, kept);
    return kept;
}

std::uint32_t const* PixelScaler::row(int y, int left, int right)
{
    int const taps = m_vertical.taps();
    int const last = m_source.height - 1;
    int const first = m_vertical.first(y);
    auto const at = [&](int tap) { return horizontalRow(std::clamp(first + tap, 0, last), left, right); };
    if (taps == 1)
        return at(0);
    auto const* weights = m_vertical.weights(y);
    int const count = right - left;
    if (taps == 2) {
        auto const* upper = at(0);
        mixRows(upper, at(1), weights, count, m_result.data());
        return m_result.data();
    }
    std::vector<std::uint32_t const*>& rows = m_tapRows;
    rows.resize(static_cast<std::size_t>(taps) + 1);
    for (int tap = 0; tap < taps; ++tap)
        rows[static_cast<std::size_t>(tap)] = at(tap);
    rows[static_cast<std::size_t>(taps)] = rows[0];
    for (int x = 0; x < count; ++x) {
        Accumulator sum;
        for (int tap = 0; tap < taps; tap += 2) {
            auto const pair = static_cast<std::size_t>(tap);
            sum.add(rows[pair][x], rows[pair + 1][x], weights[tap], tap + 1 < taps ? weights[tap + 1] : std::int16_t { 0 });
        }
        m_result[static_cast<std::size_t>(x)] = taps == cubicTaps ? premultiplied(sum.pixel()) : sum.pixel();
    }
    return m_result.data();
}

}
