#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

/// What a fuzz target defines; libFuzzer's name.
extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size);

/// Ends the program where an invariant does not hold, in every kind of build.
#define FUZZ_CHECK(condition)                                                                                                      \
    do {                                                                                                                           \
        if (!(condition)) {                                                                                                        \
            std::fprintf(stderr, "%s:%d: %s does not hold\n", __FILE__, __LINE__, #condition);                                     \
            std::abort();                                                                                                          \
        }                                                                                                                          \
    } while (false)
