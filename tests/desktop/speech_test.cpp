#ifdef PLIX_SPEECH

#include <tests/desktop/support/DesktopTest.h>
#include <tests/support/PulseServer.h>
#include <tests/support/SpeechServer.h>

namespace plix::desktop {
namespace {

/// A program that speaks by services of the test's own.
class SpeechOnScreen : public DesktopTest {
protected:
    void SetUp() override
    {
        if (!SpeechServer::isInstalled())
            GTEST_SKIP() << "speech-dispatcher with espeak-ng, or pulseaudio, is not installed";
        sound = std::make_unique<PulseServer>();
        service = std::make_unique<SpeechServer>(*sound);
        app = &start("speech",
            { "PULSE_SERVER=" + sound->address(), "SPEECHD_ADDRESS=unix_socket:" + service->socketPath(),
                "XDG_RUNTIME_DIR=" + service->folder(), "PATH=/nonexistent" });
        app->expect("key");
    }

    std::unique_ptr<PulseServer> sound;
    std::unique_ptr<SpeechServer> service;
    Application* app { nullptr };
};

TEST_F(SpeechOnScreen, WhatIsTypedIsHeard)
{
    PulseRecorder recorder(*sound);
    type("3");
    app->expect("text '3'");
    app->expect("speaking");
    EXPECT_TRUE(recorder.recordUntilStill());
    app->expect("silent");
    type(".5a");
    // The first of them may be spoken before the last is typed.
    app->expect("speaking");
    EXPECT_TRUE(waitUntil([this] { return app->countOf("text '3.5a'") == 1; }));
    app->expect("silent");
    EXPECT_GT(loudness(recorder.samples()), 0.01);
}

TEST_F(SpeechOnScreen, TheProgramGoesOnWithoutItsServiceAndSpeaksWhenItIsBack)
{
    type("l");
    app->expect("speaking");
    PulseRecorder(*sound).recordUntilStill(0);
    service->kill();
    app->expect("silent");
    type("7");
    app->expect("text 'l7'");
    service->start();
    type("8");
    app->expect("text 'l78'");
    app->expect("speaking");
    PulseRecorder recorder(*sound);
    EXPECT_TRUE(recorder.recordUntilStill());
    app->expect("silent");
}

TEST_F(SpeechOnScreen, TheProgramGoesOnWithoutASoundServer)
{
    type("l");
    app->expect("speaking");
    PulseRecorder(*sound).recordUntilStill(0);
    sound->kill();
    app->expect("silent");
    type("l");
    app->expect("text 'll'");
    type("1");
    app->expect("text 'll1'");
}

TEST_F(SpeechOnScreen, EndingTheProgramSilencesIt)
{
    PulseRecorder recorder(*sound);
    type("l");
    app->expect("speaking");
    recorder.recordUntilStill(0);
    type("q");
    EXPECT_EQ(app->process().waitForEnd(), 0);
    EXPECT_TRUE(recorder.recordUntilStill(0.7));
    EXPECT_LT(soundingTime(recorder.samples()), 5);
}

}
}

#endif
