#include <plix/speech/PLIXSpeakingTextField.h>

#include <plix/platform/appkit/NSSpeechSynthesizer.h>
#include <plix/platform/foundation/NSProcessInfo.h>
#include <plix/platform/foundation/NSRunLoop.h>
#include <tests/support/FieldTest.h>
#include <tests/support/SystemVersion.h>
#include <tests/support/TestFolder.h>
#include <tests/support/TestSurroundings.h>

#include <gmock/gmock.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>

namespace plix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A speaking field that is being edited, at each system version.
class PLIXSpeakingTextFieldTest : public TextTest, public testing::WithParamInterface<std::uint32_t> {
protected:
    PLIXSpeakingTextFieldTest()
        : m_version(GetParam())
    {
    }
    void SetUp() override
    {
        TextTest::SetUp();
        speech().setDuration([](std::string const&) { return 0.5; });
        speaking = make<PLIXSpeakingTextField>(Rect { 20, 100, 200, 22 });
        window->contentView()->addSubview(*speaking);
        window->makeFirstResponder(speaking.get());
        pump();
    }
    /// Timers would look into the next test.
    void TearDown() override
    {
        speech().setOtherApplicationSpeaking(false);
        speech().setUnavailable(true);
        pass(5);
    }
    void speakDigits()
    {
        speaking->setSpeaks(true);
        speaking->setSpeakableCharacters("0123456789.,");
    }
    bool speaksOnChannel() const { return GetParam() < 0x1030; }
    HeadlessSpeech& speech() { return machine().headlessSpeech(); }
    std::vector<std::string> spoken() { return speech().texts(); }
    void paste(std::string_view text)
    {
        setClipboard(text);
        editor().paste(nullptr);
        pump();
    }
    /// Whether a timer is left once the caret, which blinks, is gone.
    bool hasTimer()
    {
        window->makeFirstResponder(nullptr);
        return NSRunLoop::currentRunLoop().nextFireDate(NSDefaultRunLoopMode).has_value();
    }

    Ref<PLIXSpeakingTextField> speaking;

private:
    SystemVersion m_version;
};

INSTANTIATE_TEST_SUITE_P(Versions, PLIXSpeakingTextFieldTest, testing::Values(0x1029U, 0x102FU, 0x1030U, 0x1049U, 0x1050U),
    [](auto const& version) { return testing::PrintToString(version.param); });

TEST_P(PLIXSpeakingTextFieldTest, IsSilentAtFirst)
{
    EXPECT_FALSE(speaking->speaks());
    EXPECT_EQ(speaking->speakableCharacters(), "");
    type("3");
    speaking->setSpeaks(true);
    type("4");
    pass(1);
    EXPECT_THAT(spoken(), IsEmpty());
    speaking->setSpeaks(false);
    speaking->setSpeakableCharacters("0123456789");
    type("5");
    pass(1);
    EXPECT_THAT(spoken(), IsEmpty());
    EXPECT_EQ(marked(), "345|");
}

TEST_P(PLIXSpeakingTextFieldTest, SpeaksDigitsAndWordsInTypingOrder)
{
    speakDigits();
    type("3.5,");
    EXPECT_THAT(spoken(), ElementsAre("3"));
    pass(5);
    EXPECT_THAT(spoken(), ElementsAre("3", "point", "5", "comma"));
    EXPECT_FALSE(hasTimer());
}

/// What a German program has beside it.
struct GermanWords {
    GermanWords()
    {
        folder.write(NSProcessInfo::processInfo().processName() + "/de.lproj/Localizable.strings",
            "\"point\" = \"Punkt\"; \"comma\" = \"Komma\";");
        surroundings.sharedData = { folder.path() };
        surroundings.languages = { "de" };
    }

    TestFolder folder;
    TestSurroundings surroundings;
};

class GermanSpeakingTextFieldTest : public GermanWords, public PLIXSpeakingTextFieldTest {
protected:
    [[noreturn]] void exitWithWhatIsSpoken(std::string_view typed)
    {
        speakDigits();
        type(typed);
        pass(5);
        for (auto const& text : spoken())
            std::fprintf(stderr, "<%s>", text.c_str());
        std::filesystem::remove_all(folder.path());
        std::_Exit(0);
    }
};

INSTANTIATE_TEST_SUITE_P(Versions, GermanSpeakingTextFieldTest, testing::Values(0x102FU, 0x1049U),
    [](auto const& version) { return testing::PrintToString(version.param); });

