#include "EventPlayer.h"

#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSControl.h>
#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/graphics/appearance.h>
#include <plix/platform/host/headless/HeadlessHost.h>
#include <plix/platform/host/headless/HeadlessWindow.h>

#include <algorithm>
#include <iterator>

namespace soak {

using namespace plix;
using Kind = RandomEvent::Kind;

namespace {

constexpr char32_t keys[] { NSUpArrowFunctionKey, NSDownArrowFunctionKey, NSLeftArrowFunctionKey, NSRightArrowFunctionKey,
    NSUpArrowFunctionKey, NSDownArrowFunctionKey, NSLeftArrowFunctionKey, NSRightArrowFunctionKey, NSHomeFunctionKey,
    NSEndFunctionKey, NSPageUpFunctionKey, NSPageDownFunctionKey, NSInsertFunctionKey, NSDeleteFunctionKey, NSF1FunctionKey,
    NSF1FunctionKey + 1, NSF1FunctionKey + 4, NSF1FunctionKey + 9, NSF1FunctionKey + 11, U'\t', U'\t', U'\t', U'\r', U'\r', U'\x03',
    NSEscapeCharacter, NSEscapeCharacter, NSDeleteCharacter, NSDeleteCharacter, U' ', U' ', U'a', U'c', U'v', U'x', U'z', U'y',
    U'k', U'e', U'i', U'w', U'q', U'h', U'm', U'b', U'p', U'n', U'/', U',', U'.', U'-', U'+', U'*', U'0', U'1', U'7', U'9', U'A',
    U'Z', U'é', U'ß', U'я', U'日', U'😀', U'\x19', U'\n', U'[', U'\\' };
constexpr char const* texts[] { "a", "apple", "12/31/2008", "0x1F", "-1.5e3", "  ", "Héllo", "שלום", "مرحبا 12", "日本語",
    "😀👍🏽", "e\u0301\u0327", "one two three", "z\u200Dz", "99999999999999999999", "\xEF\xBF\xBD", "fi\u00ADne", "ab\tc" };
constexpr char const* preedits[] { "", "か", "かな", "ni", "´" };
constexpr std::uint32_t modifierSets[] { 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, HostModifierShift, HostModifierShift, HostModifierShift,
    HostModifierControl, HostModifierControl, HostModifierAlternate, HostModifierCommand, HostModifierShift | HostModifierControl,
    HostModifierShift | HostModifierAlternate, HostModifierControl | HostModifierAlternate,
    HostModifierCommand | HostModifierShift };

template <typename T, std::size_t count> T chosen(T const (&all)[count], std::uint32_t lot)
{
    return all[lot % count];
}

std::vector<Ref<NSWindow>> visibleWindows()
{
    auto windows = NSApp->orderedWindows();
    std::erase_if(windows, [](auto const& window) { return !window->isVisible() || !window->hostWindow(); });
    return windows;
}

}

EventPlayer::EventPlayer(HeadlessHost& host)
    : m_host(host)
{
}

void EventPlayer::play(RandomEvent const& event)
{
    switch (event.kind) {
    case Kind::move:
    case Kind::click:
    case Kind::drag:
    case Kind::press:
    case Kind::release:
    case Kind::wheel:
        return playMouse(event);
    case Kind::key:
    case Kind::text:
    case Kind::preedit:
    case Kind::modifiers:
        return playKey(event);
    case Kind::changePage:
    case Kind::hideView:
    case Kind::disableControl:
    case Kind::look:
        return playProgram(event);
    default:
        return playMachine(event);
    }
}

void EventPlayer::letGo()
{
    auto& person = m_host.script();
    if (m_heldButton >= 0)
        person.release(m_host.headlessDisplay().mouseLocation(), { .button = m_heldButton });
    m_heldButton = -1;
    person.setModifiers(0);
    person.preedit("", 0);
}

// MARK: where

// Mostly the front one, where menus and panels are too.
NSWindow* EventPlayer::chosenWindow(std::uint32_t lot) const
{
    auto const windows = visibleWindows();
    if (windows.empty())
        return nullptr;
    return (lot % 4 != 0 ? windows.front() : windows[lot / 4 % windows.size()]).get();
}

HeadlessWindow* EventPlayer::chosenHostWindow(std::uint32_t lot) const
{
    auto* const window = chosenWindow(lot);
    return window ? static_cast<HeadlessWindow*>(window->hostWindow()) : nullptr;
}

NSView* EventPlayer::chosenView(NSWindow& window, RandomEvent const& event) const
{
    auto* view = window.contentView();
    auto lot = event.lots[1];
    while (view && !view->subviews().empty() && lot % 8 != 0) {
        lot /= 8;
        view = view->subviews()[(lot ^ event.lots[2]) % view->subviews().size()].get();
        lot = lot / 3 + event.lots[2] % 1021;
    }
    return view;
}

Point EventPlayer::place(RandomEvent const& event) const
{
    auto* const window = chosenWindow(event.lots[0]);
    if (!window)
        return { 1440 * event.share(1), 900 * event.share(2) };
    if (event.lots[0] / 64 % 16 == 0)
        return { 1440 * event.share(1), 900 * event.share(2) };
    Rect const frame = window->frame();
    if (event.lots[0] / 64 % 3 != 0) {
        if (auto const* const view = chosenView(*window, event)) {
            Rect const area = view->visibleRect();
            Point const inside { area.x + area.width * event.share(1), area.y + area.height * event.share(2) };
            if (!area.isEmpty())
                return window->convertBaseToScreen(view->convertPointToView(inside, nullptr));
        }
    }
    return { frame.x + frame.width * event.share(1), frame.y + frame.height * event.share(2) };
}

// MARK: the person

void EventPlayer::playMouse(RandomEvent const& event)
{
    auto& person = m_host.script();
    auto const point = place(event);
    constexpr int buttons[] { 0, 0, 0, 0, 0, 0, 0, 0, 1, 1, 2 };
    constexpr int clickCounts[] { 1, 1, 1, 1, 1, 2, 2, 3 };
    ScriptedClick click { 1, chosen(modifierSets, event.lots[3]), chosen(buttons, event.lots[4]) };
    // A held button stays held until it is released.
    bool const isHeld = m_heldButton >= 0;
    switch (event.kind) {
    case Kind::click:
        click.count = chosen(clickCounts, event.lots[4] / 16);
        if (!isHeld || click.button != m_heldButton)
            return person.click(point, click);
        return person.moveMouse(point);
    case Kind::drag: {
        Point const to { point.x + static_cast<float>(event.lot(3, 401)) - 200,
            point.y + static_cast<float>(event.lot(4, 301)) - 150 };
        if (!isHeld)
            return person.drag(point, to, click, 1 + event.lot(1, 5));
        return person.moveMouse(to);
    }
    case Kind::press:
        if (isHeld)
            return;
        m_heldButton = click.button;
        return person.press(point, click);
    case Kind::release:
        if (!isHeld)
            return;
        click.button = std::exchange(m_heldButton, -1);
        return person.release(point, click);
    case Kind::wheel: {
        constexpr float distances[] { 0, 0, 0, 1, -1, 3, -3, 0.25F, -0.5F, 40, -40 };
        return person.scroll(
            point, chosen(distances, event.lots[3]), chosen(distances, event.lots[4]), click.modifiers & ~HostModifierCommand);
    }
    default:
        return person.moveMouse(point, click.modifiers);
    }
}

void EventPlayer::playKey(RandomEvent const& event)
{
    auto& person = m_host.script();
    auto const modifiers = chosen(modifierSets, event.lots[1]);
    switch (event.kind) {
    case Kind::text:
        return person.type(chosen(texts, event.lots[0]));
    case Kind::preedit:
        return person.preedit(chosen(preedits, event.lots[0]), event.lot(1, 2));
    case Kind::modifiers:
        return person.setModifiers(modifiers);
    default:
        for (int times = event.lot(2, 8) == 0 ? 1 + event.lot(3, 6) : 1; times > 0; --times)
            person.key(chosen(keys, event.lots[0]), modifiers);
    }
}

// MARK: the machine

void EventPlayer::resize(RandomEvent const& event)
{
    auto* const window = chosenHostWindow(event.lots[0]);
    if (!window || window->kind() == HostWindowKind::popup)
        return;
    std::vector<Rect> rects;
    Rect rect = window->contentRect();
    for (int step = 1 + event.lot(3, 4); step > 0; --step) {
        rect.width = std::clamp(rect.width + static_cast<float>(event.lot(1, 301)) - 150, 1.0F, 1200.0F);
        rect.height = std::clamp(rect.height + static_cast<float>(event.lot(2, 201)) - 100, 1.0F, 800.0F);
        rects.push_back(rect);
    }
    m_host.script().resizeWindow([this, window] { return m_host.headlessDisplay().owns(window) ? window : nullptr; }, rects);
}

void EventPlayer::playMachine(RandomEvent const& event)
{
    auto& person = m_host.script();
    auto& display = m_host.headlessDisplay();
    auto* const window = chosenHostWindow(event.lots[0]);
    auto const finder = [&display, window] { return display.owns(window) ? window : nullptr; };
    switch (event.kind) {
    case Kind::time: {
        constexpr double seconds[] { 0.01, 0.05, 0.1, 0.3, 0.6, 1.1, 2.5 };
        return m_host.headlessClock().advance(chosen(seconds, event.lots[0]));
    }
    case Kind::resize:
        return resize(event);
    case Kind::zoom:
        if (window && window->kind() == HostWindowKind::document)
            person.then([finder] {
                if (auto* const found = finder())
                    found->zoom();
            });
        return;
    case Kind::miniaturize:
        if (auto const& all = display.windows(); !all.empty()) {
            auto* const any = all[event.lots[1] % all.size()];
            if (any->kind() == HostWindowKind::document)
                person.miniaturizeWindow([&display, any] { return display.owns(any) ? any : nullptr; }, !any->isMiniaturized());
        }
        return;
    case Kind::scale: {
        constexpr float scales[] { 1, 1, 1, 1.5F, 2 };
        return person.then(
            [&display, scale = chosen(scales, event.lots[0])] { display.setScreens({ HeadlessDisplay::defaultScreen(scale) }); });
    }
    case Kind::focusLost:
        return person.focusNothing();
    case Kind::focusGained:
        return person.focusWindow(finder);
    case Kind::close:
        return person.closeWindow(finder);
    default:
        return person.then([finder] {
            if (auto* const found = finder())
                found->losePixels();
        });
    }
}

// MARK: the program

void EventPlayer::playProgram(RandomEvent const& event)
{
    Ref<NSWindow> const window = chosenWindow(event.lots[0]);
    if (event.kind == Kind::look) {
        setCurrentAppearance(currentAppearance() == Appearance::dark ? Appearance::light : Appearance::dark);
        for (auto const& each : NSApp->windows())
            each->setViewsNeedDisplay(true);
        return;
    }
    if (!window || !(window->styleMask() & NSTitledWindowMask))
        return;
    if (event.kind == Kind::changePage) {
        if (m_makePage && (window->styleMask() & NSResizableWindowMask))
            window->setContentView(m_makePage(event));
        return;
    }
    Ref<NSView> const view(chosenView(*window, event));
    if (!view || view == window->contentView())
        return;
    if (event.kind == Kind::hideView)
        view->setHidden(!view->isHidden());
    else if (auto* const control = dynamic_cast<NSControl*>(view.get()))
        control->setEnabled(!control->isEnabled());
}

}
