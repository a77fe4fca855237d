#include <plix/platform/host/desktop/PulsePlayback.h>

#ifdef PLIX_PULSE
#include <plix/platform/host/desktop/SoundReader.h>
#include <plix/platform/host/desktop/pulse_library.h>

#include <algorithm>
#include <thread>
#endif

namespace plix {

#ifdef PLIX_PULSE

namespace {

constexpr pa_sample_spec format { PA_SAMPLE_FLOAT32NE, SoundReader::rate, 2 };
constexpr std::size_t bytesOfFrame = 2 * sizeof(float);
/// 21 ms asked for at a time: soon enough for a click to sound at once, long enough for a busy machine.
constexpr std::uint32_t bytesAtOnce = 1024 * bytesOfFrame;
constexpr std::chrono::milliseconds moment { 20 };

PulseLibrary const& library()
{
    return PulseLibrary::shared();
}

}

struct PulsePlayback::Connection {
    Connection(SoundOutput::Fetch const& function, std::string const& applicationName);

    static Connection& self(void* pointer) { return *static_cast<Connection*>(pointer); }
    void contextChanged();
    void openStream();
    void write(std::size_t size);

    SoundOutput::Fetch const& fetch;
    std::string name;
    bool isBroken { false };
    Handle<pa_mainloop> loop;
    Handle<pa_context> context;
    Handle<pa_stream> stream;
};

PulsePlayback::Connection::Connection(SoundOutput::Fetch const& function, std::string const& applicationName)
    : fetch(function)
    , name(applicationName)
{
    if (!library().isLoaded)
        return;
    loop.reset(library().newLoop());
    if (!loop)
        return;
    context.reset(library().newContext(library().loopInterface(loop.get()), name.c_str()));
    if (!context)
        return;
    library().setStateCallback(
        context.get(), [](pa_context*, void* pointer) { self(pointer).contextChanged(); }, this);
    // Where it fails at once the state says so.
    library().connect(context.get(), nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr);
}

void PulsePlayback::Connection::contextChanged()
{
    if (!stream && library().state(context.get()) == PA_CONTEXT_READY)
        openStream();
}

void PulsePlayback::Connection::openStream()
{
    stream.reset(library().newStream(context.get(), name.c_str(), &format, nullptr));
    isBroken = !stream;
    if (isBroken)
        return;
    library().setWriteCallback(
        stream.get(), [](pa_stream*, std::size_t size, void* pointer) { self(pointer).write(size); }, this);
    constexpr auto asUsual = static_cast<std::uint32_t>(-1);
    pa_buffer_attr const sizes { asUsual, 2 * bytesAtOnce, asUsual, bytesAtOnce, asUsual };
    isBroken = library().connectPlayback(stream.get(), nullptr, &sizes, PA_STREAM_ADJUST_LATENCY, nullptr, nullptr) < 0;
}

void PulsePlayback::Connection::write(std::size_t size)
{
    for (size -= size % bytesOfFrame; size > 0 && !isBroken;) {
        void* bytes = nullptr;
        auto room = size;
        isBroken = library().beginWrite(stream.get(), &bytes, &room) < 0 || !bytes || room < bytesOfFrame;
        if (isBroken)
            return;
        room -= room % bytesOfFrame;
        fetch({ static_cast<float*>(bytes), room / sizeof(float) });
        isBroken = library().write(stream.get(), bytes, room, nullptr, 0, PA_SEEK_RELATIVE) < 0;
        size -= std::min(size, room);
    }
}

bool PulsePlayback::isAvailable()
{
    return library().isLoaded;
}

PulsePlayback::PulsePlayback(SoundOutput::Fetch const& fetch, std::string const& applicationName)
    : m_connection(std::make_unique<Connection>(fetch, applicationName))
{
}

PulsePlayback::State PulsePlayback::state() const
{
    auto const& all = *m_connection;
    if (all.isBroken || !all.context || !PA_CONTEXT_IS_GOOD(library().state(all.context.get())))
        return State::Lost;
    if (!all.stream)
        return State::Opening;
    auto const state = library().streamState(all.stream.get());
    return state == PA_STREAM_READY ? State::Open : PA_STREAM_IS_GOOD(state) ? State::Opening : State::Lost;
}

void PulsePlayback::turn(std::chrono::microseconds time)
{
    auto* const loop = m_connection->loop.get();
    // Where the system could not wait the loop is back before its preparation, and must not dispatch.
    if (loop && library().prepare(loop, static_cast<int>(time.count())) >= 0 && library().poll(loop) >= 0)
        library().dispatch(loop);
    else
        std::this_thread::sleep_for(moment);
}

#else

struct PulsePlayback::Connection { };

bool PulsePlayback::isAvailable()
{
    return false;
}

PulsePlayback::PulsePlayback(SoundOutput::Fetch const&, std::string const&)
{
}

PulsePlayback::State PulsePlayback::state() const
{
    return State::Lost;
}

void PulsePlayback::turn(std::chrono::microseconds)
{
}

#endif

PulsePlayback::~PulsePlayback() = default;

}
