#include <plix/platform/appkit/NSSpeechSynthesizer.h>

#include <plix/platform/base/utf16.h>
#include <plix/platform/foundation/NSNotificationCenter.h>
#include <plix/platform/host/Host.h>

#include <algorithm>
#include <iterator>

namespace plix {

PLIX_DESCRIBE(NSSpeechSynthesizer)
{
    description.hookOutlet("delegate", &NSSpeechSynthesizer::takeHooks);
}

namespace {

std::vector<SpeechVoice> knownVoices()
{
    auto* const speech = host().speech();
    if (!speech)
        return {};
    speech->setVoicesNews([] {
        NSNotificationCenter::defaultCenter().postNotificationName(
            NSSpeechSynthesizerAvailableVoicesDidChangeNotification, nullptr);
    });
    return speech->voices();
}

}

bool NSSpeechSynthesizer::init()
{
    return init(std::nullopt);
}

bool NSSpeechSynthesizer::init(std::optional<std::string_view> voice)
{
    m_voice = voice.value_or(std::string_view {});
    return Base::init();
}

NSSpeechSynthesizer::~NSSpeechSynthesizer()
{
    closeChannel();
}

void NSSpeechSynthesizer::closeChannel()
{
    if (auto* const speech = Speech::knowing(m_channel))
        speech->closeChannel(m_channel);
    m_channel = {};
}

SpeechNews NSSpeechSynthesizer::news()
{
    SpeechNews news;
    news.ended = [self = Weak<NSSpeechSynthesizer>(*this)](SpeechEnd end) {
        Ref<NSSpeechSynthesizer> const protector(self.get());
        if (protector && protector->m_hooks.didFinishSpeaking)
            protector->m_hooks.didFinishSpeaking(*protector, end == SpeechEnd::Finished);
    };
    news.word = [self = Weak<NSSpeechSynthesizer>(*this)](NSRange range) {
        Ref<NSSpeechSynthesizer> const protector(self.get());
        if (protector && protector->m_hooks.willSpeakWord)
            protector->m_hooks.willSpeakWord(*protector, range, std::string(protector->m_text));
    };
    return news;
}

Speech* NSSpeechSynthesizer::openedSpeech()
{
    auto* const speech = host().speech();
    if (speech && !speech->hasChannel(m_channel)) {
        closeChannel();
        m_channel = speech->openChannel(m_voice, news());
    }
    return speech;
}

bool NSSpeechSynthesizer::isSpeaking() const
{
    auto const* const speech = Speech::knowing(m_channel);
    return speech && speech->isSpeaking(m_channel);
}

bool NSSpeechSynthesizer::isAnyApplicationSpeaking()
{
    auto* const speech = host().speech();
    return speech && speech->isAnyApplicationSpeaking();
}

bool NSSpeechSynthesizer::startSpeakingString(std::string_view text)
{
    auto* const speech = openedSpeech();
    if (!speech)
        return false;
    m_text = validUTF8(text);
    return speech->start(m_channel, m_text);
}

void NSSpeechSynthesizer::stopSpeaking()
{
    if (auto* const speech = Speech::knowing(m_channel))
        speech->stop(m_channel);
}

bool NSSpeechSynthesizer::setVoice(std::optional<std::string_view> voice)
{
    if (isSpeaking())
        return false;
    closeChannel();
    m_voice = voice.value_or(std::string_view {});
    return true;
}

void NSSpeechSynthesizer::takeHooks(HookSource const& source)
{
    m_delegate = source;
    m_hooks = source.hooks<NSSpeechSynthesizerDelegate>();
}

std::vector<std::string> NSSpeechSynthesizer::availableVoices()
{
    auto const voices = knownVoices();
    std::vector<std::string> identifiers;
    std::transform(
        voices.begin(), voices.end(), std::back_inserter(identifiers), [](SpeechVoice const& voice) { return voice.identifier; });
    return identifiers;
}

ObjectValue::Dictionary NSSpeechSynthesizer::attributesForVoice(std::string_view identifier)
{
    for (auto const& voice : knownVoices()) {
        if (voice.identifier == identifier)
            return { { NSVoiceIdentifier, voice.identifier }, { NSVoiceName, voice.name }, { NSVoiceLanguage, voice.language } };
    }
    return {};
}

}
