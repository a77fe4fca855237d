// An application of the platform's own windows, that shows lists and does what it is told by lines on standard input. It reports
// what reaches the windows and their views, one line each, on standard output.

#include <tests/desktop/programs/support/program.h>

#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/appkit/NSPasteboard.h>
#include <plix/platform/appkit/NSView.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/appkit/view_geometry.h>
#include <plix/platform/foundation/NSNotification.h>
#include <plix/platform/foundation/RunLoopDescriptor.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSGraphics.h>

#include <algorithm>
#include <functional>
#include <map>
#include <sstream>
#include <string>

namespace plix {
namespace {

constexpr float s_rowHeight = 20;
constexpr int s_rows = 100;

/// Rows of colour: a click selects one, Return and a double click open it, the wheel scrolls, keys type.
class RowsView : public NSView {
    PLIX_CLASS(RowsView, NSView);

public:
    using NSView::init;
    bool init(Rect frame, std::string name)
    {
        m_name = std::move(name);
        return NSView::init(frame);
    }

    // NSView:
    bool isFlipped() const override { return true; }
    bool isOpaque() const override { return true; }
    void drawRect(Rect dirty) override
    {
        NSColor::whiteColor()->set();
        NSRectFill(dirty);
        for (int row = 0; row < s_rows; ++row) {
            Rect const rect { 0, static_cast<float>(row) * s_rowHeight - m_offset, bounds().width, s_rowHeight };
            if (!NSIntersectsRect(rect, dirty) || (row % 2 == 0 && row != m_selected))
                continue;
            auto const colour = row == m_selected ? NSColor::colorWithDeviceRed(0.2F, 0.4F, 0.8F, 1)
                                                  : NSColor::colorWithDeviceRed(0.9F, 0.95F, 1, 1);
            colour->set();
            NSRectFill(rect);
        }
    }
    void setFrameSize(Size size) override
    {
        NSView::setFrameSize(size);
        report("layout " + m_name + ' ' + textOf(frame()));
    }

    // NSResponder:
    bool acceptsFirstResponder() const override { return true; }
    void mouseDown(NSEvent& event) override
    {
        select(rowAt(event), event.clickCount());
        if (event.clickCount() == 2)
            open();
    }
    void mouseDragged(NSEvent& event) override { select(rowAt(event), 0); }
    void mouseUp(NSEvent& event) override { report("released " + m_name + " row " + std::to_string(rowAt(event))); }
    void scrollWheel(NSEvent& event) override
    {
        m_offset = std::clamp(m_offset - event.deltaY() * s_rowHeight, 0.0F, s_rowHeight * s_rows);
        report("scrolled " + m_name + ' ' + std::to_string(static_cast<int>(m_offset)));
        setNeedsDisplay(true);
    }
    void keyDown(NSEvent& event) override
    {
        if (event.characters() == "\r")
            open();
        else
            report("typed " + m_name + " [" + event.characters() + ']');
    }

private:
    int rowAt(NSEvent const& event) const
    {
        auto const point = convertPointFromView(event.locationInWindow(), nullptr);
        return static_cast<int>((point.y + m_offset) / s_rowHeight);
    }
    void select(int row, long clicks)
    {
        m_selected = row;
        report("selected " + m_name + " row " + std::to_string(row) + " clicks " + std::to_string(clicks));
        setNeedsDisplay(true);
    }
    void open() { report("opened " + m_name + " row " + std::to_string(m_selected)); }

