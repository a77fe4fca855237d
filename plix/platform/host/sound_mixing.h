#pragma once

#include <span>
#include <vector>

namespace plix {

/// Samples here are floats of which 1 is as loud as can be, those of the channels of one moment side by side.

/// The left and the right ear of sound with any number of channels: one goes to both; of more than two, which are in the order of
/// WAVE files, the middle one goes to both ears and those behind to their own side, each 3 dB lower, and the lowest tones' own
/// channel is left out. What does not fill a moment is dropped.
std::vector<float> stereoSamples(std::span<float const> samples, int channels);

/// Adds to what is there, as loud as the gain says, which goes evenly from one to the other, so that a change makes no click. What
/// is no number, or infinite, adds nothing.
void addSamples(std::span<float> sum, std::span<float const> stereo, float fromGain, float toGain);

/// Cuts off what is louder than can be; what is no number is silence.
void limitSamples(std::span<float>);

}
