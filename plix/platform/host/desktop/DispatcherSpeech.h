#pragma once

#include <plix/platform/host/Speech.h>
#include <plix/platform/host/desktop/DispatcherService.h>

#include <memory>

namespace plix {

class DispatcherWorker;

/// Speech by Speech Dispatcher. Other applications that speak through this library are known of, others are not: the service does
/// not tell. It speaks after them, however.
class DispatcherSpeech final : public Speech {
public:
    explicit DispatcherSpeech(DispatcherOptions = DispatcherOptions::fromEnvironment());
    ~DispatcherSpeech() override;

    // Speech:
    SpeechChannel openChannel(std::string_view voice, SpeechNews) override;
    void closeChannel(SpeechChannel) override;
    bool hasChannel(SpeechChannel) const override;
    bool start(SpeechChannel, std::string_view text) override;
    void stop(SpeechChannel) override;
    bool isSpeaking(SpeechChannel) const override;
    bool isAnyApplicationSpeaking() override;
    std::vector<SpeechVoice> const& voices() override;
    void setVoicesNews(std::function<void()>) override;

private:
    struct Channel {
        SpeechNews news;
        /// The one that is being spoken; 0 for none.
        long utterance { 0 };
    };

    DispatcherWorker& worker();
    void ended(std::uint32_t channel, long utterance, SpeechEnd);
    bool isSpeaking() const;
    void setUtterance(Channel&, long);
    void stopUtterance(std::uint32_t channel, Channel&);
    void takeVoices(std::optional<std::vector<SsipVoice>> const&);

    DispatcherOptions m_options;
    /// What calls from the worker look at, which may come after this is gone.
    std::shared_ptr<DispatcherSpeech*> m_self;
    std::map<std::uint32_t, Channel> m_channels;
    long m_lastUtterance { 0 };
    std::vector<SpeechVoice> m_voices;
    bool m_hasVoices { false };
    bool m_isListingVoices { false };
    std::function<void()> m_voicesNews;
    std::unique_ptr<DispatcherWorker> m_worker;
};

}
