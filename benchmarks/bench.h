#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace plix::bench {

enum class Better { Lower, Higher };

/// Something to be timed. `prepare` runs before each timed call, outside the clock; without it short bodies are repeated
/// until a run is long enough to be timed.
struct Work {
    std::function<void()> body;
    std::function<void()> prepare {};
};

struct Summary {
    double median { 0 };
    double minimum { 0 };
    double maximum { 0 };
    int runs { 0 };
};

/// Of no values: all zero.
Summary summaryOf(std::vector<double> values);

/// One named figure of a report. A benchmark fills it by one of the measuring operations; runs of ours and of the peer
/// take turns, so that both meet the same machine. A benchmark that can't be run here calls skip() instead.
class Figure {
public:
    explicit Figure(std::string name);

    std::string const& name() const { return m_name; }

    /// How often ours and the peer are measured; 21 unless set. One more run of each comes first and is not counted.
    void setRuns(int runs) { m_runs = runs; }
    /// Times are given in ms unless this says "us" or "ns"; for other values it is only a label.
    void setUnit(std::string unit) { m_unit = std::move(unit); }
    void setBetter(Better better) { m_better = better; }
    /// The ratio that is wanted at least; the table shows where it was missed.
    void wantRatio(double ratio) { m_wantedRatio = ratio; }

    void time(Work const& ours);
    void timeAgainst(std::string peer, Work const& ours, Work const& theirs);
    /// Values that the functions measure themselves, in the figure's unit.
    void sample(std::function<double()> const& ours);
    void sampleAgainst(std::string peer, std::function<double()> const& ours, std::function<double()> const& theirs);
    /// One exact value: a count, a size.
    void count(double value);
    void countAgainst(std::string peer, double value, double peerValue);
    void skip(std::string reason) { m_skipReason = std::move(reason); }

    bool isSkipped() const { return !m_skipReason.empty(); }
    std::string const& skipReason() const { return m_skipReason; }
    bool isMeasured() const { return m_ours.runs > 0; }
    Summary const& ours() const { return m_ours; }
    std::string const& peer() const { return m_peer; }
    std::optional<double> wantedRatio() const { return m_wantedRatio; }
    /// How many times better than the peer; nothing without a peer, or where either value is 0.
    std::optional<double> ratio() const;
    /// The figure as one line of JSON, without a newline.
    std::string json() const;
    std::string const& unit() const { return m_unit; }
    double peerValue() const { return m_theirs.median; }

private:
    void measure(std::function<double()> const& ours, std::function<double()> const& theirs);
    std::function<double()> timer(Work const&) const;
    double unitsPerSecond() const;

    std::string m_name;
    std::string m_unit;
    std::string m_peer;
    std::string m_skipReason;
    Better m_better { Better::Lower };
    int m_runs { 21 };
    Summary m_ours;
    Summary m_theirs;
    std::optional<double> m_wantedRatio;
};

/// A namespace-scope object of this type adds a benchmark to the program; see PLIX_FIGURE.
struct Registration {
    Registration(char const* name, void (*run)(Figure&));
};

/// Keeps the compiler from leaving out what only the benchmark looks at.
template <typename T> void keep(T const& value)
{
    asm volatile("" : : "g"(&value) : "memory");
}

}

#define PLIX_FIGURE_JOIN(a, b) a##b
#define PLIX_FIGURE_NAMED(name, line)                                                                                              \
    static void PLIX_FIGURE_JOIN(figure_, line)(::plix::bench::Figure&);                                                           \
    static ::plix::bench::Registration const PLIX_FIGURE_JOIN(registration_, line) { name, PLIX_FIGURE_JOIN(figure_, line) };      \
    static void PLIX_FIGURE_JOIN(figure_, line)([[maybe_unused]] ::plix::bench::Figure & figure)
#define PLIX_FIGURE_AT(name, line) PLIX_FIGURE_NAMED(name, line)
/// PLIX_FIGURE("text.draw_new") { figure.timeAgainst(...); }
#define PLIX_FIGURE(name) PLIX_FIGURE_AT(name, __LINE__)
