#include <plix/platform/graphics/shadow_blur.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <vector>
#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace plix {

namespace {

constexpr float largestRadius = 400;
/// Up to this deviation a true kernel is quicker than three box blurs, and exact.
constexpr float largestKernelDeviation = 2.5F;
constexpr int largestKernelReach = 8;

struct Kernel {
    int reach { 0 };
    std::array<std::uint32_t, 2 * largestKernelReach + 1> weights {}; ///< of 65536 together
};

Kernel kernelFor(float deviation)
{
    Kernel kernel;
    kernel.reach = std::min(static_cast<int>(std::ceil(3 * deviation)), largestKernelReach);
    std::array<double, 2 * largestKernelReach + 1> exact {};
    double sum = 0;
    for (int i = -kernel.reach; i <= kernel.reach; ++i) {
        // How much of a pixel's ink falls on one that is i away.
        double const spread = deviation * std::sqrt(2.0);
        double const weight = std::erf((i + 0.5) / spread) - std::erf((i - 0.5) / spread);
        exact[static_cast<std::size_t>(i + kernel.reach)] = weight;
        sum += weight;
    }
    std::uint32_t total = 0;
    for (int i = 0; i <= 2 * kernel.reach; ++i) {
        auto const index = static_cast<std::size_t>(i);
        kernel.weights[index] = static_cast<std::uint32_t>(std::lround(exact[index] / sum * 65536));
        total += kernel.weights[index];
    }
    kernel.weights[static_cast<std::size_t>(kernel.reach)] += 65536 - total;
    return kernel;
}

/// The kernel as offsets and weights of 15 bits, an even number of them: the heavy middle is split.
struct Taps {
    static constexpr int most = 2 * largestKernelReach + 4;
    int count { 0 };
    std::array<int, most> offsets {};
    std::array<std::int16_t, most> weights {};

