#include <plix/system/sounds.h>

#include <plix/platform/appkit/NSSound.h>
#include <plix/platform/foundation/NSFileManager.h>
#include <plix/platform/foundation/NSUserDefaults.h>
#include <plix/platform/foundation/delayed_perform.h>
#include <plix/platform/foundation/path_operations.h>
#include <plix/platform/host/Audio.h>
#include <plix/platform/host/Host.h>
#include <plix/platform/host/sound_folders.h>
#include <plix/system/name_comparison.h>
#include <plix/system/sound_paths.h>

#include <algorithm>

namespace plix {

namespace {

constexpr char const* alertVolumeKey = "com.apple.sound.beep.volume";
constexpr NSTimeInterval timeAfterTheEnd = 0.05;

/// A sound that plays by itself until it is let go.
class PlayingSound : public NSObject {
    PLIX_CLASS(PlayingSound, NSObject);

public:
    bool init(std::string const& path)
    {
        auto* const audio = host().audio();
        m_sound = audio ? audio->openSound(path) : nullptr;
        return m_sound != nullptr;
    }
    void play(float volume)
    {
        m_sound->setVolume(volume);
        m_sound->play();
        performAfterDelay(*this, &PlayingSound::letGo, m_sound->duration() + timeAfterTheEnd);
    }

private:
    void letGo() { m_sound.reset(); }

    std::unique_ptr<HostSound> m_sound;
};

PLIX_DESCRIBE(PlayingSound)
{
}

std::vector<std::string> soundsInFolder(std::string const& folder)
{
    auto const names = NSFileManager::defaultManager().directoryContentsAtPath(folder);
    std::vector<std::string> paths;
    for (auto const& name :
        pathsMatchingExtensions(names.value_or(std::vector<std::string> {}), NSSound::soundUnfilteredFileTypes()))
        paths.push_back(folder + name);
    return paths;
}

}

std::vector<std::string> PLIXSystemSoundPaths()
{
    auto const folders = soundFolders();
    auto paths = soundsInFolder(folders.system);
    takeSoundsOfLaterFolder(paths, soundsInFolder(folders.machine));
    takeSoundsOfLaterFolder(paths, soundsInFolder(folders.user));
    std::ranges::stable_sort(
        paths, [](auto const& a, auto const& b) { return PLIXCompareLastPathComponent(a, b) == NSOrderedAscending; });
    return paths;
}

float TQSystemVolume()
{
    auto* const audio = host().audio();
    auto const volume = audio ? audio->outputVolume() : std::nullopt;
    return volume ? std::max(volume->left, volume->right) : 1;
}

float TQAlertVolume()
{
    auto& defaults = NSUserDefaults::standardUserDefaults();
    defaults.synchronize();
    return std::max(defaults.floatForKey(alertVolumeKey), 0.0F) * TQSystemVolume();
}

bool TQQTSoundPlay(std::string_view path, float volume)
{
    auto const sound = make<PlayingSound>(std::string(path));
    if (!sound)
        return false;
    sound->play(volume);
    return true;
}

bool TQAlertSoundPlay(ObjectValue const& path)
{
    auto const* const text = path.string();
    if (!text)
        return false;
    auto const* const audio = host().audio();
    if (!audio)
        return true;
    auto const volume = audio->beepVolume();
    // Read and not used; that is meant.
    static_cast<void>(audio->defaultOutputVolume());
    if (volume < 1)
        return true;
    TQQTSoundPlay(*text, beepVolumeFraction(volume));
    return true;
}

OSStatus TQAlertSoundCompletionRoutine(SystemSoundActionID identifier)
{
    SystemSoundRemoveCompletionRoutine(identifier);
    SystemSoundRemoveActionID(identifier);
    return 0;
}

}
