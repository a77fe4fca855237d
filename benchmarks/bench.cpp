#include "bench.h"

#include "figures.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <stdexcept>

namespace plix::bench {

namespace {

using Clock = std::chrono::steady_clock;

// Shorter runs are at the mercy of the clock and of one interrupt.
constexpr double shortestRunInSeconds = 0.002;

double secondsOf(std::function<void()> const& body, long times)
{
    auto const start = Clock::now();
    for (long i = 0; i < times; ++i)
        body();
    return std::chrono::duration<double>(Clock::now() - start).count();
}

long timesForOneRun(std::function<void()> const& body)
{
    for (long times = 1;; times *= 2) {
        if (secondsOf(body, times) >= shortestRunInSeconds)
            return times;
    }
}

std::string quoted(std::string const& text)
{
    std::string result = "\"";
    for (char const character : text) {
        if (character == '"' || character == '\\')
            result += '\\';
        if (static_cast<unsigned char>(character) >= 0x20)
            result += character;
    }
    return result + '"';
}

std::string number(double value)
{
    char buffer[40];
    std::snprintf(buffer, sizeof buffer, "%.6g", value);
    return buffer;
}

}

std::vector<Registered>& registeredFigures()
{
    static std::vector<Registered> figures;
    return figures;
}

Registration::Registration(char const* name, void (*run)(Figure&))
{
    registeredFigures().push_back({ name, run });
}

Summary summaryOf(std::vector<double> values)
{
    if (values.empty())
        return {};
    std::sort(values.begin(), values.end());
    auto const middle = values.size() / 2;
    auto const median = values.size() % 2 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
    return { median, values.front(), values.back(), static_cast<int>(values.size()) };
}

Figure::Figure(std::string name)
    : m_name(std::move(name))
{
}

double Figure::unitsPerSecond() const
{
    if (m_unit == "ns")
        return 1e9;
    return m_unit == "us" ? 1e6 : 1e3;
}

std::function<double()> Figure::timer(Work const& work) const
{
    auto const scale = unitsPerSecond();
    if (work.prepare) {
        return [work, scale] {
            work.prepare();
            return secondsOf(work.body, 1) * scale;
        };
    }
    auto const times = timesForOneRun(work.body);
    return [work, scale, times] { return secondsOf(work.body, times) / static_cast<double>(times) * scale; };
}

void Figure::measure(std::function<double()> const& ours, std::function<double()> const& theirs)
{
    std::vector<double> ourValues;
    std::vector<double> theirValues;
    ours();
    if (theirs)
        theirs();
    for (int i = 0; i < m_runs; ++i) {
        ourValues.push_back(ours());
        if (theirs)
            theirValues.push_back(theirs());
    }
    m_ours = summaryOf(std::move(ourValues));
    m_theirs = summaryOf(std::move(theirValues));
}

void Figure::time(Work const& ours)
{
    if (m_unit.empty())
        m_unit = "ms";
    measure(timer(ours), nullptr);
}

void Figure::timeAgainst(std::string peer, Work const& ours, Work const& theirs)
{
    if (m_unit.empty())
        m_unit = "ms";
    m_peer = std::move(peer);
    measure(timer(ours), timer(theirs));
}

void Figure::sample(std::function<double()> const& ours)
{
    measure(ours, nullptr);
}

void Figure::sampleAgainst(std::string peer, std::function<double()> const& ours, std::function<double()> const& theirs)
{
    m_peer = std::move(peer);
    measure(ours, theirs);
}

void Figure::count(double value)
{
    if (m_unit.empty())
        m_unit = "count";
    m_ours = summaryOf({ value });
}

void Figure::countAgainst(std::string peer, double value, double peerValue)
{
    count(value);
    m_peer = std::move(peer);
    m_theirs = summaryOf({ peerValue });
}

std::optional<double> Figure::ratio() const
{
    if (m_peer.empty() || m_ours.median == 0 || m_theirs.median == 0)
        return std::nullopt;
    auto const theirsOverOurs = m_theirs.median / m_ours.median;
    return m_better == Better::Lower ? theirsOverOurs : 1 / theirsOverOurs;
}

std::string Figure::json() const
{
    std::string line = "{\"name\": " + quoted(m_name);
    if (isSkipped())
        return line + ", \"skipped\": " + quoted(m_skipReason) + "}";
    auto const givenRatio = ratio();
    line += ", \"value\": " + number(m_ours.median);
    line += ", \"unit\": " + quoted(m_unit);
    line += m_better == Better::Lower ? ", \"better\": \"lower\"" : ", \"better\": \"higher\"";
    line += ", \"peer\": " + (m_peer.empty() ? "null" : quoted(m_peer));
    line += ", \"peer_value\": " + (m_peer.empty() ? "null" : number(m_theirs.median));
    line += ", \"ratio\": " + (givenRatio ? number(*givenRatio) : "null");
    line += ", \"runs\": " + std::to_string(m_ours.runs);
    line += ", \"min\": " + number(m_ours.minimum);
    line += ", \"max\": " + number(m_ours.maximum);
    if (m_wantedRatio)
        line += ", \"wanted\": " + number(*m_wantedRatio);
    return line + "}";
}

}
