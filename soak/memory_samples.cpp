#include "memory_samples.h"

#include <plix/platform/base/living_objects.h>

#include <algorithm>
#include <cstdio>
#include <limits>
#include <vector>

#include <malloc.h>
#include <unistd.h>

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

double residentBytes()
{
    long pages = 0;
    long residentPages = 0;
    if (auto* const file = std::fopen("/proc/self/statm", "r")) {
        if (std::fscanf(file, "%ld %ld", &pages, &residentPages) != 2)
            residentPages = 0;
        std::fclose(file);
    }
    return static_cast<double>(residentPages) * static_cast<double>(::sysconf(_SC_PAGESIZE));
}

}

MemorySample sampleMemory(double seconds)
{
    auto const heap = ::mallinfo2();
    return { seconds, residentBytes(), static_cast<double>(heap.uordblks) + static_cast<double>(heap.hblkhd),
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
