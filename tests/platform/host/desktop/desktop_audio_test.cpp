#include <tests/support/SoundServiceTest.h>
#include <tests/support/run_until.h>
#include <tests/support/sound_files.h>

#include <plix/platform/base/clock.h>
#include <plix/platform/host/desktop/SoundOutput.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <numbers>

namespace plix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr double whole = 0.5 / std::numbers::sqrt2;

class DesktopAudioTest : public SoundServiceTest {
protected:
    DesktopAudio& audio() { return machine->audio(); }
    std::unique_ptr<HostSound> open(std::string const& path)
    {
        auto sound = audio().openSound(path);
        if (sound)
            sound->setFinished([this](bool toEnd) { ends.push_back(toEnd); });
        return sound;
    }
    std::string toneFile(Tone const& tone) { return folder.write("tone.wav", wavFile(tone)); }
    /// Nil where the program that does it is missing.
    std::optional<std::string> encoded(std::string const& name)
    {
        auto const path = folder / name;
        outputOf({ "ffmpeg", "-loglevel", "quiet", "-y", "-i", toneFile({ .seconds = 1 }), path });
        return std::filesystem::exists(path) ? std::optional(path) : std::nullopt;
    }
    /// Plays it to its end and answers how loud it was.
    double measured(HostSound& sound)
    {
        PulseRecorder recorder(*server);
        auto const before = ends.size();
        EXPECT_TRUE(sound.play());
        EXPECT_TRUE(runUntil([&] { return ends.size() > before; }));
        EXPECT_TRUE(recorder.recordUntilStill());
        EXPECT_NEAR(soundingTime(recorder.samples()), sound.duration(), 0.25);
        return loudnessWithin(recorder.samples());
    }

    std::vector<bool> ends;
};

TEST_F(DesktopAudioTest, FilesOfEveryKindPlayAtAVolume)
{
    std::vector<std::string> files { toneFile({ .seconds = 1 }), folder.write("tone.aiff", aiffFile({ .seconds = 1 })),
        folder.write("rate.wav", wavFile({ .seconds = 1, .rate = 22050, .channels = 1 })) };
    for (auto const* name : { "tone.ogg", "tone.flac", "tone.mp3" }) {
        if (auto const file = encoded(name))
            files.push_back(*file);
    }
    for (auto const& file : files) {
        auto const sound = open(file);
        ASSERT_NE(sound, nullptr) << file;
        EXPECT_NEAR(sound->duration(), 1, 0.06) << file;
        sound->setVolume(0.25F);
        EXPECT_NEAR(measured(*sound), whole * 0.25, whole * 0.25 * 0.05) << file;
    }
    EXPECT_EQ(ends, std::vector(files.size(), true));
}

TEST_F(DesktopAudioTest, ASoundPlaysAgainFromItsStart)
{
    auto const sound = open(toneFile({ .seconds = 0.5 }));
    EXPECT_NEAR(measured(*sound), whole, whole * 0.05);
    EXPECT_NEAR(measured(*sound), whole, whole * 0.05);
    sound->play();
    EXPECT_TRUE(sound->stop());
    EXPECT_NEAR(measured(*sound), whole, whole * 0.05);
    EXPECT_THAT(ends, ElementsAre(true, true, true));
}

TEST_F(DesktopAudioTest, VolumeAndPauseCountWhileASoundPlays)
{
    PulseRecorder recorder(*server);
    auto const sound = open(toneFile({ .seconds = 1.2 }));
    auto const playFor = [&](double seconds) {
        auto const until = clock().uptime() + seconds;
        runUntil([&] { return clock().uptime() >= until; });
    };
    sound->play();
    EXPECT_TRUE(runUntil([&] { return audio().lastDelay().has_value(); }));
    playFor(0.4);
    sound->pause();
    playFor(0.5);
    EXPECT_TRUE(sound->isPlaying());
    sound->setVolume(0.25F);
    sound->resume();
    EXPECT_TRUE(runUntil([&] { return !ends.empty(); }));
    EXPECT_TRUE(recorder.recordUntilStill(0.8));
    auto const stretches = soundingStretches(recorder.samples(), 0.2);
    ASSERT_EQ(stretches.size(), 2U);
    EXPECT_NEAR(stretches[0].second - stretches[0].first + stretches[1].second - stretches[1].first, 1.2, 0.25);
    auto const middle = [&](std::pair<double, double> stretch) {
        auto const place
            = [&](double time) { return recorder.samples().begin() + static_cast<std::ptrdiff_t>(time * PulseRecorder::rate); };
        return loudness({ place(stretch.first + 0.1), place(stretch.second - 0.1) });
    };
    EXPECT_NEAR(middle(stretches[0]), whole, whole * 0.05);
    EXPECT_NEAR(middle(stretches[1]), whole * 0.25, whole * 0.25 * 0.05);
}

