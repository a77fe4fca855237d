#include <plix/inspector/event_script.h>

#include <plix/platform/appkit/event_constants.h>
#include <plix/platform/base/utf16.h>
#include <plix/platform/host/control_character.h>

#include <algorithm>
#include <cstdio>
#include <utility>
#include <vector>

namespace plix {

namespace {

using Type = HostEvent::Type;

constexpr char32_t firstFunctionKey = 0xF700;
constexpr char32_t lastFunctionKey = 0xF8FF;

bool isKey(Type type)
{
    return type == Type::keyDown || type == Type::keyUp;
}

/// A number as an argument of type float.
std::string floatLiteral(float number)
{
    auto const text = shortNumber(number);
    return text.find('.') == std::string::npos ? text : text + "F";
}

std::string modifierExpression(std::uint32_t flags)
{
    std::string expression;
    for (auto const* const name : namesOfModifiers(flags))
        expression += (expression.empty() ? "" : " | ") + std::string(name->constant);
    return expression.empty() ? "0" : expression;
}

std::string onOneLine(std::string text)
{
    std::ranges::replace_if(
        text, [](char byte) { return (byte >= 0 && byte < ' ') || byte == '\\'; }, ' ');
    return text;
}

/// Whether HeadlessScript::key() of one character enters just this.
bool isPlainKey(HostEvent const& event, char32_t& character, std::uint32_t& modifiers)
{
    auto const& text = event.charactersIgnoringModifiers;
    std::size_t byte = 0;
    if (text.empty())
        return false;
    character = decodeUTF8(text, byte);
    modifiers = event.modifiers;
    if (byte != text.size())
        return false;
    if (character >= firstFunctionKey && character <= lastFunctionKey) {
        if (!(modifiers & NSFunctionKeyMask))
            return false;
        modifiers &= ~std::uint32_t { NSFunctionKeyMask };
    }
    auto const control = (modifiers & NSControlKeyMask) ? controlCharacter(character) : std::nullopt;
    return event.characters == (control ? std::string(1, *control) : text);
}

class Writer {
public:
    explicit Writer(std::span<RecordedEvent const> events)
        : m_events(events)
        , m_isWritten(events.size(), false)
    {
    }

    std::string source()
    {
        for (std::size_t i = 0; i < m_events.size(); ++i) {
            if (!m_isWritten[i])
                write(i);
        }
        endTyping();
        return opening() + m_lines + "    pump();\n}\n";
    }

private:
    HostEvent const& event(std::size_t i) const { return m_events[i].event; }

    std::string opening() const
    {
        Rect const content = m_events.empty() ? Rect { 100, 200, 400, 300 } : m_events.front().content;
        auto const title = m_events.empty() ? std::string() : onOneLine(m_events.front().window);
        auto const number = [](float value) { return floatLiteral(value); };
        std::string text = "TEST_F(HeadlessTest, DoesWhatWasRecorded)\n{\n";
        text += "    // Of \"" + title + "\". Show the real content in this window.\n";
        text += "    auto const window = showWindow({ " + number(content.x) + ", " + number(content.y) + ", "
            + number(content.width) + ", " + number(content.height) + " });\n";
        if (m_hasPlaces) {
            text += "    Rect const content = window->contentRectForFrameRect(window->frame());\n";
            text += "    auto const at = [&](float x, float y) { return Point { content.x + x, content.y + y }; };\n";
        }
        return text;
    }

    void say(std::string const& call)
    {
        endTyping();
        m_lines += "    person()." + call + ";\n";
    }

    void endTyping()
    {
        auto const text = std::exchange(m_typed, {});
        if (!text.empty())
            m_lines += "    person().type(" + stringLiteral(text) + ");\n";
    }

    std::string place(std::size_t i)
    {
        m_hasPlaces = true;
        auto const point = placeInContent(m_events[i], m_events.front().content);
        return "at(" + floatLiteral(point.x) + ", " + floatLiteral(point.y) + ")";
    }

    static std::string how(int count, HostEvent const& event)
    {
        if (event.button != 0)
            return ", { " + std::to_string(count) + ", " + modifierExpression(event.modifiers) + ", " + std::to_string(event.button)
                + " }";
        if (event.modifiers != 0)
            return ", { " + std::to_string(count) + ", " + modifierExpression(event.modifiers) + " }";
        return count == 1 ? "" : ", { " + std::to_string(count) + " }";
    }

    static std::string modifierArgument(HostEvent const& event)
    {
        return event.modifiers == 0 ? "" : ", " + modifierExpression(event.modifiers);
    }

    void write(std::size_t i)
    {
        auto const& now = event(i);
        switch (now.type) {
        case Type::mouseDown:
            return writePress(i);
        case Type::mouseUp:
            return say("release(" + place(i) + how(now.clickCount, now) + ")");
        case Type::mouseMoved:
            if (now.pressedButtons != 0)
                say("dragTo(" + place(i) + modifierArgument(now) + ")");
            else if (!movesAnyway(i))
                say("moveMouse(" + place(i) + modifierArgument(now) + ")");
            return;
        case Type::scrollWheel:
            return say("scroll(" + place(i) + ", " + floatLiteral(now.scrollX) + ", " + floatLiteral(now.scrollY)
                + modifierArgument(now) + ")");
        case Type::keyDown:
            return writeKeyDown(i);
        case Type::keyUp:
            return say("keyUp(" + keyArguments(now) + ")");
        case Type::modifiersChanged:
            return writeModifiers(i);
        case Type::preedit:
            return say("preedit(" + stringLiteral(now.characters) + ", " + std::to_string(now.preeditCaret) + ")");
        case Type::mouseEntered:
        case Type::mouseExited:
            return;
        }
    }

