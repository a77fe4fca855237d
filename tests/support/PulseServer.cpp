#include <tests/support/PulseServer.h>

#include <algorithm>
#include <cmath>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <span>
#include <stdexcept>

#include <poll.h>
#include <unistd.h>

namespace plix {

namespace {

constexpr float whisper = 0.002F;

bool isProgram(std::string const& name)
{
    std::string_view folders = std::getenv("PATH") ? std::getenv("PATH") : "";
    while (!folders.empty()) {
        auto const colon = std::min(folders.find(':'), folders.size());
        if (access((std::string(folders.substr(0, colon)) + '/' + name).c_str(), X_OK) == 0)
            return true;
        folders.remove_prefix(std::min(colon + 1, folders.size()));
    }
    return false;
}

bool isHeard(float sample)
{
    return std::abs(sample) > whisper;
}

double rootOfMeanSquare(std::span<float const> samples)
{
    double sum = 0;
    for (auto const sample : samples)
        sum += static_cast<double>(sample) * static_cast<double>(sample);
    return std::sqrt(sum / static_cast<double>(samples.size()));
}

}

EnvironmentVariable::EnvironmentVariable(std::string name, std::optional<std::string> const& value)
    : m_name(std::move(name))
{
    if (auto const* const before = std::getenv(m_name.c_str()))
        m_before = before;
    set(value);
}

EnvironmentVariable::~EnvironmentVariable()
{
    set(m_before);
}

void EnvironmentVariable::set(std::optional<std::string> const& value) const
{
    if (value)
        setenv(m_name.c_str(), value->c_str(), 1);
    else
        unsetenv(m_name.c_str());
}

bool PulseServer::isInstalled()
{
    return isProgram("pulseaudio") && isProgram("pactl") && isProgram("parec");
}

PulseServer::PulseServer()
{
    start();
}

std::vector<std::string> PulseServer::environment() const
{
    return { "PULSE_SERVER=" + m_address, "XDG_RUNTIME_DIR=" + m_folder.path(), "HOME=" + m_folder.path(), "XDG_CONFIG_HOME",
        "PULSE_RUNTIME_PATH", "PULSE_STATE_PATH", "PULSE_CONFIG_PATH", "PULSE_CLIENTCONFIG", "DISPLAY",
        "DBUS_SESSION_BUS_ADDRESS=disabled:", "LC_ALL=C" };
}

void PulseServer::start()
{
    auto const sink
        = [](char const* name) { return std::string(" -L 'module-null-sink sink_name=") + name + " rate=48000 channels=2'"; };
    // Its messages, as that root should not run it, say nothing about the test.
    auto const command = "exec pulseaudio -n --daemonize=no --exit-idle-time=-1 --disallow-exit --use-pid-file=no --disable-shm=yes"
                         " -L 'module-native-protocol-unix auth-anonymous=1 socket="
        + m_folder / "pulse.sock'" + sink("first") + sink("second") + " 2>/dev/null";
    std::error_code ignored;
    std::filesystem::remove(m_folder / "pulse.sock", ignored);
    m_server = std::make_unique<ChildProcess>(std::vector<std::string> { "sh", "-c", command }, environment());
    if (!waitUntil([this] { return control({ "info" }).find("Default Sink: first") != std::string::npos; }))
        throw std::runtime_error("the sound server did not start");
}

void PulseServer::kill()
{
    m_server->sendSignal(SIGKILL);
    m_server->waitForEnd();
}

void PulseServer::freeze()
{
    m_server->sendSignal(SIGSTOP);
}

void PulseServer::goOn()
{
    m_server->sendSignal(SIGCONT);
}

std::string PulseServer::control(std::vector<std::string> const& words) const
{
    std::vector<std::string> command { "sh", "-c", "exec pactl \"$@\" 2>/dev/null", "pactl" };
    command.insert(command.end(), words.begin(), words.end());
    return outputOf(command, environment());
}

void PulseServer::setVolume(std::string const& sink, int left, int right)
{
    control({ "set-sink-volume", sink, std::to_string(left) + '%', std::to_string(right) + '%' });
}

void PulseServer::setDefaultSink(std::string const& sink)
{
    control({ "set-default-sink", sink });
}

void PulseServer::removeSinks()
{
    control({ "unload-module", "module-null-sink" });
}

int PulseServer::inputCount() const
{
    auto const list = control({ "list", "short", "sink-inputs" });
    return static_cast<int>(std::count(list.begin(), list.end(), '\n'));
}

PulseRecorder::PulseRecorder(PulseServer const& server, std::string const& sink)
    : m_tool({ "parec", "--device=" + sink + ".monitor", "--format=float32le", "--rate=" + std::to_string(rate), "--channels=2",
                 "--latency-msec=20" },
        server.environment())
{
    // It records from now on, not from some moment after.
    auto const begun = record(0.01).size();
    if (begun == 0)
        throw std::runtime_error("the sound server's output can't be recorded");
    m_samples.clear();
}

void PulseRecorder::read()
{
    pollfd waiting { m_tool.output(), POLLIN, 0 };
    constexpr int moment = 50;
    if (poll(&waiting, 1, moment) <= 0)
        return;
    char bytes[1 << 14];
    auto const size = ::read(m_tool.output(), bytes, sizeof bytes);
    if (size <= 0)
        return;
    m_rest.append(bytes, static_cast<std::size_t>(size));
    constexpr std::size_t frame = 2 * sizeof(float);
    std::size_t place = 0;
    for (; place + frame <= m_rest.size(); place += frame) {
        float sample = 0;
        std::memcpy(&sample, m_rest.data() + place, sizeof sample);
        m_samples.push_back(sample);
    }
    m_rest.erase(0, place);
}

std::vector<float> const& PulseRecorder::record(double seconds)
{
    auto const wanted = m_samples.size() + static_cast<std::size_t>(seconds * rate);
    waitUntil(
        [&] {
            read();
            return m_samples.size() >= wanted;
        },
        Seconds(seconds) + s_patience);
    return m_samples;
}

bool PulseRecorder::recordUntilStill(double stillness, Seconds patience)
{
    auto const still = static_cast<std::ptrdiff_t>(stillness * rate);
    return waitUntil(
        [&] {
            read();
            auto const last = std::find_if(m_samples.rbegin(), m_samples.rend(), isHeard);
            return last != m_samples.rend() && last - m_samples.rbegin() >= still;
        },
        patience);
}

double loudness(std::vector<float> const& samples)
{
    auto const first = std::find_if(samples.begin(), samples.end(), isHeard);
    auto const last = std::find_if(samples.rbegin(), samples.rend(), isHeard).base();
    constexpr std::ptrdiff_t piece = PulseRecorder::rate / 20;
    std::vector<double> pieces;
    for (auto place = first; place < last; place += std::min(piece, last - place)) {
        auto const end = place + std::min(piece, last - place);
        // The last one only where there is no other.
        if ((end - place == piece || pieces.empty()) && std::any_of(place, end, isHeard))
            pieces.push_back(rootOfMeanSquare({ place, end }));
    }
    if (pieces.empty())
        return 0;
    auto const middle = pieces.begin() + std::ssize(pieces) / 2;
    std::ranges::nth_element(pieces, middle);
    return *middle;
}

double loudnessWithin(std::vector<float> const& samples, double margin)
{
    auto const stretches = soundingStretches(samples, static_cast<double>(samples.size()));
    if (stretches.empty() || stretches.front().second - stretches.front().first <= 2 * margin)
        return 0;
    auto const place = [&](double time) { return samples.begin() + static_cast<std::ptrdiff_t>(time * PulseRecorder::rate); };
    return loudness({ place(stretches.front().first + margin), place(stretches.front().second - margin) });
}

double soundingTime(std::vector<float> const& samples)
{
    auto const stretches = soundingStretches(samples, static_cast<double>(samples.size()));
    return stretches.empty() ? 0 : stretches.front().second - stretches.front().first;
}

std::vector<std::pair<double, double>> soundingStretches(std::vector<float> const& samples, double silence)
{
    std::vector<std::pair<double, double>> stretches;
    for (std::size_t index = 0; index < samples.size(); ++index) {
        if (!isHeard(samples[index]))
            continue;
        auto const time = static_cast<double>(index) / PulseRecorder::rate;
        if (stretches.empty() || time - stretches.back().second > silence)
            stretches.emplace_back(time, time);
        stretches.back().second = time;
    }
    return stretches;
}

}