// In a process of its own, since the main bundle is found only once.
TEST_P(GermanSpeakingTextFieldTest, SpeaksTheWordsOfTheMainBundle)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(exitWithWhatIsSpoken("3.5,"), testing::ExitedWithCode(0), "<3><Punkt><5><Komma>");
}

TEST_P(PLIXSpeakingTextFieldTest, SaysNothingForOtherLettersAndDeletions)
{
    speakDigits();
    type("a");
    key(NSBackspaceCharacter);
    type("b");
    pass(2);
    EXPECT_THAT(spoken(), IsEmpty());
    EXPECT_FALSE(hasTimer());
    EXPECT_EQ(speaking->stringValue(), "b");
}

TEST_P(PLIXSpeakingTextFieldTest, SpeaksPastedTextThatOccursWhole)
{
    speakDigits();
    paste("12");
    paste("13");
    paste("9.");
    pass(5);
    EXPECT_THAT(spoken(), ElementsAre("12", "9."));
    EXPECT_EQ(marked(), "12139.|");
}

TEST_P(PLIXSpeakingTextFieldTest, NilCharactersSilenceIt)
{
    speakDigits();
    speaking->setSpeakableCharacters(std::nullopt);
    EXPECT_EQ(speaking->speakableCharacters(), "");
    type("3");
    pass(1);
    EXPECT_THAT(spoken(), IsEmpty());
}

TEST_P(PLIXSpeakingTextFieldTest, SpeaksThroughTheWayOfItsVersion)
{
    speakDigits();
    type("3");
    EXPECT_EQ(PLIXSpeakingTextField::speechSynthesizer()->isSpeaking(), !speaksOnChannel());
    EXPECT_TRUE(NSSpeechSynthesizer::isAnyApplicationSpeaking());
    EXPECT_EQ(PLIXSpeakingTextField::speechSynthesizer(), PLIXSpeakingTextField::speechSynthesizer());
}

TEST_P(PLIXSpeakingTextFieldTest, WaitsWhileAnotherApplicationSpeaks)
{
    speakDigits();
    speech().setOtherApplicationSpeaking(true);
    type("3");
    pass(10);
    EXPECT_THAT(spoken(), IsEmpty());
    EXPECT_TRUE(hasTimer());
    speech().setOtherApplicationSpeaking(false);
    pass(0.2);
    EXPECT_THAT(spoken(), ElementsAre("3"));
}

TEST_P(PLIXSpeakingTextFieldTest, LooksAgainATenthOfASecondLater)
{
    speakDigits();
    speech().setOtherApplicationSpeaking(true);
    type("3");
    auto const next = NSRunLoop::currentRunLoop().nextFireDate(NSDefaultRunLoopMode);
    ASSERT_TRUE(next);
    EXPECT_NEAR(next->timeIntervalSinceNow(), 0.1, 0.001);
}

TEST_P(PLIXSpeakingTextFieldTest, ItemsAreAddedAndSpokenByHand)
{
    speaking->addItemToSpeak(std::nullopt);
    speaking->speakNextItem(nullptr);
    EXPECT_FALSE(hasTimer());
    speaking->addItemToSpeak("one");
    speaking->addItemToSpeak("two");
    EXPECT_THAT(spoken(), IsEmpty());
    speaking->speakNextItem(nullptr);
    EXPECT_THAT(spoken(), ElementsAre("one"));
    EXPECT_TRUE(hasTimer());
    pass(0.45);
    EXPECT_THAT(spoken(), ElementsAre("one"));
    pass(0.2);
    EXPECT_THAT(spoken(), ElementsAre("one", "two"));
}

TEST_P(PLIXSpeakingTextFieldTest, FieldsShareAVoiceAndHaveEachAQueue)
{
    auto const other = make<PLIXSpeakingTextField>(Rect { 20, 60, 200, 22 });
    speaking->addItemToSpeak("one");
    speaking->addItemToSpeak("two");
    other->speakNextItem(nullptr);
    EXPECT_THAT(spoken(), IsEmpty());
    speaking->speakNextItem(nullptr);
    other->addItemToSpeak("three");
    other->speakNextItem(nullptr);
    EXPECT_THAT(spoken(), ElementsAre("one"));
    pass(5);
    EXPECT_THAT(spoken(), testing::UnorderedElementsAre("one", "two", "three"));
    for (auto const& utterance : speech().utterances()) {
        EXPECT_EQ(utterance.channel, speech().utterances().front().channel);
        EXPECT_EQ(utterance.how, SpeechEnd::Finished);
    }
    EXPECT_FALSE(hasTimer());
}

