#include <plix/platform/host/desktop/SsipSession.h>

#include <gmock/gmock.h>

namespace plix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Trouble = SsipSession::Trouble;

TEST(SsipReader, TakesRepliesApart)
{
    SsipReader reader;
    reader.receive("208 OK CLIENT NAME SET\r\n225-17\r\n22");
    auto const first = reader.next();
    ASSERT_TRUE(first);
    EXPECT_EQ(first->code, 208);
    EXPECT_EQ(first->last, "OK CLIENT NAME SET");
    EXPECT_FALSE(reader.next());
    reader.receive("5 OK MESSAGE QUEUED\r\n701-17\r\n701-3\r\n701 BEGIN\r\n");
    auto const second = reader.next();
    ASSERT_TRUE(second);
    EXPECT_THAT(second->lines, ElementsAre("17"));
    EXPECT_FALSE(second->isEvent());
    auto const third = reader.next();
    ASSERT_TRUE(third);
    EXPECT_TRUE(third->isEvent());
    EXPECT_THAT(third->lines, ElementsAre("17", "3"));
    EXPECT_FALSE(reader.isBroken());
}

TEST(SsipReader, TakesThemByteByByte)
{
    SsipReader reader;
    for (char const byte : std::string("225-1\r\n225 OK\n"))
        reader.receive(std::string_view(&byte, 1));
    auto const reply = reader.next();
    ASSERT_TRUE(reply);
    EXPECT_THAT(reply->lines, ElementsAre("1"));
    EXPECT_EQ(reply->last, "OK");
}

TEST(SsipReader, IsBrokenByWhatIsNoReply)
{
    for (std::string const bytes : { "hello\r\n", "22\r\n", "2x5 OK\r\n", "\r\n", "225\r\n", "225+OK\r\n" }) {
        SsipReader reader;
        reader.receive(bytes);
        EXPECT_TRUE(reader.isBroken()) << bytes;
        EXPECT_FALSE(reader.next()) << bytes;
    }
}

TEST(SsipReader, IsBrokenByAReplyWithoutEnd)
{
    SsipReader oneLine;
    for (int i = 0; i < 10; ++i)
        oneLine.receive(std::string(1 << 20, 'x'));
    SsipReader manyLines;
    std::string const line = "249-" + std::string(1000, 'x') + "\r\n";
    for (int i = 0; i < 10000; ++i)
        manyLines.receive(line);
    EXPECT_TRUE(oneLine.isBroken());
    EXPECT_TRUE(manyLines.isBroken());
}

TEST(SsipText, DataEndsWithAPointAlone)
{
    struct Row {
        char const* text;
        char const* expected;
    };
    for (auto const [text, expected] :
        { Row { "hello", "hello\r\n.\r\n" }, Row { ".", "..\r\n.\r\n" }, Row { "..a", "...a\r\n.\r\n" },
            Row { "a\n.\nb", "a\r\n..\r\nb\r\n.\r\n" }, Row { "a.b\n", "a.b\r\n\r\n.\r\n" }, Row { "", "\r\n.\r\n" } })
        EXPECT_EQ(ssipData(text), expected) << text;
}

TEST(SsipText, WordsHoldNothingThatCommandsAreMadeOf)
{
    EXPECT_EQ(ssipWord("a b\r\nSTOP ALL:x"), "a_b__STOP_ALL_x");
    EXPECT_EQ(ssipWord("en-GB+f3_1.2"), "en-GB+f3_1.2");
    EXPECT_EQ(ssipWord(""), "x");
}

TEST(SsipText, ARestOfALineKeepsAllButWhatEndsIt)
{
    EXPECT_EQ(ssipLine("English (America)"), "English (America)");
    EXPECT_EQ(ssipLine("Fran\xC3\xA7"
                       "ais \"1\""),
        "Fran\xC3\xA7"
        "ais \"1\"");
    EXPECT_EQ(ssipLine("a\r\nSTOP ALL\t\x7F"), "a__STOP ALL__");
    EXPECT_EQ(ssipLine(""), "");
}

