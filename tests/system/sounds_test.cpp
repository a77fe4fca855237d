#include <tests/support/HeadlessTest.h>
#include <tests/support/TestFolder.h>
#include <tests/support/TestSurroundings.h>
#include <tests/support/sound_files.h>

#include <plix/platform/foundation/NSUserDefaults.h>
#include <plix/system/sound_paths.h>
#include <plix/system/sounds.h>

#include <gmock/gmock.h>

#include <limits>

#include <sys/resource.h>
#include <sys/stat.h>

namespace plix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Paths = std::vector<std::string>;

class SoundsTest : public HeadlessTest {
protected:
    SoundsTest()
    {
        surroundings.home = folder / "home";
        surroundings.config = folder / "config";
        surroundings.sharedData = { folder / "share" };
        NSUserDefaults::resetStandardUserDefaults();
    }
    ~SoundsTest() override { NSUserDefaults::resetStandardUserDefaults(); }
    HeadlessAudio& audio() { return machine().headlessAudio(); }
    std::string addSystemSound(std::string const& name)
    {
        return folder.write("share/sounds/freedesktop/stereo/" + name, wavFile({ .seconds = 0.01 }));
    }

    TestFolder folder;
    TestSurroundings surroundings;
    std::string tone { folder.write("tone.wav", wavFile({ .seconds = 0.01 })) };
};

// Which sounds there are.

TEST_F(SoundsTest, TheSystemsSoundsAreListedInOrderOfTheirPaths)
{
    for (auto const* name :
        { "file 10.wav", "File 9.aiff", "bell.oga", "Alarm.mp3", "readme.txt", "noextension", "LOUD.WAV", ".wav" })
        addSystemSound(name);
    auto const system = folder / "share/sounds/freedesktop/stereo/";
    EXPECT_THAT(PLIXSystemSoundPaths(),
        ElementsAre(system + "Alarm.mp3", system + "bell.oga", system + "File 9.aiff", system + "file 10.wav"));
}

TEST_F(SoundsTest, SoundsOfTheUsersFolderDoNotAppear)
{
    auto const bell = addSystemSound("bell.wav");
    folder.write("home/.local/share/sounds/mine.wav", wavFile({ .seconds = 0.01 }));
    folder.write("home/.local/share/sounds/bell.wav", wavFile({ .seconds = 0.01 }));
    EXPECT_THAT(PLIXSystemSoundPaths(), ElementsAre(bell));
}

TEST_F(SoundsTest, ThereAreNoneWithoutAFolderADecoderOrAudio)
{
    surroundings.sharedData = { folder / "nowhere" };
    folder.write("home/.local/share/sounds/mine.wav", wavFile({ .seconds = 0.01 }));
    EXPECT_THAT(PLIXSystemSoundPaths(), testing::Not(testing::Contains(testing::HasSubstr("mine"))));
    surroundings.sharedData = { folder / "share" };
    addSystemSound("bell.wav");
    EXPECT_EQ(PLIXSystemSoundPaths().size(), 1U);
    audio().setDecodes(false);
    EXPECT_THAT(PLIXSystemSoundPaths(), IsEmpty());
    audio().setDecodes(true);
    machine().setHasAudio(false);
    EXPECT_THAT(PLIXSystemSoundPaths(), IsEmpty());
}

TEST_F(SoundsTest, ThereAreNoneInAFolderThatCannotBeListed)
{
    addSystemSound("bell.wav");
    ASSERT_EQ(PLIXSystemSoundPaths().size(), 1U);
    // A program that may open nothing more, since a folder's permissions do not stop everybody.
    rlimit before {};
    ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &before), 0);
    rlimit const none { 0, before.rlim_max };
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &none), 0);
    auto const paths = PLIXSystemSoundPaths();
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &before), 0);
    EXPECT_THAT(paths, IsEmpty());
}

TEST(SoundPaths, OfLaterFoldersTakeThePlacesOfBareNamesOnly)
{
    struct {
        Paths sounds;
        Paths later;
        Paths result;
    } const rows[] = {
        { { "/s/bell.wav", "/s/gong.wav" }, { "/u/bell.wav", "/u/new.wav" }, { "/s/bell.wav", "/s/gong.wav" } },
        { {}, { "/u/new.wav" }, {} },
        { { "bell.wav", "BELL.wav" }, { "/u/Bell.WAV" }, { "/u/Bell.WAV", "BELL.wav" } },
        { { "gong.wav" }, { "/u/bell.wav" }, { "gong.wav" } },
        { { "/" }, { "/" }, { "/" } },
    };
    for (auto const& row : rows) {
        auto sounds = row.sounds;
        takeSoundsOfLaterFolder(sounds, row.later);
        EXPECT_EQ(sounds, row.result);
    }
}

