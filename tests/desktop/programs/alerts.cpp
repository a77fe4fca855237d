// An application with two windows, each full of a button, that asks what it is told to ask by lines on standard input: "window"
// over all windows, "sheet" on the first one. It reports on standard output where an alert's buttons are, in the display's pixels,
// which buttons were pressed and what was answered, one line each.

#include <tests/desktop/programs/support/program.h>

#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSButton.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/foundation/NSRunLoop.h>
#include <plix/platform/foundation/NSTimer.h>
#include <plix/platform/foundation/RunLoopDescriptor.h>
#include <plix/platform/graphics/NSImage.h>
#include <plix/windows/PLIXWindow.h>
#include <plix/windows/TQAlert.h>

#include <sstream>
#include <string>

namespace plix {
namespace {

Ref<NSWindow> windowWithButton(std::string const& name, Rect contentRect)
{
    auto window = make<NSWindow>(contentRect, NSTitledWindowMask | NSClosableWindowMask, NSBackingStoreBuffered, false);
    window->setTitle(name);
    auto const button = make<NSButton>(NSInsetRect(window->contentView()->bounds(), 10, 10));
    button->setTitle(name);
    button->setActionFunction([name](NSObject*) { report("pressed " + name); });
    window->contentView()->addSubview(*button);
    window->makeKeyAndOrderFront(nullptr);
    return window;
}

/// Tells where the buttons are once the alert stands where it stays.
class Asker : public NSObject {
    PLIX_CLASS(Asker, NSObject);

public:
    void ask(NSWindow* sheetOf)
    {
        m_alert = make<TQAlert>("Question", "Shall it be?", "There is no way back.", Ref<NSImage>(), "Yes", "No", "Maybe");
        auto const timer = NSTimer::timerWithTimeInterval(0.05, *this, &Asker::reportWhenShown, {}, true);
        NSRunLoop::currentRunLoop().addTimer(*timer, NSModalPanelRunLoopMode);
        int const answer = sheetOf ? m_alert->runAsSheetForWindow(*sheetOf) : m_alert->runModal();
        timer->invalidate();
        report("answer " + std::to_string(answer));
    }

private:
    void reportWhenShown()
    {
        auto const& window = *m_alert->window();
        if (m_reported == m_alert || !window.isKeyWindow())
            return;
        m_reported = m_alert;
        reportPlace("first", *m_alert->button1());
        reportPlace("second", *m_alert->button2());
        reportPlace("third", *m_alert->button3());
        report("shown");
    }
    static void reportPlace(char const* name, NSView const& view)
    {
        auto const place = onDisplay(view);
        std::ostringstream out;
        out << name << ' ' << place.midX() << ' ' << place.midY();
        report(out.str());
    }

    Ref<TQAlert> m_alert;
    Ref<TQAlert> m_reported;
};

PLIX_DESCRIBE(Asker)
{
}

void obey(std::string const& line, Asker& asker, NSWindow& owner)
{
    if (line == "window")
        asker.ask(nullptr);
    else if (line == "sheet")
        asker.ask(&owner);
    else
        report(line);
}

int run()
{
    auto& application = NSApplication::sharedApplication();
    auto const other = windowWithButton("other", { 700, 600, 300, 200 });
    auto const owner = windowWithButton("owner", { 60, 560, 560, 300 });
    auto const asker = make<Asker>();
    auto const source = obeyLines([&](std::string const& line) { obey(line, *asker, *owner); });
    application.setExitHandler([] {});
    runReporting();
    source->invalidate();
    return 0;
}

}
}

int main()
{
    return plix::run();
}
