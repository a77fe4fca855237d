#include <plix/platform/base/RecentlyUsed.h>

#include <gtest/gtest.h>

#include <new>
#include <string>
#include <string_view>

namespace plix {
namespace {

struct Word {
    std::string text;
    int value { 0 };

    std::string_view key() const { return text; }
};

std::string dropAll(RecentlyUsed<Word>& words)
{
    std::string order;
    while (words.size() > 0) {
        order += words.oldest().text;
        words.dropOldest();
    }
    return order;
}

TEST(RecentlyUsed, FindsByWhatItsEntriesOwn)
{
    RecentlyUsed<Word> words;
    std::string text = "a word that is too long to lie within its string";
    words.add({ text, 1 });
    auto const& second = words.add({ "b", 2 });
    text[0] = 'c';
    auto const* const missing = words.find(text);
    text[0] = 'a';
    auto const* const found = words.find(text);
    EXPECT_EQ(missing, nullptr);
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found->value, 1);
    EXPECT_EQ(words.find("b"), &second);
    EXPECT_EQ(words.size(), 2U);
}

TEST(RecentlyUsed, DropsInTheOrderOfTheLastUse)
{
    RecentlyUsed<Word> words;
    for (char const* text : { "a", "b", "c", "d" })
        words.add({ text });
    words.find("b");
    words.find("a");
    words.find("nobody");
    EXPECT_EQ(dropAll(words), "cdba");
    EXPECT_EQ(words.find("a"), nullptr);
}

TEST(RecentlyUsed, DropsOneOutOfTurn)
{
    RecentlyUsed<Word> words;
    for (char const* text : { "a", "b", "c" })
        words.add({ text });
    words.drop(*words.find("b"));
    EXPECT_EQ(words.find("b"), nullptr);
    EXPECT_EQ(dropAll(words), "ac");
}

TEST(RecentlyUsed, AddsNothingWhenItThrows)
{
    struct RefusingHash {
        std::size_t operator()(std::string_view text) const
        {
            if (text == "refused")
                throw std::bad_alloc();
            return text.size();
        }
    };
    RecentlyUsed<Word, RefusingHash> words;
    words.add({ "a" });
    EXPECT_THROW(words.add({ "refused" }), std::bad_alloc);
    EXPECT_EQ(words.size(), 1U);
    EXPECT_EQ(words.oldest().text, "a");
}

TEST(RecentlyUsed, BeginsAnewOnceItIsEmpty)
{
    RecentlyUsed<Word> words;
    words.add({ "a", 1 });
    words.clear();
    auto const* const gone = words.find("a");
    words.add({ "a", 2 });
    EXPECT_EQ(gone, nullptr);
    EXPECT_EQ(words.find("a")->value, 2);
    EXPECT_EQ(words.size(), 1U);
}

}
}