TEST(SsipText, CutsPiecesWhereAPauseIsHeard)
{
    struct Row {
        char const* text;
        std::vector<std::string> expected;
    };
    for (auto const& [text, expected] : {
             Row { "", {} },
             Row { "short", { "short" } },
             Row { "exactly10.", { "exactly10." } },
             Row { "One. Two three", { "One. Two", " three" } },
             Row { "One two. Three", { "One two.", " Three" } },
             Row { "a b\nlonger words", { "a b\nlonger", " words" } },
             Row { "abcdef\nlonger", { "abcdef", "\nlonger" } },
             Row { "one two three", { "one two", " three" } },
             Row { "abcdefghijklm", { "abcdefghij", "klm" } },
             Row { "\xC3\xA4\xC3\xA4\xC3\xA4\xC3\xA4"
                   "a\xC3\xA4\xC3\xA4",
                 { "\xC3\xA4\xC3\xA4\xC3\xA4\xC3\xA4"
                   "a",
                     "\xC3\xA4\xC3\xA4" } },
             Row { "          \n\n       end", { " end" } },
         })
        EXPECT_EQ(speechPieces(text, 10), expected) << text;
}

TEST(SsipText, PiecesOfAHugeTextHoldAllOfIt)
{
    std::string text;
    while (text.size() < (1U << 20))
        text += "Some words and then a sentence. ";
    std::string joined;
    std::size_t longest = 0;
    for (auto const& piece : speechPieces(text, 4000)) {
        joined += piece;
        longest = std::max(longest, piece.size());
    }
    EXPECT_EQ(joined, text.substr(0, joined.size()));
    EXPECT_LE(text.size() - joined.size(), 1U);
    EXPECT_LE(longest, 4000U);
}

TEST(SsipText, VoicesAreListedWithoutTheirVariants)
{
    struct Row {
        char const* line;
        char const* name;
        char const* language;
    };
    for (auto const [line, name, language] : { Row { "English (America)\ten-US\tnone", "English (America)", "en-US" },
             Row { "German\tde\t", "German", "de" }, Row { "German\tde", "German", "de" }, Row { "Robot\t\tnone", "Robot", "" } }) {
        auto const voice = ssipVoice(line);
        ASSERT_TRUE(voice) << line;
        EXPECT_EQ(voice->name, name);
        EXPECT_EQ(voice->language, language);
    }
    for (auto const* const line : { "English+whisper\ten\twhisper", "", "\ten\tnone", "no tabs" })
        EXPECT_FALSE(ssipVoice(line)) << line;
}

TEST(SsipText, TheSocketIsFoundByTheEnvironment)
{
    struct Row {
        std::optional<std::string> address;
        std::optional<std::string> runtimeFolder;
        std::optional<std::string> home;
        char const* expected;
    };
    constexpr char const* inRun = "/run/user/5/speech-dispatcher/speechd.sock";
    for (auto const& row : { Row { std::nullopt, "/run/user/5", "/home/me", inRun }, Row { "", "/run/user/5", "/home/me", inRun },
             Row { "unix_socket", "/run/user/5", "/home/me", inRun }, Row { "unix_socket:", "/run/user/5", "/home/me", inRun },
             Row { "unix_socket:/tmp/s", "/run/user/5", "/home/me", "/tmp/s" },
             Row { "inet_socket:localhost:6560", "/run/user/5", "/home/me", "" },
             Row { std::nullopt, std::nullopt, "/home/me", "/home/me/.cache/speech-dispatcher/speechd.sock" },
             Row { std::nullopt, "", "/home/me", "/home/me/.cache/speech-dispatcher/speechd.sock" },
             Row { std::nullopt, std::nullopt, std::nullopt, "" } })
        EXPECT_EQ(ssipSocketPath(row.address, row.runtimeFolder, row.home), row.expected);
}

/// A session that was introduced, and the service that the test plays.
class SsipSessionTest : public testing::Test {
protected:
    SsipSessionTest() { answerAll(); }

