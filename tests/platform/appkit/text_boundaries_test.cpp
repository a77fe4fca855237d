#include <plix/platform/appkit/text_boundaries.h>

#include <gtest/gtest.h>

#include <string>

namespace plix {
namespace {

std::string part(std::string_view text, TextExtent extent)
{
    return std::string(text.substr(extent.first, extent.end - extent.first));
}

TEST(TextBoundaries, AWordEndsWhereLettersDigitsAndMarksEnd)
{
    struct Row {
        std::string_view text;
        std::size_t from;
        std::size_t expected;
    };
    Row const rows[] = {
        { "", 0, 0 },
        { "one two", 0, 3 },
        { "one two", 2, 3 },
        { "one two", 3, 7 },
        { "one two", 7, 7 },
        { "one two", 99, 7 },
        { "  ,; ", 0, 5 },
        { "x_1-y", 0, 3 },
        { "don't go", 0, 5 },
        { "rock 'n' roll", 4, 7 },
        { "na\xC3\xAFve text", 0, 6 },
        { "e\xCC\x81t\xC3\xA9 x", 0, 6 },
        { "\xD8\xB3\xD9\x84\xD8\xA7\xD9\x85 x", 0, 8 },
    };
    for (auto const& row : rows)
        EXPECT_EQ(nextWordEnd(row.text, row.from), row.expected) << row.text << " from " << row.from;
}

TEST(TextBoundaries, AWordStartsBehindWhatIsNone)
{
    struct Row {
        std::string_view text;
        std::size_t from;
        std::size_t expected;
    };
    Row const rows[] = {
        { "", 0, 0 },
        { "one two", 7, 4 },
        { "one two", 5, 4 },
        { "one two", 4, 0 },
        { "one two", 0, 0 },
        { "one two  ", 9, 4 },
        { "one two", 99, 4 },
        { " ,;", 3, 0 },
        { "it's", 4, 0 },
        { "l\xE2\x80\x99"
          "eau",
            7, 0 },
        { "a\nb", 2, 0 },
    };
    for (auto const& row : rows)
        EXPECT_EQ(previousWordStart(row.text, row.from), row.expected) << row.text << " from " << row.from;
}

TEST(TextBoundaries, ADoubleClickTakesAWordOrBlanksOrOneOther)
{
    struct Row {
        std::string_view text;
        std::size_t at;
        std::string_view expected;
    };
    Row const rows[] = {
        { "", 0, "" },
        { "one two", 1, "one" },
        { "one two", 4, "two" },
        { "one two", 7, "two" },
        { "one   two", 4, "   " },
        { "a+b", 1, "+" },
        { "a++b", 1, "+" },
        { "can't", 3, "can't" },
        { "one\ntwo", 3, "one" },
        { "\n\n", 1, "\n" },
        { "x \xF0\x9F\x91\xA9\xE2\x80\x8D\xF0\x9F\x91\xA7 y", 3, "\xF0\x9F\x91\xA9\xE2\x80\x8D\xF0\x9F\x91\xA7" },
        { "a\xC3\xA9"
          "b c",
            2,
            "a\xC3\xA9"
            "b" },
    };
    for (auto const& row : rows)
        EXPECT_EQ(part(row.text, wordAround(row.text, row.at)), row.expected) << row.text << " at " << row.at;
}

TEST(TextBoundaries, AParagraphHoldsItsLineEnd)
{
    struct Row {
        std::string_view text;
        std::size_t at;
        std::string_view expected;
    };
    Row const rows[] = {
        { "", 0, "" },
        { "one", 3, "one" },
        { "one\ntwo", 0, "one\n" },
        { "one\ntwo", 3, "one\n" },
        { "one\ntwo", 4, "two" },
        { "one\n", 4, "" },
        { "a\r\nb", 2, "a\r\n" },
        { "a\r\nb", 3, "b" },
        { "a\rb", 1, "a\r" },
        { "a\xE2\x80\xA9"
          "b",
            4, "b" },
        { "\n\n\n", 1, "\n" },
    };
    for (auto const& row : rows)
        EXPECT_EQ(part(row.text, paragraphAround(row.text, row.at)), row.expected) << row.text << " at " << row.at;
}

}
}
