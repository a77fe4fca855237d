#include <plix/platform/graphics/pixel_operations.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace plix {
namespace {

constexpr int levels[] { 0, 1, 7, 64, 127, 128, 200, 254, 255 };

/// Premultiplied greys of every combination of these levels.
std::vector<std::uint32_t> samplePixels()
{
    std::vector<std::uint32_t> pixels;
    for (int const alpha : levels) {
        for (int const value : levels) {
            auto const channel = static_cast<std::uint32_t>((alpha * value + 127) / 255);
            auto const other = static_cast<std::uint32_t>(alpha) - channel;
            pixels.push_back(static_cast<std::uint32_t>(alpha) << 24U | channel << 16U | other << 8U | channel / 2);
        }
    }
    return pixels;
}

int channel(std::uint32_t pixel, unsigned index)
{
    return static_cast<int>(pixel >> 8 * index & 255U);
}

TEST(PixelOperations, DividesBy255RoundingToTheNearest)
{
    for (std::uint32_t value = 0; value <= 255U * 255U; ++value)
        ASSERT_EQ(dividedBy255(value), static_cast<std::uint32_t>(std::lround(value / 255.0)));
}

TEST(PixelOperations, ScalesEveryChannel)
{
    for (auto const pixel : samplePixels()) {
        for (int const factor : levels) {
            auto const result = scaledPixel(pixel, static_cast<std::uint32_t>(factor));
            for (unsigned i = 0; i < 4; ++i)
                ASSERT_EQ(channel(result, i), std::lround(channel(pixel, i) * factor / 255.0));
        }
    }
}

TEST(PixelOperations, BlendsOverByTheFormula)
{
    auto const sources = samplePixels();
    for (int const fraction : { 0, 100, 255 }) {
        for (auto const under : sources) {
            std::vector<std::uint32_t> row(sources.size(), under);
            blendRowOver(row.data(), sources.data(), static_cast<int>(sources.size()), static_cast<std::uint32_t>(fraction));
            for (std::size_t at = 0; at < row.size(); ++at) {
                double const alpha = channel(sources[at], 3) * fraction / 255.0;
                for (unsigned i = 0; i < 4; ++i) {
                    double const expected = channel(sources[at], i) * fraction / 255.0 + channel(under, i) * (1 - alpha / 255);
                    ASSERT_NEAR(channel(row[at], i), expected, fraction == 255 ? 1.01 : 1.6);
                }
            }
        }
    }
}

TEST(PixelOperations, GiveTheSameForAnyNumberOfPixels)
{
    auto const sources = samplePixels();
    auto const under = std::vector<std::uint32_t>(sources.rbegin(), sources.rend());
    auto const run = [&](auto operation, int count) {
        auto row = under;
        operation(row.data(), sources.data(), count);
        return row;
    };
    auto const over = [](auto* to, auto const* from, int count) { blendRowOver(to, from, count, 200); };
    auto const copy = [](auto* to, auto const* from, int count) { copyRow(to, from, count, 200); };
    auto const recolor = [](auto* to, auto const* from, int count) { recolorRow(to, from, count, 0x80402010U); };
    for (int count = 0; count <= 9; ++count) {
        for (auto const& [all, some] : { std::pair { run(over, 81), run(over, count) }, { run(copy, 81), run(copy, count) },
                 { run(recolor, 81), run(recolor, count) } }) {
            EXPECT_TRUE(std::equal(some.begin(), some.begin() + count, all.begin())) << count;
            EXPECT_TRUE(std::equal(some.begin() + count, some.end(), under.begin() + count)) << count;
        }
    }
}

TEST(PixelOperations, RecolorsByTheFormulaOfDestinationAtop)
{
    auto const sources = samplePixels();
    for (auto const color : samplePixels()) {
        std::vector<std::uint32_t> row(sources.size());
        recolorRow(row.data(), sources.data(), static_cast<int>(sources.size()), color);
        for (std::size_t at = 0; at < row.size(); ++at) {
            for (unsigned i = 0; i < 4; ++i) {
                double const expected = channel(sources[at], i) * (1 - channel(color, 3) / 255.0)
                    + channel(color, i) * (channel(sources[at], 3) / 255.0);
                ASSERT_NEAR(channel(row[at], i), expected, 1.01);
            }
        }
    }
}

TEST(PixelOperations, CopiesTimesAFraction)
{
    auto const sources = samplePixels();
    std::vector<std::uint32_t> row(sources.size());
    copyRow(row.data(), sources.data(), static_cast<int>(sources.size()), 255);
    EXPECT_EQ(row, sources);
    copyRow(row.data(), sources.data(), static_cast<int>(sources.size()), 0);
    EXPECT_EQ(row, std::vector<std::uint32_t>(sources.size()));
}

TEST(PixelOperations, AddsUpToWhite)
{
    EXPECT_EQ(saturatedSum(0x01FF80F0U, 0x02018020U), 0x03FFFFFFU);
}

}
}
