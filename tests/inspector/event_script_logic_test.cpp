#include <plix/inspector/event_log.h>
#include <plix/inspector/event_script.h>

#include <plix/platform/appkit/event_constants.h>

#include <gmock/gmock.h>

namespace plix {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using Type = HostEvent::Type;

constexpr Rect content { 100, 200, 400, 300 };

RecordedEvent recorded(HostEvent event)
{
    return { std::move(event), content, "Inputs", "NSButton" };
}

RecordedEvent mouse(Type type, Point place, std::uint32_t modifiers = 0, int button = 0, int count = 1)
{
    HostEvent event;
    event.type = type;
    event.locationOnScreen = { content.x + place.x, content.y + place.y };
    event.modifiers = modifiers;
    event.button = button;
    event.clickCount = count;
    return recorded(event);
}

RecordedEvent drag(Point place)
{
    auto moved = mouse(Type::mouseMoved, place);
    moved.event.pressedButtons = 1;
    return moved;
}

RecordedEvent key(Type type, std::string characters, std::uint32_t modifiers = 0, std::string ignoring = {}, bool isRepeat = false)
{
    HostEvent event;
    event.type = type;
    event.charactersIgnoringModifiers = ignoring.empty() ? characters : ignoring;
    event.characters = std::move(characters);
    event.modifiers = modifiers;
    event.isRepeat = isRepeat;
    return recorded(event);
}

RecordedEvent modifiers(std::uint32_t flags)
{
    HostEvent event;
    event.type = Type::modifiersChanged;
    event.modifiers = flags;
    return recorded(event);
}

RecordedEvent scroll(Point place, float x, float y, std::uint32_t flags = 0)
{
    auto turned = mouse(Type::scrollWheel, place, flags);
    turned.event.scrollX = x;
    turned.event.scrollY = y;
    return turned;
}

/// The calls of person() in a test's source, in order.
std::vector<std::string> callsOf(std::vector<RecordedEvent> const& events)
{
    auto const source = testSource(events);
    std::vector<std::string> calls;
    std::string const opening = "    person().";
    for (std::size_t at = source.find(opening); at != std::string::npos; at = source.find(opening, at + 1)) {
        auto const end = source.find('\n', at);
        calls.push_back(source.substr(at + opening.size(), end - at - opening.size()));
    }
    return calls;
}

struct ScriptCase {
    char const* about;
    std::vector<RecordedEvent> events;
    std::vector<std::string> calls;
};

std::vector<ScriptCase> scriptCases()
{
    constexpr auto down = Type::mouseDown;
    constexpr auto up = Type::mouseUp;
    constexpr auto keyDown = Type::keyDown;
    constexpr auto keyUp = Type::keyUp;
    return {
        { "a click", { mouse(down, { 20, 30 }), mouse(up, { 20, 30 }) }, { "click(at(20, 30));" } },
        { "a click with modifiers", { mouse(down, { 1, 2 }, NSShiftKeyMask), mouse(up, { 1, 2 }, NSShiftKeyMask) },
            { "click(at(1, 2), { 1, NSShiftKeyMask });" } },
        { "two modifiers",
            { mouse(down, { 1, 2 }, NSShiftKeyMask | NSControlKeyMask), mouse(up, { 1, 2 }, NSShiftKeyMask | NSControlKeyMask) },
            { "click(at(1, 2), { 1, NSControlKeyMask | NSShiftKeyMask });" } },
        { "the right button", { mouse(down, { 1, 2 }, 0, 1), mouse(up, { 1, 2 }, 0, 1) }, { "click(at(1, 2), { 1, 0, 1 });" } },
        { "a double click",
            { mouse(down, { 1, 2 }), mouse(up, { 1, 2 }), mouse(down, { 1, 2 }, 0, 0, 2), mouse(up, { 1, 2 }, 0, 0, 2) },
            { "click(at(1, 2), { 2 });" } },
        { "two clicks", { mouse(down, { 1, 2 }), mouse(up, { 1, 2 }), mouse(down, { 1, 2 }), mouse(up, { 1, 2 }) },
            { "click(at(1, 2));", "click(at(1, 2));" } },
        { "a double click whose first is forgotten", { mouse(down, { 1, 2 }, 0, 0, 2), mouse(up, { 1, 2 }, 0, 0, 2) },
            { "press(at(1, 2), { 2 });", "release(at(1, 2), { 2 });" } },
        { "released elsewhere", { mouse(down, { 1, 2 }), mouse(up, { 3, 2 }) }, { "press(at(1, 2));", "release(at(3, 2));" } },
        { "modifiers that change in between", { mouse(down, { 1, 2 }), mouse(up, { 1, 2 }, NSShiftKeyMask) },
            { "press(at(1, 2));", "release(at(1, 2), { 1, NSShiftKeyMask });" } },
        { "a drag", { mouse(down, { 1, 2 }), drag({ 5, 6.5F }), drag({ 9, 8 }), mouse(up, { 9, 8 }) },
            { "press(at(1, 2));", "dragTo(at(5, 6.5F));", "dragTo(at(9, 8));", "release(at(9, 8));" } },
        { "a move before a press there", { mouse(Type::mouseMoved, { 1, 2 }), mouse(down, { 1, 2 }), mouse(up, { 1, 2 }) },
            { "click(at(1, 2));" } },
        { "a move elsewhere", { mouse(Type::mouseMoved, { 1, 2 }), mouse(down, { 5, 2 }), mouse(up, { 5, 2 }) },
            { "moveMouse(at(1, 2));", "click(at(5, 2));" } },
        { "a move at the end", { mouse(Type::mouseMoved, { -1, 2 }, NSControlKeyMask) },
            { "moveMouse(at(-1, 2), NSControlKeyMask);" } },
        { "the wheel", { scroll({ 5, 5 }, 0, -3), scroll({ 5, 5 }, 0.5F, 0, NSShiftKeyMask) },
            { "scroll(at(5, 5), 0, -3);", "scroll(at(5, 5), 0.5F, 0, NSShiftKeyMask);" } },
        { "typing", { key(keyDown, "h"), key(keyUp, "h"), key(keyDown, "i"), key(keyUp, "i") }, { "type(\"hi\");" } },
        { "typing faster than fingers rise", { key(keyDown, "h"), key(keyDown, "i"), key(keyUp, "h"), key(keyUp, "i") },
            { "type(\"hi\");" } },
        { "typing, a click, typing",
            { key(keyDown, "h"), key(keyUp, "h"), mouse(down, { 1, 2 }), mouse(up, { 1, 2 }), key(keyDown, " "), key(keyUp, " ") },
            { "type(\"h\");", "click(at(1, 2));", "type(\" \");" } },
        { "quotes and other letters", { key(keyDown, "\""), key(keyUp, "\""), key(keyDown, "ä"), key(keyUp, "ä") },
            { "type(\"\\\"ä\");" } },
        { "a shifted letter", { key(keyDown, "H", NSShiftKeyMask), key(keyUp, "H", NSShiftKeyMask) },
            { "key(U'H', NSShiftKeyMask);" } },
        { "a shortcut", { key(keyDown, "\x01", NSControlKeyMask, "a"), key(keyUp, "\x01", NSControlKeyMask, "a") },
            { "key(U'a', NSControlKeyMask);" } },
        { "a letter outside of ASCII with a modifier",
            { key(keyDown, "ä", NSAlternateKeyMask), key(keyUp, "ä", NSAlternateKeyMask) },
            { "key(U'\\xE4', NSAlternateKeyMask);" } },
        { "a function key", { key(keyDown, "\xEF\x9C\x80", NSFunctionKeyMask), key(keyUp, "\xEF\x9C\x80", NSFunctionKeyMask) },
            { "key(NSUpArrowFunctionKey);" } },
        { "a function key that lacks its flag", { key(keyDown, "\xEF\x9C\x80"), key(keyUp, "\xEF\x9C\x80") },
            { "key(\"\xEF\x9C\x80\", 0, \"\xEF\x9C\x80\");" } },
        { "Return", { key(keyDown, "\r"), key(keyUp, "\r") }, { "key(NSCarriageReturnCharacter);" } },
        { "a key with another text than its own",
            { key(keyDown, "@", NSAlternateKeyMask, "q"), key(keyUp, "@", NSAlternateKeyMask, "q") },
            { "key(\"@\", NSAlternateKeyMask, \"q\");" } },
        { "a dead key", { key(keyDown, "", 0, "^"), key(keyUp, "", 0, "^") }, { "key(\"\", 0, \"^\");" } },
        { "a key that is held", { key(keyDown, "x"), key(keyDown, "x", 0, "x", true), key(keyUp, "x") },
            { "keyDown(\"x\", 0, \"x\", false);", "keyDown(\"x\", 0, \"x\", true);", "keyUp(\"x\", 0, \"x\");" } },
        { "a key that is held over a click", { key(keyDown, "x"), mouse(down, { 1, 2 }), mouse(up, { 1, 2 }), key(keyUp, "x") },
            { "keyDown(\"x\", 0, \"x\", false);", "click(at(1, 2));", "keyUp(\"x\", 0, \"x\");" } },
        { "modifiers that go with a key",
            { modifiers(NSControlKeyMask), key(keyDown, "\x01", NSControlKeyMask, "a"), key(keyUp, "\x01", NSControlKeyMask, "a"),
                modifiers(0) },
            { "key(U'a', NSControlKeyMask);" } },
        { "two modifiers that go with a click",
            { modifiers(NSControlKeyMask), modifiers(NSControlKeyMask | NSShiftKeyMask),
                mouse(down, { 1, 2 }, NSControlKeyMask | NSShiftKeyMask), mouse(up, { 1, 2 }, NSControlKeyMask | NSShiftKeyMask),
                modifiers(NSControlKeyMask), modifiers(0) },
            { "click(at(1, 2), { 1, NSControlKeyMask | NSShiftKeyMask });" } },
        { "a modifier alone", { modifiers(NSAlternateKeyMask), modifiers(0) },
            { "setModifiers(NSAlternateKeyMask);", "setModifiers(0);" } },
        { "nothing", {}, {} },
    };
}

TEST(EventScript, SaysEachEventAsTheMachinesScriptDoes)
{
    for (auto const& row : scriptCases())
        EXPECT_EQ(callsOf(row.events), row.calls) << row.about;
}

TEST(EventScript, SaysWhatAnInputMethodShows)
{
    HostEvent event;
    event.type = Type::preedit;
    event.characters = "に";
    event.preeditCaret = 1;
    EXPECT_THAT(callsOf({ recorded(event) }), ElementsAre("preedit(\"に\", 1);"));
}

TEST(EventScript, IsAWholeTest)
{
    EXPECT_EQ(testSource(std::vector { mouse(Type::mouseDown, { 20, 30 }), mouse(Type::mouseUp, { 20, 30 }) }),
        "TEST_F(HeadlessTest, DoesWhatWasRecorded)\n"
        "{\n"
        "    // Of \"Inputs\". Show the real content in this window.\n"
        "    auto const window = showWindow({ 100, 200, 400, 300 });\n"
        "    Rect const content = window->contentRectForFrameRect(window->frame());\n"
        "    auto const at = [&](float x, float y) { return Point { content.x + x, content.y + y }; };\n"
        "    person().click(at(20, 30));\n"
        "    pump();\n"
        "}\n");
}

TEST(EventScript, NamesNoPlacesThatItDoesNotUse)
{
    EXPECT_THAT(testSource(std::vector { key(Type::keyDown, "a"), key(Type::keyUp, "a") }), Not(HasSubstr("auto const at")));
}

TEST(EventScript, CountsThePlacesOfOtherWindowsFromTheFirst)
{
    auto inPopUp = mouse(Type::mouseDown, { 50, -20 });
    inPopUp.content = { 140, 150, 80, 60 };
    EXPECT_THAT(callsOf({ scroll({ 1, 1 }, 0, 1), inPopUp }), ElementsAre("scroll(at(1, 1), 0, 1);", "press(at(50, -20));"));
}

TEST(EventScript, KeepsATitleInItsComment)
{
    auto event = mouse(Type::mouseMoved, { 1, 1 });
    event.window = "two\nlines\\";
    EXPECT_THAT(testSource(std::vector { event }), HasSubstr("// Of \"two lines \". Show"));
}

TEST(EventScript, WritesLiterals)
{
    EXPECT_EQ(stringLiteral("a\"b\\c"), "\"a\\\"b\\\\c\"");
    EXPECT_EQ(stringLiteral("\x01"
                            "1\x7F"),
        "\"\\0011\\177\"");
    EXPECT_EQ(characterLiteral(U'\''), "U'\\''");
    EXPECT_EQ(characterLiteral(U'\\'), "U'\\\\'");
    EXPECT_EQ(characterLiteral(0x1F600), "U'\\x1F600'");
    EXPECT_EQ(characterLiteral(NSEscapeCharacter), "NSEscapeCharacter");
}

TEST(EventLog, KeepsTheLastOfFreeMovesAndAllOfDrags)
{
    EventLog log;
    log.add(mouse(Type::mouseMoved, { 1, 1 }));
    log.add(mouse(Type::mouseMoved, { 2, 2 }));
    log.add(drag({ 3, 3 }));
    log.add(drag({ 4, 4 }));
    log.add(mouse(Type::mouseEntered, { 4, 4 }));
    log.add(mouse(Type::mouseExited, { 4, 4 }));
    ASSERT_THAT(log.events(), SizeIs(3));
    EXPECT_EQ(placeInContent(log.events()[0], content), (Point { 2, 2 }));
    EXPECT_EQ(placeInContent(log.events()[2], content), (Point { 4, 4 }));
}

TEST(EventLog, ForgetsTheOldest)
{
    EventLog log;
    for (std::size_t i = 0; i < EventLog::capacity() + 3; ++i)
        log.add(scroll({ static_cast<float>(i), 0 }, 0, 1));
    ASSERT_THAT(log.events(), SizeIs(EventLog::capacity()));
    EXPECT_EQ(placeInContent(log.events().front(), content), (Point { 3, 0 }));
    log.clear();
    EXPECT_THAT(log.events(), IsEmpty());
}

TEST(EventLog, SaysEventsInWords)
{
    struct {
        RecordedEvent event;
        EventRow row;
    } const rows[] {
        { mouse(Type::mouseDown, { 20, 30.5F }), { "Press", "20, 30.5", "", "NSButton" } },
        { mouse(Type::mouseDown, { 20, 30 }, NSShiftKeyMask, 0, 2), { "Press 2", "20, 30", "Shift", "NSButton" } },
        { mouse(Type::mouseDown, { 20, 30 }, 0, 1), { "Right press", "20, 30", "", "NSButton" } },
        { mouse(Type::mouseUp, { 20, 30 }), { "Release", "20, 30", "", "NSButton" } },
        { mouse(Type::mouseMoved, { 20, 30 }), { "Move", "20, 30", "", "NSButton" } },
        { drag({ 20, 30 }), { "Drag", "20, 30", "", "NSButton" } },
        { scroll({ 1, 2 }, 0, -1.25F), { "Scroll", "1, 2", "0, -1.25", "NSButton" } },
        { scroll({ 1, 2 }, 0, 1, NSShiftKeyMask), { "Scroll", "1, 2", "Shift 0, 1", "NSButton" } },
        { key(Type::keyDown, "\x1a", NSControlKeyMask | NSShiftKeyMask, "Z"), { "Key", "", "Control-Shift-Z", "NSButton" } },
        { key(Type::keyDown, "\xEF\x9C\x80", NSFunctionKeyMask | NSNumericPadKeyMask), { "Key", "", "Up", "NSButton" } },
        { key(Type::keyDown, " ", 0, " ", true), { "Key repeat", "", "Space", "NSButton" } },
        { key(Type::keyUp, "\x7F"), { "Key up", "", "Backspace", "NSButton" } },
        { modifiers(NSCommandKeyMask), { "Modifiers", "", "Super", "NSButton" } },
    };
    for (auto const& row : rows)
        EXPECT_EQ(eventRow(row.event), row.row) << row.row.what;
}

TEST(EventLog, WritesNumbersWithoutNeedlessDigits)
{
    EXPECT_EQ(shortNumber(20), "20");
    EXPECT_EQ(shortNumber(100), "100");
    EXPECT_EQ(shortNumber(12.5F), "12.5");
    EXPECT_EQ(shortNumber(-0.001F), "0");
}

}
}
