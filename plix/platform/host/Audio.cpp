#include <plix/platform/host/Audio.h>

#include <utility>

namespace plix {

struct Audio::Observer {
    Audio& audio;
    std::weak_ptr<int> audioLife;
    std::function<void()> call;

    Observer(Audio& observed, std::function<void()> function)
        : audio(observed)
        , audioLife(observed.m_life)
        , call(std::move(function))
    {
    }
    Observer(Observer const&) = delete;
    Observer& operator=(Observer const&) = delete;
    ~Observer()
    {
        if (audioLife.expired())
            return;
        std::erase_if(audio.m_observers, [](auto const& observer) { return observer.expired(); });
        if (audio.m_observers.empty())
            audio.watchOutputVolume(false);
    }
};

std::uint32_t Audio::defaultOutputVolume() const
{
    return packedVolume(knownOutputVolume().value_or(StereoVolume { 1, 1 }));
}

std::shared_ptr<void> Audio::observeOutputVolume(std::function<void()> call)
{
    auto observer = std::make_shared<Observer>(*this, std::move(call));
    m_observers.push_back(observer);
    if (m_observers.size() == 1)
        watchOutputVolume(true);
    return observer;
}

void Audio::tellOutputVolumeChanged()
{
    for (auto const& weak : std::vector(m_observers)) {
        if (auto const observer = weak.lock())
            observer->call();
    }
}

}
