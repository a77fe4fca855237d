#include <plix/platform/host/sound_folders.h>

#include <plix/platform/foundation/NSFileManager.h>
#include <plix/platform/foundation/surroundings.h>

namespace plix {

namespace {

constexpr char const* themeFolder = "/sounds/freedesktop/stereo/";
constexpr char const* usualDataFolder = "/usr/share";

}

SoundFolders soundFolders()
{
    SoundFolders folders { std::string(usualDataFolder) + themeFolder, "/usr/local/share/sounds/",
        surroundings().dataFolder() + "/sounds/" };
    for (auto const& folder : surroundings().dataFolders()) {
        bool isFolder = false;
        if (NSFileManager::defaultManager().fileExistsAtPath(folder + themeFolder, isFolder) && isFolder) {
            folders.system = folder + themeFolder;
            break;
        }
    }
    return folders;
}

}