TEST_P(PLIXSpeakingTextFieldTest, DrainsTheQueueWhereSpeechIsMissing)
{
    speech().setUnavailable(true);
    speakDigits();
    type("345");
    pass(1);
    EXPECT_THAT(spoken(), IsEmpty());
    speech().setUnavailable(false);
    type("6");
    EXPECT_THAT(spoken(), ElementsAre("6"));
    EXPECT_FALSE(hasTimer());
}

TEST_P(PLIXSpeakingTextFieldTest, DoesNotSpeakWhatTheFieldRefuses)
{
    struct Refusing : PLIXSpeakingTextField {
        bool shouldChangeTextInRange(NSTextView& editor, NSRange range, std::string_view text) override
        {
            return PLIXSpeakingTextField::shouldChangeTextInRange(editor, range, text);
        }
        bool textShouldBeginEditing(NSText&) override { return false; }
    };
    auto const refusing = make<Refusing>(Rect { 20, 60, 200, 22 });
    window->contentView()->addSubview(*refusing);
    refusing->setSpeaks(true);
    refusing->setSpeakableCharacters("0123456789");
    window->makeFirstResponder(refusing.get());
    type("3");
    pass(1);
    EXPECT_EQ(refusing->stringValue(), "");
    EXPECT_THAT(spoken(), IsEmpty());
}

TEST_P(PLIXSpeakingTextFieldTest, AFieldThatIsLetGoSpeaksItsQueueToTheEnd)
{
    speaking->addItemToSpeak("one");
    speaking->addItemToSpeak("two");
    speaking->speakNextItem(nullptr);
    window->makeFirstResponder(nullptr);
    speaking->removeFromSuperview();
    Weak<PLIXSpeakingTextField> const weak(speaking);
    speaking = nullptr;
    pass(3);
    EXPECT_THAT(spoken(), ElementsAre("one", "two"));
    EXPECT_FALSE(weak);
}

TEST_P(PLIXSpeakingTextFieldTest, TheOlderWayHolds255Bytes)
{
    std::string const longText(300, '7');
    speaking->setSpeaks(true);
    speaking->setSpeakableCharacters(longText);
    paste(longText);
    EXPECT_THAT(spoken(), ElementsAre(speaksOnChannel() ? std::string(255, '7') : longText));
}

TEST_P(PLIXSpeakingTextFieldTest, SpeaksMarkupAndForeignLettersAsTheyAre)
{
    speaking->setSpeaks(true);
    speaking->setSpeakableCharacters("<&>\xC3\xA4\xF0\x9D\x84\x9E");
    type("<\xC3\xA4");
    paste("\xF0\x9D\x84\x9E");
    pass(5);
    EXPECT_THAT(spoken(), ElementsAre("<", "\xC3\xA4", "\xF0\x9D\x84\x9E"));
}

TEST_P(PLIXSpeakingTextFieldTest, ManyKeysAtOnceAreSpokenInOrder)
{
    speech().setDuration([](std::string const&) { return 0.01; });
    speakDigits();
    std::string digits;
    std::vector<std::string> expected;
    for (int i = 0; i < 200; ++i) {
        digits += static_cast<char>('0' + i % 10);
        expected.emplace_back(1, static_cast<char>('0' + i % 10));
    }
    type(digits);
    pass(60);
    EXPECT_EQ(spoken(), expected);
    EXPECT_FALSE(hasTimer());
}

TEST_P(PLIXSpeakingTextFieldTest, EachKeyLooksAgainByItself)
{
    speakDigits();
    speech().setDuration([](std::string const&) { return 0.03; });
    speech().setOtherApplicationSpeaking(true);
    type("1");
    pass(0.05);
    type("2");
    pass(0.03);
    speech().setOtherApplicationSpeaking(false);
    // The first key's timer speaks at 0.1 s, the second one's at 0.15 s.
    pass(0.04);
    EXPECT_THAT(spoken(), ElementsAre("1"));
    pass(0.05);
    EXPECT_THAT(spoken(), ElementsAre("1", "2"));
}

}
}
