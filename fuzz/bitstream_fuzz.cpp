#include "fuzz.h"

#include <tests/bitstream/reader_program.h>

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    auto const difference = plix::test::ReaderProgram({ data, size }).run();
    if (difference)
        std::fprintf(stderr, "%s\n", difference->c_str());
    FUZZ_CHECK(!difference);
    return 0;
}
