#include <plix/platform/host/sound_volume.h>

#include <algorithm>
#include <cmath>

namespace plix {

namespace {

constexpr float fullHalf = 0x0100;
constexpr double fullBeepVolume = 16777472.0; // 0x01000100

std::uint32_t half(float volume)
{
    return static_cast<std::uint32_t>(std::lround(soundGain(volume) * fullHalf));
}

}

std::optional<StereoVolume> stereoVolume(std::span<ChannelVolume const> channels)
{
    if (channels.empty())
        return {};
    // A device with a single channel has that one for both ears, so that its left one counts.
    auto const volumeOf = [&](ChannelVolume::Ear ear, std::size_t place) {
        auto const found = std::ranges::find(channels, ear, &ChannelVolume::ear);
        return soundGain(found != channels.end() ? found->volume : channels[std::min(place, channels.size() - 1)].volume);
    };
    return StereoVolume { volumeOf(ChannelVolume::Ear::Left, 0), volumeOf(ChannelVolume::Ear::Right, 1) };
}

float soundGain(float volume)
{
    return volume > 0 ? std::min(volume, 1.0F) : 0;
}

std::uint32_t packedVolume(StereoVolume volume)
{
    return half(volume.right) << 16 | half(volume.left);
}

float beepVolumeFraction(std::uint32_t beepVolume)
{
    return static_cast<float>(beepVolume / fullBeepVolume);
}

}
