#include <examples/gallery/Transcript.h>
#include <examples/gallery/pages.h>

#include <plix/platform/appkit/NSButton.h>
#include <plix/platform/base/utf16.h>
#include <plix/platform/foundation/NSRunLoop.h>
#include <plix/platform/host/Clipboard.h>
#include <plix/platform/host/media_components.h>

#include <tests/support/HeadlessTest.h>

#include <gmock/gmock.h>

#include <map>
#include <string_view>

namespace gallery {
namespace {

using namespace plix;

/// One page in a window, with its transcript and its buttons by title.
class GalleryLivePages : public HeadlessTest {
protected:
    void open(std::string_view name)
    {
        for (auto const& page : pages()) {
            if (page.name == name)
                m_window = showWindowWith(page.makeView(), { 40, 40, 560, 460 });
        }
        ASSERT_TRUE(m_window) << name;
        look(*m_window->contentView());
        ASSERT_TRUE(m_transcript) << name;
    }
    void TearDown() override
    {
        if (m_window)
            m_window->close();
    }
    void press(std::string const& title)
    {
        ASSERT_TRUE(m_buttons.contains(title)) << title;
        clickCenter(*m_buttons[title]);
    }
    std::string result(std::string_view expression)
    {
        for (long line = m_transcript->lineCount() - 1; line >= 0; --line) {
            if (m_transcript->expressionAt(line) == expression)
                return m_transcript->resultAt(line);
        }
        return "no such line";
    }
    long countOf(std::string_view expression)
    {
        long count = 0;
        for (long line = 0; line < m_transcript->lineCount(); ++line)
            count += m_transcript->expressionAt(line) == expression ? 1 : 0;
        return count;
    }
    Transcript& transcript() { return *m_transcript; }
    void closePage()
    {
        m_transcript = nullptr;
        m_buttons.clear();
        m_window->setContentView(make<NSView>(Rect {}));
    }

private:
    void look(NSView& view)
    {
        if (auto* const found = dynamic_cast<Transcript*>(&view))
            m_transcript = found;
        if (auto* const button = dynamic_cast<NSButton*>(&view))
            m_buttons[button->title()] = button;
        for (auto const& subview : view.subviews())
            look(*subview);
    }

