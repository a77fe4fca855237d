#include <tests/support/HeadlessTest.h>
#include <tests/support/TestFolder.h>
#include <tests/support/images.h>

#include <plix/controls/PLIXChiseledTextField.h>
#include <plix/platform/appkit/NSButton.h>
#include <plix/platform/appkit/NSButtonCell.h>
#include <plix/platform/appkit/NSImageView.h>
#include <plix/platform/appkit/NSMenuItem.h>
#include <plix/platform/appkit/NSScreen.h>
#include <plix/platform/base/NSLog.h>
#include <plix/platform/foundation/NSBundle.h>
#include <plix/platform/foundation/NSNotificationCenter.h>
#include <plix/platform/foundation/NSUserDefaults.h>
#include <plix/platform/foundation/file_bytes.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSImage.h>
#include <plix/platform/host/headless/HeadlessAudio.h>
#include <plix/windows/PLIXWindow.h>
#include <plix/windows/TQAlert.h>

#include <gmock/gmock.h>

#include <optional>

namespace plix {
namespace {

using testing::ElementsAre;
using testing::UnorderedElementsAre;

constexpr char const* threeLines = "One line\nanother one\nand a third";

class TQAlertTest : public HeadlessTest {
protected:
    /// What a person does while a sheet slides waits for its end or goes elsewhere; most of these tests are not about that.
    void SetUp() override
    {
        HeadlessTest::SetUp();
        setSlidingTime(0);
    }
    void TearDown() override { NSUserDefaults::standardUserDefaults().removeObjectForKey("NSWindowResizeTime"); }
    static void setSlidingTime(double seconds) { NSUserDefaults::standardUserDefaults().setObject(seconds, "NSWindowResizeTime"); }
    static Ref<TQAlert> alertWith(
        std::string_view first = "OK", std::string_view second = "Cancel", std::string_view third = "Other")
    {
        return make<TQAlert>("Title", "Statement", "Message", Ref<NSImage>(), first, second, third);
    }
    static std::array<NSButton*, 3> buttonsOf(TQAlert const& alert)
    {
        return { alert.button1(), alert.button2(), alert.button3() };
    }
    static std::array<Rect, 3> framesOf(TQAlert const& alert)
    {
        return { alert.button1()->frame(), alert.button2()->frame(), alert.button3()->frame() };
    }
    static float topMargin(NSView const& view) { return view.superview()->bounds().height - view.frame().maxY(); }
    long beeps() { return machine().headlessAudio().beepCount(); }

