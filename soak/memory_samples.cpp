#include "memory_samples.h"

#include <plix/platform/base/living_objects.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <limits>
#include <string>
#include <vector>

#include <malloc.h>

namespace soak {

namespace {

double median(std::span<MemorySample const> samples, double MemorySample::*figure)
{
    std::vector<double> values;
    for (auto const& sample : samples)
        values.push_back(sample.*figure);
    auto const middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

struct Resident {
    double ownBytes { 0 };
    double bytes { 0 };
};

Resident resident()
{
    std::ifstream file("/proc/self/status");
    double own = 0;
    double all = 0;
    for (std::string line; std::getline(file, line);) {
        long kibibytes = 0;
        if (std::sscanf(line.c_str(), "RssAnon: %ld kB", &kibibytes) == 1)
            own = static_cast<double>(kibibytes) * 1024;
        else if (std::sscanf(line.c_str(), "VmRSS: %ld kB", &kibibytes) == 1)
            all = static_cast<double>(kibibytes) * 1024;
    }
    return { own, all };
}

}

MemorySample sampleMemory(double seconds)
{
    auto const heap = ::mallinfo2();
    auto const [ownBytes, residentBytes] = resident();
    return { seconds, ownBytes, residentBytes, static_cast<double>(heap.uordblks) + static_cast<double>(heap.hblkhd),
        static_cast<double>(plix::livingObjects()) };
}

Growth growth(std::span<MemorySample const> samples, double MemorySample::*figure)
{
    constexpr std::size_t fewestSamples = 8;
    if (samples.size() < fewestSamples)
        return { 0, 0, std::numeric_limits<double>::infinity() };
    auto const quarter = samples.size() / 4;
    Growth result { median(samples.first(quarter), figure), median(samples.last(quarter), figure), 0 };
    result.share = result.last / result.first - 1;
    return result;
}

std::span<MemorySample const> afterWarmUp(std::span<MemorySample const> samples, double seconds)
{
    auto const first = std::ranges::find_if(samples, [=](auto const& sample) { return sample.seconds >= seconds; });
    return samples.subspan(static_cast<std::size_t>(first - samples.begin()));
}

}
