#include <plix/platform/host/spoken_text.h>
#include <plix/speech/speaking_list.h>
#include <plix/speech/typed_text.h>

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

namespace plix {
namespace {

using enum SpeakingListStep;

TEST(SpeakingList, TurnsByStateAndTime)
{
    struct Row {
        char const* what;
        SpeakingList list;
        bool isSpeaking;
        double now;
        SpeakingListTurn expected;
    };
    constexpr double infinity = std::numeric_limits<double>::infinity();
    std::vector<Row> const rows {
        { "the first string at once", { 3, 0, 1.8, 0 }, false, 1e9, { Speak, -1, 0.1 } },
        { "the first one even with a clock at the epoch and no silence", { 3, 0, 0, 0 }, false, 0, { Speak, -1, 0.1 } },
        { "the first one waits while the clock is within the interval of the epoch", { 1, 0, 1.8, 0 }, false, 1, { Wait, 0, 0.8 } },
        { "speech of another's at the start", { 3, 0, 1.8, 0 }, true, 1e9, { Look, 0, 0.1 } },
        { "still being spoken", { 3, 1, 1.8, -1 }, true, 1000, { Look, -1, 0.1 } },
        { "just ended: the silence begins", { 3, 1, 1.75, -1 }, false, 1000, { Wait, 1000, 1.75 } },
        { "just ended without a silence: the next at once", { 3, 1, 0, -1 }, false, 1000, { Speak, -1, 0.1 } },
        { "within the silence", { 3, 1, 1.75, 1000 }, false, 1000.5, { Wait, 1000, 1.25 } },
        { "exactly at its end", { 3, 1, 1.75, 1000 }, false, 1001.75, { Speak, -1, 0.1 } },
        { "after its end", { 3, 2, 1.75, 1000 }, false, 1005, { Speak, -1, 0.1 } },
        { "speech of another's within the silence", { 3, 1, 1.75, 1000 }, true, 1005, { Look, 1000, 0.1 } },
        { "the last one still being spoken", { 3, 3, 1.75, -1 }, true, 1000, { Look, -1, 0.1 } },
        { "the last one ended: done without a silence", { 3, 3, 1.75, -1 }, false, 1000, { End, 1000, 0 } },
        { "a clock set back lengthens the silence", { 3, 1, 1.75, 1000 }, false, 990, { Wait, 1000, 11.75 } },
        { "a clock set back without a silence", { 3, 1, 0, 1000 }, false, 990, { Wait, 1000, 10 } },
        { "a clock set forward ends it", { 3, 1, 1.75, 1000 }, false, 5000, { Speak, -1, 0.1 } },
        { "a clock before 1970 looks like a string just ended", { 3, 1, 1.75, -500 }, false, -499, { Wait, -499, 1.75 } },
        { "a silence without end", { 3, 1, infinity, 1000 }, false, 1001, { Wait, 1000, infinity } },
        { "an index beyond the list looks on", { 3, 4, 0, 1000 }, false, 1001, { Look, 1000, 0.1 } },
        { "an emptied list is done", { 0, 0, 1.75, 0 }, false, 1000, { End, 0, 0 } },
    };
    for (auto const& row : rows) {
        auto const turn = speakingListTurn(row.list, row.isSpeaking, row.now);
        EXPECT_EQ(turn.step, row.expected.step) << row.what;
        EXPECT_EQ(turn.lastTime, row.expected.lastTime) << row.what;
        EXPECT_DOUBLE_EQ(turn.nextLook, row.expected.nextLook) << row.what;
    }
}

TEST(SpeakingList, AnIntervalBelowZeroIsTheUsualOne)
{
    struct Row {
        double wanted;
        double expected;
    };
    for (auto const [wanted, expected] : { Row { -1, 1.8 }, Row { -0.001, 1.8 }, Row { -1e300, 1.8 }, Row { 0, 0 }, Row { -0.0, 0 },
             Row { 0.1, 0.1 }, Row { 60, 60 } })
        EXPECT_EQ(speakingListInterval(wanted), expected) << wanted;
}

TEST(TypedText, IsSpeakableWhereItOccursWhole)
{
    struct Row {
        std::string text;
        std::string characters;
        bool expected;
    };
    for (auto const& row : { Row { "3", "0123456789.,", true }, { ".", "0123456789.,", true }, { "a", "0123456789.,", false },
             { "12", "0123456789.,", true }, { "13", "0123456789.,", false }, { "9.", "0123456789.,", true },
             { "", "0123456789", false }, { "", "", false }, { "a", "", false }, { "A", "abc", false },
             { "\xC3\xA4", "\xC3\xA4", true }, { "\xC3\xA4", "a\xCC\x88", false }, { "abc", "ab", false },
             { std::string("\0", 1), std::string("a\0b", 3), true } })
        EXPECT_EQ(isSpeakable(row.text, row.characters), row.expected) << row.text << " in " << row.characters;
}

TEST(TypedText, OnlyASinglePointOrCommaIsAWord)
{
    struct Row {
        char const* text;
        char const* expected;
    };
    for (auto const [text, expected] :
        { Row { ".", "point" }, Row { ",", "comma" }, Row { "..", "" }, Row { ".,", "" }, Row { "3", "" }, Row { "", "" } })
        EXPECT_EQ(spokenWordKey(text), expected) << text;
}

TEST(SpokenText, KnowsBlanks)
{
    struct Row {
        std::string text;
        bool expected;
    };
    for (auto const& row : { Row { "", false }, { " \t\r\n", false }, { std::string("\0\x01", 2), false },
             { "\xC2\xA0\xE3\x80\x80\xEF\xBB\xBF", false }, { "\xE2\x80\x8B", false }, { ".", true }, { " a ", true },
             { "\xFF", true }, { "\xE2\x80\x90", true } })
        EXPECT_EQ(hasAnythingToSay(row.text), row.expected) << testing::PrintToString(row.text);
}

TEST(SpokenText, IsMadeWellFormed)
{
    EXPECT_EQ(speakableText("a\tb\nc\r\n"), "a b\nc \n");
    EXPECT_EQ(speakableText(std::string("a\0b\x7F", 4)), "a b ");
    EXPECT_EQ(speakableText("a\xFFz\xC3"), "a\xEF\xBF\xBDz\xEF\xBF\xBD");
    EXPECT_EQ(speakableText("<b>&amp;</b>\xC2\x85\xC3\xA4"), "<b>&amp;</b> \xC3\xA4");
}

TEST(SpokenText, CStringsEndAtTheFirstNul)
{
    EXPECT_EQ(lossyCString(std::string("ab\0cd", 5)), "ab");
    EXPECT_EQ(lossyCString("\xC3\xA4\xFF"), "\xC3\xA4\xEF\xBF\xBD");
    EXPECT_EQ(lossyCString(""), "");
}

TEST(SpokenText, CountedStringsHold255Bytes)
{
    std::string const umlauts = [] {
        std::string text;
        for (int i = 0; i < 200; ++i)
            text += "\xC3\xA4";
        return text;
    }();
    EXPECT_EQ(pascalString(std::string(255, 'x')), std::string(255, 'x'));
    EXPECT_EQ(pascalString(std::string(256, 'x')), std::string(255, 'x'));
    EXPECT_EQ(pascalString(umlauts), umlauts.substr(0, 254));
    EXPECT_EQ(pascalString("x" + umlauts), "x" + umlauts.substr(0, 254));
    EXPECT_EQ(pascalString(""), "");
}

}
}
