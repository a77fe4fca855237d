#include <plix/platform/appkit/view_timers.h>

#include <plix/platform/appkit/NSView.h>
#include <plix/platform/base/Weak.h>
#include <plix/platform/foundation/NSTimer.h>

namespace plix {

namespace {

struct Noted {
    Weak<NSView> view;
    Weak<NSTimer> timer;
};

// Never released: views may be destroyed after it would be.
std::vector<Noted>& noted()
{
    static auto& s_noted = *new std::vector<Noted>;
    std::erase_if(s_noted, [](auto const& each) { return !each.view || !each.timer || !each.timer->isValid(); });
    return s_noted;
}

}

void noteViewTimer(NSView& view, NSTimer& timer)
{
    noted().push_back({ Weak<NSView>(&view), Weak<NSTimer>(&timer) });
}

std::vector<ViewTimer> viewTimers()
{
    std::vector<ViewTimer> timers;
    for (auto const& each : noted())
        timers.push_back({ Ref<NSView>(each.view.get()), Ref<NSTimer>(each.timer.get()) });
    return timers;
}

}
