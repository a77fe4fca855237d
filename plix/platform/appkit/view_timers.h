#pragma once

#include <plix/platform/appkit/Forward.h>
#include <plix/platform/base/Ref.h>

#include <vector>

namespace plix {

class NSTimer;

/// A timer that changes over and over what a view looks like, and the view.
struct ViewTimer {
    Ref<NSView> view;
    Ref<NSTimer> timer;
};

/// Who starts such a timer notes it, so that one can be found that goes on although its view cannot be seen. Holds neither.
void noteViewTimer(NSView&, NSTimer&);

/// Those that are noted and valid.
std::vector<ViewTimer> viewTimers();

}
