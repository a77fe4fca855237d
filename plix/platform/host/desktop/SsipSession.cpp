#include <plix/platform/host/desktop/SsipSession.h>

#include <algorithm>
#include <utility>

namespace plix {

namespace {

// As much as is heard when the program ends without having stopped it.
constexpr std::size_t mostBytesOfPiece = 500;
constexpr double answerPatience = 5;
constexpr double voicesPatience = 30;
// Others may be heard first.
constexpr double beginPatience = 20;
constexpr double cancelPatience = 3;
constexpr double secondsBetweenPings = 2;
constexpr std::size_t mostEarlyEvents = 100;

// The slowest voices say some seven letters a second.
double endPatience(std::string const& piece)
{
    constexpr double secondsOfByte = 0.3;
    constexpr double leastPatience = 10;
    return leastPatience + secondsOfByte * static_cast<double>(piece.size());
}

enum EventCode { Begin = 701, End = 702, Cancelled = 703, Paused = 704, Resumed = 705 };
constexpr int goOnCode = 230;

}

SsipSession::SsipSession(Introduction const& introduction, double now)
{
    queue(Kind::Setting,
        "SET SELF CLIENT_NAME " + ssipWord(introduction.user) + ':' + ssipWord(introduction.application) + ":speech");
    queue(Kind::Setting, "SET SELF NOTIFICATION ALL ON");
    queue(Kind::Setting, "SET SELF PRIORITY MESSAGE");
    queue(Kind::Setting, "SET SELF SSML_MODE OFF");
    if (!introduction.voice.empty())
        queue(Kind::Setting, "SET SELF SYNTHESIS_VOICE " + ssipLine(introduction.voice));
    sendNext(now);
}

void SsipSession::queue(Kind kind, std::string words)
{
    m_commands.push_back({ kind, std::move(words), 0, 0 });
}

void SsipSession::queuePiece()
{
    if (m_text && m_text->nextPiece < m_text->pieces.size())
        m_commands.push_back({ Kind::Speak, "SPEAK", m_text->number, m_text->nextPiece++ });
}

void SsipSession::sendNext(double now)
{
    if (m_awaited || m_commands.empty() || m_trouble != Trouble::None)
        return;
    m_awaited = std::move(m_commands.front());
    m_commands.pop_front();
    m_output += m_awaited->words + "\r\n";
    m_answerDeadline = now + (m_awaited->kind == Kind::Voices ? voicesPatience : answerPatience);
}

void SsipSession::speak(std::string_view text, double now)
{
    dropText(now);
    m_text = Text { ++m_lastText, speechPieces(text, mostBytesOfPiece), 0, 0, {}, std::nullopt, now + beginPatience, false };
    m_nextPing = now + secondsBetweenPings;
    // One piece ahead, so that no gap is heard between them.
    queuePiece();
    queuePiece();
    sendNext(now);
}

void SsipSession::stop(double now)
{
    dropText(now);
    sendNext(now);
}

void SsipSession::listVoices(double now)
{
    queue(Kind::Voices, "LIST SYNTHESIS_VOICES");
    sendNext(now);
}

void SsipSession::dropText(double now)
{
    if (!m_text)
        return;
    std::erase_if(m_commands, [this](Command const& command) { return isCurrent(command); });
    bool const wasSent = !m_text->messages.empty() || (m_awaited && isCurrent(*m_awaited));
    if (wasSent)
        m_commands.push_front({ Kind::Cancel, "CANCEL SELF", 0, 0 });
    if (m_text->hasBegunPiece) {
        for (auto const& [message, piece] : m_text->messages) {
            if (piece == m_text->endedPieces)
                m_cancelled[message] = now + cancelPatience;
        }
    }
    m_text.reset();
    m_earlyEvents.clear();
}

void SsipSession::endText(bool isFinished)
{
    m_text.reset();
    m_earlyEvents.clear();
    m_end = isFinished;
}

void SsipSession::fail(Trouble trouble)
{
    if (m_trouble == Trouble::None)
        m_trouble = trouble;
}

std::optional<bool> SsipSession::takeEnd()
{
    return std::exchange(m_end, std::nullopt);
}

std::optional<std::vector<SsipVoice>> SsipSession::takeVoices()
{
    return std::exchange(m_voices, std::nullopt);
}

bool SsipSession::takeVoicesRefusal()
{
    return std::exchange(m_hasRefusedVoices, false);
}

std::string SsipSession::takeOutput()
{
    return std::exchange(m_output, {});
}

void SsipSession::receive(std::string_view bytes, double now)
{
    m_reader.receive(bytes);
    while (auto const reply = m_reader.next()) {
        if (!reply->isEvent())
            takeReply(*reply, now);
        else if (!reply->lines.empty())
            takeEvent({ reply->code, reply->lines.front() }, now);
    }
    if (m_reader.isBroken())
        fail(Trouble::Silent);
    sendNext(now);
}

void SsipSession::takeReply(SsipReply const& reply, double now)
{
    if (!m_awaited) {
        fail(Trouble::Silent);
        return;
    }
    m_nextPing = now + secondsBetweenPings;
    auto command = *std::exchange(m_awaited, std::nullopt);
    if (command.kind == Kind::Speak && reply.code == goOnCode) {
        // Without any text the service takes the message for cancelled.
        m_output += isCurrent(command) ? ssipData(m_text->pieces[command.piece]) : ".\r\n";
        command.kind = Kind::Data;
        m_answerDeadline = now + answerPatience;
        m_awaited = command;
    } else if (command.kind == Kind::Speak || command.kind == Kind::Data) {
        takeDataReply(command, reply, now);
    } else if (command.kind == Kind::Voices) {
        takeVoicesReply(reply);
    }
}

void SsipSession::takeVoicesReply(SsipReply const& reply)
{
    m_hasRefusedVoices = !reply.isSuccess();
    if (m_hasRefusedVoices)
        return;
    m_voices.emplace();
    for (auto const& line : reply.lines) {
        if (auto voice = ssipVoice(line))
            m_voices->push_back(std::move(*voice));
    }
}

void SsipSession::takeDataReply(Command const& command, SsipReply const& reply, double now)
{
    if (!isCurrent(command))
        return;
    if (!reply.isSuccess() || reply.lines.empty()) {
        dropText(now);
        endText(false);
        return;
    }
    auto const message = reply.lines.front();
    m_text->messages[message] = command.piece;
    for (auto const& event : std::exchange(m_earlyEvents, {})) {
        if (event.message == message)
            takeEvent(event, now);
        else
            m_earlyEvents.push_back(event);
    }
}

void SsipSession::takeEvent(Event const& event, double now)
{
    if (m_text && m_text->messages.contains(event.message)) {
        takeEventOfText(event, now);
        return;
    }
    if (event.code == End || event.code == Cancelled)
        m_cancelled.erase(event.message);
    if (m_awaited && m_awaited->kind == Kind::Data && isCurrent(*m_awaited))
        m_earlyEvents.push_back(event);
    if (m_earlyEvents.size() > mostEarlyEvents)
        fail(Trouble::Silent);
}

void SsipSession::takeEventOfText(Event const& event, double now)
{
    auto const piece = m_text->messages.at(event.message);
    switch (event.code) {
    case Begin:
        m_text->hasBegunPiece = true;
        if (!m_text->since)
            m_text->since = now;
        [[fallthrough]];
    case Resumed:
        m_text->deadline = now + endPatience(m_text->pieces[piece]);
        break;
    case Paused:
        m_text->deadline.reset();
        break;
    case End:
        m_text->messages.erase(event.message);
        m_text->hasBegunPiece = false;
        m_text->deadline = now + beginPatience;
        if (++m_text->endedPieces == m_text->pieces.size())
            endText(true);
        queuePiece();
        break;
    case Cancelled:
        m_text->messages.erase(event.message);
        m_text->hasBegunPiece = false;
        dropText(now);
        endText(false);
        break;
    default:
        break;
    }
}

bool SsipSession::isWaitingToBegin() const
{
    return m_text && !m_text->hasBegunPiece;
}

void SsipSession::waitLonger(double now)
{
    if (isWaitingToBegin())
        m_text->deadline = now + beginPatience;
}

std::optional<double> SsipSession::deadline() const
{
    std::optional<double> earliest;
    auto const consider = [&earliest](double time) { earliest = std::min(earliest.value_or(time), time); };
    if (m_awaited)
        consider(m_answerDeadline);
    else if (m_text || !m_cancelled.empty())
        consider(m_nextPing);
    if (m_text && m_text->deadline)
        consider(*m_text->deadline);
    for (auto const& [message, time] : m_cancelled)
        consider(time);
    return earliest;
}

void SsipSession::tick(double now)
{
    if (m_awaited && now >= m_answerDeadline)
        fail(Trouble::Silent);
    auto const isLate = [now](auto const& cancelled) { return now >= cancelled.second; };
    if (std::any_of(m_cancelled.begin(), m_cancelled.end(), isLate))
        fail(Trouble::Stuck);
    if (m_text && m_text->deadline && now >= *m_text->deadline) {
        dropText(now);
        endText(false);
        sendNext(now);
    }
    if (!m_awaited && (m_text || !m_cancelled.empty()) && now >= m_nextPing) {
        queue(Kind::Ping, "GET RATE");
        sendNext(now);
    }
}

}