    std::string m_name;
    int m_selected { -1 };
    float m_offset { 0 };
};

PLIX_DESCRIBE(RowsView)
{
}

/// Reports for one window.
class Watcher : public NSObject {
    PLIX_CLASS(Watcher, NSObject);

public:
    using NSObject::init;
    bool init(std::string name)
    {
        m_name = std::move(name);
        return NSObject::init();
    }
    bool windowShouldClose(NSObject&)
    {
        report("closing " + m_name);
        return true;
    }
    void windowDidBecomeKey(NSNotification const&) { report("key " + m_name); }
    void windowDidResignKey(NSNotification const&) { report("unkey " + m_name); }

private:
    std::string m_name;
};

PLIX_DESCRIBE(Watcher)
{
}

/// Reports for the application.
class Overseer : public NSObject {
    PLIX_CLASS(Overseer, NSObject);

public:
    void applicationDidBecomeActive(NSNotification const&) { report("active"); }
    void applicationDidResignActive(NSNotification const&) { report("inactive"); }
    void applicationWillTerminate(NSNotification const&) { report("terminating"); }
    void applicationDidChangeScreenParameters(NSNotification const&) { report("screens changed"); }
};

PLIX_DESCRIBE(Overseer)
{
}

struct Shown {
    Ref<NSWindow> window;
    Ref<Watcher> watcher;
};

std::map<std::string, Shown> s_windows;
std::vector<long> s_requests;

NSWindow* windowNamed(std::string const& name)
{
    auto const found = s_windows.find(name);
    if (found == s_windows.end())
        report("unknown window " + name);
    return found == s_windows.end() ? nullptr : found->second.window.get();
}

void makeWindow(std::istream& words, unsigned style)
{
    std::string name;
    Rect content;
    words >> name >> content.x >> content.y >> content.width >> content.height;
    auto window = make<NSWindow>(content, style, NSBackingStoreBuffered, true);
    auto const isTextured = (style & NSTexturedBackgroundWindowMask) != 0;
    // Of a textured window the upper half is background.
    auto const rows = make<RowsView>(Rect { 0, 0, content.width, isTextured ? content.height / 2 : content.height }, name);
    window->setTitle(name);
    if (isTextured)
        window->contentView()->addSubview(*rows);
    else
        window->setContentView(rows);
    window->makeFirstResponder(rows.get());
    auto watcher = make<Watcher>(name);
    window->setDelegate(watcher);
    s_windows[name] = { window, watcher };
}

/// As a menu does it: everything that happens goes to the popup until it is dismissed.
void trackPopup(NSWindow& popup)
{
    popup.setLevel(NSPopUpMenuWindowLevel);
    popup.orderFront(nullptr);
    report("popup open");
    while (NSApp->isActive()) {
        auto const event = NSApp->nextEventMatchingMask(
            NSAnyEventMask, NSDate::dateWithTimeIntervalSinceNow(0.05), NSEventTrackingRunLoopMode, true);
        if (!event || !event->isMouseEvent() || !event->window())
            continue;
        auto const place = event->window()->convertBaseToScreen(event->locationInWindow());
        auto const isInside = NSMouseInRect(place, popup.frame(), false);
        if (event->type() == NSLeftMouseUp && isInside) {
            report("popup chosen");
            break;
        }
        if (event->type() == NSLeftMouseDown && !isInside) {
            report("popup dismissed");
            break;
        }
    }
    popup.orderOut(nullptr);
    report("popup closed");
}

Ref<NSWindow> s_sheet;

/// A red sheet of a size, blue in its lower half.
void beginSheet(NSWindow& window, std::istream& words)
{
    Rect content;
    words >> content.width >> content.height;
    s_sheet = make<NSWindow>(content, NSTitledWindowMask, NSBackingStoreBuffered, true);
    s_sheet->setBackgroundColor(NSColor::colorWithDeviceRed(1, 0, 0, 1));
    s_sheet->setTitle("sheet");
    auto const lower = make<ColouredView>(Rect { 0, 0, content.width, content.height / 2 }, NSColor::blueColor());
    s_sheet->contentView()->addSubview(*lower);
    report("sheet begins");
    NSApp->beginSheet(*s_sheet, window);
    report("sheet is there");
}

void endSheet(std::istream&)
{
    NSApp->endSheet(*s_sheet);
    s_sheet->orderOut(nullptr);
    report("sheet is gone");
}

Command onWindow(std::function<void(NSWindow&, std::istream&)> action)
{
    return [action](std::istream& words) {
        std::string name;
        words >> name;
        if (auto* const window = windowNamed(name))
            action(*window, words);
    };
}

void copy(std::istream& words)
{
    auto& pasteboard = NSPasteboard::generalPasteboard();
    pasteboard.declareTypes({ NSStringPboardType });
    pasteboard.setString(rest(words), NSStringPboardType);
}

void paste(std::istream&)
{
    auto const text = NSPasteboard::generalPasteboard().stringForType(NSStringPboardType);
    report(text ? "paste [" + *text + ']' : "paste nothing");
}

void cancelRequests(std::istream&)
{
    for (auto const request : s_requests)
        NSApp->cancelUserAttentionRequest(request);
}

void describeWindow(NSWindow& window, std::istream&)
{
    report("where " + window.title() + ' ' + textOf(window.contentRectForFrameRect(window.frame())) + " frame "
        + textOf(window.frame()) + " scale " + std::to_string(window.backingScaleFactor()));
}

Commands const& commands()
{
    constexpr unsigned usual = NSTitledWindowMask | NSClosableWindowMask | NSMiniaturizableWindowMask | NSResizableWindowMask;
    static Commands const s_commands {
        { "window", [](std::istream& words) { makeWindow(words, usual); } },
        { "textured", [](std::istream& words) { makeWindow(words, usual | NSTexturedBackgroundWindowMask); } },
        { "borderless", [](std::istream& words) { makeWindow(words, NSBorderlessWindowMask); } },
        { "front", onWindow([](NSWindow& window, std::istream&) { window.makeKeyAndOrderFront(nullptr); }) },
        { "out", onWindow([](NSWindow& window, std::istream&) { window.orderOut(nullptr); }) },
        { "where", onWindow(describeWindow) },
        { "track", onWindow([](NSWindow& window, std::istream&) { trackPopup(window); }) },
        { "movable", onWindow([](NSWindow& window, std::istream&) { window.setMovableByWindowBackground(true); }) },
        { "modal", onWindow([](NSWindow& window, std::istream&) {
             report("modal begins");
             report("modal ended " + std::to_string(NSApp->runModalForWindow(window)));
         }) },
        { "sheet", onWindow(beginSheet) },
        { "unsheet", endSheet },
        { "unmodal", [](std::istream&) { NSApp->stopModalWithCode(7); } },
        { "attention", [](std::istream&) { s_requests.push_back(NSApp->requestUserAttention(NSInformationalRequest)); } },
        { "cancel", cancelRequests },
        { "copy", copy },
        { "paste", paste },
        { "sync", [](std::istream& words) { report("sync " + rest(words)); } },
        { "quit", [](std::istream&) { NSApp->terminate(nullptr); } },
    };
    return s_commands;
}

int run()
{
    auto& application = NSApplication::sharedApplication();
    auto const overseer = make<Overseer>();
    application.setDelegate(overseer);
    auto const source = obeyLines([](std::string const& line) { obey(line, commands()); });
    application.setExitHandler([] {});
    runReporting();
    source->invalidate();
    s_sheet = nullptr;
    s_windows.clear();
    report("ended");
    return 0;
}

}
}

int main()
{
    return plix::run();
}
