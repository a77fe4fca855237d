#pragma once

#include <string>
#include <vector>

namespace plix::bench {

struct ProcessRun {
    /// From just before exec to the process's end.
    double milliseconds { 0 };
    double largestResidentMebibytes { 0 };
};

/// Runs a program to its end with its output thrown away. `environment` adds lines NAME=value to our own environment.
/// Throws std::runtime_error where the program can't be started, fails or is killed.
///
/// A small launcher does it: the kernel counts the memory of the process that forked towards the new program's largest
/// resident size, and the benchmark program itself is large.
ProcessRun runProcess(std::vector<std::string> const& command, std::vector<std::string> const& environment = {});

}
