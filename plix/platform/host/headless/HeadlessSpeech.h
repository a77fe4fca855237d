#pragma once

#include <plix/platform/base/NSDate.h>
#include <plix/platform/base/export.h>
#include <plix/platform/host/Speech.h>

#include <map>
#include <memory>
#include <optional>

namespace plix {

class HeadlessEvents;

/// A speech engine without sound: a text takes its time by the clock of the headless machine, and what was said is written down.
class PLIX_EXPORT HeadlessSpeech final : public Speech {
public:
    struct Utterance {
        SpeechChannel channel;
        std::string voice;
        std::string text;
        NSDate begin;
        /// Nothing while it is being spoken.
        std::optional<NSDate> end;
        SpeechEnd how { SpeechEnd::Stopped };
    };

    explicit HeadlessSpeech(HeadlessEvents&);
    ~HeadlessSpeech() override;

    /// All that was started, in order.
    std::vector<Utterance> const& utterances() const { return m_utterances; }
    /// What they said.
    std::vector<std::string> texts() const;
    void forgetUtterances();
    /// How long a text takes; 0.06 s for each UTF-16 unit at first. Below 0: until it is ended by hand.
    void setDuration(std::function<NSTimeInterval(std::string const& text)>);
    /// Has what the channel is speaking end now.
    void end(SpeechChannel, SpeechEnd = SpeechEnd::Finished);
    /// Tells of a word of what the channel is speaking.
    void tellWord(SpeechChannel, NSRange);
    /// While set, nothing can be started and what was being spoken is lost, as with a service that died.
    void setUnavailable(bool);
    void setOtherApplicationSpeaking(bool speaking) { m_isOtherSpeaking = speaking; }
    /// The voices that are there. The first call of voices() finds none and has them told in the run loop's next turn.
    void setVoices(std::vector<SpeechVoice>);

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
    struct Line {
        std::string voice;
        SpeechNews news;
        /// The utterance that is being spoken; what was posted for an earlier one is out of date.
        std::optional<std::size_t> utterance;
        long serial { 0 };
    };

    /// False where nothing was being spoken.
    bool noteEnd(Line&, SpeechEnd);
    void finish(std::uint32_t number, Line&, SpeechEnd);
    void finishOnTime(SpeechChannel, long serial);
    void postVoices();

    HeadlessEvents& m_events;
    /// What posted calls look at, which may come after this is gone.
    std::shared_ptr<HeadlessSpeech*> m_self;
    std::map<std::uint32_t, Line> m_lines;
    std::vector<Utterance> m_utterances;
    std::function<NSTimeInterval(std::string const&)> m_duration;
    std::vector<SpeechVoice> m_voices;
    std::vector<SpeechVoice> m_toldVoices;
    bool m_wasAskedForVoices { false };
    std::function<void()> m_voicesNews;
    bool m_isUnavailable { false };
    bool m_isOtherSpeaking { false };
};

}
