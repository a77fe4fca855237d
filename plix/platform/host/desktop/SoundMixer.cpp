#include <plix/platform/host/desktop/SoundMixer.h>

#include <plix/platform/host/desktop/SoundReader.h>
#include <plix/platform/host/sound_mixing.h>
#include <plix/platform/host/sound_volume.h>

#include <algorithm>
#include <new>
#include <utility>

namespace plix {

namespace {

/// A third of a second is read ahead, in pieces of 43 ms.
constexpr std::size_t samplesAhead = 32768;

/// How many samples there were; nil where there was no memory to read them.
std::optional<std::size_t> readSamples(SoundReader& reader, std::span<float> samples)
{
    try {
        return reader.read(samples);
    } catch (std::bad_alloc const&) {
        return {};
    }
}

}

struct SoundMixer::Voice {
    std::shared_ptr<SoundReader> reader;
    Ended ended;
    SampleQueue queue { samplesAhead };
    Clock::time_point begun { Clock::now() };
    std::optional<Clock::time_point> firstFetch;
    float gain { 1 };
    /// What the last samples were multiplied with.
    float heardGain { 1 };
    bool isPaused { false };
    bool isRead { false };
    bool couldRead { true };
    /// The reading thread's own.
    bool isRewound { false };

    bool wantsReading() const { return !isRead && queue.space() >= samplesAtOnce; }
};

SoundMixer::SoundMixer() = default;
SoundMixer::~SoundMixer() = default;

std::shared_ptr<SoundMixer::Voice> SoundMixer::add(std::shared_ptr<SoundReader> reader, float gain, Ended ended)
{
    auto voice = std::make_shared<Voice>();
    voice->reader = std::move(reader);
    voice->ended = std::move(ended);
    voice->gain = voice->heardGain = soundGain(gain);
    std::scoped_lock const lock(m_mutex);
    if (!isAnyoneHeardNow())
        m_lastFetch = voice->begun;
    // Who fetches finds the place ready.
    m_over.reserve(m_over.size() + m_voices.size() + 1);
    m_voices.push_back(voice);
    ++m_begunCount;
    m_work.notify_one();
    return voice;
}

void SoundMixer::remove(Voice const& voice)
{
    std::shared_ptr<Voice> removed;
    std::scoped_lock const lock(m_mutex);
    auto const found = std::ranges::find(m_voices, &voice, &std::shared_ptr<Voice>::get);
    if (found == m_voices.end())
        return;
    removed = std::move(*found);
    m_voices.erase(found);
}

void SoundMixer::setPaused(Voice& voice, bool paused)
{
    std::scoped_lock const lock(m_mutex);
    if (!paused && !isAnyoneHeardNow())
        m_lastFetch = Clock::now();
    voice.isPaused = paused;
    m_isWoken = true;
    m_work.notify_one();
}

void SoundMixer::setGain(Voice& voice, float gain)
{
    std::scoped_lock const lock(m_mutex);
    voice.gain = soundGain(gain);
}

std::optional<double> SoundMixer::delayOf(Voice const& voice) const
{
    std::scoped_lock const lock(m_mutex);
    return voice.firstFetch ? std::optional(std::chrono::duration<double>(*voice.firstFetch - voice.begun).count()) : std::nullopt;
}

std::size_t SoundMixer::voiceCount() const
{
    std::scoped_lock const lock(m_mutex);
    return m_voices.size();
}

bool SoundMixer::isAnyoneHeard() const
{
    std::scoped_lock const lock(m_mutex);
    return isAnyoneHeardNow();
}

bool SoundMixer::isAnyoneHeardNow() const
{
    return std::ranges::any_of(m_voices, [](auto const& voice) { return !voice->isPaused; });
}

std::size_t SoundMixer::begunCount() const
{
    std::scoped_lock const lock(m_mutex);
    return m_begunCount;
}

bool SoundMixer::readAhead()
{
    std::shared_ptr<Voice> voice;
    {
        std::scoped_lock const lock(m_mutex);
        for (auto const& other : m_voices) {
            if (other->wantsReading() && (!voice || other->queue.size() < voice->queue.size()))
                voice = other;
        }
    }
    if (!voice)
        return false;
    float samples[samplesAtOnce];
    bool const canRead = std::exchange(voice->isRewound, true) || voice->reader->rewind();
    auto const count = canRead ? readSamples(*voice->reader, samples) : std::nullopt;
    std::scoped_lock const lock(m_mutex);
    voice->queue.push({ samples, count.value_or(0) });
    voice->isRead = count.value_or(0) < samplesAtOnce;
    voice->couldRead = count && !voice->reader->isBroken();
    return true;
}

bool SoundMixer::tellEnded()
{
    std::shared_ptr<Voice> over;
    {
        std::scoped_lock const lock(m_mutex);
        if (m_over.empty())
            return false;
        over = m_over.front();
    }
    over->ended(over->couldRead);
    std::scoped_lock const lock(m_mutex);
    m_over.erase(m_over.begin());
    return true;
}

bool SoundMixer::hasWork() const
{
    return m_isWoken || !m_over.empty() || std::ranges::any_of(m_voices, &Voice::wantsReading);
}

void SoundMixer::waitForWork(std::optional<Clock::time_point> until)
{
    std::unique_lock lock(m_mutex);
    auto const hasSome = [this] { return hasWork(); };
    if (until)
        m_work.wait_until(lock, *until, hasSome);
    else
        m_work.wait(lock, hasSome);
    m_isWoken = false;
}

void SoundMixer::wakeUp()
{
    std::scoped_lock const lock(m_mutex);
    m_isWoken = true;
    m_work.notify_one();
}

SoundMixer::Clock::time_point SoundMixer::lastFetch() const
{
    std::scoped_lock const lock(m_mutex);
    return m_lastFetch;
}

void SoundMixer::mixVoice(Voice& voice, std::span<float> sum, Listener listener)
{
    auto const count = voice.queue.pop(std::span(m_mixed).first(sum.size()));
    if (count > 0 && listener == Listener::Device && !voice.firstFetch)
        voice.firstFetch = Clock::now();
    addSamples(sum, std::span(m_mixed).first(count), voice.heardGain, voice.gain);
    voice.heardGain = voice.gain;
}

void SoundMixer::mix(std::span<float> sum, Listener listener)
{
    for (auto const& voice : m_voices) {
        if (!voice->isPaused)
            mixVoice(*voice, sum, listener);
    }
}

void SoundMixer::fetch(std::span<float> stereo, Listener listener)
{
    std::ranges::fill(stereo, 0.0F);
    std::scoped_lock const lock(m_mutex);
    if (listener == Listener::Device)
        m_lastFetch = Clock::now();
    for (auto rest = stereo; !rest.empty(); rest = rest.subspan(std::min(rest.size(), samplesAtOnce)))
        mix(rest.first(std::min(rest.size(), samplesAtOnce)), listener);
    std::erase_if(m_voices, [this](auto& voice) {
        bool const isOver = voice->isRead && voice->queue.size() == 0 && !voice->isPaused;
        if (isOver)
            m_over.push_back(std::move(voice));
        return isOver;
    });
    limitSamples(stereo);
    if (hasWork())
        m_work.notify_one();
}

}
