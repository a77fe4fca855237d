#include <tests/support/ChildProcess.h>
#include <tests/support/TestFolder.h>
#include <tests/support/sound_files.h>

#include <plix/platform/host/desktop/SoundPlayer.h>
#include <plix/platform/host/desktop/SoundReader.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <filesystem>

namespace plix {
namespace {

using testing::Each;
using testing::FloatNear;

/// An output whose device is the test's hand.
class HandOutput final : public SoundOutput {
public:
    std::atomic<bool> isWanted { false };
    std::atomic<bool> isGone { false };
    void setFetch(Fetch fetch) override { m_fetch = std::move(fetch); }
    void setWanted(bool wanted) override { isWanted = wanted; }
    bool isMissing() const override { return isGone; }
    std::vector<float> fetch(std::size_t frames)
    {
        std::vector<float> samples(2 * frames, 7.0F);
        m_fetch(samples);
        return samples;
    }

private:
    Fetch m_fetch;
};

class SoundPlayerTest : public testing::Test {
protected:
    SoundPlayerTest()
    {
        auto made = std::make_unique<HandOutput>();
        output = made.get();
        player = std::make_unique<SoundPlayer>(std::move(made), [this] { ++missingCount; });
    }
    void SetUp() override
    {
        if (SoundDecoder::fileTypes().empty())
            GTEST_SKIP() << "no sound files are read";
    }
    /// A steady sound: every sample is the same.
    static std::shared_ptr<SoundReader> steady(float level, std::size_t frames)
    {
        std::string file = wavFile({ .seconds = static_cast<double>(frames) / SoundReader::rate });
        auto const sample = static_cast<std::int16_t>(std::lround(level * 32768));
        for (std::size_t place = 44; place + 1 < file.size(); place += 2) {
            file[place] = static_cast<char>(sample & 0xFF);
            file[place + 1] = static_cast<char>(sample >> 8);
        }
        return std::make_shared<SoundReader>(SoundDecoder::open(std::make_unique<SoundFileBytes>(bytesOf(file))));
    }
    std::shared_ptr<SoundMixer::Voice> play(std::shared_ptr<SoundReader> reader, float gain = 1)
    {
        return player->play(std::move(reader), gain, [this](bool) { ++endedCount; });
    }
    /// As the device would, until there is something else than silence; what is fetched then.
    std::vector<float> fetchSound(std::size_t frames)
    {
        std::vector<float> samples;
        EXPECT_TRUE(waitUntil([&] {
            samples = output->fetch(frames);
            return samples.back() != 0;
        }));
        return samples;
    }

