#include "bench.h"
#include "headless_machine.h"

#include <plix/platform/appkit/NSSpeechSynthesizer.h>
#include <plix/platform/foundation/NSRunLoop.h>
#include <plix/speech/PLIXSpeakingTextField.h>
#include <plix/speech/PLIXSpeechSynthesizer.h>

#ifdef PLIX_SPEECH
#include <tests/support/SpeakingHost.h>
#endif

#include <chrono>
#include <cmath>
#include <memory>
#include <stdexcept>

namespace plix::bench {

namespace {

PLIX_FIGURE("speech.queue_10k")
{
    constexpr int items = 10000;
    installHost(std::make_unique<HeadlessHost>(HeadlessHost::Time::Movable));
    {
        auto& speech = static_cast<HeadlessHost&>(host()).headlessSpeech();
        speech.setDuration([](std::string const&) { return 0.01; });
        auto const field = make<PLIXSpeakingTextField>(Rect { 0, 0, 100, 22 });
        auto const drain = [&] {
            for (int item = 0; item < items; ++item)
                field->addItemToSpeak("7");
            field->speakNextItem(nullptr);
            auto const isDone = [&] { return speech.utterances().size() == items; };
            NSRunLoop::currentRunLoop().runUntil(isDone);
        };
        figure.setRuns(11);
        figure.time({ drain, [&] {
                         // The last timer looks once more.
                         NSRunLoop::currentRunLoop().runUntilDate(NSDate::dateWithTimeIntervalSinceNow(1));
                         speech.forgetUtterances();
                     } });
    }
    installHost(nullptr);
}

#ifdef PLIX_SPEECH

constexpr char const* longText
    = "This is a long text that goes on and on, for quite a while, with many words, until it is stopped at last.";

/// A sound server and a speech service of the benchmark's own, and what is heard of them.
struct Services {
    Services() { installHost(std::make_unique<SpeakingHost>(optionsFor(service.socketPath()))); }
    ~Services()
    {
        sharedSpeechSynthesizer = nullptr;
        installHost(nullptr);
    }
    Services(Services const&) = delete;
    Services& operator=(Services const&) = delete;

    double secondsHeard() const { return static_cast<double>(recorder.samples().size()) / PulseRecorder::rate; }
    std::vector<std::pair<double, double>> stretches(double silence) const
    {
        return soundingStretches(recorder.samples(), silence);
    }
    void listen(std::function<bool()> const& condition)
    {
        if (!listenUntil(recorder, condition))
            throw std::runtime_error("nothing is heard");
    }
    void listenUntilStill()
    {
        constexpr double stillness = 0.5;
        listen([this] {
            auto const all = stretches(stillness);
            return !all.empty() && secondsHeard() - all.back().second > stillness;
        });
    }

    PulseServer sound;
    SpeechServer service { sound };
    PulseRecorder recorder { sound };
};

bool canSpeak(Figure& figure)
{
    if (!SpeechServer::isInstalled())
        figure.skip("speech-dispatcher with espeak-ng, or pulseaudio, is not installed");
    return SpeechServer::isInstalled();
}

/// How far the silence that is heard between two strings is from the 1.8 s that it should last. The voice's own silence at both
/// ends is in it.
double gapError()
{
    constexpr double wanted = 1.8;
    Services services;
    auto const synthesizer = make<PLIXSpeechSynthesizer>();
    synthesizer->speakStrings(ObjectValue::Array { "one", "two" });
    services.listen([&] { return services.stretches(1).size() == 2; });
    auto const heard = services.stretches(1);
    synthesizer->stopSpeaking();
    return std::abs(heard[1].first - heard[0].second - wanted);
}

/// From the call that stops it to the last that is heard, in milliseconds; what the recording lags behind is in it.
double stopTime()
{
    constexpr double millisecondsOfSecond = 1000;
    Services services;
    auto const synthesizer = make<NSSpeechSynthesizer>();
    synthesizer->startSpeakingString(longText);
    services.listen(
        [&] { return !services.stretches(1).empty() && services.secondsHeard() - services.stretches(1).front().first > 1; });
    auto const stopped = services.secondsHeard();
    synthesizer->stopSpeaking();
    services.listenUntilStill();
    return (services.stretches(1).back().second - stopped) * millisecondsOfSecond;
}

/// The service is killed while it speaks, and started again: from the call that has the next text spoken until its first sound has
/// been recorded.
double recoveryTime()
{
    Services services;
    auto const synthesizer = make<NSSpeechSynthesizer>();
    synthesizer->startSpeakingString(longText);
    services.listen([&] { return !services.stretches(1).empty(); });
    services.service.kill();
    services.listen([&] { return !synthesizer->isSpeaking(); });
    services.listenUntilStill();
    services.service.start();
    services.recorder.record(0.5);
    auto const begun = services.secondsHeard();
    auto const asked = std::chrono::steady_clock::now();
    synthesizer->startSpeakingString("again");
    services.listen([&] { return services.stretches(1).back().second >= begun; });
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - asked).count();
}

PLIX_FIGURE("speech.gap_error")
{
    figure.setUnit("s");
    figure.setRuns(3);
    if (canSpeak(figure))
        figure.sample(gapError);
}

PLIX_FIGURE("speech.stop")
{
    figure.setRuns(3);
    if (canSpeak(figure))
        figure.sample(stopTime);
}

PLIX_FIGURE("speech.recovery")
{
    figure.setUnit("s");
    figure.setRuns(3);
    if (canSpeak(figure))
        figure.sample(recoveryTime);
}

#else

PLIX_FIGURE("speech.gap_error")
{
    figure.skip("built without speech");
}

PLIX_FIGURE("speech.stop")
{
    figure.skip("built without speech");
}

PLIX_FIGURE("speech.recovery")
{
    figure.skip("built without speech");
}

#endif

}

}