// Volumes.

TEST_F(SoundsTest, TheSystemsVolumeIsThatOfTheLouderEar)
{
    EXPECT_EQ(TQSystemVolume(), 1.0F);
    audio().setOutputVolume(StereoVolume { 0.3F, 0.7F });
    EXPECT_EQ(TQSystemVolume(), 0.7F);
    audio().setOutputVolume(StereoVolume { 0.6F, 0.2F });
    EXPECT_EQ(TQSystemVolume(), 0.6F);
    audio().setOutputVolume(StereoVolume { 0, 0 });
    EXPECT_EQ(TQSystemVolume(), 0.0F);
    audio().setOutputVolume({});
    EXPECT_EQ(TQSystemVolume(), 1.0F);
    audio().setOutputVolume(StereoVolume { 0, 0 });
    machine().setHasAudio(false);
    EXPECT_EQ(TQSystemVolume(), 1.0F);
}

TEST_F(SoundsTest, TheAlertVolumeIsAShareOfTheSystems)
{
    auto& defaults = NSUserDefaults::standardUserDefaults();
    auto constexpr key = "com.apple.sound.beep.volume";
    EXPECT_EQ(TQAlertVolume(), 0.0F);
    audio().setOutputVolume(StereoVolume { 0.5F, 0.25F });
    struct {
        ObjectValue value;
        float volume;
    } const rows[] = { { 0.5, 0.25F }, { 1, 0.5F }, { -0.5, 0 }, { "0.25", 0.125F }, { "loud", 0 }, { 4, 2 }, { nullptr, 0 } };
    for (auto const& row : rows) {
        defaults.setObject(row.value, key);
        EXPECT_EQ(TQAlertVolume(), row.volume) << row.value.description();
    }
}

TEST_F(SoundsTest, TheAlertVolumeThatAnotherProcessHasSetCounts)
{
    EXPECT_EQ(TQAlertVolume(), 0.0F);
    auto const other = make<NSUserDefaults>();
    other->setFloat(0.75F, "com.apple.sound.beep.volume");
    EXPECT_TRUE(other->synchronize());
    EXPECT_EQ(TQAlertVolume(), 0.75F);
}

// Playing.

TEST_F(SoundsTest, ASoundPlaysAtAVolumeAndIsLetGoAfterItsEnd)
{
    audio().setDuration(2);
    EXPECT_TRUE(TQQTSoundPlay(tone, 0.25F));
    ASSERT_EQ(audio().plays().size(), 1U);
    EXPECT_EQ(audio().plays()[0].path, tone);
    EXPECT_EQ(audio().plays()[0].volume, 0.25F);
    EXPECT_NEAR(NSRunLoop::currentRunLoop().nextFireDate(NSDefaultRunLoopMode)->timeIntervalSinceNow(), 2.05, 1e-6);
    pass(1.9);
    EXPECT_EQ(audio().playingCount(), 1U);
    pass(0.2);
    EXPECT_EQ(audio().playingCount(), 0U);
}

TEST_F(SoundsTest, ASoundThatIsNotHeardPlaysAsWell)
{
    for (float const volume : { 0.0F, -0.5F, std::numeric_limits<float>::quiet_NaN() }) {
        EXPECT_TRUE(TQQTSoundPlay(tone, volume)) << volume;
        EXPECT_EQ(audio().playingCount(), 1U) << volume;
        EXPECT_EQ(soundGain(audio().plays().back().volume), 0) << volume;
        pass(1.1);
        EXPECT_EQ(audio().playingCount(), 0U) << volume;
    }
    EXPECT_EQ(audio().plays().size(), 3U);
}

TEST_F(SoundsTest, ASoundThatIsLateIsLetGoFiftyMillisecondsAfterItsTime)
{
    auto& waiting = NSRunLoop::currentRunLoop();
    TQQTSoundPlay(tone, 1);
    pass(1.04);
    EXPECT_TRUE(waiting.nextFireDate(NSDefaultRunLoopMode).has_value());
    pass(0.02);
    EXPECT_FALSE(waiting.nextFireDate(NSDefaultRunLoopMode).has_value());
}

