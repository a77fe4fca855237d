#include <tests/support/PulseServer.h>
#include <tests/support/sound_files.h>

#include <gtest/gtest.h>

#include <cmath>

namespace plix {
namespace {

// The rig that other tests measure with.
TEST(PulseServer, RecordsWhatItsOutputPlays)
{
    if (!PulseServer::isInstalled())
        GTEST_SKIP() << "no sound server is installed";
    PulseServer const server;
    TestFolder const folder;
    auto const file = folder.write("tone.wav", wavFile({ .seconds = 0.5, .amplitude = 0.4 }));
    PulseRecorder recorder(server);
    outputOf({ "pacat", "--playback", "--file-format=wav", file }, server.environment());
    ASSERT_TRUE(recorder.recordUntilStill());
    EXPECT_NEAR(loudness(recorder.samples()), 0.4 / std::sqrt(2.0), 0.01);
    EXPECT_NEAR(soundingTime(recorder.samples()), 0.5, 0.02);
    EXPECT_EQ(server.inputCount(), 0);
}

TEST(PulseServer, MeasuresStretchesOfSound)
{
    std::vector<float> samples(PulseRecorder::rate, 0.0F);
    EXPECT_EQ(loudness(samples), 0);
    EXPECT_EQ(soundingTime(samples), 0);
    auto const fill = [&](double from, double to) {
        auto const place = [&](double time) { return samples.begin() + static_cast<std::ptrdiff_t>(time * PulseRecorder::rate); };
        std::fill(place(from), place(to), 0.5F);
    };
    fill(0.2, 0.3);
    fill(0.4, 0.5);
    auto const stretches = soundingStretches(samples, 0.05);
    ASSERT_EQ(stretches.size(), 2U);
    EXPECT_NEAR(stretches[0].second, 0.3, 0.001);
    EXPECT_NEAR(stretches[1].first, 0.4, 0.001);
    EXPECT_EQ(soundingStretches(samples, 0.2).size(), 1U);
    EXPECT_NEAR(soundingTime(samples), 0.3, 0.001);
    EXPECT_NEAR(loudness(samples), 0.5, 0.001);
    // More silence than sound is between these.
    fill(0.9, 1.0);
    EXPECT_NEAR(loudness(samples), 0.5, 0.001);
}

}
}
