#include <plix/platform/host/desktop/DispatcherService.h>

#include <algorithm>
#include <cmath>
#include <csignal>
#include <cstdlib>
#include <utility>

#include <poll.h>
#include <unistd.h>

namespace plix {

namespace {

constexpr double soundPatience = 3;
constexpr double connectPatience = 15;
constexpr double secondsBetweenAttempts = 0.05;
/// What was heard for less may be said again from its beginning.
constexpr double hardlyHeard = 1;
/// No channel that a door hands out.
constexpr std::uint32_t voicesChannel = 0;

std::optional<std::string> variable(char const* name)
{
    auto const* const value = std::getenv(name);
    return value ? std::optional<std::string>(value) : std::nullopt;
}

std::string programName()
{
    char path[4096];
    auto const size = ::readlink("/proc/self/exe", path, sizeof path);
    std::string_view const whole(path, static_cast<std::size_t>(std::max<ssize_t>(size, 0)));
    return std::string(whole.substr(whole.rfind('/') + 1));
}

}

DispatcherOptions DispatcherOptions::fromEnvironment()
{
    auto const runtimeFolder = variable("XDG_RUNTIME_DIR");
    DispatcherOptions options;
    options.user = variable("USER").value_or("user");
    options.application = programName();
    options.socketPath = ssipSocketPath(variable("SPEECHD_ADDRESS"), runtimeFolder, variable("HOME"));
    bool const hasFolder = runtimeFolder && !runtimeFolder->empty();
    options.mark = std::make_shared<SpeakingMark>(hasFolder ? *runtimeFolder + "/plix-speaking" : std::string());
    return options;
}

DispatcherService::DispatcherService(DispatcherOptions options, News news)
    : m_options(std::move(options))
    , m_news(std::move(news))
    , m_sound(m_options.application)
{
}

DispatcherService::~DispatcherService() = default;

void DispatcherService::open(std::uint32_t number, std::string voice)
{
    auto channel = std::make_unique<Channel>();
    channel->voice = std::move(voice);
    m_channels[number] = std::move(channel);
}

void DispatcherService::close(std::uint32_t number)
{
    // The service goes on speaking for a client that is gone: first it has to be told to stop.
    if (auto const found = m_channels.find(number); found != m_channels.end()) {
        found->second->isClosing = true;
        found->second->utterance.reset();
    }
}

void DispatcherService::speak(std::uint32_t number, long utterance, std::string text)
{
    if (auto const found = m_channels.find(number); found != m_channels.end())
        found->second->utterance = Utterance { utterance, std::move(text), 0, false, {} };
}

void DispatcherService::stop(std::uint32_t number)
{
    if (auto const found = m_channels.find(number); found != m_channels.end())
        found->second->utterance.reset();
}

void DispatcherService::listVoices()
{
    if (!m_channels.contains(voicesChannel))
        open(voicesChannel, {});
    m_channels.at(voicesChannel)->wantsVoices = true;
}

bool DispatcherService::anyoneHasWork() const
{
    return std::any_of(m_channels.begin(), m_channels.end(), [](auto const& entry) { return entry.second->hasWork(); });
}

void DispatcherService::stopAll()
{
    for (auto& [number, channel] : m_channels) {
        channel->isClosing = true;
        channel->utterance.reset();
        channel->wantsVoices = false;
    }
}

bool DispatcherService::isIdle() const
{
    return std::all_of(m_channels.begin(), m_channels.end(), [](auto const& entry) {
        auto const& line = std::as_const(entry.second->line);
        return !line.isOnline() || (line.session().isIdle() && !line.hasOutput());
    });
}

void DispatcherService::removeClosed()
{
    std::erase_if(m_channels, [](auto const& entry) {
        auto const& line = std::as_const(entry.second->line);
        return entry.second->isClosing && (!line.isOnline() || line.session().isIdle());
    });
}

void DispatcherService::turn(double now)
{
    m_nextAttempt.reset();
    m_start.goOn(now);
    if (anyoneHasWork())
        askForSound(now);
    for (auto& [number, channel] : m_channels)
        turnChannel(number, *channel, now);
    removeClosed();
    if (!anyoneHasWork()) {
        m_sound.forget();
        m_soundDeadline.reset();
        m_soundState = Sound::Unknown;
    }
}

void DispatcherService::turnChannel(std::uint32_t number, Channel& channel, double now)
{
    auto& line = channel.line;
    tellEnd(number, channel);
    if (channel.areVoicesGivenUp)
        tellNoVoices(channel);
    bool isGood = line.transfer(std::exchange(channel.revents, 0), now);
    if (isGood && line.isOnline()) {
        auto& session = line.session();
        auto const due = session.deadline();
        if (due && now >= *due && session.isWaitingToBegin() && isAnyoneHeardBefore(channel))
            session.waitLonger(now);
        session.tick(now);
        takeNews(number, channel);
        isGood = session.trouble() == SsipSession::Trouble::None;
    }
    bool const isSoundLost = channel.utterance && m_soundState == Sound::Missing;
    if (!isGood || (isSoundLost && line.isOnline()))
        lose(number, channel, now);
    if (channel.hasWork() && !line.isOnline())
        bringOnline(number, channel, now);
    if (!channel.hasWork())
        channel.deadline.reset();
    if (number == voicesChannel && !channel.hasWork())
        line.close();
    if (line.isOnline()) {
        channel.deadline.reset();
        handOver(channel, now);
        if (!line.transfer(0, now))
            lose(number, channel, now);
    }
}

void DispatcherService::handOver(Channel& channel, double now)
{
    auto& session = channel.line.session();
    bool const isNew = channel.utterance && !channel.utterance->isHandedOver;
    if (!channel.utterance || (isNew && m_soundState != Sound::There)) {
        session.stop(now);
    } else if (isNew) {
        channel.utterance->isHandedOver = true;
        session.speak(channel.utterance->text, now);
    }
}

void DispatcherService::takeNews(std::uint32_t number, Channel& channel)
{
    auto& session = channel.line.session();
    auto const end = session.takeEnd();
    if (end && channel.utterance && channel.utterance->isHandedOver)
        channel.utterance->end = end;
    tellEnd(number, channel);
    if (auto voices = session.takeVoices()) {
        m_news.voices(std::move(voices));
        channel.wantsVoices = false;
    }
    if (session.takeVoicesRefusal())
        tellNoVoices(channel);
}

void DispatcherService::tellEnd(std::uint32_t number, Channel& channel)
{
    if (!channel.utterance || !channel.utterance->end)
        return;
    m_news.ended(number, channel.utterance->number, *channel.utterance->end);
    channel.utterance.reset();
}

bool DispatcherService::isAnyoneHeardBefore(Channel const& channel) const
{
    auto const isHeard = [&channel](auto const& entry) {
        auto const& other = std::as_const(*entry.second);
        return &other != &channel && other.line.isOnline() && other.line.session().speakingSince();
    };
    return std::any_of(m_channels.begin(), m_channels.end(), isHeard) || m_options.mark->isHeldByOthers();
}

void DispatcherService::lose(std::uint32_t number, Channel& channel, double now)
{
    if (!channel.line.isOnline()) {
        channel.line.close();
        return;
    }
    auto const since = channel.line.session().speakingSince();
    if (channel.line.session().trouble() == SsipSession::Trouble::Stuck)
        endStuckService(channel);
    channel.line.close();
    bool const isHardlyHeard = !since || now - *since < hardlyHeard;
    if (!channel.utterance || !channel.utterance->isHandedOver)
        return;
    if (isHardlyHeard && channel.utterance->attempts++ == 0) {
        channel.utterance->isHandedOver = false;
        m_nextAttempt = now + secondsBetweenAttempts;
    } else {
        fail(number, channel);
    }
}

void DispatcherService::endStuckService(Channel const& channel)
{
    auto const service = channel.line.servicePid();
    if (service > 1 && service == m_start.startedService())
        ::kill(service, SIGKILL);
    m_start.forgetService();
}

void DispatcherService::fail(std::uint32_t number, Channel& channel)
{
    channel.deadline.reset();
    if (channel.utterance)
        channel.utterance->end = false;
    tellEnd(number, channel);
    if (channel.wantsVoices)
        tellNoVoices(channel);
}

void DispatcherService::tellNoVoices(Channel& channel)
{
    m_news.voices(std::nullopt);
    channel.wantsVoices = channel.areVoicesGivenUp = false;
}

void DispatcherService::giveUp()
{
    for (auto& [number, channel] : m_channels) {
        channel->line.close();
        channel->areVoicesGivenUp = channel->wantsVoices;
        if (channel->utterance)
            channel->utterance->end = channel->utterance->end.value_or(false);
    }
}

void DispatcherService::askForSound(double now)
{
    if (m_sound.state() == SoundServerWatch::State::Idle) {
        m_sound.ask();
        m_soundDeadline = now + soundPatience;
    }
    auto const state = m_sound.state();
    bool const isLate = m_soundDeadline && now >= *m_soundDeadline;
    if (state == SoundServerWatch::State::There)
        m_soundState = Sound::There;
    else if (state == SoundServerWatch::State::Missing || isLate)
        m_soundState = Sound::Missing;
    if (m_soundState != Sound::Unknown)
        m_soundDeadline.reset();
}

void DispatcherService::bringOnline(std::uint32_t number, Channel& channel, double now)
{
    if (!channel.deadline)
        channel.deadline = now + connectPatience;
    if (m_soundState == Sound::Missing || now >= *channel.deadline)
        fail(number, channel);
    else if (m_soundState == Sound::There)
        connect(number, channel, now);
}

void DispatcherService::connect(std::uint32_t number, Channel& channel, double now)
{
    auto const attempt = channel.line.connect(m_options.socketPath, { m_options.user, m_options.application, channel.voice }, now);
    if (attempt == DispatcherLine::Attempt::Connected) {
        m_start.noteReached(channel.line.servicePid());
        if (channel.wantsVoices)
            channel.line.session().listVoices(now);
        return;
    }
    if (attempt == DispatcherLine::Attempt::NotThere) {
        if (m_options.start == DispatcherOptions::Start::WhereMissing)
            m_start.begin(m_options.socketPath, now);
        auto const state = m_start.state();
        if (state == DispatcherStart::State::Idle || state == DispatcherStart::State::Failed) {
            fail(number, channel);
            return;
        }
    }
    m_nextAttempt = now + secondsBetweenAttempts;
}

std::optional<double> DispatcherService::deadline() const
{
    std::optional<double> earliest = m_start.deadline();
    auto const consider = [&earliest](std::optional<double> time) {
        if (time)
            earliest = std::min(earliest.value_or(*time), *time);
    };
    consider(m_nextAttempt);
    consider(m_soundDeadline);
    for (auto const& [number, channel] : m_channels) {
        auto const& line = std::as_const(channel->line);
        consider(line.isOnline() ? line.session().deadline() : channel->deadline);
    }
    return earliest;
}

void DispatcherService::wait(int wakeDescriptor, double now, std::optional<double> end)
{
    std::vector<pollfd> descriptors { { wakeDescriptor, POLLIN, 0 } };
    std::vector<Channel*> channels;
    for (auto const& [number, channel] : m_channels) {
        if (!channel->line.isOnline())
            continue;
        descriptors.push_back(channel->line.interest());
        channels.push_back(channel.get());
    }
    constexpr double millisecondsOfSecond = 1000;
    auto due = deadline();
    if (end)
        due = std::min(due.value_or(*end), *end);
    int const milliseconds = due ? static_cast<int>(std::ceil(std::max(*due - now, 0.0) * millisecondsOfSecond)) : -1;
    m_sound.wait(descriptors, milliseconds);
    for (std::size_t index = 0; index < channels.size(); ++index)
        channels[index]->revents = descriptors[index + 1].revents;
}

}
