#include <tests/support/HeadlessTest.h>
#include <tests/support/TestFolder.h>
#include <tests/support/TestSurroundings.h>
#include <tests/support/sound_files.h>

#include <plix/platform/host/sound_file_bytes.h>
#include <plix/platform/host/sound_folders.h>

#include <gmock/gmock.h>

#include <sys/stat.h>

namespace plix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class HeadlessAudioTest : public HeadlessTest {
protected:
    HeadlessAudio& audio() { return machine().headlessAudio(); }
    std::unique_ptr<HostSound> open(std::string const& path)
    {
        auto sound = audio().openSound(path);
        sound->setFinished([this](bool toEnd) { ends.push_back(toEnd); });
        return sound;
    }

    TestFolder folder;
    std::string file { folder.write("tone.wav", wavFile({ .seconds = 0.01 })) };
    std::vector<bool> ends;
};

TEST_F(HeadlessAudioTest, ASoundLastsAsLongAsTheScriptSays)
{
    audio().setDuration(2);
    auto const sound = open(file);
    EXPECT_TRUE(sound->play());
    EXPECT_FALSE(sound->play());
    pass(1.9);
    EXPECT_TRUE(sound->isPlaying());
    EXPECT_THAT(ends, IsEmpty());
    pass(0.2);
    EXPECT_FALSE(sound->isPlaying());
    EXPECT_THAT(ends, ElementsAre(true));
    EXPECT_TRUE(sound->play());
    EXPECT_EQ(audio().plays().size(), 2U);
}

TEST_F(HeadlessAudioTest, ASoundThatPausesKeepsItsRest)
{
    auto const sound = open(file);
    EXPECT_FALSE(sound->pause());
    sound->play();
    EXPECT_FALSE(sound->resume());
    pass(0.75);
    EXPECT_TRUE(sound->pause());
    EXPECT_FALSE(sound->pause());
    pass(5);
    EXPECT_TRUE(sound->isPlaying());
    EXPECT_TRUE(sound->isPaused());
    EXPECT_TRUE(sound->resume());
    pass(0.2);
    EXPECT_TRUE(sound->isPlaying());
    pass(0.1);
    EXPECT_FALSE(sound->isPlaying());
    EXPECT_THAT(ends, ElementsAre(true));
}

TEST_F(HeadlessAudioTest, StoppingTellsNobody)
{
    auto const sound = open(file);
    EXPECT_FALSE(sound->stop());
    sound->play();
    EXPECT_TRUE(sound->stop());
    pass(3);
    EXPECT_THAT(ends, IsEmpty());
    EXPECT_EQ(audio().playingCount(), 0U);
}

TEST_F(HeadlessAudioTest, ASoundThatBreaksDownWasNotPlayedToItsEnd)
{
    auto const sound = open(file);
    sound->play();
    audio().breakDown();
    EXPECT_FALSE(sound->isPlaying());
    EXPECT_THAT(ends, ElementsAre(false));
}

TEST_F(HeadlessAudioTest, ASoundMayGoWhenItEnds)
{
    auto sound = open(file);
    sound->setFinished([&](bool) { sound.reset(); });
    sound->play();
    pass(2);
    EXPECT_EQ(sound, nullptr);
    EXPECT_EQ(audio().playingCount(), 0U);
}

TEST_F(HeadlessAudioTest, VolumeChangesWhileItPlays)
{
    auto const sound = open(file);
    sound->setVolume(0.25F);
    sound->play();
    EXPECT_EQ(audio().plays().back().volume, 0.25F);
    sound->setVolume(0.5F);
    EXPECT_EQ(audio().playingVolume(file), 0.5F);
    EXPECT_EQ(audio().playingVolume("/other"), -1);
}

TEST_F(HeadlessAudioTest, WhatIsNoSoundIsNotOpened)
{
    auto const fifo = folder / "fifo.wav";
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
    std::filesystem::create_directory(folder / "folder.wav");
    EXPECT_EQ(audio().openSound(folder / "none.wav"), nullptr);
    EXPECT_EQ(audio().openSound(folder.write("text.wav", "no sound at all")), nullptr);
    EXPECT_EQ(audio().openSound(folder.write("empty.wav")), nullptr);
    EXPECT_EQ(audio().openSound(folder / "folder.wav"), nullptr);
    EXPECT_EQ(audio().openSound(fifo), nullptr);
    EXPECT_NE(audio().openSound(bytesOf(wavFile({ .seconds = 0.01 }))), nullptr);
    EXPECT_EQ(audio().openSound(bytesOf("text")), nullptr);
    audio().refuse(file);
    EXPECT_EQ(audio().openSound(file), nullptr);
}

