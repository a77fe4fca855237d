#include <plix/platform/host/speech_manager.h>

#include <plix/platform/host/Host.h>

namespace plix {

SpeechChannel NewSpeechChannel()
{
    auto* const speech = host().speech();
    return speech ? speech->openChannel({}, {}) : SpeechChannel {};
}

void DisposeSpeechChannel(SpeechChannel channel)
{
    if (auto* const speech = Speech::knowing(channel))
        speech->closeChannel(channel);
}

void SpeakText(SpeechChannel channel, std::string_view text)
{
    auto* const speech = Speech::knowing(channel);
    if (!speech)
        return;
    if (text.empty())
        speech->stop(channel);
    else
        speech->start(channel, text);
}

void SpeakString(std::string_view text)
{
    static SpeechChannel s_shared;
    auto* const speech = host().speech();
    if (speech && !speech->hasChannel(s_shared)) {
        // Another host's door may still be speaking on it.
        DisposeSpeechChannel(s_shared);
        s_shared = NewSpeechChannel();
    }
    SpeakText(s_shared, text);
}

bool SpeechBusy()
{
    auto* const speech = host().speech();
    return speech && speech->isAnyApplicationSpeaking();
}

}
