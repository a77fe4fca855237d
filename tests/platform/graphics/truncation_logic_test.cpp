#include <plix/platform/graphics/truncation.h>

#include <gtest/gtest.h>
#include <vector>

namespace plix {
namespace {

/// Every character 10 wide, the ellipsis too.
std::string shownOf(std::string_view text, int width, NSLineBreakMode mode, int extra = 0)
{
    std::vector<std::uint32_t> bytes;
    std::vector<std::int32_t> lefts;
    for (std::uint32_t i = 0; i <= text.size(); ++i) {
        bytes.push_back(i);
        lefts.push_back(static_cast<std::int32_t>(i) * 10);
    }
    auto const measure = [extra](std::string_view shown) { return static_cast<int>(shown.size() - 2) * 10 + extra; };
    auto const truncation = truncationToFit({ text, bytes, lefts, 10, width }, mode, measure);
    std::string shown;
    writeTruncated(shown, text, truncation);
    return shown;
}

TEST(Truncation, KeepsWhatFitsAtTheRightEnds)
{
    struct Row {
        char const* text;
        int width;
        char const* head;
        char const* middle;
        char const* tail;
    };
    constexpr Row rows[] {
        { "abcdefghij", 50, "…ghij", "ab…ij", "abcd…" },
        { "abcdefghij", 59, "…ghij", "ab…ij", "abcd…" },
        { "abcdefghij", 60, "…fghij", "ab…hij", "abcde…" },
        { "abcdefghij", 20, "…j", "…j", "a…" },
        { "abcdefghij", 10, "…", "…", "…" },
        { "abcdefghij", 0, "…", "…", "…" },
        { "abcdefghij", -50, "…", "…", "…" },
        { "ab  cd  ef", 50, "…ef", "ab…ef", "ab…" },
        { "    ", 30, "…", "…", "…" },
        { "", 30, "…", "…", "…" },
    };
    for (auto const& row : rows) {
        EXPECT_EQ(shownOf(row.text, row.width, NSLineBreakByTruncatingHead), row.head) << row.text << row.width;
        EXPECT_EQ(shownOf(row.text, row.width, NSLineBreakByTruncatingMiddle), row.middle) << row.text << row.width;
        EXPECT_EQ(shownOf(row.text, row.width, NSLineBreakByTruncatingTail), row.tail) << row.text << row.width;
    }
}

TEST(Truncation, GivesUpMoreWhereKerningTakesRoom)
{
    EXPECT_EQ(shownOf("abcdefghij", 50, NSLineBreakByTruncatingTail, 1), "abc…");
    EXPECT_EQ(shownOf("abcdefghij", 50, NSLineBreakByTruncatingTail, 1000), "…");
}

}
}
