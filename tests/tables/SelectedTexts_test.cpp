#include <plix/tables/SelectedTexts.h>

#include <plix/platform/appkit/NSTextFieldCell.h>
#include <plix/platform/graphics/NSAttributedString.h>
#include <plix/platform/graphics/NSFont.h>

#include <gtest/gtest.h>

#include <string>

namespace plix {
namespace {

Ref<NSAttributedString> textOf(SelectedTexts& texts, std::string const& text, float fontSize = 12)
{
    auto const cell = make<NSTextFieldCell>(text);
    cell->setFont(NSFont::systemFontOfSize(fontSize));
    return texts.textOf(*cell);
}

TEST(SelectedTexts, AreMadeOnceForEachTextAndFont)
{
    SelectedTexts texts;
    auto const first = textOf(texts, "same");
    auto const again = textOf(texts, "same");
    auto const larger = textOf(texts, "same", 20);
    auto const other = textOf(texts, "other");
    EXPECT_EQ(first, again);
    EXPECT_NE(first, larger);
    EXPECT_NE(first, other);
    EXPECT_EQ(other->string(), "other");
    EXPECT_EQ(texts.count(), 3U);
}

TEST(SelectedTexts, OfNothingAreNotKept)
{
    SelectedTexts texts;
    EXPECT_EQ(textOf(texts, ""), nullptr);
    EXPECT_EQ(texts.count(), 0U);
}

TEST(SelectedTexts, KeepWhatWasUsedLast)
{
    SelectedTexts texts;
    texts.keepAtMost(3);
    auto const kept = textOf(texts, "0");
    for (int number = 1; number <= 4; ++number) {
        textOf(texts, std::to_string(number));
        textOf(texts, "0");
    }
    EXPECT_EQ(texts.count(), 3U);
    EXPECT_EQ(textOf(texts, "0"), kept);
    texts.keepAtMost(1);
    EXPECT_EQ(texts.count(), 1U);
    EXPECT_EQ(textOf(texts, "0"), kept);
}

TEST(SelectedTexts, MayBeKeptNotAtAll)
{
    SelectedTexts texts;
    texts.keepAtMost(0);
    EXPECT_EQ(textOf(texts, "text")->string(), "text");
    EXPECT_EQ(texts.count(), 0U);
}

TEST(SelectedTexts, TakeBytesThatAreNoText)
{
    SelectedTexts texts;
    auto const made = textOf(texts, "a\xFF");
    EXPECT_GT(made->length(), 1);
    EXPECT_EQ(textOf(texts, "a\xFF"), made);
}

}
}
