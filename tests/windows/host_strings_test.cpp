#include <tests/support/TestSurroundings.h>

#include <plix/platform/foundation/NSBundle.h>

#include <gtest/gtest.h>

namespace plix {
namespace {

// What the library looks up in the program's own bundle.
constexpr char const* keys[] { "day", "days", "hour", "hours", "minute", "minutes", "second", "seconds", "Enter Date Range", "From",
    "To", "OK", "Day", "Month", "Year", "comma", "point" };

TEST(HostStrings, EachLanguageHasEachWord)
{
    TestSurroundings surroundings;
    for (auto const* language : { "en", "de", "fr", "ja" }) {
        surroundings.languages = { language };
        for (auto const* key : keys)
            EXPECT_NE(NSBundle::mainBundle().localizedStringForKey(key, "missing"), "missing") << language << ' ' << key;
    }
}

TEST(HostStrings, EnglishWordsAreTheKeys)
{
    TestSurroundings surroundings;
    surroundings.languages = { "en" };
    for (auto const* key : keys)
        EXPECT_EQ(NSBundle::mainBundle().localizedStringForKey(key, "missing"), key);
}

TEST(HostStrings, ALanguageThatIsNotThereFallsBackToEnglish)
{
    TestSurroundings surroundings;
    surroundings.languages = { "sw" };
    EXPECT_EQ(NSLocalizedString("Enter Date Range"), "Enter Date Range");
    surroundings.languages = { "sw", "de_AT" };
    EXPECT_EQ(NSLocalizedString("Enter Date Range"), "Zeitraum eingeben");
}

}
}
