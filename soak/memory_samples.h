#pragma once

#include <cstddef>
#include <span>

namespace soak {

/// What a process holds at one moment.
struct MemorySample {
    double seconds { 0 }; ///< since the run began
    /// Of the process's own, resident: stacks, heap and what is mapped without a file. Not the pages of programs and libraries,
    /// which come in when they are used first and which the machine drops when it likes.
    double ownBytes { 0 };
    double residentBytes { 0 }; ///< with those
    double allocatedBytes { 0 }; ///< in use on the heap
    double objects { 0 };
};

/// Now; objects are those of the library.
MemorySample sampleMemory(double seconds);

/// How a figure grew between the first and the last quarter of samples: the quarters' medians, and the second as a share of the
/// first, less one. Of fewer than eight samples nothing is known, and the growth is infinite.
struct Growth {
    double first { 0 };
    double last { 0 };
    double share { 0 };
};
Growth growth(std::span<MemorySample const>, double MemorySample::*figure);

/// The samples after the first of these seconds.
std::span<MemorySample const> afterWarmUp(std::span<MemorySample const>, double seconds);

}
