#pragma once

#include <plix/platform/base/export.h>

#include <cstdint>
#include <functional>
#include <string>

namespace plix {

/// Short sounds that are named by a number. What fails answers a status other than 0.
using SystemSoundActionID = std::uint32_t;
using OSStatus = std::int32_t;

/// No such file, a file that is no sound, an identifier that is none.
inline constexpr OSStatus systemSoundUnspecifiedErr = -1500;

/// Called on the run loop when the sound was played to its end.
using SystemSoundCompletionProc = std::function<OSStatus(SystemSoundActionID)>;

/// A new identifier for a sound file; never 0. The sound is held until the identifier is removed.
PLIX_EXPORT OSStatus SystemSoundGetActionID(std::string const& path, SystemSoundActionID& identifier);
/// Ends it where it plays; its completion routine is not called then.
PLIX_EXPORT OSStatus SystemSoundRemoveActionID(SystemSoundActionID);

/// Plays at the beep volume; from the start where it plays already. Nothing for what is no identifier.
PLIX_EXPORT void SystemSoundPlay(SystemSoundActionID);

/// A sound has one at most. Refused for what is no identifier.
PLIX_EXPORT OSStatus SystemSoundSetCompletionRoutine(SystemSoundActionID, SystemSoundCompletionProc);
PLIX_EXPORT void SystemSoundRemoveCompletionRoutine(SystemSoundActionID);

}
