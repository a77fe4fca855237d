#pragma once

#include <plix/platform/base/export.h>
#include <plix/platform/host/Speech.h>

namespace plix {

// The platform's older way to speak: plain functions over the host's speech. Without speech they do nothing, quietly.

/// A channel in the default voice, the caller's to dispose of; none without speech.
PLIX_EXPORT SpeechChannel NewSpeechChannel();
/// Also of none, and of one whose door is gone.
PLIX_EXPORT void DisposeSpeechChannel(SpeechChannel);
/// Speaks in place of what the channel is speaking; without text only stops.
PLIX_EXPORT void SpeakText(SpeechChannel, std::string_view text);
/// Speaks in the default voice, on a channel that all callers share.
PLIX_EXPORT void SpeakString(std::string_view text);
/// Whether there is any speech in progress.
PLIX_EXPORT bool SpeechBusy();

}
