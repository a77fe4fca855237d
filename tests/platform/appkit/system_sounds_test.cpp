#include <tests/support/HeadlessTest.h>
#include <tests/support/TestFolder.h>
#include <tests/support/sound_files.h>

#include <plix/platform/appkit/system_sounds.h>

#include <gmock/gmock.h>

namespace plix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class SystemSoundTest : public HeadlessTest {
protected:
    HeadlessAudio& audio() { return machine().headlessAudio(); }
    SystemSoundActionID open()
    {
        SystemSoundActionID identifier = 0;
        EXPECT_EQ(SystemSoundGetActionID(file, identifier), 0);
        return identifier;
    }
    SystemSoundCompletionProc note()
    {
        return [this](SystemSoundActionID identifier) {
            completed.push_back(identifier);
            return 0;
        };
    }

    TestFolder folder;
    std::string file { folder.write("tone.wav", wavFile({ .seconds = 0.01 })) };
    std::vector<SystemSoundActionID> completed;
};

TEST_F(SystemSoundTest, PlaysAtTheBeepVolumeAndCompletes)
{
    auto const sound = open();
    auto const other = open();
    EXPECT_NE(sound, other);
    EXPECT_EQ(SystemSoundSetCompletionRoutine(sound, note()), 0);
    audio().setBeepVolume(0x00800080);
    SystemSoundPlay(sound);
    SystemSoundPlay(other);
    EXPECT_EQ(audio().plays().front().volume, 0.5F);
    EXPECT_THAT(completed, IsEmpty());
    pass(1.1);
    EXPECT_THAT(completed, ElementsAre(sound));
    SystemSoundPlay(sound);
    pass(1.1);
    EXPECT_THAT(completed, ElementsAre(sound, sound));
    SystemSoundRemoveActionID(sound);
    SystemSoundRemoveActionID(other);
}

TEST_F(SystemSoundTest, PlayingAgainBeginsAnew)
{
    auto const sound = open();
    SystemSoundSetCompletionRoutine(sound, note());
    SystemSoundPlay(sound);
    pass(0.6);
    SystemSoundPlay(sound);
    pass(0.6);
    EXPECT_THAT(completed, IsEmpty());
    EXPECT_EQ(audio().playingCount(), 1U);
    pass(0.6);
    EXPECT_THAT(completed, ElementsAre(sound));
    SystemSoundRemoveActionID(sound);
}

TEST_F(SystemSoundTest, WhatIsRemovedIsHeardNoMore)
{
    auto const sound = open();
    SystemSoundSetCompletionRoutine(sound, note());
    SystemSoundPlay(sound);
    SystemSoundRemoveCompletionRoutine(sound);
    pass(1.1);
    EXPECT_THAT(completed, IsEmpty());
    SystemSoundSetCompletionRoutine(sound, note());
    SystemSoundPlay(sound);
    EXPECT_EQ(SystemSoundRemoveActionID(sound), 0);
    EXPECT_EQ(audio().playingCount(), 0U);
    pass(2);
    EXPECT_THAT(completed, IsEmpty());
    EXPECT_EQ(SystemSoundRemoveActionID(sound), systemSoundUnspecifiedErr);
    EXPECT_EQ(SystemSoundSetCompletionRoutine(sound, note()), systemSoundUnspecifiedErr);
    auto const before = audio().plays().size();
    SystemSoundPlay(sound);
    EXPECT_EQ(audio().plays().size(), before);
}

TEST_F(SystemSoundTest, ACompletionRoutineMayRemoveItsSound)
{
    auto const sound = open();
    SystemSoundSetCompletionRoutine(sound, [&](SystemSoundActionID identifier) {
        SystemSoundRemoveCompletionRoutine(identifier);
        return SystemSoundRemoveActionID(identifier);
    });
    SystemSoundPlay(sound);
    pass(1.1);
    EXPECT_EQ(SystemSoundRemoveActionID(sound), systemSoundUnspecifiedErr);
}

TEST_F(SystemSoundTest, WhatIsNoSoundGetsNoIdentifier)
{
    SystemSoundActionID identifier = 77;
    EXPECT_EQ(SystemSoundGetActionID(folder / "none.wav", identifier), systemSoundUnspecifiedErr);
    machine().setHasAudio(false);
    EXPECT_EQ(SystemSoundGetActionID(file, identifier), systemSoundUnspecifiedErr);
    EXPECT_EQ(identifier, 77U);
}

}
}
