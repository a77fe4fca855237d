#include <plix/platform/foundation/strings_file.h>

#include <plix/platform/base/utf16.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace plix {
namespace {

using testing::IsEmpty;
using testing::Pair;
using testing::UnorderedElementsAre;
using Table = std::map<std::string, std::string>;

std::optional<Table> parse(std::string_view text, std::string* reason = nullptr)
{
    std::string error;
    auto table = parseStringsFile({ reinterpret_cast<std::uint8_t const*>(text.data()), text.size() }, error);
    EXPECT_EQ(error.empty(), table.has_value()) << text;
    if (reason)
        *reason = error;
    return table;
}

TEST(StringsFile, ReadsPairsAndComments)
{
    auto const table
        = parse("/* a comment */\n\"day\" = \"Tag\";\n// another\nhours=\"Stunden\" ; \"only\";\n'x y' = z-1.5/b; /**/");
    ASSERT_TRUE(table);
    EXPECT_THAT(
        *table, UnorderedElementsAre(Pair("day", "Tag"), Pair("hours", "Stunden"), Pair("only", "only"), Pair("x y", "z-1.5/b")));
    EXPECT_THAT(*parse(""), IsEmpty());
    EXPECT_THAT(*parse(" // nothing"), IsEmpty());
    EXPECT_EQ(parse("a=1;a=2;")->at("a"), "2");
    EXPECT_EQ(parse("a/*x*/=b//y\n;")->at("a"), "b");
}

TEST(StringsFile, ReadsEscapes)
{
    struct {
        char const* text;
        char const* value;
    } const rows[] = {
        { R"(\n\r\t\a\b\f\v)", "\n\r\t\a\b\f\v" },
        { R"(\"\\\'\/)", "\"\\'/" },
        { R"(\101\351x)", "Aéx" },
        { R"(\U00E9\u20ACx)", "é€x" },
        { R"(\UD83D\UDE00)", "😀" },
        { R"(\UD83Dx)", "\uFFFDx" },
        { R"(\U41)", "A" },
        { R"(\108)", "\b8" },
        { R"(\U4G)", "\x04G" },
        { R"(\q)", "q" },
        { "a\nb", "a\nb" },
        { "// no comment", "// no comment" },
    };
    for (auto const& row : rows)
        EXPECT_EQ(parse(std::string("k = \"") + row.text + "\";")->at("k"), row.value) << row.text;
}

TEST(StringsFile, ReadsItsEncodings)
{
    EXPECT_EQ(parse("\xEF\xBB\xBFk = \"é\";")->at("k"), "é");
    EXPECT_EQ(parse("k = \"\xFF\";")->at("k"), "\uFFFD");
    for (bool const isBigEndian : { true, false }) {
        std::string bytes;
        for (auto const unit : utf16FromUTF8("\uFEFF\"k\" = \"é😀\";")) {
            char const high = static_cast<char>(unit >> 8), low = static_cast<char>(unit & 0xFF);
            bytes += isBigEndian ? high : low;
            bytes += isBigEndian ? low : high;
        }
        EXPECT_EQ(parse(bytes)->at("k"), "é😀");
    }
}

TEST(StringsFile, SaysWhereItIsDamaged)
{
    struct {
        char const* text;
        char const* reason;
    } const rows[] = {
        { "\"a\" = \"b\"", "line 1: a semicolon is missing" },
        { "\"a\" = \"b\";\n\"c\"", "line 2: a semicolon is missing" },
        { "\"a\" = ;", "line 1: a string is missing" },
        { "= \"b\";", "line 1: a string is missing" },
        { "\n\n\"a", "line 3: a string does not end" },
        { "\"a\\", "line 1: a string does not end" },
        { "\"a\" /* = \"b\";", "line 1: a comment does not end" },
        { "a b;", "line 1: a semicolon is missing" },
        { ";", "line 1: a string is missing" },
    };
    for (auto const& row : rows) {
        std::string reason;
        EXPECT_FALSE(parse(row.text, &reason)) << row.text;
        EXPECT_EQ(reason, row.reason) << row.text;
    }
}

}
}