    std::atomic<int> endedCount { 0 };
    std::atomic<int> missingCount { 0 };
    HandOutput* output { nullptr };
    std::unique_ptr<SoundPlayer> player;
};

TEST_F(SoundPlayerTest, ThereIsSilenceWhileNothingPlays)
{
    EXPECT_THAT(output->fetch(100), Each(0.0F));
    EXPECT_FALSE(output->isWanted);
}

TEST_F(SoundPlayerTest, SoundsAreAddedUpAtTheirGains)
{
    auto const first = play(steady(0.5F, 48000), 0.5F);
    EXPECT_THAT(fetchSound(64), Each(FloatNear(0.25F, 0.001F)));
    auto const second = play(steady(0.25F, 48000));
    EXPECT_TRUE(waitUntil([&] { return output->fetch(64).back() > 0.4F; }));
    EXPECT_THAT(output->fetch(64), Each(FloatNear(0.5F, 0.001F)));
    player->stop(*first);
    EXPECT_THAT(output->fetch(64), Each(FloatNear(0.25F, 0.001F)));
    player->stop(*second);
    EXPECT_THAT(output->fetch(64), Each(0.0F));
    EXPECT_TRUE(waitUntil([&] { return !output->isWanted; }));
    EXPECT_EQ(endedCount, 0);
}

TEST_F(SoundPlayerTest, WhatIsTooLoudTogetherIsCutOff)
{
    std::vector<std::shared_ptr<SoundMixer::Voice>> voices;
    for (int i = 0; i < 16; ++i)
        voices.push_back(play(steady(0.2F, 480000))); // none ends before the last has begun
    EXPECT_TRUE(waitUntil([&] { return output->fetch(16).back() >= 1; }));
    EXPECT_THAT(output->fetch(64), Each(1.0F));
}

TEST_F(SoundPlayerTest, ASoundEndsWithItsLastSample)
{
    play(steady(0.5F, 9600));
    std::size_t sounding = 0;
    EXPECT_TRUE(waitUntil([&] {
        for (auto const sample : output->fetch(256))
            sounding += sample != 0 ? 1 : 0;
        return endedCount > 0;
    }));
    EXPECT_EQ(sounding, 2U * 9600);
    EXPECT_EQ(player->mixer().voiceCount(), 0U);
}

TEST_F(SoundPlayerTest, ASoundThatPausesKeepsItsPlace)
{
    auto const voice = play(steady(0.5F, 4800));
    fetchSound(480);
    player->mixer().setPaused(*voice, true);
    for (int i = 0; i < 100; ++i)
        EXPECT_THAT(output->fetch(480), Each(0.0F));
    EXPECT_EQ(endedCount, 0);
    player->mixer().setPaused(*voice, false);
    std::size_t sounding = 0;
    EXPECT_TRUE(waitUntil([&] {
        for (auto const sample : output->fetch(240))
            sounding += sample != 0 ? 1 : 0;
        return endedCount > 0;
    }));
    EXPECT_EQ(sounding, 2U * (4800 - 480));
}

TEST_F(SoundPlayerTest, NothingIsWantedOfTheDeviceWhileAllPause)
{
    auto const voice = play(steady(0.5F, 4800));
    fetchSound(480);
    player->mixer().setPaused(*voice, true);
    EXPECT_TRUE(waitUntil([&] { return !output->isWanted; }));
    EXPECT_EQ(player->mixer().voiceCount(), 1U);
    player->mixer().setPaused(*voice, false);
    EXPECT_TRUE(waitUntil([&] { return output->isWanted.load(); }));
    EXPECT_THAT(output->fetch(480), Each(FloatNear(0.5F, 0.001F)));
    player->stop(*voice);
}

TEST_F(SoundPlayerTest, AFileThatBreaksOffIsNotPlayedToItsEnd)
{
    TestFolder const folder;
    for (bool const breaks : { true, false }) {
        auto const path = folder.write("tone.wav", wavFile({ .seconds = 2 }));
        auto reader = std::make_shared<SoundReader>(SoundDecoder::open(SoundFileBytes::open(path)));
        if (breaks)
            std::filesystem::resize_file(path, 200000);
        std::atomic<int> toEnd { -1 };
        player->play(std::move(reader), 1, [&](bool wasRead) { toEnd = wasRead ? 1 : 0; });
        EXPECT_TRUE(waitUntil([&] {
            output->fetch(1024);
            return toEnd >= 0;
        }));
        EXPECT_EQ(toEnd, breaks ? 0 : 1);
    }
}

TEST_F(SoundPlayerTest, FilesAreNotClosedWhereSamplesAreFetched)
{
    SoundMixer mixer;
    auto reader = steady(0.5F, 100);
    std::weak_ptr<SoundReader> const life = reader;
    mixer.add(std::move(reader), 1, [](bool) {});
    EXPECT_TRUE(mixer.readAhead());
    std::vector<float> samples(400);
    mixer.fetch(samples, SoundMixer::Listener::Device);
    EXPECT_EQ(mixer.voiceCount(), 0U);
    EXPECT_FALSE(life.expired());
    EXPECT_TRUE(mixer.tellEnded());
    EXPECT_FALSE(mixer.tellEnded());
    EXPECT_TRUE(life.expired());
}

TEST_F(SoundPlayerTest, AChangeOfGainMakesNoClick)
{
    auto const voice = play(steady(0.5F, 48000), 0);
    EXPECT_TRUE(waitUntil([&] {
        output->fetch(16);
        return player->mixer().delayOf(*voice).has_value();
    }));
    player->mixer().setGain(*voice, 1);
    auto const samples = output->fetch(500);
    EXPECT_NEAR(samples[0], 0, 0.01);
    EXPECT_NEAR(samples[500], 0.25, 0.01);
    EXPECT_NEAR(samples[999], 0.5, 0.01);
    EXPECT_THAT(output->fetch(10), Each(FloatNear(0.5F, 0.001F)));
}

TEST_F(SoundPlayerTest, TimePassesForSoundsWithoutAnOutput)
{
    output->isGone = true;
    auto const begun = std::chrono::steady_clock::now();
    auto const voice = play(steady(0.5F, 14400));
    EXPECT_TRUE(waitUntil([&] { return endedCount > 0; }));
    EXPECT_GE(std::chrono::steady_clock::now() - begun, std::chrono::milliseconds(290));
    EXPECT_EQ(player->mixer().delayOf(*voice), std::nullopt);
    EXPECT_EQ(missingCount, 1);
    play(steady(0.5F, 100));
    EXPECT_TRUE(waitUntil([&] { return missingCount == 2; }));
}

TEST_F(SoundPlayerTest, AnOutputThatStopsFetchingHoldsNothingUp)
{
    play(steady(0.5F, 14400));
    fetchSound(480);
    EXPECT_TRUE(waitUntil([&] { return endedCount > 0; }));
    EXPECT_EQ(missingCount, 0);
}

TEST_F(SoundPlayerTest, GoesAwayWhileSoundsPlay)
{
    for (int i = 0; i < 4; ++i)
        play(steady(0.5F, 480000));
    fetchSound(480);
    player.reset();
    EXPECT_EQ(endedCount, 0);
}

}
}