TEST_F(DesktopAudioTest, SixteenSoundsAreHeardTogether)
{
    auto const file = toneFile({ .seconds = 1, .amplitude = 0.03 });
    double const together = 16 * 0.03 / std::numbers::sqrt2;
    double heard = 0;
    // A machine with other things to do may drop what it should play.
    for (int tries = 0; tries < 3 && std::abs(heard - together) > 0.05; ++tries) {
        ends.clear();
        std::vector<std::unique_ptr<HostSound>> sounds;
        PulseRecorder recorder(*server);
        for (int i = 0; i < 16; ++i)
            sounds.push_back(open(file));
        for (auto const& sound : sounds)
            EXPECT_TRUE(sound->play());
        EXPECT_TRUE(runUntil([&] { return ends.size() == 16; }));
        EXPECT_TRUE(recorder.recordUntilStill());
        heard = loudness(recorder.samples());
    }
    EXPECT_NEAR(heard, together, 0.05);
    EXPECT_THAT(ends, testing::Each(true));
}

TEST_F(DesktopAudioTest, ASoundThatIsLetGoIsSilentAtOnce)
{
    PulseRecorder recorder(*server);
    auto sound = open(toneFile({ .seconds = 30 }));
    sound->play();
    EXPECT_TRUE(runUntil([&] { return audio().lastDelay().has_value(); }));
    sound.reset();
    EXPECT_TRUE(recorder.recordUntilStill());
    EXPECT_LT(soundingTime(recorder.samples()), 5);
    EXPECT_THAT(ends, IsEmpty());
}

// Volumes.

TEST_F(DesktopAudioTest, BothEarsVolumesAreRead)
{
    server->setVolume("first", 30, 70);
    auto const volume = audio().outputVolume();
    ASSERT_TRUE(volume);
    EXPECT_NEAR(volume->left, 0.3, 0.005);
    EXPECT_NEAR(volume->right, 0.7, 0.005);
    EXPECT_EQ(audio().defaultOutputVolume(), 0x00B3004DU);
    server->setVolume("first", 150, 0);
    EXPECT_EQ(audio().outputVolume(), (StereoVolume { 1, 0 }));
}

TEST_F(DesktopAudioTest, ChangesOfVolumeAndOfTheDefaultOutputAreTold)
{
    server->setVolume("first", 30, 70);
    server->setVolume("second", 50, 40);
    int told = 0;
    auto const observer = audio().observeOutputVolume([&] { ++told; });
    auto const isLeft = [&](double volume) {
        auto const now = audio().outputVolume();
        return now && std::abs(now->left - volume) < 0.005;
    };
    EXPECT_TRUE(runUntil([&] { return told > 0; }));
    EXPECT_TRUE(isLeft(0.3));
    told = 0;
    server->setVolume("first", 80, 20);
    EXPECT_TRUE(runUntil([&] { return told > 0; }));
    EXPECT_TRUE(isLeft(0.8));
    told = 0;
    server->setDefaultSink("second");
    EXPECT_TRUE(runUntil([&] { return told > 0; }));
    EXPECT_TRUE(isLeft(0.5));
    // Another output is news also where it is as loud.
    told = 0;
    server->setVolume("first", 50, 40);
    server->setDefaultSink("first");
    EXPECT_TRUE(runUntil([&] { return told > 0; }));
    told = 0;
    server->setDefaultSink("second");
    EXPECT_TRUE(runUntil([&] { return told > 0; }));
    told = 0;
    server->setVolume("first", 10, 10);
    server->setVolume("second", 60, 60);
    EXPECT_TRUE(runUntil([&] { return told > 0; }));
    EXPECT_TRUE(isLeft(0.6));
}

