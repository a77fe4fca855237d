#pragma once

#include <plix/platform/appkit/system_sounds.h>
#include <plix/platform/base/ObjectValue.h>
#include <plix/platform/base/export.h>

#include <string>
#include <string_view>
#include <vector>

namespace plix {

/// The paths of the system's alert sounds, sorted as by PLIXCompareLastPathComponent(). Sounds of the machine's and the user's own
/// folders do not change the list. See soundFolders() for where that is.
PLIX_EXPORT std::vector<std::string> PLIXSystemSoundPaths();

/// The louder one of the left and right volume of the default output device, 0 to 1; 1 where it can't be told.
PLIX_EXPORT float TQSystemVolume();
/// The user's alert volume ("com.apple.sound.beep.volume" of the defaults; 0 where it is not set) as a share of TQSystemVolume().
PLIX_EXPORT float TQAlertVolume();

/// Plays a sound file, which goes on by itself, at a volume of 0 to 1. False where it is no sound file; a machine without an output
/// device plays it in silence.
PLIX_EXPORT bool TQQTSoundPlay(std::string_view path, float volume);
/// Plays an alert sound at the system's beep volume, which may be 0: then nothing plays. False where it is no string, and true for
/// every other, whether it can be played or not.
PLIX_EXPORT bool TQAlertSoundPlay(ObjectValue const& path);
/// What a host sets as the completion routine of a system sound that it plays once: forgets both. Answers 0.
PLIX_EXPORT OSStatus TQAlertSoundCompletionRoutine(SystemSoundActionID);

}