    bool movesAnyway(std::size_t i) const
    {
        if (i + 1 == m_events.size())
            return false;
        auto const& next = event(i + 1);
        return (next.type == Type::mouseDown || next.type == Type::scrollWheel)
            && next.locationOnScreen == event(i).locationOnScreen;
    }

    /// Whether a press and a release stand here that click for the given time at the place of the first.
    bool isClick(std::size_t i, int count, HostEvent const& first) const
    {
        auto const fits = [&](HostEvent const& any, Type type) {
            return any.type == type && any.locationOnScreen == first.locationOnScreen && any.button == first.button
                && any.modifiers == first.modifiers && any.clickCount == count;
        };
        return i + 1 < m_events.size() && fits(event(i), Type::mouseDown) && fits(event(i + 1), Type::mouseUp);
    }

    void writePress(std::size_t i)
    {
        auto const& first = event(i);
        int count = 0;
        for (auto at = i; isClick(at, count + 1, first); at += 2) {
            ++count;
            m_isWritten[at] = m_isWritten[at + 1] = true;
        }
        if (count > 0)
            say("click(" + place(i) + how(count, first) + ")");
        else
            say("press(" + place(i) + how(first.clickCount, first) + ")");
    }

    static std::string keyArguments(HostEvent const& event)
    {
        return stringLiteral(event.characters) + ", " + modifierExpression(event.modifiers) + ", "
            + stringLiteral(event.charactersIgnoringModifiers);
    }

    /// The release of a key with only other keys in between; none for a key that repeats.
    std::size_t releaseOf(std::size_t down) const
    {
        auto const& pressed = event(down);
        for (auto i = down + 1; i < m_events.size(); ++i) {
            auto const& next = event(i);
            if (!isKey(next.type) && next.type != Type::modifiersChanged)
                break;
            if (!isKey(next.type) || next.charactersIgnoringModifiers != pressed.charactersIgnoringModifiers || m_isWritten[i])
                continue;
            return next.type == Type::keyUp && next.modifiers == pressed.modifiers ? i : m_events.size();
        }
        return m_events.size();
    }

    void writeKeyDown(std::size_t i)
    {
        auto const& pressed = event(i);
        auto const up = pressed.isRepeat ? m_events.size() : releaseOf(i);
        if (up == m_events.size())
            return say("keyDown(" + keyArguments(pressed) + ", " + (pressed.isRepeat ? "true" : "false") + ")");
        m_isWritten[up] = true;
        char32_t character = 0;
        std::uint32_t modifiers = 0;
        if (!isPlainKey(pressed, character, modifiers))
            return say("key(" + keyArguments(pressed) + ")");
        if (modifiers == 0 && (character == U' ' || !nameOfCharacter(character)))
            m_typed += pressed.characters;
        else
            say("key(" + characterLiteral(character) + (modifiers == 0 ? "" : ", " + modifierExpression(modifiers)) + ")");
    }

    /// A modifier key counts where it is pressed and released with nothing in between.
    void writeModifiers(std::size_t i)
    {
        auto const flags = event(i).modifiers;
        auto const before = std::exchange(m_modifiers, flags);
        bool const isAlone = (flags & ~before) != 0 && i + 1 < m_events.size() && event(i + 1).type == Type::modifiersChanged
            && event(i + 1).modifiers == before;
        if (!isAlone)
            return;
        m_isWritten[i + 1] = true;
        m_modifiers = before;
        say("setModifiers(" + modifierExpression(flags) + ")");
        say("setModifiers(" + modifierExpression(before) + ")");
    }

    std::span<RecordedEvent const> m_events;
    std::vector<bool> m_isWritten;
    std::string m_lines;
    std::string m_typed;
    std::uint32_t m_modifiers { 0 };
    bool m_hasPlaces { false };
};

}

std::string testSource(std::span<RecordedEvent const> events)
{
    return Writer(events).source();
}

std::string stringLiteral(std::string_view text)
{
    std::string literal = "\"";
    for (char const byte : text) {
        if (byte == '"' || byte == '\\') {
            literal += '\\';
            literal += byte;
        } else if (static_cast<unsigned char>(byte) < 0x20 || byte == 0x7F) {
            // Three octal digits: what follows can't join them.
            char escaped[8];
            std::snprintf(escaped, sizeof escaped, "\\%03o", static_cast<unsigned>(byte));
            literal += escaped;
        } else {
            literal += byte;
        }
    }
    return literal + '"';
}

std::string characterLiteral(char32_t character)
{
    if (auto const* const name = nameOfCharacter(character))
        return name->constant;
    if (character == U'\'' || character == U'\\')
        return std::string("U'\\") + static_cast<char>(character) + "'";
    if (character > U' ' && character < 0x7F)
        return std::string("U'") + static_cast<char>(character) + "'";
    char escaped[24];
    std::snprintf(escaped, sizeof escaped, "U'\\x%X'", static_cast<unsigned>(character));
    return escaped;
}

}