    std::vector<std::string> output()
    {
        std::vector<std::string> lines;
        auto const bytes = session.takeOutput();
        for (std::size_t begin = 0; begin < bytes.size();) {
            auto const end = bytes.find("\r\n", begin);
            lines.push_back(bytes.substr(begin, end - begin));
            begin = end == bytes.npos ? bytes.size() : end + 2;
        }
        return lines;
    }
    void answer(std::string const& lines) { session.receive(lines, now); }
    void answerAll()
    {
        while (!output().empty())
            answer("200 OK\r\n");
    }
    void event(int code, std::string const& message)
    {
        auto const number = std::to_string(code);
        answer(number + '-' + message + "\r\n" + number + "-1\r\n" + number + " EVENT\r\n");
    }
    void accept(std::string const& message)
    {
        answer("230 OK RECEIVING DATA\r\n");
        output();
        answer("225-" + message + "\r\n225 OK MESSAGE QUEUED\r\n");
    }
    void tickAt(double time)
    {
        now = time;
        session.tick(now);
    }

    double now { 100 };
    SsipSession session { { "me", "my app", "" }, 100 };
};

TEST(SsipSession, IntroducesItselfStepByStep)
{
    SsipSession session({ "me", "a b", "Klaus (2)" }, 0);
    std::string all;
    for (auto output = session.takeOutput(); !output.empty(); output = session.takeOutput()) {
        all += output;
        session.receive("400 ERR\r\n", 0);
    }
    EXPECT_EQ(all,
        "SET SELF CLIENT_NAME me:a_b:speech\r\nSET SELF NOTIFICATION ALL ON\r\nSET SELF PRIORITY MESSAGE\r\n"
        "SET SELF SSML_MODE OFF\r\nSET SELF SYNTHESIS_VOICE Klaus (2)\r\n");
    EXPECT_EQ(session.trouble(), Trouble::None);
    EXPECT_FALSE(session.deadline());
}

TEST_F(SsipSessionTest, SpeaksATextToItsEnd)
{
    session.speak("hello .\n.", now);
    EXPECT_THAT(output(), ElementsAre("SPEAK"));
    answer("230 OK RECEIVING DATA\r\n");
    EXPECT_THAT(output(), ElementsAre("hello .", "..", "."));
    answer("225-7\r\n225 OK MESSAGE QUEUED\r\n");
    EXPECT_TRUE(session.isWaitingToBegin());
    event(701, "7");
    EXPECT_EQ(session.speakingSince(), now);
    EXPECT_FALSE(session.isWaitingToBegin());
    EXPECT_FALSE(session.takeEnd());
    event(702, "7");
    EXPECT_FALSE(session.isSpeaking());
    EXPECT_EQ(session.takeEnd(), true);
    EXPECT_FALSE(session.takeEnd());
    EXPECT_FALSE(session.deadline());
}

TEST_F(SsipSessionTest, EventsMayComeBeforeTheNumberIsKnown)
{
    session.speak("-", now);
    answer("230 OK RECEIVING DATA\r\n");
    event(701, "7");
    event(702, "7");
    EXPECT_TRUE(session.isSpeaking());
    answer("225-7\r\n225 OK MESSAGE QUEUED\r\n");
    EXPECT_EQ(session.takeEnd(), true);
}

TEST_F(SsipSessionTest, StoppingCancelsAndForgetsLateEvents)
{
    session.speak("hello", now);
    accept("7");
    event(701, "7");
    session.stop(now);
    EXPECT_THAT(output(), ElementsAre("CANCEL SELF"));
    EXPECT_FALSE(session.isSpeaking());
    answer("213 OK CANCELED\r\n");
    event(703, "7");
    EXPECT_FALSE(session.takeEnd());
    EXPECT_FALSE(session.deadline());
    session.stop(now);
    EXPECT_THAT(output(), IsEmpty());
}

TEST_F(SsipSessionTest, StoppingBeforeTheDataWereWantedSendsNone)
{
    session.speak("hello", now);
    EXPECT_THAT(output(), ElementsAre("SPEAK"));
    session.stop(now);
    EXPECT_THAT(output(), IsEmpty());
    answer("230 OK RECEIVING DATA\r\n");
    EXPECT_THAT(output(), ElementsAre("."));
    answer("227 OK MESSAGE CANCELED\r\n");
    EXPECT_THAT(output(), ElementsAre("CANCEL SELF"));
    answer("213 OK CANCELED\r\n");
    EXPECT_FALSE(session.takeEnd());
    EXPECT_EQ(session.trouble(), Trouble::None);
}

