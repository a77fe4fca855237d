#include <plix/platform/host/HostSound.h>

namespace plix {

void HostSound::setVolume(float volume)
{
    if (m_volume == volume)
        return;
    m_volume = volume;
    applyVolume();
}

bool HostSound::play()
{
    if (m_state != State::Still)
        return false;
    m_state = State::Playing;
    begin();
    return true;
}

bool HostSound::pause()
{
    if (m_state != State::Playing)
        return false;
    m_state = State::Paused;
    hold();
    return true;
}

bool HostSound::resume()
{
    if (m_state != State::Paused)
        return false;
    m_state = State::Playing;
    goOn();
    return true;
}

bool HostSound::stop()
{
    if (m_state == State::Still)
        return false;
    m_state = State::Still;
    end();
    return true;
}

void HostSound::ended(bool playedToEnd)
{
    if (m_state == State::Still)
        return;
    m_state = State::Still;
    if (auto const finished = m_finished)
        finished(playedToEnd);
}

}
