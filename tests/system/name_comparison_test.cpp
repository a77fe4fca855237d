#include <plix/system/name_comparison.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace plix {
namespace {

using Text = std::optional<std::string_view>;

TEST(PLIXCompareDirectoryContents, OrdersNumbersByValueWithoutRegardToCase)
{
    struct Row {
        Text a;
        Text b;
        NSComparisonResult result;
    };
    for (auto const& row : {
             Row { "File 9", "File 10", NSOrderedAscending },
             Row { "file 10", "FILE 9", NSOrderedDescending },
             Row { "File", "fILE", NSOrderedSame },
             Row { "a", "b", NSOrderedAscending },
             Row { "B", "a", NSOrderedDescending },
             Row { "a", "a ", NSOrderedAscending },
             Row { "", "a", NSOrderedAscending },
             Row { "", "", NSOrderedSame },
             Row { "7a", "007a", NSOrderedSame },
             Row { "x99999999999999999999y", "x100000000000000000000y", NSOrderedAscending },
             Row { "\xC3\x84pfel", "\xC3\xA4PFEL", NSOrderedSame },
             Row { std::nullopt, "a", NSOrderedSame },
             Row { "a", std::nullopt, NSOrderedSame },
             Row { std::nullopt, std::nullopt, NSOrderedSame },
         })
        EXPECT_EQ(PLIXCompareDirectoryContents(row.a, row.b), row.result) << row.a.value_or("nil") << " " << row.b.value_or("nil");
}

TEST(PLIXCompareDirectoryContents, SortsAListing)
{
    std::vector<std::string> names { "img12.png", "IMG2.png", "img1.png", "Zebra", "apple", "img10.png", "10", "9" };
    std::sort(names.begin(), names.end(), [](auto const& a, auto const& b) { return PLIXCompareDirectoryContents(a, b) < 0; });
    EXPECT_EQ(names, (std::vector<std::string> { "9", "10", "apple", "img1.png", "IMG2.png", "img10.png", "img12.png", "Zebra" }));
}

TEST(PLIXCompareLastPathComponent, CollatesAsAFileBrowserDoes)
{
    struct Row {
        Text a;
        Text b;
        NSComparisonResult result;
    };
    for (auto const& row : {
             Row { "file2", "file10", NSOrderedAscending },
             Row { "File2", "file2", NSOrderedSame },
             Row { "resume", "r\xC3\xA9sum\xC3\xA9", NSOrderedAscending },
             Row { "\xC3\xA9", "e\xCC\x81", NSOrderedSame }, // composed and not
             Row { "\xEF\xBC\xA1", "a", NSOrderedSame }, // full width
             Row { "a b", "ab", NSOrderedAscending },
             Row { "a-b", "ab", NSOrderedAscending },
             Row { "file 002", "file 2", NSOrderedSame },
             Row { "b", "a", NSOrderedDescending },
             Row { "a", "\xC3\xA4", NSOrderedAscending },
             Row { "\xC3\xA4", "b", NSOrderedAscending },
             Row { "", "", NSOrderedSame },
             Row { "", "a", NSOrderedAscending },
             Row { std::nullopt, "a", NSOrderedSame },
             Row { "a", std::nullopt, NSOrderedSame },
         })
        EXPECT_EQ(PLIXCompareLastPathComponent(row.a, row.b), row.result) << row.a.value_or("nil") << " " << row.b.value_or("nil");
}

TEST(PLIXCompareLastPathComponent, LooksAtTheFirst1024Units)
{
    for (std::string const unit : { "a", "\xC3\xA4", "\xE2\x82\xAC" }) {
        std::string start;
        for (int i = 0; i < 1023; ++i)
            start += unit;
        EXPECT_EQ(PLIXCompareLastPathComponent(start + "a", start + "b"), NSOrderedAscending);
        EXPECT_EQ(PLIXCompareLastPathComponent(start + "xa", start + "xb"), NSOrderedSame);
        EXPECT_EQ(PLIXCompareLastPathComponent(start + "x" + std::string(100000, 'y'), start + "x"), NSOrderedSame);
    }
}

TEST(PLIXCompareLastPathComponent, TakesHostileBytes)
{
    std::string const half = "\xF0\x9F";
    EXPECT_EQ(PLIXCompareLastPathComponent(half, half), NSOrderedSame);
    EXPECT_EQ(PLIXCompareLastPathComponent("a" + half, "b" + half), NSOrderedAscending);
    // The last unit that counts is one half of a pair.
    auto const split = std::string(1023, 'a') + "\xF0\x9F\x8D\x8E";
    EXPECT_EQ(PLIXCompareLastPathComponent(split, split + "b"), NSOrderedSame);
}

}
}
