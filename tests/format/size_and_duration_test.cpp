#include <plix/format/size_and_duration.h>

#include <plix/platform/foundation/NSProcessInfo.h>

#include <tests/support/TestFolder.h>
#include <tests/support/TestSurroundings.h>

#include <gtest/gtest.h>

namespace plix {
namespace {

// In a process of its own, since the main bundle is found only once.
[[noreturn]] void exitWithGermanText(double interval)
{
    std::string text;
    {
        TestFolder folder;
        auto const program = NSProcessInfo::processInfo().processName();
        folder.write(program + "/de.lproj/Localizable.strings",
            "\"day\" = \"Tag\"; \"hours\" = \"Stunden\"; \"minute\" = \"Minute\"; \"seconds\" = \"Sekunden\";");
        TestSurroundings surroundings;
        surroundings.sharedData = { folder.path() };
        surroundings.languages = { "de_AT" };
        text = PLIXLongStringForTimeInterval(interval);
    }
    std::fprintf(stderr, "<%s>", text.c_str());
    std::exit(0);
}

TEST(PLIXLongStringForTimeInterval, IsInTheUsersLanguage)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(exitWithGermanText(7265), testing::ExitedWithCode(0), "<2 Stunden, 1 Minute, 5 Sekunden>");
    EXPECT_EXIT(exitWithGermanText(86460), testing::ExitedWithCode(0), "<1 Tag, 1 Minute>");
}

TEST(PLIXLongStringForTimeInterval, HasTheWordsOfTheMainBundle)
{
    // The tests' own bundle has no translations, so each word is its key.
    EXPECT_EQ(PLIXLongStringForTimeInterval(3725), "1 hour, 2 minutes, 5 seconds");
    EXPECT_EQ(PLIXLongStringForTimeInterval(90061), "1 day, 1 hour, 1 minute");
    EXPECT_EQ(PLIXLongStringForTimeInterval(0.5), "--:--:--:--");
}

TEST(TimeIntervalDescription, GivesTheStatedTexts)
{
    EXPECT_EQ(TimeIntervalDescription(0), "00:00:00");
    EXPECT_EQ(TimeIntervalDescription(59.9), "00:00:59");
    EXPECT_EQ(TimeIntervalDescription(3725.5), "01:02:05");
    EXPECT_EQ(TimeIntervalDescription(360000), "100:00:00");
    EXPECT_EQ(TimeIntervalDescription(-5), "00:00:0-5");
}

}
}
