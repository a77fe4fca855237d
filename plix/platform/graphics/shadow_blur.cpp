#include <plix/platform/graphics/shadow_blur.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <vector>

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

void applyKernel(std::uint8_t* line, int count, Kernel const& kernel, std::uint8_t* padded)
{
    int const reach = kernel.reach;
    std::memset(padded, 0, static_cast<std::size_t>(reach));
    std::memcpy(padded + reach, line, static_cast<std::size_t>(count));
    std::memset(padded + reach + count, 0, static_cast<std::size_t>(reach));
    for (int x = 0; x < count; ++x) {
        std::uint32_t sum = 32768;
        for (int i = 0; i <= 2 * reach; ++i)
            sum += padded[x + i] * kernel.weights[static_cast<std::size_t>(i)];
        line[x] = static_cast<std::uint8_t>(sum >> 16U);
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
    std::vector<std::uint8_t> scratch(static_cast<std::size_t>(std::max(width, height) + 2 * largestKernelReach));
    if (deviation <= largestKernelDeviation) {
        auto const kernel = kernelFor(deviation);
        blurLines(
            mask, width, height, stride, [&](std::uint8_t* line, int count) { applyKernel(line, count, kernel, scratch.data()); });
        return;
    }
    Boxes const boxes(deviation);
    blurLines(mask, width, height, stride, [&](std::uint8_t* line, int count) { boxes.apply(line, count, scratch.data()); });
}

int shadowBlurReach(float radius)
{
    return radius > 0 ? static_cast<int>(std::ceil(std::min(radius, largestRadius) * 1.5F)) + 1 : 0;
}

}
