#include <plix/format/attributed_string_additions.h>

#include <plix/platform/graphics/NSMutableAttributedString.h>

#include <gtest/gtest.h>

namespace plix {
namespace {

TEST(AttributedStringAdditions, AnswerTheFirstCharactersAttribute)
{
    auto const string = make<NSMutableAttributedString>("abc");
    string->addAttribute("colour", "red", { 0, 1 });
    string->addAttribute("size", 9, { 1, 2 });
    EXPECT_EQ(attribute(*string, "colour"), "red");
    EXPECT_TRUE(attribute(*string, "size").isNil());
    EXPECT_TRUE(attribute(*make<NSAttributedString>(""), "colour").isNil());
}

TEST(AttributedStringAdditions, ReplaceAnAttributeInEveryRun)
{
    auto const string = make<NSMutableAttributedString>("aabbccdd");
    string->setAttributes({ { "colour", "red" }, { "size", 9 } }, { 0, 2 });
    string->setAttributes({ { "size", 12 } }, { 2, 2 });
    string->setAttributes({ { "colour", "green" } }, { 6, 2 });
    replaceAttribute(*string, "colour", "blue");
    Attributes const wanted[] { { { "colour", "blue" }, { "size", 9 } }, { { "colour", "blue" }, { "size", 12 } },
        { { "colour", "blue" } }, { { "colour", "blue" } } };
    for (long i = 0; i < 8; ++i)
        EXPECT_EQ(string->attributesAtIndex(i), wanted[i / 2]) << i;
    EXPECT_EQ(string->string(), "aabbccdd");
}

TEST(AttributedStringAdditions, ReplaceNothingInAnEmptyString)
{
    auto const string = make<NSMutableAttributedString>("");
    replaceAttribute(*string, "colour", "blue");
    EXPECT_EQ(string->length(), 0);
}

}
}
