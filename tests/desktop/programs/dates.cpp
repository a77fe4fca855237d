// An application that asks for a range of dates again and again, and reports on standard output where the panel's parts are, in the
// display's pixels, and what was answered, one line each.

#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSButton.h>
#include <plix/platform/appkit/NSScreen.h>
#include <plix/platform/appkit/NSView.h>
#include <plix/platform/foundation/NSNotification.h>
#include <plix/platform/foundation/NSTimer.h>
#include <plix/windows/TQDateRangePanel.h>

#include <iostream>
#include <sstream>
#include <string>

namespace plix {
namespace {

void report(std::string const& line)
{
    std::cout << line << std::endl;
}

std::string written(NSCalendarDate const& date)
{
    return date.descriptionWithCalendarFormat("%Y-%m-%d");
}

class Asker : public NSObject {
    PLIX_CLASS(Asker, NSObject);

public:
    void ask()
    {
        m_panel = make<TQDateRangePanel>(
            Point {}, NSCalendarDate::dateWithYear(2027, 3, 14, 12, 0, 0), NSCalendarDate::dateWithYear(2027, 4, 1, 12, 0, 0));
        m_panel->setDelegate(Ref<Asker>(*this));
        auto const answer = m_panel->run() ? "ran " : "failed ";
        report(answer + written(m_panel->fromDate()) + ' ' + written(m_panel->toDate()));
    }
    void windowDidBecomeKey(NSNotification const&)
    {
        reportPlace("from", dynamic_cast<NSView*>(m_panel->fromObject()));
        reportPlace("to", dynamic_cast<NSView*>(m_panel->toObject()));
        report("key panel");
    }

private:
    void reportPlace(std::string const& name, NSView const* view) const
    {
        if (!view)
            return report(name + " missing");
        auto const inBase = view->convertRectToView(view->bounds(), nullptr);
        auto const origin = m_panel->convertBaseToScreen(inBase.origin());
        std::ostringstream out;
        out << name << ' ' << origin.x << ' ' << NSScreen::mainScreen().frame().height - origin.y - inBase.height << ' '
            << inBase.width << ' ' << inBase.height;
        report(out.str());
    }

    Ref<TQDateRangePanel> m_panel;
};

PLIX_DESCRIBE(Asker)
{
}

int run()
{
    auto& application = NSApplication::sharedApplication();
    auto const asker = make<Asker>();
    auto const timer = NSTimer::scheduledTimerWithTimeInterval(0, *asker, &Asker::ask, {}, true);
    report("ready");
    application.run();
    return 0;
}

}
}

int main()
{
    return plix::run();
}
