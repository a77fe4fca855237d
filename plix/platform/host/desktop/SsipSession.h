#pragma once

#include <plix/platform/host/desktop/ssip_text.h>

#include <deque>
#include <map>

namespace plix {

/// One connection to Speech Dispatcher as a machine of states: bytes in, bytes out, and times by a clock that only grows. One text
/// is spoken at a time, long ones in pieces, so that the service begins and stops at once. It notices a service that no longer
/// answers, or that keeps what it should have stopped; a text that is not begun or ended in time is given up.
class SsipSession {
public:
    struct Introduction {
        std::string user;
        std::string application;
        /// "" for the default one.
        std::string voice;
    };
    enum class Trouble {
        None,
        Silent, ///< it does not answer, or not in the protocol
        Stuck, ///< it answers, and keeps what it should have stopped
    };

    SsipSession(Introduction const&, double now);

    void speak(std::string_view text, double now);
    void stop(double now);
    void listVoices(double now);

    bool isSpeaking() const { return m_text.has_value(); }
    /// Whether nothing is left to be said, sent or answered.
    bool isIdle() const { return !m_text && !m_awaited && m_commands.empty() && m_output.empty(); }
    /// Whether any of the text that is being spoken has begun, and when.
    std::optional<double> speakingSince() const { return m_text ? m_text->since : std::nullopt; }
    /// Once after a text has ended without being stopped here: whether it was said to its end.
    std::optional<bool> takeEnd();
    /// Once, when the list is there.
    std::optional<std::vector<SsipVoice>> takeVoices();
    /// Once, when the service gave no list.
    bool takeVoicesRefusal();

    void receive(std::string_view bytes, double now);
    std::string takeOutput();
    bool hasOutput() const { return !m_output.empty(); }
    /// When tick() has something to do.
    std::optional<double> deadline() const;
    void tick(double now);
    Trouble trouble() const { return m_trouble; }
    /// Gives the text more time to begin: others are being heard first.
    void waitLonger(double now);
    bool isWaitingToBegin() const;

private:
    enum class Kind { Setting, Speak, Data, Cancel, Ping, Voices };
    struct Command {
        Kind kind;
        std::string words;
        /// Of what is spoken: the text that it belongs to, and the piece.
        long text { 0 };
        std::size_t piece { 0 };
    };
    struct Text {
        long number;
        std::vector<std::string> pieces;
        std::size_t nextPiece { 0 };
        std::size_t endedPieces { 0 };
        std::map<std::string, std::size_t> messages;
        std::optional<double> since;
        /// When the service should have begun or ended something.
        std::optional<double> deadline;
        bool hasBegunPiece { false };
    };
    struct Event {
        int code;
        std::string message;
    };

    void queue(Kind, std::string words);
    void queuePiece();
    void sendNext(double now);
    void takeReply(SsipReply const&, double now);
    void takeVoicesReply(SsipReply const&);
    void takeDataReply(Command const&, SsipReply const&, double now);
    void takeEvent(Event const&, double now);
    void takeEventOfText(Event const&, double now);
    bool isCurrent(Command const& command) const { return m_text && m_text->number == command.text; }
    void endText(bool isFinished);
    void dropText(double now);
    void fail(Trouble);

    SsipReader m_reader;
    std::string m_output;
    std::deque<Command> m_commands;
    std::optional<Command> m_awaited;
    double m_answerDeadline { 0 };
    double m_nextPing { 0 };
    std::optional<Text> m_text;
    long m_lastText { 0 };
    /// Events of messages whose number is not known yet; a few, since only one message waits for its number.
    std::vector<Event> m_earlyEvents;
    /// What was begun and then cancelled, and when that has to be told.
    std::map<std::string, double> m_cancelled;
    std::optional<bool> m_end;
    std::optional<std::vector<SsipVoice>> m_voices;
    bool m_hasRefusedVoices { false };
    Trouble m_trouble { Trouble::None };
};

}