TEST_F(HeadlessAudioTest, WithoutADecoderNothingIsASound)
{
    audio().setDecodes(false);
    EXPECT_THAT(audio().fileTypes(), IsEmpty());
    EXPECT_EQ(audio().openSound(file), nullptr);
    EXPECT_EQ(audio().openSound(bytesOf(wavFile({ .seconds = 0.01 }))), nullptr);
}

TEST_F(HeadlessAudioTest, ChangesOfTheOutputVolumeAreToldOnTheRunLoop)
{
    int told = 0;
    auto observer = audio().observeOutputVolume([&] { ++told; });
    audio().setOutputVolume(StereoVolume { 0.25F, 0.5F });
    EXPECT_EQ(told, 0);
    pump();
    EXPECT_EQ(told, 1);
    EXPECT_EQ(audio().outputVolume(), (StereoVolume { 0.25F, 0.5F }));
    EXPECT_EQ(audio().defaultOutputVolume(), 0x00800040U);
    audio().setOutputVolume(StereoVolume { 0.25F, 0.5F });
    pump();
    EXPECT_EQ(told, 1);
    audio().setOutputVolume({});
    pump();
    EXPECT_EQ(told, 2);
    EXPECT_EQ(audio().outputVolume(), std::nullopt);
    EXPECT_EQ(audio().defaultOutputVolume(), 0x01000100U);
    observer.reset();
    audio().setOutputVolume(StereoVolume { 1, 1 });
    pump();
    EXPECT_EQ(told, 2);
}

TEST_F(HeadlessAudioTest, AnObserverMayGoWhileOthersAreTold)
{
    std::string told;
    std::shared_ptr<void> second;
    auto const first = audio().observeOutputVolume([&] {
        told += '1';
        second.reset();
    });
    second = audio().observeOutputVolume([&] { told += '2'; });
    auto const third = audio().observeOutputVolume([&] { told += '3'; });
    audio().setOutputVolume(StereoVolume { 0, 0 });
    pump();
    EXPECT_EQ(told, "13");
}

TEST(SoundFileBytes, AreReadWhereTheyAreWanted)
{
    TestFolder const folder;
    auto const bytes = SoundFileBytes::open(folder.write("ten", "0123456789"));
    ASSERT_NE(bytes, nullptr);
    auto const readAt = [&](std::int64_t place, std::size_t count) {
        std::vector<std::uint8_t> buffer(count);
        buffer.resize(bytes->readAt(place, buffer));
        return std::string(buffer.begin(), buffer.end());
    };
    EXPECT_EQ(bytes->size(), 10);
    EXPECT_EQ(readAt(0, 4), "0123");
    EXPECT_EQ(readAt(8, 4), "89");
    EXPECT_EQ(readAt(10, 4), "");
    EXPECT_EQ(readAt(-1, 4), "");
    folder.write("ten", "012");
    EXPECT_EQ(readAt(2, 4), "2");
}

TEST(SoundFolders, TheFirstSharedFolderWithAThemeIsTheSystems)
{
    TestSurroundings surroundings;
    TestFolder const folder;
    surroundings.sharedData = { folder / "empty", folder / "first", folder / "second" };
    folder.write("first/sounds/freedesktop/stereo/bell.oga");
    folder.write("second/sounds/freedesktop/stereo/bell.oga");
    EXPECT_EQ(soundFolders().system, folder / "first/sounds/freedesktop/stereo/");
    EXPECT_EQ(soundFolders().user, "/home/test/.local/share/sounds/");
    EXPECT_EQ(soundFolders().machine, "/usr/local/share/sounds/");
    surroundings.sharedData = {};
    EXPECT_EQ(soundFolders().system, "/usr/share/sounds/freedesktop/stereo/");
}

TEST_F(HeadlessAudioTest, ASoundThatOutlivesItsMachineIsHarmless)
{
    auto other = std::make_unique<HeadlessHost>();
    auto const sound = other->headlessAudio().openSound(file);
    auto const pausing = other->headlessAudio().openSound(file);
    for (auto const* each : { &sound, &pausing }) {
        (*each)->setFinished([this](bool toEnd) { ends.push_back(toEnd); });
        EXPECT_TRUE((*each)->play());
    }
    EXPECT_TRUE(sound->stop());
    EXPECT_TRUE(pausing->pause());
    other.reset();
    EXPECT_TRUE(sound->play());
    EXPECT_TRUE(pausing->resume());
    EXPECT_TRUE(sound->pause());
    EXPECT_TRUE(sound->stop());
    EXPECT_TRUE(pausing->stop());
    EXPECT_THAT(ends, IsEmpty());
}

}
}
