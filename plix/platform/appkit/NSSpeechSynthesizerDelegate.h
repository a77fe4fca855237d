#pragma once

#include <plix/platform/base/Hook.h>
#include <plix/platform/base/NSRange.h>

#include <string>

namespace plix {

class NSSpeechSynthesizer;

/// What a speech synthesizer tells its delegate, on the run loop.
struct NSSpeechSynthesizerDelegate {
    /// False where the text was not said to its end: stopped, replaced by another, or the service is not there or was lost.
    Hook<void(NSSpeechSynthesizer&, bool finishedSpeaking)> didFinishSpeaking;
    /// The range is in UTF-16 units of the text. Only some machines tell it.
    Hook<void(NSSpeechSynthesizer&, NSRange wordToSpeak, std::string const& text)> willSpeakWord;

    template <typename Host> void fillFrom(Host& host)
    {
        PLIX_FILL_HOOK(didFinishSpeaking);
        PLIX_FILL_HOOK(willSpeakWord);
    }
};

}
