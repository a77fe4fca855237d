#pragma once

#include <string>

namespace plix {

/// Where alert sounds are, with a slash at the end of each. The system's are those of the sound theme that every desktop falls back
/// to (XDG sound theme specification): the folder of the first of the shared data folders that has one.
struct SoundFolders {
    std::string system;
    /// Of this machine's administrator.
    std::string machine;
    std::string user;
};
SoundFolders soundFolders();

}
