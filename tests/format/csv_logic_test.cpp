#include <plix/format/csv_line.h>

#include <tests/format/csv_definition.h>

#include <gtest/gtest.h>

#include <random>

namespace plix {
namespace {

using Fields = std::vector<std::string>;

TEST(CSVLineComponents, SplitsTheStatedLines)
{
    struct Row {
        char const* line;
        Fields fields;
    };
    for (auto const& row : {
             Row { "a,b,c", { "a", "b", "c" } },
             Row { R"(x,"1,2",y)", { "x", "1,2", "y" } },
             Row { R"(x,"say ""hi""",y)", { "x", R"(say ""hi"")", "y" } },
             Row { R"(x,a""b,y)", { "x", "a\"b", "y" } },
             Row { R"("a,b",c)", { "a", "b", "c" } },
             Row { "a,b\nc,d", { "a", "b\n" } },
             Row { "a,b\r\nc,d", { "a", "b\r" } },
             Row { "", { "" } },
             Row { ",", { "", "" } },
             Row { "a,", { "a", "" } },
             Row { "\n", { "\n" } },
             Row { "x,\"1\n2\",y", { "x", "1\n2", "y" } },
             Row { "x,\"open", { "x", "open" } },
             Row { "x,\"open\"", { "x", "open" } },
             Row { R"(x,"a"b",y)", { "x", "a\"b", "y" } },
             Row { "x,\"\"", { "x", "" } },
             Row { R"(x,"",y)", { "x", "", "y" } },
             Row { R"(x,"""",y)", { "x", "\"\"", "y" } },
             Row { "a\"b,c", { "ab", "c" } },
             Row { "x, \"1,2\",y", { "x", " 1", "2", "y" } },
             Row { "gr\xC3\xBC\xC3\x9F"
                   "e,\xF0\x9F\x8D\x8E",
                 { "gr\xC3\xBC\xC3\x9F"
                   "e",
                     "\xF0\x9F\x8D\x8E" } },
         })
        EXPECT_EQ(CSVLineComponents(row.line), row.fields) << row.line;
}

TEST(CSVLineComponents, KeepsZeroBytes)
{
    using namespace std::string_view_literals;
    EXPECT_EQ(CSVLineComponents("a\0b,\0"sv), (Fields { std::string("a\0b"sv), std::string("\0"sv) }));
}

TEST(CSVLineComponents, EqualsTheDefinitionForEveryShortLine)
{
    constexpr std::string_view alphabet = ",\"\r\na";
    for (std::size_t length = 0, count = 1; length <= 7; ++length, count *= alphabet.size()) {
        for (std::size_t number = 0; number < count; ++number) {
            std::string line;
            for (std::size_t i = 0, rest = number; i < length; ++i, rest /= alphabet.size())
                line += alphabet[rest % alphabet.size()];
            ASSERT_EQ(CSVLineComponents(line), test::fieldsByDefinition(line)) << testing::PrintToString(line);
        }
    }
}

TEST(CSVLineComponents, EqualsTheDefinitionForLongLines)
{
    std::mt19937 random(1);
    constexpr std::string_view alphabet = ",,,,\"\"\"\r\nabcdefgh\x80\xFF,-.+!#";
    for (int round = 0; round < 20000; ++round) {
        std::string line;
        auto const plain = 1 + random() % 12;
        for (auto length = random() % 90; length > 0; --length)
            line += random() % plain == 0 ? alphabet[random() % alphabet.size()] : 'x';
        ASSERT_EQ(CSVLineComponents(line), test::fieldsByDefinition(line)) << testing::PrintToString(line);
    }
}

}
}
