#include "bench.h"
#include "values_peers.h"

#include <plix/format/TQTimeIntervalFormatter.h>
#include <plix/format/size_and_duration.h>

#include <cmath>
#include <cstdio>
#include <random>

namespace plix::bench {

namespace {

// So many that the processor can't learn them.
constexpr std::size_t count = 65536;

std::vector<std::uint64_t> spreadSizes()
{
    std::mt19937 random(1);
    std::uniform_real_distribution<double> magnitude(0, std::log(1e13));
    std::vector<std::uint64_t> sizes(count);
    for (auto& size : sizes)
        size = static_cast<std::uint64_t>(std::exp(magnitude(random)));
    return sizes;
}

std::vector<std::uint32_t> spreadDurations()
{
    std::mt19937 random(2);
    std::vector<std::uint32_t> durations(count);
    for (auto& seconds : durations)
        seconds = static_cast<std::uint32_t>(random() % (100 * 3600));
    return durations;
}

template <typename Values, typename Call> Work forEach(Values const& values, Call call)
{
    return { [&values, call] {
        for (auto const& value : values)
            keep(call(value));
    } };
}

std::size_t clockBySnprintf(std::uint32_t seconds)
{
    char text[32];
    auto const length = std::snprintf(text, sizeof text, "%02u:%02u:%02u", seconds / 3600, seconds / 60 % 60, seconds % 60);
    keep(text);
    return static_cast<std::size_t>(length);
}

}

PLIX_FIGURE("format.size")
{
    auto const sizes = spreadSizes();
    auto const ours = forEach(sizes, [](auto size) { return StringForFileSize(size); });
#ifdef PLIX_BENCH_GLIB
    figure.wantRatio(3);
    figure.timeAgainst("g_format_size", ours, forEach(sizes, [](auto size) { return lengthOfSizeByGLib(size); }));
#else
    figure.time(ours);
#endif
}

PLIX_FIGURE("format.clock")
{
    auto const durations = spreadDurations();
    figure.wantRatio(3);
    figure.timeAgainst("snprintf", forEach(durations, [](auto seconds) { return TimeIntervalDescription(seconds); }),
        forEach(durations, [](auto seconds) { return clockBySnprintf(seconds); }));
}

PLIX_FIGURE("format.interval")
{
    auto const durations = spreadDurations();
    auto const formatter = make<TQTimeIntervalFormatter>();
    figure.time(forEach(durations, [&](auto seconds) { return formatter->stringForObjectValue(seconds); }));
}

PLIX_FIGURE("parse.interval")
{
    auto const formatter = make<TQTimeIntervalFormatter>();
    std::vector<std::string> texts;
    for (auto const seconds : spreadDurations())
        texts.push_back(formatter->stringForObjectValue(seconds).value());
    figure.time(forEach(texts, [&](auto const& text) {
        ObjectValue value;
        std::string error;
        formatter->getObjectValue(value, text, error);
        return value;
    }));
}

}
