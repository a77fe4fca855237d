#include "values_peers.h"

#include <csv.h>

namespace plix::bench {

std::size_t countOfFieldsByLibcsv(std::string_view line)
{
    csv_parser parser;
    csv_init(&parser, 0);
    std::size_t count = 0;
    auto const onField = [](void*, std::size_t, void* fields) { ++*static_cast<std::size_t*>(fields); };
    auto const onRow = [](int, void*) {};
    csv_parse(&parser, line.data(), line.size(), onField, onRow, &count);
    csv_fini(&parser, onField, onRow, &count);
    csv_free(&parser);
    return count;
}

}
