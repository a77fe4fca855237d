#pragma once

#include <plix/platform/base/FunctionRef.h>
#include <plix/platform/base/NSDate.h>

namespace plix {

/// Seconds that a window takes to move by 150 points, or a sheet to slide; 0 where the user wants no animation. The user's default
/// "NSWindowResizeTime" has it, else 0.2.
NSTimeInterval windowAnimationUnit();

/// Calls the step about 60 times a second, with how far the animation is (between 0 and 1, slow at both ends), and answers when the
/// time is over or the step has answered false. Meanwhile no timers fire and no events are sent: only the host's messages come in.
void runWindowAnimation(NSTimeInterval duration, FunctionRef<bool(float progress)> step);

}
