#pragma once

#include <plix/platform/base/Ref.h>

namespace plix {

struct NSDate;
class NSEvent;

/// Whether a wait for the mouse ended without an event before its time: the application is ending, and a loop that goes on waiting
/// for the button's release would never end.
bool isCutShort(Ref<NSEvent> const& event, NSDate until);

/// Whether a release is nobody's doing: the window in which the button was held has left the screen. The loop that followed it
/// ends, and what a person chooses by letting go is not done.
bool isAbandoned(NSEvent const& release);

}
