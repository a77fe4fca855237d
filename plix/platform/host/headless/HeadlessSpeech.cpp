#include <plix/platform/host/headless/HeadlessSpeech.h>

#include <plix/platform/base/utf16.h>
#include <plix/platform/host/headless/HeadlessEvents.h>
#include <plix/platform/host/spoken_text.h>

#include <utility>

namespace plix {

namespace {

NSTimeInterval usualDuration(std::string const& text)
{
    constexpr NSTimeInterval secondsOfUnit = 0.06;
    return secondsOfUnit * static_cast<double>(utf16Length(text));
}

}

HeadlessSpeech::HeadlessSpeech(HeadlessEvents& events)
    : m_events(events)
    , m_self(std::make_shared<HeadlessSpeech*>(this))
    , m_duration(usualDuration)
    , m_voices { { "headless.alto", "Alto", "en" }, { "headless.tenor", "Tenor", "de" } }
{
}

HeadlessSpeech::~HeadlessSpeech()
{
    *m_self = nullptr;
}

std::vector<std::string> HeadlessSpeech::texts() const
{
    std::vector<std::string> texts;
    for (auto const& utterance : m_utterances)
        texts.push_back(utterance.text);
    return texts;
}

void HeadlessSpeech::forgetUtterances()
{
    for (auto& [number, line] : m_lines)
        line.utterance.reset();
    m_utterances.clear();
}

void HeadlessSpeech::setDuration(std::function<NSTimeInterval(std::string const&)> duration)
{
    m_duration = std::move(duration);
}

SpeechChannel HeadlessSpeech::openChannel(std::string_view voice, SpeechNews news)
{
    auto const channel = newChannel();
    m_lines[channel.number] = { std::string(voice), std::move(news), std::nullopt, 0 };
    return channel;
}

void HeadlessSpeech::closeChannel(SpeechChannel channel)
{
    auto const found = m_lines.find(channel.number);
    if (found == m_lines.end())
        return;
    noteEnd(found->second, SpeechEnd::Stopped);
    m_lines.erase(found);
}

bool HeadlessSpeech::hasChannel(SpeechChannel channel) const
{
    return m_lines.contains(channel.number);
}

bool HeadlessSpeech::start(SpeechChannel channel, std::string_view text)
{
    auto const found = m_lines.find(channel.number);
    if (found == m_lines.end() || m_isUnavailable)
        return false;
    auto& line = found->second;
    finish(channel.number, line, SpeechEnd::Stopped);
    if (!hasAnythingToSay(text))
        return true;
    line.utterance = m_utterances.size();
    auto const serial = ++line.serial;
    m_utterances.push_back({ channel, line.voice, validUTF8(text), NSDate::date(), std::nullopt, SpeechEnd::Stopped });
    auto const seconds = m_duration(m_utterances.back().text);
    if (seconds < 0)
        return true;
    m_events.postAfter(seconds, [self = m_self, channel, serial] {
        if (*self)
            (*self)->finishOnTime(channel, serial);
    });
    return true;
}

void HeadlessSpeech::stop(SpeechChannel channel)
{
    if (auto const found = m_lines.find(channel.number); found != m_lines.end())
        finish(channel.number, found->second, SpeechEnd::Stopped);
}

bool HeadlessSpeech::noteEnd(Line& line, SpeechEnd how)
{
    if (!line.utterance)
        return false;
    auto& utterance = m_utterances[*std::exchange(line.utterance, std::nullopt)];
    utterance.end = NSDate::date();
    utterance.how = how;
    return true;
}

void HeadlessSpeech::finish(std::uint32_t number, Line& line, SpeechEnd how)
{
    if (!noteEnd(line, how))
        return;
    m_events.post([self = m_self, number, how] {
        if (!*self || !(*self)->m_lines.contains(number))
            return;
        if (auto const ended = (*self)->m_lines.at(number).news.ended)
            ended(how);
    });
}

void HeadlessSpeech::finishOnTime(SpeechChannel channel, long serial)
{
    auto const found = m_lines.find(channel.number);
    if (found == m_lines.end() || found->second.serial != serial)
        return;
    auto const ended = found->second.news.ended;
    if (noteEnd(found->second, SpeechEnd::Finished) && ended)
        ended(SpeechEnd::Finished);
}

void HeadlessSpeech::end(SpeechChannel channel, SpeechEnd how)
{
    if (auto const found = m_lines.find(channel.number); found != m_lines.end())
        finish(channel.number, found->second, how);
}

void HeadlessSpeech::tellWord(SpeechChannel channel, NSRange range)
{
    auto const found = m_lines.find(channel.number);
    if (found != m_lines.end() && found->second.utterance && found->second.news.word)
        m_events.post([self = m_self, number = channel.number, word = found->second.news.word, range] {
            if (*self && (*self)->m_lines.contains(number))
                word(range);
        });
}

void HeadlessSpeech::setUnavailable(bool isUnavailable)
{
    m_isUnavailable = isUnavailable;
    if (!isUnavailable)
        return;
    for (auto& [number, line] : m_lines)
        finish(number, line, SpeechEnd::Stopped);
}

bool HeadlessSpeech::isSpeaking(SpeechChannel channel) const
{
    auto const found = m_lines.find(channel.number);
    return found != m_lines.end() && found->second.utterance.has_value();
}

bool HeadlessSpeech::isAnyApplicationSpeaking()
{
    if (m_isOtherSpeaking)
        return true;
    for (auto const& [number, line] : m_lines) {
        if (line.utterance)
            return true;
    }
    return false;
}

void HeadlessSpeech::setVoices(std::vector<SpeechVoice> voices)
{
    m_voices = std::move(voices);
    if (m_wasAskedForVoices)
        postVoices();
}

std::vector<SpeechVoice> const& HeadlessSpeech::voices()
{
    if (!std::exchange(m_wasAskedForVoices, true))
        postVoices();
    return m_toldVoices;
}

void HeadlessSpeech::postVoices()
{
    m_events.post([self = m_self] {
        if (!*self)
            return;
        (*self)->m_toldVoices = (*self)->m_voices;
        if (auto const news = (*self)->m_voicesNews)
            news();
    });
}

void HeadlessSpeech::setVoicesNews(std::function<void()> news)
{
    m_voicesNews = std::move(news);
}

}
