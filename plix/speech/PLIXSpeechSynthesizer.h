#pragma once

#include <plix/platform/base/Class.h>
#include <plix/platform/base/Global.h>
#include <plix/platform/base/ObjectValue.h>
#include <plix/platform/base/export.h>
#include <plix/platform/host/Speech.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace plix {

class NSSpeechSynthesizer;
class NSTimer;

/// Speaks a text, or a list of texts one after another with a silence between the end of one and the start of the next, in the
/// machine's default voice. Where the machine has no speech it says nothing, quietly, and a list runs through in silence.
///
/// From system version 10.3 on it speaks through a speech synthesizer, below through a channel of the older functions.
class PLIX_EXPORT PLIXSpeechSynthesizer : public NSObject {
    PLIX_CLASS(PLIXSpeechSynthesizer, NSObject);

public:
    /// The one for the whole process, made by the first call.
    static Ref<PLIXSpeechSynthesizer> sharedSpeechSynthesizer();
    // Those of the shared one:
    static SpeechChannel classSpeechChannel();
    static Ref<NSSpeechSynthesizer> classSpeechSynthesizer();
    static bool classIsSpeaking();
    static void classSpeakString(std::string_view text);
    static void classSpeakStrings(ObjectValue const& strings);
    static void classSpeakStrings(ObjectValue const& strings, double withInterval);
    static void classStopSpeaking();

    PLIXSpeechSynthesizer();
    ~PLIXSpeechSynthesizer() override;
    bool init();

    /// Made by the first call and kept; the channel for as long as the host is the same.
    SpeechChannel speechChannel();
    Ref<NSSpeechSynthesizer> speechSynthesizer();

    /// Below 10.3: whether there is any speech in progress.
    bool isSpeaking();
    /// Stops nothing by itself, but the machine says one text at a time: this one replaces what is being said, which is cut off.
    /// Leaves a list alone, which goes on when this was said.
    void speakString(std::string_view text);
    /// With the usual silence of 1.8 s.
    void speakStrings(ObjectValue const& strings);
    /// Stops what is being said, and speaks the strings of an array; the silence is in seconds, below 0 the usual one. Does nothing
    /// for what is no array or an empty one.
    void speakStrings(ObjectValue const& strings, double withInterval);
    /// Silences it and forgets the list.
    void stopSpeaking();

    /// The timer's: goes on with the list.
    void speakingStringsTimer(NSTimer&);

private:
    void setFireTime(double secondsFromNow);

    SpeechChannel m_speechChannel;
    Ref<NSSpeechSynthesizer> m_speechSynthesizer;
    std::vector<std::string> m_speakingStrings;
    std::int32_t m_speakingStringsIndex { 0 };
    double m_speakingStringsInterval { 0 };
    double m_lastSpeakingStringsTime { 0 };
    Ref<NSTimer> m_speakingStringsTimer;
};

/// The shared one; nil before it is first asked for.
PLIX_EXPORT extern Global<PLIXSpeechSynthesizer> sharedSpeechSynthesizer;

}
