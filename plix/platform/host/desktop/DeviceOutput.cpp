#include <plix/platform/host/desktop/DeviceOutput.h>

#include <plix/platform/foundation/NSProcessInfo.h>
#include <plix/platform/host/desktop/PulsePlayback.h>
#include <plix/platform/host/desktop/SoundReader.h>
#include <plix/platform/host/desktop/quiet_thread.h>
#include <plix/platform/host/desktop/sdl_handles.h>
#include <plix/platform/host/desktop/sound_card.h>

#include <chrono>
#include <condition_variable>
#include <cstdlib>
#include <mutex>
#include <new>
#include <string>
#include <string_view>

namespace plix {

namespace {

using namespace std::chrono_literals;

using Clock = std::chrono::steady_clock;

/// 21 ms: soon enough for a click to sound at once, long enough for a busy machine.
constexpr Uint16 framesAtOnce = 1024;
constexpr auto idleTime = 5s;
/// How soon a stream that nothing happens on notices that it is not wanted any more.
constexpr auto turnTime = 20ms;
constexpr auto betweenLooks = 200ms;
constexpr auto betweenTries = 500ms;
constexpr auto patienceAtEnd = 1s;

/// "" for any.
std::string namedDriver()
{
    char const* const named = std::getenv("SDL_AUDIODRIVER");
    return named ? named : "";
}

/// SDL has one driver of sound for the whole program, which may be another one's already.
class Driver {
public:
    static bool retain()
    {
        std::scoped_lock const lock(s_mutex);
        if (s_users == 0) {
            s_isOurs = !SDL_GetCurrentAudioDriver();
            if (s_isOurs && !start())
                return false;
        }
        ++s_users;
        return true;
    }
    static void release()
    {
        std::scoped_lock const lock(s_mutex);
        // Who has started sound in the meantime has taken the driver over.
        if (--s_users == 0 && s_isOurs && SDL_WasInit(SDL_INIT_AUDIO) == 0)
            SDL_AudioQuit();
    }

private:
    static bool start();

    static inline std::mutex s_mutex;
    static inline int s_users { 0 };
    static inline bool s_isOurs { false };
};

/// ALSA says on standard error that it has no card, so it is asked only where there is one.
bool Driver::start()
{
    if (auto const named = namedDriver(); !named.empty())
        return SDL_AudioInit(named.c_str()) == 0;
    return (!PulsePlayback::isAvailable() && SDL_AudioInit("pulseaudio") == 0) || SDL_AudioInit("pipewire") == 0
        || (hasSoundCard() && SDL_AudioInit("alsa") == 0);
}

/// One opened device.
class Device {
public:
    explicit Device(SoundOutput::Fetch const& fetch)
        : m_fetch(fetch)
        , m_hasDriver(Driver::retain())
    {
        SDL_AudioSpec wanted {};
        wanted.freq = SoundReader::rate;
        wanted.format = AUDIO_F32SYS;
        wanted.channels = 2;
        wanted.samples = framesAtOnce;
        wanted.userdata = this;
        wanted.callback = [](void* self, Uint8* bytes, int size) {
            static_cast<Device*>(self)->m_fetch(
                { reinterpret_cast<float*>(bytes), static_cast<std::size_t>(size) / sizeof(float) });
        };
        SDL_AudioSpec got {};
        m_device = m_hasDriver ? SDL_OpenAudioDevice(nullptr, 0, &wanted, &got, 0) : 0;
        if (m_device)
            SDL_PauseAudioDevice(m_device, 0);
    }
    ~Device()
    {
        if (m_device)
            SDL_CloseAudioDevice(m_device);
        if (m_hasDriver)
            Driver::release();
    }
    Device(Device const&) = delete;
    Device& operator=(Device const&) = delete;

