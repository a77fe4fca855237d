#include <plix/platform/host/sound_volume.h>

#include <gtest/gtest.h>

#include <limits>
#include <vector>

namespace plix {
namespace {

constexpr float notANumber = std::numeric_limits<float>::quiet_NaN();
constexpr float infinity = std::numeric_limits<float>::infinity();

TEST(SoundVolume, GainIsBetweenSilenceAndFull)
{
    struct {
        float volume;
        float gain;
    } const rows[]
        = { { 0, 0 }, { 0.25F, 0.25F }, { 1, 1 }, { 1.5F, 1 }, { -0.5F, 0 }, { infinity, 1 }, { -infinity, 0 }, { notANumber, 0 } };
    for (auto const& row : rows)
        EXPECT_EQ(soundGain(row.volume), row.gain) << row.volume;
}

TEST(SoundVolume, TwoHalvesHaveTheLeftOneBelow)
{
    EXPECT_EQ(packedVolume({ 1, 1 }), 0x01000100U);
    EXPECT_EQ(packedVolume({ 0, 0 }), 0U);
    EXPECT_EQ(packedVolume({ 0.25F, 0.5F }), 0x00800040U);
    EXPECT_EQ(packedVolume({ 0, 1 }), 0x01000000U);
    EXPECT_EQ(packedVolume({ 7, -1 }), 0x00000100U);
    EXPECT_EQ(packedVolume({ notANumber, 1 }), 0x01000000U);
}

TEST(SoundVolume, OfADeviceIsThatOfTheChannelsOfBothEars)
{
    using Ear = ChannelVolume::Ear;
    struct {
        std::vector<ChannelVolume> channels;
        std::optional<StereoVolume> volume;
    } const rows[] = {
        { {}, {} },
        { { { Ear::Left, 0.3F }, { Ear::Right, 0.7F } }, StereoVolume { 0.3F, 0.7F } },
        { { { Ear::Right, 0.7F }, { Ear::Left, 0.3F } }, StereoVolume { 0.3F, 0.7F } },
        { { { Ear::Other, 0.5F } }, StereoVolume { 0.5F, 0.5F } },
        { { { Ear::Other, 0.25F }, { Ear::Other, 0.5F }, { Ear::Other, 1 } }, StereoVolume { 0.25F, 0.5F } },
        { { { Ear::Other, 0.1F }, { Ear::Other, 0.2F }, { Ear::Left, 0.3F }, { Ear::Right, 0.4F } }, StereoVolume { 0.3F, 0.4F } },
        { { { Ear::Left, 0.3F } }, StereoVolume { 0.3F, 0.3F } },
        { { { Ear::Left, 1.5F }, { Ear::Right, 0 } }, StereoVolume { 1, 0 } },
    };
    for (auto const& row : rows)
        EXPECT_EQ(stereoVolume(row.channels), row.volume);
}

TEST(SoundVolume, BeepVolumeIsReadAsOneUnsignedNumber)
{
    EXPECT_EQ(beepVolumeFraction(0x01000100), 1.0F);
    EXPECT_EQ(beepVolumeFraction(0), 0.0F);
    EXPECT_EQ(beepVolumeFraction(0x00800080), 0.5F);
    EXPECT_FLOAT_EQ(beepVolumeFraction(1), 1.0F / 16777472.0F);
    // The left ear's half alone counts for next to nothing.
    EXPECT_FLOAT_EQ(beepVolumeFraction(0x00000100), 256.0F / 16777472.0F);
    EXPECT_FLOAT_EQ(beepVolumeFraction(0xFFFFFFFF), 4294967295.0F / 16777472.0F);
}

}
}
