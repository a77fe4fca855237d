#pragma once

#include <plix/inspector/event_log.h>

#include <span>
#include <string>

namespace plix {

/// The source of a test, a TEST_F of HeadlessTest, in which a person does on a headless machine what these events say. All points
/// count from the lower left corner of the content of the window that the first event is in; the test shows an empty window in its
/// place. Moves that a press or a turn of the wheel makes anyway are left out, and so are modifier keys that go with another key or
/// the mouse.
std::string testSource(std::span<RecordedEvent const>);

/// A text as a C++ literal, with its quotes.
std::string stringLiteral(std::string_view);
/// A character as an expression: a name of the platform's or a literal.
std::string characterLiteral(char32_t);

}
