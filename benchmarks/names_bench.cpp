#include "bench.h"
#include "values_peers.h"

#include <plix/system/name_comparison.h>

#include <algorithm>
#include <array>
#include <random>
#include <string>
#include <vector>

namespace plix::bench {

namespace {

// As a folder of a camera, of a builder and of a writer have them.
std::vector<std::string> fileNames(std::size_t count)
{
    static constexpr std::array<char const*, 8> stems { "IMG_", "Screenshot ", "report", "Chapter ",
        "\xC3\x9C"
        "bersicht ",
        "data-", "Copy of ", "x" };
    static constexpr std::array<char const*, 5> endings { ".jpg", ".txt", ".pdf", "", ".JPG" };
    std::mt19937 random(1);
    std::vector<std::string> names(count);
    for (auto& name : names)
        name = stems[random() % stems.size()] + std::to_string(random() % 20000) + endings[random() % endings.size()];
    return names;
}

}

PLIX_FIGURE("names.sort")
{
    auto const names = fileNames(100'000);
    std::vector<std::string> sorted;
    auto const sortBy = [&](auto isBefore) {
        return Work { [&sorted, isBefore] { std::sort(sorted.begin(), sorted.end(), isBefore); }, [&] { sorted = names; } };
    };
    auto const ours = sortBy([](auto const& a, auto const& b) { return PLIXCompareDirectoryContents(a, b) < 0; });
#ifdef PLIX_BENCH_GLIB
    figure.setRuns(3);
    figure.wantRatio(1);
    figure.timeAgainst("GLib's collation keys", ours, sortBy(sortsBeforeByGLib));
#else
    figure.time(ours);
#endif
}

}
