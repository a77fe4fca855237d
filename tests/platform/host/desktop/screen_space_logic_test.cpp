#include <plix/platform/host/desktop/screen_space.h>

#include <gtest/gtest.h>

namespace plix {
namespace {

ScreenSpace const s_plain { 1, { 0, 0, 1280, 1024 } };
ScreenSpace const s_doubled { 2, { 0, 0, 1280, 1024 } };
// The main screen stands right of and below another one's upper left corner.
ScreenSpace const s_shifted { 1, { 800, 100, 1280, 1024 } };

TEST(ScreenSpace, TurnsPixelsIntoPointsFromTheLowerLeftOfTheMainScreen)
{
    EXPECT_EQ(s_plain.pointAtPixel(0, 1024), (Point { 0, 0 }));
    EXPECT_EQ(s_plain.pointAtPixel(10, 20), (Point { 10, 1004 }));
    EXPECT_EQ(s_doubled.pointAtPixel(10, 20), (Point { 5, 502 }));
    EXPECT_EQ(s_shifted.pointAtPixel(0, 0), (Point { -800, 1124 }));
}

TEST(ScreenSpace, TranslatesRectanglesBothWays)
{
    struct Row {
        ScreenSpace space;
        PixelRect pixels;
        Rect rect;
    };
    Row const rows[] = {
        { s_plain, { 100, 200, 300, 400 }, { 100, 424, 300, 400 } },
        { s_doubled, { 100, 200, 300, 400 }, { 50, 212, 150, 200 } },
        { s_shifted, { 0, 0, 800, 600 }, { -800, 524, 800, 600 } },
        { s_plain, { -50, 1000, 10, 100 }, { -50, -76, 10, 100 } },
    };
    for (auto const& row : rows) {
        EXPECT_EQ(row.space.rectFromPixels(row.pixels), row.rect);
        EXPECT_EQ(row.space.pixelsFromRect(row.rect), row.pixels);
    }
}

TEST(ScreenSpace, NeighboursStayNeighboursWhereSidesAreRounded)
{
    ScreenSpace const space { 1.5F, { 0, 0, 1000, 1000 } };
    auto const left = space.pixelsFromRect({ 0, 0, 33, 33 });
    auto const right = space.pixelsFromRect({ 33, 33, 33, 33 });
    EXPECT_EQ(left.x + left.width, right.x);
    EXPECT_EQ(right.y + right.height, left.y);
}

TEST(ScreenSpace, KeepsWildValuesWithinBounds)
{
    EXPECT_LE(s_plain.pixelsFromRect({ 1e30F, 0, 1, 1 }).x, 1'000'000);
    EXPECT_GE(s_plain.pixelsFromRect({ -1e30F, 0, 1, 1 }).x, -1'000'000);
}

TEST(ScreenSpace, GivesAPartOfAWindowInItsContentsPoints)
{
    EXPECT_EQ(contentRectFromPixels({ 10, 20, 30, 40 }, 200, 1), (Rect { 10, 140, 30, 40 }));
    EXPECT_EQ(contentRectFromPixels({ 10, 20, 30, 40 }, 200, 2), (Rect { 5, 70, 15, 20 }));
}

TEST(ScreenSpace, ClipsToAWindow)
{
    struct Row {
        PixelRect rect;
        PixelRect clipped;
    };
    Row const rows[] = {
        { { 0, 0, 100, 50 }, { 0, 0, 100, 50 } },
        { { -10, -10, 30, 30 }, { 0, 0, 20, 20 } },
        { { 90, 40, 30, 30 }, { 90, 40, 10, 10 } },
        { { 200, 10, 30, 30 }, { 100, 10, 0, 30 } },
        { { -50, -50, 10, 10 }, { 0, 0, 0, 0 } },
        { { 10, 10, -5, -5 }, { 10, 10, 0, 0 } },
    };
    for (auto const& row : rows)
        EXPECT_EQ(clippedToSize(row.rect, 100, 50), row.clipped);
}

TEST(ScreenSpace, ChoosesTheScale)
{
    struct Row {
        std::optional<std::string_view> environment;
        std::optional<std::string_view> dotsPerInch;
        float scale;
    };
    Row const rows[] = {
        { {}, {}, 1 },
        { {}, "96", 1 },
        { {}, "192", 2 },
        { {}, "120", 1.25F },
        { "2", "96", 2 },
        { "1.5", {}, 1.5F },
        { "", "192", 2 },
        { "much", "192", 2 },
        { "0", "192", 2 },
        { "-1", {}, 1 },
        { "100", {}, 1 },
        { "nan", {}, 1 },
        { {}, "7", 1 },
        { {}, "9600", 1 },
        { "0.5", {}, 0.5F },
        { "8", {}, 8 },
    };
    for (auto const& row : rows)
        EXPECT_EQ(chosenScale(row.environment, row.dotsPerInch), row.scale)
            << row.environment.value_or("-") << ' ' << row.dotsPerInch.value_or("-");
}

}
}
