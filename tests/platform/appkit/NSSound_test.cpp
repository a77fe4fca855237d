#include <tests/support/HeadlessTest.h>
#include <tests/support/TestFolder.h>
#include <tests/support/TestSurroundings.h>
#include <tests/support/sound_files.h>

#include <plix/platform/appkit/NSSound.h>
#include <plix/platform/base/NSData.h>
#include <plix/platform/base/Weak.h>

#include <gmock/gmock.h>

namespace plix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Listener : public NSObject {
    PLIX_CLASS(Listener, NSObject);

public:
    std::vector<bool> ends;
    NSSound* sender { nullptr };
    void didFinishPlaying(NSSound& sound, bool toEnd)
    {
        sender = &sound;
        ends.push_back(toEnd);
    }
};
PLIX_DESCRIBE(Listener)
{
}

class NSSoundTest : public HeadlessTest {
protected:
    HeadlessAudio& audio() { return machine().headlessAudio(); }
    Ref<NSSound> tone()
    {
        auto sound = make<NSSound>(std::string_view(file), true);
        sound->setDelegate(listener);
        return sound;
    }

    TestFolder folder;
    std::string file { folder.write("tone.wav", wavFile({ .seconds = 0.01 })) };
    Ref<Listener> listener { make<Listener>() };
};

TEST_F(NSSoundTest, PlaysToItsEndAndTellsItsDelegate)
{
    auto const sound = tone();
    EXPECT_TRUE(sound->play());
    EXPECT_TRUE(sound->isPlaying());
    EXPECT_FALSE(sound->play());
    pass(1.1);
    EXPECT_FALSE(sound->isPlaying());
    EXPECT_THAT(listener->ends, ElementsAre(true));
    EXPECT_EQ(listener->sender, sound.get());
    EXPECT_EQ(audio().plays().front().path, file);
}

TEST_F(NSSoundTest, StoppingTellsItsDelegateThatItIsNotAtItsEnd)
{
    auto const sound = tone();
    EXPECT_FALSE(sound->stop());
    sound->play();
    EXPECT_TRUE(sound->stop());
    EXPECT_FALSE(sound->stop());
    pass(2);
    EXPECT_THAT(listener->ends, ElementsAre(false));
}

TEST_F(NSSoundTest, OneThatPausesDoesNotPlay)
{
    auto const sound = tone();
    EXPECT_FALSE(sound->pause());
    EXPECT_FALSE(sound->resume());
    sound->play();
    EXPECT_TRUE(sound->pause());
    EXPECT_FALSE(sound->isPlaying());
    EXPECT_FALSE(sound->play());
    pass(5);
    EXPECT_THAT(listener->ends, IsEmpty());
    EXPECT_TRUE(sound->resume());
    EXPECT_TRUE(sound->isPlaying());
    pass(1.1);
    EXPECT_THAT(listener->ends, ElementsAre(true));
}

TEST_F(NSSoundTest, IsHeldWhileItPlays)
{
    auto sound = tone();
    Weak<NSSound> const weak = sound.get();
    sound->play();
    sound = nullptr;
    EXPECT_NE(weak.get(), nullptr);
    pass(1.1);
    EXPECT_EQ(weak.get(), nullptr);
    EXPECT_THAT(listener->ends, ElementsAre(true));
}

TEST_F(NSSoundTest, IsMadeOfBytesAndNotOfWhatIsNoSound)
{
    auto const bytes = make<NSData>(bytesOf(wavFile({ .seconds = 0.01 })));
    auto const text = make<NSData>(bytesOf("no sound"));
    EXPECT_NE(make<NSSound>(*bytes), nullptr);
    EXPECT_EQ(make<NSSound>(*text), nullptr);
    EXPECT_EQ(make<NSSound>(std::string_view(folder / "none.wav"), true), nullptr);
    audio().setDecodes(false);
    EXPECT_EQ(make<NSSound>(std::string_view(file), true), nullptr);
    EXPECT_THAT(NSSound::soundUnfilteredFileTypes(), IsEmpty());
}

TEST_F(NSSoundTest, ACopyPlaysByItself)
{
    auto const sound = tone();
    auto const copy = copyOf(*sound);
    sound->play();
    EXPECT_FALSE(copy->isPlaying());
    EXPECT_EQ(copy->name(), "");
    EXPECT_TRUE(copy->play());
    EXPECT_EQ(audio().playingCount(), 2U);
    pass(1.1);
    EXPECT_THAT(listener->ends, ElementsAre(true, true));
}