    /// A key or a click when the alert is up.
    void answer(char32_t character) { person().key(character); }
    void answer(NSButton& button)
    {
        person().then([&] { person().click(centerOnScreen(button)); });
    }
};

// Contents.

TEST_F(TQAlertTest, IsLaidOutByItsInterfaceFile)
{
    auto const alert = alertWith();
    ASSERT_TRUE(alert);
    EXPECT_EQ(alert->window()->backgroundMode(), 2);
    EXPECT_EQ(alert->window()->styleMask(), unsigned { NSTitledWindowMask });
    EXPECT_FALSE(alert->window()->isVisible());
    EXPECT_EQ(alert->button1()->tag(), 1);
    EXPECT_EQ(alert->button2()->tag(), 0);
    EXPECT_EQ(alert->button3()->tag(), -1);
    EXPECT_EQ(alert->button1()->keyEquivalent(), "\r");
    EXPECT_EQ(alert->button2()->keyEquivalent(), "\033");
    EXPECT_EQ(alert->button3()->keyEquivalent(), "");
    for (auto const* button : buttonsOf(*alert)) {
        EXPECT_EQ(button->action(), Selector("button:"));
        EXPECT_EQ(button->target(), alert.get());
        EXPECT_EQ(button->window(), alert->window());
    }
    EXPECT_GT(alert->button1()->frame().x, alert->button2()->frame().maxX());
    EXPECT_GT(alert->button2()->frame().x, alert->button3()->frame().maxX());
}

TEST_F(TQAlertTest, ShowsWhatItIsMadeWith)
{
    auto const icon = imageOfColor({ 64, 64 }, { 1, 0, 0, 1 });
    auto const alert = make<TQAlert>("A title", "A statement", "A message", icon, "Yes", "No", "Maybe");
    EXPECT_EQ(alert->title(), "A title");
    EXPECT_EQ(alert->window()->title(), "A title");
    EXPECT_EQ(alert->statement(), "A statement");
    EXPECT_EQ(alert->statementField()->stringValue(), "A statement");
    EXPECT_EQ(alert->message(), "A message");
    EXPECT_EQ(alert->messageField()->stringValue(), "A message");
    EXPECT_EQ(alert->icon(), icon.get());
    EXPECT_EQ(alert->iconView()->image(), icon.get());
    EXPECT_EQ(alert->button1Title(), "Yes");
    EXPECT_EQ(alert->button2Title(), "No");
    EXPECT_EQ(alert->button3Title(), "Maybe");
    alert->setIcon(nullptr);
    EXPECT_EQ(alert->icon(), nullptr);
    alert->setTitle({});
    EXPECT_EQ(alert->title(), "");
}

TEST_F(TQAlertTest, IsNilWithoutItsInterfaceFile)
{
    TestFolder const folder;
    folder.write("Alert.xib", "<document");
    auto const broken = NSBundle::bundleWithPath(folder.path());
    NSBundle::registerBundle("plix", *broken);
    std::vector<std::string> lines;
    auto const before = installLogSink([&](std::string_view line) { lines.emplace_back(line); });
    EXPECT_EQ(alertWith(), nullptr);
    installLogSink(before);
    NSBundle::registerBundle("plix", NSBundle::libraryBundle());
    EXPECT_EQ(lines.size(), 1U);
    EXPECT_NE(alertWith(), nullptr);
}

TEST_F(TQAlertTest, IsNilWhereItsInterfaceFileLacksAPart)
{
    auto const path = NSBundle::libraryBundle().pathForResource("Alert", "xib");
    ASSERT_TRUE(path);
    auto const bytes = readFileBytes(*path, 1U << 20);
    ASSERT_TRUE(bytes);
    std::string const whole(bytes->begin(), bytes->end());
    for (auto const* outlet : { "window", "iconView", "statementField", "messageField", "button1", "button2", "button3" }) {
        auto text = whole;
        auto const start = text.find("<outlet property=\"" + std::string(outlet) + '"');
        ASSERT_NE(start, std::string::npos) << outlet;
        text.erase(start, text.find("/>", start) + 2 - start);
        TestFolder const folder;
        folder.write("Alert.xib", text);
        auto const lacking = NSBundle::bundleWithPath(folder.path());
        NSBundle::registerBundle("plix", *lacking);
        EXPECT_EQ(alertWith(), nullptr) << outlet;
        NSBundle::registerBundle("plix", NSBundle::libraryBundle());
    }
    EXPECT_NE(alertWith(), nullptr);
}

// Buttons.

TEST_F(TQAlertTest, AButtonIsAsWideAsItsTitleNeedsAndFourteenPointsMore)
{
    auto const alert = alertWith();
    for (auto const* title : { "OK", "A rather long title for a button", "W" }) {
        alert->setButton2Title(title);
        auto const fitted = alert->button2()->cell()->cellSize();
        EXPECT_EQ(alert->button2()->frame().size(), (Size { fitted.width + 14, fitted.height })) << title;
    }
}

TEST_F(TQAlertTest, AButtonKeepsItsRightEdgeAndPushesThoseToItsLeft)
{
    auto const alert = alertWith();
    struct Row {
        void (TQAlert::*set)(std::string_view);
        std::size_t index;
        char const* title;
    };
    for (auto const& row : {
             Row { &TQAlert::setButton1Title, 0, "A wider title" },
             Row { &TQAlert::setButton1Title, 0, "A" },
             Row { &TQAlert::setButton1Title, 0, "" },
             Row { &TQAlert::setButton2Title, 1, "A wider title" },
             Row { &TQAlert::setButton2Title, 1, "" },
             Row { &TQAlert::setButton3Title, 2, "A wider title" },
             Row { &TQAlert::setButton3Title, 2, "" },
         }) {
        auto const before = framesOf(*alert);
        (*alert.*row.set)(row.title);
        auto const after = framesOf(*alert);
        float const growth = after[row.index].width - before[row.index].width;
        EXPECT_NE(growth, 0) << row.index << row.title;
        for (std::size_t i = 0; i < 3; ++i) {
            EXPECT_FLOAT_EQ(after[i].x, before[i].x - (i >= row.index ? growth : 0)) << row.index << row.title << i;
            EXPECT_EQ(after[i].y, before[i].y);
        }
    }
}

TEST_F(TQAlertTest, AButtonWithoutTitleIsHiddenAndDoesNothing)
{
    auto const alert = alertWith("OK", "", {});
    EXPECT_FALSE(alert->button1()->isHidden());
    for (auto const* button : { alert->button2(), alert->button3() }) {
        EXPECT_TRUE(button->isHidden());
        EXPECT_FALSE(button->isEnabled());
    }
    alert->setButton3Title("Back");
    EXPECT_FALSE(alert->button3()->isHidden());
    EXPECT_TRUE(alert->button3()->isEnabled());
    answer(NSEscapeCharacter);
    answer(NSCarriageReturnCharacter);
    EXPECT_EQ(alert->runModal(), 1);
}

// Texts.

TEST_F(TQAlertTest, GrowsWithItsStatementFromItsLowerEdge)
{
    auto const alert = alertWith();
    auto const& field = *alert->statementField();
    float const windowBefore = alert->window()->frame().height;
    float const fieldBefore = field.frame().height;
    float const marginBefore = topMargin(field);
    auto const messageBefore = alert->messageField()->frame();
    auto const iconMargin = topMargin(*alert->iconView());
    auto const origin = alert->window()->frame().origin();
    auto const mask = field.autoresizingMask();
    alert->setStatement(threeLines);
    EXPECT_EQ(field.frame().height, field.cell()->cellSizeForBounds({ 0, 0, field.frame().width, 1000 }).height);
    float const growth = field.frame().height - fieldBefore;
    EXPECT_NEAR(growth, 2 * fieldBefore, 4);
    EXPECT_EQ(alert->window()->frame().height, windowBefore + growth);
    EXPECT_EQ(alert->window()->frame().origin(), origin);
    EXPECT_EQ(topMargin(field), marginBefore);
    EXPECT_EQ(topMargin(*alert->iconView()), iconMargin);
    EXPECT_EQ(alert->messageField()->frame(), messageBefore);
    EXPECT_EQ(field.autoresizingMask(), mask);
    EXPECT_EQ(alert->window()->backgroundColor()->patternImage()->size().height, alert->window()->frame().height);
    alert->setStatement("Statement");
    EXPECT_EQ(alert->window()->frame().height, windowBefore);
    EXPECT_EQ(topMargin(field), marginBefore);
}

TEST_F(TQAlertTest, GrowsWithItsMessageBelowTheStatement)
{
    auto const alert = alertWith();
    auto const& field = *alert->messageField();
    float const windowBefore = alert->window()->frame().height;
    auto const before = field.frame();
    float const statementMargin = topMargin(*alert->statementField());
    float const gap = alert->statementField()->frame().y - before.maxY();
    auto const origin = alert->window()->frame().origin();
    alert->setMessage(threeLines);
    EXPECT_GT(field.frame().height, 2.5F * before.height);
    EXPECT_EQ(field.frame().origin(), before.origin());
    EXPECT_EQ(field.frame().width, before.width);
    EXPECT_EQ(alert->window()->frame().height, windowBefore + field.frame().height - before.height);
    EXPECT_EQ(alert->window()->frame().origin(), origin);
    EXPECT_EQ(topMargin(*alert->statementField()), statementMargin);
    EXPECT_EQ(alert->statementField()->frame().y - field.frame().maxY(), gap);
}

TEST_F(TQAlertTest, WrapsALongTextAtTheFieldsWidth)
{
    auto const alert = alertWith();
    float const width = alert->messageField()->frame().width;
    float const before = alert->messageField()->frame().height;
    alert->setMessage(
        "A message that is much too long for one line of the field, so that it goes on below that, and on once more.");
    EXPECT_GT(alert->messageField()->frame().height, 1.5F * before);
    EXPECT_EQ(alert->messageField()->frame().width, width);
}

TEST_F(TQAlertTest, TextsEndAtAThousandPoints)
{
    auto const alert = alertWith();
    std::string text;
    for (int line = 0; line < 200; ++line)
        text += "line\n";
    struct Row {
        void (TQAlert::*set)(std::string_view);
        PLIXChiseledTextField* field;
    };
    for (auto const& row :
        { Row { &TQAlert::setMessage, alert->messageField() }, Row { &TQAlert::setStatement, alert->statementField() } }) {
        float const windowBefore = alert->window()->frame().height;
        float const before = row.field->frame().height;
        (*alert.*row.set)(text);
        EXPECT_EQ(row.field->frame().height, 1000);
        EXPECT_EQ(alert->window()->frame().height, windowBefore + 1000 - before);
    }
}

// Running.

TEST_F(TQAlertTest, AnswersTheTagOfTheButton)
{
    auto const alert = alertWith();
    answer(NSCarriageReturnCharacter);
    EXPECT_EQ(alert->runModal(), 1);
    answer(NSEscapeCharacter);
    EXPECT_EQ(alert->runModal(), 0);
    for (auto* button : buttonsOf(*alert)) {
        answer(*button);
        EXPECT_EQ(alert->runModal(), button->tag());
    }
}

TEST_F(TQAlertTest, BeepsAndStandsInTheMiddleOfTheScreen)
{
    auto const alert = alertWith();
    alert->window()->setFrameOrigin({ 3, 4 });
    long const before = beeps();
    person().then([&] {
        EXPECT_EQ(beeps(), before + 1);
        EXPECT_TRUE(alert->window()->isVisible());
        EXPECT_TRUE(alert->window()->isKeyWindow());
        EXPECT_EQ(app().modalWindow(), alert->window());
    });
    answer(NSCarriageReturnCharacter);
    alert->runModal();
    Rect const area = NSScreen::mainScreen().visibleFrame();
    EXPECT_NEAR(alert->window()->frame().midX(), area.midX(), 1);
    EXPECT_GT(alert->window()->frame().midY(), area.midY() - 1);
    EXPECT_FALSE(alert->window()->isVisible());
    EXPECT_EQ(app().modalWindow(), nullptr);
}

TEST_F(TQAlertTest, TheKeyboardReachesEveryButtonBeginningWithTheFirst)
{
    auto const alert = alertWith();
    std::vector<NSResponder*> visited;
    for (int i = 0; i < 3; ++i) {
        person().then([&] { visited.push_back(alert->window()->firstResponder()); });
        person().key(NSTabCharacter);
    }
    answer(NSEscapeCharacter);
    alert->runModal();
    EXPECT_EQ(visited.front(), alert->button1());
    EXPECT_THAT(visited, UnorderedElementsAre(alert->button1(), alert->button2(), alert->button3()));
    person().then([&] { alert->window()->makeFirstResponder(alert->button3()); });
    person().key(' ');
    EXPECT_EQ(alert->runModal(), -1);
}

TEST_F(TQAlertTest, OtherWindowsWaitForTheAnswer)
{
    auto const other = showWindow({ 700, 500, 100, 100 });
    auto const button = make<NSButton>(Rect { 10, 10, 80, 30 });
    int presses = 0;
    button->setActionFunction([&](NSObject*) { ++presses; });
    other->contentView()->addSubview(*button);
    auto const alert = alertWith();
    answer(*button);
    answer(NSEscapeCharacter);
    EXPECT_EQ(alert->runModal(), 0);
    EXPECT_EQ(presses, 0);
    EXPECT_TRUE(other->isKeyWindow());
    clickCenter(*button);
    EXPECT_EQ(presses, 1);
}

TEST_F(TQAlertTest, AnswersThatItWasAborted)
{
    auto const alert = alertWith();
    person().then([&] { app().abortModal(); });
    EXPECT_EQ(alert->runModal(), NSRunAbortedResponse);
    person().then([&] { alert->window()->close(); });
    EXPECT_EQ(alert->runModal(), NSRunAbortedResponse);
    answer(NSCarriageReturnCharacter);
    EXPECT_EQ(alert->runModal(), 1);
}

TEST_F(TQAlertTest, AnswersTheTagOfWhateverSends)
{
    auto const alert = alertWith();
    auto const cell = make<NSButtonCell>("Cell");
    cell->setTag(41);
    auto const item = make<NSMenuItem>("Item", Selector(), "");
    item->setTag(42);
    auto const control = make<NSButton>(Rect {});
    control->setTag(43);
    struct Row {
        NSObject* sender;
        int expected;
    };
    for (auto const& row :
        { Row { cell.get(), 41 }, Row { item.get(), 42 }, Row { control.get(), 43 }, Row { alert.get(), 0 }, Row { nullptr, 0 } }) {
        person().then([&] { alert->button(row.sender); });
        EXPECT_EQ(alert->runModal(), row.expected);
    }
}

TEST_F(TQAlertTest, MayBeLetGoWhileItRuns)
{
    auto alert = alertWith();
    Weak<TQAlert> const watched(alert);
    person().then([&] {
        alert = nullptr;
        EXPECT_TRUE(watched);
    });
    answer(NSCarriageReturnCharacter);
    EXPECT_EQ(alert.get()->runModal(), 1);
    EXPECT_FALSE(watched);
}

TEST_F(TQAlertTest, ASecondRunWhileItRunsIsAbortedAtOnce)
{
    auto const parent = showWindow();
    auto const alert = alertWith();
    std::vector<int> inner;
    long during = 0;
    Rect frame;
    person().then([&] {
        during = beeps();
        frame = alert->window()->frame();
        inner.push_back(alert->runModal());
        inner.push_back(alert->runAsSheetForWindow(*parent));
        EXPECT_EQ(beeps(), during);
        EXPECT_EQ(alert->window()->frame(), frame);
        EXPECT_TRUE(alert->window()->isVisible());
        EXPECT_EQ(app().modalWindow(), alert->window());
    });
    answer(NSEscapeCharacter);
    EXPECT_EQ(alert->runModal(), 0);
    EXPECT_THAT(inner, ElementsAre(NSRunAbortedResponse, NSRunAbortedResponse));
    EXPECT_EQ(app().modalWindow(), nullptr);
    answer(NSCarriageReturnCharacter);
    EXPECT_EQ(alert->runModal(), 1);
}

TEST_F(TQAlertTest, IsCentredAlsoWhereItIsOnScreen)
{
    // Centred by the alert, not only by the application, which leaves a window alone that is on screen.
    auto const alert = alertWith();
    alert->window()->makeKeyAndOrderFront(nullptr);
    alert->window()->setFrameOrigin({ 3, 40 });
    answer(NSCarriageReturnCharacter);
    alert->runModal();
    Rect const area = NSScreen::mainScreen().visibleFrame();
    EXPECT_NEAR(alert->window()->frame().midX(), area.midX(), 1);
    EXPECT_GT(alert->window()->frame().midY(), area.midY() - 1);
}

TEST_F(TQAlertTest, LeavesTheScreenWhenAnActionThrows)
{
    auto const alert = alertWith();
    person().then([] { throw std::runtime_error("action"); });
    EXPECT_THROW(alert->runModal(), std::runtime_error);
    EXPECT_FALSE(alert->window()->isVisible());
    EXPECT_EQ(app().modalWindow(), nullptr);
    answer(NSCarriageReturnCharacter);
    EXPECT_EQ(alert->runModal(), 1);
}

TEST_F(TQAlertTest, NestsThreeDeepEachAboveTheOneBefore)
{
    auto const back = showWindow();
    auto const first = alertWith();
    auto const second = alertWith();
    auto const third = alertWith();
    std::vector<int> answers;
    std::vector<NSWindow*> order;
    person().then([&] {
        person().then([&] {
            person().then([&] {
                for (auto const& window : app().orderedWindows())
                    order.push_back(window.get());
                first->window()->setFrameOrigin({ 20, 40 }); // beside the others
                person().click(centerOnScreen(*first->button1()));
                answer(*third->button3());
            });
            second->window()->setFrameOrigin({ 500, 300 });
            answers.push_back(third->runAsSheetForWindow(*second->window()));
            answer(NSEscapeCharacter);
        });
        answers.push_back(second->runModal());
        answer(NSCarriageReturnCharacter);
    });
    answers.push_back(first->runModal());
    EXPECT_THAT(order, ElementsAre(third->window(), second->window(), first->window(), back.get()));
    EXPECT_THAT(answers, ElementsAre(-1, 0, 1));
    EXPECT_TRUE(back->isKeyWindow());
}

// As a sheet.

class TQAlertSheetTest : public TQAlertTest {
protected:
    void SetUp() override
    {
        TQAlertTest::SetUp();
        parent = showWindow();
        alert = alertWith();
    }
    Ref<NSWindow> parent;
    Ref<TQAlert> alert;
};

TEST_F(TQAlertSheetTest, HangsFromItsWindowUntilItIsAnswered)
{
    long const before = beeps();
    person().then([&] {
        EXPECT_EQ(beeps(), before + 1);
        EXPECT_EQ(parent->attachedSheet(), alert->window());
        EXPECT_TRUE(alert->window()->isSheet());
        EXPECT_TRUE(alert->window()->isVisible());
        EXPECT_EQ(app().modalWindow(), alert->window());
    });
    answer(NSCarriageReturnCharacter);
    EXPECT_EQ(alert->runAsSheetForWindow(*parent), 1);
    EXPECT_EQ(parent->attachedSheet(), nullptr);
    EXPECT_FALSE(alert->window()->isSheet());
    EXPECT_FALSE(alert->window()->isVisible());
    EXPECT_EQ(app().modalWindow(), nullptr);
    EXPECT_TRUE(parent->isKeyWindow());
    for (auto* button : buttonsOf(*alert)) {
        answer(*button);
        EXPECT_EQ(alert->runAsSheetForWindow(*parent), button->tag());
    }
}

TEST_F(TQAlertSheetTest, IsFivePointsTallerAfterEachRun)
{
    Rect const before = alert->window()->frame();
    auto const buttonsBefore = framesOf(*alert);
    auto const statementBefore = alert->statementField()->frame();
    for (int run = 1; run <= 2; ++run) {
        answer(NSCarriageReturnCharacter);
        alert->runAsSheetForWindow(*parent);
        EXPECT_EQ(alert->window()->frame().height, before.height + static_cast<float>(5 * run));
        EXPECT_EQ(alert->window()->frame().width, before.width);
        EXPECT_EQ(framesOf(*alert), buttonsBefore);
        EXPECT_EQ(alert->statementField()->frame(), statementBefore);
        EXPECT_TRUE(alert->window()->contentView()->autoresizesSubviews());
    }
}

TEST_F(TQAlertSheetTest, EveryOtherWindowWaitsToo)
{
    auto const other = showWindow({ 700, 500, 100, 100 });
    int presses = 0;
    auto const buttonIn = [&](NSWindow& window) {
        auto const button = make<NSButton>(Rect { 10, 10, 80, 30 });
        button->setActionFunction([&](NSObject*) { ++presses; });
        window.contentView()->addSubview(*button);
        return button;
    };
    auto const inParent = buttonIn(*parent);
    auto const inOther = buttonIn(*other);
    answer(*inParent);
    answer(*inOther);
    answer(NSEscapeCharacter);
    EXPECT_EQ(alert->runAsSheetForWindow(*parent), 0);
    EXPECT_EQ(presses, 0);
    clickCenter(*inOther);
    clickCenter(*inParent);
    EXPECT_EQ(presses, 2);
}

TEST_F(TQAlertSheetTest, ASecondRunWhileItRunsIsAbortedAtOnce)
{
    std::vector<int> inner;
    Rect frame;
    person().then([&] {
        frame = alert->window()->frame();
        inner.push_back(alert->runAsSheetForWindow(*parent));
        inner.push_back(alert->runModal());
        EXPECT_EQ(alert->window()->frame(), frame);
        EXPECT_EQ(parent->attachedSheet(), alert->window());
    });
    answer(NSCarriageReturnCharacter);
    EXPECT_EQ(alert->runAsSheetForWindow(*parent), 1);
    EXPECT_THAT(inner, ElementsAre(NSRunAbortedResponse, NSRunAbortedResponse));
    EXPECT_EQ(parent->attachedSheet(), nullptr);
    EXPECT_EQ(app().modalWindow(), nullptr);
}

TEST_F(TQAlertSheetTest, IsTakenOffWhenSomethingThrows)
{
    for (auto const* name : { "", NSWindowWillBeginSheetNotification, NSWindowDidBecomeKeyNotification,
             NSWindowDidResizeNotification, NSWindowDidEndSheetNotification }) {
        auto const token = NSNotificationCenter::defaultCenter().addObserver(
            [](NSNotification const&) { throw std::runtime_error("observer"); }, name, nullptr);
        if (std::string_view(name).empty())
            person().then([] { throw std::runtime_error("action"); });
        else
            answer(NSCarriageReturnCharacter);
        EXPECT_THROW(alert->runAsSheetForWindow(*parent), std::runtime_error) << name;
        NSNotificationCenter::defaultCenter().removeObserver(*token);
        pump();
        EXPECT_FALSE(alert->window()->isVisible()) << name;
        EXPECT_FALSE(alert->window()->isSheet()) << name;
        EXPECT_EQ(parent->attachedSheet(), nullptr) << name;
        EXPECT_EQ(app().modalWindow(), nullptr) << name;
        EXPECT_TRUE(alert->window()->contentView()->autoresizesSubviews()) << name;
        answer(NSEscapeCharacter);
        EXPECT_EQ(alert->runAsSheetForWindow(*parent), 0) << name;
    }
}

TEST_F(TQAlertSheetTest, EndsWhenItsWindowIsClosed)
{
    person().then([&] { parent->close(); });
    EXPECT_EQ(alert->runAsSheetForWindow(*parent), NSRunAbortedResponse);
    EXPECT_FALSE(alert->window()->isVisible());
    EXPECT_FALSE(alert->window()->isSheet());
    EXPECT_EQ(app().modalWindow(), nullptr);
    auto const next = showWindow();
    answer(NSCarriageReturnCharacter);
    EXPECT_EQ(alert->runAsSheetForWindow(*next), 1);
}

TEST_F(TQAlertSheetTest, EndsWhenItsWindowIsClosedAndLetGo)
{
    person().then([&] { std::exchange(parent, nullptr)->close(); });
    EXPECT_EQ(alert->runAsSheetForWindow(*parent), NSRunAbortedResponse);
    EXPECT_EQ(app().modalWindow(), nullptr);
}

TEST_F(TQAlertSheetTest, EndsWhenItsWindowIsClosedWhileItSlides)
{
    setSlidingTime(0.2);
    person().then([&] { parent->close(); });
    EXPECT_EQ(alert->runAsSheetForWindow(*parent), NSRunAbortedResponse);
    EXPECT_FALSE(alert->window()->isVisible());
    EXPECT_EQ(app().modalWindow(), nullptr);
}

TEST_F(TQAlertSheetTest, AKeyThatIsPressedWhileItSlidesAnswersIt)
{
    setSlidingTime(0.2);
    person().key(NSEscapeCharacter);
    EXPECT_EQ(alert->runAsSheetForWindow(*parent), 0);
}

TEST_F(TQAlertSheetTest, CannotHangFromItself)
{
    EXPECT_EQ(alert->runAsSheetForWindow(*alert->window()), NSRunAbortedResponse);
    EXPECT_FALSE(alert->window()->isVisible());
}

TEST_F(TQAlertSheetTest, ASecondSheetOfTheSameWindowHangsFromTheFirst)
{
    auto const second = alertWith();
    std::optional<int> inner;
    person().then([&] {
        person().then([&] {
            EXPECT_EQ(alert->window()->attachedSheet(), second->window());
            answer(NSEscapeCharacter);
        });
        inner = second->runAsSheetForWindow(*parent);
        EXPECT_EQ(parent->attachedSheet(), alert->window());
        answer(NSCarriageReturnCharacter);
    });
    EXPECT_EQ(alert->runAsSheetForWindow(*parent), 1);
    EXPECT_EQ(inner, 0);
    EXPECT_EQ(parent->attachedSheet(), nullptr);
}

TEST_F(TQAlertSheetTest, RunsAsAWindowAfterwards)
{
    answer(NSCarriageReturnCharacter);
    alert->runAsSheetForWindow(*parent);
    person().then([&] { EXPECT_FALSE(alert->window()->isSheet()); });
    answer(NSEscapeCharacter);
    EXPECT_EQ(alert->runModal(), 0);
}

TEST_F(TQAlertSheetTest, RunsOverAWindowThatIsNotOnScreen)
{
    auto const hidden = make<NSWindow>(Rect { 0, 0, 300, 200 }, usualStyle, NSBackingStoreBuffered, false);
    person().then([&] { EXPECT_TRUE(alert->window()->isVisible()); });
    answer(NSCarriageReturnCharacter);
    EXPECT_EQ(alert->runAsSheetForWindow(*hidden), 1);
    EXPECT_EQ(hidden->attachedSheet(), nullptr);
}

}
}
