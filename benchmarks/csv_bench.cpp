#include "bench.h"
#include "values_peers.h"

#include <plix/format/csv_line.h>

#include <random>
#include <stdexcept>

namespace plix::bench {

namespace {

constexpr std::size_t lineLength = std::size_t { 1 } << 20;

enum class Quotes { None, EveryOtherField };

// Fields of nine letters.
std::string longLine(Quotes quotes)
{
    std::mt19937 random(1);
    std::string line = "nineletrs";
    for (long field = 0; line.size() < lineLength; ++field) {
        bool const isQuoted = quotes == Quotes::EveryOtherField && field % 2 == 0;
        line += isQuoted ? ",\"" : ",";
        for (int i = 0; i < 9; ++i)
            line += static_cast<char>('a' + random() % 26);
        if (isQuoted)
            line += '"';
    }
    return line;
}

void measure(Figure& figure, Quotes quotes)
{
    auto const line = longLine(quotes);
    Work const ours { [&] { keep(CSVLineComponents(line)); } };
#ifdef PLIX_BENCH_LIBCSV
    if (CSVLineComponents(line).size() != countOfFieldsByLibcsv(line))
        throw std::runtime_error("the two find different fields");
    figure.wantRatio(2);
    figure.timeAgainst("libcsv", ours, { [&] { keep(countOfFieldsByLibcsv(line)); } });
#else
    figure.time(ours);
#endif
}

}

PLIX_FIGURE("csv.line")
{
    measure(figure, Quotes::None);
}

PLIX_FIGURE("csv.quoted")
{
    measure(figure, Quotes::EveryOtherField);
}

}
