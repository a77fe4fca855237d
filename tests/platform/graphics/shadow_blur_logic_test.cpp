#include <plix/platform/graphics/shadow_blur.h>

#include <gtest/gtest.h>

#include <cmath>
#include <numeric>
#include <vector>

namespace plix {
namespace {

struct Mask {
    int side;
    std::vector<std::uint8_t> bytes;

    explicit Mask(int size)
        : side(size)
        , bytes(static_cast<std::size_t>(size * size))
    {
    }
    std::uint8_t& at(int x, int y) { return bytes[static_cast<std::size_t>(y * side + x)]; }
    long sum() const { return std::accumulate(bytes.begin(), bytes.end(), 0L); }
    void blur(float radius) { blurShadowMask(bytes.data(), side, side, side, radius); }
};

TEST(ShadowBlur, WithoutRadiusLeavesTheMaskAlone)
{
    Mask mask(5);
    mask.at(2, 2) = 200;
    auto const before = mask.bytes;
    mask.blur(0);
    mask.blur(-3);
    EXPECT_EQ(mask.bytes, before);
    EXPECT_EQ(shadowBlurReach(0), 0);
}

TEST(ShadowBlur, IsAGaussianOfHalfTheRadius)
{
    for (float const radius : { 1.0F, 2.0F, 4.0F, 8.0F, 20.0F }) {
        int const reach = shadowBlurReach(radius);
        Mask mask(2 * reach + 41);
        int const middle = mask.side / 2;
        for (int y = middle - 20; y <= middle + 20; ++y) {
            for (int x = middle; x <= middle + 20; ++x)
                mask.at(x, y) = 255;
        }
        mask.blur(radius);
        // Across the left edge the values follow the normal distribution.
        double const deviation = radius / 2;
        for (int x = middle - std::min(reach, 15); x < middle + 5; ++x) {
            double const toLeft = 0.5 * std::erfc(-(x + 0.5 - middle) / (deviation * std::sqrt(2.0)));
            double const toRight = 0.5 * std::erfc((x + 0.5 - middle - 21) / (deviation * std::sqrt(2.0)));
            double const vertical = std::erf(20.5 / (deviation * std::sqrt(2.0)));
            EXPECT_NEAR(mask.at(x, middle), 255 * (toLeft + toRight - 1) * vertical, 9) << radius << " at " << x - middle;
        }
    }
}

TEST(ShadowBlur, KeepsTheAmountOfInkAndItsCentre)
{
    for (float const radius : { 1.0F, 3.0F, 6.0F, 7.0F, 13.0F }) {
        Mask mask(81);
        for (int y = 30; y < 51; ++y) {
            for (int x = 30; x < 51; ++x)
                mask.at(x, y) = 255;
        }
        long const before = mask.sum();
        mask.blur(radius);
        EXPECT_NEAR(static_cast<double>(mask.sum()), static_cast<double>(before), static_cast<double>(before) * 0.02) << radius;
        for (int i = 0; i < 81; ++i) {
            EXPECT_NEAR(mask.at(i, 40), mask.at(80 - i, 40), 2) << radius;
            EXPECT_NEAR(mask.at(40, i), mask.at(i, 40), 2) << radius;
        }
    }
}

TEST(ShadowBlur, StaysWithinItsReach)
{
    for (float const radius : { 0.5F, 1.0F, 4.0F, 6.0F, 30.0F }) {
        int const reach = shadowBlurReach(radius);
        Mask mask(2 * reach + 21);
        for (int y = reach + 10; y <= reach + 10; ++y) {
            for (int x = reach + 10; x <= reach + 10; ++x)
                mask.at(x, y) = 255;
        }
        mask.blur(radius);
        for (int i = 0; i < mask.side; ++i)
            EXPECT_EQ(mask.at(i, 9), 0) << radius;
    }
}

TEST(ShadowBlur, IsTheSameWhereverTheMaskEnds)
{
    constexpr int side = 64;
    std::uint32_t random = 1;
    for (float const radius : { 0.01F, 1.0F, 2.0F, 5.0F }) {
        for (int width = 1; width < 27; ++width) {
            int const height = 1 + width * 7 % 23;
            std::vector<std::uint8_t> alone(static_cast<std::size_t>(width * height));
            Mask around(side);
            for (int y = 0; y < height; ++y) {
                for (int x = 0; x < width; ++x) {
                    random = random * 1664525 + 1013904223;
                    auto const value = static_cast<std::uint8_t>(random >> 24);
                    alone[static_cast<std::size_t>(y * width + x)] = value;
                    around.at(x + 20, y + 20) = value;
                }
            }
            blurShadowMask(alone.data(), width, height, width, radius);
            around.blur(radius);
            int differences = 0;
            for (int y = 0; y < height; ++y) {
                for (int x = 0; x < width; ++x)
                    differences += alone[static_cast<std::size_t>(y * width + x)] != around.at(x + 20, y + 20);
            }
            EXPECT_EQ(differences, 0) << radius << " " << width << " x " << height;
        }
    }
}

TEST(ShadowBlur, TakesMasksSmallerThanItself)
{
    Mask mask(2);
    mask.at(0, 0) = 255;
    mask.blur(50);
    EXPECT_LT(mask.at(0, 0), 3);
    blurShadowMask(nullptr, 0, 0, 0, 4);
}

}
}
