#include <plix/platform/appkit/system_sounds.h>

#include <plix/platform/host/Audio.h>
#include <plix/platform/host/Host.h>

#include <map>

namespace plix {

namespace {

struct SystemSound {
    std::unique_ptr<HostSound> sound;
    SystemSoundCompletionProc completion;
};

struct SystemSounds {
    std::map<SystemSoundActionID, SystemSound> sounds;
    SystemSoundActionID last { 0 };
};

/// Never taken down: sounds that nobody removed live as long as the process.
SystemSounds& registry()
{
    static auto* const s_registry = new SystemSounds;
    return *s_registry;
}

SystemSound* find(SystemSoundActionID identifier)
{
    auto const found = registry().sounds.find(identifier);
    return found == registry().sounds.end() ? nullptr : &found->second;
}

}

OSStatus SystemSoundGetActionID(std::string const& path, SystemSoundActionID& identifier)
{
    auto* const audio = host().audio();
    auto sound = audio ? audio->openSound(path) : nullptr;
    if (!sound)
        return systemSoundUnspecifiedErr;
    identifier = ++registry().last;
    sound->setFinished([identifier](bool) {
        auto const* const finished = find(identifier);
        if (auto const completion = finished ? finished->completion : nullptr)
            completion(identifier);
    });
    registry().sounds[identifier].sound = std::move(sound);
    return 0;
}

OSStatus SystemSoundRemoveActionID(SystemSoundActionID identifier)
{
    return registry().sounds.erase(identifier) > 0 ? 0 : systemSoundUnspecifiedErr;
}

void SystemSoundPlay(SystemSoundActionID identifier)
{
    auto const* const found = find(identifier);
    auto const* const audio = host().audio();
    if (!found || !audio)
        return;
    found->sound->stop();
    found->sound->setVolume(beepVolumeFraction(audio->beepVolume()));
    found->sound->play();
}

OSStatus SystemSoundSetCompletionRoutine(SystemSoundActionID identifier, SystemSoundCompletionProc completion)
{
    auto* const found = find(identifier);
    if (!found)
        return systemSoundUnspecifiedErr;
    found->completion = std::move(completion);
    return 0;
}

void SystemSoundRemoveCompletionRoutine(SystemSoundActionID identifier)
{
    if (auto* const found = find(identifier))
        found->completion = nullptr;
}

}
