#include "../../benchmarks/bench.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace plix::bench {
namespace {

TEST(BenchSummary, TakesTheMedian)
{
    struct {
        std::vector<double> values;
        double median, minimum, maximum;
    } const rows[] = {
        { { 7 }, 7, 7, 7 },
        { { 3, 1, 2 }, 2, 1, 3 },
        { { 4, 1, 3, 2 }, 2.5, 1, 4 },
        { { 1, 1, 100 }, 1, 1, 100 },
    };
    for (auto const& row : rows) {
        auto const summary = summaryOf(row.values);
        EXPECT_EQ(summary.median, row.median);
        EXPECT_EQ(summary.minimum, row.minimum);
        EXPECT_EQ(summary.maximum, row.maximum);
        EXPECT_EQ(summary.runs, static_cast<int>(row.values.size()));
    }
    EXPECT_EQ(summaryOf({}).runs, 0);
}

TEST(BenchFigure, RatioSaysHowManyTimesBetterThanThePeer)
{
    Figure lower("a");
    lower.countAgainst("peer", 2, 10);
    EXPECT_EQ(lower.ratio(), 5);

    Figure higher("a");
    higher.setBetter(Better::Higher);
    higher.countAgainst("peer", 2, 10);
    EXPECT_EQ(higher.ratio(), 0.2);

    Figure alone("a");
    alone.count(2);
    EXPECT_EQ(alone.ratio(), std::nullopt);
}

TEST(BenchFigure, OursAndThePeerTakeTurnsAndTheFirstRunIsNotCounted)
{
    std::string order;
    double value = 100;
    Figure figure("a");
    figure.setRuns(3);
    figure.sampleAgainst(
        "peer",
        [&] {
            order += 'o';
            return value--;
        },
        [&] {
            order += 'p';
            return 1.0;
        });
    EXPECT_EQ(order, "opopopop");
    EXPECT_EQ(figure.ours().maximum, 99);
    EXPECT_EQ(figure.ours().minimum, 97);
    EXPECT_EQ(figure.ours().runs, 3);
}

TEST(BenchFigure, PreparesBeforeEachTimedCall)
{
    std::string order;
    Figure figure("a");
    figure.setRuns(2);
    figure.time({ .body = [&] { order += 'b'; }, .prepare = [&] { order += 'p'; } });
    EXPECT_EQ(order, "pbpbpb");
    EXPECT_EQ(figure.unit(), "ms");
}

TEST(BenchFigure, IsOneLineOfJson)
{
    Figure figure("text.draw_new");
    figure.countAgainst("a \"fresh\" layout", 2, 5);
    EXPECT_EQ(figure.json(),
        "{\"name\": \"text.draw_new\", \"value\": 2, \"unit\": \"count\", \"better\": \"lower\", "
        "\"peer\": \"a \\\"fresh\\\" layout\", \"peer_value\": 5, \"ratio\": 2.5, \"runs\": 1, \"min\": 2, \"max\": 2}");

    figure.wantRatio(3);
    EXPECT_TRUE(figure.json().ends_with("\"max\": 2, \"wanted\": 3}"));

    Figure skipped("sound.sixteen");
    skipped.skip("no sound server");
    EXPECT_EQ(skipped.json(), "{\"name\": \"sound.sixteen\", \"skipped\": \"no sound server\"}");

    Figure alone("view.count");
    alone.setBetter(Better::Higher);
    alone.count(0);
    EXPECT_EQ(alone.json(),
        "{\"name\": \"view.count\", \"value\": 0, \"unit\": \"count\", \"better\": \"higher\", "
        "\"peer\": null, \"peer_value\": null, \"ratio\": null, \"runs\": 1, \"min\": 0, \"max\": 0}");
}

}
}
