#include <plix/platform/host/desktop/PulseVolumes.h>

#ifdef PLIX_PULSE
#include <plix/platform/foundation/NSProcessInfo.h>
#include <plix/platform/host/desktop/pulse_library.h>
#include <plix/platform/host/desktop/quiet_thread.h>

#include <array>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <new>
#include <thread>
#include <utility>
#endif

namespace plix {

#ifdef PLIX_PULSE

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr auto patience = 500ms;
constexpr auto betweenTries = 1s;
constexpr auto idleTime = 2s;
/// After what the machine had no memory for.
constexpr auto moment = 20ms;

ChannelVolume::Ear earOf(pa_channel_position_t position)
{
    switch (position) {
    case PA_CHANNEL_POSITION_FRONT_LEFT:
        return ChannelVolume::Ear::Left;
    case PA_CHANNEL_POSITION_FRONT_RIGHT:
        return ChannelVolume::Ear::Right;
    default:
        return ChannelVolume::Ear::Other;
    }
}

std::optional<StereoVolume> volumeOf(pa_sink_info const& sink)
{
    std::array<ChannelVolume, PA_CHANNELS_MAX> channels {};
    auto const count = std::min<std::size_t>(sink.volume.channels, channels.size());
    for (std::size_t channel = 0; channel < count; ++channel) {
        auto const volume = static_cast<float>(sink.volume.values[channel]) / static_cast<float>(PA_VOLUME_NORM);
        channels[channel] = { earOf(sink.channel_map.map[channel]), volume };
    }
    return stereoVolume({ channels.data(), count });
}

}

class PulseVolumes::Connection {
public:
    explicit Connection(std::function<void()> changed)
        : m_changed(std::move(changed))
        , m_applicationName(NSProcessInfo::processInfo().processName())
        , m_loop(library().newLoop())
    {
    }
    ~Connection()
    {
        if (!m_thread.joinable())
            return;
        {
            std::scoped_lock const lock(m_mutex);
            m_isOver = true;
        }
        library().wakeUp(m_loop.get());
        m_thread.join();
    }
    Connection(Connection const&) = delete;
    Connection& operator=(Connection const&) = delete;

    bool hasLoop() const { return m_loop != nullptr; }
    std::optional<StereoVolume> ask();
    std::optional<StereoVolume> known() const
    {
        std::scoped_lock const lock(m_mutex);
        return m_known;
    }
    void setWatched(bool);

private:
    using Ticket = unsigned long;

    static PulseLibrary const& library() { return PulseLibrary::shared(); }
    static Connection& self(void* pointer) { return *static_cast<Connection*>(pointer); }

    void startThread();

    // On the thread:
    void run();
    bool hasNews() const;
    /// False when all is over.
    bool act();
    int timeout();
    /// When there is something to do without news.
    std::optional<Clock::time_point> due() const;
    void disconnect();
    void connect();
    void stateChanged();
    void query();
    void take(pa_sink_info const&);
    void answer(std::optional<StereoVolume>);
    void tellChange();
    static void release(pa_operation* operation)
    {
        if (operation)
            library().releaseOperation(operation);
    }

    std::function<void()> m_changed;
    std::string m_applicationName;
    Handle<pa_mainloop> m_loop;
    std::thread m_thread;

    mutable std::mutex m_mutex;
    std::condition_variable m_answers;
    std::optional<StereoVolume> m_known;
    std::optional<std::uint32_t> m_knownOutput;
    Ticket m_asked { 0 };
    Ticket m_answered { 0 };
    bool m_isWatched { false };
    bool m_isOver { false };

    // The thread's own.
    Handle<pa_context> m_context;
    /// As the time that is waited for reckons with it.
    bool m_isWaitingWatched { false };
    bool m_isReady { false };
    bool m_isLost { false };
    /// What the server was asked last, or what is to be said that it does not answer.
    Ticket m_queried { 0 };
    bool m_isQuerying { false };
    bool m_isStale { false };
    std::optional<StereoVolume> m_found;
    std::optional<std::uint32_t> m_foundOutput;
    bool m_hasChangeToTell { false };
    Clock::time_point m_nextTry {};
    Clock::time_point m_lastUse {};
};

