#pragma once

#include <plix/platform/base/NSRange.h>
#include <plix/platform/base/export.h>

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace plix {

/// A line to the machine's speech, handed out by a door; what it stands for is the door's own. One that no door knows, or knows any
/// more, is harmless: nothing starts on it, and it is not speaking.
struct SpeechChannel {
    std::uint32_t number { 0 };

    explicit operator bool() const { return number != 0; }
    friend bool operator==(SpeechChannel, SpeechChannel) = default;
};

/// A voice that the machine has.
struct SpeechVoice {
    /// What openChannel() takes.
    std::string identifier;
    /// For people.
    std::string name;
    /// As in "en" or "pt-BR"; "" where the machine does not tell.
    std::string language;

    friend bool operator==(SpeechVoice const&, SpeechVoice const&) = default;
};

/// How speech ended.
enum class SpeechEnd {
    Finished, ///< said to its end
    Stopped, ///< stopped, replaced by another text, or lost with the service
};

/// What a channel tells. Called on the run loop, never inside a call of the door.
struct SpeechNews {
    std::function<void(SpeechEnd)> ended;
    /// The word that is about to be said, in UTF-16 units of the text. Only some machines tell it.
    std::function<void(NSRange)> word;
};

/// The machine's speech. Nothing here waits for it: what a call begins goes on elsewhere, and news of it arrives on the run loop.
class PLIX_EXPORT Speech {
public:
    Speech();
    virtual ~Speech();
    Speech(Speech const&) = delete;
    Speech& operator=(Speech const&) = delete;

    /// A channel that speaks in a voice, "" or one that is not there for the machine's default.
    virtual SpeechChannel openChannel(std::string_view voice, SpeechNews) = 0;
    /// Silences the channel and forgets it, without news of that.
    virtual void closeChannel(SpeechChannel) = 0;
    virtual bool hasChannel(SpeechChannel) const = 0;

    /// Speaks a text in place of what the channel is speaking. Ill-formed UTF-8 is spoken as replacement characters. True where the
    /// service took it or may still take it: what goes wrong later ends it as Stopped. A text with nothing but blanks only stops.
    virtual bool start(SpeechChannel, std::string_view text) = 0;
    virtual void stop(SpeechChannel) = 0;
    /// From start() until just before the news of the end.
    virtual bool isSpeaking(SpeechChannel) const = 0;
    /// Whether any channel is speaking, here or, as far as the machine tells, in another application.
    virtual bool isAnyApplicationSpeaking() = 0;

    /// The voices known so far: the first call has them listed, and none are known until that is done.
    virtual std::vector<SpeechVoice> const& voices() = 0;
    /// Called on the run loop each time that more or other voices are known.
    virtual void setVoicesNews(std::function<void()>) = 0;

    /// The door that handed the channel out; null once that is gone, or for no channel.
    static Speech* knowing(SpeechChannel);

protected:
    /// One that no door of this process has handed out yet.
    static SpeechChannel newChannel();
};

}