TEST_F(DesktopAudioTest, AServerWithoutOutputsHasNoVolume)
{
    EXPECT_TRUE(audio().outputVolume());
    server->removeSinks();
    EXPECT_EQ(audio().outputVolume(), std::nullopt);
}

TEST_F(DesktopAudioTest, AVolumeThatIsAskedForOnceLeavesNoConnection)
{
    auto const clients = [&] { return server->control({ "list", "short", "clients" }); };
    auto const before = std::ranges::count(clients(), '\n');
    EXPECT_TRUE(audio().outputVolume());
    EXPECT_EQ(std::ranges::count(clients(), '\n'), before + 1);
    EXPECT_TRUE(runUntil([&] { return std::ranges::count(clients(), '\n') == before; }));
    EXPECT_TRUE(audio().outputVolume());
}

// Trouble.

/// No device at all.
class MissingOutput final : public SoundOutput {
public:
    void setFetch(Fetch) override { }
    void setWanted(bool) override { }
    bool isMissing() const override { return true; }
};

/// Whether any file of this program's is that one.
bool isOpen(std::string const& path)
{
    std::filesystem::directory_iterator const open("/proc/self/fd");
    return std::ranges::any_of(open, [&](auto const& entry) {
        std::error_code ignored;
        return std::filesystem::read_symlink(entry.path(), ignored) == path;
    });
}

TEST(DesktopAudio, LetsGoOfFilesWithTheirSounds)
{
    if (SoundDecoder::fileTypes().empty())
        GTEST_SKIP() << "no sound files are read";
    TestFolder const folder;
    DesktopAudio audio([] {}, std::make_unique<MissingOutput>());
    auto const path = folder.write("tone.wav", wavFile({ .seconds = 0.1 }));
    auto sound = audio.openSound(path);
    bool hasEnded = false;
    sound->setFinished([&](bool) { hasEnded = true; });
    sound->play();
    EXPECT_TRUE(runUntil([&] { return hasEnded; }));
    EXPECT_TRUE(isOpen(path));
    sound.reset();
    EXPECT_TRUE(runUntil([&] { return !isOpen(path); }));
}

TEST(DesktopAudio, AFileThatBreaksOffIsNotPlayedToItsEnd)
{
    if (SoundDecoder::fileTypes().empty())
        GTEST_SKIP() << "no sound files are read";
    TestFolder const folder;
    DesktopAudio audio([] {}, std::make_unique<MissingOutput>());
    auto const path = folder.write("tone.wav", wavFile({ .seconds = 1 }));
    auto const sound = audio.openSound(path);
    std::vector<bool> ends;
    sound->setFinished([&](bool toEnd) { ends.push_back(toEnd); });
    std::filesystem::resize_file(path, 20000);
    sound->play();
    EXPECT_TRUE(runUntil([&] { return !ends.empty(); }));
    EXPECT_THAT(ends, ElementsAre(false));
}

TEST_F(DesktopAudioTest, ASoundGoesOnWithoutAServerThatDiesAndIsHeardWhenItIsBack)
{
    server->setVolume("first", 30, 70);
    int told = 0;
    auto const observer = audio().observeOutputVolume([&] { ++told; });
    EXPECT_TRUE(runUntil([&] { return told > 0; }));
    auto const sound = open(toneFile({ .seconds = 2 }));
    sound->play();
    EXPECT_TRUE(runUntil([&] { return server->inputCount() > 0; }));
    told = 0;
    server->kill();
    EXPECT_TRUE(runUntil([&] { return told > 0; }));
    EXPECT_EQ(audio().outputVolume(), std::nullopt);
    EXPECT_EQ(audio().defaultOutputVolume(), 0x01000100U);
    EXPECT_TRUE(runUntil([&] { return !ends.empty(); }));
    EXPECT_THAT(ends, ElementsAre(true));
    told = 0;
    server->start();
    EXPECT_TRUE(runUntil([&] { return told > 0; }));
    EXPECT_EQ(audio().outputVolume(), (StereoVolume { 1, 1 }));
    EXPECT_NEAR(measured(*sound), whole, whole * 0.05);
}

