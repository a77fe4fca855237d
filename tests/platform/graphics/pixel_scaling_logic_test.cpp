#include <plix/platform/graphics/pixel_scaling.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace plix {
namespace {

constexpr ScalingQuality qualities[]
    = { ScalingQuality::nearest, ScalingQuality::linear, ScalingQuality::averaged, ScalingQuality::smooth };

struct Picture {
    int width;
    int height;
    std::vector<std::uint32_t> pixels;

    Picture(int w, int h)
        : width(w)
        , height(h)
        , pixels(static_cast<std::size_t>(w * h))
    {
    }
    std::uint32_t& at(int x, int y) { return pixels[static_cast<std::size_t>(y * width + x)]; }
    PixelView view() const { return { pixels.data(), width, width, height }; }
};

Picture scaled(PixelView const& view, int width, int height, ScalingQuality quality)
{
    Picture result(width, height);
    PixelScaler scaler;
    scaler.prepare(view, width, height, quality);
    for (int y = 0; y < height; ++y)
        std::copy_n(scaler.row(y, 0, width), width, &result.at(0, y));
    return result;
}

/// Opaque, changing evenly along x in red and along y in green.
Picture ramp(int width, int height)
{
    Picture picture(width, height);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            picture.at(x, y) = 0xFF000000U | static_cast<std::uint32_t>(x * 255 / std::max(width - 1, 1)) << 16U
                | static_cast<std::uint32_t>(y * 255 / std::max(height - 1, 1)) << 8U;
    }
    return picture;
}

int red(std::uint32_t pixel)
{
    return static_cast<int>(pixel >> 16U & 255U);
}

int green(std::uint32_t pixel)
{
    return static_cast<int>(pixel >> 8U & 255U);
}

TEST(PixelScaling, KeepsOneColorAsItIsAtEverySize)
{
    Picture picture(5, 7);
    std::fill(picture.pixels.begin(), picture.pixels.end(), 0x80402010U);
    for (auto const quality : qualities) {
        for (int const width : { 1, 2, 5, 9, 64 }) {
            for (int const height : { 1, 3, 7, 50 }) {
                for (auto const pixel : scaled(picture.view(), width, height, quality).pixels)
                    ASSERT_EQ(pixel, 0x80402010U) << width << " x " << height;
            }
        }
    }
}

TEST(PixelScaling, OfTheSameSizeIsTheSame)
{
    auto const picture = ramp(13, 11);
    for (auto const quality : qualities)
        EXPECT_EQ(scaled(picture.view(), 13, 11, quality).pixels, picture.pixels);
}

TEST(PixelScaling, TakesTheNearestPixel)
{
    auto picture = ramp(3, 1);
    auto larger = scaled(picture.view(), 9, 1, ScalingQuality::nearest);
    for (int x = 0; x < 9; ++x)
        EXPECT_EQ(larger.at(x, 0), picture.at(x / 3, 0));
    auto smaller = scaled(larger.view(), 3, 1, ScalingQuality::nearest);
    EXPECT_EQ(smaller.pixels, picture.pixels);
}

TEST(PixelScaling, IsLinearBetweenPixelsAndHoldsTheEnds)
{
    auto picture = ramp(2, 2);
    auto larger = scaled(picture.view(), 8, 8, ScalingQuality::linear);
    for (int y = 0; y < 8; ++y) {
        for (int x = 0; x < 8; ++x) {
            auto const expected = [](int place) { return std::clamp((place + 0.5) / 4 - 0.5, 0.0, 1.0) * 255; };
            EXPECT_NEAR(red(larger.at(x, y)), expected(x), 1.01);
            EXPECT_NEAR(green(larger.at(x, y)), expected(y), 1.01);
        }
    }
}

TEST(PixelScaling, IsLinearAtEveryRatio)
{
    Picture picture(7, 1);
    std::uint32_t const values[] { 255, 0, 3, 250, 251, 128, 1 };
    for (int x = 0; x < 7; ++x)
        picture.at(x, 0) = 0xFF000000U | values[x] << 16U | (255 - values[x]) << 8U;
    for (int const width : { 9, 20, 55, 56, 57, 100, 380, 2000 }) {
        auto larger = scaled(picture.view(), width, 1, ScalingQuality::linear);
        for (int x = 0; x < width; ++x) {
            double const place = std::clamp((x + 0.5) * 7 / width - 0.5, 0.0, 6.0);
            int const before = std::min(static_cast<int>(place), 5);
            double const expected = values[before] + (static_cast<double>(values[before + 1]) - values[before]) * (place - before);
            ASSERT_NEAR(red(larger.at(x, 0)), expected, 1.01) << x << " of " << width;
            ASSERT_NEAR(green(larger.at(x, 0)), 255 - expected, 1.01) << x << " of " << width;
            ASSERT_EQ(larger.at(x, 0) >> 24U, 255U);
        }
    }
}