TEST_F(NSSoundTest, IsFoundByNameInTheFoldersOfSounds)
{
    TestSurroundings surroundings;
    surroundings.home = folder / "home";
    surroundings.sharedData = { folder / "share" };
    auto const wav = wavFile({ .seconds = 0.01 });
    auto const system = folder.write("share/sounds/freedesktop/stereo/plix-test-gong.wav", wav);
    auto const mine = folder.write("home/.local/share/sounds/plix-test-gong.aiff", aiffFile({ .seconds = 0.01 }));
    folder.write("share/secret.wav", wav);
    auto const gong = NSSound::soundNamed("plix-test-gong");
    ASSERT_NE(gong, nullptr);
    EXPECT_EQ(gong->name(), "plix-test-gong");
    EXPECT_EQ(NSSound::soundNamed("plix-test-gong"), gong);
    gong->play();
    EXPECT_EQ(audio().plays().back().path, mine);
    auto const whole = NSSound::soundNamed("plix-test-gong.wav");
    ASSERT_NE(whole, nullptr);
    whole->play();
    EXPECT_EQ(audio().plays().back().path, system);
    EXPECT_EQ(NSSound::soundNamed("plix-test-none"), nullptr);
    EXPECT_EQ(NSSound::soundNamed("../../../secret"), nullptr);
    EXPECT_EQ(NSSound::soundNamed(""), nullptr);
    gong->stop();
    whole->stop();
    gong->setName("");
    whole->setName("");
}

TEST_F(NSSoundTest, ANameBelongsToOneSound)
{
    auto const first = tone();
    auto const second = tone();
    EXPECT_TRUE(first->setName("plix-test-ping"));
    EXPECT_FALSE(second->setName("plix-test-ping"));
    EXPECT_EQ(NSSound::soundNamed("plix-test-ping"), first);
    EXPECT_TRUE(first->setName("plix-test-pong"));
    EXPECT_TRUE(second->setName("plix-test-ping"));
    EXPECT_EQ(NSSound::soundNamed("plix-test-pong"), first);
    EXPECT_EQ(NSSound::soundNamed("plix-test-ping"), second);
    EXPECT_TRUE(first->setName(""));
    EXPECT_TRUE(second->setName(""));
    EXPECT_EQ(NSSound::soundNamed("plix-test-ping"), nullptr);
}

TEST_F(NSSoundTest, ABeepIsTheAlertSoundOrElseTheBell)
{
    NSBeep();
    EXPECT_EQ(audio().beepCount(), 1);
    EXPECT_EQ(display().beepCount(), 1);
    audio().setHasAlertSound(true);
    NSBeep();
    EXPECT_EQ(audio().beepCount(), 2);
    EXPECT_EQ(display().beepCount(), 1);
}

/// Does something with the sound while it is told of its end.
class Meddler : public NSObject {
    PLIX_CLASS(Meddler, NSObject);

public:
    std::vector<bool> ends;
    std::function<void(NSSound&)> meddle;
    void didFinishPlaying(NSSound& sound, bool toEnd)
    {
        ends.push_back(toEnd);
        if (auto const once = std::exchange(meddle, nullptr))
            once(sound);
    }
};
PLIX_DESCRIBE(Meddler)
{
}

TEST_F(NSSoundTest, ItsDelegateMayDoAnythingWhenItEnds)
{
    auto const meddler = make<Meddler>();
    auto sound = tone();
    Weak<NSSound> const weak(sound);
    sound->setDelegate(meddler);
    meddler->meddle = [](NSSound& ended) { EXPECT_TRUE(ended.play()); };
    sound->play();
    pass(1.1);
    EXPECT_TRUE(sound->isPlaying());
    pass(1);
    EXPECT_THAT(meddler->ends, ElementsAre(true, true));
    meddler->meddle = [](NSSound& ended) { EXPECT_FALSE(ended.stop()); };
    sound->play();
    EXPECT_TRUE(sound->stop());
    EXPECT_THAT(meddler->ends, ElementsAre(true, true, false));
    meddler->meddle = [&](NSSound& ended) {
        EXPECT_TRUE(ended.play());
        EXPECT_TRUE(ended.stop());
        sound = nullptr;
        EXPECT_TRUE(weak);
    };
    sound->play();
    pass(1.1);
    EXPECT_THAT(meddler->ends, ElementsAre(true, true, false, true, false));
    EXPECT_FALSE(weak);
}

}
}
