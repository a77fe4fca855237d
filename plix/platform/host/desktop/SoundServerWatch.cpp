#include <plix/platform/host/desktop/SoundServerWatch.h>

#include <plix/platform/host/desktop/pulse_library.h>
#include <plix/platform/host/desktop/sound_card.h>

#include <algorithm>
#include <cerrno>
#include <limits>

#include <poll.h>

namespace plix {

namespace {

PulseLibrary const& pulse()
{
    return PulseLibrary::shared();
}

}

struct SoundServerWatch::Connection {
    explicit Connection(std::string const& applicationName)
    {
        if (!pulse().isLoaded)
            return;
        loop.reset(pulse().newLoop());
        if (!loop)
            return;
        pulse().setPoll(loop.get(), &Connection::pollAll, this);
        context.reset(pulse().newContext(pulse().loopInterface(loop.get()), applicationName.c_str()));
        if (context)
            pulse().connect(context.get(), nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr);
    }

    bool isAnswered() const { return context && pulse().state(context.get()) == PA_CONTEXT_READY; }
    bool isOver() const { return !context || !PA_CONTEXT_IS_GOOD(pulse().state(context.get())); }

    void turn(std::vector<pollfd>& wanted, int milliseconds)
    {
        own = &wanted;
        room = std::max(room, wanted.size() + descriptorsOfServer);
        all.reserve(room);
        constexpr int microseconds = 1000;
        auto const timeout
            = milliseconds < 0 ? -1 : std::min(milliseconds, std::numeric_limits<int>::max() / microseconds) * microseconds;
        // What is prepared is due already where it answers more than 0.
        if (pulse().prepare(loop.get(), timeout) < 0 || pulse().poll(loop.get()) < 0)
            return;
        pulse().dispatch(loop.get());
    }

    static int pollAll(pollfd* descriptors, unsigned long count, int timeout, void* self)
    {
        auto& all = static_cast<Connection*>(self)->all;
        auto& wanted = *static_cast<Connection*>(self)->own;
        auto& room = static_cast<Connection*>(self)->room;
        room = std::max<std::size_t>(room, count + wanted.size());
        // C calls this, which no exception may pass: more room is made the next time.
        if (all.capacity() < room)
            return 0;
        all.assign(descriptors, descriptors + count);
        all.insert(all.end(), wanted.begin(), wanted.end());
        auto const result = ::poll(all.data(), all.size(), timeout);
        std::copy_n(all.begin(), count, descriptors);
        std::copy(all.begin() + static_cast<std::ptrdiff_t>(count), all.end(), wanted.begin());
        return result;
    }

    /// What the library has at most, usually: its pipe and a socket.
    static constexpr std::size_t descriptorsOfServer = 4;

    std::vector<pollfd>* own { nullptr };
    std::vector<pollfd> all;
    std::size_t room { 0 };
    Handle<pa_mainloop> loop;
    Handle<pa_context> context;
    bool hasDevice { hasSoundCard() };
};

SoundServerWatch::SoundServerWatch(std::string applicationName)
    : m_applicationName(std::move(applicationName))
{
}

SoundServerWatch::~SoundServerWatch() = default;

void SoundServerWatch::ask()
{
    if (!m_connection || m_connection->isOver())
        m_connection = std::make_unique<Connection>(m_applicationName);
}

void SoundServerWatch::forget()
{
    m_connection.reset();
}

SoundServerWatch::State SoundServerWatch::state() const
{
    if (!m_connection)
        return State::Idle;
    if (m_connection->isAnswered())
        return State::There;
    if (m_connection->isOver())
        return m_connection->hasDevice ? State::There : State::Missing;
    return State::Asking;
}

void SoundServerWatch::wait(std::vector<pollfd>& descriptors, int milliseconds)
{
    if (m_connection && m_connection->loop && !m_connection->isOver())
        m_connection->turn(descriptors, milliseconds);
    else
        ::poll(descriptors.data(), descriptors.size(), milliseconds);
}

}
