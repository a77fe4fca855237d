#include <tests/desktop/support/DesktopTest.h>

#include <csignal>

namespace plix::desktop {
namespace {

class SharedClipboard : public DesktopTest {
protected:
    Application& app { start("probe") };

    void copyElsewhere(std::string const& text)
    {
        std::string const command = "exec xclip -quiet -selection clipboard -i 2>/dev/null";
        m_owner = std::make_unique<ChildProcess>(std::vector<std::string> { "sh", "-c", command }, display().environment());
        m_owner->write(text);
        m_owner->closeInput();
        // Unlike us it gives no time.
        auto const isOwner = [this] {
            auto const targets = tool({ "xclip", "-selection", "clipboard", "-o", "-t", "TARGETS" });
            return targets.find("UTF8_STRING") != std::string::npos && targets.find("TIMESTAMP") == std::string::npos;
        };
        EXPECT_TRUE(waitUntil(isOwner));
    }
    std::string pasteElsewhere() { return tool({ "xclip", "-selection", "clipboard", "-o", "-t", "UTF8_STRING" }); }

    std::unique_ptr<ChildProcess> m_owner;
};

TEST_F(SharedClipboard, GivesTextToOtherPrograms)
{
    app.say("copy Grüße → you");
    app.catchUp();
    EXPECT_EQ(pasteElsewhere(), "Grüße → you");
    EXPECT_EQ(tool({ "xclip", "-selection", "clipboard", "-o", "-t", "STRING" }),
        "Gr\xFC\xDF"
        "e ? you");
    EXPECT_NE(tool({ "xclip", "-selection", "clipboard", "-o", "-t", "TARGETS" }).find("TIMESTAMP"), std::string::npos);
}

TEST_F(SharedClipboard, TakesTextFromOtherPrograms)
{
    copyElsewhere("from elsewhere: é");
    app.say("paste");
    app.expect("paste 18 [from elsewhere: é]");
    app.say("hastext");
    app.expect("hastext yes");
}

TEST_F(SharedClipboard, PastesWhatItCopiedItself)
{
    app.say("copy own text");
    app.say("paste");
    app.expect("paste 8 [own text]");
}

TEST_F(SharedClipboard, CountsEachChange)
{
    app.say("changes");
    auto const first = numbersAfter(app.expect("changes"), "changes").at(0);
    app.say("copy one");
    app.say("changes");
    EXPECT_EQ(numbersAfter(app.expect("changes"), "changes").at(0), first + 1);
    copyElsewhere("two");
    app.say("changes");
    EXPECT_EQ(numbersAfter(app.expect("changes"), "changes").at(0), first + 2);
    app.say("changes");
    EXPECT_EQ(numbersAfter(app.expect("changes"), "changes").at(0), first + 2);
}

TEST_F(SharedClipboard, AnotherProgramTakesItOver)
{
    app.say("copy ours");
    app.catchUp();
    copyElsewhere("theirs");
    app.say("paste");
    app.expect("paste 6 [theirs]");
}

TEST_F(SharedClipboard, FiftyMegabytesComeInPieces)
{
    std::size_t const size = 50'000'000;
    copyElsewhere(std::string(size, 'p'));
    app.say("paste");
    app.expect("paste 50000000 [pppp");
}

TEST_F(SharedClipboard, FiftyMegabytesGoInPieces)
{
    app.say("copymany 50000000");
    app.catchUp();
    auto const text = pasteElsewhere();
    EXPECT_EQ(text.size(), 50'000'000U);
    EXPECT_EQ(text.find_first_not_of('x'), text.npos);
}

TEST_F(SharedClipboard, AnOwnerThatDiedLeavesNothing)
{
    copyElsewhere("gone soon");
    m_owner->sendSignal(SIGKILL);
    m_owner->waitForEnd();
    app.say("paste");
    app.expect("paste nothing");
    app.say("hastext");
    app.expect("hastext no");
}

TEST_F(SharedClipboard, AnOwnerThatDiesInTheMiddleLeavesNothing)
{
    copyElsewhere(std::string(200'000'000, 'p'));
    app.say("paste");
    app.say("sync dead");
    // It is under way when the program has begun to work.
    auto const status = "/proc/" + std::to_string(m_owner->identifier()) + "/stat";
    m_owner->sendSignal(SIGKILL);
    m_owner->waitForEnd();
    app.expect("paste nothing");
    app.expect("sync dead");
    EXPECT_TRUE(app.process().isRunning());
}

TEST_F(SharedClipboard, AFrozenOwnerIsNotWaitedForLong)
{
    copyElsewhere("frozen");
    m_owner->sendSignal(SIGSTOP);
    app.say("paste");
    app.say("hastext");
    app.expectWithin(Seconds(10), { "paste nothing" });
    app.expectWithin(Seconds(10), { "hastext no" });
}

TEST_F(SharedClipboard, AProgramThatDiesWhileItPastesTakesNobodyWithIt)
{
    app.say("copymany 50000000");
    app.catchUp();
    for (int round = 0; round < 5; ++round) {
        ChildProcess taker({ "xclip", "-selection", "clipboard", "-o" }, display().environment());
        // Its first bytes are on the way to nobody: it does not get past a full pipe.
        taker.sendSignal(SIGKILL);
        taker.waitForEnd();
    }
    app.catchUp();
    app.say("copy still here");
    app.catchUp();
    EXPECT_EQ(pasteElsewhere(), "still here");
}

TEST_F(SharedClipboard, BrokenTextIsMended)
{
    copyElsewhere("a\xFF"
                  "b");
    app.say("paste");
    app.expect("paste 5 [a\uFFFD"
               "b]");
}

}
}