    Ref<NSWindow> m_window;
    Transcript* m_transcript { nullptr };
    std::map<std::string, NSButton*> m_buttons;
};

TEST_F(GalleryLivePages, LogsWhatIsLogged)
{
    open("NSLog");
    press("Boil the Kettle");
    EXPECT_EQ(countOf("The kettle boils."), 1);
}

TEST_F(GalleryLivePages, ObserversHearWhatTheyObserve)
{
    open("NSNotificationCenter");
    long const before = countOf("KettleDidBoil");
    press("KettleDidBoil");
    EXPECT_EQ(countOf("KettleDidBoil"), before + 1);
    press("Kettles");
    press("KettleDidBoil");
    EXPECT_EQ(countOf("KettleDidBoil"), before + 1);
    press("CupWasFilled");
    EXPECT_EQ(countOf("CupWasFilled"), 1);
}

TEST_F(GalleryLivePages, TheTimerCountsUntilItIsStopped)
{
    open("NSTimer");
    pass(1);
    EXPECT_EQ(result("seconds counted"), "0");
    press("Start");
    pass(1.05);
    EXPECT_EQ(result("seconds counted"), "1");
    press("Stop");
    pass(1);
    EXPECT_EQ(result("seconds counted"), "1");
}

TEST_F(GalleryLivePages, TheTimerGoesWithItsPage)
{
    // Other tests of this process may have left timers.
    auto const next = [] { return NSRunLoop::currentRunLoop().nextFireDate(NSDefaultRunLoopMode); };
    auto const before = next();
    open("NSTimer");
    press("Start");
    EXPECT_NE(next(), before);
    closePage();
    pass(1);
    EXPECT_EQ(next(), before);
}

TEST_F(GalleryLivePages, TheRunLoopCallsLater)
{
    open("NSRunLoop");
    press("Call Later");
    EXPECT_EQ(result("called by the run loop"), "in kCFRunLoopDefaultMode");
    EXPECT_EQ(countOf("called by the run loop"), 1);
    press("Before the Next Wait");
    pass(1);
    pass(1);
    EXPECT_EQ(countOf("nothing to do: the loop waits"), 1);
}

TEST_F(GalleryLivePages, PerformsAfterADelayUnlessCancelled)
{
    open("delayed_perform");
    press("Ask");
    pass(0.6);
    EXPECT_EQ(countOf("boil"), 1);
    EXPECT_EQ(countOf("whistle"), 0);
    press("No Whistling");
    pass(2);
    EXPECT_EQ(countOf("whistle"), 0);
    press("Ask");
    press("Cancel All");
    pass(2);
    EXPECT_EQ(countOf("boil"), 1);
    press("Ask");
    pass(2);
    EXPECT_EQ(countOf("whistle"), 1);
}

TEST_F(GalleryLivePages, WhatIsStillToBePerformedOutlivesThePage)
{
    open("delayed_perform");
    press("Ask");
    Weak<Transcript> const page(transcript());
    closePage();
    EXPECT_FALSE(page);
    EXPECT_TRUE(NSRunLoop::currentRunLoop().nextFireDate(NSDefaultRunLoopMode));
    pass(2);
    EXPECT_FALSE(NSRunLoop::currentRunLoop().nextFireDate(NSDefaultRunLoopMode));
}

TEST_F(GalleryLivePages, ChangesAreUndoneAndDoneAgain)
{
    open("NSUndoManager");
    press("Add 5");
    press("Double");
    EXPECT_EQ(result("value"), "12");
    EXPECT_EQ(result("undo->undoMenuItemTitle()"), "\"Undo Doubling\"");
    press("Undo");
    press("Undo");
    press("Undo");
    EXPECT_EQ(result("value"), "1");
    EXPECT_EQ(result("undo->canUndo()"), "false");
    press("Redo");
    EXPECT_EQ(result("value"), "6");
    EXPECT_EQ(result("undo->redoMenuItemTitle()"), "\"Redo Doubling\"");
}

TEST_F(GalleryLivePages, TheProcessIsAsked)
{
    open("NSProcessInfo");
    EXPECT_EQ(result("process.hostName()"), "–");
    press("Ask");
    EXPECT_NE(result("process.hostName()"), "–");
}

TEST_F(GalleryLivePages, TheClipboardTakesTheTextAndTellsIt)
{
    open("Clipboard");
    press("Set");
    EXPECT_EQ(machine().clipboard().text(), "A cup of tea");
    EXPECT_EQ(result("clipboard.text()"), "\"A cup of tea\"");
    machine().clipboard().setText("milk");
    press("Ask");
    EXPECT_EQ(result("clipboard.text()"), "\"milk\"");
}

TEST_F(GalleryLivePages, TheHostAndItsDisplayAreAsked)
{
    open("Host");
    press("Ask");
    EXPECT_EQ(result("host().name()"), "\"headless\"");
    EXPECT_EQ(result("host().audio() != nullptr"), "true");
    machine().setHasAudio(false);
    press("Ask");
    EXPECT_EQ(result("host().audio() != nullptr"), "false");
    machine().setHasAudio(true);
}

TEST_F(GalleryLivePages, TheDisplayTellsWhereTheMouseIs)
{
    open("Display");
    press("Ask");
    EXPECT_EQ(result("display.mouseLocation()"), valueText(display().mouseLocation()));
    EXPECT_EQ(result("display.screens()[0].backingScale"), "1");
    long const before = display().beepCount();
    press("Beep");
    EXPECT_EQ(display().beepCount(), before + 1);
}

TEST_F(GalleryLivePages, AWindowOfTheHostIsOpenedAndToldOfClicks)
{
    open("HostWindow");
    auto const windows = display().windows().size();
    press("Open");
    EXPECT_EQ(display().windows().size(), windows + 1);
    person().click({ 260, 260 });
    pump();
    EXPECT_EQ(countOf("mouseDown"), 1);
    press("Close");
    EXPECT_EQ(display().windows().size(), windows);
}

TEST_F(GalleryLivePages, ASoundIsPlayedPausedAndHeardToItsEnd)
{
    open("HostSound");
    machine().headlessAudio().setDuration(2);
    press("Play");
    EXPECT_EQ(machine().headlessAudio().playingCount(), 1U);
    EXPECT_EQ(result("sound->isPlaying()"), "true");
    press("Pause");
    EXPECT_EQ(result("sound->isPaused()"), "true");
    press("Resume");
    pass(3);
    EXPECT_EQ(result("playedToEnd"), "true");
    EXPECT_EQ(result("sound->isPlaying()"), "false");
}

TEST_F(GalleryLivePages, TheAudioIsAsked)
{
    machine().headlessAudio().setOutputVolume(StereoVolume { 0.5F, 1 });
    open("Audio");
    press("Ask");
    EXPECT_EQ(result("audio->outputVolume()->left"), "0.5");
    machine().headlessAudio().setOutputVolume(std::nullopt);
    press("Ask");
    EXPECT_EQ(result("audio->outputVolume()->left"), "nil");
    press("Beep");
    EXPECT_EQ(machine().headlessAudio().beepCount(), 1);
}

TEST_F(GalleryLivePages, TheSpeechTellsItsEnd)
{
    open("speech_door");
    press("Speak");
    EXPECT_EQ(machine().headlessSpeech().texts(), std::vector<std::string> { "Tea is ready." });
    pass(5);
    EXPECT_EQ(result("ended"), "finished");
    press("Speak");
    press("Stop");
    pass(1);
    EXPECT_EQ(result("ended"), "stopped");
}

TEST_F(GalleryLivePages, TextsAreTruncatedToTheWidth)
{
    open("truncation");
    auto const before = result("In a width of 120");
    press("Narrower");
    press("Narrower");
    EXPECT_THAT(result("In a width of 120"), testing::StartsWith("100: "));
    EXPECT_LT(result("In a width of 120").size(), before.size() + 5);
    press("Wider");
    EXPECT_THAT(result("In a width of 120"), testing::StartsWith("110: "));
}

TEST_F(GalleryLivePages, TheSystemIsAskedForItsMediaAndSounds)
{
    machine().headlessMedia().add(
        { { movieExportType, fourCharCode("MooV"), fourCharCode("isom"), canMovieExportFiles, 0 }, "Muxer" });
    open("Media");
    press("List");
    EXPECT_EQ(result("availableComponents().size()"), "1");
    EXPECT_EQ(result("availableComponents().front().at(\"name\")"), "\"Muxer\"");
}

TEST_F(GalleryLivePages, TranscriptsSayWhatIsRaised)
{
    auto const transcript = make<Transcript>();
    RUN(std::string const text = "short");
    SHOW(text.size());
    SHOW(substringWithRange(text, { 4, 9 }));
    EXPECT_EQ(transcript->expressionAt(0), "std::string const text = \"short\";");
    EXPECT_EQ(transcript->resultAt(1), "5");
    EXPECT_EQ(transcript->resultAt(2), "raises NSRangeException");
}

}
}
