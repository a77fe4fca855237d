#include <tests/inspector/InspectorTest.h>
#include <tests/support/test_data.h>

#include <plix/platform/appkit/NSPasteboard.h>
#include <plix/platform/appkit/NSPopUpButton.h>
#include <plix/platform/appkit/NSScrollView.h>
#include <plix/platform/appkit/NSTextField.h>

#include <gmock/gmock.h>

#include <cstdlib>
#include <fstream>
#include <sstream>

namespace plix {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

std::string textOnPasteboard()
{
    return NSPasteboard::generalPasteboard().stringForType(NSStringPboardType).value_or("");
}

TEST_F(InspectorTest, WritesDownWhatAPersonDoes)
{
    open();
    click(*right, { 5, 6 }, { 1, NSShiftKeyMask });
    key(U'a', NSControlKeyMask);
    scroll(*left, 0, -2);
    pass(0.2);
    std::vector<std::string> lines;
    for (auto const& row : panel().events().rows())
        lines.push_back(row[0] + "|" + row[1] + "|" + row[2] + "|" + row[3]);
    EXPECT_THAT(lines,
        ElementsAre("Move|205, 36|Shift|CountingView", "Press|205, 36|Shift|CountingView", "Release|205, 36|Shift|CountingView",
            "Key||Control-a|CountingView", "Key up||Control-a|CountingView", "Move|70, 70||CountingView",
            "Scroll|70, 70|0, -2|CountingView"));
}

TEST_F(InspectorTest, WritesDownNothingOfItself)
{
    person().setModifiers(openingModifiers);
    open();
    person().setModifiers(NSControlKeyMask);
    person().setModifiers(0);
    press(panel().framesSwitch());
    press(panel().views().outline());
    key(U'x');
    EXPECT_THAT(session().log().events(), IsEmpty());
    EXPECT_FALSE(panel().copyButton().isEnabled());
    person().focusWindow([this] { return hostWindow(*window); });
    person().setModifiers(NSShiftKeyMask);
    pump();
    EXPECT_THAT(session().log().events(), SizeIs(1));
}

TEST_F(InspectorTest, ForgetsEventsWhenAsked)
{
    open();
    click(*right, { 5, 6 });
    pass(0.2);
    press(panel().clearButton());
    EXPECT_THAT(session().log().events(), IsEmpty());
    EXPECT_THAT(panel().events().rows(), IsEmpty());
}

TEST_F(InspectorTest, KeepsTheLastEventInView)
{
    open();
    for (int i = 0; i < 30; ++i) {
        scroll(*left, 0, 1);
        pass(0.2);
    }
    auto& table = panel().events().table();
    EXPECT_TRUE(NSIntersectsRect(table.rectOfRow(table.numberOfRows() - 1), table.visibleRect()));
}

TEST_F(InspectorTest, SeesWhatIsDoneWhileAMenuIsOpen)
{
    auto const popUp = make<NSPopUpButton>(Rect { 20, 200, 120, 26 });
    popUp->addItemsWithTitles({ "One", "Two", "Three" });
    content->addSubview(*popUp);
    open();
    person().click(centerOnScreen(*popUp));
    person().key(NSDownArrowFunctionKey);
    person().key(NSCarriageReturnCharacter);
    pump();
    EXPECT_EQ(popUp->indexOfSelectedItem(), 1);
    session().copyAsTest();
    EXPECT_THAT(textOnPasteboard(),
        HasSubstr("    person().click(at(80, 213));\n    person().key(NSDownArrowFunctionKey);\n"
                  "    person().key(NSCarriageReturnCharacter);\n    pump();\n"));
}

/// A window with a field, a check box and a long document.
class RecordedTest : public HeadlessTest {
protected:
    void makeApplication() override { PLIXApplication::sharedApplication(); }
    void TearDown() override
    {
        closeInspector();
        WindowWatcher::setKeyCatcher(nullptr);
    }

    Ref<NSWindow> showWindow(Rect contentRect = usualContent)
    {
        auto const content = make<CountingView>(rectWith({}, contentRect.size()));
        field = make<NSTextField>(Rect { 20, 250, 200, 22 });
        box = make<NSButton>(Rect { 20, 200, 120, 20 });
        box->setButtonType(NSSwitchButton);
        clicked = make<CountingView>(Rect { 20, 120, 100, 60 });
        scrollView = make<NSScrollView>(Rect { 240, 20, 140, 260 });
        scrollView->setDocumentView(make<NSView>(Rect { 0, 0, 140, 2000 }));
        for (auto const& view : std::vector<Ref<NSView>> { field, box, clicked, scrollView })
            content->addSubview(*view);
        auto window = showWindowWith(content, contentRect);
        window->setTitle("Form");
        return window;
    }
    std::string state()
    {
        std::ostringstream text;
        text << field->stringValue() << '|' << box->state() << '|' << scrollView->documentVisibleRect().y;
        for (auto const& line : clicked->log) {
            if (line.starts_with("mouse") || line.starts_with("rightMouse"))
                text << '|' << line;
        }
        return text.str();
    }

    static constexpr char const* expected
        = "Hi you|1|1715|mouseDown|mouseDragged|mouseDragged|mouseDragged|mouseDragged|mouseUp|rightMouseDown|rightMouseUp";

    Ref<NSTextField> field;
    Ref<NSButton> box;
    Ref<CountingView> clicked;
    Ref<NSScrollView> scrollView;
};

std::string const recordedPath = testDataPath("recorded_events.inc");

TEST_F(RecordedTest, IsCopiedAsTheTestThatIsBelow)
{
    auto const window = showWindow();
    key(U'I', NSControlKeyMask | NSShiftKeyMask);
    clickCenter(*field);
    key(U'H', NSShiftKeyMask);
    type("i me");
    key(NSLeftArrowFunctionKey, NSAlternateKeyMask | NSShiftKeyMask);
    type("you");
    key(NSCarriageReturnCharacter);
    clickCenter(*box);
    drag(*clicked, { 10, 10 }, { 50, 30 });
    clickCenter(*clicked, { 1, NSControlKeyMask, 1 });
    scroll(*scrollView, 0, -2.5F);
    pass(0.2);
    clickCenter(InspectorSession::current()->panel().copyButton());
    ASSERT_THAT(textOnPasteboard(), HasSubstr("TEST_F(HeadlessTest"));
    if (std::getenv("PLIX_UPDATE_REFERENCES"))
        std::ofstream(recordedPath) << textOnPasteboard();
    std::ostringstream recorded;
    recorded << std::ifstream(recordedPath).rdbuf();
    EXPECT_EQ(textOnPasteboard(), recorded.str());
    EXPECT_EQ(state(), expected);
}

namespace pasted {

/// What the recorded test is pasted into: it shows the form, and checks in the end what became of it.
class HeadlessTest : public RecordedTest {
protected:
    void TearDown() override
    {
        EXPECT_EQ(state(), expected);
        RecordedTest::TearDown();
    }
};

#include <tests/data/recorded_events.inc>

}

}
}
