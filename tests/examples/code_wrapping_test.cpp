#include <examples/gallery/code_wrapping.h>

#include <gtest/gtest.h>

namespace gallery {
namespace {

TEST(CodeWrapping, BreaksWhereAProgrammerWould)
{
    struct Case {
        char const* code;
        long columns;
        char const* wrapped;
    };
    for (auto const& [code, columns, wrapped] : {
             Case { "", 10, "" },
             Case { "short", 5, "short" },
             Case { "one, two, three", 10, "one, two,\n    three" },
             Case { "object->isKindOfClass(aClass)", 24, "object->isKindOfClass(\n    aClass)" },
             Case { "object->doThis()->doThat()", 22, "object->doThis()\n    ->doThat()" },
             Case { "abcdefghijklmnopqr", 12, "abcdefghijkl\n    mnopqr" },
             Case { "abcdefghijklmnopqrstuv", 12, "abcdefghijkl\n    mnopqrst\n    uv" },
             Case { "one two\nthree", 20, "one two\nthree" },
             Case { "call( one, \"( two\")", 30, "call(one, \"( two\")" },
             Case { "ä, ö, ü, ß", 6, "ä, ö,\n    ü, ß" },
         })
        EXPECT_EQ(wrappedCode(code, columns), wrapped) << code;
}

TEST(CodeWrapping, EndsAtAnyWidth)
{
    for (long columns = -1; columns < 30; ++columns)
        EXPECT_NE(wrappedCode("transcript->show(\"a 𝔸 b\", value.at(4, 5))", columns), "") << columns;
}

}
}
