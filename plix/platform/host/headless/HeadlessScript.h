#pragma once

#include <plix/platform/graphics/geometry.h>
#include <plix/platform/host/HostEvent.h>

#include <functional>
#include <string_view>
#include <vector>

namespace plix {

class HeadlessDisplay;
class HeadlessEvents;
class HeadlessWindow;

struct ScriptedClick {
    int count { 1 };
    std::uint32_t modifiers { 0 };
    int button { 0 };
};

/// A person at the machine. Everything is entered behind what was entered before, and takes place when the application comes to
/// look for it; where the pointer is and what has the keyboard counts at that time. Points are on screen, y upwards.
class PLIX_EXPORT HeadlessScript {
public:
    HeadlessScript(HeadlessDisplay&, HeadlessEvents&);

    void moveMouse(Point, std::uint32_t modifiers = 0);
    /// The pointer moves there, and the button goes down. `click.count` is which click of a multiple one this is.
    void press(Point, ScriptedClick = {});
    /// The pointer moves there with the buttons that are held.
    void dragTo(Point, std::uint32_t modifiers = 0);
    void release(Point, ScriptedClick = {});
    /// All clicks of a multiple one.
    void click(Point, ScriptedClick = {});
    /// Pressed, moved in a few steps, released.
    void drag(Point from, Point to, ScriptedClick = {}, int steps = 4);
    /// Lines; positive y scrolls towards the start.
    void scroll(Point, float deltaX, float deltaY, std::uint32_t modifiers = 0);

    /// A key pressed and released. Without `ignoringModifiers` that is the same text.
    void key(std::string_view characters, std::uint32_t modifiers = 0, std::string_view ignoringModifiers = {});
    void key(char32_t character, std::uint32_t modifiers = 0);
    void keyDown(std::string_view characters, std::uint32_t modifiers, std::string_view ignoringModifiers, bool isRepeat);
    void keyUp(std::string_view characters, std::uint32_t modifiers, std::string_view ignoringModifiers);
    /// One key for each character.
    void type(std::string_view text);
    void setModifiers(std::uint32_t);
    /// What an input method shows; empty text ends it.
    void preedit(std::string_view text, long caret);

    // The window manager's part. A window is named by a function, which is asked when its turn comes and may answer null.
    using WindowFinder = std::function<HeadlessWindow*()>;
    void closeWindow(WindowFinder);
    void focusWindow(WindowFinder);
    /// Another application gets the keyboard.
    void focusNothing();
    /// As a person drags the window's border: through all these content rectangles, as one live resize.
    void resizeWindow(WindowFinder, std::vector<Rect> contentRects);
    void miniaturizeWindow(WindowFinder, bool isMiniaturized);
    /// The session ends.
    void quit();

    /// Calls the function when its turn comes; what it enters comes before what follows.
    void then(std::function<void()>);

private:
    void deliver(HeadlessWindow&, HostEvent) const;
    HostEvent mouseEvent(HostEvent::Type, Point, std::uint32_t modifiers) const;
    void moveTo(Point, std::uint32_t modifiers);
    void pressNow(Point, ScriptedClick);
    void releaseNow(Point, ScriptedClick);
    void sendKey(
        HostEvent::Type, std::string_view characters, std::uint32_t modifiers, std::string_view ignoringModifiers, bool isRepeat);

    HeadlessDisplay& m_display;
    HeadlessEvents& m_events;
    HeadlessWindow* m_windowUnderMouse { nullptr };
    HeadlessWindow* m_windowWithMouse { nullptr };
};

}
