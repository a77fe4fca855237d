#include <plix/platform/host/ClickCounter.h>

#include <gtest/gtest.h>

namespace plix {
namespace {

using Press = ClickCounter::Press;

struct Row {
    char const* what;
    Press first;
    Press second;
    int count;
};

TEST(ClickCounter, CountsPressesThatBelongTogether)
{
    Row const rows[] = {
        { "the same place at once", { 1, 0, 1000, 50, 50 }, { 1, 0, 1000, 50, 50 }, 2 },
        { "just in time", { 1, 0, 1000, 50, 50 }, { 1, 0, 1500, 50, 50 }, 2 },
        { "too late", { 1, 0, 1000, 50, 50 }, { 1, 0, 1501, 50, 50 }, 1 },
        { "just near enough", { 1, 0, 1000, 50, 50 }, { 1, 0, 1100, 55, 45 }, 2 },
        { "too far to the right", { 1, 0, 1000, 50, 50 }, { 1, 0, 1100, 56, 50 }, 1 },
        { "too far up", { 1, 0, 1000, 50, 50 }, { 1, 0, 1100, 50, 44 }, 1 },
        { "another button", { 1, 0, 1000, 50, 50 }, { 1, 1, 1100, 50, 50 }, 1 },
        { "another window", { 1, 0, 1000, 50, 50 }, { 2, 0, 1100, 50, 50 }, 1 },
        { "across the clock's overflow", { 1, 0, 0xFFFFFF00, 50, 50 }, { 1, 0, 0x10, 50, 50 }, 2 },
    };
    for (auto const& row : rows) {
        ClickCounter counter(500, 5);
        EXPECT_EQ(counter.press(row.first), 1) << row.what;
        EXPECT_EQ(counter.press(row.second), row.count) << row.what;
        EXPECT_EQ(counter.count(), row.count) << row.what;
    }
}

TEST(ClickCounter, GoesOnBeyondTwo)
{
    ClickCounter counter(500, 5);
    int last = 0;
    for (std::uint32_t time = 0; time < 400; time += 100)
        last = counter.press({ 1, 0, time, 0, 0 });
    EXPECT_EQ(last, 4);
}

TEST(ClickCounter, TheFirstPressOfAllIsASingleOne)
{
    ClickCounter counter(500, 5);
    EXPECT_EQ(counter.press({}), 1);
}

}
}