std::optional<StereoVolume> PulseVolumes::Connection::ask()
{
    std::unique_lock lock(m_mutex);
    // What was asked before is still to be answered. Asked once more, a slow server would never catch up.
    if (m_asked != m_answered)
        return {};
    auto const ticket = ++m_asked;
    startThread();
    if (!m_thread.joinable()) {
        m_answered = m_asked;
        return {};
    }
    library().wakeUp(m_loop.get());
    if (!m_answers.wait_for(lock, patience, [&] { return m_answered >= ticket; }))
        return {};
    return m_known;
}

void PulseVolumes::Connection::setWatched(bool watched)
{
    std::scoped_lock const lock(m_mutex);
    m_isWatched = watched;
    if (watched)
        startThread();
    library().wakeUp(m_loop.get());
}

void PulseVolumes::Connection::startThread()
{
    if (!m_thread.joinable())
        m_thread = quietThread([this] { run(); });
}

void PulseVolumes::Connection::run()
{
    while (act()) {
        library().prepare(m_loop.get(), timeout());
        // What came before was swallowed by the line above.
        if (hasNews())
            library().wakeUp(m_loop.get());
        // Where the system could not wait the loop is back before its preparation, and must not dispatch.
        if (library().poll(m_loop.get()) >= 0)
            library().dispatch(m_loop.get());
        else
            std::this_thread::sleep_for(moment);
    }
    m_context.reset();
}

bool PulseVolumes::Connection::hasNews() const
{
    std::scoped_lock const lock(m_mutex);
    bool const canQuery = m_isReady && !m_isQuerying;
    bool const wantsAnswer = m_asked != m_queried && (!m_context || canQuery);
    bool const wantsTry = m_isWatched && !m_context && Clock::now() >= m_nextTry;
    return m_isOver || m_isLost || wantsAnswer || wantsTry || m_isWatched != m_isWaitingWatched || (m_isStale && canQuery);
}

std::optional<Clock::time_point> PulseVolumes::Connection::due() const
{
    if (m_hasChangeToTell)
        return Clock::now() + moment;
    if (m_isWaitingWatched)
        return m_context ? std::nullopt : std::optional(m_nextTry);
    return m_isReady && !m_isQuerying ? std::optional(m_lastUse + idleTime) : std::nullopt;
}

int PulseVolumes::Connection::timeout()
{
    {
        std::scoped_lock const lock(m_mutex);
        m_isWaitingWatched = m_isWatched;
    }
    auto const time = due();
    if (!time)
        return -1;
    auto const rest = std::chrono::duration_cast<std::chrono::microseconds>(*time - Clock::now()).count();
    return static_cast<int>(std::max<long>(rest, 0));
}

void PulseVolumes::Connection::disconnect()
{
    m_context.reset();
    m_isReady = m_isQuerying = m_isStale = false;
}

bool PulseVolumes::Connection::act()
{
    if (std::exchange(m_isLost, false)) {
        disconnect();
        m_nextTry = Clock::now() + betweenTries;
        {
            std::scoped_lock const lock(m_mutex);
            m_queried = m_asked;
        }
        answer({});
    }
    tellChange();
    bool wantsAnswer = false;
    bool isWatched = false;
    {
        std::scoped_lock const lock(m_mutex);
        if (m_isOver)
            return false;
        wantsAnswer = m_asked != m_queried;
        isWatched = m_isWatched;
    }
    if (!m_context && (wantsAnswer || (isWatched && Clock::now() >= m_nextTry)))
        connect();
    if (m_isReady && !m_isQuerying && (wantsAnswer || m_isStale))
        query();
    if (m_isReady && !m_isQuerying && !isWatched && Clock::now() >= m_lastUse + idleTime)
        disconnect();
    return true;
}

void PulseVolumes::Connection::connect()
{
    m_context.reset(library().newContext(library().loopInterface(m_loop.get()), m_applicationName.c_str()));
    m_isLost = !m_context;
    if (m_isLost)
        return;
    library().setStateCallback(
        m_context.get(), [](pa_context*, void* pointer) { self(pointer).stateChanged(); }, this);
    library().setSubscribeCallback(
        m_context.get(),
        [](pa_context*, pa_subscription_event_type_t, std::uint32_t, void* pointer) { self(pointer).m_isStale = true; }, this);
    // Where it fails at once the state says so.
    library().connect(m_context.get(), nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr);
    stateChanged();
}

