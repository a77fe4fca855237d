#include <plix/platform/host/sound_mixing.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace plix {

namespace {

constexpr float lower = std::numbers::sqrt2_v<float> / 2;

struct Ears {
    float left { 0 };
    float right { 0 };
};

/// How loud a channel is for each ear.
Ears earsOf(int channel, int channels)
{
    constexpr int middle = 2;
    constexpr int lowest = 3;
    constexpr int channelsWithMiddle = 5;
    constexpr int channelsWithLowest = 6;
    if (channels == 1)
        return { 1, 1 };
    if (channel < 2)
        return channel == 0 ? Ears { 1, 0 } : Ears { 0, 1 };
    if (channel == middle && (channels == 3 || channels >= channelsWithMiddle))
        return { lower, lower };
    if (channel == lowest && channels >= channelsWithLowest)
        return {};
    // Left and right take turns; where there is a middle but no lowest channel the left one is third.
    bool const isLeft = (channel % 2 == 0) == (channels != channelsWithMiddle);
    return isLeft ? Ears { lower, 0 } : Ears { 0, lower };
}

}

std::vector<float> stereoSamples(std::span<float const> samples, int channels)
{
    if (channels == 2)
        return { samples.begin(), samples.end() };
    std::vector<Ears> ears;
    for (int channel = 0; channel < channels; ++channel)
        ears.push_back(earsOf(channel, channels));
    std::vector<float> stereo;
    stereo.reserve(samples.size() / ears.size() * 2);
    for (; samples.size() >= ears.size(); samples = samples.subspan(ears.size())) {
        float left = 0;
        float right = 0;
        for (std::size_t channel = 0; channel < ears.size(); ++channel) {
            left += samples[channel] * ears[channel].left;
            right += samples[channel] * ears[channel].right;
        }
        stereo.push_back(left);
        stereo.push_back(right);
    }
    return stereo;
}

void addSamples(std::span<float> sum, std::span<float const> stereo, float fromGain, float toGain)
{
    auto const count = std::min(sum.size(), stereo.size());
    auto const step = (toGain - fromGain) / static_cast<float>(std::max<std::size_t>(count, 1));
    for (std::size_t place = 0; place < count; ++place)
        if (std::isfinite(stereo[place]))
            sum[place] += stereo[place] * (fromGain + step * static_cast<float>(place));
}

void limitSamples(std::span<float> samples)
{
    for (auto& sample : samples)
        sample = std::isnan(sample) ? 0 : std::clamp(sample, -1.0F, 1.0F);
}

}
