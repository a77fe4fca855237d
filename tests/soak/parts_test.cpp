#include <soak/RandomEvent.h>
#include <soak/SampleFolder.h>
#include <soak/memory_samples.h>
#include <soak/options.h>
#include <soak/shrinking.h>
#include <soak/write_fence.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <set>

#include <sys/wait.h>
#include <unistd.h>

namespace soak {
namespace {

std::vector<MemorySample> samplesOf(std::vector<double> const& bytes)
{
    std::vector<MemorySample> samples;
    for (auto const value : bytes)
        samples.push_back({ static_cast<double>(samples.size()), value, 0, 0 });
    return samples;
}

TEST(Growth, ComparesTheMiddlesOfTheFirstAndTheLastQuarter)
{
    auto const grown = growth(samplesOf({ 100, 100, 900, 5, 5, 5, 5, 5, 5, 110, 110, 1 }), &MemorySample::ownBytes);
    EXPECT_EQ(grown.first, 100);
    EXPECT_EQ(grown.last, 110);
    EXPECT_NEAR(grown.share, 0.1, 1e-9);
}

TEST(Growth, OfTooFewSamplesIsNotKnown)
{
    EXPECT_TRUE(std::isinf(growth(samplesOf({ 1, 1, 1, 1, 1, 1, 1 }), &MemorySample::ownBytes).share));
    EXPECT_EQ(growth(samplesOf({ 1, 1, 1, 1, 1, 1, 1, 1 }), &MemorySample::ownBytes).share, 0);
}

TEST(Growth, LeavesOutTheWarmUp)
{
    auto const samples = samplesOf({ 1, 2, 3, 4 });
    auto const rest = afterWarmUp(samples, 2);
    ASSERT_EQ(rest.size(), 2U);
    EXPECT_EQ(rest[0].ownBytes, 3);
    EXPECT_TRUE(afterWarmUp(samples, 9).empty());
}

TEST(MemorySamples, SeeWhatTheProcessHolds)
{
    auto const before = sampleMemory(7);
    std::vector<char> const taken(8U << 20U, 'x');
    auto const after = sampleMemory(8);
    EXPECT_EQ(before.seconds, 7);
    EXPECT_GT(before.ownBytes, 0);
    EXPECT_GT(before.residentBytes, before.ownBytes);
    EXPECT_GE(after.ownBytes - before.ownBytes, 7.0 * 1024 * 1024) << taken.size();
}

TEST(RandomEvents, AreTheSameForTheSameNumbers)
{
    auto const texts = [](std::uint32_t seed, std::uint32_t chapter) {
        std::vector<std::string> all;
        for (auto const& event : chapterEvents(seed, chapter, 30))
            all.push_back(description(event));
        return all;
    };
    EXPECT_EQ(texts(1, 2), texts(1, 2));
    EXPECT_NE(texts(1, 2), texts(1, 3));
    EXPECT_NE(texts(1, 2), texts(2, 2));
}

TEST(RandomEvents, AreOfEveryKind)
{
    std::set<std::string> kinds;
    for (auto const& event : chapterEvents(1, 1, 20000))
        kinds.insert(name(event.kind));
    EXPECT_EQ(kinds.size(), static_cast<std::size_t>(RandomEvent::Kind::disableControl) + 1);
}

TEST(Shrinking, LeavesWhatTheFailureTakes)
{
    std::vector<int> row(200);
    for (int i = 0; i < 200; ++i)
        row[static_cast<std::size_t>(i)] = i;
    int trials = 0;
    auto const few = shrunk(row, [&](auto const& some) {
        ++trials;
        auto const has = [&](int number) { return std::ranges::find(some, number) != some.end(); };
        return has(3) && has(77) && has(190);
    });
    EXPECT_EQ(few, (std::vector { 3, 77, 190 }));
    EXPECT_LT(trials, 200);
}

TEST(CommandLine, TakesWordsWithAndWithoutValues)
{
    char const* const words[] { "program", "--seed", "7", "--shrink", "--page", "text" };
    CommandLine line(6, words, { "seed", "page", "events" }, { "shrink" });
    EXPECT_EQ(line.number("seed", 1), 7);
    EXPECT_EQ(line.number("events", 12), 12);
    EXPECT_EQ(line.text("page"), "text");
    EXPECT_TRUE(line.has("shrink"));
    EXPECT_EQ(line.problem(), "");
    EXPECT_EQ(line.number("page", 3), 3);
    EXPECT_EQ(line.problem(), "--page takes a number, not \"text\"");
}

TEST(CommandLine, SaysWhatItDoesNotKnow)
{
    char const* const unknown[] { "program", "--sead", "7" };
    EXPECT_NE(CommandLine(3, unknown, { "seed" }, {}).problem(), "");
    char const* const cut[] { "program", "--seed" };
    EXPECT_EQ(CommandLine(2, cut, { "seed" }, {}).problem(), "unknown option, or one without its value: --seed");
}

TEST(SampleFolder, IsPutBackToWhatItWas)
{
    namespace fs = std::filesystem;
    SampleFolder const folder;
    auto const path = [&](char const* name) { return fs::path(folder.path()) / name; };
    auto const size = fs::file_size(path("many amounts.csv"));
    fs::remove(path("many amounts.csv"));
    fs::remove_all(path("delta"));
    std::ofstream(path("alpha/new")) << "x";
    fs::create_directories(path("other/deep"));
    folder.restore();
    EXPECT_EQ(fs::file_size(path("many amounts.csv")), size);
    EXPECT_TRUE(fs::exists(path("delta/deep/deeper/note 25.md")));
    EXPECT_FALSE(fs::exists(path("alpha/new")));
    EXPECT_FALSE(fs::exists(path("other")));
}

// In a process of its own, as the fence is for good.
TEST(WriteFence, KeepsWritingInsideAFolder)
{
    SampleFolder const outside;
    SampleFolder const inside;
    auto const kept = outside.path() + "/file 1.txt";
    auto const child = ::fork();
    if (child == 0) {
        if (!fenceWrites(inside.homeFolder()))
            ::_exit(77);
        std::error_code error;
        bool const isHeld = !std::ofstream(outside.path() + "/new").is_open() && !std::ofstream(kept).is_open()
            && !std::filesystem::remove(kept, error) && !std::filesystem::create_directory(outside.path() + "/folder", error)
            && std::ifstream(kept).is_open() && std::ofstream(inside.path() + "/new").is_open()
            && std::filesystem::remove(inside.path() + "/file 1.txt", error);
        ::_exit(isHeld ? 0 : 1);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    if (WIFEXITED(status) && WEXITSTATUS(status) == 77)
        GTEST_SKIP() << "the system has no such fence";
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    EXPECT_EQ(std::filesystem::file_size(kept), 37U);
}

}
}
