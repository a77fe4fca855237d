#include <examples/gallery/Transcript.h>
#include <examples/gallery/pages.h>

#include <plix/platform/appkit/NSButton.h>
#include <plix/platform/base/utf16.h>
#include <plix/platform/foundation/NSRunLoop.h>

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
    press("The kettle boils");
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
    open("NSTimer");
    press("Start");
    closePage();
    pass(1);
    EXPECT_FALSE(NSRunLoop::currentRunLoop().nextFireDate(NSDefaultRunLoopMode));
}

TEST_F(GalleryLivePages, TheRunLoopCallsLater)
{
    open("NSRunLoop");
    press("Call later");
    EXPECT_EQ(result("called by the run loop"), "in kCFRunLoopDefaultMode");
    EXPECT_EQ(countOf("called by the run loop"), 1);
    press("Before the next wait");
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
    press("No whistling");
    pass(2);
    EXPECT_EQ(countOf("whistle"), 0);
    press("Ask");
    press("Cancel all");
    pass(2);
    EXPECT_EQ(countOf("boil"), 1);
    press("Ask");
    pass(2);
    EXPECT_EQ(countOf("whistle"), 1);
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