TEST_F(SoundsTest, AClockThatStepsBackLeavesASoundItsTime)
{
    TQQTSoundPlay(tone, 1);
    machine().headlessClock().setNow(NSDate::dateWithTimeIntervalSinceNow(-3600));
    EXPECT_NEAR(NSRunLoop::currentRunLoop().nextFireDate(NSDefaultRunLoopMode)->timeIntervalSinceNow(), 1.05, 1e-6);
    pass(1.1);
    EXPECT_EQ(audio().playingCount(), 0U);
    EXPECT_FALSE(NSRunLoop::currentRunLoop().nextFireDate(NSDefaultRunLoopMode).has_value());
}

TEST_F(SoundsTest, SoundsPlayTogether)
{
    for (int i = 0; i < 16; ++i)
        EXPECT_TRUE(TQQTSoundPlay(tone, 1));
    EXPECT_EQ(audio().playingCount(), 16U);
    pass(1.1);
    EXPECT_EQ(audio().playingCount(), 0U);
}

TEST_F(SoundsTest, WhatIsNoSoundFileDoesNotPlay)
{
    auto const fifo = folder / "fifo.wav";
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
    for (auto const& path :
        { folder.write("text.wav", "This is no sound."), folder / "none.wav", folder.path(), fifo, std::string() })
        EXPECT_FALSE(TQQTSoundPlay(path, 1)) << path;
    audio().setDecodes(false);
    EXPECT_FALSE(TQQTSoundPlay(tone, 1));
    audio().setDecodes(true);
    machine().setHasAudio(false);
    EXPECT_FALSE(TQQTSoundPlay(tone, 1));
    EXPECT_THAT(audio().plays(), IsEmpty());
}

// Alerts.

TEST_F(SoundsTest, AnAlertPlaysAtTheBeepVolume)
{
    struct {
        std::uint32_t beepVolume;
        float volume;
    } const rows[]
        = { { 0x01000100, 1 }, { 0x00800080, 0.5F }, { 1, 1.0F / 16777472.0F }, { 0xFFFFFFFF, 4294967295.0F / 16777472.0F } };
    for (auto const& row : rows) {
        audio().setBeepVolume(row.beepVolume);
        EXPECT_TRUE(TQAlertSoundPlay(tone));
        EXPECT_FLOAT_EQ(audio().plays().back().volume, row.volume);
    }
    EXPECT_EQ(audio().plays().size(), 4U);
}

TEST_F(SoundsTest, AnAlertIsNoQuieterForTheDefaultsOrTheOutput)
{
    auto& defaults = NSUserDefaults::standardUserDefaults();
    audio().setBeepVolume(0x00800080);
    for (float const share : { 0.0F, 0.25F }) {
        defaults.setFloat(share, "com.apple.sound.beep.volume");
        audio().setOutputVolume(StereoVolume { share, share });
        EXPECT_TRUE(TQAlertSoundPlay(tone));
        ASSERT_FALSE(audio().plays().empty());
        EXPECT_EQ(audio().plays().back().volume, 0.5F);
        audio().forgetPlays();
    }
}

TEST_F(SoundsTest, ASilencedAlertPlaysNothing)
{
    audio().setBeepVolume(0);
    EXPECT_TRUE(TQAlertSoundPlay(tone));
    EXPECT_THAT(audio().plays(), IsEmpty());
}

TEST_F(SoundsTest, AnAlertThatIsNoSoundIsSaidToHavePlayed)
{
    EXPECT_TRUE(TQAlertSoundPlay(folder / "none.wav"));
    EXPECT_TRUE(TQAlertSoundPlay(""));
    machine().setHasAudio(false);
    EXPECT_TRUE(TQAlertSoundPlay(tone));
    EXPECT_THAT(audio().plays(), IsEmpty());
}

TEST_F(SoundsTest, AnAlertThatIsNoStringFails)
{
    EXPECT_FALSE(TQAlertSoundPlay(nullptr));
    EXPECT_FALSE(TQAlertSoundPlay(7));
    EXPECT_FALSE(TQAlertSoundPlay(ObjectValue::Array { tone }));
    EXPECT_THAT(audio().plays(), IsEmpty());
}

TEST_F(SoundsTest, TheCompletionRoutineForgetsTheSound)
{
    SystemSoundActionID sound = 0;
    SystemSoundGetActionID(tone, sound);
    EXPECT_EQ(SystemSoundSetCompletionRoutine(sound, TQAlertSoundCompletionRoutine), 0);
    SystemSoundPlay(sound);
    pass(1.1);
    EXPECT_EQ(SystemSoundRemoveActionID(sound), systemSoundUnspecifiedErr);
    EXPECT_EQ(TQAlertSoundCompletionRoutine(sound), 0);
    EXPECT_EQ(TQAlertSoundCompletionRoutine(0), 0);
}

}
}
