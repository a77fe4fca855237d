#include <plix/platform/host/desktop/DispatcherSpeech.h>

#include <plix/platform/foundation/NSRunLoop.h>
#include <plix/platform/host/desktop/DispatcherWorker.h>
#include <plix/platform/host/spoken_text.h>

#include <algorithm>
#include <utility>

namespace plix {

DispatcherSpeech::DispatcherSpeech(DispatcherOptions options)
    : m_options(std::move(options))
    , m_self(std::make_shared<DispatcherSpeech*>(this))
{
    if (!m_options.mark)
        m_options.mark = std::make_shared<SpeakingMark>(std::string());
}

DispatcherSpeech::~DispatcherSpeech()
{
    *m_self = nullptr;
}

// The thread begins with the first channel: most applications never have one.
DispatcherWorker& DispatcherSpeech::worker()
{
    if (m_worker)
        return *m_worker;
    DispatcherService::News news;
    news.ended = [self = m_self](std::uint32_t channel, long utterance, bool isFinished) {
        NSRunLoop::performOnMainThread([self, channel, utterance, isFinished] {
            if (*self)
                (*self)->ended(channel, utterance, isFinished ? SpeechEnd::Finished : SpeechEnd::Stopped);
        });
    };
    news.voices = [self = m_self](std::optional<std::vector<SsipVoice>> const& voices) {
        NSRunLoop::performOnMainThread([self, voices] {
            if (*self)
                (*self)->takeVoices(voices);
        });
    };
    m_worker = std::make_unique<DispatcherWorker>(m_options, std::move(news));
    return *m_worker;
}

SpeechChannel DispatcherSpeech::openChannel(std::string_view voice, SpeechNews news)
{
    auto const channel = newChannel();
    worker().perform(
        [number = channel.number, voice = std::string(voice)](DispatcherService& service) { service.open(number, voice); });
    m_channels[channel.number].news = std::move(news);
    return channel;
}

void DispatcherSpeech::closeChannel(SpeechChannel channel)
{
    if (!hasChannel(channel))
        return;
    worker().perform([number = channel.number](DispatcherService& service) { service.close(number); });
    m_channels.erase(channel.number);
    m_options.mark->setHeld(isSpeaking());
}

bool DispatcherSpeech::hasChannel(SpeechChannel channel) const
{
    return m_channels.contains(channel.number);
}

bool DispatcherSpeech::start(SpeechChannel channel, std::string_view text)
{
    auto const found = m_channels.find(channel.number);
    if (found == m_channels.end())
        return false;
    if (m_options.socketPath.empty()) {
        stop(channel);
        return false;
    }
    stopUtterance(channel.number, found->second);
    auto speakable = speakableText(text);
    if (!hasAnythingToSay(speakable)) {
        worker().perform([number = channel.number](DispatcherService& service) { service.stop(number); });
        return true;
    }
    auto const utterance = ++m_lastUtterance;
    bool const isTaken = worker().perform([number = channel.number, utterance, speakable = std::move(speakable)](
                                              DispatcherService& service) { service.speak(number, utterance, speakable); });
    if (isTaken)
        setUtterance(found->second, utterance);
    return isTaken;
}

void DispatcherSpeech::stop(SpeechChannel channel)
{
    auto const found = m_channels.find(channel.number);
    if (found == m_channels.end() || found->second.utterance == 0)
        return;
    worker().perform([number = channel.number](DispatcherService& service) { service.stop(number); });
    stopUtterance(channel.number, found->second);
}

void DispatcherSpeech::stopUtterance(std::uint32_t number, Channel& channel)
{
    if (channel.utterance == 0)
        return;
    NSRunLoop::performOnMainThread([self = m_self, number] {
        if (!*self || !(*self)->m_channels.contains(number))
            return;
        if (auto const news = (*self)->m_channels.at(number).news.ended)
            news(SpeechEnd::Stopped);
    });
    setUtterance(channel, 0);
}

void DispatcherSpeech::ended(std::uint32_t number, long utterance, SpeechEnd how)
{
    auto const found = m_channels.find(number);
    if (found == m_channels.end() || found->second.utterance != utterance)
        return;
    setUtterance(found->second, 0);
    if (auto const news = found->second.news.ended)
        news(how);
}

bool DispatcherSpeech::isSpeaking(SpeechChannel channel) const
{
    auto const found = m_channels.find(channel.number);
    return found != m_channels.end() && found->second.utterance != 0;
}

bool DispatcherSpeech::isSpeaking() const
{
    return std::any_of(m_channels.begin(), m_channels.end(), [](auto const& entry) { return entry.second.utterance != 0; });
}

void DispatcherSpeech::setUtterance(Channel& channel, long utterance)
{
    channel.utterance = utterance;
    m_options.mark->setHeld(isSpeaking());
}

bool DispatcherSpeech::isAnyApplicationSpeaking()
{
    return isSpeaking() || m_options.mark->isHeldByOthers();
}

std::vector<SpeechVoice> const& DispatcherSpeech::voices()
{
    if (!m_hasVoices && !m_options.socketPath.empty() && !m_isListingVoices)
        m_isListingVoices = worker().perform([](DispatcherService& service) { service.listVoices(); });
    return m_voices;
}

void DispatcherSpeech::takeVoices(std::optional<std::vector<SsipVoice>> const& voices)
{
    m_isListingVoices = false;
    if (!voices)
        return;
    m_hasVoices = true;
    for (auto const& voice : *voices)
        m_voices.push_back({ voice.name, voice.name, voice.language });
    if (auto const news = m_voicesNews)
        news();
}

void DispatcherSpeech::setVoicesNews(std::function<void()> news)
{
    m_voicesNews = std::move(news);
}

}
