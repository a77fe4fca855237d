#include <tests/support/SoundServiceTest.h>
#include <tests/support/sound_files.h>

#include <plix/platform/base/NSData.h>
#include <plix/platform/foundation/NSRunLoop.h>
#include <plix/system/media_exporters.h>
#include <plix/system/sounds.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <numbers>
#include <set>

namespace plix {
namespace {

constexpr double whole = 0.5 / std::numbers::sqrt2;

using SoundServicesTest = SoundServiceTest;

TEST_F(SoundServicesTest, TheSystemsVolumeIsThatOfTheDefaultOutput)
{
    server->setVolume("first", 30, 70);
    server->setVolume("second", 45, 10);
    EXPECT_NEAR(TQSystemVolume(), 0.7, 0.005);
    server->setDefaultSink("second");
    EXPECT_NEAR(TQSystemVolume(), 0.45, 0.005);
    server->kill();
    EXPECT_EQ(TQSystemVolume(), 1.0F);
    server->start();
    server->setVolume("first", 20, 10);
    EXPECT_NEAR(TQSystemVolume(), 0.2, 0.005);
}

TEST_F(SoundServicesTest, ASoundIsHeardToItsEndAlthoughItIsLetGoSoonAfterItsTime)
{
    auto const file = folder.write("tone.wav", wavFile({ .seconds = 1 }));
    PulseRecorder recorder(*server);
    EXPECT_TRUE(TQQTSoundPlay(file, 0.25F));
    NSRunLoop::currentRunLoop().runUntilDate(NSDate::dateWithTimeIntervalSinceNow(1.1));
    EXPECT_TRUE(recorder.recordUntilStill());
    EXPECT_NEAR(loudnessWithin(recorder.samples()), whole * 0.25, whole * 0.25 * 0.05);
    EXPECT_NEAR(soundingTime(recorder.samples()), 1, 0.25);
}

TEST_F(SoundServicesTest, AnAlertIsHeardAtTheBeepVolume)
{
    auto const file = folder.write("tone.aiff", aiffFile({ .seconds = 0.5 }));
    machine->audio().setBeepVolume(0x00400040);
    PulseRecorder recorder(*server);
    EXPECT_TRUE(TQAlertSoundPlay(file));
    NSRunLoop::currentRunLoop().runUntilDate(NSDate::dateWithTimeIntervalSinceNow(0.6));
    EXPECT_TRUE(recorder.recordUntilStill());
    EXPECT_NEAR(loudnessWithin(recorder.samples()), whole * 0.25, whole * 0.25 * 0.05);
}

TEST_F(SoundServicesTest, TheThemesSoundsCanBePlayed)
{
    auto const paths = PLIXSystemSoundPaths();
    if (paths.empty())
        GTEST_SKIP() << "no theme of sounds is installed";
    for (auto const& path : paths)
        EXPECT_NE(machine->audio().openSound(path), nullptr) << path;
}

TEST(MediaServices, MuxersAreTheExportComponents)
{
    SoundHost const machine;
    if (!DesktopMedia::isAvailable())
        GTEST_SKIP() << "no media library is installed";
    auto const components = availableComponents();
    if (components.empty())
        GTEST_SKIP() << "no muxers are installed";
    std::set<std::uint32_t> references;
    for (auto const& component : components) {
        EXPECT_EQ(component.at("type").integerValue(), 0x73706974);
        EXPECT_NE(component.at("subtype").integerValue(), 0);
        EXPECT_NE(component.at("manufacturer").integerValue(), 0);
        EXPECT_FALSE(component.at("name").description().empty());
        auto const bytes = component.at("component").as<NSData>()->bytes();
        references.insert(fourCharCode({ reinterpret_cast<char const*>(bytes.data()), bytes.size() }));
    }
    EXPECT_EQ(references.size(), components.size());
    EXPECT_EQ(availableComponents(), components);
    SoundHost const another;
    EXPECT_EQ(availableComponents(), components);
}

TEST(MediaServices, AQuickTimeFilmCanBeWritten)
{
    SoundHost const machine;
    auto const film = componentWithSubType(0x4D6F6F56);
    if (film.isNil())
        GTEST_SKIP() << "no muxer of QuickTime films is installed";
    EXPECT_THAT(film.dictionary()->at("name").description(), testing::HasSubstr("QuickTime"));
}

}
}
