#pragma once

#include <plix/platform/base/export.h>

#include <cstdint>

namespace plix {

/// Where a list that is spoken string by string stands. Times are in seconds since 1970.
struct SpeakingList {
    std::int32_t count { 0 };
    /// Of the next string.
    std::int32_t index { 0 };
    /// The silence between two strings.
    double interval { 0 };
    /// When the last string was found to have ended; below 0 while one that was handed over is being spoken, 0 before the first.
    double lastTime { 0 };
};

enum class SpeakingListStep {
    Look, ///< look again after a short while
    Wait, ///< look again when the silence is over
    Speak, ///< speak the string at the index, then look again after a short while
    End, ///< the list is done
};

struct SpeakingListTurn {
    SpeakingListStep step { SpeakingListStep::Look };
    double lastTime { 0 };
    /// Seconds until the next look.
    double nextLook { 0 };
};

/// What a look at the list finds to do. Where the clock was set back, the silence lasts as much longer.
PLIX_EXPORT SpeakingListTurn speakingListTurn(SpeakingList const&, bool isSpeaking, double now);

/// 1.8 s for anything below 0.
PLIX_EXPORT double speakingListInterval(double wanted);

}