    explicit Taps(Kernel const& kernel)
    {
        constexpr std::uint32_t parts = 4;
        for (int i = -kernel.reach; i <= kernel.reach; ++i) {
            auto const weight = kernel.weights[static_cast<std::size_t>(i + kernel.reach)];
            if (i != 0) {
                add(i, weight);
                continue;
            }
            for (std::uint32_t part = 0; part < parts; ++part)
                add(0, (weight + part) / parts);
        }
    }

private:
    void add(int offset, std::uint32_t weight)
    {
        offsets[static_cast<std::size_t>(count)] = offset;
        weights[static_cast<std::size_t>(count)] = static_cast<std::int16_t>(weight);
        ++count;
    }
};

/// Eight places at once: what is `step` bytes away for each unit of offset, weighed and added up.
void weighEight(std::uint8_t const* from, std::ptrdiff_t step, Taps const& taps, std::uint8_t* to)
{
#ifdef __SSE2__
    __m128i const zero = _mm_setzero_si128();
    __m128i low = _mm_set1_epi32(32768);
    __m128i high = low;
    auto const eightAt = [&](int tap) {
        auto const* place = from + step * taps.offsets[static_cast<std::size_t>(tap)];
        return _mm_unpacklo_epi8(_mm_loadl_epi64(reinterpret_cast<__m128i const*>(place)), zero);
    };
    for (int tap = 0; tap < taps.count; tap += 2) {
        __m128i const first = eightAt(tap);
        __m128i const second = eightAt(tap + 1);
        int both = 0;
        std::memcpy(&both, taps.weights.data() + tap, sizeof both);
        __m128i const weights = _mm_set1_epi32(both);
        low = _mm_add_epi32(low, _mm_madd_epi16(_mm_unpacklo_epi16(first, second), weights));
        high = _mm_add_epi32(high, _mm_madd_epi16(_mm_unpackhi_epi16(first, second), weights));
    }
    __m128i const words = _mm_packs_epi32(_mm_srli_epi32(low, 16), _mm_srli_epi32(high, 16));
    _mm_storel_epi64(reinterpret_cast<__m128i*>(to), _mm_packus_epi16(words, words));
#else
    for (int i = 0; i < 8; ++i) {
        std::uint32_t sum = 32768;
        for (int tap = 0; tap < taps.count; ++tap)
            sum += from[i + step * taps.offsets[static_cast<std::size_t>(tap)]]
                * static_cast<std::uint32_t>(taps.weights[static_cast<std::size_t>(tap)]);
        to[i] = static_cast<std::uint8_t>(sum >> 16U);
    }
#endif
}

/// Across, then down, with room of zeros around the mask.
void applyKernel(std::uint8_t* mask, int width, int height, int stride, Kernel const& kernel)
{
    constexpr int reach = largestKernelReach;
    Taps const taps(kernel);
    std::ptrdiff_t const padded = (width + 7) / 8 * 8 + 2 * reach;
    thread_local std::vector<std::uint8_t> line;
    thread_local std::vector<std::uint8_t> across;
    line.assign(static_cast<std::size_t>(padded), 0);
    across.assign(static_cast<std::size_t>(padded * (height + 2 * reach)), 0);
    auto const each = [width](auto visit) {
        for (int x = 0; x < width; x += 8)
            visit(x);
    };
    auto const size = static_cast<std::size_t>(width);
    auto const rowOfMask = [&](int y) { return mask + static_cast<std::ptrdiff_t>(y) * stride; };
    auto const hasInk = [&](int y) { return std::any_of(rowOfMask(y), rowOfMask(y) + width, [](auto byte) { return byte != 0; }); };
    int first = 0;
    int end = height;
    while (first < end && !hasInk(first))
        ++first;
    while (end > first && !hasInk(end - 1))
        --end;
    for (int y = first; y < end; ++y) {
        std::memcpy(line.data() + reach, rowOfMask(y), size);
        auto* to = across.data() + padded * (y + reach);
        each([&](int x) { weighEight(line.data() + reach + x, 1, taps, to + x); });
    }
    for (int y = std::max(0, first - kernel.reach); y < std::min(height, end + kernel.reach); ++y) {
        auto const* from = across.data() + padded * (y + reach);
        each([&](int x) { weighEight(from + x, padded, taps, line.data() + x); });
        std::memcpy(rowOfMask(y), line.data(), size);
    }
}

/// The mean over `width` places, of which `before` lie before the place itself.
void applyBox(std::uint8_t* line, int count, int width, int before, std::uint8_t* copy)
{
    std::memcpy(copy, line, static_cast<std::size_t>(count));
    int const after = width - before; // first place beyond the window
    std::uint32_t sum = 0;
    for (int i = 0; i < std::min(after, count); ++i)
        sum += copy[i];
    auto const size = static_cast<std::uint32_t>(width);
    for (int x = 0; x < count; ++x) {
        line[x] = static_cast<std::uint8_t>((sum + size / 2) / size);
        if (x + after < count)
            sum += copy[x + after];
        if (x - before >= 0)
            sum -= copy[x - before];
    }
}

struct Boxes {
    int width { 0 };
    explicit Boxes(float deviation)
        // The SVG filter chapter's three boxes: d = floor(s * 3 * sqrt(2 pi) / 4 + 0.5).
        : width(static_cast<int>(std::floor(deviation * 1.8799712F + 0.5F)))
    {
    }
    void apply(std::uint8_t* line, int count, std::uint8_t* copy) const
    {
        int const half = width / 2;
        if (width % 2 == 1) {
            for (int pass = 0; pass < 3; ++pass)
                applyBox(line, count, width, half, copy);
            return;
        }
        applyBox(line, count, width, half, copy);
        applyBox(line, count, width, half - 1, copy);
        applyBox(line, count, width + 1, half, copy);
    }
};

template <typename Apply> void blurLines(std::uint8_t* mask, int width, int height, int stride, Apply apply)
{
    for (int y = 0; y < height; ++y)
        apply(mask + static_cast<std::ptrdiff_t>(y) * stride, width);
    std::vector<std::uint8_t> column(static_cast<std::size_t>(height));
    for (int x = 0; x < width; ++x) {
        for (int y = 0; y < height; ++y)
            column[static_cast<std::size_t>(y)] = mask[static_cast<std::ptrdiff_t>(y) * stride + x];
        apply(column.data(), height);
        for (int y = 0; y < height; ++y)
            mask[static_cast<std::ptrdiff_t>(y) * stride + x] = column[static_cast<std::size_t>(y)];
    }
}

}

void blurShadowMask(std::uint8_t* mask, int width, int height, int stride, float radius)
{
    float const deviation = std::min(radius, largestRadius) / 2;
    if (!(deviation > 0) || width <= 0 || height <= 0)
        return;
    if (deviation <= largestKernelDeviation) {
        thread_local Kernel kernel;
        thread_local float deviationOfKernel = 0;
        if (deviationOfKernel != deviation) {
            kernel = kernelFor(deviation);
            deviationOfKernel = deviation;
        }
        applyKernel(mask, width, height, stride, kernel);
        return;
    }
    std::vector<std::uint8_t> scratch(static_cast<std::size_t>(std::max(width, height)));
    Boxes const boxes(deviation);
    blurLines(mask, width, height, stride, [&](std::uint8_t* line, int count) { boxes.apply(line, count, scratch.data()); });
}

int shadowBlurReach(float radius)
{
    return radius > 0 ? static_cast<int>(std::ceil(std::min(radius, largestRadius) * 1.5F)) + 1 : 0;
}

}
