#include "bench.h"
#include "figures.h"

#include <algorithm>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <string_view>

namespace plix::bench {
namespace {

struct Options {
    std::string prefix;
    std::string outputFile;
    bool listsOnly { false };
    bool isValid { true };
};

Options optionsFrom(int count, char** arguments)
{
    Options options;
    for (int i = 1; i < count; ++i) {
        std::string_view const argument = arguments[i];
        if (argument == "--list")
            options.listsOnly = true;
        else if (argument == "--only" && i + 1 < count)
            options.prefix = arguments[++i];
        else if (argument == "--out" && i + 1 < count)
            options.outputFile = arguments[++i];
        else
            options.isValid = false;
    }
    return options;
}

void printRow(Figure const& figure)
{
    if (figure.isSkipped()) {
        std::printf("%-40s %s\n", figure.name().c_str(), ("not measured: " + figure.skipReason()).c_str());
        return;
    }
    auto const& ours = figure.ours();
    std::printf("%-40s %12.6g %-6s (%.6g .. %.6g, %d)", figure.name().c_str(), ours.median, figure.unit().c_str(), ours.minimum,
        ours.maximum, ours.runs);
    if (!figure.peer().empty())
        std::printf("  %s: %.6g", figure.peer().c_str(), figure.peerValue());
    if (auto const ratio = figure.ratio())
        std::printf("  %.2f x", *ratio);
    if (auto const wanted = figure.wantedRatio())
        std::printf("%s", figure.ratio().value_or(0) >= *wanted ? "  (as wanted)" : "  BELOW WHAT IS WANTED");
    std::printf("\n");
}

/// False where the benchmark failed.
bool runFigure(Registered const& registered, std::string& report)
{
    Figure figure(registered.name);
    try {
        registered.run(figure);
        if (!figure.isSkipped() && !figure.isMeasured())
            throw std::runtime_error("the benchmark measured nothing");
    } catch (std::exception const& failure) {
        std::printf("%-40s FAILED: %s\n", registered.name.c_str(), failure.what());
        return false;
    }
    printRow(figure);
    std::fflush(stdout);
    report += figure.json() + "\n";
    return true;
}

int runAll(Options const& options)
{
    auto figures = registeredFigures();
    std::erase_if(figures, [&](Registered const& figure) { return !figure.name.starts_with(options.prefix); });
    std::sort(figures.begin(), figures.end(), [](auto const& a, auto const& b) { return a.name < b.name; });
    if (options.listsOnly) {
        for (auto const& figure : figures)
            std::printf("%s\n", figure.name.c_str());
        return 0;
    }
    if (figures.empty()) {
        std::fprintf(stderr, "no figure's name begins with \"%s\"\n", options.prefix.c_str());
        return 1;
    }

    std::string report;
    bool allMeasured = true;
    for (auto const& figure : figures)
        allMeasured = runFigure(figure, report) && allMeasured;

    if (!options.outputFile.empty()) {
        std::filesystem::path const path(options.outputFile);
        if (path.has_parent_path())
            std::filesystem::create_directories(path.parent_path());
        std::ofstream stream(path, std::ios::trunc);
        if (!(stream << report).flush()) {
            std::fprintf(stderr, "could not write %s\n", options.outputFile.c_str());
            return 1;
        }
    }
    return allMeasured ? 0 : 1;
}

}
}

int main(int count, char** arguments)
{
    auto const options = plix::bench::optionsFrom(count, arguments);
    if (!options.isValid) {
        std::fprintf(stderr, "usage: plix_bench [--list] [--only PREFIX] [--out FILE]\n");
        return 2;
    }
    return plix::bench::runAll(options);
}