TEST_F(SsipSessionTest, AnotherTextReplacesTheFirst)
{
    session.speak("first", now);
    accept("7");
    event(701, "7");
    session.speak("second", now);
    EXPECT_THAT(output(), ElementsAre("CANCEL SELF"));
    answer("213 OK CANCELED\r\n");
    EXPECT_THAT(output(), ElementsAre("SPEAK"));
    event(703, "7");
    accept("8");
    event(701, "8");
    event(702, "8");
    EXPECT_EQ(session.takeEnd(), true);
}

TEST_F(SsipSessionTest, LongTextsGoInPiecesOneAhead)
{
    std::string text;
    for (int i = 0; i < 40; ++i)
        text += "This is a sentence of some forty letters. ";
    session.speak(text, now);
    accept("1");
    accept("2");
    EXPECT_THAT(output(), IsEmpty());
    event(701, "1");
    event(702, "1");
    EXPECT_TRUE(session.isSpeaking());
    EXPECT_THAT(output(), ElementsAre("SPEAK"));
    event(701, "2");
    accept("3");
    event(702, "2");
    event(701, "3");
    accept("4");
    event(702, "3");
    EXPECT_TRUE(session.isSpeaking());
    event(701, "4");
    event(702, "4");
    EXPECT_EQ(session.takeEnd(), true);
}

TEST_F(SsipSessionTest, WhatOthersCancelIsNotFinished)
{
    session.speak("hello", now);
    accept("7");
    event(701, "7");
    event(703, "7");
    EXPECT_EQ(session.takeEnd(), false);
    EXPECT_FALSE(session.isSpeaking());
}

TEST_F(SsipSessionTest, WhatTheServiceRefusesIsNotFinished)
{
    session.speak("hello", now);
    answer("300 ERR\r\n");
    EXPECT_EQ(session.takeEnd(), false);
    session.speak("hello", now);
    answer("230 OK RECEIVING DATA\r\n");
    answer("400 ERR\r\n");
    EXPECT_EQ(session.takeEnd(), false);
    EXPECT_EQ(session.trouble(), Trouble::None);
}

TEST_F(SsipSessionTest, AServiceThatDoesNotAnswerIsSilent)
{
    session.speak("hello", now);
    ASSERT_TRUE(session.deadline());
    tickAt(*session.deadline() - 0.01);
    EXPECT_EQ(session.trouble(), Trouble::None);
    tickAt(105);
    EXPECT_EQ(session.trouble(), Trouble::Silent);
}

TEST_F(SsipSessionTest, IsAskedWhetherItIsThereWhileItSpeaks)
{
    session.speak("hello", now);
    accept("7");
    event(701, "7");
    tickAt(101.9);
    EXPECT_THAT(output(), IsEmpty());
    tickAt(102);
    EXPECT_THAT(output(), ElementsAre("GET RATE"));
    answer("251-0\r\n251 OK GET RETURNED\r\n");
    tickAt(104);
    EXPECT_THAT(output(), ElementsAre("GET RATE"));
    tickAt(106);
    answer("251-0\r\n251 OK GET RETURNED\r\n");
    EXPECT_THAT(output(), IsEmpty());
    tickAt(108);
    EXPECT_THAT(output(), ElementsAre("GET RATE"));
    tickAt(113);
    EXPECT_EQ(session.trouble(), Trouble::Silent);
}

TEST_F(SsipSessionTest, ATextThatDoesNotBeginInTimeIsGivenUp)
{
    session.speak("hello", now);
    accept("7");
    now = 119;
    session.waitLonger(now);
    tickAt(121);
    answer("251 OK\r\n");
    EXPECT_TRUE(session.isSpeaking());
    tickAt(138.9);
    answer("251 OK\r\n");
    EXPECT_TRUE(session.isSpeaking());
    output();
    tickAt(139);
    EXPECT_EQ(session.takeEnd(), false);
    EXPECT_THAT(output(), ElementsAre("CANCEL SELF"));
    answer("213 OK CANCELED\r\n");
    EXPECT_TRUE(session.isIdle());
    EXPECT_EQ(session.trouble(), Trouble::None);
}

