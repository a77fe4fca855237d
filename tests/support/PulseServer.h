#pragma once

#include <tests/support/ChildProcess.h>
#include <tests/support/TestFolder.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace plix {

/// An environment variable that is set, or taken away, as long as this lives.
class EnvironmentVariable {
public:
    EnvironmentVariable(std::string name, std::optional<std::string> const& value);
    ~EnvironmentVariable();
    EnvironmentVariable(EnvironmentVariable const&) = delete;
    EnvironmentVariable& operator=(EnvironmentVariable const&) = delete;

private:
    void set(std::optional<std::string> const&) const;

    std::string m_name;
    std::optional<std::string> m_before;
};

/// A sound server of the test's own, on a socket in a folder of its own, with two outputs that nobody hears, "first" (the default
/// one) and "second". PULSE_SERVER names it as long as this lives, whether it runs or not.
class PulseServer {
public:
    /// Whether it and its tools are there.
    static bool isInstalled();

    /// Runs when this is made.
    PulseServer();

    // Each comes back when it is done.
    void start();
    /// At once, as if it had crashed.
    void kill();
    /// It keeps its connections and answers nothing, until it goes on.
    void freeze();
    void goOn();

    std::string const& address() const { return m_address; }
    /// What a program that is started with it needs.
    std::vector<std::string> environment() const;

    /// In per cent.
    void setVolume(std::string const& sink, int left, int right);
    void setDefaultSink(std::string const&);
    void removeSinks();
    /// How many sounds of clients are connected now.
    int inputCount() const;
    /// What the tool answers.
    std::string control(std::vector<std::string> const& words) const;

private:
    TestFolder m_folder;
    std::string m_address { "unix:" + m_folder / "pulse.sock" };
    EnvironmentVariable m_variable { "PULSE_SERVER", m_address };
    std::unique_ptr<ChildProcess> m_server;
};

/// What an output plays, from the moment this is made.
class PulseRecorder {
public:
    static constexpr int rate = 48000;

    explicit PulseRecorder(PulseServer const&, std::string const& sink = "first");

    /// Records on until there is that much more, and answers all of it: the left ear's samples.
    std::vector<float> const& record(double seconds);
    /// Records on until it was louder than a whisper, and still for that long after. False when that did not come in time.
    bool recordUntilStill(double stillness = 0.3, Seconds patience = s_patience);
    std::vector<float> const& samples() const { return m_samples; }

private:
    void read();

    ChildProcess m_tool;
    std::string m_rest;
    std::vector<float> m_samples;
};

/// Root of the mean square of what is no silence, from the first sample louder than a whisper to the last: that of most pieces of
/// 50 ms in which anything is heard, since a busy machine drops some, and speech pauses.
double loudness(std::vector<float> const& samples);
/// Of what is left of it without that many seconds at either end, where sounds rise and fall.
double loudnessWithin(std::vector<float> const& samples, double margin = 0.1);
/// How long that is, in seconds.
double soundingTime(std::vector<float> const& samples);
/// The stretches of sound, as (start, end) in seconds, with at least that much silence between them.
std::vector<std::pair<double, double>> soundingStretches(std::vector<float> const& samples, double silence);

}
