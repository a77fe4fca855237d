// An application that asks for a range of dates again and again, and reports on standard output where the panel's parts are, in the
// display's pixels, and what was answered, one line each.

#include <tests/desktop/programs/support/program.h>

#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSButton.h>
#include <plix/platform/appkit/NSView.h>
#include <plix/platform/foundation/NSNotification.h>
#include <plix/platform/foundation/NSTimer.h>
#include <plix/windows/TQDateRangePanel.h>

#include <string>

namespace plix {
namespace {

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
        report(name + ' ' + textOf(onDisplay(*view)));
    }

    Ref<TQDateRangePanel> m_panel;
};

PLIX_DESCRIBE(Asker)
{
}

int run()
{
    NSApplication::sharedApplication();
    auto const asker = make<Asker>();
    auto const timer = NSTimer::scheduledTimerWithTimeInterval(0, *asker, &Asker::ask, {}, true);
    return runReporting();
}

}
}

int main()
{
    return plix::run();
}