TEST(PixelScaling, AveragesExactlyWhatItCovers)
{
    Picture picture(5, 1);
    for (int x = 0; x < 5; ++x)
        picture.at(x, 0) = 0xFF000000U | static_cast<std::uint32_t>(x * 50) << 16U;
    auto smaller = scaled(picture.view(), 2, 1, ScalingQuality::averaged);
    EXPECT_NEAR(red(smaller.at(0, 0)), (0 + 50 + 100 * 0.5) / 2.5, 1);
    EXPECT_NEAR(red(smaller.at(1, 0)), (100 * 0.5 + 150 + 200) / 2.5, 1);
    auto one = scaled(picture.view(), 1, 1, ScalingQuality::averaged);
    EXPECT_NEAR(red(one.at(0, 0)), 100, 1);
}

TEST(PixelScaling, AveragesAlongBothAxes)
{
    auto picture = ramp(64, 48);
    auto smaller = scaled(picture.view(), 8, 6, ScalingQuality::averaged);
    for (int y = 0; y < 6; ++y) {
        for (int x = 0; x < 8; ++x) {
            EXPECT_NEAR(red(smaller.at(x, y)), (x * 8 + 3.5) * 255 / 63, 2);
            EXPECT_NEAR(green(smaller.at(x, y)), (y * 8 + 3.5) * 255 / 47, 2);
        }
    }
}

TEST(PixelScaling, LeavesPixelsOutWhereOnlyLinearIsAsked)
{
    Picture picture(8, 1);
    for (int x = 0; x < 8; ++x)
        picture.at(x, 0) = x % 4 == 1 || x % 4 == 2 ? 0xFFFFFFFFU : 0xFF000000U;
    EXPECT_EQ(
        scaled(picture.view(), 2, 1, ScalingQuality::linear).pixels, (std::vector<std::uint32_t> { 0xFFFFFFFFU, 0xFFFFFFFFU }));
    EXPECT_NEAR(red(scaled(picture.view(), 2, 1, ScalingQuality::averaged).at(0, 0)), 128, 1);
}

TEST(PixelScaling, SmoothFollowsACubicAndStaysPremultiplied)
{
    Picture picture(4, 1);
    picture.at(1, 0) = 0xFFFFFFFFU;
    picture.at(2, 0) = 0xFFFFFFFFU;
    auto larger = scaled(picture.view(), 32, 1, ScalingQuality::smooth);
    for (int x = 0; x < 32; ++x) {
        auto const pixel = larger.at(x, 0);
        EXPECT_LE(red(pixel), static_cast<int>(pixel >> 24U));
        EXPECT_EQ(pixel, larger.at(31 - x, 0));
    }
    // Between two equal pixels a cubic that has just risen overshoots, which is cut off.
    EXPECT_EQ(larger.at(16, 0), 0xFFFFFFFFU);
    EXPECT_GT(red(larger.at(9, 0)), red(scaled(picture.view(), 32, 1, ScalingQuality::linear).at(9, 0)));
}

TEST(PixelScaling, ReadsRowsInReverseAndOnlyPartsOfThem)
{
    auto picture = ramp(16, 9);
    PixelView const reversed { picture.pixels.data() + 16 * 8, -16, 16, 9 };
    for (auto const quality : qualities) {
        auto whole = scaled(picture.view(), 40, 23, quality);
        auto mirrored = scaled(reversed, 40, 23, quality);
        PixelScaler scaler;
        scaler.prepare(picture.view(), 40, 23, quality);
        for (int y = 0; y < 23; ++y) {
            for (int x = 0; x < 40; ++x)
                EXPECT_NEAR(green(mirrored.at(x, y)), green(whole.at(x, 22 - y)), quality == ScalingQuality::nearest ? 0 : 1);
            if (y < 5)
                continue;
            auto const* part = scaler.row(y, 7, 21);
            EXPECT_TRUE(std::equal(part, part + 14, &whole.at(7, y)));
        }
    }
}

TEST(PixelScaling, TakesSinglePixelsAndExtremeRatios)
{
    for (auto const quality : qualities) {
        auto const single = ramp(1, 1);
        EXPECT_EQ(scaled(single.view(), 300, 1, quality).pixels, std::vector<std::uint32_t>(300, single.pixels[0]));
        auto const line = ramp(20000, 1);
        auto one = scaled(line.view(), 1, 1, quality);
        EXPECT_NEAR(red(one.at(0, 0)), 127, 3);
    }
}

}
}
