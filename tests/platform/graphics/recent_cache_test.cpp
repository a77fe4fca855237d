#include <plix/platform/graphics/recent_cache.h>

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace plix {
namespace {

using Texts = RecentCache<double, std::string>;

std::string kept(Texts& texts)
{
    std::string all;
    for (double key : { 1., 2., 3., 4. }) {
        if (auto const* const found = texts.find(key))
            all += *found;
    }
    return all;
}

TEST(RecentCache, DropsWhatWasAskedForLongestAgo)
{
    Texts texts(3, 100);
    texts.keep(1, "a", 10);
    texts.keep(2, "b", 10);
    texts.keep(3, "c", 10);
    texts.find(1);
    texts.keep(4, "d", 10);
    EXPECT_EQ(kept(texts), "acd");
    EXPECT_EQ(texts.count(), 3U);
    EXPECT_EQ(texts.bytes(), 30U);
}

TEST(RecentCache, DropsAsManyAsItsBytesAsk)
{
    Texts texts(10, 100);
    texts.keep(1, "a", 40);
    texts.keep(2, "b", 40);
    texts.keep(3, "c", 20);
    EXPECT_EQ(kept(texts), "abc");
    texts.keep(4, "d", 60);
    EXPECT_EQ(kept(texts), "cd");
    EXPECT_EQ(texts.bytes(), 80U);
}

TEST(RecentCache, PutsANewValueInPlaceOfTheEarlier)
{
    Texts texts(2, 100);
    texts.keep(1, "a", 40);
    texts.keep(2, "b", 30);
    texts.keep(1, "c", 10);
    EXPECT_EQ(kept(texts), "cb");
    EXPECT_EQ(texts.bytes(), 40U);
    texts.keep(1, "too large", 101);
    EXPECT_EQ(kept(texts), "b");
    EXPECT_EQ(texts.bytes(), 30U);
}

TEST(RecentCache, KeepsNothingThatCanNotBeFoundAgain)
{
    Texts texts(1, 100);
    texts.keep(1, "a", 10);
    texts.keep(std::numeric_limits<double>::quiet_NaN(), "b", 10);
    EXPECT_EQ(kept(texts), "a");
    EXPECT_EQ(texts.bytes(), 10U);
}

TEST(RecentCache, OfNoValuesKeepsNone)
{
    Texts texts(0, 100);
    texts.keep(1, "a", 10);
    EXPECT_EQ(texts.count(), 0U);
    EXPECT_EQ(texts.find(1), nullptr);
}

}
}
