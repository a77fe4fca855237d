#include <plix/inspector/event_log.h>

#include <plix/platform/appkit/event_constants.h>
#include <plix/platform/base/utf16.h>

#include <array>
#include <cstdio>

namespace plix {

namespace {

using Type = HostEvent::Type;

constexpr std::array modifierNames {
    KeyName { NSControlKeyMask, "Control", "NSControlKeyMask" },
    KeyName { NSAlternateKeyMask, "Alt", "NSAlternateKeyMask" },
    KeyName { NSShiftKeyMask, "Shift", "NSShiftKeyMask" },
    KeyName { NSCommandKeyMask, "Super", "NSCommandKeyMask" },
    KeyName { NSAlphaShiftKeyMask, "Caps Lock", "NSAlphaShiftKeyMask" },
    KeyName { NSNumericPadKeyMask, "Keypad", "NSNumericPadKeyMask" },
    KeyName { NSFunctionKeyMask, "Fn", "NSFunctionKeyMask" },
};

constexpr std::array characterNames {
    KeyName { NSEnterCharacter, "Enter", "NSEnterCharacter" },
    KeyName { NSBackspaceCharacter, "Control-H", "NSBackspaceCharacter" },
    KeyName { NSTabCharacter, "Tab", "NSTabCharacter" },
    KeyName { NSNewlineCharacter, "Line Feed", "NSNewlineCharacter" },
    KeyName { NSCarriageReturnCharacter, "Return", "NSCarriageReturnCharacter" },
    KeyName { NSBackTabCharacter, "Back Tab", "NSBackTabCharacter" },
    KeyName { NSEscapeCharacter, "Escape", "NSEscapeCharacter" },
    KeyName { U' ', "Space", "U' '" },
    KeyName { NSDeleteCharacter, "Backspace", "NSDeleteCharacter" },
    KeyName { NSUpArrowFunctionKey, "Up", "NSUpArrowFunctionKey" },
    KeyName { NSDownArrowFunctionKey, "Down", "NSDownArrowFunctionKey" },
    KeyName { NSLeftArrowFunctionKey, "Left", "NSLeftArrowFunctionKey" },
    KeyName { NSRightArrowFunctionKey, "Right", "NSRightArrowFunctionKey" },
    KeyName { NSF1FunctionKey, "F1", "NSF1FunctionKey" },
    KeyName { NSF2FunctionKey, "F2", "NSF2FunctionKey" },
    KeyName { NSF3FunctionKey, "F3", "NSF3FunctionKey" },
    KeyName { NSF4FunctionKey, "F4", "NSF4FunctionKey" },
    KeyName { NSF5FunctionKey, "F5", "NSF5FunctionKey" },
    KeyName { NSF6FunctionKey, "F6", "NSF6FunctionKey" },
    KeyName { NSF7FunctionKey, "F7", "NSF7FunctionKey" },
    KeyName { NSF8FunctionKey, "F8", "NSF8FunctionKey" },
    KeyName { NSF9FunctionKey, "F9", "NSF9FunctionKey" },
    KeyName { NSF10FunctionKey, "F10", "NSF10FunctionKey" },
    KeyName { NSF11FunctionKey, "F11", "NSF11FunctionKey" },
    KeyName { NSF12FunctionKey, "F12", "NSF12FunctionKey" },
    KeyName { NSInsertFunctionKey, "Insert", "NSInsertFunctionKey" },
    KeyName { NSDeleteFunctionKey, "Delete", "NSDeleteFunctionKey" },
    KeyName { NSHomeFunctionKey, "Home", "NSHomeFunctionKey" },
    KeyName { NSEndFunctionKey, "End", "NSEndFunctionKey" },
    KeyName { NSPageUpFunctionKey, "Page Up", "NSPageUpFunctionKey" },
    KeyName { NSPageDownFunctionKey, "Page Down", "NSPageDownFunctionKey" },
    KeyName { NSMenuFunctionKey, "Menu", "NSMenuFunctionKey" },
};

bool isMouse(Type type)
{
    return type == Type::mouseDown || type == Type::mouseUp || type == Type::mouseMoved || type == Type::scrollWheel;
}

std::string whatOf(HostEvent const& event)
{
    switch (event.type) {
    case Type::mouseDown: {
        std::string const button = event.button == 0 ? "" : event.button == 1 ? "Right " : "Other ";
        std::string const word = button.empty() ? "Press" : button + "press";
        return event.clickCount < 2 ? word : word + " " + std::to_string(event.clickCount);
    }
    case Type::mouseUp:
        return "Release";
    case Type::mouseMoved:
        return event.pressedButtons == 0 ? "Move" : "Drag";
    case Type::scrollWheel:
        return "Scroll";
    case Type::keyDown:
        return event.isRepeat ? "Key repeat" : "Key";
    case Type::keyUp:
        return "Key up";
    case Type::modifiersChanged:
        return "Modifiers";
    case Type::preedit:
        return "Preedit";
    case Type::mouseEntered:
        return "Enter";
    case Type::mouseExited:
        return "Exit";
    }
    return {};
}

std::string shownText(std::string const& characters)
{
    std::string shown;
    for (std::size_t byte = 0; byte < characters.size();) {
        auto const start = byte;
        auto const character = decodeUTF8(characters, byte);
        if (auto const* const name = nameOfCharacter(character))
            shown += name->word;
        else if (character >= U' ')
            shown.append(characters, start, byte - start);
    }
    return shown;
}

std::string keysOf(HostEvent const& event)
{
    std::string keys;
    // These two belong to the keys themselves.
    for (auto const* const name : namesOfModifiers(event.modifiers & ~(NSFunctionKeyMask | NSNumericPadKeyMask)))
        keys += (keys.empty() ? "" : "-") + std::string(name->word);
    std::string rest;
    if (event.type == Type::keyDown || event.type == Type::keyUp)
        rest = shownText(event.charactersIgnoringModifiers);
    else if (event.type == Type::preedit)
        rest = shownText(event.characters);
    else if (event.type == Type::scrollWheel)
        rest = shortNumber(event.scrollX) + ", " + shortNumber(event.scrollY);
    return keys.empty() || rest.empty() ? keys + rest : keys + (event.type == Type::scrollWheel ? " " : "-") + rest;
}

}

void EventLog::add(RecordedEvent recorded)
{
    auto const& event = recorded.event;
    if (event.type == Type::mouseEntered || event.type == Type::mouseExited)
        return;
    auto const isFreeMove = [](HostEvent const& any) { return any.type == Type::mouseMoved && any.pressedButtons == 0; };
    if (isFreeMove(event) && !m_events.empty() && isFreeMove(m_events.back().event)) {
        m_events.back() = std::move(recorded);
        return;
    }
    if (m_events.size() == capacity())
        m_events.erase(m_events.begin());
    m_events.push_back(std::move(recorded));
}

EventRow eventRow(RecordedEvent const& recorded)
{
    EventRow row { whatOf(recorded.event), {}, keysOf(recorded.event), recorded.view };
    if (isMouse(recorded.event.type)) {
        auto const place = placeInContent(recorded, recorded.content);
        row.place = shortNumber(place.x) + ", " + shortNumber(place.y);
    }
    return row;
}

KeyName const* nameOfCharacter(char32_t character)
{
    for (auto const& name : characterNames) {
        if (name.value == character)
            return &name;
    }
    return nullptr;
}

std::vector<KeyName const*> namesOfModifiers(std::uint32_t flags)
{
    std::vector<KeyName const*> names;
    for (auto const& name : modifierNames) {
        if (flags & name.value)
            names.push_back(&name);
    }
    return names;
}

Point placeInContent(RecordedEvent const& recorded, Rect content)
{
    return { recorded.event.locationOnScreen.x - content.x, recorded.event.locationOnScreen.y - content.y };
}

std::string shortNumber(float number)
{
    char text[32];
    std::snprintf(text, sizeof text, "%.2f", static_cast<double>(number));
    std::string shortened(text);
    while (shortened.back() == '0')
        shortened.pop_back();
    if (shortened.back() == '.')
        shortened.pop_back();
    return shortened == "-0" ? "0" : shortened;
}

}