TEST_F(DesktopAudioTest, AServerThatDiesInTheMiddleIsJoinedAgainInTheMiddle)
{
    auto const sound = open(toneFile({ .seconds = 60 }));
    sound->play();
    EXPECT_TRUE(runUntil([&] { return server->inputCount() > 0; }));
    server->kill();
    server->start();
    EXPECT_TRUE(runUntil([&] { return server->inputCount() > 0; }));
    PulseRecorder recorder(*server);
    recorder.record(0.5);
    EXPECT_NEAR(loudness(recorder.samples()), whole, whole * 0.05);
    EXPECT_TRUE(sound->stop());
}

TEST_F(DesktopAudioTest, AServerThatHangsHoldsNothingUp)
{
    EXPECT_TRUE(audio().outputVolume());
    auto const sound = open(toneFile({ .seconds = 1 }));
    server->freeze();
    auto const begun = clock().uptime();
    EXPECT_EQ(audio().outputVolume(), std::nullopt);
    for (int i = 0; i < 100; ++i)
        EXPECT_EQ(audio().outputVolume(), std::nullopt);
    EXPECT_TRUE(sound->play());
    EXPECT_LT(clock().uptime() - begun, 5);
    EXPECT_TRUE(runUntil([&] { return !ends.empty(); }));
    server->goOn();
    EXPECT_TRUE(runUntil([&] { return audio().outputVolume().has_value(); }));
    EXPECT_NEAR(measured(*sound), whole, whole * 0.05);
}

TEST_F(DesktopAudioTest, AVolumeThatIsAskedForWithoutAPauseIsAnsweredWhenTheServerGoesOn)
{
    EXPECT_TRUE(audio().outputVolume());
    server->freeze();
    EXPECT_EQ(audio().outputVolume(), std::nullopt);
    server->goOn();
    auto const until = clock().uptime() + 20;
    bool isAnswered = false;
    while (!isAnswered && clock().uptime() < until)
        isAnswered = audio().outputVolume().has_value();
    EXPECT_TRUE(isAnswered);
}

TEST_F(DesktopAudioTest, WithoutAServerSoundsTakeTheirTimeInSilence)
{
    server->kill();
    auto const sound = open(toneFile({ .seconds = 0.7 }));
    auto const begun = clock().uptime();
    EXPECT_TRUE(sound->play());
    EXPECT_TRUE(runUntil([&] { return !ends.empty(); }));
    EXPECT_GE(clock().uptime() - begun, 0.69);
    EXPECT_THAT(ends, ElementsAre(true));
    EXPECT_EQ(audio().lastDelay(), std::nullopt);
    EXPECT_EQ(audio().outputVolume(), std::nullopt);
}

// Alerts.

TEST_F(DesktopAudioTest, ABeepIsHeardAtTheBeepVolume)
{
    if (!audio().beep())
        GTEST_SKIP() << "no theme of sounds is installed";
    auto const hear = [&] {
        EXPECT_TRUE(runUntil([&] { return audio().lastDelay().has_value(); }));
        PulseRecorder recorder(*server);
        // While one sounds there is no other.
        EXPECT_TRUE(runUntil([&] { return audio().beep() && !audio().lastDelay(); }));
        EXPECT_TRUE(recorder.recordUntilStill(1));
        return *std::ranges::max_element(recorder.samples());
    };
    auto const loud = hear();
    audio().setBeepVolume(0x00800080);
    auto const half = hear();
    EXPECT_GT(loud, 0.01);
    EXPECT_NEAR(half / loud, 0.5, 0.03);
    EXPECT_EQ(machine->bellCount(), 0);
}

TEST_F(DesktopAudioTest, ABeepThatNobodyCanHearRingsTheBell)
{
    server->kill();
    if (!audio().beep())
        GTEST_SKIP() << "no theme of sounds is installed";
    EXPECT_TRUE(runUntil([&] { return machine->bellCount() > 0; }));
    audio().setBeepVolume(0);
    EXPECT_TRUE(audio().beep());
    audio().setBeepVolume(0x01000100);
    EXPECT_TRUE(audio().beep());
    EXPECT_TRUE(runUntil([&] { return machine->bellCount() > 1; }));
    EXPECT_EQ(machine->bellCount(), 2);
}

}
}