TEST_F(SsipSessionTest, ATextThatDoesNotEndInTimeIsGivenUpAndThenTheService)
{
    session.speak("hello", now);
    accept("7");
    event(701, "7");
    session.waitLonger(now);
    tickAt(111);
    answer("251 OK\r\n");
    output();
    EXPECT_TRUE(session.isSpeaking());
    tickAt(111.5);
    EXPECT_EQ(session.takeEnd(), false);
    EXPECT_THAT(output(), ElementsAre("CANCEL SELF"));
    answer("213 OK CANCELED\r\n");
    tickAt(114);
    answer("251 OK\r\n");
    EXPECT_EQ(session.trouble(), Trouble::None);
    tickAt(114.5);
    EXPECT_EQ(session.trouble(), Trouble::Stuck);
}

TEST_F(SsipSessionTest, AServiceThatKeepsWhatWasCancelledIsStuck)
{
    session.speak("hello", now);
    accept("7");
    event(701, "7");
    session.stop(now);
    answer("213 OK CANCELED\r\n");
    tickAt(102.5);
    answer("251 OK\r\n");
    EXPECT_EQ(session.trouble(), Trouble::None);
    tickAt(103);
    EXPECT_EQ(session.trouble(), Trouble::Stuck);
}

TEST_F(SsipSessionTest, APauseMayLastAsLongAsItLikes)
{
    session.speak("hello", now);
    accept("7");
    event(701, "7");
    event(704, "7");
    for (int second = 102; second < 300; second += 2) {
        tickAt(second);
        answer("251 OK\r\n");
    }
    EXPECT_EQ(session.trouble(), Trouble::None);
    event(705, "7");
    event(702, "7");
    EXPECT_EQ(session.takeEnd(), true);
}

TEST_F(SsipSessionTest, WhatIsNoProtocolIsTrouble)
{
    session.speak("hello", now);
    answer("HTTP/1.1 400 Bad Request\r\n");
    EXPECT_EQ(session.trouble(), Trouble::Silent);
}

TEST_F(SsipSessionTest, AnswersThatNothingAskedForAreTrouble)
{
    answer("200 OK\r\n");
    EXPECT_EQ(session.trouble(), Trouble::Silent);
}

TEST_F(SsipSessionTest, ListsVoices)
{
    session.listVoices(now);
    EXPECT_THAT(output(), ElementsAre("LIST SYNTHESIS_VOICES"));
    answer("249-English\ten\tnone\r\n249-English+croak\ten\tcroak\r\n249-German\tde\tnone\r\n");
    EXPECT_FALSE(session.takeVoices());
    answer("249 OK VOICE LIST SENT\r\n");
    auto const voices = session.takeVoices();
    ASSERT_TRUE(voices);
    ASSERT_EQ(voices->size(), 2U);
    EXPECT_EQ(voices->back().name, "German");
    EXPECT_FALSE(session.takeVoicesRefusal());
}

TEST_F(SsipSessionTest, AnErrorIsNoListOfVoices)
{
    session.listVoices(now);
    output();
    answer("304 ERR CANT LIST VOICES\r\n");
    EXPECT_FALSE(session.takeVoices());
    EXPECT_TRUE(session.takeVoicesRefusal());
    EXPECT_FALSE(session.takeVoicesRefusal());
}

TEST_F(SsipSessionTest, EventsWithoutEndAreTrouble)
{
    session.speak("hello", now);
    answer("230 OK RECEIVING DATA\r\n");
    for (int i = 0; i < 100; ++i)
        event(701, "7");
    EXPECT_EQ(session.trouble(), Trouble::None);
    event(701, "7");
    EXPECT_EQ(session.trouble(), Trouble::Silent);
}

}
}
