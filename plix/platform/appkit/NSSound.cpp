#include <plix/platform/appkit/NSSound.h>

#include <plix/platform/base/NSData.h>
#include <plix/platform/base/NamedObjects.h>
#include <plix/platform/foundation/NSBundle.h>
#include <plix/platform/foundation/NSFileManager.h>
#include <plix/platform/host/Audio.h>
#include <plix/platform/host/Host.h>
#include <plix/platform/host/sound_folders.h>

#include <optional>
#include <utility>

namespace plix {

namespace {

/// Never taken down: named sounds live as long as the process.
NamedObjects<NSSound>& registry()
{
    static auto* const s_registry = new NamedObjects<NSSound>;
    return *s_registry;
}

/// What the finder of one place answers for a name as it is, or with an extension of a sound file.
template <typename Finder> Ref<NSSound> findSound(std::string_view name, Finder const& pathOf)
{
    auto const open = [&](std::string const& fileName) -> Ref<NSSound> {
        std::optional<std::string> const path = pathOf(fileName);
        return path ? make<NSSound>(std::string_view(*path), false) : nullptr;
    };
    if (auto sound = open(std::string(name)))
        return sound;
    for (auto const& type : NSSound::soundUnfilteredFileTypes()) {
        if (auto sound = open(std::string(name) + '.' + type))
            return sound;
    }
    return nullptr;
}

Ref<NSSound> findSound(std::string_view name)
{
    for (auto const* bundle : { &NSBundle::mainBundle(), &NSBundle::libraryBundle() }) {
        if (auto sound = findSound(name, [&](std::string const& file) { return bundle->pathForResource(file); }))
            return sound;
    }
    // A name that leads elsewhere is none.
    if (name.find('/') != std::string_view::npos)
        return nullptr;
    auto const folders = soundFolders();
    for (auto const* folder : { &folders.user, &folders.machine, &folders.system }) {
        auto const pathOf = [&](std::string const& file) { return std::optional(*folder + file); };
        if (auto sound = findSound(name, pathOf))
            return sound;
    }
    return nullptr;
}

}

PLIX_DESCRIBE(NSSound)
{
    description.hookOutlet("delegate", &NSSound::takeHooks);
}

NSSound::NSSound() = default;
NSSound::~NSSound() = default;

bool NSSound::init(std::string_view path, bool)
{
    m_path = path;
    return open();
}

bool NSSound::init(NSData const& bytes)
{
    m_bytes = make<NSData>(bytes.bytes());
    return open();
}

bool NSSound::open()
{
    auto* const audio = host().audio();
    if (!audio)
        return false;
    m_sound = m_bytes ? audio->openSound(m_bytes->bytes()) : audio->openSound(m_path);
    if (m_sound)
        m_sound->setFinished([this](bool playedToEnd) { finish(playedToEnd); });
    return m_sound != nullptr;
}

void NSSound::copyStateTo(NSObject& fresh) const
{
    Base::copyStateTo(fresh);
    auto& copy = static_cast<NSSound&>(fresh);
    copy.m_path = m_path;
    copy.m_bytes = m_bytes;
    copy.takeHooks(m_delegate);
    copy.open();
}

Ref<NSSound> NSSound::soundNamed(std::string_view name)
{
    return registry().named(name, [](std::string_view wanted) { return findSound(wanted); });
}

bool NSSound::setName(std::string_view name)
{
    return registry().rename(*this, m_name, name);
}

std::vector<std::string> const& NSSound::soundUnfilteredFileTypes()
{
    static auto const& s_none = *new std::vector<std::string>;
    auto const* const audio = host().audio();
    return audio ? audio->fileTypes() : s_none;
}

void NSSound::takeHooks(HookSource const& source)
{
    m_delegate = source;
    m_hooks = source.hooks<NSSoundDelegate>();
}

bool NSSound::play()
{
    if (!m_sound || !m_sound->play())
        return false;
    m_whilePlaying = this;
    return true;
}

bool NSSound::pause()
{
    return m_sound && m_sound->pause();
}

bool NSSound::resume()
{
    return m_sound && m_sound->resume();
}

bool NSSound::stop()
{
    if (!m_sound || !m_sound->stop())
        return false;
    finish(false);
    return true;
}

bool NSSound::isPlaying() const
{
    return m_sound && m_sound->isPlaying() && !m_sound->isPaused();
}

void NSSound::finish(bool playedToEnd)
{
    Ref<NSSound> const protector = std::exchange(m_whilePlaying, nullptr);
    if (m_hooks.didFinishPlaying)
        m_hooks.didFinishPlaying(*this, playedToEnd);
}

}
