#include <plix/platform/host/desktop/SoundPlayer.h>

#include <plix/platform/host/desktop/SoundReader.h>
#include <plix/platform/host/desktop/quiet_thread.h>

#include <new>

namespace plix {

namespace {

using namespace std::chrono_literals;
using Clock = SoundMixer::Clock;

constexpr auto beat = 20ms;
/// An output that is being opened, or that stops fetching, gets that long before sounds go on without it.
constexpr auto patience = 2s;
constexpr std::size_t samplesAtOnce = 4096;

}

SoundPlayer::SoundPlayer(std::unique_ptr<SoundOutput> output, std::function<void()> outputMissing)
    : m_output(std::move(output))
    , m_outputMissing(std::move(outputMissing))
{
    m_output->setFetch([mixer = m_mixer](std::span<float> stereo) { mixer->fetch(stereo, SoundMixer::Listener::Device); });
}

SoundPlayer::~SoundPlayer()
{
    m_isOver = true;
    m_mixer->wakeUp();
    if (m_thread.joinable())
        m_thread.join();
}

std::shared_ptr<SoundMixer::Voice> SoundPlayer::play(std::shared_ptr<SoundReader> reader, float gain, SoundMixer::Ended ended)
{
    auto voice = m_mixer->add(std::move(reader), gain, ended);
    if (!m_thread.joinable())
        m_thread = quietThread([this] { run(); });
    if (!m_thread.joinable()) {
        m_mixer->remove(*voice);
        ended(false);
    }
    m_mixer->wakeUp();
    return voice;
}

void SoundPlayer::stop(SoundMixer::Voice const& voice)
{
    m_mixer->remove(voice);
    m_mixer->wakeUp();
}

void SoundPlayer::run()
{
    auto passedUntil = Clock::now();
    while (!m_isOver) {
        noteOutput();
        while (!m_isOver && m_mixer->readAhead()) { }
        letTimePass(passedUntil);
        tellNews();
        m_mixer->waitForWork(m_wasWanted ? std::optional(Clock::now() + beat) : std::nullopt);
    }
}

void SoundPlayer::noteOutput()
{
    bool const isWanted = m_mixer->isAnyoneHeard();
    if (isWanted != m_wasWanted || (isWanted && m_output->isMissing()))
        m_output->setWanted(isWanted);
    m_wasWanted = isWanted;
}

void SoundPlayer::letTimePass(Clock::time_point& passedUntil)
{
    auto const now = Clock::now();
    bool const isFetched = !m_output->isMissing() && now - m_mixer->lastFetch() < patience;
    if (isFetched || !m_wasWanted) {
        passedUntil = now;
        return;
    }
    auto const seconds = std::chrono::duration<double>(now - passedUntil).count();
    auto samples = static_cast<std::size_t>(seconds * SoundReader::rate) * 2;
    passedUntil = now;
    float nothing[samplesAtOnce];
    for (; samples > 0; samples -= std::min(samples, samplesAtOnce)) {
        m_mixer->fetch({ nothing, std::min(samples, samplesAtOnce) }, SoundMixer::Listener::Nobody);
        m_mixer->readAhead();
    }
}

void SoundPlayer::tellNews()
{
    try {
        auto const begun = m_mixer->begunCount();
        if (m_wasWanted && begun != m_toldMissing && m_output->isMissing()) {
            m_outputMissing();
            m_toldMissing = begun;
        }
        while (m_mixer->tellEnded()) { }
    } catch (std::bad_alloc const&) {
        // Somewhat later there may be memory.
        std::this_thread::sleep_for(beat);
    }
}

}
