#pragma once

#include <plix/platform/appkit/NSSpeechSynthesizerDelegate.h>
#include <plix/platform/base/Class.h>
#include <plix/platform/base/ObjectValue.h>
#include <plix/platform/base/export.h>
#include <plix/platform/host/Speech.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace plix {

/// Posted without object when more or other voices are known.
inline constexpr char const* NSSpeechSynthesizerAvailableVoicesDidChangeNotification
    = "NSSpeechSynthesizerAvailableVoicesDidChangeNotification";

// What is told of a voice.
inline constexpr char const* NSVoiceIdentifier = "VoiceIdentifier";
inline constexpr char const* NSVoiceName = "VoiceName";
inline constexpr char const* NSVoiceLanguage = "VoiceLanguage";

/// Speaks a text in a voice, through the host's speech. Nothing here waits: a text that was handed over is being spoken until its
/// end is told. Without speech starting answers false, quietly.
class PLIX_EXPORT NSSpeechSynthesizer : public NSObject {
    PLIX_CLASS(NSSpeechSynthesizer, NSObject);

public:
    /// In the default voice.
    bool init();
    /// In a voice by its identifier; nil for the default one. One that is not there speaks as the default one does.
    bool init(std::optional<std::string_view> voice);
    ~NSSpeechSynthesizer() override;

    /// Whether this one is speaking.
    bool isSpeaking() const;
    /// Whether any application is, as far as the machine tells.
    static bool isAnyApplicationSpeaking();
    /// Speaks the text in place of what this one is speaking. False where there is no speech; what goes wrong later is told to the
    /// delegate.
    bool startSpeakingString(std::string_view text);
    void stopSpeaking();

    /// "" for the default one.
    std::string const& voice() const { return m_voice; }
    /// False, and nothing changed, while it is speaking.
    bool setVoice(std::optional<std::string_view> voice);

    template <typename T> void setDelegate(Ref<T> const& delegate)
    {
        takeHooks(HookSource::pack<NSSpeechSynthesizerDelegate>(delegate));
    }
    void setDelegate(std::nullptr_t) { takeHooks(HookSource {}); }
    virtual void takeHooks(HookSource const&);
    NSObject* delegate() const { return m_delegate.object(); }

    /// The default voice's identifier: "".
    static std::string defaultVoice() { return {}; }
    /// The identifiers of the voices known so far. The first call has them listed: it may answer none, and the notification above
    /// follows when they are known.
    static std::vector<std::string> availableVoices();
    /// Empty for a voice that is not known.
    static ObjectValue::Dictionary attributesForVoice(std::string_view voice);

private:
    Speech* openedSpeech();
    void closeChannel();
    SpeechNews news();

    SpeechChannel m_channel;
    std::string m_voice;
    std::string m_text;
    HookSource m_delegate;
    NSSpeechSynthesizerDelegate m_hooks;
};

}
