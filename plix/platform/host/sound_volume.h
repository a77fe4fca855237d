#pragma once

#include <plix/platform/base/export.h>

#include <cstdint>
#include <optional>
#include <span>

namespace plix {

/// How loud the output device is set for the left and the right ear: 0 to 1, as a person sees it on a slider.
struct StereoVolume {
    float left { 0 };
    float right { 0 };
    friend bool operator==(StereoVolume const&, StereoVolume const&) = default;
};

/// One channel of a device.
struct ChannelVolume {
    enum class Ear { Left, Right, Other };
    Ear ear { Ear::Other };
    float volume { 0 };
};

/// Of the first channel of each ear; without such, of the first channel for the left ear and the second for the right one, or of
/// the only one for both. Nil without channels. More than full counts as full.
PLIX_EXPORT std::optional<StereoVolume> stereoVolume(std::span<ChannelVolume const>);

/// What is multiplied with samples for a volume: 0 to 1; 0 for what is no number.
PLIX_EXPORT float soundGain(float volume);

/// Two halves, the left one below, each 0x0100 for full volume.
PLIX_EXPORT std::uint32_t packedVolume(StereoVolume);

/// The share of full volume that a beep volume stands for. It is read as one number although it is two halves, so the upper one
/// counts nearly alone; that is meant. More than 1 where the halves are above 0x0100.
PLIX_EXPORT float beepVolumeFraction(std::uint32_t beepVolume);

}