    bool isOpen() const { return m_device != 0 && SDL_GetAudioDeviceStatus(m_device) == SDL_AUDIO_PLAYING; }

private:
    SoundOutput::Fetch const& m_fetch;
    bool m_hasDriver { false };
    SDL_AudioDeviceID m_device { 0 };
};

}

struct DeviceOutput::State {
    mutable std::mutex mutex;
    std::condition_variable changed;
    Fetch fetch;
    std::string applicationName { NSProcessInfo::processInfo().processName() };
    bool isWanted { false };
    bool isMissing { false };
    bool isOver { false };
    bool hasThread { false };

    /// Sleeps until the wish changes or the time is over; true where the device is still wanted.
    template <typename Duration> bool waitWhile(bool wanted, Duration time)
    {
        std::unique_lock lock(mutex);
        changed.wait_for(lock, time, [&] { return isOver || isWanted != wanted; });
        return isWanted && !isOver;
    }
    bool isWantedSince(Clock::time_point& last)
    {
        std::scoped_lock const lock(mutex);
        if (isWanted)
            last = Clock::now();
        return !isOver && Clock::now() - last < idleTime;
    }
    /// Not with SDL's driver of that name: it ends the program where the server goes away in a wrong moment. False where it was
    /// not to be had.
    bool playOnPulse()
    {
        auto const named = namedDriver();
        if (!PulsePlayback::isAvailable() || (!named.empty() && named != "pulseaudio"))
            return false;
        PulsePlayback playback(fetch, applicationName);
        bool wasOpen = false;
        auto last = Clock::now();
        while (playback.state() != PulsePlayback::State::Lost) {
            if (!isWantedSince(last))
                return true;
            playback.turn(turnTime);
            if (!wasOpen && playback.state() == PulsePlayback::State::Open) {
                wasOpen = true;
                noteMissing(false);
            }
        }
        return wasOpen;
    }
    bool playOnDevice()
    {
        Device const device(fetch);
        bool const wasOpen = device.isOpen();
        noteMissing(!wasOpen);
        if (wasOpen)
            keepOpen(device);
        return wasOpen;
    }
    void keepOpen(Device const& device)
    {
        do {
            while (waitWhile(true, betweenLooks)) {
                if (!device.isOpen())
                    return;
            }
        } while (waitWhile(false, idleTime) && device.isOpen());
    }
    bool waitForWish()
    {
        std::unique_lock lock(mutex);
        changed.wait(lock, [this] { return isOver || isWanted; });
        return !isOver;
    }
    void noteMissing(bool missing)
    {
        std::scoped_lock const lock(mutex);
        isMissing = missing;
    }
    bool play()
    {
        try {
            return playOnPulse() || playOnDevice();
        } catch (std::bad_alloc const&) {
            noteMissing(true);
            return false;
        }
    }
    void run()
    {
        while (waitForWish()) {
            if (!play())
                waitWhile(true, betweenTries);
        }
        // What SDL keeps for a thread goes by itself with its own threads only.
        SDL_TLSCleanup();
        std::scoped_lock const lock(mutex);
        hasThread = false;
        changed.notify_all();
    }
};

DeviceOutput::DeviceOutput()
    : m_state(std::make_shared<State>())
{
}

DeviceOutput::~DeviceOutput()
{
    std::unique_lock lock(m_state->mutex);
    m_state->isOver = true;
    m_state->changed.notify_all();
    m_state->changed.wait_for(lock, patienceAtEnd, [this] { return !m_state->hasThread; });
}

void DeviceOutput::setFetch(Fetch fetch)
{
    m_state->fetch = std::move(fetch);
}

void DeviceOutput::setWanted(bool wanted)
{
    std::scoped_lock const lock(m_state->mutex);
    if (m_state->isWanted != wanted) {
        m_state->isWanted = wanted;
        // It is tried anew.
        m_state->isMissing = m_state->isMissing && !wanted;
        m_state->changed.notify_all();
    }
    if (!wanted || m_state->hasThread)
        return;
    auto thread = quietThread([state = m_state] { state->run(); });
    m_state->hasThread = thread.joinable();
    m_state->isMissing = !m_state->hasThread;
    if (thread.joinable())
        thread.detach();
}

bool DeviceOutput::isMissing() const
{
    std::scoped_lock const lock(m_state->mutex);
    return m_state->isMissing;
}

}
