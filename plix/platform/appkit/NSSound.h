#pragma once

#include <plix/platform/base/Class.h>
#include <plix/platform/base/Hook.h>
#include <plix/platform/base/HookSource.h>
#include <plix/platform/base/export.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace plix {

class HostSound;
class NSData;
class NSSound;

/// What a sound tells its delegate.
struct NSSoundDelegate {
    /// When it was played to its end (true), and when it was stopped or could not go on (false).
    Hook<void(NSSound&, bool aBool)> didFinishPlaying;

    template <typename Host> void fillFrom(Host& host) { PLIX_FILL_HOOK(didFinishPlaying); }
};

/// A short sound of a file or of bytes. It is held while it plays. On a machine that makes no sounds it plays in silence; where
/// none can be decoded there is no NSSound at all.
class PLIX_EXPORT NSSound : public NSObject {
    PLIX_CLASS(NSSound, NSObject);

public:
    NSSound();
    ~NSSound() override;

    /// Makes none where the file is no sound. Files are read as they are played, whether by reference or not.
    bool init(std::string_view path, bool byReference);
    /// The bytes of a sound file; none where they are no sound.
    bool init(NSData const&);

    /// The sound of that name: one that was given the name, else one found in the application's or the library's resources or in
    /// the folders of the user's, the machine's and the system's sounds; kept under its name from then on. With or without an
    /// extension. Null where there is none.
    static Ref<NSSound> soundNamed(std::string_view name);
    /// False where another sound has the name. An empty name takes the name away.
    bool setName(std::string_view);
    std::string const& name() const { return m_name; }
    /// The file name extensions that can be played, in lower case; none where there is no decoder.
    static std::vector<std::string> const& soundUnfilteredFileTypes();

    // Each does nothing and answers false where the sound is in another state.
    /// Plays from the start; false while it plays or pauses.
    bool play();
    bool pause();
    bool resume();
    /// Tells the delegate before it comes back.
    bool stop();
    /// Not while it pauses.
    bool isPlaying() const;

    /// Held weakly.
    template <typename T> void setDelegate(Ref<T> const& delegate) { takeHooks(HookSource::pack<NSSoundDelegate>(delegate)); }
    void setDelegate(std::nullptr_t) { takeHooks(HookSource {}); }
    virtual void takeHooks(HookSource const&);
    NSObject* delegate() const { return m_delegate.object(); }

private:
    void copyStateTo(NSObject& fresh) const override;
    bool open();
    void finish(bool playedToEnd);

    std::unique_ptr<HostSound> m_sound;
    std::string m_path;
    Ref<NSData> m_bytes;
    std::string m_name;
    HookSource m_delegate;
    NSSoundDelegate m_hooks;
    /// Itself, while it plays.
    Ref<NSSound> m_whilePlaying;
};

}
