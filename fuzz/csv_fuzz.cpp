#include "fuzz.h"

#include <plix/format/csv_line.h>

#include <tests/format/csv_definition.h>

using namespace plix;

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    std::string_view const line(reinterpret_cast<char const*>(data), size);
    FUZZ_CHECK(CSVLineComponents(line) == test::fieldsByDefinition(line));
    return 0;
}
