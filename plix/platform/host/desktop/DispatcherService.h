#pragma once

#include <plix/platform/host/desktop/DispatcherLine.h>
#include <plix/platform/host/desktop/DispatcherStart.h>
#include <plix/platform/host/desktop/SoundServerWatch.h>
#include <plix/platform/host/desktop/SpeakingMark.h>

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace plix {

struct DispatcherOptions {
    enum class Start { WhereMissing, Never };

    std::string user;
    std::string application;
    /// "" for no service.
    std::string socketPath;
    Start start { Start::WhereMissing };
    /// Held by who asks for speech here.
    std::shared_ptr<SpeakingMark> mark;

    /// As the service's own clients find it.
    static DispatcherOptions fromEnvironment();
};

/// Speech Dispatcher, with a connection for each channel, which are made when there is something to say and made anew when they
/// were lost. Belongs to one thread; nothing here waits but wait().
class DispatcherService {
public:
    /// Called inside turn(), again where they throw.
    struct News {
        std::function<void(std::uint32_t channel, long utterance, bool isFinished)> ended;
        std::function<void(std::optional<std::vector<SsipVoice>>)> voices;
    };

    DispatcherService(DispatcherOptions, News);
    ~DispatcherService();

    void open(std::uint32_t channel, std::string voice);
    void close(std::uint32_t channel);
    void speak(std::uint32_t channel, long utterance, std::string text);
    void stop(std::uint32_t channel);
    void listVoices();

    /// Goes on with all that can go on now. After it has thrown only giveUp() is right.
    void turn(double now);
    /// Ends all connections; the next turn tells that what was wanted has failed. Throws nothing.
    void giveUp();
    /// Has everything stopped, for an end after some more turns.
    void stopAll();
    /// Whether the service knows all that was stopped.
    bool isIdle() const;
    /// When turn() has something to do by itself.
    std::optional<double> deadline() const;
    /// Sleeps until there is something to go on with, the descriptor can be read, or that time.
    void wait(int wakeDescriptor, double now, std::optional<double> end);

private:
    struct Utterance {
        long number;
        std::string text;
        int attempts { 0 };
        bool isHandedOver { false };
        /// How it ended, where that is still to be told.
        std::optional<bool> end;
    };
    struct Channel {
        std::string voice;
        std::optional<Utterance> utterance;
        bool wantsVoices { false };
        /// When what is wanted has failed, while no connection is there.
        std::optional<double> deadline;
        DispatcherLine line;
        short revents { 0 };
        bool isClosing { false };
        bool areVoicesGivenUp { false };

        bool hasWork() const { return utterance || wantsVoices; }
    };

    void removeClosed();
    void turnChannel(std::uint32_t number, Channel&, double now);
    void bringOnline(std::uint32_t number, Channel&, double now);
    enum class Sound { There, Unknown, Missing };
    void askForSound(double now);
    void connect(std::uint32_t number, Channel&, double now);
    void handOver(Channel&, double now);
    void takeNews(std::uint32_t number, Channel&);
    void lose(std::uint32_t number, Channel&, double now);
    void fail(std::uint32_t number, Channel&);
    void tellEnd(std::uint32_t number, Channel&);
    void tellNoVoices(Channel&);
    void endStuckService(Channel const&);
    bool anyoneHasWork() const;
    bool isAnyoneHeardBefore(Channel const&) const;

    DispatcherOptions m_options;
    News m_news;
    std::map<std::uint32_t, std::unique_ptr<Channel>> m_channels;
    SoundServerWatch m_sound;
    Sound m_soundState { Sound::Unknown };
    DispatcherStart m_start;
    std::optional<double> m_nextAttempt;
    std::optional<double> m_soundDeadline;
};

}
