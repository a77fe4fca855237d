#include <plix/speech/PLIXSpeechSynthesizer.h>

#include <plix/platform/appkit/NSSpeechSynthesizer.h>
#include <plix/platform/foundation/NSTimer.h>
#include <plix/platform/host/Host.h>
#include <plix/platform/host/speech_manager.h>
#include <plix/platform/host/spoken_text.h>
#include <plix/speech/speaking_list.h>
#include <plix/speech/speech_branch.h>

#include <utility>

namespace plix {

constinit Global<PLIXSpeechSynthesizer> sharedSpeechSynthesizer;

PLIX_DESCRIBE(PLIXSpeechSynthesizer)
{
}

Ref<PLIXSpeechSynthesizer> PLIXSpeechSynthesizer::sharedSpeechSynthesizer()
{
    auto& shared = plix::sharedSpeechSynthesizer;
    if (!shared)
        shared = make<PLIXSpeechSynthesizer>();
    return shared;
}

SpeechChannel PLIXSpeechSynthesizer::classSpeechChannel()
{
    return sharedSpeechSynthesizer()->speechChannel();
}

Ref<NSSpeechSynthesizer> PLIXSpeechSynthesizer::classSpeechSynthesizer()
{
    return sharedSpeechSynthesizer()->speechSynthesizer();
}

bool PLIXSpeechSynthesizer::classIsSpeaking()
{
    return sharedSpeechSynthesizer()->isSpeaking();
}

void PLIXSpeechSynthesizer::classSpeakString(std::string_view text)
{
    sharedSpeechSynthesizer()->speakString(text);
}

void PLIXSpeechSynthesizer::classSpeakStrings(ObjectValue const& strings)
{
    sharedSpeechSynthesizer()->speakStrings(strings);
}

void PLIXSpeechSynthesizer::classSpeakStrings(ObjectValue const& strings, double withInterval)
{
    sharedSpeechSynthesizer()->speakStrings(strings, withInterval);
}

void PLIXSpeechSynthesizer::classStopSpeaking()
{
    sharedSpeechSynthesizer()->stopSpeaking();
}

PLIXSpeechSynthesizer::PLIXSpeechSynthesizer() = default;

bool PLIXSpeechSynthesizer::init()
{
    return Base::init();
}

PLIXSpeechSynthesizer::~PLIXSpeechSynthesizer()
{
    DisposeSpeechChannel(m_speechChannel);
}

SpeechChannel PLIXSpeechSynthesizer::speechChannel()
{
    auto const* const speech = host().speech();
    if (!speech || !speech->hasChannel(m_speechChannel)) {
        DisposeSpeechChannel(m_speechChannel);
        m_speechChannel = NewSpeechChannel();
    }
    return m_speechChannel;
}

Ref<NSSpeechSynthesizer> PLIXSpeechSynthesizer::speechSynthesizer()
{
    if (!m_speechSynthesizer)
        m_speechSynthesizer = make<NSSpeechSynthesizer>(std::nullopt);
    return m_speechSynthesizer;
}

bool PLIXSpeechSynthesizer::isSpeaking()
{
    return hasSpeechSynthesizers() ? speechSynthesizer()->isSpeaking() : SpeechBusy();
}

void PLIXSpeechSynthesizer::speakString(std::string_view text)
{
    if (hasSpeechSynthesizers())
        speechSynthesizer()->startSpeakingString(text);
    else
        SpeakText(speechChannel(), lossyCString(text));
}

void PLIXSpeechSynthesizer::speakStrings(ObjectValue const& strings)
{
    speakStrings(strings, -1.0);
}

void PLIXSpeechSynthesizer::speakStrings(ObjectValue const& strings, double withInterval)
{
    auto const* const array = strings.array();
    if (!array || array->empty())
        return;
    stopSpeaking();
    m_speakingStrings.clear();
    for (auto const& string : *array)
        m_speakingStrings.push_back(string.description());
    m_speakingStringsIndex = 0;
    m_speakingStringsInterval = speakingListInterval(withInterval);
    m_lastSpeakingStringsTime = 0;
    m_speakingStringsTimer
        = NSTimer::scheduledTimerWithTimeInterval(0.0, *this, &PLIXSpeechSynthesizer::speakingStringsTimer, nullptr, true);
}

void PLIXSpeechSynthesizer::speakingStringsTimer(NSTimer&)
{
    auto const now = NSDate::date().timeIntervalSince1970();
    auto const turn = speakingListTurn({ static_cast<std::int32_t>(m_speakingStrings.size()), m_speakingStringsIndex,
                                           m_speakingStringsInterval, m_lastSpeakingStringsTime },
        isSpeaking(), now);
    m_lastSpeakingStringsTime = turn.lastTime;
    if (turn.step == SpeakingListStep::End) {
        stopSpeaking();
        return;
    }
    if (turn.step == SpeakingListStep::Speak)
        speakString(std::string(m_speakingStrings[static_cast<std::size_t>(m_speakingStringsIndex++)]));
    setFireTime(turn.nextLook);
}

// Of the held timer, whichever fired: that is meant.
void PLIXSpeechSynthesizer::setFireTime(double secondsFromNow)
{
    if (m_speakingStringsTimer)
        m_speakingStringsTimer->setFireDate(NSDate::dateWithTimeIntervalSinceNow(secondsFromNow));
}

void PLIXSpeechSynthesizer::stopSpeaking()
{
    if (hasSpeechSynthesizers())
        speechSynthesizer()->stopSpeaking();
    else
        SpeakText(speechChannel(), {});
    m_speakingStrings.clear();
    if (auto const timer = std::exchange(m_speakingStringsTimer, nullptr); timer && timer->isValid())
        timer->invalidate();
}

}
