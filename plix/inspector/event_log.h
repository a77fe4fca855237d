#pragma once

#include <plix/platform/graphics/geometry.h>
#include <plix/platform/host/HostEvent.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace plix {

/// What a person did in a window, and who it was for.
struct RecordedEvent {
    /// As the host told it.
    HostEvent event;
    /// The window's content at that time, on screen.
    Rect content;
    /// The window's title; empty for pop-ups.
    std::string window;
    /// The class of the view under the pointer, or that has the keyboard.
    std::string view;
};

/// The last events, oldest first.
class EventLog {
public:
    static constexpr std::size_t capacity() { return 200; }

    std::vector<RecordedEvent> const& events() const { return m_events; }
    /// Of moves without a button that follow each other only the last is kept; entering and leaving windows, which goes with
    /// moving, is left out.
    void add(RecordedEvent);
    void clear() { m_events.clear(); }

private:
    std::vector<RecordedEvent> m_events;
};

/// An event as a line of a table.
struct EventRow {
    /// "Press", "Double click", "Key": what was done.
    std::string what;
    /// "20, 30" from the content's lower left corner; empty for keys.
    std::string place;
    /// The keys that were held or pressed: "Control-Shift-z", "Up"; for the wheel how far.
    std::string keys;
    /// The view's class.
    std::string view;

    friend bool operator==(EventRow const&, EventRow const&) = default;
};

/// Says an event in words.
EventRow eventRow(RecordedEvent const&);

/// A character that a key enters without being printable, or a modifier flag: the word for people, the name in the platform's
/// headers.
struct KeyName {
    /// The character or the flag.
    std::uint32_t value;
    /// "Escape".
    char const* word;
    /// "NSEscapeCharacter".
    char const* constant;
};

/// Null for a character that stands for itself.
KeyName const* nameOfCharacter(char32_t);
/// The modifier flags that a set has, in the order in which people say them.
std::vector<KeyName const*> namesOfModifiers(std::uint32_t flags);
/// Where an event took place in its content, from the lower left corner.
Point placeInContent(RecordedEvent const&, Rect content);
/// A number of points without needless digits: "20", "12.5".
std::string shortNumber(float);

}