void PulseVolumes::Connection::stateChanged()
{
    auto const state = library().state(m_context.get());
    m_isLost = m_isLost || state == PA_CONTEXT_FAILED || state == PA_CONTEXT_TERMINATED;
    if (m_isReady || state != PA_CONTEXT_READY)
        return;
    m_isReady = m_isStale = true;
    constexpr auto events = static_cast<pa_subscription_mask_t>(PA_SUBSCRIPTION_MASK_SINK | PA_SUBSCRIPTION_MASK_SERVER);
    release(library().subscribe(m_context.get(), events, nullptr, nullptr));
}

void PulseVolumes::Connection::query()
{
    m_isQuerying = true;
    m_isStale = false;
    m_found.reset();
    m_foundOutput.reset();
    {
        std::scoped_lock const lock(m_mutex);
        if (m_queried != m_asked)
            m_lastUse = Clock::now();
        m_queried = m_asked;
    }
    auto const takeSink = [](pa_context*, pa_sink_info const* sink, int end, void* pointer) {
        if (sink)
            self(pointer).take(*sink);
        if (end)
            self(pointer).answer(self(pointer).m_found);
    };
    static auto const s_takeSink = takeSink;
    auto const takeServer = [](pa_context* context, pa_server_info const* server, void* pointer) {
        auto* const operation = server && server->default_sink_name
            ? library().sinkInfo(context, server->default_sink_name, s_takeSink, pointer)
            : nullptr;
        if (!operation)
            self(pointer).answer({});
        release(operation);
    };
    auto* const operation = library().serverInfo(m_context.get(), takeServer, this);
    if (!operation)
        answer({});
    release(operation);
}

void PulseVolumes::Connection::take(pa_sink_info const& sink)
{
    m_found = volumeOf(sink);
    m_foundOutput = sink.index;
}

void PulseVolumes::Connection::answer(std::optional<StereoVolume> volume)
{
    m_isQuerying = false;
    std::scoped_lock const lock(m_mutex);
    auto const output = volume ? m_foundOutput : std::nullopt;
    bool const isNews = m_isWatched && (m_known != volume || m_knownOutput != output);
    m_hasChangeToTell = m_hasChangeToTell || isNews;
    m_known = volume;
    m_knownOutput = output;
    m_answered = m_queried;
    m_answers.notify_all();
}

void PulseVolumes::Connection::tellChange()
{
    if (!m_hasChangeToTell)
        return;
    try {
        m_changed();
        m_hasChangeToTell = false;
    } catch (std::bad_alloc const&) {
        // Somewhat later there may be memory.
    }
}

std::unique_ptr<PulseVolumes> PulseVolumes::make(std::function<void()> changed)
{
    if (!PulseLibrary::shared().isLoaded)
        return nullptr;
    auto connection = std::make_unique<Connection>(std::move(changed));
    if (!connection->hasLoop())
        return nullptr;
    return std::unique_ptr<PulseVolumes>(new PulseVolumes(std::move(connection)));
}

#else

class PulseVolumes::Connection {
public:
    std::optional<StereoVolume> ask() { return {}; }
    std::optional<StereoVolume> known() const { return {}; }
    void setWatched(bool) { }
};

std::unique_ptr<PulseVolumes> PulseVolumes::make(std::function<void()>)
{
    return nullptr;
}

#endif

PulseVolumes::PulseVolumes(std::unique_ptr<Connection> connection)
    : m_connection(std::move(connection))
{
}

PulseVolumes::~PulseVolumes() = default;

std::optional<StereoVolume> PulseVolumes::ask()
{
    return m_connection->ask();
}

std::optional<StereoVolume> PulseVolumes::known() const
{
    return m_connection->known();
}

void PulseVolumes::setWatched(bool watched)
{
    m_connection->setWatched(watched);
}

}
